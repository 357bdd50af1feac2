// Taking a change back: one try.
#pragma once

#include "model/State.hpp"
#include "model/Wanted.hpp"
#include "plan/Plan.hpp"
#include "wayback/History.hpp"
#include "wire/HttpConnection.hpp"

#include <string>
#include <vector>

namespace lanctl::wayback
{

struct Attempt {
    /// Whether the server has been reached and is as it was before, but for `impossible`.
    bool done = false;
    std::string trouble;                   // what kept it from being done
    std::vector<plan::Refusal> impossible; // values that the server once had and does not take
    std::vector<plan::Change> remaining;   // what was sent and still differs
};

/// Looks for the server on each of the ways, knows it again by its MAC addresses, sends what differs from the
/// former state, and reads it back. Throws none of lanctl's exceptions: whatever fails is in the result.
Attempt takeBack(const wire::ConnectionOptions& connection, const std::vector<Way>& ways,
                 const std::vector<std::string>& hardware, const model::WantedState& former);

/// What of a wanted state the server takes, and what it does not.
struct Possible {
    model::WantedState wanted;
    plan::Plan plan; // without refusals
    std::vector<plan::Refusal> impossible;
};
Possible possible(const model::ServerState& state, model::WantedState wanted, const std::string& peerAddress);

/// Only the named objects of that state.
model::WantedState only(model::WantedState wanted, const std::vector<std::string>& objects);

/// The server's MAC addresses, by which it is known again.
std::vector<std::string> hardwareOf(const model::ServerState& state);

} // namespace lanctl::wayback
