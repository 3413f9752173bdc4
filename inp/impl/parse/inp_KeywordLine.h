// inp_KeywordLine: the grammar inside one keyword line, once its continuation lines
// are joined.
//
// A keyword line is `*NAME` optionally followed by `, parameter, parameter=value...`.
// The name runs up to the first comma, even inside double quotes, and its blanks mean
// nothing. The parameter list is split at commas outside double quotes; each piece is
// `name` (a flag) or `name=value`. Only the keyword name is resolved against the
// vocabulary by the parser; parameter names are folded to their canonical form (lower
// case, no blanks) but not resolved, because their abbreviations depend on the keyword
// and belong to the expansion pass.
//
// These operations hold no state, so the reader (inp_Parser) and tests share them.
#ifndef INP_KEYWORDLINE_H
#define INP_KEYWORDLINE_H

#include "cow_1DArrayList.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inp_Item.h"

class inp_KeywordLine {
public:
    // The name the table is asked for: the text behind the leading '*' up to the first
    // comma, in lower case, with every blank and tab removed wherever it stands.
    // `comma` receives the index of that comma, or the length of the line.
    static cow_String GivenName(const cow_String& line, int& comma);

    // The pieces of a parameter list, each trimmed of blanks and tabs; empty pieces
    // are dropped. Raises inp_MissingEndQuoteException when a quote stays open.
    static cow_1DArrayList<cow_String> SplitParameters(const cow_String& text);

    // The typed parameter map of a list. Raises inp_ParameterException children:
    // a name that fails the parameter name pattern or a value that types as nothing
    // (both only when `strict`), and an open quote. The first bad piece ends the list.
    // A repeated key keeps its place in the map and takes the later value.
    static cow_Map<cow_String, inp_Item> ParseParameters(const cow_String& text, bool strict);
};

#endif
