#include "OW_String.hpp"
#include <gtest/gtest.h>

using namespace OpenWBEM;

TEST(StringComparison, isExact)
{
    const String text("Name");
    EXPECT_TRUE(text == "Name");
    EXPECT_TRUE("Name" == text);
    EXPECT_TRUE(text == String("Name"));
    EXPECT_TRUE(text != "name");
    EXPECT_TRUE("name" != text);
    EXPECT_TRUE(text != String("name"));
    EXPECT_TRUE(text.equals("Name"));
    EXPECT_FALSE(text.equals("name"));
    EXPECT_TRUE(text.equals(String("Name")));
}

TEST(StringComparison, ordersByBytes)
{
    const String a("a");
    const String b("b");
    EXPECT_TRUE(a < b);
    EXPECT_TRUE(a < "b");
    EXPECT_TRUE("a" < b);
    EXPECT_TRUE(a <= b);
    EXPECT_TRUE(a <= "a");
    EXPECT_TRUE("a" <= a);
    EXPECT_TRUE(b > a);
    EXPECT_TRUE(b > "a");
    EXPECT_TRUE("b" > a);
    EXPECT_TRUE(b >= a);
    EXPECT_TRUE(b >= "b");
    EXPECT_TRUE("b" >= b);
    EXPECT_FALSE(b < a);
    EXPECT_TRUE(String("Z") < a);
    EXPECT_TRUE(a < String("\xc3\xa9"));
}

TEST(StringComparison, tellsTheDirection)
{
    EXPECT_LT(String("a").compareTo("b"), 0);
    EXPECT_GT(String("b").compareTo(String("a")), 0);
    EXPECT_EQ(0, String("a").compareTo("a"));
    EXPECT_LT(String("A").compareToIgnoreCase("b"), 0);
    EXPECT_EQ('B' - 'a', String("B").compareToIgnoreCase(String("a"))); // what differs, differs as it stands
    EXPECT_EQ(0, String("ETH0").compareToIgnoreCase("eth0"));
}

TEST(StringComparison, ignoresCaseOfAsciiLetters)
{
    EXPECT_TRUE(String("SystemName").equalsIgnoreCase("systemname"));
    EXPECT_TRUE(String("SystemName").equalsIgnoreCase(String("SYSTEMNAME")));
    EXPECT_FALSE(String("SystemName").equalsIgnoreCase("SystemNames"));
    EXPECT_FALSE(String("@[`{").equalsIgnoreCase("`{@["));
}

TEST(StringComparison, ignoresCaseOfLatinLetters)
{
    EXPECT_TRUE(String("\xc3\x89t\xc3\xa9").equalsIgnoreCase("\xc3\xa9T\xc3\x89"));
    EXPECT_TRUE(String("\xc4\x8c\xc5\xbd").equalsIgnoreCase("\xc4\x8d\xc5\xbe")); // c and z with caron
    EXPECT_FALSE(String("\xc3\x97").equalsIgnoreCase("\xc3\xb7")); // multiplication and division signs
    EXPECT_FALSE(String("e").equalsIgnoreCase("\xc3\xa9"));
}

TEST(StringComparison, ignoresCaseOfGreekLetters)
{
    EXPECT_TRUE(String("\xce\x9b\xcf\x8c\xce\xb3\xce\xbf\xcf\x82")
                    .equalsIgnoreCase("\xce\xbb\xce\x8c\xce\x93\xce\x9f\xcf\x83"));
    EXPECT_FALSE(String("\xcf\x82").equalsIgnoreCase("\xce\xa3")); // final sigma and the capital one
}

TEST(StringComparison, ignoresCaseOfCyrillicLetters)
{
    EXPECT_TRUE(String("\xd0\x94\xd0\xb0\xd0\x81").equalsIgnoreCase("\xd0\xb4\xd0\x90\xd1\x91"));
}

TEST(StringComparison, takesBytesThatAreNoTextAsTheyAre)
{
    EXPECT_TRUE(String("\xff\xc3").equalsIgnoreCase("\xff\xc3"));
    EXPECT_FALSE(String("\xe9").equalsIgnoreCase("\xc9"));
    EXPECT_FALSE(String("\xc3").equalsIgnoreCase("\xc3\xa9"));
    EXPECT_FALSE(String("\xe0\x81\x81").equalsIgnoreCase("A")) << "longer than needed";
    EXPECT_FALSE(String("\xf0\x80\x83\x89").equalsIgnoreCase("\xc3\x89"));
}

TEST(StringStart, isFoundExactly)
{
    const String text("BOOTPROTO=dhcp");
    EXPECT_TRUE(text.startsWith("BOOTPROTO"));
    EXPECT_TRUE(text.startsWith(String("BOOT")));
    EXPECT_TRUE(text.startsWith('B'));
    EXPECT_FALSE(text.startsWith("bootproto"));
    EXPECT_FALSE(text.startsWith("BOOTPROTO=dhcp "));
    EXPECT_FALSE(text.startsWith('b'));
}

TEST(StringStart, isFoundIgnoringCase)
{
    EXPECT_TRUE(String("BOOTPROTO").startsWith("bootp", String::E_CASE_INSENSITIVE));
    EXPECT_TRUE(String("BOOTPROTO").startsWith(String("bootp"), String::E_CASE_INSENSITIVE));
    EXPECT_FALSE(String("\xc3\x89").startsWith("\xc3\xa9", String::E_CASE_INSENSITIVE));
}

TEST(StringEnd, isFound)
{
    const String text("ifcfg-eth0");
    EXPECT_TRUE(text.endsWith("eth0"));
    EXPECT_TRUE(text.endsWith(String("0")));
    EXPECT_TRUE(text.endsWith('0'));
    EXPECT_TRUE(text.endsWith("ETH0", String::E_CASE_INSENSITIVE));
    EXPECT_TRUE(text.endsWith(String("ETH0"), String::E_CASE_INSENSITIVE));
    EXPECT_FALSE(text.endsWith("ETH0"));
    EXPECT_FALSE(text.endsWith("-ifcfg-eth0"));
    EXPECT_FALSE(String().endsWith('0'));
}

TEST(StringStartAndEnd, areEmptyOnlyInAnEmptyText)
{
    EXPECT_FALSE(String("abc").startsWith(""));
    EXPECT_FALSE(String("abc").endsWith(""));
    EXPECT_TRUE(String("").startsWith(""));
    EXPECT_TRUE(String().endsWith(""));
}
