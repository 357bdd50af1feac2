#ifndef KV_LANENDPOINT_ADDRESSRULES_HPP
#define KV_LANENDPOINT_ADDRESSRULES_HPP

#include <OW_config.h>

#include <OW_String.hpp>

/// What the server's library says about a dotted address: 1 when a host can have it, 0 when not. An address
/// with a NUL in it is 0, too: the library would look only at the text before the NUL.
int addressValidity(const OpenWBEM::String& address);

/// Whether `mask` is four dotted numbers whose bits are ones followed by zeros. 0.0.0.0 and 255.255.255.255
/// are masks.
bool isMask(const OpenWBEM::String& mask);

/// Whether `ip` has a bit set outside of `mask`. A broadcast address passes.
bool hasHostPart(const OpenWBEM::String& ip, const OpenWBEM::String& mask);

/// Whether the network of `ip` and `mask`, meant for the interface `ifName`, neither contains another
/// interface's network nor lies in it. An interface without an address is passed over; one whose address
/// cannot be read makes this false.
bool isNetworkOfItsOwn(const OpenWBEM::String& ifName, const OpenWBEM::String& ip,
                       const OpenWBEM::String& mask);

#endif
