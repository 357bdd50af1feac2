#include "CommandRun.hpp"
#include "PlatformTest.hpp"

#include <gmock/gmock.h>

#include <string>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;

class RunCommand : public PlatformTest
{
};

TEST_F(RunCommand, LinesKeepTheirLineBreaks)
{
    const CommandRun run = execute("echo a; echo b");
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, ElementsAre("a\n", "b\n"));
    EXPECT_THAT(run.error, IsEmpty());
}

TEST_F(RunCommand, ALastLineWithoutLineBreakStaysWithout)
{
    EXPECT_THAT(execute("printf 'a\\nb'").output, ElementsAre("a\n", "b"));
    EXPECT_THAT(execute("printf a").output, ElementsAre("a"));
}

TEST_F(RunCommand, EmptyLinesAndCarriageReturnsAreKept)
{
    EXPECT_THAT(execute("printf '\\n\\na\\r\\n\\n'").output, ElementsAre("\n", "\n", "a\r\n", "\n"));
}

TEST_F(RunCommand, BothStreamsAreToldApart)
{
    const CommandRun run = execute("echo out; echo err >&2; echo out2; echo err2 >&2");
    EXPECT_THAT(run.output, ElementsAre("out\n", "out2\n"));
    EXPECT_THAT(run.error, ElementsAre("err\n", "err2\n"));
}

TEST_F(RunCommand, StreamsOpenedByNameAddToTheOutput)
{
    const CommandRun run = execute("echo a; echo b > /dev/stdout; echo c; echo d > /dev/stderr");
    EXPECT_THAT(run.output, ElementsAre("a\n", "b\n", "c\n"));
    EXPECT_THAT(run.error, ElementsAre("d\n"));
}

TEST_F(RunCommand, ASilentCommandGivesNoArrays)
{
    const CommandRun run = execute("true");
    EXPECT_EQ(run.status, 0);
    EXPECT_FALSE(run.hasOutputArray);
    EXPECT_FALSE(run.hasErrorArray);
}

TEST_F(RunCommand, TheExitStatusIsReturnedWithTheOutput)
{
    const CommandRun run = execute("echo before; exit 3");
    EXPECT_EQ(run.status, 3);
    EXPECT_THAT(run.output, ElementsAre("before\n"));
}

TEST_F(RunCommand, ASignalCountsFrom128)
{
    EXPECT_EQ(execute("kill -TERM $$").status, 143);
    EXPECT_EQ(execute("kill -KILL $$").status, 137);
}

TEST_F(RunCommand, AnUnknownCommandIsTheShellsFailure)
{
    const CommandRun run = execute("/no/such/command");
    EXPECT_EQ(run.status, 127);
    EXPECT_NE(run.errorText().find("/no/such/command"), std::string::npos);
}

TEST_F(RunCommand, ABrokenLineIsTheShellsFailure)
{
    EXPECT_NE(execute("echo 'unfinished").status, 0);
}

TEST_F(RunCommand, TheLineGoesThroughTheShell)
{
    EXPECT_THAT(execute("printf 'b\\na\\n' | sort && x=1; echo $((x + 1))").output,
                ElementsAre("a\n", "b\n", "2\n"));
}

TEST_F(RunCommand, AnEmptyLineSucceeds)
{
    EXPECT_EQ(execute("").status, 0);
}

TEST_F(RunCommand, WithoutInputTheCommandReadsNothing)
{
    const CommandRun run = execute("cat");
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output, IsEmpty());
}

TEST_F(RunCommand, InputReachesTheCommand)
{
    EXPECT_THAT(execute("cat", "one\ntwo").output, ElementsAre("one\n", "two"));
    EXPECT_THAT(execute("cat", "").output, IsEmpty());
}

TEST_F(RunCommand, InputOfMegabytesReachesTheCommandWhole)
{
    const std::string input(3U << 20U, 'i');
    EXPECT_THAT(execute("wc -c", input.c_str()).output, ElementsAre("3145728\n"));
    EXPECT_EQ(execute("cat", input.c_str()).text(), input);
}

TEST_F(RunCommand, InputThatIsNotReadDoesNoHarm)
{
    const std::string input(3U << 20U, 'i');
    EXPECT_EQ(execute("true", input.c_str()).status, 0);
    EXPECT_THAT(execute("exec <&-; echo closed", input.c_str()).output, ElementsAre("closed\n"));
}

TEST_F(RunCommand, MegabytesOnBothStreamsAtOnceAreCollectedWhole)
{
    const CommandRun run =
        execute("head -c 3000000 /dev/zero | tr '\\0' e >&2 & head -c 3000000 /dev/zero | tr '\\0' o; wait");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.text(), std::string(3000000, 'o'));
    EXPECT_EQ(run.errorText(), std::string(3000000, 'e'));
}

TEST_F(RunCommand, OneStreamMayFillBeforeTheOtherStarts)
{
    const CommandRun run =
        execute("head -c 1000000 /dev/zero | tr '\\0' e >&2; echo; head -c 1000000 /dev/zero | tr '\\0' o");
    EXPECT_EQ(run.text(), "\n" + std::string(1000000, 'o'));
    EXPECT_EQ(run.errorText(), std::string(1000000, 'e'));
}

TEST_F(RunCommand, ManyLinesAreAllDelivered)
{
    const CommandRun run = execute("seq 1 20000");
    ASSERT_EQ(run.output.size(), 20000U);
    EXPECT_EQ(run.output.front(), "1\n");
    EXPECT_EQ(run.output.back(), "20000\n");
}

TEST_F(RunCommand, ALineEndsForItsReaderAtANulByte)
{
    EXPECT_THAT(execute("printf 'a\\0b\\nc\\n'").output, ElementsAre("a", "c\n"));
}

TEST_F(RunCommand, NullPointersAreRefused)
{
    char* line = nullptr;
    char** lines = &line;
    EXPECT_EQ(runcommand(nullptr, nullptr, &lines, &lines), -1);
    EXPECT_EQ(lines, nullptr);
    EXPECT_EQ(runcommand("echo ran >&2", nullptr, nullptr, &lines), -1);
    EXPECT_EQ(lines, nullptr);
    EXPECT_EQ(runcommand("echo ran", nullptr, &lines, nullptr), -1);
    EXPECT_EQ(lines, nullptr);
    freeresultbuf(nullptr);
}

TEST_F(RunCommand, EveryRunIsRecordedAsAnEvent)
{
    execute("/bin/true eth1;true\n");
    execute("exit 3");
    char** lines = nullptr;
    runcommand(nullptr, nullptr, &lines, &lines);
    EXPECT_EQ(events(), "runcommand(\"/bin/true eth1;true\\n\") = 0\n"
                        "runcommand(\"exit 3\") = 3\n"
                        "runcommand(NULL) = -1\n");
}

TEST_F(RunCommand, AMissingStateDirectoryKeepsNoCommandFromRunning)
{
    loseStateDir();
    EXPECT_EQ(complaints([] { EXPECT_THAT(execute("echo ran").output, ElementsAre("ran\n")); }),
              "kvplatform: runcommand: " + path("events.log") + ": No such file or directory\n");
}

} // namespace
