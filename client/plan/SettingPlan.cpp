#include "model/FromCim.hpp"
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

/// The server keeps name servers as lines and knows them by their position. When a line is removed, the next
/// one moves up. A position without a line gets one at the end.
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
            lines.push_back(then.at(place)); // an empty address, too
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
        : m_now(now), m_wanted(wanted), m_draft(std::string(model::lanObject), model::nameOf(now))
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

    const Setting& m_now;
    const WantedSetting& m_wanted;
    Draft m_draft;
    int m_sent = 0;
};

Plan SettingDraft::make()
{
    compareDomain();
    compareNameServers();
    compareSwitch("icmp-filter", m_now.icmpFilter, m_wanted.icmpFilter);
    compareSwitch("arp-filter", m_now.arpFilter, m_wanted.arpFilter);
    compareSwitch("broadcast-filter", m_now.broadcastFilter, m_wanted.broadcastFilter);
    compareSwitch("conflict-watch", m_now.conflictWatch, m_wanted.conflictWatch);
    noteOrder();
    noteResolverFile();
    return m_draft.finish(m_now.warnings);
}

void SettingDraft::send(const model::Key& key, const std::string& from, const std::string& to)
{
    m_draft.change(key, from, to);
    m_draft.send(key.property, key.type, to);
    ++m_sent;
}

void SettingDraft::compareDomain()
{
    const std::string to = m_wanted.domainName.value_or(m_now.domainName);
    if (to == m_now.domainName)
        return;
    send(keyOf("domain"), m_now.domainName, to);
    Impact cost;
    cost.hostsTableRewrites = 1;
    cost.resolverFileRewrites = 1;
    m_draft.cost(cost);
    if (auto found = judgeDomain(to))
        m_draft.refuse(*found);
    if (to.find("nameserver") != std::string::npos)
        m_draft.note("domain",
                     "The server finds its name servers by the word \"nameserver\", which this domain holds. "
                     "It will mistake the search line for one of them.");
}

void SettingDraft::compareNameServers()
{
    const NameServers now{m_now.primaryDns, m_now.secondaryDns};
    const NameServers then{m_wanted.primaryDns.value_or(now[0]), m_wanted.secondaryDns.value_or(now[1])};
    const bool backwards =
        afterChange(now, then, inOrder) != then && afterChange(now, then, reversed) == then;
    const auto& order = backwards ? reversed : inOrder;
    for (const std::size_t place : order)
        compareNameServer(place, now, then);
    const NameServers read = afterChange(now, then, order);
    if (read != then)
        m_draft.note("dns1", "The first name server that there is counts as dns1: it will read " +
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
    m_draft.cost(cost);
    if (auto found = judgeNameServer(std::string(key.key), then.at(place)))
        m_draft.refuse(*found);
}

void SettingDraft::compareSwitch(std::string_view keyName, bool from, const std::optional<bool>& to)
{
    if (to.value_or(from) == from)
        return;
    const model::Key& key = keyOf(keyName);
    m_draft.change(key, switchText(from), switchText(*to));
    m_draft.send(key.property, key.type, booleanValue(*to));
    ++m_sent;
}

void SettingDraft::noteOrder()
{
    if (m_sent > 1)
        m_draft.note("", "The server applies these one by one and keeps those before one that it refuses.");
}

void SettingDraft::noteResolverFile()
{
    if (m_draft.sends("DomainName") || m_draft.sends("PrimaryDNS") || m_draft.sends("SecondaryDNS"))
        m_draft.note(
            "", "The server rewrites its resolver file and keeps comments, the search line and name servers "
                "only. Options and other lines are gone.");
}

} // namespace

Plan planSetting(const Setting& current, const WantedSetting& wanted)
{
    return SettingDraft(current, wanted).make();
}

} // namespace lanctl::plan
