// A change with its way back: what happens around apply::carryOut.
#pragma once

#include "apply/Apply.hpp"
#include "model/State.hpp"
#include "plan/Plan.hpp"
#include "wayback/Guard.hpp"
#include "wayback/History.hpp"
#include "wayback/Lock.hpp"
#include "wire/HttpConnection.hpp"

#include <chrono>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace lanctl::wayback
{

/// Another change of this server is being made, waits for its confirmation, was cut off, or is on its way
/// back.
class AnotherChange : public std::runtime_error
{
  public:
    using std::runtime_error::runtime_error;
};

/// How a change is kept.
struct Keeping {
    std::string server;                 // as users call it
    std::chrono::seconds countdown{};   // 0: no confirmation is asked for
    std::vector<std::string> revertVia; // further URLs of the server
    std::optional<int> endsEntry;       // the open entry that this change brings to its end: a rollback
};

/// What must be known about the change before it is sent.
struct Intention {
    const model::ServerState& before;
    const plan::Plan& plan;
    const wire::ConnectionOptions& connection;
    std::string peerAddress;
};

class RevocableChange
{
  public:
    /// Keeps the former state and starts the guard, if there is to be a countdown. Throws AnotherChange,
    /// FolderError and std::system_error; nothing may be sent then.
    RevocableChange(const History& history, const Keeping& keeping, const Intention& intention);

    int number() const { return m_number; }

    /// Nothing was sent.
    void nothingSent();

    /// The change was carried out with that outcome. Returns whether there is a guard. If there is, the
    /// countdown runs now, or the guard takes an incomplete change back without waiting. The guard alone has
    /// the lock then.
    bool carriedOut(const apply::Outcome& outcome);

  private:
    void begin(const Keeping& keeping, const Intention& intention);

    History m_history;
    std::optional<Lock> m_lock;
    std::optional<int> m_endsEntry;
    int m_number = 0;
    std::optional<Guard> m_guard;
};

} // namespace lanctl::wayback
