// inpdeck: the command-line driver of the deck library.
//
// It makes one inp_Deck, calls its phases in order and reads the error sink between
// them, as any driver of the library would. It also answers questions about the
// keyword vocabulary.
#include <cstdio>
#include <cstring>
#include <string>

#include "inp.h"

namespace {

const char kUsage[] =
    "usage: inpdeck [options] DECK\n"
    "       inpdeck keyword NAME...\n"
    "       inpdeck --version | --help\n"
    "\n"
    "  keyword NAME   resolve a keyword name as a deck line would (any case, blanks\n"
    "                 ignored, unique abbreviations allowed) and show its canonical\n"
    "                 name, value, the keywords that may hold it and its suboptions\n"
    "  --version      print the version\n"
    "  --help         print this text\n";

// The keyword part of a deck line: case folded, blanks and tabs removed, a leading
// '*' dropped.
cow_String CanonicalForm(const char* given) {
    cow_String name(given);
    name.Trim(" \t");
    if (name.StartsWith("*")) name.Erase(0, 1);
    return name.ToLower();
}

void PrintList(const char* label, const cow_1DArrayList<int>& values) {
    const inp_KeywordTable& table = thr_ThreadSingleton<inp_KeywordTable>::Instance();
    cow_String names = table.KeywordEnum2String(values);
    std::printf("  %-16s %s\n", label, values.IsEmpty() ? "(none)" : names.c_str());
}

int DescribeKeyword(const char* given) {
    const inp_KeywordTable& table = thr_ThreadSingleton<inp_KeywordTable>::Instance();
    cow_String canonical;
    try {
        canonical = table.ResolveName(CanonicalForm(given));
    } catch (const nex_Exception& e) {
        std::fprintf(stderr, "error: %s\n", e.UserReport().c_str());
        return 1;
    }
    inp_KeywordEnm value = table.Enum(canonical);
    cow_String upper(canonical);
    std::printf("%s\n", upper.ToUpper().c_str());
    std::printf("  %-16s %s\n", "canonical name", canonical.c_str());
    std::printf("  %-16s %d\n", "value", static_cast<int>(value));
    PrintList("may stand under", table.ParentKeywords(value));
    PrintList("suboptions", table.Suboptions(value));
    return 0;
}

int Run(int argc, char** argv) {
    if (argc < 2) {
        std::fputs(kUsage, stderr);
        return 2;
    }
    const char* first = argv[1];
    if (!std::strcmp(first, "--version")) {
        std::printf("inpdeck %s\n", INP_VERSION);
        return 0;
    }
    if (!std::strcmp(first, "--help") || !std::strcmp(first, "-h")) {
        std::fputs(kUsage, stdout);
        return 0;
    }
    if (!std::strcmp(first, "keyword")) {
        if (argc < 3) {
            std::fputs(kUsage, stderr);
            return 2;
        }
        int status = 0;
        for (int i = 2; i < argc; ++i) status |= DescribeKeyword(argv[i]);
        return status;
    }
    std::fprintf(stderr, "inpdeck: reading decks is not available in this build\n");
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    int count = 0;
    inp_initialize(count);
    int status = Run(argc, argv);
    inp_finalize(count);
    return status;
}
