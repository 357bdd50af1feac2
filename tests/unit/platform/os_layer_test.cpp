#include "os_layer.h"

#include "PlatformTest.hpp"

#include <unistd.h>

#include <filesystem>

namespace
{

class RouterCard : public PlatformTest
{
  protected:
    void fit() const { write("router-card", ""); }
    void pull() const { std::filesystem::remove(path("router-card")); }

    static bool isFitted()
    {
        bool present = false;
        EXPECT_EQ(osIsZODAOnePresent(&present), 0);
        return present;
    }
};

TEST(ProcessId, IsThatOfTheCallingProcess)
{
    int pid = 0;
    EXPECT_EQ(osGetProcessId(&pid), 0);
    EXPECT_EQ(pid, ::getpid());
}

TEST(ProcessId, NullPointerIsRefused)
{
    EXPECT_EQ(osGetProcessId(nullptr), 1);
}

TEST_F(RouterCard, IsPresentFromFittingToPulling)
{
    EXPECT_FALSE(isFitted());
    fit();
    EXPECT_TRUE(isFitted());
    pull();
    EXPECT_FALSE(isFitted());
}

TEST_F(RouterCard, ItsAbsenceIsWrittenToo)
{
    bool present = true;
    EXPECT_EQ(osIsZODAOnePresent(&present), 0);
    EXPECT_FALSE(present);
}

TEST_F(RouterCard, LookingForItIsNoEvent)
{
    isFitted();
    EXPECT_FALSE(exists("events.log"));
}

TEST_F(RouterCard, NullPointerIsRefused)
{
    EXPECT_EQ(osIsZODAOnePresent(nullptr), 1);
}

TEST_F(RouterCard, AMissingStateDirectoryIsNoPulledCard)
{
    loseStateDir();
    bool present = true;
    const std::string reason = path("router-card") + ": No such file or directory\n";
    EXPECT_EQ(complaints([&] { EXPECT_EQ(osIsZODAOnePresent(&present), 1); }),
              "kvplatform: osIsZODAOnePresent: " + reason);
    EXPECT_TRUE(present);
    EXPECT_EQ(complaints([] { EXPECT_EQ(osResetRouter(), 1); }), "kvplatform: osResetRouter: " + reason);
}

TEST_F(RouterCard, AFittedCardIsReset)
{
    fit();
    EXPECT_EQ(osResetRouter(), 0);
    EXPECT_EQ(events(), "osResetRouter() = 0\n");
}

TEST_F(RouterCard, WithoutACardThereIsNothingToReset)
{
    EXPECT_EQ(osResetRouter(), 103);
    EXPECT_EQ(events(), "osResetRouter() = 103\n");
}

TEST_F(RouterCard, AButtonThatCannotBePressedGivesItsStatus)
{
    fit();
    write("router-button", "4\n");
    EXPECT_EQ(osResetRouter(), 4);
    write("router-button", "7");
    EXPECT_EQ(osResetRouter(), 7);
    EXPECT_EQ(events(), "osResetRouter() = 4\nosResetRouter() = 7\n");
}

TEST_F(RouterCard, TheButtonOfAPulledCardDoesNotMatter)
{
    write("router-button", "4\n");
    EXPECT_EQ(osResetRouter(), 103);
}

TEST_F(RouterCard, AButtonFileWithoutANumberIsReported)
{
    fit();
    write("router-button", "stuck");
    EXPECT_EQ(complaints([] { EXPECT_EQ(osResetRouter(), 1); }),
              "kvplatform: osResetRouter: " + path("router-button") + ": holds no status number\n");
}

} // namespace
