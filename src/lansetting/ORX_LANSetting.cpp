#include "lansetting/ORX_LANSetting.hpp"

#include "config/NetfilterConfig.hpp"
#include "lansetting/DomainName.hpp"
#include "lansetting/PacketFilterDevice.hpp"
#include "lansetting/ResolverFile.hpp"
#include "netutil/ServerInterfaces.hpp"
#include "reporting/Logging.hpp"
#include "system/LanSemaphore.hpp"
#include "system/RegistryValue.hpp"

#include <dhcp_ip_info.h>
#include <os_layer.h>

#include <OW_Types.hpp>

#include <netdb.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <utility>

namespace
{

using OpenWBEM::Int32;
using OpenWBEM::String;
using reporting::logAndFail;
using reporting::logError;

constexpr const char* unit = "ORX_LANSetting.cpp";
constexpr const char* domainCommand = "/kv/bin/updatehosts domainname ";

constexpr const char* registrySection = "DNS";

constexpr std::size_t hostNameBuffer = 1024;

constexpr int routerResetDone = 0;
constexpr int routerButtonNotPressed = 4;
constexpr int routerNotFitted = 103;

/// The low 8 bits as a signed number: operators' tools know the codes in this form.
String codeText(int code)
{
    return String(Int32(static_cast<signed char>(code)));
}

/// Marks a setting as configured, for the server's other components.
void setRegistryFlag(const char* flag)
{
    registry::write(registrySection, flag, 1);
}

} // namespace

/// A switch of the packet filter: its line in the switch file, its request to the device, its field here.
struct ORX_LANSetting::PacketFilterSwitch {
    const char* key;
    std::uint32_t request;
    bool ORX_LANSetting::*field;
};

const ORX_LANSetting::PacketFilterSwitch ORX_LANSetting::icmpFilter = {
    "kv_netfilter_icmp", packetfilter::icmp, &ORX_LANSetting::isIcmpFilterEnabled};
const ORX_LANSetting::PacketFilterSwitch ORX_LANSetting::arpFilter = {"kv_netfilter_arp", packetfilter::arp,
                                                                      &ORX_LANSetting::isArpFilterEnabled};
const ORX_LANSetting::PacketFilterSwitch ORX_LANSetting::broadcastFilter = {
    "kv_netfilter_broadcast", packetfilter::broadcast, &ORX_LANSetting::isBroadcastFilterEnabled};
const ORX_LANSetting::PacketFilterSwitch ORX_LANSetting::ipConflictDetection = {
    "kv_netfilter_ipconflict", packetfilter::ipConflict, &ORX_LANSetting::isIPAddressConflictEnabled};

ORX_LANSetting::ORX_LANSetting() : customerLan(customerLanName) {}

bool ORX_LANSetting::getInstanceID(String& value) const
{
    value = instanceID;
    return true;
}

bool ORX_LANSetting::getDomainName(String& value) const
{
    value = domainName;
    return true;
}

bool ORX_LANSetting::getPrimaryDNS(String& value) const
{
    value = primaryDNS;
    return true;
}

bool ORX_LANSetting::getSecondaryDNS(String& value) const
{
    value = secondaryDNS;
    return true;
}

bool ORX_LANSetting::getIsIcmpFilterEnabled(bool& value) const
{
    value = isIcmpFilterEnabled;
    return true;
}

bool ORX_LANSetting::getIsArpFilterEnabled(bool& value) const
{
    value = isArpFilterEnabled;
    return true;
}

bool ORX_LANSetting::getIsBroadcastFilterEnabled(bool& value) const
{
    value = isBroadcastFilterEnabled;
    return true;
}

bool ORX_LANSetting::getIsIPAddressConflictEnabled(bool& value) const
{
    value = isIPAddressConflictEnabled;
    return true;
}

bool ORX_LANSetting::getIsRouterPresent(bool& value) const
{
    value = isRouterPresent;
    return true;
}

bool ORX_LANSetting::get()
{
    readDomainName();
    readNameServers();
    readRouterPresence();
    return readSwitches();
}

void ORX_LANSetting::readDomainName()
{
    std::array<char, hostNameBuffer> host{};
    if (gethostname(host.data(), host.size()) == -1) {
        logError("Cannot get host name. Error code is: " + codeText(errno));
        domainName = String();
        return;
    }
    host.back() = '\0';
    const hostent* entry = gethostbyname(host.data());
    if (!entry)
        logAndFail({unit, __LINE__}, "Error getting host info. ", "LAN_ERROR_cannotGetHostInfo",
                   "Error code is: " + codeText(h_errno));
    domainName = domainOf(entry->h_name);
}

void ORX_LANSetting::readNameServers()
{
    ResolverText text = readResolverFile(domainName);
    primaryDNS = std::move(text.primaryDNS);
    secondaryDNS = std::move(text.secondaryDNS);
    resolvContents = std::move(text.contents);
}

void ORX_LANSetting::readRouterPresence()
{
    isRouterPresent = false;
    const int status = osIsZODAOnePresent(&isRouterPresent);
    if (status != 0)
        logAndFail({unit, __LINE__}, "Error reading information", "LAN_ERROR_cannotReadInformation",
                   ": zoda one present returns " + codeText(status));
}

bool ORX_LANSetting::readSwitches()
{
    isIcmpFilterEnabled = false; // Kept: the others are only ever raised here.
    unsigned value = 0;
    for (const PacketFilterSwitch* each : {&icmpFilter, &arpFilter, &broadcastFilter, &ipConflictDetection}) {
        if (kv_get_netfilter_config(each->key, &value) < 0)
            return false;
        if (value != 0)
            this->*each->field = true;
    }
    return true;
}

bool ORX_LANSetting::setDomainName(const String& name)
{
    if (!isValidDomainName(name))
        logAndFail({unit, __LINE__}, "Invalid domain name", "LAN_ERROR_domainNameBadFormat");
    runUnderLanSemaphore(domainCommand + name);
    domainName = name;
    resolvContents = withSearchDomain(resolvContents, name);
    if (writeResolverFile(resolvContents))
        setRegistryFlag("domainName_Flag");
    return true;
}

void ORX_LANSetting::updateNameserver(const String& address, int index)
{
    resolvContents = withNameserver(resolvContents, address, index);
    writeResolverFile(resolvContents);
}

bool ORX_LANSetting::setPrimaryDNS(const String& address)
{
    return setNameserver(primaryDNS, address, 0, "primaryDNS_Flag");
}

bool ORX_LANSetting::setSecondaryDNS(const String& address)
{
    return setNameserver(secondaryDNS, address, 1, "secondaryDNS_Flag");
}

bool ORX_LANSetting::setNameserver(String& field, const String& address, int index, const char* registryFlag)
{
    if (address == field)
        return true;
    if (!address.empty() && dhcpIpInfoIsIPAddrValid(address.c_str()) == 0)
        logAndFail({unit, __LINE__}, "Invalid IP address format", "LAN_ERROR_invalidIP");
    updateNameserver(address, index);
    setRegistryFlag(registryFlag);
    field = address;
    return true;
}

bool ORX_LANSetting::setIsIcmpFilterEnabled(bool enabled)
{
    return setSwitch(icmpFilter, enabled);
}

bool ORX_LANSetting::setIsArpFilterEnabled(bool enabled)
{
    return setSwitch(arpFilter, enabled);
}

bool ORX_LANSetting::setIsBroadcastFilterEnabled(bool enabled)
{
    return setSwitch(broadcastFilter, enabled);
}

bool ORX_LANSetting::setIsIPAddressConflictEnabled(bool enabled)
{
    return setSwitch(ipConflictDetection, enabled);
}

bool ORX_LANSetting::setSwitch(const PacketFilterSwitch& which, bool enabled)
{
    const unsigned value = enabled ? 1 : 0;
    this->*which.field = enabled;
    if (kv_set_netfilter_config(which.key, value) < 0)
        return false;
    notifyKernel(static_cast<int>(which.request), value);
    return true;
}

int ORX_LANSetting::notifyKernel(int request, unsigned value)
{
    return packetfilter::setSwitch(static_cast<std::uint32_t>(request), value);
}

String ORX_LANSetting::resetRouter()
{
    const int status = osResetRouter();
    const String detail = ": " + codeText(status);
    switch (status) {
    case routerResetDone:
        return "Router reset initiated";
    case routerNotFitted:
        logAndFail({unit, __LINE__}, "No router attached", "LAN_ERROR_noRouterAttached", detail);
    case routerButtonNotPressed:
        logAndFail({unit, __LINE__}, "Failed to press the router reset button", "LAN_ERROR_routerResetFailed",
                   detail);
    default:
        logAndFail({unit, __LINE__}, "Router reset failed", "LAN_ERROR_routerResetFailed", detail);
    }
}
