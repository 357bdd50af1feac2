#include "wayback/History.hpp"

#include "TemporaryFolder.hpp"

#include <gtest/gtest.h>

namespace lanctl::wayback
{
namespace
{

Entry mtuChange()
{
    Entry entry;
    entry.server = "10.0.0.5:5988";
    entry.plan = {"eth1 mtu: 1500 -> 1400"};
    entry.objects = {"eth1"};
    entry.hardware = {"02:00:00:00:00:01"};
    entry.ways = {{"http://10.0.0.5:5988/root/cimv2", "10.0.0.6"}};
    entry.movesTo = "10.0.0.6:5988";
    entry.confirmSeconds = 60;
    return entry;
}

class HistoryTest : public testing::Test
{
  protected:
    TemporaryFolder m_temporary;
    History m_history{Folder(m_temporary.path())};
};

TEST_F(HistoryTest, AnEntryIsOpenFromItsBeginningAndCarriesAllThatIsToldOfIt)
{
    const int number = m_history.begin(mtuChange(), "eth1: {}\n");
    const auto entry = m_history.openEntry();
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->number, number);
    EXPECT_EQ(entry->result, Result::Open);
    EXPECT_EQ(entry->server, "10.0.0.5:5988");
    EXPECT_EQ(entry->plan, mtuChange().plan);
    EXPECT_EQ(entry->objects, mtuChange().objects);
    EXPECT_EQ(entry->hardware, mtuChange().hardware);
    ASSERT_EQ(entry->ways.size(), 1U);
    EXPECT_EQ(entry->ways[0].url, "http://10.0.0.5:5988/root/cimv2");
    EXPECT_EQ(entry->ways[0].address, "10.0.0.6");
    EXPECT_EQ(entry->movesTo, "10.0.0.6:5988");
    EXPECT_EQ(entry->confirmSeconds, 60);
    EXPECT_FALSE(entry->user.empty());
    EXPECT_EQ(entry->time.size(), std::string("2026-03-01T12:00:00Z").size());
}

TEST_F(HistoryTest, TheStateBeforeTheChangeIsAFileOfItsOwn)
{
    const int number = m_history.begin(mtuChange(), "endpoints: {}\n");
    EXPECT_EQ(m_history.formerState(number), "endpoints: {}\n");
    EXPECT_EQ(m_history.formerStatePath(number), m_temporary.path() + "/000001.yaml");
}

TEST_F(HistoryTest, AResultEndsTheEntry)
{
    for (const Result result :
         {Result::Done, Result::NotAsWanted, Result::Confirmed, Result::TakenBack, Result::Abandoned}) {
        const int number = m_history.begin(mtuChange(), "");
        m_history.end(number, result);
        EXPECT_FALSE(m_history.openEntry());
        ASSERT_TRUE(m_history.entry(number));
        EXPECT_EQ(m_history.entry(number)->result, result);
    }
}

TEST_F(HistoryTest, NumbersGoOnBehindTheLast)
{
    m_history.end(m_history.begin(mtuChange(), ""), Result::Done);
    EXPECT_EQ(m_history.begin(mtuChange(), ""), 2);
}

TEST_F(HistoryTest, TheLastFiftyStay)
{
    for (int i = 0; i < 53; ++i)
        m_history.end(m_history.begin(mtuChange(), "state"), Result::Done);
    const auto entries = m_history.entries();
    ASSERT_EQ(entries.size(), 50U);
    EXPECT_EQ(entries.back().number, 53);
    EXPECT_THROW(m_history.formerState(1), FolderError);
}

TEST_F(HistoryTest, AnOpenEntryStaysHoweverOldItIs)
{
    const int open = m_history.begin(mtuChange(), "state");
    for (int i = 0; i < 60; ++i)
        m_history.end(m_history.begin(mtuChange(), "state"), Result::Done);
    ASSERT_TRUE(m_history.openEntry());
    EXPECT_EQ(m_history.openEntry()->number, open);
    EXPECT_EQ(m_history.formerState(open), "state");
}

TEST_F(HistoryTest, FilesThatAreNoEntriesArePassedOver)
{
    for (const char* name : {"lock", "progress.json", "000001.yaml", "1.done.json", "000001.what.json",
                             "0000001.done.json", "000001.done.json.new", "00000x.done.json"})
        m_history.folder().write(name, "{}");
    m_history.folder().write("000009.done.json", "not JSON");
    m_history.folder().write("000008.done.json", "{\"time\": 5}");
    EXPECT_TRUE(m_history.entries().empty());
    EXPECT_EQ(m_history.begin(mtuChange(), ""), 10);
}

TEST_F(HistoryTest, WhatIsNotUtf8DoesNotKeepAnEntryFromBeingWritten)
{
    Entry entry = mtuChange();
    entry.plan = {"lan domain: \xFF -> a.example"};
    m_history.begin(entry, "");
    ASSERT_TRUE(m_history.openEntry());
    EXPECT_EQ(m_history.openEntry()->plan.front(), "lan domain: \xEF\xBF\xBD -> a.example");
}

} // namespace
} // namespace lanctl::wayback
