#include "inp_Element.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "inp_Exceptions.h"
#include "mem_BlockHeap.h"

namespace {

// Null for an empty element; an allocation failure is reported as the library's
// own memory error, which the parser counts rather than dies of.
int* AllocateNodes(int count, int line) {
    if (count <= 0) return nullptr;
    int* nodes = static_cast<int*>(mem_BlockMalloc(sizeof(int) * static_cast<std::size_t>(count)));
    if (!nodes) inp_MemoryException().Throw("inp_Element", line);
    return nodes;
}

}  // namespace

inp_Element::inp_Element(const cow_String& elementType, const cow_1DArrayList<int>& nodeList, int bottom,
                         int layerOffset, int solidNumbering)
    : type(elementType),
      nodes(AllocateNodes(nodeList.Count(), __LINE__)),
      numNodes(nodeList.Count()),
      solidElementNumbering(solidNumbering),
      bottomNodes(bottom),
      offset(layerOffset) {
    for (int i = 0; i < numNodes; ++i) nodes[i] = nodeList[i];
}

inp_Element::inp_Element(const cow_String& elementType, const int* nodeList, int count, int bottom,
                         int layerOffset, int solidNumbering)
    : type(elementType),
      nodes(AllocateNodes(count, __LINE__)),
      numNodes(count > 0 ? count : 0),
      solidElementNumbering(solidNumbering),
      bottomNodes(bottom),
      offset(layerOffset) {
    std::copy(nodeList, nodeList + numNodes, nodes);
}

inp_Element::inp_Element(const inp_Element& other)
    : type(other.type),
      nodes(AllocateNodes(other.numNodes, __LINE__)),
      numNodes(other.numNodes),
      solidElementNumbering(other.solidElementNumbering),
      bottomNodes(other.bottomNodes),
      offset(other.offset) {
    if (numNodes > 0) std::copy(other.nodes, other.nodes + numNodes, nodes);
}

inp_Element::inp_Element(inp_Element&& other) noexcept
    : type(std::move(other.type)),
      nodes(other.nodes),
      numNodes(other.numNodes),
      solidElementNumbering(other.solidElementNumbering),
      bottomNodes(other.bottomNodes),
      offset(other.offset) {
    other.nodes = nullptr;
    other.numNodes = 0;
}

inp_Element& inp_Element::operator=(const inp_Element& other) {
    if (this == &other) return *this;
    if (numNodes != other.numNodes) {
        int* fresh = AllocateNodes(other.numNodes, __LINE__);
        mem_BlockFree(nodes);
        nodes = fresh;
        numNodes = other.numNodes;
    }
    if (numNodes > 0) std::copy(other.nodes, other.nodes + numNodes, nodes);
    type = other.type;
    solidElementNumbering = other.solidElementNumbering;
    bottomNodes = other.bottomNodes;
    offset = other.offset;
    return *this;
}

inp_Element& inp_Element::operator=(inp_Element&& other) noexcept {
    if (this == &other) return *this;
    mem_BlockFree(nodes);
    type = std::move(other.type);
    nodes = other.nodes;
    numNodes = other.numNodes;
    solidElementNumbering = other.solidElementNumbering;
    bottomNodes = other.bottomNodes;
    offset = other.offset;
    other.nodes = nullptr;
    other.numNodes = 0;
    return *this;
}

inp_Element::~inp_Element() { mem_BlockFree(nodes); }
