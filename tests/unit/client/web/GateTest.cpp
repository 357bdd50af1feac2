#include "web/Gate.hpp"

#include <gtest/gtest.h>

namespace lanctl::web
{
namespace
{

const Gate onLoopback({"127.0.0.1:8080", "localhost:8080"}, "");

Request reading(std::map<std::string, std::string> headers = {})
{
    headers.insert({"host", "127.0.0.1:8080"});
    return {"GET", "/api/state", std::move(headers), ""};
}

Request changing(std::map<std::string, std::string> headers = {})
{
    headers.insert({{"host", "127.0.0.1:8080"}, {"x-lanctl", "1"}, {"content-type", "application/json"}});
    return {"POST", "/api/apply", std::move(headers), "{}"};
}

unsigned statusOf(const Gate& gate, const Request& request)
{
    const auto refusal = gate.refusal(request);
    return refusal ? refusal->status : 0;
}

TEST(GateTest, ThePageOfThisMachineIsLetIn)
{
    EXPECT_EQ(statusOf(onLoopback, reading()), 0U);
    EXPECT_EQ(statusOf(onLoopback, changing()), 0U);
    EXPECT_EQ(statusOf(onLoopback, changing({{"origin", "http://127.0.0.1:8080"}})), 0U);
    EXPECT_EQ(statusOf(onLoopback, reading({{"host", "localhost:8080"}})), 0U);
}

TEST(GateTest, AnotherHostIsNotTheOneThatThePageWasAskedOf)
{
    for (const char* host :
         {"", "evil.example", "evil.example:8080", "127.0.0.1", "127.0.0.1:8081", "127.0.0.1:80800"})
        EXPECT_EQ(statusOf(onLoopback, reading({{"host", host}})), 421U) << host;
}

TEST(GateTest, APageOfAnotherSiteIsTurnedAway)
{
    for (const char* origin : {"null", "http://evil.example", "https://127.0.0.1:8080",
                               "http://127.0.0.1:8081", "http://localhost:8080"})
        EXPECT_EQ(statusOf(onLoopback, changing({{"origin", origin}})), 403U) << origin;
    EXPECT_EQ(statusOf(onLoopback, reading({{"sec-fetch-site", "cross-site"}})), 403U);
}

TEST(GateTest, ALinkFromElsewhereMayLeadToThePageItself)
{
    Request link = reading({{"sec-fetch-site", "cross-site"}});
    link.path = "/";
    EXPECT_EQ(statusOf(onLoopback, link), 0U);
}

TEST(GateTest, AChangingRequestCarriesTheHeaderAndJson)
{
    EXPECT_EQ(statusOf(onLoopback, changing({{"x-lanctl", ""}})), 403U);
    EXPECT_EQ(statusOf(onLoopback, changing({{"x-lanctl", "11"}})), 403U);
    EXPECT_EQ(statusOf(onLoopback, changing({{"content-type", "text/plain"}})), 415U);
    EXPECT_EQ(statusOf(onLoopback, changing({{"content-type", "application/json; charset=utf-8"}})), 0U);
}

TEST(GateTest, OnlyGetAndPostAreServed)
{
    for (const char* method : {"PUT", "DELETE", "OPTIONS", "HEAD", "get", ""}) {
        Request request = reading();
        request.method = method;
        EXPECT_EQ(statusOf(onLoopback, request), 405U) << method;
    }
}

TEST(GateTest, ATokenIsAskedForWhereThereIsOne)
{
    const Gate gate({}, "abc");
    for (const char* given : {"", "abc", "Bearer ", "Bearer ab", "Bearer abd", "Bearer abcd", "bearer abc"})
        EXPECT_EQ(statusOf(gate, reading({{"authorization", given}})), 401U) << given;
    EXPECT_EQ(statusOf(gate, reading({{"authorization", "Bearer abc"}, {"host", "pbx.example"}})), 0U);
    Request page = reading();
    page.path = "/main.js";
    EXPECT_EQ(statusOf(gate, page), 0U);
}

TEST(GateTest, NoTwoTokensAreTheSame)
{
    const std::string token = newToken();
    EXPECT_EQ(token.size(), 64U);
    EXPECT_EQ(token.find_first_not_of("0123456789abcdef"), std::string::npos);
    EXPECT_NE(newToken(), token);
}

} // namespace
} // namespace lanctl::web
