// What is left out of an instance, or kept from the one before, when the endpoint does not tell it.

#include "Failures.hpp"
#include "ProviderFixture.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <net/if.h>

using namespace fakes; // for the sums of journal lines
using OpenWBEM::CIMInstance;

namespace
{

class FailingGetters : public ProviderTest
{
  protected:
    /// `lines` with another line, or none for "", in place of that of `property`.
    static Lines replaced(Lines lines, const std::string& property, const std::string& line)
    {
        const auto found = std::find_if(lines.begin(), lines.end(), [&](const std::string& one) {
            return one.find(":" + property + "=") != std::string::npos;
        });
        if (found == lines.end())
            ADD_FAILURE() << "no line of " << property;
        else if (line.empty())
            lines.erase(found);
        else
            *found = line;
        return lines;
    }

    static void expectStates(const CIMInstance& instance, const char* operationalStatus,
                             const char* enabledState)
    {
        EXPECT_EQ(operationalStatus, shown(instance, "OperationalStatus"));
        EXPECT_EQ(enabledState, shown(instance, "EnabledState"));
    }

    /// Gives eth0 other values than eth1 in all that can differ.
    void setEverythingOfEth0Apart()
    {
        configureDhcp("eth0", "192.168.0.1", "255.255.255.0");
        world.registry[{"providers\\ORX_LANProvider\\eth0", "MTUSize"}] = 1400;
        world.interfaces["eth0"].flags = IFF_UP;
        world.interfaces["eth0"].mii = Interface::Mii::Standard;
        world.interfaces["eth0"].registers = {0x1000, 0x782D, 0, 0, 0x01E1, 0x41E1, 0, 0};
    }

    /// The getters whose property is left out when they do not succeed.
    const std::vector<std::pair<const char*, const char*>> getters = {
        {"getMACAddress", "MACAddress"},
        {"getMaxDataSize", "MaxDataSize"},
        {"getSubnetMask", "SubnetMask"},
        {"getGateway", "DefaultGateway"},
        {"getIsDHCPEnabled", "isDhcpEnabled"},
        {"getDescription", "Description"},
        {"getOperationalStatus", "OperationalStatus"},
        {"getTimeOfLastStateChange", "TimeOfLastStateChange"},
        {"getProtocolIFType", "ProtocolIFType"},
        {"getSpeed", "Speed"}};
};

TEST_F(FailingGetters, StatesThatCannotBeReadAreLeftOutOrEmptyInASingleInstance)
{
    world.failNth(2, "socket", EMFILE); // the first one is for the hardware address
    world.failNth(3, "socket", EMFILE);
    world.failNth(4, "socket", EMFILE);
    Lines expected = eth1Instance;
    expected[12] = "string:EnabledState=";
    expected.erase(expected.begin() + 15); // Speed
    expected.erase(expected.begin() + 11); // OperationalStatus
    EXPECT_EQ(expected, shown(getInstance("eth1")));
}

TEST_F(FailingGetters, AnEnumeratedInstanceKeepsTheOperationalStatusOfTheOneBefore)
{
    world.interfaces["eth0"].flags = 0; // operational status 2
    world.failNth(8, "socket", EMFILE); // eth0 takes six; eth1's first is for the hardware address
    world.failNth(9, "socket", EMFILE);
    const std::vector<CIMInstance> instances = enumInstances();
    ASSERT_EQ(3U, instances.size());
    expectStates(instances[0], "uint16:OperationalStatus=2", "uint16:EnabledState=2");
    expectStates(instances[1], "uint16:OperationalStatus=2", "string:EnabledState=");
    expectStates(instances[2], "uint16:OperationalStatus=1", "uint16:EnabledState=1");
}

TEST_F(FailingGetters, TheFirstEnumeratedInstanceHasNoOperationalStatusToKeep)
{
    world.failNth(2, "socket", EMFILE);
    world.failNth(3, "socket", EMFILE);
    const std::vector<CIMInstance> instances = enumInstances();
    ASSERT_EQ(3U, instances.size());
    expectStates(instances[0], "", "string:EnabledState=");
    expectStates(instances[1], "uint16:OperationalStatus=1", "uint16:EnabledState=1");
}

TEST_F(FailingGetters, APropertyWhoseGetterDoesNotSucceedIsLeftOut)
{
    for (const auto& [getter, property] : getters) {
        for (const int result : {0, 2, -1}) {
            overrides.results = {{getter, result}};
            EXPECT_EQ(replaced(eth1Instance, property, ""), shown(getInstance("eth1"))) << getter << result;
        }
    }
}

TEST_F(FailingGetters, AnEnabledStateWhoseGetterDoesNotSucceedIsTheEmptyText)
{
    for (const int result : {0, 2, -1}) {
        overrides.results["getEnabledState"] = result;
        EXPECT_EQ(replaced(eth1Instance, "EnabledState", "string:EnabledState="), shown(getInstance("eth1")));
    }
}

TEST_F(FailingGetters, EveryPropertyThatIsLeftOutOfAnEnumeratedInstanceKeepsTheValueOfTheOneBefore)
{
    setEverythingOfEth0Apart();
    const Lines eth0Instance = shown(getInstance("eth0"));
    for (const auto& [getter, property] : getters) {
        provider.initialize(env);
        overrides.results.clear();
        onResult = [this, getter = getter] { overrides.results = {{getter, 2}}; }; // behind eth0
        const std::vector<CIMInstance> instances = enumInstances();
        ASSERT_EQ(3U, instances.size());
        EXPECT_EQ(eth0Instance, shown(instances[0]));
        const std::string kept = shown(instances[0], property);
        EXPECT_EQ(replaced(eth1Instance, property, kept), shown(instances[1])) << getter;
        EXPECT_EQ(kept, shown(instances[2], property)) << getter;
    }
}

TEST_F(FailingGetters, AnEnumeratedInstanceWhoseSpeedCannotBeAskedKeepsTheSpeedOfTheOneBefore)
{
    setEverythingOfEth0Apart();
    world.failNth(12, "socket", EMFILE); // each instance takes six, the last one for the speed
    const std::vector<CIMInstance> instances = enumInstances();
    ASSERT_EQ(3U, instances.size());
    EXPECT_EQ("uint64:Speed=100000000", shown(instances[0], "Speed"));
    EXPECT_EQ(replaced(eth1Instance, "Speed", "uint64:Speed=100000000"), shown(instances[1]));
    EXPECT_EQ("uint64:Speed=10000000", shown(instances[2], "Speed"));
}

TEST_F(FailingGetters, AnAddressThatCannotBeReadIsAFailureNamedAfterTheSetter)
{
    for (const int result : {0, 2}) {
        overrides.results["getIPAddress"] = result;
        EXPECT_EQ("ORX_LANEndpointProvider.cpp 1 Error: setIPAddress!!",
                  failureOf([this] { getInstance("eth1"); }));
    }
    EXPECT_EQ(Lines{}, world.journal(Log));
}

TEST_F(FailingGetters, ANameThatCannotBeReadEndsTheEnumerationOfNames)
{
    for (const int result : {0, 2, -1}) {
        provider.initialize(env);
        world.clearJournal();
        overrides.results["getName"] = result;
        EXPECT_EQ("ORX_LANEndpointProvider.cpp 6", failureOf([this] { enumInstanceNames(); })) << result;
        EXPECT_EQ(Lines{}, world.journal());
    }
}

TEST_F(FailingGetters, ANameThatCannotBeReadIsLeftOutOfAnInstance)
{
    for (const int result : {0, 2, -1}) {
        overrides.results = {{"getName", result}, {"getDescription", 0}};
        const CIMInstance instance = getInstance("eth1");
        EXPECT_EQ("", shown(instance, "Name")) << result;
        EXPECT_EQ("string:CreationClassName=ORX_LANEndpoint", shown(instance, "CreationClassName"));
    }
}

} // namespace
