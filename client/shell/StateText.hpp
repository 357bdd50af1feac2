// The server's state in tables, for people.
#pragma once

#include "model/State.hpp"

#include <optional>
#include <string>
#include <vector>

namespace lanctl::shell
{

/// What was asked for; the rest is not read and not shown.
struct Shown {
    std::vector<model::Endpoint> endpoints;
    std::optional<model::Setting> setting;
    std::optional<model::Marking> marking;
};

/// Highlights what differs from `before`, when there is one.
std::string stateText(const Shown& now, const Shown* before = nullptr);

} // namespace lanctl::shell
