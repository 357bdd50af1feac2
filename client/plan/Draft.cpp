#include "plan/Draft.hpp"

#include <algorithm>
#include <utility>

namespace lanctl::plan
{

Draft::Draft(std::string object, wire::InstanceName name)
    : m_object(std::move(object)), m_name(std::move(name))
{
}

void Draft::change(const model::Key& key, std::string from, std::string to)
{
    m_plan.changes.push_back(
        {m_object, std::string(key.key), std::string(key.property), std::move(from), std::move(to), true});
}

void Draft::changeWithoutEffect(const model::Key& key, std::string from, std::string to, std::string why)
{
    change(key, std::move(from), std::move(to));
    m_plan.changes.back().sent = false;
    note(key.key, std::move(why));
}

void Draft::refuse(Refusal refusal)
{
    refusal.object = m_object;
    m_plan.refusals.push_back(std::move(refusal));
}

void Draft::note(std::string_view key, std::string text)
{
    m_plan.notes.push_back({m_object, std::string(key), std::move(text)});
}

void Draft::send(std::string_view property, std::string_view type, std::string value)
{
    m_sent.push_back({std::string(property), std::string(type), std::move(value), {}});
}

void Draft::cost(const Impact& impact)
{
    m_impact += impact;
}

void Draft::endRequest()
{
    if (sendsNothing())
        return;
    Request request{m_object, {m_name, {m_name.className, {}}, {}}, m_impact};
    wire::Modification& modification = request.modification;
    for (const auto& [name, value] : m_name.keys)
        modification.instance.properties.push_back({name, "string", value, {}});
    auto& properties = modification.instance.properties;
    properties.insert(properties.end(), m_sent.begin(), m_sent.end());
    for (const wire::Property& property : properties)
        modification.propertyList.push_back(property.name);
    m_plan.requests.push_back(std::move(request));
    m_sent.clear();
    m_impact = {};
}

bool Draft::sends(std::string_view property) const
{
    return std::any_of(m_sent.begin(), m_sent.end(),
                       [&](const wire::Property& candidate) { return candidate.name == property; });
}

Plan Draft::finish(const model::ImpactWarnings& warnings)
{
    endRequest();
    warn(warnings);
    return std::move(m_plan);
}

void Draft::warn(const model::ImpactWarnings& warnings)
{
    for (const Request& request : m_plan.requests)
        for (const wire::Property& property : request.modification.instance.properties)
            if (const auto found = warnings.find(property.name); found != warnings.end())
                m_plan.warnings.push_back(found->second);
}

std::string switchText(bool on)
{
    return on ? "on" : "off";
}

std::string booleanValue(bool on)
{
    return on ? "true" : "false";
}

} // namespace lanctl::plan
