#include "wire/RequestWriter.hpp"

#include "RecordedExchanges.hpp"

#include <algorithm>
#include <gtest/gtest.h>

using namespace lanctl::wire;

namespace
{

const std::string head =
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE "
    "ID=\"1001\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>";
const std::string tail = "</SIMPLEREQ></MESSAGE></CIM>\n";
const std::string path =
    "<LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH>";

InstanceName port(const std::string& name)
{
    return {"SAMPLE_Port",
            {{"SystemCreationClassName", "SAMPLE_Port"},
             {"SystemName", "SAMPLE_Host"},
             {"CreationClassName", "SAMPLE_Port"},
             {"Name", name}}};
}

std::string recordedRequest(const std::string& name)
{
    for (const auto& exchange : recorded::allExchanges())
        if (exchange.name == name)
            return exchange.request;
    throw std::runtime_error("no exchange " + name);
}

std::string between(const std::string& text, const std::string& start, const std::string& end)
{
    const auto from = text.find(start);
    const auto to = text.find(end, from);
    return text.substr(from, to + end.size() - from);
}

} // namespace

TEST(RequestWriter, asksForAllInstancesWithTheirQualifiers)
{
    const Request request = RequestWriter("root/cimv2").enumerateInstances("ORX_LANEndpoint");
    EXPECT_EQ(request.id, "1001");
    EXPECT_EQ(request.method, "EnumerateInstances");
    EXPECT_EQ(request.cimObject, "root%2Fcimv2");
    EXPECT_FALSE(request.changes);
    EXPECT_EQ(
        request.body,
        head + "<IMETHODCALL NAME=\"EnumerateInstances\">" + path +
            "<IPARAMVALUE NAME=\"ClassName\"><CLASSNAME NAME=\"ORX_LANEndpoint\"/></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"LocalOnly\"><VALUE>FALSE</VALUE></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"DeepInheritance\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"IncludeQualifiers\"><VALUE>TRUE</VALUE></IPARAMVALUE>"
            "<IPARAMVALUE NAME=\"IncludeClassOrigin\"><VALUE>FALSE</VALUE></IPARAMVALUE></IMETHODCALL>" +
            tail);
}

TEST(RequestWriter, givesEachRequestAnIdOfItsOwn)
{
    RequestWriter writer("root/cimv2");
    EXPECT_EQ(writer.enumerateInstances("A").id, "1001");
    EXPECT_EQ(writer.enumerateInstances("A").id, "1002");
}

TEST(RequestWriter, writesAModificationAsAnotherClientDid)
{
    // Exchange 142 was accepted by a real OpenWBEM.
    Modification modification{port("port0"), {"SAMPLE_Port", {}}, {"IPAddress"}};
    for (const auto& [key, value] : port("port0").keys)
        modification.instance.properties.push_back({key, "string", value, {}});
    modification.instance.properties.push_back({"IPAddress", "string", "192.0.2.50", {}});
    modification.instance.properties.push_back({"MaxDataSize", "sint32", "1400", {}});
    modification.instance.properties.push_back({"isDhcpEnabled", "boolean", "TRUE", {}});
    const Request request = RequestWriter("root/cimv2").modifyInstance(modification);
    const std::string theirs = recordedRequest("142-mi-plist-one");
    EXPECT_EQ(between(request.body, "<VALUE.NAMEDINSTANCE>", "</VALUE.NAMEDINSTANCE>"),
              between(theirs, "<VALUE.NAMEDINSTANCE>", "</VALUE.NAMEDINSTANCE>"));
    EXPECT_EQ(between(request.body, "<IPARAMVALUE NAME=\"PropertyList\">", "</IPARAMVALUE>"),
              between(theirs, "<IPARAMVALUE NAME=\"PropertyList\">", "</IPARAMVALUE>"));
    EXPECT_TRUE(request.changes);
}

TEST(RequestWriter, writesAMethodCallAsAnotherClientDid)
{
    const Request request = RequestWriter("root/cimv2").invokeMethod(port("port0"), "ResetPort");
    EXPECT_EQ(between(request.body, "<METHODCALL", "</METHODCALL>"),
              between(recordedRequest("024-wbemcli-cm-2"), "<METHODCALL", "</METHODCALL>"));
    EXPECT_EQ(request.method, "ResetPort");
    EXPECT_TRUE(request.changes);
    EXPECT_EQ(request.cimObject.substr(0, 33), "root%2Fcimv2%3ASAMPLE_Port.System");
}

TEST(RequestWriter, escapesWhatIsMarkup)
{
    Modification modification{{"C", {{"K", "<&\"\n"}}}, {"C", {{"P", "string", "a<b>&\x1B", {}}}}, {"P"}};
    const std::string body = RequestWriter("n").modifyInstance(modification).body;
    EXPECT_NE(body.find("<KEYVALUE VALUETYPE=\"string\">&lt;&amp;&quot;&#10;</KEYVALUE>"), std::string::npos);
    EXPECT_NE(body.find("<VALUE>a&lt;b&gt;&amp;&#27;</VALUE>"), std::string::npos);
}

TEST(RequestWriter, sendsNothingForAPropertyWithoutValue)
{
    Modification modification{{"C", {}}, {"C", {{"P", "string", std::nullopt, {}}}}, {"P"}};
    EXPECT_NE(RequestWriter("n")
                  .modifyInstance(modification)
                  .body.find("<PROPERTY NAME=\"P\" TYPE=\"string\"></PROPERTY>"),
              std::string::npos);
}
