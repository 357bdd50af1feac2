#include "OW_COWReference.hpp"
#include "OW_Exception.hpp"

namespace OpenWBEM
{

namespace
{
OW_DECLARE_EXCEPTION(NULLCOWIntrusiveReference)
OW_DEFINE_NUMBERED_EXCEPTION(NULLCOWIntrusiveReference, 47)
} // namespace

void throwNullReference()
{
    OW_THROW(NULLCOWIntrusiveReferenceException, "NULL COWReference dereferenced");
}

COWCountable::~COWCountable() = default;

void COWHandle::release()
{
    if (--m_data->m_count == 0) {
        delete m_data;
    }
}

} // namespace OpenWBEM
