// Pressing the router card's reset button.

#include "SettingTest.hpp"

namespace
{

class RouterReset : public SettingTest
{
  protected:
    ORX_LANSetting model;
};

TEST_F(RouterReset, ThatHasBegunIsReported)
{
    EXPECT_STREQ(model.resetRouter().c_str(), "Router reset initiated");
    EXPECT_EQ(world.journal(), Lines{"osResetRouter"}) << "one attempt, and no line in the log";
}

struct Refusal {
    int status;
    const char* message;
    const char* logged;
};

const Refusal refusals[] = {
    {103, "No router attached#LAN_ERROR_noRouterAttached#", "No router attached: 103"},
    {4, "Failed to press the router reset button#LAN_ERROR_routerResetFailed#",
     "Failed to press the router reset button: 4"},
    {1, "Router reset failed#LAN_ERROR_routerResetFailed#", "Router reset failed: 1"},
    {22, "Router reset failed#LAN_ERROR_routerResetFailed#", "Router reset failed: 22"},
    {127, "Router reset failed#LAN_ERROR_routerResetFailed#", "Router reset failed: 127"},
    {128, "Router reset failed#LAN_ERROR_routerResetFailed#", "Router reset failed: -128"},
    {200, "Router reset failed#LAN_ERROR_routerResetFailed#", "Router reset failed: -56"},
    {255, "Router reset failed#LAN_ERROR_routerResetFailed#", "Router reset failed: -1"},
    {256, "Router reset failed#LAN_ERROR_routerResetFailed#", "Router reset failed: 0"},
    {-1, "Router reset failed#LAN_ERROR_routerResetFailed#", "Router reset failed: -1"},
    {256 + 4, "Router reset failed#LAN_ERROR_routerResetFailed#", "Router reset failed: 4"},
};

TEST_F(RouterReset, ThatIsRefusedIsAFailure)
{
    for (const Refusal& refusal : refusals) {
        world.clearJournal();
        world.routerResetStatus = refusal.status;
        EXPECT_EQ(failureOf([&] { model.resetRouter(); }), modelFailure(refusal.message)) << refusal.status;
        EXPECT_EQ(world.journal(), (Lines{"osResetRouter", std::string("gLogger ERROR ") + refusal.logged}));
    }
}

} // namespace
