// Nodes as the node pass makes them: *NODE in its coordinate systems and under *SYSTEM,
// and the generators *NCOPY, *NFILL, *NGEN and *NMAP with their messages.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp_NodeVisitor.h"

using inp_test::In;
using inp_test::Make;
using inp_test::MakeWithData;
using inp_test::Params;
using inp_test::ToVector;

namespace {

using Ids = std::vector<int>;
using Strings = std::vector<std::string>;

// A node pass walking part P, which already holds the nodes given as "id, x, y, z" lines.
struct Part {
    explicit Part(const std::vector<const char*>& nodes, bool compute = true) : v(compute) {
        v.partName = cow_String("P");
        v.coordMap.instances.Insert(cow_String("P"), inp_CoordMap::Handle(new inp_CoordMap()));
        if (nodes.empty()) return;
        inp_Keyword k = MakeWithData(inp_kwNode, {}, nodes);
        v.VisitNode(k);
    }
    const inp_CoordMap& Map() const { return v.coordMap.instances.ConstGet(cow_String("P")).ConstGet(); }
    bool HasNode(int id) const { return Map().HasId(id); }
    inp_Coord Node(int id) const { return Map().ConstGet(id); }
    void Set(const char* name, const Ids& ids) {
        cow_1DArrayList<int> list;
        for (int id : ids) list.Append(id);
        v.setMap.InsertNestedSet(cow_String("P"), cow_String(name), *CreateSet(list, false, true));
    }
    Ids SetIds(const char* name) const {
        const cow_1DArrayList<int> ids = v.setMap.ConstGetNestedSet(cow_String("P"), cow_String(name)).ConstGetIds();
        Ids out;
        for (int i = 0; i < ids.Count(); ++i) out.push_back(ids.ConstGet(i));
        return out;
    }
    inp_NodeVisitor v;
};

#define EXPECT_POINT(coord, X, Y, Z)          \
    do {                                      \
        const inp_Coord c_ = (coord);         \
        EXPECT_NEAR(c_.x, (X), 1e-12);        \
        EXPECT_NEAR(c_.y, (Y), 1e-12);        \
        EXPECT_NEAR(c_.z, (Z), 1e-12);        \
    } while (0)

#define EXPECT_NORMAL(coord, X, Y, Z)         \
    do {                                      \
        const inp_Coord c_ = (coord);         \
        EXPECT_NEAR(c_.nx, (X), 1e-12);       \
        EXPECT_NEAR(c_.ny, (Y), 1e-12);       \
        EXPECT_NEAR(c_.nz, (Z), 1e-12);       \
    } while (0)

}  // namespace

TEST(NodeGeneration, NodeLinesInTheirSystems) {
    Part p({});
    inp_Keyword plain = MakeWithData(inp_kwNode, {{"nset", "ALL"}}, {"1, 1., 2., 3., 0., 0., 2.", "0, 5.", "-3, 1.", "", "2"});
    p.v.VisitNode(plain);
    EXPECT_POINT(p.Node(1), 1.0, 2.0, 3.0);
    EXPECT_NORMAL(p.Node(1), 0.0, 0.0, 1.0);
    EXPECT_POINT(p.Node(2), 0.0, 0.0, 0.0);
    EXPECT_FALSE(p.HasNode(0));
    EXPECT_FALSE(p.HasNode(-3));
    EXPECT_EQ(p.SetIds("ALL"), (Ids{1, 2}));

    inp_Keyword cylindrical = MakeWithData(inp_kwNode, {{"system", "C"}}, {"3, 2., 90., 5."});
    p.v.VisitNode(cylindrical);
    EXPECT_POINT(p.Node(3), 0.0, 2.0, 5.0);

    // A frame at (10, 0, 0) turned by 90 degrees about z: local x is global y.
    inp_Keyword system = MakeWithData(inp_kwSystem, {}, {"10., 0., 0., 10., 1., 0."});
    p.v.VisitSystem(system);
    inp_Keyword local = MakeWithData(inp_kwNode, {}, {"4, 1., 0., 0."});
    p.v.VisitNode(local);
    EXPECT_POINT(p.Node(4), 10.0, 1.0, 0.0);

    inp_Keyword parallel = MakeWithData(inp_kwSystem, {}, {"0., 0., 0., 1., 0., 0.", "2., 0., 0."});
    p.v.VisitSystem(parallel);
    inp_Keyword none = MakeWithData(inp_kwSystem, {}, {"0., 0., 0., 0., 0., 0.", "0., 0., 0."});
    p.v.VisitSystem(none);
    EXPECT_EQ(ToVector(p.v.errors),
              (Strings{In("SYSTEM", "The x-axis and the y-axis of the local coordinate system are parallel or almost "
                                    "parallel."),
                       In("SYSTEM", "The x-axis of the local coordinate system is not defined."),
                       In("SYSTEM", "The y-axis of the local coordinate system is not defined."),
                       In("SYSTEM", "The x-axis and the y-axis of the local coordinate system are parallel or almost "
                                    "parallel.")}));
}

TEST(NodeGeneration, NcopyShiftPoleAndReflect) {
    Part p({"1, 1., 0., 0."});
    p.Set("OLD", {1});
    // Translated once, then rotated by 90 degrees about z once per copy.
    inp_Keyword shift = MakeWithData(
        inp_kwNcopy, {{"changenumber", "100"}, {"oldset", "OLD"}, {"pole", nullptr}, {"shift", nullptr},
                      {"multiple", "2"}, {"newset", "NEW"}},
        {"1., 0., 0.", "0., 0., 0., 0., 0., 1., 90."});
    p.v.VisitNcopy(shift);
    EXPECT_POINT(p.Node(101), 0.0, 2.0, 0.0);
    EXPECT_POINT(p.Node(201), -2.0, 0.0, 0.0);
    EXPECT_EQ(p.SetIds("NEW"), (Ids{101, 201}));
    EXPECT_TRUE(p.v.setMap.ConstGetNestedSet(cow_String("P"), cow_String("NEW")).IsUnsorted());

    inp_Keyword pole = MakeWithData(inp_kwNcopy, {{"changenumber", "1000"}, {"oldset", "OLD"}, {"pole", nullptr}}, {"101"});
    p.v.VisitNcopy(pole);
    EXPECT_POINT(p.Node(1001), 2.0, -2.0, 0.0);  // 2 old - pole

    Part n({"1, 1., 2., 3."});
    inp_Keyword normal = MakeWithData(inp_kwNode, {}, {"1, 1., 2., 3., 0.6, 0.8, 0."});
    n.v.VisitNode(normal);
    n.Set("OLD", {1});
    inp_Keyword point = MakeWithData(inp_kwNcopy, {{"changenumber", "10"}, {"oldset", "OLD"}, {"reflect", "POINT"}}, {"0., 0., 0."});
    n.v.VisitNcopy(point);
    EXPECT_POINT(n.Node(11), -1.0, -2.0, -3.0);
    EXPECT_NORMAL(n.Node(11), -0.6, -0.8, 0.0);
    // The plane x = 0: only the x part of the normal turns.
    inp_Keyword mirror = MakeWithData(inp_kwNcopy, {{"changenumber", "20"}, {"oldset", "OLD"}, {"reflect", "MIRROR"}},
                                 {"0., 0., 0., 0., 1., 0.", "0., 0., 1."});
    n.v.VisitNcopy(mirror);
    EXPECT_POINT(n.Node(21), -1.0, 2.0, 3.0);
    EXPECT_NORMAL(n.Node(21), -0.6, 0.8, 0.0);

    inp_Keyword noMode = MakeWithData(inp_kwNcopy, {{"changenumber", "5"}, {"oldset", "OLD"}}, {});
    n.v.VisitNcopy(noMode);
    inp_Keyword noOld = MakeWithData(inp_kwNcopy, {{"changenumber", "5"}}, {});
    n.v.VisitNcopy(noOld);
    inp_Keyword unknown = MakeWithData(inp_kwNcopy, {{"changenumber", "5"}, {"oldset", "NONE"}, {"shift", nullptr}}, {});
    n.v.VisitNcopy(unknown);
    inp_Keyword line = MakeWithData(inp_kwNcopy, {{"changenumber", "5"}, {"oldset", "OLD"}, {"reflect", "LINE"}},
                               {"1., 1., 1., 1., 1., 1."});
    n.v.VisitNcopy(line);
    EXPECT_EQ(ToVector(n.v.errors),
              (Strings{In("NCOPY", "POLE, REFLECT, and SHIFT are required, mutually exclusive parameters."),
                       In("NCOPY", "Both CHANGE NUMBER and OLD SET are required parameters."),
                       In("NCOPY", "Node set NONE does not exist."),
                       In("NCOPY", "Points A & B given for REFLECT=LINE are coincident.")}));
    EXPECT_FALSE(n.HasNode(6));
}

TEST(NodeGeneration, NfillSpacing) {
    Part p({"1, 0., 0., 0.", "2, 0., 1., 0.", "11, 16., 0., 0.", "12, 16., 1., 0."});
    p.Set("A", {1, 2});
    p.Set("B", {11, 12});
    inp_Keyword even = MakeWithData(inp_kwNfill, {{"nset", "F"}}, {"A, B, 4, 2"});
    p.v.VisitNfill(even);
    EXPECT_POINT(p.Node(3), 4.0, 0.0, 0.0);
    EXPECT_POINT(p.Node(5), 8.0, 0.0, 0.0);
    EXPECT_POINT(p.Node(8), 12.0, 1.0, 0.0);
    EXPECT_EQ(p.SetIds("F"), (Ids{1, 2, 3, 4, 5, 6, 7, 8, 11, 12}));

    Part s({"1, 0., 0., 0.", "5, 16., 0., 0."});
    s.Set("A", {1});
    s.Set("B", {5});
    inp_Keyword singular = MakeWithData(inp_kwNfill, {{"singular", "1"}}, {"A, B, 4"});
    s.v.VisitNfill(singular);
    EXPECT_POINT(s.Node(2), 1.0, 0.0, 0.0);   // 1/16
    EXPECT_POINT(s.Node(3), 4.0, 0.0, 0.0);   // 1/4
    EXPECT_POINT(s.Node(4), 10.0, 0.0, 0.0);  // 5/8

    inp_Keyword bad = MakeWithData(inp_kwNfill, {{"singular", "3"}}, {"A, B, 4"});
    s.v.VisitNfill(bad);
    inp_Keyword twoStep = MakeWithData(inp_kwNfill, {{"twostep", nullptr}}, {"A, B, 2"});
    s.v.VisitNfill(twoStep);
    inp_Keyword odd = MakeWithData(inp_kwNfill, {{"singular", "2"}}, {"A, B, 3"});
    s.v.VisitNfill(odd);
    inp_Keyword shortLine = MakeWithData(inp_kwNfill, {}, {"A, B"});
    s.v.VisitNfill(shortLine);
    EXPECT_EQ(ToVector(s.v.errors),
              (Strings{In("NFILL", "Parameter SINGULAR=3 is invalid."),
                       In("NFILL", "The number of intervals must be even when the SINGULAR parameter is specified."),
                       In("NFILL", "Invalid data line: AB")}));
    EXPECT_EQ(ToVector(s.v.warnings),
              (Strings{In("NFILL", "The TWO STEP parameter is ignored as the BIAS parameter not specified."),
                       In("NFILL", "The number of intervals 2 and the node increment 1 are inconsistent with the node "
                                   "numbers of two sets: A - 1, B - 5 .")}));
}

TEST(NodeGeneration, NgenLinesAndArcs) {
    Part p({"1, 1., 0., 0.", "5, 0., 1.05, 0.", "11, 1., 0., 0.", "15, 0., 1.2, 0.", "20, 1., 0., 0.",
            "24, 1., 0., 0."});
    inp_Keyword same = MakeWithData(inp_kwNgen, {{"nset", "G"}}, {"20, 20"});
    p.v.VisitNgen(same);
    EXPECT_EQ(p.SetIds("G"), (Ids{20}));
    inp_Keyword arc = MakeWithData(inp_kwNgen, {{"line", "C"}}, {"1, 5, 1, 0, 0., 0., 0."});
    p.v.VisitNgen(arc);
    inp_Keyword unequal = MakeWithData(inp_kwNgen, {{"line", "C"}, {"nset", "U"}}, {"11, 15, 2, 0, 0., 0., 0."});
    p.v.VisitNgen(unequal);
    EXPECT_EQ(p.SetIds("U"), (Ids{11, 13, 15}));
    EXPECT_NEAR(std::hypot(p.Node(13).x, p.Node(13).y), 1.1, 1e-12);
    EXPECT_NEAR(p.Node(13).x, p.Node(13).y, 1e-12);
    EXPECT_NEAR(std::hypot(p.Node(3).x, p.Node(3).y), 1.025, 1e-12);

    // Coincident end nodes and a normal: the full circle.
    inp_Keyword full = MakeWithData(inp_kwNgen, {{"line", "C"}}, {"20, 24, 1, 0, 0., 0., 0., 0., 0., 1."});
    p.v.VisitNgen(full);
    EXPECT_POINT(p.Node(22), -1.0, 0.0, 0.0);
    EXPECT_POINT(p.Node(21), 0.0, 1.0, 0.0);

    inp_Keyword huge = MakeWithData(inp_kwNgen, {}, {"1, 999999999"});
    p.v.VisitNgen(huge);
    inp_Keyword line = MakeWithData(inp_kwNgen, {}, {"1, 41, 10"});
    p.v.VisitNgen(line);
    inp_Keyword missing = MakeWithData(inp_kwNgen, {}, {"50, 52"});
    p.v.VisitNgen(missing);
    EXPECT_TRUE(p.HasNode(50));
    EXPECT_EQ(ToVector(p.v.errors), (Strings{In("NGEN", "Nodes cannot be generated between 20 and 20 with a step of 1."),
                                             In("NGEN", "Node 999999999 does not exist."),
                                             In("NGEN", "The generation on the *NGEN keyword gives more than "
                                                        "100000000 ids."),
                                             In("NGEN", "Node 41 does not exist."),
                                             In("NGEN", "Node 50 does not exist."),
                                             In("NGEN", "Node 52 does not exist.")}));
    EXPECT_EQ(ToVector(p.v.warnings),
              (Strings{In("NGEN", "The radii for LINE=C are not equal. The end points must be moved by more than 5 "
                                  "percent to lie on a circle.")}));
}

TEST(NodeGeneration, NmapTypes) {
    Part p({"1, 2., 90., 0.", "2, 1., 1., 1."});
    p.Set("S", {1, 2, 99});
    inp_Keyword blended = MakeWithData(inp_kwNmap, {{"nset", "S"}, {"type", "BLENDED"}}, {"5., 5., 5."});
    p.v.VisitNmap(blended);
    EXPECT_POINT(p.Node(2), 1.0, 1.0, 1.0);
    // Origin only: a translation, and no message.
    inp_Keyword moved = MakeWithData(inp_kwNmap, {{"nset", "S"}, {"type", "RECTANGULAR"}}, {"1., 0., 0.", "", "0., 3., 1."});
    p.v.VisitNmap(moved);
    EXPECT_POINT(p.Node(2), 2.0, 3.0, 1.0);
    EXPECT_FALSE(p.HasNode(99));
    EXPECT_TRUE(p.v.errors.IsEmpty());

    Part c({"1, 2., 90., 0."});
    c.Set("S", {1});
    inp_Keyword cylinder = MakeWithData(inp_kwNmap, {{"nset", "S"}, {"type", "CYLINDRICAL"}}, {"1., 0., 0."});
    c.v.VisitNmap(cylinder);
    inp_Keyword noType = MakeWithData(inp_kwNmap, {{"nset", "S"}}, {});
    c.v.VisitNmap(noType);
    EXPECT_EQ(ToVector(c.v.errors), (Strings{In("NMAP", "The local x and z axes are parallel. "),
                                             In("NMAP", "Both NSET and TYPE are required parameters.")}));
    EXPECT_NE(c.Node(1).y, 90.0);  // mapped all the same
}

TEST(NodeGeneration, WithoutCoordinatesTheSameIdsAreMade) {
    for (bool compute : {true, false}) {
        Part p({"1, 0., 0., 0.", "2, 1., 0., 0.", "11, 0., 4., 0.", "12, 1., 4., 0."}, compute);
        p.Set("A", {1, 2});
        p.Set("B", {11, 12});
        inp_Keyword ncopy = MakeWithData(inp_kwNcopy, {{"changenumber", "100"}, {"oldset", "A"}, {"shift", nullptr}},
                                    {"0., 0., 1."});
        p.v.VisitNcopy(ncopy);
        inp_Keyword nfill = MakeWithData(inp_kwNfill, {{"nset", "F"}}, {"A, B, 2, 5"});
        p.v.VisitNfill(nfill);
        inp_Keyword ngen = MakeWithData(inp_kwNgen, {{"nset", "G"}}, {"1, 11, 5"});
        p.v.VisitNgen(ngen);
        EXPECT_EQ(p.SetIds("F"), (Ids{1, 2, 6, 7, 11, 12})) << compute;
        EXPECT_EQ(p.SetIds("G"), (Ids{1, 6, 11})) << compute;
        EXPECT_TRUE(p.HasNode(101) && p.HasNode(102)) << compute;
        EXPECT_EQ(p.Node(101).z, compute ? 1.0 : 0.0);
        EXPECT_EQ(p.Node(6).y, compute ? 2.0 : 0.0);
        EXPECT_TRUE(p.v.errors.IsEmpty()) << compute;
    }
}
