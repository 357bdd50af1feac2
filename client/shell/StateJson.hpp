// The server's state as JSON, for programs. docs/lanctl.md describes the form; it does not change.
#pragma once

#include "shell/StateText.hpp"

#include <string>

namespace lanctl::shell
{

std::string stateJson(const Shown& shown);

} // namespace lanctl::shell
