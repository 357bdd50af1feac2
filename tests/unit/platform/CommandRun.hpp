#ifndef COMMANDRUN_HPP
#define COMMANDRUN_HPP

#include "kv_runcommand.h"

#include <numeric>
#include <string>
#include <vector>

/** One run of runcommand, its lines copied and released. */
struct CommandRun {
    int status = 0;
    std::vector<std::string> output;
    std::vector<std::string> error;
    bool hasOutputArray = false;
    bool hasErrorArray = false;

    explicit CommandRun(const std::string& command, const char* input = nullptr)
    {
        char** out = nullptr;
        char** err = nullptr;
        status = runcommand(command.c_str(), input, &out, &err);
        output = taken(out);
        error = taken(err);
        hasOutputArray = out != nullptr;
        hasErrorArray = err != nullptr;
        freeresultbuf(out);
        freeresultbuf(err);
    }

    std::string text() const { return joined(output); }
    std::string errorText() const { return joined(error); }

  private:
    static std::vector<std::string> taken(char** lines)
    {
        std::vector<std::string> result;
        for (; lines != nullptr && *lines != nullptr; ++lines)
            result.emplace_back(*lines);
        return result;
    }

    static std::string joined(const std::vector<std::string>& lines)
    {
        return std::accumulate(lines.begin(), lines.end(), std::string());
    }
};

#endif
