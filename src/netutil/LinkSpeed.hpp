#ifndef KV_NETUTIL_LINKSPEED_HPP
#define KV_NETUTIL_LINKSPEED_HPP

#include <cstdint>

/// Asks the Ethernet PHY of the interface `ifName` for the speed of its link and writes it in bit/s: 10000000
/// or 100000000, or 0 when the PHY sees no link. The speed is 10000000, too, when the PHY tells nothing
/// usable or there is no such interface. Returns 0, or -1 when no socket can be opened or `speed` is null.
/// Keeps nothing between calls and never throws.
int kv_get_EthernetIfSpeed(const char* ifName, std::uint64_t* speed);

#endif
