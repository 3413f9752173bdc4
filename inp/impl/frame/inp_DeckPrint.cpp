// Deck printing: the normal form of a deck, written so that Parse reads it back.
//
// What was typed is not echoed; the keyword objects are written out. Keyword names are
// canonical (lower case, no blanks), parameters stand in the iteration order of their
// map, values as the passes left them, and data items in the upper-case form of
// AsString. Comments and *INCLUDE leave no trace. A keyword line longer than the wrap
// width goes on in continuation lines (a line ending in a comma), which the reader
// joins with nothing between, so the parameter list reads back unchanged. Data lines
// are never wrapped: they have no continuation.

#include "aio_ostream.h"
#include "inp_Deck.h"
#include "inp_Keyword.h"
#include "inp_KeywordTable.h"

namespace {

// A keyword line is wrapped before it reaches this width.
const int kWrapWidth = 132;

}  // namespace

void inp_Keyword::Print(aio_ostream& out, bool recursive) const {
    const cow_String name = thr_ThreadSingleton<inp_KeywordTable>::Instance().Name(keyword);
    out.put('*');
    out << name;
    int width = name.Length() + 1;

    cow_ConstMapIterator<cow_String, inp_Item> it(parameters);
    for (it.First(); !it.IsDone(); it.Next()) {
        const cow_String& key = it.CurrentKey();
        const inp_Item& item = it.CurrentValue();
        const cow_String value = item.AsString();
        // A flag's value is not written, but its text ("TRUE", "None") still counts
        // towards the width, so that the wrap does not depend on the type.
        const int k = key.Length(), v = value.Length();
        width += k + 2 + v + 1;
        if (width < kWrapWidth) {
            out.print(", ");
        } else {
            out.put(',');
            out.put('\n');
            out.flush();
            width = k + v + 1;
        }
        out << key;
        if (item.type != inp_Types::typeBool && item.type != inp_Types::typeNone) {
            out.put('=');
            out << value;
        }
    }
    out.put('\n');
    out.flush();

    const int lines = data.NumberOfLines();
    for (int i = 0; i < lines; ++i) {
        data.PrintLine(i, out);
        out.put('\n');
        out.flush();
    }

    if (!recursive) return;
    // The hierarchy is written flat, parent first; closing keywords such as *endpart
    // are keywords of their own in the list.
    for (int i = 0; i < suboptions.Count(); ++i) suboptions.ConstGet(i).Print(out, true);
}

void inp_Deck::Print(aio_ostream& out) {
    for (int i = 0; i < keywords.Count(); ++i) keywords.ConstGet(i).Print(out, true);
}
