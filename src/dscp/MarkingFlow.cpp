#include "dscp/MarkingFlow.hpp"

namespace dscp
{

using Service = ORX_ALGService;

// When the video flow's menu value cannot be written, the log names the voice flow: the operators' log
// filters know this text.
const std::array<MarkingFlow, 4> markingFlows = {{
    // clang-format off
    {"voipsigmenu", "voipsigtosbyte", &Service::setQoSMarkVOIPSignaling, &Service::setTOSByteSignaling, 0xA4, 0xA0,
     "QoSVoipValue", "QoSMarkVOIPSignaling", "QoSMarkVOIPSignaling", "TOSByteSignaling"},
    {"voicemediamenu", "voicemediatosbyte", &Service::setQoSMarkVoiceMedia, &Service::setTOSByteMedia, 0xBC, 0xB8,
     "QoSVoiceValue", "QoSMarkVoiceMedia", "QoSMarkVoiceMedia", "TOSByteMedia"},
    {"videomediamenu", "videomediatosbyte", &Service::setQoSMarkVideoMedia, &Service::setTOSByteVideoMedia, 0x8C, 0x88,
     "QoSVideoValue", "QoSMarkVideoMedia", "QoSMarkVoiceMedia", "TOSByteVideoMedia"},
    {"faxmediamenu", "faxmediatosbyte", &Service::setQoSFaxMedia, &Service::setTOSByteFax, 0xBC, 0xB8,
     "FaxMediaValue", "QoSFaxMedia", "QoSFaxMedia", "TOSByteFax"},
    // clang-format on
}};

} // namespace dscp
