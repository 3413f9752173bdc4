// Message strings and the builder that fills their placeholders.
//
// Message texts are printf-like formats with "%s"/"%d" or numbered "%1$s"/"%2$d"
// placeholders. Values are substituted as text: an integer in decimal, a string
// verbatim. With no translation catalogue the format text is used unchanged.
#ifndef ATR_STRING_H
#define ATR_STRING_H

#include "cow_String.h"

class atr_String : public atr_StringOps<atr_String> {
public:
    using atr_StringOps<atr_String>::atr_StringOps;
    atr_String() = default;
    atr_String(const atr_StringBase& o) : atr_StringOps<atr_String>(o) {}
    atr_String& operator=(const char* s) { atr_StringBase::operator=(s); return *this; }

    // index 0 fills the first unnumbered placeholder ("%s" or "%d"); index n >= 1
    // fills "%n$s" or "%n$d". Nothing changes when the placeholder is absent.
    atr_String& ReplaceNonTranslated(int index, const char* value);
    atr_String& ReplaceNonTranslated(int index, int value);
    atr_String& ReplaceNonTranslated(int index, const atr_StringBase& value);
    // Replaces the first occurrence of a marker text.
    atr_String& ReplaceNonTranslated(const char* marker, const char* value);
    atr_String& ReplaceNonTranslated(const char* marker, int value);
    atr_String& ReplaceNonTranslated(const char* marker, const atr_StringBase& value);
};

inline atr_String operator+(const atr_String& a, const atr_StringBase& b) { atr_String r(a); return r.append(b); }
inline atr_String operator+(const atr_String& a, const char* b) { atr_String r(a); return r.append(b); }

// A message from a literal, without translation.
inline atr_String atr_raw(const char* text) { return atr_String(text); }

// Short-lived builder: a format, numbered values, then Result().
class atr_translate {
public:
    explicit atr_translate(const char* format);
    void Set(int index, const atr_StringBase& value);
    atr_String Result() const;

private:
    static const int kMaxArgs = 9;
    cow_String m_format;
    cow_String m_args[kMaxArgs + 1];
    bool m_has[kMaxArgs + 1] = {};
};

void atr_SubstituteFormat(atr_translate& t, int index, const char* value);
void atr_SubstituteFormat(atr_translate& t, int index, int value);
void atr_SubstituteFormat(atr_translate& t, int index, const atr_StringBase& value);

// A translated message with one or two values, the common case in one call.
atr_String atr_Format(const char* format, const atr_StringBase& first);
atr_String atr_Format(const char* format, const atr_StringBase& first, const atr_StringBase& second);
atr_String atr_Format(const char* format, const atr_StringBase& first, const atr_StringBase& second,
                      const atr_StringBase& third);

#endif
