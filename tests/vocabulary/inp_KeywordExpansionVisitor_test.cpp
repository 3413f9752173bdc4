// The expansion pass as a deck meets it: canonical names and values, the keywords that
// change the state of the walk, data files, and what ExpandKeywords makes of the result.
#include <gtest/gtest.h>

#include "../support/inp_TestFiles.h"
#include "inp.h"
#include "inp_KeywordExpansionVisitor.h"

using inp_test::Printed;
using inp_test::TempDir;

namespace {

wip_WIP& Sink() { return thr_ThreadSingleton<wip_WIP>::Instance(); }

// The sink's records, "E<level>: text" or "W: text", with the deck's path shown as F.
std::vector<std::string> Records(const std::string& path) {
    std::vector<std::string> out;
    for (int i = 0; i < Sink().Count(); ++i) {
        const wip_Record& r = Sink().Record(i);
        std::string text = r.text.c_str();
        for (size_t at; (at = text.find(path)) != std::string::npos;) text.replace(at, path.size(), "F");
        out.push_back((r.IsError() ? "E" + std::to_string(r.level) : std::string("W")) + ": " + text);
    }
    return out;
}

struct Expanded {
    inp_Deck deck;
    std::vector<std::string> records;
    std::string printed;
};

// Reads and expands a deck written to main.inp; what the sink got comes back.
void Expand(const TempDir& dir, const std::string& text, Expanded& out, const std::string& includeDirectory = "") {
    const std::string path = dir.Write("main.inp", text);
    Sink().Clear();
    out.deck.includeDirectory = includeDirectory.c_str();
    out.deck.Parse(path.c_str());
    out.deck.ExpandKeywords();
    out.records = Records(path);
    out.printed = Printed(out.deck.keywords);
}

TEST(Expansion, ParameterNamesResolveByTableOrder) {
    TempDir dir;
    Expanded r;
    // `n` is `name` on a step (it stands before `nlgeom`); `nsetfoo` is the longest
    // entry it begins with; a keyword without a table keeps what it was given.
    Expand(dir, "*NODE, NSETFOO=A, SYS=R\n*STEP, N=Load, NL\n*STATIC\n*END STEP\n*HEADING, TITLE=x\n", r);
    EXPECT_EQ(r.printed,
              "*node, nset=A, system=R\n*step, name=Load, nlgeom\n*static\n*endstep\n*heading, title=x\n");
    EXPECT_EQ(r.records, std::vector<std::string>{"E1: in keyword *HEADING, file \"F\", line 5: Unknown parameter: "
                                                  "title. The parameter may be misspelled, obsolete, or invalid."});

    // A table that holds a name twice is the one way to tie.
    inp_KeywordExpansionVisitor v;
    inp_Keyword k(inp_kwHeading);
    k.parameters.Insert(cow_String("abcd"), inp_Item(true));
    const char* twice[] = {"abc", "abc", nullptr};
    v.ExpandParameterNames(k, twice);
    EXPECT_EQ(inp_test::ToVector(v.errors), std::vector<std::string>{"in keyword *HEADING Ambiguous parameter: abcd"});
    EXPECT_TRUE(k.HasParameter(cow_String("abc")));
}

TEST(Expansion, StringValuesAreFoldedAndStrippedUnlessTheyNameFilesOrSteps) {
    TempDir dir;
    Expanded r;
    dir.Write("Conn.dat", "1, 2\n");
    Expand(dir,
           "*NSET, NSET=a b\n1\n*ELSET, ELSET=\"a b\"\n1\n*STEP, NAME=My Step\n*STATIC\n*END STEP\n"
           "*ELEMENT, TYPE=c3d8, FILE=MyRes, INPUT=" +
               (dir / "Conn.dat") + "\n",
           r);
    EXPECT_EQ(r.records, std::vector<std::string>{});
    EXPECT_EQ(r.printed,
              "*nset, nset=AB\n1\n*elset, elset=\"A B\"\n1\n*step, name=MyStep\n*static\n*endstep\n"
              "*element, type=C3D8, file=MyRes\n1, 2\n");
}

TEST(Expansion, ValuesMatchTheirVocabulary) {
    struct Case {
        const char* value;
        int matches;
        const char* word;
    } cases[] = {
        {"TAB", 1, "TABULAR"}, {"sm", 1, "SMOOTHSTEP"}, {"S", 2, ""},         {"TABULARX", 1, "TABULAR"},
        {"", 0, ""},           {"X", 0, ""},            {"equally spaced", 1, "EQUALLYSPACED"},
    };
    const char* definition[] = {"BUBBLE",    "DECAY",   "EQUALLYSPACED", "MODULATED", "PERIODIC",
                                "HICKS",     "SOLUTIONDEPENDENT", "TABULAR", "SMOOTHSTEP", nullptr};
    for (const Case& c : cases) {
        cow_String word;
        EXPECT_EQ(inp_KeywordExpansionVisitor::MatchValue(word, definition, cow_String(c.value)), c.matches) << c.value;
        if (c.matches == 1) {
            EXPECT_STREQ(word.c_str(), c.word) << c.value;
        }
    }

    TempDir dir;
    Expanded r;
    Expand(dir,
           "*BOUNDARY, OP=N\n*BOUNDARY, OP=X\n*AMPLITUDE, DEFINITION, NAME=A\n*AMPLITUDE, NAME=B, DEF=s\n"
           "*STEP, NLGEOM\n*STATIC\n*END STEP\n*STEP, NLGEOM=Y\n*STATIC\n*END STEP\n",
           r);
    EXPECT_EQ(r.printed,
              "*boundary, op=NEW\n*boundary, op=X\n*amplitude, definition, name=A\n*amplitude, name=B, "
              "definition=S\n*step, nlgeom, name=Step-1\n*static\n*endstep\n*step, nlgeom=YES, name=Step-2\n"
              "*static\n*endstep\n");
    EXPECT_EQ(r.deck.keywords[2].parameters.Lookup(cow_String("definition"))->type, inp_Types::typeNone);
    EXPECT_EQ(r.deck.keywords[4].parameters.Lookup(cow_String("nlgeom"))->type, inp_Types::typeBool);
    EXPECT_EQ(r.records,
              (std::vector<std::string>{
                  "E1: in keyword *BOUNDARY, file \"F\", line 2: Illegal value \"X\" for parameter \"op\".  The value "
                  "may be misspelled, obsolete, or invalid.",
                  "E1: in keyword *AMPLITUDE, file \"F\", line 4: Ambiguous value \"S\" for parameter "
                  "\"definition\"."}));
}

TEST(Expansion, RequiredParametersBlankTheirKeyword) {
    TempDir dir;
    Expanded r;
    Expand(dir, "*NSET, GENERATE\n1, 5, 1\n*NODE\n1, 0., 0., 0.\n", r);
    EXPECT_EQ(r.printed, "*node\n1, 0., 0., 0., 0., 0., 0.\n");
    EXPECT_EQ(r.records, std::vector<std::string>{"E1: in keyword *NSET, file \"F\", line 1: The NSET parameter is "
                                                  "required."});

    inp_KeywordExpansionVisitor v;
    inp_Keyword k(inp_kwHeading);
    k.parameters.Insert(cow_String("part"), inp_Item(true));
    v.RequireParameter(k, cow_String("name"));
    v.RequireValue(k, cow_String("part"));
    v.RequireValue(k, cow_String("name"));
    EXPECT_EQ(inp_test::ToVector(v.errors),
              (std::vector<std::string>{"in keyword *HEADING Parameter NAME is a required parameter.",
                                        "in keyword *HEADING Parameter PART requires a value."}));
    EXPECT_EQ(k.keyword, inp_kwHeading);
}

TEST(Expansion, StepsAreNamedCountedAndKeptUnique) {
    TempDir dir;
    Expanded r;
    Expand(dir,
           "*STEP, NAME=A\n*STATIC\n*END STEP\n*STEP\n*STATIC\n*END STEP\n*STEP, NAME=A\n*STATIC\n*END STEP\n"
           "*RESTART, READ, STEP=4\n*STEP\n*STATIC\n*END STEP\n*RESTART, READ, STEP=x, INC=y\n",
           r, "");
    const std::string printed = r.printed;
    EXPECT_NE(printed.find("*step, name=A\n"), std::string::npos);
    EXPECT_NE(printed.find("*step, name=Step-2\n"), std::string::npos);
    EXPECT_NE(printed.find("*step, name=A-Duplicate-3\n"), std::string::npos);
    EXPECT_NE(printed.find("*step, name=Step-5\n"), std::string::npos);
    EXPECT_EQ(r.records,
              (std::vector<std::string>{
                  "E1: in keyword *STEP, file \"F\", line 7: Step with the name \"A\" has already been defined.",
                  "E1: in keyword *RESTART, file \"F\", line 14: step parameter must be an integer",
                  "E1: in keyword *RESTART, file \"F\", line 14: inc parameter must be an integer"}));

    // A restart read without STEP continues from the step the driver names.
    Expanded d;
    d.deck.defaultRestartStep = 7;
    Expand(dir, "*RESTART, READ\n*STEP\n*STATIC\n*END STEP\n", d);
    EXPECT_NE(d.printed.find("*step, name=Step-8\n"), std::string::npos) << d.printed;
}

TEST(Expansion, PartsInstancesAndAssemblies) {
    TempDir dir;
    Expanded r;
    Expand(dir,
           "*PART, NAME=P\n*END PART\n*PART, NAME=P\n*END PART\n*PART\n*END PART\n*PART, NAME=1\n*END PART\n"
           "*ASSEMBLY\n*INSTANCE, NAME=I2, PART=Q\n*END INSTANCE\n*INSTANCE, NAME=I1, PART=P\n*END INSTANCE\n"
           "*INSTANCE, NAME=I1, PART=P\n*END INSTANCE\n*INSTANCE\n*END INSTANCE\n"
           "*INSTANCE, INSTANCE=X, NAME=Y\n*END INSTANCE\n*END ASSEMBLY\n",
           r);
    EXPECT_TRUE(r.deck.isAssemblyDeck);
    EXPECT_EQ(r.records,
              (std::vector<std::string>{
                  // Prepended messages: the latest on top.
                  "E1: in keyword *INSTANCE, file \"F\", line 14: Instance with the name \"I1\" already exists in "
                  "the assembly.",
                  "E1: in keyword *INSTANCE, file \"F\", line 10: Part with the name \"Q\" has not been defined.",
                  "E1: in keyword *PART, file \"F\", line 3: Part with the name \"P\" has already been defined in "
                  "the model.",
                  "E1: in keyword *INSTANCE, file \"F\", line 18: Instance name should not be given in the case the "
                  "instance is to be imported",
                  "E2: in keyword *PART, file \"F\", line 5: Part must have a name.",
                  "E2: in keyword *PART, file \"F\", line 7: Part was not assigned a valid name.",
                  "E2: in keyword *ASSEMBLY, file \"F\", line 9: The NAME parameter is required.",
                  "E2: in keyword *INSTANCE, file \"F\", line 16: Instance must have a name",
                  "E2: in keyword *INSTANCE, file \"F\", line 16: Instance must refer to a part. "}));
    // Every named pair is kept, also the one whose part is unknown.
    EXPECT_STREQ(r.deck.instanceToPart.ConstGet(cow_String("I2")).c_str(), "Q");
    EXPECT_STREQ(r.deck.instanceToPart.ConstGet(cow_String("I1")).c_str(), "P");
}

TEST(Expansion, AssemblyOnlyReportsWaitForTheFirstAssemblyKeyword) {
    TempDir dir;
    Expanded flat;
    Expand(dir, "*NMAP, NSET=A, TYPE=B\n1, 0., 0., 0.\n", flat);
    EXPECT_EQ(flat.records, std::vector<std::string>{});
    EXPECT_FALSE(flat.deck.partMapUsable);  // a blended map in a flat deck

    Expanded assembly;
    Expand(dir, "*NMAP, NSET=A, TYPE=C\n1, 0., 0., 0.\n*PART, NAME=P\n*END PART\n*NMAP, NSET=B, TYPE=R\n", assembly);
    const std::string text = "The following option is currently not supported in a model defined in terms of an "
                             "assembly of part instances: *NMAP";
    EXPECT_EQ(assembly.records, (std::vector<std::string>{"E1: in keyword *NMAP, file \"F\", line 1: " + text,
                                                          "E1: in keyword *NMAP, file \"F\", line 5: " + text}));
    EXPECT_TRUE(assembly.deck.partMapUsable);
}

TEST(Expansion, DataFilesAreReadIntoTheKeyword) {
    TempDir dir;
    dir.Write("blank.dat", "\n  \n\t\n");
    dir.Write("two.dat", "** a comment\n1, 2.\n\n3, 4.\n*HEADING\n5, 6.\n");
    dir.Write("lib/tail.dat", "0., 1.\n*\n1., 2.\n \n\n");
    Expanded r;
    {
        inp_test::InDirectory here(dir.Path());
        Expand(dir,
               "*AMPLITUDE, NAME=A, INPUT=blank.dat\n*AMPLITUDE, NAME=B, INPUT=two.dat\n"
               "*AMPLITUDE, NAME=C, INPUT=tail.dat\n*AMPLITUDE, NAME=D, INPUT=none.dat\n",
               r, dir / "lib");
    }
    EXPECT_EQ(r.printed,
              "*amplitude, name=A\n*amplitude, name=B\n1, 2.\n\n3, 4.\n*amplitude, name=C\n0., 1.\n*\n1., 2.\n"
              "*amplitude, name=D\n");
    EXPECT_EQ(r.records,
              (std::vector<std::string>{
                  "E1: in keyword *AMPLITUDE, file \"F\", line 2: Data file \"two.dat\" contains a keyword "
                  "definition. It must only contain the data required under keyword \"amplitude\". You may use the "
                  "*INCLUDE keyword instead.",
                  "E1: in keyword *AMPLITUDE, file \"F\", line 4: Input file \"none.dat\" does not exist."}));
}

TEST(Expansion, SetDataLinesAreCutToSixteenItems) {
    TempDir dir;
    Expanded r;
    std::string sixteen;
    for (int i = 1; i <= 16; ++i) sixteen += std::to_string(i) + ", ";
    Expand(dir, "*ELSET, ELSET=A\n" + sixteen + "\n*ELSET, ELSET=B\n1\n" + sixteen + "17\n", r);
    EXPECT_EQ(r.records, std::vector<std::string>{"W: in keyword *ELSET, file \"F\", line 3: One or more data lines "
                                                  "contain more than 16 items (counting those after trailing "
                                                  "commas).  The extra items are deleted."});
    const std::string kept = "1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16";
    EXPECT_EQ(r.printed, "*elset, elset=A\n" + kept + ", \n*elset, elset=B\n1\n" + kept + "\n");
}

TEST(Expansion, LiteralEofAndFailedConversionsBlankTheKeyword) {
    inp_KeywordExpansionVisitor v;
    cow_1DArrayList<inp_Keyword> list;
    list.Append(inp_Keyword(inp_kwEof));
    list.Append(inp_Keyword(inp_kwHeading));
    v.VisitList(list);
    EXPECT_EQ(list[0].keyword, inp_kwUndefined);
    EXPECT_EQ(list[1].keyword, inp_kwHeading);
    EXPECT_EQ(inp_test::ToVector(v.errors),
              std::vector<std::string>{"in keyword *EOF The *EOF keyword is not part of the input language; it is "
                                       "ignored."});
}

TEST(Expansion, NodeDataIsPackedAndABadNodeBlockIsDropped) {
    TempDir dir;
    Expanded r;
    Expand(dir, "*NODE, NSET=A\n1, 1.5D2\n*NODE\n1, abc, 0\n2, 1.x, 0\n*NODE\n12.5, 0.\n*HEADING\n", r);
    EXPECT_EQ(r.printed, "*node, nset=A\n1, 150., 0., 0., 0., 0., 0.\n*heading\n");
    EXPECT_EQ(r.records,
              (std::vector<std::string>{"E1: in keyword *NODE, file \"F\", line 3: Invalid nodal coordinate values "
                                        "were specified for the following nodes: 1 2",
                                        "E1: in keyword *NODE, file \"F\", line 6: Node label is not an integer: 12.5"}));
}

TEST(Expansion, ExplicitDynamicWithRigidSurfacesIsFatalForTheDeckKind) {
    TempDir dir;
    Expanded r;
    Expand(dir, "*RIGID SURFACE, TYPE=SEG, NAME=R\n*STEP\n*DYNAMIC, EXPLICIT\n*END STEP\n", r);
    EXPECT_EQ(r.records, std::vector<std::string>{"E0: the *RIGID SURFACE option is not supported in MERLIX/Explicit; "
                                                  "use the *SURFACE option in conjunction with the *RIGID BODY option "
                                                  "instead."});
    EXPECT_FALSE(r.deck.partMapUsable);
    EXPECT_NE(r.printed.find("*rigidsurface, type=SEGMENTS, name=R\n"), std::string::npos) << r.printed;

    // An assembly deck can always be told as parts, whatever the driver set.
    Expanded a;
    a.deck.partMapUsable = false;
    Expand(dir, "*PART, NAME=P\n*END PART\n", a);
    EXPECT_TRUE(a.deck.partMapUsable);
    Expanded e;
    Expand(dir, "*ELEMENT, TYPE=C3D8, FILE=old\n", e);
    EXPECT_FALSE(e.deck.partMapUsable);
}

}  // namespace
