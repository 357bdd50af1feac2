#include "HttpServer.hpp"
#include "RawClient.hpp"

#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <vector>

namespace cimom::test
{
namespace
{

// Answers every request with its own body; a body "refuse" is refused.
HttpAnswer echo(const std::string& body)
{
    HttpAnswer answer;
    if (body == "refuse") {
        answer.status = 400;
        answer.cimError = "request-not-well-formed";
    } else {
        answer.body = body;
    }
    return answer;
}

class Http : public ::testing::Test
{
  protected:
    static HttpOptions options()
    {
        HttpOptions result;
        result.port = 0;
        result.maxBody = 1000;
        result.maxConnections = 250;
        return result;
    }
    HttpReply reply(const std::string& request)
    {
        RawClient client(server.port());
        client.send(request);
        return client.receive();
    }
    static std::string request(const std::string& head, const std::string& body = "")
    {
        return head + "\r\nHost: x\r\nContent-Length: " + std::to_string(body.size()) + "\r\n\r\n" + body;
    }

    HttpServer server{options(), echo, [](const std::string&) {}};
};

TEST_F(Http, APostIsAnsweredWithTheHeadersOfTheCimMapping)
{
    const HttpReply answered = reply(post("<a/>"));
    EXPECT_EQ(answered.status, 200);
    EXPECT_EQ(answered.body, "<a/>");
    EXPECT_EQ(answered.header("content-type"), "application/xml; charset=\"utf-8\"");
    EXPECT_EQ(answered.header("cimoperation"), "MethodResponse");
    EXPECT_EQ(answered.header("cache-control"), "no-cache");
    EXPECT_EQ(answered.headers.count("man"), 0U);
}

TEST_F(Http, AnMPostIsAnsweredWithNumberedHeaders)
{
    const HttpReply answered = reply(request("M-POST /cimom HTTP/1.1\r\nContent-Type: application/xml\r\n"
                                             "Man: http://www.dmtf.org/cim/mapping/http/v1.0; ns=73\r\n"
                                             "73-CIMOperation: MethodCall",
                                             "<a/>"));
    EXPECT_EQ(answered.status, 200);
    EXPECT_EQ(answered.header("man"), "http://www.dmtf.org/cim/mapping/http/v1.0 ; ns=10");
    EXPECT_EQ(answered.header("10-cimoperation"), "MethodResponse");
    EXPECT_EQ(answered.headers.count("ext"), 1U);
    EXPECT_EQ(answered.header("ext"), "");
    EXPECT_EQ(answered.headers.count("cimoperation"), 0U);
}

TEST_F(Http, TheConnectionServesFurtherRequests)
{
    RawClient client(server.port());
    for (const char* body : {"one", "two", "three"}) {
        client.send(post(body));
        EXPECT_EQ(client.receive().body, body);
    }
    client.send(post("four") + post("five"));
    EXPECT_EQ(client.receive().body, "four");
    EXPECT_EQ(client.receive().body, "five");
}

TEST_F(Http, AnyPathIsTheObjectManager)
{
    EXPECT_EQ(reply(request("POST /elsewhere?x=1 HTTP/1.1", "b")).body, "b");
}

TEST_F(Http, AnyAcceptHeaderWillDo)
{
    EXPECT_EQ(reply(post("b", "Accept: */*\r\nAccept-Encoding: identity\r\n")).status, 200);
}

TEST_F(Http, BodiesMayComeInChunks)
{
    EXPECT_EQ(reply("POST /cimom HTTP/1.1\r\nHost: x\r\nTransfer-Encoding: "
                    "chunked\r\n\r\n3\r\nabc\r\n2\r\nde\r\n0\r\n\r\n")
                  .body,
              "abcde");
}

TEST_F(Http, ARefusalCarriesTheCimErrorHeader)
{
    const HttpReply answered = reply(post("refuse"));
    EXPECT_EQ(answered.status, 400);
    EXPECT_EQ(answered.header("cimerror"), "request-not-well-formed");
    EXPECT_EQ(answered.body, "");
}

TEST_F(Http, OtherMethodsAreNotAllowed)
{
    const HttpReply answered = reply(request("GET /cimom HTTP/1.1"));
    EXPECT_EQ(answered.status, 405);
    EXPECT_EQ(answered.header("allow"), "POST, M-POST");
    EXPECT_EQ(reply(request("M-GET /cimom HTTP/1.1")).status, 405);
}

TEST_F(Http, OtherContentTypesAreNotSupported)
{
    EXPECT_EQ(reply(request("POST / HTTP/1.1\r\nContent-Type: text/html", "b")).status, 415);
    EXPECT_EQ(reply(request("POST / HTTP/1.1\r\nContent-Type: text/xml", "b")).status, 200);
    EXPECT_EQ(reply(request("POST / HTTP/1.1", "b")).status, 200);
}

TEST_F(Http, ABodyNeedsALength)
{
    EXPECT_EQ(reply("POST / HTTP/1.1\r\nHost: x\r\n\r\n").status, 411);
    EXPECT_EQ(reply("POST / HTTP/1.1\r\nHost: x\r\nContent-Length: abc\r\n\r\n").status, 400);
    EXPECT_EQ(reply("POST / HTTP/1.1\r\nHost: x\r\nContent-Length: -1\r\n\r\n").status, 400);
}

TEST_F(Http, BodiesBeyondTheLimitAreRefusedBeforeTheyArrive)
{
    EXPECT_EQ(reply(post(std::string(1000, 'x'))).status, 200);
    EXPECT_EQ(reply(post(std::string(1001, 'x'))).status, 413);
    EXPECT_EQ(reply("POST / HTTP/1.1\r\nHost: x\r\nContent-Length: 9999999999\r\n\r\n").status, 413);
    EXPECT_EQ(
        reply("POST / HTTP/1.1\r\nHost: x\r\nExpect: 100-continue\r\nContent-Length: 1001\r\n\r\n").status,
        413);
}

TEST_F(Http, WhoSendsAnOversizedBodyToItsEndStillReadsTheRefusal)
{
    RawClient client(server.port());
    EXPECT_TRUE(client.send(post(std::string(8000000, 'x')))); // some clients give up where this fails
    EXPECT_EQ(client.receive().status, 413);
}

TEST_F(Http, ABadContentLengthIsAnsweredOnce)
{
    for (const char* length : {"abc", "-1", "1 1", "99999999999999999999", "1\r\nContent-Length: 2"}) {
        RawClient client(server.port());
        client.send(std::string("POST / HTTP/1.1\r\nHost: x\r\nContent-Length: ") + length + "\r\n\r\nb");
        EXPECT_EQ(client.receive().status, 400) << length;
        EXPECT_EQ(client.receive().status, 0) << length;
    }
}

TEST_F(Http, WhoAsksWhetherToContinueIsTold)
{
    RawClient client(server.port());
    client.send("POST / HTTP/1.1\r\nHost: x\r\nExpect: 100-continue\r\nContent-Length: 1\r\n\r\n");
    client.waitFor("HTTP/1.1 100 Continue\r\n\r\n");
    client.send("b");
    EXPECT_EQ(client.receive().body, "b");
}

TEST_F(Http, TheConnectionEndsWhenTheClientWantsIt)
{
    RawClient client(server.port());
    client.send(post("b", "Connection: close\r\n"));
    EXPECT_EQ(client.receive().header("connection"), "close");
    EXPECT_TRUE(client.waitForEnd());
    EXPECT_EQ(reply("POST / HTTP/1.0\r\nContent-Length: 1\r\n\r\nb").header("connection"), "close");
}

TEST_F(Http, EmptyLinesBetweenRequestsAreIgnored)
{
    RawClient client(server.port());
    client.send("\r\n\r\n" + post("one") + "\r\n" + post("two"));
    EXPECT_EQ(client.receive().body, "one");
    EXPECT_EQ(client.receive().body, "two");
}

TEST_F(Http, AHeaderThatDoesNotEndIsRefused)
{
    EXPECT_EQ(reply("POST / HTTP/1.1\r\nX: " + std::string(100000, 'x')).status, 431);
}

TEST_F(Http, AnOversizedBodyInChunksIsRefusedAtItsEnd)
{
    std::string request = "POST / HTTP/1.1\r\nHost: x\r\nTransfer-Encoding: chunked\r\n\r\n";
    for (int i = 0; i < 20; ++i) {
        request += "64\r\n" + std::string(100, 'x') + "\r\n";
    }
    EXPECT_EQ(reply(request + "0\r\n\r\n").status, 413);
}

TEST_F(Http, TextThatIsNoHttpEndsTheConnection)
{
    RawClient client(server.port());
    client.send("\x16\x03\x01 hello\r\n\r\n");
    EXPECT_TRUE(client.waitForEnd());
    EXPECT_EQ(reply(post("still there")).body, "still there");
}

TEST_F(Http, SilentConnectionsHoldUpNobody)
{
    std::vector<std::unique_ptr<RawClient>> clients;
    for (int i = 0; i < 200; ++i) {
        clients.push_back(std::make_unique<RawClient>(server.port()));
        clients.back()->send("POST / HTTP/1.1\r\n");
    }
    EXPECT_EQ(reply(post("b")).body, "b");
    for (const auto& client : clients) {
        client->send("Host: x\r\nContent-Length: 1\r\n\r\nc");
    }
    for (const auto& client : clients) {
        EXPECT_EQ(client->receive().body, "c");
    }
}

TEST_F(Http, AFullHouseThatLeavesAtOnceMakesRoomAtOnce)
{
    HttpOptions small = options();
    small.maxConnections = 4;
    const HttpServer smallServer(small, echo, [](const std::string&) {});
    for (int round = 0; round < 20; ++round) {
        std::vector<std::unique_ptr<RawClient>> house;
        for (unsigned i = 0; i < small.maxConnections; ++i) {
            house.push_back(std::make_unique<RawClient>(smallServer.port()));
            house.back()->send(post("b"));
        }
        for (const auto& client : house) {
            EXPECT_EQ(client->receive().body, "b");
        }
        RawClient late(smallServer.port());
        late.send(post("late"));
        house.clear();
        EXPECT_EQ(late.receive().body, "late");
    }
}

TEST_F(Http, AHandlerAtWorkHoldsUpNobody)
{
    std::promise<void> release;
    const auto handler = [released = release.get_future().share()](const std::string& body) {
        if (body == "long") {
            released.wait();
        }
        return echo(body);
    };
    const HttpServer busy(options(), handler, [](const std::string&) {});
    RawClient patient(busy.port());
    patient.send(post("long"));
    RawClient other(busy.port());
    other.send(post("short"));
    EXPECT_EQ(other.receive().body, "short");
    release.set_value();
    EXPECT_EQ(patient.receive().body, "long");
}

TEST_F(Http, TheEndWaitsForTheRequestThatIsHandled)
{
    std::promise<void> entered;
    const auto handler = [&entered](const std::string& body) {
        entered.set_value();
        return echo(body);
    };
    auto ending = std::make_unique<HttpServer>(options(), handler, [](const std::string&) {});
    RawClient silent(ending->port());
    RawClient client(ending->port());
    client.send(post("b"));
    entered.get_future().wait();
    ending.reset();
    EXPECT_EQ(client.receive().body, "b");
    EXPECT_TRUE(silent.waitForEnd());
}

TEST_F(Http, ATakenPortIsReported)
{
    HttpOptions same = options();
    same.port = server.port();
    try {
        const HttpServer second(same, echo, [](const std::string&) {});
        FAIL();
    } catch (const std::runtime_error& e) {
        EXPECT_EQ(e.what(), "cannot listen on 127.0.0.1 port " + std::to_string(server.port()));
    }
}

TEST_F(Http, OnlyNumericAddressesAreTaken)
{
    HttpOptions named = options();
    named.address = "localhost";
    try {
        const HttpServer second(named, echo, [](const std::string&) {});
        FAIL();
    } catch (const std::runtime_error& e) {
        EXPECT_STREQ(e.what(), "\"localhost\" is not a numeric IPv4 or IPv6 address");
    }
}

} // namespace
} // namespace cimom::test
