// The constant keyword table, expanded from the keyword list and the suboption lists.
#include "inp_keywords.h"

namespace {

// Bare identifiers, so that the suboption lists can be written without prefixes.
namespace id {
enum : int {
#define INP_KEYWORD(Ident, name, value) Ident = value,
#define INP_KEYWORD_SPECIAL(Ident, name, value) Ident = value,
#include "inp_keywords.def"
#undef INP_KEYWORD
#undef INP_KEYWORD_SPECIAL
};

#define INP_SUBOPTIONS(Parent, ...) constexpr int sub##Parent[] = {__VA_ARGS__, 0};
#include "inp_KeywordSuboptions.def"
#undef INP_SUBOPTIONS
}  // namespace id

struct SuboptionsOf {
    int parent;
    const int* list;
};

constexpr SuboptionsOf kSuboptions[] = {
#define INP_SUBOPTIONS(Parent, ...) {id::Parent, id::sub##Parent},
#include "inp_KeywordSuboptions.def"
#undef INP_SUBOPTIONS
};

constexpr const int* SuboptionsFor(int value) {
    for (const SuboptionsOf& s : kSuboptions)
        if (s.parent == value) return s.list;
    return nullptr;
}

}  // namespace

extern const inp_KeywordRow inp_keywordRows[] = {
#define INP_KEYWORD(Ident, name, value) {name, value, SuboptionsFor(value)},
#define INP_KEYWORD_SPECIAL(Ident, name, value) {name, value, SuboptionsFor(value)},
#include "inp_keywords.def"
#undef INP_KEYWORD
#undef INP_KEYWORD_SPECIAL
    {nullptr, 0, nullptr},
};

static_assert(sizeof(inp_keywordRows) / sizeof(inp_keywordRows[0]) == inp_keywordRowCount + 1,
              "the keyword table has one row per keyword and an end row");
