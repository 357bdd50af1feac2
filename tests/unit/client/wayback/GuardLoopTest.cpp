#include "wayback/GuardLoop.hpp"

#include "TemporaryFolder.hpp"

#include <gtest/gtest.h>
#include <map>

namespace lanctl::wayback
{
namespace
{

using namespace std::chrono_literals;

/// The loop in a time of its own: a pause passes at once, and what is to happen meanwhile happens.
class GuardLoopTest : public testing::Test
{
  protected:
    GuardLoopTest() { m_number = m_history.begin({}, "state"); }

    void at(milliseconds time, std::function<void()> happening) { m_happenings.emplace(time, happening); }
    void requestAt(milliseconds time, const char* request)
    {
        at(time, [this, request] { m_history.folder().mark(request); });
    }

    void run(std::vector<Attempt> attempts = {})
    {
        Surroundings surroundings;
        surroundings.now = [this] { return m_now; };
        surroundings.pause = [this](milliseconds time) { pass(time); };
        surroundings.takeBack = [this, attempts, next = std::size_t{0}]() mutable {
            m_tries.push_back(m_now - m_start);
            return next < attempts.size() ? attempts[next++] : done();
        };
        GuardLoop loop(m_history, m_number, 60s, surroundings);
        loop.start();
        loop.run();
    }

    Result result() const { return m_history.entry(m_number)->result; }
    Progress progress() const { return *readProgress(m_history.folder(), m_number); }

    static Attempt done()
    {
        Attempt attempt;
        attempt.done = true;
        return attempt;
    }
    static Attempt failed()
    {
        Attempt attempt;
        attempt.trouble = "cannot connect";
        return attempt;
    }

    TemporaryFolder m_temporary;
    History m_history{Folder(m_temporary.path())};
    int m_number = 0;
    const milliseconds m_start = 5000s;
    milliseconds m_now = m_start;
    std::vector<milliseconds> m_tries;

  private:
    void pass(milliseconds time)
    {
        m_now += time;
        while (!m_happenings.empty() && m_start + m_happenings.begin()->first <= m_now) {
            m_happenings.begin()->second();
            m_happenings.erase(m_happenings.begin());
        }
    }

    std::multimap<milliseconds, std::function<void()>> m_happenings;
};

TEST_F(GuardLoopTest, AConfirmedChangeStays)
{
    requestAt(30s, requests::confirm);
    run();
    EXPECT_EQ(result(), Result::Confirmed);
    EXPECT_TRUE(m_tries.empty());
    EXPECT_EQ(m_now - m_start, 30s);
}

TEST_F(GuardLoopTest, WithoutConfirmationTheChangeIsTakenBackWhenTheTimeIsUp)
{
    run();
    EXPECT_EQ(result(), Result::TakenBack);
    EXPECT_EQ(m_tries, std::vector<milliseconds>{60s});
}

TEST_F(GuardLoopTest, AConfirmationInTheLastMomentCounts)
{
    requestAt(59900ms, requests::confirm);
    run();
    EXPECT_EQ(result(), Result::Confirmed);
}

TEST_F(GuardLoopTest, AConfirmationThatComesTooLateDoesNotStopTheWayBack)
{
    requestAt(60500ms, requests::confirm);
    run({failed()});
    EXPECT_EQ(result(), Result::TakenBack);
}

TEST_F(GuardLoopTest, ItIsTakenBackAtOnceWhenSomebodyAsksForIt)
{
    requestAt(10s, requests::takeBackNow);
    run();
    EXPECT_EQ(result(), Result::TakenBack);
    EXPECT_EQ(m_tries, std::vector<milliseconds>{10s});
}

TEST_F(GuardLoopTest, ItTriesAgainWithAGrowingPauseUntilItSucceeds)
{
    run(std::vector<Attempt>(9, failed()));
    EXPECT_EQ(result(), Result::TakenBack);
    std::vector<milliseconds> pauses;
    for (std::size_t i = 1; i < m_tries.size(); ++i)
        pauses.push_back(m_tries[i] - m_tries[i - 1]);
    EXPECT_EQ(pauses, (std::vector<milliseconds>{1s, 2s, 4s, 8s, 16s, 32s, 60s, 60s, 60s}));
}

TEST_F(GuardLoopTest, AbandoningEndsTheTries)
{
    requestAt(65s, requests::abandon);
    run(std::vector<Attempt>(99, failed()));
    EXPECT_EQ(result(), Result::Abandoned);
    EXPECT_EQ(m_tries.size(), 3U);
}

TEST_F(GuardLoopTest, AbandoningIsNoMatterWhileTheCountdownRuns)
{
    requestAt(10s, requests::abandon);
    run({failed()});
    EXPECT_EQ(result(), Result::TakenBack);
}

TEST_F(GuardLoopTest, ARequestShortensThePause)
{
    requestAt(61500ms, requests::takeBackNow);
    run({failed(), failed()});
    EXPECT_EQ(m_tries, (std::vector<milliseconds>{60s, 61s, 61500ms}));
}

TEST_F(GuardLoopTest, OthersSeeWhatTheGuardWaitsFor)
{
    at(1s, [this] {
        EXPECT_EQ(progress().phase, Progress::Phase::Waiting);
        EXPECT_EQ(progress().until, m_start + 60s);
    });
    at(60500ms, [this] {
        EXPECT_EQ(progress().phase, Progress::Phase::TakingBack);
        EXPECT_EQ(progress().attempts, 1);
        EXPECT_EQ(progress().trouble, "cannot connect");
        EXPECT_EQ(progress().until, m_start + 61s);
    });
    run({failed()});
    EXPECT_EQ(progress().phase, Progress::Phase::Ended);
}

TEST_F(GuardLoopTest, WhatCouldNotBeTakenBackIsTold)
{
    Attempt attempt = done();
    plan::Refusal refusal;
    refusal.object = "lan";
    refusal.key = "domain";
    refusal.text = "Invalid domain name";
    attempt.impossible.push_back(refusal);
    run({attempt});
    EXPECT_EQ(progress().left, std::vector<std::string>{"lan domain: Invalid domain name"});
}

TEST_F(GuardLoopTest, AFullDiskStopsNeitherTheWayBackNorItsResult)
{
    // The progress cannot be written; a result is only a new name for the entry's file.
    m_history.folder().remove("progress.json");
    ASSERT_EQ(std::system(("mkdir " + m_temporary.path() + "/progress.json.new").c_str()), 0);
    run();
    EXPECT_EQ(result(), Result::TakenBack);
}

TEST_F(GuardLoopTest, RequestsForAnEarlierChangeAreForgotten)
{
    for (const char* request : {requests::confirm, requests::takeBackNow, requests::abandon})
        m_history.folder().mark(request);
    forgetRequests(m_history.folder());
    run();
    EXPECT_EQ(result(), Result::TakenBack);
    EXPECT_EQ(m_now - m_start, 60s);
}

TEST_F(GuardLoopTest, TheProgressOfAnotherChangeIsNotThisOnes)
{
    run();
    EXPECT_FALSE(readProgress(m_history.folder(), m_number + 1));
}

} // namespace
} // namespace lanctl::wayback
