#include "NullReference.hpp"
#include "OW_COWReference.hpp"
#include "OW_Exception.hpp"
#include <utility>

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

COWHandle::COWHandle(COWCountable* data) noexcept : m_data(data)
{
    if (m_data) {
        ++m_data->m_count;
    }
}

COWHandle::COWHandle(const COWHandle& other) noexcept : COWHandle(other.m_data) {}

COWHandle& COWHandle::operator=(const COWHandle& other) noexcept
{
    COWHandle(other).swap(*this);
    return *this;
}

COWHandle::~COWHandle()
{
    if (m_data && --m_data->m_count == 0) {
        delete m_data;
    }
}

void COWHandle::swap(COWHandle& other) noexcept
{
    std::swap(m_data, other.m_data);
}

const COWCountable& COWHandle::shared() const
{
    if (!m_data) {
        throwNullReference();
    }
    return *m_data;
}

COWCountable& COWHandle::unshared()
{
    if (!m_data) {
        throwNullReference();
    }
    if (m_data->m_count > 1) {
        COWHandle(m_data->clone()).swap(*this);
    }
    return *m_data;
}

} // namespace OpenWBEM
