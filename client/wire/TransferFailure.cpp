#include "wire/TransferFailure.hpp"

#include "wire/Failure.hpp"

#include <cstdio>

namespace lanctl::wire
{

namespace
{

using Kind = Failure::Kind;

constexpr const char* checkServer =
    "Check that the server is on and its object manager runs, and the address (--server).";
constexpr const char* checkAddress = "Check that the address is that of a CIM object manager (--server).";
constexpr const char* checkCertificate =
    "--ca FILE names the authority to trust; --insecure takes any certificate.";

std::string seconds(std::chrono::milliseconds time)
{
    char text[32];
    std::snprintf(static_cast<char*>(text), sizeof text, "%g s", static_cast<double>(time.count()) / 1000);
    return static_cast<const char*>(text);
}

std::string megabytes(std::size_t bytes)
{
    return std::to_string(bytes >> 20U) + " MB";
}

[[noreturn]] void failOfStatus(const TransferEnd& end, const ConnectionOptions& options)
{
    const std::string where = options.server.hostAndPort();
    if (end.httpStatus == 401 && options.user.empty())
        throw Failure(Kind::NotAuthorised, where + " asks for a user and a password.",
                      "Give --user, and the password from --password-file, LANCTL_PASSWORD or the prompt.");
    if (end.httpStatus == 401 || end.httpStatus == 403)
        throw Failure(Kind::NotAuthorised, where + " does not let " + options.user + " in.",
                      "Check the user and the password.");
    throw Failure(Kind::NoCimAnswer, where + " answers HTTP status " + std::to_string(end.httpStatus) + ".",
                  checkAddress, end.httpStatus >= 500 && end.sent);
}

[[noreturn]] void failOfTime(const TransferEnd& end, const ConnectionOptions& options)
{
    throw Failure(Kind::TimeLimit,
                  options.server.hostAndPort() + " does not answer within " + seconds(options.timeLimit) +
                      ".",
                  "--timeout gives it more time.", end.sent);
}

[[noreturn]] void failOfTransfer(const TransferEnd& end, const ConnectionOptions& options)
{
    const std::string where = options.server.hostAndPort();
    const std::string detail = end.detail.empty() ? curl_easy_strerror(end.code) : end.detail;
    switch (end.code) {
    case CURLE_OPERATION_TIMEDOUT:
        failOfTime(end, options);
    case CURLE_COULDNT_RESOLVE_HOST:
        throw Failure(Kind::NotReached, "The name " + options.server.host + " is not known.", checkServer);
    case CURLE_PEER_FAILED_VERIFICATION:
        throw Failure(Kind::NotReached, "The certificate of " + where + " is not trusted: " + detail + ".",
                      checkCertificate);
    case CURLE_SSL_CACERT_BADFILE:
        throw Failure(Kind::NotReached, "The authority's file " + options.caFile + " cannot be used.",
                      checkCertificate);
    case CURLE_SSL_CONNECT_ERROR:
        throw Failure(Kind::NotReached, where + " does not speak TLS as this client does: " + detail + ".",
                      "An unencrypted server is reached with http:// (--server).");
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_WEIRD_SERVER_REPLY:
        throw Failure(Kind::NoCimAnswer, "What answers on " + where + " does not speak HTTP.", checkAddress,
                      end.sent);
    default:
        break;
    }
    if (end.sent)
        throw Failure(Kind::NoCimAnswer,
                      "The connection to " + where + " ended before the whole answer had come.", checkServer,
                      true);
    throw Failure(Kind::NotReached, where + " is not reached: " + detail + ".", checkServer);
}

} // namespace

void failUnlessAnswered(const TransferEnd& end, const ConnectionOptions& options)
{
    if (end.cancelled)
        throw Failure(Kind::Cancelled, "Interrupted.", "", end.sent);
    if (end.tooLong)
        throw Failure(Kind::NoCimAnswer,
                      "The answer of " + options.server.hostAndPort() + " is longer than " +
                          megabytes(options.largestAnswer) + ".",
                      checkAddress, end.sent);
    if (end.code != CURLE_OK)
        failOfTransfer(end, options);
    constexpr long without = 0; // an answer without status line
    constexpr long old = 9;     // the same in libcurl's numbering of some versions
    if (end.httpStatus != 200 && end.httpStatus != without && end.httpStatus != old)
        failOfStatus(end, options);
}

} // namespace lanctl::wire
