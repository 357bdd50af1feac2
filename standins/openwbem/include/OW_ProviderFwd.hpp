#ifndef OW_PROVIDER_FWD_HPP_
#define OW_PROVIDER_FWD_HPP_

#include "OW_ArrayFwd.hpp"
#include "OW_IntrusiveReference.hpp"

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
class ProviderEnvironmentIFC;

typedef IntrusiveReference<ProviderEnvironmentIFC> ProviderEnvironmentIFCRef;

} // namespace OpenWBEM

#endif
