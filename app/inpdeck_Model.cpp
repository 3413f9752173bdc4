#include "inpdeck_Model.h"

#include <algorithm>
#include <cmath>

namespace inpdeck {

namespace {

void AddNames(const cow_List<cow_String>& names, std::vector<cow_String>& to) {
    for (int i = 0; i < names.Count(); ++i) to.push_back(names.ConstGet(i));
}

void SortUnique(std::vector<cow_String>& names) {
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
}

const inp_CoordMap* NestedNodes(const inp_CoordMap& map, const cow_String& name) {
    const inp_CoordMap::Handle* nested = map.instances.Lookup(name);
    return nested ? &nested->ConstGet() : nullptr;
}

const omi_IntTable<inp_Element>* NestedElements(const inpM_InstanceMap<omi_IntTable<inp_Element>>& map,
                                                const cow_String& name) {
    return map.IsMember(name) ? &map.ConstGet(name) : nullptr;
}

}  // namespace

cow_String AssemblyName(const inp_Deck& deck) {
    for (int i = 0; i < deck.keywords.Count(); ++i) {
        const inp_Keyword& k = deck.keywords.ConstGet(i);
        if (k.keyword == inp_kwAssembly) return k.GetParameterAsString("name", cow_String());
    }
    return cow_String();
}

std::vector<Scope> ModelScopes(const inp_Deck& deck) {
    std::vector<Scope> scopes(1);
    Scope& assembly = scopes[0];
    assembly.nodes = &deck.assemblyCoordinates;
    assembly.elements = &deck.assemblyElements.ConstGet();
    assembly.nodeSets = &deck.assemblyNodeSets;
    assembly.elementSets = &deck.assemblyElementSets;
    assembly.surfaces = &deck.assemblySurfaces.ConstGetPartInstanceSurfaceMap(cow_String());

    std::vector<cow_String> names;
    AddNames(deck.instanceToPart.Instances(), names);
    AddNames(deck.assemblyCoordinates.InstanceNames(), names);
    AddNames(deck.assemblyElements.Instances(), names);
    SortUnique(names);
    for (const cow_String& name : names) {
        Scope s;
        s.name = name;
        if (deck.instanceToPart.IsMember(name)) s.part = deck.instanceToPart.ConstGet(name);
        s.nodes = NestedNodes(deck.assemblyCoordinates, name);
        s.elements = NestedElements(deck.assemblyElements, name);
        s.nodeSets = &deck.assemblyNodeSets.ConstGetNestedSetMap(name);
        s.elementSets = &deck.assemblyElementSets.ConstGetNestedSetMap(name);
        s.surfaces = &deck.assemblySurfaces.ConstGetPartInstanceSurfaceMap(name);
        if (deck.instanceTransformations.IsMember(name))
            s.placement = deck.instanceTransformations.ConstGet(name);
        else if (s.nodes)
            s.placement = s.nodes->transformation;
        scopes.push_back(s);
    }
    return scopes;
}

std::vector<Part> ModelParts(const inp_Deck& deck) {
    std::vector<cow_String> names;
    AddNames(deck.partElements.Instances(), names);
    AddNames(deck.partCoordinates.InstanceNames(), names);
    const cow_List<cow_String> instances = deck.instanceToPart.Instances();
    for (int i = 0; i < instances.Count(); ++i) names.push_back(deck.instanceToPart.ConstGet(instances[i]));
    SortUnique(names);
    std::vector<Part> parts;
    for (const cow_String& name : names) {
        Part p;
        p.name = name;
        for (int i = 0; i < instances.Count(); ++i)
            if (deck.instanceToPart.ConstGet(instances[i]) == name) p.instances.push_back(instances[i]);
        p.nodes = NestedNodes(deck.partCoordinates, name);
        p.elements = NestedElements(deck.partElements, name);
        p.nodeSets = &deck.partNodeSets.ConstGetNestedSetMap(name);
        p.elementSets = &deck.partElementSets.ConstGetNestedSetMap(name);
        p.surfaces = &deck.partSurfaces.ConstGetPartInstanceSurfaceMap(name);
        parts.push_back(p);
    }
    return parts;
}

Placement ReadPlacement(const gsl_Matrix& m) {
    Placement p;
    gsl_Vector t;
    m.GetTranslation(t);
    gsl_Point point;
    gsl_Vector axis;
    double angle = 0.0;
    m.GetAxisRotation(point, axis, angle);
    // Shown as *INSTANCE writes it: the whole translation first, then the rotation
    // about the axis through the point the origin went to, which rebuilds the same
    // motion as the axis through `point` does.
    const double translation[3] = {t.x, t.y, t.z}, at[3] = {t.x, t.y, t.z},
                 direction[3] = {axis.x, axis.y, axis.z};
    for (int i = 0; i < 3; ++i) {
        p.translation[i] = translation[i];
        p.point[i] = at[i];
        p.axis[i] = direction[i];
    }
    p.angle = angle * 180.0 / std::acos(-1.0);
    return p;
}

int Count(const inpM_BaseSetMap* sets) { return sets ? sets->Count() : 0; }
int Count(const inpM_PartInstanceSurfaceMap* surfaces) { return surfaces ? surfaces->Count() : 0; }
int CountNodes(const inp_CoordMap* nodes) { return nodes ? nodes->coords->Count() : 0; }
int CountElements(const omi_IntTable<inp_Element>* elements) { return elements ? elements->Count() : 0; }

std::map<std::string, int> ElementsByType(const omi_IntTable<inp_Element>* elements) {
    std::map<std::string, int> byType;
    if (!elements) return byType;
    // Elements of one type stand together as a rule: count runs, not elements.
    cow_String last;
    int run = 0;
    ForEachElement(*elements, [&](int, const inp_Element& e) {
        if (run > 0 && e.type == last) {
            ++run;
            return;
        }
        if (run > 0) byType[last.c_str()] += run;
        last = e.type;
        run = 1;
    });
    if (run > 0) byType[last.c_str()] += run;
    return byType;
}

}  // namespace inpdeck
