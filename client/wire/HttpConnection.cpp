#include "wire/HttpConnection.hpp"

#include "wire/Failure.hpp"
#include "wire/TransferFailure.hpp"

#include <curl/curl.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace lanctl::wire
{

namespace
{

constexpr int pollMilliseconds = 100;
constexpr std::chrono::milliseconds longestConnecting{10000};

struct MultiCleanup {
    void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
};
struct EasyCleanup {
    void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
};
struct ListCleanup {
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using List = std::unique_ptr<curl_slist, ListCleanup>;

List listOf(const std::vector<std::string>& lines)
{
    List list;
    for (const auto& line : lines)
        list.reset(curl_slist_append(list.release(), line.c_str()));
    return list;
}

List headersOf(const Request& request)
{
    // OpenWBEM refuses curl's own "Accept: */*"; "Expect" would cost a round trip.
    return listOf({"Content-Type: application/xml; charset=\"utf-8\"", "Accept: application/xml, text/xml",
                   "Expect:", "CIMProtocolVersion: 1.0", "CIMOperation: MethodCall",
                   "CIMMethod: " + request.method, "CIMObject: " + request.cimObject});
}

void initialiseCurlOnce()
{
    static const CURLcode done = curl_global_init(CURL_GLOBAL_DEFAULT);
    if (done != CURLE_OK)
        throw std::runtime_error("libcurl cannot be initialised");
}

} // namespace

/// Libcurl's handles and what its callbacks work on.
class HttpConnection::Transfer
{
  public:
    explicit Transfer(ConnectionOptions options);

    std::string post(const Request& request);
    void setTimeLimit(std::chrono::milliseconds limit);
    std::string peerAddress() const;
    void follow(const std::string& address);

  private:
    template <class Value>
    void set(CURLoption option, Value value)
    {
        curl_easy_setopt(m_easy.get(), option, value);
    }
    void setUpOnce();
    void setUpCredentials();
    void setUpRequest(const Request& request, const List& headers);
    CURLcode run();
    CURLcode result();
    void acknowledgeAtOnce() const;
    long status() const;
    bool sent() const;

    static std::size_t onAnswer(const char* data, std::size_t size, std::size_t count, void* self);
    static std::size_t onHeader(const char* data, std::size_t size, std::size_t count, void* self);
    static std::size_t onBody(char* buffer, std::size_t size, std::size_t count, void* self);
    static int onSeek(void* self, curl_off_t offset, int origin);
    static curl_socket_t onOpenSocket(void* self, curlsocktype purpose, curl_sockaddr* address);
    static int onCloseSocket(void* self, curl_socket_t socket);

    ConnectionOptions m_options;
    curl_socket_t m_socket = CURL_SOCKET_BAD; // outlives the handles, which close it
    std::unique_ptr<CURLM, MultiCleanup> m_multi;
    std::unique_ptr<CURL, EasyCleanup> m_easy; // released before the multi handle
    List m_connectTo;
    char m_errorText[CURL_ERROR_SIZE] = {};
    std::string m_answer;
    std::size_t m_received = 0; // headers included
    bool m_tooLong = false;
    bool m_cancelled = false;
    const Request* m_request = nullptr;
    std::size_t m_sentOfBody = 0;
};

HttpConnection::Transfer::Transfer(ConnectionOptions options) : m_options(std::move(options))
{
    initialiseCurlOnce();
    m_multi.reset(curl_multi_init());
    m_easy.reset(curl_easy_init());
    if (!m_multi || !m_easy)
        throw std::bad_alloc();
    setUpOnce();
    setUpCredentials();
}

void HttpConnection::Transfer::setUpOnce()
{
    set(CURLOPT_URL, m_options.server.requestUrl().c_str());
    set(CURLOPT_PROTOCOLS_STR, "http,https");
    set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
    set(CURLOPT_HTTP09_ALLOWED, 1L); // OpenWBEM sends some errors without status line and headers
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_POST, 1L);
    set(CURLOPT_ERRORBUFFER, static_cast<char*>(m_errorText));
    set(CURLOPT_WRITEFUNCTION, onAnswer);
    set(CURLOPT_WRITEDATA, this);
    set(CURLOPT_HEADERFUNCTION, onHeader);
    set(CURLOPT_HEADERDATA, this);
    set(CURLOPT_READFUNCTION, onBody);
    set(CURLOPT_READDATA, this);
    set(CURLOPT_SEEKFUNCTION, onSeek);
    set(CURLOPT_SEEKDATA, this);
    set(CURLOPT_OPENSOCKETFUNCTION, onOpenSocket);
    set(CURLOPT_OPENSOCKETDATA, this);
    set(CURLOPT_CLOSESOCKETFUNCTION, onCloseSocket);
    set(CURLOPT_CLOSESOCKETDATA, this);
    if (m_options.server.isLoopback())
        set(CURLOPT_PROXY, ""); // whatever the environment says
    setTimeLimit(m_options.timeLimit);
}

void HttpConnection::Transfer::setUpCredentials()
{
    if (!m_options.user.empty()) {
        set(CURLOPT_HTTPAUTH, static_cast<long>(CURLAUTH_BASIC | CURLAUTH_DIGEST));
        set(CURLOPT_USERNAME, m_options.user.c_str());
        set(CURLOPT_PASSWORD, m_options.password.c_str());
    }
    if (!m_options.caFile.empty())
        set(CURLOPT_CAINFO, m_options.caFile.c_str());
    if (m_options.insecure) {
        set(CURLOPT_SSL_VERIFYPEER, 0L);
        set(CURLOPT_SSL_VERIFYHOST, 0L);
    }
}

void HttpConnection::Transfer::setTimeLimit(std::chrono::milliseconds limit)
{
    set(CURLOPT_TIMEOUT_MS, static_cast<long>(limit.count()));
    set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(std::min(limit, longestConnecting).count()));
    m_options.timeLimit = limit;
}

void HttpConnection::Transfer::setUpRequest(const Request& request, const List& headers)
{
    m_request = &request;
    m_answer.clear();
    m_received = 0;
    m_sentOfBody = 0;
    m_tooLong = false;
    m_cancelled = false;
    m_errorText[0] = '\0';
    set(CURLOPT_HTTPHEADER, headers.get());
    set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request.body.size()));
}

std::string HttpConnection::Transfer::post(const Request& request)
{
    const List headers = headersOf(request);
    setUpRequest(request, headers);
    const CURLcode code = run();
    TransferEnd end{code, status(), sent(), m_tooLong, m_cancelled, m_errorText};
    failUnlessAnswered(end, m_options);
    return std::move(m_answer);
}

/// With libcurl's multi interface the loop is here, so each piece of an answer is acknowledged as it comes.
CURLcode HttpConnection::Transfer::run()
{
    curl_multi_add_handle(m_multi.get(), m_easy.get());
    int running = 1;
    while (running != 0) {
        curl_multi_perform(m_multi.get(), &running);
        acknowledgeAtOnce();
        if (running != 0)
            curl_multi_poll(m_multi.get(), nullptr, 0, pollMilliseconds, nullptr);
        if (m_options.whileWaiting && !m_options.whileWaiting()) {
            m_cancelled = true;
            break;
        }
    }
    const CURLcode code = result();
    curl_multi_remove_handle(m_multi.get(), m_easy.get());
    return code;
}

CURLcode HttpConnection::Transfer::result()
{
    int left = 0;
    const CURLMsg* message = curl_multi_info_read(m_multi.get(), &left);
    return message != nullptr && message->msg == CURLMSG_DONE ? message->data.result
                                                              : CURLE_ABORTED_BY_CALLBACK;
}

/// OpenWBEM sends an answer in small pieces and waits with each until the one before is acknowledged. The
/// kernel would delay that by 40 ms, and goes back to delaying after each request: hence anew each time.
void HttpConnection::Transfer::acknowledgeAtOnce() const
{
    const int on = 1;
    if (m_socket != CURL_SOCKET_BAD)
        setsockopt(m_socket, IPPROTO_TCP, TCP_QUICKACK, &on, sizeof on);
}

long HttpConnection::Transfer::status() const
{
    long status = 0;
    curl_easy_getinfo(m_easy.get(), CURLINFO_RESPONSE_CODE, &status);
    return status;
}

bool HttpConnection::Transfer::sent() const
{
    return m_sentOfBody > 0;
}

std::string HttpConnection::Transfer::peerAddress() const
{
    const char* address = nullptr;
    curl_easy_getinfo(m_easy.get(), CURLINFO_PRIMARY_IP, &address);
    return address == nullptr ? "" : address;
}

void HttpConnection::Transfer::follow(const std::string& address)
{
    m_connectTo = listOf({"::" + address + ":"});
    set(CURLOPT_CONNECT_TO, m_connectTo.get());
    set(CURLOPT_PROXY, "");
}

std::size_t HttpConnection::Transfer::onAnswer(const char* data, std::size_t size, std::size_t count,
                                               void* self)
{
    auto& transfer = *static_cast<Transfer*>(self);
    transfer.m_received += size * count;
    transfer.m_tooLong = transfer.m_received > transfer.m_options.largestAnswer;
    if (transfer.m_tooLong)
        return 0;
    transfer.m_answer.append(data, size * count);
    return size * count;
}

std::size_t HttpConnection::Transfer::onHeader(const char* /*data*/, std::size_t size, std::size_t count,
                                               void* self)
{
    auto& transfer = *static_cast<Transfer*>(self);
    transfer.m_received += size * count;
    transfer.m_tooLong = transfer.m_received > transfer.m_options.largestAnswer;
    return transfer.m_tooLong ? 0 : size * count;
}

std::size_t HttpConnection::Transfer::onBody(char* buffer, std::size_t size, std::size_t count, void* self)
{
    auto& transfer = *static_cast<Transfer*>(self);
    const std::size_t part = transfer.m_request->body.copy(buffer, size * count, transfer.m_sentOfBody);
    transfer.m_sentOfBody += part;
    return part;
}

/// Libcurl sends a request again when the server closed a kept connection without an answer. A change may
/// have been carried out by then. It is sent again only when the server has asked for credentials.
int HttpConnection::Transfer::onSeek(void* self, curl_off_t offset, int origin)
{
    auto& transfer = *static_cast<Transfer*>(self);
    const bool refused = transfer.status() == 401;
    if (origin != SEEK_SET || (transfer.m_request->changes && !refused))
        return CURL_SEEKFUNC_FAIL;
    transfer.m_sentOfBody = static_cast<std::size_t>(offset);
    return CURL_SEEKFUNC_OK;
}

curl_socket_t HttpConnection::Transfer::onOpenSocket(void* self, curlsocktype /*purpose*/,
                                                     curl_sockaddr* address)
{
    auto& transfer = *static_cast<Transfer*>(self);
    transfer.m_socket = socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
    return transfer.m_socket;
}

int HttpConnection::Transfer::onCloseSocket(void* self, curl_socket_t socket)
{
    auto& transfer = *static_cast<Transfer*>(self);
    if (transfer.m_socket == socket)
        transfer.m_socket = CURL_SOCKET_BAD;
    return close(socket);
}

HttpConnection::HttpConnection(ConnectionOptions options)
    : m_transfer(std::make_unique<Transfer>(std::move(options)))
{
}

HttpConnection::~HttpConnection() = default;

std::string HttpConnection::post(const Request& request)
{
    return m_transfer->post(request);
}

void HttpConnection::setTimeLimit(std::chrono::milliseconds limit)
{
    m_transfer->setTimeLimit(limit);
}

std::string HttpConnection::peerAddress() const
{
    return m_transfer->peerAddress();
}

void HttpConnection::follow(const std::string& address)
{
    m_transfer->follow(address);
}

} // namespace lanctl::wire
