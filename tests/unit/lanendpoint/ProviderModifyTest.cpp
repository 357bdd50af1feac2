#include "Failures.hpp"
#include "ProviderFixture.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <tuple>

using namespace fakes; // for the sums of journal lines
using OpenWBEM::CIMDataType;
using OpenWBEM::CIMException;
using OpenWBEM::CIMInstance;
using OpenWBEM::CIMProperty;
using OpenWBEM::CIMValue;

namespace
{

const Lines traces = {"gLogger ERROR PMDPMD Returing from setIPAddress!!",
                      "gLogger ERROR PMDPMDSetIPAddress Succeeded!!!!!!!!!!!!!!!!!!!!!!!"};

const Lines mtuChange = {"KvuSetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize 1400"};

const std::string endpointRead = "KvuGetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize";

class EndpointModifications : public ProviderTest
{
  protected:
    void modify(const std::vector<CIMProperty>& properties, const char* name = "eth1")
    {
        modifyInstance(instanceOf(name, properties));
    }

    std::string failureOfModifying(const std::vector<CIMProperty>& properties, const char* name = "eth1")
    {
        return failureOf([&] { modify(properties, name); });
    }

    /// What the modification did to the server, behind the reading of the endpoint.
    Lines effects() const
    {
        Lines lines = world.journal(Effects);
        EXPECT_FALSE(lines.empty());
        if (!lines.empty()) {
            EXPECT_EQ(endpointRead, lines.front());
            lines.erase(lines.begin());
        }
        return lines;
    }

    Lines dhcpSwitch() const
    {
        return bracketed("/kv/bin/updateFile ifcfg eth1 BOOTPROTO dhcp") +
               bracketed("/kv/bin/updateFile ifcfg eth1 IPADDR 10.0.0.5") +
               bracketed("/kv/bin/updateFile ifcfg eth1 NETMASK 255.255.255.0") +
               bracketed("/kv/bin/updateFile gateway ") +
               Lines{"runcommand /kv/bin/processcontrol stop voicemail",
                     "runcommand /kv/bin/dhcp_ippaddr.sh eth1 &"} +
               dhcpNotice("eth1");
    }
};

TEST_F(EndpointModifications, ANewAddressIsTracedAndApplied)
{
    modify({property("IPAddress", "10.0.0.6")});
    EXPECT_EQ(traces + addressChange("eth1", "10.0.0.6"), effects());
}

TEST_F(EndpointModifications, AnAddressChangeIsThisJournalFromBeginningToEnd)
{
    modify({property("IPAddress", "10.0.0.6")});
    EXPECT_EQ((Lines{"socket", "ioctl SIOCGIFHWADDR eth1", "close socket", endpointRead}) + reading("eth1") +
                  traces + reading("eth1") + checking("eth1", "10.0.0.6", "10.0.0.1") +
                  addressChange("eth1", "10.0.0.6"),
              world.journal());
}

TEST_F(EndpointModifications, ANewMaskIsApplied)
{
    modify({property("SubnetMask", "255.255.0.0")});
    EXPECT_EQ(maskChange("eth1", "255.255.0.0"), effects());
}

TEST_F(EndpointModifications, ANewGatewayIsApplied)
{
    modify({property("DefaultGateway", "10.0.0.2")});
    EXPECT_EQ(gatewayChange("eth1", "10.0.0.1", "10.0.0.2"), effects());
}

TEST_F(EndpointModifications, ANewMtuIsApplied)
{
    modify({property("MaxDataSize", 1400)});
    EXPECT_EQ(mtuChange, effects());
    EXPECT_EQ(1400, world.interfaces["eth1"].mtu);
}

TEST_F(EndpointModifications, DhcpIsSwitched)
{
    modify({property("isDhcpEnabled", true)});
    EXPECT_EQ(dhcpSwitch(), effects());
}

TEST_F(EndpointModifications, MtuAndDhcpActAsTheyComeAndTheRestTogetherAtTheEnd)
{
    modify({property("DefaultGateway", "10.0.0.2"), property("SubnetMask", "255.255.0.0"),
            property("isDhcpEnabled", true), property("IPAddress", "10.0.0.6"),
            property("MaxDataSize", 1400)});
    EXPECT_EQ(dhcpSwitch() + traces + mtuChange + addressChange("eth1", "10.0.0.6") +
                  maskChange("eth1", "255.255.0.0") + gatewayChange("eth1", "10.0.0.1", "10.0.0.2"),
              effects());
}

TEST_F(EndpointModifications, OnceTheFileSaysDhcpPendingValuesOfTheSameRequestHaveNoEffect)
{
    world.onCommand = [this](const std::string& command) {
        if (command == "/kv/bin/updateFile ifcfg eth1 BOOTPROTO dhcp")
            writeInterfaceFile("eth1", "BOOTPROTO=dhcp\n");
    };
    modify({property("isDhcpEnabled", true), property("IPAddress", "nonsense")});
    EXPECT_EQ(dhcpSwitch() + traces, effects());
}

TEST_F(EndpointModifications, TheEndpointIsFoundByItsDescriptionToo)
{
    modify({property("IPAddress", "10.0.0.6")}, "Customer LAN");
    EXPECT_EQ(traces + addressChange("eth1", "10.0.0.6"), effects());
}

TEST_F(EndpointModifications, AnInstanceWithoutNameFindsNothing)
{
    CIMInstance modified("ORX_LANEndpoint");
    modified.setProperty(property("IPAddress", "10.0.0.6"));
    EXPECT_EQ("ORX_LANEndpointProvider.cpp 6", failureOf([&] { modifyInstance(modified); }));
    modified.setProperty(CIMProperty("Name", CIMDataType(CIMDataType::STRING)));
    EXPECT_EQ("ORX_LANEndpointProvider.cpp 6", failureOf([&] { modifyInstance(modified); }));
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(EndpointModifications, ANameThatIsNoInterfaceAndNoDescriptionIsAMappingFailure)
{
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 Cannot find the corresponding if interface#LAN_ERROR_noIFNameMapping#",
              failureOfModifying({property("IPAddress", "10.0.0.6")}, "customer lan"));
    EXPECT_EQ(Lines{"gLogger ERROR Cannot find the corresponding if interface"}, world.journal());
}

TEST_F(EndpointModifications, OtherPropertiesAreIgnored)
{
    modify({property("SystemName", "x"), property("MACAddress", "00:00:00:00:00:00"),
            property("Description", "x"), property("OperationalStatus", "x"), property("EnabledState", "x"),
            property("Speed", "x"), property("TimeOfLastStateChange", "x"), property("ProtocolIFType", "x"),
            property("Unknown", "x")});
    EXPECT_EQ(Lines{}, effects());
}

TEST_F(EndpointModifications, NamesAreComparedExactly)
{
    modify({property("ipaddress", "10.0.0.6"), property("IPADDRESS", "10.0.0.6"),
            property("maxDataSize", 1400), property("subnetMask", "255.255.0.0"),
            property("defaultGateway", "10.0.0.2"), property("IsDhcpEnabled", true)});
    EXPECT_EQ(Lines{}, effects());
    EXPECT_EQ(1500, world.interfaces["eth1"].mtu);
}

TEST_F(EndpointModifications, PropertiesWithoutValueAreIgnored)
{
    std::vector<CIMProperty> properties;
    for (const char* name : {"IPAddress", "SubnetMask", "DefaultGateway"})
        properties.push_back(CIMProperty(name, CIMDataType(CIMDataType::STRING)));
    properties.push_back(CIMProperty("MaxDataSize", CIMDataType(CIMDataType::SINT32)));
    properties.push_back(CIMProperty("isDhcpEnabled", CIMDataType(CIMDataType::BOOLEAN)));
    modify(properties);
    EXPECT_EQ(Lines{}, effects());
}

TEST_F(EndpointModifications, AnInstanceAsItIsReadOnlySetsItsMtuAgain)
{
    const CIMInstance asItIs = getInstance("eth1");
    world.clearJournal();
    modifyInstance(asItIs);
    EXPECT_EQ(Lines{"KvuSetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize 1500"} + traces,
              effects());
}

TEST_F(EndpointModifications, AnMtuIsKeptWhenTheAddressIsRefused)
{
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 The IP/mask pair overlaps with another interface",
              failureOfModifying({property("MaxDataSize", 1400), property("IPAddress", "172.16.0.6")}));
    EXPECT_EQ(1400, world.interfaces["eth1"].mtu);
    EXPECT_EQ(1400, (world.registry[{"providers\\ORX_LANProvider\\eth1", "MTUSize"}]));
    EXPECT_EQ(mtuChange + traces + Lines{"gLogger ERROR The IP/mask pair overlaps with another interface"},
              effects());
}

TEST_F(EndpointModifications, ADhcpSwitchIsKeptWhenTheMaskIsRefused)
{
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 Invalid subnet format",
              failureOfModifying({property("isDhcpEnabled", true), property("SubnetMask", "255.0.255.0")}));
    EXPECT_EQ(dhcpSwitch() + Lines{"gLogger ERROR Invalid subnet format"}, effects());
}

TEST_F(EndpointModifications, EveryRefusalReachesTheClientUnchanged)
{
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 Invalid IP address format",
              failureOfModifying({property("IPAddress", "10.0.0.0")}));
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 Invalid IP address format",
              failureOfModifying({property("DefaultGateway", "nonsense")}));
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 Invalid subnet format",
              failureOfModifying({property("SubnetMask", "255.0.255.0")}));
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 MTU size entered is out of the range: (68-1500)",
              failureOfModifying({property("MaxDataSize", 1501)}));
    world.failNth(1, "ioctl", EINVAL, "SIOCSIFMTU");
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 MTU size not set. Error reported in kernel",
              failureOfModifying({property("MaxDataSize", 1400)}));
    world.failNth(1, "EmsConnectionOpen", 1);
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 Failed to notify related components on the address change",
              failureOfModifying({property("IPAddress", "10.0.0.6")}));
    for (const std::string& line : world.journal(Log))
        EXPECT_EQ(0U, line.find("gLogger ")) << "logged a second time: " << line;
}

TEST_F(EndpointModifications, AFailedMtuEndsTheModification)
{
    EXPECT_EQ("ORX_LANEndpoint.cpp 1 MTU size entered is out of the range: (68-1500)",
              failureOfModifying({property("IPAddress", "10.0.0.6"), property("MaxDataSize", 67),
                                  property("isDhcpEnabled", true)}));
    EXPECT_EQ(traces + Lines{"gLogger ERROR MTU size entered is out of the range: (68-1500)"}, effects());
}

TEST_F(EndpointModifications, AFailedCommandReachesTheClientUnchanged)
{
    world.failAll("runcommand", 1, "stop voicemail");
    EXPECT_EQ(
        "ORX_LANEndpointAPI.cpp 16 Failed to execute the command: /kv/bin/processcontrol stop voicemail",
        failureOfModifying({property("IPAddress", "10.0.0.6")}));
    EXPECT_EQ(traces, world.journal(Log));
}

TEST_F(EndpointModifications, ASetterThatRefusesEndsTheModificationAndIsNamed)
{
    const Lines addressTraces = {"gLogger ERROR PMDPMD Returing from setIPAddress!!",
                                 "gLogger ERROR PMDPMDSetIPAddress Failed!!!!!!!!!!!!!!!!!!!!!!!"};
    const CIMProperty mtu = property("MaxDataSize", 1400);
    const CIMProperty dhcp = property("isDhcpEnabled", true);
    // The last column would act on the server at once, if its turn came.
    const std::vector<std::tuple<const char*, CIMProperty, Lines, CIMProperty>> refusals = {
        {"setMaxDataSize", mtu, {}, dhcp},
        {"setIPAddress", property("IPAddress", "10.0.0.6"), addressTraces, mtu},
        {"setSubnetMask", property("SubnetMask", "255.255.0.0"), {}, mtu},
        {"setGateway", property("DefaultGateway", "10.0.0.2"), {}, mtu},
        {"setIsDHCPEnabled", dhcp, {}, mtu}};
    for (const auto& [setter, refused, traced, next] : refusals) {
        world.clearJournal();
        overrides.results = {{setter, 0}};
        const CIMInstance modified = instanceOf("eth1", {refused, next});
        const std::string text = std::string("Failed to modify property  ") + modified.toString().c_str() +
                                 "." + refused.getName().c_str();
        EXPECT_EQ("ORX_LANEndpointProvider.cpp 1 " + text + "#LAN_ERROR_failedModifyProperty#",
                  failureOf([&] { modifyInstance(modified); }));
        EXPECT_EQ((Lines{"socket", "ioctl SIOCGIFHWADDR eth1", "close socket", endpointRead}) +
                      reading("eth1") + traced + Lines{"gLogger ERROR " + text + ":  with return code: 0"},
                  world.journal());
    }
}

TEST_F(EndpointModifications, AnAddressThatIsRefusedIsTracedAsFailed)
{
    overrides.results["setIPAddress"] = 0;
    const CIMInstance modified = instanceOf("eth1", {property("IPAddress", "x")});
    failureOf([&] { modifyInstance(modified); });
    EXPECT_EQ((Lines{"gLogger ERROR PMDPMD Returing from setIPAddress!!",
                     "gLogger ERROR PMDPMDSetIPAddress Failed!!!!!!!!!!!!!!!!!!!!!!!",
                     "gLogger ERROR Failed to modify property  instance of ORX_LANEndpoint {\nName = "
                     "eth1;\nIPAddress = "
                     "x;\n}\n.IPAddress:  with return code: 0"}),
              effects());
}

TEST_F(EndpointModifications, AnyOtherResultOfTheAddressSetterIsTracedAsSucceeded)
{
    overrides.results["setIPAddress"] = 7;
    modify({property("IPAddress", "10.0.0.6")});
    EXPECT_EQ(traces, effects());
}

TEST_F(EndpointModifications, AnAddressIsTracedOnlyBehindItsSetter)
{
    overrides.interruptions["setIPAddress"] = [this] { world.record(Log, "setIPAddress"); };
    modify({property("IPAddress", "10.0.0.5")});
    EXPECT_EQ(Lines{"setIPAddress"} + traces, effects());
}

TEST_F(EndpointModifications, AnAddressWhoseSetterThrowsIsNotTraced)
{
    overrides.interruptions["setIPAddress"] = [] {
        throw CIMException("Elsewhere.cpp", 7, CIMException::ACCESS_DENIED, "no");
    };
    EXPECT_EQ("Elsewhere.cpp 2 no",
              failureOfModifying({property("IPAddress", "10.0.0.6"), property("MaxDataSize", 1400)}));
    EXPECT_EQ(Lines{}, effects());
}

TEST_F(EndpointModifications, OnlyTheResultZeroRefuses)
{
    overrides.interruptions["endChange"] = [this] { world.record(Log, "endChange"); };
    for (const char* operation : {"startChange", "setMaxDataSize", "setSubnetMask", "setGateway",
                                  "setIsDHCPEnabled", "setIPAddress", "endChange"}) {
        for (const int result : {2, -1}) {
            SCOPED_TRACE(std::string(operation) + " " + std::to_string(result));
            world.clearJournal();
            overrides.results = {{operation, result}};
            // As they are, all but the MTU; the address comes last, so that its traces show that it came to
            // it.
            EXPECT_EQ("nothing", failureOfModifying(
                                     {property("MaxDataSize", 1400), property("SubnetMask", "255.255.255.0"),
                                      property("DefaultGateway", "10.0.0.1"),
                                      property("isDhcpEnabled", false), property("IPAddress", "10.0.0.5")}));
            const bool setsMtu = operation != std::string("setMaxDataSize");
            EXPECT_EQ((setsMtu ? mtuChange : Lines{}) + traces + Lines{"endChange"}, effects());
        }
    }
}

TEST_F(EndpointModifications, AChangeThatCannotBeginIsRefused)
{
    overrides.results["startChange"] = 0;
    EXPECT_EQ("ORX_LANEndpointProvider.cpp 1 Could not make the requested change.\n",
              failureOfModifying({property("IPAddress", "10.0.0.6")}));
    EXPECT_EQ(Lines{}, effects());
    EXPECT_EQ(Lines{}, world.journal(Log));
}

TEST_F(EndpointModifications, AChangeThatEndsWithoutSuccessIsRefused)
{
    overrides.results["endChange"] = 0;
    EXPECT_EQ("ORX_LANEndpointProvider.cpp 4 One or more of the values specified was invalid.\n",
              failureOfModifying({property("SubnetMask", "255.255.0.0")}));
    EXPECT_EQ(Lines{}, effects());
    EXPECT_EQ(Lines{}, world.journal(Log));
}

TEST_F(EndpointModifications, CreatingDeletingAndMethodsAreNotSupported)
{
    OpenWBEM::CIMParamValueArray out;
    EXPECT_EQ("ORX_LANEndpointProvider.cpp 7",
              failureOf([&] { provider.createInstance(env, "", CIMInstance("C")); }));
    EXPECT_EQ("ORX_LANEndpointProvider.cpp 7",
              failureOf([&] { provider.deleteInstance(env, "", pathTo("eth1")); }));
    EXPECT_EQ("ORX_LANEndpointProvider.cpp 7", failureOf([&] {
                  provider.invokeMethod(env, "", pathTo("eth1"), "ResetRouter",
                                        OpenWBEM::CIMParamValueArray(), out);
              }));
    EXPECT_EQ(Lines{}, world.journal());
}

} // namespace
