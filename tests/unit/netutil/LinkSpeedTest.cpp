#include "netutil/LinkSpeed.hpp"
#include "Environment.hpp"

#include <gtest/gtest.h>

#include <cerrno>

using fakes::Interface;
using fakes::Lines;
using Registers = std::array<std::uint16_t, 8>;

namespace
{

// Values of PHY registers as IEEE 802.3 clause 22 lays them out.
constexpr std::uint16_t control = 0x1000; // auto-negotiation on
constexpr std::uint16_t linkUp = 0x782D;  // auto-negotiation complete, link
constexpr std::uint16_t acknowledge = 0x4000;
constexpr std::uint16_t selector = 0x0001; // IEEE 802.3
constexpr std::uint16_t allMedia = 0x03E0;

constexpr std::uint16_t fullDuplex100 = 0x0100;
constexpr std::uint16_t t4 = 0x0200;
constexpr std::uint16_t halfDuplex100 = 0x0080;
constexpr std::uint16_t fullDuplex10 = 0x0040;
constexpr std::uint16_t halfDuplex10 = 0x0020;

constexpr std::uint64_t fast = 100000000;
constexpr std::uint64_t slow = 10000000;
constexpr std::uint64_t none = 0;

constexpr std::uint16_t registerValue(int bits)
{
    return static_cast<std::uint16_t>(bits);
}

class LinkSpeeds : public fakes::ServerTest
{
  protected:
    std::uint64_t speedWith(const Registers& registers, Interface::Mii mii = Interface::Mii::Standard)
    {
        world.interfaces["eth1"].mii = mii;
        world.interfaces["eth1"].registers = registers;
        return speed();
    }

    std::uint64_t speed()
    {
        std::uint64_t value = 17;
        EXPECT_EQ(0, kv_get_EthernetIfSpeed("eth1", &value));
        return value;
    }

    std::uint64_t speedWithStatus(int status)
    {
        return speedWith(
            {control, registerValue(status), 0, 0, allMedia, registerValue(acknowledge | allMedia), 0, 0});
    }

    std::uint64_t speedWithMedia(int advertised, int partner)
    {
        return speedWith({control, linkUp, 0, 0, registerValue(advertised), registerValue(partner), 0, 0});
    }
};

TEST_F(LinkSpeeds, AnAcknowledgedSingleMediumHasItsOwnSpeed)
{
    EXPECT_EQ(fast, speedWithMedia(allMedia, acknowledge | fullDuplex100));
    EXPECT_EQ(fast, speedWithMedia(allMedia, acknowledge | halfDuplex100));
    EXPECT_EQ(slow, speedWithMedia(allMedia, acknowledge | fullDuplex10));
    EXPECT_EQ(slow, speedWithMedia(allMedia, acknowledge | halfDuplex10));
}

TEST_F(LinkSpeeds, The100BaseT4MediumIsReportedWithTenMegabit)
{
    EXPECT_EQ(slow, speedWithMedia(allMedia, acknowledge | t4));
}

TEST_F(LinkSpeeds, OfSeveralCommonMediaTheBestOneDecides)
{
    for (int media = halfDuplex10; media <= allMedia; media += halfDuplex10) {
        const bool isFast =
            (media & fullDuplex100) != 0 || ((media & t4) == 0 && (media & halfDuplex100) != 0);
        EXPECT_EQ(isFast ? fast : slow, speedWithMedia(allMedia, acknowledge | selector | media)) << media;
        EXPECT_EQ(isFast ? fast : slow, speedWithMedia(selector | media, acknowledge | allMedia)) << media;
    }
}

TEST_F(LinkSpeeds, AMediumThatOnlyOneSideHasDoesNotCount)
{
    EXPECT_EQ(slow, speedWithMedia(fullDuplex100 | halfDuplex10, acknowledge | halfDuplex100 | halfDuplex10));
    EXPECT_EQ(fast, speedWithMedia(t4 | halfDuplex100, acknowledge | halfDuplex100));
}

TEST_F(LinkSpeeds, WithoutACommonMediumAnAcknowledgedLinkHasTheDefaultSpeed)
{
    EXPECT_EQ(slow, speedWithMedia(fullDuplex100, acknowledge | halfDuplex100));
    EXPECT_EQ(slow, speedWithMedia(0xFC1F, 0xFC1F));
}

TEST_F(LinkSpeeds, AnUnacknowledgedPartnerIsJudgedByItsParallelDetection)
{
    EXPECT_EQ(fast, speedWithMedia(0, halfDuplex100));
    EXPECT_EQ(fast, speedWithMedia(0, halfDuplex100 | halfDuplex10));
    EXPECT_EQ(slow, speedWithMedia(allMedia, halfDuplex10));
}

TEST_F(LinkSpeeds, AnUnacknowledgedPartnerWithoutParallelDetectionHasTheDefaultSpeed)
{
    EXPECT_EQ(slow, speedWithMedia(allMedia, 0));
    EXPECT_EQ(slow, speedWithMedia(allMedia, fullDuplex100));
    EXPECT_EQ(slow, speedWithMedia(allMedia, fullDuplex100 | t4 | fullDuplex10));
}

TEST_F(LinkSpeeds, OnlyALinkWithoutRemoteFaultAndJabberHasASpeed)
{
    EXPECT_EQ(fast, speedWithStatus(0x0004));
    EXPECT_EQ(fast, speedWithStatus(0xFFFF & ~0x0012));
    EXPECT_EQ(none, speedWithStatus(linkUp & ~0x0004));
    EXPECT_EQ(none, speedWithStatus(linkUp | 0x0002));
    EXPECT_EQ(none, speedWithStatus(linkUp | 0x0010));
    EXPECT_EQ(none, speedWithStatus(linkUp | 0x0012));
    EXPECT_EQ(none, speedWithStatus((linkUp & ~0x0004) | 0x0012));
    EXPECT_EQ(none, speedWithStatus(0x0008));
}

TEST_F(LinkSpeeds, AControlRegisterOfAllOnesMeansNoTransceiver)
{
    EXPECT_EQ(slow, speedWith({0xFFFF, linkUp, 0, 0, allMedia, acknowledge | allMedia, 0, 0}));
    EXPECT_EQ(slow, speedWith({0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF}));
    EXPECT_EQ(fast, speedWith({0xFFFE, linkUp, 0, 0, allMedia, acknowledge | allMedia, 0, 0}));
}

TEST_F(LinkSpeeds, AnEmptyStatusRegisterMeansNoTransceiver)
{
    EXPECT_EQ(slow, speedWithStatus(0x0000));
    EXPECT_EQ(slow, speedWith({0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST_F(LinkSpeeds, ADriverWithTheStandardRequestsIsReadThroughThem)
{
    world.interfaces["eth1"].phy = 5;
    EXPECT_EQ(fast, speedWithMedia(allMedia, acknowledge | allMedia));
    EXPECT_EQ((Lines{"socket", "ioctl SIOCGMIIPHY eth1", "ioctl SIOCGMIIREG eth1 phy 5 register 0",
                     "ioctl SIOCGMIIREG eth1 phy 5 register 1", "ioctl SIOCGMIIREG eth1 phy 5 register 2",
                     "ioctl SIOCGMIIREG eth1 phy 5 register 3", "ioctl SIOCGMIIREG eth1 phy 5 register 4",
                     "ioctl SIOCGMIIREG eth1 phy 5 register 5", "ioctl SIOCGMIIREG eth1 phy 5 register 6",
                     "ioctl SIOCGMIIREG eth1 phy 5 register 7", "close socket"}),
              world.journal());
}

TEST_F(LinkSpeeds, ADriverWithThePrivateRequestsOnlyIsReadThroughThem)
{
    world.interfaces["eth1"].phy = 31;
    EXPECT_EQ(fast, speedWith({control, linkUp, 0, 0, allMedia, acknowledge | allMedia, 0, 0},
                              Interface::Mii::Private));
    EXPECT_EQ(
        (Lines{
            "socket", "ioctl SIOCGMIIPHY eth1", "ioctl SIOCDEVPRIVATE eth1",
            "ioctl SIOCDEVPRIVATE+1 eth1 phy 31 register 0", "ioctl SIOCDEVPRIVATE+1 eth1 phy 31 register 1",
            "ioctl SIOCDEVPRIVATE+1 eth1 phy 31 register 2", "ioctl SIOCDEVPRIVATE+1 eth1 phy 31 register 3",
            "ioctl SIOCDEVPRIVATE+1 eth1 phy 31 register 4", "ioctl SIOCDEVPRIVATE+1 eth1 phy 31 register 5",
            "ioctl SIOCDEVPRIVATE+1 eth1 phy 31 register 6", "ioctl SIOCDEVPRIVATE+1 eth1 phy 31 register 7",
            "close socket"}),
        world.journal());
}

TEST_F(LinkSpeeds, ADriverWithoutMiiHasTheDefaultSpeed)
{
    world.interfaces["eth1"].mii = Interface::Mii::None;
    EXPECT_EQ(slow, speed());
    EXPECT_EQ((Lines{"socket", "ioctl SIOCGMIIPHY eth1", "ioctl SIOCDEVPRIVATE eth1", "close socket"}),
              world.journal());
}

TEST_F(LinkSpeeds, AMissingInterfaceHasTheDefaultSpeed)
{
    world.interfaces.erase("eth1");
    EXPECT_EQ(slow, speed());
}

TEST_F(LinkSpeeds, ARegisterThatCannotBeReadTakesTheOneBeforeIt)
{
    world.failNth(1, "ioctl", EIO, "register 5");
    EXPECT_EQ(fast, speedWithMedia(halfDuplex100, 0)); // 0 read as link partner would be the default speed
    world.failNth(1, "ioctl", EIO, "register 1");
    EXPECT_EQ(none, speedWithMedia(allMedia, acknowledge | allMedia)); // the control register has no link bit
}

TEST_F(LinkSpeeds, WhenNoRegisterCanBeReadThereIsNoTransceiver)
{
    world.failAll("ioctl", EIO, "register");
    EXPECT_EQ(slow, speedWithMedia(allMedia, acknowledge | allMedia));
    EXPECT_EQ(11U, world.journal().size());
}

TEST_F(LinkSpeeds, WithoutASocketTheSpeedFailsSilently)
{
    world.failNth(1, "socket", ENFILE);
    std::uint64_t value = 17;
    EXPECT_EQ(-1, kv_get_EthernetIfSpeed("eth1", &value));
    EXPECT_EQ(17U, value);
    EXPECT_EQ(Lines{"socket"}, world.journal());
}

TEST_F(LinkSpeeds, WithoutAnOutputTheSpeedFailsSilentlyAndLeavesNoSocket)
{
    EXPECT_EQ(-1, kv_get_EthernetIfSpeed("eth1", nullptr));
    EXPECT_EQ((Lines{"socket", "close socket"}), world.journal());
}

} // namespace
