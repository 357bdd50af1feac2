#include "json/PlanJson.hpp"

#include "plan/Advice.hpp"

namespace lanctl::json
{

namespace
{

template <class Values>
Json arrayOf(const Values& values)
{
    Json array = Json::array();
    for (const auto& value : values)
        array.push_back(toJson(value));
    return array;
}

Json failureJson(const wire::Failure& failure)
{
    return {{"text", failure.what()}, {"advice", failure.advice()}};
}

template <class Failure>
Json optionalJson(const std::optional<Failure>& failure)
{
    return failure ? failureJson(*failure) : Json(nullptr);
}

Json refusedJson(const apply::Outcome::Refused& refused)
{
    const std::string text = refused.error.what();
    return {{"object", refused.object},
            {"text", text},
            {"identifier", refused.error.identifier()},
            {"advice", plan::adviceFor(text, refused.error.identifier())}};
}

Json noteJson(const plan::Note& note)
{
    return {{"object", note.object}, {"key", note.key}, {"text", note.text}};
}

} // namespace

Json toJson(const plan::Change& change)
{
    return {{"object", change.object},
            {"key", change.key},
            {"from", change.from},
            {"to", change.to},
            {"sent", change.sent}};
}

Json toJson(const plan::Impact& impact)
{
    return {{"interface-restarts", impact.interfaceRestarts},
            {"voice-messaging-restarts", impact.voiceMessagingRestarts},
            {"voice-messaging-stops", impact.voiceMessagingStops},
            {"dhcp-service-notices", impact.dhcpServiceNotices},
            {"element-management-notices", impact.elementManagementNotices},
            {"hosts-table-rewrites", impact.hostsTableRewrites},
            {"resolver-file-rewrites", impact.resolverFileRewrites},
            {"default-route-moves", impact.defaultRouteMoves}};
}

Json toJson(const plan::Refusal& refusal)
{
    return {
        {"object", refusal.object},
        {"key", refusal.key},
        {"text", refusal.text},
        {"identifier", refusal.identifier},
        {"by-server", refusal.byServer},
        {"advice", refusal.why.empty() ? plan::adviceFor(refusal.text, refusal.identifier) : refusal.why}};
}

Json toJson(const plan::Plan& plan, const plan::Reach& reach)
{
    Json notes = Json::array();
    for (const auto& note : plan.notes)
        notes.push_back(noteJson(note));
    return {{"changes", arrayOf(plan.changes)},
            {"refusals", arrayOf(plan.refusals)},
            {"notes", std::move(notes)},
            {"warnings", plan.warnings},
            {"costs", toJson(plan.impact())},
            {"requests", plan.requests.size()},
            {"can-cut", !plan.requests.empty() && reach.couldCut()},
            {"connection", reach.why}};
}

Json toJson(const apply::Outcome& outcome)
{
    Json lost = Json::array();
    for (const auto& each : outcome.lost)
        lost.push_back({{"object", each.object}, {"text", each.failure.what()}});
    return {{"done", outcome.done()},
            {"refused", outcome.refused ? refusedJson(*outcome.refused) : Json(nullptr)},
            {"lost", std::move(lost)},
            {"stopped", optionalJson(outcome.stopped)},
            {"unread", optionalJson(outcome.unread)},
            {"moved-to", outcome.followedTo},
            {"remaining", arrayOf(outcome.remaining)}};
}

} // namespace lanctl::json
