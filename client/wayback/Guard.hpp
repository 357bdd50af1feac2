// The guard of a change: a process of its own, which neither a lost terminal nor a killed shell takes along.
#pragma once

#include "model/Wanted.hpp"
#include "wayback/History.hpp"
#include "wayback/Lock.hpp"
#include "wire/HttpConnection.hpp"

#include <chrono>
#include <string>

namespace lanctl::wayback
{

/// All that the guard needs to take the change back.
struct Task {
    History history;
    int number = 0;
    wire::ConnectionOptions connection;
    std::vector<Way> ways;
    std::vector<std::string> hardware;
    model::WantedState former;
    std::chrono::seconds countdown{};
};

/// The process that makes the change holds this.
class Guard
{
  public:
    /// Starts the guard before anything is sent. It holds the lock from now on, and the countdown starts with
    /// `changed` or with the end of this process. Throws std::system_error.
    static Guard start(const Task& task, const Lock& lock);

    Guard(Guard&& other) noexcept;
    Guard& operator=(Guard&& other) = delete;
    Guard(const Guard&) = delete;
    Guard& operator=(const Guard&) = delete;
    ~Guard();

    /// The change is made, or as much of it as was possible. The countdown can be seen when this returns.
    void changed();

    /// Nothing has been sent: the guard ends, and the entry's result is for the caller to set.
    void dismiss();

  private:
    explicit Guard(int channel) : m_channel(channel) {}
    void tell(char word) const;

    int m_channel;
};

} // namespace lanctl::wayback
