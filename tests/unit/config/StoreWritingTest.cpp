// What a commit leaves in the file and beside it.

#include "StoreTest.hpp"

#include <type_traits>

namespace
{

using Store = CCOrxConfig;

static_assert(std::has_virtual_destructor_v<Store>, "it can be derived from and deleted by base");

class StoreWriting : public StoreTest
{
};

TEST_F(StoreWriting, TheBlankStyleWritesThreeBlanks)
{
    EXPECT_EQ(rewritten("a\t1\n", Blank), "a   1\n");
}

TEST_F(StoreWriting, TheEqualsStyleWritesAnEqualsSign)
{
    EXPECT_EQ(rewritten("a\t1\n", Equals), "a=1\n");
}

TEST_F(StoreWriting, AnyOtherStyleWritesAnEqualsSign)
{
    for (const std::int32_t style : {0, 3, -1})
        EXPECT_EQ(rewritten("a 1\n", style), "a=1\n");
}

TEST_F(StoreWriting, TheEntriesComeOutInKeyOrderUpperCaseFirst)
{
    EXPECT_EQ(rewritten("b 1\na 2\nB 3\nab 4\nA 5\n_ 6\n9 7\n", Blank),
              "9   7\nA   5\nB   3\n_   6\na   2\nab   4\nb   1\n");
}

TEST_F(StoreWriting, CommentsEmptyLinesAndFurtherTokensAreGone)
{
    EXPECT_EQ(rewritten("b 2\n# a comment\n\na 1 x\n", Blank), "a   1\nb   2\n");
}

TEST_F(StoreWriting, BlanksAroundAnEqualsSignSurvive)
{
    EXPECT_EQ(rewritten("key = value\n", Equals), "key = value\n");
}

TEST_F(StoreWriting, AValueThatWasMissingIsWrittenAsNone)
{
    EXPECT_EQ(rewritten("flag\n", Blank), "flag   none\n");
    EXPECT_EQ(rewritten("flag\n", Equals), "flag=none\n");
}

TEST_F(StoreWriting, TheFirstNameserverComesFirst)
{
    EXPECT_EQ(rewritten("search lan\nnameserver 10.0.0.1\nnameserver 10.0.0.2\n", Blank),
              "nameserver   10.0.0.1\nnameserver   10.0.0.2\nsearch   lan\n");
}

TEST_F(StoreWriting, AThirdNameserverGetsTheAddressOfTheSecond)
{
    EXPECT_EQ(rewritten("nameserver A\nnameserver B\nnameserver C\n", Blank),
              "nameserver   A\nnameserver   B\nnameserver   B\n");
}

TEST_F(StoreWriting, AllEntriesWithOneKeyGetTheValueOfTheFirst)
{
    EXPECT_EQ(rewritten("k 1\nk 2\na 0\nk 3\n", Blank), "a   0\nk   1\nk   1\nk   1\n");
    EXPECT_EQ(rewritten("k=1\nk=2\n", Equals), "k=1\nk=1\n");
}

TEST_F(StoreWriting, AKeyThatIsCalledDnsIsWrittenAsNameserverInTheBlankStyle)
{
    EXPECT_EQ(rewritten("DNS 10.0.0.1\n", Blank), "nameserver   10.0.0.1\n");
    EXPECT_EQ(rewritten("DNS 10.0.0.1\n", Other), "DNS=10.0.0.1\n");
    EXPECT_EQ(rewritten("DNS=10.0.0.1\n", Equals), "DNS=10.0.0.1\n");
}

TEST_F(StoreWriting, TheKeywordStaysItselfInTheOtherStyles)
{
    EXPECT_EQ(rewritten("nameserver 1\nnameserver 2\n", Other), "nameserver=1\nnameserver=1\n");
}

TEST_F(StoreWriting, WhatWasWrittenIsWrittenAgainUnchanged)
{
    const std::string blank = rewritten("z 1\nnameserver A\nnameserver B\na\nflag\n", Blank);
    EXPECT_EQ(rewritten(blank, Blank), blank);
    const std::string equals = rewritten("z=1 2\n a=b\nflag\n", Equals);
    EXPECT_EQ(rewritten(equals, Equals), equals);
}

TEST_F(StoreWriting, AFileOfManyEntriesIsWrittenWhole)
{
    std::string content;
    for (int number = 1000; number < 1600; ++number)
        content += "k" + std::to_string(number) + "=" + std::to_string(number) + "\n";
    EXPECT_EQ(rewritten(content, Equals), content);
}

TEST_F(StoreWriting, ALongValueIsWrittenWhole)
{
    givenFile("k 1\n");
    const std::string value(5000, 'x');
    Store store(path, Blank);
    store.SetValue("k", value.c_str());
    store.Commit();
    EXPECT_EQ(world.read(path), "k   " + value + "\n");
}

TEST_F(StoreWriting, ThePreviousContentIsKeptBeside)
{
    rewritten("b 2\n# a comment\na 1\n", Blank);
    EXPECT_EQ(world.read(backup), "b 2\n# a comment\na 1\n");
}

TEST_F(StoreWriting, AnEarlierBackupIsReplaced)
{
    world.write(backup, "a very much older and longer content\n");
    rewritten("a 1\n", Blank);
    EXPECT_EQ(world.read(backup), "a 1\n");
}

TEST_F(StoreWriting, ACommitMovesTheFileAwayAndCreatesItAnew)
{
    givenFile("a 1\n");
    Store store(path, Blank);
    world.clearJournal();
    store.Commit();
    EXPECT_EQ(world.journal(),
              (Lines{"remove /kv/etc/store.cfg.0", "rename /kv/etc/store.cfg /kv/etc/store.cfg.0",
                     "fopen /kv/etc/store.cfg w", "fclose /kv/etc/store.cfg"}));
}

TEST_F(StoreWriting, AnUnchangedStoreIsWrittenAllTheSame)
{
    EXPECT_EQ(rewritten("a   1\n", Blank), "a   1\n");
    EXPECT_EQ(world.read(backup), "a   1\n");
}

TEST_F(StoreWriting, TheStoreCanBeReadAfterACommit)
{
    givenFile("a 1\n");
    Store store(path, Blank);
    store.Commit();
    EXPECT_EQ(store.GetStrValue("a"), "1");
}

TEST_F(StoreWriting, ClosingTwiceIsHarmless)
{
    givenFile("a 1\n");
    Store store(path, Blank);
    store.Close();
    store.Close();
    EXPECT_EQ(world.journal(), (Lines{"fopen /kv/etc/store.cfg r", "fclose /kv/etc/store.cfg"}));
}

TEST_F(StoreWriting, OfTwoStoresOnOneFileTheLaterCommitWins)
{
    givenFile("a 1\nb 1\n");
    Store first(path, Blank);
    Store second(path, Blank);
    first.SetValue("a", "2");
    second.SetValue("b", "2");
    first.Commit();
    second.Commit();
    EXPECT_EQ(world.read(path), "a   1\nb   2\n");
    EXPECT_EQ(world.read(backup), "a   2\nb   1\n");
}

} // namespace
