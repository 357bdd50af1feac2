#ifndef KV_CONFIG_CNODE_HPP
#define KV_CONFIG_CNODE_HPP

/// One entry of a CList, which owns it.
template <typename Key, typename Value>
struct CNode {
    /// Key and value are empty.
    explicit CNode(CNode* following = nullptr) : next(following) {}

    CNode* next; ///< null at the end of the chain
    Key key{};
    Value value{};
};

#endif
