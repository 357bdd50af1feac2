#include "Server.hpp"

#include <algorithm>
#include <set>

namespace lanctl::plan
{

namespace
{

model::Endpoint interface(const std::string& name, const std::string& address, const std::string& gateway)
{
    model::Endpoint endpoint;
    endpoint.systemCreationClassName = "ORX_LANEndpoint";
    endpoint.systemName = "ORX_K30v";
    endpoint.creationClassName = "ORX_LANEndpoint";
    endpoint.name = name;
    endpoint.mtu = 1500;
    endpoint.ipAddress = address;
    endpoint.subnetMask = "255.255.255.0";
    endpoint.defaultGateway = gateway;
    endpoint.warnings = {{"IPAddress", "Changing IP address will restart Voice Messaging."},
                         {"SubnetMask", "Changing subnet mask will restart Voice Messaging."},
                         {"isDhcpEnabled", "Changing DHCP will restart Voice Messaging."}};
    return endpoint;
}

bool isKey(const std::string& property)
{
    static const std::set<std::string> keys{"SystemCreationClassName", "SystemName", "CreationClassName",
                                            "Name", "InstanceID"};
    return keys.count(property) != 0;
}

void count(std::string& text, int number, const std::string& what)
{
    if (number != 0)
        text += (text.empty() ? "" : ", ") + std::to_string(number) + " " + what;
}

} // namespace

model::ServerState server()
{
    model::ServerState state;
    state.endpoints = {interface("eth0", "192.168.10.1", ""), interface("eth1", "10.0.0.5", "10.0.0.1"),
                       interface("eth2", "172.16.2.1", "")};
    state.setting.instanceId = "Kalvor:ORX_LANServiceSetting";
    state.setting.domainName = "site.example";
    state.setting.primaryDns = "10.0.0.2";
    state.setting.secondaryDns = "10.0.0.3";
    state.marking.systemCreationClassName = "SCCN";
    state.marking.systemName = "SN";
    state.marking.creationClassName = "CCN";
    state.marking.name = "Name";
    state.marking.enabled = true;
    for (const model::Flow flow : model::allFlows)
        state.marking.mark(flow) = model::presetMark(flow, true);
    return state;
}

model::Endpoint& endpoint(model::ServerState& state, const std::string& name)
{
    return *std::find_if(state.endpoints.begin(), state.endpoints.end(),
                         [&](const model::Endpoint& candidate) { return candidate.name == name; });
}

model::WantedEndpoint wanted(const std::string& name)
{
    model::WantedEndpoint endpoint;
    endpoint.name = name;
    return endpoint;
}

Plan planOf(const model::ServerState& state, const model::WantedEndpoint& wanted)
{
    model::WantedState all;
    all.endpoints = {wanted};
    return plan(state, all);
}

std::vector<std::string> changes(const Plan& plan)
{
    std::vector<std::string> lines;
    for (const Change& change : plan.changes)
        lines.push_back(change.object + " " + change.key + ": " + change.from + " -> " + change.to +
                        (change.sent ? "" : " (not sent)"));
    return lines;
}

std::vector<std::string> refusals(const Plan& plan)
{
    std::vector<std::string> lines;
    for (const Refusal& refusal : plan.refusals)
        lines.push_back(refusal.object + " " + refusal.key + ": " + refusal.text +
                        (refusal.identifier.empty() ? "" : "#" + refusal.identifier + "#") +
                        (refusal.byServer ? "" : " (own)"));
    return lines;
}

std::vector<std::string> requests(const Plan& plan)
{
    std::vector<std::string> lines;
    for (const Request& request : plan.requests) {
        std::string line = request.object + ":";
        for (const wire::Property& property : request.modification.instance.properties)
            if (!isKey(property.name))
                line += " " + property.name + "=" + property.value.value_or("null");
        lines.push_back(line);
    }
    return lines;
}

std::string cost(const Impact& impact)
{
    std::string text;
    count(text, impact.interfaceRestarts, "interface");
    count(text, impact.voiceMessagingRestarts, "voice");
    count(text, impact.voiceMessagingStops, "voice stop");
    count(text, impact.dhcpServiceNotices, "dhcp");
    count(text, impact.elementManagementNotices, "ems");
    count(text, impact.hostsTableRewrites, "hosts");
    count(text, impact.resolverFileRewrites, "resolver");
    count(text, impact.defaultRouteMoves, "route");
    return text;
}

bool notes(const Plan& plan, const std::string& object, const std::string& key, const std::string& text)
{
    return std::any_of(plan.notes.begin(), plan.notes.end(), [&](const Note& note) {
        return note.object == object && note.key == key && note.text.find(text) != std::string::npos;
    });
}

} // namespace lanctl::plan
