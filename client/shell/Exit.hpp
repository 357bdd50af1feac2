// How lanctl ends. Scripts rely on these numbers; docs/lanctl.md explains them.
#pragma once

#include <stdexcept>
#include <string>

namespace lanctl::shell
{

enum class Exit {
    Done = 0,        // or nothing to do
    NotAsWanted = 1, // the server refused, or its state is not as wanted, or the user did not agree
    Usage = 2,       // wrong usage, or a value that the server would refuse
    NoAnswer = 3,    // not reached, not authorised, no CIM answer
    TakenBack = 4,   // changed, and taken back because nobody confirmed it
    Differences = 10,
};

/// Wrong usage that is found after the command line has been read: a file, a value, a setting.
class UsageError : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

} // namespace lanctl::shell
