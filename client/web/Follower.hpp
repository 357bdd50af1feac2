// Follows the server's state for all browsers together: one look at the server serves them all.
#pragma once

#include "model/State.hpp"
#include "wire/Client.hpp"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace lanctl::web
{

/// What is known of the server.
struct Snapshot {
    std::optional<model::ServerState> state; // the last that was read
    std::string peerAddress;
    bool reached = false;
    std::string trouble;                            // why it was not reached
    std::string advice;                             // what to do about that
    std::chrono::system_clock::time_point since;    // since when it is reached, or not
    std::chrono::steady_clock::time_point lookedAt; // the end of the last look
};

class Follower
{
  public:
    explicit Follower(wire::ConnectionOptions options);
    ~Follower();
    Follower(const Follower&) = delete;
    Follower& operator=(const Follower&) = delete;

    /// What is known: at most two seconds old if the server answers that fast. As long as somebody asks, the
    /// server is looked at every two seconds.
    Snapshot latest();

    /// The same, looked at after this call began.
    Snapshot fresh();

    /// The server has just been changed: earlier looks are out of date.
    void noteChange();

  private:
    void run();
    void look();
    Snapshot waitFor(std::chrono::steady_clock::time_point notBefore, std::chrono::milliseconds longest);

    wire::ConnectionOptions m_options;
    std::optional<wire::Client> m_client;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    Snapshot m_snapshot;
    std::chrono::steady_clock::time_point m_wantedAfter; // a look that begins later is wanted
    std::chrono::steady_clock::time_point m_changedAt;
    bool m_ends = false;
    std::thread m_thread;
};

} // namespace lanctl::web
