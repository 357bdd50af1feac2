#include "shell/PlanText.hpp"

#include "shell/Complaint.hpp"
#include "shell/Table.hpp"
#include "shell/Terminal.hpp"

#include <algorithm>

namespace lanctl::shell
{

namespace
{

std::string orNone(const std::string& value)
{
    return value.empty() ? "none" : value;
}

void appendCount(std::string& text, int count, const std::string& one, const std::string& many)
{
    if (count == 0)
        return;
    text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + (count == 1 ? one : many);
}

std::string refusalText(const plan::Refusal& refusal)
{
    std::string text = coloured("Refused: ", Colour::Red) + harmless(refusal.object + " " + refusal.key) +
                       ": " + complaint({refusal.text, refusal.identifier, refusal.why}) + "\n";
    return text;
}

std::string noteText(const plan::Note& note)
{
    const std::string about = note.object + (note.key.empty() ? "" : " " + note.key);
    return coloured("Note: ", Colour::Yellow) + harmless(about + ": " + note.text) + "\n";
}

bool remains(const plan::Change& change, const std::vector<plan::Change>& remaining)
{
    return std::any_of(remaining.begin(), remaining.end(), [&](const plan::Change& other) {
        return other.object == change.object && other.key == change.key;
    });
}

std::string remainingText(const plan::Change& change)
{
    return harmless(change.object + " " + change.key + " is " + orNone(change.from) + ", not " +
                    orNone(change.to)) +
           "\n";
}

/// What the request changed before the server refused the rest of it.
std::string madeText(const apply::Outcome& outcome, const plan::Plan& plan, const std::string& object)
{
    std::string text;
    for (const auto& change : plan.changes)
        if (change.object == object && change.sent && !remains(change, outcome.remaining))
            text += (text.empty() ? "" : ", ") + change.key;
    return text.empty() ? "" : "In force all the same: " + harmless(text) + ".\n";
}

bool anyRemains(const std::vector<plan::Change>& remaining, const std::string& object)
{
    return std::any_of(remaining.begin(), remaining.end(),
                       [&](const plan::Change& change) { return change.object == object; });
}

std::string lostText(const apply::Outcome::Lost& lost, const apply::Outcome& outcome)
{
    std::string text = harmless(lost.failure.what()) + " ";
    if (outcome.unread)
        return text + "Whether " + lost.object + " has been changed is not known.\n";
    return text + (anyRemains(outcome.remaining, lost.object)
                       ? lost.object + " has not been changed as wanted.\n"
                       : lost.object + " has been changed all the same.\n");
}

} // namespace

std::string changesText(const std::vector<plan::Change>& changes)
{
    Table table;
    for (const auto& change : changes)
        table.add({{change.object},
                   {change.key},
                   {orNone(change.from)},
                   {"->"},
                   {orNone(change.to), true},
                   {change.sent ? "" : "(without effect, not sent)"}});
    return table.text();
}

std::string impactText(const plan::Impact& impact)
{
    std::string text;
    appendCount(text, impact.interfaceRestarts, "interface restart", "interface restarts");
    appendCount(text, impact.voiceMessagingRestarts, "voice messaging restart", "voice messaging restarts");
    appendCount(text, impact.voiceMessagingStops, "voice messaging stop", "voice messaging stops");
    if (text.empty())
        text = "no interruption";
    appendCount(text, impact.dhcpServiceNotices, "notice to the DHCP service", "notices to the DHCP service");
    appendCount(text, impact.elementManagementNotices, "notice to the element management",
                "notices to the element management");
    appendCount(text, impact.hostsTableRewrites, "rewrite of the hosts table", "rewrites of the hosts table");
    appendCount(text, impact.resolverFileRewrites, "rewrite of the resolver file",
                "rewrites of the resolver file");
    appendCount(text, impact.defaultRouteMoves, "move of the default route", "moves of the default route");
    return text;
}

std::string planText(const plan::Plan& plan)
{
    std::string text = changesText(plan.changes);
    for (const auto& refusal : plan.refusals)
        text += refusalText(refusal);
    if (!plan.requests.empty())
        text += "Costs: " + impactText(plan.impact()) + "\n";
    for (const auto& warning : plan.warnings)
        text += coloured("The server warns: ", Colour::Yellow) + harmless(warning) + "\n";
    for (const auto& note : plan.notes)
        text += noteText(note);
    return text;
}

std::string outcomeText(const apply::Outcome& outcome, const plan::Plan& plan)
{
    std::string text;
    for (const auto& lost : outcome.lost)
        text += lostText(lost, outcome);
    if (!outcome.followedTo.empty())
        text += "The server is now reached at " + outcome.followedTo + ".\n";
    if (outcome.refused)
        text += harmless(outcome.refused->object) + ": " + complaint(outcome.refused->error) + "\n" +
                madeText(outcome, plan, outcome.refused->object);
    if (outcome.stopped)
        text += complaint(*outcome.stopped) + "\n";
    if (outcome.unread)
        return text + "The result cannot be read back: " + complaint(*outcome.unread) + "\n";
    for (const auto& change : outcome.remaining)
        text += remainingText(change);
    return text + (outcome.done() ? "Done.\n" : "");
}

} // namespace lanctl::shell
