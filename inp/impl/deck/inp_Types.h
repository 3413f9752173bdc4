// What a value of the deck language is: the type tags of parameter values and data
// items, and the patterns that say what a name, an integer or a double looks like.
//
// The pattern texts are published: other modules and callers hand them to the regular
// expression service. Typing a parameter value tries several of them for every value
// the parser meets, so each pattern also has a hand-written recogniser here that
// accepts exactly the same texts without building an expression engine; the deck
// tests hold them against a regular expression engine on exhaustive inputs.
//
// All patterns are anchored at both ends and allow blanks and tabs around the value.
// The recognisers read `length` characters; `^` and `$` stand for the ends of that
// range.
#ifndef INP_TYPES_H
#define INP_TYPES_H

#include "cow_String.h"

class inp_Types {
public:
    enum typeEnm : int {
        typeInt = 0,
        typeBool = 1,     // a parameter given without a value
        typeDouble = 2,
        typeString = 3,   // a name, a quoted text or anything else that passes a pattern
        typeNone = 4,     // empty, or a text that fits no pattern
    };

    // The pattern texts, as the expression engine receives them.
    static const char* stringPat();
    static const char* integerPat();
    static const char* doublePat();
    static const char* doublePatD();
    static const char* parameterNamePat();
    static const char* setNamePat();
    static const char* scopedIdPat();
    static const char* fileNamePat();
    static const char* superelementIDPat();
    static const char* userElementIDPat();

    // The instance and part under which a flat deck's model is held until it is
    // assigned to real parts.
    static const char* fakeName();

    // Recognisers, one per pattern.
    static bool MatchString(const char* text, int length);
    static bool MatchInteger(const char* text, int length);
    static bool MatchDouble(const char* text, int length);
    static bool MatchDoubleD(const char* text, int length);
    static bool MatchParameterName(const char* text, int length);
    static bool MatchSetName(const char* text, int length);
    static bool MatchScopedId(const char* text, int length);
    static bool MatchFileName(const char* text, int length);
    static bool MatchSuperelementID(const char* text, int length);
    static bool MatchUserElementID(const char* text, int length);

    static bool MatchString(const cow_String& t) { return MatchString(t.c_str(), t.Length()); }
    static bool MatchInteger(const cow_String& t) { return MatchInteger(t.c_str(), t.Length()); }
    static bool MatchDouble(const cow_String& t) { return MatchDouble(t.c_str(), t.Length()); }
    static bool MatchDoubleD(const cow_String& t) { return MatchDoubleD(t.c_str(), t.Length()); }
    static bool MatchParameterName(const cow_String& t) { return MatchParameterName(t.c_str(), t.Length()); }
    static bool MatchSetName(const cow_String& t) { return MatchSetName(t.c_str(), t.Length()); }
    static bool MatchScopedId(const cow_String& t) { return MatchScopedId(t.c_str(), t.Length()); }
    static bool MatchFileName(const cow_String& t) { return MatchFileName(t.c_str(), t.Length()); }
    static bool MatchSuperelementID(const cow_String& t) { return MatchSuperelementID(t.c_str(), t.Length()); }
    static bool MatchUserElementID(const cow_String& t) { return MatchUserElementID(t.c_str(), t.Length()); }
};

#endif
