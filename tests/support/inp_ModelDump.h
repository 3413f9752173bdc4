// The model of a deck as one text in a fixed order: nodes, elements, sets and surfaces
// of the assembly level and of every instance, ids ascending, names in byte order. Two
// decks that describe the same model give the same text, whatever order their passes
// filled the maps in, so a round trip compares two strings and a failure shows where.
#ifndef INP_MODELDUMP_H
#define INP_MODELDUMP_H

#include <cstdio>
#include <string>

#include "aio_ostream.h"
#include "inp_Deck.h"

namespace inp_test {

inline void DumpNodes(const std::string& scope, const inp_CoordMap& map, std::string& out) {
    const cow_IntTable<inp_Coord> table = map.ConstGet();
    omi_IntTableIterator<inp_Coord> it(table.ConstGet());
    char line[160];
    for (it.First(); !it.IsDone(); it.Next()) {
        const inp_Coord& c = it.CurrentValue();
        std::snprintf(line, sizeof line, "node %s%d %.17g %.17g %.17g%s\n", scope.c_str(), it.CurrentKey(), c.x, c.y,
                      c.z, c.isDefined ? "" : " undefined");
        out += line;
    }
}

inline void DumpElements(const std::string& scope, const omi_IntTable<inp_Element>& table, std::string& out) {
    omi_IntTableIterator<inp_Element> it(table);
    for (it.First(); !it.IsDone(); it.Next()) {
        const inp_Element& e = it.CurrentValue();
        out += "element " + scope + std::to_string(it.CurrentKey()) + " " + e.type.c_str();
        for (int i = 0; i < e.numNodes; ++i) out += " " + std::to_string(e.nodes[i]);
        out += "\n";
    }
}

inline std::string ModelDump(const inp_Deck& deck) {
    std::string out;
    DumpNodes("", deck.assemblyCoordinates, out);
    const cow_List<cow_String> nodeScopes = deck.assemblyCoordinates.InstanceNames();
    for (int i = 0; i < nodeScopes.Count(); ++i)
        DumpNodes(std::string(nodeScopes[i].c_str()) + ".",
                  deck.assemblyCoordinates.instances.ConstGet(nodeScopes[i]).ConstGet(), out);
    DumpElements("", deck.assemblyElements.ConstGet(), out);
    const cow_List<cow_String> elementScopes = deck.assemblyElements.Instances();
    for (int i = 0; i < elementScopes.Count(); ++i)
        DumpElements(std::string(elementScopes[i].c_str()) + ".", deck.assemblyElements.ConstGet(elementScopes[i]),
                     out);
    aio_ostringstream maps;
    maps << "node sets\n";
    deck.assemblyNodeSets.Print(maps);
    maps << "element sets\n";
    deck.assemblyElementSets.Print(maps);
    maps << "surfaces\n";
    deck.assemblySurfaces.Print(maps);
    maps.flush();
    return out + maps.str().c_str();
}

}  // namespace inp_test

#endif
