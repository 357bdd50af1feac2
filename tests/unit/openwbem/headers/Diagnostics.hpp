// What a compiler said of a file.
#ifndef TESTS_UNIT_OPENWBEM_HEADERS_DIAGNOSTICS_HPP
#define TESTS_UNIT_OPENWBEM_HEADERS_DIAGNOSTICS_HPP

#include <cstddef>
#include <set>
#include <string>
#include <vector>

// The lines of a text file; a failure of the test when it cannot be read.
std::vector<std::string> linesOf(const std::string& path);

// The numbers, from 1, of the lines of the file of this name that the diagnostics are about. An error
// elsewhere names the line that caused it.
std::set<size_t> wrongLines(const std::string& diagnostics, const std::string& fileName);

#endif
