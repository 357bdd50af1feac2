// Changing the LAN settings, property by property.

#include "SettingRequests.hpp"

#include <cerrno>

namespace
{

using OpenWBEM::CIMInstance;
using OpenWBEM::CIMProperty;
using OpenWBEM::CIMValue;
using OpenWBEM::String;

class SettingModification : public SettingRequests
{
  protected:
    /// A client has read the instance, and nothing is in the journal.
    void givenRead()
    {
        givenResolverFile("search site.example\nnameserver 10.0.0.1\nnameserver 10.0.0.2\n");
        givenSwitches("0000");
        getInstance();
        world.clearJournal();
    }

    const Failure invalidIP = modelFailure("Invalid IP address format#LAN_ERROR_invalidIP#");
};

TEST_F(SettingModification, ChangesEachPropertyThroughTheModel)
{
    givenRead();
    modify({text("DomainName", "new.example")});
    EXPECT_EQ(world.journal(fakes::Registry), Lines{"KvuSetRegEntryUint16Ex 5 DNS domainName_Flag 1"});
    modify({text("PrimaryDNS", "10.1.1.1")});
    modify({text("SecondaryDNS", "10.1.1.2")});
    EXPECT_EQ(resolverFile(), "search new.example\nnameserver 10.1.1.1\nnameserver 10.1.1.2\n");

    world.clearJournal();
    modify({flag("isIcmpFilterEnabled", true)});
    modify({flag("isArpFilterEnabled", true)});
    modify({flag("isBroadcastFilterEnabled", true)});
    modify({flag("isIPAddressConflictEnabled", true)});
    EXPECT_EQ(world.journal(fakes::Kernel),
              (Lines{"ioctl /dev/kv_netfilter 0x8004AB02 1", "close /dev/kv_netfilter",
                     "ioctl /dev/kv_netfilter 0x8004AB03 1", "close /dev/kv_netfilter",
                     "ioctl /dev/kv_netfilter 0x8004AB05 1", "close /dev/kv_netfilter",
                     "ioctl /dev/kv_netfilter 0x8004AB04 1", "close /dev/kv_netfilter"}));
    EXPECT_EQ(switchesOf(setting), "1111");
}

TEST_F(SettingModification, TurnsASwitchOff)
{
    givenSwitches("1111");
    getInstance();
    world.clearJournal();
    modify({flag("isIPAddressConflictEnabled", false)});
    EXPECT_EQ(world.journal(fakes::Kernel),
              (Lines{"ioctl /dev/kv_netfilter 0x8004AB04 0", "close /dev/kv_netfilter"}));
    EXPECT_EQ(switchesOf(setting), "1110");
}

TEST_F(SettingModification, AppliesThePropertiesInTheInstancesOrder)
{
    givenRead();
    modify({flag("isArpFilterEnabled", true), text("SecondaryDNS", "10.1.1.2"),
            text("DomainName", "new.example"), flag("isIcmpFilterEnabled", true),
            text("PrimaryDNS", "10.1.1.1")});
    EXPECT_EQ(
        world.journal(fakes::Everything & ~fakes::File),
        (Lines{"ioctl /dev/kv_netfilter 0x8004AB03 1", "close /dev/kv_netfilter",
               "dhcpIpInfoIsIPAddrValid 10.1.1.2", "KvuSetRegEntryUint16Ex 5 DNS secondaryDNS_Flag 1",
               "dhcpIpInfoRequestDHCPLANSemaphore", "runcommand /kv/bin/updatehosts domainname new.example",
               "dhcpIpInfoReleaseDHCPLANSemaphore", "KvuSetRegEntryUint16Ex 5 DNS domainName_Flag 1",
               "ioctl /dev/kv_netfilter 0x8004AB02 1", "close /dev/kv_netfilter",
               "dhcpIpInfoIsIPAddrValid 10.1.1.1", "KvuSetRegEntryUint16Ex 5 DNS primaryDNS_Flag 1"}));
}

TEST_F(SettingModification, AFailureKeepsWhatCameBeforeAndLeavesOutTheRest)
{
    givenRead();
    EXPECT_EQ(failureOf([&] {
                  modify({text("DomainName", "new.example"), text("PrimaryDNS", "10.0.0"),
                          text("SecondaryDNS", "10.1.1.2"), flag("isIcmpFilterEnabled", true)});
              }),
              invalidIP);
    EXPECT_EQ(
        world.journal(),
        (Lines{"dhcpIpInfoRequestDHCPLANSemaphore", "runcommand /kv/bin/updatehosts domainname new.example",
               "dhcpIpInfoReleaseDHCPLANSemaphore", "fopen /etc/resolv.conf w", "fclose /etc/resolv.conf",
               "KvuSetRegEntryUint16Ex 5 DNS domainName_Flag 1", "dhcpIpInfoIsIPAddrValid 10.0.0",
               "gLogger ERROR Invalid IP address format"}));
    EXPECT_EQ(resolverFile(), "search new.example\nnameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    EXPECT_EQ(switchesOf(setting), "0000");
}

TEST_F(SettingModification, AnEchoOfTheValuesReadChangesNothing)
{
    givenSwitches("1010");
    givenResolverFile("search site.example\nnameserver 10.0.0.1\nnameserver 10.0.0.2\n");
    const CIMInstance read = getInstance();
    world.clearJournal();
    modifyInstance(read);
    EXPECT_EQ(world.journal(), Lines{});
}

TEST_F(SettingModification, AnotherLetterCaseIsAnotherValue)
{
    givenRead();
    modify({text("DomainName", "Example")});
    modify({text("DomainName", "example")});
    modify({text("DomainName", "EXAMPLE")});
    EXPECT_EQ(world.journal(fakes::Command), (Lines{"runcommand /kv/bin/updatehosts domainname Example",
                                                    "runcommand /kv/bin/updatehosts domainname example",
                                                    "runcommand /kv/bin/updatehosts domainname EXAMPLE"}));
}

TEST_F(SettingModification, ComparesWithTheLastReadAndNotWithTheServer)
{
    givenRead();
    givenResolverFile("nameserver 10.9.9.9\n");
    givenSwitches("1111");
    modify({text("PrimaryDNS", "10.0.0.1"), flag("isIcmpFilterEnabled", false)});
    EXPECT_EQ(world.journal(), Lines{}) << "the change outside goes unnoticed";
}

TEST_F(SettingModification, BeforeAnyReadComparesWithAnEmptyModel)
{
    givenResolverFile("search site.example\nnameserver 10.0.0.1\n");
    givenSwitches("1111");
    modify({text("DomainName", ""), text("PrimaryDNS", ""), text("SecondaryDNS", ""),
            flag("isIcmpFilterEnabled", false), flag("isArpFilterEnabled", false),
            flag("isBroadcastFilterEnabled", false), flag("isIPAddressConflictEnabled", false)});
    EXPECT_EQ(world.journal(), Lines{});
}

TEST_F(SettingModification, BeforeAnyReadRewritesTheResolverFileFromNothing)
{
    givenResolverFile("search site.example\nnameserver 10.0.0.1\n");
    modify({text("SecondaryDNS", "10.1.1.1")});
    EXPECT_EQ(resolverFile(), "nameserver 10.1.1.1\n");
}

TEST_F(SettingModification, DoesNotReadTheServerFirst)
{
    givenRead();
    modify({text("SecondaryDNS", "10.1.1.2")});
    EXPECT_EQ(world.journal(),
              (Lines{"dhcpIpInfoIsIPAddrValid 10.1.1.2", "fopen /etc/resolv.conf w",
                     "fclose /etc/resolv.conf", "KvuSetRegEntryUint16Ex 5 DNS secondaryDNS_Flag 1"}));
}

TEST_F(SettingModification, LooksAtNothingOfTheRequestButTheModifiedInstance)
{
    OpenWBEM::StringArray list;
    list.push_back("DomainName");
    const CIMInstance modified = instanceOf({text("SecondaryDNS", "10.1.1.2")});
    for (const char* ns : {"", "root/orx"}) {
        givenRead();
        provider.modifyInstance(env, ns, modified, modified, WBEMFlags::E_INCLUDE_QUALIFIERS, &list,
                                OpenWBEM::CIMClass("Another_Class"));
        EXPECT_EQ(world.journal(),
                  (Lines{"dhcpIpInfoIsIPAddrValid 10.1.1.2", "fopen /etc/resolv.conf w",
                         "fclose /etc/resolv.conf", "KvuSetRegEntryUint16Ex 5 DNS secondaryDNS_Flag 1"}))
            << ns;
    }
}

TEST_F(SettingModification, PassesOverWhatCannotBeChanged)
{
    givenRead();
    modify({text("InstanceID", "another"), flag("isRouterPresent", true), text("Unknown", "value"),
            text("isRouterPresent", "not even a boolean")});
    EXPECT_EQ(world.journal(), Lines{});
    EXPECT_EQ(propertiesOf(getInstance())[0], "string InstanceID Kalvor:ORX_LANServiceSetting");
}

TEST_F(SettingModification, PassesOverNamesInOtherLetterCase)
{
    givenRead();
    modify({text("domainname", "new.example"), text("PRIMARYDNS", "10.1.1.1"),
            text("Secondarydns", "10.1.1.2"), flag("IsIcmpFilterEnabled", true),
            flag("isarpfilterenabled", true), flag("isBroadCastFilterEnabled", true),
            flag("isIpAddressConflictEnabled", true)});
    EXPECT_EQ(world.journal(), Lines{});
}

TEST_F(SettingModification, PassesOverNullValues)
{
    givenRead();
    const OpenWBEM::CIMDataType string(OpenWBEM::CIMDataType::STRING);
    const OpenWBEM::CIMDataType boolean(OpenWBEM::CIMDataType::BOOLEAN);
    modify({CIMProperty("DomainName", string), CIMProperty("PrimaryDNS", string),
            CIMProperty("SecondaryDNS", string), CIMProperty("isIcmpFilterEnabled", boolean),
            CIMProperty("isArpFilterEnabled", boolean), CIMProperty("isBroadcastFilterEnabled", boolean),
            CIMProperty("isIPAddressConflictEnabled", boolean)});
    EXPECT_EQ(world.journal(), Lines{});
}

TEST_F(SettingModification, OfAnInstanceWithoutPropertiesSucceeds)
{
    givenRead();
    modify({});
    EXPECT_EQ(world.journal(), Lines{});
}

TEST_F(SettingModification, ConvertsATextFromAnyType)
{
    EXPECT_EQ(failureOf([&] { modify({CIMProperty("PrimaryDNS", CIMValue(OpenWBEM::UInt16(5)))}); }),
              invalidIP);
    EXPECT_EQ(world.journal()[0], "dhcpIpInfoIsIPAddrValid 5");
}

TEST_F(SettingModification, AnInvalidDomainNameReachesTheClientUnchanged)
{
    givenRead();
    EXPECT_EQ(failureOf([&] { modify({text("DomainName", "my_site")}); }),
              modelFailure("Invalid domain name#LAN_ERROR_domainNameBadFormat#"));
    EXPECT_EQ(world.journal(), Lines{"gLogger ERROR Invalid domain name"}) << "it is logged once";
}

TEST_F(SettingModification, TheEmptyDomainNameIsRefusedWhenThereIsADomain)
{
    givenRead();
    EXPECT_EQ(failureOf([&] { modify({text("DomainName", "")}); }),
              modelFailure("Invalid domain name#LAN_ERROR_domainNameBadFormat#"));
}

TEST_F(SettingModification, ASwitchThatCannotBeStoredIsAFailureOfTheModification)
{
    struct {
        const char* key;
        const char* property;
    } const cases[] = {{"kv_netfilter_icmp", "isIcmpFilterEnabled"},
                       {"kv_netfilter_arp", "isArpFilterEnabled"},
                       {"kv_netfilter_broadcast", "isBroadcastFilterEnabled"},
                       {"kv_netfilter_ipconflict", "isIPAddressConflictEnabled"}};
    for (const auto& each : cases) {
        forgetAll();
        world.clearJournal();
        modelFaults.unstorableSwitches = {each.key};
        const std::string text =
            std::string("Failed to modify property  instance of ORX_LANServiceSetting {\n") + each.property +
            " = true;\nDomainName = new.example;\n}\n." + each.property;
        EXPECT_EQ(failureOf([&] {
                      modify({flag(each.property, true), ::text("DomainName", "new.example")});
                  }),
                  (Failure{1, text + "#LAN_ERROR_failedModifyProperty#", "ORX_LANSettingProvider.cpp"}));
        EXPECT_EQ(world.journal(), Lines{"gLogger ERROR " + text + ":  with return code: 0"})
            << "and the properties after it are left alone";
    }
}

} // namespace
