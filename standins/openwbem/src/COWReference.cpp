#include "OW_COWReference.hpp"
#include "OW_Exception.hpp"

namespace OpenWBEM
{

namespace
{
OW_DECLARE_EXCEPTION(NULLCOWIntrusiveReference)
OW_DEFINE_EXCEPTION(NULLCOWIntrusiveReference)
} // namespace

void throwNullReference()
{
    OW_THROW(NULLCOWIntrusiveReferenceException, "NULL COWReference dereferenced");
}

COWCountable::~COWCountable() = default;

void COWHandle::release()
{
    // Nobody can make another handle from the only one, so that one needs no atomic step.
    if (m_data->m_count.load(std::memory_order_acquire) == 1 || m_data->m_count.fetch_sub(1) == 1) {
        delete m_data;
    }
}

} // namespace OpenWBEM
