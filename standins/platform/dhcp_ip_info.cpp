#include "dhcp_ip_info.h"

#include "LanSemaphore.hpp"
#include "RoutingTable.hpp"
#include "StateDirectory.hpp"

#include <arpa/inet.h>
#include <ifaddrs.h>
#include <netinet/in.h>

#include <cstdint>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>

namespace
{

using namespace kvplatform;

/** Puts the dotted decimal text into a caller's 32-byte buffer; 16 bytes of it at most. */
void copyDotted(const sockaddr* address, char* buffer)
{
    if (address == nullptr)
        return;
    sockaddr_in internet = {};
    std::memcpy(&internet, address, sizeof internet);
    inet_ntop(AF_INET, &internet.sin_addr, buffer, INET_ADDRSTRLEN);
}

using AddressList = std::unique_ptr<ifaddrs, decltype(&freeifaddrs)>;

/** All interfaces with their addresses; null, with a complaint, when they cannot be read. */
AddressList readAddresses(const char* operation, const char* ifName)
{
    ifaddrs* list = nullptr;
    if (getifaddrs(&list) != 0)
        complain(operation, ifName, lastError());
    return {list, freeifaddrs};
}

/** Takes the interface's first IPv4 address, its main one; whether there is such an interface. */
bool copyAddress(const ifaddrs* list, const char* ifName, char* ip, char* mask)
{
    bool exists = false;
    for (const ifaddrs* entry = list; entry != nullptr; entry = entry->ifa_next) {
        if (std::strcmp(entry->ifa_name, ifName) != 0)
            continue;
        exists = true;
        if (entry->ifa_addr != nullptr && entry->ifa_addr->sa_family == AF_INET) {
            copyDotted(entry->ifa_addr, ip);
            copyDotted(entry->ifa_netmask, mask);
            break;
        }
    }
    return exists;
}

bool readGateway(const char* operation, const std::string& interface, char* gateway)
{
    const char* path = "/proc/net/route";
    std::ifstream table(path);
    if (!table) {
        complain(operation, path, lastError());
        return false;
    }
    const std::string found = defaultGateway(table, interface);
    std::memcpy(gateway, found.c_str(), found.size() + 1);
    return true;
}

} // namespace

int dhcpIpInfoGetIPInfo(const char* ifName, char* ip, char* mask, char* gateway)
{
    return guarded(__func__, [&](const char* function) {
        if (ifName == nullptr || ip == nullptr || mask == nullptr || gateway == nullptr)
            return kFailure;
        *ip = *mask = *gateway = '\0';
        // No complaint about an absent interface: a development machine need not have all three.
        const AddressList list = readAddresses(function, ifName);
        if (!list || !copyAddress(list.get(), ifName, ip, mask))
            return kFailure;
        return readGateway(function, ifName, gateway) ? 0 : kFailure;
    });
}

int dhcpIpInfoGetDefaultGateway(char* gateway)
{
    return guarded(__func__, [&](const char* function) {
        if (gateway == nullptr)
            return kFailure;
        *gateway = '\0';
        return readGateway(function, "", gateway) ? 0 : kFailure;
    });
}

int dhcpIpInfoIsIPAddrValid(const char* text)
{
    in_addr address = {};
    // inet_pton takes four plain decimal numbers only: no leading zeros, no blanks, no shorter forms.
    if (text == nullptr || inet_pton(AF_INET, text, &address) != 1)
        return 0;
    const std::uint32_t network = ntohl(address.s_addr) >> 24U;
    const bool isThisNetwork = network == 0;
    const bool isLoopback = network == IN_LOOPBACKNET;
    const bool isMulticastReservedOrBroadcast = network >= 224;
    return isThisNetwork || isLoopback || isMulticastReservedOrBroadcast ? 0 : 1;
}

int dhcpIpInfoRequestDHCPLANSemaphore(void)
{
    return guarded(__func__, [](const char* function) {
        const int status = lanSemaphore().request(function) ? 0 : kFailure;
        recordEvent(function, {}, status);
        return status;
    });
}

int dhcpIpInfoReleaseDHCPLANSemaphore(void)
{
    return guarded(__func__, [](const char* function) {
        // Recorded before the lock goes, so that the next holder's request comes after it in the log.
        const int status = lanSemaphore().isHeld() ? 0 : kFailure;
        recordEvent(function, {}, status);
        if (status == 0)
            lanSemaphore().release();
        return status;
    });
}

int dhcpIpInfoInformDHCPProviderOfIPConfigChange(void)
{
    return guarded(__func__,
                   [](const char* function) { return recordEvent(function, {}, 0) ? 0 : kFailure; });
}
