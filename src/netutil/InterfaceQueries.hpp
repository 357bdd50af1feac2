#ifndef KV_NETUTIL_INTERFACEQUERIES_HPP
#define KV_NETUTIL_INTERFACEQUERIES_HPP

#include <cstdint>

/// State of one network interface ("eth0", "eth1", ...) as the kernel and the Ethernet PHY report it. The
/// functions keep nothing between calls and may run in any thread; each opens and closes its own datagram
/// socket. They return 0 for success and -1 for failure and never throw. Names of 16 and more characters are
/// cut to 15.

/// Writes 6, ethernetCsmacd of IANA's registry of interface types (RFC 2863). All interfaces of the server
/// are Ethernet, so none is asked. Always 0.
int kv_get_IfType(std::uint16_t* type);

/// Writes the speed of the link in bit/s: 10000000 or 100000000, 0 when the PHY sees no link. When it tells
/// nothing usable, or there is no such interface, 10000000. -1 when no socket can be opened or `speed` is
/// null.
int kv_get_EthernetIfSpeed(const char* ifName, std::uint64_t* speed);

/// Writes 1 when the interface is administratively up (IFF_UP), 2 when it is not or does not exist. -1 when
/// no socket can be opened or `state` is null.
int kv_get_enabledState(const char* ifName, std::uint16_t* state);

/// Writes 1 when the interface is running (IFF_RUNNING) and, if up, has a link; 2 when not or when there is
/// no such interface. -1 when no socket can be opened or `status` is null.
int kv_get_operationalStatus(const char* ifName, std::uint16_t* status);

/// Sets the MTU in bytes. -1 when the kernel refuses it, and, with perror("socket"), when no socket can be
/// opened.
int kv_set_mtu(const char* ifName, std::uint32_t mtu);

/// Reads the MTU in bytes into `mtu`, which must not be null. -1 when the kernel refuses, and, with
/// perror("socket"), when no socket can be opened.
int kv_get_mtu(const char* ifName, std::uint32_t* mtu);

#endif
