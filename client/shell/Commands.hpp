// What lanctl does. Each command returns how lanctl ends. main turns what a command throws into an error and
// an exit code.
#pragma once

#include "model/Wanted.hpp"
#include "shell/Configuration.hpp"
#include "shell/Exit.hpp"

#include <optional>
#include <string>
#include <vector>

namespace lanctl::shell
{

/// How a change is agreed to.
struct Agreement {
    bool yes = false;       // without a question
    bool dryRun = false;    // the plan only
    bool json = false;      // write plan and outcome as JSON at the end, and nothing else
    int confirmSeconds = 0; // 0: the change needs no confirmation
    std::vector<std::string>
        revertVia; // further URLs by which the server is reached when a change is taken back
};

struct WatchOptions {
    double intervalSeconds = 2;
    int count = 0; // how often to look; 0: until Ctrl-C
};

struct WebOptions {
    std::string listen = "127.0.0.1:8080";
    bool readOnly = false;
    int confirmSeconds = 60; // how long a change of the page waits for its confirmation
};

Exit show(const ConnectionChoice& choice, const std::vector<std::string>& objects, bool asJson);
Exit watch(const ConnectionChoice& choice, const std::vector<std::string>& objects,
           const WatchOptions& options);
/// As JSON when that is asked for, or when the file's name ends with ".json"; otherwise as YAML.
Exit exportState(const ConnectionChoice& choice, const std::string& file, bool asJson);
Exit diff(const ConnectionChoice& choice, const std::string& file, bool asJson);
Exit set(const ConnectionChoice& choice, const std::string& object,
         const std::vector<std::string>& assignments, const Agreement& agreement);
Exit applyFile(const ConnectionChoice& choice, const std::string& file, const Agreement& agreement);
Exit resetRouter(const ConnectionChoice& choice, const Agreement& agreement);

/// Keeps the change that waits, or gives up the way back of one that cannot be taken back.
Exit confirm(const ConnectionChoice& choice, bool abandon);
Exit status(bool asJson);
Exit history(const ConnectionChoice& choice, bool asJson);
/// Brings back the state before that change, or before the last one.
Exit rollback(const ConnectionChoice& choice, std::optional<int> number, const Agreement& agreement);

/// Serves the page until it is ended.
Exit web(const ConnectionChoice& choice, const WebOptions& options);

/// The wanted state of a file, or of standard input when it is called "-". Throws UsageError.
model::WantedState wantedOfFile(const std::string& file);

} // namespace lanctl::shell
