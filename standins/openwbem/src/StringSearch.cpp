#include "OW_Array.hpp"
#include "OW_String.hpp"
#include <algorithm>
#include <bitset>
#include <cstdint>
#include <cstring>

// Finding, splitting and trimming; letters and blanks are those of ASCII, whatever the host's locale.
namespace OpenWBEM
{

namespace
{

char lowered(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

char raised(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

const char* const BLANKS = " \t\n\v\f\r";

// std::string and String count alike, and npos is the same number in both.
static_assert(std::string::npos == ~size_t(0), "positions of std::string are passed on");

bool sameBytes(const char* lhs, const char* rhs, size_t count, String::EIgnoreCaseFlag ignoreCase)
{
    for (size_t i = 0; i < count; ++i) {
        const bool same =
            ignoreCase == String::E_CASE_INSENSITIVE ? lowered(lhs[i]) == lowered(rhs[i]) : lhs[i] == rhs[i];
        if (!same) {
            return false;
        }
    }
    return true;
}

} // namespace

bool String::startsWith(const char* arg, EIgnoreCaseFlag ignoreCase) const
{
    const size_t count = arg ? strlen(arg) : 0;
    if (count == 0) {
        return empty();
    }
    return count <= length() && sameBytes(c_str(), arg, count, ignoreCase);
}

bool String::startsWith(const String& arg, EIgnoreCaseFlag ignoreCase) const
{
    return startsWith(arg.c_str(), ignoreCase);
}

bool String::startsWith(char arg) const
{
    return !empty() && m_text.front() == arg;
}

bool String::endsWith(const char* arg, EIgnoreCaseFlag ignoreCase) const
{
    const size_t count = arg ? strlen(arg) : 0;
    if (count == 0) {
        return empty();
    }
    return count <= length() && sameBytes(c_str() + length() - count, arg, count, ignoreCase);
}

bool String::endsWith(const String& arg, EIgnoreCaseFlag ignoreCase) const
{
    return endsWith(arg.c_str(), ignoreCase);
}

bool String::endsWith(char arg) const
{
    return !empty() && m_text.back() == arg;
}

size_t String::indexOf(char ch, size_t fromIndex) const
{
    return fromIndex < length() ? m_text.find(ch, fromIndex) : npos;
}

size_t String::indexOf(const char* arg, size_t fromIndex) const
{
    return fromIndex < length() ? m_text.find(arg, fromIndex) : npos;
}

size_t String::indexOf(const String& arg, size_t fromIndex) const
{
    return indexOf(arg.c_str(), fromIndex);
}

size_t String::lastIndexOf(char ch, size_t fromIndex) const
{
    return m_text.rfind(ch, fromIndex);
}

size_t String::lastIndexOf(const char* arg, size_t fromIndex) const
{
    return m_text.rfind(arg, fromIndex);
}

size_t String::lastIndexOf(const String& arg, size_t fromIndex) const
{
    return lastIndexOf(arg.c_str(), fromIndex);
}

String String::substring(size_t beginIndex, size_t count) const
{
    if (beginIndex >= length() || count == 0) {
        return String();
    }
    const size_t left = length() - beginIndex;
    return String(c_str() + beginIndex, count < left ? count : left);
}

StringArray String::tokenize(const char* delims, EReturnDelimitersFlag returnDelimiters,
                             EEmptyTokenReturnFlag returnEmpty) const
{
    StringArray tokens;
    if (empty()) {
        return tokens;
    }
    std::bitset<256> isDelimiter;
    for (; delims && *delims; ++delims) {
        isDelimiter.set(static_cast<uint8_t>(*delims));
    }
    auto begin = m_text.begin();
    while (true) {
        const auto end =
            std::find_if(begin, m_text.end(), [&](char c) { return isDelimiter[static_cast<uint8_t>(c)]; });
        if (end != begin || returnEmpty == E_RETURN_EMPTY_TOKENS) {
            tokens.push_back(String(std::string(begin, end).c_str()));
        }
        if (end == m_text.end()) {
            return tokens;
        }
        if (returnDelimiters == E_RETURN_DELIMITERS) {
            tokens.push_back(String(*end));
        }
        begin = end + 1;
    }
}

String& String::toLowerCase()
{
    for (char& c : m_text) {
        c = lowered(c);
    }
    return *this;
}

String& String::toUpperCase()
{
    for (char& c : m_text) {
        c = raised(c);
    }
    return *this;
}

String& String::ltrim()
{
    m_text.erase(0, m_text.find_first_not_of(BLANKS));
    return *this;
}

String& String::rtrim()
{
    // The position after the last byte that is no blank; none gives npos + 1, which is 0.
    m_text.erase(m_text.find_last_not_of(BLANKS) + 1);
    return *this;
}

String& String::trim()
{
    return rtrim().ltrim();
}

bool String::isSpaces() const
{
    return m_text.find_first_not_of(BLANKS) == npos;
}

} // namespace OpenWBEM
