#include "inp_Deck.h"

#include "inp_KeywordExpansionVisitor.h"
#include "inp_ModelParameterVisitor.h"
#include "inp_Organizer.h"
#include "inp_Parser.h"
#include "inp_PartInventoryVisitor.h"
#include "inp_Utils.h"
#include "omi_Timer.h"
#include "thr_ThreadSingleton.h"
#include "wip_WIP.h"

void inp_Deck::Parse(cow_String name) {
    fileName = name;
    inp_Parser parser(name, includeDirectory, cow_1DArrayList<cow_String>(), cow_String(), true);
    keywords = parser.Parse(true);

    // Fatal first: a driver that stops at the first error shows the one that matters.
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    if (!parser.FatalErrors().IsEmpty()) sink.ErrorList(parser.FatalErrors(), wip_Fatal);
    if (!parser.Errors().IsEmpty()) sink.ErrorList(parser.Errors(), wip_Error);
}

void inp_Deck::ExpandKeywords() {
    omi_Timer timer;
    timer.Start();
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

void inp_Deck::ReorganizeKeywords(bool /*fullConversion*/) {
    if (isAssemblyDeck) Reorganize();
}

void inp_Deck::CheckOutOfPlace() {
    omi_Timer timer;
    timer.Start();
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
    timer.Start();
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
