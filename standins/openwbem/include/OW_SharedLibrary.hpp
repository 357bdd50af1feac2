#ifndef OW_SHARED_LIBRARY_HPP_
#define OW_SHARED_LIBRARY_HPP_

#include "OW_CommonFwd.hpp"
#include "OW_IntrusiveReference.hpp"

namespace OpenWBEM
{

// A loaded library. A host derives from it and closes the library in its destructor.
class SharedLibrary : public IntrusiveCountableBase
{
  public:
    virtual ~SharedLibrary();
};

} // namespace OpenWBEM

#endif
