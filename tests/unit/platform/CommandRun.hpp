#ifndef COMMANDRUN_HPP
#define COMMANDRUN_HPP

#include "kv_runcommand.h"

#include <numeric>
#include <string>
#include <vector>

/** What one call of runcommand gave. */
struct CommandRun {
    int status = 0;
    std::vector<std::string> output;
    std::vector<std::string> error;
    bool hasOutputArray = false;
    bool hasErrorArray = false;

    std::string text() const { return joined(output); }
    std::string errorText() const { return joined(error); }

  private:
    static std::string joined(const std::vector<std::string>& lines)
    {
        return std::accumulate(lines.begin(), lines.end(), std::string());
    }
};

/** Copies a line array and releases it. */
inline std::vector<std::string> taken(char** lines)
{
    std::vector<std::string> result;
    for (char** line = lines; line != nullptr && *line != nullptr; ++line)
        result.emplace_back(*line);
    freeresultbuf(lines);
    return result;
}

inline CommandRun execute(const std::string& command, const char* input = nullptr)
{
    char** out = nullptr;
    char** err = nullptr;
    CommandRun run;
    run.status = runcommand(command.c_str(), input, &out, &err);
    run.hasOutputArray = out != nullptr;
    run.hasErrorArray = err != nullptr;
    run.output = taken(out);
    run.error = taken(err);
    return run;
}

#endif
