#include "utl_Base64.h"

#include <string>

namespace {

const char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int Value(unsigned char c) {
    if (c >= 'A' && c <= 'Z') return c - 'A';
    if (c >= 'a' && c <= 'z') return c - 'a' + 26;
    if (c >= '0' && c <= '9') return c - '0' + 52;
    if (c == '+') return 62;
    if (c == '/') return 63;
    return -1;
}

bool IsWhiteSpace(unsigned char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

[[noreturn]] void Fail(const char* format, int number) {
    atr_translate msg(format);
    atr_SubstituteFormat(msg, 1, number);
    utl_Base64CodecError(msg.Result()).Throw(__FILE__, __LINE__);
}

}  // namespace

cow_String utl_base64Decode(const cow_String& text, bool skipWhiteSpace) {
    const unsigned char* s = reinterpret_cast<const unsigned char*>(text.c_str());
    const int n = text.Length();
    std::string out;
    out.reserve(static_cast<size_t>(n) / 4 * 3 + 3);
    unsigned accumulator = 0;
    int digits = 0;   // base64 characters taken, padding excluded
    int padding = 0;  // "=" seen; only white space may follow
    for (int i = 0; i < n; ++i) {
        unsigned char c = s[i];
        if (skipWhiteSpace && IsWhiteSpace(c)) continue;
        if (c == '=') {
            // Padding stands only where a group of four is incomplete.
            if (digits % 4 < 2 || digits % 4 + padding >= 4) Fail("misplaced base64 padding at position %1$s", i + 1);
            ++padding;
            continue;
        }
        int v = Value(c);
        if (v < 0) Fail("invalid base64 character at position %1$s", i + 1);
        if (padding > 0) Fail("base64 data behind padding at position %1$s", i + 1);
        accumulator = (accumulator << 6) | static_cast<unsigned>(v);
        ++digits;
        if (digits % 4 == 0) {
            out.push_back(static_cast<char>((accumulator >> 16) & 0xff));
            out.push_back(static_cast<char>((accumulator >> 8) & 0xff));
            out.push_back(static_cast<char>(accumulator & 0xff));
            accumulator = 0;
        }
    }
    int rest = digits % 4;
    if (rest == 1) Fail("incomplete base64 text of %1$s characters", digits);
    if (padding > 0 && rest + padding != 4) Fail("incomplete base64 padding of %1$s characters", padding);
    if (rest == 2) {
        out.push_back(static_cast<char>((accumulator >> 4) & 0xff));
    } else if (rest == 3) {
        out.push_back(static_cast<char>((accumulator >> 10) & 0xff));
        out.push_back(static_cast<char>((accumulator >> 2) & 0xff));
    }
    return cow_String(out.data(), static_cast<int>(out.size()));
}

cow_String utl_base64Encode(const cow_String& bytes) {
    const unsigned char* s = reinterpret_cast<const unsigned char*>(bytes.c_str());
    const int n = bytes.Length();
    std::string out;
    out.reserve((static_cast<size_t>(n) + 2) / 3 * 4);
    int i = 0;
    for (; i + 2 < n; i += 3) {
        unsigned v = (unsigned(s[i]) << 16) | (unsigned(s[i + 1]) << 8) | s[i + 2];
        out.push_back(kAlphabet[(v >> 18) & 63]);
        out.push_back(kAlphabet[(v >> 12) & 63]);
        out.push_back(kAlphabet[(v >> 6) & 63]);
        out.push_back(kAlphabet[v & 63]);
    }
    if (n - i == 1) {
        unsigned v = unsigned(s[i]) << 16;
        out.push_back(kAlphabet[(v >> 18) & 63]);
        out.push_back(kAlphabet[(v >> 12) & 63]);
        out.append("==");
    } else if (n - i == 2) {
        unsigned v = (unsigned(s[i]) << 16) | (unsigned(s[i + 1]) << 8);
        out.push_back(kAlphabet[(v >> 18) & 63]);
        out.push_back(kAlphabet[(v >> 12) & 63]);
        out.push_back(kAlphabet[(v >> 6) & 63]);
        out.push_back('=');
    }
    return cow_String(out.data(), static_cast<int>(out.size()));
}
