// The server's error texts without what the object manager puts around them.
#pragma once

#include <string>

namespace lanctl::wire
{

struct ServerText {
    std::string text;       // "Invalid domain name"; the description of the code when the server gave no text
    std::string identifier; // "LAN_ERROR_domainNameBadFormat", without arguments; empty when there is none
};

/// The description of a CIM status code in OpenWBEM's words: "general error" for 1.
std::string codeDescription(int code);

/// Takes apart what arrives as the description of an error: "general error (Invalid domain
/// name#LAN_ERROR_...#)".
ServerText bareText(int code, const std::string& description);

} // namespace lanctl::wire
