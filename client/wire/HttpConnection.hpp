// The HTTP below CIM-XML: one kept connection, a time limit, an answer of bounded size.
#pragma once

#include "wire/RequestWriter.hpp"
#include "wire/ServerAddress.hpp"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace lanctl::wire
{

struct ConnectionOptions {
    ServerAddress server;
    std::string user;
    std::string password;
    std::string caFile;    // empty: the system's authorities
    bool insecure = false; // take any certificate
    std::chrono::milliseconds timeLimit{30000};
    std::size_t largestAnswer = 4U << 20U;

    /// Called ten times a second while an answer is awaited; false gives up.
    std::function<bool()> whileWaiting;
};

class HttpConnection
{
  public:
    explicit HttpConnection(ConnectionOptions options);
    ~HttpConnection();
    HttpConnection(const HttpConnection&) = delete;
    HttpConnection& operator=(const HttpConnection&) = delete;

    /// The body of the answer. Throws Failure.
    std::string post(const Request& request);

    /// From now on, waits for an answer no longer than that.
    void setTimeLimit(std::chrono::milliseconds limit);

    /// Where the connection leads: the server's address as a number, once connected.
    std::string peerAddress() const;

    /// From now on the server is to be found under another address. Its name, in the request and in a
    /// certificate, stays.
    void follow(const std::string& address);

  private:
    class Transfer;
    std::unique_ptr<Transfer> m_transfer;
};

} // namespace lanctl::wire
