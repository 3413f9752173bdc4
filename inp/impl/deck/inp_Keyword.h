// One keyword of a deck: its value in the keyword table, its parameters, its data lines
// and the keywords that stand under it.
//
// A plain value type with public fields; passes take keywords by reference and keep
// them by value in lists. A copy shares everything and costs a few counter increments.
// `parameters` and `suboptions` copy themselves on the first write through either
// copy; `data` does not (see inp_DataArray), so a pass that changes data lines of a
// keyword it does not own works on a DeepCopy.
//
// A keyword of value 0 is blank: a pass removes a keyword by assigning a default-made
// one, and the deck closes the gaps later.
#ifndef INP_KEYWORD_H
#define INP_KEYWORD_H

#include "cow_1DArrayList.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inp_DataArray.h"
#include "inp_Item.h"
#include "inp_keywords.h"

class inp_Visitor;
class aio_ostream;

class inp_Keyword {
public:
    // Blank, with a fresh empty raw data array, as every constructor gives.
    inp_Keyword();
    // Resolved through the keyword table, so an abbreviation is enough; an unknown or
    // ambiguous name gives a blank keyword.
    explicit inp_Keyword(const cow_String& name);
    explicit inp_Keyword(const inp_KeywordEnm& value);
    inp_Keyword(const inp_KeywordEnm& value, const cow_String& fileName);

    // Owns its data and suboptions: nothing written through the copy shows in this one.
    inp_Keyword DeepCopy() const;

    // The canonical name: lower case, no blanks.
    cow_String Name() const;
    // Keys are canonical parameter names and are compared exactly.
    bool HasParameter(const cow_String& name) const;
    bool hasSuboption(const inp_KeywordEnm& value) const;
    // The last direct suboption of that value, or null.
    const inp_Keyword* FindSuboption(const inp_KeywordEnm& value) const;

    // The value when the parameter exists and has the type asked for (an integer also
    // serves as a double); otherwise the default. They never raise: `NAME=12` is no
    // string here, and a caller that wants any text reads `parameters` itself.
    int GetParameterAsInt(const cow_String& name, int defaultValue) const;
    double GetParameterAsDouble(const cow_String& name, double defaultValue) const;
    cow_String GetParameterAsString(const cow_String& name, const cow_String& defaultValue) const;

    // Defined with the visitor framework and the deck printer.
    void Accept(inp_Visitor& visitor);
    void Print(aio_ostream& out, bool recursive) const;

    inp_KeywordEnm keyword;
    inp_KeywordEnm parent;  // 0 until the organizer has placed the keyword
    cow_Map<cow_String, inp_Item> parameters;
    inp_DataArray data;
    cow_1DArrayList<inp_Keyword> suboptions;
    cow_String fileName;  // empty for a keyword that a pass made
    int lineNumber;       // first line in fileName; 0 for a keyword that a pass made
};

#endif
