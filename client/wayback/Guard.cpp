#include "wayback/Guard.hpp"

#include "wayback/BootClock.hpp"
#include "wayback/GuardLoop.hpp"
#include "wayback/TakeBack.hpp"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sys/socket.h>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace lanctl::wayback
{

namespace
{

constexpr char changedWord = 'c';
constexpr char dismissWord = 'd';

std::vector<int> openDescriptors()
{
    std::vector<int> numbers;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd"))
        numbers.push_back(std::stoi(entry.path().filename()));
    return numbers;
}

/// Leaves the terminal, the working directory and everything else that the starting process has open.
void stepAside(int channel, int lock)
{
    for (const int number : {SIGHUP, SIGINT, SIGQUIT, SIGPIPE})
        std::signal(number, SIG_IGN);
    const int nothing = open("/dev/null", O_RDWR);
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        dup2(nothing, standard);
    for (const int descriptor : openDescriptors())
        if (descriptor > STDERR_FILENO && descriptor != channel && descriptor != lock)
            close(descriptor);
    if (chdir("/") != 0)
        return; // then the folder it was started in stays in use; nothing worse
}

/// Waits for the change; the end of the changing process counts as a change that was made.
bool isToGuard(int channel)
{
    char word = changedWord;
    while (read(channel, &word, 1) < 0 && errno == EINTR) {
    }
    return word != dismissWord;
}

/// The closed channel tells the other side that the countdown can be seen.
void guard(const Task& task, int channel)
{
    Surroundings surroundings;
    surroundings.now = sinceBoot;
    surroundings.pause = [](milliseconds time) { std::this_thread::sleep_for(time); };
    surroundings.takeBack = [&task] {
        return takeBack(task.connection, task.ways, task.hardware, task.former);
    };
    GuardLoop loop(task.history, task.number, task.countdown, surroundings);
    loop.start();
    close(channel);
    loop.run();
}

/// The guard's process. It never returns into the code that started it.
[[noreturn]] void runProcess(const Task& task, int channel, int lock)
{
    try {
        stepAside(channel, lock);
        if (isToGuard(channel))
            guard(task, channel);
        _exit(EXIT_SUCCESS);
    } catch (...) {
        _exit(EXIT_FAILURE); // the entry stays open, and `lanctl status` shows it
    }
}

[[noreturn]] void failed(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

} // namespace

Guard Guard::start(const Task& task, const Lock& lock)
{
    std::array<int, 2> channel{};
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, channel.data()) != 0)
        failed("cannot start the guard of the change");
    Guard guard(channel[0]);
    const pid_t first = fork();
    if (first == 0) {
        // The one in between makes the guard a child of nobody here, in a session without a terminal.
        setsid();
        const pid_t second = fork();
        if (second == 0)
            runProcess(task, channel[1], lock.descriptor());
        _exit(second < 0 ? EXIT_FAILURE : EXIT_SUCCESS);
    }
    close(channel[1]);
    int status = EXIT_FAILURE;
    if (first < 0 || waitpid(first, &status, 0) != first || status != 0)
        failed("cannot start the guard of the change");
    return guard;
}

Guard::Guard(Guard&& other) noexcept : m_channel(std::exchange(other.m_channel, -1)) {}

Guard::~Guard()
{
    if (m_channel >= 0)
        close(m_channel);
}

void Guard::changed()
{
    tell(changedWord);
    char nothing = 0;
    while (read(m_channel, &nothing, 1) < 0 && errno == EINTR) {
    }
}

void Guard::dismiss()
{
    tell(dismissWord);
}

void Guard::tell(char word) const
{
    // A guard that is gone has left its entry open, which is what the caller looks at.
    if (send(m_channel, &word, 1, MSG_NOSIGNAL) != 1)
        return;
}

} // namespace lanctl::wayback
