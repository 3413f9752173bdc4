// cow_IntTable: a counted, copy-on-write handle on an omi_IntTable.
//
// The model maps hand whole tables out as results. Whether such a result is the
// stored table itself or a table built for the caller (transformed, renumbered)
// is the map's business: the caller gets a handle either way, and a handle that
// shares a stored table costs one counter increment. Writing through Get()
// separates the caller's table from the map's.
#ifndef COW_INTTABLE_H
#define COW_INTTABLE_H

#include "cow_COW.h"
#include "omi_IntTable.h"

template <class T>
class cow_IntTable : public cow_COW<omi_IntTable<T>, cow_Direct<omi_IntTable<T>>> {
    using Base = cow_COW<omi_IntTable<T>, cow_Direct<omi_IntTable<T>>>;

public:
    using Table = omi_IntTable<T>;

    // A new empty table.
    cow_IntTable() = default;
    // Adopts a table made by the caller.
    cow_IntTable(Table* table) : Base(table) {}
    // Shares the table of another handle.
    cow_IntTable(const Base& shared) : Base(shared) {}

    using Base::ConstGet;
    const T& ConstGet(int key) const { return this->ConstGet().ConstGet(key); }
    bool HasKey(int key) const { return this->ConstGet().HasKey(key); }
    int Count() const { return this->ConstGet().Count(); }
};

#endif
