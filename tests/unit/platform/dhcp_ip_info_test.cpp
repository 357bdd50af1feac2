#include "dhcp_ip_info.h"

#include "ChildProcess.hpp"
#include "PlatformTest.hpp"

#include <fcntl.h>
#include <sched.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <functional>
#include <string>

namespace
{

constexpr char kUntouched = '\x5A';

/** A caller's 32-byte buffer with a guard behind it. */
class Buffer
{
  public:
    Buffer() { m_bytes.fill(kUntouched); }
    char* data() { return m_bytes.data(); }
    std::string text() const { return m_bytes.data(); }
    bool isUntouched() const { return isUntouchedFrom(0); }
    bool isOverrun() const { return !isUntouchedFrom(32); }

  private:
    bool isUntouchedFrom(std::ptrdiff_t first) const
    {
        return std::all_of(m_bytes.begin() + first, m_bytes.end(), [](char c) { return c == kUntouched; });
    }

    std::array<char, 64> m_bytes = {};
};

struct IPInfo {
    Buffer ip;
    Buffer mask;
    Buffer gateway;
    int status = -1;

    explicit IPInfo(const char* interface)
    {
        status = dhcpIpInfoGetIPInfo(interface, ip.data(), mask.data(), gateway.data());
    }
    std::string text() const { return ip.text() + "/" + mask.text() + "/" + gateway.text(); }
    bool isOverrun() const { return ip.isOverrun() || mask.isOverrun() || gateway.isOverrun(); }
};

class IPInfoOfAnInterface : public PlatformTest
{
};

TEST_F(IPInfoOfAnInterface, AddressAndMaskComeFromTheLiveInterface)
{
    const IPInfo info("lo");
    EXPECT_EQ(info.status, 0);
    EXPECT_EQ(info.text(), "127.0.0.1/255.0.0.0/");
    EXPECT_FALSE(info.isOverrun());
}

TEST_F(IPInfoOfAnInterface, AnUnknownInterfaceHasNothing)
{
    EXPECT_EQ(complaints([] {
                  const IPInfo info("eth77");
                  EXPECT_EQ(info.status, 1);
                  EXPECT_EQ(info.text(), "//");
                  EXPECT_FALSE(info.isOverrun());
              }),
              "");
}

TEST_F(IPInfoOfAnInterface, ANameOfAnyLengthIsHarmless)
{
    const IPInfo info(std::string(100000, 'e').c_str());
    EXPECT_EQ(info.status, 1);
    EXPECT_EQ(info.text(), "//");
    EXPECT_EQ(IPInfo("").status, 1);
}

TEST_F(IPInfoOfAnInterface, NullPointersAreRefused)
{
    Buffer a;
    Buffer b;
    EXPECT_EQ(dhcpIpInfoGetIPInfo(nullptr, a.data(), b.data(), a.data()), 1);
    EXPECT_EQ(dhcpIpInfoGetIPInfo("lo", nullptr, a.data(), b.data()), 1);
    EXPECT_EQ(dhcpIpInfoGetIPInfo("lo", a.data(), nullptr, b.data()), 1);
    EXPECT_EQ(dhcpIpInfoGetIPInfo("lo", a.data(), b.data(), nullptr), 1);
    EXPECT_TRUE(a.isUntouched());
    EXPECT_TRUE(b.isUntouched());
    EXPECT_EQ(dhcpIpInfoGetDefaultGateway(nullptr), 1);
}

class UnreadableAddresses : public PlatformTest
{
};

TEST_F(UnreadableAddresses, OfAnInterfaceAreEmptyAndReported)
{
    const std::string told = complaints([] {
        EXPECT_EQ(inChild([] {
                      leaveDescriptors(0);
                      const IPInfo info("lo");
                      return info.status == 1 && info.text() == "//" ? 0 : 1;
                  }),
                  0);
    });
    EXPECT_EQ(told, "kvplatform: dhcpIpInfoGetIPInfo: lo: Too many open files\n");
}

TEST_F(UnreadableAddresses, OfTheRoutingTableAreEmptyAndReported)
{
    const std::string told = complaints([] {
        EXPECT_EQ(inChild([] {
                      leaveDescriptors(0);
                      Buffer gateway;
                      return dhcpIpInfoGetDefaultGateway(gateway.data()) == 1 && gateway.text().empty() ? 0
                                                                                                        : 1;
                  }),
                  0);
    });
    EXPECT_EQ(told, "kvplatform: dhcpIpInfoGetDefaultGateway: /proc/net/route: Too many open files\n");
}

/** A test in a network of its own, which it sets up with commands. */
class PrivateNetwork : public PlatformTest
{
  protected:
    void SetUp() override
    {
        const bool allowed = inChild([] { return enter() ? 0 : 1; }) == 0;
        if (!allowed && std::getenv("ALLOW_SKIPS") != nullptr)
            GTEST_SKIP() << "no permission to create a network namespace";
        ASSERT_TRUE(allowed) << "needs CAP_SYS_ADMIN or user namespaces for a network namespace";
    }

    /** The function's text, from a process in a network that the commands have set up. */
    std::string inNetwork(const std::string& commands, const std::function<std::string()>& function)
    {
        EXPECT_EQ(inChild([&] {
                      if (!enter() || std::system(commands.c_str()) != 0)
                          return 1;
                      write("answer", function());
                      return 0;
                  }),
                  0);
        return contents("answer");
    }

  private:
    static bool enter()
    {
        return ::unshare(CLONE_NEWNET) == 0 || ::unshare(CLONE_NEWUSER | CLONE_NEWNET) == 0;
    }
};

constexpr const char* kTwoInterfaces = "ip link add eth1 type veth peer name eth2 &&"
                                       "ip addr add 192.168.100.200/255.255.255.128 dev eth1 &&"
                                       "ip addr add 192.168.100.201/25 dev eth1 &&"
                                       "ip addr add 172.16.255.1/12 dev eth2 &&"
                                       "ip link set eth1 up && ip link set eth2 up &&";

TEST_F(PrivateNetwork, EachInterfaceHasItsMainAddressItsMaskAndItsGateway)
{
    const std::string routes = "ip route add default via 192.168.100.129 dev eth1 metric 20 &&"
                               "ip route add default via 172.31.255.254 dev eth2 metric 10";
    EXPECT_EQ(inNetwork(kTwoInterfaces + routes,
                        [] {
                            Buffer gateway;
                            dhcpIpInfoGetDefaultGateway(gateway.data());
                            return IPInfo("eth1").text() + "\n" + IPInfo("eth2").text() + "\n" +
                                   gateway.text();
                        }),
              "192.168.100.200/255.255.255.128/192.168.100.129\n"
              "172.16.255.1/255.240.0.0/172.31.255.254\n"
              "172.31.255.254");
}

TEST_F(PrivateNetwork, WithoutADefaultRouteTheGatewayIsEmpty)
{
    EXPECT_EQ(inNetwork(std::string(kTwoInterfaces) + "true",
                        [] {
                            Buffer gateway;
                            const int status = dhcpIpInfoGetDefaultGateway(gateway.data());
                            return std::to_string(status) + "[" + gateway.text() + "]" +
                                   IPInfo("eth1").text();
                        }),
              "0[]192.168.100.200/255.255.255.128/");
}

TEST_F(PrivateNetwork, AnInterfaceWithoutAddressGivesEmptyTexts)
{
    EXPECT_EQ(inNetwork("ip link add eth1 type veth peer name eth2",
                        [] {
                            const IPInfo info("eth1");
                            return std::to_string(info.status) + info.text();
                        }),
              "0//");
}

TEST_F(PrivateNetwork, TheLongestTextsFitTheBuffers)
{
    EXPECT_EQ(
        inNetwork("ip link add eth1 type veth peer name eth2 && ip addr add 223.255.255.251/255.255.255.252 "
                  "dev eth1 "
                  "&& ip link set eth1 up && ip link set eth2 up && ip route add default via 223.255.255.250",
                  [] {
                      const IPInfo info("eth1");
                      return info.text() + (info.isOverrun() ? " overrun" : "");
                  }),
        "223.255.255.251/255.255.255.252/223.255.255.250");
}

class ConfigurationChange : public PlatformTest
{
};

TEST_F(ConfigurationChange, IsRecordedAsAnEvent)
{
    EXPECT_EQ(dhcpIpInfoInformDHCPProviderOfIPConfigChange(), 0);
    EXPECT_EQ(events(), "dhcpIpInfoInformDHCPProviderOfIPConfigChange() = 0\n");
}

TEST_F(ConfigurationChange, ThatNobodyHearsOfIsAFailure)
{
    loseStateDir();
    EXPECT_EQ(complaints([] { EXPECT_EQ(dhcpIpInfoInformDHCPProviderOfIPConfigChange(), 1); }),
              "kvplatform: dhcpIpInfoInformDHCPProviderOfIPConfigChange: " + path("events.log") +
                  ": No such file or directory\n");
}

} // namespace
