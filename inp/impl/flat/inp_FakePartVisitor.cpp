// The walk of the flat list: which level each keyword goes to, and the references to
// orientations and rebars that move into the scope of PART-1-1. Rigid surfaces and
// bodies are in inp_FakePartRigid.cpp, the assignment of elements to parts and the
// new list in inp_FakePartAssembly.cpp.
#include "inp_FakePartVisitor.h"

#include <initializer_list>

#include "inp_KeywordTable.h"
#include "inp_RigidBodyOrder.h"
#include "inp_Types.h"
#include "inp_Utils.h"

namespace {

// Bits of the level table.
const unsigned char kModelLevel = 1, kAssemblyLevel = 2, kPartLevel = 4;

bool Has(const inp_Keyword& keyword, const char* name) { return keyword.HasParameter(cow_String(name)); }

const inp_KeywordTable& Table() { return thr_ThreadSingleton<inp_KeywordTable>::Instance(); }

// Lists of candidate parents are made per call: a counted list kept in a static would
// share its counter between the threads that convert decks.
cow_1DArrayList<int> Values(std::initializer_list<int> values) {
    cow_1DArrayList<int> list;
    for (int value : values) list.Append(value);
    return list;
}

// The item with the scope of the one instance in front, when there is an item.
void PrefixItem(inp_DataArray& data, int line, int item) {
    if (item >= data.NumberOfItems(line) || data.IsBlank(line, item)) return;
    data.Set(line, item, cow_String(inp_FakePartVisitor::kScopePrefix) + data.AsString(line, item));
}

int LinesOf(const inp_Keyword& keyword) { return keyword.data.HasValue() ? keyword.data.NumberOfLines() : 0; }

}  // namespace

inp_FakePartVisitor::inp_FakePartVisitor(const inp_CoordMap& coordinates, const inpM_SetMap& flatNodeSets,
                                         const inpM_InstanceMap<omi_IntTable<inp_Element>>& elements,
                                         const inpM_SetMap& flatElementSets, bool symmetricModelGeneration)
    : modelLevel(Table().ModelLevelKeywords()),
      assemblyLevel(Table().AssemblyLevelKeywords()),
      partLevel(Table().PartLevelKeywords()),
      visited(kInitialCapacity),
      modelKeywords(kInitialCapacity),
      assemblyKeywords(kInitialCapacity),
      partKeywords(kInitialCapacity),
      connectionKeywords(kInitialCapacity),
      flatCoordinates(coordinates),
      flatElements(elements),
      elementSets(flatElementSets),
      nodeSets(flatNodeSets),
      hasSymmetricModelGeneration(symmetricModelGeneration) {
    // The closures repeat values and run to hundreds of entries; a keyword's level is
    // asked once per keyword of the deck, so it is looked up by value.
    const cow_1DArrayList<int>* lists[] = {&modelLevel, &assemblyLevel, &partLevel};
    const unsigned char bits[] = {kModelLevel, kAssemblyLevel, kPartLevel};
    for (int l = 0; l < 3; ++l) {
        for (int i = 0; i < lists[l]->Count(); ++i) {
            const int value = lists[l]->ConstGet(i);
            if (value < 0) continue;
            if (static_cast<size_t>(value) >= m_levels.size()) m_levels.resize(static_cast<size_t>(value) + 1, 0);
            m_levels[static_cast<size_t>(value)] |= bits[l];
        }
    }
}

inp_FakePartVisitor::~inp_FakePartVisitor() = default;

void inp_FakePartVisitor::VisitList(cow_1DArrayList<inp_Keyword>& keywords) {
    inp_RigidBodyOrder::PutSurfacesFirst(keywords);
    visited = cow_1DArrayList<int>(kInitialCapacity);
    for (int i = 0; i < keywords.Count(); ++i) {
        Visit(keywords.Get(i));
        visited.Append(keywords.ConstGet(i).keyword);
    }
}

void inp_FakePartVisitor::VisitSuboptions(inp_Keyword&) {}

void inp_FakePartVisitor::DefaultAction(inp_Keyword& keyword) { SortByLevel(keyword); }

void inp_FakePartVisitor::SortByLevel(inp_Keyword& keyword) {
    if (!stepName.IsEmpty()) {
        stepLists.Get(stepName).Append(keyword);
        return;
    }
    const int value = keyword.keyword;
    const unsigned char bits =
        value >= 0 && static_cast<size_t>(value) < m_levels.size() ? m_levels[static_cast<size_t>(value)] : 0;
    if (bits & kModelLevel)
        modelKeywords.Append(keyword);
    else if (bits & kAssemblyLevel)
        assemblyKeywords.Append(keyword);
    else if (bits & kPartLevel)
        partKeywords.Append(keyword);
    else
        errors.Append(atr_Format("Unknown keyword: %s", keyword.Name()));
}

void inp_FakePartVisitor::AppendToStepOr(cow_1DArrayList<inp_Keyword>& outside, const inp_Keyword& keyword) {
    if (stepName.IsEmpty())
        outside.Append(keyword);
    else
        stepLists.Get(stepName).Append(keyword);
}

void inp_FakePartVisitor::PlaceInStepOrAssembly(inp_Keyword& keyword) { AppendToStepOr(assemblyKeywords, keyword); }

void inp_FakePartVisitor::PlaceSuboption(const cow_1DArrayList<int>& candidates, inp_Keyword& keyword) {
    int parent = 0;
    for (int i = visited.Count() - 1; i >= 0 && parent == 0; --i)
        if (candidates.IsMember(visited.ConstGet(i))) parent = visited.ConstGet(i);
    if (parent != 0) {
        if (!stepName.IsEmpty() && LastOpenParent(stepLists.ConstGet(stepName), candidates) == parent) {
            stepLists.Get(stepName).Append(keyword);
            return;
        }
        cow_1DArrayList<inp_Keyword>* buckets[] = {&modelKeywords, &assemblyKeywords, &partKeywords};
        for (cow_1DArrayList<inp_Keyword>* bucket : buckets) {
            if (LastOpenParent(*bucket, candidates) == parent) {
                bucket->Append(keyword);
                return;
            }
        }
    }
    errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("Misplaced keyword.")));
}

int inp_FakePartVisitor::LastOpenParent(const cow_1DArrayList<inp_Keyword>& list,
                                        const cow_1DArrayList<int>& candidates) const {
    int parent = list.Count() - 1;
    while (parent >= 0 && !candidates.IsMember(list.ConstGet(parent).keyword)) --parent;
    if (parent < 0) return 0;
    // IsUnder walks every keyword up to the last, so the one call tells whether all of
    // them stand under the parent.
    if (parent + 1 < list.Count() && !IsUnder(list, parent, list.Count() - 1)) return 0;
    return list.ConstGet(parent).keyword;
}

bool inp_FakePartVisitor::IsUnder(const cow_1DArrayList<inp_Keyword>& list, int i, int j) const {
    const cow_1DArrayList<int>& suboptions = Table().Suboptions(list.ConstGet(i).keyword);
    if (j == i + 1) return suboptions.IsMember(list.ConstGet(j).keyword);
    int last = i;
    for (int k = i + 1; k <= j; ++k) {
        if (suboptions.IsMember(list.ConstGet(k).keyword))
            last = k;
        else if (!IsUnder(list, last, k))
            return false;
    }
    return true;
}

// ---- the keywords with a rule of their own ----------------------------------------

#define INP_FAKEPART_SUBOPTION_DEFINE(Ident, ...)                            \
    void inp_FakePartVisitor::Visit##Ident(inp_Keyword& keyword) {          \
        PlaceSuboption(Values({__VA_ARGS__}), keyword);                      \
    }
INP_FAKEPART_SUBOPTION(INP_FAKEPART_SUBOPTION_DEFINE)
#undef INP_FAKEPART_SUBOPTION_DEFINE

#define INP_FAKEPART_ORIENTATION_DEFINE(Ident, parameter, bucket) \
    void inp_FakePartVisitor::Visit##Ident(inp_Keyword& keyword) { \
        PrefixParameter(keyword, parameter, false);                \
        bucket.Append(keyword);                                    \
    }
INP_FAKEPART_ORIENTATION_PARAMETER(INP_FAKEPART_ORIENTATION_DEFINE)
#undef INP_FAKEPART_ORIENTATION_DEFINE

#define INP_FAKEPART_FIXED_LEVEL_DEFINE(Ident, bucket) \
    void inp_FakePartVisitor::Visit##Ident(inp_Keyword& keyword) { bucket.Append(keyword); }
INP_FAKEPART_FIXED_LEVEL(INP_FAKEPART_FIXED_LEVEL_DEFINE)
#undef INP_FAKEPART_FIXED_LEVEL_DEFINE

#define INP_FAKEPART_REBAR_DEFINE(Ident)                           \
    void inp_FakePartVisitor::Visit##Ident(inp_Keyword& keyword) { \
        PrefixParameter(keyword, "rebar", true);                   \
        AppendToStepOr(modelKeywords, keyword);                    \
    }
INP_FAKEPART_REBAR_PARAMETER(INP_FAKEPART_REBAR_DEFINE)
#undef INP_FAKEPART_REBAR_DEFINE

#define INP_FAKEPART_NODE_DEFINE(Ident) \
    void inp_FakePartVisitor::Visit##Ident(inp_Keyword& keyword) { VisitNset(keyword); }
INP_FAKEPART_NODE_DEFINITION(INP_FAKEPART_NODE_DEFINE)
#undef INP_FAKEPART_NODE_DEFINE

#define INP_FAKEPART_ELEMENT_DEFINE(Ident) \
    void inp_FakePartVisitor::Visit##Ident(inp_Keyword& keyword) { VisitElset(keyword); }
INP_FAKEPART_ELEMENT_DEFINITION(INP_FAKEPART_ELEMENT_DEFINE)
#undef INP_FAKEPART_ELEMENT_DEFINE

void inp_FakePartVisitor::PrefixParameter(inp_Keyword& keyword, const char* parameter, bool stringOnly) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(parameter));
    if (!item) return;
    const bool named = stringOnly ? item->type == inp_Types::typeString
                                  : item->type != inp_Types::typeBool && item->type != inp_Types::typeNone;
    if (!named) return;
    keyword.parameters.Insert(cow_String(parameter), inp_Item(cow_String(kScopePrefix) + item->AsString()));
}

// A generated *NSET, ELSET= of a symmetric model generation is read at the assembly
// level again; every other node or set definition is in the maps already.
void inp_FakePartVisitor::VisitNset(inp_Keyword& keyword) {
    if (hasSymmetricModelGeneration && keyword.keyword == inp_kwNset && Has(keyword, "elset"))
        assemblyKeywords.Append(keyword);
}

void inp_FakePartVisitor::VisitElset(inp_Keyword&) {}

void inp_FakePartVisitor::VisitStep(inp_Keyword& keyword) {
    const inp_Item* name = keyword.parameters.Lookup(cow_String("name"));
    stepName = name ? name->AsString() : cow_String();
    // A name given twice goes on in the list of the first, so that no keyword is lost.
    if (stepLists.IsMember(stepName)) {
        stepLists.Get(stepName).Append(keyword);
        return;
    }
    stepOrder.Append(stepName);
    cow_1DArrayList<inp_Keyword> list;
    list.Append(keyword);
    stepLists.Insert(stepName, list);
}

void inp_FakePartVisitor::VisitEndStep(inp_Keyword& keyword) {
    if (stepName.IsEmpty()) return;
    stepLists.Get(stepName).Append(keyword);
    stepName = cow_String();
}

void inp_FakePartVisitor::VisitBoundary(inp_Keyword& keyword) { AppendToStepOr(modelKeywords, keyword); }

void inp_FakePartVisitor::VisitSpring(inp_Keyword& keyword) {
    if (connectionsFollowParent) {
        const cow_1DArrayList<int> parents = Values({inp_kwIts, inp_kwJoint});
        int parent = 0;
        for (int i = visited.Count() - 1; i >= 0 && parent == 0; --i)
            if (parents.IsMember(visited.ConstGet(i))) parent = visited.ConstGet(i);
        if (parent != 0 && LastOpenParent(partKeywords, parents) == parent) {
            partKeywords.Append(keyword);
            return;
        }
    }
    connectionKeywords.Append(keyword);
}

void inp_FakePartVisitor::VisitDashpot(inp_Keyword& keyword) { VisitSpring(keyword); }

void inp_FakePartVisitor::VisitIts(inp_Keyword& keyword) {
    connectionsFollowParent = true;
    partKeywords.Append(keyword);
}

void inp_FakePartVisitor::VisitJoint(inp_Keyword& keyword) { VisitIts(keyword); }

void inp_FakePartVisitor::VisitSurface(inp_Keyword& keyword) {
    const inp_Item* type = keyword.parameters.Lookup(cow_String("type"));
    if (!type) return PlaceInStepOrAssembly(keyword);
    const cow_String value = type->AsString();
    if (value == "NODE")
        assemblyKeywords.Append(keyword);
    else if (inp_Utils::IsAnalyticalSurfaceType(value))
        VisitRigidSurface(keyword);
    else
        PlaceInStepOrAssembly(keyword);
}

// ---- references that move into the scope of the instance --------------------------

void inp_FakePartVisitor::VisitInitialConditions(inp_Keyword& keyword) {
    if (Has(keyword, "rebar")) {
        const inp_Item* typeItem = keyword.parameters.Lookup(cow_String("type"));
        const cow_String type = typeItem ? typeItem->AsString() : cow_String();
        const bool named = type == "HARDENING" || type == "STRESS";
        const bool solution = type == "SOLUTION";
        for (int line = 0; (named || solution) && line < LinesOf(keyword); ++line) {
            if (keyword.data.NumberOfItems(line) < 2) continue;
            if (solution && !inp_Types::MatchString(keyword.data.AsString(line, 1))) continue;
            PrefixItem(keyword.data, line, 1);
        }
    }
    modelKeywords.Append(keyword);
}

void inp_FakePartVisitor::VisitConnectorSection(inp_Keyword& keyword) {
    if (LinesOf(keyword) > 1) {
        PrefixItem(keyword.data, 1, 0);
        PrefixItem(keyword.data, 1, 1);
    }
    assemblyKeywords.Append(keyword);
}

// Outside a step a prestress hold has nothing to hold.
void inp_FakePartVisitor::VisitPrestressHold(inp_Keyword& keyword) {
    for (int line = 0; line < LinesOf(keyword); ++line)
        for (int item = 1; item < keyword.data.NumberOfItems(line); item += 2) PrefixItem(keyword.data, line, item);
    if (!stepName.IsEmpty()) stepLists.Get(stepName).Append(keyword);
}
