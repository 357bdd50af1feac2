#ifndef KV_TESTS_DSCP_FLOWTEXTS_HPP
#define KV_TESTS_DSCP_FLOWTEXTS_HPP

#include "dscp/ORX_ALGService.hpp"

#include <cstdint>

namespace dscptest
{

/// What the server's log readers know about one flow, written out in full.
struct FlowTexts {
    const char* name;
    const char* menuKey;
    const char* tosByteKey;
    std::uint32_t (ORX_ALGService::*getMenu)(std::uint16_t&, ORX_ALGService::Qualifiers&) const;
    std::uint32_t (ORX_ALGService::*setMenu)(std::uint16_t);
    std::uint32_t (ORX_ALGService::*getTosByte)(std::uint16_t&, ORX_ALGService::Qualifiers&) const;
    std::uint32_t (ORX_ALGService::*setTosByte)(std::uint16_t);
    const char* initMenuRead;
    const char* initTosByteRead;
    const char* menuRead;
    const char* menuWrite;
    const char* tosByteWrite;
    const char* bothWritten;
    const char* tosByteWritten;
    const char* menuWritten;
    const char* tosByteRead;
    const char* customWritten;
    const char* customWriteFailed;
};

// clang-format off
const FlowTexts flowTexts[] = {
    {"signalling", "voipsigmenu", "voipsigtosbyte",
     &ORX_ALGService::getQoSMarkVOIPSignaling, &ORX_ALGService::setQoSMarkVOIPSignaling,
     &ORX_ALGService::getTOSByteSignaling, &ORX_ALGService::setTOSByteSignaling,
     "ORX_ALGServiceImplInstanceManager:init(): failed to read QoSVoipValue from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImplInstanceManager:init(): failed to read TOSByteSignaling from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): failed to read QoSVoipValue from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): failed to write new QoSMarkVOIPSignaling: %d into the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): failed to write new TOSByteSignaling: %d into the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): Wrote new QoSMarkVOIPSignaling: %d and TOSByteSignaling: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): Wrote new TOSByteSignaling: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): Wrote new QoSMarkVOIPSignaling: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): failed to read TOSByteSignaling from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): Wrote custom TOSByteSignaling: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): failed to write custom TOSByteSignaling: %d into the PDR, rc: 0x%08X\n"},
    {"voice media", "voicemediamenu", "voicemediatosbyte",
     &ORX_ALGService::getQoSMarkVoiceMedia, &ORX_ALGService::setQoSMarkVoiceMedia,
     &ORX_ALGService::getTOSByteMedia, &ORX_ALGService::setTOSByteMedia,
     "ORX_ALGServiceImplInstanceManager:init(): failed to read QoSVoiceValue from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImplInstanceManager:init(): failed to read TOSByteMedia from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): failed to read QoSVoiceValue from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): failed to write new QoSMarkVoiceMedia: %d into the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): failed to write new TOSByteMedia: %d into the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): Wrote new QoSMarkVoiceMedia: %d and TOSByteMedia: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): Wrote new TOSByteMedia: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): Wrote new QoSMarkVoiceMedia: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): failed to read TOSByteMedia from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): Wrote custom TOSByteMedia: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): failed to write custom TOSByteMedia: %d into the PDR, rc: 0x%08X\n"},
    {"video media", "videomediamenu", "videomediatosbyte",
     &ORX_ALGService::getQoSMarkVideoMedia, &ORX_ALGService::setQoSMarkVideoMedia,
     &ORX_ALGService::getTOSByteVideoMedia, &ORX_ALGService::setTOSByteVideoMedia,
     "ORX_ALGServiceImplInstanceManager:init(): failed to read QoSVideoValue from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImplInstanceManager:init(): failed to read TOSByteVideoMedia from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): failed to read QoSVideoValue from the PDR, rc: 0x%08X\n",
     // the name of the voice flow: intended
     "ORX_ALGServiceImpl:endChange(): failed to write new QoSMarkVoiceMedia: %d into the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): failed to write new TOSByteVideoMedia: %d into the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): Wrote new QoSMarkVideoMedia: %d and TOSByteVideoMedia: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): Wrote new TOSByteVideoMedia: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): Wrote new QoSMarkVideoMedia: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): failed to read TOSByteVideoMedia from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): Wrote custom TOSByteVideoMedia: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): failed to write custom TOSByteVideoMedia: %d into the PDR, rc: 0x%08X\n"},
    {"fax", "faxmediamenu", "faxmediatosbyte",
     &ORX_ALGService::getQoSFaxMedia, &ORX_ALGService::setQoSFaxMedia,
     &ORX_ALGService::getTOSByteFax, &ORX_ALGService::setTOSByteFax,
     "ORX_ALGServiceImplInstanceManager:init(): failed to read FaxMediaValue from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImplInstanceManager:init(): failed to read TOSByteFax from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): failed to read FaxMediaValue from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): failed to write new QoSFaxMedia: %d into the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): failed to write new TOSByteFax: %d into the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): Wrote new QoSFaxMedia: %d and TOSByteFax: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): Wrote new TOSByteFax: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): Wrote new QoSFaxMedia: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): failed to read TOSByteFax from the PDR, rc: 0x%08X\n",
     "ORX_ALGServiceImpl:endChange(): Wrote custom TOSByteFax: %d into the PDR\n",
     "ORX_ALGServiceImpl:endChange(): failed to write custom TOSByteFax: %d into the PDR, rc: 0x%08X\n"},
};
// clang-format on

inline std::uint32_t setMenu(ORX_ALGService& service, const FlowTexts& flow, std::uint16_t value)
{
    return (service.*flow.setMenu)(value);
}

inline std::uint32_t setTosByte(ORX_ALGService& service, const FlowTexts& flow, std::uint16_t value)
{
    return (service.*flow.setTosByte)(value);
}

} // namespace dscptest

#endif
