// What a store makes of the lines of a file.

#include "StoreTest.hpp"

namespace
{

using Store = CCOrxConfig;

class StoreReading : public StoreTest
{
};

TEST_F(StoreReading, BlanksAndTabsSeparateKeyAndValueInTheBlankStyle)
{
    givenFile("a 1\nb\t2\n \t c \t 3 \t \nd=4 5\n");
    const Store store(path, Blank);
    EXPECT_EQ(store.GetStrValue("a"), "1");
    EXPECT_EQ(store.GetStrValue("b"), "2");
    EXPECT_EQ(store.GetStrValue("c"), "3");
    EXPECT_EQ(store.GetStrValue("d=4"), "5") << "the equals sign is part of the key";
}

TEST_F(StoreReading, EqualsSignsAndTabsSeparateInTheEqualsStyle)
{
    givenFile("a=1\nb\t2\n=c==3=\nd 4\n");
    const Store store(path, Equals);
    EXPECT_EQ(store.GetStrValue("a"), "1");
    EXPECT_EQ(store.GetStrValue("b"), "2");
    EXPECT_EQ(store.GetStrValue("c"), "3");
    EXPECT_EQ(store.GetStrValue("d 4"), "none") << "a blank is part of the key";
}

TEST_F(StoreReading, BlanksAroundAnEqualsSignBelongToKeyAndValue)
{
    givenFile("key = value\n");
    const Store store(path, Equals);
    EXPECT_EQ(store.GetStrValue("key "), " value");
    EXPECT_EQ(store.GetStrValue("key"), "");
}

TEST_F(StoreReading, AnyOtherStyleReadsLikeTheBlankStyle)
{
    for (const std::int32_t style : {0, 3, -1}) {
        givenFile("a 1\nb=2\nc\t3\n");
        const Store store(path, style);
        EXPECT_EQ(store.GetStrValue("a"), "1");
        EXPECT_EQ(store.GetStrValue("b=2"), "none");
        EXPECT_EQ(store.GetStrValue("c"), "3");
    }
}

TEST_F(StoreReading, ACarriageReturnIsASeparatorInEveryStyle)
{
    for (const std::int32_t style : {Blank, Equals, Other}) {
        givenFile("key\tvalue\r\nlone\r\n\r\n");
        const Store store(path, style);
        EXPECT_EQ(store.GetStrValue("key"), "value");
        EXPECT_EQ(store.GetStrValue("lone"), "none");
        EXPECT_EQ(store.GetStrValue("\r"), "");
    }
}

TEST_F(StoreReading, ACommentStartsAtTheVeryFirstCharacterOnly)
{
    givenFile("#a 1\n# b 2\n #c 3\n\t# 4\nd #5\n");
    const Store store(path, Blank);
    EXPECT_EQ(store.GetStrValue("#a"), "");
    EXPECT_EQ(store.GetStrValue("b"), "");
    EXPECT_EQ(store.GetStrValue("#c"), "3");
    EXPECT_EQ(store.GetStrValue("#"), "4");
    EXPECT_EQ(store.GetStrValue("d"), "#5");
}

TEST_F(StoreReading, BlankLinesAreSkipped)
{
    EXPECT_EQ(rewritten("\n \n\t\n\r\n \t\r\na 1\n\n", Blank), "a   1\n");
    EXPECT_EQ(rewritten("\n\t\n=\n==\r\na=1\n", Equals), "a=1\n");
}

TEST_F(StoreReading, ALineOfBlanksIsAKeyInTheEqualsStyle)
{
    EXPECT_EQ(rewritten("  \n", Equals), "  =none\n");
}

TEST_F(StoreReading, ALineThatStartsWithNulIsSkipped)
{
    givenFile(std::string("\0a 1\nb 2\n", 9));
    const Store store(path, Blank);
    EXPECT_EQ(store.GetStrValue("a"), "");
    EXPECT_EQ(store.GetStrValue("b"), "2");
}

TEST_F(StoreReading, ANulInALineEndsTheLine)
{
    givenFile(std::string("a 1\0 2\nb\0 3\n", 12));
    const Store store(path, Blank);
    EXPECT_EQ(store.GetStrValue("a"), "1");
    EXPECT_EQ(store.GetStrValue("b"), "none");
}

TEST_F(StoreReading, OnlyTheFirstTwoTokensCount)
{
    EXPECT_EQ(rewritten("a 1 x y z\n", Blank), "a   1\n");
    EXPECT_EQ(rewritten("a=1=x\n", Equals), "a=1\n");
}

TEST_F(StoreReading, QuotesAndBackslashesAreOrdinaryCharacters)
{
    givenFile("a \"1 2\"\nb\\ c d\n");
    const Store store(path, Blank);
    EXPECT_EQ(store.GetStrValue("a"), "\"1");
    EXPECT_EQ(store.GetStrValue("b\\"), "c");
}

TEST_F(StoreReading, AKeyWithoutAValueHasTheValueNone)
{
    for (const std::int32_t style : {Blank, Equals, Other}) {
        givenFile("flag\n");
        EXPECT_EQ(Store(path, style).GetStrValue("flag"), "none");
    }
}

TEST_F(StoreReading, TheLastLineNeedsNoLineBreak)
{
    givenFile("a 1\nb 2");
    EXPECT_EQ(Store(path, Blank).GetStrValue("b"), "2");
}

TEST_F(StoreReading, BytesBeyondAsciiAreKeptAsTheyAre)
{
    EXPECT_EQ(rewritten("k\xFF\x01 \x80\xC3\xA4\x7F\n", Blank), "k\xFF\x01   \x80\xC3\xA4\x7F\n");
}

TEST_F(StoreReading, VerticalTabsAndFormFeedsSeparateNothing)
{
    EXPECT_EQ(rewritten("k\vl\f \v1\f\n", Blank), "k\vl\f   \v1\f\n");
    EXPECT_EQ(rewritten("k\vl\f=\v1\f\n", Equals), "k\vl\f=\v1\f\n");
}

TEST_F(StoreReading, TheFirstNameserverOfTheBlankStyleIsKeptAsDns)
{
    givenFile("search lan\nnameserver 10.0.0.1\nnameserver 10.0.0.2\nnameserver 10.0.0.3\n");
    const Store store(path, Blank);
    EXPECT_EQ(store.GetStrValue("DNS"), "10.0.0.1");
    EXPECT_EQ(store.GetStrValue("nameserver"), "10.0.0.2");
    EXPECT_EQ(store.GetStrValue("search"), "lan");
}

TEST_F(StoreReading, ANameserverWithoutAnAddressIsTheFirstToo)
{
    givenFile("nameserver\nnameserver 10.0.0.2\n");
    const Store store(path, Blank);
    EXPECT_EQ(store.GetStrValue("DNS"), "none");
    EXPECT_EQ(store.GetStrValue("nameserver"), "10.0.0.2");
}

TEST_F(StoreReading, OnlyTheExactKeywordIsANameserver)
{
    givenFile("Nameserver 1\nnameservers 2\n#nameserver 3\nx nameserver\n");
    const Store store(path, Blank);
    EXPECT_EQ(store.GetStrValue("DNS"), "");
    EXPECT_EQ(store.GetStrValue("Nameserver"), "1");
    EXPECT_EQ(store.GetStrValue("nameservers"), "2");
    EXPECT_EQ(store.GetStrValue("x"), "nameserver");
}

TEST_F(StoreReading, TheOtherStylesKnowNoNameservers)
{
    for (const std::int32_t style : {Equals, Other}) {
        givenFile("nameserver\t10.0.0.1\n");
        const Store store(path, style);
        EXPECT_EQ(store.GetStrValue("DNS"), "");
        EXPECT_EQ(store.GetStrValue("nameserver"), "10.0.0.1");
    }
}

TEST_F(StoreReading, AnEmptyFileGivesAnEmptyStore)
{
    EXPECT_EQ(rewritten("", Blank), "");
}

TEST_F(StoreReading, AFileOfManyEntriesIsReadWhole)
{
    std::string content;
    for (int number = 1000; number < 1600; ++number)
        content += "k" + std::to_string(number) + " " + std::to_string(number) + "\n";
    givenFile(content);
    const Store store(path, Blank);
    for (const int number : {1000, 1255, 1256, 1257, 1599})
        EXPECT_EQ(store.GetIntValue(("k" + std::to_string(number)).c_str()), number);
}

TEST_F(StoreReading, TheFileIsClosedAgainWhenItHasBeenRead)
{
    givenFile("a 1\n");
    const Store store(path, Blank);
    EXPECT_EQ(world.journal(), (Lines{"fopen /kv/etc/store.cfg r", "fclose /kv/etc/store.cfg"}));
}

/// A line of `length` characters, its line break not counted: "k", a blank and the value.
std::string lineOf(std::size_t length)
{
    return "k " + std::string(length - 2, 'v');
}

class LongLine : public StoreTest
{
};

TEST_F(LongLine, Of1021CharactersAndItsLineBreakIsReadInOnePiece)
{
    EXPECT_EQ(rewritten(lineOf(1021) + "\na 1\n", Blank), "a   1\nk   " + std::string(1019, 'v') + "\n");
}

TEST_F(LongLine, Of1022CharactersIsReadInOnePiece)
{
    EXPECT_EQ(rewritten(lineOf(1022) + "\na 1\n", Blank), "a   1\nk   " + std::string(1020, 'v') + "\n");
}

TEST_F(LongLine, Of1023CharactersLosesTheLastToALineOfItsOwn)
{
    EXPECT_EQ(rewritten(lineOf(1023) + "\na 1\n", Blank),
              "a   1\nk   " + std::string(1020, 'v') + "\nv   none\n");
}

TEST_F(LongLine, Of1024CharactersLosesTwo)
{
    EXPECT_EQ(rewritten(lineOf(1024) + "\na 1\n", Blank),
              "a   1\nk   " + std::string(1020, 'v') + "\nvv   none\n");
}

TEST_F(LongLine, IsSplitIntoAnyNumberOfPieces)
{
    const std::string three = lineOf(1022) + "k2 " + std::string(1019, 'w') + "k3 x";
    EXPECT_EQ(rewritten(three, Blank),
              "k   " + std::string(1020, 'v') + "\nk2   " + std::string(1019, 'w') + "\nk3   x\n");
}

TEST_F(LongLine, ItsSecondPieceCanBeAComment)
{
    EXPECT_EQ(rewritten(lineOf(1022) + "#x y\n", Blank), "k   " + std::string(1020, 'v') + "\n");
}

TEST_F(LongLine, OfAComment)
{
    EXPECT_EQ(rewritten("#" + std::string(1021, 'c') + "key value\n", Blank), "key   value\n")
        << "the rest of an over-long comment is a line of its own";
}

} // namespace
