// The exceptions with which reading a deck and typed access to its values fail.
//
// Two families: inp_KeywordException carries the line and file of the keyword line it
// concerns, and is what the parser catches; inp_ParameterException concerns one
// parameter and is turned into an inp_KeywordParameterException by the parser, which
// knows the line. The line and file travel with the object but are not part of the
// text: UserReport gives the bare message, and a caller that wants the place in it
// builds the message with inp_Utils::MessageInKeyword.
//
// Every class overrides its destructor, Propagate and Copy, so that a copy or a raise
// through a base reference keeps the true class.
#ifndef INP_EXCEPTIONS_H
#define INP_EXCEPTIONS_H

#include "cow_String.h"
#include "nex_Exception.h"

class inp_KeywordException : public nex_TextException {
public:
    inp_KeywordException(int line, const cow_String& file, const atr_String& text);
    ~inp_KeywordException() override;
    NEX_EXCEPTION_BODY(inp_KeywordException)

    int lineNumber;
    cow_String fileName;
};

class inp_ParameterException : public nex_TextException {
public:
    explicit inp_ParameterException(const atr_String& text);
    ~inp_ParameterException() override;
    NEX_EXCEPTION_BODY(inp_ParameterException)
};

// A parameter problem, placed on its keyword line.
class inp_KeywordParameterException : public inp_KeywordException {
public:
    inp_KeywordParameterException(int line, const cow_String& file, const cow_String& keywordName,
                                  const inp_ParameterException& cause);
    ~inp_KeywordParameterException() override;
    NEX_EXCEPTION_BODY(inp_KeywordParameterException)

    cow_String keywordName;
};

class inp_InvalidContinuationLineException : public inp_KeywordException {
public:
    inp_InvalidContinuationLineException(int line, const cow_String& file, const atr_String& text);
    ~inp_InvalidContinuationLineException() override;
    NEX_EXCEPTION_BODY(inp_InvalidContinuationLineException)
};

class inp_EncryptionException : public inp_KeywordException {
public:
    inp_EncryptionException(int line, const cow_String& file, const atr_String& text);
    ~inp_EncryptionException() override;
    NEX_EXCEPTION_BODY(inp_EncryptionException)
};

class inp_NoInputParameterException : public inp_KeywordException {
public:
    inp_NoInputParameterException(int line, const cow_String& file);
    ~inp_NoInputParameterException() override;
    NEX_EXCEPTION_BODY(inp_NoInputParameterException)
};

// The include file family: `name` is the file as the deck names it.
class inp_MissingIncludeFileException : public inp_KeywordException {
public:
    inp_MissingIncludeFileException(int line, const cow_String& file, const cow_String& name);
    ~inp_MissingIncludeFileException() override;
    NEX_EXCEPTION_BODY(inp_MissingIncludeFileException)
};

class inp_UnreadableIncludeFileException : public inp_KeywordException {
public:
    inp_UnreadableIncludeFileException(int line, const cow_String& file, const cow_String& name);
    ~inp_UnreadableIncludeFileException() override;
    NEX_EXCEPTION_BODY(inp_UnreadableIncludeFileException)
};

class inp_CircularIncludeFileException : public inp_KeywordException {
public:
    inp_CircularIncludeFileException(int line, const cow_String& file, const cow_String& name);
    ~inp_CircularIncludeFileException() override;
    NEX_EXCEPTION_BODY(inp_CircularIncludeFileException)
};

class inp_ParameterizedIncludeFileException : public inp_KeywordException {
public:
    inp_ParameterizedIncludeFileException(int line, const cow_String& file, const cow_String& name);
    ~inp_ParameterizedIncludeFileException() override;
    NEX_EXCEPTION_BODY(inp_ParameterizedIncludeFileException)
};

// `name` is the keyword name as given, lower case without blanks.
class inp_UnknownKeywordException : public inp_KeywordException {
public:
    inp_UnknownKeywordException(int line, const cow_String& file, const cow_String& name);
    ~inp_UnknownKeywordException() override;
    NEX_EXCEPTION_BODY(inp_UnknownKeywordException)

    // Always empty: nothing offers a guess at the keyword that was meant.
    cow_String hint;
};

class inp_AmbiguousKeywordException : public inp_KeywordException {
public:
    inp_AmbiguousKeywordException(int line, const cow_String& file, const cow_String& name);
    ~inp_AmbiguousKeywordException() override;
    NEX_EXCEPTION_BODY(inp_AmbiguousKeywordException)

    // Always empty, as for an unknown keyword.
    cow_String hint;
};

class inp_InvalidParameterException : public inp_ParameterException {
public:
    // The parameter as the deck wrote it.
    explicit inp_InvalidParameterException(const cow_String& parameter);
    ~inp_InvalidParameterException() override;
    NEX_EXCEPTION_BODY(inp_InvalidParameterException)
};

class inp_InvalidParameterValueException : public inp_ParameterException {
public:
    inp_InvalidParameterValueException(const cow_String& name, const cow_String& value);
    ~inp_InvalidParameterValueException() override;
    NEX_EXCEPTION_BODY(inp_InvalidParameterValueException)
};

class inp_MissingEndQuoteException : public inp_ParameterException {
public:
    explicit inp_MissingEndQuoteException(const cow_String& parameterText);
    ~inp_MissingEndQuoteException() override;
    NEX_EXCEPTION_BODY(inp_MissingEndQuoteException)
};

class inp_MemoryException : public nex_TextException {
public:
    inp_MemoryException();
    ~inp_MemoryException() override;
    NEX_EXCEPTION_BODY(inp_MemoryException)
};

#endif
