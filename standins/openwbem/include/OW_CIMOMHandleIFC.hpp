#ifndef OW_CIMOM_HANDLE_IFC_HPP_
#define OW_CIMOM_HANDLE_IFC_HPP_

#include "OW_IfcsFwd.hpp"
#include "OW_IntrusiveReference.hpp"

namespace OpenWBEM
{

// The operations of the object manager, for providers that call it back. Declared only: a host that offers
// none handsn// out null references.
class CIMOMHandleIFC : public IntrusiveCountableBase
{
  public:
    virtual ~CIMOMHandleIFC();
};

} // namespace OpenWBEM

#endif
