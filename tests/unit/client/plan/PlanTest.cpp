#include "Server.hpp"

#include <gmock/gmock.h>

namespace lanctl::plan
{

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Plan, InterfacesAreChangedLast)
{
    model::WantedState all;
    all.endpoints = {wanted("eth2")};
    all.endpoints.front().mtu = 1400;
    all.setting.icmpFilter = true;
    all.marking.mark(model::Flow::Voice) = model::menuMark(0xB8);
    EXPECT_THAT(requests(plan(server(), all)),
                ElementsAre("marking: QoSMarkVoiceMedia=184", "lan: isIcmpFilterEnabled=true",
                            "eth2: MaxDataSize=1400"));
}

TEST(Plan, TheCostIsThatOfAllRequests)
{
    model::WantedState all;
    all.endpoints = {wanted("eth0"), wanted("eth1")};
    all.endpoints.at(0).ipAddress = "192.168.10.2";
    all.endpoints.at(1).subnetMask = "255.255.0.0";
    all.setting.domainName = "other.example";
    const Plan result = plan(server(), all);
    ASSERT_EQ(result.requests.size(), 3U);
    EXPECT_EQ(cost(result.requests.at(1).impact), "1 interface, 1 voice, 1 ems");
    EXPECT_EQ(cost(result.impact()), "2 interface, 2 voice, 1 dhcp, 1 ems, 1 hosts, 1 resolver");
}

TEST(Plan, AWarningOfTheServerIsRepeatedOnce)
{
    model::WantedState all;
    all.endpoints = {wanted("eth0"), wanted("eth1")};
    all.endpoints.at(0).ipAddress = "192.168.10.2";
    all.endpoints.at(1).ipAddress = "10.0.0.6";
    EXPECT_THAT(plan(server(), all).warnings,
                ElementsAre("Changing IP address will restart Voice Messaging."));
}

TEST(Plan, OneRefusalHoldsBackEveryRequest)
{
    model::WantedState all;
    all.endpoints = {wanted("eth1")};
    all.endpoints.front().ipAddress = "10.0.0.6";
    all.setting.primaryDns = "nowhere";
    const Plan result = plan(server(), all);
    EXPECT_EQ(result.refusals.size(), 1U);
    EXPECT_EQ(result.changes.size(), 2U);
    EXPECT_THAT(result.requests, IsEmpty());
    EXPECT_THAT(result.warnings, IsEmpty());
    EXPECT_THAT(requests(uncheckedPlan(server(), all)),
                ElementsAre("lan: PrimaryDNS=nowhere", "eth1: IPAddress=10.0.0.6"));
}

TEST(Plan, AnInterfaceMovesIntoANetworkAfterItsOwnerHasLeft)
{
    model::WantedState all;
    all.endpoints = {wanted("eth1"), wanted("eth2")};
    all.endpoints.at(0).ipAddress = "172.16.2.9";
    all.endpoints.at(1).ipAddress = "172.16.3.1";
    const Plan result = plan(server(), all);
    EXPECT_THAT(result.refusals, IsEmpty());
    EXPECT_THAT(requests(result), ElementsAre("eth2: IPAddress=172.16.3.1", "eth1: IPAddress=172.16.2.9"));
}

TEST(Plan, TwoInterfacesCannotSwapTheirNetworks)
{
    model::WantedState all;
    all.endpoints = {wanted("eth1"), wanted("eth2")};
    all.endpoints.at(0).ipAddress = "172.16.2.9";
    all.endpoints.at(1).ipAddress = "10.0.0.9";
    EXPECT_THAT(refusals(plan(server(), all)),
                ElementsAre("eth1 address: The IP/mask pair overlaps with another interface",
                            "eth2 address: The IP/mask pair overlaps with another interface"));
}

TEST(Plan, TheInterfaceOfTheConnectionGoesLast)
{
    model::WantedState all;
    all.endpoints = {wanted("eth1"), wanted("eth2")};
    all.endpoints.at(0).mtu = 1400;
    all.endpoints.at(1).mtu = 1400;
    EXPECT_THAT(requests(plan(server(), all, "10.0.0.5")),
                ElementsAre("eth2: MaxDataSize=1400", "eth1: MaxDataSize=1400"));
    EXPECT_THAT(requests(plan(server(), all)),
                ElementsAre("eth1: MaxDataSize=1400", "eth2: MaxDataSize=1400"));
}

TEST(Plan, TheInterfaceOfTheConnectionMakesRoomWhereItMust)
{
    model::WantedState all;
    all.endpoints = {wanted("eth1"), wanted("eth2")};
    all.endpoints.at(0).ipAddress = "10.7.0.5";
    all.endpoints.at(1).ipAddress = "10.0.0.9";
    EXPECT_THAT(requests(plan(server(), all, "10.0.0.5")),
                ElementsAre("eth1: IPAddress=10.7.0.5", "eth2: IPAddress=10.0.0.9"));
}

// With a router card the customer LAN takes no change without a gateway.
TEST(Plan, AGatewaySetOnAnotherInterfaceIsTheCustomerLansAfterwards)
{
    auto state = server();
    state.setting.routerPresent = true;
    endpoint(state, "eth1").defaultGateway = "";
    model::WantedState all;
    all.endpoints = {wanted("eth1"), wanted("eth2")};
    all.endpoints.at(0).mtu = 1400;
    all.endpoints.at(1).defaultGateway = "10.0.0.1";
    EXPECT_THAT(requests(plan(state, all)),
                ElementsAre("eth2: DefaultGateway=10.0.0.1", "eth1: MaxDataSize=1400"));
    // Not a gateway that cannot be reached from there.
    all.endpoints.at(1).defaultGateway = "203.0.113.1";
    EXPECT_THAT(refusals(plan(state, all)), ElementsAre("eth1 gateway: Invalid IP address format"));
}

TEST(Plan, ImpactsAddUp)
{
    const Impact one{1, 2, 3, 4, 5, 6, 7, 8};
    Impact sum = one;
    sum += one;
    EXPECT_EQ(cost(sum),
              "2 interface, 4 voice, 6 voice stop, 8 dhcp, 10 ems, 12 hosts, 14 resolver, 16 route");
    EXPECT_FALSE(sum.none());
    EXPECT_TRUE(Impact().none());
}

} // namespace

} // namespace lanctl::plan
