#include "plan/Plan.hpp"

#include "model/Names.hpp"
#include "plan/Objects.hpp"
#include "plan/Rules.hpp"

#include <algorithm>
#include <utility>

namespace lanctl::plan
{

namespace
{

template <typename T>
void append(std::vector<T>& to, const std::vector<T>& from)
{
    to.insert(to.end(), from.begin(), from.end());
}

void append(Plan& to, const Plan& from)
{
    append(to.changes, from.changes);
    append(to.refusals, from.refusals);
    append(to.notes, from.notes);
    append(to.requests, from.requests);
    for (const std::string& warning : from.warnings)
        if (std::find(to.warnings.begin(), to.warnings.end(), warning) == to.warnings.end())
            to.warnings.push_back(warning);
}

/// Plans the interfaces one after the other, each from the state that those before it leave.
class EndpointSequence
{
  public:
    EndpointSequence(const model::ServerState& current, const model::WantedState& wanted,
                     const std::string& reachedAt)
        : m_state(current), m_waiting(wanted.endpoints)
    {
        std::stable_partition(m_waiting.begin(), m_waiting.end(), [&](const model::WantedEndpoint& endpoint) {
            const model::Endpoint* now = m_state.endpoint(endpoint.name);
            return now == nullptr || now->ipAddress != reachedAt;
        });
    }

    Plan make()
    {
        // What is taken now is not in another one's way later: otherwise the networks would overlap in the
        // end, too.
        while (takeNext()) {
        }
        for (const model::WantedEndpoint& refused : m_waiting)
            append(m_plan, planEndpoint(m_state, refused));
        return std::move(m_plan);
    }

  private:
    bool takeNext()
    {
        for (auto next = m_waiting.begin(); next != m_waiting.end(); ++next) {
            const Plan plan = planEndpoint(m_state, *next);
            if (!plan.refusals.empty())
                continue;
            append(m_plan, plan);
            leave(*next);
            m_waiting.erase(next);
            return true;
        }
        return false;
    }

    /// The state as that change leaves it.
    void leave(const model::WantedEndpoint& wanted)
    {
        model::Endpoint& endpoint = *find(wanted.name);
        endpoint = changed(endpoint, wanted);
        if (endpoint.name == model::customerLan)
            return;
        // The one default route leaves through the customer LAN. Its gateway is read there, whatever
        // interface it was set on.
        const std::string gateway = std::exchange(endpoint.defaultGateway, "");
        model::Endpoint* customer = find(model::customerLan);
        if (customer != nullptr && customer->defaultGateway.empty() &&
            reaches(customer->ipAddress, customer->subnetMask, gateway))
            customer->defaultGateway = gateway;
    }

    model::Endpoint* find(const std::string& name)
    {
        const auto found =
            std::find_if(m_state.endpoints.begin(), m_state.endpoints.end(),
                         [&](const model::Endpoint& endpoint) { return endpoint.name == name; });
        return found == m_state.endpoints.end() ? nullptr : &*found;
    }

    model::ServerState m_state;
    std::vector<model::WantedEndpoint> m_waiting;
    Plan m_plan;
};

} // namespace

Impact& Impact::operator+=(const Impact& other)
{
    interfaceRestarts += other.interfaceRestarts;
    voiceMessagingRestarts += other.voiceMessagingRestarts;
    voiceMessagingStops += other.voiceMessagingStops;
    dhcpServiceNotices += other.dhcpServiceNotices;
    elementManagementNotices += other.elementManagementNotices;
    hostsTableRewrites += other.hostsTableRewrites;
    resolverFileRewrites += other.resolverFileRewrites;
    defaultRouteMoves += other.defaultRouteMoves;
    return *this;
}

bool Impact::none() const
{
    return interfaceRestarts == 0 && voiceMessagingRestarts == 0 && voiceMessagingStops == 0 &&
           dhcpServiceNotices == 0 && elementManagementNotices == 0 && hostsTableRewrites == 0 &&
           resolverFileRewrites == 0 && defaultRouteMoves == 0;
}

Impact Plan::impact() const
{
    Impact sum;
    for (const Request& request : requests)
        sum += request.impact;
    return sum;
}

Plan uncheckedPlan(const model::ServerState& current, const model::WantedState& wanted,
                   const std::string& reachedAt)
{
    // The interfaces last: a change of theirs may cut the connection.
    Plan result;
    append(result, planMarking(current.marking, wanted.marking));
    append(result, planSetting(current.setting, wanted.setting));
    append(result, EndpointSequence(current, wanted, reachedAt).make());
    return result;
}

Plan plan(const model::ServerState& current, const model::WantedState& wanted, const std::string& reachedAt)
{
    Plan result = uncheckedPlan(current, wanted, reachedAt);
    if (!result.refusals.empty()) {
        result.requests.clear();
        result.warnings.clear();
    }
    return result;
}

} // namespace lanctl::plan
