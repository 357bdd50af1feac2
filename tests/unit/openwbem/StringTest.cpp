#include "OW_Array.hpp"
#include "OW_Bool.hpp"
#include "OW_CIMDateTime.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_Char16.hpp"
#include "OW_String.hpp"
#include "Thrown.hpp"
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <sstream>

using namespace OpenWBEM;

TEST(String, isEmptyWhetherNullOrGivenNothing)
{
    EXPECT_TRUE(String().empty());
    EXPECT_TRUE(String("").empty());
    EXPECT_EQ(String(), String(""));
    EXPECT_STREQ("", String().c_str());
    EXPECT_STREQ("", String(static_cast<const char*>(nullptr)).c_str());
    EXPECT_EQ(0U, String().length());
}

TEST(String, writesNumbersInDecimal)
{
    EXPECT_EQ("-2147483648", String(Int32(-2147483647 - 1)));
    EXPECT_EQ("4294967295", String(UInt32(4294967295U)));
    EXPECT_EQ("-9223372036854775807", String(Int64(-9223372036854775807LL)));
    EXPECT_EQ("18446744073709551615", String(UInt64(18446744073709551615ULL)));
}

TEST(String, writesSmallIntegersAndPlainBooleansAsNumbers)
{
    EXPECT_EQ("65535", String(UInt16(65535)));
    EXPECT_EQ("-5", String(Int8(-5)));
    EXPECT_EQ("1", String(true));
    EXPECT_EQ("0", String(false));
}

TEST(String, writesRealsWithSixDigits)
{
    EXPECT_EQ("0.333333", String(Real64(1.0 / 3)));
    EXPECT_EQ("2.5", String(Real64(2.5)));
    EXPECT_EQ("1e+20", String(Real64(1e20)));
}

TEST(String, isMadeOfOneCharacter)
{
    EXPECT_EQ("x", String('x'));
    String none('\0');
    EXPECT_EQ(0U, none.length());
    EXPECT_EQ(NULL_REFERENCE, thrown([&none] { none[0] = 'x'; }));
}

TEST(String, copiesAsManyBytesAsItIsTold)
{
    EXPECT_EQ("eth", String("eth0", 3));
    EXPECT_EQ(3U, String("a\0b", 3).length());
}

TEST(String, takesOverABuffer)
{
    char* const buffer = new char[5];
    std::memcpy(buffer, "eth0", 5);
    EXPECT_EQ("eth0", String(String::E_TAKE_OWNERSHIP, buffer, 4));
}

TEST(String, isMadeOfOtherTypesTexts)
{
    EXPECT_EQ("true", String(Bool(true)));
    EXPECT_EQ("A", String(Char16(UInt16('A'))));
    EXPECT_EQ("00000000000000.000000:000", String(CIMDateTime()));
    EXPECT_EQ("/root:C", String(CIMObjectPath("C", "root")));
}

TEST(String, countsCharactersByTheirFirstBytes)
{
    EXPECT_EQ(4U, String("\xc3\xa9t\xc3\xa9!").UTF8Length());
    EXPECT_EQ(0U, String("\x80\xbf").UTF8Length());
    EXPECT_EQ(1U, String("\xc3").UTF8Length());
}

TEST(String, givesCharactersByPosition)
{
    String name("eth0");
    EXPECT_EQ('t', name.charAt(1));
    EXPECT_EQ('\0', String().charAt(0));
    const String& constant = name;
    EXPECT_EQ('0', constant[3]);
    EXPECT_EQ('\0', String("")[0]);
}

TEST(String, changesCharactersWithoutChangingItsCopies)
{
    String name("eth0");
    const String copy(name);
    name[3] = '1';
    EXPECT_EQ("eth1", name);
    EXPECT_EQ("eth0", copy);
}

TEST(String, throwsWhenTheNullStateIsIndexed)
{
    String text;
    const String& constant = text;
    EXPECT_EQ(NULL_REFERENCE, thrown([&text] { text[0] = 'x'; }));
    EXPECT_EQ(NULL_REFERENCE, thrown([&constant] { return constant[0]; }));
}

TEST(String, isNullAgainAfterErasing)
{
    String text("eth0");
    EXPECT_EQ("", text.erase());
    EXPECT_EQ(NULL_REFERENCE, thrown([&text] { text[0] = 'x'; }));
}

TEST(String, erasesAPart)
{
    String text("eth0:1");
    EXPECT_EQ("eth0", text.erase(4));
    EXPECT_EQ("e0", text.erase(1, 2));
    EXPECT_EQ("e0", text.erase(7));
}

TEST(String, replacesItsContentWhenFormatted)
{
    String text("before");
    EXPECT_EQ(7, text.format("%s/%02d", "eth0", 7));
    EXPECT_EQ("eth0/07", text);
}

TEST(String, formatsItsOwnContent)
{
    String text("eth0");
    text.format("%s:1", text.c_str());
    EXPECT_EQ("eth0:1", text);
}

TEST(String, formatsTextsOfAnyLength)
{
    String text;
    EXPECT_EQ(5000, text.format("%5000d", 1));
    EXPECT_TRUE(text.endsWith("    1"));
}

TEST(String, concatenates)
{
    String text("a");
    text += String("b");
    text += "c";
    text += 'd';
    EXPECT_EQ("abcd", text);
    EXPECT_EQ("abcdef", text.concat("e").concat(String("f")));
    EXPECT_EQ("abcdef!", text.concat('!'));
}

TEST(String, concatenatesInExpressions)
{
    const String b("b");
    EXPECT_EQ("ab", "a" + b);
    EXPECT_EQ("bc", b + "c");
    EXPECT_EQ("bb", b + b);
    EXPECT_EQ("xb", 'x' + b);
    EXPECT_EQ("bx", b + 'x');
}

// Nobody should rely on it: the int is taken as a character. It is how the interface behaves.
TEST(String, appendsAnIntAsOneCharacter)
{
    String text("a");
    const int code = 'A';
    text += static_cast<char>(code);
    EXPECT_EQ("aA", text);
}

TEST(String, stopsConcatenatingAtNul)
{
    EXPECT_EQ(2U, (String("a") + String("b\0c", 3)).length());
}

TEST(String, staysNullWhenNothingIsAppended)
{
    String text;
    text += "";
    text += static_cast<const char*>(nullptr);
    text.concat(String(""));
    EXPECT_EQ(NULL_REFERENCE, thrown([&text] { text[0] = 'x'; }));
}

TEST(String, changesCaseOfAsciiLettersOnly)
{
    EXPECT_EQ("eth\xc3\x89_z", String("ETH\xc3\x89_Z").toLowerCase());
    EXPECT_EQ("ETH\xc3\xa9_Z", String("eth\xc3\xa9_z").toUpperCase());
}

TEST(String, trims)
{
    EXPECT_EQ("a b ", String(" \t\na b ").ltrim());
    EXPECT_EQ(" a b", String(" a b \r\n").rtrim());
    EXPECT_EQ("a b", String("  a b  ").trim());
    EXPECT_EQ("", String(" \t ").trim());
}

TEST(String, recognisesBlanks)
{
    EXPECT_TRUE(String(" \t\n").isSpaces());
    EXPECT_FALSE(String(" x ").isSpaces());
}

TEST(String, handsOutACopyOnTheHeap)
{
    char* const copy = String("eth0").allocateCString();
    EXPECT_STREQ("eth0", copy);
    std::free(copy);
}

TEST(String, readsLines)
{
    std::istringstream lines("first\nsecond");
    EXPECT_EQ("first", String::getLine(lines));
    EXPECT_EQ("second", String::getLine(lines));
}

TEST(String, goesToAStream)
{
    std::ostringstream text;
    text << String("eth0") << String();
    EXPECT_EQ("eth0", text.str());
}

TEST(String, swaps)
{
    String a("a");
    String b("b");
    a.swap(b);
    EXPECT_EQ("b", a);
    EXPECT_EQ("a", b);
}
