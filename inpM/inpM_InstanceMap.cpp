// The operations that only element tables have: renumbering into the ids of the
// flat model, and rewriting connectivity to renumbered nodes.
#include "inpM_InstanceMap.h"

#include <memory>
#include <utility>

#include "inpM_OmiSet.h"
#include "inp_ElementUndefinedNodesError.h"

namespace {

using ElementTable = omi_IntTable<inp_Element>;

// Enough to show the user what is wrong; a deck that loses a whole include file
// would otherwise list every element it has.
const int kMaxReportedElements = 100;

}  // namespace

template <>
inpM_IdMap inpM_InstanceMap<ElementTable>::Renumber(int start, bool keep) {
    inpM_IdMap result;
    int next = start;
    const ElementTable& table = ConstGet();
    omi_IntTable<int>& ids = result.ids.Get();
    omi_IntTableIterator<inp_Element> it(table);
    if (keep) {
        for (it.First(); !it.IsDone(); it.Next()) ids.Insert(it.CurrentKey(), it.CurrentKey());
    } else {
        std::unique_ptr<ElementTable> renumbered(new ElementTable());
        // A table that no other map shares is replaced below: its elements can move
        // into the new one instead of being copied, node list and all.
        ElementTable* owned = item.HasValue() && item.ShareCount() == 1 ? &item.Get() : nullptr;
        for (it.First(); !it.IsDone(); it.Next()) {
            if (owned)
                renumbered->Insert(next, std::move(owned->Get(it.CurrentKey())));
            else
                renumbered->Insert(next, it.CurrentValue());
            ids.Insert(it.CurrentKey(), next);
            ++next;
        }
        if (item.HasValue()) item = renumbered.release();
    }
    cow_List<cow_String> names = Instances();
    for (int i = 0; i < names.Count(); ++i) {
        inpM_IdMap nested = GetMap(names[i]).Renumber(next, keep);
        next += nested.NumberIds();
        result.InsertInstance(names[i], nested);
    }
    return result;
}

template <>
inpM_IdMap inpM_InstanceMap<ElementTable>::RenumberedIds(int start) const {
    inpM_IdMap result;
    int next = start;
    omi_IntTable<int>& ids = result.ids.Get();
    omi_IntTableIterator<inp_Element> it(ConstGet());
    for (it.First(); !it.IsDone(); it.Next()) ids.Insert(it.CurrentKey(), next++);
    const cow_List<cow_String> names = Instances();
    for (int i = 0; i < names.Count(); ++i) {
        inpM_IdMap nested = ConstGetMap(names[i]).RenumberedIds(next);
        next += nested.NumberIds();
        result.InsertInstance(names[i], nested);
    }
    return result;
}

template <>
void inpM_InstanceMap<ElementTable>::Update(const inpM_IdMap& idMap) {
    std::unique_ptr<ElementTable> updated(new ElementTable());
    inpM_OmiSet failed;
    omi_IntTableIterator<inp_Element> it(ConstGet());
    for (it.First(); !it.IsDone(); it.Next()) {
        // One copy per element: the stored copy is rewritten in place.
        updated->Insert(it.CurrentKey(), it.CurrentValue());
        inp_Element& element = updated->Get(it.CurrentKey());
        try {
            idMap.Renumber(element.nodes, element.numNodes);
        } catch (const nex_TextException&) {
            failed.Insert(it.CurrentKey());
            if (failed.Size() >= kMaxReportedElements) break;
        }
    }
    if (!failed.IsEmpty()) inp_ElementUndefinedNodesError(failed.ConstGetArrayCounterpart()).Throw("inp_Element", __LINE__);
    if (item.HasValue()) item = updated.release();

    cow_List<cow_String> names = Instances();
    for (int i = 0; i < names.Count(); ++i) GetMap(names[i]).Update(idMap.ConstGet(names[i]));
}
