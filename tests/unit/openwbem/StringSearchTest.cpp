#include "OW_Array.hpp"
#include "OW_String.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>

using namespace OpenWBEM;

namespace
{

const size_t NPOS = String::npos; // which has no definition that a reference could be bound to

// The tokens in brackets, so that empty ones show.
std::string shown(const StringArray& tokens)
{
    std::string text;
    for (const String& token : tokens) {
        text += std::string("[") + token.c_str() + "]";
    }
    return text;
}

} // namespace

TEST(StringIndex, isThatOfTheFirstOccurrence)
{
    const String text("a=b=c");
    EXPECT_EQ(1U, text.indexOf('='));
    EXPECT_EQ(3U, text.indexOf('=', 2));
    EXPECT_EQ(2U, text.indexOf("b="));
    EXPECT_EQ(2U, text.indexOf(String("b"), 1));
    EXPECT_EQ(NPOS, text.indexOf('x'));
    EXPECT_EQ(NPOS, text.indexOf("ba"));
}

TEST(StringIndex, isNposFromTheEndOn)
{
    EXPECT_EQ(NPOS, String("abc").indexOf('a', 3));
    EXPECT_EQ(NPOS, String("abc").indexOf("", 3));
    EXPECT_EQ(NPOS, String("").indexOf(""));
    EXPECT_EQ(~size_t(0), size_t(String::npos));
}

TEST(StringIndex, isThatOfTheLastOccurrence)
{
    const String text("a=b=c");
    EXPECT_EQ(3U, text.lastIndexOf('='));
    EXPECT_EQ(1U, text.lastIndexOf('=', 2));
    EXPECT_EQ(3U, text.lastIndexOf("=c"));
    EXPECT_EQ(NPOS, text.lastIndexOf('x'));
    EXPECT_EQ(NPOS, text.lastIndexOf("=x"));
}

TEST(StringPart, isClipped)
{
    const String text("eth0");
    EXPECT_EQ("th", text.substring(1, 2));
    EXPECT_EQ("h0", text.substring(2));
    EXPECT_EQ("0", text.substring(3, 9));
    EXPECT_EQ("", text.substring(4));
}

TEST(StringPart, isNullWhenThereIsNothing)
{
    String beyond = String("eth0").substring(4);
    String nothing = String("eth0").substring(1, 0);
    EXPECT_EQ(NULL_REFERENCE, thrown([&beyond] { beyond[0] = 'x'; }));
    EXPECT_EQ(NULL_REFERENCE, thrown([&nothing] { nothing[0] = 'x'; }));
}

TEST(StringTokens, areSeparatedByBlanks)
{
    EXPECT_EQ("[a][b][c][d]", shown(String("  a b\t\nc\r\vd ").tokenize()));
}

TEST(StringTokens, areNotSeparatedByFormFeeds)
{
    EXPECT_EQ("[a\fb]", shown(String("a\fb").tokenize()));
}

TEST(StringTokens, areSeparatedByTheGivenCharacters)
{
    EXPECT_EQ("[10][0][0][1]", shown(String("10.0.0.1").tokenize(".")));
    EXPECT_EQ("[a b][c]", shown(String("a b:;c").tokenize(";:")));
}

TEST(StringTokens, doNotExistInAnEmptyText)
{
    EXPECT_TRUE(String("").tokenize().empty());
    EXPECT_TRUE(String().tokenize(",").empty());
    EXPECT_TRUE(String(" \t ").tokenize().empty());
}

TEST(StringTokens, includeDelimitersOnDemand)
{
    EXPECT_EQ("[a][,][b]", shown(String("a,b").tokenize(",", String::E_RETURN_DELIMITERS)));
}

TEST(StringTokens, includeEmptyOnesOnDemand)
{
    EXPECT_EQ("[a][][b]", shown(String("a,,b").tokenize(",", String::E_DISCARD_DELIMITERS,
                                                        String::E_RETURN_EMPTY_TOKENS)));
}
