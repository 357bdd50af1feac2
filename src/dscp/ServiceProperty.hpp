#ifndef KV_DSCP_SERVICEPROPERTY_HPP
#define KV_DSCP_SERVICEPROPERTY_HPP

#include "cim/PropertyTable.hpp"
#include "dscp/ORX_ALGService.hpp"

namespace dscp
{

using ServiceProperties = cim::PropertyTable<ORX_ALGService, ORX_ALGService::Status>;

/// The properties of the CIM class ORX_ALGService. A setter returns what the service's own returns.
extern const ServiceProperties serviceProperties;

/// The number of its keys, which are its first properties.
constexpr std::size_t numberOfServiceKeys = 4;

} // namespace dscp

#endif
