#include "HttpSession.hpp"

#include <boost/asio/buffer.hpp>
#include <boost/beast/core/error.hpp>
#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/core/string.hpp>
#include <boost/beast/http/error.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/read.hpp>
#include <boost/beast/http/status.hpp>
#include <boost/beast/http/string_body.hpp>
#include <boost/system/system_error.hpp>
#include <ctime>
#include <string>

namespace cimom
{

namespace http = boost::beast::http;
using boost::beast::iequals;
using boost::beast::string_view;

namespace
{

const std::uint32_t longestHeader = 32768;

// The answer to a request that could not be read; unknown when the client has left.
http::status statusFor(const boost::system::error_code& error)
{
    if (error == boost::beast::error::timeout) {
        return http::status::request_timeout;
    }
    if (error == http::error::body_limit) {
        return http::status::payload_too_large;
    }
    if (error == http::error::header_limit) {
        return http::status::request_header_fields_too_large;
    }
    if (error == http::error::bad_version) {
        return http::status::http_version_not_supported;
    }
    const bool isHttp = error.category() == make_error_code(http::error::bad_method).category();
    const bool hasLeft = error == http::error::end_of_stream || error == http::error::partial_message;
    return isHttp && !hasLeft ? http::status::bad_request : http::status::unknown;
}

bool isXml(string_view contentType)
{
    return iequals(contentType.substr(0, 15), "application/xml") ||
           iequals(contentType.substr(0, 8), "text/xml");
}

bool isExtended(string_view method)
{
    return method == "M-POST";
}

// The status that refuses a request before its body is read; unknown when the request is not refused.
template <class Parser>
http::status refusal(const Parser& parser)
{
    const auto& request = parser.get();
    if (request.method() != http::verb::post && !isExtended(request.method_string())) {
        return http::status::method_not_allowed;
    }
    const auto contentType = request.find(http::field::content_type);
    if (contentType != request.end() && !isXml(contentType->value())) {
        return http::status::unsupported_media_type;
    }
    const bool hasLength = parser.content_length() || parser.chunked();
    return hasLength ? http::status::unknown : http::status::length_required;
}

std::string beginResponse(http::status status, std::size_t length)
{
    const std::time_t now = std::time(nullptr);
    std::tm broken = {};
    char date[40];
    std::strftime(date, sizeof date, "%a, %d %b %Y %H:%M:%S GMT", gmtime_r(&now, &broken));
    return "HTTP/1.1 " + std::to_string(static_cast<unsigned>(status)) + " " +
           std::string(http::obsolete_reason(status)) + "\r\nDate: " + date +
           "\r\nContent-Length: " + std::to_string(length) + "\r\n";
}

// What a client of this HTTP version needs to be told; the rest goes without saying.
const char* connectionHeader(bool keepsAlive, unsigned version)
{
    if (!keepsAlive) {
        return "Connection: close\r\n";
    }
    return version < 11 ? "Connection: keep-alive\r\n" : "";
}

// What Boost.Beast reads from.
class ReadStream
{
  public:
    explicit ReadStream(Connection& connection) : m_connection(connection) {}

    template <class Buffers>
    std::size_t read_some(const Buffers& buffers, boost::system::error_code& error)
    {
        const boost::asio::mutable_buffer first = *boost::asio::buffer_sequence_begin(buffers);
        return m_connection.receive(first.data(), first.size(), error);
    }
    template <class Buffers>
    std::size_t read_some(const Buffers& buffers) // Boost.Beast demands it and never calls it
    {
        boost::system::error_code error;
        const std::size_t size = read_some(buffers, error);
        return error ? throw boost::system::system_error(error) : size;
    }

  private:
    Connection& m_connection;
};

// The requests of one connection.
class HttpSession
{
  public:
    HttpSession(Connection& connection, const HttpOptions& options, const HttpServer::Handler& handler)
        : m_connection(connection), m_stream(connection), m_options(options), m_handler(handler)
    {
    }

    bool waitForRequest();
    bool answerNext();

  private:
    using Parser = http::request_parser<http::string_body>;

    void limitTime() { m_connection.limitTime(std::chrono::seconds(m_options.timeout)); }
    bool answer(const Parser::value_type& request);
    bool refuse(http::status status);
    std::string mappingHeaders(bool isExtended);

    Connection& m_connection;
    ReadStream m_stream;
    const HttpOptions& m_options;
    const HttpServer::Handler& m_handler;
    boost::beast::flat_buffer m_buffer; // received and not yet looked at
    unsigned m_extendedAnswers = 0;
};

// Skips the empty lines before a request. Returns false when none comes.
bool HttpSession::waitForRequest()
{
    limitTime();
    boost::system::error_code error;
    while (!error) {
        const auto received = m_buffer.data();
        const auto* text = static_cast<const char*>(received.data());
        const std::size_t begin = string_view(text, received.size()).find_first_not_of("\r\n");
        if (begin != string_view::npos) {
            m_buffer.consume(begin);
            return true;
        }
        m_buffer.consume(received.size());
        m_buffer.commit(m_stream.read_some(m_buffer.prepare(4096), error));
    }
    return false;
}

// Returns false when the connection is to end.
bool HttpSession::answerNext()
{
    Parser parser;
    parser.header_limit(longestHeader);
    parser.body_limit(m_options.maxBody);
    boost::system::error_code error;
    limitTime();
    http::read_header(m_stream, m_buffer, parser, error);
    if (error) {
        return refuse(statusFor(error));
    }
    if (const http::status status = refusal(parser); status != http::status::unknown) {
        return refuse(status);
    }
    limitTime();
    if (iequals(parser.get()[http::field::expect], "100-continue")) {
        m_connection.write("HTTP/1.1 100 Continue\r\n\r\n");
    }
    http::read(m_stream, m_buffer, parser, error);
    return error ? refuse(statusFor(error)) : answer(parser.get());
}

bool HttpSession::answer(const Parser::value_type& request)
{
    const HttpAnswer answered = m_handler(request.body());
    const http::status status = http::int_to_status(answered.status);
    std::string response = beginResponse(status, answered.body.size());
    response += connectionHeader(request.keep_alive(), request.version());
    response += "Cache-Control: no-cache\r\n";
    if (status == http::status::ok) {
        response += "Content-Type: application/xml; charset=\"utf-8\"\r\n";
        response += mappingHeaders(isExtended(request.method_string()));
    } else if (!answered.cimError.empty()) {
        response += "CIMError: " + answered.cimError + "\r\n";
    }
    response += "\r\n" + answered.body;
    limitTime();
    return m_connection.write(response) && request.keep_alive();
}

bool HttpSession::refuse(http::status status)
{
    if (status == http::status::unknown) {
        return false;
    }
    std::string response = beginResponse(status, 0) + connectionHeader(false, 11);
    if (status == http::status::method_not_allowed) {
        response += "Allow: POST, M-POST\r\n";
    }
    limitTime();
    if (m_connection.write(response + "\r\n")) {
        m_connection.finish();
    }
    return false;
}

// In an answer to M-POST the headers of the CIM mapping carry a number that the server chooses.
std::string HttpSession::mappingHeaders(bool isExtended)
{
    if (!isExtended) {
        return "CIMOperation: MethodResponse\r\n";
    }
    const std::string chosen = std::to_string(10 + m_extendedAnswers++ % 90);
    return "Ext:\r\nMan: http://www.dmtf.org/cim/mapping/http/v1.0 ; ns=" + chosen + "\r\n" + chosen +
           "-CIMOperation: MethodResponse\r\n";
}

} // namespace

void serveHttp(Connection& connection, const HttpOptions& options, const HttpServer::Handler& handler)
{
    HttpSession session(connection, options, handler);
    while (session.waitForRequest() && session.answerNext()) {
    }
}

} // namespace cimom
