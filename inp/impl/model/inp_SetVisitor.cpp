#include "inp_SetVisitor.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>

#include "atr_String.h"
#include "nex_Exception.h"
#include "pnt_PrettyPrint.h"
#include "typ_DebugFlags.h"
#include "inp_Utils.h"

namespace {

// A set name starts with a letter, a double quote or an underscore.
bool IsValidSetName(const cow_String& name) {
    const char c = name.c_str()[0];
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '"' || c == '_';
}

void DebugAdd(const char* what, const cow_String& name, const char* where, const cow_String& scope) {
    if (typ_DebugFlags::GetDebugFlags(30) < 2) return;
    pnt_PrettyPrint& debug = pnt_debugPrint();
    debug.StartDebug(__FILE__, __LINE__);
    debug << what << name.c_str() << where << scope.c_str() << endl;
    debug.EndDebug();
}

// The set turned into a sorted one of the same kind.
inpM_SetHandle MakeSorted(const inpM_BaseSet& set) {
    inpM_SortedSet* sorted = new inpM_SortedSet(set.typeFlag);
    std::unique_ptr<inpM_SortedSet> owner(sorted);
    sorted->Add(set);
    return CreateSet(*owner);
}

// Where a merged form starts: a copy of the existing set, made sorted unless the caller
// asked for deck order; a new empty set for a new name.
inpM_SetHandle StartFrom(const inpM_BaseSet* existing, bool internal, bool unsorted) {
    if (!existing) return CreateSet(internal, unsorted);
    if (existing->IsUnsorted() && !unsorted) return MakeSorted(*existing);
    return CreateSet(*existing);
}

// Ids of scoped items, gathered by instance and given to the set once per instance.
// Decks name few instances in one keyword, mostly one after the other.
class ScopedIds {
public:
    void Append(const cow_String& instance, int id) {
        if (m_lists.empty() || !(m_lists.back().first == instance)) {
            size_t i = 0;
            while (i < m_lists.size() && !(m_lists[i].first == instance)) ++i;
            if (i == m_lists.size()) {
                m_lists.emplace_back(instance, cow_1DArrayList<int>());
            } else if (i + 1 != m_lists.size()) {
                std::swap(m_lists[i], m_lists.back());
            }
        }
        m_lists.back().second.Append(id);
    }
    void AddTo(inpM_BaseSet& set) {
        for (auto& entry : m_lists) set.Add(entry.first, entry.second);
        m_lists.clear();
    }

private:
    std::vector<std::pair<cow_String, cow_1DArrayList<int>>> m_lists;
};

// An item of a set list that is already in its normal form (no blanks, no lower case,
// no quotes) and is an id of at most nine digits, or such an id behind one scope name and
// a period. Anything else is `kOther`, for the general reading.
struct PlainItem {
    enum Kind { kOther, kId, kScopedId };
    Kind kind = kOther;
    const char* text;
    int scopeLength = 0;
    int id = 0;

    explicit PlainItem(const char* item) : text(item) {
        const char* period = nullptr;
        const char* p = item;
        for (; *p; ++p) {
            const char c = *p;
            if (c == '.') {
                if (period) return;
                period = p;
            } else if (!((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-')) {
                return;
            }
        }
        const char* digits = period ? period + 1 : item;
        const long length = p - digits;
        if (length < 1 || length > 9) return;
        int value = 0;
        for (const char* d = digits; d < p; ++d) {
            if (*d < '0' || *d > '9') return;
            value = value * 10 + (*d - '0');
        }
        if (period) {
            // The scope must be a name: `1.5` is a number, and `_X.5` or `-X.5` are left to
            // the general reading.
            if (period == item || !(item[0] >= 'A' && item[0] <= 'Z')) return;
            scopeLength = static_cast<int>(period - item);
        }
        id = value;
        kind = period ? kScopedId : kId;
    }
};

// Lists of a keyword's lines hold at most 16 items; the cap keeps a huge array sane.
int ExpectedIds(const inp_DataArray& data) {
    const int lines = data.NumberOfLines();
    return lines < (1 << 22) ? lines * 16 : (1 << 26);
}

// The first of NSET and ELSET in the parameter map's order: the name of the set a
// generation message is about.
cow_String SetParameter(const inp_Keyword& keyword) {
    cow_ConstMapIterator<cow_String, inp_Item> it(keyword.parameters);
    for (it.First(); !it.IsDone(); it.Next())
        if (it.CurrentKey() == "nset" || it.CurrentKey() == "elset") return it.CurrentValue().AsString();
    return cow_String();
}

}  // namespace

inp_SetVisitor::inp_SetVisitor(const inpM_SetMap& sets, const cow_String& name) : setMap(sets) {
    instanceName = name;
}

inp_SetVisitor::~inp_SetVisitor() = default;

bool inp_SetVisitor::IsValidScope(const cow_String&) const { return true; }

void inp_SetVisitor::DefaultAction(inp_Keyword&) {}

cow_String inp_SetVisitor::SetKeywordName() const {
    const cow_String owner = KeywordName();
    // A restart pass names the set keyword itself.
    return cow_String(owner == "*NODE" || owner == "*NSET" ? "*NSET" : "*ELSET");
}

void inp_SetVisitor::RequireScope() const {
    if (CurrentScope().IsEmpty())
        nex_AssertException("currentName.Length() > 0").Throw("inp_SetVisitor", __LINE__);
}

void inp_SetVisitor::RequireAssemblyLevel() const {
    if (!CurrentScope().IsEmpty())
        nex_AssertException("currentName.Length() == 0").Throw("inp_SetVisitor", __LINE__);
}

void inp_SetVisitor::AddSet(const cow_String& name, const inpM_BaseSet& set, bool replace) {
    AddSet(name, set, replace, setMap);
}

void inp_SetVisitor::AddSet(const cow_String& name, const inpM_BaseSet& set, bool replace, inpM_SetMap& sets) {
    if (!IsValidSetName(name)) {
        errors.Append(atr_Format("Invalid set name \"%1$s\".", name));
        return;
    }
    const cow_String& scope = CurrentScope();
    if (replace || !sets.HasNestedSet(scope, name)) {
        DebugAdd("AddSet: Adding new set ", name, " in part/instance ", scope);
        sets.InsertNestedSet(scope, name, set);
        return;
    }
    DebugAdd("AddSet: Adding set ", name, " to existing set in part/instance ", scope);
    std::unique_ptr<inpM_BaseSet> merged(sets.ConstGetNestedSet(scope, name).Copy());
    merged->Add(set);
    sets.InsertNestedSet(scope, name, *merged);
}

void inp_SetVisitor::AddAssemblySet(const cow_String& name, const inpM_BaseSet& set, bool replace) {
    AddAssemblySet(name, set, replace, setMap);
}

void inp_SetVisitor::AddAssemblySet(const cow_String& name, const inpM_BaseSet& set, bool replace,
                                    inpM_SetMap& sets) {
    if (!IsValidSetName(name)) {
        errors.Append(atr_Format("Invalid set name \"%1$s\".", name));
        return;
    }
    if (replace || !sets.IsMember(name)) {
        DebugAdd("AddSet: Adding new set ", name, " in assembly", cow_String());
        sets.InsertSet(name, set);
        return;
    }
    DebugAdd("AddSet: Adding set ", name, " to existing assembly set", cow_String());
    std::unique_ptr<inpM_BaseSet> merged(sets.ConstGetSet(name).Copy());
    merged->Add(set);
    sets.InsertSet(name, *merged);
}

inpM_SetHandle inp_SetVisitor::GenerateSet(const inp_Keyword& keyword, bool internal, bool unsorted) {
    RequireScope();
    inp_Utils::Generation generated = inp_Utils::ExpandDataGeneration(keyword.data, SetKeywordName());
    errors.Append(generated.errors);
    return CreateSet(generated.ids, internal, unsorted);
}

inpM_SetHandle inp_SetVisitor::GenerateSet(const cow_String& name, const inp_Keyword& keyword, bool internal,
                                           bool unsorted) {
    RequireScope();
    const cow_String& scope = CurrentScope();
    const inpM_BaseSet* existing =
        setMap.HasNestedSet(scope, name) ? &setMap.ConstGetNestedSet(scope, name) : nullptr;
    inpM_SetHandle result = StartFrom(existing, internal, unsorted);
    const inpM_SetHandle generated = GenerateSet(keyword, internal, result->IsUnsorted());
    result.Get().Add(*generated);
    return result;
}

inpM_SetHandle inp_SetVisitor::GenerateAssemblySet(const inp_Keyword& keyword, bool internal, bool unsorted) {
    RequireAssemblyLevel();
    inpM_SetHandle result = CreateSet(internal, unsorted);
    const inp_DataArray& data = keyword.data;
    const cow_String setKeyword = SetKeywordName();
    for (int line = 0; line < data.NumberOfLines(); ++line) {
        const int n = data.NumberOfItems(line);
        if (n == 0) continue;
        if (n == 1) {
            errors.Append(atr_Format("Not enough data provided to generate the %1$s: %2$s", setKeyword,
                                     SetParameter(keyword)));
            continue;
        }
        const cow_String first = data.AsString(line, 0), last = data.AsString(line, 1);
        cow_List<cow_String> from = inp_Utils::SplitScopedSet(first);
        cow_List<cow_String> to = inp_Utils::SplitScopedSet(last);
        const cow_String fromId = from.Last(), toId = to.Last();
        from.RemoveLast();
        to.RemoveLast();
        const bool fromScoped = !from.IsEmpty(), toScoped = !to.IsEmpty();
        if (fromScoped && toScoped) {
            if (!(from.ConstGet(0) == to.ConstGet(0))) {
                errors.Append(atr_Format(
                    "The start and end id instance names must match when generating assembly %1$s ids: %2$s, %3$s",
                    setKeyword, first, last));
                continue;
            }
            if (!IsValidScope(from.Last())) {
                cow_List<cow_String> names;
                names.Append(first).Append(last);
                errors.Append(
                    inp_Utils::MessageInKeyword(keyword, atr_raw("The following sets/ids do not exist"), names));
            }
        }
        cow_1DArrayList<int> range;
        range.Append(std::atoi(fromId.c_str()));
        range.Append(std::atoi(toId.c_str()));
        if (n > 2 && !data.IsBlank(line, 2)) range.Append(data.AsInt(line, 2));
        inp_Utils::Generation generated = inp_Utils::ExpandGeneration(range, setKeyword);
        errors.Append(generated.errors);
        if (fromScoped)
            result.Get().Add(from.ConstGet(0), generated.ids);
        else
            result.Get().Add(*CreateSet(generated.ids, internal, unsorted));
    }
    return result;
}

inpM_SetHandle inp_SetVisitor::GenerateAssemblySet(const cow_String& name, const inp_Keyword& keyword,
                                                   bool internal, bool unsorted) {
    RequireAssemblyLevel();
    const inpM_BaseSet* existing = setMap.IsMember(name) ? &setMap.ConstGetSet(name) : nullptr;
    inpM_SetHandle result = StartFrom(existing, internal, unsorted);
    const inpM_SetHandle generated = GenerateAssemblySet(keyword, internal, result->IsUnsorted());
    result.Get().Add(*generated);
    return result;
}

inpM_SetHandle inp_SetVisitor::ReadSet(const inp_Keyword& keyword, bool internal, bool searchAll) {
    return ReadScopeItems(keyword, internal, searchAll, false);
}

inpM_SetHandle inp_SetVisitor::ReadUnsortedSet(const inp_Keyword& keyword, bool internal, bool searchAll) {
    return ReadScopeItems(keyword, internal, searchAll, true);
}

inpM_SetHandle inp_SetVisitor::ReadSet(const cow_String& name, const inp_Keyword& keyword, bool internal,
                                       bool unsorted, bool searchAll) {
    RequireScope();
    const cow_String& scope = CurrentScope();
    const inpM_BaseSet* existing =
        setMap.HasNestedSet(scope, name) ? &setMap.ConstGetNestedSet(scope, name) : nullptr;
    inpM_SetHandle result = StartFrom(existing, internal, unsorted);
    const inpM_SetHandle read = ReadScopeItems(keyword, internal, searchAll, result->IsUnsorted());
    result.Get().Add(*read);
    return result;
}

// Plain ids wait in one list. In deck order that list is emptied behind each named
// set, so that ids written in front of a name land behind the set's ids.
inpM_SetHandle inp_SetVisitor::ReadScopeItems(const inp_Keyword& keyword, bool internal, bool searchAll,
                                              bool unsorted) {
    RequireScope();
    const cow_String& scope = CurrentScope();
    inpM_SetHandle result = CreateSet(internal, unsorted);
    const inp_DataArray& data = keyword.data;
    cow_1DArrayList<int> ids(ExpectedIds(data));
    cow_List<cow_String> invalid, missing, scopes;
    bool scopesKnown = false;
    for (int line = 0; line < data.NumberOfLines(); ++line) {
        for (int item = 0; item < data.NumberOfItems(line); ++item) {
            const inp_Types::typeEnm type = data.Type(line, item);
            if (type == inp_Types::typeInt) {
                // Ids have at most nine digits; the check runs on the value as a double so
                // that an id beyond the int range is refused rather than wrapped.
                const double value = data.AsDouble(line, item);
                if (value > 999999999.0 || value < static_cast<double>(INT_MIN))
                    invalid.Append(data.AsString(line, item));
                else
                    ids.Append(static_cast<int>(value));
                continue;
            }
            if (type != inp_Types::typeString) {
                if (!data.IsBlank(line, item)) invalid.Append(data.AsString(line, item));
                continue;
            }
            const cow_String name = data.AsString(line, item);
            inpM_SetHandle found;
            if (!searchAll) {
                if (setMap.HasNestedSet(scope, name)) found = CreateSet(setMap.ConstGetNestedSet(scope, name));
            } else if (setMap.IsMember(name)) {
                found = CreateSet(setMap.ConstGetSet(name).ConstGetIds(), false, false);
            } else {
                if (!scopesKnown) {
                    scopes = setMap.Instances();
                    scopesKnown = true;
                }
                for (int i = 0; i < scopes.Count() && !found.HasValue(); ++i)
                    if (setMap.HasNestedSet(scopes.ConstGet(i), name))
                        found = CreateSet(setMap.ConstGetNestedSet(scopes.ConstGet(i), name));
            }
            if (!found.HasValue()) {
                missing.Append(name);
                continue;
            }
            result.Get().Add(*found);
            if (unsorted && !ids.IsEmpty()) {
                result.Get().Add(ids);
                ids.ClearAll();
            }
        }
    }
    if (!ids.IsEmpty()) result.Get().Add(ids);
    if (!invalid.IsEmpty()) errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("Invalid data"), invalid));
    if (!missing.IsEmpty())
        errors.Append(
            inp_Utils::MessageInKeyword(keyword, atr_raw("The following sets specified do not exist"), missing));
    return result;
}

inpM_SetHandle inp_SetVisitor::ReadAssemblySet(const inpM_SetMap& sets, const inp_Keyword& keyword, bool internal) {
    return ReadAssemblyItems(sets, keyword, internal, false);
}

inpM_SetHandle inp_SetVisitor::ReadUnsortedAssemblySet(const inpM_SetMap& sets, const inp_Keyword& keyword,
                                                       bool internal) {
    return ReadAssemblyItems(sets, keyword, internal, true);
}

inpM_SetHandle inp_SetVisitor::ReadAssemblySet(const cow_String& name, const inpM_SetMap& sets,
                                               const inp_Keyword& keyword, bool internal, bool unsorted) {
    RequireAssemblyLevel();
    const inpM_BaseSet* existing = sets.IsMember(name) ? &sets.ConstGetSet(name) : nullptr;
    inpM_SetHandle result = StartFrom(existing, internal, unsorted);
    const inpM_SetHandle read = ReadAssemblyItems(sets, keyword, internal, result->IsUnsorted());
    result.Get().Add(*read);
    return result;
}

// Scoped ids wait by instance like the plain ids. Deck order needs them in the set
// before a named set comes in, and the plain ids behind it.
inpM_SetHandle inp_SetVisitor::ReadAssemblyItems(const inpM_SetMap& sets, const inp_Keyword& keyword,
                                                 bool internal, bool unsorted) {
    RequireAssemblyLevel();
    static const cow_String flatInstance("PART-1-1");
    inpM_SetHandle result = CreateSet(internal, unsorted);
    const inp_DataArray& data = keyword.data;
    cow_1DArrayList<int> ids(ExpectedIds(data));
    ScopedIds scopedIds;
    cow_List<cow_String> missing;
    auto addNamed = [&](const cow_String* instance, const inpM_BaseSet& set) {
        if (unsorted) scopedIds.AddTo(result.Get());
        if (instance)
            result.Get().Add(*instance, set);
        else
            result.Get().Add(set);
        if (unsorted && !ids.IsEmpty()) {
            result.Get().Add(ids);
            ids.ClearAll();
        }
    };
    // Most items are plain ids or `instance.id`, written in their normal form: those are
    // read from the stored text, without a string per item.
    inp_DataLineCursor cursor(data);
    cow_String scope;
    bool scopeIsValid = false;
    for (int line = 0; line < data.NumberOfLines(); ++line) {
        const int items = cursor.SeekLine(line);
        for (int item = 0; item < items; ++item) {
            const PlainItem plain(cursor.NextItem());
            if (plain.kind == PlainItem::kId) {
                ids.Append(plain.id);
                continue;
            }
            if (plain.kind == PlainItem::kScopedId) {
                if (scope.Length() != plain.scopeLength ||
                    std::memcmp(scope.c_str(), plain.text, static_cast<size_t>(plain.scopeLength)) != 0) {
                    scope = cow_String(plain.text, plain.scopeLength);
                    scopeIsValid = IsValidScope(scope);
                }
                if (scopeIsValid)
                    scopedIds.Append(scope, plain.id);
                else
                    missing.Append(cow_String(plain.text));
                continue;
            }
            if (data.IsBlank(line, item)) continue;
            const cow_String text = data.AsString(line, item);
            const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(text);
            if (segments.Count() == 1) {
                const inp_Item parsed(text);
                if (parsed.type == inp_Types::typeInt)
                    ids.Append(parsed.intValue);
                else if (sets.IsMember(text))
                    addNamed(nullptr, sets.ConstGetSet(text));
                else if (sets.HasNestedSet(flatInstance, text))
                    addNamed(&flatInstance, sets.ConstGetNestedSet(flatInstance, text));
                else
                    missing.Append(text);
                continue;
            }
            const cow_String& scope = segments.ConstGet(0);
            const cow_String& last = segments.Last();
            if (inp_Utils::IsScopedSetName(segments)) {
                if (sets.HasNestedSet(scope, last))
                    addNamed(&scope, sets.ConstGetNestedSet(scope, last));
                else
                    missing.Append(text);
            } else if (IsValidScope(scope)) {
                scopedIds.Append(scope, std::atoi(last.c_str()));
            } else {
                missing.Append(text);
            }
        }
    }
    scopedIds.AddTo(result.Get());
    if (!ids.IsEmpty()) result.Get().Add(ids);
    if (!missing.IsEmpty())
        errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("The following sets/ids do not exist"), missing));
    return result;
}

void inp_SetVisitor::ApplyInstanceParameter(inp_Keyword& keyword) {
    if (!instanceName.IsEmpty() || !keyword.HasParameter(cow_String("instance"))) return;
    const cow_String prefix = keyword.parameters.ConstGet(cow_String("instance")).AsString() + ".";
    const bool generate = keyword.HasParameter(cow_String("generate"));
    const inp_DataArray& data = keyword.data;
    std::unique_ptr<inp_RawDataArrayImpl> rewritten(new inp_RawDataArrayImpl());
    cow_String line;
    for (int i = 0; i < data.NumberOfLines(); ++i) {
        line = cow_String();
        bool first = true;
        for (int item = 0; item < data.NumberOfItems(i); ++item) {
            if (data.IsBlank(i, item)) continue;
            if (!first) line.append(",");
            first = false;
            if (!generate || item < 2) line.append(prefix);
            line.append(data.AsString(i, item));
        }
        rewritten->Append(line.c_str(), line.Length());
    }
    keyword.data = inp_DataArray(rewritten.release());
}

void inp_SetVisitor::CheckPartSetRedefined(const inp_Keyword& keyword, const char* parameter,
                                           const inpM_SetMap& partSets,
                                           const inpM_InstanceMap<cow_String>& instanceToPart, const char* message) {
    const inp_Item* name = keyword.parameters.Lookup(cow_String(parameter));
    if (instanceName.IsEmpty() || !name || !instanceToPart.IsMember(instanceName)) return;
    const cow_String& part = instanceToPart.ConstGet(instanceName);
    if (partSets.HasNestedSet(part, name->AsString()))
        errors.Append(atr_Format(message, name->AsString(), part, instanceName));
}

void inp_SetVisitor::AddKeywordSet(const inp_Keyword& keyword, const char* parameter, const cow_1DArrayList<int>& ids,
                                   bool internal, bool unsorted) {
    const inp_Item* name = keyword.parameters.Lookup(cow_String(parameter));
    if (!name || ids.IsEmpty()) return;
    const inpM_SetHandle set = CreateSet(ids, internal, unsorted);
    if (KeywordScope().IsEmpty())
        AddAssemblySet(name->AsString(), *set, false);
    else
        AddSet(name->AsString(), *set, false);
}
