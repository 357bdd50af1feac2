#pragma once

#include <stdexcept>
#include <string>

namespace cimom
{

// A place in a MOF file; line and column count from 1, the column in bytes.
struct SourcePosition {
    std::string file;
    int line = 1;
    int column = 1;
};

// A MOF file that cannot be used: what() reads "file:line:column: expected ..., found ...".
class MofError : public std::runtime_error
{
  public:
    MofError(const SourcePosition& position, const std::string& expected, const std::string& found)
        : std::runtime_error(position.file + ":" + std::to_string(position.line) + ":" +
                             std::to_string(position.column) + ": expected " + expected + ", found " + found)
    {
    }
};

} // namespace cimom
