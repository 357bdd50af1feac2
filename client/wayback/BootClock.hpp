// Time that nobody can set: a countdown must not jump with the clock.
#pragma once

#include <chrono>
#include <string>

namespace lanctl::wayback
{

/// Since the machine's start, the time asleep included (CLOCK_BOOTTIME). All processes of the machine see the
/// same.
std::chrono::milliseconds sinceBoot();

/// Whole seconds until that time since boot, never below 0.
long secondsUntil(std::chrono::milliseconds time);

/// Names this run of the machine: times since its start mean nothing in another one.
std::string bootId();

} // namespace lanctl::wayback
