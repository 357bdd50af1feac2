// Which server to talk to and how: the configuration file, the environment and the options put together.
#pragma once

#include "wire/HttpConnection.hpp"

#include <optional>
#include <string>

namespace lanctl::shell
{

/// The options of the command line that say how the server is reached.
struct ConnectionChoice {
    std::string server;     // --server
    std::string serverName; // -s: a name of the configuration file
    std::string configFile; // --config; empty: the usual places
    std::string user;
    std::string passwordFile;
    std::string caFile;
    bool insecure = false;
    std::optional<double> timeoutSeconds;
};

/// Puts the choice, the environment (LANCTL_SERVER, LANCTL_PASSWORD) and the configuration file together;
/// what the command line says counts most. Throws UsageError.
wire::ConnectionOptions connectionOptions(const ConnectionChoice& given);

/// Throws UsageError when the URL is none.
wire::ServerAddress serverAddress(const std::string& url);

/// What the server is called in the history: its name in the configuration file, or its host and port. Throws
/// UsageError.
std::string serverLabel(const ConnectionChoice& given);

/// The names of the configuration file's servers, for completion.
std::vector<std::string> serverNames(const std::string& configFile);

/// The text of a file of at most that size. Throws UsageError.
std::string fileText(const std::string& path, std::size_t largest);

} // namespace lanctl::shell
