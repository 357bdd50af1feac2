#include "CallCommand.hpp"
#include "CallOutput.hpp"
#include "OW_CIMValue.hpp"
#include "StderrCapture.hpp"
#include "TestServer.hpp"

#include <gtest/gtest.h>

namespace cimom::test
{
namespace
{

class Call : public ::testing::Test
{
  protected:
    // What a call prints on standard output; the exit code is in exitCode.
    std::string run(const std::string& operation, const std::string& object,
                    const std::vector<std::string>& assignments = {}, bool json = false)
    {
        CallOptions options;
        options.operation = operation;
        options.objectPath = object;
        options.assignments = assignments;
        options.json = json;
        testing::internal::CaptureStdout();
        exitCode = call(*manager, options);
        return testing::internal::GetCapturedStdout();
    }
    // The lines that the provider printed and that hold the text.
    std::string seen(const std::string& text)
    {
        std::string found;
        const std::string all = printed.take();
        for (std::size_t at = 0; at < all.size();) {
            const std::size_t end = all.find('\n', at) + 1;
            if (all.substr(at, end - at).find(text) != std::string::npos) {
                found += all.substr(at, end - at);
            }
            at = end;
        }
        return found;
    }

    StderrCapture printed;
    std::unique_ptr<ObjectManager> manager = sampleObjectManager();
    int exitCode = -1;
};

const char* const service =
    "SAMPLE_Service.SystemCreationClassName=\"SAMPLE_Service\",SystemName=\"SAMPLE_Host\","
    "CreationClassName=\"SAMPLE_Service\",Name=\"svc0\"";

TEST_F(Call, GetInstancePrintsTheInstance)
{
    EXPECT_EQ(run("getInstance", service),
              "instance of SAMPLE_Service {\nSystemCreationClassName = SAMPLE_Service;\n"
              "SystemName = SAMPLE_Host;\nCreationClassName = SAMPLE_Service;\nName = svc0;\n"
              "Level = 7;\nActive = true;\n}\n");
    EXPECT_EQ(exitCode, 0);
    EXPECT_NE(seen("SP> getInstance")
                  .find("localOnly=0 includeQualifiers=1 includeClassOrigin=0 propertyList=none"),
              std::string::npos);
}

TEST_F(Call, JsonKeepsTypes)
{
    EXPECT_EQ(run("getInstance", std::string("root/cimv2:") + service, {}, true),
              "{\"class\":\"SAMPLE_Service\",\"properties\":{\"SystemCreationClassName\":\"SAMPLE_Service\","
              "\"SystemName\":\"SAMPLE_Host\",\"CreationClassName\":\"SAMPLE_Service\",\"Name\":\"svc0\","
              "\"Level\":7,"
              "\"Active\":true},\"qualifiers\":{}}\n");
}

TEST_F(Call, EnumerationsPrintAllResults)
{
    EXPECT_EQ(run("ENUMERATEINSTANCENAMES", "SAMPLE_Service"), std::string(service) + "\n");
    EXPECT_EQ(run("enumerateInstanceNames", "SAMPLE_Broken"), "");
    EXPECT_EQ(exitCode, 1);
    const std::string ports = run("enumerateInstances", "SAMPLE_Port", {}, true);
    EXPECT_EQ(ports.substr(0, 24), "[{\"class\":\"SAMPLE_Port\",");
    EXPECT_NE(ports.find("\"qualifiers\":{\"IPAddress\":{\"ImpactWarning\":\"Changing \\\"IPAddress\\\" "
                         "<restarts> the port & drops "
                         "calls\"},\"isDhcpEnabled\":{\"ImpactWarning\":\"Takes effect at once\"}}}"),
              std::string::npos);
}

TEST_F(Call, AnErrorIsTheExitCode)
{
    EXPECT_EQ(run("getInstance", "SAMPLE_Port.Name=\"nope\""), "");
    EXPECT_EQ(exitCode, 6);
    EXPECT_EQ(seen("CIM error"), "CIM error 6: requested object could not be found\n");
    EXPECT_EQ(run("getInstance", "SAMPLE_Port.Name=\"withid\"", {}, true),
              "{\"error\":{\"code\":1,\"description\":\"general error (The port cannot be "
              "read#SAMPLE_ERROR_cannotRead#)\"}}\n");
    EXPECT_EQ(exitCode, 1);
    run("getInstance", "root/none:SAMPLE_Port.Name=\"port0\"");
    EXPECT_EQ(exitCode, 3);
}

TEST_F(Call, ModifyInstanceSendsKeysAndTheGivenProperties)
{
    EXPECT_EQ(run("modifyInstance", "SAMPLE_Port.Name=\"port0\"", {"MaxDataSize=1400", "IPAddress="}), "");
    EXPECT_EQ(exitCode, 0);
    const std::string calls = printed.take();
    EXPECT_NE(calls.find("SP> modifyInstance ns='root/cimv2' includeQualifiers=1 propertyList=none"),
              std::string::npos);
    EXPECT_NE(calls.find("property Name string 'port0'"), std::string::npos);
    EXPECT_NE(calls.find("property MaxDataSize sint32 '1400'"), std::string::npos);
    EXPECT_NE(calls.find("property IPAddress string ''"), std::string::npos);
    EXPECT_NE(calls.find("property isDhcpEnabled boolean NULL"), std::string::npos);
}

TEST_F(Call, PropertiesAreReadAndSetOneByOne)
{
    EXPECT_EQ(run("getProperty", "SAMPLE_Port.Name=\"port0\"", {"MaxDataSize"}), "1500\n");
    EXPECT_EQ(run("setProperty", "SAMPLE_Port.Name=\"port0\"", {"MaxDataSize=9"}), "");
    EXPECT_EQ(exitCode, 0);
    EXPECT_EQ(seen("property MaxDataSize"), "SP>   property MaxDataSize sint32 '9' qualifiers=2\n");
    run("setProperty", "SAMPLE_Port.Name=\"port0\"", {"MaxDataSize=abc"});
    EXPECT_EQ(exitCode, 13);
}

TEST_F(Call, InstancesAreCreatedAndDeleted)
{
    EXPECT_EQ(run("createInstance", "SAMPLE_Service", {"Name=new", "Level=5"}),
              "SAMPLE_Service.SystemCreationClassName=\"SAMPLE_Service\",SystemName=\"SAMPLE_Host\","
              "CreationClassName=\"SAMPLE_Service\",Name=\"new\"\n");
    EXPECT_EQ(run("deleteInstance", "SAMPLE_Service.Name=\"new\""), "");
    EXPECT_EQ(exitCode, 0);
    run("deleteInstance", "SAMPLE_Service.Name=\"new\"");
    EXPECT_EQ(exitCode, 6);
}

TEST_F(Call, OtherNamesAreMethods)
{
    EXPECT_EQ(run("ResetPort", "SAMPLE_Port.Name=\"port0\""), "Reset <initiated> & done\n");
    EXPECT_EQ(run("ResetPort", "SAMPLE_Port"), "Reset <initiated> & done\n");
    EXPECT_EQ(run("Adjust", "SAMPLE_Service.Name=\"svc0\"", {"Level=3"}), "0\nReport = level \"adjusted\"\n");
    EXPECT_EQ(run("Adjust", "SAMPLE_Service.Name=\"svc0\"", {"Level=3"}, true),
              "{\"returnValue\":0,\"out\":{\"Report\":\"level \\\"adjusted\\\"\"}}\n");
    run("NoSuch", "SAMPLE_Port.Name=\"port0\"");
    EXPECT_EQ(exitCode, 17);
}

TEST_F(Call, ArgumentsThatAreNoAssignmentsAreRefused)
{
    run("modifyInstance", "SAMPLE_Port.Name=\"port0\"", {"MaxDataSize"});
    EXPECT_EQ(exitCode, 4);
    EXPECT_EQ(seen("CIM error"),
              "CIM error 4: invalid parameter passed to method (\"MaxDataSize\" is not Name=value)\n");
    run("setProperty", "SAMPLE_Port.Name=\"port0\"");
    EXPECT_EQ(exitCode, 4);
    run("getProperty", "SAMPLE_Port.Name=\"port0\"");
    EXPECT_EQ(exitCode, 4);
}

TEST(CallOutput, JsonValues)
{
    const auto json = [](const OpenWBEM::CIMValue& value) {
        std::string text;
        appendJsonValue(text, value);
        return text;
    };
    using namespace OpenWBEM;
    EXPECT_EQ(json(CIMValue(CIMNULL)), "null");
    EXPECT_EQ(json(CIMValue(UInt64(18446744073709551615U))), "18446744073709551615");
    EXPECT_EQ(json(CIMValue(false)), "false");
    EXPECT_EQ(json(CIMValue("a\"\\\n\x01")), "\"a\\\"\\\\\\u000a\\u0001\"");
    EXPECT_EQ(json(CIMValue(UInt16Array(2, UInt16(5)))), "[5,5]");
    EXPECT_EQ(json(CIMValue(StringArray(1, "x"))), "[\"x\"]");
    EXPECT_EQ(json(CIMValue(StringArray())), "[]");
}

} // namespace
} // namespace cimom::test
