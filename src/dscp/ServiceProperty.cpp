#include "ServiceProperty.hpp"

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

// Readers, named after the CIM type that they make.

template <Getter<std::string> get>
Value string(const Service& service, Qualifiers& qualifiers)
{
    std::string text;
    if ((service.*get)(text, qualifiers) != Service::Done)
        return std::nullopt;
    return CIMValue(String(text.c_str()));
}

template <Getter<bool> get>
Value boolean(const Service& service, Qualifiers& qualifiers)
{
    bool flag = false;
    if ((service.*get)(flag, qualifiers) != Service::Done)
        return std::nullopt;
    return CIMValue(flag);
}

template <Getter<std::uint16_t> get>
Value uint16(const Service& service, Qualifiers& qualifiers)
{
    std::uint16_t number = 0;
    if ((service.*get)(number, qualifiers) != Service::Done)
        return std::nullopt;
    return CIMValue(OpenWBEM::UInt16(number));
}

template <Getter<std::string> get>
Value datetime(const Service& service, Qualifiers& qualifiers)
{
    std::string text;
    if ((service.*get)(text, qualifiers) != Service::Done)
        return std::nullopt;
    return CIMValue(CIMDateTime(String(text.c_str())));
}

Value operationalStatus(const Service& service, Qualifiers& qualifiers)
{
    std::vector<std::uint16_t> numbers;
    std::uint16_t unused = 0;
    if (service.getOperationalStatus(numbers, unused, qualifiers) != Service::Done)
        return std::nullopt;
    return CIMValue(OpenWBEM::UInt16Array(numbers.begin(), numbers.end()));
}

Value statusDescriptions(const Service& service, Qualifiers& qualifiers)
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
Service::Status toString(Service& service, const CIMValue& value)
{
    return (service.*set)(value.toString().c_str());
}

template <Setter<bool> set>
Service::Status toBoolean(Service& service, const CIMValue& value)
{
    return (service.*set)(value.toBool());
}

template <Setter<std::uint16_t> set>
Service::Status toUint16(Service& service, const CIMValue& value)
{
    return (service.*set)(value.toUInt16());
}

constexpr auto readOnly = nullptr;
constexpr std::size_t unlimited = 0;

} // namespace

const std::array<ServiceProperty, 30> serviceProperties = {{
    // clang-format off
    {"SystemCreationClassName", string<&Service::getSystemCreationClassName>, readOnly, unlimited},
    {"SystemName", string<&Service::getSystemName>, readOnly, unlimited},
    {"CreationClassName", string<&Service::getCreationClassName>, readOnly, unlimited},
    {"Name", string<&Service::getName>, readOnly, unlimited},
    {"ElementName", string<&Service::getElementName>, readOnly, unlimited},
    {"KLonKLEnabled", boolean<&Service::getKLonKLEnabled>, toBoolean<&Service::setKLonKLEnabled>, unlimited},
    {"QoSMarkVOIPSignaling", uint16<&Service::getQoSMarkVOIPSignaling>, toUint16<&Service::setQoSMarkVOIPSignaling>, unlimited},
    {"TOSByteSignaling", uint16<&Service::getTOSByteSignaling>, toUint16<&Service::setTOSByteSignaling>, unlimited},
    {"QoSMarkVoiceMedia", uint16<&Service::getQoSMarkVoiceMedia>, toUint16<&Service::setQoSMarkVoiceMedia>, unlimited},
    {"TOSByteMedia", uint16<&Service::getTOSByteMedia>, toUint16<&Service::setTOSByteMedia>, unlimited},
    {"QoSMarkVideoMedia", uint16<&Service::getQoSMarkVideoMedia>, toUint16<&Service::setQoSMarkVideoMedia>, unlimited},
    {"TOSByteVideoMedia", uint16<&Service::getTOSByteVideoMedia>, toUint16<&Service::setTOSByteVideoMedia>, unlimited},
    {"videoMediaVisible", uint16<&Service::getvideoMediaVisible>, readOnly, unlimited},
    {"QoSFaxMedia", uint16<&Service::getQoSFaxMedia>, toUint16<&Service::setQoSFaxMedia>, unlimited},
    {"TOSByteFax", uint16<&Service::getTOSByteFax>, toUint16<&Service::setTOSByteFax>, unlimited},
    {"PrimaryOwnerName", string<&Service::getPrimaryOwnerName>, toString<&Service::setPrimaryOwnerName>, 64},
    {"PrimaryOwnerContact", string<&Service::getPrimaryOwnerContact>, toString<&Service::setPrimaryOwnerContact>, 256},
    {"StartMode", string<&Service::getStartMode>, readOnly, unlimited},
    {"Started", boolean<&Service::getStarted>, readOnly, unlimited},
    {"EnabledState", uint16<&Service::getEnabledState>, readOnly, unlimited},
    {"OtherEnabledState", string<&Service::getOtherEnabledState>, readOnly, unlimited},
    {"RequestedState", uint16<&Service::getRequestedState>, readOnly, unlimited},
    {"EnabledDefault", uint16<&Service::getEnabledDefault>, toUint16<&Service::setEnabledDefault>, unlimited},
    {"TimeOfLastStateChange", datetime<&Service::getTimeOfLastStateChange>, readOnly, unlimited},
    {"InstallDate", datetime<&Service::getInstallDate>, readOnly, unlimited},
    {"OperationalStatus", operationalStatus, readOnly, unlimited},
    {"StatusDescriptions", statusDescriptions, readOnly, unlimited},
    {"Status", string<&Service::getStatus>, readOnly, unlimited},
    {"Caption", string<&Service::getCaption>, readOnly, unlimited},
    {"Description", string<&Service::getDescription>, readOnly, unlimited},
    // clang-format on
}};

} // namespace dscp
