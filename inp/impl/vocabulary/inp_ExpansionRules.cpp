// The index from a keyword's value to its expansion row, over the four files of rows.
#include <vector>

#include "inp_ExpansionRule.h"
#include "nex_Exception.h"

namespace {

constexpr int kLargestValue = 11101;

// One slot per keyword value: the row, or null. Built once, on first use; the rows
// are constant, so every thread may read it.
std::vector<const inp_ExpansionRule*> BuildIndex() {
    std::vector<const inp_ExpansionRule*> index(kLargestValue + 1, nullptr);
    for (const inp_ExpansionRuleList* list :
         {&inp_expansionRulesAC, &inp_expansionRulesDH, &inp_expansionRulesIP, &inp_expansionRulesQZ}) {
        for (int i = 0; i < list->count; ++i) {
            const inp_ExpansionRule& rule = list->rules[i];
            const int value = static_cast<int>(rule.keyword);
            NEX_ASSERT(value > 0 && value <= kLargestValue);
            NEX_ASSERT(index[value] == nullptr);  // one row per keyword
            index[value] = &rule;
        }
    }
    return index;
}

}  // namespace

const inp_ExpansionRule* inp_FindExpansionRule(inp_KeywordEnm keyword) {
    static const std::vector<const inp_ExpansionRule*> index = BuildIndex();
    const int value = static_cast<int>(keyword);
    return value > 0 && value <= kLargestValue ? index[value] : nullptr;
}
