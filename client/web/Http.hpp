// A browser's request and the answer to it, whatever carries them.
#pragma once

#include <map>
#include <string>

namespace lanctl::web
{

struct Request {
    std::string method;
    std::string path;
    std::map<std::string, std::string> headers; // by name in lower case
    std::string body;

    /// The header's value, or "".
    std::string header(const std::string& name) const
    {
        const auto found = headers.find(name);
        return found == headers.end() ? "" : found->second;
    }
};

struct Response {
    unsigned status = 200;
    std::string type = "application/json";
    std::string body;
};

} // namespace lanctl::web
