#include "Connection.hpp"

#include <algorithm>
#include <boost/asio/error.hpp>
#include <boost/beast/core/error.hpp>
#include <cerrno>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace cimom
{

using Clock = std::chrono::steady_clock;

Connection::Connection(int socket) : m_socket(socket)
{
    const int on = 1; // an answer is written whole: there is nothing more to wait for
    setsockopt(m_socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

void Connection::limitTime(std::chrono::seconds limit)
{
    m_deadline = Clock::now() + limit;
}

// False once the time is over.
bool Connection::waitFor(short events)
{
    for (;;) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(m_deadline - Clock::now());
        pollfd descriptor = {m_socket, events, 0};
        const int ready = left.count() > 0 ? poll(&descriptor, 1, static_cast<int>(left.count())) : 0;
        if (ready >= 0 || errno != EINTR) {
            return ready != 0;
        }
    }
}

std::size_t Connection::receive(void* data, std::size_t size, boost::system::error_code& error)
{
    if (!waitFor(POLLIN)) {
        error = boost::beast::error::timeout;
        return 0;
    }
    const ssize_t received = recv(m_socket, data, size, 0);
    if (received > 0) {
        error = {};
        return static_cast<std::size_t>(received);
    }
    error = received == 0 ? boost::system::error_code(boost::asio::error::eof)
                          : boost::system::error_code(errno, boost::system::system_category());
    return 0;
}

bool Connection::write(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t sent = send(m_socket, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        } else if ((errno != EAGAIN && errno != EINTR) || !waitFor(POLLOUT)) {
            return false;
        }
    }
    return true;
}

void Connection::finish()
{
    shutdown(m_socket, SHUT_WR);
    char ignored[8192];
    boost::system::error_code error;
    while (!error) {
        receive(ignored, sizeof ignored, error);
    }
}

void Connection::stopReading() const
{
    shutdown(m_socket, SHUT_RD);
}

void Connection::close()
{
    if (m_socket >= 0) {
        ::close(m_socket);
        m_socket = -1;
    }
}

} // namespace cimom
