// What the server has now, as a wanted state that parseWanted reads.
#pragma once

#include "model/Names.hpp"
#include "model/State.hpp"

#include <string>
#include <vector>

namespace lanctl::model
{

struct ExportedValue {
    const Key* key;
    std::string text; // as users write it
};

struct ExportedObject {
    std::string object;
    std::vector<ExportedValue> values;
};

struct Exported {
    std::vector<ExportedObject> endpoints;
    std::vector<ExportedObject> others; // "lan" and "marking"
};

/// An interface under DHCP comes without its addresses: they are the lease's. eth1, on which the gateway is
/// read, always has one, even an empty one.
Exported exported(const ServerState& state);

/// The same as a file, in YAML.
std::string exportedText(const ServerState& state);

} // namespace lanctl::model
