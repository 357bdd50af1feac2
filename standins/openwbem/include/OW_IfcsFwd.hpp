#ifndef OW_IFCS_FWD_HPP_
#define OW_IFCS_FWD_HPP_

#include "OW_CommonFwd.hpp"

namespace OpenWBEM
{

class CIMOMHandleIFC;
class ProviderEnvironmentIFC;
class RepositoryIFC;

template <class T>
class ResultHandlerIFC;

typedef IntrusiveReference<CIMOMHandleIFC> CIMOMHandleIFCRef;
typedef IntrusiveReference<ProviderEnvironmentIFC> ProviderEnvironmentIFCRef;
typedef IntrusiveReference<RepositoryIFC> RepositoryIFCRef;

} // namespace OpenWBEM

#endif
