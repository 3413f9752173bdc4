// The mesh of a deck as a VTK XML unstructured grid (.vtu), for ParaView and VTK's
// readers: points in global axes, each instance a placed copy of its part's mesh, one
// cell per element that has a VTK shape, and the ids, instances, element types and
// set memberships as point and cell data.
#ifndef INPDECK_VTK_H
#define INPDECK_VTK_H

#include <cstdio>
#include <map>
#include <string>

class inp_Deck;

namespace inpdeck {

// Elements the grid had to leave out, by element type.
struct VtkLeftOut {
    std::map<std::string, int> noShape;  // a family without a VTK cell
    int undefinedNodes = 0;              // elements that name a node their scope lacks
};

// The VTK cell type of an element type with `nodes` nodes; 0 when it has none.
int VtkCellType(const char* elementType, int nodes);

// Writes the grid in ASCII; false when the file refused a write.
bool WriteModelVtu(std::FILE* out, const inp_Deck& deck, VtkLeftOut& leftOut);

}  // namespace inpdeck

#endif
