#include "inpdeck_JsonWriter.h"

#include <cmath>

#include "inpdeck_Text.h"

namespace inpdeck {

void JsonWriter::Separate() {
    if (afterKey_) {
        afterKey_ = false;
        return;
    }
    if (first_.empty()) return;
    if (first_.back())
        first_.back() = false;
    else
        out_.Put(',');
}

void JsonWriter::BeginObject() {
    Separate();
    out_.Put('{');
    first_.push_back(true);
}

void JsonWriter::EndObject() {
    first_.pop_back();
    out_.Put('}');
    if (first_.empty()) out_.Put('\n');
}

void JsonWriter::BeginArray() {
    Separate();
    out_.Put('[');
    first_.push_back(true);
}

void JsonWriter::EndArray() {
    first_.pop_back();
    out_.Put(']');
}

void JsonWriter::Key(const char* name) {
    String(name);
    out_.Put(':');
    afterKey_ = true;
}

void JsonWriter::String(const char* text) {
    Separate();
    out_.Put('"');
    static const char kHex[] = "0123456789abcdef";
    for (const unsigned char* p = reinterpret_cast<const unsigned char*>(text); *p; ++p) {
        const unsigned char c = *p;
        if (c == '"' || c == '\\') {
            out_.Put('\\');
            out_.Put(static_cast<char>(c));
        } else if (c < 0x20) {
            const char escaped[] = {'\\', 'u', '0', '0', kHex[c >> 4], kHex[c & 15]};
            out_.Put(escaped, sizeof escaped);
        } else if (c < 0x80) {
            out_.Put(static_cast<char>(c));
        } else if (const int n = PrintableUtf8Length(p)) {
            out_.Put(reinterpret_cast<const char*>(p), static_cast<size_t>(n));
            p += n - 1;
        } else {
            // A JSON reader refuses a byte that is no UTF-8: it stands as U+FFFD.
            out_.Put("\\ufffd", 6);
        }
    }
    out_.Put('"');
}

void JsonWriter::Int(long long value) {
    Separate();
    out_.Int(value);
}

void JsonWriter::Double(double value) {
    if (!std::isfinite(value)) {
        Null();
        return;
    }
    Separate();
    out_.Double(value);
}

void JsonWriter::Null() {
    Separate();
    out_.Put("null", 4);
}

}  // namespace inpdeck
