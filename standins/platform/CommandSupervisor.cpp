#include "CommandSupervisor.hpp"

#include <poll.h>
#include <pthread.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

/*
 * Between fork and exec in a process that has threads, only async-signal-safe functions may run: no memory is
 * allocated here and nothing is thrown.
 */

namespace kvplatform
{

namespace
{

constexpr int kControl = 3;
constexpr int kOutputRead = 4;
constexpr int kErrorRead = 5;

void closeFrom(int first)
{
    if (::close_range(static_cast<unsigned int>(first), ~0U, 0) == 0)
        return;
    // Kernels before 5.9.
    for (int fd = first; fd < static_cast<int>(::sysconf(_SC_OPEN_MAX)); ++fd)
        ::close(fd);
}

void resetSignalHandlers()
{
    for (int number = 1; number < NSIG; ++number)
        ::signal(number, SIG_DFL);
}

void unblockSignals()
{
    sigset_t none;
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

pid_t waitForEnd(pid_t pid, int& status)
{
    pid_t ended = -1;
    do
        ended = ::waitpid(pid, &status, 0);
    while (ended < 0 && errno == EINTR);
    return ended;
}

[[noreturn]] void runShell(const char* command)
{
    unblockSignals();
    closeFrom(kControl);
    ::execl("/bin/sh", "sh", "-c", command, nullptr);
    ::_exit(127);
}

int exitStatus(pid_t shell)
{
    int status = 0;
    if (shell < 0 || waitForEnd(shell, status) != shell)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

void reportAndAwaitDismissal(int status)
{
    if (::write(kControl, &status, sizeof status) != static_cast<ssize_t>(sizeof status))
        return;
    char ignored = 0;
    while (::read(kControl, &ignored, 1) > 0) {
    }
}

bool hasWriter(int fd)
{
    pollfd state = {fd, 0, 0};
    return ::poll(&state, 1, 0) == 0 || (state.revents & POLLHUP) == 0;
}

/** Reads both streams to their ends, which come when the last background command has ended. */
[[noreturn]] void discardOutput()
{
    unblockSignals();
    ::close(kControl);
    std::array<pollfd, 2> streams = {{{kOutputRead, POLLIN, 0}, {kErrorRead, POLLIN, 0}}};
    std::array<char, 4096> discarded = {};
    while (streams[0].fd >= 0 || streams[1].fd >= 0) {
        ::poll(streams.data(), streams.size(), -1);
        for (pollfd& stream : streams) {
            if (stream.revents != 0 && ::read(stream.fd, discarded.data(), discarded.size()) <= 0)
                stream.fd = -1;
        }
    }
    ::_exit(0);
}

/** Runs with all signals blocked, so that none can end it before the shell and leave the status unknown. */
[[noreturn]] void supervise(const char* command, const std::array<int, kFirstFreeDescriptor>& descriptors)
{
    resetSignalHandlers();
    int number = 0;
    for (const int original : descriptors)
        ::dup2(original, number++);
    closeFrom(kFirstFreeDescriptor);

    const pid_t shell = ::fork();
    if (shell == 0)
        runShell(command);
    for (int fd = STDIN_FILENO; fd <= STDERR_FILENO; ++fd)
        ::close(fd);
    reportAndAwaitDismissal(exitStatus(shell));
    if ((hasWriter(kOutputRead) || hasWriter(kErrorRead)) && ::fork() == 0)
        discardOutput();
    ::_exit(0);
}

} // namespace

pid_t startSupervisor(const char* command, const SupervisorEnds& ends)
{
    const std::array<int, kFirstFreeDescriptor> descriptors = {ends.input.get(),      ends.outputWrite.get(),
                                                               ends.errorWrite.get(), ends.control.get(),
                                                               ends.outputRead,       ends.errorRead};
    // No signal may run one of the host's handlers in the new process.
    sigset_t all;
    sigset_t before;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_SETMASK, &all, &before);
    const pid_t supervisor = ::fork();
    if (supervisor == 0)
        supervise(command, descriptors);
    const int error = errno;
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    errno = error;
    return supervisor;
}

void reapSupervisor(pid_t supervisor)
{
    int status = 0;
    waitForEnd(supervisor, status);
}

} // namespace kvplatform
