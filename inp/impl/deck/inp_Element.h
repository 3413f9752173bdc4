// inp_Element: the record of one element in an element table.
//
// An element owns its connectivity. Tables copy records when they are rebuilt
// (renumbering, Update), and assignment keeps the array when the node count does
// not change, so that rewriting connectivity in place does not allocate.
#ifndef INP_ELEMENT_H
#define INP_ELEMENT_H

#include "cow_1DArrayList.h"
#include "cow_String.h"

class inp_Element {
public:
    // Tables make records by the thousand (a chunk of 1024 at a time): inline, so that
    // a chunk's worth is a plain fill.
    inp_Element() : nodes(nullptr), numNodes(0), solidElementNumbering(0), bottomNodes(0), offset(0) {}
    // The node list is copied into an array of the element's own.
    inp_Element(const cow_String& elementType, const cow_1DArrayList<int>& nodeList, int bottom, int layerOffset,
                int solidNumbering);
    // The same from `count` nodes at `nodeList`, for readers that reuse one buffer.
    inp_Element(const cow_String& elementType, const int* nodeList, int count, int bottom, int layerOffset,
                int solidNumbering);
    inp_Element(const inp_Element& other);
    inp_Element(inp_Element&& other) noexcept;
    inp_Element& operator=(const inp_Element& other);
    inp_Element& operator=(inp_Element&& other) noexcept;
    ~inp_Element();

    // Upper case.
    cow_String type;
    // 0 is a legal entry: some element families leave node positions open.
    int* nodes;
    int numNodes;
    int solidElementNumbering;
    // Stacked elements: nodes given for the bottom layer, and the id distance
    // between layers.
    int bottomNodes;
    int offset;
};

#endif
