// Every call that the initialisation of the library makes, failing.

#include "FaultMatrix.hpp"
#include "MarkingService.hpp"

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
    EXPECT_EQ(Lines{}, consequences({[](Server&) { fakes::releaseMarkingService(); }, initialize}));
}

TEST(StartFaults, ANewServerStartsWhateverFails)
{
    EXPECT_EQ(Lines{}, consequences({[](Server& server) {
                                         fakes::releaseMarkingService();
                                         server.world.registry.clear();
                                     },
                                     initialize}));
}
