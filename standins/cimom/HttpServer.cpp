#include "HttpServer.hpp"

#include "Connection.hpp"
#include "HttpSession.hpp"

#include <arpa/inet.h>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <list>
#include <mutex>
#include <netinet/in.h>
#include <stdexcept>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace cimom
{
namespace
{

sockaddr_storage parseAddress(const HttpOptions& options)
{
    sockaddr_storage result = {};
    auto* v4 = reinterpret_cast<sockaddr_in*>(&result);
    auto* v6 = reinterpret_cast<sockaddr_in6*>(&result);
    if (inet_pton(AF_INET, options.address.c_str(), &v4->sin_addr) == 1) {
        v4->sin_family = AF_INET;
        v4->sin_port = htons(options.port);
    } else if (inet_pton(AF_INET6, options.address.c_str(), &v6->sin6_addr) == 1) {
        v6->sin6_family = AF_INET6;
        v6->sin6_port = htons(options.port);
    } else {
        throw std::runtime_error("\"" + options.address + "\" is not a numeric IPv4 or IPv6 address");
    }
    return result;
}

// A socket that listens from the beginning to stop().
class ListeningSocket
{
  public:
    explicit ListeningSocket(const HttpOptions& options);
    ~ListeningSocket() { close(m_socket); }
    ListeningSocket(const ListeningSocket&) = delete;
    ListeningSocket& operator=(const ListeningSocket&) = delete;

    std::uint16_t port() const;
    // The socket of a client, or -1. After stop() there are no more.
    int accept() const { return accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC); }
    void stop() const { shutdown(m_socket, SHUT_RDWR); }

  private:
    int m_socket;
};

ListeningSocket::ListeningSocket(const HttpOptions& options)
{
    const sockaddr_storage address = parseAddress(options);
    m_socket = socket(address.ss_family, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int on = 1;
    setsockopt(m_socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    if (address.ss_family == AF_INET6) {
        setsockopt(m_socket, IPPROTO_IPV6, IPV6_V6ONLY, &on, sizeof on);
    }
    if (bind(m_socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(m_socket, SOMAXCONN) != 0) {
        close(m_socket);
        throw std::runtime_error("cannot listen on " + options.address + " port " +
                                 std::to_string(options.port));
    }
}

std::uint16_t ListeningSocket::port() const
{
    sockaddr_storage address = {};
    socklen_t size = sizeof address;
    getsockname(m_socket, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.ss_family == AF_INET6 ? reinterpret_cast<const sockaddr_in6*>(&address)->sin6_port
                                               : reinterpret_cast<const sockaddr_in*>(&address)->sin_port);
}

} // namespace

// A thread accepts clients, and each client has a thread.
class HttpServer::Clients
{
  public:
    Clients(const HttpOptions& options, Handler handler, Log log);
    ~Clients();
    Clients(const Clients&) = delete;
    Clients& operator=(const Clients&) = delete;

    std::uint16_t port() const { return m_listening.port(); }

  private:
    struct Client {
        explicit Client(int socket) : connection(socket) {}

        Connection connection;
        std::thread thread;
        bool hasLeft = false;
    };

    void accept();
    bool waitForRoom();
    void waitAfterFailure();
    void admit(int socket);
    void forgetThoseWhoLeft();
    void serve(Client& client);

    const HttpOptions m_options;
    const Handler m_handler;
    const Log m_log;
    const ListeningSocket m_listening;
    std::mutex m_mutex; // guards the following members
    std::condition_variable m_changed;
    std::list<Client> m_clients;
    unsigned m_present = 0; // clients that have not left
    bool m_isEnding = false;
    std::thread m_acceptingThread; // the last member: it uses the others
};

HttpServer::Clients::Clients(const HttpOptions& options, Handler handler, Log log)
    : m_options(options), m_handler(std::move(handler)), m_log(std::move(log)), m_listening(options),
      m_acceptingThread([this] { accept(); })
{
}

HttpServer::Clients::~Clients()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isEnding = true;
        m_changed.notify_all();
    }
    m_listening.stop();
    m_acceptingThread.join();
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        for (Client& client : m_clients) {
            client.connection.stopReading();
        }
    }
    for (Client& client : m_clients) { // the list stays as it is from here on
        client.thread.join();
    }
}

void HttpServer::Clients::accept()
{
    while (waitForRoom()) {
        const int socket = m_listening.accept();
        if (socket >= 0) {
            admit(socket);
        } else if (errno != EINTR && errno != ECONNABORTED) {
            waitAfterFailure();
        }
    }
}

// Returns false once the server ends.
bool HttpServer::Clients::waitForRoom()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait(lock, [this] { return m_isEnding || m_present < m_options.maxConnections; });
    return !m_isEnding;
}

// The process has run out of descriptors, for example.
void HttpServer::Clients::waitAfterFailure()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait_for(lock, std::chrono::milliseconds(100), [this] { return m_isEnding; });
}

void HttpServer::Clients::admit(int socket)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    forgetThoseWhoLeft();
    Client& client = m_clients.emplace_back(socket);
    try {
        client.thread = std::thread([this, &client] { serve(client); });
        ++m_present;
    } catch (const std::system_error& e) {
        m_log(std::string("client dropped: ") + e.what());
        m_clients.pop_back();
    }
}

void HttpServer::Clients::forgetThoseWhoLeft()
{
    m_clients.remove_if([](Client& client) {
        if (client.hasLeft) {
            client.thread.join();
        }
        return client.hasLeft;
    });
}

void HttpServer::Clients::serve(Client& client)
{
    try {
        serveHttp(client.connection, m_options, m_handler);
    } catch (const std::exception& e) { // out of memory: give up this client, not the server
        m_log(std::string("client dropped: ") + e.what());
    }
    const std::lock_guard<std::mutex> lock(m_mutex);
    client.connection.close();
    client.hasLeft = true;
    --m_present;
    m_changed.notify_all();
}

HttpServer::HttpServer(const HttpOptions& options, Handler handler, Log log)
    : m_clients(std::make_unique<Clients>(options, std::move(handler), std::move(log)))
{
}

HttpServer::~HttpServer() = default;

std::uint16_t HttpServer::port() const
{
    return m_clients->port();
}

} // namespace cimom
