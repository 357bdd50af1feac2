#include "Failures.hpp"
#include "ProviderFixture.hpp"

#include <gtest/gtest.h>

using namespace fakes; // for the sums of journal lines
using OpenWBEM::CIMDateTime;
using OpenWBEM::CIMInstance;
using OpenWBEM::CIMObjectPath;
using OpenWBEM::CIMProperty;
using OpenWBEM::CIMValue;
using OpenWBEM::String;

namespace
{

const std::string mappingFailure =
    "ORX_LANEndpoint.cpp 1 Cannot find the corresponding if interface#LAN_ERROR_noIFNameMapping#";

class EndpointReads : public ProviderTest
{
  protected:
    static Lines shownKeys(const CIMObjectPath& path)
    {
        Lines lines;
        const OpenWBEM::CIMPropertyArray keys = path.getKeys();
        for (const CIMProperty& key : keys)
            lines.push_back(key.toString().c_str());
        return lines;
    }

    static Lines keysOf(const std::string& ifName)
    {
        return {"string:SystemCreationClassName=ORX_LANEndpoint", "string:SystemName=ORX_K30v",
                "string:CreationClassName=ORX_LANEndpoint", "string:Name=" + ifName};
    }
};

TEST_F(EndpointReads, ThreeNamesAreEnumerated)
{
    const std::vector<CIMObjectPath> names = enumInstanceNames();
    ASSERT_EQ(3U, names.size());
    for (std::size_t n = 0; n < names.size(); ++n) {
        EXPECT_EQ(keysOf("eth" + std::to_string(n)), shownKeys(names[n]));
        EXPECT_STREQ("ORX_LANEndpoint", names[n].getClassName().c_str());
        EXPECT_STREQ("root/cimv2", names[n].getNameSpace().c_str());
    }
    EXPECT_EQ(Lines{}, world.journal()); // no interface is asked
}

TEST_F(EndpointReads, NamesCarryTheClassAndNamespaceOfTheRequest)
{
    const std::vector<CIMObjectPath> names = enumInstanceNames("Some_Class", "root/other");
    ASSERT_EQ(3U, names.size());
    EXPECT_STREQ("Some_Class", names[2].getClassName().c_str());
    EXPECT_STREQ("root/other", names[2].getNameSpace().c_str());
    EXPECT_EQ(keysOf("eth2"), shownKeys(names[2]));
}

TEST_F(EndpointReads, EnumerationsOfBothKindsFollowEachOther)
{
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(3U, enumInstanceNames().size());
        EXPECT_EQ(3U, enumInstances().size());
    }
}

TEST_F(EndpointReads, AnEnumerationThatBreaksOffIsContinuedByTheNextOne)
{
    int results = 0;
    onResult = [&] {
        if (++results == 2)
            throw OpenWBEM::CIMException("Handler.cpp", 1, OpenWBEM::CIMException::ACCESS_DENIED);
    };
    EXPECT_EQ("Handler.cpp 2", failureOf([this] { enumInstanceNames(); }));
    const std::vector<CIMInstance> instances = enumInstances();
    ASSERT_EQ(1U, instances.size());
    EXPECT_EQ("string:Name=eth2", shown(instances[0], "Name"));
    EXPECT_EQ(3U, enumInstanceNames().size());
}

TEST_F(EndpointReads, AnInstanceHasAllPropertiesInTheirOrderWithTheirTypes)
{
    const CIMInstance instance = getInstance("eth1");
    EXPECT_STREQ("ORX_LANEndpoint", instance.getClassName().c_str());
    EXPECT_EQ(eth1Instance, shown(instance));
    EXPECT_EQ(CIMDateTime(String("00000000000000.000000-000")),
              instance.getPropertyValue("TimeOfLastStateChange").toCIMDateTime());
}

TEST_F(EndpointReads, TheFlagsAndPropertyListOfTheRequestAreNotConsulted)
{
    OpenWBEM::StringArray onlyName;
    onlyName.push_back("Name");
    const CIMInstance instance = provider.getInstance(
        env, "", pathTo("eth1"), OpenWBEM::WBEMFlags::E_LOCAL_ONLY, OpenWBEM::WBEMFlags::E_EXCLUDE_QUALIFIERS,
        OpenWBEM::WBEMFlags::E_EXCLUDE_CLASS_ORIGIN, &onlyName, OpenWBEM::CIMClass("Some_Class"));
    EXPECT_EQ(eth1Instance, shown(instance));
}

TEST_F(EndpointReads, AnInstanceOfTheInternalLanHasAnEmptyGatewayAndItsOwnWarnings)
{
    EXPECT_EQ(
        (Lines{
            "string:SystemCreationClassName=ORX_LANEndpoint", "string:SystemName=ORX_K30v",
            "string:CreationClassName=ORX_LANEndpoint", "string:Name=eth0",
            "string:MACAddress=00:0a:f7:01:02:a0", "sint32:MaxDataSize=1500",
            "string:IPAddress=192.168.0.1 [ImpactWarning=Changing IP address will restart Voice Messaging.]",
            "string:SubnetMask=255.255.255.0 [ImpactWarning=Changing subnet mask will restart Voice "
            "Messaging.]",
            "string:DefaultGateway=",
            "boolean:isDhcpEnabled=false [ImpactWarning=Changing DHCP will restart Voice Messaging.]",
            "string:Description=Internal LAN", "uint16:OperationalStatus=1", "uint16:EnabledState=1",
            "datetime:TimeOfLastStateChange=00000000000000.000000+000", "uint16:ProtocolIFType=6",
            "uint64:Speed=10000000"}),
        shown(getInstance("eth0")));
}

TEST_F(EndpointReads, TheSpeedIsA64BitNumberOfBitsPerSecond)
{
    world.interfaces["eth1"].mii = Interface::Mii::Standard;
    world.interfaces["eth1"].registers = {0x1000, 0x782D, 0, 0, 0x01E1, 0x41E1, 0, 0};
    EXPECT_EQ("uint64:Speed=100000000", shown(getInstance("eth1"), "Speed"));
}

TEST_F(EndpointReads, AnInstanceIsFoundByItsDescription)
{
    EXPECT_EQ(eth1Instance, shown(getInstance("Customer LAN")));
    EXPECT_EQ("string:Name=eth0", shown(getInstance("Internal LAN"), "Name"));
    EXPECT_EQ("string:Name=eth2", shown(getInstance("OAM LAN"), "Name"));
}

TEST_F(EndpointReads, APathWithoutNameFindsNothing)
{
    EXPECT_EQ("ORX_LANEndpointProvider.cpp 6",
              failureOf([this] { getInstance(CIMObjectPath("ORX_LANEndpoint")); }));
    CIMObjectPath path("ORX_LANEndpoint");
    path.addKey(CIMProperty("Name"));
    EXPECT_EQ("ORX_LANEndpointProvider.cpp 6", failureOf([&] { getInstance(path); }));
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(EndpointReads, ANameThatIsNoInterfaceAndNoDescriptionIsAMappingFailure)
{
    for (const char* name : {"lo", "customer lan", ""}) {
        world.clearJournal();
        EXPECT_EQ(mappingFailure, failureOf([&] { getInstance(name); })) << name;
        EXPECT_EQ(Lines{"gLogger ERROR Cannot find the corresponding if interface"}, world.journal());
    }
}

TEST_F(EndpointReads, AnInterfaceOutsideOfTheTableIsRefusedWhenItIsDescribed)
{
    for (const char* name : {"eth", "eth3", "eth0;reboot", "eth1 ", "eth1\n", "ethernet", "eth0`reboot`"})
        EXPECT_EQ(mappingFailure, failureOf([&] { getInstance(name); })) << name;
    EXPECT_EQ(Lines{}, world.journal(Command | Registry | Notice | Lock));
}

TEST_F(EndpointReads, InstancesAreEnumeratedAsTheyAreGotOneByOne)
{
    const std::vector<CIMInstance> instances = enumInstances();
    ASSERT_EQ(3U, instances.size());
    for (std::size_t n = 0; n < instances.size(); ++n) {
        EXPECT_STREQ("ORX_LANEndpoint", instances[n].getClassName().c_str());
        EXPECT_EQ(shown(getInstance(String("eth" + String(OpenWBEM::Int32(n))))), shown(instances[n]));
    }
}

TEST_F(EndpointReads, EnumeratedInstancesHaveTheOneClassWhateverIsAskedFor)
{
    EXPECT_STREQ("ORX_LANEndpoint", enumInstances("orx_lanendpoint")[0].getClassName().c_str());
}

TEST_F(EndpointReads, AMissingInterfaceIsListedWithEmptyData)
{
    world.interfaces.erase("eth1");
    const std::vector<CIMInstance> instances = enumInstances();
    ASSERT_EQ(3U, instances.size());
    EXPECT_EQ(
        (Lines{"string:SystemCreationClassName=ORX_LANEndpoint", "string:SystemName=ORX_K30v",
               "string:CreationClassName=ORX_LANEndpoint", "string:Name=eth1",
               "string:MACAddress=", "sint32:MaxDataSize=0",
               "string:IPAddress= [ImpactWarning=Changing IP address will restart Voice Messaging.]",
               "string:SubnetMask= [ImpactWarning=Changing subnet mask will restart Voice Messaging.]",
               "string:DefaultGateway=",
               "boolean:isDhcpEnabled=false [ImpactWarning=Changing DHCP will restart Voice Messaging.]",
               "string:Description=Customer LAN", "uint16:OperationalStatus=2", "uint16:EnabledState=2",
               "datetime:TimeOfLastStateChange=00000000000000.000000+000", "uint16:ProtocolIFType=6",
               "uint64:Speed=10000000"}),
        shown(instances[1]));
    EXPECT_EQ(shown(instances[1]), shown(getInstance("eth1")));
}

TEST_F(EndpointReads, InitializingAsksForTheProcessIdAndBeginsAnew)
{
    onResult = [] { throw OpenWBEM::CIMException("Handler.cpp", 1, OpenWBEM::CIMException::FAILED); };
    failureOf([this] { enumInstanceNames(); });
    onResult = [] {};
    provider.initialize(env);
    EXPECT_EQ(Lines{"osGetProcessId"}, world.journal());
    EXPECT_EQ(3U, enumInstanceNames().size());
}

TEST_F(EndpointReads, AProviderThatWasNeverInitializedHasNoInstances)
{
    provider.~ORX_LANEndpointProvider();
    new (&provider) ORX_LANEndpointProvider;
    EXPECT_EQ(0U, enumInstanceNames().size());
    EXPECT_EQ(0U, enumInstances().size());
    provider.cleanup();
    EXPECT_EQ(Lines{}, world.journal());
}

} // namespace
