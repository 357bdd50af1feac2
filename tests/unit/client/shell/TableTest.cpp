#include "shell/Table.hpp"

#include <gtest/gtest.h>

using namespace lanctl::shell;

TEST(Table, isAsWideAsItsLongestCells)
{
    Table table;
    table.add({{"a"}, {"bbb"}, {"c"}});
    table.add({{"aaaa"}, {"b"}, {"ccc"}});
    EXPECT_EQ(table.text(), "a     bbb  c\naaaa  b    ccc\n");
}

TEST(Table, hasNoBlanksAtTheEndOfALine)
{
    Table table;
    table.add({{"a"}, {"b"}, {""}});
    table.add({{"aa"}});
    EXPECT_EQ(table.text(), "a   b\naa\n");
}

TEST(Table, countsCharactersAndShowsThemHarmlessly)
{
    Table table;
    table.add({{"M\xC3\xBC"}, {"x"}});
    table.add({{"a\x1B"}, {"y"}});
    EXPECT_EQ(table.text(), "M\xC3\xBC     x\na\\x1b  y\n");
    EXPECT_EQ(widthOf("M\xC3\xBC\xE2\x82\xAC"), 3U);
}
