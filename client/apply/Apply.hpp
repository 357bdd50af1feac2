// Carrying out a plan: its requests are sent one after the other, then the state is read back.
#pragma once

#include "model/State.hpp"
#include "model/Wanted.hpp"
#include "plan/Plan.hpp"
#include "wire/Client.hpp"
#include "wire/Failure.hpp"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace lanctl::apply
{

/// Told what carryOut waits for. Every function may be empty.
struct Observer {
    std::function<void(const plan::Request& request)> sending;
    std::function<void()> readingBack;
    std::function<void(const std::string& address)> following;
};

struct Outcome {
    struct Refused {
        std::string object;
        wire::CimError error;
    };
    /// The answer to a change never came; what is read back tells whether it was made.
    struct Lost {
        std::string object;
        wire::Failure failure;
    };

    std::optional<Refused> refused; // the requests behind it were not sent
    std::vector<Lost> lost;
    std::optional<wire::Failure> stopped; // the server was no longer reached; later requests were not sent
    std::optional<wire::Failure> unread;  // the state could not be read back
    std::string followedTo;               // the server's new address, when the change moved it

    model::ServerState after;            // as read back
    std::vector<plan::Change> remaining; // what is not as wanted after all

    bool done() const { return !refused && !stopped && !unread && remaining.empty(); }
};

/// Carries out the plan. What happens is in the outcome. Throws only a wire::Failure before anything was
/// sent, or when the user gives up.
Outcome carryOut(wire::Client& client, const model::ServerState& before, const model::WantedState& wanted,
                 const plan::Plan& plan, const Observer& observer, std::chrono::milliseconds timeLimit);

/// The address that a request moves the connection to, or "" when it does not.
std::string movedTo(const plan::Request& request, const model::ServerState& before,
                    const std::string& peerAddress);

} // namespace lanctl::apply
