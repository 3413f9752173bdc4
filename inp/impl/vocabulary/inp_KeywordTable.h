// inp_KeywordTable: the lookups over the constant keyword table, one object per thread.
//
// Reached only as thr_ThreadSingleton<inp_KeywordTable>::Instance(). It answers which
// value a (possibly abbreviated) canonical name stands for, which name a value stands
// for, which keywords may hold a keyword, and which keywords belong to the model,
// assembly and part levels of a deck.
#ifndef INP_KEYWORDTABLE_H
#define INP_KEYWORDTABLE_H

#include <map>
#include <vector>

#include "cow_1DArrayList.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inp_keywords.h"
#include "thr_ThreadSingleton.h"

class inp_KeywordTable {
public:
    inp_KeywordTable();

    // 0 where the name is unknown or ambiguous; never fails.
    inp_KeywordEnm Enum(const cow_String& name) const;
    // The canonical name: an exact name wins, else the one name the text begins.
    // Raises inp_UnknownKeywordException or inp_AmbiguousKeywordException (line 0, no file).
    cow_String ResolveName(const cow_String& name) const;
    // ResolveName without raising: 1 and the canonical name, 0 for an unknown name, 2 for
    // an ambiguous one.
    int Match(const cow_String& name, cow_String& canonical) const;
    cow_String Name(inp_KeywordEnm value) const;
    // Canonical names joined by ", ".
    cow_String KeywordEnum2String(cow_1DArrayList<int> values) const;
    // Every keyword whose suboption list holds the value, each once, in map order.
    cow_1DArrayList<int> ParentKeywords(inp_KeywordEnm value) const;
    // Depth-first closure of the suboption list; duplicates stay (membership use only).
    cow_1DArrayList<int> SuboptionClosure(inp_KeywordEnm value) const;
    cow_1DArrayList<int> ModelLevelKeywords() const;
    cow_1DArrayList<int> AssemblyLevelKeywords() const;
    cow_1DArrayList<int> PartLevelKeywords() const;

    const cow_1DArrayList<int>& Suboptions(inp_KeywordEnm value) const;

private:
    // How many names begin with the text, counting no further than 2; `found` is set to
    // one of them.
    int CountBeginningWith(const cow_String& text, const char** found) const;
    void Close(const cow_1DArrayList<int>& list, cow_1DArrayList<int>& out) const;
    // The closure of the top keyword's suboptions without the two skipped ones (0: none).
    cow_1DArrayList<int> LevelClosure(int level, inp_KeywordEnm top, inp_KeywordEnm skip,
                                      inp_KeywordEnm alsoSkip) const;

    cow_Map<int, cow_1DArrayList<int>> m_suboptions;
    cow_Map<cow_String, int> m_names;
    cow_Map<int, cow_String> m_values;
    std::vector<const char*> m_sortedNames;  // the canonical names, in strcmp order
    // The level closures, made at the first question: every flat deck asks for them,
    // and the table, one per thread, never changes.
    mutable cow_1DArrayList<int> m_levels[3];
    mutable bool m_levelsMade[3] = {false, false, false};
    // Keyword to the keywords that may hold it, made at the first question: every
    // misplaced keyword of a deck asks, and a walk of the whole table per question made
    // a deck of many misplaced keywords slow to report.
    mutable std::map<int, cow_1DArrayList<int>> m_parents;
    mutable bool m_parentsMade = false;
};

// The table's own per-thread slot: made at the first use in the process under the
// global lock, with a count of live tables, and freed with the last one.
template <>
class thr_ThreadSingleton<inp_KeywordTable> {
public:
    static inp_KeywordTable& Instance();
    static void Destroy();  // the calling thread's table; the next Instance() makes a new one
    static bool Exists();
    static int LiveCount();  // tables alive in all threads
};

#endif
