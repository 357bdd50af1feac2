// What endChange refuses, and that a refusal touches nothing.

#include "EndpointServer.hpp"
#include "lanendpoint/ORX_LANEndpointAPI.hpp"

#include <gtest/gtest.h>

using namespace fakes; // for the sums of journal lines
using OpenWBEM::String;

namespace
{

class ChangeChecks : public EndpointServer
{
  protected:
    /// The outcome of a change of `ifName` to these values; the journal holds what endChange did.
    int outcome(const std::string& ifName, const String& address, const String& mask, const String& gateway)
    {
        ORX_LANEndpointAPI endpoint(ifName.c_str());
        endpoint.get();
        endpoint.startChange();
        endpoint.setIPAddress(address);
        endpoint.setSubnetMask(mask);
        endpoint.setGateway(gateway);
        world.clearJournal();
        return endpoint.endChange();
    }

    void expectOnlyReadAnd(const Lines& checks) { EXPECT_EQ(reading("eth1") + checks, world.journal()); }

    const Lines neighbours = {"dhcpIpInfoGetIPInfo eth0", "dhcpIpInfoGetIPInfo eth2"};

    /// Texts that the C library reads as a mask, with an abbreviation, an octal or hexadecimal part or a
    /// blank behind it, and that are none by their text.
    const Lines looseMasks = {"255.255.255", "255.255.255.000", "0xff.255.255.0", "255.255.255.0 "};
};

TEST_F(ChangeChecks, UnchangedValuesPassAllChecksAndDoNothing)
{
    for (const std::string ifName : {"eth0", "eth1", "eth2"}) {
        ORX_LANEndpointAPI endpoint(ifName.c_str());
        endpoint.get();
        endpoint.startChange();
        String address;
        String gateway;
        endpoint.getIPAddress(address);
        endpoint.getGateway(gateway);
        world.clearJournal();
        EXPECT_EQ(1, endpoint.endChange());
        EXPECT_EQ(reading(ifName) + checking(ifName, address.c_str(), gateway.c_str()), world.journal());
    }
}

TEST_F(ChangeChecks, AnAddressThatThePlatformRefusesIsInvalid)
{
    EXPECT_EQ(2, outcome("eth1", "10.0.0.256", "255.255.255.0", "10.0.0.1"));
    expectOnlyReadAnd({"dhcpIpInfoIsIPAddrValid 10.0.0.256"});
    EXPECT_EQ(2, outcome("eth1", "", "255.255.255.0", "10.0.0.1"));
    world.unusableAddresses = {"127.0.0.1"};
    EXPECT_EQ(2, outcome("eth1", "127.0.0.1", "255.255.255.0", "10.0.0.1"));
    expectOnlyReadAnd({"dhcpIpInfoIsIPAddrValid 127.0.0.1"});
}

TEST_F(ChangeChecks, AnAddressWithoutHostPartIsInvalid)
{
    EXPECT_EQ(2, outcome("eth1", "10.0.0.0", "255.255.255.0", "10.0.0.1"));
    expectOnlyReadAnd({"dhcpIpInfoIsIPAddrValid 10.0.0.0"});
}

TEST_F(ChangeChecks, AMaskThatIsNoAddressMakesTheAddressInvalid)
{
    EXPECT_EQ(2, outcome("eth1", "10.0.0.6", "", "10.0.0.1"));
    EXPECT_EQ(2, outcome("eth1", "10.0.0.6", "255..255.0.0", "10.0.0.1"));
    EXPECT_EQ(2, outcome("eth1", "10.0.0.6", "255.255.256.0", "10.0.0.1"));
    expectOnlyReadAnd({"dhcpIpInfoIsIPAddrValid 10.0.0.6"});
}

TEST_F(ChangeChecks, AnAddressInANeighboursNetworkOverlaps)
{
    EXPECT_EQ(5, outcome("eth1", "192.168.0.9", "255.255.255.0", "10.0.0.1"));
    expectOnlyReadAnd({"dhcpIpInfoIsIPAddrValid 192.168.0.9", "dhcpIpInfoGetIPInfo eth0"});
    EXPECT_EQ(5, outcome("eth1", "172.16.0.9", "255.255.255.0", "10.0.0.1"));
    expectOnlyReadAnd(Lines{"dhcpIpInfoIsIPAddrValid 172.16.0.9"} + neighbours);
}

TEST_F(ChangeChecks, ANeighboursAddressFromDhcpCounts)
{
    configureDhcp("eth1", "10.7.0.5", "255.255.255.0");
    EXPECT_EQ(5, outcome("eth2", "10.7.0.6", "255.255.255.0", ""));
    EXPECT_EQ(1, outcome("eth2", "1.1.1.2", "255.255.255.0", "")); // what the file says of eth1 does not
}

TEST_F(ChangeChecks, AMaskThatReachesANeighbourOverlaps)
{
    EXPECT_EQ(5, outcome("eth1", "10.0.0.5", "0.0.0.0", "10.0.0.1"));
}

TEST_F(ChangeChecks, AMaskWithAGapIsInvalid)
{
    EXPECT_EQ(3, outcome("eth1", "10.0.1.6", "255.255.0.255", "10.0.0.1"));
    expectOnlyReadAnd(Lines{"dhcpIpInfoIsIPAddrValid 10.0.1.6"} + neighbours);
}

TEST_F(ChangeChecks, AMaskInALooseFormIsReadForTheNetworksAndThenInvalid)
{
    for (const std::string& mask : looseMasks) {
        EXPECT_EQ(3, outcome("eth1", "10.0.1.6", mask.c_str(), "10.0.0.1")) << mask;
        expectOnlyReadAnd(Lines{"dhcpIpInfoIsIPAddrValid 10.0.1.6"} + neighbours);
    }
}

TEST_F(ChangeChecks, ANeighboursMaskInALooseFormIsComparedLikeAnyOther)
{
    for (const std::string& mask : looseMasks) {
        configureStatic("eth2", "172.16.0.1", mask);
        EXPECT_EQ(1, outcome("eth1", "10.0.0.6", "255.255.255.0", "10.0.0.1")) << mask;
        EXPECT_EQ(reading("eth1") + checking("eth1", "10.0.0.6", "10.0.0.1") +
                      addressChange("eth1", "10.0.0.6"),
                  world.journal());
        EXPECT_EQ(5, outcome("eth1", "172.16.0.6", "255.255.255.0", "10.0.0.1")) << mask;
        expectOnlyReadAnd(Lines{"dhcpIpInfoIsIPAddrValid 172.16.0.6"} + neighbours);
    }
}

TEST_F(ChangeChecks, TheNetworksAreComparedAgainAfterTheMaskCheck)
{
    world.failNth(1, "dhcpIpInfoGetIPInfo", 1, "eth0"); // passed over the first time
    EXPECT_EQ(5, outcome("eth1", "192.168.0.9", "255.255.255.0", "10.0.0.1"));
    expectOnlyReadAnd(Lines{"dhcpIpInfoIsIPAddrValid 192.168.0.9"} + neighbours +
                      Lines{"dhcpIpInfoGetIPInfo eth0"});
}

TEST_F(ChangeChecks, AGatewayThatThePlatformRefusesIsInvalid)
{
    EXPECT_EQ(2, outcome("eth1", "10.0.0.6", "255.255.255.0", "10.0.0"));
    expectOnlyReadAnd(checking("eth1", "10.0.0.6", "10.0.0"));
}

TEST_F(ChangeChecks, OnlyTheVerdictOneMakesAnAddressValidAndAnyButZeroAGateway)
{
    world.addressVerdicts["10.0.0.6"] = 2;
    EXPECT_EQ(2, outcome("eth1", "10.0.0.6", "255.255.255.0", "10.0.0.1"));
    world.addressVerdicts = {{"10.0.0.1", 2}};
    EXPECT_EQ(1, outcome("eth1", "10.0.0.6", "255.255.255.0", "10.0.0.1"));
    world.addressVerdicts = {{"10.0.0.1", -1}};
    EXPECT_EQ(1, outcome("eth1", "10.0.0.6", "255.255.255.0", "10.0.0.1"));
}

TEST_F(ChangeChecks, ARouterCardThatCannotBeAskedForIsARefusal)
{
    world.failNth(1, "osIsZODAOnePresent", 1);
    EXPECT_EQ(2, outcome("eth1", "10.0.0.6", "255.255.255.0", "10.0.0.1"));
    expectOnlyReadAnd(Lines{"dhcpIpInfoIsIPAddrValid 10.0.0.6"} + neighbours + neighbours +
                      Lines{"osIsZODAOnePresent"});
}

TEST_F(ChangeChecks, WithARouterCardTheGatewayMayNotBeTheInterface)
{
    world.routerPresent = true;
    const Lines checks =
        Lines{"dhcpIpInfoIsIPAddrValid 10.0.0.6"} + neighbours + neighbours + Lines{"osIsZODAOnePresent"};
    EXPECT_EQ(2, outcome("eth1", "10.0.0.6", "255.255.255.0", ""));
    expectOnlyReadAnd(checks);
    EXPECT_EQ(2, outcome("eth1", "10.0.0.6", "255.255.255.0", "10.0.0.6"));
    expectOnlyReadAnd(checks);
    EXPECT_EQ(1, outcome("eth1", "10.0.0.6", "255.255.255.0", "10.0.0.1"));
}

TEST_F(ChangeChecks, WithoutARouterCardTheGatewayMayBeTheInterfaceOrEmpty)
{
    EXPECT_EQ(1, outcome("eth1", "10.0.0.6", "255.255.255.0", "10.0.0.6"));
    EXPECT_EQ(1, outcome("eth1", "10.0.0.6", "255.255.255.0", ""));
    EXPECT_EQ(1, outcome("eth2", "172.16.0.2", "255.255.255.0", ""));
}

TEST_F(ChangeChecks, TextBehindANulDoesNotHideInAValue)
{
    EXPECT_EQ(2, outcome("eth1", String("10.0.0.6\0;ls", 12), "255.255.255.0", "10.0.0.1"));
    EXPECT_EQ(3, outcome("eth1", "10.0.0.6", String("255.255.0.0\0;ls", 15), "10.0.0.1"));
    EXPECT_EQ(2, outcome("eth1", "10.0.0.6", "255.255.255.0", String("10.0.0.2\0;ls", 12)));
    EXPECT_EQ(Lines{}, world.journal(Effects));
}

TEST_F(ChangeChecks, PendingValuesOfADhcpInterfaceAreAcceptedWithoutEffect)
{
    for (const std::string ifName : {"eth0", "eth1", "eth2"}) {
        configureDhcp(ifName, "10.0.0.77", "255.255.255.0");
        EXPECT_EQ(1, outcome(ifName, "nonsense", "255.0.255.0", "no gateway"));
        Lines expected = {"fopen " + fileOf(ifName) + " r", "fclose " + fileOf(ifName)};
        if (ifName == "eth1")
            expected = expected + Lines{"dhcpIpInfoGetIPInfo eth1", "dhcpIpInfoGetDefaultGateway"};
        EXPECT_EQ(expected, world.journal());
    }
}

TEST_F(ChangeChecks, PendingValuesOfADhcpInterfaceStayInTheFields)
{
    configureDhcp("eth2", "172.16.0.77", "255.255.255.0");
    ORX_LANEndpointAPI endpoint("eth2");
    endpoint.get();
    endpoint.startChange();
    endpoint.setIPAddress("172.16.0.2");
    EXPECT_EQ(1, endpoint.endChange());
    String address;
    endpoint.getIPAddress(address);
    EXPECT_STREQ("172.16.0.2", address.c_str());
}

TEST_F(ChangeChecks, WhatCountsIsTheStoredBootProtocolNotTheField)
{
    ORX_LANEndpointAPI endpoint("eth2");
    endpoint.get();
    endpoint.startChange();
    endpoint.setIPAddress("172.16.0.2");
    configureDhcp("eth2", "172.16.0.77", "255.255.255.0");
    world.clearJournal();
    EXPECT_EQ(1, endpoint.endChange());
    EXPECT_EQ(reading("eth2"), world.journal());
}

TEST_F(ChangeChecks, HoweverItEndsTheChangeIsNoLongerInProgress)
{
    const auto appliesAtOnce = [this](ORX_LANEndpointAPI& endpoint) {
        world.clearJournal();
        endpoint.setIPAddress("nonsense");
        return !world.journal().empty();
    };
    struct Change {
        const char *address, *mask, *gateway;
        int outcome;
    };
    const Change changes[] = {
        {"nonsense", "255.255.255.0", "10.0.0.1", 2},    {"10.0.0.0", "255.255.255.0", "10.0.0.1", 2},
        {"192.168.0.9", "255.255.255.0", "10.0.0.1", 5}, {"10.0.1.6", "255.255.0.255", "10.0.0.1", 3},
        {"10.0.0.6", "255.255.255.0", "nonsense", 2},    {"10.0.0.5", "255.255.255.0", "10.0.0.1", 1}};
    ORX_LANEndpointAPI endpoint("eth1");
    for (const Change& change : changes) {
        SCOPED_TRACE(std::string(change.address) + " " + change.mask + " " + change.gateway);
        endpoint.startChange();
        EXPECT_FALSE(appliesAtOnce(endpoint));
        endpoint.setIPAddress(change.address);
        endpoint.setSubnetMask(change.mask);
        endpoint.setGateway(change.gateway);
        EXPECT_EQ(change.outcome, endpoint.endChange());
        EXPECT_TRUE(appliesAtOnce(endpoint));
    }

    configureDhcp("eth1", "10.0.0.77", "255.255.255.0");
    endpoint.startChange();
    EXPECT_EQ(1, endpoint.endChange()); // nothing to do
    EXPECT_TRUE(appliesAtOnce(endpoint));
}

TEST_F(ChangeChecks, AnOverlapFoundAgainEndsTheChangeToo)
{
    world.failNth(1, "dhcpIpInfoGetIPInfo", 1, "eth0"); // passed over the first time
    ORX_LANEndpointAPI endpoint("eth1");
    endpoint.startChange();
    endpoint.setIPAddress("192.168.0.9");
    endpoint.setSubnetMask("255.255.255.0");
    EXPECT_EQ(5, endpoint.endChange());
    world.clearJournal();
    endpoint.setIPAddress("nonsense"); // applied at once
    EXPECT_EQ(reading("eth1") + Lines{"dhcpIpInfoIsIPAddrValid nonsense"}, world.journal());
}

} // namespace
