#include "inpdeck_OutBuffer.h"

#include <algorithm>
#include <charconv>

namespace inpdeck {

namespace {

// Large enough that a million-element model goes out in a few hundred writes.
constexpr size_t kBufferSize = 1 << 20;
// Room for the longest number to_chars writes.
constexpr size_t kNumberRoom = 32;

}  // namespace

OutBuffer::OutBuffer(std::FILE* out) : out_(out), buffer_(kBufferSize) {}

void OutBuffer::Drain() {
    if (used_ > 0 && std::fwrite(buffer_.data(), 1, used_, out_) != used_) failed_ = true;
    used_ = 0;
}

bool OutBuffer::Flush() {
    Drain();
    if (std::fflush(out_) != 0 || std::ferror(out_)) failed_ = true;
    return !failed_;
}

void OutBuffer::Put(const char* text, size_t n) {
    while (n > 0) {
        if (used_ == buffer_.size()) Drain();
        const size_t k = std::min(n, buffer_.size() - used_);
        std::memcpy(buffer_.data() + used_, text, k);
        used_ += k;
        text += k;
        n -= k;
    }
}

void OutBuffer::Int(long long value) {
    if (buffer_.size() - used_ < kNumberRoom) Drain();
    const std::to_chars_result r = std::to_chars(buffer_.data() + used_, buffer_.data() + buffer_.size(), value);
    used_ = static_cast<size_t>(r.ptr - buffer_.data());
}

void OutBuffer::Double(double value) {
    if (buffer_.size() - used_ < kNumberRoom) Drain();
    const std::to_chars_result r = std::to_chars(buffer_.data() + used_, buffer_.data() + buffer_.size(), value);
    used_ = static_cast<size_t>(r.ptr - buffer_.data());
}

}  // namespace inpdeck
