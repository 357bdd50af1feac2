#include "wire/AnswerParser.hpp"

#include <gtest/gtest.h>

using namespace lanctl::wire;

namespace
{

std::string response(const std::string& content, const std::string& method = "EnumerateInstances")
{
    return "<?xml version=\"1.0\" ?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"1001\" "
           "PROTOCOLVERSION=\"1.0\"><SIMPLERSP><IMETHODRESPONSE NAME=\"" +
           method + "\">" + content + "</IMETHODRESPONSE></SIMPLERSP></MESSAGE></CIM>\r\n";
}

std::string instance(const std::string& properties)
{
    return "<IRETURNVALUE><VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME=\"C\"></INSTANCENAME><INSTANCE "
           "CLASSNAME=\"C\">" +
           properties + "</INSTANCE></VALUE.NAMEDINSTANCE></IRETURNVALUE>";
}

std::string property(const std::string& value)
{
    return "<PROPERTY NAME=\"Name\" TYPE=\"string\" >" + value + "</PROPERTY>";
}

Property onlyProperty(const std::string& xml)
{
    return parseAnswer(response(instance(xml))).instances.at(0).properties.at(0);
}

std::string reasonFor(const std::string& xml)
{
    try {
        parseAnswer(xml);
    } catch (const MalformedAnswer& e) {
        return e.what();
    }
    return "no complaint";
}

} // namespace

TEST(AnswerParser, tellsWhichRequestIsAnswered)
{
    const Answer answer = parseAnswer(response(""));
    EXPECT_EQ(answer.id, "1001");
    EXPECT_EQ(answer.method, "EnumerateInstances");
    EXPECT_FALSE(answer.error);
    EXPECT_TRUE(answer.instances.empty());
}

TEST(AnswerParser, readsAPropertyWithItsValue)
{
    const Property read = onlyProperty(property("<VALUE>eth0</VALUE>"));
    EXPECT_EQ(read.name, "Name");
    EXPECT_EQ(read.type, "string");
    EXPECT_EQ(read.value, "eth0");
    EXPECT_TRUE(read.qualifiers.empty());
}

TEST(AnswerParser, tellsAnEmptyTextFromNoValue)
{
    EXPECT_EQ(onlyProperty(property("<VALUE></VALUE>")).value, "");
    EXPECT_EQ(onlyProperty(property("")).value, std::nullopt);
}

TEST(AnswerParser, keepsTheValueOfAQualifierApartFromThatOfItsProperty)
{
    const Property read =
        onlyProperty(property("<QUALIFIER NAME=\"ImpactWarning\" TYPE=\"string\" ><VALUE>Restarts "
                              "it</VALUE></QUALIFIER><VALUE>10.0.0.5</VALUE>"));
    EXPECT_EQ(read.value, "10.0.0.5");
    EXPECT_EQ(read.qualifiers.at("ImpactWarning"), "Restarts it");
    EXPECT_EQ(
        onlyProperty(property("<QUALIFIER NAME=\"Key\" TYPE=\"boolean\" ><VALUE>true</VALUE></QUALIFIER>"))
            .value,
        std::nullopt);
}

TEST(AnswerParser, passesOverQualifiersOfAnInstanceAndArrays)
{
    const Answer answer = parseAnswer(
        response(instance("<QUALIFIER NAME=\"Version\" TYPE=\"string\"><VALUE>2</VALUE></QUALIFIER>" +
                          property("<VALUE>a</VALUE>") +
                          "<PROPERTY.ARRAY NAME=\"L\" "
                          "TYPE=\"uint16\"><VALUE.ARRAY><VALUE>5</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>")));
    ASSERT_EQ(answer.instances.at(0).properties.size(), 1U);
    EXPECT_EQ(answer.instances.at(0).properties[0].value, "a");
}

TEST(AnswerParser, undoesEntitiesAndReferences)
{
    EXPECT_EQ(
        onlyProperty(property("<VALUE>&quot;a&quot; &lt;b&gt; &amp; &apos;c&apos;&#13;&#10;&#9;</VALUE>"))
            .value,
        "\"a\" <b> & 'c'\r\n\t");
}

TEST(AnswerParser, readsAnError)
{
    const Answer answer = parseAnswer(
        response("<ERROR CODE=\"6\" DESCRIPTION=\"requested object could not be found\"></ERROR>"));
    ASSERT_TRUE(answer.error);
    EXPECT_EQ(answer.error->code, 6);
    EXPECT_EQ(answer.error->description, "requested object could not be found");
}

TEST(AnswerParser, readsTheResultOfAMethod)
{
    const Answer answer =
        parseAnswer("<CIM><MESSAGE ID=\"7\"><SIMPLERSP><METHODRESPONSE NAME=\"ResetRouter\"><RETURNVALUE "
                    "PARAMTYPE=\"string\"><VALUE>Router reset initiated</VALUE></RETURNVALUE>"
                    "</METHODRESPONSE></SIMPLERSP></MESSAGE></CIM>");
    EXPECT_EQ(answer.method, "ResetRouter");
    EXPECT_EQ(answer.returnValue, "Router reset initiated");
}

TEST(AnswerParser, showsBytesThatXmlDoesNotHave)
{
    EXPECT_EQ(onlyProperty(property("<VALUE>a\x1B[31m</VALUE>")).value, "a\xE2\x90\x9B[31m"); // U+241B
    EXPECT_EQ(onlyProperty(property("<VALUE>a&#27;b</VALUE>")).value, "a\xE2\x90\x9B"
                                                                      "b");
    EXPECT_EQ(onlyProperty(property("<VALUE>M\xFCnchen</VALUE>")).value, "M\xEF\xBF\xBDnchen");
}

TEST(AnswerParser, refusesWhatIsCutOff)
{
    const std::string whole = response(instance(property("<VALUE>eth0</VALUE>")));
    for (std::size_t length = 0; length + 2 < whole.size();
         ++length) // the line break at the end may be missing
        EXPECT_NE(reasonFor(whole.substr(0, length)), "no complaint") << length;
}

TEST(AnswerParser, refusesWhatIsNoResponse)
{
    EXPECT_EQ(reasonFor("<html><body>It works!</body></html>"), "it is not a CIM-XML response");
    EXPECT_EQ(reasonFor("<CIM></CIM>"), "it is not a CIM-XML response");
    EXPECT_EQ(reasonFor("<CIM><MESSAGE ID=\"1\"><SIMPLEREQ></SIMPLEREQ></MESSAGE></CIM>"),
              "it is not a CIM-XML response");
    EXPECT_EQ(reasonFor("hello"), "line 1: syntax error");
    EXPECT_EQ(reasonFor(""), "line 1: no element found");
}

TEST(AnswerParser, refusesAnErrorWithoutCode)
{
    EXPECT_EQ(reasonFor(response("<ERROR CODE=\"\" DESCRIPTION=\"x\"/>")), "an error has no code");
    EXPECT_EQ(reasonFor(response("<ERROR DESCRIPTION=\"x\"/>")), "an error has no code");
    EXPECT_EQ(reasonFor(response("<ERROR CODE=\"99999999999\"/>")), "an error has no code");
}

TEST(AnswerParser, refusesADocumentTypeAndWithItItsEntities)
{
    EXPECT_EQ(reasonFor("<!DOCTYPE CIM [<!ENTITY a \"b\">]><CIM/>"), "it has a document type");
}

TEST(AnswerParser, refusesElementsThatAreNestedWithoutEnd)
{
    std::string deep;
    for (int i = 0; i < 100000; ++i)
        deep += "<a>";
    EXPECT_EQ(reasonFor(deep), "elements are nested too deeply");
}
