#include "lanendpoint/EndpointProperty.hpp"

#include "reporting/Failure.hpp"
#include "reporting/Logging.hpp"

#include <OW_CIMException.hpp>
#include <OW_Types.hpp>

namespace
{

using cim::Qualifiers;
using cim::Value;
using OpenWBEM::Bool;
using OpenWBEM::CIMDateTime;
using OpenWBEM::CIMException;
using OpenWBEM::CIMValue;
using OpenWBEM::Int32;
using OpenWBEM::String;
using OpenWBEM::UInt16;
using OpenWBEM::UInt64;
using Endpoint = ORX_LANEndpoint;

constexpr const char* unit = "ORX_LANEndpointProvider.cpp"; // failures of the table are the provider's

// Readers.

template <const char* text>
Value constant(const Endpoint&, Qualifiers&)
{
    return CIMValue(String(text));
}

// `Type` is what the getter gives, `CimType` what the property has.
template <typename Type, typename CimType, int (Endpoint::*get)(Type&) const>
Value read(const Endpoint& endpoint, Qualifiers&)
{
    Type value{};
    if ((endpoint.*get)(value) != 1)
        return std::nullopt;
    return CIMValue(CimType(value));
}

template <typename Type, typename CimType, int (Endpoint::*get)(Type&, Qualifiers&) const>
Value readWithWarning(const Endpoint& endpoint, Qualifiers& warning)
{
    Type value{};
    if ((endpoint.*get)(value, warning) != 1)
        return std::nullopt;
    return CIMValue(CimType(value));
}

// getName is a member of the base class. The template above cannot take it: GCC 12 sees an unrelated type.
Value readName(const Endpoint& endpoint, Qualifiers&)
{
    String name;
    if (endpoint.getName(name) != 1)
        return std::nullopt;
    return CIMValue(name);
}

// An instance never goes without its address.
Value readIPAddress(const Endpoint& endpoint, Qualifiers& warning)
{
    Value value = readWithWarning<String, String, &Endpoint::getIPAddress>(endpoint, warning);
    if (!value) // Tools know this text, "set" included.
        reporting::fail({unit, __LINE__}, CIMException::FAILED, "Error: setIPAddress!!");
    return value;
}

// Kept: a state that cannot be read is the empty text, not a number.
Value readEnabledState(const Endpoint& endpoint, Qualifiers& none)
{
    const Value value = read<unsigned short, UInt16, &Endpoint::getEnabledState>(endpoint, none);
    return value ? value : CIMValue(String(""));
}

// Setters.

int setMaxDataSize(Endpoint& endpoint, const CIMValue& value)
{
    return endpoint.setMaxDataSize(value.toInt32());
}

// Operators look for these traces in the error log, spelled as they are.
int setIPAddressAndTrace(Endpoint& endpoint, const CIMValue& value)
{
    const int result = endpoint.setIPAddress(value.toString());
    reporting::logError("PMDPMD Returing from setIPAddress!!");
    reporting::logError(result != 0 ? "PMDPMDSetIPAddress Succeeded!!!!!!!!!!!!!!!!!!!!!!!"
                                    : "PMDPMDSetIPAddress Failed!!!!!!!!!!!!!!!!!!!!!!!");
    return result;
}

int setSubnetMask(Endpoint& endpoint, const CIMValue& value)
{
    return endpoint.setSubnetMask(value.toString());
}

int setGateway(Endpoint& endpoint, const CIMValue& value)
{
    return endpoint.setGateway(value.toString());
}

int setIsDHCPEnabled(Endpoint& endpoint, const CIMValue& value)
{
    return endpoint.setIsDHCPEnabled(value.toBool());
}

constexpr cim::PropertyTable<Endpoint, int>::Row rows[] = {
    // clang-format off
    {"SystemCreationClassName", constant<systemCreationClassName>},
    {"SystemName", constant<systemName>},
    {"CreationClassName", constant<creationClassName>},
    {"Name", readName},
    {"MACAddress", read<String, String, &Endpoint::getMACAddress>},
    {"MaxDataSize", read<int, Int32, &Endpoint::getMaxDataSize>, setMaxDataSize},
    {"IPAddress", readIPAddress, setIPAddressAndTrace},
    {"SubnetMask", readWithWarning<String, String, &Endpoint::getSubnetMask>, setSubnetMask},
    {"DefaultGateway", read<String, String, &Endpoint::getGateway>, setGateway},
    {"isDhcpEnabled", readWithWarning<bool, Bool, &Endpoint::getIsDHCPEnabled>, setIsDHCPEnabled},
    {"Description", read<String, String, &Endpoint::getDescription>},
    {"OperationalStatus", read<unsigned short, UInt16, &Endpoint::getOperationalStatus>},
    {"EnabledState", readEnabledState},
    {"TimeOfLastStateChange", read<CIMDateTime, CIMDateTime, &Endpoint::getTimeOfLastStateChange>},
    {"ProtocolIFType", read<unsigned short, UInt16, &Endpoint::getProtocolIFType>},
    {"Speed", read<unsigned long long, UInt64, &Endpoint::getSpeed>},
    // clang-format on
};

} // namespace

constexpr cim::PropertyTable<ORX_LANEndpoint, int> endpointProperties(rows);
