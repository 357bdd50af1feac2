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

/// Reads the objects of the given names, one request a class; all objects when none is given.
Shown readObjects(wire::Client& client, const std::vector<std::string>& given);

} // namespace lanctl::shell
