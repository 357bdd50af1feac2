#include "RoutingTable.hpp"

#include <arpa/inet.h>
#include <net/route.h>
#include <netinet/in.h>

#include <array>
#include <cstdint>
#include <optional>
#include <sstream>

namespace kvplatform
{

namespace
{

struct Route {
    std::string interface;
    std::uint32_t destination = 0;
    std::uint32_t gateway = 0;
    std::uint32_t mask = 0;
    unsigned int flags = 0;
    int metric = 0;

    bool isDefault() const
    {
        return destination == 0 && mask == 0 && (flags & RTF_UP) != 0 && (flags & RTF_GATEWAY) != 0;
    }
};

/** The kernel prints addresses as the hexadecimal number that their four bytes make in its own byte order. */
std::optional<Route> parse(const std::string& line)
{
    std::istringstream fields(line);
    Route route;
    int references = 0;
    int uses = 0;
    fields >> route.interface >> std::hex >> route.destination >> route.gateway >> route.flags >> std::dec >>
        references >> uses >> route.metric >> std::hex >> route.mask;
    return fields ? std::optional<Route>(route) : std::nullopt;
}

std::string dotted(std::uint32_t address)
{
    std::array<char, INET_ADDRSTRLEN> text = {};
    const in_addr binary = {address};
    inet_ntop(AF_INET, &binary, text.data(), text.size());
    return text.data();
}

} // namespace

std::string defaultGateway(std::istream& table, const std::string& interface)
{
    std::optional<Route> best;
    for (std::string line; std::getline(table, line);) {
        const std::optional<Route> route = parse(line);
        if (!route || !route->isDefault() || (!interface.empty() && route->interface != interface))
            continue;
        if (!best || route->metric < best->metric)
            best = route;
    }
    return best ? dotted(best->gateway) : "";
}

} // namespace kvplatform
