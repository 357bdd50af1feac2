#pragma once

#include <chrono>

namespace cimom
{

// Waits for SIGTERM or SIGINT. The signals are handled rather than blocked: a blocked signal would stay
// blocked in the commands that providers run. One object at a time.
class TerminationSignal
{
  public:
    TerminationSignal();
    ~TerminationSignal();
    TerminationSignal(const TerminationSignal&) = delete;
    TerminationSignal& operator=(const TerminationSignal&) = delete;

    // True once a signal has come, false when the time is over before.
    bool waitFor(std::chrono::milliseconds time);
};

} // namespace cimom
