// Shortest ways to build data arrays in tests and to read what their operations raise.
#ifndef INP_DATAARRAYTESTING_H
#define INP_DATAARRAYTESTING_H

#include <initializer_list>
#include <string>

#include "inp_DataArray.h"
#include "nex_Exception.h"

namespace inp_test {

// A raw array holding the lines as a deck's data lines.
inline inp_DataArray ArrayOf(std::initializer_list<const char*> lines) {
    inp_DataArray data(new inp_RawDataArrayImpl());
    for (const char* line : lines) data.Append(line);
    return data;
}

// The text of the exception of class E that f raises, or "" if none: the condition of
// an assertion, the message of a nex_TextException.
template <class E, class F>
std::string RaisedText(F f) {
    try {
        f();
    } catch (const E& e) {
        return e.AsString().c_str();
    }
    return "";
}

template <class F>
std::string AssertionOf(F f) {
    return RaisedText<nex_AssertException>(f);
}

// Callers that report packing errors catch nex_TextException, so nothing else may escape.
template <class F>
std::string TextOf(F f) {
    return RaisedText<nex_TextException>(f);
}

}  // namespace inp_test

#endif
