// One change from the wanted state to the server: plan, agreement, carrying out, reading back, and its way
// back.
#pragma once

#include "model/Wanted.hpp"
#include "shell/Commands.hpp"
#include "shell/Configuration.hpp"
#include "shell/Exit.hpp"

#include <optional>

namespace lanctl::shell
{

/// `endsEntry` is a cut-off entry of the history, which this change completes.
Exit change(const ConnectionChoice& choice, const model::WantedState& wanted, const Agreement& agreement,
            std::optional<int> endsEntry = std::nullopt);

} // namespace lanctl::shell
