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
    unsigned timeout = 30; // seconds for the silence between requests, a header, a body, an answer each
    unsigned maxConnections = 256; // more wait until one closes
};

// What a request gets for an answer.
struct HttpAnswer {
    unsigned status = 200;
    std::string cimError; // value of the CIMError header; empty: none
    std::string body;     // CIM-XML; empty with a refusal
};

// Serves CIM-XML over HTTP, POST and M-POST on any path. Each connection has a thread of its own. So a slow
// client holds up nobody, and handlers run side by side.
class HttpServer
{
  public:
    using Handler = std::function<HttpAnswer(const std::string& body)>; // called on any thread
    using Log = std::function<void(const std::string& line)>;           // called on any thread

    // Listens from now on. Throws std::runtime_error, which names address and port, when that is not
    // possible.
    HttpServer(const HttpOptions& options, Handler handler, Log log);
    // Ends once the requests being handled are answered.
    ~HttpServer();
    HttpServer(const HttpServer&) = delete;
    HttpServer& operator=(const HttpServer&) = delete;

    std::uint16_t port() const;

  private:
    class Clients;
    std::unique_ptr<Clients> m_clients;
};

} // namespace cimom
