#include "shell/StateText.hpp"

#include "model/Marking.hpp"
#include "model/Names.hpp"
#include "shell/Table.hpp"
#include "shell/Terminal.hpp"

#include <algorithm>
#include <array>
#include <bitset>
#include <cstdio>
#include <functional>
#include <sstream>

namespace lanctl::shell
{

namespace
{

using model::Endpoint;
using model::Marking;
using model::Setting;

std::string orDash(const std::string& text)
{
    return text.empty() ? "-" : text;
}

std::string onOff(bool on)
{
    return on ? "on" : "off";
}

std::string hexadecimal(unsigned byte)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "0x%02X", byte);
    return text.data();
}

std::string stateOf(const Endpoint& endpoint)
{
    if (!endpoint.enabledState)
        return "unknown";
    return *endpoint.enabledState == 1 ? "up" : "down";
}

std::string linkOf(const Endpoint& endpoint)
{
    if (!endpoint.operationalStatus)
        return "unknown";
    if (*endpoint.operationalStatus != 1)
        return "no link";
    return std::to_string(endpoint.speed / 1000000) + " Mbit/s";
}

/// "24" of "255.255.255.0", or nothing when it is no mask.
std::optional<std::size_t> prefixOf(const std::string& mask)
{
    std::istringstream in(mask);
    unsigned long bits = 0;
    for (int i = 0; i < 4; ++i) {
        unsigned byte = 0;
        if ((i > 0 && in.get() != '.') || !(in >> byte) || byte > 255)
            return std::nullopt;
        bits = (bits << 8U) | byte;
    }
    const unsigned long host = ~bits & 0xFFFFFFFFUL;
    if (in.peek() != std::char_traits<char>::eof() || (host & (host + 1)) != 0)
        return std::nullopt;
    return std::bitset<32>(bits).count();
}

std::string addressOf(const Endpoint& endpoint)
{
    if (endpoint.ipAddress.empty())
        return "-";
    const auto prefix = prefixOf(endpoint.subnetMask);
    return endpoint.ipAddress + "/" + (prefix ? std::to_string(*prefix) : orDash(endpoint.subnetMask));
}

template <class Object>
struct Line {
    const char* name;
    std::function<std::string(const Object&)> text;
};

const std::vector<Line<Endpoint>>& endpointLines()
{
    static const std::vector<Line<Endpoint>> lines{
        {"", [](const Endpoint& e) { return e.name; }},
        {"name", [](const Endpoint& e) { return e.description; }},
        {"state", stateOf},
        {"link", linkOf},
        {"address", addressOf},
        {"gateway", [](const Endpoint& e) { return orDash(e.defaultGateway); }},
        {"dhcp", [](const Endpoint& e) { return onOff(e.dhcp); }},
        {"mtu", [](const Endpoint& e) { return std::to_string(e.mtu); }},
        {"mac", [](const Endpoint& e) { return orDash(e.macAddress); }},
    };
    return lines;
}

const std::vector<Line<Setting>>& settingLines()
{
    static const std::vector<Line<Setting>> lines{
        {"domain", [](const Setting& s) { return orDash(s.domainName); }},
        {"dns1", [](const Setting& s) { return orDash(s.primaryDns); }},
        {"dns2", [](const Setting& s) { return orDash(s.secondaryDns); }},
        {"icmp-filter", [](const Setting& s) { return onOff(s.icmpFilter); }},
        {"arp-filter", [](const Setting& s) { return onOff(s.arpFilter); }},
        {"broadcast-filter", [](const Setting& s) { return onOff(s.broadcastFilter); }},
        {"conflict-watch", [](const Setting& s) { return onOff(s.conflictWatch); }},
        {"router card", [](const Setting& s) { return std::string(s.routerPresent ? "fitted" : "none"); }},
    };
    return lines;
}

/// A cell that is highlighted when the same line of the object before reads otherwise.
template <class Object>
Table::Cell cell(const Line<Object>& line, const Object& now, const Object* before)
{
    const std::string text = line.text(now);
    return {text, before != nullptr && line.text(*before) != text};
}

const Endpoint* sameEndpoint(const Shown* before, const std::string& name)
{
    if (before == nullptr)
        return nullptr;
    const auto& endpoints = before->endpoints;
    auto found =
        std::find_if(endpoints.begin(), endpoints.end(), [&](const Endpoint& e) { return e.name == name; });
    return found == endpoints.end() ? nullptr : &*found;
}

std::string endpointsText(const std::vector<Endpoint>& endpoints, const Shown* before)
{
    Table table;
    for (const auto& line : endpointLines()) {
        std::vector<Table::Cell> row{{line.name}};
        for (const auto& endpoint : endpoints)
            row.push_back(cell(line, endpoint, sameEndpoint(before, endpoint.name)));
        table.add(std::move(row));
    }
    return table.text();
}

std::string settingText(const Setting& setting, const Setting* before)
{
    Table table;
    for (const auto& line : settingLines())
        table.add({{line.name}, cell(line, setting, before)});
    return "lan\n" + table.text();
}

std::string markName(const model::Mark& mark)
{
    const std::string name(model::dscpName(mark.effective()).value_or("-"));
    return mark.isCustom() ? "custom" + (name == "-" ? "" : " (" + name + ")") : name;
}

std::string markingText(const Marking& marking, const Marking* before)
{
    Table table;
    table.add(
        {{"enabled"}, {onOff(marking.enabled), before != nullptr && before->enabled != marking.enabled}});
    for (const model::Flow flow : model::allFlows) {
        const model::Mark& mark = marking.mark(flow);
        const bool changed = before != nullptr && before->mark(flow) != mark;
        table.add({{std::string(model::flowKey(flow))},
                   {hexadecimal(mark.effective()), changed},
                   {markName(mark), changed}});
    }
    return "marking\n" + table.text();
}

} // namespace

std::string stateText(const Shown& now, const Shown* before)
{
    std::string text;
    if (!now.endpoints.empty())
        text += endpointsText(now.endpoints, before);
    if (now.setting)
        text += (text.empty() ? "" : "\n") +
                settingText(*now.setting, before != nullptr && before->setting ? &*before->setting : nullptr);
    if (now.marking)
        text += (text.empty() ? "" : "\n") +
                markingText(*now.marking, before != nullptr && before->marking ? &*before->marking : nullptr);
    return text;
}

} // namespace lanctl::shell
