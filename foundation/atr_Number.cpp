#include "atr_Number.h"

#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

// Powers of ten a double holds exactly.
const double kExact[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                         1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
const int kMaxExactPower = 22;
const uint64_t kMaxExactMantissa = uint64_t(1) << 53;

inline bool IsDigit(char c) { return c >= '0' && c <= '9'; }
inline bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\v' || c == '\f' || c == '\r'; }

int WriteExponent(int exponent, char* out) {
    int n = 0;
    out[n++] = 'e';
    out[n++] = exponent < 0 ? '-' : '+';
    if (exponent < 0) exponent = -exponent;
    if (exponent < 10) out[n++] = '0';
    auto r = std::to_chars(out + n, out + 8, exponent);
    return static_cast<int>(r.ptr - out);
}

}  // namespace

int atr_WriteDouble(double value, char* out) {
    char sci[atr_kNumberChars];
    auto r = std::to_chars(sci, sci + sizeof sci, value, std::chars_format::scientific);
    const int length = static_cast<int>(r.ptr - sci);
    if (r.ec != std::errc() || !std::memchr(sci, 'e', static_cast<size_t>(length))) {
        // inf and nan: as printf writes them.
        std::memcpy(out, sci, static_cast<size_t>(length));
        out[length] = '\0';
        return length;
    }
    // sci is [-]d[.ddd]e[+-]xx: gather the digits and the exponent.
    const char* p = sci;
    int n = 0;
    if (*p == '-') out[n++] = *p++;
    char digits[20] = {};
    int count = 0;
    for (; *p != 'e'; ++p)
        if (IsDigit(*p)) digits[count++] = *p;
    int exponent = 0;
    const bool negativeExponent = p[1] == '-';
    for (p += 2; p < r.ptr; ++p) exponent = exponent * 10 + (*p - '0');
    if (negativeExponent) exponent = -exponent;
    // The shortest digits are those %.Pg writes with P = max(15, count), trailing zeros
    // dropped; %g chooses the fixed form for -4 <= exponent < P. Only a subnormal may
    // come out shorter than printf's least digits that read back: 5e-324.
    const int precision = count > 15 ? count : 15;
    if (exponent < -4 || exponent >= precision) {
        out[n++] = digits[0];
        if (count > 1) {
            out[n++] = '.';
            std::memcpy(out + n, digits + 1, static_cast<size_t>(count - 1));
            n += count - 1;
        }
        n += WriteExponent(exponent, out + n);
    } else if (exponent < 0) {
        out[n++] = '0';
        out[n++] = '.';
        for (int z = -1; z > exponent; --z) out[n++] = '0';
        std::memcpy(out + n, digits, static_cast<size_t>(count));
        n += count;
    } else {
        const int whole = exponent + 1;
        for (int k = 0; k < whole; ++k) out[n++] = k < count ? digits[k] : '0';
        // A point either way: the fraction follows it, or it marks the integer as a double.
        out[n++] = '.';
        if (count > whole) {
            std::memcpy(out + n, digits + whole, static_cast<size_t>(count - whole));
            n += count - whole;
        }
    }
    out[n] = '\0';
    return n;
}

int atr_WriteInt(int value, char* out) {
    auto r = std::to_chars(out, out + atr_kNumberChars - 1, value);
    *r.ptr = '\0';
    return static_cast<int>(r.ptr - out);
}

double atr_ReadDouble(const char* text, char** end) {
    const char* p = text;
    while (IsSpace(*p)) ++p;
    bool negative = *p == '-';
    if (*p == '-' || *p == '+') ++p;
    uint64_t mantissa = 0;
    int significant = 0;  // digits in the mantissa from the first non-zero one
    int scale = 0;        // power of ten the mantissa is multiplied by
    int digits = 0;
    for (; IsDigit(*p); ++p, ++digits) {
        if (significant > 0 || *p != '0') ++significant;
        if (significant <= 19) mantissa = mantissa * 10 + static_cast<uint64_t>(*p - '0');
    }
    if (*p == '.') {
        for (++p; IsDigit(*p); ++p, ++digits) {
            if (significant > 0 || *p != '0') ++significant;
            if (significant <= 19) mantissa = mantissa * 10 + static_cast<uint64_t>(*p - '0');
            --scale;
        }
    }
    bool fast = digits > 0 && significant <= 15 && mantissa < kMaxExactMantissa;
    if (fast && (*p == 'e' || *p == 'E')) {
        const char* q = p + 1;
        bool negativeExponent = *q == '-';
        if (*q == '-' || *q == '+') ++q;
        if (IsDigit(*q)) {
            int exponent = 0;
            for (; IsDigit(*q); ++q)
                if (exponent < 10000) exponent = exponent * 10 + (*q - '0');
            scale += negativeExponent ? -exponent : exponent;
            p = q;
        }
        // A mark without digits is not part of the number, as strtod reads it.
    }
    if (fast && (*p == 'x' || *p == 'X' || (*p == 'n' || *p == 'N' || *p == 'i' || *p == 'I'))) fast = false;
    if (fast && scale >= -kMaxExactPower && scale <= kMaxExactPower) {
        double value = static_cast<double>(mantissa);
        value = scale < 0 ? value / kExact[-scale] : value * kExact[scale];
        if (end) *end = const_cast<char*>(p);
        return negative ? -value : value;
    }
    return std::strtod(text, end);
}
