// cow_Btree: the balanced tree of the keyword tables, iterated in key order.
#ifndef COW_BTREE_H
#define COW_BTREE_H

#include <map>

template <class K, class V>
class cow_Btree {
public:
    // False, and nothing changes, when the key is present already.
    bool InsertUnlessMember(const K& key, const V& value) { return m_tree.emplace(key, value).second; }
    bool IsMember(const K& key) const { return m_tree.find(key) != m_tree.end(); }
    const V& ConstGet(const K& key) const { return m_tree.find(key)->second; }
    // The key must be present.
    V& Get(const K& key) { return m_tree.find(key)->second; }
    int Count() const { return static_cast<int>(m_tree.size()); }
    void Clear() { m_tree.clear(); }

private:
    template <class, class>
    friend class cow_BtreeIterator;
    std::map<K, V> m_tree;
};

template <class K, class V>
class cow_BtreeIterator {
public:
    explicit cow_BtreeIterator(const cow_Btree<K, V>& tree) : m_tree(&tree.m_tree), m_it(m_tree->begin()) {}
    void First() { m_it = m_tree->begin(); }
    void Next() { ++m_it; }
    bool IsDone() const { return m_it == m_tree->end(); }
    const K& CurrentKey() const { return m_it->first; }
    const V& CurrentValue() const { return m_it->second; }

private:
    const std::map<K, V>* m_tree;
    typename std::map<K, V>::const_iterator m_it;
};

#endif
