#include "ConsoleLogger.hpp"
#include "ObjectManager.hpp"
#include "ProviderEnvironment.hpp"
#include "StderrCapture.hpp"

#include <fstream>
#include <future>
#include <gtest/gtest.h>
#include <vector>

namespace cimom::test
{
namespace
{

using namespace OpenWBEM;

const std::string name =
    "<INSTANCENAME CLASSNAME=\"KV_Crowd\"><KEYBINDING NAME=\"Name\"><KEYVALUE>x</KEYVALUE>"
    "</KEYBINDING></INSTANCENAME>";

std::string call(const std::string& method, const std::string& parameter, const std::string& value)
{
    return "<CIM CIMVERSION=\"2.0\" DTDVERSION=\"2.0\"><MESSAGE ID=\"1\" PROTOCOLVERSION=\"1.0\"><SIMPLEREQ>"
           "<IMETHODCALL NAME=\"" +
           method +
           "\"><LOCALNAMESPACEPATH><NAMESPACE NAME=\"root\"/><NAMESPACE NAME=\"cimv2\"/></LOCALNAMESPACEPATH>"
           "<IPARAMVALUE NAME=\"" +
           parameter + "\">" + value + "</IPARAMVALUE></IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>";
}

// With a provider that complains about whom it finds beside a request.
class ParallelRequests : public ::testing::Test
{
  protected:
    static std::unique_ptr<ObjectManager> objectManager(bool isParallel)
    {
        const std::string mof = ::testing::TempDir() + "crowd.mof";
        std::ofstream(mof) << "[Provider(\"c++::Crowd\")] class KV_Crowd { [Key] string Name; };";
        const ProviderEnvironmentIFCRef environment(
            new ProviderEnvironment(LoggerRef(new ConsoleLogger(E_NONE_LEVEL)), {}));
        return std::make_unique<ObjectManager>(ObjectManagerOptions{{mof}, {TEST_PROVIDER_DIR}, isParallel},
                                               environment);
    }

    // The answers that hold an error, of some clients that read and change.
    static std::vector<std::string> errorsInACrowd(ObjectManager& manager)
    {
        const auto client = [&manager] {
            std::vector<std::string> errors;
            for (int i = 0; i < 100; ++i) {
                const std::string answer = manager.answer(i % 3 == 0 ? change : read).body;
                if (answer.find("<ERROR") != std::string::npos) {
                    errors.push_back(answer);
                }
            }
            return errors;
        };
        std::vector<std::future<std::vector<std::string>>> clients;
        for (int i = 0; i < 4; ++i) {
            clients.push_back(std::async(std::launch::async, client));
        }
        std::vector<std::string> all;
        for (auto& each : clients) {
            const std::vector<std::string> errors = each.get();
            all.insert(all.end(), errors.begin(), errors.end());
        }
        return all;
    }

    static inline const std::string read = call("GetInstance", "InstanceName", name);
    static inline const std::string change =
        call("ModifyInstance", "ModifiedInstance",
             "<VALUE.NAMEDINSTANCE>" + name + "<INSTANCE CLASSNAME=\"KV_Crowd\"/></VALUE.NAMEDINSTANCE>");

    StderrCapture printed;
};

TEST_F(ParallelRequests, ReadsRunSideBySideWhenTheyMay)
{
    const auto manager = objectManager(true);
    const std::string enumeration =
        call("EnumerateInstanceNames", "ClassName", "<CLASSNAME NAME=\"KV_Crowd\"/>");
    auto other = std::async(std::launch::async, [&] { return manager->answer(enumeration).body; });
    EXPECT_EQ(manager->answer(enumeration).body.find("<ERROR"), std::string::npos);
    EXPECT_EQ(other.get().find("<ERROR"), std::string::npos);
}

TEST_F(ParallelRequests, AChangeIsAlone)
{
    for (const bool isParallel : {true, false}) {
        EXPECT_EQ(errorsInACrowd(*objectManager(isParallel)), std::vector<std::string>());
    }
}

TEST_F(ParallelRequests, OnlyReadsAreReads)
{
    for (const char* method :
         {"GetInstance", "EnumerateInstances", "EnumerateInstanceNames", "getproperty", "GetClass",
          "EnumerateClasses", "EnumerateClassNames", "EnumerateQualifiers"}) {
        EXPECT_TRUE(IntrinsicCalls::isRead(method)) << method;
    }
    for (const char* method :
         {"ModifyInstance", "CreateInstance", "DeleteInstance", "SetProperty", "ExecQuery"}) {
        EXPECT_FALSE(IntrinsicCalls::isRead(method)) << method;
    }
}

} // namespace
} // namespace cimom::test
