// inpM_SetMap: named sets of one kind (nodes or elements), at the assembly level
// and nested by scope.
//
// The map itself is the assembly level, set name to set; `instances` holds one
// such map per part or instance name. A deck and its passes keep node sets and
// element sets in two separate maps. Copies share everything: a pass takes the
// deck's map by copy, adds to it, and the deck takes the result back.
#ifndef INPM_SETMAP_H
#define INPM_SETMAP_H

#include "cow_COW.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inpM_BaseSet.h"

class aio_ostream;
class inpM_IdMap;

using inpM_BaseSetMap = cow_Map<cow_String, inpM_SetHandle>;

class inpM_SetMap : public inpM_BaseSetMap {
public:
    using Handle = cow_COW<inpM_SetMap, cow_Direct<inpM_SetMap>>;

    inpM_SetMap() = default;

    cow_Map<cow_String, Handle> instances;

    // The name must be a member of the assembly level.
    const inpM_BaseSet& ConstGetSet(const cow_String& name) const;
    // HasNestedSet(scope, name) must hold.
    const inpM_BaseSet& ConstGetNestedSet(const cow_String& scope, const cow_String& name) const;
    bool HasNestedSet(const cow_String& scope, const cow_String& name) const;
    // The sets of one scope; an empty map for an unknown scope.
    const inpM_BaseSetMap& ConstGetNestedSetMap(const cow_String& scope) const;

    // A copy of the set goes in; an earlier set of the name is replaced.
    void InsertSet(const cow_String& name, const inpM_BaseSet& set);
    void InsertNestedSet(const cow_String& scope, const cow_String& name, const inpM_BaseSet& set);
    // Shares the sets of the map; those of the scope with the same names are replaced.
    void InsertNestedSetMap(const cow_String& scope, const inpM_BaseSetMap& sets);

    // Scope names in ascending byte order.
    cow_List<cow_String> Instances() const;
    // No set at any level.
    bool IsEmpty() const;

    // A name that both maps hold at one level ends up with the union of both sets.
    void Merge(const inpM_SetMap& other);
    // Assembly-level sets through the root of the id map (their instance members
    // through its nested maps), the sets of a scope through the nested map of
    // that scope. The flag is that of inpM_BaseSet::Renumber.
    void Renumber(const inpM_IdMap& ids, bool dropMissing);
    // Every id of every set, at every level, is joined by id + k offset, k = 1..count,
    // added after the ids the set had.
    void InsertDuplicateOffsetIds(int offset, int count);
    // Renames the scope, and the instance inside every set that names it. When
    // the new scope exists already the sets of both are merged.
    void ChangeInstanceName(const cow_String& oldName, const cow_String& newName);
    // At the assembly level and in every scope.
    void DeleteAllSetsExceptThoseListed(const cow_List<cow_String>& names);
    // The assembly level first, then the scopes in ascending order; `instance`
    // names the holder (empty for the assembly level, and when nothing holds it).
    bool SearchAssemblyAndInstancesForSet(const cow_String& name, cow_String& instance) const;
    // The set a generation keyword of `scope` names: in that scope, or with `searchAll`
    // at the assembly level first and then in any scope. Null when there is none.
    const inpM_BaseSet* FindSet(const cow_String& scope, const cow_String& name, bool searchAll) const;
    // Drops every set that the system made for itself, at every level.
    void RemoveInternalSets();

    void Print(aio_ostream& out) const;
};

#endif
