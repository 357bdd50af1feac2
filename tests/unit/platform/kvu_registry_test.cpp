#include "kvu_registry.h"

#include "ChildProcess.hpp"
#include "PlatformTest.hpp"

#include <sqlite3.h>

#include <atomic>
#include <chrono>
#include <future>
#include <string>
#include <thread>
#include <vector>

namespace
{

constexpr unsigned int kAbsent = 2097165;
constexpr const char* kMtuKey = "providers\\ORX_LANProvider\\eth0";

class Registry : public PlatformTest
{
  protected:
    /** The stored value; -1 for any status but success. */
    static int stored(const std::string& key, const std::string& name)
    {
        uint16_t value = 0;
        return KvuGetRegEntryUint16Ex(5, key.c_str(), name.c_str(), &value) == 0 ? value : -1;
    }
};

TEST_F(Registry, AValueThatWasNeverWrittenIsAbsent)
{
    uint16_t value = 4711;
    EXPECT_EQ(KvuGetRegEntryUint16Ex(5, kMtuKey, "MTUSize", &value), kAbsent);
    EXPECT_EQ(value, 4711);
}

TEST_F(Registry, ReadingChangesNothing)
{
    uint16_t value = 0;
    EXPECT_EQ(KvuGetRegEntryUint16Ex(5, kMtuKey, "MTUSize", &value), kAbsent);
    EXPECT_FALSE(exists("registry.db"));
    EXPECT_FALSE(exists("events.log"));
}

TEST_F(Registry, AnotherNameUnderAWrittenKeyIsAbsent)
{
    ASSERT_EQ(KvuSetRegEntryUint16Ex(5, "DNS", "primaryDNS_Flag", 1), 0U);
    uint16_t value = 4711;
    EXPECT_EQ(KvuGetRegEntryUint16Ex(5, "DNS", "secondaryDNS_Flag", &value), kAbsent);
    EXPECT_EQ(value, 4711);
}

TEST_F(Registry, AWrittenValueIsReadBack)
{
    EXPECT_EQ(KvuSetRegEntryUint16Ex(5, kMtuKey, "MTUSize", 1400), 0U);
    EXPECT_EQ(stored(kMtuKey, "MTUSize"), 1400);
}

TEST_F(Registry, TheWholeRangeOf16BitsIsKept)
{
    EXPECT_EQ(KvuSetRegEntryUint16Ex(5, "k", "least", 0), 0U);
    EXPECT_EQ(KvuSetRegEntryUint16Ex(5, "k", "most", 65535), 0U);
    EXPECT_EQ(stored("k", "least"), 0);
    EXPECT_EQ(stored("k", "most"), 65535);
}

TEST_F(Registry, ALaterValueReplacesTheEarlierOne)
{
    EXPECT_EQ(KvuSetRegEntryUint16Ex(5, kMtuKey, "MTUSize", 1400), 0U);
    EXPECT_EQ(KvuSetRegEntryUint16Ex(5, kMtuKey, "MTUSize", 1500), 0U);
    EXPECT_EQ(stored(kMtuKey, "MTUSize"), 1500);
}

TEST_F(Registry, AreaPathAndNameTellValuesApart)
{
    EXPECT_EQ(KvuSetRegEntryUint16Ex(5, "key", "name", 1), 0U);
    EXPECT_EQ(KvuSetRegEntryUint16Ex(6, "key", "name", 2), 0U);
    EXPECT_EQ(KvuSetRegEntryUint16Ex(5, "KEY", "name", 3), 0U);
    EXPECT_EQ(KvuSetRegEntryUint16Ex(5, "key", "Name", 4), 0U);
    EXPECT_EQ(stored("key", "name"), 1);
    EXPECT_EQ(stored("KEY", "name"), 3);
    EXPECT_EQ(stored("key", "Name"), 4);
}

TEST_F(Registry, TextThatLooksLikeSqlIsOnlyAName)
{
    const char* name = "x'); DROP TABLE entry; --";
    EXPECT_EQ(KvuSetRegEntryUint16Ex(5, "key", "name", 1), 0U);
    EXPECT_EQ(KvuSetRegEntryUint16Ex(5, "key", name, 2), 0U);
    EXPECT_EQ(stored("key", name), 2);
    EXPECT_EQ(stored("key", "name"), 1);
}

TEST_F(Registry, AValueWrittenByAnotherProcessIsRead)
{
    ASSERT_EQ(inChild([] { return static_cast<int>(KvuSetRegEntryUint16Ex(5, kMtuKey, "MTUSize", 1480)); }),
              0);
    EXPECT_EQ(stored(kMtuKey, "MTUSize"), 1480);
}

TEST_F(Registry, AWriteIsRecordedAsAnEvent)
{
    KvuSetRegEntryUint16Ex(5, kMtuKey, "MTUSize", 1400);
    EXPECT_EQ(events(),
              "KvuSetRegEntryUint16Ex(5, \"providers\\ORX_LANProvider\\eth0\", \"MTUSize\", 1400) = 0\n");
}

TEST_F(Registry, ANameWithLineBreaksStaysOneEventLine)
{
    KvuSetRegEntryUint16Ex(5, "a\nb", "\x1B[0m\t", 7);
    EXPECT_EQ(events(), "KvuSetRegEntryUint16Ex(5, \"a\\nb\", \"\\x1B[0m\\x09\", 7) = 0\n");
}

TEST_F(Registry, TwoProcessesThatCreateItTogetherLoseNothing)
{
    Signal start;
    const auto writer = [&start](const std::string& name) {
        return [&start, name] {
            start.wait();
            for (uint16_t i = 0; i < 50; ++i) {
                if (KvuSetRegEntryUint16Ex(5, name.c_str(), std::to_string(i).c_str(), i) != 0)
                    return 1;
            }
            return 0;
        };
    };
    ChildProcess first(writer("first"));
    ChildProcess second(writer("second"));
    start.send();
    start.send();
    EXPECT_EQ(first.wait(), 0);
    EXPECT_EQ(second.wait(), 0);
    for (uint16_t i = 0; i < 50; ++i) {
        EXPECT_EQ(stored("first", std::to_string(i)), i);
        EXPECT_EQ(stored("second", std::to_string(i)), i);
    }
}

TEST_F(Registry, AWriterWaitsForAnotherOne)
{
    ASSERT_EQ(KvuSetRegEntryUint16Ex(5, "key", "name", 1), 0U);
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(path("registry.db").c_str(), &other), SQLITE_OK);
    // The waiting writer looks into the file now and then, which may hold the commit up for a moment.
    sqlite3_busy_timeout(other, 5000);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    auto waiting = std::async(std::launch::async, [] { return KvuSetRegEntryUint16Ex(5, "key", "name", 2); });
    EXPECT_EQ(waiting.wait_for(std::chrono::milliseconds(10)), std::future_status::timeout);
    EXPECT_EQ(stored("key", "name"), 1);
    EXPECT_EQ(sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(waiting.get(), 0U);
    EXPECT_EQ(stored("key", "name"), 2);
    sqlite3_close(other);
}

TEST_F(Registry, ThreadsReadAndWriteTogether)
{
    std::atomic<int> failures = 0;
    const auto work = [&failures](const std::string& name) {
        for (uint16_t i = 1; i <= 10; ++i) {
            if (KvuSetRegEntryUint16Ex(5, "threads", name.c_str(), i) != 0 || stored("threads", name) != i)
                ++failures;
        }
    };
    std::thread first(work, "first");
    std::thread second(work, "second");
    first.join();
    second.join();
    EXPECT_EQ(failures, 0);
}

} // namespace
