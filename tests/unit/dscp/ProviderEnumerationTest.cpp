#include "ProviderTest.hpp"

#include <stdexcept>

namespace
{

using dscptest::CimFailure;
using dscptest::failureOf;
using dscptest::FullService;
using dscptest::Lines;
using OpenWBEM::CIMInstance;
using OpenWBEM::CIMObjectPath;
namespace Flags = OpenWBEM::WBEMFlags;

class ProviderEnumeration : public dscptest::ProviderTest
{
};

TEST_F(ProviderEnumeration, TheServiceOfTheServerIsNamedByItsFourKeys)
{
    initialize();
    EXPECT_EQ(enumInstanceNames(),
              Lines{"/root/cimv2:ORX_ALGService.SystemCreationClassName=\"SCCN\",SystemName=\"SN\","
                    "CreationClassName=\"CCN\",Name=\"Name\""});
    EXPECT_EQ(world.journal(), Lines());
}

TEST_F(ProviderEnumeration, NamesAreInTheRequestedNamespaceAndClass)
{
    initialize();
    EXPECT_EQ(enumInstanceNames("root/orx", "orx_algservice"),
              Lines{"/root/orx:orx_algservice.SystemCreationClassName=\"SCCN\",SystemName=\"SN\","
                    "CreationClassName=\"CCN\",Name=\"Name\""});
}

TEST_F(ProviderEnumeration, NamesComeInTheOrderOfTheRegistry)
{
    const FullService second("B", "2", "", "");
    const FullService first("A", "1", "", "");
    EXPECT_EQ(enumInstanceNames(),
              (Lines{"/root/cimv2:ORX_ALGService.SystemCreationClassName=\"A\",SystemName=\"1\","
                     "CreationClassName=\"\",Name=\"\"",
                     "/root/cimv2:ORX_ALGService.SystemCreationClassName=\"B\",SystemName=\"2\","
                     "CreationClassName=\"\",Name=\"\""}));
}

TEST_F(ProviderEnumeration, KeysOfANameAreStrings)
{
    class Types : public OpenWBEM::CIMObjectPathResultHandlerIFC
    {
      protected:
        void doHandle(const CIMObjectPath& name) override
        {
            for (const char* key : {"SystemCreationClassName", "SystemName", "CreationClassName", "Name"})
                EXPECT_EQ(name.getKeyValue(key).getType(), OpenWBEM::CIMDataType::STRING) << key;
        }
    } result;
    initialize();
    provider.enumInstanceNames(env, "root/cimv2", "ORX_ALGService", result,
                               OpenWBEM::CIMClass(OpenWBEM::CIMNULL));
}

TEST_F(ProviderEnumeration, AServiceWithoutOneOfItsKeysHasNoName)
{
    FullService service("A", "B", "C", "D");
    for (const char* getter :
         {"getSystemCreationClassName", "getSystemName", "getCreationClassName", "getName"}) {
        service.results = {{getter, 100}};
        EXPECT_EQ(failureOf([&] { enumInstanceNames(); }), (CimFailure{6, ""})) << getter;
    }
    service.results.clear(); // so that it finds its entry again
}

TEST_F(ProviderEnumeration, InstancesCarryWhatTheServiceSupports)
{
    initialize();
    const std::vector<CIMInstance> found = enumInstances();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_STREQ(found[0].getClassName().c_str(), "ORX_ALGService");
    EXPECT_EQ(
        dscptest::properties(found[0]),
        (Lines{"string:SystemCreationClassName=SCCN", "string:SystemName=SN", "string:CreationClassName=CCN",
               "string:Name=Name", "string:ElementName=", "boolean:KLonKLEnabled=false",
               "uint16:QoSMarkVOIPSignaling=0", "uint16:TOSByteSignaling=0", "uint16:QoSMarkVoiceMedia=0",
               "uint16:TOSByteMedia=0", "uint16:QoSMarkVideoMedia=0", "uint16:TOSByteVideoMedia=0",
               "uint16:videoMediaVisible=1", "uint16:QoSFaxMedia=0", "uint16:TOSByteFax=0"}));
    EXPECT_EQ(world.journal(), Lines());
}

TEST_F(ProviderEnumeration, InstancesAreOfTheirOneClassWhateverIsAskedFor)
{
    initialize();
    const std::vector<CIMInstance> found = enumInstances("Another_Class");
    ASSERT_EQ(found.size(), 1u);
    EXPECT_STREQ(found[0].getClassName().c_str(), "ORX_ALGService");
}

TEST_F(ProviderEnumeration, APropertyThatALaterServiceLacksKeepsTheEarlierOnesValue)
{
    const FullService first("A", "", "", "");
    const ORX_ALGService second("B", "", "", "");
    const std::vector<CIMInstance> found = enumInstances();
    ASSERT_EQ(found.size(), 2u);
    Lines expected = dscptest::properties(found[0]);
    EXPECT_EQ(expected[0], "string:SystemCreationClassName=A");
    expected[0] = "string:SystemCreationClassName=B";
    EXPECT_EQ(dscptest::properties(found[1]), expected);
    EXPECT_EQ(expected.size(), 30u);
}

TEST_F(ProviderEnumeration, NoPropertyIsAddedForAServiceOfKeysAlone)
{
    const ORX_ALGService bare("A", "B", "C", "D");
    const std::vector<CIMInstance> found = enumInstances();
    ASSERT_EQ(found.size(), 1u);
    EXPECT_EQ(dscptest::properties(found[0]),
              (Lines{"string:SystemCreationClassName=A", "string:SystemName=B", "string:CreationClassName=C",
                     "string:Name=D"}));
}

TEST_F(ProviderEnumeration, WithoutServicesThereIsNothing)
{
    EXPECT_EQ(enumInstanceNames(), Lines());
    EXPECT_TRUE(enumInstances().empty());
}

TEST_F(ProviderEnumeration, FlagsAndPropertyListAreIgnored)
{
    class Count : public OpenWBEM::CIMInstanceResultHandlerIFC
    {
      protected:
        void doHandle(const CIMInstance& instance) override
        {
            EXPECT_EQ(instance.getProperties().size(), 15u);
        }
    } result;
    initialize();
    OpenWBEM::StringArray list;
    list.push_back("Name");
    provider.enumInstances(env, "root/cimv2", "ORX_ALGService", result, Flags::E_LOCAL_ONLY, Flags::E_SHALLOW,
                           Flags::E_EXCLUDE_QUALIFIERS, Flags::E_EXCLUDE_CLASS_ORIGIN, &list,
                           OpenWBEM::CIMClass(OpenWBEM::CIMNULL), OpenWBEM::CIMClass(OpenWBEM::CIMNULL));
}

class IterationWatcher : public ORX_ALGServiceInstanceManager
{
  public:
    void startIteration() override
    {
        calls.push_back("startIteration");
        ORX_ALGServiceInstanceManager::startIteration();
    }
    ORX_ALGService* next() override
    {
        calls.push_back("next");
        return ORX_ALGServiceInstanceManager::next();
    }
    void endIteration() override
    {
        calls.push_back("endIteration");
        ORX_ALGServiceInstanceManager::endIteration();
    }

    Lines calls;
};

TEST_F(ProviderEnumeration, AnIterationIsStartedAndEnded)
{
    auto* const manager = new IterationWatcher;
    ORX_ALGService::SetInstanceManager(manager);
    const ORX_ALGService service("A", "B", "C", "D");
    enumInstanceNames();
    EXPECT_EQ(manager->calls, (Lines{"startIteration", "next", "endIteration"}));
    manager->calls.clear();
    enumInstances();
    EXPECT_EQ(manager->calls, (Lines{"startIteration", "next", "endIteration"}));
}

TEST_F(ProviderEnumeration, WhatAResultHandlerThrowsPassesThrough)
{
    class Broken : public OpenWBEM::CIMInstanceResultHandlerIFC,
                   public OpenWBEM::CIMObjectPathResultHandlerIFC
    {
      protected:
        void doHandle(const CIMInstance&) override { throw std::runtime_error("broken pipe"); }
        void doHandle(const CIMObjectPath&) override { throw std::runtime_error("broken pipe"); }
    } result;
    initialize();
    EXPECT_THROW(provider.enumInstanceNames(env, "root/cimv2", "ORX_ALGService", result,
                                            OpenWBEM::CIMClass(OpenWBEM::CIMNULL)),
                 std::runtime_error);
    EXPECT_THROW(provider.enumInstances(
                     env, "root/cimv2", "ORX_ALGService", result, Flags::E_NOT_LOCAL_ONLY, Flags::E_DEEP,
                     Flags::E_INCLUDE_QUALIFIERS, Flags::E_INCLUDE_CLASS_ORIGIN, nullptr,
                     OpenWBEM::CIMClass(OpenWBEM::CIMNULL), OpenWBEM::CIMClass(OpenWBEM::CIMNULL)),
                 std::runtime_error);
    EXPECT_EQ(enumInstanceNames().size(), 1u);
}

} // namespace
