#ifndef OW_INTRUSIVE_COUNTABLE_BASE_HPP_
#define OW_INTRUSIVE_COUNTABLE_BASE_HPP_

#include "OW_config.h"
#include <atomic>

namespace OpenWBEM
{

// Carries the count of the IntrusiveReferences to an object. The last one deletes the object, so it must come
// from new before the first one is made.
class IntrusiveCountableBase
{
  public:
    friend void IntrusiveReferenceAddRef(IntrusiveCountableBase* p);
    friend void IntrusiveReferenceRelease(IntrusiveCountableBase* p);

  protected:
    IntrusiveCountableBase();
    IntrusiveCountableBase(const IntrusiveCountableBase&); // the count is not copied
    IntrusiveCountableBase& operator=(const IntrusiveCountableBase&);
    virtual ~IntrusiveCountableBase();

  private:
    std::atomic<int> m_count;
};

void IntrusiveReferenceAddRef(IntrusiveCountableBase* p);
void IntrusiveReferenceRelease(IntrusiveCountableBase* p);

} // namespace OpenWBEM

#endif
