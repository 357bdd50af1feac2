#include "Server.hpp"

#include <gmock/gmock.h>

namespace lanctl::plan
{

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* invalid = "Invalid IP address format";

TEST(EndpointPlan, AnInterfaceThatIsAsWantedNeedsNoRequest)
{
    auto eth1 = wanted("eth1");
    eth1.ipAddress = "10.0.0.5";
    eth1.subnetMask = "255.255.255.0";
    eth1.defaultGateway = "10.0.0.1";
    eth1.mtu = 1500;
    eth1.dhcp = false;
    const Plan plan = planOf(server(), eth1);
    EXPECT_TRUE(plan.asWanted());
    EXPECT_THAT(plan.requests, IsEmpty());
    EXPECT_THAT(plan.notes, IsEmpty());
    EXPECT_THAT(plan.warnings, IsEmpty());
    EXPECT_TRUE(plan.impact().none());
}

TEST(EndpointPlan, ARequestCarriesTheKeysAsPropertiesAndListsAllThatItCarries)
{
    auto eth1 = wanted("eth1");
    eth1.mtu = 1400;
    const Plan plan = planOf(server(), eth1);
    ASSERT_EQ(plan.requests.size(), 1U);
    const wire::Modification& sent = plan.requests.front().modification;
    EXPECT_EQ(sent.name.className, "ORX_LANEndpoint");
    EXPECT_EQ(sent.instance.className, "ORX_LANEndpoint");
    EXPECT_THAT(sent.name.keys, ElementsAre(testing::Pair("SystemCreationClassName", "ORX_LANEndpoint"),
                                            testing::Pair("SystemName", "ORX_K30v"),
                                            testing::Pair("CreationClassName", "ORX_LANEndpoint"),
                                            testing::Pair("Name", "eth1")));
    EXPECT_THAT(sent.propertyList, ElementsAre("SystemCreationClassName", "SystemName", "CreationClassName",
                                               "Name", "MaxDataSize"));
    ASSERT_EQ(sent.instance.properties.size(), 5U);
    EXPECT_EQ(sent.instance.properties.at(3).value, "eth1");
    EXPECT_EQ(sent.instance.properties.at(3).type, "string");
    EXPECT_EQ(sent.instance.properties.at(4).value, "1400");
    EXPECT_EQ(sent.instance.properties.at(4).type, "sint32");
}

TEST(EndpointPlan, AnAddressRestartsInterfaceAndVoiceMessagingOnceAndTellsBothServices)
{
    auto eth1 = wanted("eth1");
    eth1.ipAddress = "10.0.0.6";
    const Plan plan = planOf(server(), eth1);
    EXPECT_THAT(changes(plan), ElementsAre("eth1 address: 10.0.0.5 -> 10.0.0.6"));
    EXPECT_THAT(requests(plan), ElementsAre("eth1: IPAddress=10.0.0.6"));
    EXPECT_EQ(cost(plan.impact()), "1 interface, 1 voice, 1 dhcp, 1 ems, 1 hosts");
    EXPECT_THAT(plan.warnings, ElementsAre("Changing IP address will restart Voice Messaging."));
}

TEST(EndpointPlan, TheInternalLanTellsTheDhcpServiceNothing)
{
    auto eth0 = wanted("eth0");
    eth0.ipAddress = "192.168.10.2";
    eth0.subnetMask = "255.255.0.0";
    EXPECT_EQ(cost(planOf(server(), eth0).impact()), "2 interface, 2 voice, 1 ems");
}

TEST(EndpointPlan, TheOamLanHasNoEntryInTheHostsTable)
{
    auto eth2 = wanted("eth2");
    eth2.ipAddress = "172.16.2.2";
    EXPECT_EQ(cost(planOf(server(), eth2).impact()), "1 interface, 1 voice, 1 dhcp, 1 ems");
}

TEST(EndpointPlan, AMaskTellsNoElementManagement)
{
    auto eth1 = wanted("eth1");
    eth1.subnetMask = "255.255.0.0";
    const Plan plan = planOf(server(), eth1);
    EXPECT_EQ(cost(plan.impact()), "1 interface, 1 voice, 1 dhcp");
    EXPECT_THAT(plan.warnings, ElementsAre("Changing subnet mask will restart Voice Messaging."));
}

TEST(EndpointPlan, AddressAndMaskTogetherRestartTwice)
{
    auto eth1 = wanted("eth1");
    eth1.ipAddress = "10.1.0.5";
    eth1.subnetMask = "255.255.0.0";
    eth1.defaultGateway = "10.1.0.1";
    const Plan plan = planOf(server(), eth1);
    EXPECT_THAT(requests(plan),
                ElementsAre("eth1: IPAddress=10.1.0.5 SubnetMask=255.255.0.0 DefaultGateway=10.1.0.1"));
    EXPECT_EQ(cost(plan.impact()), "2 interface, 2 voice, 3 dhcp, 1 ems, 2 hosts, 1 route");
    EXPECT_TRUE(notes(plan, "eth1", "", "one after the other"));
}

TEST(EndpointPlan, AGatewayRestartsNothing)
{
    auto eth1 = wanted("eth1");
    eth1.defaultGateway = "10.0.0.254";
    const Plan plan = planOf(server(), eth1);
    EXPECT_EQ(cost(plan.impact()), "1 dhcp, 1 hosts, 1 route");
    EXPECT_THAT(plan.warnings, IsEmpty());
    EXPECT_THAT(plan.notes, IsEmpty());
}

TEST(EndpointPlan, MtuAndDhcpGoFirstAndStayWhateverFollows)
{
    auto state = server();
    endpoint(state, "eth1").dhcp = true;
    auto eth1 = wanted("eth1");
    eth1.ipAddress = "10.0.0.6";
    eth1.mtu = 1400;
    eth1.dhcp = false;
    const Plan plan = planOf(state, eth1);
    EXPECT_THAT(changes(plan), ElementsAre("eth1 mtu: 1500 -> 1400", "eth1 dhcp: on -> off",
                                           "eth1 address: 10.0.0.5 -> 10.0.0.6"));
    EXPECT_THAT(requests(plan), ElementsAre("eth1: MaxDataSize=1400 isDhcpEnabled=false IPAddress=10.0.0.6"));
    EXPECT_EQ(cost(plan.impact()), "1 interface, 1 voice, 2 dhcp, 1 ems, 1 hosts");
    EXPECT_TRUE(notes(plan, "eth1", "", "keeps them even if it then refuses the rest"));
    EXPECT_THAT(plan.warnings, ElementsAre("Changing DHCP will restart Voice Messaging.",
                                           "Changing IP address will restart Voice Messaging."));
}

TEST(EndpointPlan, DhcpOnStopsVoiceMessagingAtOnce)
{
    auto eth1 = wanted("eth1");
    eth1.dhcp = true;
    const Plan plan = planOf(server(), eth1);
    EXPECT_THAT(requests(plan), ElementsAre("eth1: isDhcpEnabled=true"));
    EXPECT_EQ(cost(plan.impact()), "1 voice stop, 1 dhcp");
    EXPECT_TRUE(notes(plan, "eth1", "dhcp", "Voice messaging stays stopped"));
}

TEST(EndpointPlan, DhcpOffRestartsNothing)
{
    auto state = server();
    endpoint(state, "eth1").dhcp = true;
    auto eth1 = wanted("eth1");
    eth1.dhcp = false;
    const Plan plan = planOf(state, eth1);
    EXPECT_THAT(requests(plan), ElementsAre("eth1: isDhcpEnabled=false"));
    EXPECT_EQ(cost(plan.impact()), "1 dhcp");
    EXPECT_TRUE(notes(plan, "eth1", "dhcp", "keeps the address"));
    EXPECT_FALSE(notes(plan, "eth1", "dhcp", "deleted"));
}

TEST(EndpointPlan, DhcpOffOnAnInterfaceWithoutGatewaySaysThatTheStoredGatewayGoes)
{
    auto state = server();
    endpoint(state, "eth2").dhcp = true;
    auto eth2 = wanted("eth2");
    eth2.dhcp = false;
    EXPECT_TRUE(notes(planOf(state, eth2), "eth2", "dhcp", "the stored one is deleted"));
    eth2.defaultGateway = "10.0.0.1";
    EXPECT_FALSE(notes(planOf(state, eth2), "eth2", "dhcp", "deleted"));
}

TEST(EndpointPlan, DhcpOnAnInterfaceWithoutGatewayIsRefusedHere)
{
    auto eth2 = wanted("eth2");
    eth2.dhcp = true;
    const Plan plan = planOf(server(), eth2);
    EXPECT_THAT(refusals(plan), ElementsAre("eth2 dhcp: DHCP needs an interface with a gateway (own)"));
    EXPECT_THAT(plan.requests, IsEmpty());
}

TEST(EndpointPlan, DhcpOnTheInternalLanIsNotSent)
{
    auto eth0 = wanted("eth0");
    eth0.dhcp = true;
    const Plan plan = planOf(server(), eth0);
    EXPECT_THAT(changes(plan), ElementsAre("eth0 dhcp: off -> on (not sent)"));
    EXPECT_THAT(plan.requests, IsEmpty());
    EXPECT_THAT(plan.refusals, IsEmpty());
    EXPECT_TRUE(notes(plan, "eth0", "dhcp", "never switches"));
    EXPECT_FALSE(plan.asWanted());
}

TEST(EndpointPlan, TheInternalLanTakesAnAddressWhateverDhcpIsWanted)
{
    auto eth0 = wanted("eth0");
    eth0.dhcp = true;
    eth0.ipAddress = "192.168.10.2";
    EXPECT_THAT(requests(planOf(server(), eth0)), ElementsAre("eth0: IPAddress=192.168.10.2"));
}

TEST(EndpointPlan, UnderDhcpAddressMaskAndGatewayHaveNoEffect)
{
    auto state = server();
    endpoint(state, "eth1").dhcp = true;
    auto eth1 = wanted("eth1");
    eth1.ipAddress = "nonsense";
    eth1.subnetMask = "255.0.255.0";
    eth1.defaultGateway = "10.0.0.9";
    eth1.mtu = 1400;
    const Plan plan = planOf(state, eth1);
    EXPECT_THAT(changes(plan),
                ElementsAre("eth1 mtu: 1500 -> 1400", "eth1 address: 10.0.0.5 -> nonsense (not sent)",
                            "eth1 mask: 255.255.255.0 -> 255.0.255.0 (not sent)",
                            "eth1 gateway: 10.0.0.1 -> 10.0.0.9 (not sent)"));
    EXPECT_THAT(requests(plan), ElementsAre("eth1: MaxDataSize=1400"));
    EXPECT_TRUE(plan.impact().none());
    EXPECT_TRUE(notes(plan, "eth1", "mask", "takes its address from DHCP"));
}

TEST(EndpointPlan, AddressesOfARequestThatSwitchesDhcpOnHaveNoEffect)
{
    auto eth1 = wanted("eth1");
    eth1.ipAddress = "10.0.0.6";
    eth1.dhcp = true;
    EXPECT_THAT(requests(planOf(server(), eth1)), ElementsAre("eth1: isDhcpEnabled=true"));
}

TEST(EndpointPlan, ARefusedPlanSendsNothing)
{
    auto eth1 = wanted("eth1");
    eth1.mtu = 1400;
    eth1.ipAddress = "10.0.0.0";
    const Plan plan = planOf(server(), eth1);
    ASSERT_THAT(refusals(plan), ElementsAre(std::string("eth1 address: ") + invalid));
    EXPECT_EQ(plan.refusals.front().why, "The host part of 10.0.0.0/24 is zero.");
    EXPECT_THAT(plan.requests, IsEmpty());
    EXPECT_TRUE(plan.impact().none());
}

TEST(EndpointPlan, EveryRefusalOfAnObjectIsTold)
{
    auto eth1 = wanted("eth1");
    eth1.mtu = 67;
    eth1.ipAddress = "172.16.2.9";
    EXPECT_THAT(refusals(planOf(server(), eth1)),
                ElementsAre("eth1 mtu: MTU size entered is out of the range: (68-1500)",
                            "eth1 address: The IP/mask pair overlaps with another interface"));
}

TEST(EndpointPlan, AnInterfaceThatTheServerDoesNotKnowIsRefusedAsTheServerDoes)
{
    const Plan plan = planOf(server(), wanted("eth7"));
    EXPECT_THAT(refusals(plan),
                ElementsAre("eth7 : Cannot find the corresponding if interface#LAN_ERROR_noIFNameMapping#"));
}

TEST(EndpointPlan, WithARouterCardEvenAnMtuNeedsAGateway)
{
    auto state = server();
    state.setting.routerPresent = true;
    auto eth0 = wanted("eth0");
    eth0.mtu = 1400;
    const Plan refused = planOf(state, eth0);
    ASSERT_THAT(refusals(refused), ElementsAre(std::string("eth0 gateway: ") + invalid));
    EXPECT_EQ(refused.refusals.front().why.find("The server checks the address with every change"), 0U);
    eth0.defaultGateway = "10.0.0.1";
    const Plan plan = planOf(state, eth0);
    EXPECT_THAT(requests(plan), ElementsAre("eth0: MaxDataSize=1400 DefaultGateway=10.0.0.1"));
    EXPECT_TRUE(notes(plan, "eth0", "gateway", "Set it on eth1"));
}

TEST(EndpointPlan, NothingToSendIsNothingToRefuse)
{
    auto state = server();
    state.setting.routerPresent = true;
    auto eth0 = wanted("eth0");
    eth0.dhcp = true;
    EXPECT_THAT(planOf(state, eth0).refusals, IsEmpty());
}

TEST(EndpointPlan, AGatewayOutsideOfTheNetworkIsTakenAndTold)
{
    auto eth1 = wanted("eth1");
    eth1.ipAddress = "10.9.0.5";
    const Plan plan = planOf(server(), eth1);
    EXPECT_THAT(plan.refusals, IsEmpty());
    EXPECT_TRUE(notes(plan, "eth1", "gateway", "The gateway 10.0.0.1 is outside of 10.9.0.5/24"));
    eth1.defaultGateway = "10.9.0.1";
    EXPECT_FALSE(notes(planOf(server(), eth1), "eth1", "gateway", "outside"));
}

TEST(EndpointPlan, ABroadcastAddressIsTakenAndTold)
{
    auto eth2 = wanted("eth2");
    eth2.ipAddress = "172.16.2.255";
    const Plan plan = planOf(server(), eth2);
    EXPECT_THAT(plan.refusals, IsEmpty());
    EXPECT_TRUE(notes(plan, "eth2", "address", "broadcast"));
}

TEST(EndpointPlan, AnEmptyGatewayIsTakenWithoutRouterCard)
{
    auto eth1 = wanted("eth1");
    eth1.defaultGateway = "";
    const Plan plan = planOf(server(), eth1);
    EXPECT_THAT(plan.refusals, IsEmpty());
    EXPECT_TRUE(notes(plan, "eth1", "gateway", "its own networks only"));
}

} // namespace

} // namespace lanctl::plan
