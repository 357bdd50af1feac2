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

using OpenWBEM::CIMDateTime;
using OpenWBEM::CIMValue;
using OpenWBEM::String;
using Service = ORX_ALGService;
using Qualifiers = Service::Qualifiers;
using Value = std::optional<CIMValue>;

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

// Writers.

template <Setter<std::string> set>
Service::Status writeString(Service& service, const CIMValue& value)
{
    return (service.*set)(value.toString().c_str());
}

template <Setter<bool> set>
Service::Status writeBoolean(Service& service, const CIMValue& value)
{
    return (service.*set)(value.toBool());
}

template <Setter<std::uint16_t> set>
Service::Status writeUint16(Service& service, const CIMValue& value)
{
    return (service.*set)(value.toUInt16());
}

constexpr auto readOnly = nullptr;
constexpr std::size_t unlimited = 0;

} // namespace

const std::array<ServiceProperty, 30> serviceProperties = {{
    // clang-format off
    {"SystemCreationClassName", readString<&Service::getSystemCreationClassName>, readOnly, unlimited},
    {"SystemName", readString<&Service::getSystemName>, readOnly, unlimited},
    {"CreationClassName", readString<&Service::getCreationClassName>, readOnly, unlimited},
    {"Name", readString<&Service::getName>, readOnly, unlimited},
    {"ElementName", readString<&Service::getElementName>, readOnly, unlimited},
    {"KLonKLEnabled", readBoolean<&Service::getKLonKLEnabled>, writeBoolean<&Service::setKLonKLEnabled>, unlimited},
    {"QoSMarkVOIPSignaling", readUint16<&Service::getQoSMarkVOIPSignaling>, writeUint16<&Service::setQoSMarkVOIPSignaling>, unlimited},
    {"TOSByteSignaling", readUint16<&Service::getTOSByteSignaling>, writeUint16<&Service::setTOSByteSignaling>, unlimited},
    {"QoSMarkVoiceMedia", readUint16<&Service::getQoSMarkVoiceMedia>, writeUint16<&Service::setQoSMarkVoiceMedia>, unlimited},
    {"TOSByteMedia", readUint16<&Service::getTOSByteMedia>, writeUint16<&Service::setTOSByteMedia>, unlimited},
    {"QoSMarkVideoMedia", readUint16<&Service::getQoSMarkVideoMedia>, writeUint16<&Service::setQoSMarkVideoMedia>, unlimited},
    {"TOSByteVideoMedia", readUint16<&Service::getTOSByteVideoMedia>, writeUint16<&Service::setTOSByteVideoMedia>, unlimited},
    {"videoMediaVisible", readUint16<&Service::getvideoMediaVisible>, readOnly, unlimited},
    {"QoSFaxMedia", readUint16<&Service::getQoSFaxMedia>, writeUint16<&Service::setQoSFaxMedia>, unlimited},
    {"TOSByteFax", readUint16<&Service::getTOSByteFax>, writeUint16<&Service::setTOSByteFax>, unlimited},
    {"PrimaryOwnerName", readString<&Service::getPrimaryOwnerName>, writeString<&Service::setPrimaryOwnerName>, 64},
    {"PrimaryOwnerContact", readString<&Service::getPrimaryOwnerContact>, writeString<&Service::setPrimaryOwnerContact>, 256},
    {"StartMode", readString<&Service::getStartMode>, readOnly, unlimited},
    {"Started", readBoolean<&Service::getStarted>, readOnly, unlimited},
    {"EnabledState", readUint16<&Service::getEnabledState>, readOnly, unlimited},
    {"OtherEnabledState", readString<&Service::getOtherEnabledState>, readOnly, unlimited},
    {"RequestedState", readUint16<&Service::getRequestedState>, readOnly, unlimited},
    {"EnabledDefault", readUint16<&Service::getEnabledDefault>, writeUint16<&Service::setEnabledDefault>, unlimited},
    {"TimeOfLastStateChange", readDatetime<&Service::getTimeOfLastStateChange>, readOnly, unlimited},
    {"InstallDate", readDatetime<&Service::getInstallDate>, readOnly, unlimited},
    {"OperationalStatus", readOperationalStatus, readOnly, unlimited},
    {"StatusDescriptions", readStatusDescriptions, readOnly, unlimited},
    {"Status", readString<&Service::getStatus>, readOnly, unlimited},
    {"Caption", readString<&Service::getCaption>, readOnly, unlimited},
    {"Description", readString<&Service::getDescription>, readOnly, unlimited},
    // clang-format on
}};

} // namespace dscp
