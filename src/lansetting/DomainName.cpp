#include "lansetting/DomainName.hpp"

namespace
{

using OpenWBEM::String;

// Not isalpha and isalnum: they follow the locale of the object manager's process.
bool isLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool isDomainCharacter(char c)
{
    return isLetter(c) || (c >= '0' && c <= '9') || c == '.' || c == '-';
}

} // namespace

bool isValidDomainName(const String& name)
{
    if (name.empty() || !isLetter(name.charAt(0)))
        return false;
    for (std::size_t i = 1; i < name.length(); ++i) {
        if (!isDomainCharacter(name.charAt(i)))
            return false;
    }
    return true;
}

String domainOf(const String& hostName)
{
    const std::size_t dot = hostName.indexOf('.');
    return dot == String::npos ? String() : hostName.substring(dot + 1);
}
