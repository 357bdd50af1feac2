#include "json/StateJson.hpp"

#include "model/Export.hpp"
#include "model/Marking.hpp"

namespace lanctl::json
{

namespace
{

/// 1 is true and 2 false in both state properties; null when the server could not tell.
Json stateJson(const std::optional<std::uint16_t>& state)
{
    return state ? Json(*state == 1) : Json(nullptr);
}

/// Everything beyond ASCII is escaped already, and all control characters but one: nothing in it can steer a
/// terminal.
std::string harmlessJson(std::string text)
{
    for (std::size_t at = 0; (at = text.find('\x7F', at)) != std::string::npos;)
        text.replace(at, 1, "\\u007f");
    return text;
}

} // namespace

Json toJson(const model::Endpoint& endpoint)
{
    return {{"name", endpoint.name},
            {"description", endpoint.description},
            {"up", stateJson(endpoint.enabledState)},
            {"link", stateJson(endpoint.operationalStatus)},
            {"speed", endpoint.speed},
            {"address", endpoint.ipAddress},
            {"mask", endpoint.subnetMask},
            {"gateway", endpoint.defaultGateway},
            {"dhcp", endpoint.dhcp},
            {"mtu", endpoint.mtu},
            {"mac", endpoint.macAddress}};
}

Json toJson(const model::Setting& setting)
{
    return {{"domain", setting.domainName},
            {"dns1", setting.primaryDns},
            {"dns2", setting.secondaryDns},
            {"icmp-filter", setting.icmpFilter},
            {"arp-filter", setting.arpFilter},
            {"broadcast-filter", setting.broadcastFilter},
            {"conflict-watch", setting.conflictWatch},
            {"router-card", setting.routerPresent}};
}

namespace
{

Json markJson(const model::Mark& mark)
{
    const auto name = model::dscpName(mark.effective());
    return {
        {"tos", mark.effective()}, {"dscp", name ? Json(*name) : Json(nullptr)}, {"custom", mark.isCustom()}};
}

} // namespace

Json toJson(const model::Marking& marking)
{
    Json json{{"enabled", marking.enabled}};
    for (const model::Flow flow : model::allFlows)
        json[std::string(model::flowKey(flow))] = markJson(marking.mark(flow));
    return json;
}

namespace
{

Json wantedJson(const model::ExportedValue& value)
{
    if (value.key->form == model::Form::Switch)
        return value.text == "on";
    return value.key->form == model::Form::Number ? Json::parse(value.text) : Json(value.text);
}

Json wantedJson(const model::ExportedObject& exported)
{
    Json json = Json::object();
    for (const model::ExportedValue& value : exported.values)
        json[std::string(value.key->key)] = wantedJson(value);
    return json;
}

} // namespace

Json wantedJson(const model::ServerState& state)
{
    const model::Exported all = model::exported(state);
    Json json = Json::object();
    for (const model::ExportedObject& endpoint : all.endpoints)
        json[std::string(model::endpointsSection)][endpoint.object] = wantedJson(endpoint);
    for (const model::ExportedObject& other : all.others)
        json[other.object] = wantedJson(other);
    return json;
}

std::string text(const Json& json)
{
    return harmlessJson(json.dump(2, ' ', true, Json::error_handler_t::replace)) + "\n";
}

} // namespace lanctl::json
