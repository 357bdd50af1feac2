// The server that the plans of these tests are made for, and short forms of what a plan says.
#pragma once

#include "plan/Plan.hpp"

#include <string>
#include <vector>

namespace lanctl::plan
{

/// eth0 192.168.10.1/24, eth1 10.0.0.5/24 with gateway 10.0.0.1, eth2 172.16.2.1/24, no router card, two name
/// servers, no filter, marking on with its presets.
model::ServerState server();

model::Endpoint& endpoint(model::ServerState& state, const std::string& name);

/// Nothing but an interface with that name; its values are set by the test.
model::WantedEndpoint wanted(const std::string& name);

/// The plan of a single interface.
Plan planOf(const model::ServerState& state, const model::WantedEndpoint& wanted);

/// "eth1 address: 10.0.0.5 -> 10.0.0.6", with "(not sent)" behind what is not.
std::vector<std::string> changes(const Plan& plan);
/// "eth1 address: Invalid IP address format", with "#LAN_ERROR_...#" behind it, and "(own)" where it is ours.
std::vector<std::string> refusals(const Plan& plan);
/// "eth1: MaxDataSize=1400 IPAddress=10.0.0.6", without the keys.
std::vector<std::string> requests(const Plan& plan);
/// All that is counted and not zero: "2 interface, 2 voice, 1 dhcp".
std::string cost(const Impact& impact);
/// Whether some note about the object and key holds the text.
bool notes(const Plan& plan, const std::string& object, const std::string& key, const std::string& text);

} // namespace lanctl::plan
