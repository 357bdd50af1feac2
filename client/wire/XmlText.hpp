// Text on its way into and out of XML.
#pragma once

#include <string>
#include <string_view>

namespace lanctl::wire
{

/// The text as it may stand in an element or an attribute.
std::string escaped(std::string_view text);

/// Makes an answer that a strict parser accepts. The server hands on bytes of its files as they are, and one
/// stray byte is no reason to show nothing. Control characters, as bytes or references, become their pictures
/// (U+2400 and following). What is not UTF-8 becomes U+FFFD.
std::string repaired(std::string_view xml);

} // namespace lanctl::wire
