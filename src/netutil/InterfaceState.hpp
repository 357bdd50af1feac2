#ifndef KV_NETUTIL_INTERFACESTATE_HPP
#define KV_NETUTIL_INTERFACESTATE_HPP

#include <cstdint>

/// The type of a network interface ("eth0", "eth1", ...), and its state as the kernel and the Ethernet PHY
/// report it. The functions return 0 for success and -1 for failure, keep nothing between calls and never
/// throw.

/// Writes 6, ethernetCsmacd of IANA's registry of interface types (RFC 2863). All interfaces of the server
/// are Ethernet, so none is asked. Always 0.
int kv_get_IfType(std::uint16_t* type);

/// Writes 1 when the interface is administratively up (IFF_UP), 2 when it is not or does not exist. -1 when
/// no socket can be opened or `state` is null.
int kv_get_enabledState(const char* ifName, std::uint16_t* state);

/// Writes 1 when the interface is running (IFF_RUNNING) and, if up, has a link; 2 when not or when there is
/// no such interface. -1 when no socket can be opened or `status` is null.
int kv_get_operationalStatus(const char* ifName, std::uint16_t* status);

#endif
