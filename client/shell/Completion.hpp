// What can come next on the command line, for the shell's completion.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace lanctl::shell
{

/// The words that can stand where a command line ends: "lanctl set eth1 d" gives "dhcp=". Commands and
/// options are those of the app. Nothing where a file name or a free value is expected.
std::vector<std::string> completions(const CLI::App& app, const std::string& commandLine);

} // namespace lanctl::shell
