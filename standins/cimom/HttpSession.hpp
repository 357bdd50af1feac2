#pragma once

#include "Connection.hpp"
#include "HttpServer.hpp"

#include <boost/beast/core/flat_buffer.hpp>
#include <boost/beast/http/parser.hpp>
#include <boost/beast/http/string_body.hpp>

namespace cimom
{

// The requests of one client and their answers, until one side ends the connection.
class HttpSession
{
  public:
    HttpSession(Connection& connection, const HttpOptions& options, const HttpServer::Handler& handler)
        : m_connection(connection), m_options(options), m_handler(handler)
    {
    }

    // Throws what the handler throws.
    void run();

  private:
    using Parser = boost::beast::http::request_parser<boost::beast::http::string_body>;
    using Request = Parser::value_type;

    void limitTime() { m_connection.limitTime(std::chrono::seconds(m_options.timeout)); }
    bool waitForRequest();
    bool answerNext();
    bool answer(const Request& request);
    bool refuse(unsigned status);
    std::string mappingHeaders(bool isExtended);

    Connection& m_connection;
    const HttpOptions& m_options;
    const HttpServer::Handler& m_handler;
    boost::beast::flat_buffer m_buffer; // received and not yet looked at
    unsigned m_extendedAnswers = 0;
};

} // namespace cimom
