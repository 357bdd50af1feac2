// The server's state as JSON, for programs. docs/lanctl.md describes the form; it does not change.
#pragma once

#include "model/State.hpp"

#include <nlohmann/json.hpp>
#include <string>

namespace lanctl::json
{

using Json = nlohmann::ordered_json;

Json toJson(const model::Endpoint& endpoint);
Json toJson(const model::Setting& setting);
Json toJson(const model::Marking& marking);

/// The state as a wanted state that model::parseWanted reads, with the keys and values of
/// model::exportedText.
Json wantedJson(const model::ServerState& state);

/// As it is printed: everything beyond ASCII is escaped, so that nothing in it can steer a terminal.
std::string text(const Json& json);

} // namespace lanctl::json
