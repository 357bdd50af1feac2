#include "model/FromCim.hpp"

#include <gtest/gtest.h>

using namespace lanctl;
using namespace lanctl::model;

namespace
{

wire::Instance endpointInstance()
{
    wire::Instance instance{"ORX_LANEndpoint", {}};
    const auto add = [&](const char* name, const char* type, const char* value) {
        instance.properties.push_back({name, type, value, {}});
    };
    add("SystemCreationClassName", "string", "ORX_LANEndpoint");
    add("SystemName", "string", "ORX_K30v");
    add("CreationClassName", "string", "ORX_LANEndpoint");
    add("Name", "string", "eth1");
    add("MACAddress", "string", "02:00:00:00:00:01");
    add("MaxDataSize", "sint32", "1500");
    add("IPAddress", "string", "10.0.0.5");
    add("SubnetMask", "string", "255.255.255.0");
    add("DefaultGateway", "string", "10.0.0.1");
    add("isDhcpEnabled", "boolean", "true");
    add("Description", "string", "Customer LAN");
    add("OperationalStatus", "uint16", "1");
    add("EnabledState", "uint16", "2");
    add("Speed", "uint64", "10000000000");
    return instance;
}

wire::Property& property(wire::Instance& instance, const std::string& name)
{
    for (auto& candidate : instance.properties)
        if (candidate.name == name)
            return candidate;
    throw std::runtime_error("no " + name);
}

wire::Instance markingInstance(const std::string& name)
{
    wire::Instance instance{"ORX_ALGService", {}};
    const auto add = [&](const char* property, const std::string& value) {
        instance.properties.push_back({property, "", value, {}});
    };
    add("SystemCreationClassName", "SCCN");
    add("SystemName", "SN");
    add("CreationClassName", "CCN");
    add("Name", name);
    add("KLonKLEnabled", "false");
    add("QoSMarkVOIPSignaling", "160");
    add("TOSByteSignaling", "160");
    add("QoSMarkVoiceMedia", "184");
    add("TOSByteMedia", "184");
    add("QoSMarkVideoMedia", "136");
    add("TOSByteVideoMedia", "136");
    add("QoSFaxMedia", "258");
    add("TOSByteFax", "104");
    return instance;
}

std::string complaintAbout(const wire::Instance& instance)
{
    try {
        endpointFrom(instance);
    } catch (const UnexpectedInstance& e) {
        return e.what();
    }
    return "no complaint";
}

} // namespace

TEST(FromCim, readsAnEndpoint)
{
    const Endpoint endpoint = endpointFrom(endpointInstance());
    EXPECT_EQ(endpoint.name, "eth1");
    EXPECT_EQ(endpoint.description, "Customer LAN");
    EXPECT_EQ(endpoint.macAddress, "02:00:00:00:00:01");
    EXPECT_EQ(endpoint.mtu, 1500);
    EXPECT_EQ(endpoint.ipAddress, "10.0.0.5");
    EXPECT_EQ(endpoint.subnetMask, "255.255.255.0");
    EXPECT_EQ(endpoint.defaultGateway, "10.0.0.1");
    EXPECT_TRUE(endpoint.dhcp);
    EXPECT_EQ(endpoint.operationalStatus, 1);
    EXPECT_EQ(endpoint.enabledState, 2);
    EXPECT_EQ(endpoint.speed, 10000000000U);
}

TEST(FromCim, readsTheWarningsOfAnEndpoint)
{
    wire::Instance instance = endpointInstance();
    property(instance, "IPAddress").qualifiers = {{"ImpactWarning", "Restarts it."}, {"Write", "true"}};
    property(instance, "Name").qualifiers = {{"Key", "true"}};
    EXPECT_EQ(endpointFrom(instance).warnings, (ImpactWarnings{{"IPAddress", "Restarts it."}}));
}

TEST(FromCim, knowsStatesThatTheServerCouldNotRead)
{
    wire::Instance instance = endpointInstance();
    property(instance, "EnabledState") = {"EnabledState", "string", "", {}};
    property(instance, "OperationalStatus").name = "Other";
    EXPECT_EQ(endpointFrom(instance).enabledState, std::nullopt);
    EXPECT_EQ(endpointFrom(instance).operationalStatus, std::nullopt);
}

TEST(FromCim, namesThePropertyThatIsMissingOrOfAnotherForm)
{
    wire::Instance instance = endpointInstance();
    property(instance, "MaxDataSize").value = "15OO";
    EXPECT_EQ(complaintAbout(instance), "ORX_LANEndpoint has a MaxDataSize of \"15OO\"");
    property(instance, "MaxDataSize").value = "99999999999";
    EXPECT_EQ(complaintAbout(instance), "ORX_LANEndpoint has a MaxDataSize of \"99999999999\"");
    property(instance, "MaxDataSize").value = std::nullopt;
    EXPECT_EQ(complaintAbout(instance), "ORX_LANEndpoint has no MaxDataSize");
    property(instance, "isDhcpEnabled").value = "1";
    property(instance, "MaxDataSize").value = "1500";
    EXPECT_EQ(complaintAbout(instance), "ORX_LANEndpoint has a isDhcpEnabled of \"1\"");
    property(instance, "Name").name = "name";
    EXPECT_EQ(complaintAbout(instance), "ORX_LANEndpoint has no Name");
}

TEST(FromCim, readsMarkings)
{
    const Marking marking = markingFrom(markingInstance("Name"));
    EXPECT_FALSE(marking.enabled);
    EXPECT_EQ(marking.mark(Flow::Signalling), menuMark(160));
    EXPECT_EQ(marking.mark(Flow::Voice), menuMark(184));
    EXPECT_EQ(marking.mark(Flow::Video), menuMark(136));
    EXPECT_EQ(marking.mark(Flow::Fax), customMark(104));
}

TEST(FromCim, takesTheMarkingServiceThatIsThereFromTheStart)
{
    EXPECT_EQ(firstMarkingFrom({markingInstance("Another"), markingInstance("Name")}).name, "Name");
    EXPECT_EQ(firstMarkingFrom({markingInstance("Another")}).name, "Another");
    EXPECT_THROW(firstMarkingFrom({}), UnexpectedInstance);
}

TEST(FromCim, needsASetting)
{
    EXPECT_THROW(onlySettingFrom({}), UnexpectedInstance);
    EXPECT_TRUE(endpointsFrom({}).empty());
}

TEST(FromCim, namesObjectsByTheirProperties)
{
    const wire::InstanceName name = nameOf(endpointFrom(endpointInstance()));
    EXPECT_EQ(name.className, "ORX_LANEndpoint");
    const std::vector<std::pair<std::string, std::string>> keys{
        {"SystemCreationClassName", "ORX_LANEndpoint"},
        {"SystemName", "ORX_K30v"},
        {"CreationClassName", "ORX_LANEndpoint"},
        {"Name", "eth1"}};
    EXPECT_EQ(name.keys, keys);
    EXPECT_EQ(nameOf(markingFrom(markingInstance("Name"))).keys.back(),
              (std::pair<std::string, std::string>{"Name", "Name"}));
    Setting setting;
    setting.instanceId = "id";
    EXPECT_EQ(nameOf(setting).keys, (std::vector<std::pair<std::string, std::string>>{{"InstanceID", "id"}}));
}
