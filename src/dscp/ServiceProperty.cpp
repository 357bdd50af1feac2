#include "dscp/ServiceProperty.hpp"

#include <OW_CIMDateTime.hpp>
#include <OW_String.hpp>

#include <cstdint>
#include <string>
#include <vector>

namespace dscp
{

namespace
{

using cim::Qualifiers;
using cim::Value;
using OpenWBEM::CIMDateTime;
using OpenWBEM::CIMValue;
using OpenWBEM::String;
using Service = ORX_ALGService;

template <typename Type>
using Getter = Service::Status (Service::*)(Type&, Qualifiers&) const;
template <typename Type>
using Setter = Service::Status (Service::*)(Type);

// Readers, named after the CIM type or property that they make.

template <Getter<std::string> get>
Value readString(const Service& service, Qualifiers& qualifiers)
{
    std::string text;
    if ((service.*get)(text, qualifiers) != Service::Done)
        return std::nullopt;
    return CIMValue(String(text.c_str()));
}

template <Getter<bool> get>
Value readBoolean(const Service& service, Qualifiers& qualifiers)
{
    bool flag = false;
    if ((service.*get)(flag, qualifiers) != Service::Done)
        return std::nullopt;
    return CIMValue(flag);
}

template <Getter<std::uint16_t> get>
Value readUint16(const Service& service, Qualifiers& qualifiers)
{
    std::uint16_t number = 0;
    if ((service.*get)(number, qualifiers) != Service::Done)
        return std::nullopt;
    return CIMValue(OpenWBEM::UInt16(number));
}

template <Getter<std::string> get>
Value readDatetime(const Service& service, Qualifiers& qualifiers)
{
    std::string text;
    if ((service.*get)(text, qualifiers) != Service::Done)
        return std::nullopt;
    return CIMValue(CIMDateTime(String(text.c_str())));
}

Value readOperationalStatus(const Service& service, Qualifiers& qualifiers)
{
    std::vector<std::uint16_t> numbers;
    std::uint16_t unused = 0;
    if (service.getOperationalStatus(numbers, unused, qualifiers) != Service::Done)
        return std::nullopt;
    return CIMValue(OpenWBEM::UInt16Array(numbers.begin(), numbers.end()));
}

Value readStatusDescriptions(const Service& service, Qualifiers& qualifiers)
{
    std::vector<std::string> texts;
    if (service.getStatusDescriptions(texts, qualifiers) != Service::Done)
        return std::nullopt;
    OpenWBEM::StringArray array;
    for (const std::string& text : texts)
        array.push_back(String(text.c_str()));
    return CIMValue(array);
}

// Setters.

template <Setter<std::string> set>
Service::Status setString(Service& service, const CIMValue& value)
{
    return (service.*set)(value.toString().c_str());
}

template <Setter<bool> set>
Service::Status setBoolean(Service& service, const CIMValue& value)
{
    return (service.*set)(value.toBool());
}

template <Setter<std::uint16_t> set>
Service::Status setUint16(Service& service, const CIMValue& value)
{
    return (service.*set)(value.toUInt16());
}

constexpr ServiceProperties::Row rows[] = {
    // clang-format off
    {"SystemCreationClassName", readString<&Service::getSystemCreationClassName>},
    {"SystemName", readString<&Service::getSystemName>},
    {"CreationClassName", readString<&Service::getCreationClassName>},
    {"Name", readString<&Service::getName>},
    {"ElementName", readString<&Service::getElementName>},
    {"KLonKLEnabled", readBoolean<&Service::getKLonKLEnabled>, setBoolean<&Service::setKLonKLEnabled>},
    {"QoSMarkVOIPSignaling", readUint16<&Service::getQoSMarkVOIPSignaling>, setUint16<&Service::setQoSMarkVOIPSignaling>},
    {"TOSByteSignaling", readUint16<&Service::getTOSByteSignaling>, setUint16<&Service::setTOSByteSignaling>},
    {"QoSMarkVoiceMedia", readUint16<&Service::getQoSMarkVoiceMedia>, setUint16<&Service::setQoSMarkVoiceMedia>},
    {"TOSByteMedia", readUint16<&Service::getTOSByteMedia>, setUint16<&Service::setTOSByteMedia>},
    {"QoSMarkVideoMedia", readUint16<&Service::getQoSMarkVideoMedia>, setUint16<&Service::setQoSMarkVideoMedia>},
    {"TOSByteVideoMedia", readUint16<&Service::getTOSByteVideoMedia>, setUint16<&Service::setTOSByteVideoMedia>},
    {"videoMediaVisible", readUint16<&Service::getvideoMediaVisible>},
    {"QoSFaxMedia", readUint16<&Service::getQoSFaxMedia>, setUint16<&Service::setQoSFaxMedia>},
    {"TOSByteFax", readUint16<&Service::getTOSByteFax>, setUint16<&Service::setTOSByteFax>},
    {"PrimaryOwnerName", readString<&Service::getPrimaryOwnerName>, setString<&Service::setPrimaryOwnerName>, 64},
    {"PrimaryOwnerContact", readString<&Service::getPrimaryOwnerContact>, setString<&Service::setPrimaryOwnerContact>, 256},
    {"StartMode", readString<&Service::getStartMode>},
    {"Started", readBoolean<&Service::getStarted>},
    {"EnabledState", readUint16<&Service::getEnabledState>},
    {"OtherEnabledState", readString<&Service::getOtherEnabledState>},
    {"RequestedState", readUint16<&Service::getRequestedState>},
    {"EnabledDefault", readUint16<&Service::getEnabledDefault>, setUint16<&Service::setEnabledDefault>},
    {"TimeOfLastStateChange", readDatetime<&Service::getTimeOfLastStateChange>},
    {"InstallDate", readDatetime<&Service::getInstallDate>},
    {"OperationalStatus", readOperationalStatus},
    {"StatusDescriptions", readStatusDescriptions},
    {"Status", readString<&Service::getStatus>},
    {"Caption", readString<&Service::getCaption>},
    {"Description", readString<&Service::getDescription>},
    // clang-format on
};

} // namespace

constexpr ServiceProperties serviceProperties(rows);

} // namespace dscp
