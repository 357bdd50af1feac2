#include "lanendpoint/AddressRules.hpp"

#include "lanendpoint/InterfaceConfiguration.hpp"
#include "netutil/ServerInterfaces.hpp"

#include <OW_Array.hpp>

#include <dhcp_ip_info.h>

#include <arpa/inet.h>

#include <cstring>

namespace
{

using OpenWBEM::String;
using OpenWBEM::StringArray;

// The platform and the shell read a text up to its first NUL.
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

int addressValidity(const String& address)
{
    return hasNul(address) ? 0 : dhcpIpInfoIsIPAddrValid(address.c_str());
}

bool isMask(const String& mask)
{
    const StringArray bytes = mask.tokenize(".");
    if (hasNul(mask) || bytes.size() != 4)
        return false;
    StringArray::size_type i = 0;
    while (i < bytes.size() && bytes[i] == "255")
        ++i;
    if (i < bytes.size() && !isPartialMaskByte(bytes[i++]))
        return false;
    while (i < bytes.size() && bytes[i] == "0")
        ++i;
    return i == bytes.size();
}

bool hasHostPart(const String& ip, const String& mask)
{
    in_addr address = {};
    in_addr network = {};
    if (!parse(ip, address) || !parse(mask, network))
        return false;
    return (address.s_addr | network.s_addr) != network.s_addr;
}

bool isNetworkOfItsOwn(const String& ifName, const String& ip, const String& mask)
{
    in_addr ownAddress = {};
    in_addr ownMask = {};
    if (!parse(ip, ownAddress) || !parse(mask, ownMask))
        return false;
    for (const ServerInterface& other : serverInterfaces) {
        if (ifName == other.name)
            continue;
        const AddressInForce neighbour = addressInForce(other.name);
        if (neighbour.ipAddress.empty() || neighbour.subnetMask.empty())
            continue;
        in_addr address = {};
        in_addr neighbourMask = {};
        if (!parse(neighbour.ipAddress, address) || !parse(neighbour.subnetMask, neighbourMask))
            return false;
        const in_addr_t common = ownMask.s_addr & neighbourMask.s_addr;
        if ((ownAddress.s_addr & common) == (address.s_addr & common))
            return false;
    }
    return true;
}
