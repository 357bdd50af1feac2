#ifndef KV_DSCP_MARKINGFLOW_HPP
#define KV_DSCP_MARKINGFLOW_HPP

#include "dscp/ORX_ALGService.hpp"

#include <array>
#include <cstddef>
#include <cstdint>

namespace dscp
{

/// The menu value that means "custom": the TOS byte is the one kept beside the menu. Any other menu value is
/// itself the TOS byte.
constexpr std::uint16_t customMenu = 258;

/// The marking of one flow.
struct Marking {
    std::uint16_t menu = 0;
    std::uint16_t tosByte = 0;
};

/// What differs between the four kinds of marked traffic. Everything else about them is the same.
struct MarkingFlow {
    using Setter = ORX_ALGService::Status (ORX_ALGService::*)(std::uint16_t);

    const char* menuKey;    ///< name of the menu's registry value
    const char* tosByteKey; ///< name of the TOS byte's registry value
    Setter setMenu;
    Setter setTosByte;
    std::uint16_t presetEnabled; ///< menu and TOS byte when KLonKLEnabled turns true
    std::uint16_t presetDisabled;
    const char* menuReadName;         ///< how the log calls the menu value when it cannot be read,
    const char* menuName;             ///< when it was written,
    const char* menuWriteFailureName; ///< and when it could not be written
    const char* tosByteName;          ///< how the log calls the TOS byte
};

/// Places in markingFlows, in the order in which the flows are read and written.
enum : std::size_t { Signaling, VoiceMedia, VideoMedia, FaxMedia };
extern const std::array<MarkingFlow, 4> markingFlows;

} // namespace dscp

#endif
