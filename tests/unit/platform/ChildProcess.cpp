#include "ChildProcess.hpp"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>

namespace
{

[[noreturn]] void runAndExit(const std::function<int()>& function)
{
    int status = 255;
    try {
        status = function();
    } catch (...) {
        status = 255;
    }
    ::_exit(status);
}

[[noreturn]] void fail(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

} // namespace

ChildProcess::ChildProcess(const std::function<int()>& function) : m_pid(::fork())
{
    if (m_pid < 0)
        fail("fork");
    if (m_pid == 0)
        runAndExit(function);
}

ChildProcess::~ChildProcess()
{
    if (m_pid < 0)
        return;
    kill();
    wait();
}

void ChildProcess::kill() const
{
    ::kill(m_pid, SIGKILL);
}

int ChildProcess::wait()
{
    int status = 0;
    ::waitpid(m_pid, &status, 0);
    m_pid = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 256 + WTERMSIG(status);
}

int inChild(const std::function<int()>& function)
{
    return ChildProcess(function).wait();
}

void leaveDescriptors(int count)
{
    // The sanitizer for undefined behaviour needs a descriptor when it meets a type for the first time.
    [[maybe_unused]] const std::string met = std::generic_category().message(0);
    const int end = 64;
    const rlimit limit = {end, end};
    ::setrlimit(RLIMIT_NOFILE, &limit);
    while (::open("/dev/null", O_RDONLY | O_CLOEXEC) >= 0) {
    }
    for (int fd = end - count; fd < end; ++fd)
        ::close(fd);
}

void interruptAllTheTime()
{
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    ::sigaction(SIGALRM, &action, nullptr);
    const itimerval everyMillisecond = {{0, 1000}, {0, 1000}};
    ::setitimer(ITIMER_REAL, &everyMillisecond, nullptr);
}

Signal::Signal()
{
    std::array<int, 2> fds = {};
    if (::pipe2(fds.data(), O_CLOEXEC) != 0)
        fail("pipe");
    m_read = fds[0];
    m_write = fds[1];
}

Signal::~Signal()
{
    ::close(m_read);
    ::close(m_write);
}

void Signal::send() const
{
    if (::write(m_write, "!", 1) != 1)
        fail("write");
}

void Signal::wait() const
{
    char received = 0;
    if (::read(m_read, &received, 1) != 1)
        fail("read");
}
