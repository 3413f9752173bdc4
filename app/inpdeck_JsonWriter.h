// A JSON writer that streams into a file through one large buffer. It keeps no
// document: only a stack of "is this the first member" flags, one per open
// container, so its memory does not grow with what it writes. Numbers go out through
// std::to_chars, shortest form that reads back to the same double.
#ifndef INPDECK_JSONWRITER_H
#define INPDECK_JSONWRITER_H

#include <cstdio>
#include <string>
#include <vector>

namespace inpdeck {

class JsonWriter {
public:
    explicit JsonWriter(std::FILE* out);
    ~JsonWriter();
    JsonWriter(const JsonWriter&) = delete;
    JsonWriter& operator=(const JsonWriter&) = delete;

    void BeginObject();
    void EndObject();
    void BeginArray();
    void EndArray();
    // The name of the next member of an object.
    void Key(const char* name);

    void String(const char* text);
    void Int(long long value);
    // Infinite and NaN values, which JSON cannot hold, are written as null.
    void Double(double value);
    void Null();

    // Writes out what the buffer holds; false when the file refused any of it.
    bool Flush();

private:
    void Separate();
    void Put(char c) {
        if (used_ == buffer_.size()) Drain();
        buffer_[used_++] = c;
    }
    void Put(const char* text, size_t n);
    void Reserve(size_t n) {
        if (buffer_.size() - used_ < n) Drain();
    }
    void Drain();

    std::FILE* out_;
    std::vector<char> buffer_;
    size_t used_ = 0;
    bool failed_ = false;
    std::vector<bool> first_;  // per open container
    bool afterKey_ = false;
};

}  // namespace inpdeck

#endif
