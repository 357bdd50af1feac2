#include "OW_Bool.hpp"
#include "OW_CIMDateTime.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_CIMValue.hpp"
#include "OW_Char16.hpp"
#include <gtest/gtest.h>
#include <sstream>

using namespace OpenWBEM;

namespace
{

StringArray names()
{
    StringArray array;
    array.push_back("x");
    array.push_back("y z");
    return array;
}

} // namespace

TEST(CIMValueText, ofBooleansIsLowerCase)
{
    EXPECT_EQ("true", CIMValue(true).toString());
    EXPECT_EQ("false", CIMValue(Bool(false)).toString());
}

TEST(CIMValueText, ofIntegersIsDecimal)
{
    EXPECT_EQ("65", CIMValue(UInt8(65)).toString());
    EXPECT_EQ("-65", CIMValue(Int8(-65)).toString());
    EXPECT_EQ("65535", CIMValue(UInt16(65535)).toString());
    EXPECT_EQ("-1", CIMValue(Int16(-1)).toString());
    EXPECT_EQ("4294967295", CIMValue(UInt32(4294967295U)).toString());
    EXPECT_EQ("-1500", CIMValue(Int32(-1500)).toString());
    EXPECT_EQ("18446744073709551615", CIMValue(UInt64(18446744073709551615ULL)).toString());
    EXPECT_EQ("-9", CIMValue(Int64(-9)).toString());
}

TEST(CIMValueText, ofRealsHasSixDigits)
{
    EXPECT_EQ("0.333333", CIMValue(Real64(1.0 / 3)).toString());
    EXPECT_EQ("2.5", CIMValue(Real32(2.5)).toString());
    EXPECT_EQ("1e+20", CIMValue(Real64(1e20)).toString());
}

TEST(CIMValueText, ofTextIsTheText)
{
    EXPECT_EQ("a \"b\"\n", CIMValue("a \"b\"\n").toString());
}

// A euro sign, 20AC, loses its high byte: that is the interface.
TEST(CIMValueText, ofACharacterIsItsLowByte)
{
    EXPECT_EQ("A", CIMValue(Char16(UInt16(0x41))).toString());
    EXPECT_EQ("\xac", CIMValue(Char16(UInt16(0x20AC))).toString());
}

TEST(CIMValueText, ofDatesAndPathsIsTheirs)
{
    EXPECT_EQ("00000000000000.000000+000", CIMValue(CIMDateTime("00000000000000.000000-000")).toString());
    EXPECT_EQ("/root:C", CIMValue(CIMObjectPath("C", "root")).toString());
}

TEST(CIMValueText, ofArraysJoinsTheElements)
{
    EXPECT_EQ("x,y z", CIMValue(names()).toString());
    EXPECT_EQ("5,5", CIMValue(UInt8Array(2, UInt8(5))).toString());
    EXPECT_EQ("", CIMValue(StringArray()).toString());
}

TEST(CIMValueText, goesToAStream)
{
    std::ostringstream text;
    text << CIMValue(UInt8(65)) << ' ' << CIMValue(CIMNULL);
    EXPECT_EQ("65 (null)", text.str());
}

TEST(CIMValueMof, quotesTextsAndDates)
{
    EXPECT_EQ("\"a \\\"b\\\"\\\\\"", CIMValue("a \"b\"\\").toMOF());
    EXPECT_EQ("\"00000000000000.000000:000\"", CIMValue(CIMDateTime()).toMOF());
    EXPECT_EQ(R"("two\nlines")", CIMValue("two\nlines").toMOF());
    EXPECT_EQ("5", CIMValue(UInt16(5)).toMOF());
    EXPECT_EQ("true", CIMValue(true).toMOF());
}

TEST(CIMValueMof, putsArraysInBraces)
{
    EXPECT_EQ("{\"x\",\"y z\"}", CIMValue(names()).toMOF());
    EXPECT_EQ("{5,5}", CIMValue(UInt16Array(2, UInt16(5))).toMOF());
}
