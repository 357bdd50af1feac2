// What lanctl does. Each command returns how lanctl ends; what it throws, main turns into an error and an
// exit code.
#pragma once

#include "model/Wanted.hpp"
#include "shell/Configuration.hpp"
#include "shell/Exit.hpp"

#include <string>
#include <vector>

namespace lanctl::shell
{

/// How a change is agreed to.
struct Agreement {
    bool yes = false;    // without a question
    bool dryRun = false; // the plan only
};

struct WatchOptions {
    double intervalSeconds = 2;
    int count = 0; // how often to look; 0: until Ctrl-C
};

Exit show(const ConnectionChoice& choice, const std::vector<std::string>& objects, bool json);
Exit watch(const ConnectionChoice& choice, const std::vector<std::string>& objects,
           const WatchOptions& options);
Exit exportState(const ConnectionChoice& choice, const std::string& file);
Exit diff(const ConnectionChoice& choice, const std::string& file);
Exit set(const ConnectionChoice& choice, const std::string& object,
         const std::vector<std::string>& assignments, const Agreement& agreement);
Exit applyFile(const ConnectionChoice& choice, const std::string& file, const Agreement& agreement);
Exit resetRouter(const ConnectionChoice& choice, const Agreement& agreement);

/// The wanted state of a file, or of standard input when it is called "-". Throws UsageError.
model::WantedState wantedOfFile(const std::string& file);

} // namespace lanctl::shell
