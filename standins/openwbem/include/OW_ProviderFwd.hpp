#ifndef OW_PROVIDER_FWD_HPP_
#define OW_PROVIDER_FWD_HPP_

#include "OW_CommonFwd.hpp"

namespace OpenWBEM
{

class CppAssociatorProviderIFC;
class CppIndicationExportProviderIFC;
class CppIndicationProviderIFC;
class CppInstanceProviderIFC;
class CppMethodProviderIFC;
class CppPolledProviderIFC;
class CppProviderBaseIFC;
class CppSecondaryInstanceProviderIFC;
class InstanceProviderInfo;
class MethodProviderInfo;

typedef SharedLibraryReference<IntrusiveReference<CppProviderBaseIFC>> CppProviderBaseIFCRef;

} // namespace OpenWBEM

#endif
