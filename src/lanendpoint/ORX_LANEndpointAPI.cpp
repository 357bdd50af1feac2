#include "lanendpoint/ORX_LANEndpointAPI.hpp"

#include "lanendpoint/EmsIPChangePacketHandler.hpp"
#include "system/CommandExecution.hpp"
#include "system/LanSemaphore.hpp"
#include "system/VoiceMessaging.hpp"

#include <OW_Array.hpp>
#include <OW_Types.hpp>

#include <dhcp_ip_info.h>
#include <os_layer.h>

#include <arpa/inet.h>
#include <syslog.h>
#include <unistd.h>

#include <cstring>

namespace
{

using OpenWBEM::Int32;
using OpenWBEM::String;
using OpenWBEM::StringArray;

// The platform and the shell read text up to its first NUL; a value that goes on behind one has not been seen
// whole by whoever found it valid.
bool hasNul(const String& text)
{
    return std::strlen(text.c_str()) != text.length();
}

bool parse(const String& address, in_addr& parsed)
{
    return inet_aton(address.c_str(), &parsed) != 0;
}

// What may follow the last 255 of a mask.
bool isPartialMaskByte(const String& token)
{
    for (const char* byte : {"0", "254", "252", "248", "240", "224", "192", "128"})
        if (token == byte)
            return true;
    return false;
}

} // namespace

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
    if (isDhcpEnabled == bool(m_configuration.isDhcpEnabled) || m_name == "eth0")
        return 0;
    updateInterfaceFile("BOOTPROTO", isDhcpEnabled ? "dhcp" : "static");
    const AddressInForce current = addressInForce(m_name);
    updateInterfaceFile("IPADDR", current.ipAddress);
    updateInterfaceFile("NETMASK", current.subnetMask);
    runUnderLanSemaphore("/kv/bin/updateFile gateway " + current.gateway);
    if (isDhcpEnabled) {
        stopVoiceMail();
        // Started here in the background, the script owns the rest of the switch.
        invokeCommand("/kv/bin/dhcp_ippaddr.sh " + m_name + " &");
    }
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
    // Intended: after a new address a new mask restarts the interface and voice messaging a second time.
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
    if (hasNul(ipAddress) || dhcpIpInfoIsIPAddrValid(ipAddress.c_str()) != 1)
        return CHANGE_INVALID_IP;
    if (isHostAddressNonZero(ipAddress, subnetMask) != 1)
        return CHANGE_INVALID_IP;
    return uniqueSubnet(ipAddress, subnetMask) == 1 ? CHANGE_DONE : CHANGE_OVERLAPS;
}

ChangeOutcome ORX_LANEndpointAPI::checkMask() const
{
    if (isMaskValid(m_configuration.subnetMask) != 1)
        return CHANGE_INVALID_SUBNET;
    // Intended: the networks are compared again, although the check of the address has just done so.
    const bool unique = uniqueSubnet(m_configuration.ipAddress, m_configuration.subnetMask) == 1;
    return unique ? CHANGE_DONE : CHANGE_OVERLAPS;
}

// An empty gateway stands for the interface itself, which is a way out only without a router card. Intended:
// the outcome is that of an invalid address, which is what clients read.
ChangeOutcome ORX_LANEndpointAPI::checkGateway() const
{
    const String& ipAddress = m_configuration.ipAddress;
    const String& gateway = m_configuration.gateway.empty() ? ipAddress : m_configuration.gateway;
    bool routerPresent = false;
    if (osIsZODAOnePresent(&routerPresent) != 0)
        return CHANGE_INVALID_IP;
    if (routerPresent && gateway == ipAddress)
        return CHANGE_INVALID_IP;
    const bool usable = !hasNul(gateway) && dhcpIpInfoIsIPAddrValid(gateway.c_str()) != 0;
    return usable ? CHANGE_DONE : CHANGE_INVALID_IP;
}

int ORX_LANEndpointAPI::applyAddress()
{
    updateInterfaceFile("IPADDR", m_configuration.ipAddress);
    if (m_name == "eth1")
        runUnderLanSemaphore("/kv/bin/updatehosts ipaddress " + m_configuration.ipAddress);
    restartInterface();
    informDhcpService();
    return notifyEMS();
}

void ORX_LANEndpointAPI::applyMask() const
{
    updateInterfaceFile("NETMASK", m_configuration.subnetMask);
    restartInterface();
    informDhcpService();
}

// Intended: whatever the interface, the default route leaves through eth1, the customer LAN.
void ORX_LANEndpointAPI::applyGateway(const String& oldGateway) const
{
    const String& gateway = m_configuration.gateway;
    runUnderLanSemaphore("/kv/bin/updatehosts routeraddress " + gateway);
    runUnderLanSemaphore("/kv/bin/updateFile gateway " + gateway);
    String ignored;
    runCommand("route delete default gw " + oldGateway + " eth1", ignored);
    runCommand("route add default gw " + gateway + " eth1", ignored);
    informDhcpService();
}

void ORX_LANEndpointAPI::updateInterfaceFile(const char* key, const String& value) const
{
    runUnderLanSemaphore("/kv/bin/updateFile ifcfg " + m_name + " " + key + " " + value);
}

void ORX_LANEndpointAPI::restartInterface() const
{
    stopVoiceMail();
    String ignored;
    runCommand("ifdown " + m_name + ";ifup " + m_name, ignored);
    startVoiceMail();
}

// The internal LAN, eth0, is none of the DHCP service's business.
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
    const StringArray bytes = mask.tokenize(".");
    if (hasNul(mask) || bytes.size() != 4)
        return 0;
    StringArray::size_type i = 0;
    while (i < bytes.size() && bytes[i] == "255")
        ++i;
    if (i < bytes.size() && !isPartialMaskByte(bytes[i++]))
        return 0;
    while (i < bytes.size() && bytes[i] == "0")
        ++i;
    return i == bytes.size() ? 1 : 0;
}

int ORX_LANEndpointAPI::uniqueSubnet(const String& ip, const String& mask) const
{
    in_addr ownAddress = {};
    in_addr ownMask = {};
    if (!parse(ip, ownAddress) || !parse(mask, ownMask))
        return 0;
    for (const char* other : {"eth0", "eth1", "eth2"}) {
        if (m_name == other)
            continue;
        const AddressInForce neighbour = addressInForce(other);
        if (neighbour.ipAddress.empty() || neighbour.subnetMask.empty())
            continue;
        in_addr address = {};
        in_addr neighbourMask = {};
        if (!parse(neighbour.ipAddress, address) || !parse(neighbour.subnetMask, neighbourMask))
            return 0;
        const in_addr_t common = ownMask.s_addr & neighbourMask.s_addr;
        if ((ownAddress.s_addr & common) == (address.s_addr & common))
            return 0;
    }
    return 1;
}

int ORX_LANEndpointAPI::isHostAddressNonZero(const String& ip, const String& mask) const
{
    in_addr address = {};
    in_addr network = {};
    if (!parse(ip, address) || !parse(mask, network))
        return 0;
    return (address.s_addr | network.s_addr) != network.s_addr ? 1 : 0;
}

int ORX_LANEndpointAPI::notifyEMS()
{
    int code = EmsConnectionOpen(0, EmsIPChangePacketHandler);
    if (code != 0) {
        syslog(LOG_NOTICE, "ORX_LANEndpointAPI: Cannot Open EMS connection: error code: %d\n", code);
        return -1;
    }
    const auto bit = static_cast<unsigned int>(interfaceDigit() - '0');
    code = EmsIpAddressChange(1, 1, bit < 32 ? 1U << bit : 0U);
    if (code != 0) {
        // Intended: the connection stays open.
        syslog(LOG_NOTICE, "ORX_LANEndpointAPI: Cannot notify IP address change: error code: %d\n", code);
        return -1;
    }
    sleep(1); // for the service's answer, which EmsIPChangePacketHandler logs
    code = EmsConnectionClose();
    if (code != 0)
        syslog(LOG_NOTICE, "ORX_LANEndpointAPI: Cannot close EMS connection: error code: %d\n", code);
    return 0;
}
