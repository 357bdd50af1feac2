#include "StateDirectory.hpp"

#include "FileDescriptor.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <system_error>

namespace kvplatform
{

namespace
{

std::string stateDirectory()
{
    const char* configured = std::getenv("KV_STATE_DIR");
    return configured != nullptr && *configured != '\0' ? configured : "/var/lib/kv";
}

bool writeWhole(int fd, const std::string& text)
{
    const ssize_t written = ::write(fd, text.data(), text.size());
    if (written >= 0 && static_cast<std::size_t>(written) != text.size())
        errno = ENOSPC;
    return written == static_cast<ssize_t>(text.size());
}

bool tryAppend(const std::string& path, const std::string& text)
{
    const FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644));
    return file && writeWhole(file.get(), text);
}

std::string escaped(char c)
{
    if (c == '\n')
        return "\\n";
    char code[8] = "";
    std::snprintf(code, sizeof code, "\\x%02X", static_cast<unsigned char>(c));
    return code;
}

bool isControl(char c)
{
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

} // namespace

std::string statePath(const std::string& entry)
{
    return stateDirectory() + "/" + entry;
}

void complain(const std::string& operation, const std::string& subject, const std::string& reason)
{
    const std::string line = onOneLine("kvplatform: " + operation + ": " + subject + ": " + reason) + "\n";
    // Nobody is left to be told when standard error itself fails.
    [[maybe_unused]] const bool told = writeWhole(STDERR_FILENO, line);
}

std::string lastError()
{
    return std::generic_category().message(errno);
}

std::optional<bool> entryExists(const char* operation, const std::string& entry)
{
    struct stat status = {};
    const std::string path = statePath(entry);
    if (::stat(path.c_str(), &status) == 0)
        return true;
    if (errno == ENOENT && ::stat(stateDirectory().c_str(), &status) == 0)
        return false;
    complain(operation, path, lastError());
    return std::nullopt;
}

bool appendText(const char* operation, const std::string& path, const std::string& text)
{
    if (tryAppend(path, text))
        return true;
    complain(operation, path, lastError());
    return false;
}

std::string onOneLine(const std::string& text)
{
    std::string line;
    for (const char c : text)
        line += isControl(c) ? escaped(c) : std::string(1, c);
    return line;
}

std::string quoted(const char* text)
{
    return text == nullptr ? "NULL" : "\"" + onOneLine(text) + "\"";
}

bool recordEvent(const char* function, std::initializer_list<std::string> arguments, int status)
{
    std::string line = std::string(function) + "(";
    const char* separator = "";
    for (const std::string& argument : arguments) {
        line += separator + argument;
        separator = ", ";
    }
    line += ") = " + std::to_string(status) + "\n";
    const std::string path = statePath("events.log");
    return status == kFailure ? tryAppend(path, line) : appendText(function, path, line);
}

} // namespace kvplatform
