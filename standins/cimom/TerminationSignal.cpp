#include "TerminationSignal.hpp"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <system_error>
#include <unistd.h>

namespace cimom
{
namespace
{

int wakeUpPipe[2] = {-1, -1};

void onSignal(int)
{
    const int before = errno;
    const char byte = 0;
    // A full pipe means that the wait is over anyway.
    [[maybe_unused]] const ssize_t written = write(wakeUpPipe[1], &byte, 1);
    errno = before;
}

void handle(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(SIGTERM, &action, nullptr);
    sigaction(SIGINT, &action, nullptr);
}

} // namespace

TerminationSignal::TerminationSignal()
{
    if (pipe2(wakeUpPipe, O_CLOEXEC | O_NONBLOCK) != 0) {
        throw std::system_error(errno, std::generic_category(), "pipe2");
    }
    handle(onSignal);
}

TerminationSignal::~TerminationSignal()
{
    handle(SIG_DFL);
    close(wakeUpPipe[0]);
    close(wakeUpPipe[1]);
}

bool TerminationSignal::waitFor(std::chrono::milliseconds time)
{
    pollfd descriptor = {wakeUpPipe[0], POLLIN, 0};
    return poll(&descriptor, 1, static_cast<int>(time.count())) == 1;
}

} // namespace cimom
