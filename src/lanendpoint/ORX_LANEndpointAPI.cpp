#include "lanendpoint/ORX_LANEndpointAPI.hpp"

#include "lanendpoint/AddressRules.hpp"
#include "lanendpoint/ChangeCommands.hpp"
#include "lanendpoint/EmsNotice.hpp"
#include "netutil/ServerInterfaces.hpp"

#include <OW_Types.hpp>

#include <dhcp_ip_info.h>
#include <os_layer.h>

using OpenWBEM::Int32;
using OpenWBEM::String;

ORX_LANEndpointAPI::ORX_LANEndpointAPI() : ORX_LANEndpointAPI(String("")) {}

ORX_LANEndpointAPI::ORX_LANEndpointAPI(int number) : ORX_LANEndpointAPI("eth" + String(Int32(number))) {}

ORX_LANEndpointAPI::ORX_LANEndpointAPI(const String& name) : m_name(name)
{
    init();
}

void ORX_LANEndpointAPI::init()
{
    m_configuration = InterfaceConfiguration();
    m_changeInProgress = false;
}

int ORX_LANEndpointAPI::get()
{
    readInterfaceConfiguration(m_name, m_configuration);
    return 1;
}

int ORX_LANEndpointAPI::getName(String& name) const
{
    name = m_name;
    return 1;
}

int ORX_LANEndpointAPI::setName(const String& name)
{
    m_name = name;
    return 1;
}

int ORX_LANEndpointAPI::getIPAddress(String& ipAddress) const
{
    ipAddress = m_configuration.ipAddress;
    return 1;
}

int ORX_LANEndpointAPI::getSubnetMask(String& subnetMask) const
{
    subnetMask = m_configuration.subnetMask;
    return 1;
}

int ORX_LANEndpointAPI::getGateway(String& gateway) const
{
    gateway = m_configuration.gateway;
    return 1;
}

int ORX_LANEndpointAPI::getIsDHCPEnabled(bool& isDhcpEnabled) const
{
    isDhcpEnabled = m_configuration.isDhcpEnabled;
    return 1;
}

int ORX_LANEndpointAPI::setIPAddress(const String& ipAddress)
{
    m_configuration.ipAddress = ipAddress;
    return applyUnlessInProgress();
}

int ORX_LANEndpointAPI::setSubnetMask(const String& subnetMask)
{
    m_configuration.subnetMask = subnetMask;
    return applyUnlessInProgress();
}

int ORX_LANEndpointAPI::setGateway(const String& gateway)
{
    m_configuration.gateway = gateway;
    return applyUnlessInProgress();
}

int ORX_LANEndpointAPI::applyUnlessInProgress()
{
    if (!m_changeInProgress)
        endChange();
    return 0;
}

int ORX_LANEndpointAPI::setIsDHCPEnabled(const bool& isDhcpEnabled)
{
    if (isDhcpEnabled == bool(m_configuration.isDhcpEnabled) || m_name == internalLanName)
        return 0;
    storeInterfaceValue(m_name, "BOOTPROTO", isDhcpEnabled ? "dhcp" : "static");
    const AddressInForce current = addressInForce(m_name);
    storeInterfaceValue(m_name, "IPADDR", current.ipAddress);
    storeInterfaceValue(m_name, "NETMASK", current.subnetMask);
    storeGateway(current.gateway);
    if (isDhcpEnabled)
        startDhcp(m_name);
    dhcpIpInfoInformDHCPProviderOfIPConfigChange();
    m_configuration.isDhcpEnabled = isDhcpEnabled;
    return 0;
}

int ORX_LANEndpointAPI::startChange()
{
    m_changeInProgress = true;
    return 1;
}

int ORX_LANEndpointAPI::endChange()
{
    m_changeInProgress = false;
    InterfaceConfiguration old;
    readInterfaceConfiguration(m_name, old);
    if (old.isDhcpEnabled)
        return CHANGE_DONE;
    const ChangeOutcome checked = check();
    if (checked != CHANGE_DONE)
        return checked;

    if (m_configuration.ipAddress != old.ipAddress && applyAddress() != 0)
        return CHANGE_NOT_NOTIFIED;
    // Kept: after a new address, a new mask restarts the interface and voice messaging a second time.
    if (m_configuration.subnetMask != old.subnetMask)
        applyMask();
    if (m_configuration.gateway != old.gateway)
        applyGateway(old.gateway);
    return CHANGE_DONE;
}

ChangeOutcome ORX_LANEndpointAPI::check() const
{
    ChangeOutcome outcome = checkAddress();
    if (outcome == CHANGE_DONE)
        outcome = checkMask();
    if (outcome == CHANGE_DONE)
        outcome = checkGateway();
    return outcome;
}

ChangeOutcome ORX_LANEndpointAPI::checkAddress() const
{
    const String& ipAddress = m_configuration.ipAddress;
    const String& subnetMask = m_configuration.subnetMask;
    if (addressValidity(ipAddress) != 1)
        return CHANGE_INVALID_IP;
    if (isHostAddressNonZero(ipAddress, subnetMask) != 1)
        return CHANGE_INVALID_IP;
    return uniqueSubnet(ipAddress, subnetMask) == 1 ? CHANGE_DONE : CHANGE_OVERLAPS;
}

ChangeOutcome ORX_LANEndpointAPI::checkMask() const
{
    if (isMaskValid(m_configuration.subnetMask) != 1)
        return CHANGE_INVALID_SUBNET;
    // Kept: the check of the address has just compared the networks.
    const bool unique = uniqueSubnet(m_configuration.ipAddress, m_configuration.subnetMask) == 1;
    return unique ? CHANGE_DONE : CHANGE_OVERLAPS;
}

// An empty gateway stands for the interface itself. With a router card in the server, the gateway must be
// another machine. Kept: clients are told of an invalid address.
ChangeOutcome ORX_LANEndpointAPI::checkGateway() const
{
    const String& ipAddress = m_configuration.ipAddress;
    const String& gateway = m_configuration.gateway.empty() ? ipAddress : m_configuration.gateway;
    bool routerPresent = false;
    if (osIsZODAOnePresent(&routerPresent) != 0)
        return CHANGE_INVALID_IP;
    if (routerPresent && gateway == ipAddress)
        return CHANGE_INVALID_IP;
    return addressValidity(gateway) != 0 ? CHANGE_DONE : CHANGE_INVALID_IP;
}

int ORX_LANEndpointAPI::applyAddress()
{
    storeInterfaceValue(m_name, "IPADDR", m_configuration.ipAddress);
    if (m_name == customerLanName)
        storeHost("ipaddress", m_configuration.ipAddress);
    restartInterface(m_name);
    informDhcpService();
    return notifyEMS();
}

void ORX_LANEndpointAPI::applyMask() const
{
    storeInterfaceValue(m_name, "NETMASK", m_configuration.subnetMask);
    restartInterface(m_name);
    informDhcpService();
}

void ORX_LANEndpointAPI::applyGateway(const String& oldGateway) const
{
    storeHost("routeraddress", m_configuration.gateway);
    storeGateway(m_configuration.gateway);
    replaceDefaultRoute(oldGateway, m_configuration.gateway);
    informDhcpService();
}

// The DHCP service is not told of the internal LAN, eth0.
void ORX_LANEndpointAPI::informDhcpService() const
{
    if (interfaceDigit() != '0')
        dhcpIpInfoInformDHCPProviderOfIPConfigChange();
}

// The character behind "eth", NUL for a shorter name.
char ORX_LANEndpointAPI::interfaceDigit() const
{
    return m_name.length() > 3 ? m_name.charAt(3) : '\0';
}

int ORX_LANEndpointAPI::isMaskValid(const String& mask) const
{
    return isMask(mask) ? 1 : 0;
}

int ORX_LANEndpointAPI::uniqueSubnet(const String& ip, const String& mask) const
{
    return isNetworkOfItsOwn(m_name, ip, mask) ? 1 : 0;
}

int ORX_LANEndpointAPI::isHostAddressNonZero(const String& ip, const String& mask) const
{
    return hasHostPart(ip, mask) ? 1 : 0;
}

int ORX_LANEndpointAPI::notifyEMS()
{
    const auto bit = static_cast<unsigned int>(interfaceDigit() - '0');
    return sendEmsNotice(bit < 32 ? 1U << bit : 0U);
}
