#include "inp_ContactCheck.h"

#include "atr_String.h"
#include "cow_Map.h"
#include "inp_Item.h"
#include "inp_Utils.h"
#include "thr_ThreadSingleton.h"
#include "wip_WIP.h"

namespace {

// Stands for "all contact pairs" in both running lists: a pair or a request without
// CPSET. Every suspect pair adds it too, so that one member test finds a request for
// all pairs as well as one for the pair's own set. It is never printed.
const char kAllPairs[] = "quiro_universal";

const char kUnsupported[] =
    "Contact field output is requested for a node-based surface (*SURFACE, TYPE=NODE) spanning multiple instances "
    "in an MERLIX/Explicit analysis. This is currently not supported. Please remove the contact field output for "
    "the contact pair in question, or split the node-based surface into separate surfaces each spanning just one "
    "instance. ";

bool IsFieldRequest(const inp_Keyword& keyword) {
    return keyword.keyword == inp_kwOutput && keyword.HasParameter("field");
}

bool ParameterIs(const inp_Keyword& keyword, const char* name, const char* value) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(name));
    return item && item->AsString() == value;
}

}  // namespace

inp_ContactCheck::inp_ContactCheck(const inpM_SurfaceMap& surfaces, const cow_1DArrayList<inp_Keyword>& keywords)
    : m_surfaces(surfaces), m_keywords(keywords) {}

void inp_ContactCheck::PerformCheck(bool assumeFieldOutput) {
    if (!HasExplicitStep()) return;
    CollectCrossInstanceSurfaces();
    if (crossInstanceSurfaces.IsEmpty()) return;
    if (assumeFieldOutput && !HasOutputKeyword(m_keywords)) contactFieldOutput.Append(cow_String(kAllPairs));
    for (int i = 0; i < m_keywords.Count(); ++i) {
        const inp_Keyword& keyword = m_keywords.ConstGet(i);
        if (keyword.keyword == inp_kwStep) CheckStep(keyword.suboptions);
    }
}

bool inp_ContactCheck::HasExplicitStep() const {
    for (int i = 0; i < m_keywords.Count(); ++i) {
        const inp_Keyword& keyword = m_keywords.ConstGet(i);
        if (keyword.keyword != inp_kwStep) continue;
        for (int j = 0; j < keyword.suboptions.Count(); ++j)
            if (IsExplicitProcedure(keyword.suboptions.ConstGet(j))) return true;
    }
    return false;
}

bool inp_ContactCheck::IsExplicitProcedure(const inp_Keyword& keyword) {
    return keyword.keyword == inp_kwDynamicTemperatureDisplacement ||
           (keyword.keyword == inp_kwDynamic && keyword.HasParameter("explicit"));
}

void inp_ContactCheck::CollectCrossInstanceSurfaces() {
    cow_ConstMapSortedIt<cow_String, inpM_AssemblyInstanceSurface> it(m_surfaces.assemblyInstanceSurfaces);
    for (it.First(); !it.IsDone(); it.Next())
        if (it.CurrentValue().IsCrossInstanceNodeBasedSurface()) crossInstanceSurfaces.Append(it.CurrentKey());
}

bool inp_ContactCheck::HasOutputKeyword(const cow_1DArrayList<inp_Keyword>& keywords) {
    for (int i = 0; i < keywords.Count(); ++i) {
        const inp_Keyword& keyword = keywords.ConstGet(i);
        if (keyword.keyword == inp_kwOutput || HasOutputKeyword(keyword.suboptions)) return true;
    }
    return false;
}

void inp_ContactCheck::CheckStep(const cow_1DArrayList<inp_Keyword>& suboptions) {
    // Only a step that opens with its explicit procedure is replayed; one that merely
    // holds one further down is passed over, its pairs and requests with it.
    if (suboptions.IsEmpty() || !IsExplicitProcedure(suboptions.ConstGet(0))) return;
    UpdatePairSets(suboptions);
    UpdateFieldOutput(suboptions);
    for (int i = 0; i < suspectPairSets.Count(); ++i) {
        if (contactFieldOutput.IsMember(suspectPairSets.ConstGet(i))) {
            thr_ThreadSingleton<wip_WIP>::Instance().Error(atr_raw(kUnsupported), wip_Fatal);
            return;
        }
    }
}

void inp_ContactCheck::UpdatePairSets(const cow_1DArrayList<inp_Keyword>& suboptions) {
    const cow_String all(kAllPairs);
    for (int i = 0; i < suboptions.Count(); ++i) {
        const inp_Keyword& keyword = suboptions.ConstGet(i);
        if (keyword.keyword != inp_kwContactPair) continue;
        const cow_1DArrayList<cow_String> names = UnscopedSurfaceNames(keyword.data);
        bool suspect = false;
        for (int j = 0; j < names.Count() && !suspect; ++j) suspect = crossInstanceSurfaces.IsMember(names.ConstGet(j));
        if (!suspect) continue;
        const cow_String pairSet = PairSetOf(keyword);
        if (OperationOf(keyword) == "DELETE") {
            suspectPairSets.RemoveMember(pairSet);
            suspectPairSets.RemoveMember(all);
        } else {
            suspectPairSets.AppendUnlessMember(pairSet);
            suspectPairSets.AppendUnlessMember(all);
        }
    }
}

void inp_ContactCheck::UpdateFieldOutput(const cow_1DArrayList<inp_Keyword>& suboptions) {
    // A new request ends what earlier steps asked for.
    for (int i = 0; i < suboptions.Count(); ++i) {
        const inp_Keyword& keyword = suboptions.ConstGet(i);
        if (IsFieldRequest(keyword) && OperationOf(keyword) == "NEW") {
            contactFieldOutput.ClearAll();
            break;
        }
    }
    for (int i = 0; i < suboptions.Count(); ++i) {
        const inp_Keyword& request = suboptions.ConstGet(i);
        if (!IsFieldRequest(request)) continue;
        if (ParameterIs(request, "variable", "ALL") || ParameterIs(request, "variable", "PRESELECT"))
            contactFieldOutput.AppendUnlessMember(cow_String(kAllPairs));
        for (int j = 0; j < request.suboptions.Count(); ++j) {
            const inp_Keyword& output = request.suboptions.ConstGet(j);
            if (output.keyword == inp_kwContactOutput) contactFieldOutput.AppendUnlessMember(PairSetOf(output));
        }
    }
    // A request for no output at all cancels every request, this step's too.
    for (int i = 0; i < suboptions.Count(); ++i) {
        const inp_Keyword& keyword = suboptions.ConstGet(i);
        if (!IsFieldRequest(keyword)) continue;
        const inp_Item* interval = keyword.parameters.Lookup(cow_String("numberinterval"));
        if (interval && interval->type == inp_Types::typeInt && interval->intValue == 0) {
            contactFieldOutput.ClearAll();
            break;
        }
    }
}

cow_String inp_ContactCheck::PairSetOf(const inp_Keyword& keyword) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String("cpset"));
    return item ? item->AsString() : cow_String(kAllPairs);
}

cow_String inp_ContactCheck::OperationOf(const inp_Keyword& keyword) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String("op"));
    return item ? item->AsString() : cow_String("NEW");
}

// The surfaces of a pair stand in the first two columns. A scoped name reaches into an
// instance's own surface, which spans one instance at most, and is not compared.
cow_1DArrayList<cow_String> inp_ContactCheck::UnscopedSurfaceNames(const inp_DataArray& data) {
    cow_1DArrayList<cow_String> names;
    if (!data.HasValue()) return names;
    for (int line = 0; line < data.NumberOfLines(); ++line) {
        for (int column = 0; column < 2 && column < data.NumberOfItems(line); ++column) {
            if (data.Type(line, column) != inp_Types::typeString) continue;
            const cow_String name = data.AsString(line, column);
            if (inp_Utils::SplitScopedSet(name).Count() == 1) names.Append(name);
        }
    }
    return names;
}
