// Who may ask: what is refused before anything looks at the request itself.
//
// A page of another site that the same browser has open can send requests here too. It cannot forge the Host
// that the browser names, nor the Origin. Before it may set a header of its own, the browser asks here for a
// permission, which is not given.
#pragma once

#include "web/Http.hpp"

#include <optional>
#include <string>
#include <vector>

namespace lanctl::web
{

/// The header that every changing request carries, with the value "1".
constexpr const char* ownHeader = "x-lanctl";

class Gate
{
  public:
    /// `names` are the hosts, with port, by which the page may be reached. Requests need the `token` unless
    /// it is empty.
    Gate(std::vector<std::string> names, std::string token)
        : m_names(std::move(names)), m_token(std::move(token))
    {
    }

    /// Why the request is refused, or nothing.
    std::optional<Response> refusal(const Request& request) const;

  private:
    bool isOurHost(const std::string& host) const;
    bool isOurOrigin(const Request& request) const;
    bool hasToken(const Request& request) const;

    std::vector<std::string> m_names;
    std::string m_token;
};

/// An error as the page reads it.
Response failure(unsigned status, const std::string& text, const std::string& advice = {});

/// 32 random bytes in hexadecimal. Throws std::system_error.
std::string newToken();

} // namespace lanctl::web
