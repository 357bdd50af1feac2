#include "CimXmlReader.hpp"

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

CIMValue valueOf(const char* xml, const char* type)
{
    return readValue(parseXml(xml), type);
}

template <class Read>
std::string errorOf(const Read& read)
{
    try {
        read();
    } catch (const CIMException& e) {
        return std::to_string(e.getErrNo()) + " " + e.Exception::getMessage();
    }
    return "no error";
}

TEST(CimXmlReader, ValuesHaveTheTypeThatTheClientNames)
{
    EXPECT_EQ(valueOf("<P><VALUE>7</VALUE></P>", "uint16"), CIMValue(UInt16(7)));
    EXPECT_EQ(valueOf("<P><VALUE>-7</VALUE></P>", "SINT32"), CIMValue(Int32(-7)));
    EXPECT_EQ(valueOf("<P><VALUE>True</VALUE></P>", "boolean"), CIMValue(true));
    EXPECT_EQ(valueOf("<P><VALUE>a</VALUE></P>", "string"), CIMValue("a"));
}

TEST(CimXmlReader, NoValueElementMeansNull)
{
    EXPECT_FALSE(valueOf("<P></P>", "string"));
}

TEST(CimXmlReader, AnEmptyValueDependsOnTheType)
{
    EXPECT_EQ(valueOf("<P><VALUE></VALUE></P>", "string"), CIMValue(""));
    EXPECT_EQ(valueOf("<P><VALUE/></P>", "sint32"), CIMValue(Int32(0)));
    EXPECT_FALSE(valueOf("<P><VALUE/></P>", "boolean"));
    EXPECT_EQ(valueOf("<P><VALUE/></P>", "datetime").toString(), String("00000000000000.000000:000"));
}

TEST(CimXmlReader, AnUnknownTypeMeansNull)
{
    EXPECT_FALSE(valueOf("<P><VALUE>x</VALUE></P>", "text"));
    EXPECT_FALSE(valueOf("<P><VALUE.ARRAY><VALUE>x</VALUE></VALUE.ARRAY></P>", "text"));
}

TEST(CimXmlReader, TextThatDoesNotFitItsTypeIsAnInvalidParameter)
{
    EXPECT_EQ(errorOf([] { valueOf("<P><VALUE>abc</VALUE></P>", "sint32"); }),
              "4 Unable to convert \"abc\" into Int32");
    EXPECT_EQ(errorOf([] { valueOf("<P><VALUE>1</VALUE></P>", "boolean"); }),
              "4 Unable to convert \"1\" into bool");
    EXPECT_EQ(errorOf([] { valueOf("<P><VALUE.ARRAY><VALUE>300</VALUE></VALUE.ARRAY></P>", "uint8"); }),
              "4 Unable to convert \"300\" into UInt8");
}

TEST(CimXmlReader, ArraysKeepTheirElements)
{
    const CIMValue value =
        valueOf("<P><VALUE.ARRAY><VALUE>1</VALUE><VALUE>2</VALUE></VALUE.ARRAY></P>", "uint16");
    EXPECT_EQ(value.toUInt16Array().size(), 2U);
    EXPECT_EQ(value.toUInt16Array()[1], UInt16(2));
}

TEST(CimXmlReader, TextIsReadToItsEnd)
{
    EXPECT_EQ(valueOf("<P><VALUE> a&lt;&#66; <![CDATA[<c>]]> d\n<!-- x -->e </VALUE></P>", "string"),
              CIMValue(" a<B <c> d\ne "));
    EXPECT_EQ(valueOf("<P><VALUE>  </VALUE></P>", "string"), CIMValue("  "));
}

TEST(CimXmlReader, NamespacePartsAreJoined)
{
    const XmlElement call = parseXml("<C><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE "
                                     "NAME=\"cimv2\"/></LOCALNAMESPACEPATH></C>");
    EXPECT_EQ(readNameSpace(call), String("root/cimv2"));
    EXPECT_EQ(errorOf([] { readNameSpace(parseXml("<C><LOCALNAMESPACEPATH/></C>")); }),
              "4 A LOCALNAMESPACEPATH with a NAMESPACE is needed");
}

TEST(CimXmlReader, KeysOfANameAreStringsBooleansOrNumbers)
{
    const CIMObjectPath name = readInstanceName(
        parseXml("<INSTANCENAME CLASSNAME=\"c\"><KEYBINDING NAME=\"s\"><KEYVALUE "
                 "VALUETYPE=\"string\">a</KEYVALUE></KEYBINDING>"
                 "<KEYBINDING NAME=\"b\"><KEYVALUE VALUETYPE=\"boolean\">TRUE</KEYVALUE></KEYBINDING>"
                 "<KEYBINDING NAME=\"n\"><KEYVALUE VALUETYPE=\"numeric\">12</KEYVALUE></KEYBINDING>"
                 "<KEYBINDING NAME=\"r\"><KEYVALUE VALUETYPE=\"numeric\">1.5</KEYVALUE></KEYBINDING>"
                 "<KEYBINDING NAME=\"u\"><KEYVALUE>x</KEYVALUE></KEYBINDING></INSTANCENAME>"));
    EXPECT_EQ(name.getClassName(), String("c"));
    EXPECT_EQ(name.getKeyValue("s"), CIMValue("a"));
    EXPECT_EQ(name.getKeyValue("b"), CIMValue(true));
    EXPECT_EQ(name.getKeyValue("n"), CIMValue(Int64(12)));
    EXPECT_EQ(name.getKeyValue("r"), CIMValue(Real64(1.5)));
    EXPECT_EQ(name.getKeyValue("u"), CIMValue("x"));
}

TEST(CimXmlReader, ANumericKeyMustBeANumber)
{
    EXPECT_EQ(errorOf([] {
                  readInstanceName(parseXml(
                      "<I CLASSNAME=\"c\"><KEYBINDING NAME=\"n\"><KEYVALUE VALUETYPE=\"numeric\">eth0"
                      "</KEYVALUE></KEYBINDING></I>"));
              }),
              "1 Unable to convert \"eth0\" into Real64");
}

TEST(CimXmlReader, AKeyBindingNeedsAValue)
{
    EXPECT_EQ(errorOf([] { readInstanceName(parseXml("<I><KEYBINDING NAME=\"n\"/></I>")); }),
              "4 A KEYBINDING needs a KEYVALUE");
}

TEST(CimXmlReader, AnInstanceKeepsTheOrderOfItsProperties)
{
    const CIMInstance instance = readInstance(parseXml(
        "<INSTANCE CLASSNAME=\"C\"><QUALIFIER NAME=\"Q\" TYPE=\"string\"><VALUE>v</VALUE></QUALIFIER>"
        "<PROPERTY NAME=\"b\" TYPE=\"uint16\"><VALUE>1</VALUE></PROPERTY>"
        "<PROPERTY.ARRAY NAME=\"a\" "
        "TYPE=\"string\"><VALUE.ARRAY><VALUE>x</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>"
        "<PROPERTY NAME=\"c\" TYPE=\"datetime\"></PROPERTY></INSTANCE>"));
    EXPECT_EQ(instance.toString(), String("instance of C {\nb = 1;\na = x;\nc = null;\n}\n"));
    EXPECT_TRUE(instance.getProperty("a").getDataType().isArrayType());
    EXPECT_EQ(instance.getProperty("c").getDataType().getType(), CIMDataType::DATETIME);
    EXPECT_TRUE(instance.getQualifier("Q"));
}

TEST(CimXmlReader, APropertyNeedsAType)
{
    EXPECT_EQ(errorOf([] { readInstance(parseXml("<INSTANCE><PROPERTY NAME=\"x\"/></INSTANCE>")); }),
              "4 property has null data type");
}

TEST(CimXmlReader, MethodParametersWithoutTypeAreStrings)
{
    const CIMParamValueArray parameters =
        readMethodParameters(parseXml("<M><PARAMVALUE NAME=\"a\"><VALUE>3</VALUE></PARAMVALUE><PARAMVALUE "
                                      "NAME=\"b\" PARAMTYPE=\"uint8\">"
                                      "<VALUE>3</VALUE></PARAMVALUE><PARAMVALUE NAME=\"c\"/></M>"));
    ASSERT_EQ(parameters.size(), 3U);
    EXPECT_EQ(parameters[0].getValue(), CIMValue("3"));
    EXPECT_EQ(parameters[1].getValue(), CIMValue(UInt8(3)));
    EXPECT_FALSE(parameters[2].getValue());
}

TEST(IntrinsicParameters, NamesIgnoreLetterCaseAndTheLastOfTwoCounts)
{
    const XmlElement call =
        parseXml("<C><IPARAMVALUE NAME=\"CLASSNAME\"><CLASSNAME NAME=\"A\"/></IPARAMVALUE>"
                 "<IPARAMVALUE NAME=\"classname\"><CLASSNAME NAME=\"B\"/></IPARAMVALUE></C>");
    EXPECT_EQ(IntrinsicParameters(call, {"ClassName"}).className("ClassName"), String("B"));
}

TEST(IntrinsicParameters, UnknownMissingAndMisplacedOnesAreRefused)
{
    const XmlElement call =
        parseXml("<C><IPARAMVALUE NAME=\"InstanceName\"><CLASSNAME NAME=\"A\"/></IPARAMVALUE></C>");
    EXPECT_EQ(errorOf([&] { IntrinsicParameters(call, {"ClassName"}); }),
              "4 Parameter InstanceName is not a valid parameter");
    const IntrinsicParameters parameters(call, {"InstanceName", "ClassName"});
    EXPECT_EQ(errorOf([&] { parameters.className("ClassName"); }),
              "4 Non-optional parameter ClassName was not given");
    EXPECT_EQ(errorOf([&] { parameters.instanceName("InstanceName"); }),
              "4 Parameter InstanceName is the wrong type.  Expected <INSTANCENAME> tag.");
}

TEST(IntrinsicParameters, FlagsHaveDefaultsAndMustBeBooleans)
{
    const XmlElement call =
        parseXml("<C><IPARAMVALUE NAME=\"a\"><VALUE>FALSE</VALUE></IPARAMVALUE><IPARAMVALUE "
                 "NAME=\"b\"><VALUE>yes</VALUE>"
                 "</IPARAMVALUE><IPARAMVALUE NAME=\"c\"/></C>");
    const IntrinsicParameters parameters(call, {"a", "b", "c", "d"});
    EXPECT_FALSE(parameters.flag("a", true));
    EXPECT_EQ(errorOf([&] { parameters.flag("b", true); }), "4 Unable to convert \"yes\" into bool");
    EXPECT_TRUE(parameters.flag("c", true));
    EXPECT_FALSE(parameters.flag("d", false));
}

TEST(IntrinsicParameters, AnEmptyListIsNotTheSameAsNone)
{
    const XmlElement call = parseXml(
        "<C><IPARAMVALUE NAME=\"a\"><VALUE.ARRAY></VALUE.ARRAY></IPARAMVALUE><IPARAMVALUE NAME=\"b\"/>"
        "<IPARAMVALUE NAME=\"c\"><VALUE.ARRAY><VALUE>x</VALUE></VALUE.ARRAY></IPARAMVALUE></C>");
    const IntrinsicParameters parameters(call, {"a", "b", "c"});
    EXPECT_TRUE(parameters.nameList("a")->empty());
    EXPECT_FALSE(parameters.nameList("b").has_value());
    EXPECT_EQ(parameters.nameList("c")->size(), 1U);
}

TEST(IntrinsicParameters, ANamedInstanceNeedsBothParts)
{
    const XmlElement call = parseXml(
        "<C><IPARAMVALUE NAME=\"a\"><VALUE.NAMEDINSTANCE><INSTANCE CLASSNAME=\"C\"/></VALUE.NAMEDINSTANCE>"
        "</IPARAMVALUE></C>");
    const IntrinsicParameters parameters(call, {"a"});
    EXPECT_EQ(errorOf([&] { parameters.namedInstance("a"); }),
              "4 A VALUE.NAMEDINSTANCE needs an INSTANCENAME and an INSTANCE");
}

} // namespace
} // namespace cimom::test
