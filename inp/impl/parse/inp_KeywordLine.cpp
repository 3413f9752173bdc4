#include "inp_KeywordLine.h"

#include "inp_Exceptions.h"
#include "inp_Types.h"

namespace {

bool IsBlankOrTab(char c) { return c == ' ' || c == '\t'; }

}  // namespace

cow_String inp_KeywordLine::GivenName(const cow_String& line, int& comma) {
    comma = line.Find(',');
    // The name takes no quotes into account: `*X"a,b"` ends at the comma all the same.
    cow_String name = line.Substr(1, comma - 1);
    return name.ToLower().Trim(" \t");
}

cow_1DArrayList<cow_String> inp_KeywordLine::SplitParameters(const cow_String& text) {
    cow_1DArrayList<cow_String> pieces;
    const char* s = text.c_str();
    const int n = text.Length();
    bool quoted = false;
    int start = 0;
    for (int i = 0; i <= n; ++i) {
        const char c = i < n ? s[i] : '\0';
        if (c == '"') {
            quoted = !quoted;
            continue;
        }
        if (i == n && quoted) inp_MissingEndQuoteException(text).Throw(__FILE__, __LINE__);
        if (i < n && (quoted || c != ',')) continue;
        int b = start, e = i;
        while (b < e && IsBlankOrTab(s[b])) ++b;
        while (e > b && IsBlankOrTab(s[e - 1])) --e;
        if (e > b) pieces.Append(cow_String(s + b, e - b));
        start = i + 1;
    }
    return pieces;
}

cow_Map<cow_String, inp_Item> inp_KeywordLine::ParseParameters(const cow_String& text, bool strict) {
    // Built in one batch, so that a list of many keys costs no more than its length.
    cow_MapBuilder<inp_Item> parameters;
    cow_1DArrayList<cow_String> pieces = SplitParameters(text);
    for (int i = 0; i < pieces.Count(); ++i) {
        const cow_String& piece = pieces.ConstGet(i);
        const int eq = piece.Find('=');
        cow_String name = piece.Substr(0, eq);
        cow_String value = piece.Substr(eq + 1);

        cow_String key = name;
        if (inp_Types::MatchParameterName(name)) {
            // The match covers the whole name, blanks around it included: `MY PARAM`
            // and `my param ` both become `myparam`.
            key.ToLower().Trim(" \t");
        } else if (strict) {
            inp_InvalidParameterException(piece).Throw(__FILE__, __LINE__);
        }

        if (value.IsEmpty()) {
            // `NAME` and `NAME=` are the same flag.
            parameters.Insert(key, inp_Item(true));
            continue;
        }
        inp_Item item(value);
        if (item.type == inp_Types::typeNone && strict)
            inp_InvalidParameterValueException(key, value).Throw(__FILE__, __LINE__);
        parameters.Insert(key, item);
    }
    return parameters.Build();
}
