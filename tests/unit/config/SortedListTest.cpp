#include "config/CCOrxConfigObj.hpp"
#include "config/CList.hpp"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

namespace
{

using Text = CCOrxConfigObj;
using List = CList<Text, Text>;
using Texts = std::vector<std::string>;

static_assert(std::has_virtual_destructor_v<List>, "it can be derived from and deleted by base");

/// The entries of a list from `first` onward, "key=value".
Texts entriesFrom(const List::Node* first)
{
    Texts entries;
    for (; first; first = first->next)
        entries.push_back(first->key.text() + "=" + first->value.text());
    return entries;
}

Texts keysOf(const List& list, std::int32_t max)
{
    std::vector<Text> keys(10, Text("untouched"));
    const std::int32_t copied = list.GetKeys(keys.data(), max);
    Texts texts;
    for (std::int32_t i = 0; i < copied; ++i)
        texts.push_back(keys[static_cast<std::size_t>(i)].text());
    EXPECT_EQ(keys[static_cast<std::size_t>(copied)].text(), "untouched");
    return texts;
}

std::string valueOf(const List& list, const char* key)
{
    Text value("untouched");
    list.Find(value, Text(key));
    return value.text();
}

TEST(SortedList, StartsEmpty)
{
    const List list;
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(keysOf(list, 9), Texts{});
}

TEST(SortedList, InsertKeepsTheKeysAscending)
{
    List list;
    for (const char* key : {"m", "a", "z", "b", "y", "A"})
        list.Insert(Text("v"), Text(key));
    EXPECT_EQ(keysOf(list, 9), (Texts{"A", "a", "b", "m", "y", "z"}));
    EXPECT_EQ(list.GetCount(), 6);
}

TEST(SortedList, InsertReturnsTheEntryWhereverItLands)
{
    List list;
    for (const char* key : {"m", "a", "z", "n"}) {
        const List::Node* added = list.Insert(Text(std::string("value of ") + key), Text(key));
        ASSERT_NE(added, nullptr);
        EXPECT_EQ(added->key.text(), key);
        EXPECT_EQ(added->value.text(), std::string("value of ") + key);
    }
}

TEST(SortedList, EqualKeysStayInTheOrderOfTheirInsertion)
{
    List list;
    list.Insert(Text("1"), Text("k"));
    list.Insert(Text("x"), Text("z"));
    list.Insert(Text("2"), Text("k"));
    list.Insert(Text("3"), Text("k"));
    const List::Node* first = list.Insert(Text("0"), Text("a"));
    EXPECT_EQ(entriesFrom(first), (Texts{"a=0", "k=1", "k=2", "k=3", "z=x"}));
}

TEST(SortedList, AKeyEqualToTheHeadGoesAfterIt)
{
    List list;
    const List::Node* first = list.Insert(Text("1"), Text("k"));
    list.Insert(Text("2"), Text("k"));
    EXPECT_EQ(entriesFrom(first), (Texts{"k=1", "k=2"}));
}

TEST(SortedList, AnEntryAfterTheLastBecomesTheTail)
{
    List list;
    const List::Node* first = list.Insert(Text("1"), Text("a"));
    list.Insert(Text("2"), Text("b"));
    list.AddTail(Text("3"), Text("c"));
    EXPECT_EQ(entriesFrom(first), (Texts{"a=1", "b=2", "c=3"}));
}

TEST(SortedList, AnEntryInTheMiddleLeavesTheTailAlone)
{
    List list;
    const List::Node* first = list.Insert(Text("1"), Text("a"));
    list.Insert(Text("3"), Text("c"));
    list.Insert(Text("2"), Text("b"));
    list.AddTail(Text("4"), Text("d"));
    EXPECT_EQ(entriesFrom(first), (Texts{"a=1", "b=2", "c=3", "d=4"}));
}

TEST(SortedList, AddHeadPutsAnEntryInFrontWhateverItsKey)
{
    List list;
    list.AddHead(Text("1"), Text("a"));
    const List::Node* first = list.AddHead(Text("2"), Text("z"));
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(entriesFrom(first), (Texts{"z=2", "a=1"}));
    EXPECT_EQ(list.GetCount(), 2);
}

TEST(SortedList, AddHeadToAnEmptyListSetsTheTailToo)
{
    List list;
    const List::Node* first = list.AddHead(Text("1"), Text("a"));
    list.AddTail(Text("2"), Text("b"));
    EXPECT_EQ(entriesFrom(first), (Texts{"a=1", "b=2"}));
}

TEST(SortedList, AddHeadKeepsTheTailOfAListWithEntries)
{
    List list;
    list.AddHead(Text("2"), Text("b"));
    const List::Node* first = list.AddHead(Text("1"), Text("a"));
    list.AddTail(Text("3"), Text("c"));
    EXPECT_EQ(entriesFrom(first), (Texts{"a=1", "b=2", "c=3"}));
}

TEST(SortedList, AddTailToAnEmptyListSetsTheHeadToo)
{
    List list;
    const List::Node* added = list.AddTail(Text("1"), Text("a"));
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(entriesFrom(added), (Texts{"a=1"}));
    EXPECT_EQ(keysOf(list, 9), Texts{"a"});
    EXPECT_EQ(list.GetCount(), 1);
}

TEST(SortedList, FindGivesTheFirstEntryWithTheKey)
{
    List list;
    const List::Node* first = list.Insert(Text("1"), Text("k"));
    list.Insert(Text("2"), Text("k"));
    Text value;
    EXPECT_EQ(list.Find(value, Text("k")), first);
    EXPECT_EQ(value.text(), "1");
}

TEST(SortedList, FindOfAnAbsentKeyLeavesTheValueAlone)
{
    List list;
    list.Insert(Text("1"), Text("k"));
    Text value("untouched");
    EXPECT_EQ(list.Find(value, Text("K")), nullptr);
    EXPECT_EQ(value.text(), "untouched");
}

TEST(SortedList, FindMeetsTheLastEntryToo)
{
    List list;
    list.Insert(Text("1"), Text("a"));
    list.Insert(Text("2"), Text("b"));
    EXPECT_EQ(valueOf(list, "b"), "2");
}

TEST(SortedList, ModifyChangesTheFirstEntryWithTheKey)
{
    List list;
    const List::Node* first = list.Insert(Text("1"), Text("k"));
    list.Insert(Text("2"), Text("k"));
    EXPECT_EQ(list.Modify(Text("new"), Text("k")), 1);
    EXPECT_EQ(entriesFrom(first), (Texts{"k=new", "k=2"}));
}

TEST(SortedList, ModifyOfAnAbsentKeyChangesNothing)
{
    List list;
    const List::Node* first = list.Insert(Text("1"), Text("k"));
    EXPECT_EQ(list.Modify(Text("new"), Text("x")), 0);
    EXPECT_EQ(entriesFrom(first), Texts{"k=1"});
    EXPECT_EQ(list.GetCount(), 1);
}

TEST(SortedList, GetKeysCopiesAtMostTheGivenNumber)
{
    List list;
    for (const char* key : {"c", "b", "a", "b"})
        list.Insert(Text("v"), Text(key));
    EXPECT_EQ(keysOf(list, 9), (Texts{"a", "b", "b", "c"}));
    EXPECT_EQ(keysOf(list, 4), (Texts{"a", "b", "b", "c"}));
    EXPECT_EQ(keysOf(list, 3), (Texts{"a", "b", "b"}));
    EXPECT_EQ(keysOf(list, 0), Texts{});
}

TEST(SortedList, ClearAllEmptiesTheListForFurtherUse)
{
    List list;
    list.Insert(Text("1"), Text("b"));
    list.Insert(Text("2"), Text("c"));
    list.ClearAll();
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(keysOf(list, 9), Texts{});

    const List::Node* first = list.AddTail(Text("3"), Text("a"));
    list.AddTail(Text("4"), Text("b"));
    EXPECT_EQ(entriesFrom(first), (Texts{"a=3", "b=4"}));
    EXPECT_EQ(keysOf(list, 9), (Texts{"a", "b"}));
}

} // namespace
