#ifndef KV_TESTS_FAULTS_FAULTMATRIX_HPP
#define KV_TESTS_FAULTS_FAULTMATRIX_HPP

#include "Server.hpp"

#include <functional>
#include <string>

namespace faults
{

using fakes::Lines;

/// An operation of the provider, whose every call to the server is made to fail in turn.
struct Operation {
    std::function<void(Server&)> given; ///< what it needs besides the prepared server
    std::function<void(Server&)> perform;
};

const auto nothingMore = [](Server&) {};

/// Performs the operation once undisturbed, recording its calls, and then, each time on a new server, once
/// for each way in which one of these calls can fail. Gives a line for each failure that a client or the
/// server notices:
///
///     <call> <way> -> <exception, as fakes::failureOf tells it, or "nothing">[, spoils <names from State>]
///
/// "Spoilt" is what then is neither as it was before nor as a success leaves it. No line: the operation
/// succeeds as if nothing had happened, whatever the log says of it.
///
/// Test failures: anything but a CIMException leaves the library; a descriptor, stream or line array is left
/// behind, or the semaphore held; reading the three classes afterwards fails; or the same operation does,
/// without the failure, on the same server.
Lines consequences(const Operation& operation);

/// The lines of consequences() for calls that all have the same outcome.
Lines each(const Lines& calls, const std::string& outcome);

/// The lines of both, in this order.
Lines operator+(const Lines& first, const Lines& second);

} // namespace faults

#endif
