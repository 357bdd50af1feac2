#pragma once

#include <string>
#include <string_view>

namespace cimom
{

// Appends text for element content and attribute values: & < > " ' as entities, CR, LF and TAB as character
// references. What XML cannot carry (other control characters, bytes that are no UTF-8) becomes U+FFFD.
void appendEscaped(std::string& xml, std::string_view text);

bool isUtf8(std::string_view text);

} // namespace cimom
