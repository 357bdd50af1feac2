#ifndef KV_LANENDPOINT_ADDRESSRULES_HPP
#define KV_LANENDPOINT_ADDRESSRULES_HPP

#include <OW_config.h>

#include <OW_String.hpp>

/// What the server's library says about a dotted address: 1 when a host can have it, 0 when not. 0 as well
/// when a NUL stands in `address`: the library would look at the text before it alone, and pass the whole.
int addressValidity(const OpenWBEM::String& address);

/// Whether `mask` is four dotted numbers that make up a mask without gaps, 0.0.0.0 and 255.255.255.255
/// included.
bool isMask(const OpenWBEM::String& mask);

/// Whether `ip` has a bit set outside of `mask`. A broadcast address passes.
bool hasHostPart(const OpenWBEM::String& ip, const OpenWBEM::String& mask);

/// Whether the network of `ip` and `mask`, meant for the interface `ifName`, neither contains nor lies in
/// that of another interface of the server. An interface without an address is passed over; one whose address
/// cannot be read makes this false.
bool isNetworkOfItsOwn(const OpenWBEM::String& ifName, const OpenWBEM::String& ip,
                       const OpenWBEM::String& mask);

#endif
