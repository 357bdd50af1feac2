#ifndef OW_SHARED_LIBRARY_HPP_
#define OW_SHARED_LIBRARY_HPP_

#include "OW_IntrusiveCountableBase.hpp"
#include "OW_IntrusiveReference.hpp"
#include "OW_String.hpp"

namespace OpenWBEM
{

// A loaded library. A host derives from it and closes the library in its destructor.
class SharedLibrary : public IntrusiveCountableBase
{
  public:
    virtual ~SharedLibrary();

  protected:
    virtual bool doGetFunctionPointer(const String& functionName, void** functionPointer) const = 0;
};

typedef IntrusiveReference<SharedLibrary> SharedLibraryRef;

} // namespace OpenWBEM

#endif
