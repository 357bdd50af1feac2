#include "os_layer.h"

#include "StateDirectory.hpp"

#include <unistd.h>

#include <fstream>
#include <optional>
#include <string>

namespace
{

using namespace kvplatform;

constexpr int kNoRouterCard = 103;

/** What pressing the button gives: the number in "router-button", 0 when there is no such file. */
int pressButton(const char* operation)
{
    const std::optional<bool> exists = entryExists(operation, "router-button");
    if (!exists)
        return kFailure;
    if (!*exists)
        return 0;
    int status = 0;
    const std::string path = statePath("router-button");
    if (std::ifstream(path) >> status)
        return status;
    complain(operation, path, "holds no status number");
    return kFailure;
}

} // namespace

int osGetProcessId(int* pidOut)
{
    if (pidOut == nullptr)
        return kFailure;
    *pidOut = static_cast<int>(::getpid());
    return 0;
}

int osIsZODAOnePresent(bool* presentOut)
{
    return guarded(__func__, [&](const char* function) {
        if (presentOut == nullptr)
            return kFailure;
        const std::optional<bool> present = entryExists(function, "router-card");
        if (!present)
            return kFailure;
        *presentOut = *present;
        return 0;
    });
}

int osResetRouter(void)
{
    return guarded(__func__, [](const char* function) {
        const std::optional<bool> present = entryExists(function, "router-card");
        int status = kFailure;
        if (present)
            status = *present ? pressButton(function) : kNoRouterCard;
        recordEvent(function, {}, status);
        return status;
    });
}
