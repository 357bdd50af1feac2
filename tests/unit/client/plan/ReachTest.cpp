#include "plan/Reach.hpp"
#include "Server.hpp"

#include <gtest/gtest.h>

namespace lanctl::plan
{

namespace
{

using Fate = Reach::Fate;

Reach reachOf(const model::WantedEndpoint& endpoint, const std::string& reachedAt,
              const model::ServerState& state = server())
{
    return reach(planOf(state, endpoint), state, reachedAt);
}

TEST(Reach, AnInterfaceThatIsNotRestartedKeepsTheConnection)
{
    auto eth1 = wanted("eth1");
    eth1.mtu = 1400;
    const Reach result = reachOf(eth1, "10.0.0.5");
    EXPECT_EQ(result.fate, Fate::Kept);
    EXPECT_EQ(result.address, "10.0.0.5");
    EXPECT_FALSE(result.couldCut());
}

TEST(Reach, AnAddressMovesTheConnection)
{
    auto eth1 = wanted("eth1");
    eth1.ipAddress = "10.0.0.6";
    const Reach result = reachOf(eth1, "10.0.0.5");
    EXPECT_EQ(result.fate, Fate::Moved);
    EXPECT_EQ(result.address, "10.0.0.6");
    EXPECT_EQ(result.why, "The server moves from 10.0.0.5 to 10.0.0.6.");
    EXPECT_TRUE(result.couldCut());
}

TEST(Reach, AMaskMayCutTheConnection)
{
    auto eth1 = wanted("eth1");
    eth1.subnetMask = "255.255.255.128";
    const Reach result = reachOf(eth1, "10.0.0.5");
    EXPECT_EQ(result.fate, Fate::Uncertain);
    EXPECT_EQ(result.address, "10.0.0.5");
}

TEST(Reach, NobodyKnowsTheAddressThatDhcpGives)
{
    auto eth1 = wanted("eth1");
    eth1.dhcp = true;
    const Reach result = reachOf(eth1, "10.0.0.5");
    EXPECT_EQ(result.fate, Fate::Uncertain);
    EXPECT_EQ(result.address, "");
    EXPECT_TRUE(result.couldCut());
}

TEST(Reach, DhcpOffKeepsTheAddress)
{
    auto state = server();
    endpoint(state, "eth1").dhcp = true;
    auto eth1 = wanted("eth1");
    eth1.dhcp = false;
    EXPECT_EQ(reachOf(eth1, "10.0.0.5", state).fate, Fate::Kept);
}

TEST(Reach, AGatewayMayCutAConnectionFromBehindIt)
{
    auto eth1 = wanted("eth1");
    eth1.defaultGateway = "10.0.0.254";
    EXPECT_EQ(reachOf(eth1, "10.0.0.5").fate, Fate::Uncertain);
    EXPECT_EQ(reachOf(eth1, "172.16.2.1").fate, Fate::Uncertain);
}

TEST(Reach, AnotherInterfacesRestartKeepsTheConnection)
{
    auto eth2 = wanted("eth2");
    eth2.ipAddress = "172.16.2.2";
    EXPECT_EQ(reachOf(eth2, "10.0.0.5").fate, Fate::Kept);
}

TEST(Reach, TheCustomerLansRestartTakesTheDefaultRouteAway)
{
    auto eth1 = wanted("eth1");
    eth1.ipAddress = "10.0.0.6";
    EXPECT_EQ(reachOf(eth1, "172.16.2.1").fate, Fate::Interrupted);
    EXPECT_EQ(reachOf(eth1, "172.16.2.1").address, "172.16.2.1");
    // And for good where its gateway is out of reach afterwards.
    eth1.ipAddress = "10.9.0.6";
    EXPECT_EQ(reachOf(eth1, "172.16.2.1").fate, Fate::Uncertain);
}

TEST(Reach, NobodyCanTellOfAnAddressThatIsNoneOfTheServers)
{
    auto eth1 = wanted("eth1");
    eth1.ipAddress = "10.0.0.6";
    EXPECT_EQ(reachOf(eth1, "203.0.113.7").fate, Fate::Uncertain);
    auto eth2 = wanted("eth2");
    eth2.mtu = 1400;
    EXPECT_EQ(reachOf(eth2, "203.0.113.7").fate, Fate::Kept);
}

TEST(Reach, TheServerItselfIsNeverCutOff)
{
    auto eth1 = wanted("eth1");
    eth1.ipAddress = "10.0.0.6";
    for (const char* loopback : {"127.0.0.1", "::1", "localhost"})
        EXPECT_EQ(reachOf(eth1, loopback).fate, Fate::Kept) << loopback;
}

TEST(Reach, WhatIsNotSentCutsNothing)
{
    auto eth1 = wanted("eth1");
    eth1.ipAddress = "nonsense";
    EXPECT_EQ(reachOf(eth1, "10.0.0.5").fate, Fate::Kept);
}

} // namespace

} // namespace lanctl::plan
