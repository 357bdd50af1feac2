#include "netutil/InterfaceState.hpp"
#include "Environment.hpp"

#include <gtest/gtest.h>

#include <net/if.h>

#include <cerrno>

using fakes::Lines;

namespace
{

constexpr int someFlags = IFF_BROADCAST | IFF_MULTICAST;

// How the two state functions work on an interface whose driver answers no MII request.
const Lines stateJournal = {"socket",
                            "ioctl SIOCGIFFLAGS eth1",
                            "socket",
                            "ioctl SIOCGMIIPHY eth1",
                            "ioctl SIOCDEVPRIVATE eth1",
                            "close socket",
                            "close socket"};

class InterfaceStates : public fakes::ServerTest
{
  protected:
    void setFlags(int flags) { world.interfaces["eth1"].flags = static_cast<short>(flags); }

    void takeLinkAway()
    {
        world.interfaces["eth1"].mii = fakes::Interface::Mii::Standard;
        world.interfaces["eth1"].registers = {0x1000, 0x7849, 0, 0, 0x01E1, 0, 0, 0};
    }

    std::uint16_t enabledState()
    {
        std::uint16_t state = 0;
        EXPECT_EQ(0, kv_get_enabledState("eth1", &state));
        return state;
    }

    std::uint16_t operationalStatus()
    {
        std::uint16_t status = 0;
        EXPECT_EQ(0, kv_get_operationalStatus("eth1", &status));
        return status;
    }
};

TEST_F(InterfaceStates, EveryInterfaceIsEthernetAndNoneIsAsked)
{
    std::uint16_t type = 0;
    EXPECT_EQ(0, kv_get_IfType(&type));
    EXPECT_EQ(6, type);
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(InterfaceStates, TheEnabledStateFollowsTheUpFlag)
{
    setFlags(someFlags | IFF_UP | IFF_RUNNING);
    EXPECT_EQ(1, enabledState());
    setFlags(someFlags | IFF_UP);
    EXPECT_EQ(1, enabledState());
    setFlags(someFlags | IFF_RUNNING);
    EXPECT_EQ(2, enabledState());
    setFlags(someFlags);
    EXPECT_EQ(2, enabledState());
}

TEST_F(InterfaceStates, TheOperationalStatusFollowsTheRunningFlag)
{
    setFlags(someFlags | IFF_UP | IFF_RUNNING);
    EXPECT_EQ(1, operationalStatus());
    setFlags(someFlags | IFF_UP);
    EXPECT_EQ(2, operationalStatus());
    setFlags(someFlags | IFF_RUNNING);
    EXPECT_EQ(1, operationalStatus());
    setFlags(someFlags);
    EXPECT_EQ(2, operationalStatus());
}

TEST_F(InterfaceStates, AnInterfaceThatIsUpWithoutALinkIsEnabledButNotOperational)
{
    takeLinkAway();
    setFlags(IFF_UP | IFF_RUNNING);
    EXPECT_EQ(1, enabledState());
    EXPECT_EQ(2, operationalStatus());
}

TEST_F(InterfaceStates, WithoutTheUpFlagTheLinkDoesNotMatter)
{
    takeLinkAway();
    setFlags(IFF_RUNNING);
    EXPECT_EQ(2, enabledState());
    EXPECT_EQ(1, operationalStatus());
}

TEST_F(InterfaceStates, ASpeedThatCannotBeReadCountsAsNoLink)
{
    world.failNth(2, "socket", EMFILE);
    EXPECT_EQ(2, operationalStatus());
    EXPECT_EQ((Lines{"socket", "ioctl SIOCGIFFLAGS eth1", "socket", "close socket"}), world.journal());

    world.failNth(2, "socket", EMFILE);
    EXPECT_EQ(1, enabledState());
}

TEST_F(InterfaceStates, UnreadableFlagsCountAsNone)
{
    world.failNth(1, "ioctl", EPERM, "SIOCGIFFLAGS");
    EXPECT_EQ(2, enabledState());
    world.failNth(1, "ioctl", EPERM, "SIOCGIFFLAGS");
    EXPECT_EQ(2, operationalStatus());
}

TEST_F(InterfaceStates, AMissingInterfaceIsNeitherEnabledNorOperational)
{
    world.interfaces.erase("eth1");
    EXPECT_EQ(2, enabledState());
    EXPECT_EQ(stateJournal, world.journal());
    world.clearJournal();
    EXPECT_EQ(2, operationalStatus());
    EXPECT_EQ(stateJournal, world.journal());
}

TEST_F(InterfaceStates, EachStateTakesTheSameKernelRequests)
{
    enabledState();
    EXPECT_EQ(stateJournal, world.journal());
    world.clearJournal();
    operationalStatus();
    EXPECT_EQ(stateJournal, world.journal());
}

TEST_F(InterfaceStates, WithoutASocketBothFailSilently)
{
    world.failAll("socket", EMFILE);
    std::uint16_t value = 17;
    EXPECT_EQ(-1, kv_get_enabledState("eth1", &value));
    EXPECT_EQ(-1, kv_get_operationalStatus("eth1", &value));
    EXPECT_EQ(17, value);
    EXPECT_EQ((Lines{"socket", "socket"}), world.journal());
}

TEST_F(InterfaceStates, WithoutAnOutputBothFailSilentlyAndLeaveNoSocket)
{
    EXPECT_EQ(-1, kv_get_enabledState("eth1", nullptr));
    EXPECT_EQ(-1, kv_get_operationalStatus("eth1", nullptr));
    EXPECT_EQ((Lines{"socket", "close socket", "socket", "close socket"}), world.journal());
}

} // namespace
