#include "inpdeck_Continuation.h"

#include <cstdio>

#include "inpdeck_Text.h"

namespace inpdeck {

namespace {

// The part map of the earlier job, as read, and as the deck took it over.
bool continuing = false;
inpM_PartMap inherited;

wip_WIP& Sink() { return thr_ThreadSingleton<wip_WIP>::Instance(); }

cow_String AssemblyNameOf(const inp_Deck& deck) {
    for (int i = 0; i < deck.keywords.Count(); ++i) {
        const inp_Keyword& keyword = deck.keywords.ConstGet(i);
        if (keyword.keyword != inp_kwAssembly) continue;
        const inp_Item* name = keyword.parameters.Lookup(cow_String("name"));
        return name ? name->AsString() : cow_String();
    }
    return cow_String();
}

// The surfaces of `all` that `earlier` does not name.
inpM_SurfaceMap Added(const inpM_SurfaceMap& all, const inpM_SurfaceMap& earlier) {
    inpM_SurfaceMap added;
    cow_ConstMapSortedIt<cow_String, inpM_AssemblyInstanceSurface> it(all.assemblyInstanceSurfaces);
    for (it.First(); !it.IsDone(); it.Next())
        if (!earlier.IsMemberAssemblyInstanceSurface(it.CurrentKey()))
            added.InsertAssemblyInstanceSurface(it.CurrentKey(), it.CurrentValue());
    const cow_List<cow_String> scopes = all.Instances();
    for (int i = 0; i < scopes.Count(); ++i) {
        cow_ConstMapSortedIt<cow_String, inpM_SurfaceHandle> s(all.ConstGetPartInstanceSurfaceMap(scopes[i]));
        for (s.First(); !s.IsDone(); s.Next())
            if (!earlier.IsMemberPartInstanceSurface(scopes[i], s.CurrentKey()))
                added.InsertPartInstanceSurface(scopes[i], s.CurrentKey(), s.CurrentValue().ConstGet());
    }
    return added;
}

// The sets and surfaces a restart deck defines, in the ids of the earlier deck; the
// deck's own maps take them in the ids that it took the earlier ones in.
void RunRestartPasses(inp_Deck& deck, const inpM_PartMap& earlier) {
    const bool assemblyModel = earlier.IsAssemblyModel();
    inp_RestartSetVisitor nodeSets(earlier.NodeSets(), earlier.AssemblyName(), assemblyModel, deck.nodeIdMap,
                                   cow_String("nset"));
    nodeSets.VisitListAndReport(deck.keywords);
    inp_RestartSetVisitor elementSets(earlier.ElementSets(), earlier.AssemblyName(), assemblyModel,
                                      deck.elementIdMap, cow_String("elset"));
    elementSets.VisitListAndReport(deck.keywords);
    inp_RestartSurfaceVisitor surfaces(earlier.Surfaces(), earlier.AssemblyName(), assemblyModel, nodeSets.setMap,
                                       elementSets.setMap, deck.assemblyElements, deck.assemblyCoordinates);
    surfaces.VisitListAndReport(deck.keywords);

    deck.newModelNodeSets = nodeSets.newSets;
    deck.newModelElementSets = elementSets.newSets;
    deck.newModelSurfaces = Added(surfaces.surfaces, earlier.Surfaces());
    inpM_SetMap newNodeSets = deck.newModelNodeSets, newElementSets = deck.newModelElementSets;
    inpM_SurfaceMap newSurfaces = deck.newModelSurfaces;
    if (assemblyModel) {
        newSurfaces.Renumber(deck.elementIdMap, deck.nodeIdMap, true);
        newElementSets.Renumber(deck.elementIdMap, true);
        newNodeSets.Renumber(deck.nodeIdMap, true);
    }
    deck.assemblyNodeSets.Merge(newNodeSets);
    deck.assemblyElementSets.Merge(newElementSets);
    deck.assemblySurfaces.Merge(newSurfaces);
}

}  // namespace

int PrepareContinuation(const ContinuationOptions& options) {
    utl_CommandLine& commandLine = thr_GlobalSingleton<utl_CommandLine>::Instance();
    if (options.inputDirectory) commandLine.Set(cow_String("indir"), cow_String(options.inputDirectory));
    if (options.oldJob) commandLine.Set(cow_String("oldjobcla"), cow_String(options.oldJob));
    continuing = options.oldPartMap != nullptr;
    if (!continuing) return 0;
    inpM_PartMapFile file;
    if (file.Read(cow_String(options.oldPartMap), inherited) == inpM_PartMapFile::kNone) return 0;
    std::fprintf(stderr, "inpdeck: %s\n", OneLine(file.message.c_str()).c_str());
    continuing = false;
    return 2;
}

void Organize(inp_Deck& deck, bool fullConversion) {
    if (!continuing) {
        deck.Classify(fullConversion);
        return;
    }
    // The import rules read the deck in the order it was written, before the conversion
    // of an impure deck moves its keywords into parts.
    inp_ImportValidityVisitor imports;
    imports.VisitListAndReport(deck.keywords);
    // The deck may cut its copy down (internal sets, imported sets); the next job's part
    // map starts from the one that was read.
    inpM_PartMap earlier = inherited;
    deck.InheritPartMap(earlier, fullConversion);
    if (deck.isPureRestart && Sink().ErrorCount(wip_Fatal) == 0) RunRestartPasses(deck, earlier);
}

inpM_PartMap PartMapOf(const inp_Deck& deck) {
    if (deck.hasInheritedPartMap) {
        inpM_SetMap nodeSets = inherited.NodeSets(), elementSets = inherited.ElementSets();
        inpM_SurfaceMap surfaces = inherited.Surfaces();
        nodeSets.Merge(deck.newModelNodeSets);
        elementSets.Merge(deck.newModelElementSets);
        surfaces.Merge(deck.newModelSurfaces);
        return inpM_PartMap(inherited.IsAssemblyModel(), inherited.HasFakeParts(), inherited.ReservedFlag(),
                            inherited.NodeIdMaps(), inherited.ElementIdMaps(), nodeSets, elementSets, surfaces,
                            inherited.AssemblyName(), deck.instanceToPart);
    }
    // The ids the solver will see: the scopes laid out in one range, as the driver
    // numbers the model.
    inp_CoordMap nodes = deck.assemblyCoordinates;
    const inpM_IdMap nodeIds = nodes.Renumber(1, false);
    inpM_ElementMap elements = deck.assemblyElements;
    const inpM_IdMap elementIds = elements.Renumber(1, false);
    return inpM_PartMap(deck.isAssemblyDeck, deck.hasFakeParts, false, inpM_InstanceIdMaps(nodeIds),
                        inpM_InstanceIdMaps(elementIds), deck.assemblyNodeSets, deck.assemblyElementSets,
                        deck.assemblySurfaces, AssemblyNameOf(deck), deck.instanceToPart);
}

int SaveContinuation(const ContinuationOptions& options, const inp_Deck& deck) {
    if (!options.savePartMap) return 0;
    if (Sink().ErrorCount(wip_Fatal) > 0 || deck.keywords.IsEmpty()) {
        std::fprintf(stderr, "inpdeck: no part map written to \"%s\": the model is not complete\n",
                     OneLine(options.savePartMap).c_str());
        return 1;
    }
    inpM_PartMapFile file;
    if (file.Write(cow_String(options.savePartMap), PartMapOf(deck))) return 0;
    std::fprintf(stderr, "inpdeck: %s\n", OneLine(file.message.c_str()).c_str());
    return 2;
}

}  // namespace inpdeck
