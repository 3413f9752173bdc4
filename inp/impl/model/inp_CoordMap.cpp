#include "inp_CoordMap.h"

#include <memory>

#include "gsl_Point.h"
#include "gsl_Vector.h"
#include "inpM_Utils.h"

inp_Coord inp_CoordMap::Transformed(const inp_Coord& stored, const gsl_Matrix& matrix) {
    inp_Coord c(stored);
    gsl_Point p(c.x, c.y, c.z);
    matrix.Transform(p);
    c.x = p.x;
    c.y = p.y;
    c.z = p.z;
    gsl_Vector n(c.nx, c.ny, c.nz);
    if (!n.Normalize()) {
        c.nx = c.ny = c.nz = 0.0;
        return c;
    }
    if (!matrix.IsIdentity()) matrix.Transform(n);
    c.nx = n.x;
    c.ny = n.y;
    c.nz = n.z;
    return c;
}

int inp_CoordMap::StoredId(int id) const {
    const IdTable& table = renumberTable.ConstGet();
    return table.HasKey(id) ? table.ConstGet(id) : id;
}

inp_Coord inp_CoordMap::ConstGet(int id) const {
    const inp_Coord& stored = coords->ConstGet(StoredId(id));
    if (transformation.IsIdentity()) return stored;
    return Transformed(stored, transformation);
}

inp_Coord inp_CoordMap::ConstGet(int id, const inp_Coord& fallback) const {
    int key = StoredId(id);
    if (!coords->HasKey(key)) return fallback;
    const inp_Coord& stored = coords->ConstGet(key);
    if (transformation.IsIdentity()) return stored;
    return Transformed(stored, transformation);
}

cow_IntTable<inp_Coord> inp_CoordMap::ConstGet() const {
    bool identity = transformation.IsIdentity();
    if (identity && renumberTable->Count() == 0) return cow_IntTable<inp_Coord>(coords);

    // Stored id to new id, for the records that renumbering reached.
    IdTable newIds;
    omi_IntTableIterator<int> rt(renumberTable.ConstGet());
    for (rt.First(); !rt.IsDone(); rt.Next()) newIds.Insert(rt.CurrentValue(), rt.CurrentKey());

    std::unique_ptr<CoordTable> out(new CoordTable());
    omi_IntTableIterator<inp_Coord> it(coords.ConstGet());
    for (it.First(); !it.IsDone(); it.Next()) {
        int key = newIds.HasKey(it.CurrentKey()) ? newIds.ConstGet(it.CurrentKey()) : it.CurrentKey();
        out->Insert(key, identity ? it.CurrentValue() : Transformed(it.CurrentValue(), transformation));
    }
    return cow_IntTable<inp_Coord>(out.release());
}

int inp_CoordMap::Count() const {
    int n = coords->Count();
    cow_ConstMapIterator<cow_String, Handle> it(instances);
    for (it.First(); !it.IsDone(); it.Next()) n += it.CurrentValue()->Count();
    return n;
}

inpM_IdMap inp_CoordMap::Renumber(int start, bool keep) {
    inpM_IdMap result;
    int next = start;
    IdTable& ids = result.ids.Get();
    omi_IntTableIterator<inp_Coord> it(coords.ConstGet());
    if (keep) {
        for (it.First(); !it.IsDone(); it.Next()) ids.Insert(it.CurrentKey(), it.CurrentKey());
    } else {
        std::unique_ptr<IdTable> table(new IdTable());
        for (it.First(); !it.IsDone(); it.Next()) {
            table->Insert(next, it.CurrentKey());
            ids.Insert(it.CurrentKey(), next);
            ++next;
        }
        renumberTable = table.release();
    }

    cow_Map<cow_String, Handle> renumbered;
    cow_List<cow_String> names = InstanceNames();
    for (int i = 0; i < names.Count(); ++i) {
        Handle child(instances.ConstGet(names[i]));
        inpM_IdMap nested = child.Get().Renumber(next, keep);
        next += nested.NumberIds();
        result.InsertInstance(names[i], nested);
        renumbered.Insert(names[i], child);
    }
    instances = renumbered;
    return result;
}

void inp_CoordMap::ConcatenateTransformation(const gsl_Matrix& m) {
    transformation.Concatenate(m);
    cow_List<cow_String> names = InstanceNames();
    for (int i = 0; i < names.Count(); ++i) {
        Handle child(instances.ConstGet(names[i]));
        child.Get().ConcatenateTransformation(m);
        instances.Insert(names[i], child);
    }
}

cow_List<cow_String> inp_CoordMap::InstanceNames() const { return inpM_Utils::SortedKeys(instances); }

void inp_CoordMap::RenameInstance(const cow_String& oldName, const cow_String& newName) {
    if (oldName == newName) return;
    const Handle* found = instances.Lookup(oldName);
    if (!found) return;
    Handle moved(*found);
    instances.Insert(newName, moved);
    instances.Remove(oldName);
}
