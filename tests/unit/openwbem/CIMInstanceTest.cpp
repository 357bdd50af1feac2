#include "OW_Array.hpp"
#include "OW_CIMException.hpp"
#include "OW_CIMInstance.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"
#include "OW_CIMValue.hpp"
#include "OW_NoSuchPropertyException.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>

using namespace OpenWBEM;

namespace
{

CIMQualifier warning(const char* text)
{
    CIMQualifier qualifier("ImpactWarning");
    qualifier.setValue(CIMValue(text));
    return qualifier;
}

CIMProperty key(const char* name, const char* value)
{
    CIMProperty property(name, CIMValue(value));
    property.setQualifier(CIMQualifier::createKeyQualifier());
    return property;
}

// name:type of each property, in order.
std::string shown(const CIMPropertyArray& properties)
{
    std::string text;
    for (const CIMProperty& property : properties) {
        text += std::string("[") + property.toString().c_str() + "]";
    }
    return text;
}

} // namespace

TEST(CIMInstance, hasItsClassNameAsName)
{
    CIMInstance instance("SAMPLE_Port");
    EXPECT_EQ("SAMPLE_Port", instance.getClassName());
    EXPECT_EQ("SAMPLE_Port", instance.getName());
    instance.setClassName("SAMPLE_Service");
    EXPECT_EQ("SAMPLE_Service", instance.getName());
    instance.setName("sample_port");
    EXPECT_EQ("sample_port", instance.getClassName());
}

TEST(CIMInstance, keepsPropertiesInTheOrderTheyCameIn)
{
    CIMInstance instance("C");
    instance.setProperty(CIMProperty("b", CIMValue("1")));
    instance.setProperty(CIMProperty("a", CIMValue("2")));
    instance.setProperty(CIMProperty("B", CIMValue(UInt16(3))));
    EXPECT_EQ("[uint16:B=3][string:a=2]", shown(instance.getProperties()));
}

TEST(CIMInstance, findsPropertiesIgnoringCase)
{
    CIMInstance instance("C");
    instance.setProperty(CIMProperty("Name", CIMValue("eth0")));
    EXPECT_EQ("Name", instance.getProperty("NAME").getName());
    EXPECT_EQ("eth0", instance.getPropertyT("name").getValue().toString());
    EXPECT_EQ("eth0", instance.getPropertyValue(String("nAME")).toString());
    EXPECT_TRUE(instance.propertyHasValue("name"));
}

TEST(CIMInstance, hasNullForWhatItLacks)
{
    CIMInstance instance("C");
    instance.setProperty(CIMProperty("x", CIMDataType(CIMDataType::UINT16)));
    EXPECT_FALSE(instance.getProperty("Name"));
    EXPECT_FALSE(instance.getPropertyValue("Name"));
    EXPECT_FALSE(instance.getPropertyValue("x"));
    EXPECT_FALSE(instance.propertyHasValue("x"));
    EXPECT_EQ("NoSuchPropertyException: Name", thrown([&instance] { instance.getPropertyT("Name"); }));
}

TEST(CIMInstance, appendsAPropertyWithTheTypeOfItsValue)
{
    CIMInstance instance("C");
    instance.setProperty("x", CIMValue(UInt16(5)));
    EXPECT_EQ("[uint16:x=5]", shown(instance.getProperties()));
    EXPECT_TRUE(instance.getProperty("x").getQualifiers().empty());
}

TEST(CIMInstance, appendsANullValueWithoutAType)
{
    CIMInstance instance("C");
    instance.setProperty("x", CIMValue(CIMNULL));
    ASSERT_TRUE(instance.getProperty("x"));
    EXPECT_FALSE(instance.getProperty("x").getDataType());
    EXPECT_FALSE(instance.getProperty("x").getValue());
}

TEST(CIMInstance, castsAValueToTheTypeOfThePropertyThatIsThere)
{
    CIMInstance instance("C");
    instance.setProperty("n", CIMValue(UInt16(5)));
    instance.setProperty("t", CIMValue(""));
    instance.setProperty("N", CIMValue(""));
    instance.setProperty("T", CIMValue(UInt16(1)));
    EXPECT_EQ("[uint16:n=0][string:t=1]", shown(instance.getProperties()));
}

TEST(CIMInstance, refusesAValueThatDoesNotFitThePropertyThatIsThere)
{
    CIMInstance instance("C");
    instance.setProperty("n", CIMValue(UInt16(5)));
    EXPECT_EQ("CIMException: general error (Unable to convert \"abc\" into UInt16)",
              thrown([&instance] { instance.setProperty("n", CIMValue("abc")); }));
}

TEST(CIMInstance, keepsQualifiersWhenAPropertyIsSetByName)
{
    CIMInstance instance("C");
    CIMProperty property("x", CIMValue("1"));
    property.setQualifier(warning("restarts"));
    instance.setProperty(property);
    instance.setProperty("X", CIMValue("2"));
    EXPECT_TRUE(instance.getProperty("x").getQualifier("ImpactWarning"));
    instance.setProperty(CIMProperty("x", CIMValue("3")));
    EXPECT_FALSE(instance.getProperty("x").getQualifier("ImpactWarning"));
}

TEST(CIMInstance, ignoresANullProperty)
{
    CIMInstance instance("C");
    instance.setProperty(CIMProperty(CIMNULL));
    EXPECT_TRUE(instance.getProperties().empty());
}

TEST(CIMInstance, selectsPropertiesByType)
{
    CIMInstance instance("C");
    instance.setProperty("a", CIMValue("1"));
    instance.setProperty("b", CIMValue(UInt16(2)));
    instance.setProperty("c", CIMValue("3"));
    EXPECT_EQ("[string:a=1][string:c=3]", shown(instance.getProperties(CIMDataType::STRING)));
    EXPECT_EQ("", shown(instance.getProperties(CIMDataType::BOOLEAN)));
    EXPECT_EQ(3U, instance.getProperties(CIMDataType::INVALID).size());
}

TEST(CIMInstance, handsOutCopiesOfItsProperties)
{
    CIMInstance instance("C");
    instance.getProperties().push_back(CIMProperty("x", CIMValue("1")));
    EXPECT_TRUE(instance.getProperties().empty());
}

TEST(CIMInstance, removesAProperty)
{
    CIMInstance instance("C");
    instance.setProperty("x", CIMValue("1"));
    instance.removeProperty("X");
    instance.removeProperty("y");
    EXPECT_TRUE(instance.getProperties().empty());
}

TEST(CIMInstance, updatesOnlyPropertiesThatAreThere)
{
    CIMInstance instance("C");
    instance.setProperty("x", CIMValue(UInt16(1)));
    CIMPropertyArray updates;
    updates.push_back(CIMProperty("X", CIMValue("2")));
    updates.push_back(CIMProperty("y", CIMValue("3")));
    instance.updatePropertyValues(updates);
    EXPECT_EQ("[uint16:x=2]", shown(instance.getProperties()));
    instance.updatePropertyValue(CIMProperty("x", CIMValue(UInt16(4))));
    EXPECT_EQ("[uint16:x=4]", shown(instance.getProperties()));
}

TEST(CIMInstance, hasNoKeysWithoutKeyQualifiers)
{
    CIMInstance instance("C");
    instance.setProperty("Name", CIMValue("eth0"));
    EXPECT_TRUE(instance.getKeyValuePairs().empty());
}

TEST(CIMInstance, hasItsKeyPropertiesAsKeys)
{
    CIMInstance instance("C");
    instance.setProperty(key("Name", "eth0"));
    instance.setProperty("Level", CIMValue(UInt16(1)));
    EXPECT_EQ("[string:Name=eth0]", shown(instance.getKeyValuePairs()));
    instance.setProperty("name", CIMValue("eth1"));
    EXPECT_EQ("[string:Name=eth1]", shown(instance.getKeyValuePairs()));
}

TEST(CIMInstance, rebuildsItsKeysWhenAllPropertiesAreReplaced)
{
    CIMInstance instance("C");
    instance.setProperty(key("Name", "eth0"));
    CIMPropertyArray properties(1, key("Id", "7"));
    properties.push_back(CIMProperty("x", CIMValue("1")));
    instance.setProperties(properties);
    EXPECT_EQ("[string:Id=7]", shown(instance.getKeyValuePairs()));
    EXPECT_EQ("[string:Id=7][string:x=1]", shown(instance.getProperties()));
}

TEST(CIMInstance, countsReferencesAmongItsKeys)
{
    CIMInstance instance("C");
    instance.setProperty("Antecedent", CIMValue(CIMObjectPath("D", "root")));
    EXPECT_EQ("", shown(instance.getKeyValuePairs())); // until they are next rebuilt
    instance.setProperties(instance.getProperties());
    EXPECT_EQ("[REF:Antecedent=/root:D]", shown(instance.getKeyValuePairs()));
}

TEST(CIMInstance, takesKeysOfTheirOwn)
{
    CIMInstance instance("C");
    instance.setKeys(CIMPropertyArray(1, CIMProperty("Name", CIMValue("eth0"))));
    EXPECT_EQ("[string:Name=eth0]", shown(instance.getKeyValuePairs()));
    EXPECT_TRUE(instance.getProperties().empty());
}

TEST(CIMInstance, carriesQualifiers)
{
    CIMInstance instance("C");
    instance.setQualifier(warning("a"));
    instance.setQualifier(warning("b"));
    ASSERT_EQ(1U, instance.getQualifiers().size());
    EXPECT_EQ("b", instance.getQualifier("impactwarning").getValue().toString());
    instance.removeQualifier("IMPACTWARNING");
    EXPECT_FALSE(instance.getQualifier("ImpactWarning"));
    instance.setQualifiers(CIMQualifierArray(1, warning("c")));
    EXPECT_EQ("c", instance.getQualifiers()[0].getValue().toString());
}

TEST(CIMInstance, isNotChangedThroughACopy)
{
    CIMInstance instance("C");
    instance.setProperty("x", CIMValue("1"));
    CIMInstance copy(instance);
    copy.setProperty("x", CIMValue("2"));
    copy.setClassName("D");
    EXPECT_EQ("instance of C {\nx = 1;\n}\n", instance.toString());
    EXPECT_EQ("instance of D {\nx = 2;\n}\n", copy.toString());
}

TEST(CIMInstance, comparesProperties)
{
    CIMInstance a("C");
    a.setProperty("x", CIMValue("1"));
    a.setProperty("y", CIMValue("2"));
    CIMInstance b("C");
    b.setProperty("Y", CIMValue("2"));
    EXPECT_FALSE(a.propertiesAreEqualTo(b));
    b.setProperty("X", CIMValue("1"));
    EXPECT_TRUE(a.propertiesAreEqualTo(b));
    b.setProperty("x", CIMValue("3"));
    EXPECT_FALSE(a.propertiesAreEqualTo(b));
}

TEST(CIMInstance, hasALanguage)
{
    CIMInstance instance("C");
    instance.setLanguage("en");
    EXPECT_EQ("en", instance.getLanguage());
}

TEST(CIMInstance, isWrittenWithAllItsProperties)
{
    CIMInstance instance("ORX_LANEndpoint");
    instance.setProperty("Name", CIMValue("eth0"));
    instance.setProperty("MaxDataSize", CIMValue(Int32(1500)));
    instance.setProperty("isDhcpEnabled", CIMValue(true));
    instance.setProperty(CIMProperty("x", CIMDataType(CIMDataType::UINT16)));
    EXPECT_EQ("instance of ORX_LANEndpoint {\nName = eth0;\nMaxDataSize = 1500;\nisDhcpEnabled = true;\nx = "
              "null;\n}\n",
              instance.toString());
}

TEST(CIMInstance, leavesInvisiblePropertiesOutOfItsText)
{
    CIMInstance instance("C");
    CIMQualifier invisible("Invisible");
    invisible.setValue(CIMValue(true));
    CIMProperty secret("Secret", CIMValue("x"));
    secret.setQualifier(invisible);
    instance.setProperty(secret);
    EXPECT_EQ("instance of C {\n}\n", instance.toString());
}

TEST(CIMInstance, isWrittenAsMof)
{
    CIMInstance instance("C");
    instance.setProperty("a", CIMValue("x"));
    instance.setProperty(CIMProperty("b", CIMDataType(CIMDataType::UINT16)));
    EXPECT_EQ("INSTANCE OF C\n{\n  a=\"x\";\n  b=NULL;\n};\n", instance.toMOF());
}
