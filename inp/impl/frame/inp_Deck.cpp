#include "inp_Deck.h"

#include "inp_ElementVisitor.h"
#include "inp_KeywordExpansionVisitor.h"
#include "inp_NodeGenerationVisitor.h"
#include "inp_NodeVisitor.h"
#include "inp_ModelParameterVisitor.h"
#include "inp_Organizer.h"
#include "inp_Parser.h"
#include "inp_PartInventoryVisitor.h"
#include "inp_SurfaceVisitor.h"
#include "inp_Utils.h"
#include "omi_Timer.h"
#include "thr_ThreadSingleton.h"
#include "wip_WIP.h"

void inp_Deck::Parse(cow_String name) {
    fileName = name;
    inp_Parser parser(name, includeDirectory, cow_1DArrayList<cow_String>(), cow_String(), true);
    if (maxIncludeFiles > 0 || maxLines > 0)
        parser.SetWorkLimits(maxIncludeFiles > 0 ? maxIncludeFiles : inp_Parser::kMaxIncludeFiles,
                             maxLines > 0 ? maxLines : inp_Parser::kMaxLines);
    keywords = parser.Parse(true);

    // Fatal first: a driver that stops at the first error shows the one that matters.
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    // Each with its place, which the text of a parse message does not name.
    auto report = [&sink](const cow_List<atr_String>& texts, const cow_List<inp_Parser::Place>& places,
                          wip_errorLevelEnm level) {
        for (int i = 0; i < texts.Count(); ++i)
            sink.ErrorAt(texts.ConstGet(i), level, places.ConstGet(i).file, places.ConstGet(i).line);
    };
    report(parser.FatalErrors(), parser.FatalErrorPlaces(), wip_Fatal);
    report(parser.Errors(), parser.ErrorPlaces(), wip_Error);
    if (!parser.Warnings().IsEmpty()) sink.WarningList(parser.Warnings());
}

void inp_Deck::ExpandKeywords() {
    const inp_Utils::GenerationLimit limit(maxGeneratedIds);
    omi_Timer timer;
    inp_Utils::StartTiming(timer);
    inp_KeywordExpansionVisitor expansion;
    expansion.includeDirectory = includeDirectory;
    expansion.defaultRestartStep = defaultRestartStep;
    expansion.VisitListAndReport(keywords);

    isAssemblyDeck = expansion.isAssemblyDeck;
    instanceToPart = expansion.instanceToPart;
    hasParameters = expansion.hasParameters;
    const bool explicitRigidSurface = expansion.hasExplicitDynamic && expansion.hasRigidSurface;
    if (explicitRigidSurface)
        thr_ThreadSingleton<wip_WIP>::Instance().Error(
            atr_raw("the *RIGID SURFACE option is not supported in MERLIX/Explicit; use the *SURFACE option in "
                    "conjunction with the *RIGID BODY option instead."),
            wip_Fatal);
    // A flat deck whose model cannot be told as parts and instances: elements from a
    // results file, or rigid surfaces and blended maps that only the flat form knows.
    if (isAssemblyDeck)
        partMapUsable = true;
    else if (expansion.hasElementFile || explicitRigidSurface || expansion.hasBlendedNmap)
        partMapUsable = false;

    RemoveEmptyKeywords();
    timer.Stop();
    inp_Utils::TimingLine(__FILE__, __LINE__, "Expand Keywords - Elapsed time: ", timer);
}

void inp_Deck::ReorganizeKeywords(bool fullConversion) {
    CheckImportUse(false);
    ProhibitPeriodInNames(keywords);
    if (isAssemblyDeck) {
        Reorganize();
        ModifyScopedNames();
    } else {
        ConvertFlatDeck(fullConversion);
        Reorganize();
    }
}

// The conversion works on the flat list, ahead of the organizer; the scoped names are
// rewritten on the hierarchy, behind it, where each keyword knows its block.
void inp_Deck::Classify(bool fullConversion) {
    const inp_Utils::GenerationLimit limit(maxGeneratedIds);
    CheckImportUse(fullConversion);
    ProhibitPeriodInNames(keywords);
    if (isAssemblyDeck) {
        Reorganize();
        ModifyScopedNames();
        ExtractPartMaps();
        ExtractAssemblyMaps();
    } else {
        ConvertFlatDeck(fullConversion);
        Reorganize();
        ExtractAssemblyMaps();
        hasFakeParts = true;
    }
}

void inp_Deck::CheckImportUse(bool skipImportRules) {
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    bool import = false, mapSolution = false;
    for (int i = 0; i < keywords.Count(); ++i) {
        import = import || keywords.ConstGet(i).keyword == inp_kwImport;
        mapSolution = mapSolution || keywords.ConstGet(i).keyword == inp_kwMapSolution;
        if (import && mapSolution) {
            sink.Error(atr_raw("*IMPORT and *MAP SOLUTION (rezoning) cannot be used in the same analysis. "), wip_Fatal);
            break;
        }
    }
    if (!import || skipImportRules) return;
    if (isAssemblyDeck)
        sink.Error(atr_raw("The restart (.res) and results (.fil) files are not organized as an assembly of part "
                           "instances. Therefore, some options that read data from these files currently cannot be "
                           "used in models defined in terms of an assembly of part instances. IMPORT is one of them."),
                   wip_Fatal);
    if (!hasInheritedPartMap)
        sink.Error(atr_raw("An import analysis requires the part map from a previous job. Please use the -oldpartmap "
                           "command line option to specify it."),
                   wip_Fatal);
}

void inp_Deck::ExtractPartMaps() {
    omi_Timer timer;
    inp_Utils::StartTiming(timer);
    inp_PartElementVisitor elementPass;
    elementPass.VisitListAndReport(keywords);
    inp_PartNodeVisitor nodePass(elementPass.elements, elementPass.setMap);
    nodePass.VisitListAndReport(keywords);
    inp_NodeGenerationVisitor generation(nodePass.coordMap, elementPass.elements, elementPass.setMap, true,
                                         hasInheritedPartMap, true, cow_String());
    generation.VisitListAndReport(keywords);
    // Surfaces see the nodes the deck gave, without the layers of stacked elements.
    inp_PartSurfaceVisitor surfacePass(elementPass.setMap, nodePass.setMap, elementPass.elements, nodePass.coordMap);
    surfacePass.VisitListAndReport(keywords);

    partCoordinates = generation.coordMap;
    partElements = elementPass.elements;
    partNodeSets = nodePass.setMap;
    partElementSets = elementPass.setMap;
    partSurfaces = surfacePass.surfaces;
    timer.Stop();
    inp_Utils::TimingLine(__FILE__, __LINE__, "ExtractPartMaps - Elapsed time: ", timer);
}

void inp_Deck::ExtractAssemblyMaps() {
    omi_Timer timer;
    inp_Utils::StartTiming(timer);
    // A continuation job that takes its geometry from the earlier one counts ids only.
    const bool computeCoordinates =
        replaceInheritedMaps || !hasInheritedPartMap || !(hasImport || hasSymmetricModelGeneration);
    // What an assembly pass knows of the instances before the walk; an instance that
    // an earlier job made brings its sets from that job.
    const cow_List<cow_String> instances = instanceToPart.Instances();
    auto Introduce = [&](auto& pass, const inpM_SetMap& importedSets) {
        pass.instanceToPart = instanceToPart;
        pass.instanceNames = instances;
        if (!replaceInheritedMaps) return;
        pass.importedInstances = instanceNames;
        pass.importedSets = importedSets;
    };

    inp_AssemblyElementVisitor elementPass(partElements, partElementSets, computeCoordinates);
    Introduce(elementPass, secondElementSets);
    elementPass.VisitList(keywords);
    assemblyLevelKeywords = elementPass.deferredKeywords;
    elementPass.Report();

    inp_AssemblyNodeVisitor nodePass(elementPass.elements, elementPass.setMap, partCoordinates, partNodeSets,
                                     hasSymmetricModelGeneration, computeCoordinates);
    Introduce(nodePass, secondNodeSets);
    nodePass.VisitListAndReport(keywords);

    inp_NodeGenerationVisitor generation(nodePass.coordMap, elementPass.elements, elementPass.setMap,
                                         computeCoordinates, hasInheritedPartMap, false, cow_String());
    generation.VisitListAndReport(keywords);

    inp_AssemblySurfaceVisitor surfacePass(elementPass.setMap, nodePass.setMap, elementPass.elements,
                                           nodePass.coordMap, partSurfaces);
    surfacePass.instanceToPart = instanceToPart;
    if (replaceInheritedMaps) {
        surfacePass.importedInstances = instanceNames;
        surfacePass.importedSurfaces = secondSurfaces;
    }
    surfacePass.VisitListAndReport(keywords);

    assemblyCoordinates = generation.coordMap;
    assemblyElements = elementPass.elements;
    if (!hasInheritedPartMap || replaceInheritedMaps) {
        assemblyNodeSets = nodePass.setMap;
        assemblyElementSets = elementPass.setMap;
        assemblySurfaces = surfacePass.surfaces;
        instanceTransformations = nodePass.transforms;
    } else {
        // A continuation job: the model came from the earlier job, and the deck adds to it.
        newModelNodeSets = nodePass.setMap;
        assemblyNodeSets.Merge(newModelNodeSets);
        newModelElementSets = elementPass.setMap;
        assemblyElementSets.Merge(newModelElementSets);
        if (hasSymmetricModelGeneration) assemblySurfaces.Merge(surfacePass.surfaces);
    }
    timer.Stop();
    inp_Utils::TimingLine(__FILE__, __LINE__, "ExtractAssemblyMaps - Elapsed time: ", timer);
}

void inp_Deck::CheckOutOfPlace() {
    omi_Timer timer;
    inp_Utils::StartTiming(timer);
    inp_PartInventoryVisitor inventory(partElements, assemblyElements, partElementSets, assemblyElementSets);
    if (isAssemblyDeck) {
        inventory.VisitList(keywords);
        inventory.CheckInventory();
    }
    inventory.CheckBlocks(keywords);
    inventory.Report();
    timer.Stop();
    inp_Utils::TimingLine(__FILE__, __LINE__, "Checking out of place keywords - Elapsed time: ", timer);
}

void inp_Deck::setModelParameters() {
    omi_Timer timer;
    inp_Utils::StartTiming(timer);
    inp_ModelParameterVisitor visitor(modelParameters);
    visitor.VisitListAndReport(keywords);
    timer.Stop();
    inp_Utils::TimingLine(__FILE__, __LINE__, "Set Model Parameters - Elapsed time: ", timer);
}

void inp_Deck::Reorganize() {
    inp_Organizer organizer(keywords);
    keywords = organizer.Organize();
    RemoveEmptyKeywords();
}

void inp_Deck::RemoveEmptyKeywords() {
    int blanks = 0;
    for (int i = 0; i < keywords.Count(); ++i)
        if (keywords[i].keyword == inp_kwUndefined) ++blanks;
    if (blanks == 0) return;
    // One pass of handle copies: removing in place would move the tail once per blank.
    cow_1DArrayList<inp_Keyword> kept(keywords.Count() - blanks);
    for (int i = 0; i < keywords.Count(); ++i)
        if (keywords[i].keyword != inp_kwUndefined) kept.Append(keywords[i]);
    keywords = kept;
}
