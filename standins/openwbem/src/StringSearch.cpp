#include "CaseFolding.hpp"
#include "OW_Array.hpp"
#include "StringData.hpp"
#include <algorithm>
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
    return ignoreCase == String::E_CASE_INSENSITIVE
               ? std::equal(lhs, lhs + count, rhs, [](char a, char b) { return lowered(a) == lowered(b); })
               : std::equal(lhs, lhs + count, rhs);
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
    return !empty() && read().text.front() == arg;
}

bool String::endsWith(const char* arg, EIgnoreCaseFlag ignoreCase) const
{
    const size_t count = arg ? strlen(arg) : 0;
    if (count == 0) {
        return empty();
    }
    if (count > length()) {
        return false;
    }
    const char* const end = c_str() + length() - count;
    return ignoreCase == E_CASE_INSENSITIVE ? compareIgnoringCase(end, arg) == 0 : strcmp(end, arg) == 0;
}

bool String::endsWith(const String& arg, EIgnoreCaseFlag ignoreCase) const
{
    return endsWith(arg.c_str(), ignoreCase);
}

bool String::endsWith(char arg) const
{
    return !empty() && read().text.back() == arg;
}

size_t String::indexOf(char ch, size_t fromIndex) const
{
    if (fromIndex >= length()) {
        return npos;
    }
    return ch ? read().text.find(ch, fromIndex) : length(); // NUL is found at the end
}

size_t String::indexOf(const char* arg, size_t fromIndex) const
{
    return fromIndex < length() ? read().text.find(arg ? arg : "", fromIndex) : npos;
}

size_t String::indexOf(const String& arg, size_t fromIndex) const
{
    return indexOf(arg.c_str(), fromIndex);
}

size_t String::lastIndexOf(char ch, size_t fromIndex) const
{
    const bool isInside = fromIndex < length() || fromIndex == npos;
    return isInside ? read().text.rfind(ch, fromIndex) : npos;
}

// The last match that ends at fromIndex or before it.
size_t String::lastIndexOf(const char* arg, size_t fromIndex) const
{
    const size_t count = arg ? strlen(arg) : 0;
    const size_t searched = fromIndex < length() ? fromIndex + 1 : length();
    if (empty() || count > searched) {
        return npos;
    }
    return read().text.rfind(arg ? arg : "", searched - count);
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
    const bool withDelimiters =
        returnDelimiters == E_RETURN_DELIMITERS || returnDelimiters == E_RETURN_TOKENS;
    const std::string& text = read().text;
    StringArray tokens;
    size_t begin = 0;
    while (begin < text.length()) {
        const size_t end = std::min(text.find_first_of(delims ? delims : "", begin), text.length());
        // An empty token is one between two delimiters.
        if (end > begin || (begin > 0 && returnEmpty == E_RETURN_EMPTY_TOKENS)) {
            tokens.push_back(substring(begin, end - begin));
        }
        if (end < text.length() && withDelimiters) {
            tokens.push_back(String(text[end]));
        }
        begin = end + 1;
    }
    return tokens;
}

String& String::toLowerCase()
{
    if (!empty()) {
        std::string& text = write().text;
        std::transform(text.begin(), text.end(), text.begin(), lowered);
    }
    return *this;
}

String& String::toUpperCase()
{
    if (!empty()) {
        std::string& text = write().text;
        std::transform(text.begin(), text.end(), text.begin(), raised);
    }
    return *this;
}

String& String::ltrim()
{
    return erase(0, read().text.find_first_not_of(BLANKS));
}

String& String::rtrim()
{
    // The position after the last byte that is no blank; none gives npos + 1, which is 0.
    return erase(read().text.find_last_not_of(BLANKS) + 1);
}

String& String::trim()
{
    return rtrim().ltrim();
}

bool String::isSpaces() const
{
    return read().text.find_first_not_of(BLANKS) == npos;
}

} // namespace OpenWBEM
