#ifndef OPENWBEM_SRC_NULL_REFERENCE_HPP_
#define OPENWBEM_SRC_NULL_REFERENCE_HPP_

namespace OpenWBEM
{

// What using a null object throws. The class is internal: callers catch Exception.
[[noreturn]] void throwNullReference();

} // namespace OpenWBEM

#endif
