// Each header alone completes the types that the original's header of this name completes.
#include "Diagnostics.hpp"
#include <filesystem>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

namespace
{

// The types, each at the index of its line less one; other lines are empty.
std::vector<std::string> askedTypes()
{
    const std::string begin = "static_assert(sizeof(";
    const std::string end = ") > 0);";
    std::vector<std::string> types;
    for (const std::string& line : linesOf(SOURCE_DIRECTORY "/CompleteTypes.cpp")) {
        const bool asks = line.compare(0, begin.size(), begin) == 0;
        types.push_back(asks ? line.substr(begin.size(), line.size() - begin.size() - end.size()) : "");
    }
    return types;
}

std::set<std::string> completeAfter(const std::string& header)
{
    static const std::vector<std::string> asked = askedTypes();
    const std::set<size_t> wrong = wrongLines(header, "CompleteTypes.cpp");
    std::set<std::string> complete;
    for (size_t i = 0; i < asked.size(); ++i) {
        if (!asked[i].empty() && wrong.count(i + 1) == 0) {
            complete.insert(asked[i]);
        }
    }
    return complete;
}

TEST(CompleteTypes, afterEachHeaderAreThoseOfTheOriginal)
{
    const std::set<std::string> absent = {"OW_Format.hpp", "OW_StringBuffer.hpp", "OW_StringStream.hpp"};
    const std::string prefix = "complete after ";
    const std::vector<std::string> recorded = linesOf(RECORDED_DIRECTORY "/headers.txt");
    EXPECT_EQ(size_t(59), recorded.size());
    for (const std::string& line : recorded) {
        const size_t arrow = line.find(" => ");
        const std::string header = line.substr(prefix.size(), arrow - prefix.size());
        if (absent.count(header) == 1) {
            EXPECT_FALSE(std::filesystem::exists(INCLUDE_DIRECTORY "/" + header)) << header;
            continue;
        }
        std::istringstream names(line.substr(arrow + 4));
        const std::set<std::string> expected{std::istream_iterator<std::string>(names), {}};
        EXPECT_EQ(expected, completeAfter(header)) << header;
    }
}

} // namespace
