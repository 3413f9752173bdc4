// The phases of a deck that concern the period in names: the check that defined names
// hold none, the rewrite of model-level references that carry the assembly's name, and
// the repair of a flat deck's names before it is turned into parts.

#include "inp_Deck.h"
#include "inp_RemovePeriodVisitors.h"
#include "inp_ScopedNameVisitors.h"
#include "inp_Utils.h"
#include "thr_ThreadSingleton.h"
#include "wip_WIP.h"

namespace {

// The parameters that define a name, by keyword.
struct NameDefinition {
    inp_KeywordEnm keyword;
    const char* parameters[2];
};

constexpr NameDefinition kNameDefinitions[] = {
    {inp_kwAssembly, {"name"}},       {inp_kwInstance, {"name"}},     {inp_kwPart, {"name"}},
    {inp_kwOrientation, {"name"}},    {inp_kwRebar, {"name"}},        {inp_kwRigidSurface, {"name"}},
    {inp_kwSurface, {"name"}},        {inp_kwElcopy, {"newset", "oldset"}},
    {inp_kwNcopy, {"newset", "oldset"}}, {inp_kwElement, {"elset"}}, {inp_kwElgen, {"elset"}},
    {inp_kwElset, {"elset"}},         {inp_kwNfill, {"nset"}},        {inp_kwNgen, {"nset"}},
    {inp_kwNmap, {"nset"}},           {inp_kwNode, {"nset"}},         {inp_kwNset, {"nset"}},
};

const NameDefinition* DefinitionOf(inp_KeywordEnm keyword) {
    for (const NameDefinition& row : kNameDefinitions)
        if (row.keyword == keyword) return &row;
    return nullptr;
}

bool Defines(const NameDefinition& row, const cow_String& parameter) {
    for (const char* name : row.parameters)
        if (name && parameter == name) return true;
    return false;
}

// One list and, below each keyword, its suboptions. An error ends the walk of the list
// it was found in; the enclosing list goes on.
void CheckNames(const cow_1DArrayList<inp_Keyword>& keywords, bool isAssemblyDeck) {
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    for (int i = 0; i < keywords.Count(); ++i) {
        const inp_Keyword& keyword = keywords.ConstGet(i);
        if (const NameDefinition* row = DefinitionOf(keyword.keyword)) {
            cow_ConstMapIterator<cow_String, inp_Item> it(keyword.parameters);
            for (it.First(); !it.IsDone(); it.Next()) {
                if (!Defines(*row, it.CurrentKey())) continue;
                if (!inp_Utils::HasScopeSeparator(it.CurrentValue().AsString())) continue;
                if (isAssemblyDeck) {
                    sink.Error(inp_Utils::MessageInKeyword(
                                   keyword, atr_raw("Period cannot be used within set, surface, orientation, "
                                                    "instance, and assembly names in a model defined in terms of "
                                                    "an assembly of parts")),
                               wip_Fatal);
                    return;
                }
                sink.Warning(inp_Utils::MessageInKeyword(
                    keyword, atr_raw("A period may not be used within a set, surface, orientation, or rebar name. "
                                     "To avoid further errors, remove the period from this name.")));
            }
        }
        CheckNames(keyword.suboptions, isAssemblyDeck);
    }
}

}  // namespace

void inp_Deck::ProhibitPeriodInNames(const cow_1DArrayList<inp_Keyword>& list) { CheckNames(list, isAssemblyDeck); }

void inp_Deck::ModifyScopedNames() {
    cow_String name;
    for (int i = 0; i < keywords.Count(); ++i) {
        const inp_Keyword& keyword = keywords.ConstGet(i);
        if (keyword.keyword != inp_kwAssembly) continue;
        if (const inp_Item* item = keyword.parameters.Lookup(cow_String("name"))) name = item->AsString();
        break;
    }
    ModifyScopedNames(name);
}

void inp_Deck::ModifyScopedNames(const cow_String& assemblyName) {
    inp_ScopedNameSetVisitor sets(inpM_SetMap(), inpM_SetMap(), inpM_IdMap(), inpM_IdMap(), assemblyName,
                                  modelParameters);
    sets.VisitListAndReport(keywords);
    inp_ScopedNameSurfaceVisitor surfaces(inpM_SurfaceMap(), assemblyName, hasInheritedPartMap);
    surfaces.VisitListAndReport(keywords);
    inp_ScopedNameOrientationVisitor orientations(assemblyName);
    orientations.VisitListAndReport(keywords);
    inp_ScopedNameRebarVisitor rebars(assemblyName);
    rebars.VisitListAndReport(keywords);
}

// The deck has been told already (ProhibitPeriodInNames): what the passes collect adds
// nothing for the user and is dropped.
void inp_Deck::RemovePeriodsInNames() {
    inp_RemovePeriodSetVisitor sets(modelParameters);
    sets.VisitList(keywords);
    inp_RemovePeriodSurfaceVisitor surfaces;
    surfaces.VisitList(keywords);
    inp_RemovePeriodOrientationVisitor orientations;
    orientations.VisitList(keywords);
    inp_RemovePeriodRebarVisitor rebars;
    rebars.VisitList(keywords);
}
