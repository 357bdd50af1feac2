// The command line: which command with which options.
#pragma once

namespace lanctl::shell
{

/// Runs lanctl and returns its exit code.
int run(int argc, char** argv);

} // namespace lanctl::shell
