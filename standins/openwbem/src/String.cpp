#include "CaseFolding.hpp"
#include "OW_Array.hpp"
#include "OW_Bool.hpp"
#include "OW_CIMDateTime.hpp"
#include "OW_CIMObjectPath.hpp"
#include "OW_Char16.hpp"
#include "StringData.hpp"
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

OW_DEFINE_NUMBERED_EXCEPTION(StringConversion, 37)

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

String::String() {}
String::String(const char* str) : m_data(str ? new Data(str) : nullptr) {}
String::String(Int32 val) : m_data(new Data(std::to_string(val))) {}
String::String(UInt32 val) : m_data(new Data(std::to_string(val))) {}
String::String(Int64 val) : m_data(new Data(std::to_string(val))) {}
String::String(UInt64 val) : m_data(new Data(std::to_string(val))) {}
#ifdef OW_LONG_IS_A_TYPE_OF_ITS_OWN
String::String(long val) : m_data(new Data(std::to_string(val))) {}
String::String(unsigned long val) : m_data(new Data(std::to_string(val))) {}
#endif
String::String(Real64 val) : m_data(new Data(decimal(val))) {}
String::String(char c) : m_data(c ? new Data(std::string(1, c)) : nullptr) {}
String::String(const char* str, size_t len) : m_data(str ? new Data(std::string(str, len)) : nullptr) {}
String::String(ETakeOwnershipFlag, char* allocated, size_t len) : String(allocated, len)
{
    delete[] allocated;
}
String::String(Bool val) : String(val.toString()) {}
String::String(const Char16& val) : String(val.toString()) {}
String::String(const Char16Array& val) : m_data(new Data(concatenated(val))) {}
String::String(const CIMDateTime& val) : String(val.toString()) {}
String::String(const CIMObjectPath& val) : String(val.toString()) {}

const String::Data& String::read() const
{
    static const Data empty("");
    return m_data.isNull() ? empty : m_data.read();
}

String::Data& String::write()
{
    if (m_data.isNull()) {
        m_data = COWReference<Data>(new Data(""));
    }
    return m_data.write();
}

size_t String::length() const
{
    return read().text.length();
}

bool String::empty() const
{
    return read().text.empty();
}

size_t String::UTF8Length() const
{
    size_t count = 0;
    for (const char byte : read().text) {
        count += (static_cast<unsigned char>(byte) & 0xC0U) != 0x80 ? 1 : 0;
    }
    return count;
}

const char* String::c_str() const
{
    return read().text.c_str();
}

char String::charAt(size_t pos) const
{
    return pos < length() ? read().text[pos] : '\0';
}

const char& String::operator[](size_t pos) const
{
    static const char beyond = '\0';
    return pos > length() ? beyond : m_data.read().text[pos];
}

char& String::operator[](size_t pos)
{
    static thread_local char beyond;
    beyond = '\0'; // whatever was written to it
    return pos > length() ? beyond : m_data.write().text[pos];
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
        write().text += arg;
    }
    return *this;
}

String& String::concat(const String& arg)
{
    return concat(arg.c_str());
}

String& String::concat(char arg)
{
    write().text += arg;
    return *this;
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
    if (idx < length()) {
        write().text.erase(idx, len);
    }
    return *this;
}

// The hash of P. J. Weinberger, of 13 times each byte.
UInt32 String::hashCode() const
{
    UInt32 hash = 0;
    for (const char byte : read().text) {
        hash = (hash << 4U) + static_cast<UInt32>(13 * static_cast<signed char>(byte));
        const UInt32 high = hash & 0xF0000000U;
        hash = (hash ^ (high >> 24U)) & ~high;
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
    m_data.swap(other.m_data);
}

String String::getLine(std::istream& is)
{
    std::string line;
    std::getline(is, line);
    if (!line.empty() && line.back() == '\r') {
        line.pop_back();
    }
    return String(line.c_str());
}

std::ostream& operator<<(std::ostream& ostr, const String& arg)
{
    return ostr.write(arg.c_str(), static_cast<std::streamsize>(arg.length()));
}

} // namespace OpenWBEM
