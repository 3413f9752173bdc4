// One typed parameter value of a keyword line.
//
// A value is typed once, when it is made from its text, by the first of a chain of
// patterns that fits: integer, set name, scoped id, double, double with a `D`
// exponent, file name. Names win over numbers where both fit, so `E5` is a name.
// Only the field that `type` names is meaningful; the others stay 0 or empty.
#ifndef INP_ITEM_H
#define INP_ITEM_H

#include "cow_String.h"
#include "inp_Types.h"

class inp_Item {
public:
    inp_Item();
    explicit inp_Item(int value);
    explicit inp_Item(bool value);
    explicit inp_Item(double value);
    // Typed by the text, trimmed of blanks and tabs; the case is kept. A text that fits
    // no pattern gives typeNone: reporting it is the caller's business.
    explicit inp_Item(const cow_String& text);
    // Without it a literal would take the bool constructor.
    explicit inp_Item(const char* text);

    // "TRUE"/"FALSE" for a flag, "None" for no value.
    cow_String AsString() const;
    // Raise inp_KeywordException when the value is no number of that kind; a flag is
    // no integer.
    int AsInt() const;
    double AsDouble() const;

    inp_Types::typeEnm type;
    int intValue;
    bool boolValue;
    double doubleValue;
    cow_String stringValue;
};

#endif
