#include "web/Api.hpp"

#include "model/Names.hpp"
#include "model/WantedText.hpp"
#include "wayback/GuardLoop.hpp"
#include "wayback/TakeBack.hpp"
#include "web/Gate.hpp"
#include "json/HistoryJson.hpp"

#include <algorithm>
#include <array>
#include <ctime>
#include <optional>
#include <string_view>

namespace lanctl::web
{

namespace
{

using json::Json;

constexpr int longestCountdown = 86400;
constexpr int largestNumber = 999999; // of a change

Response ok(const Json& body)
{
    return {200, "application/json", json::text(body)};
}

std::string timeText(std::chrono::system_clock::time_point time)
{
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    std::array<char, sizeof "2026-03-01T12:00:00Z"> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
    return text.data();
}

Json serverJson(const model::ServerState& state)
{
    Json endpoints = Json::array();
    for (const auto& endpoint : state.endpoints)
        endpoints.push_back(json::toJson(endpoint));
    return {{"endpoints", std::move(endpoints)},
            {"lan", json::toJson(state.setting)},
            {"marking", json::toJson(state.marking)}};
}

/// What the browser wants: [{"object": "eth1", "key": "mtu", "value": "1400"}, ...].
struct Asked {
    model::WantedState wanted;
    Json invalid = Json::array(); // values that are none of their form, by field
    Json file = Json::object();   // the same as a file for `lanctl apply`
};

void ask(Asked& asked, const Json& change)
{
    const auto object = change.at("object").get<std::string>();
    const auto key = change.at("key").get<std::string>();
    const auto value = change.at("value").get<std::string>();
    try {
        model::want(asked.wanted, object, key, value);
        const bool isEndpoint = model::kindOf(object) == model::Kind::Endpoint;
        (isEndpoint ? asked.file["endpoints"][object] : asked.file[object])[key] = value;
    } catch (const model::BadWanted& e) {
        asked.invalid.push_back({{"object", object}, {"key", key}, {"text", e.what()}});
    }
}

Asked askedOf(const Json& body)
{
    Asked asked;
    for (const Json& change : body.at("changes"))
        ask(asked, change);
    return asked;
}

/// A number that JSON may write in any length, within its bounds.
int wholeNumber(const Json& value, const std::string& name, int least, int most)
{
    const bool isWhole = value.is_number_integer();
    const double number = isWhole ? value.get<double>() : 0;
    if (!isWhole || number < least || number > most)
        throw std::invalid_argument(name + " is a number from " + std::to_string(least) + " to " +
                                    std::to_string(most));
    return static_cast<int>(number);
}

int changeNumber(const Json& body, const char* name)
{
    return wholeNumber(body.at(name), name, 1, largestNumber);
}

Response planned(const model::WantedState& wanted, const Snapshot& snapshot, Json invalid, Json notes)
{
    if (!snapshot.state)
        return failure(503, snapshot.trouble, snapshot.advice);
    const plan::Plan plan = plan::plan(*snapshot.state, wanted, snapshot.peerAddress);
    Json told = json::toJson(plan, plan::reach(plan, *snapshot.state, snapshot.peerAddress));
    told["invalid"] = std::move(invalid);
    for (Json& note : notes)
        told["notes"].push_back(std::move(note));
    return ok(told);
}

/// Only what the user has reviewed is done. When the server has changed meanwhile, the answer is the new
/// plan.
std::optional<Response> overtaken(const Response& now, const Json& body)
{
    if (now.status != 200)
        return now;
    const Json plan = Json::parse(now.body);
    if (plan.at("changes") == body.at("reviewed"))
        return std::nullopt;
    const Json error{{"text", "The server has changed meanwhile."}, {"advice", "Review the new plan."}};
    return Response{409, now.type, json::text({{"error", error}, {"plan", plan}})};
}

struct OpenText {
    std::string_view state;
    std::string_view text;
    std::string_view advice;
};

/// What keeps a second change from being made, by the state of the open one; the text follows its number.
constexpr std::array<OpenText, 4> openTexts{{
    {"changing", " is just being made.", "Try again when it has been made."},
    {"waiting", " waits for its confirmation.", "Keep it or take it back first."},
    {"taking-back", " is being taken back.", "Try again when the server is as it was."},
    {"cut-off", " was cut off.", "`lanctl rollback` takes it back, `lanctl confirm` keeps it."},
}};

/// lanctl's own sentence without its name.
std::string complaintOf(const Finished& finished)
{
    const std::string begin = "lanctl: ";
    std::string text = finished.errors;
    if (text.rfind(begin, 0) == 0)
        text.erase(0, begin.size());
    while (!text.empty() && text.back() == '\n')
        text.pop_back();
    return text.empty() ? "lanctl ended with " + std::to_string(finished.status) + "." : text;
}

} // namespace

Api::Api(ApiOptions options, Follower& follower, wayback::History history, Run run)
    : m_options(std::move(options)), m_follower(follower), m_history(std::move(history)),
      m_run(std::move(run))
{
}

Response Api::answer(const Request& request)
{
    const bool reads = request.method == "GET";
    if (request.path == "/api/state")
        return reads ? state() : failure(405, "The state is read with GET.");
    if (request.path == "/api/history")
        return reads ? history() : failure(405, "The history is read with GET.");
    if (reads)
        return failure(404, "There is nothing here.");
    try {
        return post(request);
    } catch (const Json::exception&) {
        return failure(400, "The request is not the JSON that is expected here.");
    } catch (const std::invalid_argument& e) {
        return failure(400, e.what());
    } catch (const std::exception& e) {
        return failure(500, e.what());
    }
}

Response Api::post(const Request& request)
{
    const Json body = Json::parse(request.body);
    if (request.path == "/api/plan")
        return plan(body);
    if (m_options.readOnly)
        return failure(403, "This page is read-only.");
    if (request.path == "/api/apply")
        return apply(body);
    if (request.path == "/api/confirm")
        return confirm(body);
    if (request.path == "/api/revert")
        return revert(body);
    if (request.path == "/api/rollback")
        return rollback(body);
    return failure(404, "There is nothing here.");
}

Response Api::state()
{
    const Snapshot snapshot = m_follower.latest();
    const auto entries = m_history.entries();
    const auto open = m_history.openEntry();
    return ok({{"server", m_options.server},
               {"read-only", m_options.readOnly},
               {"confirm", m_options.confirmSeconds},
               {"reached", snapshot.reached},
               {"since", timeText(snapshot.since)},
               {"trouble", snapshot.trouble},
               {"advice", snapshot.advice},
               {"state", snapshot.state ? serverJson(*snapshot.state) : Json(nullptr)},
               {"open", open ? json::openJson(*open, m_history) : Json(nullptr)},
               {"last", entries.empty() ? Json(nullptr) : json::toJson(entries.back(), m_history)}});
}

/// A plan of changes, or of the way back to the state before a change.
Response Api::plan(const Json& body)
{
    if (body.contains("rollback"))
        return rollbackPlan(changeNumber(body, "rollback"), m_follower.latest());
    Asked asked = askedOf(body);
    return planned(asked.wanted, m_follower.latest(), std::move(asked.invalid), Json::array());
}

Response Api::rollbackPlan(int number, const Snapshot& snapshot) const
{
    const auto entry = m_history.entry(number);
    if (!entry)
        return failure(404, "The history has no change " + std::to_string(number) + ".");
    if (!snapshot.state)
        return failure(503, snapshot.trouble, snapshot.advice);
    if (wayback::hardwareOf(*snapshot.state) != entry->hardware)
        return failure(409, "Change " + std::to_string(number) + " was made on another server.",
                       "`lanctl apply " + m_history.formerStatePath(number) +
                           "` brings the state before it here.");
    const auto possible = wayback::possible(
        *snapshot.state, model::parseWanted(m_history.formerState(number)), snapshot.peerAddress);
    Json notes = Json::array();
    for (const auto& refusal : possible.impossible)
        notes.push_back({{"object", refusal.object},
                         {"key", refusal.key},
                         {"text", "Not to be taken back: " + refusal.text}});
    return planned(possible.wanted, snapshot, Json::array(), std::move(notes));
}

int Api::countdownOf(const Json& body) const
{
    return wholeNumber(body.value("confirm", Json(m_options.confirmSeconds)), "confirm", 1, longestCountdown);
}

Response Api::apply(const Json& body)
{
    Asked asked = askedOf(body);
    if (!asked.invalid.empty())
        return failure(400, asked.invalid.front().at("text").get<std::string>());
    const std::string seconds = std::to_string(countdownOf(body));
    const Response now = planned(asked.wanted, m_follower.fresh(), Json::array(), Json::array());
    if (auto other = overtaken(now, body))
        return *other;
    return runChange({"apply", "-", "--confirm", seconds}, asked.file.dump(), std::nullopt);
}

Response Api::rollback(const Json& body)
{
    const int number = changeNumber(body, "number");
    const std::string seconds = std::to_string(countdownOf(body));
    if (auto other = overtaken(rollbackPlan(number, m_follower.fresh()), body))
        return *other;
    return runChange({"rollback", std::to_string(number), "--confirm", seconds}, "", number);
}

/// The change that keeps another one from being made, as an answer. One that was cut off may be rolled back.
std::optional<Response> Api::openChange(std::optional<int> rolledBack) const
{
    const auto open = m_history.openEntry();
    if (!open)
        return std::nullopt;
    const auto state = json::openJson(*open, m_history).at("state").get<std::string>();
    if (state == "cut-off" && rolledBack == open->number)
        return std::nullopt;
    const auto* const found = std::find_if(openTexts.begin(), openTexts.end(),
                                           [&](const OpenText& text) { return text.state == state; });
    return failure(409, "Change " + std::to_string(open->number) + std::string(found->text),
                   std::string(found->advice));
}

/// `rolledBack` is the number of the change whose former state is brought back, if one is.
Response Api::runChange(std::vector<std::string> arguments, const std::string& input,
                        std::optional<int> rolledBack)
{
    const std::unique_lock lock(m_changing, std::try_to_lock);
    if (!lock)
        return failure(409, "Another change is being made.");
    if (auto open = openChange(rolledBack))
        return *open;
    arguments.insert(arguments.end(), {"--yes", "--json"});
    arguments.insert(arguments.end(), m_options.connection.begin(), m_options.connection.end());
    const Finished finished = m_run(arguments, input);
    m_follower.noteChange();
    const Json told = Json::parse(finished.output, nullptr, false);
    if (told.is_discarded()) {
        if (auto open = openChange(rolledBack)) // another lanctl was faster
            return *open;
        return failure(502, complaintOf(finished));
    }
    return ok(told);
}

Response Api::confirm(const Json& body)
{
    return requestOfGuard(body, wayback::requests::confirm);
}

Response Api::revert(const Json& body)
{
    return requestOfGuard(body, wayback::requests::takeBackNow);
}

/// The guard gives no answer: /api/state tells what becomes of the change.
Response Api::requestOfGuard(const Json& body, const char* request)
{
    const int number = changeNumber(body, "number");
    const auto open = m_history.openEntry();
    if (!open || open->number != number)
        return failure(409, "Change " + std::to_string(number) + " does not wait any more.");
    m_history.folder().mark(request);
    return ok(json::openJson(*open, m_history));
}

Response Api::history() const
{
    Json list = Json::array();
    for (const auto& entry : m_history.entries())
        list.push_back(json::toJson(entry, m_history));
    return ok(list);
}

} // namespace lanctl::web
