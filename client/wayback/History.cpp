#include "wayback/History.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <nlohmann/json.hpp>
#include <pwd.h>
#include <unistd.h>

namespace lanctl::wayback
{

namespace
{

using Json = nlohmann::ordered_json;

constexpr std::size_t keptEntries = 50;
constexpr std::size_t digits = 6;

constexpr std::array<std::pair<Result, const char*>, 6> resultTexts{{{Result::Open, "open"},
                                                                     {Result::Done, "done"},
                                                                     {Result::NotAsWanted, "not-as-wanted"},
                                                                     {Result::Confirmed, "confirmed"},
                                                                     {Result::TakenBack, "taken-back"},
                                                                     {Result::Abandoned, "abandoned"}}};

std::optional<Result> resultOf(const std::string& text)
{
    for (const auto& [result, itsText] : resultTexts)
        if (text == itsText)
            return result;
    return std::nullopt;
}

std::string numberText(int number)
{
    std::string text = std::to_string(number);
    return std::string(digits - std::min(digits, text.size()), '0') + text;
}

std::string entryName(int number, Result result)
{
    return numberText(number) + "." + resultText(result) + ".json";
}

std::string stateName(int number)
{
    return numberText(number) + ".yaml";
}

struct EntryName {
    int number;
    Result result;
};

/// Takes "000012.open.json" apart.
std::optional<EntryName> parsedName(const std::string& name)
{
    const std::string ending = ".json";
    const bool long_enough = name.size() > digits + 1 + ending.size();
    if (!long_enough || name.find_first_not_of("0123456789") != digits || name[digits] != '.' ||
        name.compare(name.size() - ending.size(), ending.size(), ending) != 0)
        return std::nullopt;
    const auto result = resultOf(name.substr(digits + 1, name.size() - digits - 1 - ending.size()));
    if (!result)
        return std::nullopt;
    return EntryName{std::stoi(name.substr(0, digits)), *result};
}

std::string now()
{
    const std::time_t time = std::time(nullptr);
    std::tm parts{};
    gmtime_r(&time, &parts);
    std::array<char, sizeof "2026-03-01T12:00:00Z"> text{};
    std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
    return text.data();
}

std::string userName()
{
    const passwd* user = getpwuid(getuid());
    return user == nullptr ? std::to_string(getuid()) : user->pw_name;
}

std::string jsonText(const Entry& entry)
{
    Json ways = Json::array();
    for (const Way& way : entry.ways)
        ways.push_back({{"url", way.url}, {"address", way.address}});
    const Json json{
        {"time", entry.time},      {"user", entry.user},        {"server", entry.server},
        {"plan", entry.plan},      {"objects", entry.objects},  {"hardware", entry.hardware},
        {"ways", std::move(ways)}, {"moves-to", entry.movesTo}, {"confirm", entry.confirmSeconds}};
    return json.dump(2, ' ', true, Json::error_handler_t::replace) + "\n";
}

std::optional<Entry> parsedEntry(const EntryName& name, const std::string& text)
{
    try {
        const Json json = Json::parse(text);
        Entry entry;
        entry.number = name.number;
        entry.result = name.result;
        json.at("time").get_to(entry.time);
        json.at("user").get_to(entry.user);
        json.at("server").get_to(entry.server);
        json.at("plan").get_to(entry.plan);
        json.at("objects").get_to(entry.objects);
        json.at("hardware").get_to(entry.hardware);
        for (const Json& way : json.at("ways"))
            entry.ways.push_back({way.at("url").get<std::string>(), way.at("address").get<std::string>()});
        entry.movesTo = json.value("moves-to", "");
        json.at("confirm").get_to(entry.confirmSeconds);
        return entry;
    } catch (const Json::exception&) {
        return std::nullopt;
    }
}

} // namespace

std::string resultText(Result result)
{
    for (const auto& [itsResult, text] : resultTexts)
        if (result == itsResult)
            return text;
    return {};
}

int History::begin(Entry entry, const std::string& formerState) const
{
    entry.time = now();
    entry.user = userName();
    entry.number = 1;
    for (const std::string& name : m_folder.names())
        if (const auto parsed = parsedName(name))
            entry.number = std::max(entry.number, parsed->number + 1);
    m_folder.write(stateName(entry.number), formerState);
    m_folder.write(entryName(entry.number, Result::Open), jsonText(entry));
    prune();
    return entry.number;
}

void History::end(int number, Result result) const
{
    m_folder.rename(entryName(number, Result::Open), entryName(number, result));
}

std::vector<Entry> History::entries() const
{
    std::vector<Entry> entries;
    for (const std::string& name : m_folder.names()) {
        const auto parsed = parsedName(name);
        if (!parsed)
            continue;
        if (const auto text = m_folder.read(name))
            if (auto entry = parsedEntry(*parsed, *text))
                entries.push_back(std::move(*entry));
    }
    return entries;
}

/// The end of a change renames its entry, once. A look at that very moment misses it; the next one finds it.
std::optional<Entry> History::find(const std::function<bool(const Entry&)>& isWanted) const
{
    constexpr int looks = 2;
    for (int i = 0; i < looks; ++i)
        for (Entry& entry : entries())
            if (isWanted(entry))
                return std::move(entry);
    return std::nullopt;
}

std::optional<Entry> History::entry(int number) const
{
    return find([number](const Entry& entry) { return entry.number == number; });
}

std::optional<Entry> History::openEntry() const
{
    return find([](const Entry& entry) { return entry.result == Result::Open; });
}

std::string History::formerStatePath(int number) const
{
    return m_folder.pathOf(stateName(number));
}

std::string History::formerState(int number) const
{
    if (auto text = m_folder.read(stateName(number)))
        return *text;
    throw FolderError("cannot read " + formerStatePath(number));
}

/// An open entry stays, however old it is.
void History::prune() const
{
    const std::vector<Entry> all = entries();
    if (all.size() <= keptEntries)
        return;
    for (std::size_t i = 0; i < all.size() - keptEntries; ++i) {
        if (all[i].result == Result::Open)
            continue;
        m_folder.remove(entryName(all[i].number, all[i].result));
        m_folder.remove(stateName(all[i].number));
    }
}

} // namespace lanctl::wayback
