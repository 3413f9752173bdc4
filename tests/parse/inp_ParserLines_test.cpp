// The line reader and the keyword line: what a line is, which lines are keywords,
// comments and data, how a keyword line is joined, named and split into parameters,
// and how many errors a file reports.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include "../support/inp_TestFiles.h"

using inp_test::InDirectory;
using inp_test::ParseFile;
using inp_test::Printed;
using inp_test::TempDir;

namespace {

std::string Line(const std::string& body) { return body + "\n"; }

TEST(ParserLines, KeywordCommentAndDataLinesAreToldApart) {
    TempDir dir;
    // Each deck is read alone; its normal form shows which lines became what.
    struct Case {
        const char* deck;
        const char* printed;
    } cases[] = {
        {"*HEADING\n**\n*\n*3\n* * X\n", "*heading\n*\n*3\n* * X\n"},
        {"  *HEADING\n  ** indented comment\nA\n", "*heading\nA\n"},
        {"* HEADING\n\t*NODE\n", "*heading\n*node\n"},
        {"** only\n**comments\n", ""},
        // A comment inside a data block leaves no gap.
        {"*NSET, NSET=A\n1, 2\n** between\n3\n", "*nset, nset=A\n1, 2\n3\n"},
        // A blank line is a data line with one empty item; what follows the last
        // newline is no line.
        {"*NSET, NSET=A\n1\n\n2\n", "*nset, nset=A\n1\n\n2\n"},
        // CR LF endings, and a last line without newline.
        {"*NSET, NSET=A\r\n1, 2\r\n3", "*nset, nset=A\n1, 2\n3\n"},
        // Blanks and tabs around a line go; inside they stay until AsString.
        {"*HEADING\n \t a b , c \t\n", "*heading\nAB, C\n"},
    };
    for (const Case& c : cases) {
        auto r = ParseFile(dir.Write("deck.inp", c.deck));
        EXPECT_EQ(Printed(r.keywords), c.printed) << c.deck;
        EXPECT_TRUE(r.errors.empty() && r.fatal.empty()) << c.deck;
    }
}

TEST(ParserLines, LinesAreCutAt256CharactersWithoutMessage) {
    TempDir dir;
    const std::string exact(256, 'B');
    struct Case {
        std::string line;
        std::string kept;
    } cases[] = {
        {std::string(300, 'A'), std::string(256, 'A')},
        {exact, exact},  // nothing of the next line may go with it
        {exact + "\r", exact},
        {std::string(100000, 'C'), std::string(256, 'C')},
        {std::string(255, 'D') + " " + std::string(10, 'E'), std::string(255, 'D')},
    };
    for (const Case& c : cases) {
        auto r = ParseFile(dir.Write("deck.inp", "*HEADING\n" + c.line + "\nNEXT\n*NODE\n1\n"));
        ASSERT_EQ(r.keywords.Count(), 2) << c.line.size();
        const inp_DataArray& data = r.keywords[0].data;
        ASSERT_EQ(data.NumberOfLines(), 2) << c.line.size();
        EXPECT_EQ(std::string(data.AsStringVerbatim(0, 0).c_str()), c.kept);
        EXPECT_EQ(std::string(data.AsStringVerbatim(1, 0).c_str()), "NEXT");
        EXPECT_TRUE(r.errors.empty() && r.fatal.empty());
    }
}

TEST(ParserLines, LongKeywordLineIsCutLikeAnyOther) {
    TempDir dir;
    // The cut falls inside the value of the second parameter.
    std::string line = "*NSET, NSET=A, ELSET=" + std::string(400, 'X');
    auto r = ParseFile(dir.Write("deck.inp", line + "\n1\n"));
    ASSERT_EQ(r.keywords.Count(), 1);
    const inp_Item* elset = r.keywords[0].parameters.Lookup(cow_String("elset"));
    ASSERT_NE(elset, nullptr);
    EXPECT_EQ(elset->stringValue.Length(), 256 - 21);
    EXPECT_EQ(r.keywords[0].data.NumberOfLines(), 1);
}

TEST(ParserLines, NulBytesEndTheTextOfTheirLine) {
    TempDir dir;
    const char raw[] = "*HEADING\nab\0cd\n*NSET, NSET=A\n1\0, 2\n\0\n3\n";
    std::string deck(raw, sizeof raw - 1);
    auto r = ParseFile(dir.Write("deck.inp", deck));
    EXPECT_EQ(Printed(r.keywords), "*heading\nAB\n*nset, nset=A\n1\n\n3\n");
    EXPECT_TRUE(r.errors.empty() && r.fatal.empty());
}

TEST(ParserLines, BinaryGarbageEndsInBoundedMessages) {
    TempDir dir;
    std::mt19937 random(12345);
    std::string bytes;
    for (int i = 0; i < 200000; ++i) {
        // Mostly noise, with enough newlines and stars to make keyword-like lines.
        unsigned v = random() % 300;
        bytes += v < 256 ? static_cast<char>(v) : (v < 280 ? '\n' : '*');
    }
    auto r = ParseFile(dir.Write("garbage.inp", "*HEADING\n" + bytes));
    ASSERT_GE(r.keywords.Count(), 1);
    EXPECT_EQ(r.keywords[0].keyword, inp_kwHeading);
    EXPECT_EQ(r.errors.size(), 27u);  // the noise holds many unknown keywords
    EXPECT_LE(r.fatal.size(), 27u);
    for (int k = 0; k < r.keywords.Count(); ++k) {
        const inp_DataArray& data = r.keywords[k].data;
        for (int i = 0; i < data.NumberOfLines(); ++i)
            for (int j = 0; j < data.NumberOfItems(i); ++j) EXPECT_LE(data.AsStringVerbatim(i, j).Length(), 256);
    }
}

TEST(ParserLines, MainFileLeadingLinesAndUnreadableMainFileAreSilent) {
    TempDir dir;
    auto r = ParseFile(dir.Write("deck.inp", "1, 2\n** c\n3\n4\n*HEADING\nx\n"));
    EXPECT_EQ(Printed(r.keywords), "*heading\nX\n");
    EXPECT_TRUE(r.errors.empty() && r.fatal.empty());

    for (const std::string& name : {dir / "absent.inp", dir.Path().string()}) {
        auto none = ParseFile(name);
        EXPECT_EQ(none.keywords.Count(), 0);
        EXPECT_TRUE(none.errors.empty() && none.fatal.empty()) << name;
    }
}

TEST(ParserLines, KeywordNamesResolveThroughTheTable) {
    TempDir dir;
    struct Case {
        const char* line;
        inp_KeywordEnm value;
        const char* error;  // the non-fatal message when the keyword is lost
    } cases[] = {
        {"*NODE", inp_kwNode, nullptr},
        {"*node", inp_kwNode, nullptr},
        {"*N O D E", inp_kwNode, nullptr},
        {"*\tNode\t, NSET=A", inp_kwNode, nullptr},
        {"*MAP SOLUTION", inp_kwMapSolution, nullptr},
        {"*ELEMENT", inp_kwElement, nullptr},  // exact, though longer names begin with it
        {"*HEAD", inp_kwHeading, nullptr},
        {"*NODE NSET=A", inp_kwUndefined,
         "Unknown keyword \"nodenset=a\". The keyword may be misspelled, obsolete, or invalid."},
        {"*ELEM", inp_kwUndefined, "Ambiguous keyword definition \"elem\"."},
        {"*X\"A,B\"", inp_kwUndefined,
         "Unknown keyword \"x\"a\". The keyword may be misspelled, obsolete, or invalid."},
    };
    for (const Case& c : cases) {
        auto r = ParseFile(dir.Write("deck.inp", Line(c.line) + "1, 2\n*HEADING\n"));
        if (c.error) {
            ASSERT_EQ(r.errors.size(), 1u) << c.line;
            EXPECT_EQ(r.errors[0], c.error);
            // The keyword is lost with its data lines; the next keyword is read.
            ASSERT_EQ(r.keywords.Count(), 1);
            EXPECT_EQ(Printed(r.keywords), "*heading\n");
        } else {
            EXPECT_TRUE(r.errors.empty()) << c.line << ": " << (r.errors.empty() ? "" : r.errors[0]);
            ASSERT_EQ(r.keywords.Count(), 2) << c.line;
            EXPECT_EQ(r.keywords[0].keyword, c.value) << c.line;
            EXPECT_EQ(r.keywords[0].data.NumberOfLines(), 1);
        }
        EXPECT_TRUE(r.fatal.empty());
    }
}

TEST(ParserLines, ParametersAreTypedAndKeyedByTheirCanonicalName) {
    TempDir dir;
    struct Case {
        const char* line;
        const char* printed;  // the keyword line in normal form, or the error
        bool fails;
    } cases[] = {
        {"*NSET, NSET=A, A=1, A=2", "*nset, nset=A, a=2\n", false},
        {"*NSET, ,, A", "*nset, a\n", false},
        {"*NSET, NAME=\"a,b=c\"", "*nset, name=\"a,b=c\"\n", false},
        {"*NSET, MY PARAM = 5", "*nset, myparam=5\n", false},
        {"*NSET, NLGEOM=, X, Y = 1.5, Z=1d3, W=E5", "*nset, nlgeom, x, z=1000., y=1.5, w=E5\n", false},
        {"*NSET, \"A\"=1",
         "Problem when parsing keyword: NSET     Invalid parameter: \"A\"=1. The parameter may be misspelled, "
         "obsolete, or invalid.",
         true},
        {"*NSET, A=\"abc", "Problem when parsing keyword: NSET     Missing end quote in parameter data \"A=\"abc\".",
         true},
        {"*N SET, X=A=B",
         "Problem when parsing keyword: NSET     Invalid value \"A=B\" for parameter \"x\". The value may be "
         "misspelled, obsolete, or invalid.",
         true},
        {"*INCLUDE, INPUT=<deck>",
         "Problem when parsing keyword: INCLUDE     Invalid value \"<deck>\" for parameter \"input\". The value may "
         "be misspelled, obsolete, or invalid.",
         true},
    };
    for (const Case& c : cases) {
        auto r = ParseFile(dir.Write("deck.inp", Line(c.line)));
        if (c.fails) {
            ASSERT_EQ(r.errors.size(), 1u) << c.line;
            EXPECT_EQ(r.errors[0], c.printed);
            EXPECT_EQ(r.keywords.Count(), 0);
        } else {
            EXPECT_TRUE(r.errors.empty()) << c.line << ": " << (r.errors.empty() ? "" : r.errors[0]);
            EXPECT_EQ(Printed(r.keywords), c.printed) << c.line;
        }
    }
}

// Names that differ in a digit or two agree in most bits of the parameter map's tree;
// a hundred thousand of them must still read in one pass (the harness bounds the time).
TEST(ParserLines, AHundredThousandParametersOnContinuationLines) {
    TempDir dir;
    const int count = 100000;
    std::string deck = "*NSET, NSET=A,\n";
    for (int i = 0; i < count; ++i) deck += "P" + std::to_string(i) + "=" + std::to_string(i) + (i % 10 == 9 ? ",\n" : ", ");
    deck += "P5=LAST\n1\n";
    auto r = ParseFile(dir.Write("deck.inp", deck));
    EXPECT_TRUE(r.errors.empty());
    ASSERT_EQ(r.keywords.Count(), 1);
    const inp_Keyword& k = r.keywords.ConstGet(0);
    EXPECT_EQ(k.parameters.Count(), count + 1);
    EXPECT_STREQ(inp_test::Value(k, "p99999").c_str(), "99999");
    EXPECT_STREQ(inp_test::Value(k, "p5").c_str(), "LAST");
    EXPECT_EQ(k.data.NumberOfLines(), 1);

    // The expansion builds the map anew from the same names, and keeps the unknown ones.
    inp_Deck model;
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    sink.Clear();
    model.Parse(cow_String((dir / "deck.inp").c_str()));
    model.ExpandKeywords();
    EXPECT_EQ(sink.ErrorCount(1), count);
    ASSERT_EQ(model.keywords.Count(), 1);
    EXPECT_EQ(model.keywords.ConstGet(0).parameters.Count(), count + 1);
    sink.Clear();
}

// A byte order mark is stepped over in every file; a file in UTF-16, or one whose lines
// end in a carriage return alone, reads as no keyword and is warned of.
TEST(ParserLines, ByteOrderMarksAndForeignLineEnds) {
    TempDir dir;
    InDirectory here(dir.Path());
    const std::string bom = "\xEF\xBB\xBF";
    dir.Write("data.inc", bom + "1, 2\n*NSET, NSET=B\n3\n");
    dir.Write("data.dat", bom + "4, 5.\n");
    auto utf16 = [](const std::string& text, bool bigEndian) {
        std::string out;
        for (const char c : text) out += bigEndian ? std::string(1, '\0') + c : std::string(1, c) + '\0';
        return out;
    };
    struct Case {
        std::string deck;
        const char* printed;
        const char* warning;  // behind the file name, or null
    } cases[] = {
        {bom + "*HEADING\nT\n*NSET, NSET=A\n1\n", "*heading\nT\n*nset, nset=A\n1\n", nullptr},
        {"*NSET, NSET=A\n*INCLUDE, INPUT=data.inc\n", "*nset, nset=A\n1, 2\n*nset, nset=B\n3\n", nullptr},
        {"*HEADING\r\nT\r\n*NSET, NSET=A\r\n1\r\n", "*heading\nT\n*nset, nset=A\n1\n", nullptr},
        {"*HEADING\n** a\rb\nT\n", "*heading\nT\n", nullptr},
        {"*HEADING\rT\r*NSET, NSET=A\r1\r", nullptr,
         "\" ends its lines with carriage returns alone and reads as one line; save it with line feeds as line ends."},
        {"\xFF\xFE" + utf16("*HEADING\nT\n", false), "",
         "\" seems to be UTF-16 text, of which no keyword can be read; save it as ASCII or UTF-8."},
        {utf16("*HEADING\nT\n", true), "",
         "\" seems to be UTF-16 text, of which no keyword can be read; save it as ASCII or UTF-8."},
    };
    for (const Case& c : cases) {
        const std::string path = dir.Write("main.inp", c.deck);
        auto r = ParseFile(path);
        if (c.printed) {
            EXPECT_EQ(Printed(r.keywords), c.printed) << c.deck;
        }
        EXPECT_EQ(r.warnings, c.warning ? std::vector<std::string>{"File \"" + path + c.warning}
                                        : std::vector<std::string>{})
            << c.deck;
    }

    // A data file of its own, read by the expansion, steps over the mark as well.
    inp_Deck deck;
    deck.Parse(dir.Write("main.inp", "*NODE, INPUT=data.dat\n").c_str());
    deck.ExpandKeywords();
    ASSERT_EQ(deck.keywords.Count(), 1);
    const inp_DataArray& data = deck.keywords.ConstGet(0).data;
    ASSERT_EQ(data.NumberOfLines(), 1);
    EXPECT_EQ(data.AsInt(0, 0), 4);
}

TEST(ParserLines, LenientParseLetsUnknownFormsPass) {
    TempDir dir;
    auto r = ParseFile(dir.Write("deck.inp", "*NSET, \"A\"=1, X=A=B\n*INCLUDE, INPUT=<deck>\n7\n*HEADING\n"), false);
    EXPECT_TRUE(r.errors.empty());
    EXPECT_TRUE(r.fatal.empty());  // the missing include "None" is not reported leniently
    EXPECT_TRUE(r.missing.empty());
    ASSERT_EQ(r.keywords.Count(), 2);
    const inp_Item* a = r.keywords[0].parameters.Lookup(cow_String("\"A\""));
    ASSERT_NE(a, nullptr);
    EXPECT_EQ(a->type, inp_Types::typeInt);
    const inp_Item* x = r.keywords[0].parameters.Lookup(cow_String("x"));
    ASSERT_NE(x, nullptr);
    EXPECT_EQ(x->type, inp_Types::typeNone);
    // The line behind the failed *INCLUDE went with it.
    EXPECT_EQ(r.keywords[1].keyword, inp_kwHeading);
    EXPECT_EQ(r.keywords[0].data.NumberOfLines(), 0);
}

TEST(ParserLines, ContinuationLinesJoin) {
    TempDir dir;
    struct Case {
        const char* deck;
        const char* printed;
        const char* error;
    } cases[] = {
        {"*NSET, NSET=A,\nELSET=B\n1\n", "*nset, nset=A, elset=B\n1\n", nullptr},
        {"*NSET, NSET=A,\n** between\n  ELSET=B,\nGENERATE\n", "*nset, nset=A, elset=B, generate\n", nullptr},
        // An empty line ends the list and is not a data line.
        {"*NSET, NSET=A,\n\n1\n", "*nset, nset=A\n1\n", nullptr},
        {"*NSET, NSET=A, ,", "*nset, nset=A\n", nullptr},
        {"*NSET, NSET=A,\n*NODE\n1, 2\n*HEADING\n", "*heading\n",
         "A keyword has been detected on what is supposed to be a continuation line. Please check that a trailing "
         "comma has not been mistakenly placed in: *NSET, NSET=A,"},
    };
    for (const Case& c : cases) {
        auto r = ParseFile(dir.Write("deck.inp", c.deck));
        EXPECT_EQ(Printed(r.keywords), c.printed) << c.deck;
        if (c.error) {
            ASSERT_EQ(r.errors.size(), 1u);
            EXPECT_EQ(r.errors[0], c.error);
        } else {
            EXPECT_TRUE(r.errors.empty()) << c.deck;
        }
    }
    // Leniently the keyword line is skipped and the list goes on behind it.
    auto r = ParseFile(dir.Write("deck.inp", "*NSET, NSET=A,\n*NODE\nELSET=B\n1\n"), false);
    EXPECT_TRUE(r.errors.empty());
    EXPECT_EQ(Printed(r.keywords), "*nset, nset=A, elset=B\n1\n");
}

TEST(ParserLines, KeywordKeepsItsFirstLineAndFile) {
    TempDir dir;
    std::string path = dir.Write("deck.inp", "** c\n*NSET, NSET=A,\n** c\nELSET=B\n1\n*HEADING\n");
    auto r = ParseFile(path);
    ASSERT_EQ(r.keywords.Count(), 2);
    EXPECT_EQ(r.keywords[0].lineNumber, 2);
    EXPECT_EQ(r.keywords[1].lineNumber, 6);
    EXPECT_STREQ(r.keywords[1].fileName.c_str(), path.c_str());
}

TEST(ParserLines, EachListTakes26MessagesAndAClosingLine) {
    TempDir dir;
    std::string deck;
    for (int i = 1; i <= 30; ++i) deck += "*BOGUS" + std::to_string(i) + "\n1\n";
    for (int i = 1; i <= 30; ++i) deck += "*INCLUDE, INPUT=missing" + std::to_string(i) + ".inp\n";
    deck += "*HEADING\n";
    const std::string path = dir.Write("deck.inp", deck);
    auto r = ParseFile(path);
    ASSERT_EQ(r.errors.size(), 27u);
    // Each message has its place, the closing line none.
    ASSERT_EQ(r.errorPlaces.size(), 27u);
    EXPECT_EQ(r.errorPlaces[0], path + ":1");
    EXPECT_EQ(r.errorPlaces[25], path + ":51");
    EXPECT_EQ(r.errorPlaces[26], ":0");
    ASSERT_EQ(r.fatalPlaces.size(), 27u);
    EXPECT_EQ(r.fatalPlaces[25], path + ":86");
    EXPECT_EQ(r.fatalPlaces[26], ":0");
    EXPECT_EQ(r.errors[0], "Unknown keyword \"bogus1\". The keyword may be misspelled, obsolete, or invalid.");
    EXPECT_EQ(r.errors[25], "Unknown keyword \"bogus26\". The keyword may be misspelled, obsolete, or invalid.");
    EXPECT_EQ(r.errors[26], "No more (non-fatal) errors will be reported ...");
    ASSERT_EQ(r.fatal.size(), 27u);
    EXPECT_EQ(r.fatal[25], "Include file \"missing26.inp\" does not exist.");
    EXPECT_EQ(r.fatal[26], "No more fatal errors will be reported ...");
    EXPECT_EQ(r.missing.size(), 30u);
    EXPECT_EQ(Printed(r.keywords), "*heading\n");
}

}  // namespace
