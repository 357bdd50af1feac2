#include "json/HistoryJson.hpp"

#include "wayback/BootClock.hpp"
#include "wayback/GuardLoop.hpp"
#include "wayback/Lock.hpp"

namespace lanctl::json
{

namespace
{

using wayback::Progress;

const char* stateText(Progress::Phase phase)
{
    switch (phase) {
    case Progress::Phase::Changing:
        return "changing";
    case Progress::Phase::Waiting:
        return "waiting";
    default:
        return "taking-back";
    }
}

} // namespace

Json toJson(const wayback::Entry& entry, const wayback::History& history)
{
    return {{"number", entry.number},
            {"time", entry.time},
            {"user", entry.user},
            {"server", entry.server},
            {"result", wayback::resultText(entry.result)},
            {"plan", entry.plan},
            {"former-state", history.formerStatePath(entry.number)}};
}

Json openJson(const wayback::Entry& entry, const wayback::History& history)
{
    const bool guarded = wayback::Lock::isHeld(history.folder());
    const auto progress = wayback::readProgress(history.folder(), entry.number).value_or(Progress{});
    Json json = toJson(entry, history);
    json["state"] = guarded ? stateText(progress.phase) : "cut-off";
    json["seconds"] = guarded ? Json(wayback::secondsUntil(progress.until)) : Json(nullptr);
    json["attempts"] = progress.attempts;
    json["trouble"] = progress.trouble;
    json["left"] = progress.left;
    return json;
}

} // namespace lanctl::json
