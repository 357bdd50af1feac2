#include "wayback/Histories.hpp"

#include "TemporaryFolder.hpp"

#include <cstdlib>
#include <gtest/gtest.h>

namespace lanctl::wayback
{
namespace
{

class HistoriesTest : public testing::Test
{
  protected:
    HistoriesTest() { setenv("XDG_STATE_HOME", m_temporary.path().c_str(), 1); }
    ~HistoriesTest() override { unsetenv("XDG_STATE_HOME"); }

    static int begin(const History& history, const std::string& server, const std::string& movesTo)
    {
        Entry entry;
        entry.server = server;
        entry.movesTo = movesTo;
        return history.begin(entry, "endpoints: {}\n");
    }

    static bool isTheSame(const History& one, const History& other)
    {
        return one.folder().pathOf("") == other.folder().pathOf("");
    }

    TemporaryFolder m_temporary;
};

TEST_F(HistoriesTest, EachServerHasItsOwn)
{
    begin(historyOf("10.0.0.5:5988"), "10.0.0.5:5988", "");
    EXPECT_EQ(historyOf("10.0.0.5:5988").entries().size(), 1U);
    EXPECT_TRUE(historyOf("10.0.0.6:5988").entries().empty());
    EXPECT_EQ(allHistories().size(), 2U);
}

TEST_F(HistoriesTest, AServerThatIsMovedKeepsItsHistory)
{
    const History history = historyOf("10.0.0.5:5988");
    const int number = begin(history, "10.0.0.5:5988", "10.0.0.77:5988");
    EXPECT_TRUE(isTheSame(historyOf("10.0.0.77:5988"), history)); // while it is on its way, too
    history.end(number, Result::Done);
    EXPECT_TRUE(isTheSame(historyOf("10.0.0.77:5988"), history));
    EXPECT_TRUE(isTheSame(historyOf("10.0.0.5:5988"), history));
    EXPECT_FALSE(isTheSame(historyOf("10.0.0.77:5989"), history));
}

TEST_F(HistoriesTest, AServerThatIsBackIsNotFoundWhereItWas)
{
    const History history = historyOf("10.0.0.5:5988");
    history.end(begin(history, "10.0.0.5:5988", "10.0.0.77:5988"), Result::TakenBack);
    EXPECT_FALSE(isTheSame(historyOf("10.0.0.77:5988"), history));
}

TEST_F(HistoriesTest, ItIsFoundAfterTheMoveHasLeftTheHistory)
{
    const History history = historyOf("10.0.0.5:5988");
    history.end(begin(history, "10.0.0.5:5988", "10.0.0.77:5988"), Result::Done);
    for (int i = 0; i < 60; ++i)
        history.end(begin(historyOf("10.0.0.77:5988"), "10.0.0.77:5988", ""), Result::Done);
    EXPECT_EQ(history.entries().front().server, "10.0.0.77:5988");
    EXPECT_TRUE(isTheSame(historyOf("10.0.0.77:5988"), history));
}

TEST_F(HistoriesTest, AServersOwnHistoryComesFirst)
{
    const History own = historyOf("10.0.0.77:5988");
    begin(own, "10.0.0.77:5988", "");
    begin(historyOf("10.0.0.5:5988"), "10.0.0.5:5988", "10.0.0.77:5988");
    EXPECT_TRUE(isTheSame(historyOf("10.0.0.77:5988"), own));
}

} // namespace
} // namespace lanctl::wayback
