// The model of an organized deck as its readers walk it: the assembly level and its
// instances as scopes, each with its nodes in global axes, its elements, sets and
// surfaces, and the parts the instances place. The report, the JSON and the VTU all
// read the deck's maps through here, so that "what is in a scope" is said once.
#ifndef INPDECK_MODEL_H
#define INPDECK_MODEL_H

#include <map>
#include <string>
#include <vector>

#include "inp.h"

namespace inpdeck {

// One scope of the assembled model: the assembly level (empty name) or an instance.
// Null pointers stand for a scope without that kind of data.
struct Scope {
    cow_String name;
    cow_String part;  // the instance's part; empty at the assembly level
    const inp_CoordMap* nodes = nullptr;
    const omi_IntTable<inp_Element>* elements = nullptr;
    const inpM_BaseSetMap* nodeSets = nullptr;
    const inpM_BaseSetMap* elementSets = nullptr;
    const inpM_PartInstanceSurfaceMap* surfaces = nullptr;
    gsl_Matrix placement;  // the instance's translation and rotation
};

// A part and what it holds in its own frame.
struct Part {
    cow_String name;
    std::vector<cow_String> instances;  // ascending byte order
    const inp_CoordMap* nodes = nullptr;
    const omi_IntTable<inp_Element>* elements = nullptr;
    const inpM_BaseSetMap* nodeSets = nullptr;
    const inpM_BaseSetMap* elementSets = nullptr;
    const inpM_PartInstanceSurfaceMap* surfaces = nullptr;
};

// The name of the deck's assembly: the first *ASSEMBLY's, or empty without one.
cow_String AssemblyName(const inp_Deck& deck);
// The assembly level first, then the instances in ascending byte order of their names.
std::vector<Scope> ModelScopes(const inp_Deck& deck);
// Parts in ascending byte order of their names.
std::vector<Part> ModelParts(const inp_Deck& deck);

// An instance placement as a deck writes it: a translation, then a rotation by
// `angle` degrees about the axis from `point` through `point + axis`.
struct Placement {
    double translation[3];
    double point[3];
    double axis[3];
    double angle;
};
Placement ReadPlacement(const gsl_Matrix& m);

int Count(const inpM_BaseSetMap* sets);
int Count(const inpM_PartInstanceSurfaceMap* surfaces);
int CountNodes(const inp_CoordMap* nodes);  // this level only
int CountElements(const omi_IntTable<inp_Element>* elements);
// Element count by type name, in ascending type name order.
std::map<std::string, int> ElementsByType(const omi_IntTable<inp_Element>* elements);

// Calls f(id, x, y, z) for each node of one level of a coordinate map, in ascending
// id order and in global axes. The records are read where they are stored, so that
// an instance of a large part costs no copy of its table.
template <class F>
void ForEachNode(const inp_CoordMap& map, F&& f) {
    if (map.renumberTable->Count() != 0) {
        const cow_IntTable<inp_Coord> table = map.ConstGet();
        omi_IntTableIterator<inp_Coord> it(table.ConstGet());
        for (it.First(); !it.IsDone(); it.Next()) {
            const inp_Coord& c = it.CurrentValue();
            f(it.CurrentKey(), c.x, c.y, c.z);
        }
        return;
    }
    const bool identity = map.transformation.IsIdentity();
    omi_IntTableIterator<inp_Coord> it(map.coords.ConstGet());
    for (it.First(); !it.IsDone(); it.Next()) {
        const inp_Coord& c = it.CurrentValue();
        if (identity) {
            f(it.CurrentKey(), c.x, c.y, c.z);
        } else {
            gsl_Point p(c.x, c.y, c.z);
            map.transformation.Transform(p);
            f(it.CurrentKey(), p.x, p.y, p.z);
        }
    }
}

// Calls f(id, element) in ascending id order.
template <class F>
void ForEachElement(const omi_IntTable<inp_Element>& table, F&& f) {
    omi_IntTableIterator<inp_Element> it(table);
    for (it.First(); !it.IsDone(); it.Next()) f(it.CurrentKey(), it.CurrentValue());
}

// Calls f(name, set) in ascending byte order of the names.
template <class F>
void ForEachSet(const inpM_BaseSetMap& sets, F&& f) {
    cow_ConstMapSortedIt<cow_String, inpM_SetHandle> it(sets);
    for (it.First(); !it.IsDone(); it.Next()) f(it.CurrentKey(), it.CurrentValue().ConstGet());
}

// Calls f(name, surface) in ascending byte order of the names.
template <class F>
void ForEachSurface(const inpM_PartInstanceSurfaceMap& surfaces, F&& f) {
    cow_ConstMapSortedIt<cow_String, inpM_SurfaceHandle> it(surfaces);
    for (it.First(); !it.IsDone(); it.Next()) f(it.CurrentKey(), it.CurrentValue().ConstGet());
}

// The ids of a set outside any instance, then f(instance, ids) for each instance the
// set reaches into, in ascending byte order.
template <class F>
void ForEachSetScope(const inpM_BaseSet& set, F&& f) {
    f(cow_String(), set.ConstGetTopLevelIds());
    cow_List<cow_String> names = set.GatherRootLevelInstanceNames();
    std::vector<cow_String> sorted;
    for (int i = 0; i < names.Count(); ++i) sorted.push_back(names[i]);
    std::sort(sorted.begin(), sorted.end());
    for (const cow_String& name : sorted) f(name, set.ConstGetSecondLevelIds(name));
}

}  // namespace inpdeck

#endif
