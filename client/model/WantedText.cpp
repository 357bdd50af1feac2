#include "model/WantedText.hpp"

#include "model/Names.hpp"

#include <algorithm>
#include <array>
#include <charconv>

namespace lanctl::model
{

namespace
{

[[noreturn]] void refuse(const std::string& object, const std::string& key, const std::string& reason)
{
    throw BadWanted(object + " " + key + ": " + reason);
}

template <class Number>
std::optional<Number> parsedNumber(const std::string& text)
{
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return number;
}

std::optional<bool> parsedSwitch(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    constexpr std::array<std::string_view, 3> on{"on", "true", "yes"};
    constexpr std::array<std::string_view, 3> off{"off", "false", "no"};
    if (std::find(on.begin(), on.end(), text) != on.end())
        return true;
    if (std::find(off.begin(), off.end(), text) != off.end())
        return false;
    return std::nullopt;
}

/// The mask of a prefix length: "24" gives "255.255.255.0".
std::optional<std::string> maskOfPrefix(const std::string& text)
{
    const auto length = parsedNumber<unsigned>(text);
    if (!length || *length > 32)
        return std::nullopt;
    const std::uint64_t mask = 0xFFFFFFFFULL << (32 - *length);
    std::string dotted;
    for (int shift = 24; shift >= 0; shift -= 8)
        dotted += std::to_string((mask >> static_cast<unsigned>(shift)) & 0xFFU) + (shift > 0 ? "." : "");
    return dotted;
}

/// One key of one object while it is set.
struct Assignment {
    const std::string& object;
    const std::string& key;
    const std::string& value;

    template <class Value>
    void set(std::optional<Value>& place, Value wanted) const
    {
        if (place)
            refuse(object, key, "is given twice");
        place = std::move(wanted);
    }
    void setText(std::optional<std::string>& place) const { set(place, value); }
    void setSwitch(std::optional<bool>& place) const
    {
        const auto wanted = parsedSwitch(value);
        if (!wanted)
            refuse(object, key, "\"" + value + "\" is neither on nor off");
        set(place, *wanted);
    }
    void setNumber(std::optional<std::int32_t>& place) const
    {
        const auto wanted = parsedNumber<std::int32_t>(value);
        if (!wanted)
            refuse(object, key, "\"" + value + "\" is no number");
        set(place, *wanted);
    }
    void setMark(std::optional<Mark>& place) const
    {
        const auto wanted = parseMark(value);
        if (!wanted)
            refuse(object, key,
                   "\"" + value +
                       "\" is no DSCP name (EF, CS5, AF41), no TOS byte (0xB8) and no custom:0x68");
        set(place, *wanted);
    }
    void setPrefix(std::optional<std::string>& place, const std::string& prefix) const
    {
        const auto mask = maskOfPrefix(prefix);
        if (!mask)
            refuse(object, key, "\"" + prefix + "\" is no prefix length from 0 to 32");
        set(place, *mask);
    }
};

void setAddress(WantedEndpoint& endpoint, const Assignment& assignment)
{
    const auto slash = assignment.value.find('/');
    assignment.set(endpoint.ipAddress, assignment.value.substr(0, slash));
    if (slash != std::string::npos)
        assignment.setPrefix(endpoint.subnetMask, assignment.value.substr(slash + 1));
}

void setMask(WantedEndpoint& endpoint, const Assignment& assignment)
{
    if (!assignment.value.empty() && assignment.value.front() == '/')
        assignment.setPrefix(endpoint.subnetMask, assignment.value.substr(1));
    else
        assignment.setText(endpoint.subnetMask);
}

WantedEndpoint& endpointOf(WantedState& wanted, const std::string& name)
{
    auto found = std::find_if(wanted.endpoints.begin(), wanted.endpoints.end(),
                              [&](const WantedEndpoint& endpoint) { return endpoint.name == name; });
    if (found != wanted.endpoints.end())
        return *found;
    wanted.endpoints.push_back({name, {}, {}, {}, {}, {}});
    return wanted.endpoints.back();
}

void wantOfEndpoint(WantedEndpoint& endpoint, const Assignment& assignment)
{
    if (assignment.key == "address")
        setAddress(endpoint, assignment);
    else if (assignment.key == "mask")
        setMask(endpoint, assignment);
    else if (assignment.key == "gateway")
        assignment.setText(endpoint.defaultGateway);
    else if (assignment.key == "mtu")
        assignment.setNumber(endpoint.mtu);
    else if (assignment.key == "dhcp")
        assignment.setSwitch(endpoint.dhcp);
}

void wantOfSetting(WantedSetting& setting, const Assignment& assignment)
{
    if (assignment.key == "domain")
        assignment.setText(setting.domainName);
    else if (assignment.key == "dns1")
        assignment.setText(setting.primaryDns);
    else if (assignment.key == "dns2")
        assignment.setText(setting.secondaryDns);
    else if (assignment.key == "icmp-filter")
        assignment.setSwitch(setting.icmpFilter);
    else if (assignment.key == "arp-filter")
        assignment.setSwitch(setting.arpFilter);
    else if (assignment.key == "broadcast-filter")
        assignment.setSwitch(setting.broadcastFilter);
    else if (assignment.key == "conflict-watch")
        assignment.setSwitch(setting.conflictWatch);
}

void wantOfMarking(WantedMarking& marking, const Assignment& assignment)
{
    if (assignment.key == "enabled")
        assignment.setSwitch(marking.enabled);
    for (const Flow flow : allFlows)
        if (assignment.key == flowKey(flow))
            assignment.setMark(marking.mark(flow));
}

std::string keysOf(Kind kind)
{
    std::string names;
    for (const Key& key : allKeys())
        if (key.kind == kind)
            names += (names.empty() ? "" : ", ") + std::string(key.key);
    return names;
}

} // namespace

void want(WantedState& wanted, const std::string& object, const std::string& key, const std::string& value)
{
    const Kind kind = kindOf(object);
    if (findKey(kind, key) == nullptr)
        throw BadWanted(object + " has no \"" + key + "\"; it has " + keysOf(kind));
    const Assignment assignment{object, key, value};
    if (kind == Kind::Endpoint)
        wantOfEndpoint(endpointOf(wanted, object), assignment);
    else if (kind == Kind::Setting)
        wantOfSetting(wanted.setting, assignment);
    else
        wantOfMarking(wanted.marking, assignment);
}

void wantAssignment(WantedState& wanted, const std::string& object, const std::string& assignment)
{
    const auto equals = assignment.find('=');
    if (equals == std::string::npos)
        throw BadWanted("\"" + assignment + "\" is no KEY=VALUE");
    want(wanted, object, assignment.substr(0, equals), assignment.substr(equals + 1));
}

} // namespace lanctl::model
