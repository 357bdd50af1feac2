#include "wayback/TakeBack.hpp"

#include "../plan/Server.hpp"
#include "model/WantedText.hpp"

#include <gmock/gmock.h>

namespace lanctl::wayback
{
namespace
{

using plan::endpoint;
using plan::server;
using testing::ElementsAre;
using testing::IsEmpty;

/// What is to be restored: eth1's MTU and address, the domain, a filter.
model::WantedState former()
{
    model::WantedState wanted;
    model::want(wanted, "eth1", "mtu", "1400");
    model::want(wanted, "eth1", "address", "10.0.0.6");
    model::want(wanted, "lan", "domain", "other.example");
    model::want(wanted, "lan", "icmp-filter", "on");
    return wanted;
}

TEST(Possible, EverythingWhereNothingIsRefused)
{
    const Possible result = possible(server(), former(), "");
    EXPECT_THAT(result.impossible, IsEmpty());
    EXPECT_THAT(plan::requests(result.plan),
                ElementsAre("lan: DomainName=other.example isIcmpFilterEnabled=true",
                            "eth1: MaxDataSize=1400 IPAddress=10.0.0.6"));
}

TEST(Possible, ARefusedValueDoesNotHoldBackTheOthers)
{
    model::WantedState wanted = former();
    wanted.setting.domainName = "9site";
    const Possible result = possible(server(), wanted, "");
    ASSERT_EQ(result.impossible.size(), 1U);
    EXPECT_EQ(result.impossible.front().key, "domain");
    EXPECT_THAT(plan::requests(result.plan),
                ElementsAre("lan: isIcmpFilterEnabled=true", "eth1: MaxDataSize=1400 IPAddress=10.0.0.6"));
    EXPECT_FALSE(result.wanted.setting.domainName);
}

TEST(Possible, AnObjectWithNothingElseIsLeftOut)
{
    model::WantedState wanted;
    model::want(wanted, "lan", "domain", "9site");
    const Possible result = possible(server(), wanted, "");
    EXPECT_EQ(result.impossible.size(), 1U);
    EXPECT_TRUE(result.plan.requests.empty());
    EXPECT_TRUE(result.plan.asWanted());
}

TEST(Possible, SeveralObjectsMayBeRefused)
{
    model::WantedState wanted = former();
    wanted.setting.domainName = "9site";
    wanted.endpoints.front().ipAddress = "172.16.2.9"; // in eth2's network
    const Possible result = possible(server(), wanted, "");
    EXPECT_EQ(result.impossible.size(), 2U);
    EXPECT_THAT(plan::requests(result.plan),
                ElementsAre("lan: isIcmpFilterEnabled=true", "eth1: MaxDataSize=1400"));
}

TEST(Possible, WhatIsAsWantedNeedsNothing)
{
    model::WantedState wanted;
    model::want(wanted, "eth1", "mtu", "1500");
    const Possible result = possible(server(), wanted, "");
    EXPECT_TRUE(result.plan.asWanted());
    EXPECT_THAT(result.impossible, IsEmpty());
}

TEST(OfAFormerState, OnlyWhatTheChangeTouchesIsTakenBack)
{
    const model::WantedState touched = only(former(), {"lan"});
    EXPECT_THAT(touched.endpoints, IsEmpty());
    EXPECT_EQ(touched.setting.domainName, "other.example");
    const model::WantedState other = only(former(), {"eth1"});
    EXPECT_EQ(other.endpoints.size(), 1U);
    EXPECT_FALSE(other.setting.domainName || other.setting.icmpFilter);
}

TEST(Hardware, IsTheAddressesThatThereAre)
{
    model::ServerState state = server();
    endpoint(state, "eth0").macAddress = "02:00:00:00:00:00";
    endpoint(state, "eth1").macAddress = "";
    endpoint(state, "eth2").macAddress = "02:00:00:00:00:02";
    EXPECT_THAT(hardwareOf(state), ElementsAre("02:00:00:00:00:00", "02:00:00:00:00:02"));
}

TEST(TakeBack, ToldWhyNoWayLeadsToTheServer)
{
    // Nothing listens on port 1.
    const Attempt attempt = takeBack({}, {{"http://127.0.0.1:1", ""}, {"nonsense://x", ""}}, {}, former());
    EXPECT_FALSE(attempt.done);
    EXPECT_THAT(attempt.trouble, testing::HasSubstr("127.0.0.1:1 is not reached"));
    EXPECT_THAT(attempt.trouble, testing::HasSubstr("nonsense"));
}

} // namespace
} // namespace lanctl::wayback
