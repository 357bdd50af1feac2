#include "OW_CIMDateTime.hpp"
#include "OW_Char16.hpp"
#include "OW_String.hpp"
#include <cerrno>
#include <cmath>
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

template <class Real>
Real real(const String& text, bool isNull, const char* type)
{
    char* end = nullptr;
    errno = 0;
    const Real parsed = static_cast<Real>(strtod(text.c_str(), &end));
    if (isNull || *end || errno != 0 || std::isinf(parsed)) {
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
    return real<Real32>(*this, m_data.isNull(), "Real32");
}

Real64 String::toReal64() const
{
    return real<Real64>(*this, m_data.isNull(), "Real64");
}

UInt8 String::toUInt8(int base) const
{
    return integer<UInt8, unsigned long>(*this, m_data.isNull(), base, "UInt8");
}

Int8 String::toInt8(int base) const
{
    return integer<Int8, long>(*this, m_data.isNull(), base, "Int8");
}

UInt16 String::toUInt16(int base) const
{
    return integer<UInt16, unsigned long>(*this, m_data.isNull(), base, "UInt16");
}

Int16 String::toInt16(int base) const
{
    return integer<Int16, long>(*this, m_data.isNull(), base, "Int16");
}

UInt32 String::toUInt32(int base) const
{
    return integer<UInt32, unsigned long>(*this, m_data.isNull(), base, "UInt32");
}

Char16 String::toChar16() const
{
    if (UTF8Length() != 1) {
        throwConversion(*this, "Char16");
    }
    return Char16(*this);
}

CIMDateTime String::toDateTime() const
{
    return CIMDateTime(*this);
}

Int32 String::toInt32(int base) const
{
    return integer<Int32, long>(*this, m_data.isNull(), base, "Int32");
}

UInt64 String::toUInt64(int base) const
{
    return integer<UInt64, unsigned long long>(*this, m_data.isNull(), base, "UInt64");
}

Int64 String::toInt64(int base) const
{
    return integer<Int64, long long>(*this, m_data.isNull(), base, "Int64");
}

unsigned int String::toUnsignedInt(int base) const
{
    return integer<unsigned int, unsigned long>(*this, m_data.isNull(), base, "unsigned int");
}

int String::toInt(int base) const
{
    return integer<int, long>(*this, m_data.isNull(), base, "int");
}

} // namespace OpenWBEM
