#include "Targets.hpp"
#include "model/WantedText.hpp"
#include "plan/Plan.hpp"

#include <string>

namespace
{

using namespace lanctl;

model::ServerState someServer()
{
    model::ServerState state;
    for (const auto& [name, address] : {std::pair{"eth0", "192.168.10.1"}, std::pair{"eth1", "10.0.0.5"},
                                        std::pair{"eth2", "172.16.2.1"}}) {
        model::Endpoint endpoint;
        endpoint.name = name;
        endpoint.ipAddress = address;
        endpoint.subnetMask = "255.255.255.0";
        endpoint.mtu = 1500;
        state.endpoints.push_back(endpoint);
    }
    return state;
}

} // namespace

void fuzz::wanted_state(std::string_view input)
{
    static const model::ServerState server = someServer();
    model::WantedState wanted;
    try {
        wanted = model::parseWanted(std::string(input));
    } catch (const model::BadWanted& e) {
        expect(*e.what() != '\0', "a refusal says why");
        return;
    }
    const plan::Plan plan = plan::plan(server, wanted);
    expect(plan.refusals.empty() || plan.requests.empty(), "nothing is sent when anything is refused");
    for (const auto& request : plan.requests)
        expect(!request.modification.propertyList.empty(), "a request changes something");
}
