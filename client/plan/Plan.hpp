// The plan: what a change does, what it costs and why it is refused, known before anything is sent.
#pragma once

#include "model/State.hpp"
#include "model/Wanted.hpp"
#include "wire/Cim.hpp"

#include <string>
#include <vector>

namespace lanctl::plan
{

/// One value that is not as wanted. Values are written as a user reads and writes them ("10.0.0.6", "on",
/// "EF").
struct Change {
    std::string object;   // "eth1", "lan", "marking"
    std::string key;      // "address", "mask", "mtu", "voice"
    std::string property; // its CIM property
    std::string from;
    std::string to;
    bool sent =
        true; // false: the server would take it without any effect, so it is not sent; a note says why
};

/// What the server does besides the change, counted.
struct Impact {
    int interfaceRestarts = 0;
    int voiceMessagingRestarts = 0;
    int voiceMessagingStops = 0; // stopped at once; a script in the server's background starts it again
    int dhcpServiceNotices = 0;
    int elementManagementNotices = 0;
    // These interrupt nothing.
    int hostsTableRewrites = 0;
    int resolverFileRewrites = 0;
    int defaultRouteMoves = 0;

    Impact& operator+=(const Impact& other);
    bool none() const;
};

/// Why a wanted value is refused. Text and identifier are the server's own where the server would refuse it.
struct Refusal {
    std::string object;
    std::string key;
    std::string text;
    std::string identifier; // "LAN_ERROR_domainNameBadFormat", or empty
    bool byServer = true;   // false: a rule of this client alone
    std::string why;        // a sentence about this very value
};

/// Something worth knowing before one agrees: no effect, or an effect that nobody expects.
struct Note {
    std::string object;
    std::string key; // may be empty
    std::string text;
};

/// One request and its share of the impact.
struct Request {
    std::string object;
    wire::Modification modification;
    Impact impact;
};

struct Plan {
    std::vector<Change> changes;
    std::vector<Refusal> refusals;
    std::vector<Note> notes;
    std::vector<std::string>
        warnings; // the server's own (ImpactWarning) for the properties that are sent, each once
    std::vector<Request> requests; // in the order in which they are sent; empty when anything is refused

    Impact impact() const; // of all requests
    bool asWanted() const { return changes.empty() && refusals.empty(); }
};

/// Compares the server's state with the wanted one. A second plan, from the state that is read back, tells
/// what the server did not take: its changes are what still differs. Interfaces are changed in an order in
/// which their networks do not overlap on the way; the one with the address `reachedAt` goes last where that
/// is possible.
Plan plan(const model::ServerState& current, const model::WantedState& wanted,
          const std::string& reachedAt = "");

/// The same with the requests even where something is refused: what the server would be sent if nobody asked
/// this client.
Plan uncheckedPlan(const model::ServerState& current, const model::WantedState& wanted,
                   const std::string& reachedAt = "");

} // namespace lanctl::plan
