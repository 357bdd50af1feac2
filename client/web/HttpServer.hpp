// HTTP for browsers: the page's files and the JSON interface, within limits.
#pragma once

#include "web/Api.hpp"
#include "web/Gate.hpp"

#include <cstdint>
#include <memory>
#include <string>

namespace lanctl::web
{

/// Where the page is served: "127.0.0.1:8080", "[::1]:8080".
struct ListenAddress {
    std::string host; // a number, without the brackets of an IPv6 address
    std::uint16_t port = 0;

    bool isLoopback() const;
    /// As the browser names it.
    std::string text() const;
};

/// Throws std::invalid_argument.
ListenAddress parseListenAddress(const std::string& text);

class HttpServer
{
  public:
    /// Serves from now on, on threads of its own. Throws std::system_error.
    HttpServer(const ListenAddress& address, const Gate& gate, Api& api);
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    Response answer(const Request& request) const;

  private:
    struct Daemon;

    const Gate& m_gate;
    Api& m_api;
    std::unique_ptr<Daemon> m_daemon;
};

} // namespace lanctl::web
