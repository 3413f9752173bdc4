// inpdeck: the command-line driver of the deck library.
//
// It makes one inp_Deck, calls its phases in order and reads the error sink between
// them, as any driver of the library would. It also answers questions about the
// keyword vocabulary.
//
// Exit status: 0 when the sink holds no error (warnings do not count), 1 when it holds
// one, 2 for a usage error, a deck file that cannot be read, or output that cannot be
// written. The library reports on a deck it could open; a deck it could not open is
// for the driver to tell, since the library then says nothing at all.
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <new>
#include <string>

#include "aio_ostream.h"
#include "inp.h"
#include "omi_Timer.h"
#include "inpdeck_Continuation.h"
#include "inpdeck_Diagnostics.h"
#include "inpdeck_Encipher.h"
#include "inpdeck_Flat.h"
#include "inpdeck_Json.h"
#include "inpdeck_Progress.h"
#include "inpdeck_Vtk.h"
#include "inpdeck_Report.h"
#include "inpdeck_Text.h"

namespace {

using inpdeck::OneLine;

const char kUsage[] =
    "usage: inpdeck [options] DECK\n"
    "       inpdeck keyword NAME...\n"
    "       inpdeck encipher --password TEXT IN OUT\n"
    "       inpdeck --version | --help\n"
    "\n"
    "  DECK                read the deck and report every message on standard error,\n"
    "                      one line each, followed by a summary line, then a table of\n"
    "                      the model on standard output (parts, the assembly and its\n"
    "                      instances: counts and placements) unless standard output\n"
    "                      carries the deck (-p -) or the tree\n"
    "  -p FILE             write the deck in normal form to FILE (\"-\": standard output)\n"
    "  -I DIR              look for include files in DIR when the current directory\n"
    "                      does not hold them (default: the directory of DECK)\n"
    "  --stop-after PHASE  stop after PHASE; phases in order: parse, expand, organize,\n"
    "                      check, parameters.\n"
    "                      A phase that reports a fatal error (error[0]) is the last\n"
    "                      one run\n"
    "  --simple            convert a flat deck by the simple route: everything stays in\n"
    "                      one part, rigid bodies and rigid surfaces too (default: they\n"
    "                      get parts of their own)\n"
    "  --tree              show the keywords on standard output as the last phase left\n"
    "                      them, one a line, each suboption two blanks further in\n"
    "  --max-messages N    show the first N messages (default 1000, 0: all), then one\n"
    "                      line with how many more there were\n"
    "  --json FILE         write the model as JSON to FILE (\"-\": standard output); the\n"
    "                      schema is docs/json-schema.md\n"
    "  --vtk FILE          write the mesh as a VTK unstructured grid (.vtu) to FILE:\n"
    "                      points in global axes, one cell per element with a VTK\n"
    "                      shape, ids, instances, element types and sets as arrays\n"
    "  --flat FILE         write the deck as one flat deck to FILE (\"-\": standard\n"
    "                      output), for solvers that read no parts: nodes in global\n"
    "                      axes and ids, elements with global ids, each set and\n"
    "                      surface of an instance as INSTANCE_NAME, references\n"
    "                      rewritten to match; a deck without parts as -p writes it\n"
    "  --diagnostics=gnu   a message whose file and line are known is written as\n"
    "                      FILE:LINE: error: TEXT (or warning:), as compilers do, for\n"
    "                      editors to jump to; the others as before\n"
    "  --save-partmap FILE write the part map of the job to FILE once its model is\n"
    "                      complete, for a restart or import job to start from\n"
    "  --oldpartmap FILE   run a continuation job (restart or import) on the model of\n"
    "                      the job that wrote FILE with --save-partmap\n"
    "  --indir DIR         the directory of the earlier job's results (import)\n"
    "  --oldjob NAME       the earlier job to import from, where the deck names none\n"
    "  -v                  tell each phase as it ends, with its time and MB/s; on a\n"
    "                      terminal a phase longer than a second shows its progress\n"
    "  --quiet             leave out the model report: only the messages and the\n"
    "                      summary line\n"
    "  keyword NAME        resolve a keyword name as a deck line would (any case, blanks\n"
    "                      ignored, unique abbreviations allowed) and show its canonical\n"
    "                      name, value, the keywords that may hold it and its suboptions\n"
    "  encipher            write the file IN enciphered to OUT, for a deck to read\n"
    "                      through *INCLUDE, INPUT=OUT, PASSWORD=TEXT; it keeps a\n"
    "                      casual reader out, not a determined one\n"
    "  --version           print the version\n"
    "  --help              print this text\n"
    "\n"
    "exit status: 0 no error reported, 1 errors reported, 2 usage or file error\n";

// --simple: the reduced conversion of a flat deck.
bool simpleConversion = false;

// The phases the driver can run, in order. The deck's own name is set apart: Parse
// takes it, the others work on what Parse read.
struct Phase {
    const char* name;
    void (*run)(inp_Deck& deck, const char* file);
};
const Phase kPhases[] = {
    {"parse", [](inp_Deck& deck, const char* file) { deck.Parse(file); }},
    {"expand", [](inp_Deck& deck, const char*) { deck.ExpandKeywords(); }},
    {"organize", [](inp_Deck& deck, const char*) { inpdeck::Organize(deck, !simpleConversion); }},
    {"check", [](inp_Deck& deck, const char*) { deck.CheckOutOfPlace(); }},
    {"parameters", [](inp_Deck& deck, const char*) { deck.setModelParameters(); }},
    {nullptr, nullptr},
};

int UsageError(const char* text, const char* detail) {
    if (text) std::fprintf(stderr, "inpdeck: %s%s\n", text, detail ? OneLine(detail).c_str() : "");
    std::fputs(kUsage, stderr);
    return 2;
}

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
        std::fprintf(stderr, "error: %s\n", OneLine(e.UserReport().c_str()).c_str());
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

struct Options {
    const char* deck = nullptr;
    const char* printTo = nullptr;
    const char* includeDirectory = nullptr;
    const char* stopAfter = nullptr;  // the last phase
    bool tree = false;
    bool simple = false;
    bool quiet = false;
    const char* jsonTo = nullptr;
    const char* vtkTo = nullptr;
    const char* flatTo = nullptr;
    bool gnuDiagnostics = false;
    bool verbose = false;
    int maxMessages = 1000;  // 0: all
    inpdeck::ContinuationOptions continuation;
};

// Why the deck file cannot be read, or null when it can.
const char* UnreadableBecause(const char* name) {
    std::error_code ec;
    std::filesystem::file_status st = std::filesystem::status(name, ec);
    if (ec || !std::filesystem::exists(st)) return "no such file";
    if (std::filesystem::is_directory(st)) return "it is a directory";
    if (!std::filesystem::is_regular_file(st)) return "not a regular file";
    std::FILE* f = std::fopen(name, "rb");
    if (!f) return "permission denied";
    std::fclose(f);
    return nullptr;
}

// `*NAME, file "x", line n` as messages name a keyword, indented by depth.
void PrintTree(const cow_1DArrayList<inp_Keyword>& keywords, int depth) {
    for (int i = 0; i < keywords.Count(); ++i) {
        const inp_Keyword& k = keywords.ConstGet(i);
        std::printf("%*s*%s", 2 * depth, "", k.Name().ToUpper().c_str());
        if (!k.fileName.IsEmpty()) std::printf(", file \"%s\"", OneLine(k.fileName.c_str()).c_str());
        if (k.lineNumber != 0) std::printf(", line %d", k.lineNumber);
        std::printf("\n");
        PrintTree(k.suboptions, depth + 1);
    }
}

int PrintDeck(inp_Deck& model, const char* target) {
    if (!std::strcmp(target, "-")) {
        aio_ostdstream out(stdout);
        model.Print(out);
        out.sync();
        if (out.fail()) {
            std::fprintf(stderr, "inpdeck: cannot write the deck to standard output\n");
            return 2;
        }
        return 0;
    }
    aio_ofstream out(target);
    if (!out.is_open()) {
        std::fprintf(stderr, "inpdeck: cannot write \"%s\"\n", target);
        return 2;
    }
    model.Print(out);
    out.close();
    if (out.fail()) {
        std::fprintf(stderr, "inpdeck: cannot write \"%s\"\n", target);
        return 2;
    }
    return 0;
}

// One output of the driver, written by `write` to a file or, for "-", to standard
// output; 2 when it cannot be written.
template <class Write>
int WriteOutput(const char* target, const char* what, Write&& write) {
    const bool toStdout = !std::strcmp(target, "-");
    std::FILE* f = toStdout ? stdout : std::fopen(target, "wb");
    bool ok = f && write(f);
    if (f && !toStdout) ok = std::fclose(f) == 0 && ok;
    if (ok) return 0;
    if (toStdout)
        std::fprintf(stderr, "inpdeck: cannot write the %s to standard output\n", what);
    else
        std::fprintf(stderr, "inpdeck: cannot write \"%s\"\n", OneLine(target).c_str());
    return 2;
}

bool IsStdout(const char* target) { return target && !std::strcmp(target, "-"); }

// The size of a written file, for the rate of its writing; 0 for standard output.
double WrittenBytes(const char* target) {
    std::error_code ec;
    const auto size = IsStdout(target) ? 0 : std::filesystem::file_size(target, ec);
    return ec ? 0.0 : static_cast<double>(size);
}

// What the grid left out, in one warning.
void WarnLeftOut(const char* target, const inpdeck::VtkLeftOut& leftOut) {
    int count = leftOut.undefinedNodes;
    std::string types;
    for (const auto& type : leftOut.noShape) {
        count += type.second;
        types += (types.empty() ? "" : ", ") + OneLine(type.first.c_str()) + " (" + std::to_string(type.second) + ")";
    }
    if (count == 0) return;
    std::string why;
    if (!types.empty()) why = "no VTK shape for " + types;
    if (leftOut.undefinedNodes)
        why += (why.empty() ? "" : "; ") + std::to_string(leftOut.undefinedNodes) + " name nodes that are not defined";
    std::fprintf(stderr, "inpdeck: warning: %d elements left out of \"%s\": %s\n", count, OneLine(target).c_str(),
                 why.c_str());
}

int RunDeck(const Options& options) {
    if (const char* why = UnreadableBecause(options.deck)) {
        std::fprintf(stderr, "inpdeck: cannot read deck \"%s\": %s\n", OneLine(options.deck).c_str(), why);
        return 2;
    }
    if (int prepared = inpdeck::PrepareContinuation(options.continuation)) return prepared;

    inp_Deck model;
    if (options.includeDirectory) {
        model.includeDirectory = options.includeDirectory;
    } else {
        // Include files are named relative to the deck as a rule, and the reader looks
        // in the current directory first; the deck's own directory comes second.
        std::filesystem::path dir = std::filesystem::path(options.deck).parent_path();
        if (!dir.empty()) model.includeDirectory = dir.string().c_str();
    }

    simpleConversion = options.simple;
    inpdeck::PhaseProgress progress(options.verbose);
    // The rate of every phase is over the bytes the parse read, include files counted.
    std::error_code ec;
    double deckBytes = static_cast<double>(std::filesystem::file_size(options.deck, ec));
    omi_Timer timer;
    timer.Start();
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    for (const Phase* phase = kPhases; phase->name; ++phase) {
        progress.Begin(phase->name);
        const long long readBefore = inpdeck::PhaseProgress::BytesRead();
        // A pass that gives up raises; the user sees why, and the deck goes no further.
        try {
            phase->run(model, options.deck);
        } catch (const nex_Exception& e) {
            sink.Error(atr_String(e.UserReport()), wip_Fatal);
        } catch (const std::bad_alloc&) {
            sink.Error(atr_raw("out of memory"), wip_Fatal);
        }
        const long long readAfter = inpdeck::PhaseProgress::BytesRead();
        if (phase == kPhases && readBefore >= 0 && readAfter > readBefore)
            deckBytes = static_cast<double>(readAfter - readBefore);
        progress.End(deckBytes);
        if (options.stopAfter && !std::strcmp(phase->name, options.stopAfter)) break;
        // The later phases assume a deck that could be read.
        if (sink.ErrorCount(wip_Fatal) > 0) break;
    }
    // Contact field output that the explicit procedure cannot write, once every phase
    // has run (a fatal error stops them); an explicit step gets field output by default.
    if (sink.ErrorCount(wip_Fatal) == 0 && (!options.stopAfter || !std::strcmp(options.stopAfter, "parameters")))
        inp_ContactCheck(model.assemblySurfaces, model.keywords).PerformCheck(true);
    timer.Stop();

    inpdeck::DiagnosticsOptions diagnostics;
    diagnostics.maxMessages = options.maxMessages;
    diagnostics.gnu = options.gnuDiagnostics;
    int status = inpdeck::ReportMessages(OneLine(options.deck).c_str(), model, timer.GetElapsedTime(), diagnostics);
    if (options.tree) PrintTree(model.keywords, 0);
    const bool stdoutTaken = options.tree || IsStdout(options.printTo) || IsStdout(options.jsonTo) ||
                             IsStdout(options.vtkTo) || IsStdout(options.flatTo);
    if (!options.quiet && !stdoutTaken) inpdeck::PrintModelReport(stdout, model);
    if (options.printTo) {
        int printed = PrintDeck(model, options.printTo);
        if (printed) status = printed;
    }
    if (int saved = inpdeck::SaveContinuation(options.continuation, model)) status = saved;
    if (options.jsonTo) {
        progress.Begin("json");
        const std::string deckName = options.deck;
        const int written = WriteOutput(options.jsonTo, "model", [&](std::FILE* f) {
            return inpdeck::WriteModelJson(f, deckName.c_str(), model);
        });
        progress.End(WrittenBytes(options.jsonTo));
        if (written) status = written;
    }
    if (options.vtkTo) {
        inpdeck::VtkLeftOut leftOut;
        progress.Begin("vtk");
        const int written = WriteOutput(options.vtkTo, "mesh", [&](std::FILE* f) {
            return inpdeck::WriteModelVtu(f, model, leftOut);
        });
        progress.End(WrittenBytes(options.vtkTo));
        if (written)
            status = written;
        else
            WarnLeftOut(options.vtkTo, leftOut);
    }
    if (options.flatTo) {
        progress.Begin("flat");
        const int written = inpdeck::WriteFlat(options.flatTo, model);
        progress.End(WrittenBytes(options.flatTo));
        if (written) status = written;
    }
    return status;
}

bool IsPhase(const char* name) {
    for (const Phase* p = kPhases; p->name; ++p)
        if (!std::strcmp(p->name, name)) return true;
    return false;
}

int Run(int argc, char** argv) {
    if (argc < 2) return UsageError(nullptr, nullptr);
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
        if (argc < 3) return UsageError("keyword: a name is needed", nullptr);
        int status = 0;
        for (int i = 2; i < argc; ++i) status |= DescribeKeyword(argv[i]);
        return status;
    }
    if (!std::strcmp(first, "encipher")) return inpdeck::Encipher(argc - 2, argv + 2);

    Options options;
    bool optionsEnded = false;
    for (int i = 1; i < argc; ++i) {
        const char* arg = argv[i];
        if (!optionsEnded && arg[0] == '-' && arg[1] != '\0') {
            if (!std::strcmp(arg, "--")) {
                optionsEnded = true;
            } else if (!std::strcmp(arg, "--tree")) {
                options.tree = true;
            } else if (!std::strcmp(arg, "--simple")) {
                options.simple = true;
            } else if (!std::strncmp(arg, "--diagnostics=", 14)) {
                if (std::strcmp(arg + 14, "gnu") && std::strcmp(arg + 14, "default"))
                    return UsageError("unknown diagnostics format: ", arg + 14);
                options.gnuDiagnostics = !std::strcmp(arg + 14, "gnu");
            } else if (!std::strcmp(arg, "-v")) {
                options.verbose = true;
            } else if (!std::strcmp(arg, "--quiet")) {
                options.quiet = true;
            } else if (!std::strcmp(arg, "--max-messages")) {
                if (i + 1 >= argc) return UsageError("missing value after ", arg);
                const char* value = argv[++i];
                char* end = nullptr;
                const long n = std::strtol(value, &end, 10);
                if (!*value || *end || n < 0 || n > 2147483647L) return UsageError("invalid message count: ", value);
                options.maxMessages = static_cast<int>(n);
            } else if (!std::strcmp(arg, "--save-partmap") || !std::strcmp(arg, "--oldpartmap") ||
                       !std::strcmp(arg, "--indir") || !std::strcmp(arg, "--oldjob")) {
                if (i + 1 >= argc) return UsageError("missing value after ", arg);
                inpdeck::ContinuationOptions& c = options.continuation;
                const char* value = argv[++i];
                (arg[2] == 's' ? c.savePartMap : arg[2] == 'i' ? c.inputDirectory
                                             : !std::strcmp(arg, "--oldjob") ? c.oldJob : c.oldPartMap) = value;
            } else if (!std::strcmp(arg, "--json") || !std::strcmp(arg, "--vtk")) {
                if (i + 1 >= argc) return UsageError("missing value after ", arg);
                (arg[2] == 'j' ? options.jsonTo : options.vtkTo) = argv[++i];
            } else if (!std::strcmp(arg, "--flat")) {
                if (i + 1 >= argc) return UsageError("missing value after ", arg);
                options.flatTo = argv[++i];
            } else if (!std::strcmp(arg, "-p") || !std::strcmp(arg, "-I") || !std::strcmp(arg, "--stop-after")) {
                if (i + 1 >= argc) return UsageError("missing value after ", arg);
                const char* value = argv[++i];
                if (arg[1] == 'p')
                    options.printTo = value;
                else if (arg[1] == 'I')
                    options.includeDirectory = value;
                else if (!IsPhase(value))
                    return UsageError("unknown phase: ", value);
                else
                    options.stopAfter = value;
            } else {
                return UsageError("unknown option: ", arg);
            }
            continue;
        }
        if (options.deck) return UsageError("more than one deck: ", arg);
        options.deck = arg;
    }
    if (!options.deck) return UsageError("no deck given", nullptr);
    return RunDeck(options);
}

}  // namespace

int main(int argc, char** argv) {
    int count = 0;
    inp_initialize(count);
    int status = Run(argc, argv);
    inp_finalize(count);
    return status;
}
