#include "FullService.hpp"

#include <OW_CIMQualifier.hpp>
#include <OW_CIMValue.hpp>

namespace dscptest
{

Status FullService::resultOf(const std::string& operation) const
{
    const auto found = results.find(operation);
    return found == results.end() ? Status(Done) : found->second;
}

Status FullService::change(const std::string& operation, const std::string& value)
{
    changes.push_back(value.empty() ? operation : operation + " " + value);
    onChange(operation);
    return resultOf(operation);
}

void FullService::qualify(const std::string& property, Qualifiers& qualifiers) const
{
    EXPECT_EQ(qualifiers.size(), 0u) << "qualifiers of an earlier property come along with " << property;
    if (!qualified)
        return;
    OpenWBEM::CIMQualifier qualifier(("Of" + property).c_str());
    qualifier.setValue(OpenWBEM::CIMValue(OpenWBEM::String("a warning")));
    qualifiers.push_back(qualifier);
}

Status FullService::getSystemCreationClassName(std::string& v, Qualifiers& q) const
{
    std::string key;
    ORX_ALGService::getSystemCreationClassName(key, q);
    return give("SystemCreationClassName", key, v, q);
}

Status FullService::getSystemName(std::string& v, Qualifiers& q) const
{
    std::string key;
    ORX_ALGService::getSystemName(key, q);
    return give("SystemName", key, v, q);
}

Status FullService::getCreationClassName(std::string& v, Qualifiers& q) const
{
    std::string key;
    ORX_ALGService::getCreationClassName(key, q);
    return give("CreationClassName", key, v, q);
}

Status FullService::getName(std::string& v, Qualifiers& q) const
{
    std::string key;
    ORX_ALGService::getName(key, q);
    return give("Name", key, v, q);
}

Status FullService::getQoSMarkVOIPSignaling(std::uint16_t& v, Qualifiers& q) const
{
    return give("QoSMarkVOIPSignaling", std::uint16_t(101), v, q);
}

Status FullService::getTOSByteSignaling(std::uint16_t& v, Qualifiers& q) const
{
    return give("TOSByteSignaling", std::uint16_t(102), v, q);
}

Status FullService::getQoSMarkVoiceMedia(std::uint16_t& v, Qualifiers& q) const
{
    return give("QoSMarkVoiceMedia", std::uint16_t(103), v, q);
}

Status FullService::getTOSByteMedia(std::uint16_t& v, Qualifiers& q) const
{
    return give("TOSByteMedia", std::uint16_t(104), v, q);
}

Status FullService::getQoSMarkVideoMedia(std::uint16_t& v, Qualifiers& q) const
{
    return give("QoSMarkVideoMedia", std::uint16_t(105), v, q);
}

Status FullService::getTOSByteVideoMedia(std::uint16_t& v, Qualifiers& q) const
{
    return give("TOSByteVideoMedia", std::uint16_t(106), v, q);
}

Status FullService::getvideoMediaVisible(std::uint16_t& v, Qualifiers& q) const
{
    return give("videoMediaVisible", std::uint16_t(107), v, q);
}

Status FullService::getQoSFaxMedia(std::uint16_t& v, Qualifiers& q) const
{
    return give("QoSFaxMedia", std::uint16_t(108), v, q);
}

Status FullService::getTOSByteFax(std::uint16_t& v, Qualifiers& q) const
{
    return give("TOSByteFax", std::uint16_t(65535), v, q);
}

Status FullService::getPrimaryOwnerName(std::string& v, Qualifiers& q) const
{
    return give("PrimaryOwnerName", "owner", v, q);
}

Status FullService::getPrimaryOwnerContact(std::string& v, Qualifiers& q) const
{
    return give("PrimaryOwnerContact", "contact", v, q);
}

Status FullService::getEnabledState(std::uint16_t& v, Qualifiers& q) const
{
    return give("EnabledState", std::uint16_t(2), v, q);
}

Status FullService::getOtherEnabledState(std::string& v, Qualifiers& q) const
{
    return give("OtherEnabledState", "other", v, q);
}

Status FullService::getRequestedState(std::uint16_t& v, Qualifiers& q) const
{
    return give("RequestedState", std::uint16_t(5), v, q);
}

Status FullService::getEnabledDefault(std::uint16_t& v, Qualifiers& q) const
{
    return give("EnabledDefault", std::uint16_t(3), v, q);
}

Status FullService::getTimeOfLastStateChange(std::string& v, Qualifiers& q) const
{
    return give("TimeOfLastStateChange", "20041001120000.000000+060", v, q);
}

Status FullService::getInstallDate(std::string& v, Qualifiers& q) const
{
    return give("InstallDate", "20040901080000.000000-120", v, q);
}

Status FullService::getOperationalStatus(std::vector<std::uint16_t>& v, std::uint16_t&, Qualifiers& q) const
{
    return give("OperationalStatus", std::vector<std::uint16_t>{2, 5}, v, q);
}

Status FullService::getStatusDescriptions(std::vector<std::string>& v, Qualifiers& q) const
{
    return give("StatusDescriptions", std::vector<std::string>{"fine", "well"}, v, q);
}

Status FullService::getDescription(std::string& v, Qualifiers& q) const
{
    return give("Description", "description", v, q);
}

} // namespace dscptest
