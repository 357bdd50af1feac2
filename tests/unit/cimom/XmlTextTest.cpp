#include "XmlText.hpp"

#include <gtest/gtest.h>

namespace cimom::test
{
namespace
{

std::string escaped(std::string_view text)
{
    std::string xml = ">";
    appendEscaped(xml, text);
    return xml.substr(1);
}

TEST(XmlText, MarkupBecomesEntitiesAndLineBreaksReferences)
{
    EXPECT_EQ(escaped("a<b>&\"c\" 'd'\t\r\ne"), "a&lt;b&gt;&amp;&quot;c&quot; &apos;d&apos;&#9;&#13;&#10;e");
}

TEST(XmlText, Utf8StaysAsItIs)
{
    const std::string text = "\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80 \xF4\x8F\xBF\xBF";
    EXPECT_EQ(escaped(text), text);
}

TEST(XmlText, WhatXmlCannotCarryIsReplaced)
{
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(escaped(std::string_view("a\0b\x01", 4)), "a" + replacement + "b" + replacement);
    EXPECT_EQ(escaped("caf\xE9!"), "caf" + replacement + "!");
    EXPECT_EQ(escaped("\xE2\x82"), replacement + replacement);
}

TEST(XmlText, OnlyWellFormedSequencesAreUtf8)
{
    for (const char* text : {"\x80", "\xC0\xAF", "\xC3", "\xE0\x80\x80", "\xED\xA0\x80", "\xF0\x80\x80\x80",
                             "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF\xFE"}) {
        std::string replacements;
        for (const char* byte = text; *byte != '\0'; ++byte) {
            replacements += "\xEF\xBF\xBD";
        }
        EXPECT_EQ(escaped(text), replacements);
    }
    EXPECT_EQ(escaped("\xE2\x28\xA1"), "\xEF\xBF\xBD(\xEF\xBF\xBD");
}

TEST(XmlText, TheTwoCharactersThatXmlLacksAreReplaced)
{
    EXPECT_EQ(escaped("a\xEF\xBF\xBE\xEF\xBF\xBF\xEF\xBF\xBC"), "a\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBC");
}

} // namespace
} // namespace cimom::test
