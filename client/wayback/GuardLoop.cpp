#include "wayback/GuardLoop.hpp"

#include "wayback/BootClock.hpp"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

namespace lanctl::wayback
{

namespace
{

using Json = nlohmann::ordered_json;

constexpr const char* progressFile = "progress.json";
constexpr milliseconds lookForRequests{100};
constexpr milliseconds firstPause{1000};
constexpr milliseconds longestPause{60000};

constexpr std::array<std::pair<Progress::Phase, const char*>, 4> phaseTexts{
    {{Progress::Phase::Changing, "changing"},
     {Progress::Phase::Waiting, "waiting"},
     {Progress::Phase::TakingBack, "taking-back"},
     {Progress::Phase::Ended, "ended"}}};

std::string orNone(const std::string& value)
{
    return value.empty() ? "none" : value;
}

} // namespace

void writeProgress(const Folder& folder, const Progress& progress)
{
    const auto* const phase = std::find_if(phaseTexts.begin(), phaseTexts.end(),
                                           [&](const auto& text) { return text.first == progress.phase; });
    const Json json{{"number", progress.number},     {"boot", bootId()},
                    {"phase", phase->second},        {"until", progress.until.count()},
                    {"attempts", progress.attempts}, {"trouble", progress.trouble},
                    {"left", progress.left}};
    try {
        folder.write(progressFile, json.dump(2, ' ', true, Json::error_handler_t::replace) + "\n");
    } catch (const FolderError&) { // NOLINT(bugprone-empty-catch): the guard's work goes before telling of it
    }
}

std::optional<Progress> readProgress(const Folder& folder, int number)
{
    try {
        const Json json = Json::parse(folder.read(progressFile).value_or(""));
        Progress progress;
        json.at("number").get_to(progress.number);
        if (progress.number != number || json.at("boot").get<std::string>() != bootId())
            return std::nullopt;
        for (const auto& [phase, text] : phaseTexts)
            if (json.at("phase").get<std::string>() == text)
                progress.phase = phase;
        progress.until = milliseconds(json.at("until").get<std::int64_t>());
        json.at("attempts").get_to(progress.attempts);
        json.at("trouble").get_to(progress.trouble);
        json.at("left").get_to(progress.left);
        return progress;
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

void forgetRequests(const Folder& folder)
{
    for (const char* request : {requests::confirm, requests::takeBackNow, requests::abandon})
        folder.remove(request);
}

GuardLoop::GuardLoop(const History& history, int number, milliseconds countdown, Surroundings surroundings)
    : m_history(history), m_folder(history.folder()), m_countdown(countdown),
      m_surroundings(std::move(surroundings))
{
    m_progress.number = number;
}

void GuardLoop::start()
{
    m_progress.phase = Progress::Phase::Waiting;
    m_progress.until = m_surroundings.now() + m_countdown;
    writeProgress(m_folder, m_progress);
}

void GuardLoop::run()
{
    if (confirmedInTime())
        end(Result::Confirmed);
    else
        takeBackUntilDone();
}

bool GuardLoop::confirmedInTime()
{
    while (m_surroundings.now() < m_progress.until) {
        if (m_folder.remove(requests::confirm))
            return true;
        if (m_folder.remove(requests::takeBackNow))
            return false;
        m_surroundings.pause(lookForRequests);
    }
    return false;
}

void GuardLoop::takeBackUntilDone()
{
    m_progress.phase = Progress::Phase::TakingBack;
    m_folder.remove(requests::abandon);
    for (milliseconds pause = firstPause;; pause = std::min(2 * pause, longestPause)) {
        m_progress.until = m_surroundings.now();
        writeProgress(m_folder, m_progress);
        const Attempt attempt = m_surroundings.takeBack();
        note(attempt);
        if (attempt.done)
            return end(Result::TakenBack);
        if (abandonedWithin(pause))
            return end(Result::Abandoned);
    }
}

bool GuardLoop::abandonedWithin(milliseconds pause)
{
    m_progress.until = m_surroundings.now() + pause;
    writeProgress(m_folder, m_progress);
    do {
        if (m_folder.remove(requests::abandon))
            return true;
        if (m_folder.remove(requests::takeBackNow)) // somebody knows that the server is there again
            return false;
        m_surroundings.pause(lookForRequests);
    } while (m_surroundings.now() < m_progress.until);
    return false;
}

void GuardLoop::note(const Attempt& attempt)
{
    ++m_progress.attempts;
    m_progress.trouble = attempt.trouble;
    m_progress.left.clear();
    for (const auto& refusal : attempt.impossible)
        m_progress.left.push_back(refusal.object + " " + refusal.key + ": " + refusal.text);
    for (const auto& change : attempt.remaining)
        m_progress.left.push_back(change.object + " " + change.key + " is " + orNone(change.from) + ", not " +
                                  orNone(change.to));
}

void GuardLoop::end(Result result)
{
    m_progress.phase = Progress::Phase::Ended;
    writeProgress(m_folder, m_progress);
    m_history.end(m_progress.number, result);
}

} // namespace lanctl::wayback
