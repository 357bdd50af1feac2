#include "model/FromCim.hpp"
#include "model/Names.hpp"
#include "plan/Draft.hpp"
#include "plan/Objects.hpp"
#include "plan/Rules.hpp"

namespace lanctl::plan
{

namespace
{

using model::Endpoint;
using model::WantedEndpoint;

/// The server never switches this interface to DHCP, and tells the DHCP service nothing of it.
constexpr std::string_view internalLan = "eth0";

const model::Key& keyOf(std::string_view name)
{
    return *model::findKey(model::Kind::Endpoint, name);
}

/// Makes the plan of one interface.
class EndpointDraft
{
  public:
    EndpointDraft(const model::ServerState& current, const Endpoint& now, const WantedEndpoint& wanted)
        : m_current(current), m_now(now), m_wanted(wanted), m_then(changed(now, wanted)),
          m_draft(now.name, model::nameOf(now))
    {
    }

    Plan make();

  private:
    void compareMtu();
    void compareDhcp();
    void compareText(std::string_view keyName, const std::string& from, const std::optional<std::string>& to,
                     Impact cost);
    void compareAddresses();
    void judge();
    void noteOrder();
    void noteDhcp();
    void noteAddress();
    void noteGateway();

    bool sendsAddresses() const
    {
        return m_draft.sends("IPAddress") || m_draft.sends("SubnetMask") || m_draft.sends("DefaultGateway");
    }
    int dhcpServiceNotice() const { return m_now.name == internalLan ? 0 : 1; }

    const model::ServerState& m_current;
    const Endpoint& m_now;
    const WantedEndpoint& m_wanted;
    const Endpoint m_then;
    Draft m_draft;
};

Plan EndpointDraft::make()
{
    // The server applies MTU and DHCP as they come, then address, mask and gateway. The MTU is first because
    // the driver may refuse it, and then nothing else has happened yet.
    compareMtu();
    compareDhcp();
    compareAddresses();
    if (!m_draft.sendsNothing())
        judge();
    noteOrder();
    noteDhcp();
    noteAddress();
    noteGateway();
    return m_draft.finish(m_now.warnings);
}

void EndpointDraft::compareMtu()
{
    if (m_then.mtu == m_now.mtu)
        return;
    const model::Key& key = keyOf("mtu");
    m_draft.change(key, std::to_string(m_now.mtu), std::to_string(m_then.mtu));
    m_draft.send(key.property, key.type, std::to_string(m_then.mtu));
}

void EndpointDraft::compareDhcp()
{
    const bool to = m_wanted.dhcp.value_or(m_now.dhcp);
    if (to == m_now.dhcp)
        return;
    const model::Key& key = keyOf("dhcp");
    if (m_now.name == internalLan) {
        m_draft.changeWithoutEffect(key, switchText(m_now.dhcp), switchText(to),
                                    "The server never switches DHCP on eth0.");
        return;
    }
    m_draft.change(key, switchText(m_now.dhcp), switchText(to));
    m_draft.send(key.property, key.type, booleanValue(to));
    Impact cost;
    cost.dhcpServiceNotices = 1;
    cost.voiceMessagingStops = to ? 1 : 0;
    m_draft.cost(cost);
}

void EndpointDraft::compareText(std::string_view keyName, const std::string& from,
                                const std::optional<std::string>& to, Impact cost)
{
    if (to.value_or(from) == from)
        return;
    const model::Key& key = keyOf(keyName);
    if (m_then.dhcp) {
        m_draft.changeWithoutEffect(
            key, from, *to, "The server ignores this while the interface takes its address from DHCP.");
        return;
    }
    m_draft.change(key, from, *to);
    m_draft.send(key.property, key.type, *to);
    cost.dhcpServiceNotices = dhcpServiceNotice();
    m_draft.cost(cost);
}

void EndpointDraft::compareAddresses()
{
    Impact restart;
    restart.interfaceRestarts = 1;
    restart.voiceMessagingRestarts = 1;
    Impact address = restart;
    address.elementManagementNotices = 1;
    address.hostsTableRewrites = m_now.name == model::customerLan ? 1 : 0;
    Impact gateway;
    gateway.hostsTableRewrites = 1;
    gateway.defaultRouteMoves = 1;
    compareText("address", m_now.ipAddress, m_wanted.ipAddress, address);
    compareText("mask", m_now.subnetMask, m_wanted.subnetMask, restart);
    compareText("gateway", m_now.defaultGateway, m_wanted.defaultGateway, gateway);
}

void EndpointDraft::judge()
{
    if (m_draft.sends("MaxDataSize"))
        if (auto found = judgeMtu(m_then.mtu))
            m_draft.refuse(*found);
    if (m_draft.sends("isDhcpEnabled") && m_then.dhcp)
        if (auto found = judgeDhcp(m_now))
            m_draft.refuse(*found);
    if (m_then.dhcp)
        return;
    if (auto found = judgeAddresses(m_then, m_current)) {
        if (!sendsAddresses())
            found->why = "The server checks the address with every change of the interface. " + found->why;
        m_draft.refuse(*found);
    }
}

void EndpointDraft::noteOrder()
{
    const bool atOnce = m_draft.sends("MaxDataSize") || m_draft.sends("isDhcpEnabled");
    if (atOnce && sendsAddresses())
        m_draft.note(
            "", "The server changes MTU and DHCP first and keeps them even if it then refuses the rest.");
    if (m_draft.sends("IPAddress") && m_draft.sends("SubnetMask"))
        m_draft.note("", "Address and mask are applied one after the other, each with a restart.");
}

void EndpointDraft::noteDhcp()
{
    if (!m_draft.sends("isDhcpEnabled"))
        return;
    if (m_then.dhcp)
        m_draft.note("dhcp",
                     "The address will be the one that the DHCP server gives. Voice messaging stays stopped "
                     "until a script in the server's background has asked for it.");
    else
        m_draft.note("dhcp",
                     "The interface keeps the address that it has now, but for what is changed beside.");
    if (!m_then.dhcp && m_now.defaultGateway.empty() && !m_draft.sends("DefaultGateway"))
        m_draft.note(
            "dhcp",
            "The server stores this interface's gateway as its default gateway. There is none, so the "
            "stored one is deleted; name the gateway in the same change to keep it.");
}

void EndpointDraft::noteAddress()
{
    if (!m_draft.sends("IPAddress") && !m_draft.sends("SubnetMask"))
        return;
    if (isBroadcast(m_then.ipAddress, m_then.subnetMask))
        m_draft.note("address",
                     "This is the broadcast address of its network. The server takes it all the same.");
}

void EndpointDraft::noteGateway()
{
    const bool sent = m_draft.sends("DefaultGateway");
    if (sent && m_now.name != model::customerLan)
        m_draft.note("gateway",
                     "The server has one default gateway. It is reached through eth1 and read there; here it "
                     "always reads empty. Set it on eth1.");
    if (sent && m_then.defaultGateway.empty())
        m_draft.note("gateway", "Without a gateway the server reaches its own networks only.");
    if (m_now.name == model::customerLan && sendsAddresses() && !m_then.defaultGateway.empty() &&
        !reaches(m_then.ipAddress, m_then.subnetMask, m_then.defaultGateway))
        m_draft.note("gateway", "The gateway " + m_then.defaultGateway + " is outside of " +
                                    networkText(m_then.ipAddress, m_then.subnetMask) +
                                    ". The server takes that, and may be left without a default route.");
}

Plan unknown(const std::string& name)
{
    Draft draft(name, {});
    draft.refuse(unknownInterface(name));
    return draft.finish({});
}

} // namespace

model::Endpoint changed(model::Endpoint endpoint, const model::WantedEndpoint& wanted)
{
    endpoint.mtu = wanted.mtu.value_or(endpoint.mtu);
    if (endpoint.name != internalLan)
        endpoint.dhcp = wanted.dhcp.value_or(endpoint.dhcp);
    if (endpoint.dhcp)
        return endpoint;
    endpoint.ipAddress = wanted.ipAddress.value_or(endpoint.ipAddress);
    endpoint.subnetMask = wanted.subnetMask.value_or(endpoint.subnetMask);
    endpoint.defaultGateway = wanted.defaultGateway.value_or(endpoint.defaultGateway);
    return endpoint;
}

Plan planEndpoint(const model::ServerState& current, const model::WantedEndpoint& wanted)
{
    const Endpoint* now = current.endpoint(wanted.name);
    return now == nullptr ? unknown(wanted.name) : EndpointDraft(current, *now, wanted).make();
}

} // namespace lanctl::plan
