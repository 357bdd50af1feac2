#ifndef KV_CONFIG_CLIST_HPP
#define KV_CONFIG_CLIST_HPP

#include "CNode.hpp"

#include <cstdint>

/// A singly linked list in ascending key order, equal keys in the order of their insertion; duplicates are
/// allowed. Key needs operator< and operator==. Nodes come from a pool that is filled a block at a time and
/// go back to the system only with ClearAll, so a file of up to 256 entries costs one burst of allocations.
/// In every operation with two arguments the value comes before the key.
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

    /// Adds an entry before the first one with a greater key, and so after all those with an equal key.
    Node* Insert(const Value& value, const Key& key)
    {
        if (!m_head || key < m_head->key)
            return AddHead(value, key);
        for (Node* before = m_head; before->next; before = before->next) {
            if (key < before->next->key) {
                before->next = filled(NewNode(before->next), value, key);
                return before->next;
            }
        }
        return AddTail(value, key);
    }

    /// Adds an entry in front. Keeping the order is the caller's business, as it is with AddTail.
    Node* AddHead(const Value& value, const Key& key)
    {
        m_head = filled(NewNode(m_head), value, key);
        if (!m_tail)
            m_tail = m_head;
        return m_head;
    }

    /// Adds an entry at the end.
    Node* AddTail(const Value& value, const Key& key)
    {
        Node* added = filled(NewNode(nullptr), value, key);
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

    /// Deletes every entry and the pool. The list can be used again.
    void ClearAll()
    {
        deleteChain(m_head);
        deleteChain(m_pool);
        m_head = m_spare = m_tail = m_pool = nullptr;
        m_count = 0;
    }

    /// Takes a node out of the pool, which is refilled first when it is empty, and counts it as an entry. The
    /// caller links it in; its key and value are those of its last use.
    Node* NewNode(Node* next)
    {
        if (!m_pool)
            refill();
        Node* taken = m_pool;
        m_pool = taken->next;
        taken->next = next;
        ++m_count;
        return taken;
    }

    /// Puts a node that is no longer linked in back into the pool and stops counting it as an entry.
    void FreeNode(Node* node)
    {
        if (m_blockSize > 0) {
            node->next = m_pool;
            m_pool = node;
        } else {
            // Without blocks there is no pool to return to. The node is dropped on purpose, not deleted.
            m_pool = nullptr;
        }
        --m_count;
    }

  private:
    static Node* filled(Node* node, const Value& value, const Key& key)
    {
        node->value = value;
        node->key = key;
        return node;
    }

    static void deleteChain(Node* node)
    {
        while (node) {
            Node* next = node->next;
            delete node;
            node = next;
        }
    }

    Node* firstWith(const Key& key) const
    {
        Node* node = m_head;
        while (node && !(node->key == key))
            node = node->next;
        return node;
    }

    void refill()
    {
        const std::int32_t nodes = m_blockSize > 0 ? m_blockSize : 1;
        for (std::int32_t i = 0; i < nodes; ++i) {
            Node* added = new Node();
            added->next = m_pool;
            m_pool = added;
        }
    }

    // The members keep the order of the list's layout, whatever their access.
    std::int32_t m_count = 0;

  protected:
    std::int32_t m_blockSize = 0; ///< nodes allocated at once when the pool is empty: 256 after init

  private:
    Node* m_head = nullptr;
    Node* m_spare = nullptr; ///< read by nobody; kept because it is part of the list's layout
    Node* m_tail = nullptr;
    Node* m_pool = nullptr; ///< nodes that are not in the list
};

#endif
