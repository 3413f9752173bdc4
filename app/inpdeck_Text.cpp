#include "inpdeck_Text.h"

namespace inpdeck {

// The C1 controls (U+0080 to U+009F) are refused too: some
// terminals take U+009B as the start of a control sequence, as they take ESC [.
int PrintableUtf8Length(const unsigned char* p) {
    if (p[0] < 0xC2 || p[0] > 0xF4) return 0;
    const int n = p[0] >= 0xF0 ? 4 : p[0] >= 0xE0 ? 3 : 2;
    // A NUL ends the text before any byte behind it is read.
    for (int k = 1; k < n; ++k)
        if ((p[k] & 0xC0) != 0x80) return 0;
    if (p[0] == 0xC2 && p[1] < 0xA0) return 0;
    if ((p[0] == 0xE0 && p[1] < 0xA0) || (p[0] == 0xED && p[1] >= 0xA0)) return 0;  // overlong, surrogate
    if ((p[0] == 0xF0 && p[1] < 0x90) || (p[0] == 0xF4 && p[1] >= 0x90)) return 0;  // overlong, beyond U+10FFFF
    return n;
}

std::string OneLine(const char* text) {
    std::string out;
    for (const char* p = text; *p;) {
        const unsigned char c = static_cast<unsigned char>(*p);
        if (c >= 0x80) {
            const int n = PrintableUtf8Length(reinterpret_cast<const unsigned char*>(p));
            out.append(n ? p : "?", n ? static_cast<size_t>(n) : 1);
            p += n ? n : 1;
            continue;
        }
        if (c == '\n')
            out += ' ';
        else if ((c < 0x20 && c != '\t') || c == 0x7f)
            out += '?';
        else
            out += static_cast<char>(c);
        ++p;
    }
    return out;
}

}  // namespace inpdeck
