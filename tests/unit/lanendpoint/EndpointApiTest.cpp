#include "EndpointServer.hpp"
#include "lanendpoint/ORX_LANEndpointAPI.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <type_traits>

using namespace fakes; // for the sums of journal lines
using OpenWBEM::String;

namespace
{

static_assert(!std::is_polymorphic_v<ORX_LANEndpointAPI>, "a plain value");

class EndpointApi : public EndpointServer
{
  protected:
    /// "name|address|mask|gateway|dhcp"
    static std::string shown(const ORX_LANEndpointAPI& endpoint)
    {
        String name;
        String address;
        String mask;
        String gateway;
        bool isDhcpEnabled = false;
        EXPECT_EQ(1, endpoint.getName(name));
        EXPECT_EQ(1, endpoint.getIPAddress(address));
        EXPECT_EQ(1, endpoint.getSubnetMask(mask));
        EXPECT_EQ(1, endpoint.getGateway(gateway));
        EXPECT_EQ(1, endpoint.getIsDHCPEnabled(isDhcpEnabled));
        const String text =
            name + "|" + address + "|" + mask + "|" + gateway + "|" + (isDhcpEnabled ? "dhcp" : "static");
        return text.c_str();
    }
};

TEST_F(EndpointApi, ANewEndpointHasItsNameAndNothingElse)
{
    EXPECT_EQ("||||static", shown(ORX_LANEndpointAPI()));
    EXPECT_EQ("eth0||||static", shown(ORX_LANEndpointAPI(0)));
    EXPECT_EQ("eth12||||static", shown(ORX_LANEndpointAPI(12)));
    EXPECT_EQ("Customer LAN||||static", shown(ORX_LANEndpointAPI("Customer LAN")));
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(EndpointApi, ReadingLoadsTheStoredConfiguration)
{
    ORX_LANEndpointAPI endpoint("eth1");
    EXPECT_EQ(1, endpoint.get());
    EXPECT_EQ("eth1|10.0.0.5|255.255.255.0|10.0.0.1|static", shown(endpoint));
    EXPECT_EQ(reading("eth1"), world.journal());
}

TEST_F(EndpointApi, ReadingWithoutAFileKeepsTheFields)
{
    ORX_LANEndpointAPI endpoint("eth2");
    endpoint.get();
    world.failNth(1, "fopen", EACCES);
    EXPECT_EQ(1, endpoint.get());
    EXPECT_EQ("eth2|172.16.0.1|255.255.255.0||static", shown(endpoint));
}

TEST_F(EndpointApi, ReadingWithoutAFileStillFollowsTheDhcpFlagOfTheFields)
{
    configureDhcp("eth1", "10.0.0.77", "255.255.255.0");
    ORX_LANEndpointAPI endpoint("eth1");
    endpoint.get();
    world.addresses["eth1"] = {"10.0.0.78", "255.255.0.0", ""};
    world.failNth(1, "fopen", EACCES);
    EXPECT_EQ(1, endpoint.get());
    EXPECT_EQ("eth1|10.0.0.78|255.255.0.0|10.0.0.1|dhcp", shown(endpoint));
}

TEST_F(EndpointApi, InitEmptiesEverythingButTheName)
{
    configureDhcp("eth1", "10.0.0.77", "255.255.255.0");
    ORX_LANEndpointAPI endpoint("eth1");
    endpoint.get();
    endpoint.startChange();
    endpoint.init();
    EXPECT_EQ("eth1||||static", shown(endpoint));
    world.clearJournal();
    endpoint.setGateway("10.0.0.2"); // no longer inside a change
    EXPECT_NE(Lines{}, world.journal());
}

TEST_F(EndpointApi, TheNameCanBeSet)
{
    ORX_LANEndpointAPI endpoint;
    EXPECT_EQ(1, endpoint.setName("eth1"));
    EXPECT_EQ("eth1||||static", shown(endpoint));
}

TEST_F(EndpointApi, InsideAChangeTheSettersOnlyRecord)
{
    ORX_LANEndpointAPI endpoint("eth1");
    EXPECT_EQ(1, endpoint.startChange());
    EXPECT_EQ(0, endpoint.setIPAddress("10.0.0.6"));
    EXPECT_EQ(0, endpoint.setSubnetMask("255.255.0.0"));
    EXPECT_EQ(0, endpoint.setGateway("10.0.0.2"));
    EXPECT_EQ("eth1|10.0.0.6|255.255.0.0|10.0.0.2|static", shown(endpoint));
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(EndpointApi, OutsideAChangeEachSetterAppliesAtOnce)
{
    ORX_LANEndpointAPI endpoint("eth1");
    endpoint.get();

    world.clearJournal();
    EXPECT_EQ(0, endpoint.setIPAddress("10.0.0.6"));
    EXPECT_EQ(reading("eth1") + checking("eth1", "10.0.0.6", "10.0.0.1") + addressChange("eth1", "10.0.0.6"),
              world.journal());

    configureStatic("eth1", "10.0.0.6", "255.255.255.0");
    world.clearJournal();
    EXPECT_EQ(0, endpoint.setSubnetMask("255.255.0.0"));
    EXPECT_EQ(reading("eth1") + checking("eth1", "10.0.0.6", "10.0.0.1") + maskChange("eth1", "255.255.0.0"),
              world.journal());

    configureStatic("eth1", "10.0.0.6", "255.255.0.0");
    world.clearJournal();
    EXPECT_EQ(0, endpoint.setGateway("10.0.0.2"));
    EXPECT_EQ(reading("eth1") + checking("eth1", "10.0.0.6", "10.0.0.2") +
                  gatewayChange("eth1", "10.0.0.1", "10.0.0.2"),
              world.journal());
}

TEST_F(EndpointApi, OutsideAChangeTheOutcomeIsLost)
{
    ORX_LANEndpointAPI endpoint("eth1");
    endpoint.get();
    EXPECT_EQ(0, endpoint.setIPAddress("nonsense"));
    EXPECT_EQ("eth1|nonsense|255.255.255.0|10.0.0.1|static", shown(endpoint));
    EXPECT_EQ(Lines{}, world.journal(Effects));
}

TEST_F(EndpointApi, AnEndpointIsCopiedWithItsChangeInProgress)
{
    ORX_LANEndpointAPI endpoint("eth1");
    endpoint.get();
    endpoint.startChange();
    ORX_LANEndpointAPI copy;
    copy = endpoint;
    world.clearJournal();
    copy.setIPAddress("10.0.0.6");
    EXPECT_EQ(Lines{}, world.journal());
    EXPECT_EQ("eth1|10.0.0.6|255.255.255.0|10.0.0.1|static", shown(copy));
    EXPECT_EQ("eth1|10.0.0.5|255.255.255.0|10.0.0.1|static", shown(endpoint));
}

TEST_F(EndpointApi, TheFilesOfTheConfigurationAreTheServersOwn)
{
    EXPECT_STREQ("/etc/sysconfig/network-scripts/ifcfg-", ifcfgPath);
    EXPECT_STREQ("/etc/sysconfig/network", gatewayFile);
    EXPECT_STREQ("/etc/hosts", hostFile);
}

} // namespace
