#include "RawClient.hpp"

#include <algorithm>
#include <arpa/inet.h>
#include <cctype>
#include <cerrno>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

namespace cimom::test
{
namespace
{

std::string lowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string trimmed(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r");
    return begin == std::string::npos ? "" : text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

// Reads header lines up to an empty one; returns where the text goes on.
std::size_t parseHeaders(const std::string& text, std::size_t begin, HttpReply& reply)
{
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        const std::string line = trimmed(text.substr(begin, end - begin));
        begin = end + 1;
        if (line.empty()) {
            break;
        }
        const std::size_t colon = std::min(line.find(':'), line.size());
        reply.headers[lowerCase(line.substr(0, colon))] =
            trimmed(line.substr(std::min(colon + 1, line.size())));
    }
    return begin;
}

void parseChunks(const std::string& text, std::size_t begin, HttpReply& reply)
{
    for (;;) {
        const std::size_t length = std::stoul(text.substr(begin), nullptr, 16);
        begin = text.find('\n', begin) + 1;
        if (length == 0) {
            parseHeaders(text, begin, reply);
            return;
        }
        reply.body += text.substr(begin, length);
        begin = text.find('\n', begin + length) + 1;
    }
}

// Where the response at the start of the text ends; npos when the text does not reach so far.
std::size_t endOfReply(const std::string& text)
{
    const std::size_t headerEnd = text.find("\r\n\r\n");
    if (headerEnd == std::string::npos) {
        return std::string::npos;
    }
    HttpReply head;
    parseHeaders(text, text.find('\n') + 1, head);
    const std::size_t end = headerEnd + 4 + std::stoul("0" + head.header("content-length"));
    return end <= text.size() ? end : std::string::npos;
}

} // namespace

std::string HttpReply::header(const std::string& name) const
{
    const auto found = headers.find(name);
    return found != headers.end() ? found->second : "";
}

HttpReply parseReply(const std::string& text)
{
    HttpReply reply;
    reply.status = std::stoi(text.substr(text.find(' ')));
    const std::size_t begin = parseHeaders(text, text.find('\n') + 1, reply);
    if (reply.header("transfer-encoding") == "chunked") {
        parseChunks(text, begin, reply);
    } else {
        reply.body = text.substr(std::min(begin, text.size()));
    }
    return reply;
}

RawClient::RawClient(std::uint16_t port) : m_socket(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const timeval limit = {5, 0};
    setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    if (connect(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) {
        throw std::runtime_error("cannot connect");
    }
}

RawClient::~RawClient()
{
    close(m_socket);
}

bool RawClient::send(const std::string& bytes)
{
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const ssize_t n = ::send(m_socket, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (n <= 0) {
            return false; // the server hung up; what it said is still to be read
        }
        sent += static_cast<std::size_t>(n);
    }
    return true;
}

void RawClient::endSending()
{
    shutdown(m_socket, SHUT_WR);
}

bool RawClient::more()
{
    char buffer[65536];
    errno = 0;
    const ssize_t n = recv(m_socket, buffer, sizeof buffer, 0);
    m_received.append(buffer, n > 0 ? static_cast<std::size_t>(n) : 0);
    return n > 0;
}

HttpReply RawClient::receive()
{
    while (endOfReply(m_received) == std::string::npos) {
        if (!more()) {
            break;
        }
    }
    const std::string text = m_received.substr(0, endOfReply(m_received));
    m_received.erase(0, text.size());
    const HttpReply reply = text.empty() ? HttpReply() : parseReply(text);
    return reply.status == 100 ? receive() : reply;
}

void RawClient::waitFor(const std::string& bytes)
{
    while (m_received.size() < bytes.size() && more()) {
    }
    if (m_received.compare(0, bytes.size(), bytes) != 0) {
        throw std::runtime_error("the server says something else: " + m_received);
    }
    m_received.erase(0, bytes.size());
}

bool RawClient::waitForEnd()
{
    while (more()) {
    }
    return errno != EAGAIN;
}

std::string post(const std::string& body, const std::string& moreHeaders)
{
    return "POST /cimom HTTP/1.1\r\nHost: localhost\r\nContent-Type: application/xml; charset=\"utf-8\"\r\n"
           "CIMOperation: MethodCall\r\nContent-Length: " +
           std::to_string(body.size()) + "\r\n" + moreHeaders + "\r\n" + body;
}

} // namespace cimom::test
