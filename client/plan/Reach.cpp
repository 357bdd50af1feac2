#include "plan/Reach.hpp"

#include "model/Names.hpp"
#include "plan/Rules.hpp"

#include <algorithm>
#include <optional>

namespace lanctl::plan
{

namespace
{

using Fate = Reach::Fate;

bool isLoopback(const std::string& address)
{
    return address.rfind("127.", 0) == 0 || address == "::1" || address == "localhost";
}

/// What the plan sends to one interface.
class Sent
{
  public:
    Sent(const Plan& plan, std::string object) : m_plan(plan), m_object(std::move(object)) {}

    const std::string* value(const std::string& property) const
    {
        for (const Request& request : m_plan.requests) {
            if (request.object != m_object)
                continue;
            const wire::Property* found = request.modification.instance.find(property);
            if (found != nullptr && found->value)
                return &*found->value;
        }
        return nullptr;
    }

    bool switchesDhcpOn() const
    {
        const std::string* value = this->value("isDhcpEnabled");
        return value != nullptr && *value == "true";
    }

  private:
    const Plan& m_plan;
    std::string m_object;
};

bool restartsAnything(const Plan& plan)
{
    const Impact impact = plan.impact();
    return impact.interfaceRestarts > 0 || impact.voiceMessagingStops > 0;
}

bool movesRoute(const Plan& plan)
{
    return plan.impact().defaultRouteMoves > 0;
}

/// What happens to the interface itself that has the address.
Reach ofInterface(const Plan& plan, const model::Endpoint& now)
{
    const Sent sent(plan, now.name);
    if (sent.switchesDhcpOn())
        return {Fate::Uncertain, "", now.name + " gets whatever address the DHCP server gives."};
    if (const std::string* address = sent.value("IPAddress"))
        return {Fate::Moved, *address, "The server moves from " + now.ipAddress + " to " + *address + "."};
    if (const std::string* mask = sent.value("SubnetMask"))
        return {Fate::Uncertain, now.ipAddress,
                now.name + " restarts, and with the mask " + *mask +
                    " it may not reach this machine any more."};
    return {Fate::Kept, now.ipAddress, ""};
}

/// Other networks are reached through eth1: its restart takes the default route away, for its time at least.
Reach behindCustomerLan(const Plan& plan, const model::ServerState& current, const Reach& own)
{
    const model::Endpoint* customer = current.endpoint(model::customerLan);
    const Sent sent(plan, model::customerLan);
    const std::string* address = sent.value("IPAddress");
    const std::string* mask = sent.value("SubnetMask");
    if (customer == nullptr || (address == nullptr && mask == nullptr))
        return own;
    const bool routeComesBack =
        reaches(address != nullptr ? *address : customer->ipAddress,
                mask != nullptr ? *mask : customer->subnetMask, customer->defaultGateway);
    return {
        routeComesBack ? Fate::Interrupted : Fate::Uncertain, own.address,
        "eth1 restarts with the default route; from another network the server is not reached meanwhile."};
}

} // namespace

Reach reach(const Plan& plan, const model::ServerState& current, const std::string& reachedAt)
{
    if (isLoopback(reachedAt))
        return {Fate::Kept, reachedAt, ""};
    const auto& endpoints = current.endpoints;
    const auto found = std::find_if(endpoints.begin(), endpoints.end(), [&](const model::Endpoint& endpoint) {
        return endpoint.ipAddress == reachedAt;
    });
    if (found == endpoints.end()) {
        if (restartsAnything(plan) || movesRoute(plan))
            return {Fate::Uncertain, reachedAt,
                    "None of the server's interfaces has the address " + reachedAt +
                        ", so nobody can tell whether the change cuts the connection."};
        return {Fate::Kept, reachedAt, ""};
    }
    Reach own = ofInterface(plan, *found);
    if (own.fate != Fate::Kept)
        return own;
    if (movesRoute(plan))
        return {Fate::Uncertain, reachedAt,
                "The default route moves; from another network the server may not be reached any more."};
    return found->name == model::customerLan ? own : behindCustomerLan(plan, current, own);
}

} // namespace lanctl::plan
