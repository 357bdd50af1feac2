#include "EndpointServer.hpp"
#include "lanendpoint/ORX_LANEndpointInstanceManager.hpp"

#include <gtest/gtest.h>

using fakes::Lines;

namespace
{

class InstanceManagers : public fakes::EndpointServer
{
  protected:
    Lines logOf(int code)
    {
        world.clearJournal();
        world.failNth(1, "osGetProcessId", code);
        ORX_LANEndpointInstanceManager().init();
        return world.journal();
    }
};

TEST_F(InstanceManagers, TheThreeInterfacesAreYieldedOverAndOver)
{
    ORX_LANEndpointInstanceManager manager;
    manager.init();
    for (int round = 0; round < 3; ++round)
        for (const int expected : {0, 1, 2, -1})
            EXPECT_EQ(expected, manager.next());
}

TEST_F(InstanceManagers, InitBeginsAnew)
{
    ORX_LANEndpointInstanceManager manager;
    manager.init();
    manager.next();
    manager.next();
    manager.init();
    EXPECT_EQ(0, manager.next());
}

TEST_F(InstanceManagers, BeforeInitThereIsNothingToYield)
{
    ORX_LANEndpointInstanceManager manager;
    EXPECT_EQ(-1, manager.next());
    EXPECT_EQ(-1, manager.next());
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(InstanceManagers, AProcessIdIsAskedForAndNotLogged)
{
    ORX_LANEndpointInstanceManager().init();
    EXPECT_EQ(Lines{"osGetProcessId"}, world.journal());
}

TEST_F(InstanceManagers, AFailureCutsItsCodeOffTheBeginningOfTheText)
{
    EXPECT_EQ((Lines{"osGetProcessId", "gLogger ERROR sGetProcessId() returns "}), logOf(1));
    EXPECT_EQ((Lines{"osGetProcessId", "gLogger ERROR etProcessId() returns "}), logOf(3));
    EXPECT_EQ((Lines{"osGetProcessId", "gLogger ERROR  "}), logOf(24));
}

TEST_F(InstanceManagers, ACodeBeyondTheTextLogsAnEmptyText)
{
    for (const int code : {25, 26, 1000, 2147483647})
        EXPECT_EQ((Lines{"osGetProcessId", "gLogger ERROR "}), logOf(code));
}

TEST_F(InstanceManagers, ANegativeCodeLogsTheWholeText)
{
    for (const int code : {-1, -2147483647 - 1})
        EXPECT_EQ((Lines{"osGetProcessId", "gLogger ERROR osGetProcessId() returns "}), logOf(code));
}

TEST_F(InstanceManagers, AFailureDoesNotKeepTheInterfacesBack)
{
    world.failNth(1, "osGetProcessId", 3);
    ORX_LANEndpointInstanceManager manager;
    manager.init();
    EXPECT_EQ(0, manager.next());
}

} // namespace
