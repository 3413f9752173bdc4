#include "inpM_SetMap.h"

#include "aio_ostream.h"
#include "inpM_IdMap.h"
#include "inpM_Utils.h"

namespace {

const inpM_BaseSetMap& EmptySetMap() {
    static const inpM_BaseSetMap empty;
    return empty;
}

// The union of two sets under one name; the first keeps its kind and flag.
inpM_SetHandle United(const inpM_SetHandle& ours, const inpM_SetHandle& theirs) {
    inpM_SetHandle united(ours);
    united.Get().Add(theirs.ConstGet());
    return united;
}

void MergeLevel(inpM_BaseSetMap& into, const inpM_BaseSetMap& from) {
    cow_List<cow_String> names = inpM_Utils::SortedKeys(from);
    for (int i = 0; i < names.Count(); ++i) {
        const inpM_SetHandle& theirs = from.ConstGet(names[i]);
        const inpM_SetHandle* ours = into.Lookup(names[i]);
        into.Insert(names[i], ours ? United(*ours, theirs) : theirs);
    }
}

// Applies an operation to every set of one level, in ascending order of names.
template <class Operation>
void ForEachSet(inpM_BaseSetMap& level, Operation operation) {
    cow_List<cow_String> names = inpM_Utils::SortedKeys(level);
    for (int i = 0; i < names.Count(); ++i) operation(names[i], level.Get(names[i]));
}

void AddOffsetIds(inpM_SetHandle& handle, int offset, int count) {
    const inpM_BaseSet& set = handle.ConstGet();
    cow_1DArrayList<int> top = set.ConstGetTopLevelIds();
    cow_List<cow_String> names = set.GatherRootLevelInstanceNames();
    if (top.IsEmpty() && names.IsEmpty()) return;
    cow_Map<cow_String, cow_1DArrayList<int>> byInstance = set.ConstGetInstanceIdsMap();
    inpM_BaseSet& written = handle.Get();
    for (int k = 1; k <= count; ++k) {
        cow_1DArrayList<int> shifted(top.Count());
        for (int i = 0; i < top.Count(); ++i) shifted.Append(top[i] + k * offset);
        written.Add(shifted);
        for (int n = 0; n < names.Count(); ++n) {
            const cow_1DArrayList<int>* ids = byInstance.Lookup(names[n]);
            if (!ids) continue;
            cow_1DArrayList<int> moved(ids->Count());
            for (int i = 0; i < ids->Count(); ++i) moved.Append((*ids)[i] + k * offset);
            written.Add(names[n], moved);
        }
    }
}

void KeepListed(inpM_BaseSetMap& level, const cow_List<cow_String>& listed) {
    cow_List<cow_String> names = inpM_Utils::SortedKeys(level);
    for (int i = 0; i < names.Count(); ++i)
        if (!listed.IsMember(names[i])) level.Remove(names[i]);
}

void DropInternal(inpM_BaseSetMap& level) {
    cow_List<cow_String> names = inpM_Utils::SortedKeys(level);
    for (int i = 0; i < names.Count(); ++i)
        if (level.ConstGet(names[i])->IsInternal()) level.Remove(names[i]);
}

void RenameInSets(inpM_BaseSetMap& level, const cow_String& oldName, const cow_String& newName) {
    ForEachSet(level, [&](const cow_String&, inpM_SetHandle& set) {
        if (set->GatherRootLevelInstanceNames().IsMember(oldName)) set.Get().ChangeInstanceName(oldName, newName);
    });
}

}  // namespace

const inpM_BaseSet& inpM_SetMap::ConstGetSet(const cow_String& name) const { return ConstGet(name).ConstGet(); }

const inpM_BaseSet& inpM_SetMap::ConstGetNestedSet(const cow_String& scope, const cow_String& name) const {
    return instances.ConstGet(scope)->ConstGet(name).ConstGet();
}

bool inpM_SetMap::HasNestedSet(const cow_String& scope, const cow_String& name) const {
    const Handle* nested = instances.Lookup(scope);
    return nested && (*nested)->IsMember(name);
}

const inpM_BaseSetMap& inpM_SetMap::ConstGetNestedSetMap(const cow_String& scope) const {
    const Handle* nested = instances.Lookup(scope);
    return nested ? static_cast<const inpM_BaseSetMap&>(nested->ConstGet()) : EmptySetMap();
}

void inpM_SetMap::InsertSet(const cow_String& name, const inpM_BaseSet& set) { Insert(name, CreateSet(set)); }

void inpM_SetMap::InsertNestedSet(const cow_String& scope, const cow_String& name, const inpM_BaseSet& set) {
    if (!instances.IsMember(scope)) instances.Insert(scope, Handle(new inpM_SetMap()));
    instances.Get(scope).Get().Insert(name, CreateSet(set));
}

void inpM_SetMap::InsertNestedSetMap(const cow_String& scope, const inpM_BaseSetMap& sets) {
    const Handle* nested = instances.Lookup(scope);
    if (!nested || (*nested)->IsEmpty()) {
        inpM_SetMap* level = new inpM_SetMap();
        static_cast<inpM_BaseSetMap&>(*level) = sets;  // one handle for the whole map
        instances.Insert(scope, Handle(level));
        return;
    }
    inpM_SetMap& level = instances.Get(scope).Get();
    cow_List<cow_String> names = inpM_Utils::SortedKeys(sets);
    for (int i = 0; i < names.Count(); ++i) level.Insert(names[i], sets.ConstGet(names[i]));
}

cow_List<cow_String> inpM_SetMap::Instances() const { return inpM_Utils::SortedKeys(instances); }

bool inpM_SetMap::IsEmpty() const {
    if (Count() > 0) return false;
    cow_ConstMapIterator<cow_String, Handle> it(instances);
    for (it.First(); !it.IsDone(); it.Next())
        if (!it.CurrentValue()->IsEmpty()) return false;
    return true;
}

void inpM_SetMap::Merge(const inpM_SetMap& other) {
    MergeLevel(*this, other);
    cow_List<cow_String> scopes = other.Instances();
    for (int i = 0; i < scopes.Count(); ++i) {
        const Handle& theirs = other.instances.ConstGet(scopes[i]);
        if (!instances.IsMember(scopes[i]))
            instances.Insert(scopes[i], theirs);
        else
            MergeLevel(instances.Get(scopes[i]).Get(), theirs.ConstGet());
    }
}

void inpM_SetMap::Renumber(const inpM_IdMap& ids, bool dropMissing) {
    ForEachSet(*this, [&](const cow_String&, inpM_SetHandle& set) { set.Get().Renumber(ids, dropMissing); });
    cow_List<cow_String> scopes = Instances();
    for (int i = 0; i < scopes.Count(); ++i) {
        const inpM_IdMap& scopeIds = ids.ConstGet(scopes[i]);
        ForEachSet(instances.Get(scopes[i]).Get(),
                   [&](const cow_String&, inpM_SetHandle& set) { set.Get().Renumber(scopeIds, dropMissing); });
    }
}

void inpM_SetMap::InsertDuplicateOffsetIds(int offset, int count) {
    if (count <= 0) return;
    auto add = [offset, count](const cow_String&, inpM_SetHandle& set) { AddOffsetIds(set, offset, count); };
    ForEachSet(*this, add);
    cow_List<cow_String> scopes = Instances();
    for (int i = 0; i < scopes.Count(); ++i) ForEachSet(instances.Get(scopes[i]).Get(), add);
}

void inpM_SetMap::ChangeInstanceName(const cow_String& oldName, const cow_String& newName) {
    if (oldName == newName) return;
    if (const Handle* found = instances.Lookup(oldName)) {
        Handle moved(*found);
        instances.Remove(oldName);
        if (!instances.IsMember(newName))
            instances.Insert(newName, moved);
        else
            MergeLevel(instances.Get(newName).Get(), moved.ConstGet());
    }
    RenameInSets(*this, oldName, newName);
    cow_List<cow_String> scopes = Instances();
    for (int i = 0; i < scopes.Count(); ++i) RenameInSets(instances.Get(scopes[i]).Get(), oldName, newName);
}

void inpM_SetMap::DeleteAllSetsExceptThoseListed(const cow_List<cow_String>& names) {
    KeepListed(*this, names);
    cow_List<cow_String> scopes = Instances();
    for (int i = 0; i < scopes.Count(); ++i) KeepListed(instances.Get(scopes[i]).Get(), names);
}

bool inpM_SetMap::SearchAssemblyAndInstancesForSet(const cow_String& name, cow_String& instance) const {
    instance = cow_String();
    if (IsMember(name)) return true;
    cow_List<cow_String> scopes = Instances();
    for (int i = 0; i < scopes.Count(); ++i) {
        if (instances.ConstGet(scopes[i])->IsMember(name)) {
            instance = scopes[i];
            return true;
        }
    }
    return false;
}

void inpM_SetMap::RemoveInternalSets() {
    DropInternal(*this);
    cow_List<cow_String> scopes = Instances();
    for (int i = 0; i < scopes.Count(); ++i) DropInternal(instances.Get(scopes[i]).Get());
}

void inpM_SetMap::Print(aio_ostream& out) const {
    cow_List<cow_String> names = inpM_Utils::SortedKeys(*this);
    for (int i = 0; i < names.Count(); ++i) {
        out << "set " << names[i] << ": ";
        ConstGetSet(names[i]).Print(out);
    }
    cow_List<cow_String> scopes = Instances();
    for (int s = 0; s < scopes.Count(); ++s) {
        const inpM_SetMap& level = instances.ConstGet(scopes[s]).ConstGet();
        names = inpM_Utils::SortedKeys(level);
        for (int i = 0; i < names.Count(); ++i) {
            out << "set " << scopes[s] << "." << names[i] << ": ";
            level.ConstGetSet(names[i]).Print(out);
        }
    }
}

const inpM_BaseSet* inpM_SetMap::FindSet(const cow_String& scope, const cow_String& name, bool searchAll) const {
    if (!searchAll) return HasNestedSet(scope, name) ? &ConstGetNestedSet(scope, name) : nullptr;
    cow_String holder;
    if (!SearchAssemblyAndInstancesForSet(name, holder)) return nullptr;
    return holder.IsEmpty() ? &ConstGetSet(name) : &ConstGetNestedSet(holder, name);
}
