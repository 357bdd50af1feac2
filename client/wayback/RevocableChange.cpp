#include "wayback/RevocableChange.hpp"

#include "model/Export.hpp"
#include "model/WantedText.hpp"
#include "plan/Reach.hpp"
#include "wayback/GuardLoop.hpp"
#include "wayback/TakeBack.hpp"

#include <algorithm>

namespace lanctl::wayback
{

namespace
{

Lock lockOf(const History& history)
{
    if (auto lock = Lock::take(history.folder()))
        return std::move(*lock);
    throw AnotherChange(
        "another change of this server is under way; `lanctl status` shows it, `lanctl confirm` keeps it, "
        "`lanctl rollback` takes it back");
}

void refuseSecondChange(const History& history, const Keeping& keeping)
{
    const auto open = history.openEntry();
    if (open && keeping.endsEntry != open->number)
        throw AnotherChange(
            "change " + std::to_string(open->number) +
            " of this server was cut off; `lanctl rollback` takes it back, `lanctl confirm` keeps "
            "what there is of it");
}

std::string orNone(const std::string& value)
{
    return value.empty() ? "none" : value;
}

/// The address that the change moves the server to, or "".
std::string newAddress(const Intention& intention)
{
    const plan::Reach reach = plan::reach(intention.plan, intention.before, intention.peerAddress);
    return reach.fate == plan::Reach::Fate::Moved ? reach.address : "";
}

/// Where the server can be after the change, the likeliest place first.
std::vector<Way> waysTo(const std::string& moved, const Intention& intention, const Keeping& keeping)
{
    const std::string url = intention.connection.server.url();
    std::vector<Way> ways;
    if (!moved.empty())
        ways.push_back({url, moved});
    ways.push_back({url, intention.peerAddress});
    for (const std::string& via : keeping.revertVia)
        ways.push_back({via, ""});
    return ways;
}

Entry entryOf(const Keeping& keeping, const Intention& intention)
{
    Entry entry;
    entry.server = keeping.server;
    for (const plan::Change& change : intention.plan.changes) {
        entry.plan.push_back(change.object + " " + change.key + ": " + orNone(change.from) + " -> " +
                             orNone(change.to));
        if (std::find(entry.objects.begin(), entry.objects.end(), change.object) == entry.objects.end())
            entry.objects.push_back(change.object);
    }
    entry.hardware = hardwareOf(intention.before);
    const std::string moved = newAddress(intention);
    entry.ways = waysTo(moved, intention, keeping);
    wire::ServerAddress address = intention.connection.server;
    const bool isCalledByAddress = keeping.server == address.hostAndPort();
    address.host = moved;
    if (isCalledByAddress && !moved.empty())
        entry.movesTo = address.hostAndPort();
    entry.confirmSeconds = static_cast<int>(keeping.countdown.count());
    return entry;
}

} // namespace

RevocableChange::RevocableChange(const History& history, const Keeping& keeping, const Intention& intention)
    : m_history(history), m_lock(lockOf(history)), m_endsEntry(keeping.endsEntry)
{
    refuseSecondChange(m_history, keeping);
    begin(keeping, intention);
}

void RevocableChange::begin(const Keeping& keeping, const Intention& intention)
{
    forgetRequests(m_history.folder());
    const std::string former = model::exportedText(intention.before);
    const Entry entry = entryOf(keeping, intention);
    m_number = m_history.begin(entry, former);
    if (keeping.countdown.count() == 0)
        return;
    wire::ConnectionOptions connection = intention.connection;
    connection.whileWaiting = nullptr;
    const Task task{m_history,        m_number,       connection,
                    entry.ways,       entry.hardware, only(model::parseWanted(former), entry.objects),
                    keeping.countdown};
    try {
        m_guard.emplace(Guard::start(task, *m_lock));
    } catch (...) {
        m_history.end(m_number, Result::NotAsWanted);
        throw;
    }
}

void RevocableChange::nothingSent()
{
    if (m_guard)
        m_guard->dismiss();
    m_history.end(m_number, Result::NotAsWanted);
}

bool RevocableChange::carriedOut(const apply::Outcome& outcome)
{
    if (outcome.done() && m_endsEntry)
        m_history.end(*m_endsEntry, Result::TakenBack);
    if (!m_guard) {
        m_history.end(m_number, outcome.done() ? Result::Done : Result::NotAsWanted);
        return false;
    }
    const bool reached = !outcome.unread && !outcome.stopped;
    if (!outcome.done() && reached)
        m_history.folder().mark(requests::takeBackNow);
    m_guard->changed();
    m_lock.reset();
    return true;
}

} // namespace lanctl::wayback
