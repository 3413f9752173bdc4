#include "inpdeck_JsonWriter.h"

#include <charconv>
#include <cmath>
#include <cstring>

#include "inpdeck_Text.h"

namespace inpdeck {

namespace {

// Large enough that a million-element model goes out in a few hundred writes.
constexpr size_t kBufferSize = 1 << 20;

}  // namespace

JsonWriter::JsonWriter(std::FILE* out) : out_(out), buffer_(kBufferSize) {}

JsonWriter::~JsonWriter() { Flush(); }

void JsonWriter::Drain() {
    if (used_ > 0 && std::fwrite(buffer_.data(), 1, used_, out_) != used_) failed_ = true;
    used_ = 0;
}

bool JsonWriter::Flush() {
    Drain();
    if (std::fflush(out_) != 0 || std::ferror(out_)) failed_ = true;
    return !failed_;
}

void JsonWriter::Put(const char* text, size_t n) {
    while (n > 0) {
        if (used_ == buffer_.size()) Drain();
        const size_t k = std::min(n, buffer_.size() - used_);
        std::memcpy(buffer_.data() + used_, text, k);
        used_ += k;
        text += k;
        n -= k;
    }
}

void JsonWriter::Separate() {
    if (afterKey_) {
        afterKey_ = false;
        return;
    }
    if (first_.empty()) return;
    if (first_.back())
        first_.back() = false;
    else
        Put(',');
}

void JsonWriter::BeginObject() {
    Separate();
    Put('{');
    first_.push_back(true);
}

void JsonWriter::EndObject() {
    first_.pop_back();
    Put('}');
    if (first_.empty()) Put('\n');
}

void JsonWriter::BeginArray() {
    Separate();
    Put('[');
    first_.push_back(true);
}

void JsonWriter::EndArray() {
    first_.pop_back();
    Put(']');
}

void JsonWriter::Key(const char* name) {
    String(name);
    Put(':');
    afterKey_ = true;
}

void JsonWriter::String(const char* text) {
    Separate();
    Put('"');
    static const char kHex[] = "0123456789abcdef";
    for (const unsigned char* p = reinterpret_cast<const unsigned char*>(text); *p; ++p) {
        const unsigned char c = *p;
        if (c == '"' || c == '\\') {
            Put('\\');
            Put(static_cast<char>(c));
        } else if (c < 0x20) {
            const char escaped[] = {'\\', 'u', '0', '0', kHex[c >> 4], kHex[c & 15]};
            Put(escaped, sizeof escaped);
        } else if (c < 0x80) {
            Put(static_cast<char>(c));
        } else if (const int n = PrintableUtf8Length(p)) {
            Put(reinterpret_cast<const char*>(p), static_cast<size_t>(n));
            p += n - 1;
        } else {
            // A JSON reader refuses a byte that is no UTF-8: it stands as U+FFFD.
            Put("\\ufffd", 6);
        }
    }
    Put('"');
}

void JsonWriter::Int(long long value) {
    Separate();
    Reserve(24);
    const std::to_chars_result r = std::to_chars(buffer_.data() + used_, buffer_.data() + buffer_.size(), value);
    used_ = static_cast<size_t>(r.ptr - buffer_.data());
}

void JsonWriter::Double(double value) {
    if (!std::isfinite(value)) {
        Null();
        return;
    }
    Separate();
    Reserve(32);
    const std::to_chars_result r = std::to_chars(buffer_.data() + used_, buffer_.data() + buffer_.size(), value);
    used_ = static_cast<size_t>(r.ptr - buffer_.data());
}

void JsonWriter::Null() {
    Separate();
    Put("null", 4);
}

}  // namespace inpdeck
