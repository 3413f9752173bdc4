// A JSON writer that streams into a file. It keeps no document: only a stack of "is
// this the first member" flags, one per open container, so its memory does not grow
// with what it writes.
#ifndef INPDECK_JSONWRITER_H
#define INPDECK_JSONWRITER_H

#include <cstdio>
#include <vector>

#include "inpdeck_OutBuffer.h"

namespace inpdeck {

class JsonWriter {
public:
    explicit JsonWriter(std::FILE* out) : out_(out) {}
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
    bool Flush() { return out_.Flush(); }

private:
    void Separate();

    OutBuffer out_;
    std::vector<bool> first_;  // per open container
    bool afterKey_ = false;
};

}  // namespace inpdeck

#endif
