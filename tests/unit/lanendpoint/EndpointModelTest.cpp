#include "EndpointServer.hpp"
#include "Failures.hpp"
#include "Overrides.hpp"
#include "lanendpoint/ORX_LANEndpoint.hpp"

#include <OW_CIMValue.hpp>

#include <gtest/gtest.h>

#include <cerrno>
#include <net/if.h>
#include <type_traits>

using namespace fakes; // for the sums of journal lines
using OpenWBEM::Array;
using OpenWBEM::CIMDateTime;
using OpenWBEM::CIMQualifier;
using OpenWBEM::String;

namespace
{

static_assert(!std::is_polymorphic_v<ORX_LANEndpoint>, "a plain value");

const std::string mappingFailure =
    "ORX_LANEndpoint.cpp 1 Cannot find the corresponding if interface#LAN_ERROR_noIFNameMapping#";

class EndpointModels : public EndpointServer
{
  protected:
    static std::string nameOf(const ORX_LANEndpoint& endpoint)
    {
        String name;
        EXPECT_EQ(1, endpoint.getName(name));
        return name.c_str();
    }

    static std::string macAddressOf(const ORX_LANEndpoint& endpoint)
    {
        String address;
        EXPECT_EQ(1, endpoint.getMACAddress(address));
        return address.c_str();
    }

    static int maxDataSizeOf(const ORX_LANEndpoint& endpoint)
    {
        int size = -1;
        EXPECT_EQ(1, endpoint.getMaxDataSize(size));
        return size;
    }

    static std::string addressOf(const ORX_LANEndpoint& endpoint)
    {
        String address;
        Array<CIMQualifier> qualifiers;
        EXPECT_EQ(1, endpoint.getIPAddress(address, qualifiers));
        return address.c_str();
    }

    static Lines shown(const Array<CIMQualifier>& qualifiers)
    {
        Lines lines;
        for (const CIMQualifier& qualifier : qualifiers)
            lines.push_back(std::string(qualifier.getName().c_str()) + "=" +
                            qualifier.getValue().toMOF().c_str());
        return lines;
    }

    std::string mapping(const char* value, bool toDescription)
    {
        return ORX_LANEndpoint().getMapping(value, toDescription).c_str();
    }
};

TEST_F(EndpointModels, AnEndpointIsNamedByNumberNameOrDescription)
{
    EXPECT_EQ("", nameOf(ORX_LANEndpoint()));
    EXPECT_EQ("eth0", nameOf(ORX_LANEndpoint(0)));
    EXPECT_EQ("eth2", nameOf(ORX_LANEndpoint(2)));
    EXPECT_EQ("eth1", nameOf(ORX_LANEndpoint("eth1")));
    EXPECT_EQ("eth0", nameOf(ORX_LANEndpoint("Internal LAN")));
    EXPECT_EQ("eth1", nameOf(ORX_LANEndpoint("Customer LAN")));
    EXPECT_EQ("eth2", nameOf(ORX_LANEndpoint("OAM LAN")));
    EXPECT_EQ(Lines{}, world.journal()); // nothing is read
}

TEST_F(EndpointModels, EveryTextThatBeginsWithEthIsTakenAsAName)
{
    for (const char* name : {"eth", "eth7", "eth10", "ethernet", "eth1 ", "eth0.1"})
        EXPECT_EQ(name, nameOf(ORX_LANEndpoint(name)));
}

TEST_F(EndpointModels, NoOtherTextNamesAnEndpoint)
{
    for (const char* text :
         {"", "Eth0", "ETH0", " eth0", "et", "lo", "customer lan", "Customer LAN ", "Customer"})
        EXPECT_EQ(mappingFailure, failureOf([&] { ORX_LANEndpoint endpoint{String(text)}; })) << text;
}

TEST_F(EndpointModels, ANewEndpointIsEmpty)
{
    const ORX_LANEndpoint endpoint(1);
    EXPECT_EQ("", macAddressOf(endpoint));
    EXPECT_EQ(0, maxDataSizeOf(endpoint));
    EXPECT_EQ("", addressOf(endpoint));
}

TEST_F(EndpointModels, NamesAndDescriptionsMapOntoEachOther)
{
    EXPECT_EQ("Internal LAN", mapping("eth0", true));
    EXPECT_EQ("Customer LAN", mapping("eth1", true));
    EXPECT_EQ("OAM LAN", mapping("eth2", true));
    EXPECT_EQ("eth0", mapping("Internal LAN", false));
    EXPECT_EQ("eth1", mapping("Customer LAN", false));
    EXPECT_EQ("eth2", mapping("OAM LAN", false));
}

TEST_F(EndpointModels, TextsThatMapOntoNothingAreLoggedFailures)
{
    for (const char* text : {"eth3", "Customer LAN", "ETH0", "eth", ""}) {
        world.clearJournal();
        EXPECT_EQ(mappingFailure, failureOf([&] { mapping(text, true); })) << text;
        EXPECT_EQ(Lines{"gLogger ERROR Cannot find the corresponding if interface"}, world.journal());
    }
    for (const char* text : {"customer lan", "eth1", "CUSTOMER LAN", "LAN", ""}) {
        world.clearJournal();
        EXPECT_EQ(mappingFailure, failureOf([&] { mapping(text, false); })) << text;
        EXPECT_EQ(Lines{"gLogger ERROR Cannot find the corresponding if interface"}, world.journal());
    }
}

TEST_F(EndpointModels, ADescriptionIsThatOfTheName)
{
    String description;
    EXPECT_EQ(1, ORX_LANEndpoint(2).getDescription(description));
    EXPECT_STREQ("OAM LAN", description.c_str());
    EXPECT_EQ(mappingFailure, failureOf([&] { ORX_LANEndpoint("eth7").getDescription(description); }));
    EXPECT_EQ(mappingFailure, failureOf([&] { ORX_LANEndpoint().getDescription(description); }));
}

TEST_F(EndpointModels, ReadingFillsHardwareAddressMtuAndConfiguration)
{
    world.interfaces["eth1"].mac = {0xDE, 0xAD, 0x00, 0x0F, 0xF0, 0x01};
    world.registry[{"providers\\ORX_LANProvider\\eth1", "MTUSize"}] = 1400;
    ORX_LANEndpoint endpoint(1);
    EXPECT_EQ(1, endpoint.get());
    EXPECT_EQ("de:ad:00:0f:f0:01", macAddressOf(endpoint));
    EXPECT_EQ(1400, maxDataSizeOf(endpoint));
    EXPECT_EQ("10.0.0.5", addressOf(endpoint));
    EXPECT_EQ((Lines{"socket", "ioctl SIOCGIFHWADDR eth1", "close socket",
                     "KvuGetRegEntryUint16Ex 5 providers\\ORX_LANProvider\\eth1 MTUSize"}) +
                  reading("eth1"),
              world.journal());
}

TEST_F(EndpointModels, WithoutASocketNothingIsRead)
{
    ORX_LANEndpoint endpoint(1);
    endpoint.get();
    world.clearJournal();
    world.failNth(1, "socket", EMFILE);
    EXPECT_EQ(0, endpoint.get());
    EXPECT_EQ((Lines{"socket", "perror socket: Too many open files"}), world.journal());
    EXPECT_EQ("00:0a:f7:01:02:a1", macAddressOf(endpoint));
    EXPECT_EQ(1500, maxDataSizeOf(endpoint));
    EXPECT_EQ("10.0.0.5", addressOf(endpoint));
}

TEST_F(EndpointModels, OfAMissingInterfaceNothingIsRead)
{
    world.interfaces.erase("eth1");
    ORX_LANEndpoint endpoint(1);
    EXPECT_EQ(0, endpoint.get());
    EXPECT_EQ((Lines{"socket", "ioctl SIOCGIFHWADDR eth1", "close socket"}), world.journal());
    EXPECT_EQ("", macAddressOf(endpoint));
    EXPECT_EQ(0, maxDataSizeOf(endpoint));
    EXPECT_EQ("", addressOf(endpoint));
}

TEST_F(EndpointModels, AConfigurationThatCannotBeReadDoesNotMatter)
{
    world.failNth(1, "fopen", EACCES);
    ORX_LANEndpoint endpoint(1);
    EXPECT_EQ(1, endpoint.get());
    EXPECT_EQ("", addressOf(endpoint));
}

TEST_F(EndpointModels, TheResultOfReadingTheConfigurationDoesNotMatter)
{
    Overrides overrides;
    overrides.results["ORX_LANEndpointAPI::get"] = 0;
    EXPECT_EQ(1, ORX_LANEndpoint(1).get());
}

TEST_F(EndpointModels, InitEmptiesItsOwnFieldsOnly)
{
    ORX_LANEndpoint endpoint(1);
    endpoint.get();
    endpoint.init();
    EXPECT_EQ("", macAddressOf(endpoint));
    EXPECT_EQ(0, maxDataSizeOf(endpoint));
    EXPECT_EQ("eth1", nameOf(endpoint));
    EXPECT_EQ("10.0.0.5", addressOf(endpoint));
}

TEST_F(EndpointModels, AnAssignedEndpointHasAllFields)
{
    ORX_LANEndpoint endpoint(1);
    endpoint.get();
    ORX_LANEndpoint copy;
    copy = endpoint;
    EXPECT_EQ("eth1", nameOf(copy));
    EXPECT_EQ("00:0a:f7:01:02:a1", macAddressOf(copy));
    EXPECT_EQ(1500, maxDataSizeOf(copy));
    EXPECT_EQ("10.0.0.5", addressOf(copy));
}

TEST_F(EndpointModels, ThreeGettersWarnOfWhatAChangeDoes)
{
    const ORX_LANEndpoint endpoint(1);
    String text;
    bool flag = true;
    Array<CIMQualifier> qualifiers;
    EXPECT_EQ(1, endpoint.getIPAddress(text, qualifiers));
    EXPECT_EQ(Lines{"ImpactWarning=\"Changing IP address will restart Voice Messaging.\""},
              shown(qualifiers));
    qualifiers.clear();
    EXPECT_EQ(1, endpoint.getSubnetMask(text, qualifiers));
    EXPECT_EQ(Lines{"ImpactWarning=\"Changing subnet mask will restart Voice Messaging.\""},
              shown(qualifiers));
    qualifiers.clear();
    EXPECT_EQ(1, endpoint.getIsDHCPEnabled(flag, qualifiers));
    EXPECT_FALSE(flag);
    EXPECT_EQ(Lines{"ImpactWarning=\"Changing DHCP will restart Voice Messaging.\""}, shown(qualifiers));
}

TEST_F(EndpointModels, WarningsAreAppendedToWhatIsThere)
{
    const ORX_LANEndpoint endpoint(1);
    String text;
    Array<CIMQualifier> qualifiers;
    endpoint.getIPAddress(text, qualifiers);
    endpoint.getIPAddress(text, qualifiers);
    EXPECT_EQ(Lines(2, "ImpactWarning=\"Changing IP address will restart Voice Messaging.\""),
              shown(qualifiers));
}

TEST_F(EndpointModels, MaskGatewayAndDhcpAreThoseOfTheConfiguration)
{
    configureDhcp("eth1", "10.0.0.77", "255.255.255.128");
    ORX_LANEndpoint endpoint(1);
    endpoint.get();
    String mask;
    String gateway;
    bool isDhcpEnabled = false;
    Array<CIMQualifier> qualifiers;
    EXPECT_EQ(1, endpoint.getSubnetMask(mask, qualifiers));
    EXPECT_EQ(1, endpoint.getGateway(gateway));
    EXPECT_EQ(1, endpoint.getIsDHCPEnabled(isDhcpEnabled, qualifiers));
    EXPECT_STREQ("255.255.255.128", mask.c_str());
    EXPECT_STREQ("10.0.0.1", gateway.c_str());
    EXPECT_TRUE(isDhcpEnabled);
}

TEST_F(EndpointModels, LiveStatesAreAskedOfTheInterface)
{
    world.interfaces["eth1"].flags = IFF_UP;
    const ORX_LANEndpoint endpoint(1);
    unsigned short number = 0;
    EXPECT_EQ(1, endpoint.getOperationalStatus(number));
    EXPECT_EQ(2, number);
    EXPECT_EQ(1, endpoint.getEnabledState(number));
    EXPECT_EQ(1, number);
    EXPECT_EQ(1, endpoint.getProtocolIFType(number));
    EXPECT_EQ(6, number);
    unsigned long long speed = 0;
    EXPECT_EQ(1, endpoint.getSpeed(speed));
    EXPECT_EQ(10000000U, speed);
}

TEST_F(EndpointModels, LiveStatesThatCannotBeAskedForFailWithoutThrowingAndLeaveTheOutputAlone)
{
    world.failAll("socket", EMFILE);
    const ORX_LANEndpoint endpoint(1);
    unsigned short number = 17;
    unsigned long long speed = 17;
    EXPECT_EQ(0, endpoint.getOperationalStatus(number));
    EXPECT_EQ(0, endpoint.getEnabledState(number));
    EXPECT_EQ(0, endpoint.getSpeed(speed));
    EXPECT_EQ(17, number);
    EXPECT_EQ(17U, speed);
    EXPECT_EQ(1, endpoint.getProtocolIFType(number));
    EXPECT_EQ(Lines(3, "socket"), world.journal());
}

TEST_F(EndpointModels, TheLastChangeOfStateIsAlwaysTheZeroDate)
{
    CIMDateTime time(String("20040719120000.000000+000"));
    EXPECT_EQ(1, ORX_LANEndpoint(1).getTimeOfLastStateChange(time));
    EXPECT_EQ(CIMDateTime(String("00000000000000.000000-000")), time);
    EXPECT_FALSE(time.isInterval());
}

} // namespace
