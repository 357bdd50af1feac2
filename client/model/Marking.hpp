// DSCP marking: how the type-of-service byte (TOS) of the server's packets is set.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace lanctl::model
{

/// The menu value that stands for "see the TOS byte beside it"; any other menu value is the TOS byte itself.
constexpr std::uint16_t customMenuValue = 258;

enum class Flow { Signalling, Voice, Video, Fax };
constexpr std::array<Flow, 4> allFlows{Flow::Signalling, Flow::Voice, Flow::Video, Flow::Fax};

/// The marking of one flow, both values as the server holds them.
struct Mark {
    std::uint16_t menu = 0;
    std::uint16_t tosByte = 0;

    bool isCustom() const { return menu == customMenuValue; }
    /// The TOS byte that packets get.
    std::uint16_t effective() const { return isCustom() ? tosByte : menu; }

    friend bool operator==(const Mark& a, const Mark& b)
    {
        return a.menu == b.menu && a.tosByte == b.tosByte;
    }
    friend bool operator!=(const Mark& a, const Mark& b) { return !(a == b); }
};

/// A mark of the menu: both values are the TOS byte, as the server itself keeps them.
constexpr Mark menuMark(std::uint16_t tosByte)
{
    return Mark{tosByte, tosByte};
}

constexpr Mark customMark(std::uint16_t tosByte)
{
    return Mark{customMenuValue, tosByte};
}

/// What the server sets a flow to when KLonKLEnabled changes to that value.
Mark presetMark(Flow flow, bool enabled);

/// How a user names a flow: "signalling", "voice", "video", "fax".
std::string_view flowKey(Flow flow);

/// The DSCP name of a TOS byte: "EF" for 0xB8, "CS5" for 0xA0, "AF41" for 0x88; nothing for a byte without
/// one.
std::optional<std::string_view> dscpName(std::uint16_t tosByte);

/// All of them.
std::vector<std::string_view> allDscpNames();

/// A mark as a user writes it: a DSCP name in any letter case ("EF"), a TOS byte ("0xB8", "184"), or
/// "custom:" followed by either. Nothing when the text is none of these.
std::optional<Mark> parseMark(const std::string& text);

/// The same the other way: "EF", "0xA4", "custom:0x68". parseMark understands what this writes.
std::string markText(const Mark& mark);

} // namespace lanctl::model
