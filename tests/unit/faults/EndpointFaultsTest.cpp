// Every call that an operation on LAN endpoints makes, failing.

#include "FaultMatrix.hpp"

#include <gtest/gtest.h>

using namespace faults;

namespace
{

const std::string invalidAddress = "ORX_LANEndpoint.cpp 1 Invalid IP address format";
const std::string notNotified =
    "ORX_LANEndpoint.cpp 1 Failed to notify related components on the address change";
const std::string mtuNotSet = "ORX_LANEndpoint.cpp 1 MTU size not set. Error reported in kernel";

std::string notExecuted(const std::string& command)
{
    return "ORX_LANEndpointAPI.cpp 16 Failed to execute the command: " + command;
}

} // namespace

TEST(EndpointFaults, EnumeratingNamesAsksNothingOfTheServer)
{
    // There is nothing to fail: the three names are known.
    Server server;
    EXPECT_EQ(3U, server.names("ORX_LANEndpoint").size());
    EXPECT_EQ(Lines{}, server.world.journal(fakes::Everything | fakes::Content));
}

TEST(EndpointFaults, InstancesAreEnumeratedWhateverFails)
{
    EXPECT_EQ(Lines{},
              consequences({nothingMore, [](Server& server) { server.instances("ORX_LANEndpoint"); }}));
}

TEST(EndpointFaults, AnInstanceIsReadWhateverFails)
{
    EXPECT_EQ(Lines{}, consequences({nothingMore, [](Server& server) { server.get(endpointPath("eth0")); }}));
}

TEST(EndpointFaults, AnInstanceWithAnAddressFromDhcpIsReadWhateverFails)
{
    EXPECT_EQ(Lines{}, consequences({[](Server& server) { server.configureDhcp(); },
                                     [](Server& server) { server.get(endpointPath("eth1")); }}));
}

TEST(EndpointFaults, AnInstanceWithoutStoredMtuIsReadWhateverFails)
{
    EXPECT_EQ(Lines{}, consequences({[](Server& server) { server.world.registry.clear(); },
                                     [](Server& server) { server.get(endpointPath("eth2")); }}));
}

TEST(EndpointFaults, AChangeOfTheAddressNeedsTheStoredMaskTheChecksVoiceMessagingAndTheNotice)
{
    EXPECT_EQ(each({"socket EMFILE", "ioctl SIOCGIFHWADDR eth1 EIO",
                    "fopen /etc/sysconfig/network-scripts/ifcfg-eth1 r #1 EACCES",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth1 #1 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth1 #2 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth1 #3 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth1 #4 EIO",
                    "dhcpIpInfoIsIPAddrValid 10.0.0.9 refused", "osIsZODAOnePresent 5",
                    "dhcpIpInfoIsIPAddrValid 10.0.0.1 refused"},
                   invalidAddress) +
                  each({"runcommand /kv/bin/processcontrol stop voicemail 1"},
                       notExecuted("/kv/bin/processcontrol stop voicemail")) +
                  each({"runcommand /kv/bin/processcontrol start voicemail 1"},
                       notExecuted("/kv/bin/processcontrol start voicemail")) +
                  each({"EmsConnectionOpen 0 5", "EmsIpAddressChange 1 1 2 5"}, notNotified),
              consequences({nothingMore, [](Server& server) {
                                server.modifyEndpoint("eth1", {text("IPAddress", "10.0.0.9")});
                            }}));
}

TEST(EndpointFaults, AChangeOfTheMaskNeedsTheStoredAddressTheChecksAndVoiceMessaging)
{
    EXPECT_EQ(each({"socket EMFILE", "ioctl SIOCGIFHWADDR eth2 EIO",
                    "fopen /etc/sysconfig/network-scripts/ifcfg-eth2 r #1 EACCES",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth2 #1 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth2 #2 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth2 #3 EIO",
                    "dhcpIpInfoIsIPAddrValid 172.16.0.1 #1 refused", "osIsZODAOnePresent 5",
                    "dhcpIpInfoIsIPAddrValid 172.16.0.1 #2 refused"},
                   invalidAddress) +
                  each({"runcommand /kv/bin/processcontrol stop voicemail 1"},
                       notExecuted("/kv/bin/processcontrol stop voicemail")) +
                  each({"runcommand /kv/bin/processcontrol start voicemail 1"},
                       notExecuted("/kv/bin/processcontrol start voicemail")),
              consequences({nothingMore, [](Server& server) {
                                server.modifyEndpoint("eth2", {text("SubnetMask", "255.255.0.0")});
                            }}));
}

TEST(EndpointFaults, AChangeOfTheGatewayNeedsTheStoredAddressAndTheChecks)
{
    EXPECT_EQ(each({"socket EMFILE", "ioctl SIOCGIFHWADDR eth1 EIO",
                    "fopen /etc/sysconfig/network-scripts/ifcfg-eth1 r #1 EACCES",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth1 #1 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth1 #2 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth1 #3 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth1 #4 EIO",
                    "dhcpIpInfoIsIPAddrValid 10.0.0.5 refused", "osIsZODAOnePresent 5",
                    "dhcpIpInfoIsIPAddrValid 10.0.0.7 refused"},
                   invalidAddress),
              consequences({nothingMore, [](Server& server) {
                                server.modifyEndpoint("eth1", {text("DefaultGateway", "10.0.0.7")});
                            }}));
}

TEST(EndpointFaults, AChangeOfAddressMaskAndGatewayNeedsNothingStored)
{
    EXPECT_EQ(each({"dhcpIpInfoIsIPAddrValid 10.1.0.9 refused", "osIsZODAOnePresent 5",
                    "dhcpIpInfoIsIPAddrValid 10.1.0.1 refused"},
                   invalidAddress) +
                  each({"runcommand /kv/bin/processcontrol stop voicemail #1 1"},
                       notExecuted("/kv/bin/processcontrol stop voicemail")) +
                  each({"runcommand /kv/bin/processcontrol start voicemail #1 1"},
                       notExecuted("/kv/bin/processcontrol start voicemail")) +
                  each({"EmsConnectionOpen 0 5", "EmsIpAddressChange 1 1 2 5"}, notNotified) +
                  each({"runcommand /kv/bin/processcontrol stop voicemail #2 1"},
                       notExecuted("/kv/bin/processcontrol stop voicemail")) +
                  each({"runcommand /kv/bin/processcontrol start voicemail #2 1"},
                       notExecuted("/kv/bin/processcontrol start voicemail")),
              consequences({nothingMore, [](Server& server) {
                                server.modifyEndpoint("eth1", {text("IPAddress", "10.1.0.9"),
                                                               text("SubnetMask", "255.255.0.0"),
                                                               text("DefaultGateway", "10.1.0.1")});
                            }}));
}

TEST(EndpointFaults, ASwitchToDhcpNeedsItsScriptAndVoiceMessagingAndIsThenCheckedLikeAChange)
{
    EXPECT_EQ(each({"socket EMFILE", "ioctl SIOCGIFHWADDR eth1 EIO",
                    "fopen /etc/sysconfig/network-scripts/ifcfg-eth1 r #1 EACCES",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth1 #1 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth1 #2 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth1 #3 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth1 #4 EIO"},
                   invalidAddress) +
                  each({"runcommand /kv/bin/processcontrol stop voicemail 1"},
                       notExecuted("/kv/bin/processcontrol stop voicemail")) +
                  each({"runcommand /kv/bin/dhcp_ippaddr.sh eth1 & 1"},
                       notExecuted("/kv/bin/dhcp_ippaddr.sh eth1 &")) +
                  each({"dhcpIpInfoIsIPAddrValid 10.0.0.5 refused", "osIsZODAOnePresent 5",
                        "dhcpIpInfoIsIPAddrValid 10.0.0.1 refused"},
                       invalidAddress),
              consequences({nothingMore, [](Server& server) {
                                server.modifyEndpoint("eth1", {flag("isDhcpEnabled", true)});
                            }}));
}

TEST(EndpointFaults, ASwitchFromDhcpSucceedsWhateverFails)
{
    EXPECT_EQ(Lines{}, consequences({[](Server& server) { server.configureDhcp(); },
                                     [](Server& server) {
                                         server.modifyEndpoint("eth1", {flag("isDhcpEnabled", false)});
                                     }}));
}

TEST(EndpointFaults, AChangeOfTheMtuNeedsTheKernelAndIsThenCheckedLikeAChange)
{
    EXPECT_EQ(each({"socket #1 EMFILE", "ioctl SIOCGIFHWADDR eth0 EIO",
                    "fopen /etc/sysconfig/network-scripts/ifcfg-eth0 r #1 EACCES",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth0 #1 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth0 #2 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth0 #3 EIO",
                    "fgets /etc/sysconfig/network-scripts/ifcfg-eth0 #4 EIO"},
                   invalidAddress) +
                  each({"socket #2 EMFILE", "ioctl SIOCSIFMTU eth0 1400 EIO"}, mtuNotSet) +
                  each({"dhcpIpInfoIsIPAddrValid 192.168.0.1 #1 refused", "osIsZODAOnePresent 5",
                        "dhcpIpInfoIsIPAddrValid 192.168.0.1 #2 refused"},
                       invalidAddress),
              consequences({nothingMore, [](Server& server) {
                                server.modifyEndpoint("eth0", {number("MaxDataSize", 1400)});
                            }}));
}
