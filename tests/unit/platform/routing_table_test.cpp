#include "RoutingTable.hpp"

#include <arpa/inet.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <sstream>
#include <string>

namespace
{

constexpr const char* kHeader =
    "Iface\tDestination\tGateway \tFlags\tRefCnt\tUse\tMetric\tMask\t\tMTU\tWindow\tIRTT\n";
constexpr const char* kUpGateway = "0003";

/** A number as the kernel prints an address: its four bytes read in the host's own byte order. */
std::string asKernel(const char* dotted)
{
    in_addr address = {};
    EXPECT_EQ(inet_pton(AF_INET, dotted, &address), 1) << dotted;
    std::array<char, 16> text = {};
    std::snprintf(text.data(), text.size(), "%08X", address.s_addr);
    return text.data();
}

std::string route(const char* interface, const char* destination, const char* gateway, const char* mask,
                  int metric, const char* flags)
{
    return std::string(interface) + "\t" + asKernel(destination) + "\t" + asKernel(gateway) + "\t" + flags +
           "\t0\t0\t" + std::to_string(metric) + "\t" + asKernel(mask) + "\t0\t0\t0\n";
}

std::string defaultRoute(const char* interface, const char* gateway, int metric = 0,
                         const char* flags = kUpGateway)
{
    return route(interface, "0.0.0.0", gateway, "0.0.0.0", metric, flags);
}

std::string gateway(const std::string& routes, const std::string& interface = "")
{
    std::istringstream table(kHeader + routes);
    return kvplatform::defaultGateway(table, interface);
}

TEST(RoutingTable, HoldsTheDefaultGateway)
{
    EXPECT_EQ(gateway(defaultRoute("eth1", "10.0.0.254")), "10.0.0.254");
}

TEST(RoutingTable, GivesNothingWithoutRoutes)
{
    EXPECT_EQ(gateway(""), "");
    std::istringstream empty;
    EXPECT_EQ(kvplatform::defaultGateway(empty, ""), "");
}

TEST(RoutingTable, RoutesToNetworksAreNoDefault)
{
    EXPECT_EQ(gateway(route("eth1", "10.0.0.0", "0.0.0.0", "255.255.255.0", 0, "0001") +
                      route("eth1", "10.9.0.0", "10.0.0.1", "255.255.0.0", 0, kUpGateway)),
              "");
}

TEST(RoutingTable, ARouteToTheLowerHalfIsNoDefault)
{
    EXPECT_EQ(gateway(route("tun0", "0.0.0.0", "10.8.0.1", "128.0.0.0", 0, kUpGateway)), "");
}

TEST(RoutingTable, ADefaultRouteWithoutGatewayIsPassedOver)
{
    EXPECT_EQ(gateway(defaultRoute("ppp0", "0.0.0.0", 0, "0001") + defaultRoute("eth1", "10.0.0.254", 5)),
              "10.0.0.254");
}

TEST(RoutingTable, ARouteThatIsDownIsPassedOver)
{
    EXPECT_EQ(gateway(defaultRoute("eth2", "10.2.0.254", 0, "0002") + defaultRoute("eth1", "10.0.0.254", 5)),
              "10.0.0.254");
}

TEST(RoutingTable, TheLowestMetricWins)
{
    EXPECT_EQ(gateway(defaultRoute("eth2", "10.2.0.254", 100) + defaultRoute("eth1", "10.1.0.254", 20) +
                      defaultRoute("eth0", "10.0.0.254", 50)),
              "10.1.0.254");
}

TEST(RoutingTable, TheFirstOfEqualMetricsWins)
{
    EXPECT_EQ(gateway(defaultRoute("eth2", "10.2.0.254") + defaultRoute("eth1", "10.1.0.254")), "10.2.0.254");
}

TEST(RoutingTable, AnInterfaceHasItsOwnGateway)
{
    const std::string routes = defaultRoute("eth1", "10.1.0.254") + defaultRoute("eth2", "10.2.0.254", 100);
    EXPECT_EQ(gateway(routes, "eth2"), "10.2.0.254");
    EXPECT_EQ(gateway(routes, "eth1"), "10.1.0.254");
    EXPECT_EQ(gateway(routes, "eth0"), "");
}

TEST(RoutingTable, UnreadableLinesCountAsAbsent)
{
    EXPECT_EQ(gateway("\neth1\t00000000\nnonsense nonsense nonsense\n\x01\x02\n" +
                      defaultRoute("eth1", "10.0.0.254")),
              "10.0.0.254");
}

} // namespace
