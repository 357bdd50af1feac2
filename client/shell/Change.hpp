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

/// `endsEntry` is the entry of the history that was cut off and that this change brings to its end.
Exit change(const ConnectionChoice& choice, const model::WantedState& wanted, const Agreement& agreement,
            std::optional<int> endsEntry = std::nullopt);

} // namespace lanctl::shell
