#include "netutil/StoredMtu.hpp"
#include "Environment.hpp"

#include <gtest/gtest.h>

using fakes::Lines;

namespace
{

class StoredMtus : public fakes::ServerTest
{
};

TEST_F(StoredMtus, TheMtuIsReadFromTheRegistryKeyOfTheInterface)
{
    world.registry[{"providers\\ORX_LANProvider\\eth2", "MTUSize"}] = 1492;
    std::uint16_t mtu = 0;
    EXPECT_EQ(0U, storedmtu::read("eth2", mtu));
    EXPECT_EQ(1492, mtu);
    EXPECT_EQ(Lines{"KvuGetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth2 MTUSize"}, world.journal());
}

TEST_F(StoredMtus, AnAbsentValueHasAStatusOfItsOwn)
{
    std::uint16_t mtu = 17;
    EXPECT_EQ(2097165U, storedmtu::read("eth0", mtu));
    EXPECT_EQ(2097165U, storedmtu::absent);
    EXPECT_EQ(0, mtu);
}

TEST_F(StoredMtus, AFailedReadHandsOnItsStatusAndWhatItDelivered)
{
    std::uint16_t mtu = 17;
    world.failNth(1, "KvuGetRegEntryUint16Ex", 5);
    EXPECT_EQ(5U, storedmtu::read("eth0", mtu));
    EXPECT_EQ(0, mtu);
    world.failedReadLeaves = 1234;
    world.failNth(1, "KvuGetRegEntryUint16Ex", 5);
    EXPECT_EQ(5U, storedmtu::read("eth0", mtu));
    EXPECT_EQ(1234, mtu);
}

TEST_F(StoredMtus, TheMtuIsWrittenToTheSamePlace)
{
    storedmtu::write("eth1", 1400);
    EXPECT_EQ(Lines{"KvuSetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize 1400"},
              world.journal());
}

TEST_F(StoredMtus, TheKeyHasTheWholeNameHoweverLongItIs)
{
    std::uint16_t mtu = 0;
    storedmtu::write("fifteen_letters and many more", 1400);
    EXPECT_EQ(0U, storedmtu::read("fifteen_letters and many more", mtu));
    EXPECT_EQ(1400, mtu);
    EXPECT_EQ(
        (Lines{
            "KvuSetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\fifteen_letters and many more MTUSize 1400",
            "KvuGetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\fifteen_letters and many more MTUSize"}),
        world.journal());
}

TEST_F(StoredMtus, AFailedWriteIsIgnored)
{
    world.failNth(1, "KvuSetRegEntryUint16Ex", 5);
    storedmtu::write("eth1", 1400);
    EXPECT_TRUE(world.registry.empty());
}

} // namespace
