#ifndef KV_LANENDPOINT_IMPACTWARNING_HPP
#define KV_LANENDPOINT_IMPACTWARNING_HPP

#include "cim/PropertyTable.hpp"

/// What a change of a property does to the server, as its qualifier "ImpactWarning" tells clients.
namespace impact
{

inline constexpr char ofIPAddress[] = "Changing IP address will restart Voice Messaging.";
inline constexpr char ofSubnetMask[] = "Changing subnet mask will restart Voice Messaging.";
inline constexpr char ofDHCP[] = "Changing DHCP will restart Voice Messaging.";

/// Appends the qualifier with this text to a property's qualifiers.
void appendWarning(cim::Qualifiers& qualifiers, const char* text);

} // namespace impact

#endif
