#ifndef KV_LANSETTING_PACKETFILTERDEVICE_HPP
#define KV_LANSETTING_PACKETFILTERDEVICE_HPP

#include <cstdint>

/// The running kernel's packet filter, /dev/kv_netfilter.
namespace packetfilter
{

// The device's request code for each switch: what _IOW makes of type 0xAB, the numbers 2 to 5 and a 4-byte
// argument on the server's processor, where "write" is 0x80000000. They are written out because _IOW gives
// other codes on other processors, which the device does not know.
constexpr std::uint32_t icmp = 0x8004AB02;
constexpr std::uint32_t arp = 0x8004AB03;
constexpr std::uint32_t ipConflict = 0x8004AB04;
constexpr std::uint32_t broadcast = 0x8004AB05;

/// Sets one switch to `value`, 0 or 1. Returns 0, or -1 when the device is absent or refuses.
int setSwitch(std::uint32_t request, std::uint32_t value);

} // namespace packetfilter

#endif
