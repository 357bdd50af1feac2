#pragma once

#include "Connection.hpp"
#include "HttpServer.hpp"

namespace cimom
{

// Answers the requests of one client until one side ends the connection. Throws what the handler throws.
void serveHttp(Connection& connection, const HttpOptions& options, const HttpServer::Handler& handler);

} // namespace cimom
