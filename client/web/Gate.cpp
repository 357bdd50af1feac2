#include "web/Gate.hpp"

#include "json/StateJson.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <sys/random.h>
#include <system_error>

namespace lanctl::web
{

namespace
{

bool isOfTheInterface(const std::string& path)
{
    return path.rfind("/api/", 0) == 0;
}

/// Takes the same time wherever the texts differ, so the time tells nothing about the token.
bool isSame(const std::string& left, const std::string& right)
{
    if (left.size() != right.size())
        return false;
    std::size_t differences = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        differences += static_cast<std::size_t>(left[i] != right[i]);
    return differences == 0;
}

} // namespace

std::optional<Response> Gate::refusal(const Request& request) const
{
    if (!isOurHost(request.header("host")))
        return failure(421, "This is not the host that the page was asked of.");
    if (!isOurOrigin(request))
        return failure(403, "A page of another site asked for this.");
    if (request.method != "GET" && request.method != "POST")
        return failure(405, "Only GET and POST are served.");
    if (!isOfTheInterface(request.path))
        return std::nullopt;
    if (!hasToken(request))
        return failure(401, "The token is missing or wrong.", "Open the address that lanctl web printed.");
    if (request.method == "POST" && request.header(ownHeader) != "1")
        return failure(403, "The header X-Lanctl is missing.");
    if (request.method == "POST" && request.header("content-type").rfind("application/json", 0) != 0)
        return failure(415, "Only JSON is taken.");
    return std::nullopt;
}

bool Gate::isOurHost(const std::string& host) const
{
    return m_names.empty() || std::find(m_names.begin(), m_names.end(), host) != m_names.end();
}

bool Gate::isOurOrigin(const Request& request) const
{
    const std::string site = request.header("sec-fetch-site");
    if (site == "cross-site" && isOfTheInterface(request.path))
        return false;
    const std::string origin = request.header("origin");
    return origin.empty() || origin == "http://" + request.header("host");
}

bool Gate::hasToken(const Request& request) const
{
    return m_token.empty() || isSame(request.header("authorization"), "Bearer " + m_token);
}

Response failure(unsigned status, const std::string& text, const std::string& advice)
{
    return {status, "application/json", json::text({{"error", {{"text", text}, {"advice", advice}}}})};
}

std::string newToken()
{
    std::array<unsigned char, 32> bytes{};
    if (getrandom(bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
        throw std::system_error(errno, std::generic_category(), "cannot make a token");
    static const char* const digits = "0123456789abcdef";
    std::string token;
    for (const unsigned char byte : bytes)
        token += {digits[byte >> 4U], digits[byte & 15U]};
    return token;
}

} // namespace lanctl::web
