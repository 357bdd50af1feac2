#include "model/FromCim.hpp"

#include "model/Names.hpp"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace lanctl::model
{

namespace
{

/// Reads the properties of one instance and says which one is wrong.
class Reader
{
  public:
    explicit Reader(const wire::Instance& instance) : m_instance(instance) {}

    std::string text(const std::string& name) const
    {
        const wire::Property* property = m_instance.find(name);
        if (property == nullptr || !property->value)
            throw UnexpectedInstance(m_instance.className + " has no " + name);
        return *property->value;
    }

    bool flag(const std::string& name) const
    {
        const std::string value = text(name);
        if (value == "true" || value == "TRUE")
            return true;
        if (value == "false" || value == "FALSE")
            return false;
        throw unexpected(name, value);
    }

    template <class Number>
    Number number(const std::string& name) const
    {
        const std::string value = text(name);
        Number result{};
        const auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), result);
        if (error != std::errc() || end != value.data() + value.size())
            throw unexpected(name, value);
        return result;
    }

    /// The server leaves a state out, or sends an empty text, when it cannot read it.
    std::optional<std::uint16_t> optionalState(const std::string& name) const
    {
        const wire::Property* property = m_instance.find(name);
        if (property == nullptr || !property->value || property->value->empty())
            return std::nullopt;
        return number<std::uint16_t>(name);
    }

    ImpactWarnings warnings() const
    {
        ImpactWarnings warnings;
        for (const auto& property : m_instance.properties) {
            const auto warning = property.qualifiers.find("ImpactWarning");
            if (warning != property.qualifiers.end())
                warnings[property.name] = warning->second;
        }
        return warnings;
    }

  private:
    UnexpectedInstance unexpected(const std::string& name, const std::string& value) const
    {
        return UnexpectedInstance(m_instance.className + " has a " + name + " of \"" + value + "\"");
    }

    const wire::Instance& m_instance;
};

} // namespace

Endpoint endpointFrom(const wire::Instance& instance)
{
    const Reader read(instance);
    Endpoint endpoint;
    endpoint.systemCreationClassName = read.text("SystemCreationClassName");
    endpoint.systemName = read.text("SystemName");
    endpoint.creationClassName = read.text("CreationClassName");
    endpoint.name = read.text("Name");
    endpoint.description = read.text("Description");
    endpoint.macAddress = read.text("MACAddress");
    endpoint.mtu = read.number<std::int32_t>("MaxDataSize");
    endpoint.ipAddress = read.text("IPAddress");
    endpoint.subnetMask = read.text("SubnetMask");
    endpoint.defaultGateway = read.text("DefaultGateway");
    endpoint.dhcp = read.flag("isDhcpEnabled");
    endpoint.operationalStatus = read.optionalState("OperationalStatus");
    endpoint.enabledState = read.optionalState("EnabledState");
    endpoint.speed = read.number<std::uint64_t>("Speed");
    endpoint.warnings = read.warnings();
    return endpoint;
}

Setting settingFrom(const wire::Instance& instance)
{
    const Reader read(instance);
    Setting setting;
    setting.instanceId = read.text("InstanceID");
    setting.domainName = read.text("DomainName");
    setting.primaryDns = read.text("PrimaryDNS");
    setting.secondaryDns = read.text("SecondaryDNS");
    setting.icmpFilter = read.flag("isIcmpFilterEnabled");
    setting.arpFilter = read.flag("isArpFilterEnabled");
    setting.broadcastFilter = read.flag("isBroadcastFilterEnabled");
    setting.conflictWatch = read.flag("isIPAddressConflictEnabled");
    setting.routerPresent = read.flag("isRouterPresent");
    setting.warnings = read.warnings();
    return setting;
}

Marking markingFrom(const wire::Instance& instance)
{
    const Reader read(instance);
    Marking marking;
    marking.systemCreationClassName = read.text("SystemCreationClassName");
    marking.systemName = read.text("SystemName");
    marking.creationClassName = read.text("CreationClassName");
    marking.name = read.text("Name");
    marking.enabled = read.flag("KLonKLEnabled");
    for (const Flow flow : allFlows) {
        const Key& key = *findKey(Kind::Marking, flowKey(flow));
        marking.mark(flow) = {read.number<std::uint16_t>(std::string(key.property)),
                              read.number<std::uint16_t>(std::string(key.companion))};
    }
    marking.warnings = read.warnings();
    return marking;
}

std::vector<Endpoint> endpointsFrom(const std::vector<wire::Instance>& instances)
{
    std::vector<Endpoint> endpoints;
    std::transform(instances.begin(), instances.end(), std::back_inserter(endpoints), endpointFrom);
    return endpoints;
}

Setting onlySettingFrom(const std::vector<wire::Instance>& instances)
{
    if (instances.empty())
        throw UnexpectedInstance("there is no " + std::string(classes::setting));
    return settingFrom(instances.front());
}

Marking firstMarkingFrom(const std::vector<wire::Instance>& instances)
{
    for (const auto& instance : instances) {
        const wire::Property* name = instance.find("Name");
        if (name != nullptr && name->value == "Name") // so the server calls it
            return markingFrom(instance);
    }
    if (instances.empty())
        throw UnexpectedInstance("there is no " + std::string(classes::marking));
    return markingFrom(instances.front());
}

wire::InstanceName nameOf(const Endpoint& endpoint)
{
    return {std::string(classes::endpoint),
            {{"SystemCreationClassName", endpoint.systemCreationClassName},
             {"SystemName", endpoint.systemName},
             {"CreationClassName", endpoint.creationClassName},
             {"Name", endpoint.name}}};
}

wire::InstanceName nameOf(const Setting& setting)
{
    return {std::string(classes::setting), {{"InstanceID", setting.instanceId}}};
}

wire::InstanceName nameOf(const Marking& marking)
{
    return {std::string(classes::marking),
            {{"SystemCreationClassName", marking.systemCreationClassName},
             {"SystemName", marking.systemName},
             {"CreationClassName", marking.creationClassName},
             {"Name", marking.name}}};
}

} // namespace lanctl::model
