// The history and the change that waits as JSON, for programs. docs/lanctl.md describes the forms; they do
// not change.
#pragma once

#include "wayback/History.hpp"
#include "json/StateJson.hpp"

namespace lanctl::json
{

/// An entry of the history.
Json toJson(const wayback::Entry& entry, const wayback::History& history);

/// An open entry with its state: "changing", "waiting", "taking-back" or "cut-off".
Json openJson(const wayback::Entry& entry, const wayback::History& history);

} // namespace lanctl::json
