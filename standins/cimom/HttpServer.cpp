#include "HttpServer.hpp"

#include <arpa/inet.h>
#include <chrono>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <microhttpd.h>
#include <netinet/in.h>
#include <stdexcept>
#include <strings.h>

namespace cimom
{
namespace
{

using Clock = std::chrono::steady_clock;

struct ResponseDeleter {
    void operator()(MHD_Response* response) const { MHD_destroy_response(response); }
};
using Response = std::unique_ptr<MHD_Response, ResponseDeleter>;

// One request from its first header to the end of its answer.
struct Request {
    bool isExtended = false; // M-POST
    std::string body;
    bool isTooLarge = false;
    Clock::time_point begin = Clock::now();
};

void deleteString(void* text)
{
    delete static_cast<std::string*>(text);
}

// The body goes out from where it was built, in one write with the header.
Response makeResponse(std::string&& body)
{
    auto kept = std::make_unique<std::string>(std::move(body));
    Response response(MHD_create_response_from_buffer_with_free_callback_cls(kept->size(), kept->data(),
                                                                             deleteString, kept.get()));
    if (response) {
        [[maybe_unused]] const std::string* handedOver = kept.release(); // to the response
    }
    return response;
}

void addHeader(const Response& response, const char* name, const std::string& value)
{
    MHD_add_response_header(response.get(), name, value.c_str());
}

const char* requestHeader(MHD_Connection* connection, const char* name)
{
    return MHD_lookup_connection_value(connection, MHD_HEADER_KIND, name);
}

bool isXml(const char* contentType)
{
    return strncasecmp(contentType, "application/xml", 15) == 0 ||
           strncasecmp(contentType, "text/xml", 8) == 0;
}

struct ListenAddress {
    sockaddr_storage storage{};
    unsigned daemonFlags = 0;
};

ListenAddress parseAddress(const HttpOptions& options)
{
    ListenAddress result;
    auto* v4 = reinterpret_cast<sockaddr_in*>(&result.storage);
    auto* v6 = reinterpret_cast<sockaddr_in6*>(&result.storage);
    if (inet_pton(AF_INET, options.address.c_str(), &v4->sin_addr) == 1) {
        v4->sin_family = AF_INET;
        v4->sin_port = htons(options.port);
    } else if (inet_pton(AF_INET6, options.address.c_str(), &v6->sin6_addr) == 1) {
        v6->sin6_family = AF_INET6;
        v6->sin6_port = htons(options.port);
        result.daemonFlags = MHD_USE_IPv6;
    } else {
        throw std::runtime_error("\"" + options.address + "\" is not a numeric IPv4 or IPv6 address");
    }
    return result;
}

} // namespace

class HttpServer::Daemon
{
  public:
    Daemon(const HttpOptions& options, Handler handler, Log log);
    ~Daemon() { MHD_stop_daemon(m_daemon); }
    Daemon(const Daemon&) = delete;
    Daemon& operator=(const Daemon&) = delete;

    std::uint16_t port() const { return MHD_get_daemon_info(m_daemon, MHD_DAEMON_INFO_BIND_PORT)->port; }

  private:
    static MHD_Result onAccess(void* self, MHD_Connection* connection, const char* url, const char* method,
                               const char* version, const char* data, std::size_t* size, void** state);
    static void onCompleted(void* self, MHD_Connection* connection, void** state,
                            MHD_RequestTerminationCode code);
    static void onLog(void* self, const char* format, va_list arguments)
        __attribute__((format(printf, 2, 0)));

    MHD_Result begin(MHD_Connection* connection, const char* method, void** state) const;
    MHD_Result receive(Request& request, const char* data, std::size_t& size) const;
    MHD_Result finish(MHD_Connection* connection, Request& request);
    unsigned refusal(MHD_Connection* connection, const char* method) const;
    MHD_Result refuse(MHD_Connection* connection, unsigned status) const;
    void addMappingHeaders(const Response& response, bool isExtended);

    HttpOptions m_options;
    Handler m_handler;
    Log m_log;
    unsigned m_answers = 0;
    MHD_Daemon* m_daemon = nullptr;
};

HttpServer::Daemon::Daemon(const HttpOptions& options, Handler handler, Log log)
    : m_options(options), m_handler(std::move(handler)), m_log(std::move(log))
{
    const ListenAddress address = parseAddress(options);
    m_daemon = MHD_start_daemon(
        MHD_USE_AUTO_INTERNAL_THREAD | MHD_USE_ERROR_LOG | address.daemonFlags, options.port, nullptr,
        nullptr, &Daemon::onAccess, this, MHD_OPTION_EXTERNAL_LOGGER, &Daemon::onLog, this,
        MHD_OPTION_NOTIFY_COMPLETED, &Daemon::onCompleted, this, MHD_OPTION_SOCK_ADDR,
        reinterpret_cast<const sockaddr*>(&address.storage), MHD_OPTION_CONNECTION_TIMEOUT, options.timeout,
        MHD_OPTION_CONNECTION_LIMIT, options.maxConnections, MHD_OPTION_END);
    if (m_daemon == nullptr) {
        throw std::runtime_error("cannot listen on " + options.address + " port " +
                                 std::to_string(options.port));
    }
}

MHD_Result HttpServer::Daemon::onAccess(void* self, MHD_Connection* connection, const char*,
                                        const char* method, const char*, const char* data, std::size_t* size,
                                        void** state)
{
    auto* daemon = static_cast<Daemon*>(self);
    try {
        if (*state == nullptr) {
            return daemon->begin(connection, method, state);
        }
        Request& request = *static_cast<Request*>(*state);
        return *size != 0 ? daemon->receive(request, data, *size) : daemon->finish(connection, request);
    } catch (const std::exception& e) { // out of memory: give up this connection, not the server
        daemon->m_log(std::string("request dropped: ") + e.what());
        return MHD_NO;
    }
}

void HttpServer::Daemon::onCompleted(void*, MHD_Connection*, void** state, MHD_RequestTerminationCode)
{
    delete static_cast<Request*>(*state);
    *state = nullptr;
}

void HttpServer::Daemon::onLog(void* self, const char* format, va_list arguments)
{
    auto* daemon = static_cast<Daemon*>(self);
    char line[512];
    std::vsnprintf(line, sizeof line, format, arguments);
    const std::string text(line);
    daemon->m_log("http: " + text.substr(0, text.find_last_not_of("\r\n") + 1));
}

MHD_Result HttpServer::Daemon::begin(MHD_Connection* connection, const char* method, void** state) const
{
    if (const unsigned status = refusal(connection, method); status != 0) {
        return refuse(connection, status);
    }
    auto request = std::make_unique<Request>();
    request->isExtended = *method == 'M';
    const char* length = requestHeader(connection, MHD_HTTP_HEADER_CONTENT_LENGTH);
    request->body.reserve(length != nullptr ? std::strtoul(length, nullptr, 10) : 0);
    *state = request.release();
    return MHD_YES;
}

// The status to refuse a request with before its body is read, or 0.
unsigned HttpServer::Daemon::refusal(MHD_Connection* connection, const char* method) const
{
    const std::string name(method);
    if (name != "POST" && name != "M-POST") {
        return MHD_HTTP_METHOD_NOT_ALLOWED;
    }
    const char* contentType = requestHeader(connection, MHD_HTTP_HEADER_CONTENT_TYPE);
    if (contentType != nullptr && !isXml(contentType)) {
        return MHD_HTTP_UNSUPPORTED_MEDIA_TYPE;
    }
    const char* length = requestHeader(connection, MHD_HTTP_HEADER_CONTENT_LENGTH);
    if (length == nullptr) {
        const bool isChunked = requestHeader(connection, MHD_HTTP_HEADER_TRANSFER_ENCODING) != nullptr;
        return isChunked ? 0 : MHD_HTTP_LENGTH_REQUIRED;
    }
    return std::strtoull(length, nullptr, 10) > m_options.maxBody ? MHD_HTTP_CONTENT_TOO_LARGE : 0;
}

MHD_Result HttpServer::Daemon::refuse(MHD_Connection* connection, unsigned status) const
{
    const Response response = makeResponse({});
    addHeader(response, MHD_HTTP_HEADER_CONNECTION, "close");
    if (status == MHD_HTTP_METHOD_NOT_ALLOWED) {
        addHeader(response, MHD_HTTP_HEADER_ALLOW, "POST, M-POST");
    }
    return MHD_queue_response(connection, status, response.get());
}

MHD_Result HttpServer::Daemon::receive(Request& request, const char* data, std::size_t& size) const
{
    if (Clock::now() - request.begin > std::chrono::seconds(m_options.timeout)) {
        return MHD_NO;
    }
    // The rest of an oversized chunked body is read and dropped: an answer can only follow its end.
    request.isTooLarge = request.isTooLarge || request.body.size() + size > m_options.maxBody;
    if (!request.isTooLarge) {
        request.body.append(data, size);
    }
    size = 0;
    return MHD_YES;
}

MHD_Result HttpServer::Daemon::finish(MHD_Connection* connection, Request& request)
{
    if (request.isTooLarge) {
        return refuse(connection, MHD_HTTP_CONTENT_TOO_LARGE);
    }
    HttpAnswer answer = m_handler(request.body);
    const bool isCim = answer.status == MHD_HTTP_OK;
    const Response response = makeResponse(std::move(answer.body));
    addHeader(response, MHD_HTTP_HEADER_CACHE_CONTROL, "no-cache");
    if (isCim) {
        addHeader(response, MHD_HTTP_HEADER_CONTENT_TYPE, "application/xml; charset=\"utf-8\"");
        addMappingHeaders(response, request.isExtended);
    } else if (!answer.cimError.empty()) {
        addHeader(response, "CIMError", answer.cimError);
    }
    return MHD_queue_response(connection, answer.status, response.get());
}

// The headers of the CIM mapping carry a number of the server's choice in an answer to M-POST.
void HttpServer::Daemon::addMappingHeaders(const Response& response, bool isExtended)
{
    if (!isExtended) {
        addHeader(response, "CIMOperation", "MethodResponse");
        return;
    }
    const std::string number = std::to_string(10 + m_answers++ % 90);
    addHeader(response, "Ext", " "); // empty to a client; the library takes no empty value
    addHeader(response, "Man", "http://www.dmtf.org/cim/mapping/http/v1.0 ; ns=" + number);
    addHeader(response, (number + "-CIMOperation").c_str(), "MethodResponse");
}

HttpServer::HttpServer(const HttpOptions& options, Handler handler, Log log)
    : m_daemon(std::make_unique<Daemon>(options, std::move(handler), std::move(log)))
{
}

HttpServer::~HttpServer() = default;

std::uint16_t HttpServer::port() const
{
    return m_daemon->port();
}

} // namespace cimom
