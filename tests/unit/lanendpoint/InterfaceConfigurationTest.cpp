#include "lanendpoint/InterfaceConfiguration.hpp"
#include "EndpointServer.hpp"

#include <gtest/gtest.h>

#include <cerrno>

using namespace fakes; // for the sums of journal lines

namespace
{

class InterfaceFiles : public EndpointServer
{
  protected:
    InterfaceConfiguration read(const std::string& ifName = "eth2")
    {
        InterfaceConfiguration configuration;
        readInterfaceConfiguration(ifName.c_str(), configuration);
        return configuration;
    }

    /// "address mask dhcp|static" of eth2 as read from `content` into an empty configuration.
    std::string readFrom(const std::string& content)
    {
        writeInterfaceFile("eth2", content);
        return shown(read());
    }

    static std::string shown(const InterfaceConfiguration& configuration)
    {
        return std::string(configuration.ipAddress.c_str()) + " " + configuration.subnetMask.c_str() + " " +
               (configuration.isDhcpEnabled ? "dhcp" : "static");
    }
};

TEST_F(InterfaceFiles, AddressMaskAndBootProtocolAreTaken)
{
    EXPECT_EQ("10.1.2.3 255.255.0.0 static",
              readFrom("DEVICE=eth2\nBOOTPROTO=static\nIPADDR=10.1.2.3\nNETMASK=255.255.0.0\nONBOOT=yes\n"));
}

TEST_F(InterfaceFiles, EveryBootProtocolButStaticIsDhcp)
{
    EXPECT_EQ("  static", readFrom("BOOTPROTO=static\n"));
    EXPECT_EQ("  dhcp", readFrom("BOOTPROTO=dhcp\n"));
    EXPECT_EQ("  dhcp", readFrom("BOOTPROTO=none\n"));
    EXPECT_EQ("  dhcp", readFrom("BOOTPROTO=Static\n"));
    EXPECT_EQ("  dhcp", readFrom("BOOTPROTO=static \n"));
    EXPECT_EQ("  dhcp", readFrom("BOOTPROTO='static'\n"));
}

TEST_F(InterfaceFiles, KeysAreComparedExactly)
{
    EXPECT_EQ("  static",
              readFrom("bootproto=dhcp\nIpaddr=10.1.2.3\nNETMASK2=255.0.0.0\nXIPADDR=10.1.2.4\n"));
}

TEST_F(InterfaceFiles, AMissingFinalLineBreakDoesNotMatter)
{
    EXPECT_EQ("10.1.2.3 255.0.0.0 static", readFrom("NETMASK=255.0.0.0\nIPADDR=10.1.2.3"));
}

TEST_F(InterfaceFiles, CarriageReturnsTabsAndVerticalTabsSeparate)
{
    EXPECT_EQ("10.1.2.3 255.0.0.0 dhcp",
              readFrom("BOOTPROTO=dhcp\r\nIPADDR=10.1.2.3\r\nNETMASK=255.0.0.0\r\n"));
    EXPECT_EQ("10.1.2.3 255.0.0.0 dhcp",
              readFrom("BOOTPROTO\tdhcp\vIPADDR\t\t10.1.2.3\v\n\nNETMASK==255.0.0.0"));
}

TEST_F(InterfaceFiles, BlanksAndFormFeedsBelongToTheirToken)
{
    EXPECT_EQ("  static", readFrom("IPADDR =10.1.2.3\n NETMASK=255.0.0.0\nBOOTPROTO\f=dhcp\n"));
    EXPECT_EQ(" 10.1.2.3  static", readFrom("IPADDR= 10.1.2.3\n"));
}

TEST_F(InterfaceFiles, QuotesBelongToTheValue)
{
    EXPECT_EQ("\"10.1.2.3\" '255.0.0.0' static", readFrom("IPADDR=\"10.1.2.3\"\nNETMASK='255.0.0.0'\n"));
}

TEST_F(InterfaceFiles, OfRepeatedKeysTheLastOneCounts)
{
    EXPECT_EQ(
        "10.1.2.4 255.0.0.0 static",
        readFrom("IPADDR=10.1.2.3\nNETMASK=255.0.0.0\nIPADDR=10.1.2.4\nBOOTPROTO=dhcp\nBOOTPROTO=static\n"));
}

TEST_F(InterfaceFiles, ACommentShiftsThePairing)
{
    EXPECT_EQ("  static", readFrom("# configuration of eth2\nIPADDR=10.1.2.3\n"));
    EXPECT_EQ("10.1.2.3  static", readFrom("# two tokens=in this comment\nIPADDR=10.1.2.3\n"));
}

TEST_F(InterfaceFiles, AKeyWithoutValueShiftsThePairing)
{
    EXPECT_EQ(" 255.0.0.0 static", readFrom("GATEWAY=\nIPADDR=10.1.2.3\nX=NETMASK\n255.0.0.0"));
}

TEST_F(InterfaceFiles, AValueThatLooksLikeAKeyIsAValue)
{
    EXPECT_EQ("NETMASK  static", readFrom("IPADDR=NETMASK\n"));
    EXPECT_EQ("  static", readFrom("HOST=IPADDR\nX=10.1.2.3\n"));
}

TEST_F(InterfaceFiles, AMissingValueAtTheEndIsEmpty)
{
    EXPECT_EQ(" 255.0.0.0 static", readFrom("IPADDR=10.1.2.3\nNETMASK=255.0.0.0\nIPADDR"));
    EXPECT_EQ("10.1.2.3  static", readFrom("IPADDR=10.1.2.3\nNETMASK=255.0.0.0\nNETMASK=\n"));
    EXPECT_EQ("  dhcp", readFrom("BOOTPROTO=static\nBOOTPROTO=\n"));
    EXPECT_EQ("10.1.2.3  static", readFrom("IPADDR=10.1.2.3\nOTHER"));
}

TEST_F(InterfaceFiles, LinesOfAnyLengthAreReadWhole)
{
    for (const std::size_t length : {1022U, 1023U, 1024U, 1025U, 2046U, 5000U}) {
        const std::string longLine = "PADDING=" + std::string(length - 8, 'x');
        EXPECT_EQ("10.1.2.3  static", readFrom(longLine + "\nIPADDR=10.1.2.3\n")) << length;
        EXPECT_EQ("10.1.2.3  static", readFrom(longLine + "\r\nIPADDR=10.1.2.3")) << length;
        const std::string longValue(length - 7, '1');
        EXPECT_EQ(longValue + "  static", readFrom("IPADDR=" + longValue)) << length;
        EXPECT_EQ(longValue + "  static", readFrom("IPADDR=" + longValue + "\n")) << length;
    }
}

TEST_F(InterfaceFiles, BinaryContentIsNoError)
{
    EXPECT_EQ("\xc3\xa4\xff  static", readFrom("IPADDR=\xc3\xa4\xff\n"));
    EXPECT_EQ("10.1.2.3  static", readFrom("\x01\x7f=\xfe\xff\x1b\nIPADDR=10.1.2.3\n"));
}

TEST_F(InterfaceFiles, ANulEndsItsLine)
{
    using namespace std::string_literals;
    EXPECT_EQ("10.1.2.3 255.0.0.0 static", readFrom("A=x\nIPADDR=10.1.2.3\0junk\n\nNETMASK=255.0.0.0\n"s));
    EXPECT_EQ("  static", readFrom(std::string(4096, '\0')));
}

TEST_F(InterfaceFiles, AnEmptyFileSaysNothing)
{
    EXPECT_EQ("  static", readFrom(""));
    EXPECT_EQ("  static", readFrom("\n\n\r\n=\t=\n"));
}

TEST_F(InterfaceFiles, ADirectoryInPlaceOfTheFileSaysNothing)
{
    world.makeDirectory(fileOf("eth3"));
    EXPECT_EQ("  static", shown(read("eth3")));
    EXPECT_EQ(reading("eth3"), world.journal());
}

TEST_F(InterfaceFiles, AnUnreadableFileSaysNothing)
{
    world.failNth(1, "fopen", EACCES);
    EXPECT_EQ("  static", shown(read()));
    EXPECT_EQ(Lines{"fopen " + fileOf("eth2") + " r"}, world.journal());
    EXPECT_EQ("  static", shown(read("eth9")));
}

TEST_F(InterfaceFiles, WhatTheFileDoesNotSayKeepsItsValue)
{
    InterfaceConfiguration configuration{"10.9.9.9", "255.0.0.0", "10.9.9.1", true};
    writeInterfaceFile("eth2", "IPADDR=10.1.2.3\n");
    readInterfaceConfiguration("eth2", configuration);
    EXPECT_EQ("10.1.2.3 255.0.0.0 dhcp", shown(configuration));
    EXPECT_STREQ("10.9.9.1", configuration.gateway.c_str());
}

TEST_F(InterfaceFiles, TheGatewayIsNotTakenFromTheFile)
{
    writeInterfaceFile("eth2", "GATEWAY=10.7.7.7\n");
    EXPECT_STREQ("", read().gateway.c_str());
}

TEST_F(InterfaceFiles, OnlyTheCustomerLanAsksForTheDefaultGateway)
{
    world.defaultGateway = "10.0.0.99";
    EXPECT_STREQ("", read("eth0").gateway.c_str());
    EXPECT_STREQ("10.0.0.99", read("eth1").gateway.c_str());
    EXPECT_STREQ("", read("eth2").gateway.c_str());
    EXPECT_EQ(reading("eth0") + reading("eth1") + reading("eth2"), world.journal());
}

TEST_F(InterfaceFiles, ANameThatOnlyBeginsLikeTheCustomerLansAsksThePlatformNothing)
{
    configureDhcp("eth10", "10.3.0.77", "255.255.255.128");
    const InterfaceConfiguration configuration = read("eth10");
    EXPECT_EQ("1.1.1.1 255.0.0.0 dhcp", shown(configuration));
    EXPECT_STREQ("", configuration.gateway.c_str());
    EXPECT_EQ(reading("eth10"), world.journal());
}

TEST_F(InterfaceFiles, OnDhcpTheCustomerLanTakesTheAddressInForce)
{
    configureDhcp("eth1", "10.0.0.77", "255.255.255.128");
    const InterfaceConfiguration configuration = read("eth1");
    EXPECT_EQ("10.0.0.77 255.255.255.128 dhcp", shown(configuration));
    EXPECT_STREQ("10.0.0.1", configuration.gateway.c_str());
    EXPECT_EQ((Lines{"fopen " + fileOf("eth1") + " r", "fclose " + fileOf("eth1"), "dhcpIpInfoGetIPInfo eth1",
                     "dhcpIpInfoGetDefaultGateway"}),
              world.journal());
}

TEST_F(InterfaceFiles, OnDhcpTheOtherInterfacesTakeWhatTheFileSays)
{
    configureDhcp("eth2", "172.16.0.77", "255.255.255.128");
    EXPECT_EQ("1.1.1.1 255.0.0.0 dhcp", shown(read("eth2")));
    EXPECT_EQ(reading("eth2"), world.journal());
}

TEST_F(InterfaceFiles, AnAddressThatIsNotKnownIsEmpty)
{
    configureDhcp("eth1", "10.0.0.77", "255.255.255.128");
    world.failNth(1, "dhcpIpInfoGetIPInfo", 1);
    world.failNth(1, "dhcpIpInfoGetDefaultGateway", 1);
    const InterfaceConfiguration configuration = read("eth1");
    EXPECT_EQ("  dhcp", shown(configuration));
    EXPECT_STREQ("", configuration.gateway.c_str());
}

TEST_F(InterfaceFiles, WithoutAFileTheCustomerLanStillHasItsGateway)
{
    world.failNth(1, "fopen", ENOENT);
    const InterfaceConfiguration configuration = read("eth1");
    EXPECT_EQ("  static", shown(configuration));
    EXPECT_STREQ("10.0.0.1", configuration.gateway.c_str());
    EXPECT_EQ((Lines{"fopen " + fileOf("eth1") + " r", "dhcpIpInfoGetDefaultGateway"}), world.journal());
}

} // namespace
