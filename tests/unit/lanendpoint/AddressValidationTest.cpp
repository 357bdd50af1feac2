#include "EndpointServer.hpp"
#include "lanendpoint/ORX_LANEndpointAPI.hpp"

#include <gtest/gtest.h>

#include <algorithm>

using fakes::Lines;
using OpenWBEM::String;

namespace
{

class AddressValidation : public fakes::EndpointServer
{
  protected:
    const ORX_LANEndpointAPI eth1{String("eth1")};

    void onlyNeighbour(const std::string& address, const std::string& mask)
    {
        world.addresses.clear();
        world.addresses["eth2"] = {address, mask, ""};
    }
};

TEST_F(AddressValidation, EveryMaskWithoutGapsIsValid)
{
    const Lines bytes = {"0", "128", "192", "224", "240", "248", "252", "254", "255"};
    for (const std::string& byte : bytes) {
        EXPECT_EQ(1, eth1.isMaskValid((byte + ".0.0.0").c_str())) << byte;
        EXPECT_EQ(1, eth1.isMaskValid(("255." + byte + ".0.0").c_str())) << byte;
        EXPECT_EQ(1, eth1.isMaskValid(("255.255." + byte + ".0").c_str())) << byte;
        EXPECT_EQ(1, eth1.isMaskValid(("255.255.255." + byte).c_str())) << byte;
    }
}

TEST_F(AddressValidation, NoOtherByteIsPartOfAMask)
{
    const Lines bytes = {"0", "128", "192", "224", "240", "248", "252", "254", "255"};
    for (int value = 0; value <= 256; ++value) {
        const std::string byte = std::to_string(value);
        const bool isValid = std::find(bytes.begin(), bytes.end(), byte) != bytes.end();
        EXPECT_EQ(isValid ? 1 : 0, eth1.isMaskValid(("255.255." + byte + ".0").c_str())) << byte;
    }
}

TEST_F(AddressValidation, AMaskWithAGapIsNotValid)
{
    for (const char* mask : {"255.0.255.0", "0.255.0.0", "255.128.128.0", "255.254.255.0", "255.255.0.255",
                             "0.0.0.1", "255.255.0.128", "254.0.0.255", "128.0.0.254"})
        EXPECT_EQ(0, eth1.isMaskValid(mask)) << mask;
}

TEST_F(AddressValidation, MaskBytesAreComparedAsText)
{
    for (const char* mask : {"255.255.255.000", "255.255.255.00", "0255.255.255.0", "255.255.255. 0",
                             " 255.255.255.0", "255.255.255.0 ", "255.255.255.0\n", "255.255.255.+0",
                             "0xff.255.255.0", "255.255.255.0;ls", "a.b.c.d"})
        EXPECT_EQ(0, eth1.isMaskValid(mask)) << mask;
}

TEST_F(AddressValidation, AMaskHasExactlyFourParts)
{
    for (const char* mask : {"", ".", "255", "255.255.255", "255.255.255.0.0", "255.255.255.255.0", "..."})
        EXPECT_EQ(0, eth1.isMaskValid(mask)) << mask;
}

TEST_F(AddressValidation, EmptyPartsOfAMaskAreDropped)
{
    for (const char* mask : {"255..255.0.0", ".255.255.0.0", "255.255.0.0.", "..255...255.0.0.."})
        EXPECT_EQ(1, eth1.isMaskValid(mask)) << mask;
    EXPECT_EQ(0, eth1.isMaskValid("255..255.0"));
}

TEST_F(AddressValidation, TextBehindANulDoesNotHideInAMask)
{
    EXPECT_EQ(0, eth1.isMaskValid(String("255.255.255.0\0;ls", 17)));
    EXPECT_EQ(0, eth1.isMaskValid(String("255.255.255.0\0", 14)));
}

TEST_F(AddressValidation, AHostPartMustHaveABit)
{
    EXPECT_EQ(1, eth1.isHostAddressNonZero("10.0.0.1", "255.255.255.0"));
    EXPECT_EQ(0, eth1.isHostAddressNonZero("10.0.0.0", "255.255.255.0"));
    EXPECT_EQ(1, eth1.isHostAddressNonZero("10.0.1.0", "255.255.0.0"));
    EXPECT_EQ(0, eth1.isHostAddressNonZero("10.1.0.0", "255.255.0.0"));
    EXPECT_EQ(1, eth1.isHostAddressNonZero("10.0.0.129", "255.255.255.128"));
    EXPECT_EQ(0, eth1.isHostAddressNonZero("10.0.0.128", "255.255.255.128"));
    EXPECT_EQ(1, eth1.isHostAddressNonZero("10.0.0.0", "0.0.0.0"));
    EXPECT_EQ(0, eth1.isHostAddressNonZero("10.0.0.5", "255.255.255.255"));
}

TEST_F(AddressValidation, ABroadcastAddressIsNotRefused)
{
    EXPECT_EQ(1, eth1.isHostAddressNonZero("10.0.0.255", "255.255.255.0"));
}

TEST_F(AddressValidation, HostPartsOfUnreadableAddressesAreRefused)
{
    EXPECT_EQ(0, eth1.isHostAddressNonZero("", "255.255.255.0"));
    EXPECT_EQ(0, eth1.isHostAddressNonZero("10.0.0.256", "255.255.255.0"));
    EXPECT_EQ(0, eth1.isHostAddressNonZero("10.0.0.1", ""));
    EXPECT_EQ(0, eth1.isHostAddressNonZero("10.0.0.1", "255..255.0.0"));
}

TEST_F(AddressValidation, ANetworkOfItsOwnIsUnique)
{
    EXPECT_EQ(1, eth1.uniqueSubnet("10.0.0.6", "255.255.255.0"));
    EXPECT_EQ((Lines{"dhcpIpInfoGetIPInfo eth0", "dhcpIpInfoGetIPInfo eth2"}), world.journal());
}

TEST_F(AddressValidation, TheOwnInterfaceIsNoNeighbour)
{
    EXPECT_EQ(1, ORX_LANEndpointAPI("eth0").uniqueSubnet("192.168.0.9", "255.255.255.0"));
    EXPECT_EQ(1, ORX_LANEndpointAPI("eth2").uniqueSubnet("172.16.0.9", "255.255.255.0"));
    EXPECT_EQ((Lines{"dhcpIpInfoGetIPInfo eth1", "dhcpIpInfoGetIPInfo eth2", //
                     "dhcpIpInfoGetIPInfo eth0", "dhcpIpInfoGetIPInfo eth1"}),
              world.journal());
}

TEST_F(AddressValidation, AnInterfaceOfNoneOfTheThreeNamesHasAllThreeAsNeighbours)
{
    for (const char* name : {"eth7", "", "eth", "eth01", "eth10", "eth2 ", "xyz1", "Customer LAN"}) {
        world.clearJournal();
        EXPECT_EQ(1, ORX_LANEndpointAPI(name).uniqueSubnet("10.3.0.6", "255.255.255.0")) << name;
        EXPECT_EQ((Lines{"dhcpIpInfoGetIPInfo eth0", "dhcpIpInfoGetIPInfo eth1", "dhcpIpInfoGetIPInfo eth2"}),
                  world.journal())
            << name;
    }
}

TEST_F(AddressValidation, ANetworkOfANeighbourIsNotUnique)
{
    EXPECT_EQ(0, eth1.uniqueSubnet("192.168.0.9", "255.255.255.0"));
    EXPECT_EQ(0, eth1.uniqueSubnet("172.16.0.9", "255.255.255.0"));
}

TEST_F(AddressValidation, ANetworkAroundOrInsideANeighboursIsNotUnique)
{
    EXPECT_EQ(0, eth1.uniqueSubnet("172.16.99.1", "255.255.0.0"));
    EXPECT_EQ(0, eth1.uniqueSubnet("172.16.0.130", "255.255.255.128"));
    EXPECT_EQ(1, eth1.uniqueSubnet("172.17.0.1", "255.255.0.0"));
    EXPECT_EQ(1, eth1.uniqueSubnet("172.16.1.1", "255.255.255.0"));
    EXPECT_EQ(0, eth1.uniqueSubnet("1.2.3.4", "0.0.0.0"));
}

TEST_F(AddressValidation, ANeighbourWithoutAddressOrMaskIsPassedOver)
{
    onlyNeighbour("", "255.255.255.0");
    EXPECT_EQ(1, eth1.uniqueSubnet("172.16.0.9", "255.255.255.0"));
    onlyNeighbour("172.16.0.1", "");
    EXPECT_EQ(1, eth1.uniqueSubnet("172.16.0.9", "255.255.255.0"));
}

TEST_F(AddressValidation, AnUnreadableNeighbourBlocks)
{
    onlyNeighbour("not.an.address", "255.255.255.0");
    EXPECT_EQ(0, eth1.uniqueSubnet("10.0.0.6", "255.255.255.0"));
    onlyNeighbour("172.16.0.1", "mask");
    EXPECT_EQ(0, eth1.uniqueSubnet("10.0.0.6", "255.255.255.0"));
}

TEST_F(AddressValidation, AnUnreadableAddressOrMaskIsNotUniqueAndAsksNobody)
{
    EXPECT_EQ(0, eth1.uniqueSubnet("", "255.255.255.0"));
    EXPECT_EQ(0, eth1.uniqueSubnet("10.0.0.6", "255..255.0.0"));
    EXPECT_EQ(Lines{}, world.journal());
}

} // namespace
