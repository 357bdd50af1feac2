#include "OW_String.hpp"

namespace OpenWBEM
{

String operator+(const String& lhs, const String& rhs)
{
    return String(lhs).concat(rhs);
}

String operator+(const char* lhs, const String& rhs)
{
    return String(lhs).concat(rhs);
}

String operator+(const String& lhs, const char* rhs)
{
    return String(lhs).concat(rhs);
}

String operator+(char lhs, const String& rhs)
{
    return String(lhs).concat(rhs);
}

String operator+(const String& lhs, char rhs)
{
    return String(lhs).concat(String(rhs)); // unlike +=, nothing when it is NUL
}

bool operator==(const String& lhs, const String& rhs)
{
    return lhs.compareTo(rhs) == 0;
}

bool operator==(const String& lhs, const char* rhs)
{
    return lhs.compareTo(rhs) == 0;
}

bool operator==(const char* lhs, const String& rhs)
{
    return rhs.compareTo(lhs) == 0;
}

bool operator!=(const String& lhs, const String& rhs)
{
    return lhs.compareTo(rhs) != 0;
}

bool operator!=(const String& lhs, const char* rhs)
{
    return lhs.compareTo(rhs) != 0;
}

bool operator!=(const char* lhs, const String& rhs)
{
    return rhs.compareTo(lhs) != 0;
}

bool operator<(const String& lhs, const String& rhs)
{
    return lhs.compareTo(rhs) < 0;
}

bool operator<(const String& lhs, const char* rhs)
{
    return lhs.compareTo(rhs) < 0;
}

bool operator<(const char* lhs, const String& rhs)
{
    return String(lhs).compareTo(rhs) < 0;
}

bool operator<=(const String& lhs, const String& rhs)
{
    return lhs.compareTo(rhs) <= 0;
}

bool operator<=(const String& lhs, const char* rhs)
{
    return lhs.compareTo(rhs) <= 0;
}

bool operator<=(const char* lhs, const String& rhs)
{
    return rhs.compareTo(lhs) >= 0;
}

bool operator>(const String& lhs, const String& rhs)
{
    return lhs.compareTo(rhs) > 0;
}

bool operator>(const String& lhs, const char* rhs)
{
    return lhs.compareTo(rhs) > 0;
}

bool operator>(const char* lhs, const String& rhs)
{
    return rhs.compareTo(lhs) < 0;
}

bool operator>=(const String& lhs, const String& rhs)
{
    return lhs.compareTo(rhs) >= 0;
}

bool operator>=(const String& lhs, const char* rhs)
{
    return lhs.compareTo(rhs) >= 0;
}

bool operator>=(const char* lhs, const String& rhs)
{
    return rhs.compareTo(lhs) <= 0;
}

} // namespace OpenWBEM
