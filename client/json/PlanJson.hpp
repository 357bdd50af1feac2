// Plans and what came of them as JSON, for programs. docs/lanctl.md describes the forms; they do not change.
#pragma once

#include "apply/Apply.hpp"
#include "plan/Plan.hpp"
#include "plan/Reach.hpp"
#include "json/StateJson.hpp"

namespace lanctl::json
{

Json toJson(const plan::Change& change);
Json toJson(const plan::Impact& impact);
Json toJson(const plan::Refusal& refusal);

/// The plan and what it does to the connection to the server.
Json toJson(const plan::Plan& plan, const plan::Reach& reach);

/// What came of the plan.
Json toJson(const apply::Outcome& outcome);

} // namespace lanctl::json
