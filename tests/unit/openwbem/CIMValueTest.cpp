#include "OW_Bool.hpp"
#include "OW_CIMClass.hpp"
#include "OW_CIMDateTime.hpp"
#include "OW_CIMInstance.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_CIMValue.hpp"
#include "OW_CIMValueCast.hpp"
#include "OW_Char16.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>

using namespace OpenWBEM;

namespace
{

std::string notA(const char* name)
{
    return std::string("ValueCastException: CIMValue::CIMValueImpl::get - Value is not a ") + name;
}

// What a value keeps of something: its type, and the thing itself when asked for it.
template <class T>
T held(const CIMValue& value)
{
    T got = T();
    value.get(got);
    return got;
}

} // namespace

TEST(CIMValue, hasTheTypeOfWhatItIsMadeOf)
{
    EXPECT_EQ(CIMDataType::BOOLEAN, CIMValue(true).getType());
    EXPECT_EQ(CIMDataType::BOOLEAN, CIMValue(Bool(true)).getType());
    EXPECT_EQ(CIMDataType::UINT8, CIMValue(UInt8(1)).getType());
    EXPECT_EQ(CIMDataType::SINT8, CIMValue(Int8(1)).getType());
    EXPECT_EQ(CIMDataType::UINT16, CIMValue(UInt16(1)).getType());
    EXPECT_EQ(CIMDataType::SINT16, CIMValue(Int16(1)).getType());
    EXPECT_EQ(CIMDataType::UINT32, CIMValue(UInt32(1)).getType());
    EXPECT_EQ(CIMDataType::SINT32, CIMValue(Int32(1)).getType());
    EXPECT_EQ(CIMDataType::UINT64, CIMValue(UInt64(1)).getType());
    EXPECT_EQ(CIMDataType::SINT64, CIMValue(Int64(1)).getType());
    EXPECT_EQ(CIMDataType::REAL32, CIMValue(Real32(1)).getType());
    EXPECT_EQ(CIMDataType::REAL64, CIMValue(Real64(1)).getType());
    EXPECT_EQ(CIMDataType::CHAR16, CIMValue(Char16(UInt16(1))).getType());
    EXPECT_EQ(CIMDataType::STRING, CIMValue(String("x")).getType());
    EXPECT_EQ(CIMDataType::STRING, CIMValue("x").getType());
    EXPECT_EQ(CIMDataType::DATETIME, CIMValue(CIMDateTime()).getType());
    EXPECT_EQ(CIMDataType::REFERENCE, CIMValue(CIMObjectPath("C")).getType());
    EXPECT_EQ(CIMDataType::EMBEDDEDCLASS, CIMValue(CIMClass("C")).getType());
    EXPECT_EQ(CIMDataType::EMBEDDEDINSTANCE, CIMValue(CIMInstance("C")).getType());
}

TEST(CIMValue, takesAPlainNumberOrCharacterForSint32)
{
    EXPECT_EQ(CIMDataType::SINT32, CIMValue(0).getType());
    EXPECT_EQ(CIMDataType::SINT32, CIMValue('c').getType());
}

TEST(CIMValue, givesBackWhatItIsMadeOf)
{
    EXPECT_TRUE(CIMValue(true).toBool());
    EXPECT_EQ(200, CIMValue(UInt8(200)).toUInt8());
    EXPECT_EQ(-2, CIMValue(Int8(-2)).toInt8());
    EXPECT_EQ(60000, CIMValue(UInt16(60000)).toUInt16());
    EXPECT_EQ(-3, CIMValue(Int16(-3)).toInt16());
    EXPECT_EQ(4000000000U, CIMValue(UInt32(4000000000U)).toUInt32());
    EXPECT_EQ(-4, CIMValue(Int32(-4)).toInt32());
    EXPECT_EQ(UInt64(1) << 40, CIMValue(UInt64(1) << 40).toUInt64());
    EXPECT_EQ(Int64(-5), CIMValue(Int64(-5)).toInt64());
    EXPECT_EQ(0.5F, CIMValue(Real32(0.5)).toReal32());
    EXPECT_EQ(0.25, CIMValue(Real64(0.25)).toReal64());
    EXPECT_EQ(0x20AC, CIMValue(Char16(UInt16(0x20AC))).toChar16().getValue());
    EXPECT_EQ("x", held<String>(CIMValue("x")));
    EXPECT_TRUE(CIMDateTime("20041015000000.000000+000") ==
                CIMValue(CIMDateTime("20041015000000.000000+000")).toCIMDateTime());
    EXPECT_EQ("/root:C", CIMValue(CIMObjectPath("C", "root")).toCIMObjectPath().toString());
    EXPECT_EQ("C", CIMValue(CIMClass("C")).toCIMClass().getName());
    EXPECT_EQ("C", CIMValue(CIMInstance("C")).toCIMInstance().getClassName());
    EXPECT_TRUE(held<Bool>(CIMValue(true)));
    EXPECT_EQ(7, held<UInt16>(CIMValue(UInt16(7))));
}

TEST(CIMValue, givesBackArrays)
{
    EXPECT_EQ(StringArray(2, String("x")), CIMValue(StringArray(2, String("x"))).toStringArray());
    EXPECT_EQ(UInt16Array(2, UInt16(5)), CIMValue(UInt16Array(2, UInt16(5))).toUInt16Array());
    EXPECT_EQ(BoolArray(1, Bool(true)), held<BoolArray>(CIMValue(BoolArray(1, Bool(true)))));
    EXPECT_EQ(Int64Array(1, Int64(5)), held<Int64Array>(CIMValue(Int64Array(1, Int64(5)))));
}

TEST(CIMValue, knowsArraysFromScalars)
{
    const CIMValue array(UInt16Array(3, UInt16(5)));
    EXPECT_TRUE(array.isArray());
    EXPECT_EQ(3U, array.getArraySize());
    EXPECT_EQ(CIMDataType::UINT16, array.getType());
    EXPECT_TRUE(array.getCIMDataType().isArrayType());
    EXPECT_FALSE(CIMValue(UInt16(5)).isArray());
    EXPECT_TRUE(CIMValue(BoolArray()).isArray()) << "the first of the arrays";
    EXPECT_FALSE(CIMValue(CIMInstance("C")).isArray()) << "the last of the scalars";
    EXPECT_FALSE(CIMValue(UInt16(5)).getCIMDataType().isArrayType());
}

TEST(CIMValue, refusesToBeAnotherNumber)
{
    const CIMValue value(UInt32(5));
    EXPECT_EQ(notA("UINT8"), thrown([&value] { value.toUInt8(); }));
    EXPECT_EQ(notA("SINT8"), thrown([&value] { value.toInt8(); }));
    EXPECT_EQ(notA("UINT16"), thrown([&value] { value.toUInt16(); }));
    EXPECT_EQ(notA("SINT16"), thrown([&value] { value.toInt16(); }));
    EXPECT_EQ(notA("SINT32"), thrown([&value] { value.toInt32(); }));
    EXPECT_EQ(notA("UINT64"), thrown([&value] { value.toUInt64(); }));
    EXPECT_EQ(notA("SINT64"), thrown([&value] { value.toInt64(); }));
    EXPECT_EQ(notA("REAL32"), thrown([&value] { value.toReal32(); }));
    EXPECT_EQ(notA("REAL64"), thrown([&value] { value.toReal64(); }));
    EXPECT_EQ(notA("UINT32"), thrown([] { CIMValue(UInt16(5)).toUInt32(); }));
}

TEST(CIMValue, refusesToBeAnythingElse)
{
    const CIMValue value("true");
    EXPECT_EQ(notA("BOOLEAN"), thrown([&value] { value.toBool(); }));
    EXPECT_EQ(notA("CHAR16"), thrown([&value] { value.toChar16(); }));
    EXPECT_EQ(notA("DATETIME"), thrown([&value] { value.toCIMDateTime(); }));
    EXPECT_EQ(notA("REFERENCE"), thrown([&value] { value.toCIMObjectPath(); }));
    EXPECT_EQ(notA("EMBEDDEDCLASS"), thrown([&value] { value.toCIMClass(); }));
    EXPECT_EQ(notA("EMBEDDEDINSTANCE"), thrown([&value] { value.toCIMInstance(); }));
    EXPECT_EQ(notA("STRING"), thrown([] { held<String>(CIMValue(UInt16(5))); }));
}

TEST(CIMValue, refusesToBeAnArrayOrItsElement)
{
    EXPECT_EQ(notA("UINT16 ARRAY"), thrown([] { CIMValue(UInt16(5)).toUInt16Array(); }));
    EXPECT_EQ(notA("STRING ARRAY"), thrown([] { CIMValue("x").toStringArray(); }));
    EXPECT_EQ(notA("OBJECTPATH ARRAY"), thrown([] { CIMValue("x").toCIMObjectPathArray(); }));
    EXPECT_EQ(notA("UINT16"), thrown([] { CIMValue(UInt16Array(1, UInt16(5))).toUInt16(); }));
}

// Numeric keys arrive from clients as sint64.
TEST(CIMValue, servesAsAnyNumberWhenItIsSint64)
{
    const CIMValue value(Int64(300));
    EXPECT_EQ(44, value.toUInt8());
    EXPECT_EQ(44, value.toInt8());
    EXPECT_EQ(300, value.toUInt16());
    EXPECT_EQ(300, value.toInt16());
    EXPECT_EQ(300U, value.toUInt32());
    EXPECT_EQ(300, value.toInt32());
    EXPECT_EQ(UInt64(300), value.toUInt64());
    EXPECT_EQ(300.0F, value.toReal32());
    EXPECT_EQ(300.0, value.toReal64());
    EXPECT_EQ(notA("STRING"), thrown([&value] { held<String>(value); }));
    EXPECT_EQ(notA("BOOLEAN"), thrown([&value] { value.toBool(); }));
    EXPECT_EQ(notA("UINT16"), thrown([] { CIMValue(Int64Array(1, Int64(1))).toUInt16(); }));
    EXPECT_EQ(notA("UINT16 ARRAY"), thrown([] { CIMValue(Int64Array(1, Int64(1))).toUInt16Array(); }));
}

TEST(CIMValue, isEmptyTextButNotNullWhenMadeOfNoText)
{
    EXPECT_TRUE(CIMValue(static_cast<const char*>(0)));
    EXPECT_EQ("", held<String>(CIMValue(static_cast<const char*>(0))));
    EXPECT_TRUE(CIMValue(String()));
    EXPECT_EQ("", CIMValue(String()).toString());
}

TEST(CIMValue, isNullOnDemand)
{
    CIMValue value(UInt16(5));
    EXPECT_TRUE(value);
    value.setNull();
    EXPECT_FALSE(value);
    EXPECT_TRUE(!value);
    EXPECT_FALSE(CIMValue(CIMNULL));
}

TEST(CIMValue, canBeWrittenAndComparedWhenNull)
{
    const CIMValue null(CIMNULL);
    EXPECT_EQ("(null)", null.toString());
    EXPECT_TRUE(null == CIMValue(CIMNULL));
    EXPECT_TRUE(null != CIMValue(UInt16(0)));
    EXPECT_TRUE(null < CIMValue(UInt16(0)));
    EXPECT_FALSE(CIMValue(UInt16(0)) < null);
}

TEST(CIMValue, throwsWhenNullAndUsed)
{
    const CIMValue null(CIMNULL);
    EXPECT_EQ(NULL_REFERENCE, thrown([&null] { null.getType(); }));
    EXPECT_EQ(NULL_REFERENCE, thrown([&null] { null.isArray(); }));
    EXPECT_EQ(NULL_REFERENCE, thrown([&null] { held<UInt16>(null); }));
    EXPECT_EQ(NULL_REFERENCE, thrown([&null] { null.toBool(); }));
    EXPECT_EQ(NULL_REFERENCE, thrown([&null] { null.toMOF(); }));
    EXPECT_EQ(NULL_REFERENCE, thrown([&null] { null.getCIMDataType(); }));
}

TEST(CIMValue, equalsTheSameContentOfTheSameType)
{
    EXPECT_TRUE(CIMValue(UInt16(5)) == CIMValue(UInt16(5)));
    EXPECT_TRUE(CIMValue(UInt16(5)) != CIMValue(UInt16(6)));
    EXPECT_TRUE(CIMValue(UInt16(5)) != CIMValue(UInt32(5)));
    EXPECT_TRUE(CIMValue(UInt16(5)) != CIMValue(UInt16Array(1, UInt16(5))));
    EXPECT_TRUE(CIMValue("eth0") == CIMValue(String("eth0")));
    EXPECT_TRUE(CIMValue("eth0") != CIMValue("ETH0"));
    EXPECT_TRUE(CIMValue("eth0").equal(CIMValue("eth0")));
    EXPECT_TRUE(CIMValue(StringArray(2, String("a"))) == CIMValue(StringArray(2, String("a"))));
    EXPECT_TRUE(CIMValue(StringArray(2, String("a"))) != CIMValue(StringArray(3, String("a"))));
    EXPECT_TRUE(CIMValue(CIMObjectPath("C", "root")) == CIMValue(CIMObjectPath("c", "ROOT")));
}

TEST(CIMValue, ordersByContent)
{
    EXPECT_TRUE(CIMValue(UInt16(5)) < CIMValue(UInt16(10)));
    EXPECT_TRUE(CIMValue(UInt16(5)) <= CIMValue(UInt16(5)));
    EXPECT_TRUE(CIMValue(UInt16(10)) > CIMValue(UInt16(5)));
    EXPECT_TRUE(CIMValue(UInt16(5)) >= CIMValue(UInt16(5)));
    EXPECT_TRUE(CIMValue("a") < CIMValue("b"));
    EXPECT_FALSE(CIMValue("b") < CIMValue("a"));
}

TEST(CIMValue, tellsTypes)
{
    EXPECT_TRUE(CIMValue(UInt16(5)).sameType(CIMValue(UInt16(6))));
    EXPECT_FALSE(CIMValue(UInt16(5)).sameType(CIMValue(UInt32(5))));
    EXPECT_TRUE(CIMValue(Real32(1)).isNumericType());
    EXPECT_FALSE(CIMValue("1").isNumericType());
}

TEST(CIMValue, isNotChangedThroughACopy)
{
    CIMValue value(UInt16(5));
    CIMValue copy(value);
    copy.setNull();
    EXPECT_EQ(5, value.toUInt16());
    copy = value;
    value = CIMValue("x");
    EXPECT_EQ(5, copy.toUInt16());
}

TEST(CIMValue, isReadFromTypeAndText)
{
    EXPECT_TRUE(CIMValue(UInt16(5)) == CIMValue::createSimpleValue("uint16", "5"));
    EXPECT_TRUE(CIMValue(true) == CIMValue::createSimpleValue("BOOLEAN", "True"));
    EXPECT_TRUE(CIMValue("eth0") == CIMValue::createSimpleValue("string", "eth0"));
    EXPECT_TRUE(CIMValue(CIMDateTime()) == CIMValue::createSimpleValue("datetime", ""));
    EXPECT_FALSE(CIMValue::createSimpleValue("text", "5"));
}
