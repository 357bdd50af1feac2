// A change that waits for its confirmation, as the user sees it. The countdown itself is the guard's.
#pragma once

#include "shell/Exit.hpp"
#include "wayback/GuardLoop.hpp"
#include "wayback/History.hpp"

#include <optional>
#include <string>

namespace lanctl::shell
{

/// On a terminal: shows the countdown until "y" confirms the change, "n" takes it back at once, or the time
/// is up. Ctrl-C leaves it to the guard. Elsewhere: says how to confirm, and returns at once what came of the
/// change so far.
Exit waitForConfirmation(const wayback::History& history, int number, Exit soFar);

/// Waits until the guard has set the result of the entry, and tells it. Nothing when the guard is gone and
/// has set none.
std::optional<Exit> waitForResult(const wayback::History& history, int number);

/// Whether a process still looks after the open change.
bool isGuarded(const wayback::History& history);

} // namespace lanctl::shell
