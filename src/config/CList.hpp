#ifndef KV_CONFIG_CLIST_HPP
#define KV_CONFIG_CLIST_HPP

#include "config/CNode.hpp"

#include <cstddef>
#include <cstdint>
#include <forward_list>
#include <utility>
#include <vector>

/// A singly linked list in ascending key order, equal keys in the order of their insertion; duplicates are
/// allowed. Key needs operator< and operator==. In every operation with two arguments the value comes before
/// the key.
///
/// Nodes come from a pool that is filled a block at a time and goes back to the system only with ClearAll, so
/// a file of up to 256 entries costs one allocation of nodes.
///
/// A returned node belongs to the list and is valid until it is freed or the list is cleared. An operation
/// throws std::bad_alloc when there is no memory left.
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
                before->next = makeNode(value, key, before->next);
                return before->next;
            }
        }
        return AddTail(value, key);
    }

    /// Adds an entry in front. The caller keeps the order, here and with AddTail.
    Node* AddHead(const Value& value, const Key& key)
    {
        m_head = makeNode(value, key, m_head);
        if (!m_tail)
            m_tail = m_head;
        return m_head;
    }

    /// Adds an entry at the end.
    Node* AddTail(const Value& value, const Key& key)
    {
        Node* added = makeNode(value, key, nullptr);
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

    /// Deletes every node, those of the list and those of the pool. The list can be used again.
    void ClearAll()
    {
        m_blocks.clear();
        m_head = m_spare = m_tail = m_pool = nullptr;
        m_count = 0;
    }

    /// Takes a node out of the pool and counts it as an entry. An empty pool is refilled first. Key and value
    /// are empty; the caller links it in.
    Node* NewNode(Node* next)
    {
        if (!m_pool)
            refill();
        Node* node = std::exchange(m_pool, m_pool->next);
        node->next = next;
        ++m_count;
        return node;
    }

    /// Empties a node that is no longer linked in, puts it back into the pool and stops counting it as an
    /// entry.
    void FreeNode(Node* node)
    {
        *node = Node();
        if (m_blockSize > 0)
            node->next = std::exchange(m_pool, node);
        else
            m_pool = nullptr; // Without blocks there is no pool to return to: the node is dropped.
        --m_count;
    }

  private:
    Node* makeNode(const Value& value, const Key& key, Node* next)
    {
        Node* node = NewNode(next);
        node->key = key;
        node->value = value;
        return node;
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
        for (Node& node : m_blocks.emplace_front(m_blockSize > 0 ? static_cast<std::size_t>(m_blockSize) : 1))
            node.next = std::exchange(m_pool, &node);
    }

    // The first six members keep their order, whatever their access.
    std::int32_t m_count = 0;

  protected:
    std::int32_t m_blockSize = 0; ///< nodes allocated at once when the pool is empty: 256 after init

  private:
    Node* m_head = nullptr;
    Node* m_spare = nullptr; ///< read by nobody; cleared together with head and tail
    Node* m_tail = nullptr;
    Node* m_pool = nullptr;                        ///< a chain of the nodes that are not in the list
    std::forward_list<std::vector<Node>> m_blocks; ///< all nodes, none of which ever moves
};

#endif
