#include "OW_String.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>

using namespace OpenWBEM;

namespace
{

std::string refusal(const char* text, const char* type)
{
    return std::string("StringConversionException: Unable to convert \"") + text + "\" into " + type;
}

} // namespace

TEST(StringConversion, readsTheWholeRangeOfEveryIntegerType)
{
    EXPECT_EQ(255, String("255").toUInt8());
    EXPECT_EQ(-128, String("-128").toInt8());
    EXPECT_EQ(65535, String("65535").toUInt16());
    EXPECT_EQ(-32768, String("-32768").toInt16());
    EXPECT_EQ(4294967295U, String("4294967295").toUInt32());
    EXPECT_EQ(-2147483647 - 1, String("-2147483648").toInt32());
    EXPECT_EQ(UInt64(18446744073709551615ULL), String("18446744073709551615").toUInt64());
    EXPECT_EQ(Int64(-9223372036854775807LL - 1), String("-9223372036854775808").toInt64());
}

TEST(StringConversion, refusesWhatIsOutOfRange)
{
    EXPECT_EQ(refusal("256", "UInt8"), thrown([] { String("256").toUInt8(); }));
    EXPECT_EQ(refusal("128", "Int8"), thrown([] { String("128").toInt8(); }));
    EXPECT_EQ(refusal("65536", "UInt16"), thrown([] { String("65536").toUInt16(); }));
    EXPECT_EQ(refusal("-32769", "Int16"), thrown([] { String("-32769").toInt16(); }));
    EXPECT_EQ(refusal("4294967296", "UInt32"), thrown([] { String("4294967296").toUInt32(); }));
    EXPECT_EQ(refusal("99999999999", "Int32"), thrown([] { String("99999999999").toInt32(); }));
    EXPECT_EQ(refusal("18446744073709551616", "UInt64"),
              thrown([] { String("18446744073709551616").toUInt64(); }));
    EXPECT_EQ(refusal("9223372036854775808", "Int64"),
              thrown([] { String("9223372036854775808").toInt64(); }));
}

TEST(StringConversion, refusesNegativeNumbersForSmallUnsignedTypes)
{
    EXPECT_EQ(refusal("-1", "UInt8"), thrown([] { String("-1").toUInt8(); }));
    EXPECT_EQ(refusal("-1", "UInt16"), thrown([] { String("-1").toUInt16(); }));
}

TEST(StringConversion, wrapsNegativeNumbersForTheLargestUnsignedType)
{
    EXPECT_EQ(UInt64(18446744073709551615ULL), String("-1").toUInt64());
}

TEST(StringConversion, allowsLeadingBlanksAndPlus)
{
    EXPECT_EQ(7, String("  +7").toInt32());
}

TEST(StringConversion, refusesTrailingCharacters)
{
    EXPECT_EQ(refusal("7 ", "Int32"), thrown([] { String("7 ").toInt32(); }));
    EXPECT_EQ(refusal("0x10", "Int32"), thrown([] { String("0x10").toInt32(); }));
    EXPECT_EQ(refusal("abc", "UInt16"), thrown([] { String("abc").toUInt16(); }));
    EXPECT_EQ(refusal(" ", "UInt16"), thrown([] { String(" ").toUInt16(); }));
}

TEST(StringConversion, readsOtherBases)
{
    EXPECT_EQ(255, String("ff").toUInt16(16));
    EXPECT_EQ(16, String("0x10").toInt32(0));
}

TEST(StringConversion, readsAnEmptyTextAsZero)
{
    EXPECT_EQ(0, String("").toUInt16());
    EXPECT_EQ(0, String("").toInt32());
    EXPECT_EQ(UInt64(0), String("").toUInt64());
}

TEST(StringConversion, refusesTheNullState)
{
    EXPECT_EQ(refusal("", "UInt16"), thrown([] { String().toUInt16(); }));
    EXPECT_EQ(refusal("", "Int64"), thrown([] { String().toInt64(); }));
}

TEST(StringConversion, readsReals)
{
    EXPECT_EQ(2.5F, String("2.5").toReal32());
    EXPECT_EQ(-1e20, String("-1e20").toReal64());
    EXPECT_EQ(refusal("port0", "Real64"), thrown([] { String("port0").toReal64(); }));
    EXPECT_EQ(refusal("2.5x", "Real32"), thrown([] { String("2.5x").toReal32(); }));
}

TEST(StringConversion, readsBooleansInAnyCase)
{
    EXPECT_TRUE(String("true").toBool());
    EXPECT_TRUE(String("TRUE").toBool());
    EXPECT_FALSE(String("False").toBool());
}

TEST(StringConversion, takesNoNumberForABoolean)
{
    EXPECT_EQ(refusal("1", "bool"), thrown([] { String("1").toBool(); }));
    EXPECT_EQ(refusal("", "bool"), thrown([] { String("").toBool(); }));
}
