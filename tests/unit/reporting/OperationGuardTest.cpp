#include "reporting/OperationGuard.hpp"
#include "Environment.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

using fakes::Lines;
using OpenWBEM::CIMException;
using OpenWBEM::String;

namespace
{

constexpr reporting::GuardedOperation enumeration{"ORX_LANSettingProvider.cpp", "enumInstances", 11, 12};

class Guard : public fakes::ServerTest
{
  protected:
    /// Runs `body` under the guard and returns what it throws.
    template <typename Body>
    CIMException failureOf(const Body& body)
    {
        try {
            reporting::guarded(
                env, enumeration, [] { return String("ORX_LANServiceSetting"); }, body);
        } catch (const CIMException& e) {
            return e;
        }
        throw std::logic_error("nothing was thrown");
    }
};

TEST_F(Guard, PassesTheResultOfTheOperation)
{
    const int result = reporting::guarded(
        env, enumeration, []() -> String { throw std::logic_error("the target was asked for"); },
        [] { return 17; });
    EXPECT_EQ(17, result);
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(Guard, TurnsAStandardExceptionIntoAFailureWithItsTextAndLogsIt)
{
    const CIMException e = failureOf([] { throw std::runtime_error("boom"); });
    const char* text =
        "Unknown Error:  while performing enumInstances operation on ORX_LANServiceSetting\nboom\n";
    EXPECT_STREQ(text, e.Exception::getMessage());
    EXPECT_EQ(CIMException::FAILED, e.getErrNo());
    EXPECT_STREQ("ORX_LANSettingProvider.cpp", e.getFile());
    EXPECT_EQ(11, e.getLine());
    EXPECT_EQ(Lines{std::string("request ERROR ") + text}, world.journal());
}

TEST_F(Guard, TurnsAnyOtherExceptionIntoTheSameTextWithoutADetail)
{
    const CIMException e = failureOf([] { throw 42; });
    const char* text = "Unknown Error:  while performing enumInstances operation on ORX_LANServiceSetting\n";
    EXPECT_STREQ(text, e.Exception::getMessage());
    EXPECT_EQ(CIMException::FAILED, e.getErrNo());
    EXPECT_STREQ("ORX_LANSettingProvider.cpp", e.getFile());
    EXPECT_EQ(12, e.getLine());
    EXPECT_EQ(Lines{std::string("request ERROR ") + text}, world.journal());
}

TEST_F(Guard, PassesACIMExceptionUnchangedAndUnlogged)
{
    const CIMException e =
        failureOf([] { throw CIMException("elsewhere.cpp", 99, CIMException::NOT_FOUND, "own text"); });
    EXPECT_EQ(CIMException::NOT_FOUND, e.getErrNo());
    EXPECT_STREQ("own text", e.Exception::getMessage());
    EXPECT_STREQ("elsewhere.cpp", e.getFile());
    EXPECT_EQ(99, e.getLine());
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(Guard, NamesEachOperation)
{
    for (const char* name : {"enumInstanceNames", "getInstance", "modifyInstance", "invokeMethod"}) {
        EXPECT_EQ(std::string("Unknown Error:  while performing ") + name + " operation on target\n",
                  reporting::unknownErrorText({"x.cpp", name, 1, 2}, "target").c_str());
    }
}

TEST_F(Guard, ReleasesWhatTheBodyHoldsBeforeTheFailureLeaves)
{
    struct Resource {
        bool& released;
        ~Resource() { released = true; }
    };
    bool released = false;
    failureOf([&] {
        const Resource resource{released};
        throw std::runtime_error("boom");
    });
    EXPECT_TRUE(released);
}

} // namespace
