#include "inp_FakePartSetAssignVisitor.h"

#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <string>
#include <vector>

#include "atr_Number.h"

#include "inpM_Utils.h"
#include "inp_Types.h"
#include "inp_Utils.h"

namespace {

const char kDefaultPart[] = "PART-1";
// Members beyond this count or this text length go on the next data line.
const int kMembersPerLine = 16;
const int kLineLimit = 256;

bool IsElementKind(int kind) { return kind == inp_ElementSet; }

// An id text as an int; one out of range can't name anything, and saturates.
int IdValue(const cow_String& text) {
    const long long value = std::strtoll(text.c_str(), nullptr, 10);
    if (value > 0x7fffffff) return 0x7fffffff;
    if (value < -0x7fffffff - 1) return -0x7fffffff - 1;
    return static_cast<int>(value);
}

cow_1DArrayList<int> OneId(int id) {
    cow_1DArrayList<int> ids;
    ids.Append(id);
    return ids;
}

cow_String ParameterText(const inp_Keyword& keyword, const char* name) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(name));
    return item ? item->AsString() : cow_String();
}

int IndexOfPart(const cow_1DArrayList<inp_Keyword>& keywords, const cow_String& part) {
    for (int i = 0; i < keywords.Count(); ++i) {
        const inp_Keyword& keyword = keywords.ConstGet(i);
        if (keyword.keyword == inp_kwPart && keyword.HasParameter(cow_String("name")) &&
            ParameterText(keyword, "name") == part)
            return i;
    }
    return -1;
}

int IndexOf(const cow_1DArrayList<inp_Keyword>& keywords, inp_KeywordEnm value) {
    for (int i = 0; i < keywords.Count(); ++i)
        if (keywords.ConstGet(i).keyword == value) return i;
    return -1;
}

// One cut and one join, however many keywords go in: the list may be long.
void InsertKeywords(cow_1DArrayList<inp_Keyword>& keywords, int index, const cow_1DArrayList<inp_Keyword>& added) {
    if (added.IsEmpty()) return;
    cow_1DArrayList<inp_Keyword> joined(keywords.Count() + added.Count());
    joined.Append(keywords.Slice(0, index));
    joined.Append(added);
    joined.Append(keywords.Slice(index, keywords.Count()));
    keywords = joined;
}

// The kind of reference stays set while the base runs one operation, also when a
// reference escapes it as an exception.
class PassScope {
public:
    PassScope(std::int32_t& pass, inp_SetType kind) : m_pass(pass) { m_pass = kind; }
    ~PassScope() { m_pass = inp_AnySet; }
    PassScope(const PassScope&) = delete;
    PassScope& operator=(const PassScope&) = delete;

private:
    std::int32_t& m_pass;
};

}  // namespace

inp_FakePartSetAssignVisitor::inp_FakePartSetAssignVisitor(
    const inpM_SetMap& flatNodeSets, const inpM_SetMap& flatElementSets, const inp_CoordMap& partCoordinates,
    const inpM_InstanceMap<omi_IntTable<inp_Element>>& partElements, const inp_ModelParameters& parameters)
    : inp_SetFixupVisitor(flatNodeSets, flatElementSets, inpM_IdMap(), inpM_IdMap(), parameters),
      partElements(partElements),
      partCoordinates(partCoordinates) {}

inp_FakePartSetAssignVisitor::~inp_FakePartSetAssignVisitor() = default;

const inpM_SetMap& inp_FakePartSetAssignVisitor::FlatSets(int kind) const {
    return IsElementKind(kind) ? elementSets : nodeSets;
}

cow_Map<cow_String, cow_List<cow_String>>& inp_FakePartSetAssignVisitor::SetsOfParts(int kind) {
    return IsElementKind(kind) ? elementSetsOfParts : nodeSetsOfParts;
}

void inp_FakePartSetAssignVisitor::Note(int kind, const cow_String& part, const cow_String& name) {
    cow_Map<cow_String, cow_List<cow_String>>& noted = SetsOfParts(kind);
    if (!noted.IsMember(part)) noted.Insert(part, cow_List<cow_String>());
    noted.Get(part).AppendUnlessMember(name);
}

// --- the walk -----------------------------------------------------------------------

void inp_FakePartSetAssignVisitor::ReplaceNodeOrNsetData(inp_Keyword& keyword, const cow_List<int>& columns,
                                                         int stride) {
    PassScope scope(pass, inp_NodeSet);
    inp_SetFixupVisitor::ReplaceNodeOrNsetData(keyword, columns, stride);
}

void inp_FakePartSetAssignVisitor::ReplaceNodeOrNsetAllData(inp_Keyword& keyword) {
    PassScope scope(pass, inp_NodeSet);
    inp_SetFixupVisitor::ReplaceNodeOrNsetAllData(keyword);
}

void inp_FakePartSetAssignVisitor::ReplaceElementOrElsetData(inp_Keyword& keyword, const cow_List<int>& columns,
                                                             int stride) {
    PassScope scope(pass, inp_ElementSet);
    inp_SetFixupVisitor::ReplaceElementOrElsetData(keyword, columns, stride);
}

void inp_FakePartSetAssignVisitor::ReplaceElementOrElsetAllData(inp_Keyword& keyword) {
    PassScope scope(pass, inp_ElementSet);
    inp_SetFixupVisitor::ReplaceElementOrElsetAllData(keyword);
}

void inp_FakePartSetAssignVisitor::ReplaceNodeOrNsetParameter(inp_Keyword& keyword, const cow_String& parameter) {
    PassScope scope(pass, inp_NodeSet);
    inp_SetFixupVisitor::ReplaceNodeOrNsetParameter(keyword, parameter);
}

void inp_FakePartSetAssignVisitor::ReplaceElementOrElsetParameter(inp_Keyword& keyword,
                                                                  const cow_String& parameter) {
    PassScope scope(pass, inp_ElementSet);
    inp_SetFixupVisitor::ReplaceElementOrElsetParameter(keyword, parameter);
}

cow_String inp_FakePartSetAssignVisitor::ReplaceNodeOrNset(const inp_Keyword& keyword, const cow_String& reference) {
    PassScope scope(pass, inp_NodeSet);
    return inp_SetFixupVisitor::ReplaceNodeOrNset(keyword, reference);
}

cow_String inp_FakePartSetAssignVisitor::ReplaceElementOrElset(const inp_Keyword& keyword,
                                                               const cow_String& reference) {
    PassScope scope(pass, inp_ElementSet);
    return inp_SetFixupVisitor::ReplaceElementOrElset(keyword, reference);
}

// A set is assigned to the part that uses it when exactly one part holds its members:
// the part then gets its own copy of the set. Anything else used inside a part is
// something the part can't see once the model is an assembly, and is reported.
cow_String inp_FakePartSetAssignVisitor::ReplaceReference(inp_Keyword&, const cow_String& reference,
                                                          const inpM_SetMap&, const inpM_IdMap&, const cow_String&,
                                                          const cow_String&, const cow_String& part, inp_SetType) {
    if (part.IsEmpty()) return reference;
    const bool isName = inp_Types::MatchString(reference);
    const bool isId = !isName && inp_Types::MatchInteger(reference);
    // A blank position of a listed column names nothing.
    if (!isName && !isId && cow_String(reference).Trim().IsEmpty()) return reference;

    cow_List<cow_String> holders;
    if (isName)
        holders = PartsOfSet(pass, reference);
    else if (isId)
        holders = PartsOfIds(pass, OneId(IdValue(reference)));

    // A model generated by symmetry has members that exist only after the generation,
    // so holders prove nothing there.
    const bool symmetric = modelParameters.hasSymmetricModelGeneration;
    if (symmetric && !isName) return reference;
    if (isName && (holders.Count() == 1 || symmetric)) {
        Note(pass, part, reference);
        return reference;
    }
    if (holders.Count() == 1 && holders.ConstGet(0) == part) return reference;
    ReportMisplaced(reference, part, isId, holders);
    return reference;
}

void inp_FakePartSetAssignVisitor::ReportMisplaced(const cow_String& reference, const cow_String& part, bool isId,
                                                   const cow_List<cow_String>& holders) {
    const bool element = IsElementKind(pass);
    const char* format =
        isId ? (element ? "The element: \"%1$s\" is referenced in part: \"%2$s\" and should be assigned to this part."
                        : "The node: \"%1$s\" is referenced in part: \"%2$s\" and should be assigned to this part. ")
             : (element ? "The elset: \"%1$s\" is referenced in part: \"%2$s\" and should be assigned to this part. "
                        : "The nset: \"%1$s\" is referenced in part: \"%2$s\" and should be assigned to this part. ");
    atr_String message = atr_Format(format, reference, part);
    if (holders.IsEmpty()) {
        message.append("The set appears to be undefined.");
        (undefinedSetIsWarning ? warnings : errors).Append(message);
        return;
    }
    message.append("It is assigned to the following parts:");
    for (int i = 0; i < holders.Count(); ++i) {
        message.append(" \"").append(holders.ConstGet(i)).append(i + 1 < holders.Count() ? "\"," : "\".");
    }
    errors.Append(message);
}

cow_List<cow_String> inp_FakePartSetAssignVisitor::PartsOfSet(int kind, const cow_String& name) const {
    const inpM_SetHandle* set = FlatSets(kind).ConstGetNestedSetMap(cow_String(inp_Types::fakeName())).Lookup(name);
    if (!set) return cow_List<cow_String>();
    return PartsOfIds(kind, (*set)->ConstGetIds());
}

cow_List<cow_String> inp_FakePartSetAssignVisitor::PartsOfIds(int kind, const cow_1DArrayList<int>& ids) const {
    cow_List<cow_String> parts;
    const cow_List<cow_String> names = HolderNames(kind);
    for (int p = 0; p < names.Count(); ++p) {
        for (int i = 0; i < ids.Count(); ++i) {
            if (Holds(kind, names.ConstGet(p), ids.ConstGet(i))) {
                parts.Append(names.ConstGet(p));
                break;
            }
        }
    }
    return parts;
}

cow_List<cow_String> inp_FakePartSetAssignVisitor::HolderNames(int kind) const {
    if (!IsElementKind(kind)) return partCoordinates.InstanceNames();
    cow_List<cow_String> names;
    const cow_List<cow_String> all = partElements.Instances();
    for (int i = 0; i < all.Count(); ++i)
        if (!all.ConstGet(i).IsEmpty()) names.Append(all.ConstGet(i));
    return names;
}

bool inp_FakePartSetAssignVisitor::Holds(int kind, const cow_String& part, int id) const {
    if (IsElementKind(kind)) return partElements.ConstGet(part).HasKey(id);
    const inp_CoordMap::Handle* coordinates = partCoordinates.instances.Lookup(part);
    return coordinates && coordinates->HasValue() && coordinates->ConstGet().HasId(id);
}

#define INP_FAKEASSIGN_DEFINE(Ident)                                     \
    void inp_FakePartSetAssignVisitor::Visit##Ident(inp_Keyword& keyword) { \
        undefinedSetIsWarning = true;                                    \
        inp_SetFixupVisitor::Visit##Ident(keyword);                      \
        undefinedSetIsWarning = false;                                   \
    }
INP_FAKEASSIGN_SECTIONS(INP_FAKEASSIGN_DEFINE)
#undef INP_FAKEASSIGN_DEFINE

// The reference node of a rigid surface belongs to the surface's own part. One that
// another part holds is left alone here, so that it is not reported as misplaced, and
// its set goes to the part that holds it.
void inp_FakePartSetAssignVisitor::VisitRigidSurface(inp_Keyword& keyword) {
    const inp_Item* refnode = keyword.parameters.Lookup(cow_String("refnode"));
    if (partName.IsEmpty() || !refnode || refnode->type == inp_Types::typeBool ||
        refnode->type == inp_Types::typeNone)
        return inp_SetFixupVisitor::VisitRigidSurface(keyword);

    const cow_String reference = refnode->AsString();
    const bool isName = inp_Types::MatchString(reference);
    cow_List<cow_String> holders;
    if (isName)
        holders = PartsOfSet(inp_NodeSet, reference);
    else if (inp_Types::MatchInteger(reference))
        holders = PartsOfIds(inp_NodeSet, OneId(IdValue(reference)));

    if (holders.Count() == 1 && holders.ConstGet(0) == partName) return inp_SetFixupVisitor::VisitRigidSurface(keyword);
    if (holders.IsEmpty()) {
        errors.Append(inp_Utils::MessageInKeyword(
            keyword, atr_Format("The reference node or node set, \"%s\", specified by the parameter REF NODE is not "
                                "assigned to any part.",
                                reference)));
        return;
    }
    ReplaceElementOrElsetParameter(keyword, cow_String("elset"));
    if (isName && holders.Count() == 1) Note(inp_NodeSet, holders.ConstGet(0), reference);
}

// --- the result ---------------------------------------------------------------------

void inp_FakePartSetAssignVisitor::FinishAssignment(cow_1DArrayList<inp_Keyword>& keywords) {
    for (inp_SetType kind : {inp_NodeSet, inp_ElementSet}) {
        const cow_Map<cow_String, cow_List<cow_String>> noted = SetsOfParts(kind);
        const cow_List<cow_String> parts = inpM_Utils::SortedKeys(noted);
        for (int p = 0; p < parts.Count(); ++p) {
            const cow_List<cow_String>& names = noted.ConstGet(parts.ConstGet(p));
            InsertPartSets(kind, keywords, parts.ConstGet(p), names);
            for (int i = 0; i < names.Count(); ++i) CopySetToPart(kind, parts.ConstGet(p), names.ConstGet(i));
        }
    }
    if (modelParameters.hasSymmetricModelGeneration) MoveNsetsWithElset(keywords);
    InsertAssemblySets(inp_NodeSet, keywords);
    InsertAssemblySets(inp_ElementSet, keywords);
}

void inp_FakePartSetAssignVisitor::CopySetToPart(inp_SetType kind, const cow_String& part, const cow_String& name) {
    inpM_SetMap& result = IsElementKind(kind) ? partElementSets : partNodeSets;
    if (result.HasNestedSet(part, name)) return;
    const cow_String fake(inp_Types::fakeName());
    const inpM_SetMap& flat = FlatSets(kind);
    if (flat.HasNestedSet(fake, name)) result.InsertNestedSet(part, name, flat.ConstGetNestedSet(fake, name));
}

void inp_FakePartSetAssignVisitor::InsertPartSets(inp_SetType kind, cow_1DArrayList<inp_Keyword>& keywords,
                                                  const cow_String& part, const cow_List<cow_String>& names) {
    // Only parts that stand in the list are ever noted; there is nowhere else to write.
    const int index = IndexOfPart(keywords, part);
    if (index < 0) return;
    const inpM_BaseSetMap& flat = FlatSets(kind).ConstGetNestedSetMap(cow_String(inp_Types::fakeName()));
    cow_1DArrayList<inp_Keyword> added;
    for (int i = 0; i < names.Count(); ++i) {
        const inpM_SetHandle* set = flat.Lookup(names.ConstGet(i));
        if (!set) continue;
        const cow_1DArrayList<int> members = (*set)->ConstGetIds();
        if (members.IsEmpty()) continue;
        const bool unsorted = !IsElementKind(kind) && (*set)->IsUnsorted();
        added.Append(MakeSetKeyword(kind, "part", names.ConstGet(i), members, unsorted));
    }
    InsertKeywords(keywords, index + 1, added);
}

void inp_FakePartSetAssignVisitor::InsertAssemblySets(inp_SetType kind, cow_1DArrayList<inp_Keyword>& keywords) {
    const int index = IndexOf(keywords, inp_kwEndAssembly);
    if (index < 0) return;
    cow_Map<cow_String, bool> taken;
    cow_ConstMapIterator<cow_String, cow_List<cow_String>> it(SetsOfParts(kind));
    for (it.First(); !it.IsDone(); it.Next())
        for (int i = 0; i < it.CurrentValue().Count(); ++i) taken.Insert(it.CurrentValue().ConstGet(i), true);

    const inpM_BaseSetMap& flat = FlatSets(kind).ConstGetNestedSetMap(cow_String(inp_Types::fakeName()));
    cow_1DArrayList<inp_Keyword> added;
    cow_ConstMapSortedIt<cow_String, inpM_SetHandle> sets(flat);
    for (sets.First(); !sets.IsDone(); sets.Next()) {
        if (taken.IsMember(sets.CurrentKey())) continue;
        const inpM_BaseSet& set = sets.CurrentValue().ConstGet();
        const cow_1DArrayList<int> members = set.ConstGetIds();
        if (members.IsEmpty()) continue;
        const bool unsorted = !IsElementKind(kind) && set.IsUnsorted();
        added.Append(MakeSetKeyword(kind, "assembly", sets.CurrentKey(), members, unsorted));
    }
    InsertKeywords(keywords, index, added);
}

inp_Keyword inp_FakePartSetAssignVisitor::MakeSetKeyword(inp_SetType kind, const char* level, const cow_String& name,
                                                         const cow_1DArrayList<int>& members, bool unsorted) const {
    const bool element = IsElementKind(kind);
    inp_Keyword keyword(element ? inp_kwElset : inp_kwNset);
    keyword.parameters.Insert(cow_String(element ? "elset" : "nset"), inp_Item(name));
    if (unsorted && !element) keyword.parameters.Insert(cow_String("unsorted"), inp_Item());

    const bool scoped = std::strcmp(level, "assembly") == 0;
    const cow_List<cow_String> parts = scoped ? HolderNames(kind) : cow_List<cow_String>();
    const inpM_IdMap& inherited = element ? inheritedElementIds : inheritedNodeIds;
    const cow_List<cow_String> instances = scoped ? inherited.Instances() : cow_List<cow_String>();
    // The scope written in front of a member, by HolderIndex.
    std::vector<std::string> prefixes;
    for (int p = 0; p < parts.Count(); ++p) prefixes.push_back(std::string(parts.ConstGet(p).c_str()) + "-1.");
    for (int i = 0; i < instances.Count(); ++i) prefixes.push_back(std::string(instances.ConstGet(i).c_str()) + ".");

    std::string line;
    int onLine = 0;
    auto flush = [&]() {
        line.pop_back();  // the last comma
        keyword.data.Append(line.c_str(), static_cast<int>(line.size()));
        line.clear();
        onLine = 0;
    };
    char number[atr_kNumberChars];
    for (int i = 0; i < members.Count(); ++i) {
        const int id = members.ConstGet(i);
        const int holder = scoped ? HolderIndex(kind, id, parts, instances) : -1;
        const std::string* prefix = holder >= 0 ? &prefixes[static_cast<size_t>(holder)] : nullptr;
        const int digits = atr_WriteInt(id, number);
        const int length = (prefix ? static_cast<int>(prefix->size()) : 0) + digits + 1;
        // A member that fits on no line still gets one of its own.
        if (onLine == kMembersPerLine || (onLine > 0 && static_cast<int>(line.size()) + length - 1 >= kLineLimit))
            flush();
        if (prefix) line += *prefix;
        line.append(number, static_cast<size_t>(digits));
        line += ',';
        ++onLine;
    }
    if (onLine > 0) flush();
    return keyword;
}

cow_String inp_FakePartSetAssignVisitor::InstanceOfId(inp_SetType kind, int id) const {
    const inpM_IdMap& inherited = IsElementKind(kind) ? inheritedElementIds : inheritedNodeIds;
    const cow_List<cow_String> parts = HolderNames(kind);
    const cow_List<cow_String> instances = inherited.Instances();
    const int holder = HolderIndex(kind, id, parts, instances);
    if (holder < 0) return cow_String();
    if (holder < parts.Count()) return parts.ConstGet(holder) + "-1";
    return instances.ConstGet(holder - parts.Count());
}

int inp_FakePartSetAssignVisitor::HolderIndex(int kind, int id, const cow_List<cow_String>& parts,
                                              const cow_List<cow_String>& inheritedInstances) const {
    for (int p = 0; p < parts.Count(); ++p)
        if (Holds(kind, parts.ConstGet(p), id)) return p;
    const inpM_IdMap& inherited = IsElementKind(kind) ? inheritedElementIds : inheritedNodeIds;
    for (int i = 0; i < inheritedInstances.Count(); ++i)
        if (inherited.ConstGet(inheritedInstances.ConstGet(i)).HasId(id)) return parts.Count() + i;
    return -1;
}

void inp_FakePartSetAssignVisitor::MoveNsetsWithElset(cow_1DArrayList<inp_Keyword>& keywords) {
    const cow_List<cow_String> parts = inpM_Utils::SortedKeys(nodeSetsOfParts);
    cow_Map<cow_String, cow_1DArrayList<inp_Keyword>> moved;
    cow_1DArrayList<inp_Keyword> kept(keywords.Count());
    for (int i = 0; i < keywords.Count(); ++i) {
        const inp_Keyword& keyword = keywords.ConstGet(i);
        int owner = -1;
        if (keyword.keyword == inp_kwNset && keyword.HasParameter(cow_String("elset"))) {
            const cow_String name = ParameterText(keyword, "nset");
            for (int p = 0; p < parts.Count() && owner < 0; ++p)
                if (nodeSetsOfParts.ConstGet(parts.ConstGet(p)).IsMember(name)) owner = p;
        }
        if (owner < 0) {
            kept.Append(keyword);
            continue;
        }
        if (!moved.IsMember(parts.ConstGet(owner))) moved.Insert(parts.ConstGet(owner), cow_1DArrayList<inp_Keyword>());
        moved.Get(parts.ConstGet(owner)).Append(keyword);
    }
    if (moved.IsEmpty()) return;
    keywords = kept;
    const cow_List<cow_String> owners = inpM_Utils::SortedKeys(moved);
    for (int p = 0; p < owners.Count(); ++p) {
        const int index = IndexOfPart(keywords, owners.ConstGet(p));
        if (index < 0) continue;
        // Each goes in right behind the *PART, so they end up in reverse order.
        const cow_1DArrayList<inp_Keyword>& list = moved.ConstGet(owners.ConstGet(p));
        cow_1DArrayList<inp_Keyword> reversed(list.Count());
        for (int i = list.Count() - 1; i >= 0; --i) reversed.Append(list.ConstGet(i));
        InsertKeywords(keywords, index + 1, reversed);
    }
}

// --- the simple route -----------------------------------------------------------------

inp_SimpleFakeAssignVisitor::~inp_SimpleFakeAssignVisitor() = default;

void inp_SimpleFakeAssignVisitor::VisitList(cow_1DArrayList<inp_Keyword>&) {}

// Everything is in PART-1, so every set is one of its sets; noting them lets the
// *NSET, ELSET keywords of a symmetric model follow into the part.
void inp_SimpleFakeAssignVisitor::FinishAssignment(cow_1DArrayList<inp_Keyword>& keywords) {
    const cow_String fake(inp_Types::fakeName());
    const cow_String part(kDefaultPart);
    partNodeSets = nodeSets;
    partNodeSets.ChangeInstanceName(fake, part);
    partElementSets = elementSets;
    partElementSets.ChangeInstanceName(fake, part);
    for (inp_SetType kind : {inp_NodeSet, inp_ElementSet}) {
        const cow_List<cow_String> names = inpM_Utils::SortedKeys(FlatSets(kind).ConstGetNestedSetMap(fake));
        SetsOfParts(kind).Insert(part, names);
        InsertPartSets(kind, keywords, part, names);
    }
    if (modelParameters.hasSymmetricModelGeneration) MoveNsetsWithElset(keywords);
}
