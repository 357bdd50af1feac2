// The plans of single objects. Their requests are there even where something is refused: what the server
// would be sent if nobody asked this client.
#pragma once

#include "plan/Plan.hpp"

namespace lanctl::plan
{

Plan planEndpoint(const model::ServerState& current, const model::WantedEndpoint& wanted);
Plan planSetting(const model::Setting& current, const model::WantedSetting& wanted);
Plan planMarking(const model::Marking& current, const model::WantedMarking& wanted);

/// The interface as the change leaves it.
model::Endpoint changed(model::Endpoint endpoint, const model::WantedEndpoint& wanted);

} // namespace lanctl::plan
