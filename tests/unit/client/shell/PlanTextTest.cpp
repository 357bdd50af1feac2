#include "shell/PlanText.hpp"

#include <gtest/gtest.h>

using namespace lanctl;
using namespace lanctl::shell;

namespace
{

plan::Change change(const std::string& object, const std::string& key, const std::string& from,
                    const std::string& to)
{
    return {object, key, "", from, to, true};
}

plan::Plan planOf(const std::vector<plan::Change>& changes)
{
    plan::Plan plan;
    plan.changes = changes;
    return plan;
}

} // namespace

TEST(PlanText, showsChangesInColumns)
{
    std::vector<plan::Change> changes{change("eth1", "mtu", "1500", "1400"),
                                      change("lan", "dns2", "10.0.0.3", "")};
    changes[0].sent = false;
    EXPECT_EQ(changesText(changes), "eth1  mtu   1500      ->  1400  (without effect, not sent)\n"
                                    "lan   dns2  10.0.0.3  ->  none\n");
}

TEST(PlanText, countsTheImpact)
{
    plan::Impact impact;
    EXPECT_EQ(impactText(impact), "no interruption");
    impact.elementManagementNotices = 1;
    EXPECT_EQ(impactText(impact), "no interruption, 1 notice to the element management");
    impact.interfaceRestarts = 2;
    impact.voiceMessagingRestarts = 1;
    impact.voiceMessagingStops = 1;
    impact.dhcpServiceNotices = 2;
    EXPECT_EQ(
        impactText(impact),
        "2 interface restarts, 1 voice messaging restart, 1 voice messaging stop, 2 notices to the DHCP "
        "service, 1 notice to the element management");
    plan::Impact quiet;
    quiet.hostsTableRewrites = 1;
    quiet.resolverFileRewrites = 2;
    quiet.defaultRouteMoves = 1;
    EXPECT_EQ(impactText(quiet),
              "no interruption, 1 rewrite of the hosts table, 2 rewrites of the resolver file, "
              "1 move of the default route");
}

TEST(PlanText, showsRefusalsWarningsAndNotes)
{
    plan::Plan plan = planOf({change("lan", "domain", "a", "_\x1B")});
    plan.refusals.push_back(
        {"lan", "domain", "Invalid domain name", "LAN_ERROR_domainNameBadFormat", true, "So it is"});
    plan.warnings.emplace_back("Careful.");
    plan.notes.push_back({"lan", "", "Lines are gone."});
    EXPECT_EQ(planText(plan),
              "lan  domain  a  ->  _\\x1b\n"
              "Refused: lan domain: Invalid domain name (LAN_ERROR_domainNameBadFormat). So it is.\n"
              "The server warns: Careful.\n"
              "Note: lan: Lines are gone.\n");
}

TEST(PlanText, ofASuccessIsOneWord)
{
    EXPECT_EQ(outcomeText(apply::Outcome{}, plan::Plan{}), "Done.\n");
}

TEST(PlanText, ofARefusalSaysWhatIsInForceAllTheSame)
{
    apply::Outcome outcome;
    outcome.refused = apply::Outcome::Refused{"eth1", wire::CimError(1, "Invalid subnet format", "")};
    outcome.remaining = {change("eth1", "address", "10.0.0.5", "10.0.0.6")};
    const plan::Plan plan =
        planOf({change("eth1", "mtu", "1500", "1400"), change("eth1", "address", "10.0.0.5", "10.0.0.6")});
    EXPECT_EQ(outcomeText(outcome, plan),
              "eth1: Invalid subnet format: the mask is not a run of ones followed by zeros; nothing of "
              "address, mask and gateway was changed.\n"
              "In force all the same: mtu.\n"
              "eth1 address is 10.0.0.5, not 10.0.0.6\n");
}

TEST(PlanText, ofALostAnswerSaysWhatIsTrue)
{
    const wire::Failure cutOff(wire::Failure::Kind::NoCimAnswer, "It broke.", "", true);
    apply::Outcome outcome;
    outcome.lost.push_back({"eth1", cutOff});
    EXPECT_EQ(outcomeText(outcome, plan::Plan{}), "It broke. eth1 has been changed all the same.\nDone.\n");
    outcome.remaining = {change("eth1", "mtu", "1500", "1400")};
    EXPECT_EQ(outcomeText(outcome, plan::Plan{}),
              "It broke. eth1 has not been changed as wanted.\neth1 mtu is 1500, not 1400\n");
    outcome.unread = cutOff;
    EXPECT_EQ(
        outcomeText(outcome, plan::Plan{}),
        "It broke. Whether eth1 has been changed is not known.\nThe result cannot be read back: It broke.\n");
}

TEST(PlanText, ofAServerThatWentAwaySaysSo)
{
    apply::Outcome outcome;
    outcome.stopped = wire::Failure(wire::Failure::Kind::NotReached, "It is away.");
    outcome.followedTo = "10.0.0.6";
    EXPECT_EQ(outcomeText(outcome, plan::Plan{}), "The server is now reached at 10.0.0.6.\nIt is away.\n");
}
