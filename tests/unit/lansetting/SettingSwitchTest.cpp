// The packet filter's switches: read from their file, stored in it, and told to the kernel.

#include "SettingTest.hpp"

#include <cerrno>

namespace
{

struct Switch {
    const char* name;
    const char* key;
    const char* code; ///< of the request to the device
    bool (ORX_LANSetting::*set)(bool);
    bool (ORX_LANSetting::*get)(bool&) const;
    std::size_t digit; ///< in switchesOf
};

const Switch switches[] = {
    {"Icmp", "kv_netfilter_icmp", "0x8004AB02", &ORX_LANSetting::setIsIcmpFilterEnabled,
     &ORX_LANSetting::getIsIcmpFilterEnabled, 0},
    {"Arp", "kv_netfilter_arp", "0x8004AB03", &ORX_LANSetting::setIsArpFilterEnabled,
     &ORX_LANSetting::getIsArpFilterEnabled, 1},
    {"Broadcast", "kv_netfilter_broadcast", "0x8004AB05", &ORX_LANSetting::setIsBroadcastFilterEnabled,
     &ORX_LANSetting::getIsBroadcastFilterEnabled, 2},
    {"Conflict", "kv_netfilter_ipconflict", "0x8004AB04", &ORX_LANSetting::setIsIPAddressConflictEnabled,
     &ORX_LANSetting::getIsIPAddressConflictEnabled, 3},
};

std::ostream& operator<<(std::ostream& out, const Switch& one)
{
    return out << one.name;
}

/// "0000" with one digit set.
std::string only(const Switch& one)
{
    std::string digits = "0000";
    digits[one.digit] = '1';
    return digits;
}

class SettingSwitch : public SettingTest, public ::testing::WithParamInterface<Switch>
{
  protected:
    static bool set(ORX_LANSetting& model, bool enabled) { return (model.*GetParam().set)(enabled); }

    std::string fileLine(const char* value) const
    {
        return std::string(GetParam().key) + "   " + value + "\n";
    }

    ORX_LANSetting model;
};

TEST_P(SettingSwitch, TurnedOnIsStoredAndThenToldToTheKernel)
{
    givenSwitches("0000");
    EXPECT_TRUE(set(model, true));
    EXPECT_EQ(world.journal(), (Lines{"fopen /kv/etc/kv_netfilter.cfg r", "fclose /kv/etc/kv_netfilter.cfg",
                                      "remove /kv/etc/kv_netfilter.cfg.0",
                                      "rename /kv/etc/kv_netfilter.cfg /kv/etc/kv_netfilter.cfg.0",
                                      "fopen /kv/etc/kv_netfilter.cfg w", "fclose /kv/etc/kv_netfilter.cfg",
                                      "open /dev/kv_netfilter",
                                      std::string("ioctl /dev/kv_netfilter ") + GetParam().code + " 1",
                                      "close /dev/kv_netfilter"}));
    EXPECT_EQ(switchesOf(model), only(GetParam()));
    EXPECT_NE(world.read(switchFile).find(fileLine("1")), std::string::npos);
}

TEST_P(SettingSwitch, TurnedOffIsStoredAndThenToldToTheKernel)
{
    givenSwitches("1111");
    model.get();
    EXPECT_TRUE(set(model, false));
    EXPECT_EQ(
        world.journal(fakes::Kernel),
        (Lines{std::string("ioctl /dev/kv_netfilter ") + GetParam().code + " 0", "close /dev/kv_netfilter"}));
    EXPECT_FALSE(flagOf(model, GetParam().get));
    EXPECT_NE(world.read(switchFile).find(fileLine("0")), std::string::npos);
}

TEST_P(SettingSwitch, ChangesItsOwnLineOnly)
{
    givenSwitches("0000");
    set(model, true);
    ORX_LANSetting fresh;
    fresh.get();
    EXPECT_EQ(switchesOf(fresh), only(GetParam()));
}

TEST_P(SettingSwitch, IsFoundByARead)
{
    givenSwitches(only(GetParam()));
    EXPECT_TRUE(model.get());
    EXPECT_EQ(switchesOf(model), only(GetParam()));
}

TEST_P(SettingSwitch, AnyStoredNumberButZeroIsOn)
{
    world.write(switchFile, std::string(GetParam().key) + " 2\n");
    model.get();
    EXPECT_TRUE(flagOf(model, GetParam().get));
}

TEST_P(SettingSwitch, OnlyIcmpIsLoweredByARead)
{
    givenSwitches("1111");
    model.get();
    givenSwitches("0000");
    EXPECT_TRUE(model.get());
    const bool isIcmp = GetParam().digit == 0;
    EXPECT_EQ(flagOf(model, GetParam().get), !isIcmp);
}

TEST_P(SettingSwitch, WithoutADeviceIsStoredAllTheSame)
{
    givenSwitches("0000");
    world.packetFilterPresent = false;
    EXPECT_TRUE(set(model, true));
    EXPECT_EQ(world.journal(fakes::Kernel), Lines{});
    EXPECT_EQ(switchesOf(model), only(GetParam()));
    EXPECT_NE(world.read(switchFile).find(fileLine("1")), std::string::npos);
}

TEST_P(SettingSwitch, ThatTheKernelRefusesIsStoredAllTheSame)
{
    givenSwitches("0000");
    world.mayStayOpen = {"/dev/kv_netfilter"};
    world.failNth(1, "ioctl", EINVAL);
    EXPECT_TRUE(set(model, true));
    EXPECT_EQ(switchesOf(model), only(GetParam()));
    EXPECT_EQ(world.journal(fakes::Log), Lines{});
}

TEST_P(SettingSwitch, ThatCannotBeStoredIsNotToldToTheKernel)
{
    givenSwitches("0000");
    modelFaults.unstorableSwitches = {GetParam().key};
    EXPECT_FALSE(set(model, true));
    EXPECT_EQ(world.journal(), Lines{});
    EXPECT_EQ(switchesOf(model), only(GetParam())) << "the model has the new value already";
}

TEST_P(SettingSwitch, WithoutALineIsToldToTheKernelButNotStored)
{
    world.write(switchFile, "other 1\n");
    EXPECT_TRUE(set(model, true));
    EXPECT_EQ(world.read(switchFile), "other   1\n");
    EXPECT_EQ(world.journal(fakes::Kernel).size(), 2U);
}

TEST_P(SettingSwitch, IsToldToTheKernelEvenWhenItIsNotNew)
{
    givenSwitches("0000");
    EXPECT_TRUE(set(model, false));
    EXPECT_EQ(world.journal(fakes::Kernel)[0],
              std::string("ioctl /dev/kv_netfilter ") + GetParam().code + " 0");
}

TEST_P(SettingSwitch, ThatCannotBeReadEndsTheReadWithoutTheLaterOnes)
{
    givenSwitches("1111");
    modelFaults.unreadableSwitches = {GetParam().key};
    EXPECT_FALSE(model.get());
    const std::string before[] = {"0000", "1000", "1100", "1110"};
    EXPECT_EQ(switchesOf(model), before[GetParam().digit]);
}

INSTANTIATE_TEST_SUITE_P(Of, SettingSwitch, ::testing::ValuesIn(switches),
                         [](const auto& test) { return test.param.name; });

class PacketFilter : public SettingTest
{
  protected:
    /// The device's request number 2, as an int of 32 bits.
    static constexpr int icmpRequest = static_cast<int>(0x8004AB02U);
    ORX_LANSetting model;
};

TEST_F(PacketFilter, IsTold)
{
    EXPECT_EQ(model.notifyKernel(icmpRequest, 1), 0);
    EXPECT_EQ(world.journal(), (Lines{"open /dev/kv_netfilter", "ioctl /dev/kv_netfilter 0x8004AB02 1",
                                      "close /dev/kv_netfilter"}));
}

TEST_F(PacketFilter, GetsAnyValueWhole)
{
    EXPECT_EQ(model.notifyKernel(icmpRequest, 4294967295U), 0);
    EXPECT_EQ(world.journal(fakes::Kernel)[0], "ioctl /dev/kv_netfilter 0x8004AB02 4294967295");
}

TEST_F(PacketFilter, ThatIsAbsentIsAnError)
{
    world.packetFilterPresent = false;
    EXPECT_EQ(model.notifyKernel(icmpRequest, 1), -1);
    EXPECT_EQ(world.journal(), Lines{"open /dev/kv_netfilter"});
}

TEST_F(PacketFilter, IsToldEvenIfClosingItFails)
{
    world.failNth(1, "close", EIO);
    EXPECT_EQ(model.notifyKernel(icmpRequest, 1), 0);
}

TEST_F(PacketFilter, ThatRefusesStaysOpen)
{
    world.mayStayOpen = {"/dev/kv_netfilter"};
    world.failNth(1, "ioctl", EINVAL);
    EXPECT_EQ(model.notifyKernel(icmpRequest, 1), -1);
    EXPECT_EQ(world.journal(), (Lines{"open /dev/kv_netfilter", "ioctl /dev/kv_netfilter 0x8004AB02 1"}));
    EXPECT_EQ(world.descriptors.size(), 1U);
}

TEST_F(PacketFilter, AnUnreadableIcmpSwitchIsOffAfterwards)
{
    givenSwitches("1111");
    model.get();
    modelFaults.unreadableSwitches = {"kv_netfilter_icmp"};
    EXPECT_FALSE(model.get());
    EXPECT_EQ(switchesOf(model), "0111");
}

} // namespace
