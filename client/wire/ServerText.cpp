#include "wire/ServerText.hpp"

#include <algorithm>
#include <array>

namespace lanctl::wire
{

namespace
{

constexpr std::array<const char*, 18> descriptions{
    "no error",
    "general error",
    "Access to CIM resource unavailable to client",
    "namespace does not exist",
    "invalid parameter passed to method",
    "class does not exist",
    "requested object could not be found",
    "requested operation is not supported",
    "operation cannot be done on class with subclasses",
    "operator cannot be done on class with instances",
    "specified superclass does not exist",
    "object already exists",
    "specified property does not exist",
    "value supplied is incompatible with type",
    "query language is not recognized or supported",
    "query is not valid for the specified query language",
    "extrinsic method could not be executed",
    "extrinsic method does not exist",
};

bool startsWith(const std::string& text, const std::string& start)
{
    return text.compare(0, start.size(), start) == 0;
}

/// The text between "description (" and ")", or the whole where it is not decorated so.
std::string insideOfDecoration(const std::string& whole, const std::string& decoration)
{
    const std::string opening = decoration + " (";
    if (!startsWith(whole, opening) || whole.back() != ')')
        return whole;
    return whole.substr(opening.size(), whole.size() - opening.size() - 1);
}

std::string withoutTrailingBlanks(std::string text)
{
    text.erase(text.find_last_not_of(" \t\r\n") + 1);
    return text;
}

} // namespace

std::string codeDescription(int code)
{
    const bool known = code >= 0 && static_cast<std::size_t>(code) < descriptions.size();
    return known ? descriptions.at(static_cast<std::size_t>(code)) : "unknown error";
}

ServerText bareText(int code, const std::string& description)
{
    const std::string whole = withoutTrailingBlanks(description);
    const std::string decoration = codeDescription(code);
    std::string text = insideOfDecoration(whole, decoration);
    std::string identifier;
    const auto first = text.find('#');
    if (first != std::string::npos && text.size() > first + 1 && text.back() == '#') {
        identifier = text.substr(first + 1, text.size() - first - 2);
        identifier.erase(
            std::min(identifier.find(','), identifier.size())); // arguments follow the first comma
        text.erase(first);
    }
    text = withoutTrailingBlanks(text);
    return {text.empty() ? decoration : text, identifier};
}

} // namespace lanctl::wire
