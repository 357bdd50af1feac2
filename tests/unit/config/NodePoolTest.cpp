// The pool from which a list takes its nodes: how many are allocated at once, and when they are given back.

#include "config/CList.hpp"

#include <gtest/gtest.h>

namespace
{

/// A key that counts its objects. Every node holds exactly one, so the count is that of the nodes, in the
/// list and in the pool, plus that of the keys in the test's own hands.
class CountedKey
{
  public:
    explicit CountedKey(int number = 0) : m_number(number) { ++alive; }
    CountedKey(const CountedKey& other) : m_number(other.m_number) { ++alive; }
    CountedKey& operator=(const CountedKey&) = default;
    ~CountedKey() { --alive; }
    bool operator<(const CountedKey& other) const { return m_number < other.m_number; }
    bool operator==(const CountedKey& other) const { return m_number == other.m_number; }

    static int alive;

  private:
    int m_number;
};

int CountedKey::alive = 0;

/// A list that can be given another block size than its own.
class PooledList : public CList<CountedKey, int>
{
  public:
    void setBlockSize(int size) { m_blockSize = size; }
    void fill(int from, int to)
    {
        for (int number = from; number < to; ++number)
            Insert(0, CountedKey(number));
    }
};

class NodePool : public ::testing::Test
{
  protected:
    NodePool() { CountedKey::alive = 0; }
    static int nodes() { return CountedKey::alive; }
};

TEST_F(NodePool, IsFilledOnceBeforeAnyEntry)
{
    const PooledList list;
    EXPECT_EQ(nodes(), 256);
    EXPECT_EQ(list.GetCount(), 0);
}

TEST_F(NodePool, ServesTwoHundredAndFiftySixEntriesWithoutAnotherAllocation)
{
    PooledList list;
    list.fill(0, 256);
    EXPECT_EQ(list.GetCount(), 256);
    EXPECT_EQ(nodes(), 256);
}

TEST_F(NodePool, GrowsByAWholeBlockWithTheNextEntry)
{
    PooledList list;
    list.fill(0, 257);
    EXPECT_EQ(list.GetCount(), 257);
    EXPECT_EQ(nodes(), 512);
    list.fill(257, 512);
    EXPECT_EQ(nodes(), 512);
    list.fill(512, 513);
    EXPECT_EQ(nodes(), 768);
}

TEST_F(NodePool, TakesBackANodeAndHandsItOutAgain)
{
    PooledList list;
    PooledList::Node* node = list.NewNode(nullptr);
    EXPECT_EQ(list.GetCount(), 1);
    list.FreeNode(node);
    EXPECT_EQ(list.GetCount(), 0);
    EXPECT_EQ(list.NewNode(nullptr), node);
    list.FreeNode(node);
    EXPECT_EQ(nodes(), 256);
}

TEST_F(NodePool, HandsOutAllThatItTookBackTheLastOneFirst)
{
    PooledList list;
    PooledList::Node* first = list.NewNode(nullptr);
    PooledList::Node* second = list.NewNode(nullptr);
    PooledList::Node* third = list.NewNode(nullptr);
    for (PooledList::Node* node : {first, second, third})
        list.FreeNode(node);
    EXPECT_EQ(list.NewNode(nullptr), third);
    EXPECT_EQ(list.NewNode(nullptr), second);
    EXPECT_EQ(list.NewNode(nullptr), first);
    for (PooledList::Node* node : {first, second, third})
        list.FreeNode(node);
}

TEST_F(NodePool, HandsOutNodesThatAreEmpty)
{
    PooledList list;
    PooledList::Node* node = list.NewNode(nullptr);
    node->key = CountedKey(7);
    node->value = 7;
    list.FreeNode(node);
    ASSERT_EQ(list.NewNode(nullptr), node);
    EXPECT_EQ(node->key, CountedKey());
    EXPECT_EQ(node->value, 0);
    list.FreeNode(node);
}

TEST_F(NodePool, LinksANewNodeToTheGivenOne)
{
    PooledList list;
    PooledList::Node* last = list.NewNode(nullptr);
    PooledList::Node* first = list.NewNode(last);
    EXPECT_EQ(first->next, last);
    EXPECT_EQ(last->next, nullptr);
    list.FreeNode(first);
    list.FreeNode(last);
}

TEST_F(NodePool, IsReleasedTogetherWithTheEntriesByClearAll)
{
    PooledList list;
    list.fill(0, 300);
    list.ClearAll();
    EXPECT_EQ(nodes(), 0);
    EXPECT_EQ(list.GetCount(), 0);

    list.fill(0, 1);
    EXPECT_EQ(nodes(), 256) << "the next entry fills the pool anew";
    EXPECT_EQ(list.GetCount(), 1);
}

TEST_F(NodePool, IsReleasedByTheDestructor)
{
    {
        PooledList list;
        list.fill(0, 300);
    }
    EXPECT_EQ(nodes(), 0);
}

TEST_F(NodePool, InitAddsNoEntryAndNoNodeToAFilledPool)
{
    PooledList list;
    list.fill(0, 2);
    list.init();
    EXPECT_EQ(list.GetCount(), 2);
    EXPECT_EQ(nodes(), 256);
}

TEST_F(NodePool, InitRestoresTheBlockSize)
{
    PooledList list;
    list.setBlockSize(3);
    list.init();
    list.fill(0, 512);
    EXPECT_EQ(nodes(), 512);
}

TEST_F(NodePool, GrowsOneByOneWithoutABlockSize)
{
    PooledList list;
    list.fill(0, 256);
    list.setBlockSize(0);
    list.fill(256, 257);
    EXPECT_EQ(nodes(), 257);
    list.fill(257, 258);
    EXPECT_EQ(nodes(), 258);
}

TEST_F(NodePool, GrowsOneByOneWithANegativeBlockSizeToo)
{
    PooledList list;
    list.fill(0, 256);
    list.setBlockSize(-1);
    list.fill(256, 258);
    EXPECT_EQ(nodes(), 258);
}

TEST_F(NodePool, DropsAFreedNodeAndItselfWithoutABlockSize)
{
    PooledList list;
    list.fill(0, 254);
    PooledList::Node* pooled = list.NewNode(nullptr);
    PooledList::Node* freed = list.NewNode(nullptr); // the last one of the block
    list.FreeNode(pooled);
    list.setBlockSize(0);
    list.FreeNode(freed);
    EXPECT_EQ(list.GetCount(), 254);
    EXPECT_EQ(nodes(), 256) << "the dropped node is not deleted";

    list.NewNode(nullptr);
    EXPECT_EQ(nodes(), 257) << "neither of the two comes back";
}

TEST_F(NodePool, DropsTheRestOfItsBlockToo)
{
    PooledList list;
    list.setBlockSize(0);
    list.FreeNode(list.NewNode(nullptr));
    list.NewNode(nullptr);
    EXPECT_EQ(nodes(), 257);
}

} // namespace
