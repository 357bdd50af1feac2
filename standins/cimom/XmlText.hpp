#pragma once

#include <string>
#include <string_view>

namespace cimom
{

// Appends text for element content and attribute values: & < > " ' as entities, CR, LF and TAB as character
// references. What XML cannot carry becomes U+FFFD: other control characters, U+FFFE, U+FFFF, and bytes that
// are no UTF-8.
void appendEscaped(std::string& xml, std::string_view text);

} // namespace cimom
