#include "kvu_diag.h"

#include "StateDirectory.hpp"

#include <array>
#include <ctime>
#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace
{

using namespace kvplatform;

struct Module {
    std::string shortName;
    std::string logPath;
};

/** The registered modules of this process. Handles start at 1, so that a handle never filled in is refused.
 */
class ModuleTable
{
  public:
    KvuDiagHandle add(Module module)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_modules.emplace(++m_lastHandle, std::move(module));
        return m_lastHandle;
    }

    bool remove(KvuDiagHandle handle)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_modules.erase(handle) == 1;
    }

    std::optional<Module> find(KvuDiagHandle handle)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = m_modules.find(handle);
        return found == m_modules.end() ? std::nullopt : std::optional<Module>(found->second);
    }

  private:
    std::mutex m_mutex;
    std::map<KvuDiagHandle, Module> m_modules;
    KvuDiagHandle m_lastHandle = 0;
};

// Built when the library is loaded, hence before and destroyed after the static objects of its users.
ModuleTable modules;

/** A plain name that ends in ".log" and is not the event log: it can harm no other file of the folder. */
bool isUsableLogName(const std::string& name)
{
    const std::string ending = ".log";
    return name.size() > ending.size() &&
           name.compare(name.size() - ending.size(), ending.size(), ending) == 0 &&
           name.find('/') == std::string::npos && name != "events.log";
}

std::string now()
{
    const std::time_t seconds = std::time(nullptr);
    std::tm utc = {};
    std::array<char, 32> text = {};
    if (gmtime_r(&seconds, &utc) != nullptr)
        std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &utc);
    return text.data();
}

std::string levelName(uint16_t level)
{
    switch (level) {
    case 1:
        return "error";
    case 4:
        return "warning";
    case 8:
        return "note";
    default:
        return "level " + std::to_string(level);
    }
}

std::string withoutLineBreak(std::string text)
{
    if (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text;
}

int registerModule(const char* function, const char* moduleName, const char* shortName,
                   const char* logFileName, KvuDiagHandle* handleOut)
{
    if (moduleName == nullptr || shortName == nullptr || logFileName == nullptr || handleOut == nullptr)
        return kFailure;
    if (!isUsableLogName(logFileName)) {
        complain(function, logFileName, "not a log file name");
        return kFailure;
    }
    const std::string path = statePath(logFileName);
    if (!appendText(function, path, ""))
        return kFailure;
    *handleOut = modules.add({shortName, path});
    return 0;
}

int addLogEntry(const char* function, KvuDiagHandle handle, uint16_t level, const char* text)
{
    const std::optional<Module> module = modules.find(handle);
    if (!module || text == nullptr)
        return kFailure;
    const std::string line = now() + " " + onOneLine(module->shortName) + " " + levelName(level) + ": " +
                             onOneLine(withoutLineBreak(text)) + "\n";
    return appendText(function, module->logPath, line) ? 0 : kFailure;
}

} // namespace

unsigned int KvuDiagRegisterModule(const char* moduleName, const char* shortName, int flags,
                                   const char* logFileName, KvuDiagHandle* handleOut)
{
    return static_cast<unsigned int>(guarded(__func__, [&](const char* function) {
        const int status = registerModule(function, moduleName, shortName, logFileName, handleOut);
        recordEvent(function,
                    {quoted(moduleName), quoted(shortName), std::to_string(flags), quoted(logFileName)},
                    status);
        return status;
    }));
}

unsigned int KvuDiagDeregisterModule(KvuDiagHandle handle)
{
    return static_cast<unsigned int>(guarded(__func__, [&](const char* function) {
        const int status = modules.remove(handle) ? 0 : kFailure;
        recordEvent(function, {std::to_string(handle)}, status);
        return status;
    }));
}

unsigned int KvuDiagAddLogEntry(KvuDiagHandle handle, int destination, uint16_t level, int detail,
                                const char* text)
{
    return static_cast<unsigned int>(guarded(__func__, [&](const char* function) {
        const int status = addLogEntry(function, handle, level, text);
        recordEvent(function,
                    {std::to_string(handle), std::to_string(destination), std::to_string(level),
                     std::to_string(detail), quoted(text)},
                    status);
        return status;
    }));
}
