#ifndef KV_LANENDPOINT_ENDPOINTPROPERTY_HPP
#define KV_LANENDPOINT_ENDPOINTPROPERTY_HPP

#include "cim/PropertyTable.hpp"
#include "lanendpoint/ORX_LANEndpoint.hpp"

/// The properties of the CIM class ORX_LANEndpoint. A setter's 0 refuses the value.
extern const cim::PropertyTable<ORX_LANEndpoint, int> endpointProperties;

/// The number of its keys, which are its first properties.
constexpr std::size_t numberOfEndpointKeys = 4;

// The keys that all endpoints share. Clients match on these values. Kept: the system's class name is the
// endpoint's own.
inline constexpr char systemCreationClassName[] = "ORX_LANEndpoint";
inline constexpr char systemName[] = "ORX_K30v";
inline constexpr char creationClassName[] = "ORX_LANEndpoint";

#endif
