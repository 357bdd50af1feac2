// Every call that an operation on the LAN settings makes, failing.

#include "FaultMatrix.hpp"

#include <gtest/gtest.h>

using namespace faults;

namespace
{

const std::string invalidAddress = "ORX_LANSetting.cpp 1 Invalid IP address format#LAN_ERROR_invalidIP#";
const std::string noHostInfo = "ORX_LANSetting.cpp 1 Error getting host info. #LAN_ERROR_cannotGetHostInfo#";
const std::string noInformation =
    "ORX_LANSetting.cpp 1 Error reading information#LAN_ERROR_cannotReadInformation#";

// The settings are what could be read of them. Switches but the ICMP switch are never lowered by a reading.
const Lines whenReading =
    each({"gethostname 1024 EFAULT"}, "nothing, spoils domain") +
    each({"gethostbyname pbx TRY_AGAIN"}, noHostInfo) +
    each(
        {"fopen /etc/resolv.conf r EACCES", "fgets /etc/resolv.conf #1 EIO", "fgets /etc/resolv.conf #2 EIO"},
        "nothing, spoils primary, secondary") +
    each({"fgets /etc/resolv.conf #3 EIO"}, "nothing, spoils secondary") +
    each({"osIsZODAOnePresent 5"}, noInformation) +
    each({"fopen /kv/etc/kv_netfilter.cfg r #1 EACCES", "fgets /kv/etc/kv_netfilter.cfg #1 EIO"},
         "nothing, spoils ICMP");

} // namespace

TEST(SettingFaults, NamesAreEnumeratedUnlessHostOrRouterCardCannotBeAsked)
{
    EXPECT_EQ(whenReading,
              consequences({nothingMore, [](Server& server) { server.names("ORX_LANServiceSetting"); }}));
}

TEST(SettingFaults, InstancesAreEnumeratedUnlessHostOrRouterCardCannotBeAsked)
{
    EXPECT_EQ(whenReading,
              consequences({nothingMore, [](Server& server) { server.instances("ORX_LANServiceSetting"); }}));
}

TEST(SettingFaults, AnInstanceIsReadUnlessHostOrRouterCardCannotBeAsked)
{
    EXPECT_EQ(whenReading, consequences({nothingMore, [](Server& server) {
                                             server.get(OpenWBEM::CIMObjectPath("ORX_LANServiceSetting"));
                                         }}));
}

TEST(SettingFaults, ADomainIsSetEvenWhereItsFileCannotBeWritten)
{
    EXPECT_EQ(each({"fwrite /etc/resolv.conf ENOSPC"}, "nothing, spoils /etc/resolv.conf"),
              consequences({nothingMore, [](Server& server) {
                                server.modifySetting({text("DomainName", "other.example")});
                            }}));
}

TEST(SettingFaults, NameServersAreSetUnlessTheyAreNoAddresses)
{
    EXPECT_EQ(
        each({"dhcpIpInfoIsIPAddrValid 10.0.0.8 refused"}, invalidAddress) +
            each({"dhcpIpInfoIsIPAddrValid 10.0.0.9 refused"}, invalidAddress + ", spoils /etc/resolv.conf") +
            each({"fopen /etc/resolv.conf w #2 EACCES", "fwrite /etc/resolv.conf #2 ENOSPC"},
                 "nothing, spoils /etc/resolv.conf"),
        consequences(
            {nothingMore, [](Server& server) {
                 server.modifySetting({text("PrimaryDNS", "10.0.0.8"), text("SecondaryDNS", "10.0.0.9")});
             }}));
}

TEST(SettingFaults, ANameServerIsRemovedEvenWhereItsFileCannotBeWritten)
{
    EXPECT_EQ(
        each({"fwrite /etc/resolv.conf ENOSPC"}, "nothing, spoils /etc/resolv.conf"),
        consequences({nothingMore, [](Server& server) { server.modifySetting({text("PrimaryDNS", "")}); }}));
}

TEST(SettingFaults, SwitchesAreSetEvenWhereTheirFileOrTheKernelFails)
{
    EXPECT_EQ(
        each({"fopen /kv/etc/kv_netfilter.cfg r #1 EACCES", "fgets /kv/etc/kv_netfilter.cfg #1 EIO",
              "fgets /kv/etc/kv_netfilter.cfg #2 EIO",      "fgets /kv/etc/kv_netfilter.cfg #3 EIO",
              "fgets /kv/etc/kv_netfilter.cfg #4 EIO",      "fopen /kv/etc/kv_netfilter.cfg w #1 EACCES",
              "fprintf /kv/etc/kv_netfilter.cfg #1 ENOSPC", "fprintf /kv/etc/kv_netfilter.cfg #2 ENOSPC",
              "fprintf /kv/etc/kv_netfilter.cfg #3 ENOSPC", "fprintf /kv/etc/kv_netfilter.cfg #4 ENOSPC",
              "fopen /kv/etc/kv_netfilter.cfg r #2 EACCES", "fgets /kv/etc/kv_netfilter.cfg #6 EIO",
              "fgets /kv/etc/kv_netfilter.cfg #7 EIO",      "fgets /kv/etc/kv_netfilter.cfg #8 EIO",
              "fgets /kv/etc/kv_netfilter.cfg #9 EIO",      "fopen /kv/etc/kv_netfilter.cfg w #2 EACCES",
              "fprintf /kv/etc/kv_netfilter.cfg #5 ENOSPC", "fprintf /kv/etc/kv_netfilter.cfg #6 ENOSPC",
              "fprintf /kv/etc/kv_netfilter.cfg #7 ENOSPC", "fprintf /kv/etc/kv_netfilter.cfg #8 ENOSPC"},
             "nothing, spoils /kv/etc/kv_netfilter.cfg"),
        consequences(
            {nothingMore, [](Server& server) {
                 server.modifySetting({flag("isIcmpFilterEnabled", false), flag("isArpFilterEnabled", true)});
             }}));
}

TEST(SettingFaults, AResetOfTheRouterFailsByItsStatusAlone)
{
    EXPECT_EQ(
        each({"osResetRouter 4"},
             "ORX_LANSetting.cpp 1 Failed to press the router reset button#LAN_ERROR_routerResetFailed#") +
            each({"osResetRouter 103"},
                 "ORX_LANSetting.cpp 1 No router attached#LAN_ERROR_noRouterAttached#") +
            each({"osResetRouter 5"},
                 "ORX_LANSetting.cpp 1 Router reset failed#LAN_ERROR_routerResetFailed#"),
        consequences(
            {nothingMore, [](Server& server) { server.invoke("ORX_LANServiceSetting", "ResetRouter"); }}));
}
