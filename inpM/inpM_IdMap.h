// inpM_IdMap: ids of the deck to ids of the flat solver model, scope by scope.
//
// An id is unique only within its scope (the assembly level or one instance), so
// the map has a table for its own level and one nested map per child scope. The
// renumbering of nodes and elements produces these maps; the set, surface and
// reference passes read them to rewrite what the deck refers to.
//
// inpM_InstanceIdMaps is the form in which a part map carries id maps from one
// job to the next: plain arrays of pairs, which a driver can store as they are.
#ifndef INPM_IDMAP_H
#define INPM_IDMAP_H

#include "cow_1DArrayList.h"
#include "cow_COW.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "omi_IntTable.h"

class inpM_IdMap;

class inpM_InstanceIdMaps {
public:
    using Handle = cow_COW<inpM_InstanceIdMaps, cow_Direct<inpM_InstanceIdMaps>>;

    inpM_InstanceIdMaps() = default;
    explicit inpM_InstanceIdMaps(const inpM_IdMap& map);

    // Pairs of this level in ascending order of the old id.
    cow_1DArrayList<int> oldIds;
    cow_1DArrayList<int> newIds;
    cow_Map<cow_String, Handle> instances;
};

class inpM_IdMap {
public:
    using Handle = cow_COW<inpM_IdMap, cow_Direct<inpM_IdMap>>;
    using IdTable = omi_IntTable<int>;

    inpM_IdMap() = default;
    explicit inpM_IdMap(const inpM_InstanceIdMaps& stored);

    cow_Map<cow_String, Handle> instances;
    cow_COW<IdTable, cow_Direct<IdTable>> ids;

    // The new id of an id of this level; 0, which is never an id, when the map
    // has no entry for it.
    int ConstGet(int id) const;
    // The map of a child scope; an empty map when there is no such child, so
    // that a lookup in an unknown scope finds nothing.
    const inpM_IdMap& ConstGet(const cow_String& instance) const;

    // Rewrites the array in place. 0 stands for "no node" in connectivity and
    // stays 0. Raises nex_TextException at the first id without an entry;
    // the entries before it are rewritten already.
    void Renumber(int* idArray, int count) const;
    // With skipMissing, ids without an entry are left out of the result;
    // without it they raise as above.
    cow_1DArrayList<int> Renumber(const cow_1DArrayList<int>& list, bool skipMissing) const;

    // Ids of the copies that *SYMMETRIC MODEL GENERATION makes: each pair
    // (old, new) is joined by (old + k offset, new + k offset), k = 1..count,
    // at every level.
    void InsertDuplicateOffsetIds(int offset, int count);

    // Over the new ids of all levels; 0 for a map without ids.
    int LargestId() const;
    int SmallestId() const;
    int NumberIds() const;

    // Child scope names in ascending byte order.
    cow_List<cow_String> Instances() const;

    // Plain table and map operations, named for the callers' convenience.
    void Insert(int oldId, int newId) { ids.Get().Insert(oldId, newId); }
    bool HasId(int id) const { return ids->HasKey(id); }
    void InsertInstance(const cow_String& name, const inpM_IdMap& map) { instances.Insert(name, Handle(new inpM_IdMap(map))); }
    bool HasInstance(const cow_String& name) const { return instances.IsMember(name); }
};

#endif
