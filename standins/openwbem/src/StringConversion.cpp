#include "OW_String.hpp"
#include <cerrno>
#include <cstdlib>
#include <limits>

namespace OpenWBEM
{

namespace
{

[[noreturn]] void throwConversion(const String& text, const char* type)
{
    const String message = "Unable to convert \"" + text + "\" into " + type;
    OW_THROW(StringConversionException, message.c_str());
}

// The C library's parsers read an empty text as 0 and wrap negative numbers around; both are part of the
// interface.
long long parse(const char* text, char** end, int base, long)
{
    return strtol(text, end, base);
}

long long parse(const char* text, char** end, int base, long long)
{
    return strtoll(text, end, base);
}

unsigned long long parse(const char* text, char** end, int base, unsigned long)
{
    return strtoul(text, end, base);
}

unsigned long long parse(const char* text, char** end, int base, unsigned long long)
{
    return strtoull(text, end, base);
}

// Parses with the C library's function for Parsed and narrows to Number, which must hold the result.
template <class Number, class Parsed>
Number integer(const String& text, bool isNull, int base, const char* type)
{
    char* end = nullptr;
    errno = 0;
    const auto parsed = parse(text.c_str(), &end, base, Parsed());
    const bool fits = errno == 0 && parsed >= std::numeric_limits<Number>::min() &&
                      parsed <= std::numeric_limits<Number>::max();
    if (isNull || *end || !fits) {
        throwConversion(text, type);
    }
    return static_cast<Number>(parsed);
}

Real64 real(const String& text, bool isNull, const char* type)
{
    char* end = nullptr;
    errno = 0;
    const Real64 parsed = strtod(text.c_str(), &end);
    if (isNull || *end || errno != 0) {
        throwConversion(text, type);
    }
    return parsed;
}

} // namespace

bool String::toBool() const
{
    if (equalsIgnoreCase("true")) {
        return true;
    }
    if (equalsIgnoreCase("false")) {
        return false;
    }
    throwConversion(*this, "bool");
}

Real32 String::toReal32() const
{
    return static_cast<Real32>(real(*this, m_null, "Real32"));
}

Real64 String::toReal64() const
{
    return real(*this, m_null, "Real64");
}

UInt8 String::toUInt8(int base) const
{
    return integer<UInt8, unsigned long>(*this, m_null, base, "UInt8");
}

Int8 String::toInt8(int base) const
{
    return integer<Int8, long>(*this, m_null, base, "Int8");
}

UInt16 String::toUInt16(int base) const
{
    return integer<UInt16, unsigned long>(*this, m_null, base, "UInt16");
}

Int16 String::toInt16(int base) const
{
    return integer<Int16, long>(*this, m_null, base, "Int16");
}

UInt32 String::toUInt32(int base) const
{
    return integer<UInt32, unsigned long>(*this, m_null, base, "UInt32");
}

Int32 String::toInt32(int base) const
{
    return integer<Int32, long>(*this, m_null, base, "Int32");
}

UInt64 String::toUInt64(int base) const
{
    return integer<UInt64, unsigned long long>(*this, m_null, base, "UInt64");
}

Int64 String::toInt64(int base) const
{
    return integer<Int64, long long>(*this, m_null, base, "Int64");
}

unsigned int String::toUnsignedInt(int base) const
{
    return integer<unsigned int, unsigned long>(*this, m_null, base, "unsigned int");
}

int String::toInt(int base) const
{
    return integer<int, long>(*this, m_null, base, "int");
}

} // namespace OpenWBEM
