#include "plan/Draft.hpp"
#include "plan/Objects.hpp"
#include "plan/Rules.hpp"

namespace lanctl::plan
{

namespace
{

using model::Endpoint;
using model::WantedEndpoint;

/// The server neither switches this one to DHCP nor tells the DHCP service of it.
constexpr std::string_view internalLan = "eth0";
/// The default route leaves through this one, and its gateway alone can be read.
constexpr std::string_view customerLan = "eth1";

const model::Key& keyOf(std::string_view name)
{
    return *model::findKey(model::Kind::Endpoint, name);
}

/// Makes the plan of one interface.
class EndpointDraft
{
  public:
    EndpointDraft(const model::ServerState& current, const Endpoint& now, const WantedEndpoint& wanted)
        : current_(current), now_(now), wanted_(wanted), then_(changed(now, wanted)),
          draft_(now.name, model::classes::endpoint,
                 {{"SystemCreationClassName", now.systemCreationClassName},
                  {"SystemName", now.systemName},
                  {"CreationClassName", now.creationClassName},
                  {"Name", now.name}})
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
        return draft_.sends("IPAddress") || draft_.sends("SubnetMask") || draft_.sends("DefaultGateway");
    }
    int dhcpServiceNotice() const { return now_.name == internalLan ? 0 : 1; }

    const model::ServerState& current_;
    const Endpoint& now_;
    const WantedEndpoint& wanted_;
    const Endpoint then_;
    Draft draft_;
};

Plan EndpointDraft::make()
{
    // The server applies MTU and DHCP as they come, then address, mask and gateway. The MTU is first because
    // the driver may refuse it, and then nothing else has happened yet.
    compareMtu();
    compareDhcp();
    compareAddresses();
    if (!draft_.sendsNothing())
        judge();
    noteOrder();
    noteDhcp();
    noteAddress();
    noteGateway();
    return draft_.finish(now_.warnings);
}

void EndpointDraft::compareMtu()
{
    if (then_.mtu == now_.mtu)
        return;
    const model::Key& key = keyOf("mtu");
    draft_.change(key, std::to_string(now_.mtu), std::to_string(then_.mtu));
    draft_.send(key.property, key.type, std::to_string(then_.mtu));
}

void EndpointDraft::compareDhcp()
{
    const bool to = wanted_.dhcp.value_or(now_.dhcp);
    if (to == now_.dhcp)
        return;
    const model::Key& key = keyOf("dhcp");
    if (now_.name == internalLan) {
        draft_.changeWithoutEffect(key, switchText(now_.dhcp), switchText(to),
                                   "The server never switches DHCP on eth0.");
        return;
    }
    draft_.change(key, switchText(now_.dhcp), switchText(to));
    draft_.send(key.property, key.type, booleanValue(to));
    Impact cost;
    cost.dhcpServiceNotices = 1;
    cost.voiceMessagingStops = to ? 1 : 0;
    draft_.cost(cost);
}

void EndpointDraft::compareText(std::string_view keyName, const std::string& from,
                                const std::optional<std::string>& to, Impact cost)
{
    if (to.value_or(from) == from)
        return;
    const model::Key& key = keyOf(keyName);
    if (then_.dhcp) {
        draft_.changeWithoutEffect(
            key, from, *to, "The server ignores this while the interface takes its address from DHCP.");
        return;
    }
    draft_.change(key, from, *to);
    draft_.send(key.property, key.type, *to);
    cost.dhcpServiceNotices = dhcpServiceNotice();
    draft_.cost(cost);
}

void EndpointDraft::compareAddresses()
{
    Impact restart;
    restart.interfaceRestarts = 1;
    restart.voiceMessagingRestarts = 1;
    Impact address = restart;
    address.elementManagementNotices = 1;
    address.hostsTableRewrites = now_.name == customerLan ? 1 : 0;
    Impact gateway;
    gateway.hostsTableRewrites = 1;
    gateway.defaultRouteMoves = 1;
    compareText("address", now_.ipAddress, wanted_.ipAddress, address);
    compareText("mask", now_.subnetMask, wanted_.subnetMask, restart);
    compareText("gateway", now_.defaultGateway, wanted_.defaultGateway, gateway);
}

void EndpointDraft::judge()
{
    if (draft_.sends("MaxDataSize"))
        if (auto found = judgeMtu(then_.mtu))
            draft_.refuse(*found);
    if (draft_.sends("isDhcpEnabled") && then_.dhcp)
        if (auto found = judgeDhcp(now_))
            draft_.refuse(*found);
    if (then_.dhcp)
        return;
    if (auto found = judgeAddresses(then_, current_)) {
        if (!sendsAddresses())
            found->why = "The server checks the address with every change of the interface. " + found->why;
        draft_.refuse(*found);
    }
}

void EndpointDraft::noteOrder()
{
    const bool atOnce = draft_.sends("MaxDataSize") || draft_.sends("isDhcpEnabled");
    if (atOnce && sendsAddresses())
        draft_.note("",
                    "The server changes MTU and DHCP first and keeps them even if it then refuses the rest.");
    if (draft_.sends("IPAddress") && draft_.sends("SubnetMask"))
        draft_.note("", "Address and mask are applied one after the other, each with a restart.");
}

void EndpointDraft::noteDhcp()
{
    if (!draft_.sends("isDhcpEnabled"))
        return;
    if (then_.dhcp)
        draft_.note("dhcp",
                    "The address will be the one that the DHCP server gives. Voice messaging stays stopped "
                    "until a script in the server's background has asked for it.");
    else
        draft_.note("dhcp",
                    "The interface keeps the address that it has now, but for what is changed beside.");
    if (!then_.dhcp && now_.defaultGateway.empty() && !draft_.sends("DefaultGateway"))
        draft_.note(
            "dhcp",
            "The server stores this interface's gateway as its default gateway. There is none, so the "
            "stored one is deleted; name the gateway in the same change to keep it.");
}

void EndpointDraft::noteAddress()
{
    if (!draft_.sends("IPAddress") && !draft_.sends("SubnetMask"))
        return;
    if (isBroadcast(then_.ipAddress, then_.subnetMask))
        draft_.note("address",
                    "This is the broadcast address of its network. The server takes it all the same.");
}

void EndpointDraft::noteGateway()
{
    const bool sent = draft_.sends("DefaultGateway");
    if (sent && now_.name != customerLan)
        draft_.note("gateway",
                    "The server has one default gateway. It is reached through eth1 and read there; here it "
                    "always reads empty. Set it on eth1.");
    if (sent && then_.defaultGateway.empty())
        draft_.note("gateway", "Without a gateway the server reaches its own networks only.");
    if (now_.name == customerLan && sendsAddresses() && !then_.defaultGateway.empty() &&
        !reaches(then_.ipAddress, then_.subnetMask, then_.defaultGateway))
        draft_.note("gateway", "The gateway " + then_.defaultGateway + " is outside of " +
                                   networkText(then_.ipAddress, then_.subnetMask) +
                                   ". The server takes that, and may be left without a default route.");
}

Plan unknown(const std::string& name)
{
    Draft draft(name, model::classes::endpoint, {});
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
