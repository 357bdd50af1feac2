#include "shell/Countdown.hpp"

#include "shell/Progress.hpp"
#include "shell/Terminal.hpp"
#include "wayback/BootClock.hpp"
#include "wayback/Lock.hpp"

#include <csignal>
#include <iostream>
#include <poll.h>
#include <thread>
#include <unistd.h>

namespace lanctl::shell
{

namespace
{

using wayback::History;
using wayback::milliseconds;
using wayback::Progress;
using wayback::Result;

constexpr milliseconds look{100};

volatile std::sig_atomic_t interrupted = 0;

/// While this lives, Ctrl-C ends only the waiting.
class InterruptWatch
{
  public:
    InterruptWatch()
    {
        interrupted = 0;
        struct sigaction action = {};
        action.sa_handler = [](int) { interrupted = 1; };
        sigaction(SIGINT, &action, &m_before);
    }
    ~InterruptWatch() { sigaction(SIGINT, &m_before, nullptr); }
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;

  private:
    struct sigaction m_before = {};
};

Result resultOf(const History& history, int number)
{
    const auto entry = history.entry(number);
    return entry ? entry->result : Result::Abandoned;
}

/// A line that is overwritten by the next one.
void showLine(const std::string& text)
{
    std::cout << "\r\x1b[K" << text << std::flush;
}

void endLine()
{
    std::cout << "\r\x1b[K" << std::flush;
}

std::string progressText(const Progress& progress)
{
    if (progress.phase == Progress::Phase::Waiting)
        return "Keep the change? [y/N] It is taken back in " +
               std::to_string(wayback::secondsUntil(progress.until)) + " s. ";
    if (progress.phase == Progress::Phase::TakingBack && progress.attempts > 0)
        return "Taking the change back: " + std::to_string(progress.attempts) + " tries, the next in " +
               std::to_string(wayback::secondsUntil(progress.until)) + " s. " + harmless(progress.trouble);
    return "Taking the change back ...";
}

/// What was typed within that time: a line, or nothing.
std::optional<std::string> typedWithin(milliseconds time)
{
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (poll(&input, 1, static_cast<int>(time.count())) <= 0)
        return std::nullopt;
    std::string line;
    if (!std::getline(std::cin, line)) {
        std::cin.clear(); // the end of the input answers nothing
        std::this_thread::sleep_for(time);
        return std::nullopt;
    }
    return line;
}

void answer(const History& history, const std::string& line)
{
    const bool yes = line == "y" || line == "Y" || line == "yes";
    history.folder().mark(yes ? wayback::requests::confirm : wayback::requests::takeBackNow);
}

void showEnd(const History& history, int number, Result result)
{
    if (result == Result::Confirmed)
        std::cout << "The change is kept.\n";
    if (result == Result::Abandoned)
        std::cout << "The change stays as it is; the state before it is in "
                  << history.formerStatePath(number) << ".\n";
    if (result != Result::TakenBack)
        return;
    std::cout << "The change is taken back.\n";
    const auto progress = wayback::readProgress(history.folder(), number);
    if (!progress || progress->left.empty())
        return;
    std::cerr << "Not taken back:\n";
    for (const std::string& left : progress->left)
        std::cerr << "  " << harmless(left) << "\n";
    std::cerr << "The state before is in " << history.formerStatePath(number) << "; `lanctl apply "
              << history.formerStatePath(number) << "` tries again.\n";
}

Exit exitOf(Result result, Exit soFar)
{
    switch (result) {
    case Result::Confirmed:
        return soFar;
    case Result::TakenBack:
        return Exit::TakenBack;
    default:
        return Exit::NotAsWanted;
    }
}

Exit leftToTheGuard()
{
    endLine();
    std::cout << "The countdown goes on. `lanctl confirm` keeps the change, `lanctl status` shows it.\n";
    return Exit::NotAsWanted;
}

/// Somebody has killed the guard.
Exit cutOff()
{
    endLine();
    std::cerr
        << "The change was cut off: the process that looked after it has ended. `lanctl rollback` takes the "
           "change back, `lanctl confirm` keeps it.\n";
    return Exit::NotAsWanted;
}

/// The guard sets the result before it ends.
bool isCutOff(const History& history, int number)
{
    return !isGuarded(history) && resultOf(history, number) == Result::Open;
}

Exit waitOnTerminal(const History& history, int number, Exit soFar)
{
    const InterruptWatch watch;
    Result result = resultOf(history, number);
    for (; result == Result::Open; result = resultOf(history, number)) {
        if (interrupted != 0)
            return leftToTheGuard();
        if (isCutOff(history, number))
            return cutOff();
        const auto progress = wayback::readProgress(history.folder(), number);
        if (progress)
            showLine(progressText(*progress));
        if (const auto line = typedWithin(look);
            line && progress && progress->phase == Progress::Phase::Waiting)
            answer(history, *line);
    }
    endLine();
    showEnd(history, number, result);
    return exitOf(result, soFar);
}

} // namespace

bool isGuarded(const History& history)
{
    return wayback::Lock::isHeld(history.folder());
}

Exit waitForConfirmation(const History& history, int number, Exit soFar)
{
    if (soFar == Exit::NotAsWanted) {
        const auto exit = waitForResult(history, number);
        return exit ? *exit : cutOff();
    }
    if (inputIsTerminal() && outputIsTerminal())
        return waitOnTerminal(history, number, soFar);
    const auto entry = history.entry(number);
    std::cout << "The change is taken back in " << (entry ? entry->confirmSeconds : 0)
              << " s unless `lanctl confirm` keeps it.\n";
    return soFar;
}

std::optional<Exit> waitForResult(const History& history, int number)
{
    const InterruptWatch watch;
    const bool shown = outputIsTerminal();
    Result result = resultOf(history, number);
    for (; result == Result::Open; result = resultOf(history, number)) {
        if (interrupted != 0)
            return leftToTheGuard();
        if (isCutOff(history, number))
            return std::nullopt;
        const auto progress = wayback::readProgress(history.folder(), number);
        if (shown && progress)
            showLine(progressText(*progress));
        std::this_thread::sleep_for(look);
    }
    if (shown)
        endLine();
    showEnd(history, number, result);
    return exitOf(result, Exit::Done);
}

} // namespace lanctl::shell
