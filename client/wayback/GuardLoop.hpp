// What the guard of a change does: it counts down, and takes the change back unless somebody confirms it in
// time.
#pragma once

#include "wayback/History.hpp"
#include "wayback/TakeBack.hpp"

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace lanctl::wayback
{

using std::chrono::milliseconds;

/// What other processes ask of the guard: empty files in the history's folder, which a full disk has room
/// for.
namespace requests
{
constexpr const char* confirm = "confirm";
constexpr const char* takeBackNow = "take-back";
constexpr const char* abandon = "abandon";
} // namespace requests

/// Where the change is, as others see it. A file of the history's folder; a disk without room for it stops
/// nothing.
struct Progress {
    enum class Phase { Changing, Waiting, TakingBack, Ended };

    int number = 0;
    Phase phase = Phase::Changing;
    milliseconds until{}; // since boot: the countdown's end, or the next try
    int attempts = 0;
    std::string trouble;           // of the last try
    std::vector<std::string> left; // "lan domain is a.example, not none": what was not taken back
};

void writeProgress(const Folder& folder, const Progress& progress);
/// What the file says, unless it is of another change or of another run of the machine.
std::optional<Progress> readProgress(const Folder& folder, int number);

/// Removes requests that were meant for an earlier change.
void forgetRequests(const Folder& folder);

/// Time and the server as the loop sees them.
struct Surroundings {
    std::function<milliseconds()> now; // since boot
    std::function<void(milliseconds)> pause;
    std::function<Attempt()> takeBack;
};

class GuardLoop
{
  public:
    GuardLoop(const History& history, int number, milliseconds countdown, Surroundings surroundings);

    /// Starts the countdown. Others see it when this returns.
    void start();

    /// Ends with the entry's result set.
    void run();

  private:
    bool confirmedInTime();
    void takeBackUntilDone();
    bool abandonedWithin(milliseconds pause);
    void end(Result result);
    void note(const Attempt& attempt);

    const History& m_history;
    const Folder& m_folder;
    milliseconds m_countdown;
    Surroundings m_surroundings;
    Progress m_progress;
};

} // namespace lanctl::wayback
