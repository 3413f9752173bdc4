// Exceptions of keyword parsing (the full tree lands with the items module).
#ifndef INP_EXCEPTIONS_H
#define INP_EXCEPTIONS_H

#include "nex_Exception.h"

class inp_KeywordException : public nex_TextException {
public:
    inp_KeywordException(int line, const cow_String& file, const atr_String& text)
        : nex_TextException(text), lineNumber(line), fileName(file) {}
    NEX_EXCEPTION_BODY(inp_KeywordException)
    int lineNumber;
    cow_String fileName;
};

class inp_UnknownKeywordException : public inp_KeywordException {
public:
    inp_UnknownKeywordException(int line, const cow_String& file, const cow_String& name);
    NEX_EXCEPTION_BODY(inp_UnknownKeywordException)
};

class inp_AmbiguousKeywordException : public inp_KeywordException {
public:
    inp_AmbiguousKeywordException(int line, const cow_String& file, const cow_String& name);
    NEX_EXCEPTION_BODY(inp_AmbiguousKeywordException)
};

class inp_MemoryException : public nex_TextException {
public:
    inp_MemoryException();
    ~inp_MemoryException() override;
    NEX_EXCEPTION_BODY(inp_MemoryException)
};

#endif
