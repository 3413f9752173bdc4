// Shared, counted character storage behind atr_StringBase.
#include "cow_String.h"

#include "atr_Number.h"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <ostream>

// One allocation holds the header and, unless borrowed, the characters behind it.
struct atr_StringHeader {
    int refs;
    int length;
    int capacity;  // -1 for borrowed characters, which are never written
};

namespace {

char* Storage(atr_StringHeader* h) { return reinterpret_cast<char*>(h + 1); }

atr_StringHeader* NewHeader(int capacity) {
    void* mem = std::malloc(sizeof(atr_StringHeader) + static_cast<size_t>(capacity) + 1);
    if (!mem) throw std::bad_alloc();
    atr_StringHeader* h = static_cast<atr_StringHeader*>(mem);
    h->refs = 1;
    h->length = 0;
    h->capacity = capacity;
    Storage(h)[0] = '\0';
    return h;
}

bool InSet(char c, const char* set) { return c != '\0' && std::strchr(set, c) != nullptr; }

}  // namespace

atr_StringBase::atr_StringBase(const char* s) : m_chars(nullptr), m_hdr(nullptr) {
    if (s) Assign(s, static_cast<int>(std::strlen(s)));
}

atr_StringBase::atr_StringBase(const char* s, int length) : m_chars(nullptr), m_hdr(nullptr) {
    if (s && length > 0) Assign(s, length);
}

atr_StringBase::atr_StringBase(const char* s, int length, BorrowMode) : m_chars(nullptr), m_hdr(nullptr) {
    if (!s || length <= 0) return;
    m_hdr = NewHeader(0);
    m_hdr->capacity = -1;
    m_hdr->length = length;
    m_chars = const_cast<char*>(s);
}

atr_StringBase::atr_StringBase(int value) : m_chars(nullptr), m_hdr(nullptr) {
    char buf[16];
    int n = std::snprintf(buf, sizeof buf, "%d", value);
    Assign(buf, n);
}

// The shortest text that reads back to the same double, with a point when it would
// otherwise look like an integer (see atr_WriteDouble).
atr_StringBase::atr_StringBase(double value) : m_chars(nullptr), m_hdr(nullptr) {
    char buf[atr_kNumberChars];
    Assign(buf, atr_WriteDouble(value, buf));
}

atr_StringBase::atr_StringBase(const atr_StringBase& other) : m_chars(other.m_chars), m_hdr(other.m_hdr) {
    if (m_hdr) ++m_hdr->refs;
}

atr_StringBase::~atr_StringBase() { Release(); }

void atr_StringBase::Release() {
    if (m_hdr && --m_hdr->refs == 0) std::free(m_hdr);
    m_hdr = nullptr;
    m_chars = nullptr;
}

atr_StringBase& atr_StringBase::operator=(const atr_StringBase& other) {
    atr_StringHeader* hdr = other.m_hdr;  // other may be *this
    char* chars = other.m_chars;
    if (hdr) ++hdr->refs;  // first increment, then release: self-assignment is safe
    Release();
    m_hdr = hdr;
    m_chars = chars;
    return *this;
}

atr_StringBase& atr_StringBase::operator=(atr_StringBase&& other) noexcept {
    if (this != &other) {
        Release();
        m_hdr = other.m_hdr;
        m_chars = other.m_chars;
        other.m_hdr = nullptr;
        other.m_chars = nullptr;
    }
    return *this;
}

atr_StringBase& atr_StringBase::operator=(const char* s) {
    atr_StringBase tmp(s);  // s may point into this string
    return *this = static_cast<atr_StringBase&&>(tmp);
}

int atr_StringBase::Length() const { return m_hdr ? m_hdr->length : 0; }

void atr_StringBase::Assign(const char* s, int length) {
    atr_StringHeader* h = NewHeader(length);
    std::memcpy(Storage(h), s, static_cast<size_t>(length));
    Storage(h)[length] = '\0';
    h->length = length;
    Release();
    m_hdr = h;
    m_chars = Storage(h);
}

void atr_StringBase::MakeUnique(int capacity) {
    int len = Length();
    if (m_hdr && m_hdr->refs == 1 && m_hdr->capacity >= capacity) return;
    int cap = capacity;
    if (m_hdr && m_hdr->capacity >= 0 && cap > m_hdr->capacity) cap = cap < 2 * m_hdr->capacity ? 2 * m_hdr->capacity : cap;
    atr_StringHeader* h = NewHeader(cap);
    if (len) std::memcpy(Storage(h), m_chars, static_cast<size_t>(len));
    Storage(h)[len] = '\0';
    h->length = len;
    Release();
    m_hdr = h;
    m_chars = Storage(h);
}

char& atr_StringBase::operator[](int i) {
    MakeUnique(Length());
    return m_chars[i];
}

int atr_StringBase::Find(const char* text, int start) const {
    int len = Length();
    if (start < 0) start = 0;
    if (start > len) return len;
    const char* hit = std::strstr(c_str() + start, text ? text : "");
    return hit ? static_cast<int>(hit - c_str()) : len;
}

int atr_StringBase::Find(char c, int start) const {
    int len = Length();
    if (start < 0) start = 0;
    for (int i = start; i < len; ++i)
        if (m_chars[i] == c) return i;
    return len;
}

int atr_StringBase::rfind(const char* text, int textLength, int start) const {
    int len = Length();
    if (textLength < 0) textLength = static_cast<int>(std::strlen(text));
    if (textLength > len) return len;
    int last = len - textLength;
    if (start < last) last = start;
    for (int i = last; i >= 0; --i)
        if (std::memcmp(m_chars + i, text, static_cast<size_t>(textLength)) == 0) return i;
    return len;
}

void atr_StringBase::SubstrInto(atr_StringBase& out, int start, int length) const {
    int len = Length();
    if (start < 0) start = 0;
    if (start >= len || length <= 0) {
        out = atr_StringBase();
        return;
    }
    if (length > len - start) length = len - start;
    atr_StringBase tmp(c_str() + start, length);
    out = static_cast<atr_StringBase&&>(tmp);
}

void atr_StringBase::EraseImpl(int start, int length) {
    int len = Length();
    if (start < 0) start = 0;
    if (start >= len || length <= 0) return;
    if (length > len - start) length = len - start;
    MakeUnique(len);
    std::memmove(m_chars + start, m_chars + start + length, static_cast<size_t>(len - start - length + 1));
    m_hdr->length = len - length;
}

void atr_StringBase::AppendImpl(const char* s, int length, int offset, int count) {
    if (!s) return;
    if (length < 0) length = static_cast<int>(std::strlen(s));
    if (offset < 0) offset = 0;
    if (offset >= length) return;
    int n = length - offset;
    if (count < n) n = count;
    if (n <= 0) return;
    int len = Length();
    // s may point into our own storage, which MakeUnique may move.
    if (m_hdr && s >= m_chars && s < m_chars + len) {
        atr_StringBase copy(s + offset, n);
        AppendImpl(copy.c_str(), n, 0, n);
        return;
    }
    MakeUnique(len + n);
    std::memcpy(m_chars + len, s + offset, static_cast<size_t>(n));
    m_chars[len + n] = '\0';
    m_hdr->length = len + n;
}

void atr_StringBase::SubstituteImpl(const char* oldText, const char* newText, int count) {
    if (!oldText || !*oldText || count <= 0) return;
    int oldLen = static_cast<int>(std::strlen(oldText));
    if (Find(oldText) >= Length()) return;
    atr_StringBase out;
    int pos = 0, done = 0;
    while (done < count) {
        int hit = Find(oldText, pos);
        if (hit >= Length()) break;
        out.AppendImpl(c_str() + pos, hit - pos, 0, npos);
        out.AppendImpl(newText, -1, 0, npos);
        pos = hit + oldLen;
        ++done;
    }
    out.AppendImpl(c_str() + pos, Length() - pos, 0, npos);
    *this = static_cast<atr_StringBase&&>(out);
}

void atr_StringBase::TrimImpl(const char* set) {
    int len = Length();
    int keep = 0;
    for (int i = 0; i < len; ++i)
        if (InSet(m_chars[i], set)) break; else ++keep;
    if (keep == len) return;
    MakeUnique(len);
    int w = 0;
    for (int i = 0; i < len; ++i)
        if (!InSet(m_chars[i], set)) m_chars[w++] = m_chars[i];
    m_chars[w] = '\0';
    m_hdr->length = w;
}

void atr_StringBase::LeftTrimImpl(const char* set) {
    int len = Length(), i = 0;
    while (i < len && InSet(m_chars[i], set)) ++i;
    if (i) EraseImpl(0, i);
}

void atr_StringBase::RightTrimImpl(const char* set) {
    int len = Length(), i = len;
    while (i > 0 && InSet(m_chars[i - 1], set)) --i;
    if (i < len) EraseImpl(i, len - i);
}

void atr_StringBase::ToUpperImpl() {
    int len = Length();
    int i = 0;
    while (i < len && !std::islower(static_cast<unsigned char>(m_chars[i]))) ++i;
    if (i == len) return;
    MakeUnique(len);
    for (; i < len; ++i) m_chars[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(m_chars[i])));
}

void atr_StringBase::ToLowerImpl() {
    int len = Length();
    int i = 0;
    while (i < len && !std::isupper(static_cast<unsigned char>(m_chars[i]))) ++i;
    if (i == len) return;
    MakeUnique(len);
    for (; i < len; ++i) m_chars[i] = static_cast<char>(std::tolower(static_cast<unsigned char>(m_chars[i])));
}

bool atr_StringBase::StartsWith(const char* prefix) const {
    size_t n = std::strlen(prefix);
    return n <= static_cast<size_t>(Length()) && std::memcmp(c_str(), prefix, n) == 0;
}

bool atr_StringBase::EndsWith(const char* suffix) const {
    size_t n = std::strlen(suffix);
    size_t len = static_cast<size_t>(Length());
    return n <= len && std::memcmp(c_str() + len - n, suffix, n) == 0;
}

std::ostream& operator<<(std::ostream& os, const atr_StringBase& s) { return os << s.c_str(); }
