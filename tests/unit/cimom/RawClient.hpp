#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace cimom::test
{

// An HTTP response taken apart; status 0 when there was none.
struct HttpReply {
    int status = 0;
    std::map<std::string, std::string> headers; // names in lower case; trailers too
    std::string body;                           // chunks joined

    std::string header(const std::string& name) const; // "" when absent
};

// Takes apart what begins with a status line; the body ends where the text does if no header says otherwise.
HttpReply parseReply(const std::string& text);

// A TCP connection to the loopback interface that sends exactly the bytes given.
class RawClient
{
  public:
    explicit RawClient(std::uint16_t port);
    ~RawClient();
    RawClient(const RawClient&) = delete;
    RawClient& operator=(const RawClient&) = delete;

    bool send(const std::string& bytes); // false when the server does not take all of them
    void endSending();                   // the server sees the end of the stream
    // The next response, up to its end or to the end of the connection.
    HttpReply receive();
    // Takes exactly these bytes off what arrives; they must come next.
    void waitFor(const std::string& bytes);
    // Reads on to the end of the connection; false when the server does not close it within five seconds.
    bool waitForEnd();

  private:
    bool more(); // false at the end of the stream or after five seconds

    int m_socket;
    std::string m_received;
};

// A POST with the headers that any client sends.
std::string post(const std::string& body, const std::string& moreHeaders = "");

} // namespace cimom::test
