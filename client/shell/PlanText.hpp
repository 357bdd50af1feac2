// Plans, differences and results for people.
#pragma once

#include "apply/Apply.hpp"
#include "plan/Plan.hpp"

#include <string>

namespace lanctl::shell
{

/// What changes from what to what, one line each.
std::string changesText(const std::vector<plan::Change>& changes);

/// The whole plan: changes, costs, warnings, notes, refusals.
std::string planText(const plan::Plan& plan);

/// "1 interface restart, 2 voice messaging restarts", or "no interruption".
std::string impactText(const plan::Impact& impact);

/// What came of it.
std::string outcomeText(const apply::Outcome& outcome, const plan::Plan& plan);

} // namespace lanctl::shell
