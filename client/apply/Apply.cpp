#include "apply/Apply.hpp"

#include "apply/Reading.hpp"

#include <algorithm>
#include <chrono>
#include <thread>

namespace lanctl::apply
{

namespace
{

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// When the change takes the connection's own address away, the answer cannot arrive.
constexpr milliseconds patienceWhenMoving{5000};
constexpr milliseconds patienceOfOneRead{3000};
constexpr milliseconds pauseBetweenReads{200};

/// One plan being carried out.
class Run
{
  public:
    Run(wire::Client& client, const model::ServerState& before, const model::WantedState& wanted,
        const Observer& observer, milliseconds timeLimit)
        : m_client(client), m_before(before), m_wanted(wanted), m_observer(observer), m_timeLimit(timeLimit),
          m_peerAddress(client.connection().peerAddress())
    {
    }

    Outcome carryOut(const plan::Plan& plan);

  private:
    bool send(const plan::Request& request);
    bool lost(const plan::Request& request, const wire::Failure& failure);
    void readBack();
    void readBackAfterLoss(const std::string& newAddress);
    bool tryToRead();
    bool isAsWanted(const std::string& object) const;
    void follow(const std::string& address);

    wire::Client& m_client;
    const model::ServerState& m_before;
    const model::WantedState& m_wanted;
    const Observer& m_observer;
    milliseconds m_timeLimit;
    std::string m_peerAddress;
    Outcome m_outcome;
    bool m_changed = false; // the server has seen a change
    bool m_isRead = false;  // the state has been read since the last change
};

Outcome Run::carryOut(const plan::Plan& plan)
{
    for (const auto& request : plan.requests)
        if (!send(request))
            break;
    if (!m_isRead)
        readBack();
    if (!m_outcome.unread)
        m_outcome.remaining = plan::plan(m_outcome.after, m_wanted).changes;
    return std::move(m_outcome);
}

/// Returns whether the next request may follow.
bool Run::send(const plan::Request& request)
{
    if (m_observer.sending)
        m_observer.sending(request);
    m_isRead = false;
    const bool moves = !movedTo(request, m_before, m_peerAddress).empty();
    m_client.connection().setTimeLimit(moves ? std::min(m_timeLimit, patienceWhenMoving) : m_timeLimit);
    try {
        m_client.modifyInstance(request.modification);
        m_changed = true;
        return true;
    } catch (const wire::CimError& e) {
        m_outcome.refused = Outcome::Refused{request.object, e};
        m_changed = true; // a part of it may be in force
        return false;
    } catch (const wire::Failure& e) {
        return lost(request, e);
    }
}

bool Run::lost(const plan::Request& request, const wire::Failure& failure)
{
    if (failure.kind() == wire::Failure::Kind::Cancelled)
        throw failure;
    if (!failure.requestSent()) {
        if (!m_changed)
            throw failure; // nothing has been changed
        m_outcome.stopped = failure;
        return false;
    }
    m_changed = true;
    m_outcome.lost.push_back({request.object, failure});
    readBackAfterLoss(movedTo(request, m_before, m_peerAddress));
    return m_isRead && !m_outcome.unread && isAsWanted(request.object);
}

void Run::readBack()
{
    if (m_observer.readingBack)
        m_observer.readingBack();
    m_client.connection().setTimeLimit(m_timeLimit);
    if (!tryToRead())
        readBackAfterLoss({});
}

/// Looks for the server under its new address, if it has one, and under the one that it had, until the time
/// is up.
void Run::readBackAfterLoss(const std::string& newAddress)
{
    if (m_observer.readingBack)
        m_observer.readingBack();
    const auto end = steady_clock::now() + m_timeLimit;
    m_client.connection().setTimeLimit(std::min(m_timeLimit, patienceOfOneRead));
    do {
        if (!newAddress.empty()) {
            follow(newAddress);
            if (tryToRead()) {
                m_outcome.followedTo = newAddress;
                return;
            }
            m_client.connection().follow(m_peerAddress);
        }
        if (tryToRead())
            return;
        std::this_thread::sleep_for(pauseBetweenReads);
    } while (steady_clock::now() < end);
}

bool Run::tryToRead()
{
    m_isRead = true;
    try {
        m_outcome.after = readState(m_client);
        m_outcome.unread.reset();
        return true;
    } catch (const wire::CimError& e) {
        m_outcome.unread =
            wire::Failure(wire::Failure::Kind::NoCimAnswer, std::string("The server answers: ") + e.what());
        return true; // it is there, and another try brings the same answer
    } catch (const wire::Failure& e) {
        if (e.kind() == wire::Failure::Kind::Cancelled)
            throw;
        m_outcome.unread = e;
        return false;
    }
}

bool Run::isAsWanted(const std::string& object) const
{
    const auto remaining = plan::plan(m_outcome.after, m_wanted).changes;
    return std::none_of(remaining.begin(), remaining.end(),
                        [&](const plan::Change& change) { return change.object == object; });
}

void Run::follow(const std::string& address)
{
    if (m_observer.following)
        m_observer.following(address);
    m_client.connection().follow(address);
}

} // namespace

Outcome carryOut(wire::Client& client, const model::ServerState& before, const model::WantedState& wanted,
                 const plan::Plan& plan, const Observer& observer, milliseconds timeLimit)
{
    return Run(client, before, wanted, observer, timeLimit).carryOut(plan);
}

std::string movedTo(const plan::Request& request, const model::ServerState& before,
                    const std::string& peerAddress)
{
    const model::Endpoint* endpoint = before.endpoint(request.object);
    const wire::Property* address = request.modification.instance.find("IPAddress");
    if (endpoint == nullptr || endpoint->ipAddress != peerAddress || address == nullptr || !address->value)
        return {};
    return *address->value == peerAddress ? "" : *address->value;
}

} // namespace lanctl::apply
