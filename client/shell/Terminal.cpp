#include "shell/Terminal.hpp"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <termios.h>
#include <unistd.h>

namespace lanctl::shell
{

namespace
{

std::string hexadecimal(unsigned char byte)
{
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "\\x%02x", static_cast<unsigned>(byte));
    return text.data();
}

/// The length of a sequence that must not reach a terminal, or 0. In UTF-8: U+0080 to U+009F are the control
/// characters that some terminals obey; U+200E, U+200F, U+202A to U+202E and U+2066 to U+2069 turn the
/// direction of writing.
std::size_t harmfulLength(std::string_view text)
{
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    if (byte(0) < 0x20 || byte(0) == 0x7F)
        return 1;
    if (byte(0) == 0xC2 && byte(1) >= 0x80 && byte(1) <= 0x9F)
        return 2;
    if (byte(0) != 0xE2)
        return 0;
    const bool turns =
        (byte(1) == 0x80 && (byte(2) == 0x8E || byte(2) == 0x8F || (byte(2) >= 0xA8 && byte(2) <= 0xAE))) ||
        (byte(1) == 0x81 && byte(2) >= 0xA6 && byte(2) <= 0xA9);
    return turns ? 3 : 0;
}

/// Standard input without echo, for as long as it lives.
class EchoOff
{
  public:
    EchoOff()
    {
        m_known = tcgetattr(STDIN_FILENO, &m_before) == 0;
        termios silent = m_before;
        silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        if (m_known)
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
    }
    ~EchoOff()
    {
        if (m_known)
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_before);
    }
    EchoOff(const EchoOff&) = delete;
    EchoOff& operator=(const EchoOff&) = delete;

  private:
    termios m_before{};
    bool m_known = false;
};

} // namespace

bool inputIsTerminal()
{
    return isatty(STDIN_FILENO) == 1;
}

bool outputIsTerminal()
{
    return isatty(STDOUT_FILENO) == 1;
}

bool errorsAreOnTerminal()
{
    return isatty(STDERR_FILENO) == 1;
}

bool coloursAreWanted()
{
    const char* no = std::getenv("NO_COLOR");
    return outputIsTerminal() && (no == nullptr || *no == '\0');
}

std::string harmless(std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        const std::size_t harmful = harmfulLength(text);
        for (std::size_t i = 0; i < harmful; ++i)
            out += hexadecimal(static_cast<unsigned char>(text[i]));
        if (harmful == 0)
            out += text.front();
        text.remove_prefix(harmful == 0 ? 1 : harmful);
    }
    return out;
}

std::string coloured(const std::string& text, Colour colour)
{
    constexpr std::array<const char*, 5> codes{"0", "1", "31", "32", "33"};
    if (colour == Colour::Plain || !coloursAreWanted())
        return text;
    return std::string("\x1b[") + codes.at(static_cast<std::size_t>(colour)) + "m" + text + "\x1b[0m";
}

bool agreed(const std::string& question)
{
    std::cout << question << " [y/N] " << std::flush;
    std::string answer;
    if (!std::getline(std::cin, answer))
        std::cout << "\n";
    return answer == "y" || answer == "Y" || answer == "yes";
}

std::optional<std::string> askedPassword(const std::string& prompt)
{
    if (!inputIsTerminal() || !errorsAreOnTerminal())
        return std::nullopt;
    std::string password;
    {
        const EchoOff silent; // before the question: nobody types earlier
        std::cerr << prompt << std::flush;
        std::getline(std::cin, password);
    }
    std::cerr << "\n";
    return password;
}

} // namespace lanctl::shell
