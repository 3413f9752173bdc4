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
#include "inp_Keyword.h"

class aio_ostream;

class inp_Deck {
public:
    inp_Deck() = default;

    // Reads the file and its include files into `keywords`, replacing what was there.
    // A bad deck raises nothing: fatal parse errors go to the error sink at level 0,
    // then the others at level 1, and `keywords` holds what could be read. A main file
    // that cannot be read gives an empty deck and no message; telling the user is the
    // driver's business.
    void Parse(cow_String name);
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
    cow_List<cow_String> instanceNames;
    cow_String includeDirectory;
};

#endif
