#include "plan/Draft.hpp"

#include <algorithm>

namespace lanctl::plan
{

Draft::Draft(std::string object, std::string_view className, Keys keys)
    : object_(std::move(object)), className_(className), keys_(std::move(keys))
{
}

void Draft::change(const model::Key& key, std::string from, std::string to)
{
    plan_.changes.push_back(
        {object_, std::string(key.key), std::string(key.property), std::move(from), std::move(to), true});
}

void Draft::changeWithoutEffect(const model::Key& key, std::string from, std::string to, std::string why)
{
    change(key, std::move(from), std::move(to));
    plan_.changes.back().sent = false;
    note(key.key, std::move(why));
}

void Draft::refuse(Refusal refusal)
{
    refusal.object = object_;
    plan_.refusals.push_back(std::move(refusal));
}

void Draft::note(std::string_view key, std::string text)
{
    plan_.notes.push_back({object_, std::string(key), std::move(text)});
}

void Draft::send(std::string_view property, std::string_view type, std::string value)
{
    sent_.push_back({std::string(property), std::string(type), std::move(value), {}});
}

void Draft::cost(const Impact& impact)
{
    impact_ += impact;
}

void Draft::endRequest()
{
    if (sendsNothing())
        return;
    Request request{object_, {{className_, keys_}, {className_, {}}, {}}, impact_};
    wire::Modification& modification = request.modification;
    for (const auto& [name, value] : keys_)
        modification.instance.properties.push_back({name, "string", value, {}});
    auto& properties = modification.instance.properties;
    properties.insert(properties.end(), sent_.begin(), sent_.end());
    for (const wire::Property& property : properties)
        modification.propertyList.push_back(property.name);
    plan_.requests.push_back(std::move(request));
    sent_.clear();
    impact_ = {};
}

bool Draft::sends(std::string_view property) const
{
    return std::any_of(sent_.begin(), sent_.end(),
                       [&](const wire::Property& candidate) { return candidate.name == property; });
}

Plan Draft::finish(const model::ImpactWarnings& warnings)
{
    endRequest();
    warn(warnings);
    return std::move(plan_);
}

void Draft::warn(const model::ImpactWarnings& warnings)
{
    for (const Request& request : plan_.requests)
        for (const wire::Property& property : request.modification.instance.properties)
            if (const auto found = warnings.find(property.name); found != warnings.end())
                plan_.warnings.push_back(found->second);
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
