// Where the server is: a URL such as http://127.0.0.1:5988/root/cimv2, whose path is the CIM namespace.
#pragma once

#include <stdexcept>
#include <string>

namespace lanctl::wire
{

class BadServerAddress : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

struct ServerAddress {
    std::string scheme; // "http" or "https"
    std::string host;   // without the brackets of an IPv6 address
    std::string port;
    std::string cimNamespace;

    /// Of the HTTP requests.
    std::string requestUrl() const;
    /// All of it; parseServerAddress understands this.
    std::string url() const;
    /// As a user would write it: "127.0.0.1:5988".
    std::string hostAndPort() const;
    /// Whether it is this machine, which no proxy can reach.
    bool isLoopback() const;
};

/// Defaults: scheme http, port 5988 (https: 5989), path root/cimv2. Throws BadServerAddress, also for a text
/// with a user or password: every user of the machine sees the command line.
ServerAddress parseServerAddress(const std::string& text);

} // namespace lanctl::wire
