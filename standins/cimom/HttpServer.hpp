#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace cimom
{

struct HttpOptions {
    std::string address = "127.0.0.1"; // numeric IPv4 or IPv6
    std::uint16_t port = 5988;         // 0: any free one
    std::size_t maxBody = 1 << 20;     // bytes of a request
    unsigned timeout = 30;             // seconds: how long a connection may be silent, a body take to arrive
    unsigned maxConnections = 256;     // more wait until one closes
};

// What a request gets for an answer.
struct HttpAnswer {
    unsigned status = 200;
    std::string cimError; // value of the CIMError header; empty: none
    std::string body;     // CIM-XML; empty with a refusal
};

// Serves CIM-XML over HTTP, POST and M-POST on any path. Requests are read, handled and answered on one
// thread of the server's own: handlers never run at the same time, and a client slow to send or to read holds
// up nobody.
class HttpServer
{
  public:
    using Handler = std::function<HttpAnswer(const std::string& body)>; // must not throw
    using Log = std::function<void(const std::string& line)>; // what the HTTP library complains about

    // Listens from here on. Throws std::runtime_error naming address and port when that is not possible.
    HttpServer(const HttpOptions& options, Handler handler, Log log);
    // Ends once the request being handled is answered.
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    std::uint16_t port() const;

  private:
    class Daemon;
    std::unique_ptr<Daemon> m_daemon;
};

} // namespace cimom
