// Sets of node or element ids, as the set passes build them from *NSET and *ELSET.
//
// A set has ids at its top level and ids that belong to named instances: an
// assembly-level set may name `Pump-1.12` beside plain ids. Whether the set holds
// nodes or elements is told by the map that holds it, not by the set.
//
// Two kinds exist. A sorted set keeps each id once, in ascending order, which is
// what nearly every set of a deck is. An unsorted set keeps the order of the deck
// (`*NSET, UNSORTED`), because the solver reads some node lists in the order given.
// Sets travel behind inpM_SetHandle, whose writes clone through Copy.
#ifndef INPM_BASESET_H
#define INPM_BASESET_H

#include "cow_1DArrayList.h"
#include "cow_COW.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inpM_OmiSet.h"

class aio_ostream;
class inpM_IdMap;
class inpM_SortedSet;

// Whether the system made a set for its own bookkeeping or the user wrote it.
enum inpM_SetTypeFlag : int { inpM_UserSet = 0, inpM_InternalSet = 1 };

class inpM_BaseSet {
public:
    explicit inpM_BaseSet(inpM_SetTypeFlag flag = inpM_UserSet) : renumbered(false), typeFlag(flag) {}
    virtual ~inpM_BaseSet();

    virtual void Print(aio_ostream& out) const = 0;
    virtual inpM_BaseSet* Copy() const = 0;
    virtual void Add(const cow_String& instance, int id) = 0;
    virtual void Add(int id) = 0;
    virtual void Add(const cow_String& instance, const cow_1DArrayList<int>& ids) = 0;
    virtual void Add(const cow_1DArrayList<int>& ids) = 0;
    // The other set's ids, all of them, under the instance.
    virtual void Add(const cow_String& instance, const inpM_BaseSet& other) = 0;
    // Union, scope by scope.
    virtual void Add(const inpM_BaseSet& other) = 0;
    // Removes a top-level id; false when the set does not hold it there.
    virtual bool Remove(int id) = 0;
    // Top-level ids through the map's own table, ids of an instance through the
    // map's nested map of that name. With dropMissing an id without an entry
    // leaves the set; without it the id stays as it is.
    virtual void Renumber(const inpM_IdMap& ids, bool dropMissing) = 0;
    virtual bool IsUnsorted() const = 0;
    // All ids, of every level.
    virtual cow_1DArrayList<int> ConstGetIds() const = 0;
    virtual cow_1DArrayList<int> ConstGetTopLevelIds() const = 0;
    // Empty for an instance that the set does not name.
    virtual cow_1DArrayList<int> ConstGetSecondLevelIds(const cow_String& instance) const = 0;
    // Built in ascending order of the names, so its tree order is reproducible.
    virtual cow_Map<cow_String, cow_1DArrayList<int>> ConstGetInstanceIdsMap() const = 0;
    // Drops the ids that the map, scope by scope, does not hold.
    virtual void Cleanup(const inpM_IdMap& ids) = 0;
    // Ids of an existing new name and of the old one are united.
    virtual void ChangeInstanceName(const cow_String& oldName, const cow_String& newName) = 0;
    virtual bool IsEmpty() const = 0;
    virtual int SetKind() const { return 0; }
    // Ascending; empty for a set without instances.
    virtual cow_List<cow_String> GatherRootLevelInstanceNames() const = 0;
    virtual inpM_SortedSet GetSortedSetEquivalent() const = 0;

    bool IsInternal() const { return typeFlag == inpM_InternalSet; }

    // Set by Renumber: the ids are those of the flat model now.
    bool renumbered;
    inpM_SetTypeFlag typeFlag;
};

using inpM_SetHandle = cow_ArrayCOW<inpM_BaseSet, cow_Virtual<inpM_BaseSet>>;

class inpM_SortedSet : public inpM_BaseSet {
public:
    using NestedHandle = cow_ArrayCOW<inpM_SortedSet, cow_Direct<inpM_SortedSet>>;

    explicit inpM_SortedSet(inpM_SetTypeFlag flag = inpM_UserSet) : inpM_BaseSet(flag) {}

    void Print(aio_ostream& out) const override;
    inpM_BaseSet* Copy() const override { return new inpM_SortedSet(*this); }
    void Add(const cow_String& instance, int id) override;
    void Add(int id) override { m_ids.Insert(id); }
    void Add(const cow_String& instance, const cow_1DArrayList<int>& ids) override;
    void Add(const cow_1DArrayList<int>& ids) override { m_ids.Insert(ids); }
    void Add(const cow_String& instance, const inpM_BaseSet& other) override;
    void Add(const inpM_BaseSet& other) override;
    bool Remove(int id) override { return m_ids.Remove(id); }
    void Renumber(const inpM_IdMap& ids, bool dropMissing) override;
    bool IsUnsorted() const override { return false; }
    cow_1DArrayList<int> ConstGetIds() const override;
    cow_1DArrayList<int> ConstGetTopLevelIds() const override { return m_ids.ConstGetArrayCounterpart(); }
    cow_1DArrayList<int> ConstGetSecondLevelIds(const cow_String& instance) const override;
    cow_Map<cow_String, cow_1DArrayList<int>> ConstGetInstanceIdsMap() const override;
    void Cleanup(const inpM_IdMap& ids) override;
    void ChangeInstanceName(const cow_String& oldName, const cow_String& newName) override;
    bool IsEmpty() const override;
    int SetKind() const override { return 4; }
    cow_List<cow_String> GatherRootLevelInstanceNames() const override;
    inpM_SortedSet GetSortedSetEquivalent() const override { return *this; }

    // The levels below an instance's own ids, kept apart from them: what a writer of
    // the set needs to give it back as it was. Names ascending; the name must be one
    // of them for ConstGetNestedSet.
    cow_List<cow_String> NestedSetNames() const;
    const inpM_SortedSet& ConstGetNestedSet(const cow_String& instance) const;
    // Replaces what stood below the instance.
    void InsertNestedSet(const cow_String& instance, const inpM_SortedSet& set);

private:
    inpM_OmiSet m_ids;
    // Ids that belong to instances of an instance: only a set added whole under
    // an instance brings them.
    cow_Map<cow_String, NestedHandle> m_nestedSets;
    cow_Map<cow_String, inpM_OmiSet> m_instanceIds;
};

class inpM_UnsortedSet : public inpM_BaseSet {
public:
    explicit inpM_UnsortedSet(inpM_SetTypeFlag flag = inpM_UserSet) : inpM_BaseSet(flag) {}
    explicit inpM_UnsortedSet(const cow_1DArrayList<int>& ids, inpM_SetTypeFlag flag = inpM_UserSet)
        : inpM_BaseSet(flag), m_ids(ids) {}

    void Print(aio_ostream& out) const override;
    inpM_BaseSet* Copy() const override { return new inpM_UnsortedSet(*this); }
    void Add(const cow_String& instance, int id) override;
    void Add(int id) override { m_ids.Append(id); }
    void Add(const cow_String& instance, const cow_1DArrayList<int>& ids) override;
    void Add(const cow_1DArrayList<int>& ids) override { m_ids.Append(ids); }
    void Add(const cow_String& instance, const inpM_BaseSet& other) override;
    void Add(const inpM_BaseSet& other) override;
    bool Remove(int id) override;
    void Renumber(const inpM_IdMap& ids, bool dropMissing) override;
    bool IsUnsorted() const override { return true; }
    // Top-level ids, then those of each instance in ascending order of names.
    cow_1DArrayList<int> ConstGetIds() const override;
    cow_1DArrayList<int> ConstGetTopLevelIds() const override { return m_ids; }
    cow_1DArrayList<int> ConstGetSecondLevelIds(const cow_String& instance) const override;
    cow_Map<cow_String, cow_1DArrayList<int>> ConstGetInstanceIdsMap() const override;
    void Cleanup(const inpM_IdMap& ids) override;
    void ChangeInstanceName(const cow_String& oldName, const cow_String& newName) override;
    bool IsEmpty() const override;
    cow_List<cow_String> GatherRootLevelInstanceNames() const override;
    inpM_SortedSet GetSortedSetEquivalent() const override;

private:
    // In the order of insertion; an id given twice is kept twice.
    cow_1DArrayList<int> m_ids;
    cow_Map<cow_String, cow_1DArrayList<int>> m_instanceIds;
};

inpM_SetHandle CreateSet(const cow_1DArrayList<int>& ids, inpM_SetTypeFlag flag, bool unsorted);
inpM_SetHandle CreateSet(const cow_1DArrayList<int>& ids, bool internal, bool unsorted);
inpM_SetHandle CreateSet(const inpM_BaseSet& set);
inpM_SetHandle CreateSet(bool internal, bool unsorted);

#endif
