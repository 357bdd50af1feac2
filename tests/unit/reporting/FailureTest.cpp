#include "reporting/Failure.hpp"
#include "Environment.hpp"
#include "reporting/Logging.hpp"

#include <gtest/gtest.h>

using fakes::Lines;
using OpenWBEM::CIMException;
using OpenWBEM::String;

namespace
{

class Failures : public fakes::ServerTest
{
};

TEST_F(Failures, AnIdentifierStandsBetweenNumberSignsRightBehindTheText)
{
    EXPECT_STREQ(
        "Cannot find the corresponding if interface#LAN_ERROR_noIFNameMapping#",
        reporting::withIdentifier("Cannot find the corresponding if interface", "LAN_ERROR_noIFNameMapping")
            .c_str());
}

TEST_F(Failures, ABlankOrLineBreakAtTheEndOfTheTextStaysBeforeTheIdentifier)
{
    EXPECT_STREQ(
        "Error getting host info. #LAN_ERROR_cannotGetHostInfo#",
        reporting::withIdentifier("Error getting host info. ", "LAN_ERROR_cannotGetHostInfo").c_str());
    EXPECT_STREQ(
        "The system cannot delete the instance specified.\n#CFG_000_0006#",
        reporting::withIdentifier("The system cannot delete the instance specified.\n", "CFG_000_0006")
            .c_str());
}

TEST_F(Failures, AFailureCarriesUnitLineCodeAndText)
{
    try {
        reporting::fail({"ORX_LANSetting.cpp", 42}, CIMException::INVALID_PARAMETER, "text#ID#");
    } catch (const CIMException& e) {
        EXPECT_STREQ("ORX_LANSetting.cpp", e.getFile());
        EXPECT_EQ(42, e.getLine());
        EXPECT_EQ(CIMException::INVALID_PARAMETER, e.getErrNo());
        EXPECT_STREQ("text#ID#", e.Exception::getMessage());
        EXPECT_STREQ("invalid parameter passed to method (text#ID#)", e.getMessage());
        EXPECT_EQ(Lines{}, world.journal());
        return;
    }
    FAIL() << "nothing was thrown";
}

TEST_F(Failures, AFailureMayHaveNoText)
{
    try {
        reporting::fail({"LANProvider.cpp", 7}, CIMException::INVALID_CLASS);
    } catch (const CIMException& e) {
        EXPECT_STREQ("LANProvider.cpp", e.getFile());
        EXPECT_EQ(7, e.getLine());
        EXPECT_EQ(CIMException::INVALID_CLASS, e.getErrNo());
        EXPECT_STREQ("", e.Exception::getMessage());
        return;
    }
    FAIL() << "nothing was thrown";
}

TEST_F(Failures, AModelLogsTheBareTextThatItThrows)
{
    try {
        reporting::logAndFail({"ORX_LANEndpoint.cpp", 3}, "Invalid subnet format");
    } catch (const CIMException& e) {
        EXPECT_STREQ("ORX_LANEndpoint.cpp", e.getFile());
        EXPECT_EQ(3, e.getLine());
        EXPECT_EQ(CIMException::FAILED, e.getErrNo());
        EXPECT_STREQ("Invalid subnet format", e.Exception::getMessage());
        EXPECT_EQ(Lines{"gLogger ERROR Invalid subnet format"}, world.journal());
        return;
    }
    FAIL() << "nothing was thrown";
}

TEST_F(Failures, TheLogHoldsTheTextWithoutTheIdentifier)
{
    try {
        reporting::logAndFail({"ORX_LANSetting.cpp", 9}, "Invalid IP address format", "LAN_ERROR_invalidIP");
    } catch (const CIMException& e) {
        EXPECT_STREQ("Invalid IP address format#LAN_ERROR_invalidIP#", e.Exception::getMessage());
        EXPECT_EQ(9, e.getLine());
        EXPECT_EQ(Lines{"gLogger ERROR Invalid IP address format"}, world.journal());
        return;
    }
    FAIL() << "nothing was thrown";
}

TEST_F(Failures, ADetailIsLoggedButNotThrown)
{
    try {
        reporting::logAndFail({"ORX_LANSetting.cpp", 9}, "No router attached", "LAN_ERROR_noRouterAttached",
                              ": 103");
    } catch (const CIMException& e) {
        EXPECT_STREQ("No router attached#LAN_ERROR_noRouterAttached#", e.Exception::getMessage());
        EXPECT_EQ(Lines{"gLogger ERROR No router attached: 103"}, world.journal());
        return;
    }
    FAIL() << "nothing was thrown";
}

TEST_F(Failures, WithoutALoggerAFailureIsThrownAllTheSame)
{
    gLogger = OpenWBEM::LoggerRef();
    EXPECT_THROW(reporting::logAndFail({"ORX_LANEndpoint.cpp", 3}, "Invalid subnet format"), CIMException);
    EXPECT_EQ(Lines{}, world.journal());
}

} // namespace
