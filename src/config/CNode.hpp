#ifndef KV_CONFIG_CNODE_HPP
#define KV_CONFIG_CNODE_HPP

/// One entry of a CList. `next` is not owned, the list owns every node.
template <typename Key, typename Value>
struct CNode {
    CNode* next = nullptr; ///< null at the end of the chain
    Key key;
    Value value;
};

#endif
