// A flat deck as a model of parts: the conversion that makes a deck without *PART,
// *ASSEMBLY and *INSTANCE look to every later pass like one written as one part
// "PART-1", one instance "PART-1-1" and an assembly "Assembly-1".
//
// The flat model is read first, under the pseudo-instance "FAKE"; the keyword list is
// then rebuilt in the assembly form, the elements, nodes and sets move to the parts
// that use them, and every reference is rewritten into the scope it now stands in.
#include "inp_Deck.h"
#include "inp_FakePartModelVisitors.h"
#include "inp_FakePartSetAssignVisitor.h"
#include "inp_FakePartSetVisitor.h"
#include "inp_FakePartSurfaceVisitor.h"
#include "inp_FakePartVisitor.h"
#include "inp_NodeGenerationVisitor.h"
#include "inp_Types.h"
#include "inp_UndefinedNodeVisitor.h"
#include "inp_Utils.h"
#include "omi_Timer.h"
#include "thr_ThreadSingleton.h"
#include "wip_WIP.h"

#include <memory>

void inp_Deck::ConvertFlatDeck(bool fullConversion) {
    omi_Timer timer;
    inp_Utils::StartTiming(timer);
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    const cow_String fake(inp_Types::fakeName());
    RemovePeriodsInNames();

    // A continuation job that takes its geometry from the earlier one counts ids only.
    const bool computeCoordinates = !(hasInheritedPartMap && (hasImport || hasSymmetricModelGeneration));

    // The flat model, under "FAKE".
    inp_FakePartElementVisitor elementPass(inpM_SetMap(), computeCoordinates);
    elementPass.VisitListAndReport(keywords);
    inp_FakePartNodeVisitor nodePass(elementPass.elements, elementPass.setMap, inpM_SetMap(), computeCoordinates,
                                     hasSymmetricModelGeneration);
    nodePass.VisitListAndReport(keywords);
    inp_NodeGenerationVisitor generation(nodePass.coordMap, elementPass.elements, elementPass.setMap,
                                         computeCoordinates, hasInheritedPartMap, true, fake);
    generation.VisitListAndReport(keywords);
    inp_CoordMap flatCoordinates = generation.coordMap;

    // Nodes that elements, sets and loads name without defining them stand at the origin.
    if (!hasSymmetricModelGeneration) {
        inp_UndefinedNodeVisitor undefined(flatCoordinates, modelParameters);
        undefined.VisitList(keywords);
        undefined.AddSetNodes(nodePass.setMap);
        undefined.AddElementNodes(elementPass.elements);
        if (!modelParameters.hasLeadingImport) sink.WarningList(undefined.warnings);
        sink.ErrorList(undefined.errors, wip_Fatal);
        flatCoordinates = undefined.coordinates;
    }

    // The keyword list in the assembly form, and the model of each part.
    std::unique_ptr<inp_FakePartVisitor> parts(
        fullConversion ? new inp_FakePartVisitor(flatCoordinates, nodePass.setMap, elementPass.elements,
                                                 elementPass.setMap, hasSymmetricModelGeneration)
                       : new inp_SimpleFakePartVisitor(flatCoordinates, nodePass.setMap, elementPass.elements,
                                                       elementPass.setMap, hasSymmetricModelGeneration));
    parts->VisitList(keywords);
    cow_1DArrayList<inp_Keyword> converted;
    parts->GetConvertedKeywords(converted);
    keywords = converted;
    parts->Report();

    if (hasInheritedPartMap) {
        const cow_List<cow_String> names = parts->instanceToPart.Instances();
        for (int i = 0; i < names.Count(); ++i)
            if (!instanceToPart.IsMember(names.ConstGet(i)))
                instanceToPart.Insert(names.ConstGet(i), parts->instanceToPart.ConstGet(names.ConstGet(i)));
    } else {
        instanceToPart = parts->instanceToPart;
    }
    partCoordinates = parts->partCoordinates;
    partElements = parts->partElements;
    partSurfaces = parts->surfaces;
    meshInPartMaps = true;

    // The ids of the model laid out in one range: the scoped references need them.
    inp_CoordMap renumberedNodes = partCoordinates;
    const inpM_IdMap nodeIds = renumberedNodes.Renumber(1, false);
    const inpM_IdMap elementIds = partElements.RenumberedIds(1);

    // Each set to the part that uses it, or to the assembly.
    std::unique_ptr<inp_FakePartSetAssignVisitor> assignment(
        fullConversion ? new inp_FakePartSetAssignVisitor(nodePass.setMap, elementPass.setMap, partCoordinates,
                                                          partElements, modelParameters)
                       : new inp_SimpleFakeAssignVisitor(nodePass.setMap, elementPass.setMap, partCoordinates,
                                                         partElements, modelParameters));
    assignment->inheritedNodeIds = nodeIdMap;
    assignment->inheritedElementIds = elementIdMap;
    assignment->VisitList(keywords);
    assignment->FinishAssignment(keywords);
    partNodeSets = assignment->partNodeSets;
    partElementSets = assignment->partElementSets;
    assignment->Report();

    // References at assembly and model level into the scope of the instances.
    if (!hasInheritedPartMap) {
        inp_FakePartSetVisitor references(nodeIds, elementIds, partElementSets, partNodeSets, false, modelParameters);
        references.VisitListAndReport(keywords);
        inp_FakePartSurfaceVisitor surfaces(partSurfaces);
        surfaces.VisitListAndReport(keywords);
    }

    timer.Stop();
    inp_Utils::TimingLine(__FILE__, __LINE__, "Fake Enhancements - Elapsed time: ", timer);
}
