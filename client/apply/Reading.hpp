// Reading the server's state.
#pragma once

#include "model/State.hpp"
#include "wire/Client.hpp"

#include <vector>

namespace lanctl::apply
{

// One request each. They throw wire::CimError and wire::Failure.
std::vector<model::Endpoint> readEndpoints(wire::Client& client);
model::Setting readSetting(wire::Client& client);
model::Marking readMarking(wire::Client& client);

/// All of it. A plan needs all: an endpoint's rules look at the other endpoints and at the router card.
model::ServerState readState(wire::Client& client);

} // namespace lanctl::apply
