// Strings of the library: a two-field handle on shared, counted character storage.
//
// atr_StringBase carries everything; cow_String is the plain string (names, values,
// map keys) and atr_String (atr_String.h) the message string. A copy costs one
// counter increment; the first write to a shared string makes it private. A default
// string has no header and reads as "" everywhere, so no caller ever sees a null.
#ifndef COW_STRING_H
#define COW_STRING_H

#include <cstring>
#include <iosfwd>

struct atr_StringHeader;

class atr_StringBase {
public:
    enum BorrowMode { Borrow };
    static const int npos = 0x7fffffff;

    atr_StringBase() : m_chars(nullptr), m_hdr(nullptr) {}
    atr_StringBase(const char* s);
    atr_StringBase(const char* s, int length);
    // The characters are not copied: they must outlive the string and every copy of it.
    atr_StringBase(const char* s, int length, BorrowMode);
    explicit atr_StringBase(int value);
    explicit atr_StringBase(double value);
    atr_StringBase(const atr_StringBase& other);
    atr_StringBase(atr_StringBase&& other) noexcept : m_chars(other.m_chars), m_hdr(other.m_hdr) {
        other.m_chars = nullptr;
        other.m_hdr = nullptr;
    }
    ~atr_StringBase();

    atr_StringBase& operator=(const atr_StringBase& other);
    atr_StringBase& operator=(atr_StringBase&& other) noexcept;
    atr_StringBase& operator=(const char* s);

    const char* c_str() const { return m_hdr ? m_chars : ""; }
    int Length() const;
    bool IsEmpty() const { return Length() == 0; }

    char operator[](int i) const { return c_str()[i]; }
    char& operator[](int i);

    // Index of the first hit at or after start; a value >= Length() when there is none.
    int Find(const char* text, int start = 0) const;
    int Find(char c, int start = 0) const;
    // Index of the last hit that begins at or before start; >= Length() when there is none.
    int rfind(const char* text, int textLength, int start = npos) const;

    // Operations that write return the object itself for chaining (in the derived type).
    void SubstrInto(atr_StringBase& out, int start, int length) const;
    void EraseImpl(int start, int length);
    void AppendImpl(const char* s, int length, int offset, int count);
    void SubstituteImpl(const char* oldText, const char* newText, int count);
    void TrimImpl(const char* set);
    void LeftTrimImpl(const char* set);
    void RightTrimImpl(const char* set);
    void ToUpperImpl();
    void ToLowerImpl();

    int Compare(const atr_StringBase& o) const { return std::strcmp(c_str(), o.c_str()); }
    int Compare(const char* s) const { return std::strcmp(c_str(), s ? s : ""); }
    bool StartsWith(const char* prefix) const;
    bool EndsWith(const char* suffix) const;

    // Shares storage with a string of the other flavour.
    void ShareFrom(const atr_StringBase& o) { *this = o; }

protected:
    void Release();
    // Makes the storage private and writable, with room for `capacity` characters.
    void MakeUnique(int capacity);
    void Assign(const char* s, int length);

    char* m_chars;
    atr_StringHeader* m_hdr;
};

inline bool operator==(const atr_StringBase& a, const atr_StringBase& b) { return a.Compare(b) == 0; }
inline bool operator!=(const atr_StringBase& a, const atr_StringBase& b) { return a.Compare(b) != 0; }
inline bool operator<(const atr_StringBase& a, const atr_StringBase& b) { return a.Compare(b) < 0; }
inline bool operator>(const atr_StringBase& a, const atr_StringBase& b) { return a.Compare(b) > 0; }
inline bool operator<=(const atr_StringBase& a, const atr_StringBase& b) { return a.Compare(b) <= 0; }
inline bool operator>=(const atr_StringBase& a, const atr_StringBase& b) { return a.Compare(b) >= 0; }
inline bool operator==(const atr_StringBase& a, const char* b) { return a.Compare(b) == 0; }
inline bool operator!=(const atr_StringBase& a, const char* b) { return a.Compare(b) != 0; }

// The writing operations, returning the derived string so that calls chain.
template <class Derived>
class atr_StringOps : public atr_StringBase {
public:
    using atr_StringBase::atr_StringBase;
    atr_StringOps() = default;
    atr_StringOps(const atr_StringBase& o) : atr_StringBase(o) {}

    Derived Substr(int start, int length = npos) const {
        Derived out;
        SubstrInto(out, start, length);
        return out;
    }
    Derived& Erase(int start, int length) { EraseImpl(start, length); return self(); }
    Derived& append(const char* s, int length = -1, int offset = 0, int count = npos) {
        AppendImpl(s, length, offset, count);
        return self();
    }
    Derived& append(const atr_StringBase& s) { AppendImpl(s.c_str(), s.Length(), 0, npos); return self(); }
    Derived& append(char c) { AppendImpl(&c, 1, 0, 1); return self(); }
    Derived& Substitute(const char* oldText, const char* newText, int count = npos) {
        SubstituteImpl(oldText, newText, count);
        return self();
    }
    Derived& Trim(const char* set = " \t") { TrimImpl(set); return self(); }
    Derived& LeftTrim(const char* set = " \t") { LeftTrimImpl(set); return self(); }
    Derived& RightTrim(const char* set = " \t") { RightTrimImpl(set); return self(); }
    Derived& ToUpper() { ToUpperImpl(); return self(); }
    Derived& ToLower() { ToLowerImpl(); return self(); }
    Derived& operator+=(const atr_StringBase& s) { return append(s); }
    Derived& operator+=(const char* s) { return append(s); }
    Derived& operator+=(char c) { return append(c); }

private:
    Derived& self() { return static_cast<Derived&>(*this); }
};

class cow_String : public atr_StringOps<cow_String> {
public:
    using atr_StringOps<cow_String>::atr_StringOps;
    cow_String() = default;
    cow_String(const atr_StringBase& o) : atr_StringOps<cow_String>(o) {}
    cow_String& operator=(const char* s) { atr_StringBase::operator=(s); return *this; }
};

inline cow_String operator+(const cow_String& a, const atr_StringBase& b) { cow_String r(a); return r.append(b); }
inline cow_String operator+(const cow_String& a, const char* b) { cow_String r(a); return r.append(b); }
inline cow_String operator+(const char* a, const cow_String& b) { cow_String r(a); return r.append(b); }

std::ostream& operator<<(std::ostream& os, const atr_StringBase& s);

#endif
