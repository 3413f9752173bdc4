// A deck as a continuation job: what makes it impure, and how it takes over the model
// of the earlier job.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../inpM/inpM_TestLists.h"
#include "../support/inp_TestFiles.h"
#include "inp.h"

namespace {

using Strings = std::vector<std::string>;

cow_String S(const char* s) { return cow_String(s); }
wip_WIP& Sink() { return thr_ThreadSingleton<wip_WIP>::Instance(); }

// The deck read and expanded, with the sink emptied behind it.
void Expand(inp_Deck& deck, const inp_test::TempDir& dir, const std::string& text) {
    deck.Parse(cow_String(dir.Write("deck.inp", "*HEADING\n" + text).c_str()));
    deck.ExpandKeywords();
    Sink().Clear();
}

const char kImpure[] =
    "Features such as new nodes/elements, IMPORT, SYMMETRIC MODEL GENERATION, MAP SOLUTION are detected in a "
    "continuation analysis where the original model is defined in terms of an assembly of part instances. This is "
    "not allowed. ";

}  // namespace

TEST(RestartJob, ClassificationFlagsAndTheRuleForModelsOfParts) {
    struct Case {
        const char* deck;
        bool pure, import, symmetric, mapSolution;
    };
    const Case cases[] = {
        {"*NSET, NSET=N\n1\n*ELSET, ELSET=E\n1\n*SURFACE, NAME=S\nE, S1\n*STEP\n*STATIC\n*END STEP\n", true, false,
         false, false},
        {"*NODE\n1, 0., 0., 0.\n", false, false, false, false},
        {"*ELEMENT, TYPE=T2D2\n1, 1, 2\n", false, false, false, false},
        {"*IMPORT, UPDATE=NO\n", false, true, false, false},
        {"*SYMMETRIC MODEL GENERATION, REVOLVE, NODE OFFSET=100, ELEMENT OFFSET=100\n0., 0., 0., 0., 0., 1.\n"
         "1., 0., 0.\n",
         false, false, true, false},
        {"*MAP SOLUTION\n", false, false, false, true},
        {"*MAP SOLUTION\n*IMPORT, UPDATE=NO\n*NODE\n1, 0., 0., 0.\n", false, true, false, true},
    };
    for (const Case& c : cases) {
        inp_test::TempDir dir;
        inp_Deck deck;
        Expand(deck, dir, c.deck);
        deck.hasImport = deck.hasMapSolution = deck.hasSymmetricModelGeneration = true;
        deck.ClassifyRestartJob();
        EXPECT_EQ(deck.isPureRestart, c.pure) << c.deck;
        EXPECT_EQ(deck.hasImport, c.import) << c.deck;
        EXPECT_EQ(deck.hasSymmetricModelGeneration, c.symmetric) << c.deck;
        EXPECT_EQ(deck.hasMapSolution, c.mapSolution) << c.deck;
        EXPECT_EQ(Sink().Count(), 0) << c.deck;  // a new job is not held to the rule

        deck.hasInheritedPartMap = deck.isAssemblyDeck = true;
        deck.ClassifyRestartJob();
        EXPECT_EQ(inp_test::SinkRecords(), c.pure ? Strings{} : Strings{std::string("E0: ") + kImpure}) << c.deck;
        Sink().Clear();
    }
}

TEST(RestartJob, InheritPartMapTakesTheModelOver) {
    inpM_IdMap pump;
    pump.Insert(1, 5);
    pump.Insert(2, 6);
    inpM_IdMap ids;
    ids.InsertInstance(S("PUMP-1"), pump);
    inpM_SortedSet both;
    both.Add(S("PUMP-1"), List({1, 2, 3}));
    inpM_SetMap nodeSets;
    nodeSets.InsertSet(S("BOTH"), both);
    nodeSets.InsertNestedSet(S("PUMP-1"), S("_INTERNAL"), CreateSet(List({1}), true, false).ConstGet());
    inpM_SetMap elementSets;
    for (const char* name : {"A", "B", "C"}) elementSets.InsertSet(S(name), both);
    inpM_InstanceMap<cow_String> toPart;
    toPart.Insert(S("PUMP-1"), S("P"));
    auto partMap = [&](bool assemblyModel) {
        return inpM_PartMap(assemblyModel, !assemblyModel, false, inpM_InstanceIdMaps(ids), inpM_InstanceIdMaps(ids),
                            nodeSets, elementSets, inpM_SurfaceMap(), S("ASSEMBLY-1"), toPart);
    };

    // A model of parts: its sets in the solver's ids; a pure deck stays as it was written.
    {
        inp_test::TempDir dir;
        inp_Deck deck;
        Expand(deck, dir, "*STEP\n*STATIC\n*END STEP\n");
        inpM_PartMap earlier = partMap(true);
        deck.InheritPartMap(earlier, true);
        EXPECT_TRUE(deck.hasInheritedPartMap && deck.isPureRestart && deck.isAssemblyDeck && deck.partMapUsable);
        EXPECT_FALSE(deck.hasFakeParts);
        EXPECT_EQ(Ints(deck.assemblyNodeSets.ConstGetSet(S("BOTH")).ConstGetSecondLevelIds(S("PUMP-1"))),
                  (std::vector<int>{5, 6}));
        EXPECT_EQ(deck.nodeIdMap.ConstGet(S("PUMP-1")).ConstGet(2), 6);
        EXPECT_EQ(deck.elementIdMap.ConstGet(S("PUMP-1")).ConstGet(1), 5);
        EXPECT_EQ(deck.instanceToPart.ConstGet(S("PUMP-1")), S("P"));
        EXPECT_TRUE(deck.assemblyNodeSets.HasNestedSet(S("PUMP-1"), S("_INTERNAL")));
        EXPECT_EQ(inp_test::Printed(deck.keywords), "*heading\n*step, name=Step-1\n*static\n*endstep\n");
        EXPECT_EQ(Sink().Count(), 0);
    }
    // A flat model keeps its ids; an import keeps the element sets it names and makes
    // the part map unusable; symmetric generation drops the internal sets of the map.
    {
        inp_test::TempDir dir;
        inp_Deck deck;
        Expand(deck, dir,
               "*IMPORT, UPDATE=NO\n*IMPORT ELSET\nA, B\n*SYMMETRIC MODEL GENERATION, REVOLVE, NODE OFFSET=100, "
               "ELEMENT OFFSET=100\n0., 0., 0., 0., 0., 1.\n1., 0., 0.\n");
        inpM_PartMap earlier = partMap(false);
        deck.InheritPartMap(earlier, true);
        EXPECT_TRUE(deck.hasImport && deck.hasSymmetricModelGeneration && deck.hasFakeParts);
        EXPECT_FALSE(deck.isPureRestart || deck.partMapUsable || deck.isAssemblyDeck);
        EXPECT_FALSE(earlier.NodeSets().HasNestedSet(S("PUMP-1"), S("_INTERNAL")));
        EXPECT_EQ(Ints(deck.assemblyNodeSets.ConstGetSet(S("BOTH")).ConstGetSecondLevelIds(S("PUMP-1"))),
                  (std::vector<int>{1, 2, 3}));
        EXPECT_TRUE(deck.assemblyElementSets.IsMember(S("A")) && deck.assemblyElementSets.IsMember(S("B")));
        EXPECT_FALSE(deck.assemblyElementSets.IsMember(S("C")));
    }
    // A solution mapped onto a new mesh takes nothing over.
    {
        inp_test::TempDir dir;
        inp_Deck deck;
        Expand(deck, dir, "*MAP SOLUTION\n");
        inpM_PartMap earlier = partMap(true);
        deck.InheritPartMap(earlier, true);
        EXPECT_FALSE(deck.assemblyNodeSets.IsMember(S("BOTH")));
        EXPECT_EQ(deck.nodeIdMap.NumberIds(), 0);
        EXPECT_EQ(inp_test::SinkRecords(), Strings{std::string("E0: ") + kImpure});
        Sink().Clear();
    }
}
