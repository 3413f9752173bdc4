// The period in names: defined names that hold one, model-level references that carry
// the assembly's name, and a flat deck's names repaired before its conversion.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp.h"
#include "inp_RemovePeriodVisitors.h"
#include "inp_ScopedNameVisitors.h"

using inp_test::Make;
using inp_test::Printed;
using inp_test::SinkRecords;
using inp_test::TempDir;
using inp_test::Value;
using Strings = std::vector<std::string>;

namespace {

wip_WIP& Sink() { return thr_ThreadSingleton<wip_WIP>::Instance(); }

// Read and expanded; the sink holds only what the next phase says.
void Expanded(inp_Deck& deck, const std::string& path) {
    deck.Parse(path.c_str());
    deck.ExpandKeywords();
    Sink().Clear();
}

// The keywords of one value anywhere in the hierarchy, printed without suboptions.
void Collect(const cow_1DArrayList<inp_Keyword>& list, inp_KeywordEnm value, Strings& out) {
    for (int i = 0; i < list.Count(); ++i) {
        if (list.ConstGet(i).keyword == value) out.push_back(Printed(list.ConstGet(i), false));
        Collect(list.ConstGet(i).suboptions, value, out);
    }
}

Strings All(const inp_Deck& deck, inp_KeywordEnm value) {
    Strings out;
    Collect(deck.keywords, value, out);
    return out;
}

const char kPump[] =
    "*PART, NAME=PUMP\n"
    "*NODE\n"
    "1, 0., 0., 0.\n"
    "2, 1., 0., 0.\n"
    "3, 1., 1., 0.\n"
    "*ELEMENT, TYPE=T3D2, ELSET=BARS\n"
    "1, 1, 2\n"
    "2, 2, 3\n"
    "*NSET, NSET=TOP\n"
    "3,\n"
    "*SURFACE, NAME=ENDS, TYPE=NODE\n"
    "TOP,\n"
    "*ORIENTATION, NAME=ORI\n"
    "1., 0., 0., 0., 1., 0.\n"
    "*SOLID SECTION, ELSET=BARS, MATERIAL=STEEL\n"
    "1.,\n"
    "*END PART\n";

}  // namespace

TEST(DeckNames, ModelLevelReferencesLoseTheAssemblyName) {
    TempDir dir;
    const std::string path = dir.Write(
        "pump.inp", std::string(kPump) +
                        "*ASSEMBLY, NAME=ASM\n"
                        "*INSTANCE, NAME=PUMP-1, PART=PUMP\n"
                        "*END INSTANCE\n"
                        "*NSET, NSET=INSIDE\n"
                        "ASM.PUMP-1.TOP,\n"  // inside the assembly block: relative already
                        "*END ASSEMBLY\n"
                        "*MATERIAL, NAME=STEEL\n"
                        "*ELASTIC\n"
                        "200000., 0.3\n"
                        "*STEP\n"
                        "*STATIC\n"
                        "*BOUNDARY\n"
                        "ASM.PUMP-1.TOP, 1, 3\n"
                        "OTHER.PUMP-1.TOP, 1, 3\n"
                        "ASM.PUMP-1.1, 2\n"
                        "*DSLOAD, ORIENTATION=ASM.PUMP-1.ORI\n"
                        "ASM.PUMP-1.ENDS, P, 1.\n"
                        "*END STEP\n");
    inp_Deck deck;
    Expanded(deck, path);
    deck.ReorganizeKeywords(true);
    EXPECT_EQ(SinkRecords(), Strings{});

    EXPECT_EQ(All(deck, inp_kwBoundary),
              Strings{"*boundary\nPUMP-1.TOP, 1, 3\nOTHER.PUMP-1.TOP, 1, 3\nPUMP-1.1, 2\n"});
    EXPECT_EQ(All(deck, inp_kwDsload), Strings{"*dsload, orientation=PUMP-1.ORI\nPUMP-1.ENDS, P, 1.\n"});
    EXPECT_EQ(All(deck, inp_kwNset), (Strings{"*nset, nset=TOP\n3, \n", "*nset, nset=INSIDE\nASM.PUMP-1.TOP, \n"}));
}

// The model-level forms of each pass, walked by hand: a set definition with and
// without GENERATE, a substructure path, and a deck without an assembly name.
TEST(DeckNames, ScopedNameRuleOfEveryPass) {
    inp_ModelParameters parameters;
    auto sets = [&](const cow_String& assembly, cow_1DArrayList<inp_Keyword>& list) {
        inp_ScopedNameSetVisitor v(inpM_SetMap(), inpM_SetMap(), inpM_IdMap(), inpM_IdMap(), assembly, parameters);
        v.VisitList(list);
    };
    {
        cow_1DArrayList<inp_Keyword> list;
        list.Append(inp_test::MakeWithData(inp_kwNset, {{"nset", "N"}}, {"ASM.PUMP-1.TOP, OTHER.X.Y, ASM.12"}));
        list.Append(inp_test::MakeWithData(inp_kwElset, {{"elset", "E"}, {"generate", nullptr}}, {"ASM.12, ASM.20, 2"}));
        sets(cow_String("ASM"), list);
        EXPECT_EQ(Printed(list), "*nset, nset=N\nPUMP-1.TOP, OTHER.X.Y, 12\n*elset, elset=E, generate\n12, 20, 2\n");
    }
    {
        // Inside a substructure path, until the matching LEAVE, names are the path's.
        cow_1DArrayList<inp_Keyword> list;
        list.Append(inp_test::MakeWithData(inp_kwSubstructurePath, {{"enterelement", "5"}}, {}));
        list.Append(inp_test::MakeWithData(inp_kwBoundary, {}, {"ASM.A.B, 1"}));
        list.Append(inp_test::Make(inp_kwSubstructurePath, {{"leave", nullptr}}));
        list.Append(inp_test::MakeWithData(inp_kwBoundary, {}, {"ASM.A.B, 1"}));
        sets(cow_String("ASM"), list);
        EXPECT_EQ(Printed(list.ConstGet(1)), "*boundary\nASM.A.B, 1\n");
        EXPECT_EQ(Printed(list.ConstGet(3)), "*boundary\nA.B, 1\n");
    }
    {
        // Without *ASSEMBLY the name is empty: only a reference that opens with a period changes.
        cow_1DArrayList<inp_Keyword> list;
        list.Append(inp_test::MakeWithData(inp_kwBoundary, {}, {".A, 1", "ASM.A, 1"}));
        sets(cow_String(), list);
        EXPECT_EQ(Printed(list), "*boundary\nA, 1\nASM.A, 1\n");
    }
    {
        // Surfaces: the name of a *SURFACE at model level, not its members; a
        // continuation job leaves *SURFACE alone.
        for (bool inherited : {false, true}) {
            cow_1DArrayList<inp_Keyword> list;
            list.Append(inp_test::MakeWithData(inp_kwSurface, {{"name", "ASM.S"}, {"combine", "UNION"}}, {"ASM.A.X"}));
            list.Append(inp_test::MakeWithData(inp_kwTie, {{"name", "T"}}, {"ASM.I.S1, ASM.I.S2"}));
            inp_ScopedNameSurfaceVisitor v(inpM_SurfaceMap(), cow_String("ASM"), inherited);
            v.VisitList(list);
            EXPECT_EQ(Value(list.ConstGet(0), "name"), inherited ? "ASM.S" : "S");
            EXPECT_EQ(list.ConstGet(0).data.AsString(0, 0), "ASM.A.X");
            EXPECT_EQ(list.ConstGet(1).data.AsString(0, 1), "I.S2");
        }
    }
    {
        cow_1DArrayList<inp_Keyword> list;
        list.Append(inp_test::Make(inp_kwShellSection, {{"orientation", "ASM.I.ORI"}, {"elset", "E"}}));
        inp_ScopedNameOrientationVisitor v(cow_String("ASM"));
        v.VisitList(list);
        EXPECT_EQ(Value(list.ConstGet(0), "orientation"), "I.ORI");
    }
}

TEST(DeckNames, PeriodRuleOfTheFlatDeck) {
    inp_ModelParameters parameters;
    const std::string longName = "A." + std::string(298, 'B');
    cow_1DArrayList<inp_Keyword> list;
    list.Append(inp_test::Make(inp_kwNset, {{"nset", "A.B"}}));
    list.Append(inp_test::Make(inp_kwNset, {{"nset", "\"A.B\""}}));
    list.Append(inp_test::Make(inp_kwNcopy, {{"oldset", "A.B"}, {"newset", "C.D"}}));
    list.Append(inp_test::Make(inp_kwElement, {{"elset", "EL.SET"}, {"type", "C3D8"}}));
    list.Append(inp_test::MakeWithData(inp_kwBoundary, {}, {"TOP.FACE, 1", "1A.B, 2", "12.5, 3"}));
    list.Append(inp_test::Make(inp_kwSolidSection, {{"elset", "E.1"}, {"orientation", "O.1"}}));
    list.Append(inp_test::MakeWithData(inp_kwDsload, {}, {"S.1, P, 1."}));
    list.Append(inp_test::Make(inp_kwNset, {{"nset", longName.c_str()}}));
    list.Append(inp_test::Make(inp_kwSubmodel, {{"globalelset", "G.E"}}));
    inp_RemovePeriodSetVisitor sets(parameters);
    sets.VisitList(list);
    inp_RemovePeriodSurfaceVisitor surfaces;
    surfaces.VisitList(list);
    inp_RemovePeriodOrientationVisitor orientations;
    orientations.VisitList(list);

    EXPECT_EQ(Value(list.ConstGet(0), "nset"), "A_B");
    EXPECT_EQ(Value(list.ConstGet(1), "nset"), "\"A.B\"");
    EXPECT_EQ(Value(list.ConstGet(2), "newset"), "C_D");
    EXPECT_EQ(Value(list.ConstGet(2), "oldset"), "A.B");  // a reference to the old set the base leaves alone
    EXPECT_EQ(Value(list.ConstGet(3), "elset"), "EL_SET");
    EXPECT_EQ(Printed(list.ConstGet(4)), "*boundary\nTOP_FACE, 1\n1A.B, 2\n12.5, 3\n");
    EXPECT_EQ(Value(list.ConstGet(5), "elset"), "E_1");
    EXPECT_EQ(Value(list.ConstGet(5), "orientation"), "O_1");
    EXPECT_EQ(list.ConstGet(6).data.AsString(0, 0), "S_1");
    const std::string cut = Value(list.ConstGet(7), "nset");
    EXPECT_EQ(cut.size(), 255u);
    EXPECT_EQ(cut.substr(0, 3), "A_B");
    EXPECT_EQ(Value(list.ConstGet(8), "globalelset"), "G_E");
}

TEST(DeckNames, PeriodInADefinedNameOfAnAssemblyDeckIsAnError) {
    TempDir dir;
    const std::string path = dir.Write("bad.inp",
                                       "*PART, NAME=P.1\n"
                                       "*END PART\n"
                                       "*PART, NAME=Q.2\n"  // the walk of the list ended at P.1
                                       "*END PART\n"
                                       "*ASSEMBLY, NAME=A\n"
                                       "*INSTANCE, NAME=\"I.1\", PART=P.1\n"
                                       "*END INSTANCE\n"
                                       "*END ASSEMBLY\n");
    inp_Deck deck;
    Expanded(deck, path);
    deck.ReorganizeKeywords(true);
    const Strings records = SinkRecords();
    ASSERT_FALSE(records.empty());
    EXPECT_EQ(records[0], "E0: in keyword *PART, file \"" + path +
                              "\", line 1: Period cannot be used within set, surface, orientation, instance, and "
                              "assembly names in a model defined in terms of an assembly of parts");
    int periodErrors = 0;
    for (const std::string& r : records) periodErrors += r.find("Period cannot be used") != std::string::npos;
    EXPECT_EQ(periodErrors, 1);
}

// A flat deck is told of each period and repaired: its names lose their periods before
// the conversion reads them as scopes.
TEST(DeckNames, PeriodInAFlatDeckIsAWarningAndBecomesAnUnderscore) {
    TempDir dir;
    const std::string path = dir.Write("flat.inp",
                                       "*NODE, NSET=A.B\n"
                                       "1, 0., 0., 0.\n"
                                       "2, 1., 0., 0.\n"
                                       "*NCOPY, OLD SET=A.B, NEW SET=C.D, CHANGE NUMBER=10\n"
                                       "*NSET, NSET=\"Q.R\"\n"
                                       "1,\n"
                                       "*STEP\n*STATIC\n*BOUNDARY\nA.B, 1, 3\n*END STEP\n");
    inp_Deck deck;
    Expanded(deck, path);
    deck.Classify(true);
    const std::string text = "A period may not be used within a set, surface, orientation, or rebar name. To avoid "
                             "further errors, remove the period from this name.";
    const std::string in = "W: in keyword *";
    EXPECT_EQ(SinkRecords(), (Strings{in + "NODE, file \"" + path + "\", line 1: " + text,
                                      in + "NCOPY, file \"" + path + "\", line 4: " + text,
                                      in + "NCOPY, file \"" + path + "\", line 4: " + text,
                                      // The old set of *NCOPY is no definition and keeps its
                                      // period, so it no longer names the renamed set.
                                      "E1: in keyword *NCOPY, file \"" + path + "\", line 4: Node set A.B does not exist."}));
    EXPECT_EQ(All(deck, inp_kwBoundary), Strings{"*boundary\nA_B, 1, 3\n"});
    // The copy found nothing to copy: its set is empty, and an empty set is written nowhere.
    EXPECT_FALSE(deck.assemblyNodeSets.IsMember(cow_String("C_D")));
    EXPECT_TRUE(deck.assemblyNodeSets.HasNestedSet(cow_String("PART-1-1"), cow_String("\"Q.R\"")) ||
                deck.assemblyNodeSets.IsMember(cow_String("\"Q.R\"")));
}
