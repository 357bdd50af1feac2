#include "CommandRun.hpp"
#include "PlatformTest.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <string>

namespace
{

using testing::ElementsAre;

/** Far below the 100 seconds that the background commands sleep, far above what a busy machine takes. */
constexpr std::chrono::seconds kPromptly(2);

class BackgroundCommand : public PlatformTest
{
  protected:
    bool isPrompt() const { return std::chrono::steady_clock::now() - m_start < kPromptly; }

    /** Opened for reading and writing, so that neither end ever waits for the other to be opened. */
    int openFifo(const char* name) const
    {
        EXPECT_EQ(::mkfifo(path(name).c_str(), 0600), 0);
        return ::open(path(name).c_str(), O_RDWR | O_CLOEXEC);
    }

  private:
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
};

void end(const std::string& pid)
{
    EXPECT_EQ(::kill(static_cast<pid_t>(std::stol(pid)), SIGKILL), 0);
}

TEST_F(BackgroundCommand, IsNotWaitedFor)
{
    const CommandRun run = execute("sleep 100 & echo $!");
    EXPECT_TRUE(isPrompt());
    EXPECT_EQ(run.status, 0);
    ASSERT_EQ(run.output.size(), 1U);
    end(run.output.front());
}

TEST_F(BackgroundCommand, DoesNotHideTheShellsOutputOrStatus)
{
    const CommandRun run = execute("sleep 100 & echo $!; echo out; echo err >&2; exit 5");
    EXPECT_TRUE(isPrompt());
    EXPECT_EQ(run.status, 5);
    ASSERT_EQ(run.output.size(), 2U);
    EXPECT_EQ(run.output.back(), "out\n");
    EXPECT_THAT(run.error, ElementsAre("err\n"));
    end(run.output.front());
}

TEST_F(BackgroundCommand, ThatWritesWithoutEndIsNotCollectedWithoutEnd)
{
    const CommandRun run = execute("yes & echo $! >&2");
    EXPECT_TRUE(isPrompt());
    ASSERT_EQ(run.error.size(), 1U);
    end(run.error.front());
}

TEST_F(BackgroundCommand, LivesOnWhenItWritesAfterwards)
{
    const int go = openFifo("go");
    const int survived = openFifo("survived");
    const CommandRun run = execute("(read word < " + path("go") + "; echo late; echo late >&2; echo yes > " +
                                   path("survived") + ") &");
    EXPECT_TRUE(isPrompt());
    EXPECT_EQ(run.text(), "");
    EXPECT_EQ(::write(go, "go\n", 3), 3);
    pollfd answer = {survived, POLLIN, 0};
    EXPECT_EQ(::poll(&answer, 1, 2000), 1) << "the background command ended before it could answer";
    ::close(go);
    ::close(survived);
}

} // namespace
