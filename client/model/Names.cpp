#include "model/Names.hpp"

#include <algorithm>

namespace lanctl::model
{

bool isInterface(std::string_view name)
{
    return std::find(interfaceNames.begin(), interfaceNames.end(), name) != interfaceNames.end();
}

Kind kindOf(std::string_view object)
{
    if (object == lanObject)
        return Kind::Setting;
    return object == markingObject ? Kind::Marking : Kind::Endpoint;
}

const std::vector<Key>& allKeys()
{
    static const std::vector<Key> keys{
        {Kind::Endpoint, "address", "IPAddress", "string", Form::Address, ""},
        {Kind::Endpoint, "mask", "SubnetMask", "string", Form::Text, ""},
        {Kind::Endpoint, "gateway", "DefaultGateway", "string", Form::Text, ""},
        {Kind::Endpoint, "mtu", "MaxDataSize", "sint32", Form::Number, ""},
        {Kind::Endpoint, "dhcp", "isDhcpEnabled", "boolean", Form::Switch, ""},
        {Kind::Setting, "domain", "DomainName", "string", Form::Text, ""},
        {Kind::Setting, "dns1", "PrimaryDNS", "string", Form::Text, ""},
        {Kind::Setting, "dns2", "SecondaryDNS", "string", Form::Text, ""},
        {Kind::Setting, "icmp-filter", "isIcmpFilterEnabled", "boolean", Form::Switch, ""},
        {Kind::Setting, "arp-filter", "isArpFilterEnabled", "boolean", Form::Switch, ""},
        {Kind::Setting, "broadcast-filter", "isBroadcastFilterEnabled", "boolean", Form::Switch, ""},
        {Kind::Setting, "conflict-watch", "isIPAddressConflictEnabled", "boolean", Form::Switch, ""},
        {Kind::Marking, "enabled", "KLonKLEnabled", "boolean", Form::Switch, ""},
        {Kind::Marking, "signalling", "QoSMarkVOIPSignaling", "uint16", Form::Mark, "TOSByteSignaling"},
        {Kind::Marking, "voice", "QoSMarkVoiceMedia", "uint16", Form::Mark, "TOSByteMedia"},
        {Kind::Marking, "video", "QoSMarkVideoMedia", "uint16", Form::Mark, "TOSByteVideoMedia"},
        {Kind::Marking, "fax", "QoSFaxMedia", "uint16", Form::Mark, "TOSByteFax"},
    };
    return keys;
}

const Key* findKey(Kind kind, std::string_view key)
{
    const auto& keys = allKeys();
    auto found = std::find_if(keys.begin(), keys.end(), [&](const Key& candidate) {
        return candidate.kind == kind && candidate.key == key;
    });
    return found == keys.end() ? nullptr : &*found;
}

} // namespace lanctl::model
