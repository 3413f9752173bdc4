#include "inp_RefNodeVisitors.h"

#include <cstdlib>

#include "cow_List.h"
#include "inp_Types.h"
#include "inp_Utils.h"

namespace {

const cow_String kRefNode("refnode");

void AppendIds(cow_1DArrayList<int>& to, const inpM_BaseSet& set) { to.Append(set.ConstGetIds()); }

// The system's number of a deck id of one level; 0, never a node, when the level has none.
void AppendMapped(cow_1DArrayList<int>& to, const inpM_IdMap& ids, const cow_String& id) {
    const int number = std::atoi(id.c_str());
    if (ids.HasId(number)) to.Append(ids.ConstGet(number));
}

}  // namespace

inp_CollectRefNodesVisitor::inp_CollectRefNodesVisitor(const inpM_SetMap& sets, const inpM_IdMap& ids)
    : nodeSets(sets), nodeIds(ids) {}

inp_CollectRefNodesVisitor::~inp_CollectRefNodesVisitor() = default;

void inp_CollectRefNodesVisitor::DefaultAction(inp_Keyword&) {}

void inp_CollectRefNodesVisitor::VisitFluidProperty(inp_Keyword& keyword) { CollectRefNode(keyword); }
void inp_CollectRefNodesVisitor::VisitIntegratedOutputSection(inp_Keyword& keyword) { CollectRefNode(keyword); }
void inp_CollectRefNodesVisitor::VisitKinematicCoupling(inp_Keyword& keyword) { CollectRefNode(keyword); }
void inp_CollectRefNodesVisitor::VisitRigidBody(inp_Keyword& keyword) { CollectRefNode(keyword); }
void inp_CollectRefNodesVisitor::VisitRigidSurface(inp_Keyword& keyword) { CollectRefNode(keyword); }

void inp_CollectRefNodesVisitor::VisitTracerParticle(inp_Keyword& keyword) {
    const inp_Item* set = keyword.parameters.Lookup(cow_String("tracerset"));
    if (!set) return;
    cow_1DArrayList<int> nodes;
    const inp_DataArray& data = keyword.data;
    const int lines = data.HasValue() ? data.NumberOfLines() : 0;
    for (int line = 0; line < lines; ++line)
        for (int item = 0; item < data.NumberOfItems(line); ++item)
            if (!data.IsBlank(line, item)) nodes.Append(ResolveNodeReference(data.AsString(line, item)));
    tracerNodes.Insert(set->AsString(), nodes);
}

void inp_CollectRefNodesVisitor::CollectRefNode(inp_Keyword& keyword) {
    if (const inp_Item* reference = keyword.parameters.Lookup(kRefNode))
        refNodes.Append(ResolveNodeReference(reference->AsString()));
}

cow_1DArrayList<int> inp_CollectRefNodesVisitor::ResolveNodeReference(const cow_String& reference) {
    cow_1DArrayList<int> nodes;
    if (!instanceName.IsEmpty()) {
        // Inside an instance the reference is taken whole, scoped-looking or not.
        if (inp_Types::MatchInteger(reference))
            AppendMapped(nodes, nodeIds.ConstGet(instanceName), reference);
        else if (inp_Types::MatchSetName(reference) && nodeSets.HasNestedSet(instanceName, reference))
            AppendIds(nodes, nodeSets.ConstGetNestedSet(instanceName, reference));
        return nodes;
    }
    const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(reference);
    if (segments.Count() == 1) {
        if (inp_Types::MatchInteger(reference))
            AppendMapped(nodes, nodeIds, reference);
        else if (inp_Types::MatchSetName(reference) && nodeSets.IsMember(reference))
            AppendIds(nodes, nodeSets.ConstGetSet(reference));
        return nodes;
    }
    // Only the last two segments count: an assembly name in front changes nothing.
    const cow_String& instance = segments[segments.Count() - 2];
    const cow_String& name = segments.Last();
    if (inp_Utils::IsScopedSetName(segments)) {
        if (nodeSets.HasNestedSet(instance, name)) AppendIds(nodes, nodeSets.ConstGetNestedSet(instance, name));
    } else if (inp_Types::MatchInteger(name) && nodeIds.HasInstance(instance)) {
        AppendMapped(nodes, nodeIds.ConstGet(instance), name);
    }
    return nodes;
}

inp_CollectTransformedNodesVisitor::inp_CollectTransformedNodesVisitor(const inpM_SetMap& sets) : nodeSets(sets) {}

inp_CollectTransformedNodesVisitor::~inp_CollectTransformedNodesVisitor() = default;

void inp_CollectTransformedNodesVisitor::DefaultAction(inp_Keyword&) {}

void inp_CollectTransformedNodesVisitor::VisitTransform(inp_Keyword& keyword) {
    const inp_Item* set = keyword.parameters.Lookup(cow_String("nset"));
    if (!set) return;
    const cow_String name = set->AsString();
    if (instanceName.IsEmpty()) {
        if (nodeSets.IsMember(name)) AppendIds(transformedNodes, nodeSets.ConstGetSet(name));
    } else if (nodeSets.HasNestedSet(instanceName, name)) {
        AppendIds(transformedNodes, nodeSets.ConstGetNestedSet(instanceName, name));
    }
}
