#include "RecordedExchanges.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace recorded
{
namespace
{

const std::string exchangeMark = "=== ";
const std::string sectionMark = "--- ";

bool startsWith(const std::string& text, const std::string& start)
{
    return text.compare(0, start.size(), start) == 0;
}

/// The byte that an escape stands for. `at` is its backslash and becomes its last character.
char escapedByte(const std::string& line, std::size_t& at)
{
    const char kind = at + 1 < line.size() ? line[++at] : ' ';
    if (kind == 'r')
        return '\r';
    if (kind == '\\')
        return '\\';
    if (kind != 'x' || at + 2 >= line.size())
        throw std::runtime_error("an escape of recorded exchanges is none: " + line);
    at += 2;
    return static_cast<char>(std::stoi(line.substr(at - 1, 2), nullptr, 16));
}

std::string unescaped(const std::string& line)
{
    std::string bytes;
    for (std::size_t at = 0; at < line.size(); ++at)
        bytes += line[at] == '\\' ? escapedByte(line, at) : line[at];
    return bytes;
}

Exchange exchangeNamed(const std::string& name)
{
    Exchange exchange;
    exchange.name = name;
    exchange.number = std::stoi(name);
    return exchange;
}

std::string& sectionNamed(Exchange& exchange, const std::string& name)
{
    if (name == "request")
        return exchange.request;
    if (name == "response")
        return exchange.response;
    if (name == "provider")
        return exchange.provider;
    throw std::runtime_error(exchange.name + " has a section that nobody knows: " + name);
}

std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    if (!file)
        throw std::runtime_error("cannot read " + path.string());
    return content.str();
}

} // namespace

std::vector<Exchange> exchangesIn(const std::string& text)
{
    std::vector<Exchange> exchanges;
    std::string* section = nullptr;
    bool first = true; // line of its section: the others have a line break before them
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (startsWith(line, exchangeMark)) {
            exchanges.push_back(exchangeNamed(line.substr(exchangeMark.size())));
            section = nullptr;
        } else if (startsWith(line, sectionMark) && !exchanges.empty()) {
            section = &sectionNamed(exchanges.back(), line.substr(sectionMark.size()));
            first = true;
        } else if (section != nullptr) {
            *section += (first ? "" : "\n") + unescaped(line);
            first = false;
        } else {
            throw std::runtime_error("a line of recorded exchanges is in no section: " + line);
        }
    }
    return exchanges;
}

std::vector<Exchange> allExchanges()
{
    std::vector<Exchange> exchanges;
    for (const auto& entry : std::filesystem::directory_iterator(CIM_XML_DATA_DIR)) {
        if (entry.path().extension() != ".txt")
            continue;
        for (Exchange& exchange : exchangesIn(contentOf(entry.path())))
            exchanges.push_back(std::move(exchange));
    }
    std::sort(exchanges.begin(), exchanges.end(), [](const Exchange& left, const Exchange& right) {
        return left.number != right.number ? left.number < right.number : left.name < right.name;
    });
    return exchanges;
}

} // namespace recorded
