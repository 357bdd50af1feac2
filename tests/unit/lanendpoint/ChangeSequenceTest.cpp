// What an accepted change does to the server, as the whole journal.

#include "EndpointServer.hpp"
#include "Failures.hpp"
#include "lanendpoint/ORX_LANEndpointAPI.hpp"

#include <gtest/gtest.h>

#include <cerrno>

using namespace fakes; // for the sums of journal lines

namespace
{

struct NewValues {
    std::string address, mask, gateway;
};

const std::map<std::string, NewValues> oldValues = {
    {"eth0", {"192.168.0.1", "255.255.255.0", ""}},
    {"eth1", {"10.0.0.5", "255.255.255.0", "10.0.0.1"}},
    {"eth2", {"172.16.0.1", "255.255.255.0", ""}},
};

class ChangeSequences : public EndpointServer
{
  protected:
    static ORX_LANEndpointAPI begun(const std::string& ifName)
    {
        ORX_LANEndpointAPI endpoint(ifName.c_str());
        endpoint.get();
        endpoint.startChange();
        return endpoint;
    }

    int end(ORX_LANEndpointAPI& endpoint)
    {
        world.clearJournal();
        return endpoint.endChange();
    }
};

constexpr int changesAddress = 1;
constexpr int changesMask = 2;
constexpr int changesGateway = 4;

/// Each interface with each selection of address, mask and gateway.
class EveryChange : public ChangeSequences, public ::testing::WithParamInterface<std::tuple<const char*, int>>
{
  protected:
    const std::string ifName = std::get<0>(GetParam());
    const int changes = std::get<1>(GetParam());
};

TEST_P(EveryChange, IsAppliedInItsOrderAndNothingElseHappens)
{
    const NewValues& old = oldValues.at(ifName);
    NewValues values = old;
    ORX_LANEndpointAPI endpoint = begun(ifName);
    Lines applied;
    if (changes & changesAddress) {
        values.address = old.address.substr(0, old.address.size() - 1) + "6";
        endpoint.setIPAddress(values.address.c_str());
        applied = applied + addressChange(ifName, values.address);
    }
    if (changes & changesMask) {
        values.mask = "255.255.255.128";
        endpoint.setSubnetMask(values.mask.c_str());
        applied = applied + maskChange(ifName, values.mask);
    }
    if (changes & changesGateway) {
        values.gateway = "10.0.0.2";
        endpoint.setGateway(values.gateway.c_str());
        applied = applied + gatewayChange(ifName, old.gateway, values.gateway);
    }
    EXPECT_EQ(1, end(endpoint));
    EXPECT_EQ(reading(ifName) + checking(ifName, values.address, values.gateway) + applied, world.journal());
}

INSTANTIATE_TEST_SUITE_P(AllInterfaces, EveryChange,
                         ::testing::Combine(::testing::Values("eth0", "eth1", "eth2"),
                                            ::testing::Range(1, 8)));

TEST_F(ChangeSequences, ANewAddressOfTheCustomerLanIsThisSequence)
{
    ORX_LANEndpointAPI endpoint = begun("eth1");
    endpoint.setIPAddress("10.0.0.6");
    EXPECT_EQ(1, end(endpoint));
    EXPECT_EQ((Lines{"dhcpIpInfoRequestDHCPLANSemaphore",
                     "runcommand /kv/bin/updateFile ifcfg eth1 IPADDR 10.0.0.6",
                     "dhcpIpInfoReleaseDHCPLANSemaphore", "dhcpIpInfoRequestDHCPLANSemaphore",
                     "runcommand /kv/bin/updatehosts ipaddress 10.0.0.6", "dhcpIpInfoReleaseDHCPLANSemaphore",
                     "runcommand /kv/bin/processcontrol stop voicemail", "runcommand ifdown eth1;ifup eth1",
                     "runcommand /kv/bin/processcontrol start voicemail",
                     "dhcpIpInfoInformDHCPProviderOfIPConfigChange", "EmsConnectionOpen 0",
                     "EmsIpAddressChange 1 1 2", "sleep 1", "EmsConnectionClose"}),
              world.journal(Effects));
}

TEST_F(ChangeSequences, ANewAddressOfTheInternalLanTouchesNeitherHostsNorDhcp)
{
    ORX_LANEndpointAPI endpoint = begun("eth0");
    endpoint.setIPAddress("192.168.0.2");
    EXPECT_EQ(1, end(endpoint));
    EXPECT_EQ((Lines{"dhcpIpInfoRequestDHCPLANSemaphore",
                     "runcommand /kv/bin/updateFile ifcfg eth0 IPADDR 192.168.0.2",
                     "dhcpIpInfoReleaseDHCPLANSemaphore", "runcommand /kv/bin/processcontrol stop voicemail",
                     "runcommand ifdown eth0;ifup eth0", "runcommand /kv/bin/processcontrol start voicemail",
                     "EmsConnectionOpen 0", "EmsIpAddressChange 1 1 1", "sleep 1", "EmsConnectionClose"}),
              world.journal(Effects));
}

TEST_F(ChangeSequences, ANewGatewayOfTheOamLanMovesTheDefaultRouteOfTheCustomerLan)
{
    ORX_LANEndpointAPI endpoint = begun("eth2");
    endpoint.setGateway("10.0.0.2");
    EXPECT_EQ(1, end(endpoint));
    EXPECT_EQ(
        (Lines{"dhcpIpInfoRequestDHCPLANSemaphore", "runcommand /kv/bin/updatehosts routeraddress 10.0.0.2",
               "dhcpIpInfoReleaseDHCPLANSemaphore", "dhcpIpInfoRequestDHCPLANSemaphore",
               "runcommand /kv/bin/updateFile gateway 10.0.0.2", "dhcpIpInfoReleaseDHCPLANSemaphore",
               "runcommand route delete default gw  eth1", "runcommand route add default gw 10.0.0.2 eth1",
               "dhcpIpInfoInformDHCPProviderOfIPConfigChange"}),
        world.journal(Effects));
}

TEST_F(ChangeSequences, ANameThatOnlyBeginsLikeTheCustomerLansDoesNotTouchTheHosts)
{
    configureStatic("eth10", "10.3.0.5", "255.255.255.0");
    ORX_LANEndpointAPI endpoint = begun("eth10");
    endpoint.setIPAddress("10.3.0.6");
    EXPECT_EQ(1, end(endpoint));
    EXPECT_EQ(reading("eth10") + checking("eth10", "10.3.0.6", "") +
                  bracketed("/kv/bin/updateFile ifcfg eth10 IPADDR 10.3.0.6") + restart("eth10") +
                  dhcpNotice("eth10") + emsNotice("eth1"),
              world.journal());
}

TEST_F(ChangeSequences, EveryNameWithAZeroBehindEthKeepsFromTheDhcpService)
{
    configureStatic("eth01", "10.3.0.5", "255.255.255.0");
    ORX_LANEndpointAPI endpoint = begun("eth01");
    endpoint.setIPAddress("10.3.0.6");
    endpoint.setSubnetMask("255.255.0.0");
    endpoint.setGateway("10.0.0.2");
    EXPECT_EQ(1, end(endpoint));
    EXPECT_EQ(reading("eth01") + checking("eth01", "10.3.0.6", "10.0.0.2") +
                  bracketed("/kv/bin/updateFile ifcfg eth01 IPADDR 10.3.0.6") + restart("eth01") +
                  emsNotice("eth0") + bracketed("/kv/bin/updateFile ifcfg eth01 NETMASK 255.255.0.0") +
                  restart("eth01") + gatewayChange("eth0", "", "10.0.0.2"),
              world.journal());
}

TEST_F(ChangeSequences, AnEmptiedGatewayIsPassedOnEmpty)
{
    ORX_LANEndpointAPI endpoint = begun("eth1");
    endpoint.setGateway("");
    EXPECT_EQ(1, end(endpoint));
    EXPECT_EQ(gatewayChange("eth1", "10.0.0.1", ""), world.journal(Effects));
}

TEST_F(ChangeSequences, WithoutAFileEveryPendingValueCountsAsChanged)
{
    ORX_LANEndpointAPI endpoint = begun("eth2");
    world.failNth(1, "fopen", EACCES);
    EXPECT_EQ(1, end(endpoint));
    EXPECT_EQ(addressChange("eth2", "172.16.0.1") + maskChange("eth2", "255.255.255.0"),
              world.journal(Effects));
}

TEST_F(ChangeSequences, FailingHelpersAreNotNoticed)
{
    for (const char* failing : {"updateFile", "updatehosts", "ifdown", "route"})
        world.failAll("runcommand", 1, failing);
    ORX_LANEndpointAPI endpoint = begun("eth1");
    endpoint.setIPAddress("10.0.0.6");
    endpoint.setSubnetMask("255.255.0.0");
    endpoint.setGateway("10.0.0.2");
    EXPECT_EQ(1, end(endpoint));
    EXPECT_EQ(addressChange("eth1", "10.0.0.6") + maskChange("eth1", "255.255.0.0") +
                  gatewayChange("eth1", "10.0.0.1", "10.0.0.2"),
              world.journal(Effects));
}

TEST_F(ChangeSequences, AFailingDhcpNoticeIsNotNoticed)
{
    world.failAll("dhcpIpInfoInformDHCPProviderOfIPConfigChange", 1);
    ORX_LANEndpointAPI endpoint = begun("eth1");
    endpoint.setSubnetMask("255.255.0.0");
    EXPECT_EQ(1, end(endpoint));
    EXPECT_EQ(maskChange("eth1", "255.255.0.0"), world.journal(Effects));
}

/// A change of everything whose notice to the element-management service fails.
class FailingNotices : public ChangeSequences
{
  protected:
    const Lines changeWithoutNotice =
        bracketed("/kv/bin/updateFile ifcfg eth2 IPADDR 172.16.0.2") + restart("eth2") + dhcpNotice("eth2");

    int outcome()
    {
        ORX_LANEndpointAPI endpoint = begun("eth2");
        endpoint.setIPAddress("172.16.0.2");
        endpoint.setSubnetMask("255.255.0.0");
        endpoint.setGateway("10.0.0.2");
        return end(endpoint);
    }
};

TEST_F(FailingNotices, AConnectionThatCannotBeOpenedEndsTheChangeBehindTheAddress)
{
    world.failNth(1, "EmsConnectionOpen", 11);
    EXPECT_EQ(4, outcome());
    EXPECT_EQ(changeWithoutNotice +
                  (Lines{"EmsConnectionOpen 0",
                         "syslog 5 ORX_LANEndpointAPI: Cannot Open EMS connection: error code: 11\n"}),
              world.journal(Effects));
}

TEST_F(FailingNotices, AnAnnouncementThatFailsEndsTheChangeBehindTheAddress)
{
    world.failNth(1, "EmsIpAddressChange", 12);
    EXPECT_EQ(4, outcome());
    EXPECT_EQ(changeWithoutNotice +
                  (Lines{"EmsConnectionOpen 0", "EmsIpAddressChange 1 1 4",
                         "syslog 5 ORX_LANEndpointAPI: Cannot notify IP address change: error code: 12\n"}),
              world.journal(Effects));
}

TEST_F(FailingNotices, AConnectionThatCannotBeClosedEndsNothing)
{
    world.failNth(1, "EmsConnectionClose", 13);
    EXPECT_EQ(1, outcome());
    EXPECT_EQ(changeWithoutNotice + emsNotice("eth2") +
                  Lines{"syslog 5 ORX_LANEndpointAPI: Cannot close EMS connection: error code: 13\n"} +
                  maskChange("eth2", "255.255.0.0") + gatewayChange("eth2", "", "10.0.0.2"),
              world.journal(Effects));
}

TEST_F(FailingNotices, AfterTheFailureTheChangeIsNoLongerInProgress)
{
    world.failNth(1, "EmsConnectionOpen", 11);
    ORX_LANEndpointAPI endpoint = begun("eth2");
    endpoint.setIPAddress("172.16.0.2");
    EXPECT_EQ(4, end(endpoint));
    world.clearJournal();
    endpoint.setIPAddress("nonsense");
    EXPECT_NE(Lines{}, world.journal());
}

TEST_F(ChangeSequences, VoiceMessagingThatCannotBeStoppedEndsTheChangeThere)
{
    world.failAll("runcommand", 1, "stop voicemail");
    ORX_LANEndpointAPI endpoint = begun("eth2");
    endpoint.setIPAddress("172.16.0.2");
    endpoint.setSubnetMask("255.255.0.0");
    EXPECT_EQ(
        "ORX_LANEndpointAPI.cpp 16 Failed to execute the command: /kv/bin/processcontrol stop voicemail",
        failureOf([&] { end(endpoint); }));
    EXPECT_EQ(bracketed("/kv/bin/updateFile ifcfg eth2 IPADDR 172.16.0.2") +
                  Lines{"runcommand /kv/bin/processcontrol stop voicemail"},
              world.journal(Effects));
    world.clearJournal();
    endpoint.setIPAddress("nonsense"); // applied at once: the change is no longer in progress
    EXPECT_NE(Lines{}, world.journal());
}

TEST_F(ChangeSequences, VoiceMessagingThatCannotBeStartedEndsTheChangeThere)
{
    world.failAll("runcommand", 1, "start voicemail");
    ORX_LANEndpointAPI endpoint = begun("eth2");
    endpoint.setSubnetMask("255.255.0.0");
    endpoint.setGateway("10.0.0.2");
    EXPECT_EQ(
        "ORX_LANEndpointAPI.cpp 16 Failed to execute the command: /kv/bin/processcontrol start voicemail",
        failureOf([&] { end(endpoint); }));
    EXPECT_EQ(bracketed("/kv/bin/updateFile ifcfg eth2 NETMASK 255.255.0.0") + restart("eth2"),
              world.journal(Effects));
}

} // namespace
