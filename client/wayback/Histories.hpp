// The histories of all servers, and which of them is a server's.
#pragma once

#include "wayback/History.hpp"

#include <string>
#include <vector>

namespace lanctl::wayback
{

std::vector<History> allHistories();

/// The history of the server that is called so. Where there is none yet, it is the one of a server whose
/// change has moved it here: the history stays where it began.
History historyOf(const std::string& server);

} // namespace lanctl::wayback
