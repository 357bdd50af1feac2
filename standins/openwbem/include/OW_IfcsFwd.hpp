#ifndef OW_IFCS_FWD_HPP_
#define OW_IFCS_FWD_HPP_

#include "OW_CIMFwd.hpp"
#include "OW_CommonFwd.hpp"
#include "OW_IntrusiveReference.hpp"
#include "OW_SharedLibraryReference.hpp"

namespace OpenWBEM
{

class CIMOMHandleIFC;
class RepositoryIFC;

template <class T>
class ResultHandlerIFC;

typedef IntrusiveReference<CIMOMHandleIFC> CIMOMHandleIFCRef;
typedef IntrusiveReference<RepositoryIFC> RepositoryIFCRef;

} // namespace OpenWBEM

#endif
