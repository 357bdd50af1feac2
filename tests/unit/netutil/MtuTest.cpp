#include "Environment.hpp"
#include "netutil/InterfaceMtu.hpp"

#include <gtest/gtest.h>

#include <cerrno>

using fakes::Lines;

namespace
{

class Mtus : public fakes::ServerTest
{
};

TEST_F(Mtus, TheMtuIsRead)
{
    world.interfaces["eth1"].mtu = 1496;
    std::uint32_t mtu = 0;
    EXPECT_EQ(0, kv_get_mtu("eth1", &mtu));
    EXPECT_EQ(1496U, mtu);
    EXPECT_EQ((Lines{"socket", "ioctl SIOCGIFMTU eth1", "close socket"}), world.journal());
}

TEST_F(Mtus, TheMtuOfAMissingInterfaceCannotBeRead)
{
    std::uint32_t mtu = 17;
    EXPECT_EQ(-1, kv_get_mtu("eth7", &mtu));
    EXPECT_EQ(17U, mtu);
    EXPECT_EQ((Lines{"socket", "ioctl SIOCGIFMTU eth7", "close socket"}), world.journal());
}

TEST_F(Mtus, ReadingWithoutASocketFailsWithPerror)
{
    world.failNth(1, "socket", EMFILE);
    std::uint32_t mtu = 17;
    EXPECT_EQ(-1, kv_get_mtu("eth1", &mtu));
    EXPECT_EQ(17U, mtu);
    EXPECT_EQ((Lines{"socket", "perror socket: Too many open files"}), world.journal());
}

TEST_F(Mtus, TheMtuIsSetAndReadBackOnASecondSocket)
{
    EXPECT_EQ(0, kv_set_mtu("eth1", 1400));
    EXPECT_EQ(1400, world.interfaces["eth1"].mtu);
    EXPECT_EQ((Lines{"socket", "ioctl SIOCSIFMTU eth1 1400", "socket", "ioctl SIOCGIFMTU eth1",
                     "close socket", "close socket"}),
              world.journal());
}

TEST_F(Mtus, AnMtuThatTheKernelRefusesFailsSilently)
{
    world.failNth(1, "ioctl", EINVAL, "SIOCSIFMTU");
    EXPECT_EQ(-1, kv_set_mtu("eth1", 9000));
    EXPECT_EQ((Lines{"socket", "ioctl SIOCSIFMTU eth1 9000", "close socket"}), world.journal());
}

TEST_F(Mtus, SettingWithoutASocketFailsWithPerror)
{
    world.failNth(1, "socket", ENFILE);
    EXPECT_EQ(-1, kv_set_mtu("eth1", 1400));
    EXPECT_EQ(1500, world.interfaces["eth1"].mtu);
    EXPECT_EQ((Lines{"socket", "perror socket: Too many open files in system"}), world.journal());
}

TEST_F(Mtus, ReadingBackMayFailWithoutMakingTheSettingFail)
{
    world.failNth(1, "ioctl", EIO, "SIOCGIFMTU");
    EXPECT_EQ(0, kv_set_mtu("eth1", 1400));
    EXPECT_EQ((Lines{"socket", "ioctl SIOCSIFMTU eth1 1400", "socket", "ioctl SIOCGIFMTU eth1",
                     "close socket", "close socket"}),
              world.journal());

    world.clearJournal();
    world.failNth(2, "socket", EMFILE);
    EXPECT_EQ(0, kv_set_mtu("eth1", 1300));
    EXPECT_EQ((Lines{"socket", "ioctl SIOCSIFMTU eth1 1300", "socket", "perror socket: Too many open files",
                     "close socket"}),
              world.journal());
}

} // namespace
