// Every call that the initialisation of the library makes, failing.

#include "FaultMatrix.hpp"

#include <gtest/gtest.h>

using namespace faults;

namespace
{

void initialize(Server& server)
{
    server.provider.initialize(server.env);
}

} // namespace

TEST(StartFaults, AServerThatIsSetUpStartsWhateverFails)
{
    EXPECT_EQ(Lines{}, consequences({[](Server&) { Server::releaseMarkingService(); }, initialize}));
}

TEST(StartFaults, ANewServerStartsWhateverFails)
{
    EXPECT_EQ(Lines{}, consequences({[](Server& server) {
                                         Server::releaseMarkingService();
                                         server.world.registry.clear();
                                     },
                                     initialize}));
}
