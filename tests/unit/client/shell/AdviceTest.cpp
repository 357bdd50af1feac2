// The advice of lanctl is that of docs/messages.md, row by row.
#include "plan/Advice.hpp"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

using namespace lanctl::plan;

namespace
{

using Row = std::vector<std::string>;

std::string trimmed(std::string text)
{
    text.erase(0, text.find_first_not_of(' '));
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

std::string withoutQuotes(std::string text)
{
    text.erase(std::remove(text.begin(), text.end(), '`'), text.end());
    return text;
}

Row cellsOf(const std::string& line)
{
    Row cells;
    std::istringstream in(line.substr(1));
    for (std::string cell; std::getline(in, cell, '|');)
        cells.push_back(trimmed(cell));
    return cells;
}

/// The rows of the table below a heading of docs/messages.md, without the head.
std::vector<Row> rowsBelow(const std::string& heading)
{
    std::ifstream in(DOCUMENTS_DIR "/messages.md");
    std::vector<Row> rows;
    bool inside = false;
    for (std::string line; std::getline(in, line);) {
        if (line.compare(0, 3, "## ") == 0)
            inside = line == "## " + heading;
        if (inside && !line.empty() && line[0] == '|')
            rows.push_back(cellsOf(line));
    }
    if (rows.size() < 3)
        throw std::runtime_error("no table below " + heading);
    rows.erase(rows.begin(), rows.begin() + 2);
    return rows;
}

/// The text of the first backquoted part.
std::string firstQuoted(const std::string& cell)
{
    const auto begin = cell.find('`') + 1;
    return trimmed(cell.substr(begin, cell.find('`', begin) - begin));
}

/// What a failure without a text arrives as.
std::string descriptionOf(const std::string& code)
{
    static const std::map<std::string, std::string> descriptions{
        {"5", "class does not exist"},
        {"6", "requested object could not be found"},
        {"7", "requested operation is not supported"},
        {"17", "extrinsic method does not exist"}};
    return descriptions.at(code);
}

struct Explained {
    std::string text;
    std::string identifier;
    std::string advice;
};

/// What the document says about each failure that can occur.
std::vector<Explained> explained()
{
    std::vector<Explained> all;
    for (const Row& row : rowsBelow("Failures without a text"))
        all.push_back({descriptionOf(row.at(0)), "", withoutQuotes(row.at(2))});
    for (const Row& row : rowsBelow("LAN endpoints and LAN setting"))
        if (row.at(4).find("cannot occur") == std::string::npos)
            all.push_back({firstQuoted(row.at(0)), withoutQuotes(row.at(1)), withoutQuotes(row.at(4))});
    return all;
}

} // namespace

TEST(Advice, isThatOfTheDocument)
{
    const std::vector<Explained> document = explained();
    ASSERT_EQ(document.size(), allAdvice().size());
    for (std::size_t i = 0; i < document.size(); ++i) {
        EXPECT_EQ(allAdvice()[i].text, document[i].text);
        EXPECT_EQ(allAdvice()[i].identifier, document[i].identifier);
        EXPECT_EQ(allAdvice()[i].advice, document[i].advice);
    }
}

TEST(Advice, isFoundByTextAndIdentifier)
{
    EXPECT_EQ(adviceFor("MTU size entered is out of the range: (68-1500)", ""), "send 68 to 1500");
    EXPECT_EQ(adviceFor("Invalid IP address format", "LAN_ERROR_invalidIP").substr(0, 8), "setting:");
    EXPECT_EQ(adviceFor("Invalid IP address format", "").substr(0, 9), "endpoint:");
    EXPECT_EQ(adviceFor("Failed to execute the command: /kv/bin/x", "").substr(0, 8), "stopping");
    EXPECT_EQ(adviceFor("something else", ""), "");
}
