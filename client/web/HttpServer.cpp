#include "web/HttpServer.hpp"

#include "web/Page.hpp"

#include <algorithm>
#include <arpa/inet.h>
#include <cerrno>
#include <charconv>
#include <microhttpd.h>
#include <netinet/in.h>
#include <stdexcept>
#include <system_error>

namespace lanctl::web
{

namespace
{

constexpr std::size_t largestBody = 65536;
constexpr unsigned mostConnections = 200;
constexpr unsigned idleSeconds = 15;

/// A request while its body still arrives.
struct Arriving {
    Request request;
    bool tooLarge = false;
};

std::string lowerCase(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char character) {
        return static_cast<char>(character >= 'A' && character <= 'Z' ? character + ('a' - 'A') : character);
    });
    return text;
}

MHD_Result collectHeader(void* headers, MHD_ValueKind, const char* name, const char* value)
{
    auto& all = *static_cast<std::map<std::string, std::string>*>(headers);
    all[lowerCase(name)] = value == nullptr ? "" : value;
    return MHD_YES;
}

MHD_Result send(MHD_Connection* connection, const Response& response)
{
    MHD_Response* answer = MHD_create_response_from_buffer(
        response.body.size(), const_cast<char*>(response.body.data()), MHD_RESPMEM_MUST_COPY);
    if (answer == nullptr)
        return MHD_NO;
    const std::pair<const char*, const char*> headers[] = {
        {"Content-Type", response.type.c_str()},
        {"Content-Security-Policy",
         "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self'; connect-src 'self'; "
         "base-uri 'none'; form-action 'none'; frame-ancestors 'none'"},
        {"X-Content-Type-Options", "nosniff"},
        {"Referrer-Policy", "no-referrer"},
        {"Cross-Origin-Resource-Policy", "same-origin"},
        {"Cache-Control", "no-store"},
    };
    for (const auto& [name, value] : headers)
        MHD_add_response_header(answer, name, value);
    const MHD_Result result = MHD_queue_response(connection, response.status, answer);
    MHD_destroy_response(answer);
    return result;
}

MHD_Result handle(void* server, MHD_Connection* connection, const char* path, const char* method, const char*,
                  const char* data, std::size_t* size, void** state)
{
    auto* arriving = static_cast<Arriving*>(*state);
    if (arriving == nullptr) {
        arriving = new Arriving{{method, path, {}, {}}, false}; // freed by `forget`
        MHD_get_connection_values(connection, MHD_HEADER_KIND, collectHeader, &arriving->request.headers);
        *state = arriving;
        return MHD_YES;
    }
    if (*size > 0) {
        arriving->tooLarge = arriving->tooLarge || arriving->request.body.size() + *size > largestBody;
        if (!arriving->tooLarge)
            arriving->request.body.append(data, *size);
        *size = 0;
        return MHD_YES;
    }
    if (arriving->tooLarge)
        return send(connection, failure(413, "The request is too large."));
    return send(connection, static_cast<HttpServer*>(server)->answer(arriving->request));
}

void forget(void*, MHD_Connection*, void** state, MHD_RequestTerminationCode)
{
    delete static_cast<Arriving*>(*state);
    *state = nullptr;
}

/// The address as the C library has it.
struct SocketAddress {
    sockaddr_storage storage{};
    bool isIpv6 = false;
};

SocketAddress socketAddress(const ListenAddress& address)
{
    SocketAddress result;
    auto* v4 = reinterpret_cast<sockaddr_in*>(&result.storage);
    auto* v6 = reinterpret_cast<sockaddr_in6*>(&result.storage);
    result.isIpv6 = address.host.find(':') != std::string::npos;
    if (result.isIpv6) {
        v6->sin6_family = AF_INET6;
        v6->sin6_port = htons(address.port);
        if (inet_pton(AF_INET6, address.host.c_str(), &v6->sin6_addr) != 1)
            throw std::invalid_argument("not an address to listen on: " + address.host);
    } else {
        v4->sin_family = AF_INET;
        v4->sin_port = htons(address.port);
        if (inet_pton(AF_INET, address.host.c_str(), &v4->sin_addr) != 1)
            throw std::invalid_argument("not an address to listen on: " + address.host);
    }
    return result;
}

} // namespace

struct HttpServer::Daemon {
    MHD_Daemon* handle = nullptr;
    ~Daemon()
    {
        if (handle != nullptr)
            MHD_stop_daemon(handle);
    }
};

bool ListenAddress::isLoopback() const
{
    return host.rfind("127.", 0) == 0 || host == "::1";
}

std::string ListenAddress::text() const
{
    return (host.find(':') == std::string::npos ? host : "[" + host + "]") + ":" + std::to_string(port);
}

ListenAddress parseListenAddress(const std::string& text)
{
    const auto colon = text.rfind(':');
    const std::string wrong = "not an address to listen on: " + text + " (expected ADDRESS:PORT)";
    if (colon == std::string::npos)
        throw std::invalid_argument(wrong);
    ListenAddress address;
    address.host = text.substr(0, colon);
    if (address.host.size() > 2 && address.host.front() == '[' && address.host.back() == ']')
        address.host = address.host.substr(1, address.host.size() - 2);
    const char* end = text.data() + text.size();
    const auto [parsed, error] = std::from_chars(text.data() + colon + 1, end, address.port);
    if (error != std::errc() || parsed != end || address.port == 0)
        throw std::invalid_argument(wrong);
    socketAddress(address);
    return address;
}

HttpServer::HttpServer(const ListenAddress& address, const Gate& gate, Api& api)
    : m_gate(gate), m_api(api), m_daemon(std::make_unique<Daemon>())
{
    const SocketAddress socket = socketAddress(address);
    // A change takes seconds. Each connection has a thread of its own, so others are answered meanwhile.
    const unsigned flags = static_cast<unsigned>(MHD_USE_THREAD_PER_CONNECTION) |
                           static_cast<unsigned>(MHD_USE_INTERNAL_POLLING_THREAD) |
                           (socket.isIpv6 ? static_cast<unsigned>(MHD_USE_IPv6) : 0U);
    m_daemon->handle = MHD_start_daemon(flags, address.port, nullptr, nullptr, handle, this,
                                        MHD_OPTION_SOCK_ADDR, &socket.storage, MHD_OPTION_NOTIFY_COMPLETED,
                                        forget, nullptr, MHD_OPTION_CONNECTION_LIMIT, mostConnections,
                                        MHD_OPTION_CONNECTION_TIMEOUT, idleSeconds, MHD_OPTION_END);
    if (m_daemon->handle == nullptr)
        throw std::system_error(errno, std::generic_category(), "cannot listen on " + address.text());
}

HttpServer::~HttpServer() = default;

Response HttpServer::answer(const Request& request) const
{
    if (auto refusal = m_gate.refusal(request))
        return *refusal;
    if (request.path.rfind("/api/", 0) == 0)
        return m_api.answer(request);
    for (const PageFile& file : pageFiles())
        if (file.path == request.path && request.method == "GET")
            return {200, std::string(file.type), std::string(file.content)};
    return failure(404, "There is nothing here.");
}

} // namespace lanctl::web
