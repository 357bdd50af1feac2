#ifndef KV_TESTS_DSCP_FULLSERVICE_HPP
#define KV_TESTS_DSCP_FULLSERVICE_HPP

#include "ServiceTest.hpp"

#include <functional>
#include <map>

namespace dscptest
{

/// A service that supports every property, keeps a list of what is done to it and fails as told.
class FullService : public ORX_ALGService
{
  public:
    FullService(const std::string& systemCreationClassName, const std::string& systemName,
                const std::string& creationClassName, const std::string& name)
        : ORX_ALGService(systemCreationClassName, systemName, creationClassName, name)
    {
    }

    /// What operations return instead of 0, by name ("getStatus", "setTOSByteFax", "endChange").
    std::map<std::string, Status> results;
    /// Called with the name of each operation that changes something; may throw.
    std::function<void(const std::string&)> onChange = [](const std::string&) {};
    /// startChange, endChange and the setters with their values, in order.
    Lines changes;
    /// Whether getters add a qualifier named after their property.
    bool qualified = false;

    Status startChange() override { return change("startChange"); }
    Status endChange() override { return change("endChange"); }

    Status getSystemCreationClassName(std::string& v, Qualifiers& q) const override;
    Status getSystemName(std::string& v, Qualifiers& q) const override;
    Status getCreationClassName(std::string& v, Qualifiers& q) const override;
    Status getName(std::string& v, Qualifiers& q) const override;
    Status getElementName(std::string& v, Qualifiers& q) const override
    {
        return give("ElementName", "element", v, q);
    }
    Status getKLonKLEnabled(bool& v, Qualifiers& q) const override
    {
        return give("KLonKLEnabled", true, v, q);
    }
    Status setKLonKLEnabled(bool v) override { return change("setKLonKLEnabled", v ? "true" : "false"); }
    Status getQoSMarkVOIPSignaling(std::uint16_t& v, Qualifiers& q) const override;
    Status setQoSMarkVOIPSignaling(std::uint16_t v) override { return number("setQoSMarkVOIPSignaling", v); }
    Status getTOSByteSignaling(std::uint16_t& v, Qualifiers& q) const override;
    Status setTOSByteSignaling(std::uint16_t v) override { return number("setTOSByteSignaling", v); }
    Status getQoSMarkVoiceMedia(std::uint16_t& v, Qualifiers& q) const override;
    Status setQoSMarkVoiceMedia(std::uint16_t v) override { return number("setQoSMarkVoiceMedia", v); }
    Status getTOSByteMedia(std::uint16_t& v, Qualifiers& q) const override;
    Status setTOSByteMedia(std::uint16_t v) override { return number("setTOSByteMedia", v); }
    Status getQoSMarkVideoMedia(std::uint16_t& v, Qualifiers& q) const override;
    Status setQoSMarkVideoMedia(std::uint16_t v) override { return number("setQoSMarkVideoMedia", v); }
    Status getTOSByteVideoMedia(std::uint16_t& v, Qualifiers& q) const override;
    Status setTOSByteVideoMedia(std::uint16_t v) override { return number("setTOSByteVideoMedia", v); }
    Status getvideoMediaVisible(std::uint16_t& v, Qualifiers& q) const override;
    Status getQoSFaxMedia(std::uint16_t& v, Qualifiers& q) const override;
    Status setQoSFaxMedia(std::uint16_t v) override { return number("setQoSFaxMedia", v); }
    Status getTOSByteFax(std::uint16_t& v, Qualifiers& q) const override;
    Status setTOSByteFax(std::uint16_t v) override { return number("setTOSByteFax", v); }
    Status getPrimaryOwnerName(std::string& v, Qualifiers& q) const override;
    Status setPrimaryOwnerName(std::string v) override { return change("setPrimaryOwnerName", v); }
    Status getPrimaryOwnerContact(std::string& v, Qualifiers& q) const override;
    Status setPrimaryOwnerContact(std::string v) override { return change("setPrimaryOwnerContact", v); }
    Status getStartMode(std::string& v, Qualifiers& q) const override
    {
        return give("StartMode", "Automatic", v, q);
    }
    Status getStarted(bool& v, Qualifiers& q) const override { return give("Started", true, v, q); }
    Status getEnabledState(std::uint16_t& v, Qualifiers& q) const override;
    Status getOtherEnabledState(std::string& v, Qualifiers& q) const override;
    Status getRequestedState(std::uint16_t& v, Qualifiers& q) const override;
    Status getEnabledDefault(std::uint16_t& v, Qualifiers& q) const override;
    Status setEnabledDefault(std::uint16_t v) override { return number("setEnabledDefault", v); }
    Status getTimeOfLastStateChange(std::string& v, Qualifiers& q) const override;
    Status getInstallDate(std::string& v, Qualifiers& q) const override;
    Status getOperationalStatus(std::vector<std::uint16_t>& v, std::uint16_t&, Qualifiers& q) const override;
    Status getStatusDescriptions(std::vector<std::string>& v, Qualifiers& q) const override;
    Status getStatus(std::string& v, Qualifiers& q) const override { return give("Status", "OK", v, q); }
    Status getCaption(std::string& v, Qualifiers& q) const override
    {
        return give("Caption", "caption", v, q);
    }
    Status getDescription(std::string& v, Qualifiers& q) const override;

  private:
    Status resultOf(const std::string& operation) const;
    Status change(const std::string& operation, const std::string& value = "");
    Status number(const std::string& operation, std::uint16_t value)
    {
        return change(operation, std::to_string(value));
    }
    void qualify(const std::string& property, Qualifiers& qualifiers) const;

    template <typename Given, typename Value>
    Status give(const std::string& property, const Given& given, Value& value, Qualifiers& qualifiers) const
    {
        const Status result = resultOf("get" + property);
        if (result != Done)
            return result;
        value = given;
        qualify(property, qualifiers);
        return Done;
    }
};

} // namespace dscptest

#endif
