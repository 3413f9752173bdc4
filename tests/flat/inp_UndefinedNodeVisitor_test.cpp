// Undefined nodes of a flat deck: placed at the origin of "FAKE", each with one warning,
// and the labels that can name no node reported.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "inp_FlatPassesTesting.h"

using inp_test::FlatPasses;
using inp_test::MakeWithData;
using inp_test::ToVector;
using Ids = std::vector<int>;
using Texts = std::vector<std::string>;

namespace {

Ids Keys(const inp_CoordMap& map) {
    Ids ids;
    const cow_IntTable<inp_Coord> records = map.ConstGet();
    omi_IntTableIterator<inp_Coord> it(records.ConstGet());
    for (it.First(); !it.IsDone(); it.Next()) ids.push_back(it.CurrentKey());
    return ids;
}

inp_CoordMap FlatWith(const Ids& ids) {
    inp_CoordMap fake;
    for (int id : ids) fake.Insert(id, inp_Coord{true, 1., 1., 1.});
    inp_CoordMap flat;
    flat.instances.Insert(cow_String("FAKE"), inp_CoordMap::Handle(new inp_CoordMap(fake)));
    return flat;
}

const inp_CoordMap& Fake(const inp_CoordMap& map) { return map.instances.ConstGet(cow_String("FAKE")).ConstGet(); }

}  // namespace

TEST(UndefinedNodeVisitor, EachUndefinedNodeIsPlacedOnceAndBadLabelsAreReported) {
    FlatPasses flat(
        "*HEADING\n"                                   // 1
        "undefined nodes\n"                            // 2
        "*NODE, NSET=GIVEN\n"                          // 3
        "1, 1., 2., 3.\n"                              // 4
        "*NSET, NSET=EXTRA\n"                          // 5
        "1, 40, 41\n"                                  // 6
        "*SLIDE LINE, ELSET=SL, GENERATE\n"            // 7
        "20, 24, 2\n"                                  // 8
        "30, 33, 2\n"                                  // 9
        "*STEP\n"                                      // 10
        "*STATIC\n"                                    // 11
        "*BOUNDARY\n"                                  // 12
        "1, 1\n7, 2\nGIVEN, 3\n7, 3\n"                 // 13-16
        "*CLOAD\n"                                     // 17
        "8, 1, 5.\n1234567890, 1, 1.\n0, 1, 1.\n-5, 1, 1.\n7, 2, 1.\n"  // 18-22
        "*DLOAD\n"                                     // 23
        "99, P, 1.\n"                                  // 24
        "*END STEP\n");
    EXPECT_EQ(flat.parseMessages, Texts{});
    EXPECT_EQ(flat.modelMessages, Texts{});
    auto placed = [&](const char* name, int line, int id) {
        return flat.At(name, line, "Undefined node " + std::to_string(id) + " was detected and placed at the origin. ");
    };
    EXPECT_EQ(flat.warnings, (Texts{placed("SLIDELINE", 7, 20), placed("SLIDELINE", 7, 22),
                                    placed("SLIDELINE", 7, 24), placed("BOUNDARY", 12, 7), placed("CLOAD", 17, 8)}));
    EXPECT_EQ(flat.errors,
              (Texts{"Increment of 2 cannot be used to step from 30 to 33 on *SLIDELINE keyword.",
                     flat.At("CLOAD", 17, "Node label exceeds 9 digits: 1234567890"),
                     flat.At("CLOAD", 17, "Node label is not a positive integer: 0"),
                     flat.At("CLOAD", 17, "Node label is not a positive integer: -5")}));

    // Element 99 of *DLOAD is no node; the members of EXTRA came in silently.
    EXPECT_EQ(Keys(flat.Fake()), (Ids{1, 7, 8, 20, 22, 24, 40, 41}));
    const inp_Coord given = flat.Fake().ConstGet(1), origin = flat.Fake().ConstGet(7);
    EXPECT_EQ((std::vector<double>{given.x, given.y, given.z, origin.x, origin.y, origin.z}),
              (std::vector<double>{1., 2., 3., 0., 0., 0.}));
}

TEST(UndefinedNodeVisitor, SetMembersBecomeNodesUpToTheLargestId) {
    inp_ModelParameters parameters;
    const inp_CoordMap given = FlatWith({1});
    inp_UndefinedNodeVisitor pass(given, parameters);
    inpM_SetMap sets;
    inpM_SortedSet top, fake, other;
    for (int id : {6, 1000000000}) top.Add(id);
    for (int id : {0, 1, 5}) fake.Add(id);
    other.Add(9);
    sets.InsertSet(cow_String("TOP"), top);
    sets.InsertNestedSet(cow_String("FAKE"), cow_String("OWN"), fake);
    sets.InsertNestedSet(cow_String("OTHER"), cow_String("ELSEWHERE"), other);
    pass.AddSetNodes(sets);
    EXPECT_EQ(Keys(Fake(pass.coordinates)), (Ids{1, 5, 6, 9}));
    EXPECT_EQ(Fake(pass.coordinates).ConstGet(1).x, 1.0);
    EXPECT_TRUE(pass.warnings.IsEmpty());
    // The map handed in is the caller's and stays as it was.
    EXPECT_EQ(Keys(Fake(given)), Ids{1});
}

// Without the flat model there is nowhere to place a node, and nothing to report.
TEST(UndefinedNodeVisitor, AModelWithoutFakeIsLeftAlone) {
    inp_ModelParameters parameters;
    inp_UndefinedNodeVisitor pass(inp_CoordMap(), parameters);
    cow_1DArrayList<inp_Keyword> list;
    list.Append(MakeWithData(inp_kwBoundary, {}, {"7, 1", "0, 1"}));
    pass.VisitList(list);
    inpM_SetMap sets;
    inpM_SortedSet members;
    members.Add(5);
    sets.InsertNestedSet(cow_String("FAKE"), cow_String("S"), members);
    pass.AddSetNodes(sets);
    EXPECT_EQ(ToVector(pass.warnings), Texts{});
    EXPECT_EQ(ToVector(pass.errors), Texts{});
    EXPECT_EQ(pass.coordinates.Count(), 0);
}
