#include "inp_Exceptions.h"

namespace {
atr_String Format(const char* format, const cow_String& value) {
    atr_translate t(format);
    atr_SubstituteFormat(t, 1, value);
    return t.Result();
}
}  // namespace

inp_UnknownKeywordException::inp_UnknownKeywordException(int line, const cow_String& file, const cow_String& name)
    : inp_KeywordException(line, file,
                           Format("Unknown keyword \"%s\". The keyword may be misspelled, obsolete, or invalid.", name)) {}

inp_AmbiguousKeywordException::inp_AmbiguousKeywordException(int line, const cow_String& file, const cow_String& name)
    : inp_KeywordException(line, file, Format("Ambiguous keyword definition \"%s\".", name)) {}

inp_MemoryException::inp_MemoryException()
    : nex_TextException(atr_translate("Memory allocation error. Insufficient physical memory or swap space.").Result()) {}
inp_MemoryException::~inp_MemoryException() = default;
