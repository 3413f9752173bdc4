// The element types of the deck language as the element passes need them: how many
// nodes each takes, which types are no longer accepted, and in which order a
// reflected copy takes the nodes of its original.
//
// The tables are built once and shared; a pass copies a map in O(1).
#ifndef INP_ELEMENTTYPES_H
#define INP_ELEMENTTYPES_H

#include "cow_1DArrayList.h"
#include "cow_Map.h"
#include "cow_String.h"

struct inp_ElementInfo {
    const char* name;
    int minNodes;
    int maxNodes;
};

class inp_ElementTypes {
public:
    // By type name, upper case.
    static const cow_Map<cow_String, inp_ElementInfo>& ElementInfo();
    // Node counts 0: they are not read.
    static const cow_Map<cow_String, inp_ElementInfo>& ObsoleteTypes();
    // Position i of the new connectivity takes the node at 1-based position order[i].
    static const cow_Map<cow_String, cow_1DArrayList<int>>& ReflectOrder();
    static int ElementTypeCount();
    // The gasket types whose stack is counted from the element itself.
    static bool IsGk3d18(const cow_String& type) { return type == "GK3D18" || type == "GK3D18N"; }
};

#endif
