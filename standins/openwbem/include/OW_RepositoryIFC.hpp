#ifndef OW_REPOSITORY_IFC_HPP_
#define OW_REPOSITORY_IFC_HPP_

#include "OW_IfcsFwd.hpp"
#include "OW_IntrusiveCountableBase.hpp"
#include "OW_ResultHandlerIFC.hpp"
#include "OW_WBEMFlags.hpp"

namespace OpenWBEM
{

// Where the object manager keeps classes and instances. Declared only, like the handle.
class RepositoryIFC : public IntrusiveCountableBase
{
  public:
    virtual ~RepositoryIFC();

  private:
    virtual void operations() = 0; // stands for them all, so that there can be no object here
};

} // namespace OpenWBEM

#endif
