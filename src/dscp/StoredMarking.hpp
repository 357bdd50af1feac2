#ifndef KV_DSCP_STOREDMARKING_HPP
#define KV_DSCP_STOREDMARKING_HPP

#include <cstdint>

/// The section "HTS\DSCPMarking" of the server's registry (the PDR), where the marking settings survive a
/// restart.
namespace dscp
{

/// Whether marking is switched on: 1 or 0. The keys of the four flows stand in MarkingFlow.cpp.
constexpr const char* enabledKey = "KLonKLEnabled";

/// Reads one value. Returns 0, or the platform's status on failure; `value` then keeps what it held, unless
/// the registry wrote something else there.
unsigned int readSetting(const char* key, std::uint16_t& value);

/// Writes one value, creating it if needed. Returns 0, or the platform's status on failure.
unsigned int writeSetting(const char* key, std::uint16_t value);

} // namespace dscp

#endif
