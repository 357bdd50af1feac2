// At the end of the process, as when the library is unloaded, static objects are destroyed in an order that
// this code does not choose, while managers and services may still be about.

#include "Environment.hpp"
#include "dscp/ORX_ALGService.hpp"
#include "dscp/ORX_ALGServiceProvider.hpp"

#include <gtest/gtest.h>

#include <cstdlib>

namespace
{

/// Serves from a static provider; the faked server is gone before the process ends.
void serve()
{
    static ORX_ALGServiceProvider provider;
    const fakes::World world;
    provider.initialize(fakes::environment("request"));
}

[[noreturn]] void endAfterServing()
{
    serve();
    std::exit(0);
}

[[noreturn]] void endWithoutServing()
{
    static ORX_ALGServiceProvider provider;
    std::exit(0);
}

[[noreturn]] void endAfterGoingBackToTheDefaultManager()
{
    serve();
    ORX_ALGServiceInstanceManager* const installed = ORX_ALGService::getInstanceManager();
    ORX_ALGService::ClearInstanceManager();
    std::exit(ORX_ALGService::getInstanceManager() == installed ? 1 : 0);
}

TEST(ProcessEndDeathTest, IsSafeWithTheServersServiceInstalled)
{
    EXPECT_EXIT(endAfterServing(), testing::ExitedWithCode(0), "^$");
}

TEST(ProcessEndDeathTest, IsSafeWithoutInitialisation)
{
    EXPECT_EXIT(endWithoutServing(), testing::ExitedWithCode(0), "^$");
}

TEST(ProcessEndDeathTest, IsSafeWithTheDefaultManagerBack)
{
    EXPECT_EXIT(endAfterGoingBackToTheDefaultManager(), testing::ExitedWithCode(0), "^$");
}

} // namespace
