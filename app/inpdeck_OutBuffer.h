// Text out to a file through one large buffer, numbers through std::to_chars: the
// writers of large models (JSON, VTU) put a million numbers without a string each.
#ifndef INPDECK_OUTBUFFER_H
#define INPDECK_OUTBUFFER_H

#include <cstdio>
#include <cstring>
#include <vector>

namespace inpdeck {

class OutBuffer {
public:
    explicit OutBuffer(std::FILE* out);
    ~OutBuffer() { Flush(); }
    OutBuffer(const OutBuffer&) = delete;
    OutBuffer& operator=(const OutBuffer&) = delete;

    void Put(char c) {
        if (used_ == buffer_.size()) Drain();
        buffer_[used_++] = c;
    }
    void Put(const char* text, size_t n);
    void Put(const char* text) { Put(text, std::strlen(text)); }
    void Int(long long value);
    // The shortest form that reads back to the same double.
    void Double(double value);

    // Writes out what the buffer holds; false when the file refused any of it.
    bool Flush();

private:
    void Drain();

    std::FILE* out_;
    std::vector<char> buffer_;
    size_t used_ = 0;
    bool failed_ = false;
};

}  // namespace inpdeck

#endif
