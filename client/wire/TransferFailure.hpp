// From libcurl's results to sentences.
#pragma once

#include "wire/HttpConnection.hpp"

#include <curl/curl.h>
#include <string>

namespace lanctl::wire
{

/// How a request ended.
struct TransferEnd {
    CURLcode code = CURLE_OK;
    long httpStatus = 0;
    bool sent = false; // the server has at least a part of the request
    bool tooLong = false;
    bool cancelled = false;
    std::string detail; // libcurl's own words
};

/// Throws Failure unless a whole answer of HTTP status 200 came.
void failUnlessAnswered(const TransferEnd& end, const ConnectionOptions& options);

} // namespace lanctl::wire
