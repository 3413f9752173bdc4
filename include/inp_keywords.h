// The keyword vocabulary: the enumeration of keyword values and the constant table.
//
// A keyword's identity everywhere in the library is its inp_KeywordEnm value; the
// canonical name (lower case, blanks removed, hyphens kept) is used only where text
// comes in or goes out. Both are generated from the one list in inp_keywords.def.
#ifndef INP_KEYWORDS_H
#define INP_KEYWORDS_H

enum inp_KeywordEnm : int {
#define INP_KEYWORD(Ident, name, value) inp_kw##Ident = value,
#define INP_KEYWORD_SPECIAL(Ident, name, value) inp_kw##Ident = value,
#include "inp_keywords.def"
#undef INP_KEYWORD
#undef INP_KEYWORD_SPECIAL
};

// One row of the constant keyword table. `suboptions` lists the values that may stand
// directly under the keyword, ended by 0, or is null.
struct inp_KeywordRow {
    const char* name;
    int value;
    const int* suboptions;
};

// The rows in table order, ended by a row with a null name.
extern const inp_KeywordRow inp_keywordRows[];
constexpr int inp_keywordRowCount = 472;

#endif
