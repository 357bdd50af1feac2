#include "CimXmlWriter.hpp"
#include "ClassRepository.hpp"
#include "MofParser.hpp"

#include "OW_Bool.hpp"
#include "OW_CIMDateTime.hpp"
#include "OW_CIMException.hpp"
#include "OW_CIMProperty.hpp"
#include "OW_CIMQualifier.hpp"

#include <gtest/gtest.h>

namespace cimom::test
{
namespace
{

using namespace OpenWBEM;

std::string xmlOf(const CIMValue& value)
{
    std::string xml;
    appendValue(xml, value);
    return xml;
}

std::string xmlOf(const CIMInstance& instance)
{
    std::string xml;
    appendInstance(xml, instance);
    return xml;
}

std::string xmlOf(const CIMProperty& property)
{
    CIMInstance instance("C");
    instance.setProperty(property);
    const std::string xml = xmlOf(instance);
    return xml.substr(24, xml.size() - 24 - 11); // what is inside INSTANCE
}

std::string xmlOf(const CIMObjectPath& name)
{
    std::string xml;
    appendInstanceName(xml, name);
    return xml;
}

std::string classXml(const char* mof, const ClassView& view)
{
    ClassRepository repository;
    repository.add(parseMof(mof, "test.mof"));
    std::string xml;
    appendClass(xml, repository.nameSpace(defaultNameSpace).findClass("C"), view);
    return xml;
}

ClassView wholeClass()
{
    ClassView view;
    view.localOnly = false;
    return view;
}

TEST(CimXmlWriter, ValuesAreWrittenAsText)
{
    EXPECT_EQ(xmlOf(CIMValue(UInt8(200))), "<VALUE>200</VALUE>");
    EXPECT_EQ(xmlOf(CIMValue(Int32(-1))), "<VALUE>-1</VALUE>");
    EXPECT_EQ(xmlOf(CIMValue(true)), "<VALUE>true</VALUE>");
    EXPECT_EQ(xmlOf(CIMValue("a<b")), "<VALUE>a&lt;b</VALUE>");
    EXPECT_EQ(xmlOf(CIMValue("")), "<VALUE></VALUE>");
    EXPECT_EQ(xmlOf(CIMValue(CIMDateTime("00000000000000.000000-000"))),
              "<VALUE>00000000000000.000000+000</VALUE>");
    EXPECT_EQ(xmlOf(CIMValue(CIMNULL)), "");
}

TEST(CimXmlWriter, ArraysAreWrittenElementByElement)
{
    StringArray texts;
    texts.push_back("a,b");
    texts.push_back("");
    EXPECT_EQ(xmlOf(CIMValue(texts)), "<VALUE.ARRAY><VALUE>a,b</VALUE><VALUE></VALUE></VALUE.ARRAY>");
    EXPECT_EQ(xmlOf(CIMValue(UInt16Array(2, UInt16(5)))),
              "<VALUE.ARRAY><VALUE>5</VALUE><VALUE>5</VALUE></VALUE.ARRAY>");
    EXPECT_EQ(xmlOf(CIMValue(BoolArray(1, Bool(true)))), "<VALUE.ARRAY><VALUE>true</VALUE></VALUE.ARRAY>");
    EXPECT_EQ(xmlOf(CIMValue(StringArray())), "<VALUE.ARRAY></VALUE.ARRAY>");
}

TEST(CimXmlWriter, PropertiesHaveABlankBeforeTheEndOfTheirTagAndAClosingTag)
{
    EXPECT_EQ(xmlOf(CIMProperty("x", CIMValue(UInt16(1)))),
              "<PROPERTY NAME=\"x\" TYPE=\"uint16\" ><VALUE>1</VALUE></PROPERTY>");
    EXPECT_EQ(xmlOf(CIMProperty("x", CIMDataType(CIMDataType::UINT16))),
              "<PROPERTY NAME=\"x\" TYPE=\"uint16\" ></PROPERTY>");
    EXPECT_EQ(xmlOf(CIMProperty("x", CIMValue(UInt16Array(1, UInt16(5))))),
              "<PROPERTY.ARRAY NAME=\"x\" TYPE=\"uint16\" "
              "><VALUE.ARRAY><VALUE>5</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>");
}

TEST(CimXmlWriter, AnEmptyTextKeepsItsTypeWhateverTheClassSays)
{
    EXPECT_EQ(xmlOf(CIMProperty("EnabledState", CIMValue(""))),
              "<PROPERTY NAME=\"EnabledState\" TYPE=\"string\" ><VALUE></VALUE></PROPERTY>");
}

TEST(CimXmlWriter, QualifiersOfAPropertyComeBeforeItsValue)
{
    CIMQualifier qualifier("ImpactWarning");
    qualifier.setValue(CIMValue("text"));
    CIMProperty property("IPAddress", CIMValue("1.2.3.4"));
    property.setQualifier(qualifier);
    EXPECT_EQ(
        xmlOf(property),
        "<PROPERTY NAME=\"IPAddress\" TYPE=\"string\" ><QUALIFIER NAME=\"ImpactWarning\" TYPE=\"string\" >"
        "<VALUE>text</VALUE></QUALIFIER><VALUE>1.2.3.4</VALUE></PROPERTY>");
}

TEST(CimXmlWriter, OriginAndPropagationAreWrittenWhereSet)
{
    CIMProperty property("x", CIMValue(true));
    property.setOriginClass("Base").setPropagated(true);
    EXPECT_EQ(xmlOf(property),
              "<PROPERTY NAME=\"x\" TYPE=\"boolean\" CLASSORIGIN=\"Base\" PROPAGATED=\"true\" >"
              "<VALUE>true</VALUE></PROPERTY>");
}

TEST(CimXmlWriter, APropertyWithoutTypeFailsTheWholeAnswer)
{
    CIMInstance instance("C");
    instance.setProperty("x", CIMValue(CIMNULL));
    try {
        xmlOf(instance);
        FAIL();
    } catch (const CIMException& e) {
        EXPECT_EQ(e.getErrNo(), CIMException::FAILED);
        EXPECT_STREQ(e.getMessage(), "general error (Property x has no type defined)");
    }
}

TEST(CimXmlWriter, KeysOfNamesAreStringsBooleansOrNumbers)
{
    CIMObjectPath name("C", "root/cimv2");
    name.setKeyValue("a", CIMValue("x\"y"));
    name.setKeyValue("b", CIMValue(true));
    name.setKeyValue("c", CIMValue(UInt32(7)));
    name.setKeyValue("d", CIMValue(CIMDateTime("00000000000000.000000:000")));
    EXPECT_EQ(xmlOf(name),
              "<INSTANCENAME CLASSNAME=\"C\">"
              "<KEYBINDING NAME=\"a\"><KEYVALUE VALUETYPE=\"string\">x&quot;y</KEYVALUE></KEYBINDING>"
              "<KEYBINDING NAME=\"b\"><KEYVALUE VALUETYPE=\"boolean\">true</KEYVALUE></KEYBINDING>"
              "<KEYBINDING NAME=\"c\"><KEYVALUE VALUETYPE=\"numeric\">7</KEYVALUE></KEYBINDING>"
              "<KEYBINDING NAME=\"d\"><KEYVALUE "
              "VALUETYPE=\"string\">00000000000000.000000:000</KEYVALUE></KEYBINDING>"
              "</INSTANCENAME>");
}

TEST(CimXmlWriter, AKeyWithoutValueFails)
{
    CIMPropertyArray keys(1, CIMProperty("k", CIMDataType(CIMDataType::STRING)));
    try {
        xmlOf(CIMObjectPath("C", keys));
        FAIL();
    } catch (const CIMException& e) {
        EXPECT_STREQ(e.getMessage(), "general error (No key value)");
    }
}

TEST(CimXmlWriter, AClassIsWrittenWithItsMethods)
{
    EXPECT_EQ(
        classXml("[Description(\"d\")] class C { [Key] string k; uint8 list[]; Other REF r; "
                 "uint32 Go([In] uint16 Level, string Names[], Other REF Target); }; ",
                 wholeClass()),
        "<CLASS NAME=\"C\"><QUALIFIER NAME=\"Description\" TYPE=\"string\" TRANSLATABLE=\"true\" "
        "><VALUE>d</VALUE>"
        "</QUALIFIER><PROPERTY NAME=\"k\" TYPE=\"string\" ><QUALIFIER NAME=\"Key\" TYPE=\"boolean\" "
        "OVERRIDABLE=\"false\" ><VALUE>true</VALUE></QUALIFIER></PROPERTY><PROPERTY.ARRAY NAME=\"list\" "
        "TYPE=\"uint8\" ></PROPERTY.ARRAY><PROPERTY.REFERENCE NAME=\"r\" REFERENCECLASS=\"Other\" >"
        "</PROPERTY.REFERENCE><METHOD NAME=\"Go\" TYPE=\"uint32\" ><PARAMETER TYPE=\"uint16\"  "
        "NAME=\"Level\">"
        "<QUALIFIER NAME=\"In\" TYPE=\"boolean\" OVERRIDABLE=\"false\" "
        "><VALUE>true</VALUE></QUALIFIER></PARAMETER>"
        "<PARAMETER.ARRAY TYPE=\"string\"  NAME=\"Names\"></PARAMETER.ARRAY><PARAMETER.REFERENCE "
        "REFERENCECLASS=\"Other\" NAME=\"Target\"></PARAMETER.REFERENCE></METHOD></CLASS>");
}

TEST(CimXmlWriter, AViewLeavesOutWhatWasNotAskedFor)
{
    const char* mof =
        "class B { uint8 old; }; [Description(\"d\")] class C : B { [Write] uint8 x = 1; uint8 y; };";
    ClassView view;
    view.includeQualifiers = false;
    const StringArray list(1, "X");
    view.propertyList = &list;
    EXPECT_EQ(classXml(mof, view), "<CLASS NAME=\"C\" SUPERCLASS=\"B\"><PROPERTY NAME=\"x\" TYPE=\"uint8\" >"
                                   "<VALUE>1</VALUE></PROPERTY></CLASS>");
}

TEST(CimXmlWriter, QualifierDeclarationsNameTheirScopes)
{
    ClassRepository repository;
    repository.add(parseMof(
        "Qualifier W : string[] = {\"a\"}, Scope(any), Flavor(DisableOverride, Restricted, Translatable); "
        "Qualifier V : uint8, Scope(parameter, class);",
        "test.mof"));
    std::string xml;
    appendQualifierDeclaration(xml, *repository.nameSpace(defaultNameSpace).findQualifier("w"));
    EXPECT_EQ(
        xml, "<QUALIFIER.DECLARATION NAME=\"W\" TYPE=\"string\" ISARRAY=\"true\" OVERRIDABLE=\"false\" "
             "TOSUBCLASS=\"false\" TRANSLATABLE=\"true\" ><SCOPE CLASS=\"true\" ASSOCIATION=\"true\" "
             "REFERENCE=\"true\" "
             "PROPERTY=\"true\" METHOD=\"true\" PARAMETER=\"true\" INDICATION=\"true\" ></SCOPE><VALUE.ARRAY>"
             "<VALUE>a</VALUE></VALUE.ARRAY></QUALIFIER.DECLARATION>");
    xml.clear();
    appendQualifierDeclaration(xml, *repository.nameSpace(defaultNameSpace).findQualifier("V"));
    EXPECT_EQ(xml,
              "<QUALIFIER.DECLARATION NAME=\"V\" TYPE=\"uint8\" ISARRAY=\"false\" ><SCOPE CLASS=\"true\" "
              "PARAMETER=\"true\" ></SCOPE></QUALIFIER.DECLARATION>");
}

TEST(CimXmlWriter, MethodResults)
{
    std::string xml;
    appendReturnValue(xml, CIMValue(UInt32(0)));
    appendReturnValue(xml, CIMValue(CIMNULL));
    appendParamValue(xml, CIMParamValue("Report", CIMValue("a")));
    appendParamValue(xml, CIMParamValue(CIMName("Nothing")));
    EXPECT_EQ(xml,
              "<RETURNVALUE PARAMTYPE=\"uint32\"><VALUE>0</VALUE></RETURNVALUE><PARAMVALUE NAME=\"Report\" "
              "PARAMTYPE=\"string\"><VALUE>a</VALUE></PARAMVALUE><PARAMVALUE NAME=\"Nothing\"></PARAMVALUE>");
}

TEST(CimXmlWriter, TheEnvelopeEchoesMessageIdAndMethod)
{
    std::string xml;
    beginResponse(xml, "a<1>", "IMETHODRESPONSE", "GetInstance");
    appendError(xml, 1, "general error (a\nb)");
    endResponse(xml, "IMETHODRESPONSE");
    EXPECT_EQ(
        xml,
        "<?xml version=\"1.0\" ?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"a&lt;1&gt;\" "
        "PROTOCOLVERSION=\"1.0\"><SIMPLERSP><IMETHODRESPONSE NAME=\"GetInstance\"><ERROR CODE=\"1\" "
        "DESCRIPTION=\"general error (a&#10;b)\"></ERROR></IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>\r\n");
}

} // namespace
} // namespace cimom::test
