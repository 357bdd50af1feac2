// The headers accept the expressions that the original's accept, with the same types, and refuse those that
// they refuse.
#include "Diagnostics.hpp"
#include <algorithm>
#include <gtest/gtest.h>

namespace
{

const std::string PREFIX = "type of ";
const std::string REFUSED = " => <does not compile>";

std::set<std::string> excepted()
{
    std::set<std::string> expressions;
    for (const std::string& line : linesOf(RECORDED_DIRECTORY "/excepted-expressions.txt")) {
        if (!line.empty() && line[0] != '#') {
            expressions.insert(line);
        }
    }
#ifdef __clang__
    expressions.insert("b == 1"); // ambiguous to Clang; the answers are those of GCC
#endif
    return expressions;
}

TEST(ExpressionTypes, areThoseOfTheOriginal)
{
    const std::vector<std::string> recorded = linesOf(BINARY_DIRECTORY "/expressions.txt");
    ASSERT_EQ(size_t(4384), recorded.size());
    const std::set<size_t> wrong = wrongLines("expressions", "expressions.cpp");
    std::set<std::string> different;
    for (size_t i = 0; i < recorded.size(); ++i) {
        const size_t arrow = recorded[i].find(" => ");
        const bool isRefused = recorded[i].substr(arrow) == REFUSED;
        if (isRefused == (wrong.count(i + 2) == 0)) { // the first line of the program includes the operands
            different.insert(recorded[i].substr(PREFIX.size(), arrow - PREFIX.size()));
        }
    }
    for (const std::string& expression : different) {
        EXPECT_EQ(1U, excepted().count(expression)) << "otherwise than the original: " << expression;
    }
    for (const std::string& expression : excepted()) {
        EXPECT_EQ(1U, different.count(expression)) << "now as the original, or not recorded: " << expression;
    }
}

} // namespace
