#include "inp_FakePartModelVisitors.h"

#include "inp_Types.h"

inp_FakePartElementVisitor::inp_FakePartElementVisitor(const inpM_SetMap& elementSets, bool storeConnectivity)
    : inp_ElementVisitor(elementSets, storeConnectivity) {
    instanceName = cow_String(inp_Types::fakeName());
    elements.Insert(instanceName, omi_IntTable<inp_Element>());
    // The converted deck holds its mesh in the part maps, not in keyword lines.
    releaseReadLines = true;
}

inp_FakePartNodeVisitor::inp_FakePartNodeVisitor(const inpM_ElementMap& elementMap, const inpM_SetMap& elementSets,
                                                 const inpM_SetMap& nodeSets, bool computeCoordinates,
                                                 bool symmetricModelGeneration)
    : inp_NodeVisitor(elementMap, elementSets, nodeSets, computeCoordinates),
      hasSymmetricModelGeneration(symmetricModelGeneration) {
    instanceName = cow_String(inp_Types::fakeName());
    coordMap.instances.Insert(instanceName, inp_CoordMap::Handle(new inp_CoordMap()));
    releaseReadLines = true;
}

// The generated model makes the node sets of element sets itself; the keyword goes to
// the assembly as it stands.
void inp_FakePartNodeVisitor::VisitNset(inp_Keyword& keyword) {
    if (hasSymmetricModelGeneration && keyword.HasParameter(cow_String("elset"))) return;
    inp_NodeVisitor::VisitNset(keyword);
}

void inp_FakePartNodeVisitor::VisitStep(inp_Keyword& keyword) {
    const inp_Item* name = keyword.parameters.Lookup(cow_String("name"));
    stepName = name ? name->AsString() : cow_String();
}

void inp_FakePartNodeVisitor::VisitEndStep(inp_Keyword&) { stepName = cow_String(); }
