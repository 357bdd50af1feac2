#include "system/CommandExecution.hpp"
#include "Environment.hpp"
#include "Failures.hpp"
#include "system/LanSemaphore.hpp"
#include "system/VoiceMessaging.hpp"

#include <OW_String.hpp>

#include <gtest/gtest.h>

using fakes::failureOf;
using fakes::Lines;
using OpenWBEM::String;

namespace
{

class Commands : public fakes::ServerTest
{
  protected:
    void prepare(int status, const Lines& out, const Lines& err)
    {
        world.commands["list"] = {status, out, err};
    }

    std::string collected(int expectedStatus = 0)
    {
        String output("left over");
        EXPECT_EQ(expectedStatus, runCommand("list", output));
        return output.c_str();
    }

    std::string invoked() { return invokeCommand("list").c_str(); }
};

TEST_F(Commands, ACommandLineReachesTheShellAsItIs)
{
    const char* line = "ifdown eth1;ifup eth1 | tee $(log) > `tty` & \"x\" 'y'\n# z";
    world.commands[line] = {};
    String output;
    EXPECT_EQ(0, runCommand(line, output));
    EXPECT_EQ(Lines{std::string("runcommand ") + line}, world.journal());
}

TEST_F(Commands, CollectedLinesKeepTheirLineBreaks)
{
    prepare(0, {"a\n", "b\n"}, {});
    EXPECT_EQ("a\nb\n", collected());
}

TEST_F(Commands, InvokedLinesAreJoinedWithoutTheFinalLineBreak)
{
    prepare(0, {"a\n", "b\n"}, {});
    EXPECT_EQ("a\nb", invoked());
}

TEST_F(Commands, AnInvokedLineMayBeEmptyOrLackItsLineBreak)
{
    prepare(0, {"a", "", "\n", "b"}, {});
    EXPECT_EQ("a\n\n\nb", invoked());
}

TEST_F(Commands, StandardErrorComesBeforeStandardOutput)
{
    prepare(0, {"a\n", "b\n"}, {"e\n", "f\n"});
    EXPECT_EQ("e\nf\na\nb\n", collected());
    EXPECT_EQ("e\nf\na\nb", invoked());
}

TEST_F(Commands, NothingIsInsertedBetweenTheStreams)
{
    prepare(0, {"a\n"}, {"e"});
    EXPECT_EQ("ea\n", collected());
    EXPECT_EQ("ea", invoked());
}

TEST_F(Commands, StandardErrorAloneKeepsItsFinalLineBreak)
{
    prepare(0, {}, {"e\n"});
    EXPECT_EQ("e\n", collected());
    EXPECT_EQ("e\n", invoked());
}

TEST_F(Commands, OnlyOneLineBreakALineIsRemoved)
{
    prepare(0, {"a\n\n", "\n", "b\r\n", "c"}, {});
    EXPECT_EQ("a\n\n\nb\r\nc", collected());
    EXPECT_EQ("a\n\n\nb\r\nc", invoked());
    prepare(0, {"a", "b"}, {});
    EXPECT_EQ("ab", collected());
    EXPECT_EQ("a\nb", invoked());
}

TEST_F(Commands, EitherStreamMayBeAbsent)
{
    world.commands["list"] = {};
    EXPECT_EQ("", collected());
    EXPECT_EQ("", invoked());
    world.commands["list"] = {0, Lines{"a\n"}, {}};
    EXPECT_EQ("a\n", collected());
    EXPECT_EQ("a", invoked());
    world.commands["list"] = {0, {}, Lines{"e\n"}};
    EXPECT_EQ("e\n", collected());
    EXPECT_EQ("e\n", invoked());
}

TEST_F(Commands, LongOutputArrivesWhole)
{
    const std::string longLine(70000, 'x');
    prepare(0, Lines(100, longLine + "\n"), {});
    EXPECT_EQ(100 * 70001U, collected().size());
    EXPECT_EQ(100 * 70001U - 1, invoked().size());
}

TEST_F(Commands, AFailedCollectionReturnsTheStatusAndNoOutput)
{
    for (const int status : {1, 2, 127, 255, -1}) {
        prepare(status, {"a\n"}, {"e\n"});
        EXPECT_EQ("", collected(status));
    }
    EXPECT_EQ(Lines{}, world.journal(fakes::Log | fakes::System));
}

TEST_F(Commands, AFailedInvocationThrowsAndLogsNothing)
{
    for (const int status : {1, 127, -1}) {
        prepare(status, {"a\n"}, {"e\n"});
        EXPECT_EQ("ORX_LANEndpointAPI.cpp 16 Failed to execute the command: list",
                  failureOf([this] { invoked(); }));
    }
    EXPECT_EQ(Lines(3, "runcommand list"), world.journal());
}

TEST_F(Commands, ACommandWithShellSyntaxOfThreeKindsIsRefused)
{
    for (const char* refused :
         {";", "(", ")", ";list", "list;", "li;st", "$(list)", "(list", "list)", "a | b ; c"})
        EXPECT_FALSE(checkInjection(refused)) << refused;
}

TEST_F(Commands, ShellSyntaxBehindANulIsRefusedToo)
{
    const char refused[] = "list\0;reboot";
    EXPECT_FALSE(checkInjection(String(refused, sizeof refused - 1)));
    const char accepted[] = "list\0reboot";
    EXPECT_TRUE(checkInjection(String(accepted, sizeof accepted - 1)));
}

TEST_F(Commands, EveryOtherCommandIsAccepted)
{
    for (const char* accepted : {"",      "list",  "a | b", "a & b", "a && b", "`a`", "$a",      "${a}",
                                 "a > b", "a < b", "a\nb",  "'a'",   "\"a\"",  "\\",  "[a]",     "{a}",
                                 "#",     "*",     "?",     "!",     "~",      "%",   "\xc3\xa4"})
        EXPECT_TRUE(checkInjection(accepted)) << accepted;
}

TEST_F(Commands, ARefusedCommandThrowsAndNeverRuns)
{
    EXPECT_EQ("ORX_LANEndpointAPI.cpp 16 Failed to execute the command: list;rm",
              failureOf([] { invokeCommand("list;rm"); }));
    EXPECT_EQ(Lines{}, world.journal());
}

TEST_F(Commands, CollectingIsNotFiltered)
{
    world.commands["a;(b)"] = {0, Lines{"x\n"}, {}};
    String output;
    EXPECT_EQ(0, runCommand("a;(b)", output));
    EXPECT_STREQ("x\n", output.c_str());
}

TEST_F(Commands, VoiceMessagingIsStartedAndStopped)
{
    startVoiceMail();
    stopVoiceMail();
    EXPECT_EQ((Lines{"runcommand /kv/bin/processcontrol start voicemail",
                     "runcommand /kv/bin/processcontrol stop voicemail"}),
              world.journal());
}

TEST_F(Commands, VoiceMessagingThatDoesNotObeyIsAFailure)
{
    world.failAll("runcommand", 3);
    EXPECT_EQ(
        "ORX_LANEndpointAPI.cpp 16 Failed to execute the command: /kv/bin/processcontrol start voicemail",
        failureOf(startVoiceMail));
    EXPECT_EQ(
        "ORX_LANEndpointAPI.cpp 16 Failed to execute the command: /kv/bin/processcontrol stop voicemail",
        failureOf(stopVoiceMail));
    EXPECT_EQ(Lines{}, world.journal(fakes::Log));
}

TEST_F(Commands, ARewriteOfTheLanConfigurationRunsUnderTheSemaphore)
{
    world.commands["a;b"] = {};
    runUnderLanSemaphore("a;b");
    EXPECT_EQ(
        (Lines{"dhcpIpInfoRequestDHCPLANSemaphore", "runcommand a;b", "dhcpIpInfoReleaseDHCPLANSemaphore"}),
        world.journal());
}

TEST_F(Commands, ARewriteGoesOnWithoutTheSemaphoreAndIgnoresFailures)
{
    world.failNth(1, "dhcpIpInfoRequestDHCPLANSemaphore", 1);
    world.failNth(1, "dhcpIpInfoReleaseDHCPLANSemaphore", 1);
    prepare(4, {"a\n"}, {"e\n"});
    runUnderLanSemaphore("list");
    EXPECT_EQ(
        (Lines{"dhcpIpInfoRequestDHCPLANSemaphore", "runcommand list", "dhcpIpInfoReleaseDHCPLANSemaphore"}),
        world.journal());
}

} // namespace
