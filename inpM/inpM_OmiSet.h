// inpM_OmiSet: a sorted set of int without duplicates, the store of sorted id sets.
//
// Sets of a deck can hold millions of ids, read a line at a time and mostly in
// ascending order. Ids are appended as they come; the set sorts and drops
// duplicates only when it is read, so a bulk insertion costs one sort and a set
// read in order costs none. Copies share the ids until one of them is written.
#ifndef INPM_OMISET_H
#define INPM_OMISET_H

#include <vector>

#include "cow_1DArrayList.h"
#include "cow_COW.h"
#include "omi_SetIT.h"

class inpM_OmiSet {
public:
    inpM_OmiSet() = default;

    void Insert(int id);
    void Insert(const cow_1DArrayList<int>& ids);
    void Insert(const inpM_OmiSet& other);
    // False when the id is not in the set.
    bool Remove(int id);
    bool IsMember(int id) const;
    int Size() const;
    bool IsEmpty() const { return Size() == 0; }
    void Clear();

    // The ids in ascending order.
    cow_1DArrayList<int> ConstGetArrayCounterpart() const;
    const std::vector<int>& Items() const;

    bool operator==(const inpM_OmiSet& other) const { return Items() == other.Items(); }
    bool operator!=(const inpM_OmiSet& other) const { return !(*this == other); }

private:
    struct Storage {
        std::vector<int> items;
        // items[0, sorted) is ascending and free of duplicates; the rest waits.
        std::size_t sorted = 0;
    };

    // Sorting does not change what the set holds, so it may act on storage that
    // copies share.
    void Normalize() const;

    cow_COW<Storage, cow_Direct<Storage>> m_storage;
};

// Walks a set in ascending order. The set must outlive the walk and stay unchanged.
class inpM_OmiSetIT : public omi_SetIT {
public:
    explicit inpM_OmiSetIT(const inpM_OmiSet& set) : m_set(&set), m_index(0) {}

    void First() override { m_index = 0; }
    bool IsDone() const override { return m_index >= m_set->Items().size(); }
    void Next() override { ++m_index; }
    int CurrentItem() const override { return m_set->Items()[m_index]; }

private:
    const inpM_OmiSet* m_set;
    std::size_t m_index;
};

#endif
