// Runs lanctl itself for what changes the server. A change, its guard and its history are then the same as on
// the command line, and a fault in the page's process takes no change along.
#pragma once

#include <string>
#include <vector>

namespace lanctl::web
{

struct Finished {
    int status = -1; // exit code; -1 when it was killed
    std::string output;
    std::string errors;
};

/// Runs this very program with these arguments and waits for its end. Throws std::system_error.
Finished runLanctl(const std::vector<std::string>& arguments, const std::string& input);

} // namespace lanctl::web
