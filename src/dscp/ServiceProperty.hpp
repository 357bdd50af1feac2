#ifndef KV_DSCP_SERVICEPROPERTY_HPP
#define KV_DSCP_SERVICEPROPERTY_HPP

#include "dscp/ORX_ALGService.hpp"

#include <OW_config.h>

#include <OW_CIMValue.hpp>

#include <array>
#include <cstddef>
#include <optional>

namespace dscp
{

/// One property of the CIM class ORX_ALGService and how it is carried between an instance and a service
/// object.
struct ServiceProperty {
    const char* name;

    /// The property's value in exactly its CIM type, or nothing if the service does not support it.
    std::optional<OpenWBEM::CIMValue> (*read)(const ORX_ALGService& service,
                                              ORX_ALGService::Qualifiers& qualifiers);

    /// Null for a property that clients cannot write. Returns what the service's setter returns; throws what
    /// OpenWBEM throws for a value of another type than the property's.
    ORX_ALGService::Status (*write)(ORX_ALGService& service, const OpenWBEM::CIMValue& value);

    /// The most characters that a text may have; 0 if the length is not limited.
    std::size_t maxLength;
};

/// All properties, in the order in which an instance carries them.
extern const std::array<ServiceProperty, 30> serviceProperties;

} // namespace dscp

#endif
