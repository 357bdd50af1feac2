#include "model/Names.hpp"
#include "model/WantedText.hpp"

#include <algorithm>
#include <set>
#include <yaml-cpp/yaml.h>

namespace lanctl::model
{

namespace
{

constexpr const char* endpointsSection = "endpoints";

[[noreturn]] void refuseAt(const YAML::Node& node, const std::string& reason)
{
    throw BadWanted("line " + std::to_string(node.Mark().line + 1) + ": " + reason);
}

std::string nameText(const YAML::Node& name)
{
    if (!name.IsScalar())
        refuseAt(name, "a name is expected");
    return name.Scalar();
}

/// Calls use(name, value) for each entry of a mapping. The same name twice is an error.
template <class Use>
void forEachEntry(const YAML::Node& mapping, const std::string& what, const Use& use)
{
    if (!mapping.IsMap())
        refuseAt(mapping, what + " is to be a list of names and values");
    std::set<std::string> seen;
    for (const auto& entry : mapping) {
        const std::string name = nameText(entry.first);
        if (!seen.insert(name).second)
            refuseAt(entry.first, "\"" + name + "\" is given twice");
        use(name, entry.first, entry.second);
    }
}

void readObject(WantedState& wanted, const std::string& object, const YAML::Node& mapping)
{
    forEachEntry(mapping, object,
                 [&](const std::string& key, const YAML::Node& place, const YAML::Node& value) {
                     if (!value.IsScalar())
                         refuseAt(place, object + " " + key + " is to be one value" +
                                             (value.IsNull() ? "; \"\" stands for an empty one" : ""));
                     try {
                         want(wanted, object, key, value.Scalar());
                     } catch (const BadWanted& e) {
                         refuseAt(place, e.what());
                     }
                 });
}

void readEndpoints(WantedState& wanted, const YAML::Node& mapping)
{
    forEachEntry(mapping, endpointsSection,
                 [&](const std::string& name, const YAML::Node& place, const YAML::Node& value) {
                     if (!isInterface(name))
                         refuseAt(place, "\"" + name + "\" is no interface; there are eth0, eth1 and eth2");
                     readObject(wanted, name, value);
                 });
}

void readSections(WantedState& wanted, const YAML::Node& root)
{
    forEachEntry(root, "the wanted state",
                 [&](const std::string& name, const YAML::Node& place, const YAML::Node& value) {
                     if (name == endpointsSection)
                         readEndpoints(wanted, value);
                     else if (name == lanObject || name == markingObject)
                         readObject(wanted, name, value);
                     else
                         refuseAt(place, "\"" + name + "\" is unknown; there are endpoints, lan and marking");
                 });
}

YAML::Node rootOf(const std::string& text)
{
    const std::vector<YAML::Node> documents = YAML::LoadAll(text);
    if (documents.size() > 1)
        refuseAt(documents[1], "a second document begins here");
    return documents.empty() ? YAML::Node() : documents.front();
}

} // namespace

WantedState parseWanted(const std::string& text)
{
    if (text.size() > largestWantedFile)
        throw BadWanted("it is larger than 1 MB");
    try {
        WantedState wanted;
        const YAML::Node root = rootOf(text);
        if (!root.IsNull())
            readSections(wanted, root);
        return wanted;
    } catch (const YAML::Exception& e) {
        throw BadWanted("line " + std::to_string(e.mark.line + 1) + ": " + e.msg);
    }
}

namespace
{

std::string switchText(bool on)
{
    return on ? "on" : "off";
}

/// A text in quotes, so that YAML takes it for nothing else.
void emitText(YAML::Emitter& out, const char* key, const std::string& text)
{
    out << YAML::Key << key << YAML::Value << YAML::DoubleQuoted << text;
}

/// The emitter escapes every control character but this one, and a file may be shown on a terminal.
std::string withoutDelete(std::string text)
{
    for (std::size_t at = 0; (at = text.find('\x7F', at)) != std::string::npos;)
        text.replace(at, 1, "\\x7F");
    return text;
}

void emitPlain(YAML::Emitter& out, const std::string& key, const std::string& text)
{
    out << YAML::Key << key << YAML::Value << text;
}

void emitEndpoint(YAML::Emitter& out, const Endpoint& endpoint)
{
    out << YAML::Key << endpoint.name << YAML::Value << YAML::BeginMap;
    emitPlain(out, "dhcp", switchText(endpoint.dhcp));
    if (!endpoint.dhcp) {
        emitText(out, "address", endpoint.ipAddress);
        emitText(out, "mask", endpoint.subnetMask);
        if (!endpoint.defaultGateway.empty())
            emitText(out, "gateway", endpoint.defaultGateway);
    }
    emitPlain(out, "mtu", std::to_string(endpoint.mtu));
    out << YAML::EndMap;
}

void emitSetting(YAML::Emitter& out, const Setting& setting)
{
    out << YAML::Key << std::string(lanObject) << YAML::Value << YAML::BeginMap;
    emitText(out, "domain", setting.domainName);
    emitText(out, "dns1", setting.primaryDns);
    emitText(out, "dns2", setting.secondaryDns);
    emitPlain(out, "icmp-filter", switchText(setting.icmpFilter));
    emitPlain(out, "arp-filter", switchText(setting.arpFilter));
    emitPlain(out, "broadcast-filter", switchText(setting.broadcastFilter));
    emitPlain(out, "conflict-watch", switchText(setting.conflictWatch));
    out << YAML::EndMap;
}

void emitMarking(YAML::Emitter& out, const Marking& marking)
{
    out << YAML::Key << std::string(markingObject) << YAML::Value << YAML::BeginMap;
    emitPlain(out, "enabled", switchText(marking.enabled));
    for (const Flow flow : allFlows)
        emitPlain(out, std::string(flowKey(flow)), markText(marking.mark(flow)));
    out << YAML::EndMap;
}

} // namespace

std::string exportedText(const ServerState& state)
{
    YAML::Emitter out;
    out.SetOutputCharset(YAML::EscapeNonAscii);
    out << YAML::BeginMap << YAML::Key << endpointsSection << YAML::Value << YAML::BeginMap;
    for (const auto& endpoint : state.endpoints)
        emitEndpoint(out, endpoint);
    out << YAML::EndMap;
    emitSetting(out, state.setting);
    emitMarking(out, state.marking);
    out << YAML::EndMap;
    return withoutDelete(out.c_str()) + "\n";
}

} // namespace lanctl::model
