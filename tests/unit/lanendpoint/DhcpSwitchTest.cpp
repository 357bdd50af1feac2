#include "EndpointServer.hpp"
#include "Failures.hpp"
#include "lanendpoint/ORX_LANEndpointAPI.hpp"

#include <gtest/gtest.h>

using namespace fakes; // for the sums of journal lines
using OpenWBEM::String;

namespace
{

class DhcpSwitches : public EndpointServer
{
  protected:
    static bool isDhcpEnabled(const ORX_LANEndpointAPI& endpoint)
    {
        bool isEnabled = false;
        endpoint.getIsDHCPEnabled(isEnabled);
        return isEnabled;
    }

    static ORX_LANEndpointAPI read(const std::string& ifName)
    {
        ORX_LANEndpointAPI endpoint(ifName.c_str());
        endpoint.get();
        return endpoint;
    }

    /// What both directions have in common: the files are rewritten with the address in force.
    static Lines rewrites(const std::string& ifName, const std::string& protocol, const IPInfo& inForce)
    {
        const std::string update = "/kv/bin/updateFile ifcfg " + ifName;
        return bracketed(update + " BOOTPROTO " + protocol) + Lines{"dhcpIpInfoGetIPInfo " + ifName} +
               bracketed(update + " IPADDR " + inForce.address) +
               bracketed(update + " NETMASK " + inForce.mask) +
               bracketed("/kv/bin/updateFile gateway " + inForce.gateway);
    }

    static Lines backgroundScript(const std::string& ifName)
    {
        return {"runcommand /kv/bin/processcontrol stop voicemail",
                "runcommand /kv/bin/dhcp_ippaddr.sh " + ifName + " &"};
    }

    /// A switch from the fixed address of `ifName` to DHCP, with another address in force.
    void expectSwitchingOn(const std::string& ifName)
    {
        ORX_LANEndpointAPI endpoint = read(ifName);
        world.addresses[ifName] = inForce;
        world.clearJournal();
        EXPECT_EQ(0, endpoint.setIsDHCPEnabled(true));
        EXPECT_TRUE(isDhcpEnabled(endpoint));
        EXPECT_EQ(rewrites(ifName, "dhcp", inForce) + backgroundScript(ifName) + notice, world.journal());
    }

    const IPInfo inForce = {"10.9.8.7", "255.255.248.0", "10.9.8.1"};
    const Lines notice = {"dhcpIpInfoInformDHCPProviderOfIPConfigChange"};
};

TEST_F(DhcpSwitches, SwitchingOnStartsTheScriptAndLeavesVoiceMessagingToIt)
{
    for (const char* ifName : {"eth1", "eth2"})
        expectSwitchingOn(ifName);
}

TEST_F(DhcpSwitches, SwitchingOffKeepsTheAddressInForce)
{
    for (const std::string ifName : {"eth1", "eth2"}) {
        configureDhcp(ifName, "10.0.0.77", "255.255.255.0");
        ORX_LANEndpointAPI endpoint = read(ifName);
        world.addresses[ifName] = inForce;
        world.clearJournal();
        EXPECT_EQ(0, endpoint.setIsDHCPEnabled(false));
        EXPECT_FALSE(isDhcpEnabled(endpoint));
        EXPECT_EQ(rewrites(ifName, "static", inForce) + notice, world.journal());
    }
}

TEST_F(DhcpSwitches, TheInternalLanIsNeverSwitched)
{
    ORX_LANEndpointAPI endpoint = read("eth0");
    world.clearJournal();
    EXPECT_EQ(0, endpoint.setIsDHCPEnabled(true));
    EXPECT_FALSE(isDhcpEnabled(endpoint));
    EXPECT_EQ(Lines{}, world.journal());

    configureDhcp("eth0", "192.168.0.7", "255.255.255.0");
    endpoint = read("eth0");
    world.clearJournal();
    EXPECT_EQ(0, endpoint.setIsDHCPEnabled(false));
    EXPECT_TRUE(isDhcpEnabled(endpoint));
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(DhcpSwitches, AnInterfaceWhoseNameOnlyBeginsLikeTheInternalLansIsSwitched)
{
    configureStatic("eth01", "10.3.0.5", "255.255.255.0");
    expectSwitchingOn("eth01");
}

TEST_F(DhcpSwitches, ASwitchToWhatIsDoesNothing)
{
    ORX_LANEndpointAPI fixed = read("eth1");
    configureDhcp("eth2", "172.16.0.77", "255.255.255.0");
    ORX_LANEndpointAPI dynamic = read("eth2");
    world.clearJournal();
    EXPECT_EQ(0, fixed.setIsDHCPEnabled(false));
    EXPECT_EQ(0, dynamic.setIsDHCPEnabled(true));
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(DhcpSwitches, InsideAChangeTheSwitchActsAtOnce)
{
    ORX_LANEndpointAPI endpoint = read("eth2");
    endpoint.startChange();
    world.clearJournal();
    endpoint.setIsDHCPEnabled(true);
    EXPECT_EQ(rewrites("eth2", "dhcp", {"172.16.0.1", "255.255.255.0", ""}) + backgroundScript("eth2") +
                  notice,
              world.journal());
}

TEST_F(DhcpSwitches, TheRecordedAddressStaysUntouched)
{
    ORX_LANEndpointAPI endpoint = read("eth1");
    world.addresses["eth1"] = inForce;
    endpoint.setIsDHCPEnabled(true);
    String address;
    endpoint.getIPAddress(address);
    EXPECT_STREQ("10.0.0.5", address.c_str());
}

TEST_F(DhcpSwitches, AnAddressThatIsNotKnownIsPassedOnEmpty)
{
    ORX_LANEndpointAPI endpoint = read("eth2");
    world.failNth(1, "dhcpIpInfoGetIPInfo", 1);
    world.clearJournal();
    endpoint.setIsDHCPEnabled(true);
    EXPECT_EQ(rewrites("eth2", "dhcp", {"", "", ""}) + backgroundScript("eth2") + notice, world.journal());
}

TEST_F(DhcpSwitches, FailingRewritesAreNotNoticed)
{
    world.failAll("runcommand", 1, "updateFile");
    ORX_LANEndpointAPI endpoint = read("eth1");
    world.addresses["eth1"] = inForce;
    world.clearJournal();
    EXPECT_EQ(0, endpoint.setIsDHCPEnabled(true));
    EXPECT_TRUE(isDhcpEnabled(endpoint));
    EXPECT_EQ(rewrites("eth1", "dhcp", inForce) + backgroundScript("eth1") + notice, world.journal());
}

TEST_F(DhcpSwitches, VoiceMessagingThatCannotBeStoppedEndsTheSwitchThere)
{
    world.failAll("runcommand", 1, "stop voicemail");
    ORX_LANEndpointAPI endpoint = read("eth1");
    world.addresses["eth1"] = inForce;
    world.clearJournal();
    EXPECT_EQ(
        "ORX_LANEndpointAPI.cpp 16 Failed to execute the command: /kv/bin/processcontrol stop voicemail",
        failureOf([&] { endpoint.setIsDHCPEnabled(true); }));
    EXPECT_FALSE(isDhcpEnabled(endpoint));
    EXPECT_EQ(rewrites("eth1", "dhcp", inForce) + Lines{"runcommand /kv/bin/processcontrol stop voicemail"},
              world.journal());
}

TEST_F(DhcpSwitches, AScriptThatFailsEndsTheSwitchThere)
{
    world.failAll("runcommand", 1, "dhcp_ippaddr.sh");
    ORX_LANEndpointAPI endpoint = read("eth2");
    world.addresses["eth2"] = inForce;
    world.clearJournal();
    EXPECT_EQ("ORX_LANEndpointAPI.cpp 16 Failed to execute the command: /kv/bin/dhcp_ippaddr.sh eth2 &",
              failureOf([&] { endpoint.setIsDHCPEnabled(true); }));
    EXPECT_FALSE(isDhcpEnabled(endpoint));
    EXPECT_EQ(rewrites("eth2", "dhcp", inForce) + backgroundScript("eth2"), world.journal());
}

} // namespace
