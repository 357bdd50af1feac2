#include "shell/Completion.hpp"

#include "model/Marking.hpp"
#include "model/Names.hpp"
#include "shell/Configuration.hpp"
#include "shell/Exit.hpp"
#include "shell/Objects.hpp"

#include <algorithm>
#include <sstream>

namespace lanctl::shell
{

namespace
{

using Words = std::vector<std::string>;

/// The words before the one that is being written, without the program's own name.
Words wordsBefore(const std::string& line)
{
    std::istringstream in(line.substr(0, line.find_last_of(' ') + 1));
    Words words;
    for (std::string word; in >> word;)
        words.push_back(word);
    if (!words.empty())
        words.erase(words.begin());
    return words;
}

/// The command that has been chosen, or nullptr.
const CLI::App* commandAmong(const CLI::App& app, const Words& words)
{
    for (const CLI::App* command : app.get_subcommands(nullptr))
        if (std::find(words.begin(), words.end(), command->get_name()) != words.end())
            return command;
    return nullptr;
}

void addOptions(Words& candidates, const CLI::App& app)
{
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& name : option->get_lnames())
            candidates.push_back("--" + name);
        for (const std::string& name : option->get_snames())
            candidates.push_back("-" + name);
    }
}

bool takesValue(const CLI::App& app, const std::string& word)
{
    const CLI::Option* option = word.size() > 1 && word[0] == '-' ? app.get_option_no_throw(word) : nullptr;
    return option != nullptr && option->get_items_expected_min() > 0;
}

/// What can stand behind an option that takes a value.
Words valuesOf(const std::string& option)
{
    if (option != "-s")
        return {};
    try {
        return serverNames({});
    } catch (const UsageError&) {
        return {}; // completion is silent
    }
}

Words valuesOf(const model::Key& key)
{
    if (key.form == model::Form::Switch)
        return {"on", "off"};
    if (key.form != model::Form::Mark)
        return {};
    Words values{"custom:"};
    for (const std::string_view name : model::allDscpNames()) {
        values.emplace_back(name);
        values.push_back("custom:" + std::string(name));
    }
    return values;
}

/// "dhcp=", and when the key is written already "dhcp=on" and "dhcp=off".
Words assignments(const std::string& object, const std::string& begun)
{
    Words candidates;
    const model::Kind kind = model::kindOf(object);
    const auto equals = begun.find('=');
    for (const model::Key& key : model::allKeys())
        if (key.kind == kind && equals == std::string::npos)
            candidates.push_back(std::string(key.key) + "=");
    const model::Key* key = model::findKey(kind, begun.substr(0, equals));
    if (equals != std::string::npos && key != nullptr)
        for (const std::string& value : valuesOf(*key))
            candidates.push_back(std::string(key->key) + "=" + value);
    return candidates;
}

/// The object that a set command has named, or "".
std::string objectAmong(const Words& words)
{
    const Words objects = objectNames();
    const auto found = std::find_first_of(words.begin(), words.end(), objects.begin(), objects.end());
    return found == words.end() ? "" : *found;
}

Words argumentsOf(const std::string& command, const Words& words, const std::string& begun)
{
    if (command == "set")
        return objectAmong(words).empty() ? objectNames() : assignments(objectAmong(words), begun);
    if (command == "show" || command == "watch")
        return objectNames();
    return {};
}

Words candidatesFor(const CLI::App& app, const Words& words, const std::string& begun)
{
    const CLI::App* command = commandAmong(app, words);
    if (!words.empty() &&
        (takesValue(app, words.back()) || (command != nullptr && takesValue(*command, words.back()))))
        return valuesOf(words.back());
    Words candidates;
    if (!begun.empty() && begun[0] == '-') {
        addOptions(candidates, app);
        if (command != nullptr)
            addOptions(candidates, *command);
        return candidates;
    }
    if (command != nullptr)
        return argumentsOf(command->get_name(), words, begun);
    for (const CLI::App* other : app.get_subcommands(nullptr))
        candidates.push_back(other->get_name());
    return candidates;
}

} // namespace

std::vector<std::string> completions(const CLI::App& app, const std::string& commandLine)
{
    const std::string begun = commandLine.substr(commandLine.find_last_of(' ') + 1);
    Words candidates = candidatesFor(app, wordsBefore(commandLine), begun);
    candidates.erase(
        std::remove_if(candidates.begin(), candidates.end(),
                       [&](const std::string& word) { return word.compare(0, begun.size(), begun) != 0; }),
        candidates.end());
    std::sort(candidates.begin(), candidates.end());
    candidates.erase(std::unique(candidates.begin(), candidates.end()), candidates.end());
    return candidates;
}

} // namespace lanctl::shell
