#include "wire/XmlText.hpp"

#include <gtest/gtest.h>

using namespace lanctl::wire;

TEST(XmlText, escapesMarkupAndControlCharacters)
{
    EXPECT_EQ(escaped("a<b>&\"'\t\r\n\x01"), "a&lt;b&gt;&amp;&quot;'&#9;&#13;&#10;&#1;");
}

TEST(XmlText, repairsNothingThatIsWellFormed)
{
    for (const std::string& text :
         {std::string("plain\r\n\t"), std::string("\xC3\xBC \xE2\x82\xAC \xF0\x9F\x98\x80"),
          std::string("&#10;&#x41;&amp;&#1234;&#;&#")})
        EXPECT_EQ(repaired(text), text);
}

TEST(XmlText, showsControlCharactersAsTheirPictures)
{
    EXPECT_EQ(repaired("a\x1B"
                       "b"),
              "a\xE2\x90\x9B"
              "b");
    EXPECT_EQ(repaired(std::string_view("\0", 1)), "\xE2\x90\x80");
    EXPECT_EQ(repaired("&#27;&#x1b;&#0;"), "\xE2\x90\x9B\xE2\x90\x9B\xE2\x90\x80");
}

TEST(XmlText, replacesBytesThatAreNotUtf8)
{
    const std::string replaced = "\xEF\xBF\xBD";
    EXPECT_EQ(repaired("\xFC"), replaced);                               // Latin-1
    EXPECT_EQ(repaired("\xC3"), replaced);                               // cut off
    EXPECT_EQ(repaired("\xC0\x80"), replaced + replaced);                // longer than needed
    EXPECT_EQ(repaired("\xE0\x80\x80"), replaced + replaced + replaced); // likewise
    EXPECT_EQ(repaired("\xED\xA0\x80"), replaced + replaced + replaced); // a surrogate
    EXPECT_EQ(repaired("\xF4\x90\x80\x80").substr(0, 3), replaced);      // beyond Unicode
    EXPECT_EQ(repaired("\xF0\x8F\xBF\xBF").substr(0, 3), replaced);      // longer than needed
    EXPECT_EQ(repaired("\xE2\x82"
                       "a"),
              replaced + replaced + "a");
}
