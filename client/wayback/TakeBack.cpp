#include "wayback/TakeBack.hpp"

#include "apply/Apply.hpp"
#include "apply/Reading.hpp"
#include "model/Names.hpp"
#include "model/WantedText.hpp"
#include "wire/Client.hpp"
#include "wire/Failure.hpp"

#include <algorithm>

namespace lanctl::wayback
{

namespace
{

bool has(const std::vector<std::string>& texts, const std::string& text)
{
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

bool isRefused(const plan::Change& change, const std::vector<plan::Refusal>& refusals)
{
    return std::any_of(refusals.begin(), refusals.end(), [&](const plan::Refusal& refusal) {
        return refusal.object == change.object && refusal.key == change.key;
    });
}

model::WantedState without(model::WantedState wanted, const std::string& object)
{
    wanted.endpoints.erase(std::remove_if(wanted.endpoints.begin(), wanted.endpoints.end(),
                                          [&](const auto& endpoint) { return endpoint.name == object; }),
                           wanted.endpoints.end());
    if (object == model::lanObject)
        wanted.setting = {};
    if (object == model::markingObject)
        wanted.marking = {};
    return wanted;
}

/// The wanted state, in which the object keeps only what differs and is not refused. The object is left out
/// when nothing remains or nothing would be gained.
model::WantedState withoutRefused(const model::WantedState& wanted, const std::string& object,
                                  const plan::Plan& plan)
{
    model::WantedState reduced = without(wanted, object);
    std::size_t kept = 0;
    std::size_t dropped = 0;
    for (const plan::Change& change : plan.changes) {
        if (change.object != object)
            continue;
        if (isRefused(change, plan.refusals)) {
            ++dropped;
            continue;
        }
        ++kept;
        model::want(reduced, object, change.key, change.to);
    }
    return kept > 0 && dropped > 0 ? reduced : without(wanted, object);
}

std::string troubleOf(const apply::Outcome& outcome)
{
    if (outcome.refused)
        return outcome.refused->object + ": " + outcome.refused->error.what();
    if (outcome.stopped)
        return outcome.stopped->what();
    if (outcome.unread)
        return outcome.unread->what();
    return outcome.remaining.empty() ? "" : "the server is not as it was";
}

Attempt takeBackOn(const Way& way, const wire::ConnectionOptions& connection,
                   const std::vector<std::string>& hardware, model::WantedState former)
{
    Attempt attempt;
    wire::ConnectionOptions options = connection;
    options.server = wire::parseServerAddress(way.url);
    wire::Client client(options);
    if (!way.address.empty())
        client.connection().follow(way.address);
    const model::ServerState state = apply::readState(client);
    if (hardwareOf(state) != hardware) {
        attempt.trouble = "another server answers at " + (way.address.empty() ? way.url : way.address);
        return attempt;
    }
    const std::string peer = client.connection().peerAddress();
    const Possible goal = possible(state, std::move(former), peer);
    attempt.impossible = goal.impossible;
    attempt.remaining = goal.plan.changes; // without requests: the server would take these without effect
    attempt.done = goal.plan.requests.empty();
    if (attempt.done)
        return attempt;
    const apply::Outcome outcome =
        apply::carryOut(client, state, goal.wanted, goal.plan, {}, options.timeLimit);
    attempt.trouble = troubleOf(outcome);
    attempt.remaining = outcome.remaining;
    attempt.done = outcome.done();
    return attempt;
}

} // namespace

/// Each turn leaves something out, so the loop ends.
Possible possible(const model::ServerState& state, model::WantedState wanted, const std::string& peerAddress)
{
    Possible result{std::move(wanted), {}, {}};
    result.plan = plan::plan(state, result.wanted, peerAddress);
    while (!result.plan.refusals.empty()) {
        const std::string object = result.plan.refusals.front().object;
        for (const plan::Refusal& refusal : result.plan.refusals)
            if (refusal.object == object)
                result.impossible.push_back(refusal);
        result.wanted = withoutRefused(result.wanted, object, result.plan);
        result.plan = plan::plan(state, result.wanted, peerAddress);
    }
    return result;
}

Attempt takeBack(const wire::ConnectionOptions& connection, const std::vector<Way>& ways,
                 const std::vector<std::string>& hardware, const model::WantedState& former)
{
    Attempt attempt;
    std::string troubles;
    for (const Way& way : ways) {
        try {
            attempt = takeBackOn(way, connection, hardware, former);
        } catch (const std::exception& e) {
            attempt = {};
            attempt.trouble = e.what();
        }
        if (attempt.done)
            return attempt;
        if (troubles.find(attempt.trouble) == std::string::npos)
            troubles += (troubles.empty() ? "" : " ") + attempt.trouble;
    }
    attempt.trouble = troubles;
    return attempt;
}

model::WantedState only(model::WantedState wanted, const std::vector<std::string>& objects)
{
    wanted.endpoints.erase(std::remove_if(wanted.endpoints.begin(), wanted.endpoints.end(),
                                          [&](const auto& endpoint) { return !has(objects, endpoint.name); }),
                           wanted.endpoints.end());
    if (!has(objects, std::string(model::lanObject)))
        wanted.setting = {};
    if (!has(objects, std::string(model::markingObject)))
        wanted.marking = {};
    return wanted;
}

std::vector<std::string> hardwareOf(const model::ServerState& state)
{
    std::vector<std::string> addresses;
    for (const auto& endpoint : state.endpoints)
        if (!endpoint.macAddress.empty())
            addresses.push_back(endpoint.macAddress);
    return addresses;
}

} // namespace lanctl::wayback
