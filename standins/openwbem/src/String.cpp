#include "CaseFolding.hpp"
#include "OW_Array.hpp"
#include "OW_Bool.hpp"
#include "OW_CIMDateTime.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_COWReference.hpp"
#include "OW_Char16.hpp"
#include "OW_String.hpp"
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <istream>
#include <ostream>
#include <sstream>
#include <vector>

namespace OpenWBEM
{

OW_DEFINE_EXCEPTION(StringConversion)

const size_t String::npos = ~size_t(0);

namespace
{

std::string decimal(Real64 val)
{
    std::ostringstream text;
    text << val;
    return text.str();
}

std::string concatenated(const Char16Array& characters)
{
    std::string text;
    for (const Char16& character : characters) {
        text += character.toString().c_str();
    }
    return text;
}

} // namespace

String::String() : m_null(true) {}
String::String(const char* str) : m_text(str ? str : ""), m_null(str == nullptr) {}
String::String(Int32 val) : m_text(std::to_string(val)), m_null(false) {}
String::String(UInt32 val) : m_text(std::to_string(val)), m_null(false) {}
String::String(Int64 val) : m_text(std::to_string(val)), m_null(false) {}
String::String(UInt64 val) : m_text(std::to_string(val)), m_null(false) {}
#ifdef OW_LONG_IS_A_TYPE_OF_ITS_OWN
String::String(long val) : m_text(std::to_string(val)), m_null(false) {}
String::String(unsigned long val) : m_text(std::to_string(val)), m_null(false) {}
#endif
String::String(Real64 val) : m_text(decimal(val)), m_null(false) {}
String::String(char c) : m_text(c ? 1 : 0, c), m_null(c == '\0') {}
String::String(const char* str, size_t len) : m_null(str == nullptr)
{
    if (str) {
        m_text.assign(str, len);
    }
}
String::String(ETakeOwnershipFlag, char* allocated, size_t len) : String(allocated, len)
{
    delete[] allocated;
}
String::String(Bool val) : String(val.toString()) {}
String::String(const Char16& val) : String(val.toString()) {}
String::String(const Char16Array& val) : m_text(concatenated(val)), m_null(false) {}
String::String(const CIMDateTime& val) : String(val.toString()) {}
String::String(const CIMObjectPath& val) : String(val.toString()) {}

bool String::empty() const
{
    return m_text.empty();
}

size_t String::UTF8Length() const
{
    size_t count = 0;
    for (const char byte : m_text) {
        count += (static_cast<unsigned char>(byte) & 0xC0U) != 0x80 ? 1 : 0;
    }
    return count;
}

const char* String::c_str() const
{
    return m_text.c_str();
}

char String::charAt(size_t pos) const
{
    return pos < m_text.length() ? m_text[pos] : '\0';
}

const char& String::operator[](size_t pos) const
{
    if (m_null) {
        throwNullReference();
    }
    return m_text[pos];
}

char& String::operator[](size_t pos)
{
    if (m_null) {
        throwNullReference();
    }
    return m_text[pos];
}

int String::format(const char* fmt, ...)
{
    va_list args;
    va_start(args, fmt);
    va_list again;
    va_copy(again, args);
    const int needed = vsnprintf(nullptr, 0, fmt, args);
    va_end(args);
    std::vector<char> buffer(needed < 0 ? 1 : static_cast<size_t>(needed) + 1);
    if (needed >= 0) {
        vsnprintf(buffer.data(), buffer.size(), fmt, again);
    }
    va_end(again);
    // An argument may be this String's own text, hence the buffer.
    *this = String(buffer.data());
    return static_cast<int>(length());
}

int String::compareTo(const char* arg) const
{
    return strcmp(c_str(), arg);
}

int String::compareTo(const String& arg) const
{
    return compareTo(arg.c_str());
}

int String::compareToIgnoreCase(const char* arg) const
{
    return compareIgnoringCase(c_str(), arg);
}

int String::compareToIgnoreCase(const String& arg) const
{
    return compareToIgnoreCase(arg.c_str());
}

bool String::equals(const char* arg) const
{
    return compareTo(arg) == 0;
}

bool String::equals(const String& arg) const
{
    return compareTo(arg) == 0;
}

bool String::equalsIgnoreCase(const char* arg) const
{
    return compareToIgnoreCase(arg) == 0;
}

bool String::equalsIgnoreCase(const String& arg) const
{
    return compareToIgnoreCase(arg) == 0;
}

String& String::concat(const char* arg)
{
    if (arg && *arg) {
        m_text += arg;
        m_null = false;
    }
    return *this;
}

String& String::concat(const String& arg)
{
    return concat(arg.c_str());
}

String& String::concat(char arg)
{
    const char text[] = {arg, '\0'};
    return concat(text);
}

String& String::operator+=(const String& arg)
{
    return concat(arg);
}

String& String::operator+=(const char* arg)
{
    return concat(arg);
}

String& String::operator+=(char arg)
{
    return concat(arg);
}

String& String::erase()
{
    return *this = String();
}

String& String::erase(size_t idx, size_t len)
{
    if (idx < m_text.length()) {
        m_text.erase(idx, len);
    }
    return *this;
}

UInt32 String::hashCode() const
{
    UInt32 hash = 0;
    for (const char byte : m_text) {
        hash = hash * 31U + static_cast<unsigned char>(byte);
    }
    return hash;
}

String String::toString() const
{
    return *this;
}

char* String::allocateCString() const
{
    return strdup(c_str());
}

void String::swap(String& other)
{
    m_text.swap(other.m_text);
    std::swap(m_null, other.m_null);
}

String String::getLine(std::istream& is)
{
    std::string line;
    std::getline(is, line);
    return String(line.c_str());
}

std::ostream& operator<<(std::ostream& ostr, const String& arg)
{
    return ostr.write(arg.c_str(), static_cast<std::streamsize>(arg.length()));
}

} // namespace OpenWBEM
