#include "web/OwnAddresses.hpp"

#include <arpa/inet.h>
#include <array>
#include <ifaddrs.h>
#include <memory>
#include <net/if.h>
#include <netinet/in.h>

namespace lanctl::web
{

namespace
{

using Interfaces = std::unique_ptr<ifaddrs, decltype(&freeifaddrs)>;

Interfaces allInterfaces()
{
    ifaddrs* first = nullptr;
    getifaddrs(&first);
    return {first, &freeifaddrs};
}

/// The address as a text. "" for an address of another family, and for a link-local one.
std::string addressOf(const ifaddrs& interface, int family)
{
    if ((interface.ifa_flags & IFF_UP) == 0 || interface.ifa_addr == nullptr ||
        interface.ifa_addr->sa_family != family)
        return {};
    const auto* v4 = reinterpret_cast<const sockaddr_in*>(interface.ifa_addr);
    const auto* v6 = reinterpret_cast<const sockaddr_in6*>(interface.ifa_addr);
    if (family == AF_INET6 && IN6_IS_ADDR_LINKLOCAL(&v6->sin6_addr))
        return {};
    const void* bytes = family == AF_INET6 ? static_cast<const void*>(&v6->sin6_addr) : &v4->sin_addr;
    std::array<char, INET6_ADDRSTRLEN> text{};
    inet_ntop(family, bytes, text.data(), text.size());
    return text.data();
}

} // namespace

std::vector<ListenAddress> reachableAt(const ListenAddress& address)
{
    if (address.host != "0.0.0.0" && address.host != "::")
        return {address};
    const bool isIpv6 = address.host == "::";
    std::vector<ListenAddress> found;
    const Interfaces interfaces = allInterfaces();
    for (const ifaddrs* each = interfaces.get(); each != nullptr; each = each->ifa_next) {
        const ListenAddress candidate{addressOf(*each, isIpv6 ? AF_INET6 : AF_INET), address.port};
        if (!candidate.host.empty() && !candidate.isLoopback())
            found.push_back(candidate);
    }
    if (found.empty())
        found.push_back({isIpv6 ? "::1" : "127.0.0.1", address.port});
    return found;
}

} // namespace lanctl::web
