#include "Operations.hpp"
#include "ConsoleLogger.hpp"
#include "MofParser.hpp"
#include "OW_CIMValue.hpp"
#include "ProviderEnvironment.hpp"
#include "StderrCapture.hpp"

#include <gtest/gtest.h>

namespace cimom::test
{
namespace
{

using namespace OpenWBEM;

// Which provider an operation goes to; what happens then is seen in the replay of recorded exchanges.
class ProviderChoice : public ::testing::Test
{
  protected:
    static ClassRepository classes()
    {
        ClassRepository repository;
        repository.add(parseMof(
            "class KV_None { [Key] string Name; uint8 Go(); [Provider(\"c++::Journal\")] uint8 Own(); };"
            "[Provider(\"c++::Journal\")] class KV_Double { [Key] string Name; uint8 Go(); };"
            "[Provider(\"C++:Journal\")] class KV_Single { [Key] string Name; };"
            "[Provider(\"perl::Journal\")] class KV_Other { [Key] string Name; };",
            "test.mof"));
        return repository;
    }
    static CIMObjectPath named(const char* className)
    {
        CIMObjectPath path(className);
        return path.setKeyValue("Name", CIMValue("x"));
    }
    std::string getInstance(const char* className)
    {
        return outcome([&] { operations.getInstance("root/cimv2", named(className), {}); });
    }
    std::string invoke(const char* className, const char* method)
    {
        return outcome([&] {
            operations.invokeMethod("root/cimv2", CIMObjectPath(className), false, method,
                                    CIMParamValueArray());
        });
    }
    template <class Operation>
    static std::string outcome(const Operation& operation)
    {
        try {
            operation();
        } catch (const CIMException& e) {
            return e.getMessage();
        }
        return "done";
    }

    StderrCapture printed;
    ClassRepository repository = classes();
    ProviderEnvironmentIFCRef environment{
        new ProviderEnvironment(LoggerRef(new ConsoleLogger(E_NONE_LEVEL)), {})};
    ProviderLoader loader{{TEST_PROVIDER_DIR}, environment};
    Operations operations{repository, loader, environment};
};

TEST_F(ProviderChoice, OneColonOrTwoBehindTheKindInAnyLetterCase)
{
    EXPECT_EQ(getInstance("KV_Double"), "done");
    EXPECT_EQ(getInstance("KV_Single"), "done");
}

TEST_F(ProviderChoice, AnotherKindOfProviderIsAFailure)
{
    EXPECT_EQ(getInstance("KV_Other"), "general error (Invalid provider: perl::Journal)");
}

TEST_F(ProviderChoice, AMethodMayHaveAProviderOfItsOwn)
{
    EXPECT_EQ(invoke("KV_Double", "Go"), "done");
    EXPECT_EQ(invoke("KV_None", "Own"), "done");
    EXPECT_EQ(invoke("KV_None", "Go"), "extrinsic method could not be executed (Go)");
}

TEST_F(ProviderChoice, AClassWithoutProviderHasNoInstances)
{
    EXPECT_EQ(getInstance("KV_None"), "requested object could not be found (/root/cimv2:KV_None.Name=\"x\")");
    EXPECT_EQ(outcome([&] {
                  operations.enumerateInstances("root/cimv2", "KV_None", {},
                                                [](const CIMObjectPath&, const CIMInstance&) { FAIL(); });
                  operations.enumerateInstanceNames("root/cimv2", "KV_None",
                                                    [](const CIMObjectPath&) { FAIL(); });
              }),
              "done");
    EXPECT_EQ(outcome([&] { operations.createInstance("root/cimv2", CIMInstance("KV_None")); }),
              "requested operation is not supported (Class KV_None has no provider)");
}

} // namespace
} // namespace cimom::test
