#include "config/NetfilterConfig.hpp"

#include "World.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <string>
#include <vector>

namespace
{

using Lines = std::vector<std::string>;

constexpr const char* FILE_NAME = "/kv/etc/kv_netfilter.cfg";
constexpr const char* BACKUP = "/kv/etc/kv_netfilter.cfg.0";
constexpr const char* INSTALLED = "kv_netfilter_icmp 0\nkv_netfilter_arp 0\nkv_netfilter_broadcast 0\n"
                                  "kv_netfilter_ipconflict 0\n";

class NetfilterConfig : public ::testing::Test
{
  protected:
    void TearDown() override
    {
        for (const std::string& problem : world.problems())
            ADD_FAILURE() << problem;
    }

    /// What a read of `key` stores; it must succeed.
    static unsigned stored(const char* key)
    {
        unsigned value = 77;
        EXPECT_EQ(kv_get_netfilter_config(key, &value), 0);
        return value;
    }

    fakes::World world;
};

TEST_F(NetfilterConfig, ReadsEachSwitchFromItsOwnLine)
{
    world.write(FILE_NAME, "# switches\n\nkv_netfilter_icmp 1\nkv_netfilter_arp\t2\n"
                           "kv_netfilter_broadcast   3 9\nkv_netfilter_ipconflict 0\n");
    EXPECT_EQ(stored("kv_netfilter_icmp"), 1U);
    EXPECT_EQ(stored("kv_netfilter_arp"), 2U);
    EXPECT_EQ(stored("kv_netfilter_broadcast"), 3U);
    EXPECT_EQ(stored("kv_netfilter_ipconflict"), 0U);
}

TEST_F(NetfilterConfig, AReadOpensTheFileOnceAndChangesNothing)
{
    world.write(FILE_NAME, INSTALLED);
    stored("kv_netfilter_icmp");
    EXPECT_EQ(world.journal(),
              (Lines{"fopen /kv/etc/kv_netfilter.cfg r", "fclose /kv/etc/kv_netfilter.cfg"}));
    EXPECT_EQ(world.read(FILE_NAME), INSTALLED);
}

TEST_F(NetfilterConfig, AMissingFileReadsAsOff)
{
    EXPECT_EQ(stored("kv_netfilter_icmp"), 0U);
}

TEST_F(NetfilterConfig, AnUnreadableFileReadsAsOff)
{
    world.write(FILE_NAME, "kv_netfilter_icmp 1\n");
    world.failNth(1, "fopen", EACCES);
    EXPECT_EQ(stored("kv_netfilter_icmp"), 0U);
}

TEST_F(NetfilterConfig, AnEmptyFileReadsAsOff)
{
    world.write(FILE_NAME, "");
    EXPECT_EQ(stored("kv_netfilter_icmp"), 0U);
}

TEST_F(NetfilterConfig, AnAbsentKeyReadsAsOff)
{
    world.write(FILE_NAME, "kv_netfilter_arp 1\n");
    EXPECT_EQ(stored("kv_netfilter_icmp"), 0U);
}

TEST_F(NetfilterConfig, AKeyWithoutAValueReadsAsOff)
{
    world.write(FILE_NAME, "kv_netfilter_arp\n");
    EXPECT_EQ(stored("kv_netfilter_arp"), 0U);
}

TEST_F(NetfilterConfig, AValueThatIsNoNumberReadsAsOff)
{
    world.write(FILE_NAME, "kv_netfilter_arp on\n");
    EXPECT_EQ(stored("kv_netfilter_arp"), 0U);
}

TEST_F(NetfilterConfig, ANegativeValueReadsAsOn)
{
    world.write(FILE_NAME, "kv_netfilter_arp -1\n");
    EXPECT_EQ(stored("kv_netfilter_arp"), UINT_MAX);
}

TEST_F(NetfilterConfig, AReadWithoutAnOutputFailsAfterTheFileWasRead)
{
    world.write(FILE_NAME, INSTALLED);
    EXPECT_EQ(kv_get_netfilter_config("kv_netfilter_icmp", nullptr), -1);
    EXPECT_EQ(world.journal(),
              (Lines{"fopen /kv/etc/kv_netfilter.cfg r", "fclose /kv/etc/kv_netfilter.cfg"}));
}

TEST_F(NetfilterConfig, AWriteChangesOneSwitchAndSortsTheFile)
{
    world.write(FILE_NAME, "# switches\nkv_netfilter_icmp 0\nkv_netfilter_arp 1\nkv_netfilter_broadcast 1\n"
                           "kv_netfilter_ipconflict 0\n");
    EXPECT_EQ(kv_set_netfilter_config("kv_netfilter_icmp", 1), 0);
    EXPECT_EQ(world.read(FILE_NAME), "kv_netfilter_arp   1\nkv_netfilter_broadcast   1\n"
                                     "kv_netfilter_icmp   1\nkv_netfilter_ipconflict   0\n");
}

TEST_F(NetfilterConfig, AWriteKeepsThePreviousFileBeside)
{
    world.write(FILE_NAME, INSTALLED);
    world.write(BACKUP, "older\n");
    EXPECT_EQ(kv_set_netfilter_config("kv_netfilter_icmp", 1), 0);
    EXPECT_EQ(world.read(BACKUP), INSTALLED);
}

TEST_F(NetfilterConfig, AWriteReadsMovesAndRewritesTheFile)
{
    world.write(FILE_NAME, INSTALLED);
    kv_set_netfilter_config("kv_netfilter_icmp", 1);
    EXPECT_EQ(world.journal(),
              (Lines{"fopen /kv/etc/kv_netfilter.cfg r", "fclose /kv/etc/kv_netfilter.cfg",
                     "remove /kv/etc/kv_netfilter.cfg.0",
                     "rename /kv/etc/kv_netfilter.cfg /kv/etc/kv_netfilter.cfg.0",
                     "fopen /kv/etc/kv_netfilter.cfg w", "fclose /kv/etc/kv_netfilter.cfg"}));
}

TEST_F(NetfilterConfig, ASwitchWithoutALineCannotBeStored)
{
    world.write(FILE_NAME, "kv_netfilter_arp 1\n");
    EXPECT_EQ(kv_set_netfilter_config("kv_netfilter_icmp", 1), 0);
    EXPECT_EQ(stored("kv_netfilter_icmp"), 0U);
    EXPECT_EQ(world.read(FILE_NAME), "kv_netfilter_arp   1\n") << "the file is rewritten all the same";
    EXPECT_EQ(world.read(BACKUP), "kv_netfilter_arp 1\n");
}

TEST_F(NetfilterConfig, AMissingFileIsNotCreated)
{
    EXPECT_EQ(kv_set_netfilter_config("kv_netfilter_icmp", 1), 0);
    EXPECT_FALSE(world.exists(FILE_NAME));
    EXPECT_FALSE(world.exists(BACKUP));
}

TEST_F(NetfilterConfig, AFileThatCannotBeWrittenIsNotReported)
{
    world.write(FILE_NAME, INSTALLED);
    world.failNth(1, "fopen", EACCES, "kv_netfilter.cfg w");
    EXPECT_EQ(kv_set_netfilter_config("kv_netfilter_icmp", 1), 0);
}

TEST_F(NetfilterConfig, AValueBeyondTheSignedRangeComesOutNegative)
{
    world.write(FILE_NAME, "kv_netfilter_icmp 0\n");
    EXPECT_EQ(kv_set_netfilter_config("kv_netfilter_icmp", 4294967295U), 0);
    EXPECT_EQ(world.read(FILE_NAME), "kv_netfilter_icmp   -1\n");
}

TEST_F(NetfilterConfig, TwoWritesOneAfterTheOtherBothLast)
{
    world.write(FILE_NAME, INSTALLED);
    kv_set_netfilter_config("kv_netfilter_arp", 1);
    kv_set_netfilter_config("kv_netfilter_ipconflict", 1);
    EXPECT_EQ(stored("kv_netfilter_arp"), 1U);
    EXPECT_EQ(stored("kv_netfilter_ipconflict"), 1U);
    EXPECT_EQ(stored("kv_netfilter_icmp"), 0U);
}

} // namespace
