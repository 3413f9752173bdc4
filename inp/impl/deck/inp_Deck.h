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

#include "cow_List.h"
#include "cow_String.h"

class inp_Deck {
public:
    inp_Deck() = default;

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
    cow_List<cow_String> instanceNames;
    cow_String includeDirectory;
};

#endif
