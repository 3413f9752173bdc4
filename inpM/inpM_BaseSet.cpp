#include "inpM_BaseSet.h"

#include "aio_ostream.h"
#include "inpM_IdMap.h"
#include "inpM_Utils.h"

namespace {

inpM_SetTypeFlag FlagOf(bool internal) { return internal ? inpM_InternalSet : inpM_UserSet; }

template <class V>
V& GetOrInsert(cow_Map<cow_String, V>& map, const cow_String& key) {
    if (!map.IsMember(key)) map.Insert(key, V());
    return map.Get(key);
}

inpM_OmiSet MapIds(const inpM_OmiSet& ids, const inpM_IdMap& map, bool dropMissing) {
    inpM_OmiSet out;
    for (int id : ids.Items()) {
        if (map.HasId(id))
            out.Insert(map.ConstGet(id));
        else if (!dropMissing)
            out.Insert(id);
    }
    return out;
}

cow_1DArrayList<int> MapIds(const cow_1DArrayList<int>& ids, const inpM_IdMap& map, bool dropMissing) {
    cow_1DArrayList<int> out(ids.Count());
    for (int i = 0; i < ids.Count(); ++i) {
        int id = ids[i];
        if (map.HasId(id))
            out.Append(map.ConstGet(id));
        else if (!dropMissing)
            out.Append(id);
    }
    return out;
}

inpM_OmiSet KeepKnown(const inpM_OmiSet& ids, const inpM_IdMap& map) {
    inpM_OmiSet out;
    for (int id : ids.Items())
        if (map.HasId(id)) out.Insert(id);
    return out;
}

cow_1DArrayList<int> KeepKnown(const cow_1DArrayList<int>& ids, const inpM_IdMap& map) {
    cow_1DArrayList<int> out(ids.Count());
    for (int i = 0; i < ids.Count(); ++i)
        if (map.HasId(ids[i])) out.Append(ids[i]);
    return out;
}

void PrintIds(aio_ostream& out, const char* label, const cow_1DArrayList<int>& ids) {
    out << "  " << label << ":";
    for (int i = 0; i < ids.Count(); ++i) out << (i ? ", " : " ") << ids[i];
    out << "\n";
}

void PrintSet(aio_ostream& out, const inpM_BaseSet& set, const char* kind) {
    out << kind << (set.IsInternal() ? " (internal)" : "") << "\n";
    PrintIds(out, "top level", set.ConstGetTopLevelIds());
    cow_List<cow_String> names = set.GatherRootLevelInstanceNames();
    for (int i = 0; i < names.Count(); ++i) PrintIds(out, names[i].c_str(), set.ConstGetSecondLevelIds(names[i]));
}

}  // namespace

inpM_BaseSet::~inpM_BaseSet() = default;

// ---- inpM_SortedSet

void inpM_SortedSet::Print(aio_ostream& out) const { PrintSet(out, *this, "sorted set"); }

void inpM_SortedSet::Add(const cow_String& instance, int id) { GetOrInsert(m_instanceIds, instance).Insert(id); }

void inpM_SortedSet::Add(const cow_String& instance, const cow_1DArrayList<int>& ids) {
    GetOrInsert(m_instanceIds, instance).Insert(ids);
}

void inpM_SortedSet::Add(const cow_String& instance, const inpM_BaseSet& other) {
    // The other set's top level becomes the instance's ids; whatever it holds
    // under instances of its own goes one level down.
    inpM_SortedSet below = other.GetSortedSetEquivalent();
    GetOrInsert(m_instanceIds, instance).Insert(below.m_ids);
    below.m_ids.Clear();
    if (below.IsEmpty()) return;
    NestedHandle& nested = GetOrInsert(m_nestedSets, instance);
    if (!nested.HasValue())
        nested = new inpM_SortedSet(below);
    else
        nested.Get().Add(below);
}

void inpM_SortedSet::Add(const inpM_BaseSet& other) {
    if (&other == this) return;
    const inpM_SortedSet* sorted = dynamic_cast<const inpM_SortedSet*>(&other);
    if (!sorted) {
        m_ids.Insert(other.ConstGetTopLevelIds());
        cow_List<cow_String> names = other.GatherRootLevelInstanceNames();
        for (int i = 0; i < names.Count(); ++i) Add(names[i], other.ConstGetSecondLevelIds(names[i]));
        return;
    }
    m_ids.Insert(sorted->m_ids);
    cow_List<cow_String> names = inpM_Utils::SortedKeys(sorted->m_instanceIds);
    for (int i = 0; i < names.Count(); ++i)
        GetOrInsert(m_instanceIds, names[i]).Insert(sorted->m_instanceIds.ConstGet(names[i]));
    names = inpM_Utils::SortedKeys(sorted->m_nestedSets);
    for (int i = 0; i < names.Count(); ++i) {
        const NestedHandle& theirs = sorted->m_nestedSets.ConstGet(names[i]);
        NestedHandle& ours = GetOrInsert(m_nestedSets, names[i]);
        if (!ours.HasValue())
            ours = theirs;
        else
            ours.Get().Add(theirs.ConstGet());
    }
}

void inpM_SortedSet::Renumber(const inpM_IdMap& ids, bool dropMissing) {
    m_ids = MapIds(m_ids, ids, dropMissing);
    cow_List<cow_String> names = inpM_Utils::SortedKeys(m_instanceIds);
    for (int i = 0; i < names.Count(); ++i)
        m_instanceIds.Insert(names[i], MapIds(m_instanceIds.ConstGet(names[i]), ids.ConstGet(names[i]), dropMissing));
    names = inpM_Utils::SortedKeys(m_nestedSets);
    for (int i = 0; i < names.Count(); ++i) m_nestedSets.Get(names[i]).Get().Renumber(ids.ConstGet(names[i]), dropMissing);
    renumbered = true;
}

cow_1DArrayList<int> inpM_SortedSet::ConstGetIds() const {
    if (m_instanceIds.IsEmpty() && m_nestedSets.IsEmpty()) return m_ids.ConstGetArrayCounterpart();
    inpM_OmiSet all(m_ids);
    cow_ConstMapIterator<cow_String, inpM_OmiSet> it(m_instanceIds);
    for (it.First(); !it.IsDone(); it.Next()) all.Insert(it.CurrentValue());
    cow_ConstMapIterator<cow_String, NestedHandle> nt(m_nestedSets);
    for (nt.First(); !nt.IsDone(); nt.Next()) all.Insert(nt.CurrentValue()->ConstGetIds());
    return all.ConstGetArrayCounterpart();
}

cow_1DArrayList<int> inpM_SortedSet::ConstGetSecondLevelIds(const cow_String& instance) const {
    const inpM_OmiSet* ids = m_instanceIds.Lookup(instance);
    return ids ? ids->ConstGetArrayCounterpart() : cow_1DArrayList<int>();
}

cow_Map<cow_String, cow_1DArrayList<int>> inpM_SortedSet::ConstGetInstanceIdsMap() const {
    cow_Map<cow_String, cow_1DArrayList<int>> out;
    cow_List<cow_String> names = inpM_Utils::SortedKeys(m_instanceIds);
    for (int i = 0; i < names.Count(); ++i)
        out.Insert(names[i], m_instanceIds.ConstGet(names[i]).ConstGetArrayCounterpart());
    return out;
}

void inpM_SortedSet::Cleanup(const inpM_IdMap& ids) {
    m_ids = KeepKnown(m_ids, ids);
    cow_List<cow_String> names = inpM_Utils::SortedKeys(m_instanceIds);
    for (int i = 0; i < names.Count(); ++i)
        m_instanceIds.Insert(names[i], KeepKnown(m_instanceIds.ConstGet(names[i]), ids.ConstGet(names[i])));
    names = inpM_Utils::SortedKeys(m_nestedSets);
    for (int i = 0; i < names.Count(); ++i) m_nestedSets.Get(names[i]).Get().Cleanup(ids.ConstGet(names[i]));
}

void inpM_SortedSet::ChangeInstanceName(const cow_String& oldName, const cow_String& newName) {
    if (oldName == newName) return;
    if (const inpM_OmiSet* ids = m_instanceIds.Lookup(oldName)) {
        inpM_OmiSet moved(*ids);
        m_instanceIds.Remove(oldName);
        GetOrInsert(m_instanceIds, newName).Insert(moved);
    }
    if (const NestedHandle* nested = m_nestedSets.Lookup(oldName)) {
        NestedHandle moved(*nested);
        m_nestedSets.Remove(oldName);
        NestedHandle& target = GetOrInsert(m_nestedSets, newName);
        if (!target.HasValue())
            target = moved;
        else
            target.Get().Add(moved.ConstGet());
    }
}

bool inpM_SortedSet::IsEmpty() const {
    if (!m_ids.IsEmpty()) return false;
    cow_ConstMapIterator<cow_String, inpM_OmiSet> it(m_instanceIds);
    for (it.First(); !it.IsDone(); it.Next())
        if (!it.CurrentValue().IsEmpty()) return false;
    cow_ConstMapIterator<cow_String, NestedHandle> nt(m_nestedSets);
    for (nt.First(); !nt.IsDone(); nt.Next())
        if (!nt.CurrentValue()->IsEmpty()) return false;
    return true;
}

cow_List<cow_String> inpM_SortedSet::GatherRootLevelInstanceNames() const {
    cow_List<cow_String> names = inpM_Utils::SortedKeys(m_instanceIds);
    cow_List<cow_String> nested = inpM_Utils::SortedKeys(m_nestedSets);
    if (nested.IsEmpty()) return names;
    for (int i = 0; i < nested.Count(); ++i) names.AppendUnlessMember(nested[i]);
    return names.Sort();
}

cow_List<cow_String> inpM_SortedSet::NestedSetNames() const { return inpM_Utils::SortedKeys(m_nestedSets); }

const inpM_SortedSet& inpM_SortedSet::ConstGetNestedSet(const cow_String& instance) const {
    return m_nestedSets.ConstGet(instance).ConstGet();
}

void inpM_SortedSet::InsertNestedSet(const cow_String& instance, const inpM_SortedSet& set) {
    m_nestedSets.Insert(instance, NestedHandle(new inpM_SortedSet(set)));
}

// ---- inpM_UnsortedSet

void inpM_UnsortedSet::Print(aio_ostream& out) const { PrintSet(out, *this, "unsorted set"); }

void inpM_UnsortedSet::Add(const cow_String& instance, int id) { GetOrInsert(m_instanceIds, instance).Append(id); }

void inpM_UnsortedSet::Add(const cow_String& instance, const cow_1DArrayList<int>& ids) {
    GetOrInsert(m_instanceIds, instance).Append(ids);
}

void inpM_UnsortedSet::Add(const cow_String& instance, const inpM_BaseSet& other) {
    GetOrInsert(m_instanceIds, instance).Append(other.ConstGetIds());
}

void inpM_UnsortedSet::Add(const inpM_BaseSet& other) {
    m_ids.Append(other.ConstGetTopLevelIds());
    cow_List<cow_String> names = other.GatherRootLevelInstanceNames();
    for (int i = 0; i < names.Count(); ++i) Add(names[i], other.ConstGetSecondLevelIds(names[i]));
}

bool inpM_UnsortedSet::Remove(int id) {
    if (!m_ids.IsMember(id)) return false;
    cow_1DArrayList<int> kept(m_ids.Count());
    for (int i = 0; i < m_ids.Count(); ++i)
        if (m_ids[i] != id) kept.Append(m_ids[i]);
    m_ids = kept;
    return true;
}

void inpM_UnsortedSet::Renumber(const inpM_IdMap& ids, bool dropMissing) {
    m_ids = MapIds(m_ids, ids, dropMissing);
    cow_List<cow_String> names = inpM_Utils::SortedKeys(m_instanceIds);
    for (int i = 0; i < names.Count(); ++i)
        m_instanceIds.Insert(names[i], MapIds(m_instanceIds.ConstGet(names[i]), ids.ConstGet(names[i]), dropMissing));
    renumbered = true;
}

cow_1DArrayList<int> inpM_UnsortedSet::ConstGetIds() const {
    if (m_instanceIds.IsEmpty()) return m_ids;
    cow_1DArrayList<int> all(m_ids);
    cow_List<cow_String> names = inpM_Utils::SortedKeys(m_instanceIds);
    for (int i = 0; i < names.Count(); ++i) all.Append(m_instanceIds.ConstGet(names[i]));
    return all;
}

cow_1DArrayList<int> inpM_UnsortedSet::ConstGetSecondLevelIds(const cow_String& instance) const {
    const cow_1DArrayList<int>* ids = m_instanceIds.Lookup(instance);
    return ids ? *ids : cow_1DArrayList<int>();
}

cow_Map<cow_String, cow_1DArrayList<int>> inpM_UnsortedSet::ConstGetInstanceIdsMap() const {
    cow_Map<cow_String, cow_1DArrayList<int>> out;
    cow_List<cow_String> names = inpM_Utils::SortedKeys(m_instanceIds);
    for (int i = 0; i < names.Count(); ++i) out.Insert(names[i], m_instanceIds.ConstGet(names[i]));
    return out;
}

void inpM_UnsortedSet::Cleanup(const inpM_IdMap& ids) {
    m_ids = KeepKnown(m_ids, ids);
    cow_List<cow_String> names = inpM_Utils::SortedKeys(m_instanceIds);
    for (int i = 0; i < names.Count(); ++i)
        m_instanceIds.Insert(names[i], KeepKnown(m_instanceIds.ConstGet(names[i]), ids.ConstGet(names[i])));
}

void inpM_UnsortedSet::ChangeInstanceName(const cow_String& oldName, const cow_String& newName) {
    if (oldName == newName) return;
    const cow_1DArrayList<int>* ids = m_instanceIds.Lookup(oldName);
    if (!ids) return;
    cow_1DArrayList<int> moved(*ids);
    m_instanceIds.Remove(oldName);
    GetOrInsert(m_instanceIds, newName).Append(moved);
}

bool inpM_UnsortedSet::IsEmpty() const {
    if (!m_ids.IsEmpty()) return false;
    cow_ConstMapIterator<cow_String, cow_1DArrayList<int>> it(m_instanceIds);
    for (it.First(); !it.IsDone(); it.Next())
        if (!it.CurrentValue().IsEmpty()) return false;
    return true;
}

cow_List<cow_String> inpM_UnsortedSet::GatherRootLevelInstanceNames() const {
    return inpM_Utils::SortedKeys(m_instanceIds);
}

inpM_SortedSet inpM_UnsortedSet::GetSortedSetEquivalent() const {
    inpM_SortedSet sorted(typeFlag);
    sorted.Add(*this);
    return sorted;
}

// ---- making sets

inpM_SetHandle CreateSet(const cow_1DArrayList<int>& ids, inpM_SetTypeFlag flag, bool unsorted) {
    if (unsorted) return inpM_SetHandle(new inpM_UnsortedSet(ids, flag));
    inpM_SortedSet* set = new inpM_SortedSet(flag);
    set->Add(ids);
    return inpM_SetHandle(set);
}

inpM_SetHandle CreateSet(const cow_1DArrayList<int>& ids, bool internal, bool unsorted) {
    return CreateSet(ids, FlagOf(internal), unsorted);
}

inpM_SetHandle CreateSet(const inpM_BaseSet& set) { return inpM_SetHandle(set.Copy()); }

inpM_SetHandle CreateSet(bool internal, bool unsorted) {
    if (unsorted) return inpM_SetHandle(new inpM_UnsortedSet(FlagOf(internal)));
    return inpM_SetHandle(new inpM_SortedSet(FlagOf(internal)));
}
