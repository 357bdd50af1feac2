// Reading and changing values in memory.

#include "StoreTest.hpp"

#include <array>
#include <climits>

namespace
{

using Store = CCOrxConfig;

class StoreValues : public StoreTest
{
};

TEST_F(StoreValues, AnAbsentKeyIsEmptyOrZero)
{
    givenFile("a 1\n");
    const Store store(path, Blank);
    std::array<char, 8> out{"before"};
    store.GetStrValue("b", out.data());
    EXPECT_STREQ(out.data(), "");
    EXPECT_EQ(store.GetStrValue("b"), "");
    EXPECT_EQ(store.GetIntValue("b"), 0);
    EXPECT_EQ(store.GetLongValue("b"), 0L);
}

TEST_F(StoreValues, KeysDifferInLetterCase)
{
    givenFile("Key 1\n");
    EXPECT_EQ(Store(path, Blank).GetStrValue("key"), "");
}

TEST_F(StoreValues, ATextIsCopiedIntoTheCallersBufferWithoutALimit)
{
    const std::string value(900, 'x');
    givenFile("k " + value + "\n");
    std::array<char, 1000> out{};
    Store(path, Blank).GetStrValue("k", out.data());
    EXPECT_EQ(std::string(out.data()), value);
}

TEST_F(StoreValues, OfSeveralEntriesWithOneKeyTheFirstIsRead)
{
    givenFile("k 1\nk 2\n");
    const Store store(path, Blank);
    EXPECT_EQ(store.GetStrValue("k"), "1");
    EXPECT_EQ(store.GetIntValue("k"), 1);
    EXPECT_EQ(store.GetLongValue("k"), 1L);
}

TEST_F(StoreValues, NumbersAreTheDigitsThatAValueBeginsWith)
{
    givenFile("a 42x\nb -7\nc x9\nd +5\ne none\nf 007\n");
    const Store store(path, Blank);
    EXPECT_EQ(store.GetIntValue("a"), 42);
    EXPECT_EQ(store.GetIntValue("b"), -7);
    EXPECT_EQ(store.GetIntValue("c"), 0);
    EXPECT_EQ(store.GetIntValue("d"), 5);
    EXPECT_EQ(store.GetIntValue("e"), 0);
    EXPECT_EQ(store.GetIntValue("f"), 7);
    EXPECT_EQ(store.GetLongValue("a"), 42L);
    EXPECT_EQ(store.GetLongValue("b"), -7L);
    EXPECT_EQ(store.GetLongValue("c"), 0L);
}

TEST_F(StoreValues, NumbersReachTheLimitsOfTheirTypes)
{
    givenFile("i " + std::to_string(INT_MIN) + "\nl " + std::to_string(LONG_MAX) + "\n");
    const Store store(path, Blank);
    EXPECT_EQ(store.GetIntValue("i"), INT_MIN);
    EXPECT_EQ(store.GetLongValue("l"), LONG_MAX);
}

TEST_F(StoreValues, ATextReplacesTheValueOfTheFirstEntryWithTheKey)
{
    givenFile("k 1\nk 2\n");
    Store store(path, Blank);
    store.SetValue("k", "new");
    EXPECT_EQ(store.GetStrValue("k"), "new");
    store.Commit();
    EXPECT_EQ(world.read(path), "k   new\nk   new\n") << "there are still two entries";
}

TEST_F(StoreValues, ATextWithAnAbsentKeyIsAddedInKeyOrder)
{
    givenFile("a 1\nc 3\n");
    Store store(path, Blank);
    store.SetValue("b", "2");
    EXPECT_EQ(store.GetStrValue("b"), "2");
    store.Commit();
    EXPECT_EQ(world.read(path), "a   1\nb   2\nc   3\n");
}

TEST_F(StoreValues, AnIntReplacesTheValueOfTheFirstEntryWithTheKey)
{
    givenFile("k 1\n");
    Store store(path, Blank);
    store.SetValue("k", 25);
    EXPECT_EQ(store.GetStrValue("k"), "25");
    store.SetValue("k", INT_MIN);
    EXPECT_EQ(store.GetStrValue("k"), "-2147483648");
    store.SetValue("k", 0);
    EXPECT_EQ(store.GetStrValue("k"), "0");
}

TEST_F(StoreValues, ALongIsStoredWithATrailingBlank)
{
    givenFile("k 1\n");
    Store store(path, Blank);
    store.SetValue("k", 7L);
    EXPECT_EQ(store.GetStrValue("k"), "7 ");
    EXPECT_EQ(store.GetLongValue("k"), 7L);
    store.SetValue("k", LONG_MIN);
    EXPECT_EQ(store.GetStrValue("k"), std::to_string(LONG_MIN) + " ");
    EXPECT_EQ(store.GetLongValue("k"), LONG_MIN);
}

TEST_F(StoreValues, TheTrailingBlankOfALongIsWritten)
{
    givenFile("k=1\n");
    Store store(path, Equals);
    store.SetValue("k", 7L);
    store.Commit();
    EXPECT_EQ(world.read(path), "k=7 \n");
}

TEST_F(StoreValues, ANumberNeverAddsAKey)
{
    givenFile("a 1\n");
    Store store(path, Blank);
    store.SetValue("i", 5);
    store.SetValue("l", 5L);
    EXPECT_EQ(store.GetStrValue("i"), "");
    EXPECT_EQ(store.GetStrValue("l"), "");
    store.Commit();
    EXPECT_EQ(world.read(path), "a   1\n");
}

TEST_F(StoreValues, ANumberChangesTheFirstOfSeveralEntriesOnly)
{
    givenFile("nameserver a\nnameserver b\nnameserver c\n");
    Store store(path, Blank);
    store.SetValue("nameserver", 5);
    EXPECT_EQ(store.GetStrValue("nameserver"), "5");
    EXPECT_EQ(store.GetStrValue("DNS"), "a");
}

TEST_F(StoreValues, ChangesStayInMemoryUntilTheyAreCommitted)
{
    givenFile("a 1\n");
    {
        Store store(path, Blank);
        world.clearJournal();
        store.SetValue("a", "2");
        store.SetValue("a", 3);
        store.SetValue("b", "4");
    }
    EXPECT_EQ(world.journal(), Lines{});
    EXPECT_EQ(world.read(path), "a 1\n");
}

TEST_F(StoreValues, AnEmptyStoreTakesValuesToo)
{
    Store store(path, Blank);
    store.SetValue("b", "2");
    store.SetValue("a", "1");
    EXPECT_EQ(store.GetStrValue("a"), "1");
    EXPECT_EQ(store.GetStrValue("b"), "2");
}

} // namespace
