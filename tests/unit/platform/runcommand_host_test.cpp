#include "ChildProcess.hpp"
#include "CommandRun.hpp"
#include "PlatformTest.hpp"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

namespace
{

using testing::ElementsAre;

/** The command runner in hosts that treat processes, signals and descriptors in their own way. */
class HostOfRunCommand : public PlatformTest
{
};

void handle(int number, void (*handler)(int), int flags)
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = flags;
    ::sigaction(number, &action, nullptr);
}

void reapEveryChild(int /*signal*/)
{
    const int saved = errno;
    while (::waitpid(-1, nullptr, WNOHANG) > 0) {
    }
    errno = saved;
}

/** 0 when the status and the output of two commands arrive whole. */
int runBoth()
{
    const CommandRun failing = execute("echo out; echo err >&2; exit 7");
    const CommandRun large = execute("seq 1 20000");
    const bool good = failing.status == 7 && failing.text() == "out\n" && failing.errorText() == "err\n" &&
                      large.status == 0 && large.output.size() == 20000;
    return good ? 0 : 1;
}

TEST_F(HostOfRunCommand, MayIgnoreTheEndOfChildren)
{
    EXPECT_EQ(inChild([] {
                  handle(SIGCHLD, SIG_IGN, 0);
                  return runBoth();
              }),
              0);
}

TEST_F(HostOfRunCommand, MayWantNoZombies)
{
    EXPECT_EQ(inChild([] {
                  handle(SIGCHLD, SIG_DFL, SA_NOCLDWAIT);
                  return runBoth();
              }),
              0);
}

TEST_F(HostOfRunCommand, MayReapEveryChildItself)
{
    EXPECT_EQ(inChild([] {
                  handle(SIGCHLD, reapEveryChild, 0);
                  return runBoth();
              }),
              0);
}

TEST_F(HostOfRunCommand, MayBeInterruptedAllTheTime)
{
    EXPECT_EQ(inChild([] {
                  interruptAllTheTime();
                  return runBoth();
              }),
              0);
}

TEST_F(HostOfRunCommand, DoesNotPassItsSignalTreatmentOn)
{
    const int status = inChild([] {
        handle(SIGPIPE, SIG_IGN, 0);
        handle(SIGCHLD, SIG_IGN, 0);
        sigset_t all;
        ::sigfillset(&all);
        ::sigprocmask(SIG_SETMASK, &all, nullptr);
        const CommandRun run = execute("grep -E '^Sig(Blk|Ign)' /proc/self/status");
        return run.text() == "SigBlk:\t0000000000000000\nSigIgn:\t0000000000000000\n" ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
}

TEST_F(HostOfRunCommand, KeepsItsOwnSignalMask)
{
    EXPECT_EQ(inChild([] {
                  sigset_t mask;
                  ::sigemptyset(&mask);
                  ::sigaddset(&mask, SIGUSR1);
                  ::sigprocmask(SIG_SETMASK, &mask, nullptr);
                  execute("true");
                  ::sigprocmask(SIG_SETMASK, nullptr, &mask);
                  return sigismember(&mask, SIGUSR1) == 1 && sigismember(&mask, SIGTERM) == 0 ? 0 : 1;
              }),
              0);
}

TEST_F(HostOfRunCommand, DoesNotPassItsDescriptorsOn)
{
    const int inheritable = ::open("/dev/null", O_RDONLY);
    ASSERT_EQ(::dup2(inheritable, 57), 57);
    const CommandRun run =
        execute("for fd in 0 1 2 3 4 5 6 7 8 9 57; do test -e /proc/self/fd/$fd && echo $fd; done");
    EXPECT_THAT(run.output, ElementsAre("0\n", "1\n", "2\n"));
    EXPECT_EQ(execute("test -e /proc/$PPID/fd/57").status, 1) << "the command's supervisor keeps it open";
    ::close(57);
    ::close(inheritable);
}

TEST_F(HostOfRunCommand, MayHaveClosedItsStandardStreams)
{
    EXPECT_EQ(inChild([] {
                  ::close(STDIN_FILENO);
                  ::close(STDOUT_FILENO);
                  ::close(STDERR_FILENO);
                  return runBoth();
              }),
              0);
}

TEST_F(HostOfRunCommand, KeepsNoDescriptorsAndNoChildren)
{
    const auto openDescriptors = [] {
        const std::filesystem::directory_iterator entries("/proc/self/fd");
        return std::distance(begin(entries), end(entries));
    };
    const auto before = openDescriptors();
    execute("echo a; echo b >&2; exit 1", "input");
    execute("true &");
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(HostOfRunCommand, WithoutFreeDescriptorsIsTold)
{
    const std::string told = complaints([] {
        EXPECT_EQ(inChild([] {
                      leaveDescriptors(2); // a command needs more
                      const CommandRun run = execute("echo a");
                      return run.status == -1 && !run.hasOutputArray && !run.hasErrorArray ? 0 : 1;
                  }),
                  0);
    });
    EXPECT_EQ(told, "kvplatform: runcommand: echo a: pipe: Too many open files\n");
}

TEST_F(HostOfRunCommand, MayRunCommandsOnSeveralThreads)
{
    std::atomic<int> failures = 0;
    std::vector<std::thread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&failures, i] {
            for (int round = 0; round < 5; ++round) {
                const CommandRun run = execute("echo " + std::to_string(i) + "; exit " + std::to_string(i));
                if (run.status != i || run.text() != std::to_string(i) + "\n")
                    ++failures;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(failures, 0);
}

} // namespace
