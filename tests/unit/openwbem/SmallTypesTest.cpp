#include "OW_Array.hpp"
#include "OW_Bool.hpp"
#include "OW_CIMName.hpp"
#include "OW_Char16.hpp"
#include "Thrown.hpp"
#include <gtest/gtest.h>
#include <sstream>

using namespace OpenWBEM;

TEST(Bool, isWrittenInLowerCase)
{
    std::ostringstream text;
    text << Bool(true) << ' ' << Bool(false);
    EXPECT_EQ("true false", text.str());
    EXPECT_EQ("true", Bool(true).toString());
    EXPECT_EQ("false", Bool(false).toString());
}

TEST(Bool, comparesWithBooleans)
{
    EXPECT_TRUE(Bool(true) == true);
    EXPECT_TRUE(Bool(true) == Bool(true));
    EXPECT_TRUE(Bool(true) != false);
    EXPECT_TRUE(Bool(false) != Bool(true));
    EXPECT_TRUE(Bool(false) < Bool(true));
    EXPECT_FALSE(Bool(true) < Bool(false));
    EXPECT_TRUE(!Bool(false));
}

TEST(Char16, isUtf8AsText)
{
    EXPECT_EQ("A", Char16(UInt16(0x41)).toString());
    EXPECT_EQ("\xc3\xa9", Char16(UInt16(0xE9)).toString());
    EXPECT_EQ("\xe2\x82\xac", Char16(UInt16(0x20AC)).toString());
}

TEST(Char16, isReadFromText)
{
    EXPECT_EQ(0x41, Char16(String("AB")).getValue());
    EXPECT_EQ(0xE9, Char16(String("\xc3\xa9")).getValue());
    EXPECT_EQ(0x20AC, Char16(String("\xe2\x82\xac")).getValue());
}

TEST(CIMName, keepsItsSpellingAndIgnoresCase)
{
    const CIMName name("SystemName");
    EXPECT_EQ("SystemName", name.toString());
    EXPECT_TRUE(name == CIMName("systemname"));
    EXPECT_FALSE(name != CIMName("SYSTEMNAME"));
    EXPECT_TRUE(CIMName("A") < CIMName("b"));
    EXPECT_TRUE(CIMName("a") <= CIMName("A"));
    EXPECT_TRUE(CIMName("B") < CIMName("a")); // the order does not fold
    EXPECT_TRUE(CIMName("a") >= CIMName("A"));
}

TEST(CIMName, makesComparisonsWithStringsIgnoreCase)
{
    EXPECT_TRUE(String("name") == CIMName("Name"));
    EXPECT_FALSE(String("name") == "Name");
}

TEST(CIMName, isTrueWhenItHasContent)
{
    EXPECT_TRUE(CIMName("Name"));
    EXPECT_FALSE(CIMName(""));
    EXPECT_TRUE(!CIMName(String()));
}

TEST(Array, growsAndShrinks)
{
    Int32Array numbers;
    numbers.push_back(1);
    numbers.append(2);
    numbers += 3;
    Int32Array more(2, 9);
    numbers.appendArray(more);
    EXPECT_EQ(5U, numbers.size());
    numbers.pop_back();
    numbers.remove(1);
    numbers.insert(size_t(1), 7);
    EXPECT_EQ(1, numbers.front());
    EXPECT_EQ(7, numbers[1]);
    EXPECT_EQ(3, numbers[2]);
    EXPECT_EQ(9, numbers.back());
    numbers.remove(1, 3);
    EXPECT_EQ(2U, numbers.size());
    numbers.clear();
    EXPECT_TRUE(numbers.empty());
}

TEST(Array, appendsItself)
{
    Int32Array numbers(2, 4);
    numbers.appendArray(numbers);
    EXPECT_EQ(Int32Array(4, 4), numbers);
}

TEST(Array, refusesIndexesBeyondItsEnd)
{
    Int32Array numbers(2, 0);
    const Int32Array& constant = numbers;
    const char* const refusal = "OutOfBoundsException: Array Index out of bounds. size = 2, index = 2";
    EXPECT_EQ(refusal, thrown([&numbers] { numbers[2] = 1; }));
    EXPECT_EQ(refusal, thrown([&constant] { return constant[2]; }));
    EXPECT_EQ("OutOfBoundsException: Array Index out of bounds. size = 0, index = 0",
              thrown([] { StringArray()[0].empty(); }));
}

TEST(Array, isAValue)
{
    StringArray names(1, String("eth0"));
    const StringArray copy(names);
    names[0] = "eth1";
    EXPECT_EQ("eth0", copy[0]);
}

TEST(Array, comparesElementByElement)
{
    const Int32Array small(2, 1);
    const Int32Array large(2, 2);
    EXPECT_TRUE(small == Int32Array(2, 1));
    EXPECT_TRUE(small != large);
    EXPECT_TRUE(small < large);
    EXPECT_TRUE(small <= large);
    EXPECT_TRUE(large > small);
    EXPECT_TRUE(large >= small);
}

TEST(Array, takesOverAVector)
{
    EXPECT_EQ(Int32Array(3, 5), Int32Array(new std::vector<Int32>(3, 5)));
}

TEST(Array, isMadeOfARange)
{
    const Int32 numbers[] = {1, 2};
    const Int32Array array(numbers, numbers + 2);
    EXPECT_EQ(2U, array.size());
    EXPECT_EQ(2, array[1]);
    EXPECT_EQ(3U, StringArray(size_t(3)).size());
}
