// Message texts of the parsing exceptions. All go through atr_translate so that a
// catalogue can translate them; the blanks in them are part of the texts.
#include "inp_Exceptions.h"

namespace {

atr_String Translate(const char* format) { return atr_translate(format).Result(); }

atr_String Translate(const char* format, const atr_StringBase& first) { return atr_Format(format, first); }

atr_String Translate(const char* format, const atr_StringBase& first, const atr_StringBase& second) {
    return atr_Format(format, first, second);
}

}  // namespace

inp_KeywordException::inp_KeywordException(int line, const cow_String& file, const atr_String& text)
    : nex_TextException(text), lineNumber(line), fileName(file) {}
inp_KeywordException::~inp_KeywordException() = default;

inp_ParameterException::inp_ParameterException(const atr_String& text) : nex_TextException(text) {}
inp_ParameterException::~inp_ParameterException() = default;

inp_KeywordParameterException::inp_KeywordParameterException(int line, const cow_String& file,
                                                             const cow_String& name,
                                                             const inp_ParameterException& cause)
    : inp_KeywordException(line, file,
                           Translate("Problem when parsing keyword: %s     %s", name, cause.UserReport())),
      keywordName(name) {}
inp_KeywordParameterException::~inp_KeywordParameterException() = default;

inp_InvalidContinuationLineException::inp_InvalidContinuationLineException(int line, const cow_String& file,
                                                                           const atr_String& text)
    : inp_KeywordException(line, file, text) {}
inp_InvalidContinuationLineException::~inp_InvalidContinuationLineException() = default;

inp_EncryptionException::inp_EncryptionException(int line, const cow_String& file, const atr_String& text)
    : inp_KeywordException(line, file, text) {}
inp_EncryptionException::~inp_EncryptionException() = default;

inp_NoInputParameterException::inp_NoInputParameterException(int line, const cow_String& file)
    : inp_KeywordException(line, file, Translate("Missing input parameter")) {}
inp_NoInputParameterException::~inp_NoInputParameterException() = default;

inp_MissingIncludeFileException::inp_MissingIncludeFileException(int line, const cow_String& file,
                                                                 const cow_String& name)
    : inp_KeywordException(line, file, Translate("Include file \"%s\" does not exist.", name)) {}
inp_MissingIncludeFileException::~inp_MissingIncludeFileException() = default;

inp_UnreadableIncludeFileException::inp_UnreadableIncludeFileException(int line, const cow_String& file,
                                                                       const cow_String& name)
    : inp_KeywordException(line, file, Translate("Input file \"%s\" is unreadable.", name)) {}
inp_UnreadableIncludeFileException::~inp_UnreadableIncludeFileException() = default;

inp_CircularIncludeFileException::inp_CircularIncludeFileException(int line, const cow_String& file,
                                                                   const cow_String& name)
    : inp_KeywordException(line, file, Translate("Include file \"%s\" has already been included.", name)) {}
inp_CircularIncludeFileException::~inp_CircularIncludeFileException() = default;

inp_ParameterizedIncludeFileException::inp_ParameterizedIncludeFileException(int line, const cow_String& file,
                                                                             const cow_String& name)
    : inp_KeywordException(line, file,
                           Translate("Include file \"%s\" name is parameterized and not substituted.", name)) {}
inp_ParameterizedIncludeFileException::~inp_ParameterizedIncludeFileException() = default;

inp_UnknownKeywordException::inp_UnknownKeywordException(int line, const cow_String& file, const cow_String& name)
    : inp_KeywordException(
          line, file,
          Translate("Unknown keyword \"%s\". The keyword may be misspelled, obsolete, or invalid.", name)) {}
inp_UnknownKeywordException::~inp_UnknownKeywordException() = default;

inp_AmbiguousKeywordException::inp_AmbiguousKeywordException(int line, const cow_String& file,
                                                             const cow_String& name)
    : inp_KeywordException(line, file, Translate("Ambiguous keyword definition \"%s\".", name)) {}
inp_AmbiguousKeywordException::~inp_AmbiguousKeywordException() = default;

inp_InvalidParameterException::inp_InvalidParameterException(const cow_String& parameter)
    : inp_ParameterException(
          Translate("Invalid parameter: %s. The parameter may be misspelled, obsolete, or invalid.", parameter)) {}
inp_InvalidParameterException::~inp_InvalidParameterException() = default;

// The value comes first in the sentence, so the arguments are turned round.
inp_InvalidParameterValueException::inp_InvalidParameterValueException(const cow_String& name,
                                                                       const cow_String& value)
    : inp_ParameterException(Translate(
          "Invalid value \"%s\" for parameter \"%s\". The value may be misspelled, obsolete, or invalid.", value,
          name)) {}
inp_InvalidParameterValueException::~inp_InvalidParameterValueException() = default;

inp_MissingEndQuoteException::inp_MissingEndQuoteException(const cow_String& parameterText)
    : inp_ParameterException(Translate("Missing end quote in parameter data \"%s\".", parameterText)) {}
inp_MissingEndQuoteException::~inp_MissingEndQuoteException() = default;

inp_MemoryException::inp_MemoryException()
    : nex_TextException(Translate("Memory allocation error. Insufficient physical memory or swap space.")) {}
inp_MemoryException::~inp_MemoryException() = default;
