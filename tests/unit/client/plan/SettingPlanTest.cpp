#include "Server.hpp"

#include <gmock/gmock.h>

namespace lanctl::plan
{

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

Plan planOf(const model::ServerState& state, const model::WantedSetting& setting)
{
    model::WantedState all;
    all.setting = setting;
    return plan(state, all);
}

model::ServerState serverWithNameServers(const std::string& primary, const std::string& secondary)
{
    auto state = server();
    state.setting.primaryDns = primary;
    state.setting.secondaryDns = secondary;
    return state;
}

Plan planNameServers(const model::ServerState& state, const std::string& primary,
                     const std::string& secondary)
{
    model::WantedSetting setting;
    setting.primaryDns = primary;
    setting.secondaryDns = secondary;
    return planOf(state, setting);
}

TEST(SettingPlan, SettingsThatAreAsWantedNeedNoRequest)
{
    model::WantedSetting setting;
    setting.domainName = "site.example";
    setting.primaryDns = "10.0.0.2";
    setting.icmpFilter = false;
    const Plan plan = planOf(server(), setting);
    EXPECT_TRUE(plan.asWanted());
    EXPECT_THAT(plan.requests, IsEmpty());
    EXPECT_THAT(plan.notes, IsEmpty());
}

TEST(SettingPlan, OneRequestCarriesTheKeyAndAllThatDiffers)
{
    model::WantedSetting setting;
    setting.domainName = "other.example";
    setting.primaryDns = "10.0.0.9";
    setting.icmpFilter = true;
    setting.arpFilter = true;
    setting.broadcastFilter = true;
    setting.conflictWatch = true;
    const Plan plan = planOf(server(), setting);
    EXPECT_THAT(changes(plan),
                ElementsAre("lan domain: site.example -> other.example", "lan dns1: 10.0.0.2 -> 10.0.0.9",
                            "lan icmp-filter: off -> on", "lan arp-filter: off -> on",
                            "lan broadcast-filter: off -> on", "lan conflict-watch: off -> on"));
    EXPECT_THAT(requests(plan),
                ElementsAre("lan: DomainName=other.example PrimaryDNS=10.0.0.9 isIcmpFilterEnabled=true "
                            "isArpFilterEnabled=true isBroadcastFilterEnabled=true "
                            "isIPAddressConflictEnabled=true"));
    ASSERT_EQ(plan.requests.size(), 1U);
    const wire::Modification& sent = plan.requests.front().modification;
    EXPECT_EQ(sent.instance.className, "ORX_LANServiceSetting");
    EXPECT_THAT(sent.name.keys, ElementsAre(testing::Pair("InstanceID", "Kalvor:ORX_LANServiceSetting")));
    EXPECT_EQ(sent.propertyList.front(), "InstanceID");
    EXPECT_EQ(sent.instance.find("isArpFilterEnabled")->type, "boolean");
    EXPECT_EQ(cost(plan.impact()), "1 hosts, 2 resolver");
    EXPECT_TRUE(notes(plan, "lan", "", "one by one"));
    EXPECT_TRUE(notes(plan, "lan", "", "Options and other lines are gone"));
}

TEST(SettingPlan, ASwitchAloneCostsNothingAndIsNothingToNote)
{
    model::WantedSetting setting;
    setting.broadcastFilter = true;
    const Plan plan = planOf(server(), setting);
    EXPECT_THAT(requests(plan), ElementsAre("lan: isBroadcastFilterEnabled=true"));
    EXPECT_TRUE(plan.impact().none());
    EXPECT_THAT(plan.notes, IsEmpty());
}

TEST(SettingPlan, EveryRefusalIsTold)
{
    model::WantedSetting setting;
    setting.domainName = "9site";
    setting.primaryDns = "127.0.0.1";
    setting.secondaryDns = "nowhere";
    const Plan plan = planOf(server(), setting);
    EXPECT_THAT(refusals(plan), ElementsAre("lan domain: Invalid domain name#LAN_ERROR_domainNameBadFormat#",
                                            "lan dns1: Invalid IP address format#LAN_ERROR_invalidIP#",
                                            "lan dns2: Invalid IP address format#LAN_ERROR_invalidIP#"));
    EXPECT_THAT(plan.requests, IsEmpty());
}

TEST(SettingPlan, TwoNewNameServersGoInTheirOrder)
{
    const Plan plan = planNameServers(serverWithNameServers("", ""), "10.0.0.8", "10.0.0.9");
    EXPECT_THAT(requests(plan), ElementsAre("lan: PrimaryDNS=10.0.0.8 SecondaryDNS=10.0.0.9"));
    EXPECT_FALSE(notes(plan, "lan", "dns1", "counts as dns1"));
    EXPECT_EQ(cost(plan.impact()), "2 resolver");
}

// The first line gone, the second moves up, and the server no longer finds it in the second place.
TEST(SettingPlan, TwoNameServersAreRemovedFromTheEnd)
{
    const Plan plan = planNameServers(server(), "", "");
    EXPECT_THAT(requests(plan), ElementsAre("lan: SecondaryDNS= PrimaryDNS="));
    EXPECT_FALSE(notes(plan, "lan", "dns1", "counts as dns1"));
}

TEST(SettingPlan, TheSecondNameServerMovesUpWhenTheFirstGoes)
{
    model::WantedSetting setting;
    setting.primaryDns = "";
    const Plan plan = planOf(server(), setting);
    EXPECT_THAT(requests(plan), ElementsAre("lan: PrimaryDNS="));
    EXPECT_TRUE(notes(plan, "lan", "dns1", "it will read 10.0.0.3, and dns2 empty"));
}

TEST(SettingPlan, ALoneSecondNameServerBecomesTheFirst)
{
    const Plan plan = planNameServers(serverWithNameServers("", ""), "", "10.0.0.9");
    EXPECT_THAT(requests(plan), ElementsAre("lan: SecondaryDNS=10.0.0.9"));
    EXPECT_TRUE(notes(plan, "lan", "dns1", "it will read 10.0.0.9, and dns2 empty"));
}

TEST(SettingPlan, ASecondNameServerIsAddedAndRemovedWithoutMovingTheFirst)
{
    EXPECT_FALSE(notes(planNameServers(serverWithNameServers("10.0.0.2", ""), "10.0.0.2", "10.0.0.9"), "lan",
                       "dns1", "counts as dns1"));
    EXPECT_FALSE(notes(planNameServers(server(), "10.0.0.2", ""), "lan", "dns1", "counts as dns1"));
}

TEST(SettingPlan, ADomainThatHoldsTheServersKeywordIsTold)
{
    model::WantedSetting setting;
    setting.domainName = "nameserver.example";
    const Plan plan = planOf(server(), setting);
    EXPECT_THAT(plan.refusals, IsEmpty());
    EXPECT_TRUE(notes(plan, "lan", "domain", "mistake the search line"));
}

} // namespace

} // namespace lanctl::plan
