#include "wire/TransferFailure.hpp"

#include "wire/Failure.hpp"

#include <gtest/gtest.h>
#include <optional>

using namespace lanctl::wire;

namespace
{

ConnectionOptions options(const std::string& user = "")
{
    ConnectionOptions options;
    options.server = parseServerAddress("http://10.0.0.5");
    options.user = user;
    options.caFile = "/ca.pem";
    return options;
}

std::optional<Failure> failureOf(const TransferEnd& end, const std::string& user = "")
{
    try {
        failUnlessAnswered(end, options(user));
    } catch (const Failure& e) {
        return e;
    }
    return std::nullopt;
}

TransferEnd ended(CURLcode code, bool sent = false)
{
    TransferEnd end;
    end.code = code;
    end.sent = sent;
    end.detail = "words of libcurl";
    return end;
}

TransferEnd answered(long status)
{
    TransferEnd end;
    end.httpStatus = status;
    end.sent = true;
    return end;
}

} // namespace

TEST(TransferFailure, isNoneWhenAWholeAnswerCame)
{
    EXPECT_FALSE(failureOf(answered(200)));
    EXPECT_FALSE(failureOf(answered(0))); // without status line: the body decides
}

TEST(TransferFailure, tellsTheReasonsApart)
{
    struct Case {
        CURLcode code;
        Failure::Kind kind;
        const char* text;
    };
    const Case cases[] = {
        {CURLE_COULDNT_CONNECT, Failure::Kind::NotReached, "10.0.0.5:5988 is not reached: words of libcurl."},
        {CURLE_COULDNT_RESOLVE_HOST, Failure::Kind::NotReached, "The name 10.0.0.5 is not known."},
        {CURLE_OPERATION_TIMEDOUT, Failure::Kind::TimeLimit, "10.0.0.5:5988 does not answer within 30 s."},
        {CURLE_PEER_FAILED_VERIFICATION, Failure::Kind::NotReached,
         "The certificate of 10.0.0.5:5988 is not trusted: words of libcurl."},
        {CURLE_SSL_CACERT_BADFILE, Failure::Kind::NotReached, "The authority's file /ca.pem cannot be used."},
        {CURLE_SSL_CONNECT_ERROR, Failure::Kind::NotReached,
         "10.0.0.5:5988 does not speak TLS as this client does: words of libcurl."},
        {CURLE_WEIRD_SERVER_REPLY, Failure::Kind::NoCimAnswer,
         "What answers on 10.0.0.5:5988 does not speak HTTP."},
    };
    for (const Case& expected : cases) {
        const auto failure = failureOf(ended(expected.code));
        ASSERT_TRUE(failure) << expected.text;
        EXPECT_EQ(failure->kind(), expected.kind) << expected.text;
        EXPECT_STREQ(failure->what(), expected.text);
        EXPECT_FALSE(failure->advice().empty()) << expected.text;
        EXPECT_FALSE(failure->requestSent()) << expected.text;
    }
}

TEST(TransferFailure, knowsThatTheServerMayHaveTheRequest)
{
    EXPECT_TRUE(failureOf(ended(CURLE_OPERATION_TIMEDOUT, true))->requestSent());
    EXPECT_FALSE(failureOf(ended(CURLE_OPERATION_TIMEDOUT, false))->requestSent());
    const auto cutOff = failureOf(ended(CURLE_PARTIAL_FILE, true));
    EXPECT_TRUE(cutOff->requestSent());
    EXPECT_STREQ(cutOff->what(), "The connection to 10.0.0.5:5988 ended before the whole answer had come.");
    EXPECT_EQ(cutOff->kind(), Failure::Kind::NoCimAnswer);
}

TEST(TransferFailure, ofTheStatusSaysWhoIsNotLetIn)
{
    const auto nobody = failureOf(answered(401));
    EXPECT_EQ(nobody->kind(), Failure::Kind::NotAuthorised);
    EXPECT_STREQ(nobody->what(), "10.0.0.5:5988 asks for a user and a password.");
    EXPECT_FALSE(nobody->requestSent());
    EXPECT_STREQ(failureOf(answered(401), "eve")->what(), "10.0.0.5:5988 does not let eve in.");
    EXPECT_STREQ(failureOf(answered(403), "eve")->what(), "10.0.0.5:5988 does not let eve in.");
}

TEST(TransferFailure, ofAnotherStatusIsNoCimAnswer)
{
    EXPECT_STREQ(failureOf(answered(404))->what(), "10.0.0.5:5988 answers HTTP status 404.");
    EXPECT_FALSE(failureOf(answered(404))->requestSent());
    EXPECT_TRUE(failureOf(answered(500))->requestSent()); // it may have failed after the change
}

TEST(TransferFailure, ofLengthAndOfGivingUp)
{
    TransferEnd end = ended(CURLE_WRITE_ERROR, true);
    end.tooLong = true;
    EXPECT_STREQ(failureOf(end)->what(), "The answer of 10.0.0.5:5988 is longer than 4 MB.");
    end.cancelled = true;
    EXPECT_EQ(failureOf(end)->kind(), Failure::Kind::Cancelled);
}
