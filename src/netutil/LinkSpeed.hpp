#ifndef KV_NETUTIL_LINKSPEED_HPP
#define KV_NETUTIL_LINKSPEED_HPP

#include <cstdint>

/// Asks the Ethernet PHY of the interface `ifName` for the speed of its link and writes it in bit/s: 10000000
/// or 100000000, 0 when the PHY sees no link. When it tells nothing usable, or there is no such interface,
/// 10000000. Returns 0, or -1 when no socket can be opened or `speed` is null. Keeps nothing between calls
/// and never throws.
int kv_get_EthernetIfSpeed(const char* ifName, std::uint64_t* speed);

#endif
