#include "XmlText.hpp"

#include <algorithm>
#include <cstddef>

namespace cimom
{
namespace
{

const char* const replacementCharacter = "\xEF\xBF\xBD";

unsigned byteAt(std::string_view text, std::size_t index)
{
    return static_cast<unsigned char>(text[index]);
}

// Bytes of the UTF-8 sequence at the start of a non-empty text (RFC 3629), 0 when there is none.
std::size_t sequenceLength(std::string_view text)
{
    const unsigned lead = byteAt(text, 0);
    if (lead < 0x80) {
        return 1;
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(text, i) & 0xC0) != 0x80) {
            return 0;
        }
    }
    const unsigned second = byteAt(text, 1);
    const bool isOverlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
    const bool isSurrogate = lead == 0xED && second >= 0xA0;
    const bool isBeyondUnicode = lead == 0xF4 && second >= 0x90;
    return isOverlong || isSurrogate || isBeyondUnicode ? 0 : length;
}

// U+FFFE and U+FFFF, the two that UTF-8 can write and XML cannot.
bool isNoCharacter(std::string_view sequence)
{
    return sequence == "\xEF\xBF\xBE" || sequence == "\xEF\xBF\xBF";
}

// The replacement of one ASCII character, or null when it stands for itself.
const char* escapeOf(char c)
{
    switch (c) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&apos;";
    case '\t':
        return "&#9;";
    case '\n':
        return "&#10;";
    case '\r':
        return "&#13;";
    default:
        return static_cast<unsigned char>(c) < 0x20 ? replacementCharacter : nullptr;
    }
}

} // namespace

void appendEscaped(std::string& xml, std::string_view text)
{
    std::size_t plain = 0; // start of what is still to be copied as it is
    const auto replace = [&](std::size_t at, std::size_t length, const char* with) {
        xml.append(text, plain, at - plain).append(with);
        plain = at + length;
    };
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t sequence = sequenceLength(text.substr(i));
        const std::size_t length = std::max<std::size_t>(sequence, 1);
        if (sequence == 0 || isNoCharacter(text.substr(i, length))) {
            replace(i, length, replacementCharacter);
        } else if (const char* escape = escapeOf(text[i]); escape != nullptr) {
            replace(i, length, escape);
        }
        i += length;
    }
    xml.append(text, plain);
}

} // namespace cimom
