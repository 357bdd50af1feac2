// What a plan does to the connection by which this client reaches the server.
#pragma once

#include "plan/Plan.hpp"

#include <string>

namespace lanctl::plan
{

struct Reach {
    enum class Fate {
        Kept,
        Interrupted, // the interface restarts and has the same address afterwards
        Moved,       // the server answers under `address` afterwards
        Uncertain,   // nobody can tell beforehand
    };
    Fate fate = Fate::Kept;
    std::string address; // where the server is reached afterwards, as far as that is known
    std::string why;     // a sentence; empty when the connection is kept

    bool couldCut() const { return fate == Fate::Moved || fate == Fate::Uncertain; }
};

/// `reachedAt` is the server's address that the client is connected to, as a dotted text.
Reach reach(const Plan& plan, const model::ServerState& current, const std::string& reachedAt);

} // namespace lanctl::plan
