#include "lanendpoint/ORX_LANEndpoint.hpp"

#include "lanendpoint/ImpactWarning.hpp"
#include "netutil/InterfaceMtu.hpp"
#include "netutil/InterfaceRequest.hpp"
#include "netutil/InterfaceState.hpp"
#include "netutil/LinkSpeed.hpp"
#include "netutil/ServerInterfaces.hpp"
#include "netutil/StoredMtu.hpp"
#include "reporting/Logging.hpp"

#include <cstdio>

namespace
{

using OpenWBEM::Array;
using OpenWBEM::CIMDateTime;
using OpenWBEM::CIMQualifier;
using OpenWBEM::String;

constexpr const char* unit = "ORX_LANEndpoint.cpp";

// The range of an Ethernet MTU in bytes: the least that IPv4 allows (RFC 791), the most that a frame holds
// (RFC 894).
constexpr int smallestMtu = 68;
constexpr int largestMtu = 1500;

String asText(const InterfaceRequest::HardwareAddress& address)
{
    char text[sizeof "00:00:00:00:00:00"];
    std::snprintf(text, sizeof text, "%02x:%02x:%02x:%02x:%02x:%02x", address[0], address[1], address[2],
                  address[3], address[4], address[5]);
    return String(text);
}

bool readHardwareAddress(const String& ifName, InterfaceRequest::HardwareAddress& address)
{
    InterfaceRequest request(ifName.c_str());
    if (!request.isOpen())
        std::perror("socket");
    return request.isOpen() && request.getHardwareAddress(address);
}

std::uint16_t kernelMtu(const String& ifName)
{
    InterfaceRequest request(ifName.c_str());
    int mtu = largestMtu;
    if (!request.isOpen())
        std::perror("socket");
    else if (!request.getMtu(mtu))
        mtu = largestMtu;
    return static_cast<std::uint16_t>(mtu);
}

bool isServerInterface(const String& ifName)
{
    for (const ServerInterface& known : serverInterfaces)
        if (ifName == known.name)
            return true;
    return false;
}

// The MTU in the registry. When there is none, the interface's own is stored and returned. The kernel knows
// an interface by other names, too ("eth1:x" is eth1). Nothing is stored for these, or made-up names would
// fill the registry.
std::uint16_t storedMtu(const String& ifName)
{
    std::uint16_t mtu = 0;
    if (storedmtu::read(ifName.c_str(), mtu) == storedmtu::absent) {
        mtu = kernelMtu(ifName);
        if (isServerInterface(ifName))
            storedmtu::write(ifName.c_str(), mtu);
    }
    return mtu;
}

} // namespace

ORX_LANEndpoint::ORX_LANEndpoint()
{
    init();
}

ORX_LANEndpoint::ORX_LANEndpoint(int number) : ORX_LANEndpointAPI(number)
{
    init();
}

ORX_LANEndpoint::ORX_LANEndpoint(const String& nameOrDescription)
{
    init();
    setName(nameOrDescription.startsWith("eth") ? nameOrDescription : getMapping(nameOrDescription, false));
}

void ORX_LANEndpoint::init()
{
    m_macAddress = String("");
    m_maxDataSize = 0;
    m_timeOfLastStateChange = CIMDateTime(String("00000000000000.000000-000"));
}

int ORX_LANEndpoint::get()
{
    InterfaceRequest::HardwareAddress address = {};
    if (!readHardwareAddress(name(), address))
        return 0;
    m_macAddress = asText(address);
    m_maxDataSize = storedMtu(name());
    ORX_LANEndpointAPI::get();
    return 1;
}

String ORX_LANEndpoint::getMapping(const String& value, bool toDescription) const
{
    for (const ServerInterface& known : serverInterfaces)
        if (value == (toDescription ? known.name : known.description))
            return String(toDescription ? known.description : known.name);
    reporting::logAndFail({unit, __LINE__}, "Cannot find the corresponding if interface",
                          "LAN_ERROR_noIFNameMapping");
}

int ORX_LANEndpoint::getMACAddress(String& macAddress) const
{
    macAddress = m_macAddress;
    return 1;
}

int ORX_LANEndpoint::getMaxDataSize(int& maxDataSize) const
{
    maxDataSize = m_maxDataSize;
    return 1;
}

int ORX_LANEndpoint::setMaxDataSize(int maxDataSize)
{
    if (maxDataSize < smallestMtu || maxDataSize > largestMtu)
        reporting::logAndFail({unit, __LINE__}, "MTU size entered is out of the range: (68-1500)");
    if (kv_set_mtu(name().c_str(), static_cast<std::uint32_t>(maxDataSize)) < 0)
        reporting::logAndFail({unit, __LINE__}, "MTU size not set. Error reported in kernel");
    m_maxDataSize = static_cast<std::uint16_t>(maxDataSize);
    storedmtu::write(name().c_str(), m_maxDataSize);
    return 1;
}

int ORX_LANEndpoint::getIPAddress(String& ipAddress, Array<CIMQualifier>& qualifiers) const
{
    impact::appendWarning(qualifiers, impact::ofIPAddress);
    return ORX_LANEndpointAPI::getIPAddress(ipAddress);
}

int ORX_LANEndpoint::setIPAddress(const String& ipAddress)
{
    ORX_LANEndpointAPI::setIPAddress(ipAddress);
    return 1;
}

int ORX_LANEndpoint::getSubnetMask(String& subnetMask, Array<CIMQualifier>& qualifiers) const
{
    impact::appendWarning(qualifiers, impact::ofSubnetMask);
    return ORX_LANEndpointAPI::getSubnetMask(subnetMask);
}

int ORX_LANEndpoint::setSubnetMask(const String& subnetMask)
{
    ORX_LANEndpointAPI::setSubnetMask(subnetMask);
    return 1;
}

int ORX_LANEndpoint::getGateway(String& gateway) const
{
    return ORX_LANEndpointAPI::getGateway(gateway);
}

int ORX_LANEndpoint::setGateway(const String& gateway)
{
    ORX_LANEndpointAPI::setGateway(gateway);
    return 1;
}

int ORX_LANEndpoint::getIsDHCPEnabled(bool& isDhcpEnabled, Array<CIMQualifier>& qualifiers) const
{
    impact::appendWarning(qualifiers, impact::ofDHCP);
    return ORX_LANEndpointAPI::getIsDHCPEnabled(isDhcpEnabled);
}

int ORX_LANEndpoint::setIsDHCPEnabled(const bool& isDhcpEnabled)
{
    return ORX_LANEndpointAPI::setIsDHCPEnabled(isDhcpEnabled) == 0 ? 1 : 0;
}

int ORX_LANEndpoint::getDescription(String& description) const
{
    description = getMapping(name(), true);
    return 1;
}

int ORX_LANEndpoint::getOperationalStatus(unsigned short& operationalStatus) const
{
    return kv_get_operationalStatus(name().c_str(), &operationalStatus) >= 0 ? 1 : 0;
}

int ORX_LANEndpoint::getEnabledState(unsigned short& enabledState) const
{
    return kv_get_enabledState(name().c_str(), &enabledState) >= 0 ? 1 : 0;
}

int ORX_LANEndpoint::getProtocolIFType(unsigned short& protocolIFType) const
{
    return kv_get_IfType(&protocolIFType) >= 0 ? 1 : 0;
}

int ORX_LANEndpoint::getSpeed(unsigned long long& speed) const
{
    std::uint64_t value = 0;
    if (kv_get_EthernetIfSpeed(name().c_str(), &value) < 0)
        return 0;
    speed = value;
    return 1;
}

int ORX_LANEndpoint::getTimeOfLastStateChange(CIMDateTime& timeOfLastStateChange) const
{
    timeOfLastStateChange = m_timeOfLastStateChange;
    return 1;
}

int ORX_LANEndpoint::startChange()
{
    return ORX_LANEndpointAPI::startChange();
}

int ORX_LANEndpoint::endChange()
{
    switch (ORX_LANEndpointAPI::endChange()) {
    case CHANGE_INVALID_IP:
        reporting::logAndFail({unit, __LINE__}, "Invalid IP address format");
    case CHANGE_INVALID_SUBNET:
        reporting::logAndFail({unit, __LINE__}, "Invalid subnet format");
    case CHANGE_NOT_NOTIFIED:
        reporting::logAndFail({unit, __LINE__}, "Failed to notify related components on the address change");
    case CHANGE_OVERLAPS:
        reporting::logAndFail({unit, __LINE__}, "The IP/mask pair overlaps with another interface");
    default:
        return 1;
    }
}

String ORX_LANEndpoint::name() const
{
    String name;
    getName(name);
    return name;
}
