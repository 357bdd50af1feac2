#ifndef KV_CONFIG_CLIST_HPP
#define KV_CONFIG_CLIST_HPP

#include "config/CNode.hpp"

#include <cstddef>
#include <cstdint>
#include <new>
#include <utility>

/// A singly linked list in ascending key order, equal keys in the order of their insertion; duplicates are
/// allowed. Key needs operator< and operator==. In every operation with two arguments the value comes before
/// the key.
///
/// Nodes come from a pool that is filled a block at a time and goes back to the system only with ClearAll, so
/// a file of up to 256 entries costs one allocation of nodes. A switch of the packet filter is read with a
/// list of its own that holds four of them: that is why the places of a block are made into nodes one by one,
/// when they are taken.
///
/// A returned node belongs to the list and is valid until it is freed or the list is cleared. Where the
/// system has no more memory, std::bad_alloc leaves the operation.
template <typename Key, typename Value>
class CList
{
  public:
    using Node = CNode<Key, Value>;

    CList() { init(); }
    CList(const CList&) = delete;
    CList& operator=(const CList&) = delete;
    virtual ~CList() { ClearAll(); }

    /// Sets the block size and puts one block of nodes into the pool, by taking a node and giving it back.
    void init()
    {
        m_blockSize = 256;
        FreeNode(NewNode(nullptr));
    }

    /// Adds an entry, whose value and key it takes over, before the first one with a greater key, and so
    /// after all those with an equal key.
    Node* Insert(Value&& value, Key&& key)
    {
        if (!m_head || key < m_head->key)
            return AddHead(std::move(value), std::move(key));
        for (Node* before = m_head; before->next; before = before->next) {
            if (key < before->next->key) {
                before->next = makeNode(before->next, std::move(value), std::move(key));
                return before->next;
            }
        }
        return AddTail(std::move(value), std::move(key));
    }

    /// Adds an entry in front. Keeping the order is the caller's business, as it is with AddTail.
    Node* AddHead(Value&& value, Key&& key)
    {
        m_head = makeNode(m_head, std::move(value), std::move(key));
        if (!m_tail)
            m_tail = m_head;
        return m_head;
    }

    /// Adds an entry at the end.
    Node* AddTail(Value&& value, Key&& key)
    {
        Node* added = makeNode(nullptr, std::move(value), std::move(key));
        if (m_tail)
            m_tail->next = added;
        else
            m_head = added;
        m_tail = added;
        return added;
    }

    /// Copies the value of the first entry with `key` into `value` and returns the entry. Null, and `value`
    /// untouched, when there is none.
    Node* Find(Value& value, const Key& key) const
    {
        Node* found = firstWith(key);
        if (found)
            value = found->value;
        return found;
    }

    /// Gives the first entry with `key` a new value. 1 when it was there, otherwise 0.
    int Modify(const Value& value, const Key& key)
    {
        Node* found = firstWith(key);
        if (!found)
            return 0;
        found->value = value;
        return 1;
    }

    /// Copies at most `max` keys, from the head onward, into `keys`. Returns how many were copied.
    std::int32_t GetKeys(Key keys[], std::int32_t max) const
    {
        std::int32_t copied = 0;
        for (const Node* node = m_head; node && copied < max; node = node->next)
            keys[copied++] = node->key;
        return copied;
    }

    /// Number of entries.
    std::int32_t GetCount() const { return m_count; }

    /// Deletes every entry and the pool. The list can be used again. A node that was taken with NewNode and
    /// neither linked in nor freed is gone with the pool, without being destroyed.
    void ClearAll()
    {
        while (m_head) {
            Node* deleted = m_head;
            m_head = deleted->next;
            deleted->~Node();
        }
        m_spare = m_tail = nullptr;
        while (m_blocks)
            ::operator delete(std::exchange(m_blocks, m_blocks->next));
        m_pool = m_untouched = m_blockEnd = nullptr;
        m_count = 0;
    }

    /// Takes a node out of the pool, which is refilled first when it is empty, and counts it as an entry. Key
    /// and value are empty; the caller links it in.
    Node* NewNode(Node* next) { return makeNode(next, Value(), Key()); }

    /// Puts a node that is no longer linked in back into the pool and stops counting it as an entry.
    void FreeNode(Node* node)
    {
        if (m_blockSize > 0) {
            node->~Node();
            m_pool = placeAt(node, m_pool);
        } else {
            // Without blocks there is no pool to return to. The node is dropped on purpose, not deleted.
            m_pool = m_untouched = m_blockEnd = nullptr;
        }
        --m_count;
    }

  private:
    /// Room for a node: one that was given back, or one in a block that nobody has taken yet.
    union Place {
        Place* next;
        alignas(Node) std::byte node[sizeof(Node)];
    };

    /// Sets the link alone: the room for a node is left as it is.
    static Place* placeAt(void* memory, Place* next)
    {
        auto* place = new (memory) Place;
        place->next = next;
        return place;
    }

    Node* makeNode(Node* next, Value&& value, Key&& key)
    {
        Node* made = new (takePlace()) Node{next, std::move(key), std::move(value)};
        ++m_count;
        return made;
    }

    Node* firstWith(const Key& key) const
    {
        Node* node = m_head;
        while (node && !(node->key == key))
            node = node->next;
        return node;
    }

    Place* takePlace()
    {
        if (m_pool)
            return std::exchange(m_pool, m_pool->next);
        if (m_untouched == m_blockEnd)
            refill();
        return m_untouched++;
    }

    void refill()
    {
        static_assert(alignof(Place) <= alignof(std::max_align_t), "operator new aligns for no more");
        const std::size_t places = m_blockSize > 0 ? static_cast<std::size_t>(m_blockSize) : 1;
        // Not new[], whose check of the length is in no C++ library as old as the server's.
        void* block = ::operator new((places + 1) * sizeof(Place));
        m_blocks = placeAt(block, m_blocks);
        m_untouched = m_blocks + 1;
        m_blockEnd = m_untouched + places;
    }

    // The first six members keep their order, whatever their access; what the places of a block need follows.
    std::int32_t m_count = 0;

  protected:
    std::int32_t m_blockSize = 0; ///< nodes allocated at once when the pool is empty: 256 after init

  private:
    Node* m_head = nullptr;
    Node* m_spare = nullptr; ///< read by nobody; cleared together with head and tail
    Node* m_tail = nullptr;
    Place* m_pool = nullptr;      ///< places of nodes that were given back
    Place* m_untouched = nullptr; ///< the rest of the newest block, which belongs to the pool too
    Place* m_blockEnd = nullptr;
    Place* m_blocks = nullptr; ///< the newest one; the first place of each leads to the one before it
};

#endif
