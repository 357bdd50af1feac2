#include "OW_Array.hpp"
#include "OW_CIMException.hpp"
#include "OW_CIMFlavor.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_CIMParamValue.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"
#include "OW_CIMValue.hpp"
#include "OW_NULLValueException.hpp"
#include "OW_NoSuchQualifierException.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>
#include <sstream>

using namespace OpenWBEM;

namespace
{

CIMQualifier qualifier(const char* name, const CIMValue& value)
{
    CIMQualifier made(name);
    made.setValue(value);
    return made;
}

} // namespace

TEST(CIMProperty, takesItsTypeFromTheValue)
{
    const CIMProperty property("MaxDataSize", CIMValue(Int32(1500)));
    EXPECT_EQ("MaxDataSize", property.getName());
    EXPECT_EQ(CIMDataType::SINT32, property.getDataType().getType());
    EXPECT_EQ(1500, property.getValue().toInt32());
}

TEST(CIMProperty, hasATypeWithoutAValue)
{
    const CIMProperty property("x", CIMDataType(CIMDataType::UINT16));
    EXPECT_EQ(CIMDataType::UINT16, property.getDataType().getType());
    EXPECT_FALSE(property.getValue());
}

TEST(CIMProperty, refusesANullValueAtTheStart)
{
    EXPECT_EQ(NULL_REFERENCE, thrown([] { CIMProperty("x", CIMValue(CIMNULL)); }));
}

TEST(CIMProperty, castsAValueToItsType)
{
    CIMProperty number("x", CIMValue(UInt16(5)));
    number.setValue(CIMValue(""));
    EXPECT_TRUE(CIMValue(UInt16(0)) == number.getValue());
    CIMProperty text("x", CIMValue(""));
    text.setValue(CIMValue(UInt16(1)));
    EXPECT_TRUE(CIMValue("1") == text.getValue());
}

TEST(CIMProperty, keepsItsValueWhenACastFails)
{
    CIMProperty number("x", CIMValue(UInt16(5)));
    EXPECT_EQ("CIMException: general error (Unable to convert \"abc\" into UInt16)",
              thrown([&number] { number.setValue(CIMValue("abc")); }));
    EXPECT_TRUE(CIMValue(UInt16(5)) == number.getValue());
}

TEST(CIMProperty, keepsItsTypeWhenSetToNull)
{
    CIMProperty property("x", CIMValue(UInt16(5)));
    property.setValue(CIMValue(CIMNULL));
    EXPECT_FALSE(property.getValue());
    EXPECT_EQ(CIMDataType::UINT16, property.getDataType().getType());
}

TEST(CIMProperty, getsNoTypeFromALaterValue)
{
    CIMProperty property("x");
    property.setValue(CIMValue(UInt16(5)));
    EXPECT_FALSE(property.getDataType());
    EXPECT_TRUE(CIMValue(UInt16(5)) == property.getValue());
}

TEST(CIMProperty, castsItsValueToANewType)
{
    CIMProperty property("x", CIMValue("5"));
    property.setDataType(CIMDataType(CIMDataType::UINT16));
    EXPECT_TRUE(CIMValue(UInt16(5)) == property.getValue());
    property.setDataType(CIMDataType::STRING);
    EXPECT_TRUE(CIMValue("5") == property.getValue());
}

TEST(CIMProperty, throwsForAnAbsentValueOnDemand)
{
    EXPECT_EQ("NULLValueException: x", thrown([] { CIMProperty("x").getValueT(); }));
    EXPECT_EQ(5, CIMProperty("x", CIMValue(UInt16(5))).getValueT().toUInt16());
}

TEST(CIMProperty, findsQualifiersIgnoringCase)
{
    CIMProperty property("x", CIMValue("v"));
    property.setQualifier(qualifier("ImpactWarning", CIMValue("text")));
    EXPECT_EQ("ImpactWarning", property.getQualifier("impactwarning").getName());
    EXPECT_EQ("ImpactWarning", property.getQualifierT("IMPACTWARNING").getName());
    EXPECT_FALSE(property.getQualifier("Key"));
    EXPECT_EQ("NoSuchQualifierException: Key", thrown([&property] { property.getQualifierT("Key"); }));
}

TEST(CIMProperty, replacesOrAddsAQualifier)
{
    CIMProperty property("x", CIMValue("v"));
    property.setQualifier(qualifier("A", CIMValue("1")));
    property.setQualifier(qualifier("B", CIMValue("2")));
    property.setQualifier(qualifier("a", CIMValue("3")));
    ASSERT_EQ(2U, property.getQualifiers().size());
    EXPECT_EQ("a", property.getQualifiers()[0].getName());
    EXPECT_EQ("3", property.getQualifiers()[0].getValue().toString());
}

TEST(CIMProperty, refusesToAddAQualifierTwice)
{
    CIMProperty property("x", CIMValue("v"));
    property.addQualifier(qualifier("A", CIMValue("1")));
    try {
        property.addQualifier(qualifier("a", CIMValue("1")));
        FAIL() << "nothing thrown";
    } catch (const CIMException& e) {
        EXPECT_EQ(CIMException::ALREADY_EXISTS, e.getErrNo());
    }
}

TEST(CIMProperty, replacesAllQualifiersAtOnce)
{
    CIMProperty property("x", CIMValue("v"));
    property.setQualifier(qualifier("A", CIMValue("1")));
    property.setQualifiers(CIMQualifierArray(1, qualifier("B", CIMValue("2"))));
    EXPECT_FALSE(property.getQualifier("A"));
    EXPECT_TRUE(property.getQualifier("B"));
}

TEST(CIMProperty, removesQualifiers)
{
    CIMProperty property("x", CIMValue("v"));
    property.setQualifier(CIMQualifier::createKeyQualifier());
    property.setQualifier(qualifier("A", CIMValue("1")));
    property.setQualifier(qualifier("B", CIMValue("1")));
    EXPECT_TRUE(property.removeQualifier("a"));
    EXPECT_FALSE(property.removeQualifier("a"));
    property.clearNonKeyQualifiers();
    ASSERT_EQ(1U, property.getQualifiers().size());
    EXPECT_EQ("Key", property.getQualifiers()[0].getName());
    property.clearQualifiers();
    EXPECT_TRUE(property.getQualifiers().empty());
}

TEST(CIMProperty, handsOutCopiesOfItsQualifiers)
{
    CIMProperty property("x", CIMValue("v"));
    property.getQualifiers().push_back(CIMQualifier("A"));
    EXPECT_TRUE(property.getQualifiers().empty());
}

TEST(CIMProperty, isAKeyWithATrueKeyQualifier)
{
    CIMProperty property("Name", CIMValue("eth0"));
    EXPECT_FALSE(property.isKey());
    property.setQualifier(qualifier("key", CIMValue(false)));
    EXPECT_FALSE(property.isKey());
    EXPECT_FALSE(property.hasTrueQualifier("Key"));
    property.setQualifier(CIMQualifier::createKeyQualifier());
    EXPECT_TRUE(property.isKey());
    EXPECT_TRUE(property.hasTrueQualifier("KEY"));
}

TEST(CIMProperty, isAKeyWhenItIsAReference)
{
    const CIMProperty property("Antecedent", CIMValue(CIMObjectPath("C")));
    EXPECT_TRUE(property.isReference());
    EXPECT_TRUE(property.isKey());
}

TEST(CIMProperty, remembersWhereItComesFrom)
{
    CIMProperty property("x", CIMValue("v"));
    EXPECT_EQ("", property.getOriginClass());
    EXPECT_FALSE(property.getPropagated());
    property.setOriginClass("SAMPLE_Base");
    property.setPropagated();
    EXPECT_EQ("SAMPLE_Base", property.getOriginClass());
    EXPECT_TRUE(property.getPropagated());
}

TEST(CIMProperty, isNotChangedThroughACopy)
{
    CIMProperty property("x", CIMValue(UInt16(5)));
    CIMProperty copy(property);
    copy.setName("y");
    copy.setValue(CIMValue(UInt16(6)));
    EXPECT_EQ("uint16:x=5", property.toString());
    EXPECT_EQ("uint16:y=6", copy.toString());
}

TEST(CIMProperty, keepsWhatItHasFromItsClassWhenACopyChanges)
{
    CIMProperty property("x", CIMValue(UInt16(5)));
    property.addQualifier(qualifier("Units", CIMValue("Bytes"))).setOriginClass("SAMPLE_Base");
    CIMProperty copy(property);
    copy.removeQualifier("Units");
    copy.setOriginClass("SAMPLE_Other").setPropagated();
    EXPECT_TRUE(property.getQualifier("Units"));
    EXPECT_EQ("SAMPLE_Base", property.getOriginClass());
    EXPECT_FALSE(property.getPropagated());
}

TEST(CIMProperty, isWrittenWithTypeNameAndValue)
{
    EXPECT_EQ("string:Name=eth0", CIMProperty("Name", CIMValue("eth0")).toString());
    EXPECT_EQ("uint16:x=null", CIMProperty("x", CIMDataType(CIMDataType::UINT16)).toString());
}

TEST(CIMProperty, isWrittenAsMof)
{
    CIMProperty property("Name", CIMValue("eth0"));
    EXPECT_EQ("  string Name=\"eth0\";\n", property.toMOF());
    property.setQualifier(qualifier("Q", CIMValue("v")));
    EXPECT_EQ("  [Q(\"v\")]\n  string Name=\"eth0\";\n", property.toMOF());
}

// Nobody should rely on it: the comparison of elements is one of names, and of const elements one of truth
// values.
TEST(CIMElement, comparesNothingButNames)
{
    CIMProperty a("Name", CIMValue("eth0"));
    CIMProperty b("NAME", CIMValue("eth1"));
    CIMProperty c("Other", CIMValue("eth0"));
    EXPECT_TRUE(a == b);
    EXPECT_TRUE(a != c);
    const CIMProperty& constA = a;
    const CIMProperty& constC = c;
    EXPECT_TRUE(constA == constC);
}

TEST(CIMQualifier, isNamedAndHoldsAValueOfAnyType)
{
    CIMQualifier made("ImpactWarning");
    EXPECT_FALSE(made.hasValue());
    made.setValue(CIMValue("text"));
    made.setValue(CIMValue(UInt16(5)));
    EXPECT_TRUE(made.hasValue());
    EXPECT_TRUE(CIMValue(UInt16(5)) == made.getValue());
    EXPECT_TRUE(CIMValue(UInt16(5)) == made.getValueT());
    EXPECT_EQ("CIMQualifier(ImpactWarning)", made.toString());
}

TEST(CIMQualifier, isComparedByName)
{
    EXPECT_TRUE(CIMQualifier("A").equals(qualifier("a", CIMValue("1"))));
    EXPECT_FALSE(CIMQualifier("A").equals(CIMQualifier("B")));
}

TEST(CIMQualifier, marksKeys)
{
    const CIMQualifier key = CIMQualifier::createKeyQualifier();
    EXPECT_EQ("Key", key.getName());
    EXPECT_STREQ("Key", CIMQualifier::CIM_QUAL_KEY);
    EXPECT_TRUE(key.isKeyQualifier());
    EXPECT_TRUE(CIMValue(true) == key.getValue());
    EXPECT_FALSE(CIMQualifier("Write").isKeyQualifier());
    EXPECT_TRUE(key.getFlavor().empty());
}

TEST(CIMQualifier, remembersWhetherItIsInherited)
{
    CIMQualifier made("A");
    EXPECT_FALSE(made.getPropagated());
    made.setPropagated();
    EXPECT_TRUE(made.getPropagated());
}

TEST(CIMParamValue, isANamedValue)
{
    CIMParamValue parameter("Level", CIMValue(UInt16(3)));
    EXPECT_EQ("Level", parameter.getName());
    EXPECT_EQ("CIMParamValue(Level): 3", parameter.toString());
    parameter.setName("Mark");
    parameter.setValue(CIMValue(CIMNULL));
    EXPECT_EQ("CIMParamValue(Mark): (null)", parameter.toString());
    EXPECT_FALSE(CIMParamValue("Mark").getValue());
}

TEST(CIMParamValue, goesToAStream)
{
    std::ostringstream text;
    text << CIMParamValue("Level", CIMValue(UInt16(3)));
    EXPECT_EQ("CIMParamValue(Level): 3", text.str());
}
