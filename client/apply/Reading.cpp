#include "apply/Reading.hpp"

#include "model/FromCim.hpp"
#include "model/Names.hpp"
#include "wire/Failure.hpp"

namespace lanctl::apply
{

namespace
{

/// Reads the instances of a class and converts them.
template <class Convert>
auto read(wire::Client& client, std::string_view className, const Convert& convert)
{
    try {
        return convert(client.enumerateInstances(std::string(className)));
    } catch (const model::UnexpectedInstance& e) {
        throw wire::Failure(wire::Failure::Kind::NoCimAnswer,
                            std::string("The server answers something unexpected: ") + e.what() + ".",
                            "Check that the server runs this client's LAN provider.");
    }
}

} // namespace

std::vector<model::Endpoint> readEndpoints(wire::Client& client)
{
    return read(client, model::classes::endpoint, model::endpointsFrom);
}

model::Setting readSetting(wire::Client& client)
{
    return read(client, model::classes::setting, model::onlySettingFrom);
}

model::Marking readMarking(wire::Client& client)
{
    return read(client, model::classes::marking, model::firstMarkingFrom);
}

model::ServerState readState(wire::Client& client)
{
    model::ServerState state;
    state.endpoints = readEndpoints(client);
    state.setting = readSetting(client);
    state.marking = readMarking(client);
    return state;
}

} // namespace lanctl::apply
