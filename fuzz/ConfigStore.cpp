#include "Targets.hpp"
#include "World.hpp"
#include "config/CCOrxConfig.hpp"

#include <algorithm>
#include <string>
#include <vector>

namespace
{

constexpr const char* file = "/kv/etc/store.cfg";
constexpr std::size_t surelyOneLine = 900; ///< characters that are read in one piece, and written back in one

const char* separatorsOf(std::int32_t style)
{
    return style == CCOrxConfig::EqualsSeparated ? "=\t\r\n" : " \t\r\n";
}

std::vector<std::string> linesOf(const std::string& content)
{
    std::vector<std::string> lines;
    for (std::size_t begin = 0; begin < content.size();) {
        const std::size_t end = std::min(content.find('\n', begin), content.size());
        lines.push_back(content.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

std::string keyOf(const std::string& line, std::int32_t style)
{
    const std::size_t begin = line.find_first_not_of(separatorsOf(style));
    if (line.empty() || line[0] == '#' || begin == std::string::npos)
        return "";
    return line.substr(begin, line.find_first_of(separatorsOf(style), begin) - begin);
}

/// Whether a line comes back as it is read. Intended exceptions: over-long lines are cut, an indented comment
/// is a key that is written where it becomes a comment, and the key that stands for the first name server is
/// written as that.
bool comesBack(const std::string& line, std::int32_t style)
{
    const std::string key = keyOf(line, style);
    return line.size() < surelyOneLine && line.find('\0') == std::string::npos && key[0] != '#' &&
           (style == CCOrxConfig::EqualsSeparated || key != faketoken);
}

std::string committed(const fakes::World& world, std::int32_t style)
{
    CCOrxConfig(file, style).Commit();
    return world.read(file);
}

void checkRoundTrip(const std::string& content, std::int32_t style)
{
    const std::vector<std::string> lines = linesOf(content);
    if (!std::all_of(lines.begin(), lines.end(),
                     [&](const std::string& line) { return comesBack(line, style); }))
        return;
    const fakes::World world;
    world.write(file, content);
    const CCOrxConfig original(file, style);
    const std::string written = committed(world, style);
    const CCOrxConfig reread(file, style);
    for (const std::string& line : lines) {
        const std::string key = keyOf(line, style);
        fuzz::expect(key.empty() || reread.GetStrValue(key.c_str()) == original.GetStrValue(key.c_str()),
                     "a value survives being written");
    }
    fuzz::expect(committed(world, style) == written, "what has been written is written the same again");
}

/// Every operation, in every style, whatever the input.
void change(const std::string& content, std::int32_t style)
{
    const fakes::World world;
    world.write(file, content);
    {
        CCOrxConfig store(file, style);
        const auto lines = linesOf(content);
        const std::string key = lines.empty() ? "" : keyOf(lines.front(), style);
        store.SetValue(key.c_str(), 17);
        store.SetValue(key.c_str(), 4711L);
        store.SetValue("new", "value");
        fuzz::expect(store.GetStrValue("new") == "value", "a text is added");
        store.GetIntValue(key.c_str());
        store.GetLongValue(key.c_str());
        store.Commit();
    }
    const CCOrxConfig reread(file, style);
    fuzz::expect(world.problems().empty(), "nothing is left behind");
    fuzz::expect(world.read(std::string(file) + ".0") == content, "the file that was is kept beside it");
    if (content.size() < surelyOneLine && style <= CCOrxConfig::EqualsSeparated)
        fuzz::expect(reread.GetStrValue("new") == "value", "an added text survives being written");
}

} // namespace

void fuzz::config_store(std::string_view input)
{
    const std::string content(input);
    for (const std::int32_t style : {CCOrxConfig::BlankSeparated, CCOrxConfig::EqualsSeparated, 3})
        change(content, style);
    checkRoundTrip(content, CCOrxConfig::BlankSeparated);
    checkRoundTrip(content, CCOrxConfig::EqualsSeparated);
}
