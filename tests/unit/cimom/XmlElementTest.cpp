#include "XmlElement.hpp"

#include <gtest/gtest.h>

namespace cimom::test
{
namespace
{

std::string refusalOf(const std::string& document)
{
    try {
        parseXml(document);
    } catch (const XmlError& e) {
        return e.what();
    }
    return "none";
}

TEST(XmlElement, KeepsNamesAttributesChildrenAndText)
{
    const XmlElement read = parseXml("<?xml version=\"1.0\"?><a x='1' y=''>one<b/>two<c/><b z='2'/></a>");
    EXPECT_EQ(read.name, "a");
    EXPECT_EQ(read.text, "onetwo");
    EXPECT_STREQ(read.attribute("x"), "1");
    EXPECT_TRUE(read.hasAttribute("y"));
    EXPECT_EQ(read.children.size(), 3U);
    ASSERT_EQ(read.childrenNamed("b").size(), 2U);
    EXPECT_STREQ(read.childrenNamed("b")[1].get().attribute("z"), "2");
}

TEST(XmlElement, WhatIsNotThereIsEmpty)
{
    const XmlElement read = parseXml("<a/>");
    EXPECT_TRUE(read);
    EXPECT_FALSE(read.child("b"));
    EXPECT_FALSE(read.child("b").child("c").hasAttribute("x"));
    EXPECT_STREQ(read.child("b").attribute("x"), "");
}

TEST(XmlElement, ReferencesCdataAndBlanksAreText)
{
    EXPECT_EQ(parseXml("<a> &lt;&#66;&#x43; <![CDATA[<d>&]]><!-- no --> </a>").text, " <BC <d>& ");
    EXPECT_STREQ(parseXml("<a x='&quot;&apos;&amp;&gt;'/>").attribute("x"), "\"'&>");
}

TEST(XmlElement, LineBreaksAreThoseOfXml)
{
    EXPECT_EQ(parseXml("<a>1\r\n2\r3\n4&#13;&#10;5</a>").text, "1\n2\n3\n4\r\n5");
}

TEST(XmlElement, RefusesWhatIsNotWellFormed)
{
    for (const char* document : {"",
                                 " ",
                                 "text",
                                 "<a>",
                                 "<a></b>",
                                 "<a/><b/>",
                                 "<a/>text",
                                 "<a x='1' x='2'/>",
                                 "<a x=1/>",
                                 "<a x/>",
                                 "<a>&</a>",
                                 "<a>a & b</a>",
                                 "<a>&foo;</a>",
                                 "<a x='&foo;'/>",
                                 "<a>&#0;</a>",
                                 "<a>&#xFFFE;</a>",
                                 "<a>\x01</a>",
                                 "<a>]]></a>",
                                 "<a x='<'/>",
                                 "<a><!-- -- --></a>",
                                 "<1/>",
                                 "\n<?xml version=\"1.0\"?><a/>"}) {
        EXPECT_NE(refusalOf(document), "none") << document;
    }
    EXPECT_NE(refusalOf(std::string("<a>b\0c</a>", 10)), "none");
    EXPECT_EQ(refusalOf("<a/>\n<!-- the end -->\n"), "none");
}

TEST(XmlElement, RefusesWhatIsNotUtf8)
{
    EXPECT_NE(refusalOf("<a>caf\xE9</a>"), "none");
    EXPECT_NE(refusalOf("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>caf\xE9</a>"), "none");
    EXPECT_NE(refusalOf(std::string("\xFF\xFE<\0a\0/\0>\0", 10)), "none");
    EXPECT_NE(refusalOf("<a>\xEF\xBF\xBE</a>"), "none");
    EXPECT_NE(refusalOf("<a>\xED\xA0\x80</a>"), "none");
    EXPECT_EQ(refusalOf("\xEF\xBB\xBF<a>\xC3\xA9</a>"), "none");
}

TEST(XmlElement, NothingIsTakenFromADocumentType)
{
    EXPECT_EQ(refusalOf("<!DOCTYPE a><a/>"), "none");
    EXPECT_EQ(refusalOf("<!DOCTYPE a SYSTEM 'a.dtd'><a x='&amp;&#65;'>&lt;</a>"), "none");
    EXPECT_EQ(refusalOf("<!DOCTYPE a SYSTEM 'a.dtd'><a x='1&foo;'/>"), "unknown entity");
    EXPECT_EQ(refusalOf("<!DOCTYPE a PUBLIC 'a' 'a.dtd'><a>&foo;</a>"), "unknown entity");
    EXPECT_EQ(refusalOf("<!DOCTYPE a [<!ENTITY foo \"x\">]><a>&foo;</a>"),
              "a document type with declarations");
    EXPECT_EQ(refusalOf("<!DOCTYPE a [<!ATTLIST a x CDATA \"1\">]><a/>"),
              "a document type with declarations");
}

TEST(XmlElement, DeepNestingIsRefused)
{
    const auto nested = [](int depth) {
        std::string document = "<b/>";
        for (int i = 1; i < depth; ++i) {
            document.insert(0, "<a>").append("</a>");
        }
        return document;
    };
    EXPECT_EQ(refusalOf(nested(100)), "none");
    EXPECT_EQ(refusalOf(nested(101)), "nested too deeply");
}

} // namespace
} // namespace cimom::test
