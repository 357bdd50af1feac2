#ifndef KV_SYSTEM_REGISTRYVALUE_HPP
#define KV_SYSTEM_REGISTRYVALUE_HPP

#include <cstdint>

/// One unsigned 16-bit number of the server's registry (the PDR), in the area of the management providers. It
/// has a name and stands in a section; the parts of a section's path are separated by backslashes.
namespace registry
{

/// The registry's status for a value that does not exist.
constexpr unsigned int absent = 0x20000D;

/// Reads one number. Returns 0, or the registry's status on failure; `value` then keeps what it held, unless
/// the registry wrote something else there.
unsigned int read(const char* section, const char* name, std::uint16_t& value);

/// Writes one number, creating it if needed. Returns 0, or the registry's status on failure.
unsigned int write(const char* section, const char* name, std::uint16_t value);

} // namespace registry

#endif
