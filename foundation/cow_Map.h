// cow_Map: a digital search tree behind copy-on-write node handles.
//
// Each node holds a full key and its value. A lookup walks from the root; on a
// mismatch at level L it goes right when the key's bit L is set, else left. For
// string keys bit L is the low bit of a character read alternately from the front
// (even L) and the back (odd L) of the key, so names that share a long prefix or a
// long tail part in a few steps. The iteration order of the tree therefore depends
// on the keys and on the order of insertion, and it reaches printed output (the
// parameters of a keyword print in it): do not change the bit rule.
//
// A copy of a map is one counter increment; a write clones the nodes on its path.
#ifndef COW_MAP_H
#define COW_MAP_H

#include <cstddef>
#include <cstdlib>
#include <string>
#include <unordered_map>
#include <vector>
#include <type_traits>

#include "cow_COW.h"
#include "cow_String.h"

// The bit of a key for a level of the tree.
inline bool cow_MapBit(const atr_StringBase& key, int level) {
    int n = key.Length();
    if (level > n) return false;
    const char* s = key.c_str();
    int index = (level % 2 == 0) ? level / 2 : n - (level / 2) - 1;
    return (static_cast<unsigned char>(s[index]) & 1u) != 0;
}

// Integer keys (keyword values, ids) take their bits from the lowest up.
template <class K, typename std::enable_if<std::is_integral<K>::value || std::is_enum<K>::value, int>::type = 0>
inline bool cow_MapBit(K key, int level) {
    if (level >= 32) return false;
    return ((static_cast<unsigned>(key) >> level) & 1u) != 0;
}

// How many levels from the root may give a set bit; every deeper level gives none.
inline int cow_MapLevels(const atr_StringBase& key) { return key.Length() + 1; }
template <class K, typename std::enable_if<std::is_integral<K>::value || std::is_enum<K>::value, int>::type = 0>
inline int cow_MapLevels(K) {
    return 32;
}

template <class K, class V>
struct cow_MapNode {
    K key;
    V value;
    cow_ArrayCOW<cow_MapNode> left;
    cow_ArrayCOW<cow_MapNode> right;
    cow_MapNode(const K& k, const V& v) : key(k), value(v) {}
};

template <class K, class V>
class cow_Map {
public:
    using Node = cow_MapNode<K, V>;
    using Handle = cow_ArrayCOW<Node>;

    cow_Map() : m_count(0) {}

    int Count() const { return m_count; }
    bool IsEmpty() const { return m_count == 0; }

    // Inserts, or replaces the value of an existing key. Always true.
    bool Insert(const K& key, const V& value) {
        Handle* h = &m_root;
        int level = 0;
        while (h->HasValue()) {
            Node& n = h->Get();
            if (n.key == key) {
                n.value = value;
                return true;
            }
            h = cow_MapBit(key, level) ? &n.right : &n.left;
            ++level;
        }
        *h = new Node(key, value);
        ++m_count;
        return true;
    }

    // Inserts n keys that the map does not hold, no two of them equal, in the order
    // given: the same tree as one Insert after another, in time linear in the length of
    // the keys. Insert compares its key with every node on the path, and keys whose bits
    // agree pile up in one left chain behind their last set bit, so n such keys cost
    // n * n / 2 comparisons. Here a key walks only the levels of its own set bits and
    // then goes straight to the end of its chain, which is remembered for the batch.
    void InsertNew(const K* keys, const V* values, int n) {
        std::unordered_map<Handle*, Handle*> chainEnds;
        for (int i = 0; i < n; ++i) {
            const K& key = keys[i];
            int last = cow_MapLevels(key) - 1;
            while (last >= 0 && !cow_MapBit(key, last)) --last;
            Handle* h = &m_root;
            for (int level = 0; level <= last && h->HasValue(); ++level) {
                Node& node = h->Get();
                h = cow_MapBit(key, level) ? &node.right : &node.left;
            }
            if (h->HasValue()) {
                // A chain holds keys placed by other walks too; each is stepped over once.
                Handle*& end = chainEnds[h];
                if (!end) end = h;
                while (end->HasValue()) end = &end->Get().left;
                h = end;
                *h = new Node(key, values[i]);
                end = &h->Get().left;
            } else {
                *h = new Node(key, values[i]);
            }
            ++m_count;
        }
    }

    bool IsMember(const K& key) const { return Find(key) != nullptr; }

    // The key must be present.
    const V& ConstGet(const K& key) const { return Find(key)->value; }

    // Writable value of a present key; clones the path to it.
    V& Get(const K& key) {
        Handle* h = &m_root;
        int level = 0;
        for (;;) {
            Node& n = h->Get();
            if (n.key == key) return n.value;
            h = cow_MapBit(key, level) ? &n.right : &n.left;
            ++level;
        }
    }

    // Pointer to the value, or null: one walk for a test and a read.
    const V* Lookup(const K& key) const {
        const Node* n = Find(key);
        return n ? &n->value : nullptr;
    }

    bool Remove(const K& key) {
        if (!IsMember(key)) return false;
        Handle* h = &m_root;
        int level = 0;
        for (;;) {
            Node& n = h->Get();
            if (n.key == key) break;
            h = cow_MapBit(key, level) ? &n.right : &n.left;
            ++level;
        }
        // Pull keys up from the children until the node to drop is a leaf.
        for (;;) {
            Node& n = h->Get();
            Handle* child = n.right.HasValue() ? &n.right : (n.left.HasValue() ? &n.left : nullptr);
            if (!child) break;
            Node& c = child->Get();
            n.key = c.key;
            n.value = c.value;
            h = child;
        }
        *h = static_cast<Node*>(nullptr);
        --m_count;
        return true;
    }

    void Clear() {
        m_root = Handle();
        m_count = 0;
    }

    const Handle& Root() const { return m_root; }

private:
    const Node* Find(const K& key) const {
        const Handle* h = &m_root;
        int level = 0;
        while (h->HasValue()) {
            const Node& n = h->ConstGet();
            if (n.key == key) return &n;
            h = cow_MapBit(key, level) ? &n.right : &n.left;
            ++level;
        }
        return nullptr;
    }

    Handle m_root;
    int m_count;
};

// A string-keyed map built from entries in order, as one Insert after another would
// build it (a repeated key keeps its first place and takes the later value), in time
// linear in the entries: the keys are told apart by a hash and go in with InsertNew.
template <class V>
class cow_MapBuilder {
public:
    void Insert(const cow_String& key, const V& value) {
        const auto placed = m_places.emplace(std::string(key.c_str(), static_cast<std::size_t>(key.Length())),
                                             m_keys.size());
        if (!placed.second) {
            m_values[placed.first->second] = value;
            return;
        }
        m_keys.push_back(key);
        m_values.push_back(value);
    }

    cow_Map<cow_String, V> Build() const {
        cow_Map<cow_String, V> map;
        map.InsertNew(m_keys.data(), m_values.data(), static_cast<int>(m_keys.size()));
        return map;
    }

private:
    std::vector<cow_String> m_keys;
    std::vector<V> m_values;
    std::unordered_map<std::string, std::size_t> m_places;
};

// Walks a snapshot of a map in the order of the tree: node, left subtree, right subtree.
// Writing to the map during the walk does not disturb it.
template <class K, class V>
class cow_ConstMapIterator {
public:
    using Node = cow_MapNode<K, V>;

    explicit cow_ConstMapIterator(const cow_Map<K, V>& map)
        : m_root(map.Root()), m_count(map.Count()), m_current(0), m_nodes(nullptr) {}
    cow_ConstMapIterator(const cow_ConstMapIterator&) = delete;
    cow_ConstMapIterator& operator=(const cow_ConstMapIterator&) = delete;
    virtual ~cow_ConstMapIterator() { delete[] m_nodes; }

    void First() {
        delete[] m_nodes;
        m_nodes = new const Node*[static_cast<size_t>(m_count) + 1];
        int n = 0;
        if (m_root.HasValue()) Fill(&m_root.ConstGet(), n);
        m_nodes[n] = nullptr;
        m_current = 0;
        Arrange(n);
    }
    void Next() {
        if (m_nodes && m_nodes[m_current]) ++m_current;
    }
    bool IsDone() const { return !m_nodes || !m_nodes[m_current]; }
    const K& CurrentKey() const { return m_nodes[m_current]->key; }
    const V& CurrentValue() const { return m_nodes[m_current]->value; }

protected:
    virtual void Arrange(int) {}
    const Node** m_nodesArray() { return m_nodes; }

private:
    // The depth of the tree is bounded by the bits of the longest key.
    void Fill(const Node* node, int& n) {
        m_nodes[n++] = node;
        if (node->left.HasValue()) Fill(&node->left.ConstGet(), n);
        if (node->right.HasValue()) Fill(&node->right.ConstGet(), n);
    }

    typename cow_Map<K, V>::Handle m_root;
    int m_count;
    int m_current;
    const Node** m_nodes;
};

// The same snapshot in ascending (default) or descending byte order of the keys.
template <class K, class V>
class cow_ConstMapSortedIt : public cow_ConstMapIterator<K, V> {
public:
    using Node = cow_MapNode<K, V>;
    using Compare = int (*)(const void*, const void*);

    static int AscSortCmp(const void* a, const void* b) {
        const K& ka = (*static_cast<const Node* const*>(a))->key;
        const K& kb = (*static_cast<const Node* const*>(b))->key;
        return ka < kb ? -1 : (kb < ka ? 1 : 0);
    }
    static int DescSortCmp(const void* a, const void* b) { return AscSortCmp(b, a); }

    explicit cow_ConstMapSortedIt(const cow_Map<K, V>& map, Compare cmp = &AscSortCmp)
        : cow_ConstMapIterator<K, V>(map), m_cmp(cmp) {}

protected:
    void Arrange(int n) override {
        if (n > 1) std::qsort(this->m_nodesArray(), static_cast<size_t>(n), sizeof(const Node*), m_cmp);
    }

private:
    Compare m_cmp;
};

#endif
