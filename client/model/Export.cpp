#include "model/Export.hpp"

#include <utility>
#include <yaml-cpp/yaml.h>

namespace lanctl::model
{

namespace
{

/// Collects the values of one object.
class Collector
{
  public:
    Collector(std::string object, Kind kind) : m_kind(kind) { m_exported.object = std::move(object); }

    void add(std::string_view key, std::string text)
    {
        m_exported.values.push_back({findKey(m_kind, key), std::move(text)});
    }
    void add(std::string_view key, bool on) { add(key, std::string(on ? "on" : "off")); }

    ExportedObject take() { return std::move(m_exported); }

  private:
    Kind m_kind;
    ExportedObject m_exported;
};

ExportedObject exported(const Endpoint& endpoint)
{
    Collector values(endpoint.name, Kind::Endpoint);
    values.add("dhcp", endpoint.dhcp);
    if (!endpoint.dhcp) {
        values.add("address", endpoint.ipAddress);
        values.add("mask", endpoint.subnetMask);
        if (endpoint.name == customerLan || !endpoint.defaultGateway.empty())
            values.add("gateway", endpoint.defaultGateway);
    }
    values.add("mtu", std::to_string(endpoint.mtu));
    return values.take();
}

ExportedObject exported(const Setting& setting)
{
    Collector values(std::string(lanObject), Kind::Setting);
    values.add("domain", setting.domainName);
    values.add("dns1", setting.primaryDns);
    values.add("dns2", setting.secondaryDns);
    values.add("icmp-filter", setting.icmpFilter);
    values.add("arp-filter", setting.arpFilter);
    values.add("broadcast-filter", setting.broadcastFilter);
    values.add("conflict-watch", setting.conflictWatch);
    return values.take();
}

ExportedObject exported(const Marking& marking)
{
    Collector values(std::string(markingObject), Kind::Marking);
    values.add("enabled", marking.enabled);
    for (const Flow flow : allFlows)
        values.add(flowKey(flow), markText(marking.mark(flow)));
    return values.take();
}

/// The emitter escapes every control character but this one, and a file may be shown on a terminal.
std::string withoutDelete(std::string text)
{
    for (std::size_t at = 0; (at = text.find('\x7F', at)) != std::string::npos;)
        text.replace(at, 1, "\\x7F");
    return text;
}

void emit(YAML::Emitter& out, const ExportedObject& exported)
{
    out << YAML::Key << exported.object << YAML::Value << YAML::BeginMap;
    for (const auto& [key, text] : exported.values) {
        out << YAML::Key << std::string(key->key) << YAML::Value;
        if (key->form == Form::Address || key->form == Form::Text)
            out << YAML::DoubleQuoted; // so that YAML takes it for nothing else
        out << text;
    }
    out << YAML::EndMap;
}

} // namespace

Exported exported(const ServerState& state)
{
    Exported result;
    for (const Endpoint& endpoint : state.endpoints)
        result.endpoints.push_back(exported(endpoint));
    result.others = {exported(state.setting), exported(state.marking)};
    return result;
}

std::string exportedText(const ServerState& state)
{
    const Exported all = exported(state);
    YAML::Emitter out;
    out.SetOutputCharset(YAML::EscapeNonAscii);
    out << YAML::BeginMap << YAML::Key << std::string(endpointsSection) << YAML::Value << YAML::BeginMap;
    for (const ExportedObject& endpoint : all.endpoints)
        emit(out, endpoint);
    out << YAML::EndMap;
    for (const ExportedObject& other : all.others)
        emit(out, other);
    out << YAML::EndMap;
    return withoutDelete(out.c_str()) + "\n";
}

} // namespace lanctl::model
