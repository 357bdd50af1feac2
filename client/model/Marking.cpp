#include "model/Marking.hpp"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdio>

namespace lanctl::model
{

namespace
{

struct NamedByte {
    std::string_view name;
    std::uint16_t tosByte;
};

// A DSCP is the upper six bits of the TOS byte.
constexpr std::array<NamedByte, 21> namedBytes{{
    {"CS0", 0x00},  {"CS1", 0x20},  {"CS2", 0x40},  {"CS3", 0x60},  {"CS4", 0x80},  {"CS5", 0xA0},
    {"CS6", 0xC0},  {"CS7", 0xE0},  {"AF11", 0x28}, {"AF12", 0x30}, {"AF13", 0x38}, {"AF21", 0x48},
    {"AF22", 0x50}, {"AF23", 0x58}, {"AF31", 0x68}, {"AF32", 0x70}, {"AF33", 0x78}, {"AF41", 0x88},
    {"AF42", 0x90}, {"AF43", 0x98}, {"EF", 0xB8},
}};

bool sameLetters(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](unsigned char x, unsigned char y) { return std::toupper(x) == std::toupper(y); });
}

std::optional<std::uint16_t> parseNumber(std::string_view text)
{
    const bool hexadecimal = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    if (hexadecimal)
        text.remove_prefix(2);
    unsigned number = 0;
    const auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), number, hexadecimal ? 16 : 10);
    if (error != std::errc() || end != text.data() + text.size() || number > 0xFF)
        return std::nullopt;
    return static_cast<std::uint16_t>(number);
}

std::optional<std::uint16_t> parseTosByte(std::string_view text)
{
    for (const auto& named : namedBytes)
        if (sameLetters(named.name, text))
            return named.tosByte;
    return parseNumber(text);
}

std::string tosByteText(std::uint16_t tosByte)
{
    if (const auto name = dscpName(tosByte))
        return std::string(*name);
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "0x%02X", static_cast<unsigned>(tosByte));
    return text.data();
}

} // namespace

Mark presetMark(Flow flow, bool enabled)
{
    switch (flow) {
    case Flow::Signalling:
        return menuMark(enabled ? 164 : 160);
    case Flow::Video:
        return menuMark(enabled ? 140 : 136);
    default: // voice and fax
        return menuMark(enabled ? 188 : 184);
    }
}

std::string_view flowKey(Flow flow)
{
    constexpr std::array<std::string_view, 4> keys{"signalling", "voice", "video", "fax"};
    return keys.at(static_cast<std::size_t>(flow));
}

std::optional<std::string_view> dscpName(std::uint16_t tosByte)
{
    for (const auto& named : namedBytes)
        if (named.tosByte == tosByte)
            return named.name;
    return std::nullopt;
}

std::vector<std::string_view> allDscpNames()
{
    std::vector<std::string_view> names;
    names.reserve(namedBytes.size());
    for (const auto& named : namedBytes)
        names.push_back(named.name);
    return names;
}

std::optional<Mark> parseMark(const std::string& text)
{
    constexpr std::string_view custom = "custom:";
    const std::string_view whole = text;
    const bool isCustom = sameLetters(whole.substr(0, custom.size()), custom);
    const auto tosByte = parseTosByte(isCustom ? whole.substr(custom.size()) : whole);
    if (!tosByte)
        return std::nullopt;
    return isCustom ? customMark(*tosByte) : menuMark(*tosByte);
}

std::string markText(const Mark& mark)
{
    return (mark.isCustom() ? "custom:" : "") + tosByteText(mark.effective());
}

} // namespace lanctl::model
