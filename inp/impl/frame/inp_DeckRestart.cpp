// A continuation job: the deck of a restart or an import, read on top of the model of
// an earlier job instead of a model of its own.
//
// The earlier model reaches the deck as an inpM_PartMap. A pure restart only adds
// sets and surfaces to it, which the driver's restart passes build; anything that
// makes nodes or elements, imports or maps a solution makes the deck impure, and an
// impure deck on a flat model is converted like a new flat deck, with the ids of the
// earlier job to find its way.
#include "inp_Deck.h"

#include "inpM_PartMap.h"
#include "inp_Utils.h"
#include "thr_ThreadSingleton.h"
#include "wip_WIP.h"

void inp_Deck::ClassifyRestartJob() {
    isPureRestart = true;
    hasImport = hasSymmetricModelGeneration = hasMapSolution = false;
    for (int i = 0; i < keywords.Count(); ++i) {
        switch (keywords.ConstGet(i).keyword) {
            case inp_kwSymmetricModelGeneration:
                hasSymmetricModelGeneration = true;
                isPureRestart = false;
                break;
            case inp_kwMapSolution:
                hasMapSolution = true;
                isPureRestart = false;
                break;
            case inp_kwImport:
                hasImport = true;
                isPureRestart = false;
                break;
            case inp_kwNode:
            case inp_kwElement:
                isPureRestart = false;
                break;
            default:
                break;
        }
    }
    if (hasInheritedPartMap && isAssemblyDeck && !isPureRestart)
        thr_ThreadSingleton<wip_WIP>::Instance().Error(
            atr_raw("Features such as new nodes/elements, IMPORT, SYMMETRIC MODEL GENERATION, MAP SOLUTION are "
                    "detected in a continuation analysis where the original model is defined in terms of an assembly "
                    "of part instances. This is not allowed. "),
            wip_Fatal);
}

void inp_Deck::InheritPartMap(inpM_PartMap& partMap, bool fullConversion) {
    hasInheritedPartMap = true;
    // What a continuation deck may hold depends on how the earlier model was written,
    // which a short restart deck does not show itself.
    isAssemblyDeck = isAssemblyDeck || partMap.IsAssemblyModel();
    ClassifyRestartJob();
    if (hasSymmetricModelGeneration) partMap.RemoveRedundantInternalSets();
    if (hasImport) partMapUsable = false;
    // A job that maps a solution onto a new mesh builds its model afresh.
    if (!hasMapSolution) {
        assemblyNodeSets = partMap.NodeSets();
        assemblyElementSets = partMap.ElementSets();
        assemblySurfaces = partMap.Surfaces();
        instanceToPart = partMap.InstanceToPart();
        nodeIdMap = inpM_IdMap(partMap.NodeIdMaps());
        elementIdMap = inpM_IdMap(partMap.ElementIdMaps());
        // The sets of a model of parts name the ids of its instances; the solver's are wanted.
        if (partMap.IsAssemblyModel()) {
            assemblySurfaces.Renumber(elementIdMap, nodeIdMap, true);
            assemblyElementSets.Renumber(elementIdMap, true);
            assemblyNodeSets.Renumber(nodeIdMap, true);
        }
    }
    if (hasImport) KeepImportedSets();
    hasFakeParts = partMap.HasFakeParts();
    isAssemblyDeck = partMap.IsAssemblyModel();
    CheckImportUse(false);
    if (!isPureRestart) {
        ConvertFlatDeck(fullConversion);
        Reorganize();
        ExtractAssemblyMaps();
    }
}

namespace {

// The names of an *IMPORT NSET, *IMPORT ELSET or *IMPORT: every text item of its lines.
cow_List<cow_String> NamesOf(const inp_Keyword& keyword) {
    cow_List<cow_String> names;
    const inp_DataArray& data = keyword.data;
    if (!data.HasValue()) return names;
    for (int line = 0; line < data.NumberOfLines(); ++line)
        for (int item = 0; item < data.NumberOfItems(line); ++item)
            if (data.Type(line, item) == inp_Types::typeString) names.Append(data.AsString(line, item));
    return names;
}

}  // namespace

// An import brings along only the sets it names; a kind that no keyword names keeps them all.
void inp_Deck::KeepImportedSets() {
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    cow_List<cow_String> nodeNames, elementNames;
    bool keepNodeSets = false, keepElementSets = false;
    for (int i = 0; i < keywords.Count(); ++i) {
        const inp_Keyword& keyword = keywords.ConstGet(i);
        const inp_KeywordEnm value = keyword.keyword;
        if (value != inp_kwImportNset && value != inp_kwImportElset && value != inp_kwImport) continue;
        const cow_List<cow_String> names = NamesOf(keyword);
        if (value == inp_kwImport) {
            elementNames.Append(names);
        } else if (names.IsEmpty()) {
            sink.Warning(inp_Utils::MessageInKeyword(
                keyword, atr_raw(value == inp_kwImportNset
                                     ? "This keyword is removed because no NSET name is provided in the following line."
                                     : "This keyword is removed because no ELSET name is provided in the following "
                                       "line.")));
        } else if (value == inp_kwImportNset) {
            keepNodeSets = true;
            nodeNames.Append(names);
        } else {
            keepElementSets = true;
            elementNames.Append(names);
        }
    }
    if (keepNodeSets) assemblyNodeSets.DeleteAllSetsExceptThoseListed(nodeNames);
    if (keepElementSets) assemblyElementSets.DeleteAllSetsExceptThoseListed(elementNames);
}
