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

/// An interface under DHCP is without the addresses that it was lent. The gateway is named where it is read,
/// even when there is none.
Exported exported(const ServerState& state);

/// The same as a file, in YAML.
std::string exportedText(const ServerState& state);

} // namespace lanctl::model
