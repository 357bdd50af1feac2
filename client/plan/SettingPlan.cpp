#include "plan/Draft.hpp"
#include "plan/Objects.hpp"
#include "plan/Rules.hpp"

#include <array>

namespace lanctl::plan
{

namespace
{

using model::Setting;
using model::WantedSetting;

const model::Key& keyOf(std::string_view name)
{
    return *model::findKey(model::Kind::Setting, name);
}

/// The two name servers, first and second.
using NameServers = std::array<std::string, 2>;

/// The server keeps name servers as lines and knows them by their place among these. A removed line lets the
/// next one move up; a place that there is not yet gets a line at the end.
NameServers afterChange(const NameServers& now, const NameServers& then,
                        const std::array<std::size_t, 2>& order)
{
    std::vector<std::string> lines;
    for (const std::string& server : now)
        if (!server.empty())
            lines.push_back(server);
    for (const std::size_t place : order) {
        if (then.at(place) == now.at(place))
            continue;
        if (place >= lines.size())
            lines.push_back(then.at(place)); // the empty one, too
        else if (then.at(place).empty())
            lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(place));
        else
            lines.at(place) = then.at(place);
    }
    NameServers read;
    std::size_t count = 0;
    for (const std::string& line : lines)
        if (!line.empty() && count < read.size())
            read.at(count++) = line;
    return read;
}

constexpr std::array<std::size_t, 2> inOrder{0, 1};
constexpr std::array<std::size_t, 2> reversed{1, 0};

/// Makes the plan of the LAN settings.
class SettingDraft
{
  public:
    SettingDraft(const Setting& now, const WantedSetting& wanted)
        : now_(now), wanted_(wanted),
          draft_(std::string(model::lanObject), model::classes::setting, {{"InstanceID", now.instanceId}})
    {
    }

    Plan make();

  private:
    void compareDomain();
    void compareNameServers();
    void compareNameServer(std::size_t place, const NameServers& now, const NameServers& then);
    void compareSwitch(std::string_view keyName, bool from, const std::optional<bool>& to);
    void send(const model::Key& key, const std::string& from, const std::string& to);
    void noteOrder();
    void noteResolverFile();

    const Setting& now_;
    const WantedSetting& wanted_;
    Draft draft_;
    int sent_ = 0;
};

Plan SettingDraft::make()
{
    compareDomain();
    compareNameServers();
    compareSwitch("icmp-filter", now_.icmpFilter, wanted_.icmpFilter);
    compareSwitch("arp-filter", now_.arpFilter, wanted_.arpFilter);
    compareSwitch("broadcast-filter", now_.broadcastFilter, wanted_.broadcastFilter);
    compareSwitch("conflict-watch", now_.conflictWatch, wanted_.conflictWatch);
    noteOrder();
    noteResolverFile();
    return draft_.finish(now_.warnings);
}

void SettingDraft::send(const model::Key& key, const std::string& from, const std::string& to)
{
    draft_.change(key, from, to);
    draft_.send(key.property, key.type, to);
    ++sent_;
}

void SettingDraft::compareDomain()
{
    const std::string to = wanted_.domainName.value_or(now_.domainName);
    if (to == now_.domainName)
        return;
    send(keyOf("domain"), now_.domainName, to);
    Impact cost;
    cost.hostsTableRewrites = 1;
    cost.resolverFileRewrites = 1;
    draft_.cost(cost);
    if (auto found = judgeDomain(to))
        draft_.refuse(*found);
    if (to.find("nameserver") != std::string::npos)
        draft_.note("domain",
                    "The server finds its name servers by the word \"nameserver\", which this domain holds. "
                    "It will mistake the search line for one of them.");
}

void SettingDraft::compareNameServers()
{
    const NameServers now{now_.primaryDns, now_.secondaryDns};
    const NameServers then{wanted_.primaryDns.value_or(now[0]), wanted_.secondaryDns.value_or(now[1])};
    const bool backwards =
        afterChange(now, then, inOrder) != then && afterChange(now, then, reversed) == then;
    const auto& order = backwards ? reversed : inOrder;
    for (const std::size_t place : order)
        compareNameServer(place, now, then);
    const NameServers read = afterChange(now, then, order);
    if (read != then)
        draft_.note("dns1", "The first name server that there is counts as dns1: it will read " +
                                (read[0].empty() ? "empty" : read[0]) + ", and dns2 " +
                                (read[1].empty() ? "empty" : read[1]) + ".");
}

void SettingDraft::compareNameServer(std::size_t place, const NameServers& now, const NameServers& then)
{
    if (then.at(place) == now.at(place))
        return;
    const model::Key& key = keyOf(place == 0 ? "dns1" : "dns2");
    send(key, now.at(place), then.at(place));
    Impact cost;
    cost.resolverFileRewrites = 1;
    draft_.cost(cost);
    if (auto found = judgeNameServer(std::string(key.key), then.at(place)))
        draft_.refuse(*found);
}

void SettingDraft::compareSwitch(std::string_view keyName, bool from, const std::optional<bool>& to)
{
    if (to.value_or(from) == from)
        return;
    const model::Key& key = keyOf(keyName);
    draft_.change(key, switchText(from), switchText(*to));
    draft_.send(key.property, key.type, booleanValue(*to));
    ++sent_;
}

void SettingDraft::noteOrder()
{
    if (sent_ > 1)
        draft_.note("", "The server applies these one by one and keeps those before one that it refuses.");
}

void SettingDraft::noteResolverFile()
{
    if (draft_.sends("DomainName") || draft_.sends("PrimaryDNS") || draft_.sends("SecondaryDNS"))
        draft_.note(
            "", "The server rewrites its resolver file and keeps comments, the search line and name servers "
                "only. Options and other lines are gone.");
}

} // namespace

Plan planSetting(const Setting& current, const WantedSetting& wanted)
{
    return SettingDraft(current, wanted).make();
}

} // namespace lanctl::plan
