// The wanted state as users write it: KEY=VALUE on the command line, or a file in YAML, of which JSON is a
// part.
#pragma once

#include "model/Wanted.hpp"

#include <stdexcept>
#include <string>

namespace lanctl::model
{

/// A key that does not exist, or a value that is none of its form.
class BadWanted : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

/// A file larger than this is no wanted state.
constexpr std::size_t largestWantedFile = 1U << 20U;

/// Adds one value to the wanted state. A key that is given twice is refused.
void want(WantedState& wanted, const std::string& object, const std::string& key, const std::string& value);

/// Adds "address=10.0.0.6/24".
void wantAssignment(WantedState& wanted, const std::string& object, const std::string& assignment);

/// Reads a whole file's text. What the file leaves out is not to be changed.
WantedState parseWanted(const std::string& text);

} // namespace lanctl::model
