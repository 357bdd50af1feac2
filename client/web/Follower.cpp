#include "web/Follower.hpp"

#include "apply/Reading.hpp"
#include "wire/Failure.hpp"

#include <algorithm>

namespace lanctl::web
{

namespace
{

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr milliseconds oldest{1900}; // the page asks every two seconds
// A browser is answered with what is known rather than kept waiting for a server that does not answer.
constexpr milliseconds patience{1000};
constexpr milliseconds patienceForFresh{8000};
constexpr milliseconds timeLimitOfALook{5000};

} // namespace

Follower::Follower(wire::ConnectionOptions options) : m_options(std::move(options))
{
    m_options.timeLimit = std::min(m_options.timeLimit, timeLimitOfALook);
    m_snapshot.since = std::chrono::system_clock::now();
    m_snapshot.trouble = "The server has not answered yet.";
    m_thread = std::thread([this] { run(); });
}

Follower::~Follower()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ends = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

Snapshot Follower::latest()
{
    return waitFor(steady_clock::now() - oldest, patience);
}

Snapshot Follower::fresh()
{
    return waitFor(steady_clock::now(), patienceForFresh);
}

void Follower::noteChange()
{
    const std::lock_guard lock(m_mutex);
    m_changedAt = steady_clock::now();
}

Snapshot Follower::waitFor(steady_clock::time_point notBefore, milliseconds longest)
{
    std::unique_lock lock(m_mutex);
    notBefore = std::max(notBefore, m_changedAt);
    if (m_snapshot.lookedAt >= notBefore)
        return m_snapshot;
    m_wantedAfter = std::max(m_wantedAfter, notBefore);
    m_changed.notify_all();
    m_changed.wait_for(lock, longest, [&] { return m_snapshot.lookedAt >= notBefore || m_ends; });
    return m_snapshot;
}

void Follower::run()
{
    std::unique_lock lock(m_mutex);
    while (!m_ends) {
        m_changed.wait(lock, [this] { return m_ends || m_wantedAfter > m_snapshot.lookedAt; });
        if (m_ends)
            return;
        lock.unlock();
        look();
        lock.lock();
        m_changed.notify_all();
    }
}

/// A look that fails keeps the state that was read last.
void Follower::look()
{
    const auto begun = steady_clock::now();
    Snapshot seen;
    try {
        if (!m_client)
            m_client.emplace(m_options);
        seen.state = apply::readState(*m_client);
        seen.peerAddress = m_client->connection().peerAddress();
        seen.reached = true;
    } catch (const wire::Failure& e) {
        seen.trouble = e.what();
        seen.advice = e.advice();
    } catch (const std::exception& e) {
        seen.trouble = e.what();
    }
    if (!seen.reached)
        m_client.reset();
    const std::lock_guard lock(m_mutex);
    seen.lookedAt = begun;
    seen.since = seen.reached == m_snapshot.reached && m_snapshot.lookedAt != steady_clock::time_point()
                     ? m_snapshot.since
                     : std::chrono::system_clock::now();
    if (!seen.state) {
        seen.state = m_snapshot.state;
        seen.peerAddress = m_snapshot.peerAddress;
    }
    m_snapshot = std::move(seen);
}

} // namespace lanctl::web
