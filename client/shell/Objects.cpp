#include "shell/Objects.hpp"

#include "apply/Reading.hpp"
#include "model/Names.hpp"
#include "wire/Failure.hpp"

#include <algorithm>

namespace lanctl::shell
{

namespace
{

bool contains(const std::vector<std::string>& names, std::string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::vector<model::Endpoint> readInterfaces(wire::Client& client, const std::vector<std::string>& names)
{
    std::vector<model::Endpoint> endpoints = apply::readEndpoints(client);
    endpoints.erase(
        std::remove_if(endpoints.begin(), endpoints.end(),
                       [&](const model::Endpoint& endpoint) { return !contains(names, endpoint.name); }),
        endpoints.end());
    if (endpoints.empty())
        throw wire::Failure(wire::Failure::Kind::NoCimAnswer, "The server has none of these interfaces.");
    return endpoints;
}

} // namespace

std::vector<std::string> objectNames()
{
    std::vector<std::string> names(model::interfaceNames.begin(), model::interfaceNames.end());
    names.emplace_back(model::lanObject);
    names.emplace_back(model::markingObject);
    return names;
}

Shown readObjects(wire::Client& client, const std::vector<std::string>& given)
{
    const std::vector<std::string> names = given.empty() ? objectNames() : given;
    Shown shown;
    if (std::any_of(names.begin(), names.end(), model::isInterface))
        shown.endpoints = readInterfaces(client, names);
    if (contains(names, model::lanObject))
        shown.setting = apply::readSetting(client);
    if (contains(names, model::markingObject))
        shown.marking = apply::readMarking(client);
    return shown;
}

} // namespace lanctl::shell
