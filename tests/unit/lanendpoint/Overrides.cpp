#include "Overrides.hpp"

#include "lanendpoint/ORX_LANEndpoint.hpp"

#include <optional>

namespace
{

fakes::Overrides* current = nullptr;

std::optional<int> overridden(const std::string& operation)
{
    if (!current)
        return {};
    const auto interruption = current->interruptions.find(operation);
    if (interruption != current->interruptions.end())
        interruption->second();
    const auto result = current->results.find(operation);
    return result != current->results.end() ? std::optional<int>(result->second) : std::nullopt;
}

} // namespace

namespace fakes
{

Overrides::Overrides()
{
    current = this;
}

Overrides::~Overrides()
{
    current = nullptr;
}

} // namespace fakes

using Qualifiers = OpenWBEM::Array<OpenWBEM::CIMQualifier>;
using OpenWBEM::String;

// An operation under the name that the linker knows it by (Itanium C++ ABI); the object is its first
// parameter. The list of names is repeated in CMakeLists.txt.
#define OVERRIDABLE(symbol, operation, parameters, arguments)                                                \
    extern "C" int __real_##symbol parameters;                                                               \
    extern "C" int __wrap_##symbol parameters;                                                               \
    int __wrap_##symbol parameters                                                                           \
    {                                                                                                        \
        const std::optional<int> result = overridden(operation);                                             \
        return result ? *result : __real_##symbol arguments;                                                 \
    }

OVERRIDABLE(_ZN18ORX_LANEndpointAPI3getEv, "ORX_LANEndpointAPI::get", (ORX_LANEndpointAPI * self), (self))
OVERRIDABLE(_ZN18ORX_LANEndpointAPI9endChangeEv, "ORX_LANEndpointAPI::endChange", (ORX_LANEndpointAPI * self),
            (self))
OVERRIDABLE(_ZN18ORX_LANEndpointAPI16setIsDHCPEnabledERKb, "ORX_LANEndpointAPI::setIsDHCPEnabled",
            (ORX_LANEndpointAPI * self, const bool& value), (self, value))
OVERRIDABLE(_ZN15ORX_LANEndpoint3getEv, "get", (ORX_LANEndpoint * self), (self))
OVERRIDABLE(_ZN15ORX_LANEndpoint11startChangeEv, "startChange", (ORX_LANEndpoint * self), (self))
OVERRIDABLE(_ZN15ORX_LANEndpoint9endChangeEv, "endChange", (ORX_LANEndpoint * self), (self))
OVERRIDABLE(_ZN15ORX_LANEndpoint14setMaxDataSizeEi, "setMaxDataSize", (ORX_LANEndpoint * self, int value),
            (self, value))
OVERRIDABLE(_ZN15ORX_LANEndpoint12setIPAddressERKN8OpenWBEM6StringE, "setIPAddress",
            (ORX_LANEndpoint * self, const String& value), (self, value))
OVERRIDABLE(_ZNK18ORX_LANEndpointAPI7getNameERN8OpenWBEM6StringE, "getName",
            (const ORX_LANEndpointAPI* self, String& value), (self, value))
OVERRIDABLE(_ZNK15ORX_LANEndpoint13getMACAddressERN8OpenWBEM6StringE, "getMACAddress",
            (const ORX_LANEndpoint* self, String& value), (self, value))
OVERRIDABLE(_ZNK15ORX_LANEndpoint14getMaxDataSizeERi, "getMaxDataSize",
            (const ORX_LANEndpoint* self, int& value), (self, value))
OVERRIDABLE(_ZNK15ORX_LANEndpoint12getIPAddressERN8OpenWBEM6StringERNS0_5ArrayINS0_12CIMQualifierEEE,
            "getIPAddress", (const ORX_LANEndpoint* self, String& value, Qualifiers& qualifiers),
            (self, value, qualifiers))
OVERRIDABLE(_ZNK15ORX_LANEndpoint13getSubnetMaskERN8OpenWBEM6StringERNS0_5ArrayINS0_12CIMQualifierEEE,
            "getSubnetMask", (const ORX_LANEndpoint* self, String& value, Qualifiers& qualifiers),
            (self, value, qualifiers))
OVERRIDABLE(_ZNK15ORX_LANEndpoint10getGatewayERN8OpenWBEM6StringE, "getGateway",
            (const ORX_LANEndpoint* self, String& value), (self, value))
OVERRIDABLE(_ZNK15ORX_LANEndpoint16getIsDHCPEnabledERbRN8OpenWBEM5ArrayINS1_12CIMQualifierEEE,
            "getIsDHCPEnabled", (const ORX_LANEndpoint* self, bool& value, Qualifiers& qualifiers),
            (self, value, qualifiers))
OVERRIDABLE(_ZNK15ORX_LANEndpoint14getDescriptionERN8OpenWBEM6StringE, "getDescription",
            (const ORX_LANEndpoint* self, String& value), (self, value))
OVERRIDABLE(_ZNK15ORX_LANEndpoint20getOperationalStatusERt, "getOperationalStatus",
            (const ORX_LANEndpoint* self, unsigned short& value), (self, value))
OVERRIDABLE(_ZNK15ORX_LANEndpoint15getEnabledStateERt, "getEnabledState",
            (const ORX_LANEndpoint* self, unsigned short& value), (self, value))
OVERRIDABLE(_ZNK15ORX_LANEndpoint24getTimeOfLastStateChangeERN8OpenWBEM11CIMDateTimeE,
            "getTimeOfLastStateChange", (const ORX_LANEndpoint* self, OpenWBEM::CIMDateTime& value),
            (self, value))
OVERRIDABLE(_ZNK15ORX_LANEndpoint17getProtocolIFTypeERt, "getProtocolIFType",
            (const ORX_LANEndpoint* self, unsigned short& value), (self, value))
OVERRIDABLE(_ZNK15ORX_LANEndpoint8getSpeedERy, "getSpeed",
            (const ORX_LANEndpoint* self, unsigned long long& value), (self, value))
OVERRIDABLE(_ZN15ORX_LANEndpoint13setSubnetMaskERKN8OpenWBEM6StringE, "setSubnetMask",
            (ORX_LANEndpoint * self, const String& value), (self, value))
OVERRIDABLE(_ZN15ORX_LANEndpoint10setGatewayERKN8OpenWBEM6StringE, "setGateway",
            (ORX_LANEndpoint * self, const String& value), (self, value))
OVERRIDABLE(_ZN15ORX_LANEndpoint16setIsDHCPEnabledERKb, "setIsDHCPEnabled",
            (ORX_LANEndpoint * self, const bool& value), (self, value))
