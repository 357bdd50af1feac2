#include "provider/MTUSize.hpp"
#include "Environment.hpp"

#include <gtest/gtest.h>

#include <cerrno>

using fakes::Lines;

namespace
{

const std::string eth1Key = "providers\\ORX_LANProvider\\eth1";
constexpr int absent = 0x20000D;

class StartupMtu : public fakes::ServerTest
{
};

TEST_F(StartupMtu, TheStoredValueWinsOverTheInterface)
{
    world.registry[{eth1Key, "MTUSize"}] = 1400;
    world.interfaces["eth1"].mtu = 1500;
    setMTUSize("eth1");
    EXPECT_EQ(1400, world.interfaces["eth1"].mtu);
    EXPECT_EQ((Lines{"socket", "KvuGetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize",
                     "ioctl SIOCSIFMTU eth1 1400", "close socket"}),
              world.journal());
}

TEST_F(StartupMtu, AnAbsentValueIsSeededFromTheInterfaceAndSetAgain)
{
    world.interfaces["eth1"].mtu = 1496;
    setMTUSize("eth1");
    EXPECT_EQ(1496, (world.registry[{eth1Key, "MTUSize"}]));
    EXPECT_EQ((Lines{"socket", "KvuGetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize",
                     "ioctl SIOCGIFMTU eth1",
                     "KvuSetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize 1496",
                     "ioctl SIOCSIFMTU eth1 1496", "close socket"}),
              world.journal());
}

TEST_F(StartupMtu, OnlyTheLow16BitsOfALiveMtuAreStoredAndSet)
{
    world.interfaces["eth1"].mtu = 65536 + 1000;
    setMTUSize("eth1");
    EXPECT_EQ(1000, (world.registry[{eth1Key, "MTUSize"}]));
    EXPECT_EQ(1000, world.interfaces["eth1"].mtu);
}

TEST_F(StartupMtu, AStoredValueAbove32767IsNotTakenAsNegative)
{
    world.registry[{eth1Key, "MTUSize"}] = 65535;
    setMTUSize("eth1");
    EXPECT_EQ(65535, world.interfaces["eth1"].mtu);
}

TEST_F(StartupMtu, AFailingStoreOfTheSeedDoesNotKeepItFromTheInterface)
{
    world.failNth(1, "KvuSetRegEntryUint16Ex", 7);
    setMTUSize("eth1");
    EXPECT_EQ((Lines{"socket", "ioctl SIOCGIFMTU eth1", "ioctl SIOCSIFMTU eth1 1500", "close socket"}),
              world.journal(fakes::Kernel | fakes::System | fakes::Log));
}

TEST_F(StartupMtu, AMissingInterfaceLeavesTheRegistryWithoutAValue)
{
    world.interfaces.erase("eth1");
    setMTUSize("eth1");
    EXPECT_EQ((Lines{"socket", "KvuGetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize",
                     "ioctl SIOCGIFMTU eth1", "close socket"}),
              world.journal());
    EXPECT_TRUE(world.registry.empty());
}

TEST_F(StartupMtu, AnInterfaceThatRefusesTheValueIsLeftSilently)
{
    world.registry[{eth1Key, "MTUSize"}] = 9000;
    world.failNth(1, "ioctl", EINVAL, "SIOCSIFMTU");
    setMTUSize("eth1");
    EXPECT_EQ((Lines{"socket", "KvuGetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize",
                     "ioctl SIOCSIFMTU eth1 9000", "close socket"}),
              world.journal());
}

TEST_F(StartupMtu, AnyOtherStatusOfTheRegistryLeavesTheInterfaceAlone)
{
    for (const int status : {1, absent - 1, absent + 1, -1}) {
        world.clearJournal();
        world.failedReadLeaves = 1234;
        world.failNth(1, "KvuGetRegEntryUint16Ex", status);
        setMTUSize("eth1");
        EXPECT_EQ((Lines{"socket", "KvuGetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize",
                         "close socket"}),
                  world.journal())
            << status;
    }
}

TEST_F(StartupMtu, ASocketThatCannotBeOpenedIsReportedWithPerrorAlone)
{
    world.failNth(1, "socket", EMFILE);
    setMTUSize("eth1");
    EXPECT_EQ((Lines{"socket", "perror socket: Too many open files"}), world.journal());
}

TEST_F(StartupMtu, ALongNameIsCutToFifteenCharactersForTheKernelAndWholeForTheRegistry)
{
    const std::string value = "5 providers\\ORX_LANProvider\\abcdefghijklmnopqrst MTUSize";
    world.interfaces["abcdefghijklmno"].mtu = 1300;
    setMTUSize("abcdefghijklmnopqrst");
    EXPECT_EQ((Lines{"socket", "KvuGetRegEntryUint16Ex " + value, "ioctl SIOCGIFMTU abcdefghijklmno",
                     "KvuSetRegEntryUint16Ex " + value + " 1300", "ioctl SIOCSIFMTU abcdefghijklmno 1300",
                     "close socket"}),
              world.journal());
}

} // namespace
