#ifndef OW_REPOSITORY_IFC_HPP_
#define OW_REPOSITORY_IFC_HPP_

#include "OW_IfcsFwd.hpp"
#include "OW_IntrusiveReference.hpp"

namespace OpenWBEM
{

// Where the object manager keeps classes and instances. Declared only, like the handle.
class RepositoryIFC : public IntrusiveCountableBase
{
  public:
    virtual ~RepositoryIFC();
};

} // namespace OpenWBEM

#endif
