// What the product takes for granted about the server's processor, kernel interface and C++ types, held
// against the headers of the target that these tests are built for.

#include "Environment.hpp"
#include "lanendpoint/EmsNotice.hpp"
#include "lansetting/ORX_LANSetting.hpp"
#include "netutil/LinkSpeed.hpp"

#include <OW_CIMValue.hpp>
#include <OW_String.hpp>
#include <OW_Types.hpp>

#include <linux/ioctl.h>
#include <linux/mii.h>
#include <linux/sockios.h>
#include <net/if.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <type_traits>

using fakes::Lines;
using fakes::ServerTest;

namespace
{

class OnTheServersProcessor : public ServerTest
{
  protected:
    /// The packet filter's journal after one of its switches has been set.
    template <typename Change>
    Lines packetFilterRequests(Change change)
    {
        world.write("/kv/etc/kv_netfilter.cfg", "kv_netfilter_icmp = 0\nkv_netfilter_arp = 0\n"
                                                "kv_netfilter_broadcast = 0\nkv_netfilter_ipconflict = 0\n");
        ORX_LANSetting setting;
        EXPECT_TRUE((setting.*change)(true));
        Lines requests = world.journal(fakes::Kernel);
        requests.erase(std::remove_if(requests.begin(), requests.end(),
                                      [](const std::string& line) { return line.rfind("ioctl ", 0) != 0; }),
                       requests.end());
        return requests;
    }

    /// How the journal shows the device's request `number` as the target's own headers encode it.
    static Lines encoded(unsigned int number)
    {
        char line[64];
        std::snprintf(line, sizeof line, "ioctl /dev/kv_netfilter 0x%08lX 1",
                      static_cast<unsigned long>(_IOW(0xAB, number, unsigned int)));
        return {line};
    }
};

TEST_F(OnTheServersProcessor, NumbersAreBigEndianWith32BitPointers)
{
    const std::uint32_t number = 0x01020304;
    std::array<unsigned char, 4> bytes{};
    std::memcpy(bytes.data(), &number, sizeof number);
    EXPECT_EQ((std::array<unsigned char, 4>{1, 2, 3, 4}), bytes);
    EXPECT_EQ(4U, sizeof(void*));
    EXPECT_EQ(4U, sizeof(long));
}

TEST_F(OnTheServersProcessor, The64BitTypesOfTheObjectManagerAreLongLong)
{
    EXPECT_TRUE((std::is_same<OpenWBEM::UInt64, unsigned long long>::value));
    EXPECT_TRUE((std::is_same<OpenWBEM::Int64, long long>::value));
    EXPECT_TRUE((std::is_same<OpenWBEM::UInt32, unsigned int>::value));
    EXPECT_TRUE((std::is_same<OpenWBEM::UInt16, unsigned short>::value));
}

TEST_F(OnTheServersProcessor, ASpeedAbove32BitsPassesThroughAValueUnchanged)
{
    const OpenWBEM::CIMValue speed(OpenWBEM::UInt64(10000000000ULL));
    OpenWBEM::UInt64 passed = 0;
    speed.get(passed);
    EXPECT_EQ(10000000000ULL, passed);
    EXPECT_STREQ("10000000000", speed.toString().c_str());
}

TEST_F(OnTheServersProcessor, PacketFilterRequestsAreTheTargetsOwnWriteRequests)
{
    EXPECT_EQ(encoded(2), packetFilterRequests(&ORX_LANSetting::setIsIcmpFilterEnabled));
    world.clearJournal();
    EXPECT_EQ(encoded(3), packetFilterRequests(&ORX_LANSetting::setIsArpFilterEnabled));
    world.clearJournal();
    EXPECT_EQ(encoded(4), packetFilterRequests(&ORX_LANSetting::setIsIPAddressConflictEnabled));
    world.clearJournal();
    EXPECT_EQ(encoded(5), packetFilterRequests(&ORX_LANSetting::setIsBroadcastFilterEnabled));
}

TEST_F(OnTheServersProcessor, AnInterfaceRequestIsANameOf16BytesAndA16ByteUnion)
{
    EXPECT_EQ(32U, sizeof(ifreq));
    EXPECT_EQ(0U, offsetof(ifreq, ifr_name));
    EXPECT_EQ(16U, sizeof(ifreq{}.ifr_name));
    EXPECT_EQ(16U, offsetof(ifreq, ifr_ifru));
    EXPECT_EQ(16U, sizeof(ifreq{}.ifr_ifru));
    EXPECT_EQ(2U, sizeof(ifreq{}.ifr_flags));
    EXPECT_EQ(4U, sizeof(ifreq{}.ifr_mtu));
}

TEST_F(OnTheServersProcessor, AnMiiRequestIsFour16BitFieldsInOrder)
{
    EXPECT_EQ(8U, sizeof(mii_ioctl_data));
    EXPECT_EQ(0U, offsetof(mii_ioctl_data, phy_id));
    EXPECT_EQ(2U, offsetof(mii_ioctl_data, reg_num));
    EXPECT_EQ(4U, offsetof(mii_ioctl_data, val_in));
    EXPECT_EQ(6U, offsetof(mii_ioctl_data, val_out));
}

TEST_F(OnTheServersProcessor, InterfaceRequestsHaveTheNumbersThatTheKernelKnowsEverywhere)
{
    EXPECT_EQ(0x8913, SIOCGIFFLAGS);
    EXPECT_EQ(0x8921, SIOCGIFMTU);
    EXPECT_EQ(0x8922, SIOCSIFMTU);
    EXPECT_EQ(0x8927, SIOCGIFHWADDR);
    EXPECT_EQ(0x8947, SIOCGMIIPHY);
    EXPECT_EQ(0x8948, SIOCGMIIREG);
    EXPECT_EQ(0x89F0, SIOCDEVPRIVATE);
}

TEST_F(OnTheServersProcessor, ALinkSpeedIsReadFromTheRegistersThatTheDriverReports)
{
    fakes::Interface& eth0 = world.interfaces.at("eth0");
    eth0.mii = fakes::Interface::Mii::Standard;
    eth0.phy = 0x0102; // two different bytes, so that a swapped or misplaced field shows
    eth0.registers = {0x1000, 0x782D, 0, 0, 0x01E1, 0x45E1, 0, 0};
    std::uint64_t speed = 0;
    EXPECT_EQ(0, kv_get_EthernetIfSpeed("eth0", &speed));
    EXPECT_EQ(100000000U, speed);
    const Lines journal = world.journal(fakes::Kernel);
    EXPECT_EQ(1, std::count(journal.begin(), journal.end(),
                            "ioctl SIOCGMIIREG eth0 phy " + std::to_string(0x0102) + " register 5"));
}

/// A packet of the element-management service as the server's compiler lays it out.
struct [[gnu::packed]] NativePacket {
    std::uint16_t type;
    std::uint32_t unused;
    std::uint32_t requestCode;
};

TEST_F(OnTheServersProcessor, APacketInTheServersOwnByteOrderIsUnderstood)
{
    NativePacket answer = {1, 0, 1};
    EXPECT_EQ(0, EmsIPChangePacketHandler(reinterpret_cast<sEmsPacket*>(&answer)));
    NativePacket event = {2, 0, 1};
    EXPECT_EQ(0, EmsIPChangePacketHandler(reinterpret_cast<sEmsPacket*>(&event)));
    EXPECT_EQ((Lines{"syslog 5 ORX_LANEndpointAPI: EMS_PACKRT_TYPE_RESPONSE",
                     "syslog 5 ORX_LANEndpointAPI: EMS_IP_CHANGE_REQUEST",
                     "syslog 5 ORX_LANEndpointAPI: EMS_PACKRT_TYPE_EVENT"}),
              world.journal(fakes::System));
}

TEST_F(OnTheServersProcessor, APacketInTheOtherByteOrderIsNotMistakenForOne)
{
    NativePacket answer = {__builtin_bswap16(1), 0, __builtin_bswap32(1)};
    EXPECT_EQ(0, EmsIPChangePacketHandler(reinterpret_cast<sEmsPacket*>(&answer)));
    NativePacket answerWithSwappedCode = {1, 0, __builtin_bswap32(1)};
    EXPECT_EQ(0, EmsIPChangePacketHandler(reinterpret_cast<sEmsPacket*>(&answerWithSwappedCode)));
    EXPECT_EQ(Lines{"syslog 5 ORX_LANEndpointAPI: EMS_PACKRT_TYPE_RESPONSE"}, world.journal(fakes::System));
}

TEST_F(OnTheServersProcessor, APacketMayLieAtAnOddAddress)
{
    std::array<unsigned char, 11> bytes{0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 1};
    EXPECT_EQ(0, EmsIPChangePacketHandler(reinterpret_cast<sEmsPacket*>(&bytes[1])));
    EXPECT_EQ((Lines{"syslog 5 ORX_LANEndpointAPI: EMS_PACKRT_TYPE_RESPONSE",
                     "syslog 5 ORX_LANEndpointAPI: EMS_IP_CHANGE_REQUEST"}),
              world.journal(fakes::System));
}

} // namespace
