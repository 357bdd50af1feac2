#include "OW_Array.hpp"
#include "OW_CIMClass.hpp"
#include "OW_CIMException.hpp"
#include "OW_CIMInstance.hpp"
#include "OW_CIMMethod.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"
#include "OW_CIMValue.hpp"
#include "SampleClass.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>

using namespace OpenWBEM;
using namespace OpenWBEM::WBEMFlags;

namespace
{

std::string shown(const CIMPropertyArray& properties)
{
    std::string text;
    for (const CIMProperty& property : properties) {
        text += std::string("[") + property.toString().c_str() + "]";
    }
    return text;
}

StringArray list(const char* first, const char* second = nullptr)
{
    StringArray names(1, String(first));
    if (second) {
        names.push_back(second);
    }
    return names;
}

CIMInstance threeProperties()
{
    CIMInstance instance("SAMPLE_Port");
    CIMProperty name("Name", CIMValue("port0"));
    name.setQualifier(CIMQualifier::createKeyQualifier());
    name.setOriginClass("SAMPLE_Base");
    instance.setProperty(name);
    instance.setProperty("Level", CIMValue(UInt16(1)));
    CIMProperty inherited("Caption", CIMValue("text"));
    inherited.setPropagated();
    instance.setProperty(inherited);
    return instance;
}

} // namespace

TEST(InstanceSelection, keepsListedPropertiesIgnoringCase)
{
    const CIMInstance all = threeProperties();
    EXPECT_EQ(
        "[string:Name=port0][string:Caption=text]",
        shown(all.filterProperties(list("caption", "NAME"), E_INCLUDE_QUALIFIERS, E_INCLUDE_CLASS_ORIGIN)
                  .getProperties()));
    EXPECT_EQ("", shown(all.filterProperties(StringArray(), E_INCLUDE_QUALIFIERS, E_INCLUDE_CLASS_ORIGIN)
                            .getProperties()));
    EXPECT_EQ(3U, all.filterProperties(StringArray(), E_INCLUDE_QUALIFIERS, E_INCLUDE_CLASS_ORIGIN, true)
                      .getProperties()
                      .size());
}

TEST(InstanceSelection, keepsAllPropertiesWithoutAList)
{
    const CIMInstance all = threeProperties();
    const StringArray none;
    const StringArray one = list("level");
    EXPECT_EQ(3U, all.clone(E_NOT_LOCAL_ONLY, E_INCLUDE_QUALIFIERS, E_INCLUDE_CLASS_ORIGIN, nullptr)
                      .getProperties()
                      .size());
    EXPECT_EQ("", shown(all.clone(E_NOT_LOCAL_ONLY, E_INCLUDE_QUALIFIERS, E_INCLUDE_CLASS_ORIGIN, &none)
                            .getProperties()));
    EXPECT_EQ(
        "[uint16:Level=1]",
        shown(
            all.clone(E_NOT_LOCAL_ONLY, E_INCLUDE_QUALIFIERS, E_INCLUDE_CLASS_ORIGIN, &one).getProperties()));
}

TEST(InstanceSelection, leavesInheritedPropertiesOutOnDemand)
{
    EXPECT_EQ("[string:Name=port0][uint16:Level=1]",
              shown(threeProperties()
                        .clone(E_LOCAL_ONLY, E_INCLUDE_QUALIFIERS, E_INCLUDE_CLASS_ORIGIN, nullptr)
                        .getProperties()));
}

TEST(InstanceSelection, keepsQualifiersAndOriginsOnDemand)
{
    const CIMInstance all = threeProperties();
    const CIMInstance full =
        all.clone(E_NOT_LOCAL_ONLY, E_INCLUDE_QUALIFIERS, E_INCLUDE_CLASS_ORIGIN, nullptr);
    EXPECT_TRUE(full.getProperty("Name").getQualifier("Key"));
    EXPECT_EQ("SAMPLE_Base", full.getProperty("Name").getOriginClass());
    const CIMInstance bare =
        all.clone(E_NOT_LOCAL_ONLY, E_EXCLUDE_QUALIFIERS, E_EXCLUDE_CLASS_ORIGIN, nullptr);
    EXPECT_FALSE(bare.getProperty("Name").getQualifier("Key"));
    EXPECT_EQ("", bare.getProperty("Name").getOriginClass());
}

TEST(InstanceOfClass, losesWhatTheClassLacksAndGainsWhatItMisses)
{
    CIMInstance instance("sample_port");
    instance.setProperty("Extra", CIMValue("x"));
    instance.setProperty("level", CIMValue("7"));
    instance.setProperty("NAME", CIMValue("port0"));
    instance.syncWithClass(sampleClass());
    EXPECT_EQ("[uint16:Level=7][string:Name=port0][string:Color=green]", shown(instance.getProperties()));
    EXPECT_EQ("sample_port", instance.getClassName());
}

TEST(InstanceOfClass, hasTheQualifiersOriginsAndKeysOfTheClass)
{
    CIMInstance instance("SAMPLE_Port");
    CIMQualifier own("Own");
    own.setValue(CIMValue("x"));
    CIMProperty level("Level", CIMValue(UInt16(7)));
    level.setQualifier(own);
    instance.setProperty(level);
    instance.setProperty("Name", CIMValue("port0"));
    instance.syncWithClass(sampleClass());
    EXPECT_FALSE(instance.getProperty("Level").getQualifier("Own"));
    EXPECT_TRUE(instance.getProperty("Level").getQualifier("Write"));
    EXPECT_EQ("SAMPLE_Base", instance.getProperty("Level").getOriginClass());
    EXPECT_EQ("[string:Name=port0]", shown(instance.getKeyValuePairs()));
}

TEST(InstanceOfClass, takesTheDefaultForANullValue)
{
    CIMInstance instance("SAMPLE_Port");
    instance.setProperty("Color", CIMValue(CIMNULL));
    instance.setProperty("Level", CIMValue(CIMNULL));
    instance.syncWithClass(sampleClass());
    EXPECT_EQ("[string:Color=green][uint16:Level=null][string:Name=null]", shown(instance.getProperties()));
}

TEST(InstanceOfClass, refusesValuesThatDoNotFit)
{
    CIMInstance instance("SAMPLE_Port");
    instance.setProperty("Level", CIMValue("abc"));
    EXPECT_EQ("CIMException: general error (Unable to convert \"abc\" into UInt16)",
              thrown([&instance] { instance.syncWithClass(sampleClass()); }));
}

TEST(InstanceOfClass, keepsTheSecondOfTwoEqualNamesAsItCame)
{
    CIMPropertyArray twice(1, CIMProperty("Level", CIMValue("1")));
    twice.push_back(CIMProperty("Level", CIMValue("2")));
    CIMInstance instance("SAMPLE_Port");
    instance.setProperties(twice);
    instance.syncWithClass(sampleClass());
    EXPECT_EQ("[uint16:Level=1][string:Level=2][string:Name=null][string:Color=green]",
              shown(instance.getProperties()));
}

TEST(InstanceOfClass, isUnchangedByANullClass)
{
    CIMInstance instance("SAMPLE_Port");
    instance.setProperty("Extra", CIMValue("x"));
    instance.syncWithClass(CIMClass(CIMNULL));
    EXPECT_EQ("[string:Extra=x]", shown(instance.getProperties()));
}

TEST(NewInstance, hasAllPropertiesOfItsClassAndNoneOfItsQualifiers)
{
    const CIMInstance instance = sampleClass().newInstance();
    EXPECT_EQ("SAMPLE_Port", instance.getClassName());
    EXPECT_EQ("[string:Name=null][uint16:Level=null][string:Color=green]", shown(instance.getProperties()));
    EXPECT_TRUE(instance.getQualifiers().empty());
    EXPECT_EQ("[string:Name=null]", shown(instance.getKeyValuePairs()));
}

TEST(NewInstance, castsWhatItIsGiven)
{
    CIMInstance instance = sampleClass().newInstance();
    instance.setProperty("level", CIMValue("7"));
    EXPECT_EQ("[uint16:Level=7]", shown(instance.getProperties(CIMDataType::UINT16)));
}

TEST(ModifiedInstance, isThePreviousOneWithTheListedProperties)
{
    const CIMInstance previous = sampleClass().newInstance().setProperty("Name", CIMValue("port0"));
    CIMInstance change("SAMPLE_Port");
    change.setProperty("Level", CIMValue(UInt16(7)));
    change.setProperty("Color", CIMValue("red"));
    const StringArray levelOnly = list("level");
    EXPECT_EQ("[string:Name=port0][uint16:Level=7][string:Color=green]",
              shown(change.createModifiedInstance(previous, E_EXCLUDE_QUALIFIERS, &levelOnly, sampleClass())
                        .getProperties()));
    EXPECT_EQ("[uint16:Level=7][string:Color=red]",
              shown(change.createModifiedInstance(previous, E_EXCLUDE_QUALIFIERS, nullptr, sampleClass())
                        .getProperties()));
}

TEST(ModifiedInstance, takesItsOwnQualifiersOnDemand)
{
    CIMQualifier own("Own");
    own.setValue(CIMValue("x"));
    CIMInstance previous = sampleClass().newInstance();
    previous.setQualifier(CIMQualifier("Provider"));
    CIMInstance change("SAMPLE_Port");
    change.setQualifier(own);
    const CIMInstance kept =
        change.createModifiedInstance(previous, E_EXCLUDE_QUALIFIERS, nullptr, sampleClass());
    EXPECT_FALSE(kept.getQualifier("Own"));
    EXPECT_TRUE(kept.getQualifier("Provider"));
    const CIMInstance taken =
        change.createModifiedInstance(previous, E_INCLUDE_QUALIFIERS, nullptr, sampleClass());
    EXPECT_TRUE(taken.getQualifier("Own"));
}

TEST(CIMClass, findsItsPartsIgnoringCase)
{
    const CIMClass port = sampleClass();
    EXPECT_EQ("SAMPLE_Port", port.getName());
    EXPECT_EQ("Name", port.getProperty("NAME").getName());
    EXPECT_FALSE(port.getProperty("Extra"));
    EXPECT_EQ("Provider", port.getQualifier("provider").getName());
    EXPECT_FALSE(port.getQualifier("Abstract"));
    EXPECT_FALSE(port.getMethod("Reset"));
    EXPECT_EQ("[string:Name=null]", shown(port.getKeys()));
    EXPECT_EQ(3U, port.getAllProperties().size());
    EXPECT_EQ("", port.getSuperClass());
}

TEST(CIMClass, replacesAProperty)
{
    CIMClass port = sampleClass();
    port.setProperty(CIMProperty("COLOR", CIMValue("red")));
    EXPECT_EQ("string:COLOR=red", port.getProperty("Color").toString());
    EXPECT_EQ(3U, port.getAllProperties().size());
}
