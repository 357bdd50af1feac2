// What to do about a text of the server. docs/messages.md has the same sentences; a test holds the two
// together.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace lanctl::plan
{

struct Advice {
    std::string_view text;       // the server's; it may go on behind this
    std::string_view identifier; // empty: none
    std::string_view advice;
};

const std::vector<Advice>& allAdvice();

/// The advice for a text, or "" when there is none.
std::string adviceFor(const std::string& text, const std::string& identifier);

} // namespace lanctl::plan
