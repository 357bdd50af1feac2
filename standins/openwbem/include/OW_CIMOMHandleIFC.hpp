#ifndef OW_CIMOM_HANDLE_IFC_HPP_
#define OW_CIMOM_HANDLE_IFC_HPP_

#include "OW_CIMFwd.hpp"
#include "OW_IfcsFwd.hpp"
#include "OW_IntrusiveCountableBase.hpp"
#include "OW_WBEMFlags.hpp"

namespace OpenWBEM
{

// The operations of the object manager, for providers that call it back. Declared only: a host that offers
// none handsn// out null references.
class CIMOMHandleIFC : public IntrusiveCountableBase
{
  public:
    virtual ~CIMOMHandleIFC();

  private:
    virtual void operations() = 0; // stands for them all, so that there can be no object here
};

} // namespace OpenWBEM

#endif
