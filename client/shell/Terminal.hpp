// The terminal that lanctl runs on, or the lack of one.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace lanctl::shell
{

bool inputIsTerminal();
bool outputIsTerminal();
bool errorsAreOnTerminal();

/// Whether standard output may be coloured: a terminal, and NO_COLOR is not set.
bool coloursAreWanted();

/// The text with every character escaped that would do more on a terminal than show itself: control
/// characters, and those that turn the direction of writing. What a server sends is not to move the cursor.
std::string harmless(std::string_view text);

enum class Colour { Plain, Bold, Red, Green, Yellow };

/// The text in that colour, or as it is where colours are not wanted.
std::string coloured(const std::string& text, Colour colour);

/// Asks on the terminal; only "y" and "yes" mean yes.
bool agreed(const std::string& question);

/// Asks for a password without showing it. Nothing when there is no terminal to ask on.
std::optional<std::string> askedPassword(const std::string& prompt);

} // namespace lanctl::shell
