#include "Recording.hpp"
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <utility>

namespace recorded
{

namespace
{

const size_t MOST_SHOWN = 20;

// What stands in quotation marks at the beginning of the text; empty when they do not end with it.
std::string unquoted(const std::string& text)
{
    std::string bytes;
    for (size_t i = 1; i + 1 < text.size(); ++i) {
        if (text[i] != '\\') {
            bytes += text[i];
        } else if (text[++i] == 'x') {
            bytes += static_cast<char>(std::stoi(text.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            bytes += text[i] == 'n' ? '\n' : text[i];
        }
    }
    return bytes;
}

} // namespace

Recording::Recording(const std::string& part, std::vector<Excepted> excepted)
    : m_part(part), m_excepted(std::move(excepted))
{
    for (const Excepted& group : m_excepted) {
        m_patterns.emplace_back(group.calls);
    }
    std::ifstream file(RECORDED_DIRECTORY "/" + part + ".txt", std::ios::binary);
    EXPECT_TRUE(file) << part;
    for (std::string line; std::getline(file, line);) {
        const size_t arrow = line.find(" => ");
        m_calls.push_back(line.substr(0, arrow));
        m_entries[m_calls.back()].answer = line.substr(arrow + 4);
    }
}

void Recording::compare(const std::string& call, const std::string& answer)
{
    const auto found = m_entries.find(call);
    if (found == m_entries.end()) {
        ADD_FAILURE() << "not recorded: " << call;
        return;
    }
    Entry& entry = found->second;
    EXPECT_FALSE(entry.isMade) << "made twice: " << call;
    entry.isMade = true;
    entry.isDifferent = entry.answer != answer;
    if (entry.isDifferent && groupOf(call) == m_excepted.size() && ++m_shown <= MOST_SHOWN) {
        ADD_FAILURE() << call << "\n  recorded " << entry.answer << "\n  here     " << answer;
    }
}

size_t Recording::groupOf(const std::string& call) const
{
    size_t group = 0;
    while (group < m_patterns.size() && !std::regex_match(call, m_patterns[group])) {
        ++group;
    }
    return group;
}

std::vector<std::string> Recording::textsBetween(const std::string& beginning, const std::string& end) const
{
    std::vector<std::string> texts;
    for (const std::string& call : m_calls) {
        const size_t outside = beginning.size() + end.size();
        if (call.size() > outside && call.compare(0, beginning.size(), beginning) == 0 &&
            call.compare(call.size() - end.size(), end.size(), end) == 0 && call[beginning.size()] == '"') {
            texts.push_back(unquoted(call.substr(beginning.size(), call.size() - outside)));
        }
    }
    return texts;
}

void Recording::expectComplete(size_t made) const
{
    std::vector<size_t> numbers(m_excepted.size());
    size_t calls = 0;
    for (const std::string& call : m_calls) {
        const Entry& entry = m_entries.at(call);
        calls += entry.isMade ? 1U : 0U;
        if (entry.isMade && !entry.isDifferent) {
            continue;
        }
        const size_t group = groupOf(call);
        if (group < numbers.size()) {
            ++numbers[group];
        } else {
            EXPECT_TRUE(entry.isMade) << "never made: " << call;
        }
    }
    EXPECT_EQ(made, calls) << m_part;
    std::cout << calls << " of " << m_calls.size() << " recorded calls made: " << m_part << "\n";
#ifndef ORIGINAL_OPENWBEM // which answers all as recorded
    for (size_t i = 0; i < m_excepted.size(); ++i) {
        EXPECT_EQ(m_excepted[i].number, numbers[i]) << m_excepted[i].calls << ": " << m_excepted[i].reason;
    }
#endif
    EXPECT_EQ(size_t(0), m_shown) << "differences in " << m_part;
}

} // namespace recorded
