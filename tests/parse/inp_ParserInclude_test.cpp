// *INCLUDE: finding the file, refusing missing, unreadable, circular and runaway
// includes, merging the messages of include files, and data lines that run across
// file boundaries in both directions.
#include <gtest/gtest.h>

#include "../support/inp_TestFiles.h"
#include "pnt_PrettyPrint.h"
#include "typ_DebugFlags.h"

using inp_test::InDirectory;
using inp_test::ParseFile;
using inp_test::Printed;
using inp_test::TempDir;

namespace {

TEST(ParserInclude, DataLinesCrossIncludeBoundaries) {
    TempDir dir;
    dir.Write("coords.inc", "** only data\n1, 0., 0., 0.\n2, 1., 0., 0.\n");
    dir.Write("sets.inc", "*ELSET, ELSET=E\n7\n*NSET, NSET=A\n");
    dir.Write("empty.inc", "** nothing but a comment\n");
    InDirectory here(dir.Path());
    struct Case {
        const char* deck;
        const char* printed;
    } cases[] = {
        // Lines at the top of the include file go to the keyword before *INCLUDE.
        {"*NODE\n*INCLUDE, INPUT=coords.inc\n", "*node\n1, 0., 0., 0.\n2, 1., 0., 0.\n"},
        // Lines behind *INCLUDE follow them.
        {"*NODE\n0, 9., 9., 9.\n*INCLUDE, INPUT=coords.inc\n3, 2., 0., 0.\n** c\n4, 3., 0., 0.\n*HEADING\n",
         "*node\n0, 9., 9., 9.\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 2., 0., 0.\n4, 3., 0., 0.\n*heading\n"},
        // ... or go to the last keyword the include file gave.
        {"*INCLUDE, INPUT=sets.inc\n1, 2, 3\n", "*elset, elset=E\n7\n*nset, nset=A\n1, 2, 3\n"},
        // An include file without keywords hands them back to the keyword in front.
        {"*NSET, NSET=B\n5\n*INCLUDE, INPUT=empty.inc\n6\n", "*nset, nset=B\n5\n6\n"},
        // Leading lines with no keyword in front are lost, without a message.
        {"*INCLUDE, INPUT=coords.inc\n*HEADING\n", "*heading\n"},
    };
    for (const Case& c : cases) {
        auto r = ParseFile(dir.Write("main.inp", c.deck));
        EXPECT_EQ(Printed(r.keywords), c.printed) << c.deck;
        EXPECT_TRUE(r.errors.empty() && r.fatal.empty()) << c.deck;
    }
}

TEST(ParserInclude, LinesBehindAnIncludeWithNoTargetFailTheNextKeyword) {
    TempDir dir;
    dir.Write("empty.inc", "");
    InDirectory here(dir.Path());
    auto r = ParseFile(dir.Write("main.inp", "*INCLUDE, INPUT=empty.inc\n1, 2\n3\n*HEADING\n"));
    ASSERT_EQ(r.errors.size(), 1u);
    EXPECT_EQ(r.errors[0], "Unknown exception");
    EXPECT_EQ(Printed(r.keywords), "*heading\n");
}

TEST(ParserInclude, IncludedKeywordsCarryTheirOwnFileAndLines) {
    TempDir dir;
    dir.Write("sub/mesh.inc", "** mesh\n*NODE\n1, 0., 0., 0.\n");
    // Found through the include directory, not the current one.
    auto r = ParseFile(dir.Write("main.inp", "*HEADING\n*INCLUDE,\n INPUT=mesh.inc\n*ELEMENT, TYPE=B31\n"), true,
                       dir / "sub");
    ASSERT_EQ(r.keywords.Count(), 3);
    EXPECT_TRUE(r.errors.empty() && r.fatal.empty());
    EXPECT_STREQ(r.keywords[1].fileName.c_str(), (dir / "sub/mesh.inc").c_str());
    EXPECT_EQ(r.keywords[1].lineNumber, 2);
    EXPECT_EQ(r.keywords[2].lineNumber, 4);
    for (int i = 0; i < r.keywords.Count(); ++i) EXPECT_NE(r.keywords[i].keyword, inp_kwInclude);
}

TEST(ParserInclude, ParametersOfIncludeHaveTheirOwnAbbreviations) {
    TempDir dir;
    dir.Write("a.inc", "*HEADING\n");
    InDirectory here(dir.Path());
    for (const char* line : {"*INCLUDE, INPUT=a.inc", "*INCL, I=a.inc", "*include, inp = a.inc", "*INCLUDE, INPU=a.inc"}) {
        auto r = ParseFile(dir.Write("main.inp", std::string(line) + "\n"));
        EXPECT_EQ(Printed(r.keywords), "*heading\n") << line;
        EXPECT_TRUE(r.errors.empty() && r.fatal.empty()) << line;
    }
}

TEST(ParserInclude, BadIncludesAreFatalAndSkipToTheNextKeyword) {
    TempDir dir;
    dir.Write("a.inc", "*HEADING\n");
    InDirectory here(dir.Path());
    struct Case {
        std::string deck;
        std::string fatal;
    } cases[] = {
        {"*INCLUDE\n1\n", "Missing input parameter"},
        {"*INCLUDE, PASSWORD=x\n1\n", "Missing input parameter"},
        {"*INCLUDE, INPUT=nope.inp\n1\n", "Include file \"nope.inp\" does not exist."},
        // Only regular files are read: a device or a pipe could feed the reader forever.
        {"*INCLUDE, INPUT=/dev/zero\n1\n", "Include file \"/dev/zero\" does not exist."},
        {"*INCLUDE, INPUT=" + dir.Path().string() + "\n1\n",
         "Include file \"" + dir.Path().string() + "\" does not exist."},
    };
    for (const Case& c : cases) {
        auto r = ParseFile(dir.Write("main.inp", "*NSET, NSET=A\n" + c.deck + "*ELSET, ELSET=B\n"));
        EXPECT_EQ(r.fatal, std::vector<std::string>{c.fatal}) << c.deck;
        EXPECT_TRUE(r.errors.empty());
        EXPECT_EQ(Printed(r.keywords), "*nset, nset=A\n*elset, elset=B\n") << c.deck;
    }
}

TEST(ParserInclude, MissingFilesAreRecordedByBaseName) {
    TempDir dir;
    auto strict = ParseFile(dir.Write("main.inp", "*INCLUDE, INPUT=sub/nope.inp\n*INCLUDE, INPUT=sub/nope.inp\n"));
    EXPECT_EQ(strict.fatal.size(), 2u);
    EXPECT_EQ(strict.missing, std::vector<std::string>{"nope.inp"});

    auto lenient = ParseFile(dir / "main.inp", false);
    EXPECT_TRUE(lenient.fatal.empty() && lenient.errors.empty());
    EXPECT_EQ(lenient.missing, std::vector<std::string>{"nope.inp"});
}

TEST(ParserInclude, CircularIncludesAreRefused) {
    TempDir dir;
    const std::string self = "*HEADING\n*INCLUDE, INPUT=a.inp\n1\n*NSET, NSET=A\n";
    dir.Write("a.inp", self);
    {
        // Reached by its absolute name, the main file is seen at once.
        InDirectory here(dir.Path());
        auto r = ParseFile(dir / "a.inp");
        EXPECT_EQ(r.fatal, std::vector<std::string>{"Include file \"a.inp\" has already been included."});
        EXPECT_EQ(Printed(r.keywords), "*heading\n*nset, nset=A\n");

        // Reached by a relative name, it is read once more before the cycle shows.
        auto again = ParseFile("a.inp");
        EXPECT_EQ(again.fatal, std::vector<std::string>{"Include file \"a.inp\" has already been included."});
        // The line behind the outer *INCLUDE goes to the last keyword of the inner copy.
        EXPECT_EQ(Printed(again.keywords), "*heading\n*heading\n*nset, nset=A\n1\n*nset, nset=A\n");
    }

    // A longer cycle, through a relative and an absolute name of one file.
    dir.Write("sub/keep", "");
    dir.Write("b.inp", "*ELSET, ELSET=B\n*INCLUDE, INPUT=./sub/../c.inp\n");
    dir.Write("c.inp", "*ELSET, ELSET=C\n*INCLUDE, INPUT=" + (dir / "b.inp") + "\n");
    InDirectory here(dir.Path());
    auto r = ParseFile(dir.Write("main.inp", "*INCLUDE, INPUT=b.inp\n"));
    EXPECT_EQ(r.fatal, std::vector<std::string>{"Include file \"" + (dir / "b.inp") + "\" has already been included."});
    EXPECT_EQ(Printed(r.keywords), "*elset, elset=B\n*elset, elset=C\n");
}

TEST(ParserInclude, OneFileMayBeIncludedTwiceInARow) {
    TempDir dir;
    dir.Write("a.inc", "*NSET, NSET=A\n1\n");
    InDirectory here(dir.Path());
    auto r = ParseFile(dir.Write("main.inp", "*INCLUDE, INPUT=a.inc\n2\n*INCLUDE, INPUT=a.inc\n"));
    EXPECT_TRUE(r.fatal.empty());
    EXPECT_EQ(Printed(r.keywords), "*nset, nset=A\n1\n2\n*nset, nset=A\n1\n");
}

TEST(ParserInclude, MessagesOfIncludeFilesAreMergedWhole) {
    TempDir dir;
    std::string child;
    for (int i = 0; i < 30; ++i) child += "*BOGUS\n";
    dir.Write("bad.inc", child + "*INCLUDE, INPUT=gone.inc\n");
    InDirectory here(dir.Path());
    auto r = ParseFile(dir.Write("main.inp", "*INCLUDE, INPUT=bad.inc\n*BOGUS\n*INCLUDE, INPUT=gone.inc\n*HEADING\n"));
    // The child's 26 and closing line arrive whole; the main file's own error finds its
    // list full. The fatal list has room for both.
    ASSERT_EQ(r.errors.size(), 27u);
    EXPECT_EQ(r.errors.back(), "No more (non-fatal) errors will be reported ...");
    EXPECT_EQ(r.fatal, (std::vector<std::string>{"Include file \"gone.inc\" does not exist.",
                                                  "Include file \"gone.inc\" does not exist."}));
    // The places come along with the messages: the include file's, then the main file's.
    ASSERT_EQ(r.errorPlaces.size(), 27u);
    const std::string included = std::filesystem::canonical(dir.Path() / "bad.inc").string();
    EXPECT_EQ(r.errorPlaces[3], included + ":4");
    EXPECT_EQ(r.errorPlaces.back(), ":0");
    EXPECT_EQ(r.fatalPlaces, (std::vector<std::string>{included + ":31", dir.Path().string() + "/main.inp:3"}));
    EXPECT_EQ(Printed(r.keywords), "*heading\n");
}

TEST(ParserInclude, AnIncludeFileThatVanishesBeforeItIsReadIsReported) {
    TempDir dir;
    // The child parser of an *INCLUDE whose file went away after it was found.
    auto r = ParseFile(dir / "gone.inc", true, "", dir / "main.inp");
    EXPECT_EQ(r.fatal, std::vector<std::string>{"Input file \"" + (dir / "gone.inc") + "\" is unreadable."});
    EXPECT_EQ(r.keywords.Count(), 0);
}

TEST(ParserInclude, AFileThatFailsToDecipherTakesBackItsLeadingLines) {
    // The include file's leading lines reach the keyword in front of the *INCLUDE while
    // they are read; a file lost later must not leave them there.
    const struct {
        const char* include;
        const char* printed;
    } cases[] = {
        {"2, 0.\n3, 0.\n", "*node\n1, 0.\n2, 0.\n3, 0.\n5, 0.\n*elset, elset=E\n"},
        {"2, 0.\n3, 0.\n** encrypted input\n4, 0.\n", "*node\n1, 0.\n5, 0.\n*elset, elset=E\n"},
        {"2, 0.\n*BOGUS\n** encrypted input\n*HEADING\n", "*node\n1, 0.\n5, 0.\n*elset, elset=E\n"},
    };
    for (const auto& c : cases) {
        TempDir dir;
        const std::string include = dir.Write("nodes.inc", c.include);
        InDirectory here(dir.Path());
        auto r = ParseFile(dir.Write("main.inp", "*NODE\n1, 0.\n*INCLUDE, INPUT=nodes.inc\n5, 0.\n*ELSET, ELSET=E\n"));
        EXPECT_EQ(Printed(r.keywords), c.printed) << c.include;
        const bool lost = std::string(c.include).find("encrypted") != std::string::npos;
        EXPECT_EQ(r.fatal, lost ? std::vector<std::string>{"The encrypted input file, \"" + include +
                                                             "\", requires a password."}
                                : std::vector<std::string>{})
            << c.include;
    }
}

// A chain main -> f1 -> f2 ... -> f(n-1), each file with one keyword.
std::string WriteChain(const TempDir& dir, int files) {
    for (int i = 1; i < files; ++i) {
        std::string body = "*NSET, NSET=S" + std::to_string(i) + "\n" + std::to_string(i) + "\n";
        if (i + 1 < files) body += "*INCLUDE, INPUT=f" + std::to_string(i + 1) + ".inc\n";
        dir.Write("f" + std::to_string(i) + ".inc", body);
    }
    return dir.Write("main.inp", "*HEADING\n*INCLUDE, INPUT=f1.inc\n");
}

TEST(ParserInclude, AThousandFilesDeepChainIsRead) {
    TempDir dir;
    InDirectory here(dir.Path());
    auto r = ParseFile(WriteChain(dir, 1000));
    EXPECT_TRUE(r.errors.empty() && r.fatal.empty());
    ASSERT_EQ(r.keywords.Count(), 1000);
    EXPECT_EQ(r.keywords.Last().lineNumber, 1);
    EXPECT_STREQ(r.keywords.Last().data.AsString(0, 0).c_str(), "999");
}

TEST(ParserInclude, ARunawayChainIsCutWithAMessage) {
    TempDir dir;
    InDirectory here(dir.Path());
    const int files = inp_Parser::kMaxIncludeDepth + 3;
    auto r = ParseFile(WriteChain(dir, files));
    const std::string cut = "f" + std::to_string(inp_Parser::kMaxIncludeDepth) + ".inc";
    EXPECT_EQ(r.fatal, std::vector<std::string>{"Include file \"" + cut + "\" is not read: a chain of include files "
                                                "may hold at most " + std::to_string(inp_Parser::kMaxIncludeDepth) +
                                                " files."});
    EXPECT_EQ(r.keywords.Count(), inp_Parser::kMaxIncludeDepth);
}

// 21 files, each of which includes the next one twice, would read 2^21 files: the deck
// stops at the limit of include files with one fatal error, and what was read stays.
TEST(ParserInclude, AnIncludeFanOutStopsAtTheLimitOfFiles) {
    TempDir dir;
    InDirectory here(dir.Path());
    const int levels = 21;
    for (int k = 0; k < levels; ++k) {
        std::string text = "*NSET, NSET=S" + std::to_string(k) + "\n1\n";
        if (k + 1 < levels) {
            const std::string next = "*INCLUDE, INPUT=f" + std::to_string(k + 1) + ".inp\n";
            text += next + next;
        }
        dir.Write("f" + std::to_string(k) + ".inp", text);
    }
    inp_Deck deck;
    thr_ThreadSingleton<wip_WIP>::Instance().Clear();
    deck.Parse((dir / "f0.inp").c_str());
    const std::vector<std::string> records = inp_test::SinkRecords();
    ASSERT_EQ(records.size(), 1u);
    const std::string& record = records[0];
    EXPECT_EQ(record.rfind("E0: Include file \"f", 0), 0u) << record;
    const std::string tail = "is not read, and the deck is read no further: a deck may open at most 20000 include "
                             "files, repeats counted.";
    EXPECT_EQ(record.substr(record.size() - tail.size()), tail);
    EXPECT_EQ(deck.keywords.Count(), 1 + inp_Parser::kMaxIncludeFiles);
}

// The limits of work, lowered for a small deck: a main file that reads a.inc twice.
TEST(ParserInclude, TheWorkOfADeckIsLimitedInFilesAndLines) {
    TempDir dir;
    InDirectory here(dir.Path());
    const std::string inc = dir.Write("a.inc", "*NSET, NSET=A\n1\n2\n3\n");
    const std::string main =
        dir.Write("main.inp", "*HEADING\n*INCLUDE, INPUT=a.inc\n*INCLUDE, INPUT=a.inc\n*NSET, NSET=Z\n1\n");
    struct Case {
        int files;
        long long lines;
        std::string fatal;
        const char* printed;
    } cases[] = {
        {100, 100, "", "*heading\n*nset, nset=A\n1\n2\n3\n*nset, nset=A\n1\n2\n3\n*nset, nset=Z\n1\n"},
        // The eleventh line read is line 4 of the second reading of a.inc.
        {100, 10,
         "Line 4 of \"" + inc +
             "\" and all behind it are not read: a deck may have at most 10 lines, the lines of include files and "
             "their repeats counted.",
         "*heading\n*nset, nset=A\n1\n2\n3\n*nset, nset=A\n1\n2\n"},
        {1, 100,
         "Include file \"a.inc\" in \"" + main +
             "\" is not read, and the deck is read no further: a deck may open at most 1 include files, repeats "
             "counted.",
         "*heading\n*nset, nset=A\n1\n2\n3\n"},
    };
    for (const Case& c : cases) {
        inp_Parser parser(cow_String(main.c_str()), cow_String(), cow_1DArrayList<cow_String>(), cow_String(), true);
        parser.SetWorkLimits(c.files, c.lines);
        const cow_1DArrayList<inp_Keyword> keywords = parser.Parse(true);
        EXPECT_EQ(Printed(keywords), c.printed);
        EXPECT_TRUE(parser.Errors().IsEmpty());
        const std::vector<std::string> fatal = inp_test::ToVector(parser.FatalErrors());
        EXPECT_EQ(fatal, c.fatal.empty() ? std::vector<std::string>{} : std::vector<std::string>{c.fatal});
    }

    // The same limits set on a deck reach the reader its Parse makes.
    for (const Case& c : cases) {
        thr_ThreadSingleton<wip_WIP>::Instance().Clear();
        inp_Deck deck;
        deck.maxIncludeFiles = c.files;
        deck.maxLines = c.lines;
        deck.Parse(cow_String(main.c_str()));
        EXPECT_EQ(Printed(deck.keywords), c.printed);
        EXPECT_EQ(inp_test::SinkRecords(),
                  c.fatal.empty() ? std::vector<std::string>{} : std::vector<std::string>{"E0: " + c.fatal});
    }
}

}  // namespace

namespace {

// Debug flag 30 of the library, set for one test and reset behind it.
class DebugLevel {
public:
    explicit DebugLevel(int level) {
        typ_DebugFlags::SetDebugFlags(30, level);
        pnt_debugPrint().ClearCaptured();
        pnt_debugPrint().SetCapture(true);
    }
    ~DebugLevel() {
        typ_DebugFlags::SetDebugFlags(30, 0);
        pnt_debugPrint().SetCapture(false);
        pnt_debugPrint().ClearCaptured();
    }
    std::vector<std::string> Lines() const {
        std::vector<std::string> lines;
        std::string text = pnt_debugPrint().Captured().c_str();
        for (size_t start = 0, end; start < text.size(); start = end + 1) {
            end = text.find('\n', start);
            lines.push_back(text.substr(start, end - start));
        }
        return lines;
    }
};

TEST(ParserDebug, LevelTwoNamesEachKeywordAndEachIncludeLevelOneTimesEachFile) {
    TempDir dir;
    const std::string inc = dir.Write("coords.inc", "1, 0., 0., 0.\n2, 1., 0., 0.\n");
    const std::string main = dir.Write("main.inp", "*NODE\n*INCLUDE, INPUT=coords.inc\n*N SET, NSET=A\n");
    InDirectory here(dir.Path());
    {
        DebugLevel debug(2);
        ParseFile(main);
        std::vector<std::string> lines = debug.Lines();
        ASSERT_EQ(lines.size(), 6u);
        EXPECT_EQ(lines[0], "Creating keyword: \"node\".");
        EXPECT_EQ(lines[1], "Creating keyword: \"include\".");
        // The timing line of the include file comes before the merge of its lines.
        EXPECT_NE(lines[2].find("Parse - File: " + inc + "  Elapsed time: "), std::string::npos) << lines[2];
        EXPECT_EQ(lines[3], "2 lines added to keyword \"node\" from input file \"." + inc + "\".");
        EXPECT_EQ(lines[4], "Creating keyword: \"nset\".");
        EXPECT_NE(lines[5].find("Parse - File: " + main + "  Elapsed time: "), std::string::npos) << lines[5];
        EXPECT_NE(lines[5].find("  Decryption time: 0  CPU time: "), std::string::npos) << lines[5];
    }
    {
        DebugLevel debug(1);
        ParseFile(main);
        std::vector<std::string> lines = debug.Lines();
        ASSERT_EQ(lines.size(), 2u);
        EXPECT_EQ(lines[0].rfind("inp_Parser.cpp:", 0), 0u) << lines[0];
        EXPECT_NE(lines[1].find("Parse - File: " + main), std::string::npos);
    }
    DebugLevel off(0);
    ParseFile(main);
    EXPECT_TRUE(off.Lines().empty());
}

}  // namespace
