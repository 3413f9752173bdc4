// Typing of parameter values.
#include "inp_Item.h"

#include <cstdlib>

#include "atr_String.h"
#include "inp_Exceptions.h"
#include "nex_Exception.h"

namespace {

inline bool IsBlank(char c) { return c == ' ' || c == '\t'; }

atr_String Translate(const char* format, const cow_String& value) {
    atr_translate t(format);
    atr_SubstituteFormat(t, 1, value);
    return t.Result();
}

}  // namespace

inp_Item::inp_Item() : type(inp_Types::typeNone), intValue(0), boolValue(false), doubleValue(0.0) {}

inp_Item::inp_Item(int value) : inp_Item() {
    type = inp_Types::typeInt;
    intValue = value;
}

inp_Item::inp_Item(bool value) : inp_Item() {
    type = inp_Types::typeBool;
    boolValue = value;
}

inp_Item::inp_Item(double value) : inp_Item() {
    type = inp_Types::typeDouble;
    doubleValue = value;
}

inp_Item::inp_Item(const char* text) : inp_Item(cow_String(text)) {}

// Every parameter value of a deck comes through here, so the patterns are tried with
// the hand-written recognisers, on the trimmed range of the text and without copies.
// The number conversions stop at the first blank, so they need no terminated copy.
inp_Item::inp_Item(const cow_String& text) : inp_Item() {
    const char* s = text.c_str();
    int begin = 0, end = text.Length();
    while (begin < end && IsBlank(s[begin])) ++begin;
    while (end > begin && IsBlank(s[end - 1])) --end;
    const char* t = s + begin;
    int n = end - begin;
    if (n == 0) return;

    if (inp_Types::MatchInteger(t, n)) {
        type = inp_Types::typeInt;
        intValue = std::atoi(t);
        return;
    }
    bool isString = inp_Types::MatchSetName(t, n) || inp_Types::MatchScopedId(t, n);
    if (!isString) {
        if (inp_Types::MatchDouble(t, n)) {
            type = inp_Types::typeDouble;
            doubleValue = std::atof(t);
            return;
        }
        if (inp_Types::MatchDoubleD(t, n)) {
            // The pattern admits one exponent mark, so there is exactly one to rewrite.
            cow_String number(t, n);
            int mark = number.Find('D');
            if (mark >= n) mark = number.Find('d');
            number[mark] = 'e';
            type = inp_Types::typeDouble;
            doubleValue = std::atof(number.c_str());
            return;
        }
        isString = inp_Types::MatchFileName(t, n);
    }
    if (isString) {
        type = inp_Types::typeString;
        stringValue = n == text.Length() ? text : text.Substr(begin, n);
    }
}

cow_String inp_Item::AsString() const {
    switch (type) {
    case inp_Types::typeInt:
        return cow_String(intValue);
    case inp_Types::typeBool:
        return cow_String(boolValue ? "TRUE" : "FALSE");
    case inp_Types::typeDouble:
        return cow_String(doubleValue);
    case inp_Types::typeString:
        return stringValue;
    case inp_Types::typeNone:
        return cow_String("None");
    }
    nex_AssertException("\"Unimplemented input file item type\" == 0").Throw(__FILE__, __LINE__);
}

// These two raise directly, not through Throw: they are conversions of user values,
// not internal faults, and the place in this file would mean nothing to anybody.
int inp_Item::AsInt() const {
    if (type != inp_Types::typeInt)
        throw inp_KeywordException(0, cow_String(), Translate("Value cannot be converted to an integer: %s", AsString()));
    return intValue;
}

double inp_Item::AsDouble() const {
    if (type == inp_Types::typeInt) return intValue;
    if (type != inp_Types::typeDouble)
        throw inp_KeywordException(0, cow_String(), Translate("Value cannot be converted to a double: %s", AsString()));
    return doubleValue;
}
