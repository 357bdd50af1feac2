// The commands around the way back: confirm, status, history, rollback.
#include "apply/Reading.hpp"
#include "model/WantedText.hpp"
#include "shell/Change.hpp"
#include "shell/Commands.hpp"
#include "shell/Countdown.hpp"
#include "shell/Table.hpp"
#include "shell/Terminal.hpp"
#include "wayback/BootClock.hpp"
#include "wayback/GuardLoop.hpp"
#include "wayback/Histories.hpp"
#include "wayback/RevocableChange.hpp"
#include "wayback/TakeBack.hpp"
#include "json/HistoryJson.hpp"

#include <iostream>

namespace lanctl::shell
{

namespace
{

using json::Json;
using wayback::Entry;
using wayback::History;
using wayback::Progress;
using wayback::Result;

Progress progressOf(const History& history, const Entry& entry)
{
    Progress nothingKnown;
    nothingKnown.number = entry.number;
    return wayback::readProgress(history.folder(), entry.number).value_or(nothingKnown);
}

std::string stateText(const History& history, const Entry& entry)
{
    if (!isGuarded(history))
        return "cut off; `lanctl rollback` takes it back, `lanctl confirm` keeps it";
    const Progress progress = progressOf(history, entry);
    const std::string seconds = std::to_string(wayback::secondsUntil(progress.until)) + " s";
    if (progress.phase == Progress::Phase::Waiting)
        return "taken back in " + seconds + " unless `lanctl confirm` keeps it";
    if (progress.phase == Progress::Phase::TakingBack)
        return "on its way back after " + std::to_string(progress.attempts) + " tries, the next in " +
               seconds + (progress.trouble.empty() ? "" : ": " + progress.trouble);
    return "being made";
}

void showPlan(const Entry& entry)
{
    for (const std::string& line : entry.plan)
        std::cout << "  " << harmless(line) << "\n";
}

Exit nothingWaits(const History& history, const std::string& label)
{
    const auto entries = history.entries();
    if (!entries.empty() && entries.back().result == Result::TakenBack) {
        std::cerr << "Change " << entries.back().number << " of " << harmless(label)
                  << " has been taken back.\n";
        return Exit::TakenBack;
    }
    std::cerr << "No change of " << harmless(label) << " waits.\n";
    return Exit::NotAsWanted;
}

/// No process looks after the change any more. What was made of it stays.
Exit endUnguarded(const History& history, const Entry& entry, bool abandon)
{
    const auto lock = wayback::Lock::take(history.folder());
    if (!lock)
        throw wayback::AnotherChange("the change is just being looked after by another lanctl; try again");
    history.end(entry.number, abandon ? Result::Abandoned : Result::Confirmed);
    std::cout << (abandon ? "Given up" : "Kept") << ".\n";
    return Exit::Done;
}

/// Nothing when the guard is gone.
std::optional<Exit> confirmGuarded(const History& history, const Entry& entry, bool abandon)
{
    const bool goesBack = progressOf(history, entry).phase == Progress::Phase::TakingBack;
    if (abandon && !goesBack)
        throw UsageError("the change is not on its way back; `lanctl confirm` keeps it");
    if (!abandon && goesBack) {
        std::cerr << "Too late: the change is on its way back. `lanctl confirm --abandon` would leave it "
                     "where it is.\n";
        return Exit::TakenBack;
    }
    history.folder().mark(abandon ? wayback::requests::abandon : wayback::requests::confirm);
    const auto exit = waitForResult(history, entry.number);
    return abandon && exit == Exit::NotAsWanted ? Exit::Done : exit;
}

const Entry& entryToRollBack(const std::vector<Entry>& entries, std::optional<int> number)
{
    if (entries.empty())
        throw UsageError("this server has no history yet");
    if (!number)
        return entries.back();
    for (const Entry& entry : entries)
        if (entry.number == *number)
            return entry;
    throw UsageError("the history has no change " + std::to_string(*number) +
                     "; `lanctl history` lists them");
}

model::WantedState formerStateOf(const History& history, const Entry& entry)
{
    try {
        return model::parseWanted(history.formerState(entry.number));
    } catch (const model::BadWanted& e) {
        throw UsageError(history.formerStatePath(entry.number) + ": " + e.what());
    }
}

/// What the server takes of the state before that change; what it does not is told.
model::WantedState possibleState(const ConnectionChoice& choice, const History& history, const Entry& entry)
{
    const model::WantedState former = formerStateOf(history, entry);
    wire::Client client(connectionOptions(choice));
    const model::ServerState state = apply::readState(client);
    if (wayback::hardwareOf(state) != entry.hardware)
        throw UsageError("change " + std::to_string(entry.number) +
                         " was made on another server, by its MAC addresses; `lanctl apply " +
                         history.formerStatePath(entry.number) + "` brings the state before it here");
    const wayback::Possible possible = wayback::possible(state, former, client.connection().peerAddress());
    for (const auto& refusal : possible.impossible)
        std::cerr << "Not to be taken back: "
                  << harmless(refusal.object + " " + refusal.key + ": " + refusal.text) << "\n";
    return possible.wanted;
}

} // namespace

Exit confirm(const ConnectionChoice& choice, bool abandon)
{
    const std::string label = serverLabel(choice);
    const History history = wayback::historyOf(label);
    const auto entry = history.openEntry();
    if (!entry)
        return nothingWaits(history, label);
    const auto exit = isGuarded(history) ? confirmGuarded(history, *entry, abandon) : std::nullopt;
    return exit ? *exit : endUnguarded(history, *entry, abandon);
}

Exit status(bool asJson)
{
    Json list = Json::array();
    bool any = false;
    for (const History& history : wayback::allHistories()) {
        const auto entry = history.openEntry();
        if (!entry)
            continue;
        any = true;
        list.push_back(json::openJson(*entry, history));
        if (asJson)
            continue;
        std::cout << harmless(entry->server) << ", change " << entry->number << " of " << entry->time
                  << " by " << harmless(entry->user) << ": " << harmless(stateText(history, *entry)) << "\n";
        showPlan(*entry);
    }
    if (asJson)
        std::cout << json::text(list);
    else if (!any)
        std::cout << "No change waits.\n";
    return Exit::Done;
}

Exit history(const ConnectionChoice& choice, bool asJson)
{
    const History history = wayback::historyOf(serverLabel(choice));
    Json list = Json::array();
    for (const Entry& entry : history.entries()) {
        list.push_back(json::toJson(entry, history));
        if (asJson)
            continue;
        std::cout << entry.number << "  " << entry.time << "  " << harmless(entry.user) << "  "
                  << wayback::resultText(entry.result) << "\n";
        showPlan(entry);
    }
    if (asJson)
        std::cout << json::text(list);
    else if (list.empty())
        std::cout << "No change yet.\n";
    return Exit::Done;
}

Exit rollback(const ConnectionChoice& choice, std::optional<int> number, const Agreement& agreement)
{
    const History history = wayback::historyOf(serverLabel(choice));
    const std::vector<Entry> entries = history.entries();
    const Entry& entry = entryToRollBack(entries, number);
    const bool open = entry.result == Result::Open;
    if (open && isGuarded(history)) {
        history.folder().mark(wayback::requests::takeBackNow);
        if (const auto exit = waitForResult(history, entry.number))
            return *exit == Exit::TakenBack ? Exit::Done : *exit;
    }
    const model::WantedState wanted = possibleState(choice, history, entry);
    return change(choice, wanted, agreement, open ? std::optional<int>(entry.number) : std::nullopt);
}

} // namespace lanctl::shell
