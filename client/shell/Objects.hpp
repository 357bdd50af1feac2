// The objects that a command names, and reading just those.
#pragma once

#include "shell/StateText.hpp"
#include "wire/Client.hpp"

#include <string>
#include <vector>

namespace lanctl::shell
{

/// "eth0", "eth1", "eth2", "lan" and "marking".
std::vector<std::string> objectNames();

/// Reads the objects of these names, one request a class; all objects when none is named.
Shown readObjects(wire::Client& client, const std::vector<std::string>& names);

} // namespace lanctl::shell
