#include "FaultMatrix.hpp"

#include "FailableCalls.hpp"
#include "Failures.hpp"
#include "StandardOutput.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

namespace faults
{

namespace
{

std::ptrdiff_t openDescriptors()
{
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return std::distance(begin(all), end(all));
}

std::string outcomeOf(const Operation& operation, Server& server)
{
    try {
        return fakes::failureOf([&] { operation.perform(server); });
    } catch (...) {
        ADD_FAILURE() << "something else than a CIMException has left the library";
        return "another exception";
    }
}

void expectNoProblems(const Server& server)
{
    for (const std::string& problem : server.world.problems())
        ADD_FAILURE() << problem;
}

std::string valueOf(const State& state, const std::string& name)
{
    const auto found = state.find(name);
    return found == state.end() ? "" : found->second;
}

/// The names of what is neither as before nor as after a success.
std::string spoilt(const State& before, const State& success, const State& now)
{
    State all = before;
    all.insert(success.begin(), success.end());
    all.insert(now.begin(), now.end());
    std::string names;
    for (const auto& entry : all) {
        const std::string& name = entry.first;
        const std::string value = valueOf(now, name);
        if (value != valueOf(before, name) && value != valueOf(success, name))
            names += (names.empty() ? "" : ", ") + name;
    }
    return names;
}

struct Undisturbed {
    Lines journal;
    State before, after;
};

Undisturbed record(const Operation& operation)
{
    Undisturbed run;
    Server server;
    operation.given(server);
    run.before = server.state();
    server.world.clearJournal();
    EXPECT_EQ("nothing", outcomeOf(operation, server));
    run.journal = server.world.journal(fakes::Everything | fakes::Content);
    run.after = server.state();
    expectNoProblems(server);
    return run;
}

/// Lets commands print, so that there are line arrays to release.
void letCommandsPrint(Server& server, const Lines& journal)
{
    const std::string runcommand = "runcommand ";
    for (const std::string& line : journal) {
        if (line.compare(0, runcommand.size(), runcommand) == 0)
            server.world.commands[line.substr(runcommand.size())] = {0, Lines{"done\n"}, Lines{"noted\n"}};
    }
}

void expectServiceAfterwards(const Operation& operation, Server& server)
{
    EXPECT_EQ("nothing", fakes::failureOf([&] { server.readEverything(); }));
    server.prepare();
    operation.given(server);
    EXPECT_EQ("nothing", outcomeOf(operation, server));
    expectNoProblems(server);
}

std::string consequence(const Operation& operation, const Undisturbed& run, const FailableCall& call)
{
    SCOPED_TRACE(call.label);
    Server server;
    operation.given(server);
    letCommandsPrint(server, run.journal);
    // The one descriptor that is meant to stay open.
    if (call.label.find("ioctl /dev/kv_netfilter") == 0)
        server.world.mayStayOpen.insert("/dev/kv_netfilter");

    server.world.failNth(call.nth, call.function, call.code);
    const std::string outcome = outcomeOf(operation, server);
    expectNoProblems(server);
    const std::string lost = spoilt(run.before, run.after, server.state());
    expectServiceAfterwards(operation, server);

    if (outcome == "nothing" && lost.empty())
        return "";
    return call.label + " -> " + outcome + (lost.empty() ? "" : ", spoils " + lost);
}

} // namespace

Lines consequences(const Operation& operation)
{
    const fakes::StandardOutput traces; // nobody's business here
    const std::ptrdiff_t descriptorsBefore = openDescriptors();
    Lines lines;
    const Undisturbed run = record(operation);
    const auto calls = failableCalls(run.journal);
    EXPECT_FALSE(calls.empty());
    for (const FailableCall& call : calls) {
        const std::string line = consequence(operation, run, call);
        if (!line.empty())
            lines.push_back(line);
    }
    EXPECT_EQ(descriptorsBefore, openDescriptors());
    return lines;
}

Lines each(const Lines& calls, const std::string& outcome)
{
    Lines lines;
    for (const std::string& call : calls)
        lines.push_back(call + " -> " + outcome);
    return lines;
}

Lines operator+(const Lines& first, const Lines& second)
{
    Lines both = first;
    both.insert(both.end(), second.begin(), second.end());
    return both;
}

} // namespace faults
