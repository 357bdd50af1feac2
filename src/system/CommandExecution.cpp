#include "system/CommandExecution.hpp"

#include "reporting/Failure.hpp"

#include <OW_CIMException.hpp>

#include <kv_runcommand.h>

#include <string>
#include <string_view>

namespace
{

using OpenWBEM::CIMException;
using OpenWBEM::String;

// What one run of a command printed. Either array may be null.
class PrintedLines
{
  public:
    PrintedLines() = default;
    PrintedLines(const PrintedLines&) = delete;
    PrintedLines& operator=(const PrintedLines&) = delete;
    ~PrintedLines()
    {
        release(errors);
        release(output);
    }

    int run(const String& command) { return runcommand(command.c_str(), nullptr, &output, &errors); }

    char** output = nullptr;
    char** errors = nullptr;

  private:
    static void release(char** lines)
    {
        if (lines != nullptr)
            freeresultbuf(lines);
    }
};

std::string concatenated(char** lines)
{
    std::string text;
    for (char** line = lines; line != nullptr && *line != nullptr; ++line)
        text += *line;
    return text;
}

std::string_view withoutLineBreak(std::string_view line)
{
    if (!line.empty() && line.back() == '\n')
        line.remove_suffix(1);
    return line;
}

std::string joined(char** lines)
{
    std::string text;
    for (char** line = lines; line != nullptr && *line != nullptr; ++line) {
        if (line != lines)
            text += '\n';
        text += withoutLineBreak(*line);
    }
    return text;
}

} // namespace

int runCommand(const String& command, String& output)
{
    output = String("");
    PrintedLines lines;
    const int status = lines.run(command);
    if (status == 0)
        output = String((concatenated(lines.errors) + concatenated(lines.output)).c_str());
    return status;
}

bool checkInjection(const String& command)
{
    const std::string_view text(command.c_str(), command.length()); // a NUL does not end it
    return text.find_first_of(";()") == std::string_view::npos;
}

String invokeCommand(const String& command)
{
    PrintedLines lines;
    if (!checkInjection(command) || lines.run(command) != 0)
        reporting::fail({"ORX_LANEndpointAPI.cpp", __LINE__}, CIMException::METHOD_NOT_AVAILABLE,
                        String("Failed to execute the command: ") + command);
    return String((concatenated(lines.errors) + joined(lines.output)).c_str());
}
