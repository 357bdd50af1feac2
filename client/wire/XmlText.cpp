#include "wire/XmlText.hpp"

#include <charconv>
#include <cstddef>

namespace lanctl::wire
{

namespace
{

constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD"; // U+FFFD

bool isForbidden(unsigned code)
{
    return code < 0x20 && code != '\t' && code != '\n' && code != '\r';
}

/// The picture of a control character: U+2400 and following, three bytes of UTF-8.
void appendPicture(std::string& out, unsigned code)
{
    out += "\xE2\x90";
    out += static_cast<char>(0x80 + code);
}

bool isContinuation(std::string_view text, std::size_t at)
{
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80;
}

/// What may follow the first byte of a sequence at once; later bytes are 0x80 to 0xBF.
bool isSecondByte(unsigned char first, unsigned char second)
{
    switch (first) {
    case 0xE0:
        return second >= 0xA0; // not shorter than it could be
    case 0xED:
        return second <= 0x9F; // no surrogate
    case 0xF0:
        return second >= 0x90;
    case 0xF4:
        return second <= 0x8F; // not beyond U+10FFFF
    default:
        return true;
    }
}

/// The length of the well-formed UTF-8 sequence at that place, or 0.
std::size_t sequenceLength(std::string_view text, std::size_t at)
{
    const auto first = static_cast<unsigned char>(text[at]);
    if (first < 0x80)
        return 1;
    std::size_t length = 0;
    if (first >= 0xC2 && first <= 0xDF)
        length = 2;
    else if (first >= 0xE0 && first <= 0xEF)
        length = 3;
    else if (first >= 0xF0 && first <= 0xF4)
        length = 4;
    for (std::size_t i = 1; i < length; ++i)
        if (!isContinuation(text, at + i))
            return 0;
    if (length != 0 && !isSecondByte(first, static_cast<unsigned char>(text[at + 1])))
        return 0;
    return length;
}

struct Reference {
    std::size_t length = 0; // 0: no reference to a forbidden character
    unsigned code = 0;
};

/// A reference such as "&#27;" or "&#x1B;" to a character that XML does not have.
Reference forbiddenReference(std::string_view text, std::size_t at)
{
    if (text.compare(at, 2, "&#") != 0)
        return {};
    const bool hexadecimal = text.compare(at, 3, "&#x") == 0;
    const char* const begin = text.data() + at + (hexadecimal ? 3 : 2);
    const char* const limit = text.data() + text.size();
    unsigned code = 0;
    const auto [end, error] = std::from_chars(begin, limit, code, hexadecimal ? 16 : 10);
    if (error != std::errc() || end == limit || *end != ';' || !isForbidden(code))
        return {};
    return {static_cast<std::size_t>(end - text.data()) + 1 - at, code};
}

} // namespace

std::string escaped(std::string_view text)
{
    std::string out;
    out.reserve(text.size());
    for (const char c : text) {
        switch (c) {
        case '&':
            out += "&amp;";
            break;
        case '<':
            out += "&lt;";
            break;
        case '>':
            out += "&gt;";
            break;
        case '"':
            out += "&quot;";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20)
                out += "&#" + std::to_string(static_cast<unsigned char>(c)) + ";"; // line breaks survive so
            else
                out += c;
        }
    }
    return out;
}

std::string repaired(std::string_view xml)
{
    std::string out;
    out.reserve(xml.size());
    for (std::size_t at = 0; at < xml.size();) {
        const auto byte = static_cast<unsigned char>(xml[at]);
        const Reference reference = forbiddenReference(xml, at);
        if (reference.length != 0) {
            appendPicture(out, reference.code);
            at += reference.length;
        } else if (isForbidden(byte)) {
            appendPicture(out, byte);
            ++at;
        } else if (const std::size_t length = sequenceLength(xml, at)) {
            out += xml.substr(at, length);
            at += length;
        } else {
            out += replacementCharacter;
            ++at;
        }
    }
    return out;
}

} // namespace lanctl::wire
