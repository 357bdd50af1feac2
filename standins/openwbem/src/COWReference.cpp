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

} // namespace OpenWBEM
