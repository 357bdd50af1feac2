// The state of the server as it was read: its endpoints, its LAN settings and its DSCP marking.
#pragma once

#include "model/Marking.hpp"

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace lanctl::model
{

/// The server's own warnings about changing a property: the texts of its ImpactWarning qualifiers, by CIM
/// property.
using ImpactWarnings = std::map<std::string, std::string>;

/// One interface. Addresses are texts because that is what the server keeps; they may be empty or unusable.
struct Endpoint {
    std::string systemCreationClassName;
    std::string systemName;
    std::string creationClassName;
    std::string name; // eth0, eth1, eth2
    std::string description;
    std::string macAddress;
    std::int32_t mtu = 0;
    std::string ipAddress;
    std::string subnetMask;
    std::string defaultGateway;
    bool dhcp = false;
    std::optional<std::uint16_t> operationalStatus; // 1 running with a link, 2 not
    std::optional<std::uint16_t> enabledState;      // 1 up, 2 down
    std::uint64_t speed = 0;                        // bit/s
    ImpactWarnings warnings;
};

struct Setting {
    std::string instanceId;
    std::string domainName;
    std::string primaryDns;
    std::string secondaryDns;
    bool icmpFilter = false;
    bool arpFilter = false;
    bool broadcastFilter = false;
    bool conflictWatch = false;
    bool routerPresent = false;
    ImpactWarnings warnings;
};

struct Marking {
    std::string systemCreationClassName;
    std::string systemName;
    std::string creationClassName;
    std::string name;
    bool enabled = false;
    std::array<Mark, 4> marks{}; // by Flow
    ImpactWarnings warnings;

    Mark& mark(Flow flow) { return marks.at(static_cast<std::size_t>(flow)); }
    const Mark& mark(Flow flow) const { return marks.at(static_cast<std::size_t>(flow)); }
};

struct ServerState {
    std::vector<Endpoint> endpoints;
    Setting setting;
    Marking marking;

    /// The endpoint of that interface name, or nullptr.
    const Endpoint* endpoint(const std::string& name) const;
};

} // namespace lanctl::model
