// inp_Deck: one input deck through all its phases.
//
// A driver makes one deck, sets includeDirectory, defaultRestartStep and
// replaceInheritedMaps as they apply, and calls the phases in order: Parse,
// ExpandKeywords, Classify (or ReorganizeKeywords; InheritPartMap for a continuation
// job), CheckOutOfPlace, setModelParameters, and Print at any time after Parse.
// Nothing records how far a deck has come: the order is the driver's duty. Errors
// do not come back as results; they go to the thread's wip_WIP sink, which the
// driver reads between phases.
#ifndef INP_DECK_H
#define INP_DECK_H

#include "cow_1DArrayList.h"
#include "cow_List.h"
#include "cow_String.h"
#include "gsl_Matrix.h"
#include "inpM_IdMap.h"
#include "inpM_InstanceMap.h"
#include "inpM_SetMap.h"
#include "inpM_SurfaceMap.h"
#include "inp_CoordMap.h"
#include "inp_Element.h"
#include "inp_Keyword.h"
#include "inp_ModelParameters.h"
#include "omi_IntTable.h"

class aio_ostream;
class inpM_PartMap;

class inp_Deck {
public:
    inp_Deck() = default;

    // Reads the file and its include files into `keywords`, replacing what was there.
    // A bad deck raises nothing: fatal parse errors go to the error sink at level 0,
    // then the others at level 1, and `keywords` holds what could be read. A main file
    // that cannot be read gives an empty deck and no message; telling the user is the
    // driver's business.
    void Parse(cow_String name);
    // Puts every keyword in canonical form (full parameter names, upper-case values,
    // full vocabulary words, data files read, node data packed) and decides whether
    // this is an assembly deck. What it finds goes to the error sink; keywords it had
    // to drop are gone from the list.
    void ExpandKeywords();
    // Turns the expanded list into the deck hierarchy: each keyword under the one that
    // owns it, misplaced keywords reported and dropped. The import rules are checked
    // first, and no defined name may hold a period (an error in an assembly deck, a
    // warning in a flat deck, whose names are then repaired). A flat deck is first
    // converted into one part "PART-1", one instance "PART-1-1" and an assembly
    // "Assembly-1"; `fullConversion` gives rigid bodies and rigid surfaces parts of
    // their own, without it everything stays in "PART-1". In an assembly deck the
    // model-level references that carry the assembly's name lose it.
    void ReorganizeKeywords(bool fullConversion);
    // The same road, and then the model: the nodes, elements, sets and surfaces of every
    // part, and those of the assembly and its instances. With `fullConversion` an import
    // job is not held to the import rules here.
    void Classify(bool fullConversion);
    // Model-level references of the form `assembly.instance.name` lose the assembly
    // name; the first form takes it from the deck's first *ASSEMBLY.
    void ModifyScopedNames();
    void ModifyScopedNames(const cow_String& assemblyName);
    // The structural checks of parts, instances and rigid bodies, and of the blocks that
    // open and close them; all findings go to the error sink together at the end. The
    // rules of parts and rigid bodies need an assembly deck and read the element maps;
    // the block checks run on any deck. Changes nothing in the deck.
    void CheckOutOfPlace();
    // A continuation job, in the place of Classify: the model of the earlier job becomes
    // the deck's. A deck that only adds sets and surfaces keeps its flat list for the
    // driver's restart passes; any other is converted and organized like a flat deck.
    // The part map loses its redundant internal sets in a job with *SYMMETRIC MODEL
    // GENERATION.
    void InheritPartMap(inpM_PartMap& partMap, bool fullConversion);
    // isPureRestart and the three flags of what makes a continuation deck impure.
    void ClassifyRestartJob();
    // The deck-wide numbers and flags of modelParameters; raises them, never lowers.
    void setModelParameters();
    // Writes the normal form of the deck, which Parse reads back to the same keywords.
    void Print(aio_ostream& out);

    cow_1DArrayList<inp_Keyword> assemblyLevelKeywords;
    cow_1DArrayList<inp_Keyword> keywords;
    bool isAssemblyDeck = false;
    bool hasFakeParts = false;
    bool hasInheritedPartMap = false;
    int defaultRestartStep = 0;
    bool isPureRestart = false;
    bool hasImport = false;
    bool hasSymmetricModelGeneration = false;
    bool hasMapSolution = false;
    bool partMapUsable = true;  // narrowed only for a flat deck
    bool replaceInheritedMaps = false;
    bool hasParameters = false;
    cow_String fileName;

    // Part level: filled by the part map extraction.
    inp_CoordMap partCoordinates;
    inpM_InstanceMap<omi_IntTable<inp_Element>> partElements;
    inpM_SetMap partNodeSets;
    inpM_SetMap partElementSets;
    inpM_SurfaceMap partSurfaces;
    // Assembly level: extracted, made by the flat-deck conversion, or inherited.
    inp_CoordMap assemblyCoordinates;
    inpM_InstanceMap<omi_IntTable<inp_Element>> assemblyElements;
    inpM_SetMap assemblyNodeSets;
    inpM_SetMap assemblyElementSets;
    inpM_SurfaceMap assemblySurfaces;
    inpM_InstanceMap<gsl_Matrix> instanceTransformations;
    // Ids of an inherited model, used to renumber.
    inpM_IdMap nodeIdMap;
    inpM_IdMap elementIdMap;
    // Sets and surfaces a continuation job adds to the inherited model.
    inpM_SetMap newModelNodeSets;
    inpM_SetMap newModelElementSets;
    inpM_SurfaceMap newModelSurfaces;
    // The same group again, for a job that replaces the inherited maps.
    inpM_IdMap secondNodeIdMap;
    inpM_IdMap secondElementIdMap;
    inpM_SetMap secondNodeSets;
    inpM_SetMap secondElementSets;
    inpM_SurfaceMap secondSurfaces;

    cow_List<cow_String> instanceNames;
    cow_String includeDirectory;
    // The work Parse may do in all (include files opened, lines read, every repeat of a
    // file counted) before it reads no further; 0 keeps the reader's own limits. A
    // fuzzer sets them low, so that a deck that fans its includes out costs it little.
    int maxIncludeFiles = 0;
    long long maxLines = 0;
    // The most ids one generator (*NGEN, *NCOPY, *ELGEN, GENERATE data...) may give in
    // ExpandKeywords and Classify; 0 keeps the library's own limit. A fuzzer sets it low
    // too: a few bytes of *NGEN make a million nodes, which only take time.
    long long maxGeneratedIds = 0;
    inpM_InstanceMap<cow_String> instanceToPart;
    inp_ModelParameters modelParameters;

private:
    // A part of a converted flat deck, its nodes and elements written from the maps.
    void PrintPartWithMesh(const inp_Keyword& part, aio_ostream& out) const;
    // The mesh of the parts stands in the part maps, not in the keywords.
    bool meshInPartMaps = false;

    // The inherited sets cut down to those the *IMPORT NSET and *IMPORT ELSET keywords name.
    void KeepImportedSets();
    // *IMPORT beside *MAP SOLUTION, and an import job that cannot be served.
    void CheckImportUse(bool skipImportRules);
    // Defined names (sets, surfaces, orientations, parts, instances, the assembly) with
    // a period outside double quotes, reported to the sink at once.
    void ProhibitPeriodInNames(const cow_1DArrayList<inp_Keyword>& list);
    // A flat deck's names and references with "_" for each unquoted period.
    void RemovePeriodsInNames();
    // A flat deck as parts, instances and an assembly, with the part-level maps.
    void ConvertFlatDeck(bool fullConversion);
    // The organizer on a copy of `keywords`, whose result the deck takes.
    void Reorganize();
    // The extraction passes over the organized list; their results replace the deck's
    // maps only at the end, so that a pass that raises leaves the maps as they were.
    void ExtractPartMaps();
    void ExtractAssemblyMaps();
    // Drops the blank keywords (value 0) that passes leave where they removed one;
    // the top level only.
    void RemoveEmptyKeywords();
};

#endif
