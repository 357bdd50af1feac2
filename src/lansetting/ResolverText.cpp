#include "lansetting/ResolverText.hpp"

#include <OW_Array.hpp>

namespace
{

using OpenWBEM::String;
using OpenWBEM::StringArray;

constexpr const char* searchKeyword = "search";
constexpr const char* nameserverKeyword = "nameserver";

bool contains(const String& text, const char* word)
{
    return text.indexOf(word) != String::npos;
}

StringArray tokensOf(const String& line)
{
    return line.tokenize(" \n\r\t\v");
}

/// What follows the line in which `position` lies; nothing when it is the last one and has no line break.
String afterLine(const String& text, std::size_t position)
{
    const std::size_t lineBreak = text.indexOf('\n', position);
    return lineBreak == String::npos ? String() : text.substring(lineBreak + 1);
}

/// The position of occurrence number `index` of `word`, npos when there are fewer or the number is negative.
std::size_t occurrence(const String& text, const char* word, int index)
{
    std::size_t position = String::npos;
    for (int count = 0; count <= index; ++count) {
        position = text.indexOf(word, count == 0 ? 0 : position + 1);
        if (position == String::npos)
            break;
    }
    return position;
}

} // namespace

bool ResolverText::addLine(const String& line, const String& domainName)
{
    if (line.startsWith("#")) {
        contents += line;
        return true;
    }
    if (contains(line, searchKeyword)) {
        addSearchLine(line, domainName);
        return true;
    }
    return !contains(line, nameserverKeyword) || addNameserverLine(line);
}

void ResolverText::addSearchLine(const String& line, const String& domainName)
{
    const StringArray tokens = tokensOf(line);
    if (tokens.size() != 2)
        return;
    contents += tokens[1] == domainName ? line : "search\t" + domainName + "\n";
}

bool ResolverText::addNameserverLine(const String& line)
{
    const StringArray tokens = tokensOf(line);
    if (tokens.size() != 2)
        return true;
    contents += line;
    // A token is never empty, so an empty address means that none has been found.
    if (primaryDNS.empty())
        primaryDNS = tokens[1];
    else if (secondaryDNS.empty())
        secondaryDNS = tokens[1];
    else
        return false;
    return true;
}

String withSearchDomain(const String& contents, const String& name)
{
    const std::size_t position = contents.indexOf(searchKeyword);
    if (position == String::npos)
        return contents + "search " + name + "\n";
    return contents.substring(0, position) + "search " + name + "\n" + afterLine(contents, position);
}

String withNameserver(const String& contents, const String& address, int index)
{
    const std::size_t position = occurrence(contents, nameserverKeyword, index);
    if (position == String::npos)
        return contents + "nameserver " + address + "\n";
    const String line = address.empty() ? String() : "nameserver " + address + "\n";
    return contents.substring(0, position) + line + afterLine(contents, position);
}
