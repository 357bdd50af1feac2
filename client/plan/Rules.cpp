#include "plan/Rules.hpp"

#include <arpa/inet.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <sstream>
#include <string_view>
#include <vector>

namespace lanctl::plan
{

namespace
{

constexpr std::string_view invalidAddress = "Invalid IP address format";

constexpr std::size_t longestDomain = 253;

Refusal refusal(std::string_view key, std::string_view text, std::string why,
                std::string_view identifier = "")
{
    return {"", std::string(key), std::string(text), std::string(identifier), true, std::move(why)};
}

Refusal ownRefusal(std::string_view key, std::string_view text, std::string why)
{
    Refusal result = refusal(key, text, std::move(why));
    result.byServer = false;
    return result;
}

std::string quoted(const std::string& text)
{
    return '"' + text + '"';
}

bool holdsNul(const std::string& text)
{
    return text.find('\0') != std::string::npos;
}

/// An address as the server reads most texts: also in the C library's shorter, octal and hexadecimal forms.
std::optional<std::uint32_t> loosely(const std::string& text)
{
    in_addr address{};
    if (holdsNul(text) || inet_aton(text.c_str(), &address) == 0)
        return std::nullopt;
    return ntohl(address.s_addr);
}

/// An address that a host can have, four plain decimal numbers: neither "this network" nor loopback,
/// multicast or reserved.
bool isUsable(const std::string& text)
{
    in_addr address{};
    if (holdsNul(text) || inet_pton(AF_INET, text.c_str(), &address) != 1)
        return false;
    const std::uint32_t network = ntohl(address.s_addr) >> 24U;
    return network != 0 && network != 127 && network < 224;
}

std::vector<std::string> nonEmptyParts(const std::string& text)
{
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, '.');)
        if (!part.empty())
            parts.push_back(part);
    return parts;
}

/// Ones followed by zeros, in exactly the server's spelling.
bool isMask(const std::string& text)
{
    const auto parts = nonEmptyParts(text);
    if (parts.size() != 4)
        return false;
    const auto isFull = [](const std::string& part) { return part == "255"; };
    const auto border = std::find_if_not(parts.begin(), parts.end(), isFull);
    if (border == parts.end())
        return true;
    constexpr std::array<std::string_view, 8> borders{"0", "254", "252", "248", "240", "224", "192", "128"};
    return std::find(borders.begin(), borders.end(), *border) != borders.end() &&
           std::all_of(border + 1, parts.end(), [](const std::string& part) { return part == "0"; });
}

std::optional<Refusal> judgeHost(const model::Endpoint& then)
{
    if (!isUsable(then.ipAddress))
        return refusal("address", invalidAddress,
                       quoted(then.ipAddress) + " is not an address that a host can have.");
    const auto mask = loosely(then.subnetMask);
    if (!mask)
        return refusal("mask", invalidAddress, quoted(then.subnetMask) + " is not a mask.");
    if ((*loosely(then.ipAddress) & ~*mask) == 0)
        return refusal("address", invalidAddress,
                       "The host part of " + networkText(then.ipAddress, then.subnetMask) + " is zero.");
    return std::nullopt;
}

/// The mask with fewer ones decides: so a network around another one is found, and one inside it, too.
std::optional<Refusal> judgeNeighbour(const model::Endpoint& then, const model::Endpoint& other)
{
    constexpr std::string_view overlaps = "The IP/mask pair overlaps with another interface";
    if (other.name == then.name || other.ipAddress.empty() || other.subnetMask.empty())
        return std::nullopt;
    const auto address = loosely(other.ipAddress);
    const auto mask = loosely(other.subnetMask);
    if (!address || !mask)
        return refusal("address", overlaps, "The address of " + other.name + " cannot be read as one.");
    const std::uint32_t common = *mask & loosely(then.subnetMask).value_or(0);
    if ((loosely(then.ipAddress).value_or(0) & common) != (*address & common))
        return std::nullopt;
    return refusal("address", overlaps,
                   networkText(then.ipAddress, then.subnetMask) + " and " + other.name + ", " +
                       networkText(other.ipAddress, other.subnetMask) + ", share a network.");
}

std::optional<Refusal> judgeGateway(const model::Endpoint& then, bool routerPresent)
{
    if (routerPresent && (then.defaultGateway.empty() || then.defaultGateway == then.ipAddress))
        return refusal(
            "gateway", invalidAddress,
            "With a router card the change must name a gateway other than the interface's own address.");
    if (!then.defaultGateway.empty() && !isUsable(then.defaultGateway))
        return refusal("gateway", invalidAddress,
                       quoted(then.defaultGateway) + " is not an address that a host can have.");
    return std::nullopt;
}

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDomainCharacter(char c)
{
    return isLetter(c) || (c >= '0' && c <= '9') || c == '.' || c == '-';
}

} // namespace

std::optional<Refusal> judgeAddresses(const model::Endpoint& then, const model::ServerState& current)
{
    if (auto found = judgeHost(then))
        return found;
    for (const model::Endpoint& other : current.endpoints)
        if (auto found = judgeNeighbour(then, other))
            return found;
    if (!isMask(then.subnetMask))
        return refusal("mask", "Invalid subnet format",
                       "A mask is ones followed by zeros, such as 255.255.255.0.");
    return judgeGateway(then, current.setting.routerPresent);
}

std::optional<Refusal> judgeMtu(int mtu)
{
    if (mtu >= 68 && mtu <= 1500)
        return std::nullopt;
    return refusal("mtu", "MTU size entered is out of the range: (68-1500)", "An MTU is 68 to 1500 bytes.");
}

std::optional<Refusal> judgeDomain(const std::string& domain)
{
    if (domain.empty() || !isLetter(domain.front()) ||
        !std::all_of(domain.begin(), domain.end(), isDomainCharacter))
        return refusal("domain", "Invalid domain name",
                       "A domain begins with a letter and holds letters, digits, dots and hyphens only.",
                       "LAN_ERROR_domainNameBadFormat");
    if (domain.size() > longestDomain)
        return ownRefusal("domain", "The domain is longer than 253 characters",
                          "The server takes it, and its object manager ends at the next look-up of a host.");
    return std::nullopt;
}

std::optional<Refusal> judgeNameServer(const std::string& key, const std::string& address)
{
    if (address.empty() || isUsable(address))
        return std::nullopt;
    return refusal(key, invalidAddress, quoted(address) + " is not an address that a host can have.",
                   "LAN_ERROR_invalidIP");
}

std::optional<Refusal> judgeDhcp(const model::Endpoint& now)
{
    if (!now.defaultGateway.empty())
        return std::nullopt;
    return ownRefusal(
        "dhcp", "DHCP needs an interface with a gateway",
        "The server stores the interface's gateway as its default gateway when DHCP is switched on, and " +
            now.name + " has none: the stored one would be gone.");
}

Refusal unknownInterface(const std::string& name)
{
    return refusal("", "Cannot find the corresponding if interface",
                   "The server has no interface " + quoted(name) + ".", "LAN_ERROR_noIFNameMapping");
}

bool reaches(const std::string& address, const std::string& mask, const std::string& gateway)
{
    const auto own = loosely(address), ones = loosely(mask), other = loosely(gateway);
    return !own || !ones || !other || (*own & *ones) == (*other & *ones);
}

bool isBroadcast(const std::string& address, const std::string& mask)
{
    const auto own = loosely(address), ones = loosely(mask);
    // A network of two addresses has no broadcast address.
    return own && ones && ~*ones > 1 && (*own | *ones) == UINT32_MAX;
}

std::string networkText(const std::string& address, const std::string& mask)
{
    const auto ones = loosely(mask);
    if (!ones || !isMask(mask))
        return address + " with mask " + mask;
    int length = 0;
    for (std::uint32_t rest = *ones; rest != 0; rest <<= 1U)
        ++length;
    return address + "/" + std::to_string(length);
}

} // namespace lanctl::plan
