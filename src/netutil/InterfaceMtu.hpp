#ifndef KV_NETUTIL_INTERFACEMTU_HPP
#define KV_NETUTIL_INTERFACEMTU_HPP

#include <cstdint>

/// The MTU of a live network interface, in bytes. The functions return 0 for success and -1 when the kernel
/// refuses or, with perror("socket"), when no socket can be opened. They keep nothing between calls and never
/// throw.

int kv_set_mtu(const char* ifName, std::uint32_t mtu);

/// `mtu` must not be null.
int kv_get_mtu(const char* ifName, std::uint32_t* mtu);

#endif
