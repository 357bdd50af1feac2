// The server's rules: which values it takes, and its texts where it does not. docs/properties.md and
// docs/messages.md say the same in words.
#pragma once

#include "plan/Plan.hpp"

#include <optional>
#include <string>

namespace lanctl::plan
{

/// The server's checks of an interface's address, mask and gateway, in its order: the first that fails.
/// `then` is the interface as it is to be, `current` has its neighbours and the router card.
std::optional<Refusal> judgeAddresses(const model::Endpoint& then, const model::ServerState& current);

std::optional<Refusal> judgeMtu(int mtu);

/// Also this client's own limit: the resolver of the server's C library ends the whole object manager at a
/// longer name.
std::optional<Refusal> judgeDomain(const std::string& domain);

/// `key` is "dns1" or "dns2"; the empty address removes the server.
std::optional<Refusal> judgeNameServer(const std::string& key, const std::string& address);

/// A rule of this client: with DHCP the server stores the interface's gateway as its own, even a missing one.
std::optional<Refusal> judgeDhcp(const model::Endpoint& now);

Refusal unknownInterface(const std::string& name);

/// Whether the gateway is in the network of that address and mask; true where one of the three is no address.
bool reaches(const std::string& address, const std::string& mask, const std::string& gateway);

/// Whether the address is the broadcast address of its network.
bool isBroadcast(const std::string& address, const std::string& mask);

/// "10.0.0.5/24". A mask that is none is shown as it is.
std::string networkText(const std::string& address, const std::string& mask);

} // namespace lanctl::plan
