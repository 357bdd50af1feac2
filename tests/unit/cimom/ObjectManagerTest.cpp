#include "StderrCapture.hpp"
#include "TestServer.hpp"

#include "OW_CIMException.hpp"
#include "OW_CIMValueCast.hpp"

#include <gtest/gtest.h>

namespace cimom::test
{
namespace
{

// The sample classes and provider, asked without HTTP.
class Answers : public ::testing::Test
{
  protected:
    HttpAnswer answer(const std::string& request) { return manager->answer(request); }
    std::string refusal(const std::string& request)
    {
        const HttpAnswer answered = answer(request);
        EXPECT_EQ(answered.body, "");
        return std::to_string(answered.status) + " " + answered.cimError;
    }
    static std::string message(const std::string& content)
    {
        return "<?xml version=\"1.0\"?><CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"1\" "
               "PROTOCOLVERSION=\"1.0\">" +
               content + "</MESSAGE></CIM>";
    }
    static std::string intrinsic(const std::string& name, const std::string& parameters)
    {
        return message("<SIMPLEREQ><IMETHODCALL NAME=\"" + name +
                       "\"><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE "
                       "NAME=\"cimv2\"/></LOCALNAMESPACEPATH>" +
                       parameters + "</IMETHODCALL></SIMPLEREQ>");
    }

    StderrCapture printed;
    std::unique_ptr<ObjectManager> manager = sampleObjectManager();
};

TEST_F(Answers, EnumeratedInstancesAreNamedByTheKeysOfTheirClass)
{
    const std::string body =
        answer(
            intrinsic("EnumerateInstances",
                      "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"SAMPLE_Service\"/></IPARAMVALUE>"))
            .body;
    EXPECT_NE(
        body.find("<VALUE.NAMEDINSTANCE><INSTANCENAME CLASSNAME=\"SAMPLE_Service\">"
                  "<KEYBINDING NAME=\"SystemCreationClassName\"><KEYVALUE "
                  "VALUETYPE=\"string\">SAMPLE_Service</KEYVALUE></KEYBINDING>"
                  "<KEYBINDING NAME=\"SystemName\"><KEYVALUE "
                  "VALUETYPE=\"string\">SAMPLE_Host</KEYVALUE></KEYBINDING>"
                  "<KEYBINDING NAME=\"CreationClassName\"><KEYVALUE "
                  "VALUETYPE=\"string\">SAMPLE_Service</KEYVALUE></KEYBINDING>"
                  "<KEYBINDING NAME=\"Name\"><KEYVALUE VALUETYPE=\"string\">svc0</KEYVALUE></KEYBINDING>"
                  "</INSTANCENAME><INSTANCE CLASSNAME=\"SAMPLE_Service\">"),
        std::string::npos)
        << body;
}

TEST_F(Answers, BodiesThatAreNoCimXmlAreRefused)
{
    EXPECT_EQ(refusal(""), "400 request-not-well-formed");
    EXPECT_EQ(refusal("hello"), "400 request-not-well-formed");
    EXPECT_EQ(refusal("<CIM CIMVERSION=\"2.0\""), "400 request-not-well-formed");
    EXPECT_EQ(refusal("<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"1\">"),
              "400 request-not-well-formed");
    EXPECT_EQ(refusal("<HTML/>"), "400 request-not-loosely-valid");
    EXPECT_EQ(refusal("<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"/>"), "400 request-not-loosely-valid");
    EXPECT_EQ(refusal(message("")), "400 request-not-loosely-valid");
    EXPECT_EQ(refusal(message("<SIMPLEREQ></SIMPLEREQ>")), "400 request-not-loosely-valid");
    EXPECT_EQ(refusal(message("<SIMPLEREQ><IMETHODCALL/></SIMPLEREQ>")), "400 request-not-loosely-valid");
}

TEST_F(Answers, OtherEncodingsAreRefused)
{
    EXPECT_EQ(refusal(message("<!-- \xE9 -->")), "400 request-not-well-formed");
    EXPECT_EQ(refusal(std::string("\xFF\xFE<\0C\0I\0M\0", 10)), "400 request-not-well-formed");
}

TEST_F(Answers, AByteOrderMarkIsAccepted)
{
    EXPECT_EQ(answer("\xEF\xBB\xBF" + intrinsic("EnumerateClassNames", "")).status, 200U);
}

TEST_F(Answers, OtherVersionsAreRefused)
{
    EXPECT_EQ(refusal("<CIM CIMVERSION=\"3.0\" DTDVERSION=\"2.0\"><MESSAGE/></CIM>"),
              "501 unsupported-cim-version");
    EXPECT_EQ(refusal("<CIM CIMVERSION=\"2.0\" DTDVERSION=\"1.0\"><MESSAGE/></CIM>"),
              "501 unsupported-dtd-version");
    EXPECT_EQ(refusal("<CIM DTDVERSION=\"2.0\"><MESSAGE/></CIM>"), "400 request-not-loosely-valid");
}

TEST_F(Answers, BatchesAreRefused)
{
    EXPECT_EQ(refusal(message("<MULTIREQ><SIMPLEREQ/><SIMPLEREQ/></MULTIREQ>")),
              "501 multiple-requests-unsupported");
}

TEST_F(Answers, MalformedXmlIsRefusedAndNothingOfItApplied)
{
    const std::string name =
        "<IPARAMVALUE NAME=\"InstanceName\"><INSTANCENAME CLASSNAME=\"SAMPLE_Port\"><KEYBINDING "
        "NAME=\"Name\">"
        "<KEYVALUE VALUETYPE=\"string\">port0</KEYVALUE></KEYBINDING></INSTANCENAME></IPARAMVALUE>"
        "<IPARAMVALUE NAME=\"PropertyName\"><VALUE>IPAddress</VALUE></IPARAMVALUE>";
    for (const char* value : {"10.0.0.1&#0;.9", "a & b", "10.0.0.1&foo;", "a\xEF\xBF\xBF"}) {
        const std::string newValue =
            std::string("<IPARAMVALUE NAME=\"NewValue\"><VALUE>") + value + "</VALUE></IPARAMVALUE>";
        EXPECT_EQ(refusal(intrinsic("SetProperty", name + newValue)), "400 request-not-well-formed") << value;
    }
    EXPECT_EQ(printed.take(), "");
}

TEST_F(Answers, ADocumentTypeMayNameAFileThatNobodyReads)
{
    std::string request = intrinsic("EnumerateClassNames", "");
    request.insert(request.find("<CIM"), "<!DOCTYPE CIM SYSTEM \"cim.dtd\">");
    EXPECT_EQ(answer(request).status, 200U);
}

TEST_F(Answers, DeepNestingEndsInARefusal)
{
    std::string nested;
    std::string closing;
    for (int i = 0; i < 100000; ++i) {
        nested += "<a>";
        closing += "</a>";
    }
    EXPECT_EQ(refusal(nested), "400 request-not-well-formed");
    EXPECT_EQ(refusal(nested + closing), "400 request-not-well-formed");
    EXPECT_EQ(refusal(intrinsic("EnumerateClassNames", nested + closing)), "400 request-not-well-formed");
}

TEST_F(Answers, ValuesOfNothingButBlanksKeepThem)
{
    const std::string name =
        "<IPARAMVALUE NAME=\"InstanceName\"><INSTANCENAME CLASSNAME=\"SAMPLE_Port\"><KEYBINDING "
        "NAME=\"Name\">"
        "<KEYVALUE VALUETYPE=\"string\">port0</KEYVALUE></KEYBINDING></INSTANCENAME></IPARAMVALUE>";
    answer(intrinsic("SetProperty",
                     name + "<IPARAMVALUE NAME=\"PropertyName\"><VALUE>IPAddress</VALUE></IPARAMVALUE>"
                            "<IPARAMVALUE NAME=\"NewValue\"><VALUE>  </VALUE></IPARAMVALUE>"));
    EXPECT_NE(printed.take().find("property IPAddress string '  '"), std::string::npos);
}

TEST_F(Answers, OperationsThatAreNotServedAreNotSupported)
{
    EXPECT_NE(answer(intrinsic("ExecQuery", ""))
                  .body.find("<ERROR CODE=\"7\" DESCRIPTION=\"requested operation is not supported\">"),
              std::string::npos);
}

TEST_F(Answers, ThrownThingsAreDescribedByWhatTheyAre)
{
    const auto described = [](auto thrown) {
        const CimFailure failure = describe(std::make_exception_ptr(thrown));
        return std::to_string(failure.code) + " " + failure.description;
    };
    using OpenWBEM::CIMException;
    EXPECT_EQ(described(CIMException("x", 1, CIMException::FAILED, "boom#ID#")),
              "1 general error (boom#ID#)");
    EXPECT_EQ(described(std::runtime_error("plain")), "1 plain");
    EXPECT_EQ(described(OpenWBEM::ValueCastException("x", 1, "not a STRING")), "1 not a STRING");
    EXPECT_EQ(described(42), "1 Unknown Exception");
}

} // namespace
} // namespace cimom::test
