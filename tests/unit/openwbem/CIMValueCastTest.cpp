#include "OW_Array.hpp"
#include "OW_CIMDataType.hpp"
#include "OW_CIMDateTime.hpp"
#include "OW_CIMException.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_CIMValue.hpp"
#include "OW_CIMValueCast.hpp"
#include "OW_String.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>

using namespace OpenWBEM;

namespace
{

CIMValue cast(const CIMValue& value, const CIMDataType& type)
{
    return CIMValueCast::castValueToDataType(value, type);
}

StringArray texts(const char* first, const char* second)
{
    StringArray array;
    array.push_back(first);
    array.push_back(second);
    return array;
}

} // namespace

TEST(CIMValueCast, leavesTheSameTypeAlone)
{
    EXPECT_TRUE(CIMValue("x") == cast(CIMValue("x"), CIMDataType::STRING));
    EXPECT_TRUE(CIMValue(CIMDateTime()) == cast(CIMValue(CIMDateTime()), CIMDataType::DATETIME));
}

TEST(CIMValueCast, makesNullOfANullValueOrType)
{
    EXPECT_FALSE(cast(CIMValue(CIMNULL), CIMDataType::STRING));
    EXPECT_FALSE(cast(CIMValue("x"), CIMDataType(CIMNULL)));
}

TEST(CIMValueCast, readsNumbersFromText)
{
    EXPECT_TRUE(CIMValue(UInt8(5)) == cast(CIMValue("5"), CIMDataType::UINT8));
    EXPECT_TRUE(CIMValue(Int8(-5)) == cast(CIMValue("-5"), CIMDataType::SINT8));
    EXPECT_TRUE(CIMValue(UInt16(5)) == cast(CIMValue("5"), CIMDataType::UINT16));
    EXPECT_TRUE(CIMValue(Int16(-5)) == cast(CIMValue("-5"), CIMDataType::SINT16));
    EXPECT_TRUE(CIMValue(UInt32(5)) == cast(CIMValue("5"), CIMDataType::UINT32));
    EXPECT_TRUE(CIMValue(Int32(-5)) == cast(CIMValue("-5"), CIMDataType::SINT32));
    EXPECT_TRUE(CIMValue(UInt64(5)) == cast(CIMValue("5"), CIMDataType::UINT64));
    EXPECT_TRUE(CIMValue(Int64(-5)) == cast(CIMValue("-5"), CIMDataType::SINT64));
    EXPECT_TRUE(CIMValue(Real32(2.5)) == cast(CIMValue("2.5"), CIMDataType::REAL32));
    EXPECT_TRUE(CIMValue(Real64(2.5)) == cast(CIMValue("2.5"), CIMDataType::REAL64));
}

TEST(CIMValueCast, readsAnEmptyTextAsZero)
{
    EXPECT_TRUE(CIMValue(UInt16(0)) == cast(CIMValue(""), CIMDataType::UINT16));
    EXPECT_TRUE(CIMValue(Int32(0)) == cast(CIMValue(""), CIMDataType::SINT32));
}

TEST(CIMValueCast, readsOtherTypesFromText)
{
    EXPECT_TRUE(CIMValue(true) == cast(CIMValue("True"), CIMDataType::BOOLEAN));
    EXPECT_TRUE(CIMValue(CIMDateTime("20041015000000.000000+000")) ==
                cast(CIMValue("20041015000000.000000+000"), CIMDataType::DATETIME));
    EXPECT_EQ("/root:C.k=\"v\"", cast(CIMValue("root:C.k=\"v\""), CIMDataType::REFERENCE).toString());
}

TEST(CIMValueCast, writesAnythingAsText)
{
    EXPECT_TRUE(CIMValue("1") == cast(CIMValue(UInt16(1)), CIMDataType::STRING));
    EXPECT_TRUE(CIMValue("true") == cast(CIMValue(true), CIMDataType::STRING));
    EXPECT_TRUE(CIMValue("00000000000000.000000:000") == cast(CIMValue(CIMDateTime()), CIMDataType::STRING));
    EXPECT_TRUE(CIMValue("/root:C") == cast(CIMValue(CIMObjectPath("C", "root")), CIMDataType::STRING));
}

TEST(CIMValueCast, changesNumberTypes)
{
    EXPECT_TRUE(CIMValue(Int32(1500)) == cast(CIMValue(UInt16(1500)), CIMDataType::SINT32));
    EXPECT_TRUE(CIMValue(UInt8(5)) == cast(CIMValue(Int64(5)), CIMDataType::UINT8));
    EXPECT_TRUE(CIMValue(Real64(5)) == cast(CIMValue(UInt8(5)), CIMDataType::REAL64));
}

TEST(CIMValueCast, refusesTextsThatDoNotFit)
{
    EXPECT_EQ("CIMException: general error (Unable to convert \"abc\" into UInt16)",
              thrown([] { cast(CIMValue("abc"), CIMDataType::UINT16); }));
    EXPECT_EQ("CIMException: general error (Unable to convert \"70000\" into UInt16)",
              thrown([] { cast(CIMValue(Int32(70000)), CIMDataType::UINT16); }));
    EXPECT_EQ("CIMException: general error (Unable to convert \"-1\" into UInt16)",
              thrown([] { cast(CIMValue(Int32(-1)), CIMDataType::UINT16); }));
}

TEST(CIMValueCast, refusesNumbersForBooleansAndTheReverse)
{
    EXPECT_EQ("CIMException: general error (Unable to convert \"1\" into bool)",
              thrown([] { cast(CIMValue(UInt16(1)), CIMDataType::BOOLEAN); }));
    EXPECT_EQ("CIMException: general error (Unable to convert \"true\" into UInt16)",
              thrown([] { cast(CIMValue(true), CIMDataType::UINT16); }));
}

TEST(CIMValueCast, refusesTypesThatDoNotConvert)
{
    EXPECT_EQ("CIMException: general error (Failed to convert \"5\" to datetime)",
              thrown([] { cast(CIMValue(UInt16(5)), CIMDataType::DATETIME); }));
    EXPECT_EQ("CIMException: general error (Failed to convert \"00000000000000.000000:000\" to uint16)",
              thrown([] { cast(CIMValue(CIMDateTime()), CIMDataType::UINT16); }));
    EXPECT_EQ("CIMException: general error (Failed to convert \"/root:C\" to uint32)",
              thrown([] { cast(CIMValue(CIMObjectPath("C", "root")), CIMDataType::UINT32); }));
}

TEST(CIMValueCast, fails)
{
    try {
        cast(CIMValue("abc"), CIMDataType::UINT16);
        FAIL() << "nothing thrown";
    } catch (const CIMException& e) {
        EXPECT_EQ(CIMException::FAILED, e.getErrNo());
    }
}

TEST(CIMValueCast, passesOnThatATextIsNoDate)
{
    EXPECT_EQ("CIMDateTimeException: Invalid format for date time",
              thrown([] { cast(CIMValue("yesterday"), CIMDataType::DATETIME); }));
}

TEST(CIMValueCast, makesAnArrayOfOneOfAScalar)
{
    EXPECT_TRUE(CIMValue(UInt16Array(1, UInt16(5))) ==
                cast(CIMValue(UInt16(5)), CIMDataType(CIMDataType::UINT16, -1)));
    EXPECT_TRUE(CIMValue(UInt16Array(1, UInt16(5))) ==
                cast(CIMValue("5"), CIMDataType(CIMDataType::UINT16, -1)));
}

TEST(CIMValueCast, takesTheFirstElementOfAnArrayForAScalar)
{
    EXPECT_TRUE(CIMValue("a") == cast(CIMValue(texts("a", "b")), CIMDataType::STRING));
    EXPECT_TRUE(CIMValue(Int32(1)) == cast(CIMValue(texts("1", "2")), CIMDataType::SINT32));
}

TEST(CIMValueCast, castsEveryElementOfAnArray)
{
    EXPECT_TRUE(CIMValue(texts("5", "5")) ==
                cast(CIMValue(UInt16Array(2, UInt16(5))), CIMDataType(CIMDataType::STRING, -1)));
}
