#include "wayback/Keeper.hpp"

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
class KeeperTest : public testing::Test
{
  protected:
    KeeperTest()
    {
        model::want(m_wanted, "eth1", "mtu", "1400");
        m_plan = plan::plan(m_before, m_wanted);
        m_connection.server = wire::parseServerAddress("http://127.0.0.1:1");
    }

    Keeper keeper(std::chrono::seconds countdown = 0s, std::optional<int> endsEntry = {})
    {
        Keeping keeping;
        keeping.server = "pbx1";
        keeping.countdown = countdown;
        keeping.revertVia = {"http://172.16.2.1:5988"};
        keeping.endsEntry = endsEntry;
        return Keeper(m_history, keeping, {m_before, m_plan, m_connection, "10.0.0.5"});
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
};

TEST_F(KeeperTest, TheFormerStateIsKeptBeforeAnythingIsSent)
{
    const Keeper kept = keeper();
    const Entry entry = *m_history.openEntry();
    EXPECT_EQ(entry.number, kept.number());
    EXPECT_THAT(entry.plan, testing::ElementsAre("eth1 mtu: 1500 -> 1400"));
    EXPECT_THAT(entry.objects, testing::ElementsAre("eth1"));
    EXPECT_THAT(m_history.formerState(kept.number()), testing::HasSubstr("mtu: 1500"));
    ASSERT_EQ(entry.ways.size(), 2U);
    EXPECT_EQ(entry.ways[0].address, "10.0.0.5");
    EXPECT_EQ(entry.ways[1].url, "http://172.16.2.1:5988");
}

TEST_F(KeeperTest, TheNewAddressIsLookedForFirst)
{
    m_wanted = {};
    model::want(m_wanted, "eth1", "address", "10.0.0.77");
    m_plan = plan::plan(m_before, m_wanted);
    keeper();
    EXPECT_EQ(m_history.openEntry()->ways.front().address, "10.0.0.77");
}

TEST_F(KeeperTest, WithoutConfirmationTheOutcomeIsTheResult)
{
    Keeper done = keeper();
    EXPECT_FALSE(done.carriedOut({}));
    EXPECT_EQ(result(done.number()), Result::Done);
}

TEST_F(KeeperTest, AnOutcomeThatIsNotAsWantedIsTold)
{
    Keeper kept = keeper();
    EXPECT_FALSE(kept.carriedOut(notAsWanted()));
    EXPECT_EQ(result(kept.number()), Result::NotAsWanted);
}

TEST_F(KeeperTest, ASecondChangeIsRefusedWhileOneIsMade)
{
    const Keeper first = keeper();
    EXPECT_THROW(keeper(), AnotherChange);
}

TEST_F(KeeperTest, AChangeThatWasCutOffIsToBeEndedFirst)
{
    int cutOff = 0;
    {
        cutOff = keeper().number();
    }
    EXPECT_THROW(keeper(), AnotherChange);
    Keeper rollback = keeper(0s, cutOff);
    rollback.carriedOut({});
    EXPECT_EQ(result(cutOff), Result::TakenBack);
}

TEST_F(KeeperTest, ARollbackThatDoesNotSucceedEndsNothing)
{
    int cutOff = 0;
    {
        cutOff = keeper().number();
    }
    Keeper rollback = keeper(0s, cutOff);
    rollback.carriedOut(notAsWanted());
    EXPECT_EQ(result(cutOff), Result::Open);
}

TEST_F(KeeperTest, TheCountdownIsSeenAsSoonAsTheChangeIsMade)
{
    Keeper kept = keeper(60s);
    EXPECT_TRUE(kept.carriedOut({}));
    EXPECT_EQ(readProgress(m_history.folder(), kept.number()).value_or(Progress{}).phase,
              Progress::Phase::Waiting);
    m_history.folder().mark(requests::confirm);
    EXPECT_EQ(resultOfGuard(kept.number()), Result::Confirmed);
}

TEST_F(KeeperTest, TheGuardHoldsTheLockUntilItHasEnded)
{
    int number = 0;
    {
        Keeper kept = keeper(60s);
        number = kept.number();
        kept.carriedOut({});
    }
    EXPECT_TRUE(Lock::isHeld(m_history.folder()));
    EXPECT_THROW(keeper(), AnotherChange);
    m_history.folder().mark(requests::confirm);
    EXPECT_EQ(resultOfGuard(number), Result::Confirmed);
}

TEST_F(KeeperTest, AnEndOfTheChangingProcessStartsTheCountdown)
{
    int number = 0;
    {
        number = keeper(60s).number();
    }
    EXPECT_TRUE(Lock::isHeld(m_history.folder()));
    m_history.folder().mark(requests::confirm);
    EXPECT_EQ(resultOfGuard(number), Result::Confirmed);
}

TEST_F(KeeperTest, AnIncompleteChangeIsOnItsWayBackAtOnce)
{
    Keeper kept = keeper(60s);
    EXPECT_TRUE(kept.carriedOut(notAsWanted()));
    for (int i = 0; i < 1000 && readProgress(m_history.folder(), kept.number())->attempts == 0; ++i)
        poll(nullptr, 0, 10);
    EXPECT_EQ(readProgress(m_history.folder(), kept.number())->phase, Progress::Phase::TakingBack);
    m_history.folder().mark(requests::abandon);
    EXPECT_EQ(resultOfGuard(kept.number()), Result::Abandoned);
}

TEST_F(KeeperTest, WhereNothingWasSentTheGuardEnds)
{
    {
        Keeper kept = keeper(60s);
        kept.nothingSent();
        EXPECT_EQ(result(kept.number()), Result::NotAsWanted);
    }
    for (int i = 0; i < 1000 && Lock::isHeld(m_history.folder()); ++i)
        poll(nullptr, 0, 10);
    EXPECT_FALSE(Lock::isHeld(m_history.folder()));
}

} // namespace
} // namespace lanctl::wayback
