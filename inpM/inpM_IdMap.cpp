#include "inpM_IdMap.h"

#include "atr_String.h"
#include "nex_Exception.h"

namespace {

const inpM_IdMap& EmptyIdMap() {
    static const inpM_IdMap empty;
    return empty;
}

template <class Visit>
void ForEachSortedChild(const cow_Map<cow_String, inpM_IdMap::Handle>& children, Visit visit) {
    cow_ConstMapSortedIt<cow_String, inpM_IdMap::Handle> it(children);
    for (it.First(); !it.IsDone(); it.Next()) visit(it.CurrentKey(), it.CurrentValue().ConstGet());
}

[[noreturn]] void RaiseMissing(int id) {
    atr_translate t("Id %s has no entry in the id map.");
    atr_SubstituteFormat(t, 1, id);
    nex_TextException(t.Result()).Throw("inpM_IdMap", __LINE__);
}

}  // namespace

inpM_InstanceIdMaps::inpM_InstanceIdMaps(const inpM_IdMap& map) {
    omi_IntTableIterator<int> it(map.ids.ConstGet());
    for (it.First(); !it.IsDone(); it.Next()) {
        oldIds.Append(it.CurrentKey());
        newIds.Append(it.CurrentValue());
    }
    ForEachSortedChild(map.instances, [this](const cow_String& name, const inpM_IdMap& child) {
        instances.Insert(name, Handle(new inpM_InstanceIdMaps(child)));
    });
}

inpM_IdMap::inpM_IdMap(const inpM_InstanceIdMaps& stored) {
    IdTable& table = ids.Get();
    for (int i = 0; i < stored.oldIds.Count(); ++i) table.Insert(stored.oldIds[i], stored.newIds[i]);
    cow_ConstMapSortedIt<cow_String, inpM_InstanceIdMaps::Handle> it(stored.instances);
    for (it.First(); !it.IsDone(); it.Next())
        instances.Insert(it.CurrentKey(), Handle(new inpM_IdMap(it.CurrentValue().ConstGet())));
}

int inpM_IdMap::ConstGet(int id) const {
    const IdTable& table = ids.ConstGet();
    return table.HasKey(id) ? table.ConstGet(id) : 0;
}

const inpM_IdMap& inpM_IdMap::ConstGet(const cow_String& instance) const {
    const Handle* child = instances.Lookup(instance);
    return child ? child->ConstGet() : EmptyIdMap();
}

void inpM_IdMap::Renumber(int* idArray, int count) const {
    const IdTable& table = ids.ConstGet();
    for (int i = 0; i < count; ++i) {
        int id = idArray[i];
        if (id == 0) continue;
        if (!table.HasKey(id)) RaiseMissing(id);
        idArray[i] = table.ConstGet(id);
    }
}

cow_1DArrayList<int> inpM_IdMap::Renumber(const cow_1DArrayList<int>& list, bool skipMissing) const {
    const IdTable& table = ids.ConstGet();
    cow_1DArrayList<int> out(list.Count());
    for (int i = 0; i < list.Count(); ++i) {
        int id = list[i];
        if (table.HasKey(id))
            out.Append(table.ConstGet(id));
        else if (!skipMissing)
            RaiseMissing(id);
    }
    return out;
}

void inpM_IdMap::InsertDuplicateOffsetIds(int offset, int count) {
    if (count > 0 && ids->Count() > 0) {
        // Read from the original pairs only: the copies must not be copied again.
        IdTable original(ids.ConstGet());
        IdTable& table = ids.Get();
        omi_IntTableIterator<int> it(original);
        for (it.First(); !it.IsDone(); it.Next())
            for (int k = 1; k <= count; ++k)
                table.Insert(it.CurrentKey() + k * offset, it.CurrentValue() + k * offset);
    }
    cow_List<cow_String> names = Instances();
    for (int i = 0; i < names.Count(); ++i) instances.Get(names[i]).Get().InsertDuplicateOffsetIds(offset, count);
}

namespace {

// Smallest and largest new id and the count, over all levels.
struct IdRange {
    bool any = false;
    int smallest = 0;
    int largest = 0;
    int count = 0;
};

void Measure(const inpM_IdMap& map, IdRange& range) {
    omi_IntTableIterator<int> it(map.ids.ConstGet());
    for (it.First(); !it.IsDone(); it.Next()) {
        int v = it.CurrentValue();
        if (!range.any || v < range.smallest) range.smallest = v;
        if (!range.any || v > range.largest) range.largest = v;
        range.any = true;
    }
    range.count += map.ids->Count();
    ForEachSortedChild(map.instances, [&range](const cow_String&, const inpM_IdMap& child) { Measure(child, range); });
}

}  // namespace

int inpM_IdMap::LargestId() const {
    IdRange r;
    Measure(*this, r);
    return r.largest;
}

int inpM_IdMap::SmallestId() const {
    IdRange r;
    Measure(*this, r);
    return r.smallest;
}

int inpM_IdMap::NumberIds() const {
    int n = ids->Count();
    ForEachSortedChild(instances, [&n](const cow_String&, const inpM_IdMap& child) { n += child.NumberIds(); });
    return n;
}

cow_List<cow_String> inpM_IdMap::Instances() const {
    cow_List<cow_String> names;
    ForEachSortedChild(instances, [&names](const cow_String& name, const inpM_IdMap&) { names.Append(name); });
    return names;
}
