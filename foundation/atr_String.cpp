// Placeholder substitution of message strings.
#include "atr_String.h"

#include <cctype>
#include <cstring>

namespace {

struct Placeholder {
    int start = 0;
    int length = 0;
    int number = 0;  // 0 for an unnumbered one
};

// Finds the next placeholder at or after pos. "%%" is skipped as a literal percent.
bool NextPlaceholder(const char* s, int len, int pos, Placeholder& out) {
    for (int i = pos; i < len; ++i) {
        if (s[i] != '%') continue;
        if (i + 1 < len && s[i + 1] == '%') { ++i; continue; }
        int j = i + 1, number = 0;
        while (j < len && std::isdigit(static_cast<unsigned char>(s[j]))) number = number * 10 + (s[j++] - '0');
        if (j > i + 1) {
            if (j + 1 < len && s[j] == '$' && (s[j + 1] == 's' || s[j + 1] == 'd')) {
                out = {i, j + 2 - i, number};
                return true;
            }
            continue;
        }
        if (j < len && (s[j] == 's' || s[j] == 'd')) {
            out = {i, 2, 0};
            return true;
        }
    }
    return false;
}

atr_String ReplaceAt(const atr_String& text, int start, int length, const char* value) {
    atr_String out(text.c_str(), start);
    out.append(value);
    out.append(text.c_str() + start + length);
    return out;
}

}  // namespace

atr_String& atr_String::ReplaceNonTranslated(int index, const char* value) {
    Placeholder p;
    int pos = 0;
    while (NextPlaceholder(c_str(), Length(), pos, p)) {
        if (p.number == index) {
            *this = ReplaceAt(*this, p.start, p.length, value ? value : "");
            break;
        }
        pos = p.start + p.length;
    }
    return *this;
}

atr_String& atr_String::ReplaceNonTranslated(int index, int value) {
    return ReplaceNonTranslated(index, cow_String(value).c_str());
}

atr_String& atr_String::ReplaceNonTranslated(int index, const atr_StringBase& value) {
    cow_String keep(value);  // value may share storage with this string
    return ReplaceNonTranslated(index, keep.c_str());
}

atr_String& atr_String::ReplaceNonTranslated(const char* marker, const char* value) {
    if (!marker || !*marker) return *this;
    int hit = Find(marker);
    if (hit < Length()) *this = ReplaceAt(*this, hit, static_cast<int>(std::strlen(marker)), value ? value : "");
    return *this;
}

atr_String& atr_String::ReplaceNonTranslated(const char* marker, int value) {
    return ReplaceNonTranslated(marker, cow_String(value).c_str());
}

atr_String& atr_String::ReplaceNonTranslated(const char* marker, const atr_StringBase& value) {
    cow_String keep(value);
    return ReplaceNonTranslated(marker, keep.c_str());
}

atr_translate::atr_translate(const char* format) : m_format(format) {}

void atr_translate::Set(int index, const atr_StringBase& value) {
    if (index < 1 || index > kMaxArgs) return;
    m_args[index] = cow_String(value);
    m_has[index] = true;
}

atr_String atr_translate::Result() const {
    const char* s = m_format.c_str();
    int len = m_format.Length();
    atr_String out;
    int pos = 0, unnumbered = 0;
    Placeholder p;
    while (NextPlaceholder(s, len, pos, p)) {
        int index = p.number ? p.number : ++unnumbered;
        out.append(s + pos, p.start - pos);
        if (index >= 1 && index <= kMaxArgs && m_has[index])
            out.append(m_args[index]);
        else
            out.append(s + p.start, p.length);  // no value: keep the placeholder as written
        pos = p.start + p.length;
    }
    out.append(s + pos, len - pos);
    return out;
}

void atr_SubstituteFormat(atr_translate& t, int index, const char* value) { t.Set(index, cow_String(value)); }
void atr_SubstituteFormat(atr_translate& t, int index, int value) { t.Set(index, cow_String(value)); }
void atr_SubstituteFormat(atr_translate& t, int index, const atr_StringBase& value) { t.Set(index, value); }

atr_String atr_Format(const char* format, const atr_StringBase& first) {
    atr_translate t(format);
    atr_SubstituteFormat(t, 1, first);
    return t.Result();
}

atr_String atr_Format(const char* format, const atr_StringBase& first, const atr_StringBase& second) {
    atr_translate t(format);
    atr_SubstituteFormat(t, 1, first);
    atr_SubstituteFormat(t, 2, second);
    return t.Result();
}

atr_String atr_Format(const char* format, const atr_StringBase& first, const atr_StringBase& second,
                      const atr_StringBase& third) {
    atr_translate t(format);
    atr_SubstituteFormat(t, 1, first);
    atr_SubstituteFormat(t, 2, second);
    atr_SubstituteFormat(t, 3, third);
    return t.Result();
}
