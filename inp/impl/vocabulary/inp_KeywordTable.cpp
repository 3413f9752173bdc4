#include "inp_KeywordTable.h"

#include <algorithm>
#include <cstring>
#include <map>

#include "inp_Exceptions.h"
#include "thr_GlobalLock.h"
#include "thr_ThrSingletonRegistry.h"

inp_KeywordTable::inp_KeywordTable() {
    for (const inp_KeywordRow* row = inp_keywordRows; row->name; ++row) {
        cow_1DArrayList<int> subs;
        if (row->suboptions)
            for (const int* s = row->suboptions; *s; ++s) subs.Append(*s);
        m_suboptions.Insert(row->value, subs);
        m_names.Insert(cow_String(row->name), row->value);
        m_values.Insert(row->value, cow_String(row->name));
        m_sortedNames.push_back(row->name);
    }
    std::sort(m_sortedNames.begin(), m_sortedNames.end(),
              [](const char* a, const char* b) { return std::strcmp(a, b) < 0; });
}

int inp_KeywordTable::CountBeginningWith(const cow_String& text, const char** found) const {
    // The names that begin with the text stand together in sorted order. The comparison
    // is strncmp's, so that a text with a NUL in it matches as the C string it holds.
    const size_t n = static_cast<size_t>(text.Length());
    const char* prefix = text.c_str();
    auto first = std::lower_bound(m_sortedNames.begin(), m_sortedNames.end(), prefix,
                                  [n](const char* name, const char* p) { return std::strncmp(name, p, n) < 0; });
    int matches = 0;
    for (auto it = first; it != m_sortedNames.end() && std::strncmp(*it, prefix, n) == 0 && matches < 2; ++it) {
        ++matches;
        *found = *it;
    }
    return matches;
}

int inp_KeywordTable::Match(const cow_String& name, cow_String& canonical) const {
    if (m_names.IsMember(name)) {
        canonical = name;
        return 1;
    }
    const char* found = nullptr;
    const int matches = CountBeginningWith(name, &found);
    if (matches == 1) canonical = cow_String(found);
    return matches;
}

cow_String inp_KeywordTable::ResolveName(const cow_String& name) const {
    cow_String canonical;
    const int matches = Match(name, canonical);
    if (matches == 0) inp_UnknownKeywordException(0, cow_String(), name).Throw(__FILE__, __LINE__);
    if (matches > 1) inp_AmbiguousKeywordException(0, cow_String(), name).Throw(__FILE__, __LINE__);
    return canonical;
}

inp_KeywordEnm inp_KeywordTable::Enum(const cow_String& name) const {
    cow_String canonical;
    if (Match(name, canonical) != 1) return inp_kwUndefined;
    return static_cast<inp_KeywordEnm>(m_names.ConstGet(canonical));
}

cow_String inp_KeywordTable::Name(inp_KeywordEnm value) const {
    const cow_String* name = m_values.Lookup(value);
    return name ? *name : cow_String();
}

cow_String inp_KeywordTable::KeywordEnum2String(cow_1DArrayList<int> values) const {
    cow_String out;
    for (int i = 0; i < values.Count(); ++i) {
        if (i) out.append(", ");
        out.append(Name(static_cast<inp_KeywordEnm>(values.ConstGet(i))));
    }
    return out;
}

cow_1DArrayList<int> inp_KeywordTable::ParentKeywords(inp_KeywordEnm value) const {
    if (!m_parentsMade) {
        // One walk in map order gives every keyword its parents in that order.
        cow_ConstMapIterator<int, cow_1DArrayList<int>> it(m_suboptions);
        for (it.First(); !it.IsDone(); it.Next()) {
            const cow_1DArrayList<int>& subs = it.CurrentValue();
            for (int i = 0; i < subs.Count(); ++i) m_parents[subs.ConstGet(i)].AppendUnlessMember(it.CurrentKey());
        }
        m_parentsMade = true;
    }
    const auto parents = m_parents.find(value);
    return parents != m_parents.end() ? parents->second : cow_1DArrayList<int>();
}

const cow_1DArrayList<int>& inp_KeywordTable::Suboptions(inp_KeywordEnm value) const {
    static const cow_1DArrayList<int> none;
    const cow_1DArrayList<int>* subs = m_suboptions.Lookup(value);
    return subs ? *subs : none;
}

void inp_KeywordTable::Close(const cow_1DArrayList<int>& list, cow_1DArrayList<int>& out) const {
    for (int i = 0; i < list.Count(); ++i) {
        int m = list.ConstGet(i);
        out.Append(m);
        Close(Suboptions(static_cast<inp_KeywordEnm>(m)), out);
    }
}

cow_1DArrayList<int> inp_KeywordTable::SuboptionClosure(inp_KeywordEnm value) const {
    cow_1DArrayList<int> out;
    Close(Suboptions(value), out);
    return out;
}

cow_1DArrayList<int> inp_KeywordTable::LevelClosure(int level, inp_KeywordEnm top, inp_KeywordEnm skip,
                                                   inp_KeywordEnm alsoSkip) const {
    if (!m_levelsMade[level]) {
        cow_1DArrayList<int> list = Suboptions(top);
        list.RemoveMember(skip);
        list.RemoveMember(alsoSkip);
        Close(list, m_levels[level]);
        m_levelsMade[level] = true;
    }
    return m_levels[level];
}

cow_1DArrayList<int> inp_KeywordTable::ModelLevelKeywords() const {
    return LevelClosure(0, inp_kwModel, inp_kwAssembly, inp_kwPart);
}

cow_1DArrayList<int> inp_KeywordTable::AssemblyLevelKeywords() const {
    return LevelClosure(1, inp_kwAssembly, inp_kwInstance, inp_kwInstance);
}

cow_1DArrayList<int> inp_KeywordTable::PartLevelKeywords() const {
    return LevelClosure(2, inp_kwPart, static_cast<inp_KeywordEnm>(0), static_cast<inp_KeywordEnm>(0));
}

// ---- the per-thread slot ----------------------------------------------------------

namespace {

// The slot stands for a thread-local storage index: allocated with the first table of
// the process, freed with the last, both under the global lock.
bool g_slotAllocated = false;
int g_liveTables = 0;

struct TableSlot {
    inp_KeywordTable* table = nullptr;
    void Free() {
        if (!table) return;
        delete table;
        table = nullptr;
        thr_GlobalLock::Guard guard;
        if (--g_liveTables == 0) g_slotAllocated = false;
    }
    ~TableSlot() { Free(); }  // a thread that never ran the registry's teardown
};

TableSlot& Slot() {
    thread_local TableSlot slot;
    return slot;
}

int DestroyCallingThreadsTable() {
    Slot().Free();
    return 0;
}

}  // namespace

inp_KeywordTable& thr_ThreadSingleton<inp_KeywordTable>::Instance() {
    TableSlot& slot = Slot();
    if (!slot.table) {
        {
            thr_GlobalLock::Guard guard;
            g_slotAllocated = true;
            ++g_liveTables;
        }
        slot.table = new inp_KeywordTable();
        // Registering also arms this thread, so the table goes at thread end.
        thr_GlobalSingleton<thr_ThrSingletonRegistry>::Instance().SetDestructLevel(
            &DestroyCallingThreadsTable, static_cast<thr_ThreadObjectDestructLevel>(9));
    }
    return *slot.table;
}

void thr_ThreadSingleton<inp_KeywordTable>::Destroy() { Slot().Free(); }
bool thr_ThreadSingleton<inp_KeywordTable>::Exists() { return Slot().table != nullptr; }

int thr_ThreadSingleton<inp_KeywordTable>::LiveCount() {
    thr_GlobalLock::Guard guard;
    return g_liveTables;
}
