#ifndef KV_NETUTIL_STOREDMTU_HPP
#define KV_NETUTIL_STOREDMTU_HPP

#include "system/RegistryValue.hpp"

#include <cstdint>

/// The MTU of an interface as the server's registry keeps it across restarts, in bytes: section
/// "providers\ORX_LANProvider\<interface>", value "MTUSize".
namespace storedmtu
{

/// The registry's status for a value that does not exist.
using registry::absent;

/// Reads the MTU into `mtu`, which is 0 unless the registry delivers something. Returns the registry's
/// status: 0 when the MTU was read, `absent` when none is stored, another status when the registry failed.
unsigned int read(const char* ifName, std::uint16_t& mtu);

/// Stores the MTU. A failing registry is not reported: callers go on without it.
void write(const char* ifName, std::uint16_t mtu);

} // namespace storedmtu

#endif
