#include "inp_UndefinedNodeVisitor.h"

#include <cstdlib>

#include "atr_String.h"
#include "inp_Types.h"
#include "inp_Utils.h"

namespace {

// The largest id a deck may give; a set member beyond it came from no node.
constexpr int kLargestId = 999999999;

}  // namespace

inp_UndefinedNodeVisitor::inp_UndefinedNodeVisitor(const inp_CoordMap& flatCoordinates,
                                                   const inp_ModelParameters& parameters)
    : inp_SetFixupVisitor(inpM_SetMap(), inpM_SetMap(), inpM_IdMap(), inpM_IdMap(), parameters),
      coordinates(flatCoordinates) {}

inp_UndefinedNodeVisitor::~inp_UndefinedNodeVisitor() = default;

inp_CoordMap* inp_UndefinedNodeVisitor::FlatNodes() {
    const cow_String fake(inp_Types::fakeName());
    if (!coordinates.instances.IsMember(fake)) return nullptr;
    return &coordinates.instances.Get(fake).Get();
}

cow_String inp_UndefinedNodeVisitor::ReplaceReference(inp_Keyword& keyword, const cow_String& reference,
                                                      const inpM_SetMap&, const inpM_IdMap&, const cow_String&,
                                                      const cow_String&, const cow_String&, inp_SetType) {
    // A set name is left to AddSetNodes.
    if (!inp_Types::MatchInteger(reference)) return reference;
    inp_CoordMap* nodes = FlatNodes();
    if (!nodes) return reference;
    if (reference.Length() > 9) {
        errors.Append(inp_Utils::MessageInKeyword(keyword, atr_Format("Node label exceeds 9 digits: %s", reference)));
        return reference;
    }
    const int id = static_cast<int>(std::strtol(reference.c_str(), nullptr, 10));
    if (id < 1) {
        errors.Append(
            inp_Utils::MessageInKeyword(keyword, atr_Format("Node label is not a positive integer: %s", reference)));
        return reference;
    }
    if (nodes->HasId(id)) return reference;
    warnings.Append(inp_Utils::MessageInKeyword(
        keyword, atr_Format("Undefined node %s was detected and placed at the origin. ", reference)));
    nodes->Insert(id, inp_Coord());
    return reference;
}

void inp_UndefinedNodeVisitor::ReplaceElementOrElsetData(inp_Keyword&, const cow_List<int>&, int) {}

void inp_UndefinedNodeVisitor::ReplaceElementOrElsetAllData(inp_Keyword&) {}

void inp_UndefinedNodeVisitor::ReplaceElementOrElsetParameter(inp_Keyword&, const cow_String&) {}

cow_String inp_UndefinedNodeVisitor::ReplaceElementOrElset(const inp_Keyword&, const cow_String& reference) {
    return reference;
}

void inp_UndefinedNodeVisitor::AddSetNodes(const inpM_SetMap& nodeSets) {
    inp_CoordMap* nodes = FlatNodes();
    if (!nodes) return;
    auto addMembers = [nodes](const inpM_BaseSetMap& sets) {
        cow_ConstMapSortedIt<cow_String, inpM_SetHandle> it(sets);
        for (it.First(); !it.IsDone(); it.Next()) {
            const cow_1DArrayList<int> ids = it.CurrentValue()->ConstGetIds();
            for (int i = 0; i < ids.Count(); ++i) {
                const int id = ids.ConstGet(i);
                // Node 0 stands for a node an element leaves out; it is no node to place.
                if (id < 1 || id > kLargestId || nodes->HasId(id)) continue;
                nodes->Insert(id, inp_Coord());
            }
        }
    };
    addMembers(nodeSets);
    const cow_List<cow_String> scopes = nodeSets.Instances();
    for (int i = 0; i < scopes.Count(); ++i) addMembers(nodeSets.ConstGetNestedSetMap(scopes.ConstGet(i)));
}

void inp_UndefinedNodeVisitor::AddElementNodes(const inpM_ElementMap& elements) {
    inp_CoordMap* nodes = FlatNodes();
    const cow_String fake(inp_Types::fakeName());
    if (!nodes || !elements.IsMember(fake)) return;
    omi_IntTableIterator<inp_Element> it(elements.ConstGet(fake));
    for (it.First(); !it.IsDone(); it.Next()) {
        const inp_Element& element = it.CurrentValue();
        for (int i = 0; i < element.numNodes; ++i) {
            const int id = element.nodes[i];
            // 0 is a position the element leaves open.
            if (id < 1 || nodes->HasId(id)) continue;
            atr_translate text("Undefined node %1$s of element %2$s was detected and placed at the origin. ");
            atr_SubstituteFormat(text, 1, id);
            atr_SubstituteFormat(text, 2, it.CurrentKey());
            warnings.Append(text.Result());
            nodes->Insert(id, inp_Coord());
        }
    }
}
