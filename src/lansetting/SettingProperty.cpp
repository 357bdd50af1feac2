#include "lansetting/SettingProperty.hpp"

#include <OW_Bool.hpp>

namespace
{

using cim::Qualifiers;
using cim::Value;
using OpenWBEM::CIMValue;
using OpenWBEM::String;
using Setting = ORX_LANSetting;

template <typename Type>
using Getter = bool (Setting::*)(Type&) const;

// Readers.

Value readInstanceID(const Setting& setting, Qualifiers&)
{
    String own; // empty; instances carry the one below
    if (!setting.getInstanceID(own))
        return std::nullopt;
    return CIMValue("Kalvor:ORX_LANServiceSetting");
}

template <Getter<String> get>
Value readText(const Setting& setting, Qualifiers&)
{
    String text;
    if (!(setting.*get)(text))
        text = "";
    return CIMValue(text);
}

template <Getter<bool> get>
Value readSwitch(const Setting& setting, Qualifiers&)
{
    bool enabled = false;
    (setting.*get)(enabled);
    return CIMValue(OpenWBEM::Bool(enabled));
}

// Setters.

template <Getter<String> get, bool (Setting::*set)(const String&)>
bool setText(Setting& setting, const CIMValue& value)
{
    const String text = value.toString();
    String current;
    (setting.*get)(current);
    return text == current || (setting.*set)(text);
}

template <Getter<bool> get, bool (Setting::*set)(bool)>
bool setSwitch(Setting& setting, const CIMValue& value)
{
    const bool enabled = value.toBool();
    bool current = false;
    (setting.*get)(current);
    return enabled == current || (setting.*set)(enabled);
}

constexpr cim::PropertyTable<Setting, bool>::Row rows[] = {
    // clang-format off
    {"InstanceID", readInstanceID},
    {"DomainName", readText<&Setting::getDomainName>, setText<&Setting::getDomainName, &Setting::setDomainName>},
    {"PrimaryDNS", readText<&Setting::getPrimaryDNS>, setText<&Setting::getPrimaryDNS, &Setting::setPrimaryDNS>},
    {"SecondaryDNS", readText<&Setting::getSecondaryDNS>, setText<&Setting::getSecondaryDNS, &Setting::setSecondaryDNS>},
    {"isIcmpFilterEnabled", readSwitch<&Setting::getIsIcmpFilterEnabled>,
     setSwitch<&Setting::getIsIcmpFilterEnabled, &Setting::setIsIcmpFilterEnabled>},
    {"isArpFilterEnabled", readSwitch<&Setting::getIsArpFilterEnabled>,
     setSwitch<&Setting::getIsArpFilterEnabled, &Setting::setIsArpFilterEnabled>},
    {"isBroadcastFilterEnabled", readSwitch<&Setting::getIsBroadcastFilterEnabled>,
     setSwitch<&Setting::getIsBroadcastFilterEnabled, &Setting::setIsBroadcastFilterEnabled>},
    {"isIPAddressConflictEnabled", readSwitch<&Setting::getIsIPAddressConflictEnabled>,
     setSwitch<&Setting::getIsIPAddressConflictEnabled, &Setting::setIsIPAddressConflictEnabled>},
    {"isRouterPresent", readSwitch<&Setting::getIsRouterPresent>},
    // clang-format on
};

} // namespace

constexpr cim::PropertyTable<ORX_LANSetting, bool> settingProperties(rows);
