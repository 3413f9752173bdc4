// Nodes that play a part of their own when a deck of instances is carried into
// global axes: the reference nodes of rigid bodies and their kind, the nodes of
// tracer sets, and the nodes that already have a *TRANSFORM.
//
// Both passes read the keywords and change none, report nothing, and give back the
// system's node numbers, those of the (renumbered) id map and of the set map, not
// the numbers written in the deck. A driver constructs them with its maps, walks
// the deck's list, and reads the public collections; inp_TransformationVisitor
// takes transformedNodes.
//
// The scope is the instance block a keyword stands in. A *PART block has none: a
// keyword there is looked up at the assembly level.
#ifndef INP_REFNODEVISITORS_H
#define INP_REFNODEVISITORS_H

#include "cow_1DArrayList.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inpM_IdMap.h"
#include "inpM_SetMap.h"
#include "inp_Visitor.h"

class inp_CollectRefNodesVisitor : public inp_Visitor {
public:
    // The maps are copied: later changes of the caller's maps are not seen.
    inp_CollectRefNodesVisitor(const inpM_SetMap& nodeSets, const inpM_IdMap& nodeIds);
    ~inp_CollectRefNodesVisitor() override;

    void VisitFluidProperty(inp_Keyword& keyword) override;
    void VisitIntegratedOutputSection(inp_Keyword& keyword) override;
    void VisitKinematicCoupling(inp_Keyword& keyword) override;
    void VisitRigidBody(inp_Keyword& keyword) override;
    void VisitRigidSurface(inp_Keyword& keyword) override;
    void VisitTracerParticle(inp_Keyword& keyword) override;

    // In the order of the walk; a node named twice stands twice.
    cow_1DArrayList<int> refNodes;
    // By tracer set name; a later keyword of the same set replaces the earlier list.
    cow_Map<cow_String, cow_1DArrayList<int>> tracerNodes;

protected:
    void DefaultAction(inp_Keyword& keyword) override;

private:
    void CollectRefNode(inp_Keyword& keyword);
    // A node id or a node set, scoped or not; what cannot be found gives nothing.
    cow_1DArrayList<int> ResolveNodeReference(const cow_String& reference);

    inpM_SetMap nodeSets;
    inpM_IdMap nodeIds;
};

class inp_CollectTransformedNodesVisitor : public inp_Visitor {
public:
    // The map is copied.
    explicit inp_CollectTransformedNodesVisitor(const inpM_SetMap& nodeSets);
    ~inp_CollectTransformedNodesVisitor() override;

    // NSET is taken whole, never split at a period: inside an instance it names a set
    // of that instance, elsewhere one of the assembly level.
    void VisitTransform(inp_Keyword& keyword) override;

    // In the order of the walk, duplicates kept.
    cow_1DArrayList<int> transformedNodes;

protected:
    void DefaultAction(inp_Keyword& keyword) override;

private:
    inpM_SetMap nodeSets;
};

#endif
