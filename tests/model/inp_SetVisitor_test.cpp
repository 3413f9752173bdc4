// Node and element sets as the node and element passes read them: ids, names, scoped
// ids, generation, deck order, merging of repeated names, and the messages.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp_ElementVisitor.h"
#include "inp_NodeVisitor.h"

using inp_test::In;
using inp_test::Make;
using inp_test::MakeWithData;
using inp_test::Params;
using inp_test::ToVector;

namespace {

using Ids = std::vector<int>;

Ids Vec(const cow_1DArrayList<int>& list) {
    Ids out;
    for (int i = 0; i < list.Count(); ++i) out.push_back(list.ConstGet(i));
    return out;
}

cow_1DArrayList<int> List(const Ids& ids) {
    cow_1DArrayList<int> list;
    for (int id : ids) list.Append(id);
    return list;
}

Ids Nested(const inpM_SetMap& sets, const char* scope, const char* name) {
    return Vec(sets.ConstGetNestedSet(cow_String(scope), cow_String(name)).ConstGetIds());
}

// Elements 1.. of two nodes each: element i joins nodes 10 i and 10 i + 1.
omi_IntTable<inp_Element> Bars(int count) {
    omi_IntTable<inp_Element> table;
    for (int i = 1; i <= count; ++i)
        table.Insert(i, inp_Element(cow_String("T3D2"), List({10 * i, 10 * i + 1}), 0, 0, 0));
    return table;
}

const char kInvalidName[] = "Invalid set name \"1A\".";

}  // namespace

TEST(SetVisitor, SetsOfAScopeMergeByNameAndKeepDeckOrderOnlyWhenAsked) {
    inp_NodeVisitor v(false);
    v.partName = cow_String("P");
    v.setMap.InsertNestedSet(cow_String("P"), cow_String("B"), *CreateSet(List({8, 7}), false, true));

    inp_Keyword first = MakeWithData(inp_kwNset, {{"nset", "A"}}, {"3, 1, 2"});
    v.VisitNset(first);
    inp_Keyword again = MakeWithData(inp_kwNset, {{"nset", "A"}}, {"3, 4"});
    v.VisitNset(again);
    EXPECT_EQ(Nested(v.setMap, "P", "A"), (Ids{1, 2, 3, 4}));

    // Deck order over a sorted set is refused: the set stays sorted.
    inp_Keyword unsortedOverSorted = MakeWithData(inp_kwNset, {{"nset", "A"}, {"unsorted", nullptr}}, {"9, 5"});
    v.VisitNset(unsortedOverSorted);
    EXPECT_FALSE(v.setMap.ConstGetNestedSet(cow_String("P"), cow_String("A")).IsUnsorted());
    EXPECT_EQ(Nested(v.setMap, "P", "A"), (Ids{1, 2, 3, 4, 5, 9}));

    // Ids in front of a set name land behind the set's ids.
    inp_Keyword ordered = MakeWithData(inp_kwNset, {{"nset", "U"}, {"unsorted", nullptr}}, {"1, 2, B, 3"});
    v.VisitNset(ordered);
    EXPECT_TRUE(v.setMap.ConstGetNestedSet(cow_String("P"), cow_String("U")).IsUnsorted());
    EXPECT_EQ(Nested(v.setMap, "P", "U"), (Ids{8, 7, 1, 2, 3}));

    // A sorted read over an unsorted set sorts it.
    inp_Keyword sorted = MakeWithData(inp_kwNset, {{"nset", "U"}}, {"0"});
    v.VisitNset(sorted);
    EXPECT_FALSE(v.setMap.ConstGetNestedSet(cow_String("P"), cow_String("U")).IsUnsorted());
    EXPECT_EQ(Nested(v.setMap, "P", "U"), (Ids{0, 1, 2, 3, 7, 8}));
    EXPECT_TRUE(v.errors.IsEmpty()) << ToVector(v.errors)[0];
}

TEST(SetVisitor, BadItemsAndNamesAreReportedAndTheRestIsRead) {
    inp_ElementVisitor v(true);
    v.partName = cow_String("P");
    inp_Keyword k = MakeWithData(inp_kwElset, {{"elset", "E"}}, {"5, 1000000000, 999999999, 1.5", "NOPE, 12345678901"});
    v.VisitElset(k);
    EXPECT_EQ(Nested(v.setMap, "P", "E"), (Ids{5, 999999999}));
    inp_Keyword badName = MakeWithData(inp_kwElset, {{"elset", "1A"}}, {"1"});
    v.VisitElset(badName);
    inp_Keyword noName = MakeWithData(inp_kwElset, {}, {"1"});
    v.VisitElset(noName);
    EXPECT_EQ(ToVector(v.errors),
              (std::vector<std::string>{In("ELSET", "Invalid data:\n1000000000, 1.5, 12345678901"),
                                        In("ELSET", "The following sets specified do not exist:\nNOPE"), kInvalidName,
                                        In("ELSET", "ELSET parameter is required.")}));
    EXPECT_FALSE(v.setMap.HasNestedSet(cow_String("P"), cow_String("1A")));
}

TEST(SetVisitor, NodeSetParametersThatExcludeEachOther) {
    inp_NodeVisitor v(false);
    v.partName = cow_String("P");
    const Params cases[] = {
        {{"nset", "A"}, {"elset", "E"}, {"generate", nullptr}},
        {{"elset", "E"}},
        {{"nset", "A"}, {"elset", "E"}, {"unsorted", nullptr}},
    };
    for (const Params& params : cases) {
        inp_Keyword k = MakeWithData(inp_kwNset, params, {"1"});
        v.VisitNset(k);
    }
    EXPECT_EQ(ToVector(v.errors),
              (std::vector<std::string>{In("NSET", "The ELSET and GENERATE parameters are mutually exclusive. "),
                                        In("NSET", "NSET parameter is required."),
                                        In("NSET", "The UNSORTED parameter cannot be used with the ELSET parameter. ")}));
    EXPECT_TRUE(v.setMap.ConstGetNestedSetMap(cow_String("P")).IsEmpty());
}

TEST(SetVisitor, GenerationInAScope) {
    inp_ElementVisitor v(true);
    v.instanceName = cow_String("I");
    inp_Keyword down = MakeWithData(inp_kwElset, {{"elset", "A"}, {"generate", nullptr}}, {"10, 1, -3"});
    v.VisitElset(down);
    EXPECT_EQ(Nested(v.setMap, "I", "A"), (Ids{1, 4, 7, 10}));
    inp_Keyword wrongStep = MakeWithData(inp_kwElset, {{"elset", "B"}, {"generate", nullptr}}, {"1, 10, 2"});
    v.VisitElset(wrongStep);
    EXPECT_TRUE(Nested(v.setMap, "I", "B").empty());
    EXPECT_EQ(ToVector(v.errors), (std::vector<std::string>{
                                      "Increment of 2 cannot be used to step from 1 to 10 on *ELSET keyword."}));
}

TEST(SetVisitor, GenerationAtTheAssemblyLevelTakesTheInstanceOfEitherEnd) {
    inp_AssemblyNodeVisitor v(inpM_ElementMap(), inpM_SetMap(), inp_CoordMap(), inpM_SetMap(), false, false);
    v.instanceNames.Append(cow_String("I1")).Append(cow_String("I2"));
    inp_Keyword k = MakeWithData(inp_kwNset, {{"nset", "G"}, {"generate", nullptr}},
                            {"I1.1, I1.3", "I1.1, I2.5", "1, I1.2", "I2.7, 9, 2", "X.1, X.2", "4"});
    v.VisitNset(k);
    const inpM_BaseSet& set = v.setMap.ConstGetSet(cow_String("G"));
    EXPECT_EQ(Vec(set.ConstGetTopLevelIds()), (Ids{1, 2}));
    EXPECT_EQ(Vec(set.ConstGetSecondLevelIds(cow_String("I1"))), (Ids{1, 2, 3}));
    EXPECT_EQ(Vec(set.ConstGetSecondLevelIds(cow_String("I2"))), (Ids{7, 9}));
    // An unknown instance is reported, and its line read all the same.
    EXPECT_EQ(Vec(set.ConstGetSecondLevelIds(cow_String("X"))), (Ids{1, 2}));
    EXPECT_EQ(ToVector(v.errors),
              (std::vector<std::string>{
                  "The start and end id instance names must match when generating assembly *NSET ids: I1.1, I2.5",
                  In("NSET", "The following sets/ids do not exist:\nX.1, X.2"),
                  "Not enough data provided to generate the *NSET: G"}));
}

TEST(SetVisitor, AssemblySetsNameIdsSetsAndScopedItems) {
    inp_AssemblyNodeVisitor v(inpM_ElementMap(), inpM_SetMap(), inp_CoordMap(), inpM_SetMap(), false, false);
    v.instanceNames.Append(cow_String("I1"));
    v.setMap.InsertSet(cow_String("T"), *CreateSet(List({100}), false, false));
    v.setMap.InsertNestedSet(cow_String("I1"), cow_String("S"), *CreateSet(List({20, 21}), false, false));
    v.setMap.InsertNestedSet(cow_String("PART-1-1"), cow_String("F"), *CreateSet(List({30}), false, false));
    inp_Keyword k = MakeWithData(inp_kwNset, {{"nset", "N"}}, {"3, I1.7, I1.S, T", "F, NOPE, Q.5, I1.MISSING, 2"});
    v.VisitNset(k);
    const inpM_BaseSet& set = v.setMap.ConstGetSet(cow_String("N"));
    EXPECT_EQ(Vec(set.ConstGetTopLevelIds()), (Ids{2, 3, 100}));
    EXPECT_EQ(Vec(set.ConstGetSecondLevelIds(cow_String("I1"))), (Ids{7, 20, 21}));
    EXPECT_EQ(Vec(set.ConstGetSecondLevelIds(cow_String("PART-1-1"))), (Ids{30}));
    EXPECT_EQ(ToVector(v.errors), (std::vector<std::string>{In(
                                      "NSET", "The following sets/ids do not exist:\nNOPE, Q.5, I1.MISSING")}));

    // In deck order: scoped ids keep their place, plain ids wait behind the next set.
    inp_Keyword ordered = MakeWithData(inp_kwNset, {{"nset", "O"}, {"unsorted", nullptr}}, {"5, I1.9, I1.S, 4"});
    v.VisitNset(ordered);
    const inpM_BaseSet& inOrder = v.setMap.ConstGetSet(cow_String("O"));
    EXPECT_EQ(Vec(inOrder.ConstGetTopLevelIds()), (Ids{5, 4}));
    EXPECT_EQ(Vec(inOrder.ConstGetSecondLevelIds(cow_String("I1"))), (Ids{9, 20, 21}));
}

TEST(SetVisitor, InstanceParameterScopesTheItemsOfAnAssemblySet) {
    inp_AssemblyNodeVisitor v(inpM_ElementMap(), inpM_SetMap(), inp_CoordMap(), inpM_SetMap(), false, false);
    v.instanceNames.Append(cow_String("I1"));
    inp_Keyword k = MakeWithData(inp_kwNset, {{"nset", "A"}, {"instance", "I1"}}, {"5, , 6"});
    v.VisitNset(k);
    EXPECT_EQ(inp_test::Printed(k, false), "*nset, nset=A, instance=I1\nI1.5, I1.6\n");
    EXPECT_EQ(Vec(v.setMap.ConstGetSet(cow_String("A")).ConstGetSecondLevelIds(cow_String("I1"))), (Ids{5, 6}));

    inp_Keyword generated = MakeWithData(inp_kwNset, {{"nset", "G"}, {"instance", "I1"}, {"generate", nullptr}}, {"1, 5, 2"});
    v.VisitNset(generated);
    EXPECT_EQ(Vec(v.setMap.ConstGetSet(cow_String("G")).ConstGetSecondLevelIds(cow_String("I1"))), (Ids{1, 3, 5}));

    // Inside an instance the parameter changes nothing.
    v.instanceName = cow_String("I1");
    inp_Keyword inside = MakeWithData(inp_kwNset, {{"nset", "B"}, {"instance", "I1"}}, {"8"});
    v.VisitNset(inside);
    EXPECT_EQ(Nested(v.setMap, "I1", "B"), (Ids{8}));
    EXPECT_TRUE(v.errors.IsEmpty()) << ToVector(v.errors)[0];
}

TEST(SetVisitor, AssemblyElementSetsWaitForTheAssemblyLevelElements) {
    inp_AssemblyElementVisitor v(inpM_ElementMap(), inpM_SetMap(), true);
    v.instanceNames.Append(cow_String("I1"));
    inp_Keyword k = MakeWithData(inp_kwElset, {{"elset", "E"}}, {"I1.3, LATER"});
    v.VisitElset(k);
    EXPECT_TRUE(v.errors.IsEmpty());
    ASSERT_EQ(v.deferredKeywords.Count(), 1);
    EXPECT_EQ(Vec(v.setMap.ConstGetSet(cow_String("E")).ConstGetSecondLevelIds(cow_String("I1"))), (Ids{3}));
    // A read that resolves everything is not deferred; the name accumulates.
    inp_Keyword more = MakeWithData(inp_kwElset, {{"elset", "E"}}, {"I1.4"});
    v.VisitElset(more);
    EXPECT_EQ(v.deferredKeywords.Count(), 1);
    EXPECT_EQ(Vec(v.setMap.ConstGetSet(cow_String("E")).ConstGetSecondLevelIds(cow_String("I1"))), (Ids{3, 4}));
}

TEST(SetVisitor, NodeSetsOfElementSets) {
    inpM_ElementMap elements(Bars(2));
    elements.Insert(cow_String("I1"), Bars(3));
    inpM_SetMap elementSets;
    elementSets.InsertNestedSet(cow_String("I1"), cow_String("E"), *CreateSet(List({3, 1}), false, false));
    inpM_SetHandle mixed = CreateSet(List({2}), false, false);
    mixed.Get().Add(cow_String("I1"), List({2}));
    elementSets.InsertSet(cow_String("M"), *mixed);
    elementSets.InsertSet(cow_String("BAD"), *CreateSet(List({2, 7, 9}), false, false));

    // In a scope: the nodes of the scope's elements.
    inp_NodeVisitor scoped(elements, elementSets, false);
    scoped.instanceName = cow_String("I1");
    inp_Keyword inScope = MakeWithData(inp_kwNset, {{"nset", "N"}, {"elset", "E"}}, {});
    scoped.VisitNset(inScope);
    EXPECT_EQ(Nested(scoped.setMap, "I1", "N"), (Ids{10, 11, 30, 31}));

    inp_AssemblyNodeVisitor v(elements, elementSets, inp_CoordMap(), inpM_SetMap(), false, false);
    inp_Keyword assembly = MakeWithData(inp_kwNset, {{"nset", "N"}, {"elset", "M"}}, {});
    v.VisitNset(assembly);
    const inpM_BaseSet& set = v.setMap.ConstGetSet(cow_String("N"));
    EXPECT_EQ(Vec(set.ConstGetTopLevelIds()), (Ids{20, 21}));
    EXPECT_EQ(Vec(set.ConstGetSecondLevelIds(cow_String("I1"))), (Ids{20, 21}));
    inp_Keyword scopedName = MakeWithData(inp_kwNset, {{"nset", "S"}, {"elset", "I1.E"}}, {});
    v.VisitNset(scopedName);
    EXPECT_EQ(Vec(v.setMap.ConstGetSet(cow_String("S")).ConstGetSecondLevelIds(cow_String("I1"))),
              (Ids{10, 11, 30, 31}));

    inp_Keyword unknown = MakeWithData(inp_kwNset, {{"nset", "X"}, {"elset", "BAD"}}, {});
    v.VisitNset(unknown);
    inp_Keyword absent = MakeWithData(inp_kwNset, {{"nset", "Y"}, {"elset", "NONE"}}, {});
    v.VisitNset(absent);
    EXPECT_FALSE(v.setMap.IsMember(cow_String("X")));
    EXPECT_EQ(ToVector(v.errors),
              (std::vector<std::string>{
                  In("NSET", "The following elements from elset BAD are not found at assembly level:\n7, 9"),
                  In("NSET", "Element set NONE does not exist.")}));

    // A symmetric model generation makes that set itself: only the name is kept.
    inp_AssemblyNodeVisitor symmetric(elements, elementSets, inp_CoordMap(), inpM_SetMap(), true, false);
    inp_Keyword generated = MakeWithData(inp_kwNset, {{"nset", "Z"}, {"elset", "NONE"}}, {});
    symmetric.VisitNset(generated);
    EXPECT_TRUE(symmetric.errors.IsEmpty());
    EXPECT_TRUE(symmetric.setMap.ConstGetSet(cow_String("Z")).IsEmpty());
}

TEST(SetVisitor, InstancesStartWithTheirPartsSetsAndMayNotRedefineThem) {
    inpM_ElementMap partElements;
    partElements.Insert(cow_String("P"), Bars(2));
    inpM_SetMap partSets;
    partSets.InsertNestedSet(cow_String("P"), cow_String("E"), *CreateSet(List({1}), false, false));
    inp_AssemblyElementVisitor v(partElements, partSets, true);
    v.instanceToPart.Insert(cow_String("I"), cow_String("P"));

    cow_1DArrayList<inp_Keyword> deck;
    inp_Keyword assembly = Make(inp_kwAssembly, {{"name", "A"}});
    inp_Keyword instance = Make(inp_kwInstance, {{"name", "I"}, {"part", "P"}});
    instance.suboptions.Append(MakeWithData(inp_kwElset, {{"elset", "E"}}, {"2"}));
    assembly.suboptions.Append(instance);
    assembly.suboptions.Append(Make(inp_kwEndInstance));
    deck.Append(assembly);
    v.VisitList(deck);

    EXPECT_EQ(v.elements.ConstGet(cow_String("I")).Count(), 2);
    EXPECT_EQ(&v.elements.ConstGet(cow_String("I")), &partElements.ConstGet(cow_String("P")));
    EXPECT_EQ(Nested(v.setMap, "I", "E"), (Ids{1, 2}));
    EXPECT_EQ(ToVector(v.errors),
              (std::vector<std::string>{
                  "The element set E was defined within part P, then redefined within part instance I. An element set "
                  "cannot be defined at the part level, then modified at the part instance level."}));
}

TEST(SetVisitor, AnInstancePlacesItsPartsNodesAndTakesItsNodeSets) {
    inp_CoordMap parts;
    inp_CoordMap part;
    inp_Coord node;
    node.x = 1.0;
    part.Insert(5, node);
    parts.instances.Insert(cow_String("P"), inp_CoordMap::Handle(new inp_CoordMap(part)));
    inpM_SetMap partSets;
    partSets.InsertNestedSet(cow_String("P"), cow_String("N"), *CreateSet(List({5}), false, false));
    inp_AssemblyNodeVisitor v(inpM_ElementMap(), inpM_SetMap(), parts, partSets, false, true);

    // Moved by (0, 0, 2), then turned by 90 degrees about the z axis through the origin.
    inp_Keyword instance =
        MakeWithData(inp_kwInstance, {{"name", "I"}, {"part", "P"}}, {"0., 0., 2.", "0., 0., 0., 0., 0., 1., 90."});
    v.VisitInstance(instance);
    const inp_Coord placed = v.coordMap.instances.ConstGet(cow_String("I"))->ConstGet(5);
    EXPECT_NEAR(placed.x, 0.0, 1e-12);
    EXPECT_NEAR(placed.y, 1.0, 1e-12);
    EXPECT_NEAR(placed.z, 2.0, 1e-12);
    EXPECT_FALSE(v.transforms.ConstGet(cow_String("I")).IsIdentity());
    EXPECT_EQ(Nested(v.setMap, "I", "N"), (Ids{5}));

    inp_Keyword end = Make(inp_kwEndInstance);
    v.VisitEndInstance(end);
    EXPECT_TRUE(v.instanceTransform.IsIdentity());
    EXPECT_TRUE(v.instanceName.IsEmpty());

    // Coincident axis points are reported without a location; the translation stands.
    inp_Keyword coincident =
        MakeWithData(inp_kwInstance, {{"name", "J"}, {"part", "P"}}, {"1., 0., 0.", "1., 1., 1., 1., 1., 1., 30."});
    v.VisitInstance(coincident);
    EXPECT_NEAR(v.coordMap.instances.ConstGet(cow_String("J"))->ConstGet(5).x, 2.0, 1e-12);
    EXPECT_EQ(ToVector(v.errors),
              (std::vector<std::string>{
                  "The points defining the axis of rotation are coincident or almost coincident."}));
}

// Plain items are read from the stored text and the rest the general way: both must
// give the same members, whatever the case, blanks and order of scopes.
TEST(SetVisitor, ScopedIdsInEveryWritingGiveTheSameMembers) {
    inp_AssemblyNodeVisitor v(inpM_ElementMap(), inpM_SetMap(), inp_CoordMap(), inpM_SetMap(), false, false);
    v.instanceNames.Append(cow_String("I1"));
    v.instanceNames.Append(cow_String("I-2"));
    inp_Keyword k = MakeWithData(inp_kwNset, {{"nset", "N"}},
                                 {"I1.1, I-2.2, I1.3, i1.4, I1 . 5, \"I1\".6, 0007", "I-2.8, X.9, 1.5, I1.1234567890"});
    v.VisitNset(k);
    const inpM_BaseSet& set = v.setMap.ConstGetSet(cow_String("N"));
    EXPECT_EQ(Vec(set.ConstGetTopLevelIds()), (Ids{7}));
    // Ten digits are past the plain reading; the general one takes them as they stand.
    EXPECT_EQ(Vec(set.ConstGetSecondLevelIds(cow_String("I1"))), (Ids{1, 3, 4, 5, 1234567890}));
    EXPECT_EQ(Vec(set.ConstGetSecondLevelIds(cow_String("I-2"))), (Ids{2, 8}));
    EXPECT_EQ(ToVector(v.errors),
              (std::vector<std::string>{In("NSET", "The following sets/ids do not exist:\n\"I1\".6, X.9, 1.5")}));
}
