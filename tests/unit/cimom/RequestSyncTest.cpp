#include "RequestSync.hpp"
#include "ClassRepository.hpp"
#include "MofParser.hpp"

#include "OW_CIMException.hpp"
#include "OW_CIMMethod.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"
#include "OW_CIMValue.hpp"
#include "OW_NoSuchPropertyException.hpp"

#include <gtest/gtest.h>

namespace cimom::test
{
namespace
{

using namespace OpenWBEM;

CIMClass sampleClass()
{
    ClassRepository repository;
    repository.add(parseMof(
        "[Provider(\"c++::X\"), Description(\"d\")] class KV_Port { [Key] string Name; [Key] uint16 Slot; "
        "[Write] sint32 Size; boolean On; string Color = \"green\"; "
        "uint32 Adjust([In] uint16 Level, string Comment, [In(false), Out] string Report); };",
        "test.mof"));
    return repository.nameSpace(defaultNameSpace).findClass("KV_Port");
}

// "name type 'value'" of each, qualifiers counted.
std::string listing(const CIMPropertyArray& properties)
{
    std::string text;
    for (const CIMProperty& property : properties) {
        text +=
            std::string(property.getName().c_str()) + " " + property.getDataType().toString().c_str() + " " +
            (property.getValue() ? "'" + std::string(property.getValue().toString().c_str()) + "'" : "NULL") +
            "; ";
    }
    return text;
}

TEST(RequestSync, PathsTakeTheKeysOfTheClass)
{
    CIMObjectPath path("kv_port");
    path.setKeyValue("slot", CIMValue(Int64(3))).setKeyValue("Other", CIMValue("x"));
    const CIMObjectPath synced = syncedPath(path, sampleClass());
    EXPECT_EQ(synced.getClassName(), String("kv_port"));
    EXPECT_EQ(listing(synced.getKeys()), "Slot uint16 '3'; Name string NULL; ");
}

TEST(RequestSync, AKeyThatCannotBeCastIsAFailure)
{
    CIMObjectPath path("KV_Port");
    path.setKeyValue("Slot", CIMValue("abc"));
    try {
        syncedPath(path, sampleClass());
        FAIL();
    } catch (const CIMException& e) {
        EXPECT_STREQ(e.getMessage(), "general error (Unable to convert \"abc\" into UInt16)");
    }
}

TEST(RequestSync, InstancesAreMadeComplete)
{
    CIMInstance instance("kv_port");
    instance.setProperty("size", CIMValue("1500"));
    instance.setProperty("NoSuch", CIMValue("x"));
    instance.setProperty("NAME", CIMValue("eth0"));
    const CIMInstance synced = syncedInstance(instance, sampleClass());
    EXPECT_EQ(synced.getClassName(), String("kv_port"));
    EXPECT_EQ(
        listing(synced.getProperties()),
        "Size sint32 '1500'; Name string 'eth0'; Slot uint16 NULL; On boolean NULL; Color string 'green'; ");
    EXPECT_EQ(listing(synced.getKeyValuePairs()), "Name string 'eth0'; Slot uint16 NULL; ");
    EXPECT_TRUE(synced.getProperty("Size").hasTrueQualifier("Write"));
}

TEST(RequestSync, DefaultsStandInForNullToo)
{
    CIMInstance instance("KV_Port");
    instance.setProperty(CIMProperty("Color", CIMDataType(CIMDataType::STRING)));
    EXPECT_EQ(syncedInstance(instance, sampleClass()).getPropertyValue("Color"), CIMValue("green"));
}

TEST(RequestSync, QualifiersAreTheClassesWhereTheClientSentThem)
{
    CIMInstance instance("KV_Port");
    EXPECT_TRUE(syncedInstance(instance, sampleClass()).getQualifiers().empty());
    CIMQualifier provider("provider");
    provider.setValue(CIMValue("other"));
    instance.setQualifier(provider);
    instance.setQualifier(CIMQualifier("NoSuch"));
    const CIMQualifierArray qualifiers = syncedInstance(instance, sampleClass()).getQualifiers();
    ASSERT_EQ(qualifiers.size(), 1U);
    EXPECT_EQ(qualifiers[0].getValue(), CIMValue("c++::X"));
}

TEST(RequestSync, APropertyListSelectsAndOrdersAndLeavesTheKeys)
{
    CIMInstance instance("KV_Port");
    instance.setProperty("Name", CIMValue("eth0"));
    instance.setProperty("Size", CIMValue(Int32(1)));
    StringArray names;
    names.push_back("on");
    names.push_back("size");
    const CIMInstance restricted = restrictedTo(names, syncedInstance(instance, sampleClass()));
    EXPECT_EQ(listing(restricted.getProperties()), "On boolean NULL; Size sint32 '1'; ");
    EXPECT_EQ(listing(restricted.getKeyValuePairs()), "Name string 'eth0'; Slot uint16 NULL; ");
    EXPECT_FALSE(restricted.getProperty("Name"));
}

TEST(RequestSync, AListedPropertyMustExist)
{
    EXPECT_THROW(restrictedTo(StringArray(1, "NoSuch"), CIMInstance("KV_Port")), NoSuchPropertyException);
}

CIMParamValueArray arguments(const char* name, const CIMValue& value)
{
    return CIMParamValueArray(1, CIMParamValue(name, value));
}

TEST(RequestSync, ArgumentsComeInTheOrderOfTheClassUnderTheClientsNames)
{
    CIMParamValueArray given = arguments("comment", CIMValue("a"));
    given.push_back(CIMParamValue("LEVEL", CIMValue("3")));
    const CIMParamValueArray in = syncedArguments(given, sampleClass().getMethod("Adjust"));
    ASSERT_EQ(in.size(), 2U);
    EXPECT_EQ(in[0].toString(), String("CIMParamValue(LEVEL): 3"));
    EXPECT_EQ(in[0].getValue(), CIMValue(UInt16(3)));
    EXPECT_EQ(in[1].toString(), String("CIMParamValue(comment): a"));
}

TEST(RequestSync, MissingArgumentsAreNull)
{
    const CIMParamValueArray in = syncedArguments(CIMParamValueArray(), sampleClass().getMethod("Adjust"));
    ASSERT_EQ(in.size(), 2U);
    EXPECT_EQ(in[0].toString(), String("CIMParamValue(Level): (null)"));
    EXPECT_EQ(in[1].toString(), String("CIMParamValue(Comment): (null)"));
}

TEST(RequestSync, ArgumentsThatDoNotBelongAreRefused)
{
    const auto refusal = [](const CIMParamValueArray& given) -> std::string {
        try {
            syncedArguments(given, sampleClass().getMethod("Adjust"));
        } catch (const CIMException& e) {
            return e.getMessage();
        }
        return "none";
    };
    EXPECT_EQ(refusal(arguments("X", CIMValue("1"))),
              "invalid parameter passed to method (Unknown or duplicate parameter: X)");
    EXPECT_EQ(refusal(arguments("Report", CIMValue("1"))),
              "invalid parameter passed to method (Unknown or duplicate parameter: Report)");
    EXPECT_EQ(refusal(arguments("Level", CIMValue("abc"))),
              "invalid parameter passed to method (Unable to convert \"abc\" into UInt16)");
    CIMParamValueArray twice = arguments("Level", CIMValue(UInt16(1)));
    twice.push_back(twice[0]);
    EXPECT_EQ(refusal(twice), "invalid parameter passed to method (Unknown or duplicate parameter: Level)");
}

TEST(RequestSync, AnInstanceWithoutKeysIsNamedByTheKeysOfItsClass)
{
    CIMInstance instance("KV_Port");
    instance.setProperty("Size", CIMValue(Int32(1)));
    instance.setProperty("name", CIMValue("eth0"));
    EXPECT_EQ(instanceName(instance, sampleClass()).toString(), String("/:KV_Port.Name=\"eth0\""));
    instance.setProperty("Slot", CIMValue(UInt16(2)));
    EXPECT_EQ(instanceName(instance, sampleClass()).toString(), String("/:KV_Port.Name=\"eth0\",Slot=\"2\""));
}

TEST(RequestSync, KeysOfTheInstanceItselfAreItsName)
{
    CIMInstance instance("KV_Port");
    CIMProperty key("Own", CIMValue("x"));
    key.setQualifier(CIMQualifier::createKeyQualifier());
    instance.setProperty(key);
    instance.setProperty("Name", CIMValue("eth0"));
    EXPECT_EQ(instanceName(instance, sampleClass()).toString(), String("/:KV_Port.Own=\"x\""));
}

} // namespace
} // namespace cimom::test
