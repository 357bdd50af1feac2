#include "MofLexer.hpp"

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <strings.h>

namespace cimom
{
namespace
{

bool isLetter(char c)
{
    return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '_';
}
bool isDigit(char c)
{
    return std::isdigit(static_cast<unsigned char>(c)) != 0;
}

void appendUtf8(std::string& into, unsigned code)
{
    const auto byte = [&into](unsigned value) {
        into += static_cast<char>(static_cast<unsigned char>(value));
    };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xC0 | (code >> 6));
        byte(0x80 | (code & 0x3F));
    } else {
        byte(0xE0 | (code >> 12));
        byte(0x80 | ((code >> 6) & 0x3F));
        byte(0x80 | (code & 0x3F));
    }
}

// The decimal form of a MOF integer: 12, 0x1F, 017 or 101b, each with an optional sign.
// False when the digits do not fit the notation or the value does not fit 64 bits.
bool toDecimal(const std::string& written, std::string& decimal)
{
    const bool isSigned = written[0] == '-' || written[0] == '+';
    std::string digits = written.substr(isSigned ? 1 : 0);
    int base = 10;
    if (digits.size() > 2 && digits[0] == '0' && (digits[1] == 'x' || digits[1] == 'X')) {
        base = 16;
        digits.erase(0, 2);
    } else if (digits.size() > 1 && (digits.back() == 'b' || digits.back() == 'B')) {
        base = 2;
        digits.pop_back();
    } else if (digits.size() > 1 && digits[0] == '0') {
        base = 8;
    }
    char* end = nullptr;
    errno = 0;
    const unsigned long long value = std::strtoull(digits.c_str(), &end, base);
    if (errno != 0 || *end != '\0') {
        return false;
    }
    decimal = (written[0] == '-' ? "-" : "") + std::to_string(value);
    return true;
}

} // namespace

bool MofToken::isPunctuation(char character) const
{
    return kind == Kind::Punctuation && text[0] == character;
}

bool MofToken::isKeyword(const char* word) const
{
    return kind == Kind::Identifier && strcasecmp(text.c_str(), word) == 0;
}

std::string MofToken::description() const
{
    switch (kind) {
    case Kind::End:
        return "the end of the file";
    case Kind::String:
        return "\"" + text + "\"";
    case Kind::Pragma:
        return "'#" + text + "'";
    default:
        return "'" + text + "'";
    }
}

MofLexer::MofLexer(std::string_view text, std::string fileName) : m_text(text)
{
    m_position.file = std::move(fileName);
}

char MofLexer::peek(std::size_t ahead) const
{
    return m_offset + ahead < m_text.size() ? m_text[m_offset + ahead] : '\0';
}

char MofLexer::take()
{
    const char c = peek();
    ++m_offset;
    if (c == '\n') {
        ++m_position.line;
        m_position.column = 1;
    } else {
        ++m_position.column;
    }
    return c;
}

MofToken MofLexer::begin(MofToken::Kind kind) const
{
    return {kind, "", m_position};
}

MofToken MofLexer::next()
{
    skipBlanksAndComments();
    if (m_offset >= m_text.size()) {
        return begin(MofToken::Kind::End);
    }
    const char c = peek();
    if (isLetter(c)) {
        return identifier();
    }
    if (isDigit(c) || ((c == '-' || c == '+' || c == '.') && (isDigit(peek(1)) || peek(1) == '.'))) {
        return number();
    }
    if (c == '"') {
        return quoted(c, MofToken::Kind::String);
    }
    if (c == '\'') {
        return quoted(c, MofToken::Kind::Character);
    }
    if (c == '#') {
        return pragma();
    }
    MofToken token = begin(MofToken::Kind::Punctuation);
    token.text = take();
    if (std::string_view("{}[](),;:=$").find(c) == std::string_view::npos) {
        throw MofError(token.position, "a MOF token", token.description());
    }
    return token;
}

void MofLexer::skipBlanksAndComments()
{
    for (;;) {
        if (m_offset < m_text.size() && std::isspace(static_cast<unsigned char>(peek())) != 0) {
            take();
        } else if (peek() == '/' && peek(1) == '/') {
            while (m_offset < m_text.size() && peek() != '\n') {
                take();
            }
        } else if (peek() == '/' && peek(1) == '*') {
            skipBlockComment();
        } else {
            return;
        }
    }
}

void MofLexer::skipBlockComment()
{
    take();
    take();
    while (!(peek() == '*' && peek(1) == '/')) {
        if (m_offset >= m_text.size()) {
            throw MofError(m_position, "'*/'", "the end of the file");
        }
        take();
    }
    take();
    take();
}

MofToken MofLexer::identifier()
{
    MofToken token = begin(MofToken::Kind::Identifier);
    while (isLetter(peek()) || isDigit(peek())) {
        token.text += take();
    }
    return token;
}

MofToken MofLexer::number()
{
    MofToken token = begin(MofToken::Kind::Integer);
    token.text += take();
    const auto followsExponent = [&token] {
        const char last = token.text.back();
        return last == 'e' || last == 'E';
    };
    const auto isHexadecimal = [&token] { return token.text.find_first_of("xX") != std::string::npos; };
    while (isLetter(peek()) || isDigit(peek()) || peek() == '.' ||
           ((peek() == '-' || peek() == '+') && followsExponent() && !isHexadecimal())) {
        token.text += take();
    }
    if (!isHexadecimal() && token.text.find_first_of(".eE") != std::string::npos) {
        token.kind = MofToken::Kind::Real;
        char* end = nullptr;
        std::strtod(token.text.c_str(), &end);
        if (*end != '\0') {
            throw MofError(token.position, "a number", token.description());
        }
    } else if (const std::string written = token.text; !toDecimal(written, token.text)) {
        throw MofError(token.position, "an integer of at most 64 bits", token.description());
    }
    return token;
}

MofToken MofLexer::quoted(char quote, MofToken::Kind kind)
{
    MofToken token = begin(kind);
    take();
    while (peek() != quote) {
        if (m_offset >= m_text.size() || peek() == '\n') {
            const char* found = m_offset >= m_text.size() ? "the end of the file" : "the end of the line";
            throw MofError(m_position, std::string("a closing ") + quote, found);
        }
        if (peek() == '\\') {
            escape(token.text);
        } else {
            token.text += take();
        }
    }
    take();
    return token;
}

void MofLexer::escape(std::string& into)
{
    const SourcePosition position = m_position;
    take();
    const char letter = take();
    static const std::string_view letters = "btnfr\"'\\";
    static const std::string_view meanings = "\b\t\n\f\r\"'\\";
    if (const std::size_t found = letters.find(letter); found != std::string_view::npos && letter != '\0') {
        into += meanings[found];
        return;
    }
    unsigned code = 0;
    int digits = 0;
    for (; digits < 4 && std::isxdigit(static_cast<unsigned char>(peek())) != 0; ++digits) {
        const char digit[] = {take(), '\0'};
        code = code * 16 + static_cast<unsigned>(std::strtoul(digit, nullptr, 16));
    }
    if ((letter != 'x' && letter != 'X') || digits == 0 || code == 0) {
        throw MofError(position, R"(one of the escapes \b \t \n \f \r \" \' \\ \x1234)",
                       std::string("'\\") + letter + "'");
    }
    appendUtf8(into, code);
}

MofToken MofLexer::pragma()
{
    MofToken token = begin(MofToken::Kind::Pragma);
    take();
    while (isLetter(peek())) {
        token.text += take();
    }
    return token;
}

} // namespace cimom
