// Single instances: how they are found, what they carry, and what a provider does before and beside requests.

#include "ProviderTest.hpp"
#include "dscp/CFG_Exception.hpp"

#include <OW_CIMQualifier.hpp>

#include <memory>

namespace
{

using dscptest::CimFailure;
using dscptest::failureOf;
using dscptest::FullService;
using dscptest::keys;
using dscptest::Lines;
using dscptest::path;
using dscptest::startUpKeys;
using OpenWBEM::CIMInstance;
namespace Flags = OpenWBEM::WBEMFlags;

class ProviderInstance : public dscptest::ProviderTest
{
};

const char* const keyNames[] = {"SystemCreationClassName", "SystemName", "CreationClassName", "Name"};

TEST_F(ProviderInstance, EveryPropertyTheServiceSupportsIsThereInItsTypeAndOrder)
{
    const FullService service("A", "B", "C", "D");
    const CIMInstance found = getInstance(path(keys("A", "B", "C", "D")));
    EXPECT_STREQ(found.getClassName().c_str(), "ORX_ALGService");
    EXPECT_EQ(dscptest::properties(found), (Lines{"string:SystemCreationClassName=A",
                                                  "string:SystemName=B",
                                                  "string:CreationClassName=C",
                                                  "string:Name=D",
                                                  "string:ElementName=element",
                                                  "boolean:KLonKLEnabled=true",
                                                  "uint16:QoSMarkVOIPSignaling=101",
                                                  "uint16:TOSByteSignaling=102",
                                                  "uint16:QoSMarkVoiceMedia=103",
                                                  "uint16:TOSByteMedia=104",
                                                  "uint16:QoSMarkVideoMedia=105",
                                                  "uint16:TOSByteVideoMedia=106",
                                                  "uint16:videoMediaVisible=107",
                                                  "uint16:QoSFaxMedia=108",
                                                  "uint16:TOSByteFax=65535",
                                                  "string:PrimaryOwnerName=owner",
                                                  "string:PrimaryOwnerContact=contact",
                                                  "string:StartMode=Automatic",
                                                  "boolean:Started=true",
                                                  "uint16:EnabledState=2",
                                                  "string:OtherEnabledState=other",
                                                  "uint16:RequestedState=5",
                                                  "uint16:EnabledDefault=3",
                                                  "datetime:TimeOfLastStateChange=20041001120000.000000+060",
                                                  "datetime:InstallDate=20040901080000.000000-120",
                                                  "uint16:OperationalStatus=2,5",
                                                  "string:StatusDescriptions=fine,well",
                                                  "string:Status=OK",
                                                  "string:Caption=caption",
                                                  "string:Description=description"}));
}

TEST_F(ProviderInstance, OnlyTheTwoListsAreArrays)
{
    const FullService service("A", "B", "C", "D");
    const OpenWBEM::CIMPropertyArray properties = getInstance(path(keys("A", "B", "C", "D"))).getProperties();
    for (const OpenWBEM::CIMProperty& property : properties) {
        const std::string name = property.getName().c_str();
        EXPECT_EQ(property.getValue().isArray(), name == "OperationalStatus" || name == "StatusDescriptions")
            << name;
    }
}

TEST_F(ProviderInstance, AnUnsupportedPropertyIsLeftOutWhateverItsStatus)
{
    FullService service("A", "B", "C", "D");
    const char* const names[] = {"ElementName",
                                 "KLonKLEnabled",
                                 "QoSMarkVOIPSignaling",
                                 "TOSByteSignaling",
                                 "QoSMarkVoiceMedia",
                                 "TOSByteMedia",
                                 "QoSMarkVideoMedia",
                                 "TOSByteVideoMedia",
                                 "videoMediaVisible",
                                 "QoSFaxMedia",
                                 "TOSByteFax",
                                 "PrimaryOwnerName",
                                 "PrimaryOwnerContact",
                                 "StartMode",
                                 "Started",
                                 "EnabledState",
                                 "OtherEnabledState",
                                 "RequestedState",
                                 "EnabledDefault",
                                 "TimeOfLastStateChange",
                                 "InstallDate",
                                 "OperationalStatus",
                                 "StatusDescriptions",
                                 "Status",
                                 "Caption",
                                 "Description"};
    for (const std::string name : names) {
        for (const std::uint32_t status : {1u, 100u, 0xFFFFFFFFu}) {
            service.results = {{"get" + name, status}};
            const CIMInstance found = getInstance(path(keys("A", "B", "C", "D")));
            EXPECT_FALSE(found.getProperty(name.c_str())) << name;
            EXPECT_EQ(found.getProperties().size(), 29u) << name;
        }
    }
}

TEST_F(ProviderInstance, AnInstanceIsOfItsOneClassWhateverThePathSays)
{
    initialize();
    OpenWBEM::CIMObjectPath another = path(startUpKeys());
    another.setClassName("Another_Class");
    EXPECT_STREQ(getInstance(another).getClassName().c_str(), "ORX_ALGService");
}

TEST_F(ProviderInstance, AKeyThatTheServiceDoesNotGiveIsLeftOutOfTheInstance)
{
    FullService service("A", "B", "C", "D");
    for (const std::string name : keyNames) {
        service.results = {{"get" + name, 100}};
        EXPECT_FALSE(getInstance(path(keys("A", "B", "C", "D"))).getProperty(name.c_str())) << name;
    }
    service.results.clear(); // so that it finds its entry again
}

TEST_F(ProviderInstance, EachPropertyHasTheQualifiersOfItsOwnGetter)
{
    FullService service("A", "B", "C", "D");
    service.qualified = true;
    const OpenWBEM::CIMPropertyArray properties = getInstance(path(keys("A", "B", "C", "D"))).getProperties();
    EXPECT_EQ(properties.size(), 30u);
    for (const OpenWBEM::CIMProperty& property : properties) {
        const OpenWBEM::CIMQualifierArray qualifiers = property.getQualifiers();
        ASSERT_EQ(qualifiers.size(), 1u) << property.getName();
        EXPECT_STREQ(qualifiers[0].getName().c_str(),
                     ("Of" + std::string(property.getName().c_str())).c_str());
        EXPECT_STREQ(qualifiers[0].getValue().toString().c_str(), "a warning");
    }
}

TEST_F(ProviderInstance, TheServersServiceHasNoQualifiers)
{
    initialize();
    const OpenWBEM::CIMPropertyArray properties = getInstance(path(startUpKeys())).getProperties();
    EXPECT_EQ(properties.size(), 15u);
    for (const OpenWBEM::CIMProperty& property : properties)
        EXPECT_EQ(property.getQualifiers().size(), 0u) << property.getName();
    EXPECT_EQ(world.journal(), Lines());
}

TEST_F(ProviderInstance, FlagsAndPropertyListAreIgnored)
{
    initialize();
    OpenWBEM::StringArray list;
    list.push_back("Name");
    const CIMInstance found = provider.getInstance(
        env, "root/cimv2", path(startUpKeys()), Flags::E_LOCAL_ONLY, Flags::E_EXCLUDE_QUALIFIERS,
        Flags::E_EXCLUDE_CLASS_ORIGIN, &list, OpenWBEM::CIMClass(OpenWBEM::CIMNULL));
    EXPECT_EQ(found.getProperties().size(), 15u);
}

TEST_F(ProviderInstance, TheNamespaceOfARequestForAnObjectIsIgnored)
{
    initialize();
    ns = "interop/elsewhere";
    EXPECT_EQ(getInstance(path(startUpKeys())).getProperties().size(), 15u);
    EXPECT_EQ(enumInstances().size(), 1u);
    modify({{"QoSFaxMedia", dscptest::uint16(12)}});
    EXPECT_EQ(world.registry.at({dscptest::section, "faxmediamenu"}), 12);
    deleteInstance(path(startUpKeys()));
    EXPECT_EQ(enumInstances().size(), 0u);
}

/// A manager that has its own reasons not to give an object.
class RefusingManager : public dscptest::ProgrammedManager
{
  public:
    ORX_ALGService* get(const std::string&, const std::string&, const std::string&,
                        const std::string&) override
    {
        throw CFG_Exception();
    }
};

TEST_F(ProviderInstance, AnObjectThatTheManagerDoesNotGiveIsNotFoundWhateverTheReason)
{
    ORX_ALGService::SetInstanceManager(new RefusingManager);
    const FullService service("A", "B", "C", "D");
    EXPECT_EQ(failureOf([&] { getInstance(path(keys("A", "B", "C", "D"))); }), (CimFailure{6, ""}));
}

TEST_F(ProviderInstance, APathWithoutOneOfItsKeysIsNotFound)
{
    initialize();
    for (const char* name : keyNames) {
        EXPECT_EQ(failureOf([&] { getInstance(path(dscptest::without(name, startUpKeys()))); }),
                  (CimFailure{6, ""}))
            << name;
        EXPECT_EQ(failureOf([&] { getInstance(path(dscptest::withNull(name, startUpKeys()))); }),
                  (CimFailure{6, ""}))
            << name;
    }
}

TEST_F(ProviderInstance, ANullKeyIsNoText)
{
    const ORX_ALGService namedAsNullIsPrinted("SCCN", "SN", "CCN", "(null)");
    const ORX_ALGService nameless("SCCN", "SN", "CCN", "");
    EXPECT_EQ(failureOf([&] { getInstance(path(dscptest::withNull("Name", startUpKeys()))); }),
              (CimFailure{6, ""}));
}

TEST_F(ProviderInstance, APathOfOtherKeysIsNotFound)
{
    initialize();
    EXPECT_EQ(failureOf([&] { getInstance(path(keys("SCCN", "SN", "CCN", "name"))); }), (CimFailure{6, ""}));
    EXPECT_EQ(failureOf([&] { getInstance(path(keys("", "", "", ""))); }), (CimFailure{6, ""}));
}

TEST_F(ProviderInstance, OrderAndLetterCaseOfKeyNamesDoNotMatter)
{
    initialize();
    const CIMInstance found = getInstance(path({{"name", dscptest::text("Name")},
                                                {"SYSTEMNAME", dscptest::text("SN")},
                                                {"creationclassname", dscptest::text("CCN")},
                                                {"systemCreationClassName", dscptest::text("SCCN")}}));
    EXPECT_EQ(found.getProperties().size(), 15u);
}

TEST_F(ProviderInstance, KeysOfAnotherTypeAreTakenAsTheirText)
{
    const ORX_ALGService service("7", "true", "C", "D");
    const CIMInstance found = getInstance(path({{"SystemCreationClassName", dscptest::uint16(7)},
                                                {"SystemName", dscptest::boolean(true)},
                                                {"CreationClassName", dscptest::text("C")},
                                                {"Name", dscptest::text("D")}}));
    EXPECT_EQ(found.getProperties().size(), 4u);
}

TEST_F(ProviderInstance, ThereAreNoMethods)
{
    initialize();
    OpenWBEM::CIMParamValueArray in;
    OpenWBEM::CIMParamValueArray out;
    for (const char* method : {"ResetRouter", "StartService", ""})
        EXPECT_EQ(failureOf([&] {
                      provider.invokeMethod(env, "root/cimv2", path(startUpKeys()), method, in, out);
                  }),
                  (CimFailure{17, ""}));
    EXPECT_EQ(world.journal(), Lines());
}

TEST_F(ProviderInstance, InitialisationBuildsTheServiceFromTheRegistry)
{
    store("KLonKLEnabled", 1);
    store("voipsigmenu", 258);
    store("voipsigtosbyte", 46);
    store("voicemediamenu", 184);
    store("videomediamenu", 136);
    store("faxmediamenu", 188);
    provider.initialize(env);
    EXPECT_NE(ORX_ALGService::getInstanceManager(), defaultManager);
    EXPECT_EQ(dscptest::properties(getInstance(path(startUpKeys()))),
              (Lines{"string:SystemCreationClassName=SCCN", "string:SystemName=SN",
                     "string:CreationClassName=CCN", "string:Name=Name",
                     "string:ElementName=", "boolean:KLonKLEnabled=true", "uint16:QoSMarkVOIPSignaling=258",
                     "uint16:TOSByteSignaling=46", "uint16:QoSMarkVoiceMedia=184", "uint16:TOSByteMedia=184",
                     "uint16:QoSMarkVideoMedia=136", "uint16:TOSByteVideoMedia=136",
                     "uint16:videoMediaVisible=1", "uint16:QoSFaxMedia=188", "uint16:TOSByteFax=188"}));
}

TEST_F(ProviderInstance, WithoutADiagnosticsModuleThereIsNoInstance)
{
    world.failNth(1, "KvuDiagRegisterModule", 5);
    provider.initialize(env);
    EXPECT_EQ(enumInstanceNames(), Lines());
    EXPECT_EQ(failureOf([&] { getInstance(path(startUpKeys())); }), (CimFailure{6, ""}));
}

TEST_F(ProviderInstance, InitialisingAgainStartsOverWithOneService)
{
    initialize();
    const std::unique_ptr<ORX_ALGService> first(
        ORX_ALGService::getInstanceManager()->get("SCCN", "SN", "CCN", "Name"));
    store("voipsigmenu", 184);
    provider.initialize(env);
    EXPECT_EQ(enumInstanceNames().size(), 1u);
    const ORX_ALGService* const second =
        ORX_ALGService::getInstanceManager()->get("SCCN", "SN", "CCN", "Name");
    EXPECT_NE(second, first.get());
    EXPECT_EQ(dscptest::valueOf(*first, &ORX_ALGService::getQoSMarkVOIPSignaling), 0); // left to the process
    EXPECT_EQ(dscptest::valueOf(*second, &ORX_ALGService::getQoSMarkVOIPSignaling), 184);
    // Its successor has the same key and would otherwise be lost to the fixture.
    const std::unique_ptr<const ORX_ALGService> cleanUp(second);
}

TEST_F(ProviderInstance, NeitherCleanupNorTheProvidersEndReleasesTheService)
{
    initialize();
    provider.cleanup();
    EXPECT_EQ(enumInstanceNames().size(), 1u);
    {
        ORX_ALGServiceProvider another;
    }
    EXPECT_EQ(enumInstanceNames().size(), 1u);
    EXPECT_EQ(world.journal(), Lines());
}

TEST_F(ProviderInstance, AProviderThatIsNeverInitialisedTouchesNothing)
{
    {
        ORX_ALGServiceProvider unused;
        unused.cleanup();
    }
    EXPECT_EQ(ORX_ALGService::getInstanceManager(), defaultManager);
    EXPECT_EQ(enumInstanceNames(), Lines());
    EXPECT_EQ(world.journal(), Lines());
}

} // namespace
