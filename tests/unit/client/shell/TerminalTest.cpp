#include "shell/Terminal.hpp"

#include <gtest/gtest.h>

using namespace lanctl::shell;

TEST(Terminal, showsOrdinaryTextAsItIs)
{
    for (const char* text : {"", "plain", "M\xC3\xBCnchen", "\xE2\x82\xAC", "\xF0\x9F\x98\x80",
                             "\xE2\x80\x9Cquoted\xE2\x80\x9D"})
        EXPECT_EQ(harmless(text), text);
}

TEST(Terminal, escapesWhatWouldSteerIt)
{
    EXPECT_EQ(harmless("\x1B[31mred"), "\\x1b[31mred");
    EXPECT_EQ(harmless("a\r\n\tb\x7F"), "a\\x0d\\x0a\\x09b\\x7f");
    EXPECT_EQ(harmless(std::string_view("\0", 1)), "\\x00");
    EXPECT_EQ(harmless("\xC2\x9B"
                       "31m"),
              "\\xc2\\x9b31m"); // CSI as one character
    EXPECT_EQ(harmless("\xE2\x80\xAE"
                       "a"),
              "\\xe2\\x80\\xaea"); // right to left from here
    EXPECT_EQ(harmless("\xE2\x81\xA6"
                       "a"),
              "\\xe2\\x81\\xa6a"); // isolate
    EXPECT_EQ(harmless("\xE2\x80\x8F"
                       "a"),
              "\\xe2\\x80\\x8fa"); // mark
    EXPECT_EQ(harmless("\xC2\xA0\xE2\x80\x90\xE2\x81\xA5"), "\xC2\xA0\xE2\x80\x90\xE2\x81\xA5");
}

TEST(Terminal, isNotColouredWhereThereIsNone)
{
    testing::internal::CaptureStdout(); // a file
    EXPECT_EQ(coloured("text", Colour::Red), "text");
    testing::internal::GetCapturedStdout();
}
