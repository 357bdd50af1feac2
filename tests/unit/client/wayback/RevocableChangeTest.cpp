#include "wayback/RevocableChange.hpp"

#include "../plan/Server.hpp"
#include "TemporaryFolder.hpp"
#include "model/WantedText.hpp"
#include "wayback/GuardLoop.hpp"

#include <gmock/gmock.h>
#include <poll.h>

namespace lanctl::wayback
{
namespace
{

using namespace std::chrono_literals;
using plan::server;

/// A change of eth1's MTU on a server that nobody reaches.
class RevocableChangeTest : public testing::Test
{
  protected:
    RevocableChangeTest()
    {
        model::want(m_wanted, "eth1", "mtu", "1400");
        m_plan = plan::plan(m_before, m_wanted);
        m_connection.server = wire::parseServerAddress("http://127.0.0.1:1");
    }

    RevocableChange revocable(std::chrono::seconds countdown = 0s, std::optional<int> endsEntry = {})
    {
        Keeping keeping;
        keeping.server = m_name;
        keeping.countdown = countdown;
        keeping.revertVia = {"http://172.16.2.1:5988"};
        keeping.endsEntry = endsEntry;
        return RevocableChange(m_history, keeping, {m_before, m_plan, m_connection, "10.0.0.5"});
    }

    static apply::Outcome notAsWanted()
    {
        apply::Outcome outcome;
        outcome.remaining.emplace_back();
        return outcome;
    }

    Result result(int number) const { return m_history.entry(number)->result; }

    /// The guard is another process: its result is waited for, usually less than a tenth of a second.
    Result resultOfGuard(int number) const
    {
        for (int i = 0; i < 1000 && result(number) == Result::Open; ++i)
            poll(nullptr, 0, 10);
        return result(number);
    }

    TemporaryFolder m_temporary;
    History m_history{Folder(m_temporary.path())};
    model::ServerState m_before = server();
    model::WantedState m_wanted;
    plan::Plan m_plan;
    wire::ConnectionOptions m_connection;
    std::string m_name = "pbx1";
};

TEST_F(RevocableChangeTest, TheFormerStateIsKeptBeforeAnythingIsSent)
{
    const RevocableChange kept = revocable();
    const Entry entry = *m_history.openEntry();
    EXPECT_EQ(entry.number, kept.number());
    EXPECT_THAT(entry.plan, testing::ElementsAre("eth1 mtu: 1500 -> 1400"));
    EXPECT_THAT(entry.objects, testing::ElementsAre("eth1"));
    EXPECT_THAT(m_history.formerState(kept.number()), testing::HasSubstr("mtu: 1500"));
    ASSERT_EQ(entry.ways.size(), 2U);
    EXPECT_EQ(entry.ways[0].address, "10.0.0.5");
    EXPECT_EQ(entry.ways[1].url, "http://172.16.2.1:5988");
}

TEST_F(RevocableChangeTest, TheNewAddressIsLookedForFirst)
{
    m_wanted = {};
    model::want(m_wanted, "eth1", "address", "10.0.0.77");
    m_plan = plan::plan(m_before, m_wanted);
    revocable();
    EXPECT_EQ(m_history.openEntry()->ways.front().address, "10.0.0.77");
    EXPECT_EQ(m_history.openEntry()->movesTo, ""); // the server is called by a name, which stays
}

TEST_F(RevocableChangeTest, TheHistoryNotesTheNewAddressOfAServerThatIsCalledByIt)
{
    m_wanted = {};
    model::want(m_wanted, "eth1", "address", "10.0.0.77");
    m_plan = plan::plan(m_before, m_wanted);
    m_connection.server = wire::parseServerAddress("https://10.0.0.5");
    m_name = "10.0.0.5:5989";
    revocable();
    EXPECT_EQ(m_history.openEntry()->movesTo, "10.0.0.77:5989");
}

TEST_F(RevocableChangeTest, WithoutConfirmationTheOutcomeIsTheResult)
{
    RevocableChange done = revocable();
    EXPECT_FALSE(done.carriedOut({}));
    EXPECT_EQ(result(done.number()), Result::Done);
}

TEST_F(RevocableChangeTest, AnOutcomeThatIsNotAsWantedIsTold)
{
    RevocableChange kept = revocable();
    EXPECT_FALSE(kept.carriedOut(notAsWanted()));
    EXPECT_EQ(result(kept.number()), Result::NotAsWanted);
}

TEST_F(RevocableChangeTest, ASecondChangeIsRefusedWhileOneIsMade)
{
    const RevocableChange first = revocable();
    EXPECT_THROW(revocable(), AnotherChange);
}

TEST_F(RevocableChangeTest, AChangeThatWasCutOffIsToBeEndedFirst)
{
    int cutOff = 0;
    {
        cutOff = revocable().number();
    }
    EXPECT_THROW(revocable(), AnotherChange);
    RevocableChange rollback = revocable(0s, cutOff);
    rollback.carriedOut({});
    EXPECT_EQ(result(cutOff), Result::TakenBack);
}

TEST_F(RevocableChangeTest, ARollbackThatDoesNotSucceedEndsNothing)
{
    int cutOff = 0;
    {
        cutOff = revocable().number();
    }
    RevocableChange rollback = revocable(0s, cutOff);
    rollback.carriedOut(notAsWanted());
    EXPECT_EQ(result(cutOff), Result::Open);
}

TEST_F(RevocableChangeTest, TheCountdownIsSeenAsSoonAsTheChangeIsMade)
{
    RevocableChange kept = revocable(60s);
    EXPECT_TRUE(kept.carriedOut({}));
    EXPECT_EQ(readProgress(m_history.folder(), kept.number()).value_or(Progress{}).phase,
              Progress::Phase::Waiting);
    m_history.folder().mark(requests::confirm);
    EXPECT_EQ(resultOfGuard(kept.number()), Result::Confirmed);
}

TEST_F(RevocableChangeTest, TheGuardHoldsTheLockUntilItHasEnded)
{
    int number = 0;
    {
        RevocableChange kept = revocable(60s);
        number = kept.number();
        kept.carriedOut({});
    }
    EXPECT_TRUE(Lock::isHeld(m_history.folder()));
    EXPECT_THROW(revocable(), AnotherChange);
    m_history.folder().mark(requests::confirm);
    EXPECT_EQ(resultOfGuard(number), Result::Confirmed);
}

TEST_F(RevocableChangeTest, AnEndOfTheChangingProcessStartsTheCountdown)
{
    int number = 0;
    {
        number = revocable(60s).number();
    }
    EXPECT_TRUE(Lock::isHeld(m_history.folder()));
    m_history.folder().mark(requests::confirm);
    EXPECT_EQ(resultOfGuard(number), Result::Confirmed);
}

TEST_F(RevocableChangeTest, AnIncompleteChangeIsOnItsWayBackAtOnce)
{
    RevocableChange kept = revocable(60s);
    EXPECT_TRUE(kept.carriedOut(notAsWanted()));
    for (int i = 0; i < 1000 && readProgress(m_history.folder(), kept.number())->attempts == 0; ++i)
        poll(nullptr, 0, 10);
    EXPECT_EQ(readProgress(m_history.folder(), kept.number())->phase, Progress::Phase::TakingBack);
    m_history.folder().mark(requests::abandon);
    EXPECT_EQ(resultOfGuard(kept.number()), Result::Abandoned);
}

TEST_F(RevocableChangeTest, WhereNothingWasSentTheGuardEnds)
{
    {
        RevocableChange kept = revocable(60s);
        kept.nothingSent();
        EXPECT_EQ(result(kept.number()), Result::NotAsWanted);
    }
    for (int i = 0; i < 1000 && Lock::isHeld(m_history.folder()); ++i)
        poll(nullptr, 0, 10);
    EXPECT_FALSE(Lock::isHeld(m_history.folder()));
}

} // namespace
} // namespace lanctl::wayback
