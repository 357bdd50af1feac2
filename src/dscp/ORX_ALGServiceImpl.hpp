#ifndef KV_DSCP_ORX_ALGSERVICEIMPL_HPP
#define KV_DSCP_ORX_ALGSERVICEIMPL_HPP

#include "dscp/MarkingFlow.hpp"
#include "dscp/ORX_ALGService.hpp"

#include <array>
#include <cstdint>
#include <string>

/// The marking service whose settings live in the server's registry. Setters only change the object, without
/// any check; endChange writes what differs from the registry. In a new object the switch is off and all
/// markings are 0.
class ORX_ALGServiceImpl : public ORX_ALGService
{
  public:
    using ORX_ALGService::ORX_ALGService;

    Status startChange() override { return Done; }

    /// Brings the registry in line with the object and logs what it did. Always returns Done: a value that
    /// cannot be read or written is logged, and the object keeps its new values.
    Status endChange() override;

    Status getElementName(std::string& value, Qualifiers&) const override { return copy(elementName, value); }
    Status getKLonKLEnabled(bool& value, Qualifiers&) const override { return copy(enabled, value); }
    Status setKLonKLEnabled(bool value) override { return copy(value, enabled); }

    Status getQoSMarkVOIPSignaling(std::uint16_t& value, Qualifiers&) const override
    {
        return copy(markings[dscp::Signaling].menu, value);
    }
    Status setQoSMarkVOIPSignaling(std::uint16_t value) override
    {
        return copy(value, markings[dscp::Signaling].menu);
    }
    Status getTOSByteSignaling(std::uint16_t& value, Qualifiers&) const override
    {
        return copy(markings[dscp::Signaling].tosByte, value);
    }
    Status setTOSByteSignaling(std::uint16_t value) override
    {
        return copy(value, markings[dscp::Signaling].tosByte);
    }

    Status getQoSMarkVoiceMedia(std::uint16_t& value, Qualifiers&) const override
    {
        return copy(markings[dscp::VoiceMedia].menu, value);
    }
    Status setQoSMarkVoiceMedia(std::uint16_t value) override
    {
        return copy(value, markings[dscp::VoiceMedia].menu);
    }
    Status getTOSByteMedia(std::uint16_t& value, Qualifiers&) const override
    {
        return copy(markings[dscp::VoiceMedia].tosByte, value);
    }
    Status setTOSByteMedia(std::uint16_t value) override
    {
        return copy(value, markings[dscp::VoiceMedia].tosByte);
    }

    Status getQoSMarkVideoMedia(std::uint16_t& value, Qualifiers&) const override
    {
        return copy(markings[dscp::VideoMedia].menu, value);
    }
    Status setQoSMarkVideoMedia(std::uint16_t value) override
    {
        return copy(value, markings[dscp::VideoMedia].menu);
    }
    Status getTOSByteVideoMedia(std::uint16_t& value, Qualifiers&) const override
    {
        return copy(markings[dscp::VideoMedia].tosByte, value);
    }
    Status setTOSByteVideoMedia(std::uint16_t value) override
    {
        return copy(value, markings[dscp::VideoMedia].tosByte);
    }
    Status getvideoMediaVisible(std::uint16_t& value, Qualifiers&) const override
    {
        return copy(videoMediaVisible, value);
    }

    Status getQoSFaxMedia(std::uint16_t& value, Qualifiers&) const override
    {
        return copy(markings[dscp::FaxMedia].menu, value);
    }
    Status setQoSFaxMedia(std::uint16_t value) override { return copy(value, markings[dscp::FaxMedia].menu); }
    Status getTOSByteFax(std::uint16_t& value, Qualifiers&) const override
    {
        return copy(markings[dscp::FaxMedia].tosByte, value);
    }
    Status setTOSByteFax(std::uint16_t value) override
    {
        return copy(value, markings[dscp::FaxMedia].tosByte);
    }

  private:
    template <typename Value>
    static Status copy(const Value& from, Value& to)
    {
        to = from;
        return Done;
    }

    void storeEnabled();
    void applyPresets();

    const std::string elementName;
    bool enabled = false;
    std::array<dscp::Marking, 4> markings; // in the order of dscp::markingFlows
    const std::uint16_t videoMediaVisible = 1;
};

#endif
