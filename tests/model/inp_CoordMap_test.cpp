#include <gtest/gtest.h>

#include <cmath>

#include "../inpM/inpM_TestLists.h"
#include "inp_CoordMap.h"

namespace {

inp_Coord Node(double x, double y, double z, double nx = 0.0, double ny = 0.0, double nz = 0.0) {
    inp_Coord c;
    c.x = x;
    c.y = y;
    c.z = z;
    c.nx = nx;
    c.ny = ny;
    c.nz = nz;
    return c;
}

inp_CoordMap MapOf(std::initializer_list<int> ids) {
    inp_CoordMap map;
    for (int id : ids) map.Insert(id, Node(id, 0.0, 0.0));
    return map;
}

void AddInstance(inp_CoordMap& map, const char* name, const inp_CoordMap& child) {
    map.instances.Insert(cow_String(name), inp_CoordMap::Handle(new inp_CoordMap(child)));
}

const inp_CoordMap& Child(const inp_CoordMap& map, const char* name) {
    return map.instances.ConstGet(cow_String(name)).ConstGet();
}

// A quarter turn about z through the origin, then a shift along x.
gsl_Matrix QuarterTurnAndShift() {
    gsl_Matrix m;
    m.AxisRotation(gsl_Point(), gsl_Vector(0.0, 0.0, 1.0), std::acos(0.0));
    m.SetTranslation(gsl_Vector(10.0, 0.0, 0.0));
    return m;
}

void ExpectPoint(const inp_Coord& c, double x, double y, double z) {
    EXPECT_NEAR(c.x, x, 1e-12);
    EXPECT_NEAR(c.y, y, 1e-12);
    EXPECT_NEAR(c.z, z, 1e-12);
}

void ExpectNormal(const inp_Coord& c, double nx, double ny, double nz) {
    EXPECT_NEAR(c.nx, nx, 1e-12);
    EXPECT_NEAR(c.ny, ny, 1e-12);
    EXPECT_NEAR(c.nz, nz, 1e-12);
}

}  // namespace

TEST(CoordMap, InstanceSharesThePartTableUntilItIsPlaced) {
    inp_CoordMap part = MapOf({1, 2, 3});
    inp_CoordMap instance(part);
    EXPECT_EQ(instance.coords, part.coords);
    // Identity and no renumbering: the whole table is handed out, not copied.
    EXPECT_EQ(instance.ConstGet().Pointer(), part.coords.Pointer());

    instance.ConcatenateTransformation(QuarterTurnAndShift());
    EXPECT_EQ(instance.coords, part.coords);  // placing copies no node
    cow_IntTable<inp_Coord> placed = instance.ConstGet();
    EXPECT_NE(placed.Pointer(), part.coords.Pointer());
    ASSERT_EQ(placed.Count(), 3);
    ExpectPoint(placed.ConstGet(2), 10.0, 2.0, 0.0);
    ExpectPoint(part.ConstGet(2), 2.0, 0.0, 0.0);
    EXPECT_TRUE(part.transformation.IsIdentity());
}

TEST(CoordMap, ReadsThroughTheInstanceMatrix) {
    inp_CoordMap part;
    part.Insert(1, Node(1.0, 0.0, 0.0, 3.0, 0.0, 4.0));
    part.Insert(2, Node(0.0, 2.0, 5.0));  // no normal
    part.Insert(3, Node(0.0, 0.0, 0.0, 0.0, 0.0, 1e-14));  // too short to have a direction
    inp_CoordMap instance(part);
    instance.ConcatenateTransformation(QuarterTurnAndShift());

    inp_Coord a = instance.ConstGet(1);
    ExpectPoint(a, 10.0, 1.0, 0.0);
    ExpectNormal(a, 0.0, 0.6, 0.8);  // unit length, whatever the length given
    inp_Coord b = instance.ConstGet(2);
    ExpectPoint(b, 8.0, 0.0, 5.0);
    ExpectNormal(b, 0.0, 0.0, 0.0);  // zero stays zero
    ExpectNormal(instance.ConstGet(3), 0.0, 0.0, 0.0);
    EXPECT_TRUE(instance.ConstGet(1).isDefined);

    // The part reads its own frame, the record as stored.
    inp_Coord raw = part.ConstGet(1);
    ExpectPoint(raw, 1.0, 0.0, 0.0);
    ExpectNormal(raw, 3.0, 0.0, 4.0);

    // The whole table of the instance agrees with the single reads.
    cow_IntTable<inp_Coord> all = instance.ConstGet();
    ExpectPoint(all.ConstGet(1), 10.0, 1.0, 0.0);
    ExpectNormal(all.ConstGet(1), 0.0, 0.6, 0.8);

    // The fallback comes back untouched for an absent id, not transformed.
    inp_Coord fallback = Node(7.0, 8.0, 9.0, 1.0, 1.0, 1.0);
    fallback.isDefined = false;
    inp_Coord got = instance.ConstGet(99, fallback);
    ExpectPoint(got, 7.0, 8.0, 9.0);
    ExpectNormal(got, 1.0, 1.0, 1.0);
    EXPECT_FALSE(got.isDefined);
    ExpectPoint(instance.ConstGet(2, fallback), 8.0, 0.0, 5.0);
}

TEST(CoordMap, InstancesOfOnePartDoNotAffectEachOtherOrThePart) {
    inp_CoordMap part = MapOf({4, 5});
    inp_CoordMap first(part), second(part);
    first.ConcatenateTransformation(QuarterTurnAndShift());
    inpM_IdMap ids = second.Renumber(100, false);

    EXPECT_EQ(Pairs(ids), (IdPairs{{4, 100}, {5, 101}}));
    ExpectPoint(second.ConstGet(100), 4.0, 0.0, 0.0);  // renumbered, not placed
    ExpectPoint(first.ConstGet(4), 10.0, 4.0, 0.0);    // placed, not renumbered
    EXPECT_FALSE(first.HasId(100));
    EXPECT_EQ(part.renumberTable->Count(), 0);
    EXPECT_TRUE(part.transformation.IsIdentity());
    EXPECT_EQ(first.coords, part.coords);
    EXPECT_EQ(second.coords, part.coords);
}

TEST(CoordMap, RenumberLaysScopesOutInOneGaplessRange) {
    // Root 10, 20 and instance 5, 6: the instance block follows the root block.
    inp_CoordMap root = MapOf({20, 10});
    AddInstance(root, "I", MapOf({6, 5}));
    inpM_IdMap ids = root.Renumber(1, false);
    EXPECT_EQ(Pairs(ids), (IdPairs{{10, 1}, {20, 2}}));
    EXPECT_EQ(Pairs(ids.ConstGet(cow_String("I"))), (IdPairs{{5, 3}, {6, 4}}));
    EXPECT_EQ(ids.NumberIds(), 4);
    ExpectPoint(root.ConstGet(2), 20.0, 0.0, 0.0);
    ExpectPoint(Child(root, "I").ConstGet(3), 5.0, 0.0, 0.0);
    // The stored table keeps the ids of the deck.
    EXPECT_EQ(Pairs(root.coords.ConstGet()).front().first, 10);

    // Several scopes with sparse and negative ids: the root first, then the
    // instances in ascending byte order ("B" < "a" < "b"), each in ascending id order.
    inp_CoordMap model = MapOf({999999999, -7, 3});
    AddInstance(model, "b", MapOf({2, 1}));
    AddInstance(model, "a", MapOf({999999998, 40}));
    AddInstance(model, "B", MapOf({8}));
    EXPECT_EQ(Names(model.InstanceNames()), (std::vector<std::string>{"B", "a", "b"}));
    inpM_IdMap flat = model.Renumber(1, false);
    EXPECT_EQ(Pairs(flat), (IdPairs{{-7, 1}, {3, 2}, {999999999, 3}}));
    EXPECT_EQ(Pairs(flat.ConstGet(cow_String("B"))), (IdPairs{{8, 4}}));
    EXPECT_EQ(Pairs(flat.ConstGet(cow_String("a"))), (IdPairs{{40, 5}, {999999998, 6}}));
    EXPECT_EQ(Pairs(flat.ConstGet(cow_String("b"))), (IdPairs{{1, 7}, {2, 8}}));
    EXPECT_EQ(flat.SmallestId(), 1);
    EXPECT_EQ(flat.LargestId(), 8);
    EXPECT_EQ(flat.NumberIds(), model.Count());
    ExpectPoint(model.ConstGet(3), 999999999.0, 0.0, 0.0);
    ExpectPoint(Child(model, "a").ConstGet(6), 999999998.0, 0.0, 0.0);

    // The whole table of a renumbered level stands under the new ids.
    EXPECT_EQ(Pairs(Child(model, "b").ConstGet().ConstGet()).back().first, 8);
}

TEST(CoordMap, RenumberWithKeepLeavesIdsAndTables) {
    inp_CoordMap root = MapOf({10, 20});
    AddInstance(root, "I", MapOf({5, 6}));
    inpM_IdMap ids = root.Renumber(50, true);
    EXPECT_EQ(Pairs(ids), (IdPairs{{10, 10}, {20, 20}}));
    EXPECT_EQ(Pairs(ids.ConstGet(cow_String("I"))), (IdPairs{{5, 5}, {6, 6}}));
    EXPECT_EQ(root.renumberTable->Count(), 0);
    EXPECT_EQ(Child(root, "I").renumberTable->Count(), 0);
    EXPECT_EQ(root.ConstGet().Pointer(), root.coords.Pointer());

}

TEST(CoordMap, WritesGoThroughTheRenumberTable) {
    inp_CoordMap map = MapOf({10, 20});
    map.Renumber(1, false);
    EXPECT_EQ(Pairs(map.renumberTable.ConstGet()), (IdPairs{{1, 10}, {2, 20}}));  // new id to stored id
    EXPECT_EQ(map.StoredId(2), 20);
    EXPECT_EQ(map.StoredId(20), 20);  // a free stored id stands for itself
    EXPECT_TRUE(map.HasId(1));
    map.Insert(1, Node(-1.0, -1.0, -1.0));
    ExpectPoint(map.coords->ConstGet(10), -1.0, -1.0, -1.0);
    EXPECT_EQ(map.coords->Count(), 2);
}

TEST(CoordMap, CountRenameAndConcatenateReachNestedMaps) {
    inp_CoordMap root = MapOf({1});
    AddInstance(root, "A", MapOf({1, 2}));
    AddInstance(root, "B", MapOf({3}));
    EXPECT_EQ(root.Count(), 4);

    inp_CoordMap before(root);
    root.ConcatenateTransformation(QuarterTurnAndShift());
    ExpectPoint(Child(root, "A").ConstGet(2), 10.0, 2.0, 0.0);
    ExpectPoint(Child(before, "A").ConstGet(2), 2.0, 0.0, 0.0);  // the copy taken before is untouched

    root.RenameInstance(cow_String("A"), cow_String("A"));
    root.RenameInstance(cow_String("Z"), cow_String("Y"));
    EXPECT_EQ(Names(root.InstanceNames()), (std::vector<std::string>{"A", "B"}));
    root.RenameInstance(cow_String("A"), cow_String("C"));
    EXPECT_EQ(Names(root.InstanceNames()), (std::vector<std::string>{"B", "C"}));
    EXPECT_EQ(Child(root, "C").Count(), 2);
}
