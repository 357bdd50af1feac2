#include "dhcp_ip_info.h"

#include <gtest/gtest.h>

#include <string>

namespace
{

class UsableAddress : public testing::TestWithParam<const char*>
{
};

TEST_P(UsableAddress, IsValid)
{
    EXPECT_EQ(dhcpIpInfoIsIPAddrValid(GetParam()), 1) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(HostAddresses, UsableAddress,
                         testing::Values("1.0.0.0", "1.2.3.4", "10.0.0.5", "100.64.0.1", "126.255.255.255",
                                         "128.0.0.0", "169.254.1.1", "172.16.0.1", "192.168.0.255",
                                         "192.0.2.1", "223.255.255.255", "200.200.200.200"));

class UnusableAddress : public testing::TestWithParam<const char*>
{
};

TEST_P(UnusableAddress, IsRefused)
{
    EXPECT_EQ(dhcpIpInfoIsIPAddrValid(GetParam()), 0) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(ThisNetwork, UnusableAddress,
                         testing::Values("0.0.0.0", "0.0.0.1", "0.255.255.255"));
INSTANTIATE_TEST_SUITE_P(Loopback, UnusableAddress,
                         testing::Values("127.0.0.0", "127.0.0.1", "127.255.255.255"));
INSTANTIATE_TEST_SUITE_P(Multicast, UnusableAddress,
                         testing::Values("224.0.0.0", "224.0.0.251", "239.255.255.255"));
INSTANTIATE_TEST_SUITE_P(Reserved, UnusableAddress,
                         testing::Values("240.0.0.0", "250.1.2.3", "255.255.255.254"));
INSTANTIATE_TEST_SUITE_P(Broadcast, UnusableAddress, testing::Values("255.255.255.255"));
INSTANTIATE_TEST_SUITE_P(TooFewOrTooManyNumbers, UnusableAddress,
                         testing::Values("", "10", "10.0", "10.0.1", "10.0.0.1.2", "167772161",
                                         "0x0A000001"));
INSTANTIATE_TEST_SUITE_P(EmptyNumbers, UnusableAddress,
                         testing::Values(".", "...", "10..0.1", ".10.0.0.1", "10.0.0.1.", "10.0.0."));
INSTANTIATE_TEST_SUITE_P(NumbersBeyondAByte, UnusableAddress,
                         testing::Values("256.0.0.1", "10.0.0.256", "10.0.0.999", "10.0.0.4294967297"));
INSTANTIATE_TEST_SUITE_P(OtherSpellings, UnusableAddress,
                         testing::Values("010.0.0.1", "10.0.0.01", "10.00.0.1", "0xA.0.0.1", "10.0.0.1e0",
                                         "+10.0.0.1", "-10.0.0.1", "10.0.0.-1"));
INSTANTIATE_TEST_SUITE_P(SurroundingText, UnusableAddress,
                         testing::Values(" 10.0.0.1", "10.0.0.1 ", "10.0.0.1\n", "10. 0.0.1", "10.0.0.1/24",
                                         "10.0.0.1;reboot", "10.0.0.1$(x)"));
INSTANTIATE_TEST_SUITE_P(OtherText, UnusableAddress,
                         testing::Values("localhost", "a.b.c.d", "::1", "::ffff:10.0.0.1", "10,0,0,1",
                                         "\xC2\xB9.0.0.1"));

TEST(AddressText, NullPointerIsRefused)
{
    EXPECT_EQ(dhcpIpInfoIsIPAddrValid(nullptr), 0);
}

TEST(AddressText, AMegabyteIsRefused)
{
    EXPECT_EQ(dhcpIpInfoIsIPAddrValid(std::string(1U << 20U, '1').c_str()), 0);
}

} // namespace
