#include "MofLexer.hpp"

#include <gtest/gtest.h>

namespace cimom::test
{
namespace
{

using Kind = MofToken::Kind;

MofToken only(const char* text)
{
    MofLexer lexer(text, "test.mof");
    const MofToken token = lexer.next();
    EXPECT_EQ(lexer.next().kind, Kind::End);
    return token;
}

void expectToken(const char* text, Kind kind, const std::string& content)
{
    const MofToken token = only(text);
    EXPECT_EQ(token.kind, kind) << text;
    EXPECT_EQ(token.text, content) << text;
}

std::string errorOf(const char* text)
{
    MofLexer lexer(text, "test.mof");
    try {
        while (lexer.next().kind != Kind::End) {
        }
    } catch (const MofError& e) {
        return e.what();
    }
    return "no error";
}

TEST(MofLexer, EmptyTextHasNoTokens)
{
    EXPECT_EQ(only("").kind, Kind::End);
    EXPECT_EQ(only(" \t\r\n").kind, Kind::End);
}

TEST(MofLexer, IdentifiersMayHoldDigitsAndUnderscores)
{
    expectToken("ORX_LANEndpoint2", Kind::Identifier, "ORX_LANEndpoint2");
    expectToken("_x", Kind::Identifier, "_x");
}

TEST(MofLexer, IntegersOfEveryNotationBecomeDecimal)
{
    expectToken("42", Kind::Integer, "42");
    expectToken("0", Kind::Integer, "0");
    expectToken("-7", Kind::Integer, "-7");
    expectToken("+7", Kind::Integer, "7");
    expectToken("0x1F", Kind::Integer, "31");
    expectToken("0xE", Kind::Integer, "14");
    expectToken("017", Kind::Integer, "15");
    expectToken("101b", Kind::Integer, "5");
    expectToken("18446744073709551615", Kind::Integer, "18446744073709551615");
}

TEST(MofLexer, RealsKeepTheirText)
{
    expectToken("1.5", Kind::Real, "1.5");
    expectToken(".5", Kind::Real, ".5");
    expectToken("1e-3", Kind::Real, "1e-3");
}

TEST(MofLexer, WhatOnlyBeginsLikeANumberIsRefused)
{
    EXPECT_EQ(errorOf("  12abc"), "test.mof:1:3: expected an integer of at most 64 bits, found '12abc'");
    EXPECT_EQ(errorOf("18446744073709551616"),
              "test.mof:1:1: expected an integer of at most 64 bits, found '18446744073709551616'");
    EXPECT_EQ(errorOf("1.2.3"), "test.mof:1:1: expected a number, found '1.2.3'");
    EXPECT_EQ(errorOf("09"), "test.mof:1:1: expected an integer of at most 64 bits, found '09'");
}

TEST(MofLexer, EscapesInStringsAreResolved)
{
    expectToken(R"("a\"b\\c\n\t\x41\xe9")", Kind::String, "a\"b\\c\n\tA\xC3\xA9");
    expectToken(R"("\x20ac.")", Kind::String, "\xE2\x82\xAC.");
    expectToken("'x'", Kind::Character, "x");
}

TEST(MofLexer, AnUnknownEscapeIsRefusedWhereItStands)
{
    EXPECT_EQ(errorOf(R"("ab\q")"),
              R"(test.mof:1:4: expected one of the escapes \b \t \n \f \r \" \' \\ \x1234, found '\q')");
}

TEST(MofLexer, AStringEndsOnItsLine)
{
    EXPECT_EQ(errorOf("\"abc\n\""), "test.mof:1:5: expected a closing \", found the end of the line");
    EXPECT_EQ(errorOf("\"abc"), "test.mof:1:5: expected a closing \", found the end of the file");
}

TEST(MofLexer, CommentsSeparateTokens)
{
    MofLexer lexer("a/* one\n * two **/b // rest\nc", "test.mof");
    EXPECT_EQ(lexer.next().text, "a");
    EXPECT_EQ(lexer.next().text, "b");
    const MofToken last = lexer.next();
    EXPECT_EQ(last.text, "c");
    EXPECT_EQ(last.position.line, 3);
    EXPECT_EQ(last.position.column, 1);
}

TEST(MofLexer, AnUnclosedCommentIsRefused)
{
    EXPECT_EQ(errorOf("/* a\n b"), "test.mof:2:3: expected '*/', found the end of the file");
}

TEST(MofLexer, PragmasAreTokensOfTheirOwn)
{
    expectToken("#pragma", Kind::Pragma, "pragma");
}

TEST(MofLexer, OtherCharactersAreRefused)
{
    EXPECT_EQ(errorOf("\n  ?"), "test.mof:2:3: expected a MOF token, found '?'");
}

} // namespace
} // namespace cimom::test
