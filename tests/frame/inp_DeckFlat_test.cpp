// A flat deck on the main road: converted into parts, an instance per part and an
// assembly, its model read, its references scoped, printed, and read back.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_ModelDump.h"
#include "../support/inp_TestFiles.h"
#include "inp.h"

using inp_test::ModelDump;
using inp_test::SinkRecords;
using inp_test::TempDir;
using Strings = std::vector<std::string>;

namespace {

// Nodes from *NODE, *NGEN and *NCOPY, elements from *ELEMENT and *ELGEN, node and element
// sets plain, generated and nested, surfaces of both kinds, a rigid body of R3D4
// elements with its reference node, a spring, a material, a section and two steps; node
// 7 and node 34 are named but never defined.
const char kDeck[] =
    "*HEADING\n"
    "A flat deck with every kind of model data\n"
    "*NODE, NSET=BASE\n"
    "1, 0., 0., 0.\n"
    "3, 2., 0., 0.\n"
    "*NGEN, NSET=ROW\n"
    "1, 3, 1\n"
    "*NCOPY, OLD SET=ROW, NEW SET=TOP, CHANGE NUMBER=10, SHIFT\n"
    "0., 1., 0.\n"
    "0., 0., 0., 0., 0., 1., 0.\n"
    "*NCOPY, OLD SET=ROW, NEW SET=ROW2, CHANGE NUMBER=20, SHIFT\n"
    "0., 0., 1.\n"
    "0., 0., 0., 0., 0., 1., 0.\n"
    "*NCOPY, OLD SET=TOP, NEW SET=TOP2, CHANGE NUMBER=20, SHIFT\n"
    "0., 0., 1.\n"
    "0., 0., 0., 0., 0., 1., 0.\n"
    "*NODE\n"
    "100, 5., 5., 5.\n"
    "101, 1., 0.5, 3.\n"
    "102, 1., 0.5, 2.\n"
    "*ELEMENT, TYPE=C3D8, ELSET=BRICKS\n"
    "1, 1, 2, 12, 11, 21, 22, 32, 31\n"
    "*ELGEN, ELSET=BRICKS\n"
    "1, 2, 1, 1\n"
    "*ELEMENT, TYPE=R3D4, ELSET=PLATE\n"
    "50, 31, 32, 33, 34\n"
    "*ELEMENT, TYPE=SPRINGA, ELSET=SPRINGS\n"
    "60, 101, 102\n"
    "*NSET, NSET=ENDS, GENERATE\n"
    "1, 3, 2\n"
    "*NSET, NSET=ALL\n"
    "ROW, TOP, ENDS\n"
    "*ELSET, ELSET=FIRST\n"
    "1\n"
    "*SURFACE, NAME=TOPFACE, TYPE=ELEMENT\n"
    "BRICKS, S2\n"
    "*SURFACE, NAME=ENDNODES, TYPE=NODE\n"
    "ENDS\n"
    "*RIGID BODY, REF NODE=100, ELSET=PLATE\n"
    "*SPRING, ELSET=SPRINGS\n"
    "\n"
    "1000.\n"
    "*MATERIAL, NAME=STEEL\n"
    "*ELASTIC\n"
    "210000., 0.3\n"
    "*SOLID SECTION, ELSET=BRICKS, MATERIAL=STEEL\n"
    "*STEP, NAME=LOAD\n"
    "*STATIC\n"
    "*BOUNDARY\n"
    "ENDS, 1, 3\n"
    "7, 1, 3\n"
    "*CLOAD\n"
    "100, 3, -10.\n"
    "*END STEP\n"
    "*STEP, NAME=MORE\n"
    "*STATIC\n"
    "*DSLOAD\n"
    "TOPFACE, P, 1.\n"
    "*END STEP\n";

const char kFull[] =
        "*part, name=PART-1\n"
        "*node\n"
        "1, 0., 0., 0.\n"
        "2, 1., 0., 0.\n"
        "3, 2., 0., 0.\n"
        "7, 0., 0., 0.\n"
        "11, 0., 1., 0.\n"
        "12, 1., 1., 0.\n"
        "13, 2., 1., 0.\n"
        "21, 0., 0., 1.\n"
        "22, 1., 0., 1.\n"
        "23, 2., 0., 1.\n"
        "31, 0., 1., 1.\n"
        "32, 1., 1., 1.\n"
        "33, 2., 1., 1.\n"
        "101, 1., 0.5, 3.\n"
        "102, 1., 0.5, 2.\n"
        "*elset, elset=SPRINGS\n"
        "60\n"
        "*elset, elset=BRICKS\n"
        "1, 2\n"
        "*spring, elset=SPRINGS\n"
        "\n"
        "1000.\n"
        "*solidsection, elset=BRICKS, material=STEEL\n"
        "*element, type=C3D8\n"
        "1, 1, 2, 12, 11, 21, 22, 32, 31\n"
        "2, 2, 3, 13, 12, 22, 23, 33, 32\n"
        "*element, type=SPRINGA\n"
        "60, 101, 102\n"
        "*endpart\n"
        "*part, name=PLATE\n"
        "*node\n"
        "31, 0., 1., 1.\n"
        "32, 1., 1., 1.\n"
        "33, 2., 1., 1.\n"
        "34, 0., 0., 0.\n"
        "100, 5., 5., 5.\n"
        "*element, type=R3D4\n"
        "50, 31, 32, 33, 34\n"
        "*endpart\n"
        "*heading\n"
        "AFLATDECKWITHEVERYKINDOFMODELDATA\n"
        "*material, name=STEEL\n"
        "*elastic\n"
        "210000., 0.3\n"
        "*assembly, name=Assembly-1\n"
        "*instance, name=PART-1-1, part=PART-1\n"
        "*endinstance\n"
        "*instance, name=PLATE-1, part=PLATE\n"
        "*endinstance\n"
        "*surface, name=TOPFACE, type=ELEMENT\n"
        "PART-1-1.BRICKS, S2\n"
        "*surface, name=ENDNODES, type=NODE\n"
        "ENDS\n"
        "*rigidbody, refnode=PLATE-1.100, elset=PLATE\n"
        "*nset, nset=ALL\n"
        "PART-1-1.1, PART-1-1.2, PART-1-1.3, PART-1-1.11, PART-1-1.12, PART-1-1.13\n"
        "*nset, nset=BASE\n"
        "PART-1-1.1, PART-1-1.3\n"
        "*nset, nset=ENDS\n"
        "PART-1-1.1, PART-1-1.3\n"
        "*nset, nset=ROW\n"
        "PART-1-1.1, PART-1-1.2, PART-1-1.3\n"
        "*nset, nset=ROW2\n"
        "PART-1-1.21, PART-1-1.22, PART-1-1.23\n"
        "*nset, nset=TOP\n"
        "PART-1-1.11, PART-1-1.12, PART-1-1.13\n"
        "*nset, nset=TOP2\n"
        "PART-1-1.31, PART-1-1.32, PART-1-1.33\n"
        "*elset, elset=FIRST\n"
        "PART-1-1.1\n"
        "*elset, elset=PLATE\n"
        "PLATE-1.50\n"
        "*endassembly\n"
        "*step, name=LOAD\n"
        "*static\n"
        "*boundary\n"
        "ENDS, 1, 3\n"
        "PART-1-1.7, 1, 3\n"
        "*cload\n"
        "PLATE-1.100, 3, -10.\n"
        "*endstep\n"
        "*step, name=MORE\n"
        "*static\n"
        "*dsload\n"
        "TOPFACE, P, 1.\n"
        "*endstep\n";

const char kSimple[] =
        "*part, name=PART-1\n"
        "*node\n"
        "1, 0., 0., 0.\n"
        "2, 1., 0., 0.\n"
        "3, 2., 0., 0.\n"
        "7, 0., 0., 0.\n"
        "11, 0., 1., 0.\n"
        "12, 1., 1., 0.\n"
        "13, 2., 1., 0.\n"
        "21, 0., 0., 1.\n"
        "22, 1., 0., 1.\n"
        "23, 2., 0., 1.\n"
        "31, 0., 1., 1.\n"
        "32, 1., 1., 1.\n"
        "33, 2., 1., 1.\n"
        "34, 0., 0., 0.\n"
        "100, 5., 5., 5.\n"
        "101, 1., 0.5, 3.\n"
        "102, 1., 0.5, 2.\n"
        "*elset, elset=BRICKS\n"
        "1, 2\n"
        "*elset, elset=FIRST\n"
        "1\n"
        "*elset, elset=PLATE\n"
        "50\n"
        "*elset, elset=SPRINGS\n"
        "60\n"
        "*nset, nset=ALL\n"
        "1, 2, 3, 11, 12, 13\n"
        "*nset, nset=BASE\n"
        "1, 3\n"
        "*nset, nset=ENDS\n"
        "1, 3\n"
        "*nset, nset=ROW\n"
        "1, 2, 3\n"
        "*nset, nset=ROW2\n"
        "21, 22, 23\n"
        "*nset, nset=TOP\n"
        "11, 12, 13\n"
        "*nset, nset=TOP2\n"
        "31, 32, 33\n"
        "*spring, elset=SPRINGS\n"
        "\n"
        "1000.\n"
        "*solidsection, elset=BRICKS, material=STEEL\n"
        "*element, type=C3D8\n"
        "1, 1, 2, 12, 11, 21, 22, 32, 31\n"
        "2, 2, 3, 13, 12, 22, 23, 33, 32\n"
        "*element, type=R3D4\n"
        "50, 31, 32, 33, 34\n"
        "*element, type=SPRINGA\n"
        "60, 101, 102\n"
        "*endpart\n"
        "*heading\n"
        "AFLATDECKWITHEVERYKINDOFMODELDATA\n"
        "*material, name=STEEL\n"
        "*elastic\n"
        "210000., 0.3\n"
        "*assembly, name=Assembly-1\n"
        "*instance, name=PART-1-1, part=PART-1\n"
        "*endinstance\n"
        "*surface, name=TOPFACE, type=ELEMENT\n"
        "PART-1-1.BRICKS, S2\n"
        "*surface, name=ENDNODES, type=NODE\n"
        "PART-1-1.ENDS\n"
        "*rigidbody, refnode=PART-1-1.100, elset=PART-1-1.PLATE\n"
        "*endassembly\n"
        "*step, name=LOAD\n"
        "*static\n"
        "*boundary\n"
        "PART-1-1.ENDS, 1, 3\n"
        "PART-1-1.7, 1, 3\n"
        "*cload\n"
        "PART-1-1.100, 3, -10.\n"
        "*endstep\n"
        "*step, name=MORE\n"
        "*static\n"
        "*dsload\n"
        "TOPFACE, P, 1.\n"
        "*endstep\n";

std::vector<int> Ids(const cow_1DArrayList<int>& list) {
    std::vector<int> out;
    for (int i = 0; i < list.Count(); ++i) out.push_back(list.ConstGet(i));
    return out;
}

struct Converted {
    inp_Deck deck;
    Strings records;
    std::string printed;
};

void Convert(Converted& c, const std::string& path, bool fullConversion) {
    thr_ThreadSingleton<wip_WIP>::Instance().Clear();
    c.deck.Parse(path.c_str());
    c.deck.ExpandKeywords();
    c.deck.Classify(fullConversion);
    c.records = SinkRecords();
    aio_ostringstream out;
    c.deck.Print(out);
    out.flush();
    c.printed = out.str().c_str();
}

}  // namespace

TEST(DeckFlat, FullConversionGivesRigidBodiesAPartOfTheirOwn) {
    TempDir dir;
    const std::string path = dir.Write("all.inp", kDeck);
    Converted c;
    Convert(c, path, true);
    EXPECT_EQ(c.records, (Strings{"W: in keyword *BOUNDARY, file \"" + path +
                                      "\", line 49: Undefined node 7 was detected and placed at the origin. ",
                                  "W: Undefined node 34 of element 50 was detected and placed at the origin. "}));
    EXPECT_EQ(c.printed, kFull);

    const inp_Deck& d = c.deck;
    EXPECT_FALSE(d.isAssemblyDeck);
    EXPECT_TRUE(d.hasFakeParts);
    EXPECT_EQ(inp_test::ToVector(d.instanceToPart.Instances()), (Strings{"PART-1-1", "PLATE-1"}));
    EXPECT_EQ(std::string(d.instanceToPart.ConstGet(cow_String("PLATE-1")).c_str()), "PLATE");

    // Coordinates through the instances, connectivity as the deck gave it.
    const inp_CoordMap& mesh = d.assemblyCoordinates.instances.ConstGet(cow_String("PART-1-1")).ConstGet();
    EXPECT_EQ(mesh.Count(), 15);
    const inp_Coord n12 = mesh.ConstGet(12);
    EXPECT_EQ((std::vector<double>{n12.x, n12.y, n12.z}), (std::vector<double>{1., 1., 0.}));
    const inp_Coord n7 = mesh.ConstGet(7);
    EXPECT_EQ((std::vector<double>{n7.x, n7.y, n7.z}), (std::vector<double>{0., 0., 0.}));
    const inp_CoordMap& plate = d.assemblyCoordinates.instances.ConstGet(cow_String("PLATE-1")).ConstGet();
    EXPECT_DOUBLE_EQ(plate.ConstGet(100).z, 5.);
    const omi_IntTable<inp_Element>& bricks = d.assemblyElements.ConstGet(cow_String("PART-1-1"));
    EXPECT_EQ(bricks.Count(), 3);
    const inp_Element& second = bricks.ConstGet(2);
    EXPECT_EQ(std::vector<int>(second.nodes, second.nodes + second.numNodes),
              (std::vector<int>{2, 3, 13, 12, 22, 23, 33, 32}));
    EXPECT_EQ(std::string(d.assemblyElements.ConstGet(cow_String("PLATE-1")).ConstGet(50).type.c_str()), "R3D4");

    // Sets used in a part stand in the part; the others at the assembly level, scoped.
    EXPECT_EQ(Ids(d.assemblyElementSets.ConstGetNestedSet(cow_String("PART-1-1"), cow_String("BRICKS")).ConstGetIds()),
              (std::vector<int>{1, 2}));
    EXPECT_EQ(Ids(d.assemblyNodeSets.ConstGetSet(cow_String("ENDS")).ConstGetSecondLevelIds(cow_String("PART-1-1"))),
              (std::vector<int>{1, 3}));
    EXPECT_EQ(Ids(d.assemblyNodeSets.ConstGetSet(cow_String("TOP2")).ConstGetSecondLevelIds(cow_String("PART-1-1"))),
              (std::vector<int>{31, 32, 33}));
    EXPECT_TRUE(d.assemblySurfaces.IsMemberAssemblyInstanceSurface(cow_String("TOPFACE")));
    EXPECT_TRUE(d.assemblySurfaces.IsMemberAssemblyInstanceSurface(cow_String("ENDNODES")));
}

TEST(DeckFlat, SimpleConversionKeepsEverythingInOnePart) {
    TempDir dir;
    const std::string path = dir.Write("all.inp", kDeck);
    Converted c;
    Convert(c, path, false);
    EXPECT_EQ(c.records.size(), 2u);
    EXPECT_EQ(c.printed, kSimple);
    EXPECT_EQ(inp_test::ToVector(c.deck.instanceToPart.Instances()), Strings{"PART-1-1"});
    EXPECT_EQ(c.deck.assemblyElements.ConstGet(cow_String("PART-1-1")).Count(), 4);
    EXPECT_EQ(Ids(c.deck.assemblyNodeSets.ConstGetNestedSet(cow_String("PART-1-1"), cow_String("TOP2")).ConstGetIds()),
              (std::vector<int>{31, 32, 33}));
}

// The printed deck is an assembly deck of the same model, by both routes.
TEST(DeckFlat, PrintedDeckReadsBackToTheSameModel) {
    TempDir dir;
    const std::string path = dir.Write("all.inp", kDeck);
    for (bool full : {true, false}) {
        Converted first;
        Convert(first, path, full);
        const std::string printed = dir.Write(full ? "full.inp" : "simple.inp", first.printed);
        Converted again;
        Convert(again, printed, full);
        EXPECT_TRUE(again.deck.isAssemblyDeck);
        EXPECT_EQ(again.records, Strings{});
        EXPECT_EQ(ModelDump(again.deck), ModelDump(first.deck)) << full;
    }
}
