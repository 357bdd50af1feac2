// lanctl watch: the state again and again, what has changed highlighted.
#include "shell/Commands.hpp"
#include "shell/Complaint.hpp"
#include "shell/Objects.hpp"
#include "shell/StateText.hpp"
#include "shell/Terminal.hpp"

#include <chrono>
#include <cmath>
#include <csignal>
#include <ctime>
#include <iostream>
#include <optional>
#include <poll.h>

namespace lanctl::shell
{

namespace
{

volatile std::sig_atomic_t interrupted = 0;

void onInterrupt(int /*signal*/)
{
    interrupted = 1;
}

/// Ctrl-C ends the watch, not the program, while it lives. A sleeping poll is woken by it.
void endOnInterrupt()
{
    struct sigaction action {
    };
    action.sa_handler = onInterrupt;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
}

std::string timeOfDay()
{
    const std::time_t now = std::time(nullptr);
    tm local{};
    localtime_r(&now, &local);
    char text[16];
    std::strftime(static_cast<char*>(text), sizeof text, "%H:%M:%S", &local);
    return static_cast<const char*>(text);
}

/// What was read, or why nothing could be.
struct Look {
    std::optional<Shown> shown;
    std::string trouble;
};

Look look(wire::Client& client, const std::vector<std::string>& objects)
{
    try {
        return {readObjects(client, objects), {}};
    } catch (const wire::CimError& e) {
        return {std::nullopt, complaint(e)};
    } catch (const wire::Failure& e) {
        return {std::nullopt, complaint(e)};
    }
}

/// On a terminal the new state takes the place of the old one; elsewhere it is written when it is another.
void print(const Look& now, const Look& before)
{
    const Shown* earlier = before.shown ? &*before.shown : nullptr;
    const std::string text = now.shown ? stateText(*now.shown, earlier) : now.trouble + "\n";
    if (outputIsTerminal()) {
        std::cout << "\x1b[H\x1b[2J" << timeOfDay() << "  Ctrl-C ends\n\n" << text << std::flush;
        return;
    }
    const std::string old = before.shown ? stateText(*before.shown) : before.trouble + "\n";
    if (text != old)
        std::cout << timeOfDay() << "\n" << text << std::flush;
}

} // namespace

Exit watch(const ConnectionChoice& choice, const std::vector<std::string>& objects,
           const WatchOptions& options)
{
    wire::ConnectionOptions connection = connectionOptions(choice);
    connection.whileWaiting = [] { return interrupted == 0; };
    wire::Client client(std::move(connection));
    endOnInterrupt();
    Look before;
    for (int i = 0; interrupted == 0 && (options.count == 0 || i < options.count); ++i) {
        if (i > 0)
            poll(nullptr, 0, static_cast<int>(std::lround(options.intervalSeconds * 1000)));
        if (interrupted != 0)
            break;
        const Look now = look(client, objects);
        if (interrupted == 0)
            print(now, before);
        before = now;
    }
    if (outputIsTerminal())
        std::cout << "\n";
    return Exit::Done;
}

} // namespace lanctl::shell
