#include "RoofFixture.hpp"
#include "reporting/Logging.hpp"

#include <OW_CIM.hpp>
#include <OW_CIMException.hpp>
#include <OW_InstanceProviderInfo.hpp>
#include <OW_MethodProviderInfo.hpp>

#include <gtest/gtest.h>

#include <set>

using namespace OpenWBEM;
using fakes::Lines;
using fakes::Roof;

namespace
{

TEST_F(Roof, RefusesEveryOperationOnAClassThatItDoesNotServe)
{
    for (const char* className :
         {"ORX_Other", "orx_lanendpoint", "ORX_LANSERVICESETTING", "ORX_AlgService", ""}) {
        std::map<int, std::string> lines;
        for (const auto& [name, operation] : operationsOn(className)) {
            const CIMException e = failureOf(operation);
            EXPECT_EQ(CIMException::INVALID_CLASS, e.getErrNo()) << name;
            EXPECT_STREQ("", e.Exception::getMessage()) << name;
            EXPECT_STREQ("LANProvider.cpp", e.getFile()) << name;
            EXPECT_TRUE(lines.emplace(e.getLine(), name).second) << name << " and " << lines[e.getLine()];
        }
        EXPECT_EQ(7U, lines.size());
    }
    EXPECT_EQ(Lines{}, world.journal()) << "a refused request touches and logs nothing";
}

TEST_F(Roof, EnumeratesTheNamesOfTheThreeEndpointsAndTracesIt)
{
    provider.initialize(env);
    world.clearJournal();
    CIMObjectPathArray names;
    EXPECT_EQ("endpoint enum instance name received\n", traceOf([&] { names = namesOf("ORX_LANEndpoint"); }));
    ASSERT_EQ(3U, names.size());
    EXPECT_STREQ("ORX_LANEndpoint", names[2].getClassName().c_str());
    EXPECT_STREQ("eth2", names[2].getKeyValue("Name").toString().c_str());
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(Roof, EnumeratesTheNameOfTheSettingAndTracesIt)
{
    CIMObjectPathArray names;
    EXPECT_EQ("setting enum instance name received\n",
              traceOf([&] { names = namesOf("ORX_LANServiceSetting"); }));
    ASSERT_EQ(1U, names.size());
    EXPECT_STREQ("/root/cimv2:ORX_LANServiceSetting.InstanceID=\"\"", names[0].toString().c_str());
}

TEST_F(Roof, TracesAnEnumerationOfTheMarkingServiceAsOneOfTheSetting)
{
    provider.initialize(env);
    CIMObjectPathArray names;
    EXPECT_EQ("setting enum instance name received\n", traceOf([&] { names = namesOf("ORX_ALGService"); }));
    ASSERT_EQ(1U, names.size());
    EXPECT_STREQ("SN", names[0].getKeyValue("SystemName").toString().c_str());
}

TEST_F(Roof, TracesBeforeItForwardsAndPassesAnExceptionUntouchedAndUnlogged)
{
    provider.initialize(env);
    const auto refuse = [] { throw CIMException("handler.cpp", 5, CIMException::ACCESS_DENIED, "no"); };
    fakes::InterruptedHandler<CIMObjectPath> names(refuse);
    fakes::InterruptedHandler<CIMInstance> instances(refuse);
    const auto expectRefusal = [this](const char* trace, const std::function<void()>& operation) {
        world.clearJournal();
        EXPECT_EQ(trace, traceOf([&] {
                      const CIMException e = failureOf(operation);
                      EXPECT_STREQ("handler.cpp", e.getFile());
                      EXPECT_EQ(5, e.getLine());
                      EXPECT_EQ(CIMException::ACCESS_DENIED, e.getErrNo());
                      EXPECT_STREQ("no", e.Exception::getMessage());
                  }));
        EXPECT_EQ(Lines{}, world.journal(fakes::Log));
    };
    expectRefusal("endpoint enum instance name received\n", [&] { enumNames("ORX_LANEndpoint", names); });
    expectRefusal("setting enum instance name received\n", [&] { enumNames("ORX_ALGService", names); });
    expectRefusal("", [&] { enumInstances("ORX_LANEndpoint", instances); });
    expectRefusal("", [&] { enumInstances("ORX_ALGService", instances); });
}

TEST_F(Roof, TracesNothingForAnUnknownClassNorInAnyOtherOperation)
{
    provider.initialize(env);
    const auto quietly = [](const std::function<void()>& operation) {
        try {
            operation();
        } catch (const CIMException&) {
            // what each operation answers is told by the tests of the sub-providers
        }
    };
    EXPECT_EQ("", traceOf([&] { quietly([&] { namesOf("ORX_Other"); }); }));
    for (const char* className : {"ORX_LANEndpoint", "ORX_LANServiceSetting", "ORX_ALGService"}) {
        for (const auto& [name, operation] : operationsOn(className)) {
            if (name == "enumInstanceNames")
                continue;
            EXPECT_EQ("", traceOf([&, &operation = operation] { quietly(operation); })) << className << name;
        }
    }
}

TEST_F(Roof, ForwardsEveryOperationToTheSubProviderOfTheClass)
{
    provider.initialize(env);
    const std::map<std::string, std::string> files = {{"ORX_LANEndpoint", "ORX_LANEndpointProvider.cpp"},
                                                      {"ORX_LANServiceSetting", "ORX_LANSettingProvider.cpp"},
                                                      {"ORX_ALGService", "ORX_ALGServiceProvider.cpp"}};
    const std::set<std::string> working = {
        "ORX_ALGService createInstance", "ORX_LANServiceSetting getInstance",
        "ORX_LANServiceSetting modifyInstance", "ORX_LANServiceSetting invokeMethod"};
    for (const auto& [className, file] : files) {
        for (const char* name :
             {"createInstance", "deleteInstance", "getInstance", "modifyInstance", "invokeMethod"}) {
            if (working.count(className + " " + name) != 0)
                continue;
            world.clearJournal();
            const CIMException e = failureOf(operationsOn(className.c_str())[name]);
            EXPECT_EQ(file, e.getFile()) << className << " " << name;
            EXPECT_EQ(Lines{}, world.journal()) << "nobody logs it on its way";
        }
    }
    EXPECT_STREQ("ORX_LANServiceSetting", get(CIMObjectPath("ORX_LANServiceSetting")).getClassName().c_str());
    EXPECT_EQ(1U, instancesOf("ORX_LANServiceSetting").size());
    EXPECT_EQ(3U, instancesOf("ORX_LANEndpoint").size());
    EXPECT_STREQ("eth1", get(endpointPath("Customer LAN")).getPropertyValue("Name").toString().c_str());
    world.routerPresent = true;
    EXPECT_STREQ("Router reset initiated", invoke("ORX_LANServiceSetting", "ResetRouter").toString().c_str());
}

TEST_F(Roof, PassesTheNameSpaceAndTheResultOfACreationThrough)
{
    provider.initialize(env);
    CIMInstance instance("ORX_ALGService");
    instance.setProperty(CIMProperty("Name", CIMValue(String("second"))));
    EXPECT_STREQ(
        "/root/cimv2:ORX_ALGService.SystemCreationClassName=\"\",SystemName=\"\",CreationClassName=\"\",Name="
        "\"second\"",
        provider.createInstance(env, "root/cimv2", instance).toString().c_str());
    EXPECT_EQ(2U, instancesOf("ORX_ALGService").size());
}

TEST_F(Roof, ChoosesTheSubProviderOfAModificationByTheModifiedInstance)
{
    world.write("/etc/sysconfig/network-scripts/ifcfg-eth1", "BOOTPROTO=dhcp\n");
    CIMInstance endpoint("ORX_LANEndpoint");
    endpoint.setProperty(CIMProperty("Name", CIMValue(String("eth1"))));
    endpoint.setProperty(CIMProperty("MaxDataSize", CIMValue(Int32(1400))));
    modify(endpoint, CIMInstance("ORX_Other"));
    EXPECT_EQ(1400, world.interfaces["eth1"].mtu);

    const CIMException e = failureOf([&] { modify(CIMInstance("ORX_Other"), endpoint); });
    EXPECT_EQ(CIMException::INVALID_CLASS, e.getErrNo());
}

TEST_F(Roof, InitialisesLoggerThenSubProvidersThenMtus)
{
    provider.initialize(fakes::environment("server"));
    gLogger->logError("heard");
    const Lines journal = world.journal();
    ASSERT_GT(journal.size(), 20U);
    EXPECT_EQ("osGetProcessId", journal[0]);
    EXPECT_EQ("KvuDiagRegisterModule ORX_DSCPService DSCP 0 ORX_DSCP.log", journal[1]);
    EXPECT_EQ("server ERROR heard", journal.back());
    Lines expected;
    for (const std::string name : {"eth0", "eth1", "eth2"}) {
        const std::string value = "5 providers\\ORX_LANProvider\\" + name + " MTUSize";
        for (const std::string& line :
             {std::string("socket"), "KvuGetRegEntryUint16Ex " + value, "ioctl SIOCGIFMTU " + name,
              "KvuSetRegEntryUint16Ex " + value + " 1500", "ioctl SIOCSIFMTU " + name + " 1500",
              std::string("close socket")})
            expected.push_back(line);
    }
    EXPECT_EQ(expected, Lines(journal.end() - 19, journal.end() - 1));
}

TEST_F(Roof, HasItsLoggerBeforeTheSubProvidersBegin)
{
    world.failNth(1, "osGetProcessId", 3);
    provider.initialize(fakes::environment("server"));
    EXPECT_EQ((Lines{"server ERROR etProcessId() returns "}), world.journal(fakes::Log));
}

TEST_F(Roof, RoutesAModificationToEachOfTheThree)
{
    provider.initialize(env);
    CIMInstance setting("ORX_LANServiceSetting");
    setting.setProperty(CIMProperty("DomainName", CIMValue(String("office.example"))));
    modify(setting, setting);
    EXPECT_EQ((Lines{"runcommand /kv/bin/updatehosts domainname office.example"}),
              world.journal(fakes::Command));

    CIMInstance service = instancesOf("ORX_ALGService")[0];
    service.setProperty(CIMProperty("QoSFaxMedia", CIMValue(UInt16(184))));
    modify(service, service);
    EXPECT_EQ(184, (world.registry[{"HTS\\DSCPMarking", "faxmediamenu"}]));
}

TEST_F(Roof, PassesTheNameSpaceOfAnEnumerationOn)
{
    provider.initialize(env);
    EXPECT_STREQ(
        "/root/cimv2:ORX_LANEndpoint.SystemCreationClassName=\"ORX_LANEndpoint\",SystemName=\"ORX_K30v\","
        "CreationClassName=\"ORX_LANEndpoint\",Name=\"eth0\"",
        namesOf("ORX_LANEndpoint")[0].toString().c_str());
}

TEST_F(Roof, InitialisesEvenWhereAnInterfaceIsMissing)
{
    world.interfaces.erase("eth2");
    provider.initialize(env);
    EXPECT_EQ(0U, (world.registry.count({"providers\\ORX_LANProvider\\eth2", "MTUSize"})));
    EXPECT_EQ(1U, (world.registry.count({"providers\\ORX_LANProvider\\eth1", "MTUSize"})));
}

TEST_F(Roof, DoesNothingWhenItIsMadeCleanedUpAndDropped)
{
    {
        LANProvider another;
        another.cleanup();
    }
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(Roof, LeavesTheOtherProviderInterfacesToTheirDefaults)
{
    InstanceProviderInfo instanceInfo;
    provider.getInstanceProviderInfo(instanceInfo);
    EXPECT_TRUE(instanceInfo.getClassInfo().empty());
    MethodProviderInfo methodInfo;
    provider.getMethodProviderInfo(methodInfo);
    EXPECT_TRUE(methodInfo.getClassInfo().empty());
    EXPECT_EQ(&provider, provider.getInstanceProvider());
    EXPECT_EQ(&provider, provider.getMethodProvider());
    EXPECT_EQ(nullptr, provider.getAssociatorProvider());
    EXPECT_EQ(nullptr, provider.getIndicationProvider());
    EXPECT_EQ(nullptr, provider.getPolledProvider());
    EXPECT_TRUE(provider.canUnload());
}

} // namespace
