// The wanted state: what a user asks for. What is left out is not to be changed.
#pragma once

#include "model/Marking.hpp"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace lanctl::model
{

/// Values are of the right type here and no more: whether the server takes them is for the plan to say.
struct WantedEndpoint {
    std::string name;
    std::optional<std::string> ipAddress;
    std::optional<std::string> subnetMask;
    std::optional<std::string> defaultGateway;
    std::optional<std::int32_t> mtu;
    std::optional<bool> dhcp;
};

struct WantedSetting {
    std::optional<std::string> domainName;
    std::optional<std::string> primaryDns;   // "" removes it
    std::optional<std::string> secondaryDns; // "" removes it
    std::optional<bool> icmpFilter;
    std::optional<bool> arpFilter;
    std::optional<bool> broadcastFilter;
    std::optional<bool> conflictWatch;
};

struct WantedMarking {
    std::optional<bool> enabled;
    std::array<std::optional<Mark>, 4> marks; // by Flow

    std::optional<Mark>& mark(Flow flow) { return marks.at(static_cast<std::size_t>(flow)); }
    const std::optional<Mark>& mark(Flow flow) const { return marks.at(static_cast<std::size_t>(flow)); }
};

struct WantedState {
    std::vector<WantedEndpoint> endpoints; // each name once
    WantedSetting setting;
    WantedMarking marking;
};

} // namespace lanctl::model
