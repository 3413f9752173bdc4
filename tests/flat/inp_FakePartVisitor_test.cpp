// The conversion of a flat deck's keyword list into parts, instances and an assembly:
// small decks read and expanded as a user's deck is, the flat model taken under
// "FAKE" by the node and element passes, then the fake part visitor.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "../support/inp_DataArrayTesting.h"
#include "../support/inp_TestFiles.h"
#include "inp_ElementVisitor.h"
#include "inp_FakePartVisitor.h"
#include "inp_NodeVisitor.h"
#include "inp_RigidBodyOrder.h"

using inp_test::Make;
using inp_test::MakeWithData;
using inp_test::Printed;
using inp_test::TempDir;
using inp_test::ToVector;
using Strings = std::vector<std::string>;

namespace {

const cow_String kFake("FAKE");

// A deck read and expanded, with its flat model under "FAKE", ready for a visitor.
struct FlatDeck {
    inp_Deck deck;
    std::string path;
    std::unique_ptr<inp_ElementVisitor> elements;
    std::unique_ptr<inp_NodeVisitor> nodes;

    FlatDeck(const TempDir& dir, const std::string& text) {
        path = dir.Write("flat.inp", text);
        deck.Parse(cow_String(path.c_str()));
        deck.ExpandKeywords();
        elements.reset(new inp_ElementVisitor(true));
        elements->instanceName = kFake;
        elements->VisitList(deck.keywords);
        nodes.reset(new inp_NodeVisitor(elements->elements, elements->setMap, true));
        nodes->instanceName = kFake;
        nodes->coordMap.instances.Insert(kFake, new inp_CoordMap());
        nodes->VisitList(deck.keywords);
    }

    template <class Visitor = inp_FakePartVisitor>
    std::unique_ptr<Visitor> Convert(bool symmetricModelGeneration = false) {
        std::unique_ptr<Visitor> v(new Visitor(nodes->coordMap, nodes->setMap, elements->elements, elements->setMap,
                                               symmetricModelGeneration));
        v->VisitList(deck.keywords);
        cow_1DArrayList<inp_Keyword> result;
        v->GetConvertedKeywords(result);
        deck.keywords = result;
        return v;
    }

    std::string Printed() const { return inp_test::Printed(deck.keywords); }
    // What reading the printed list back as a deck reports.
    Strings MessagesOnReading(const TempDir& dir) const {
        const std::string again = dir.Write("again.inp", Printed());
        thr_ThreadSingleton<wip_WIP>::Instance().Clear();
        inp_Deck read;
        read.Parse(cow_String(again.c_str()));
        read.ExpandKeywords();
        return inp_test::SinkRecords();
    }
    // "in keyword *NAME, file "...", line n: "
    std::string At(const char* upperName, int line) const {
        return "in keyword *" + std::string(upperName) + ", file \"" + path + "\", line " + std::to_string(line) + ": ";
    }
};

std::vector<int> Ids(const omi_IntTable<inp_Element>& table) {
    std::vector<int> ids;
    omi_IntTableIterator<inp_Element> it(table);
    for (it.First(); !it.IsDone(); it.Next()) ids.push_back(it.CurrentKey());
    return ids;
}

std::vector<int> NodeIds(const inp_CoordMap& map, const char* part) {
    std::vector<int> ids;
    const inp_CoordMap::Handle* scope = map.instances.Lookup(cow_String(part));
    if (!scope) return ids;
    omi_IntTableIterator<inp_Coord> it((*scope)->coords.ConstGet());
    for (it.First(); !it.IsDone(); it.Next()) ids.push_back(it.CurrentKey());
    return ids;
}

std::string PartOf(const inp_FakePartVisitor& v, const char* instance) {
    return v.instanceToPart.IsMember(cow_String(instance)) ? v.instanceToPart.ConstGet(cow_String(instance)).c_str()
                                                           : "<none>";
}

const char kPlate[] =
    "*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n4, 0., 1., 0.\n"
    "*ELEMENT, TYPE=S4R, ELSET=PLATE\n1, 1, 2, 3, 4\n";

}  // namespace

TEST(FakePartVisitor, NodesAndElementsBecomeOnePartOneInstanceOneAssembly) {
    TempDir dir;
    FlatDeck flat(dir, kPlate);
    auto v = flat.Convert();
    EXPECT_EQ(flat.Printed(),
              "*part, name=PART-1\n"
              "*element, type=S4R\n"
              "*endpart\n"
              "*assembly, name=Assembly-1\n"
              "*instance, name=PART-1-1, part=PART-1\n"
              "*endinstance\n"
              "*endassembly\n");
    EXPECT_EQ(NodeIds(v->partCoordinates, "PART-1"), (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(Ids(v->partElements.ConstGet(cow_String("PART-1"))), std::vector<int>{1});
    EXPECT_EQ(Ids(v->flatElements.ConstGet(kFake)), std::vector<int>{});
    EXPECT_FALSE(v->partElements.item.HasValue());
    EXPECT_EQ(PartOf(*v, "PART-1-1"), "PART-1");
    EXPECT_TRUE(v->errors.IsEmpty() && v->warnings.IsEmpty());

    // The new list prints in a form that reads back without a message.
    EXPECT_EQ(flat.MessagesOnReading(dir), Strings{});
}

// The header lines of a cylinder place its part's instance; the reference node goes
// into the part's frame.
TEST(FakePartVisitor, RigidCylinderGetsAPartAnInstanceAndItsPlacement) {
    TempDir dir;
    const std::string deck = std::string(kPlate) +
                             "*NODE\n100, 5., 0., 0.\n"
                             "*RIGID SURFACE, NAME=DIE, TYPE=CYLINDER, REFNODE=100\n"
                             "1., 2., 3., 1., 3., 3.\n1., 2., 4.\nSTART, 2., 0.\nLINE, 2., 5.\n";
    FlatDeck flat(dir, deck);
    auto v = flat.Convert();
    EXPECT_EQ(flat.Printed(),
              "*part, name=DIE\n"
              "*rigidsurface, name=DIE, type=CYLINDER, refnode=100\n"
              "START, 2., 0.\n"
              "LINE, 2., 5.\n"
              "*node\n"
              "100, -2, -4, -3\n"
              "*endpart\n"
              "*part, name=PART-1\n"
              "*element, type=S4R\n"
              "*endpart\n"
              "*assembly, name=Assembly-1\n"
              "*instance, name=DIE-1, part=DIE\n"
              "1., 2., 3.\n"
              "1., 2., 3., 1., 2., 4., 90.\n"
              "*endinstance\n"
              "*instance, name=PART-1-1, part=PART-1\n"
              "*endinstance\n"
              "*endassembly\n");
    EXPECT_EQ(PartOf(*v, "DIE-1"), "DIE");
    EXPECT_EQ(PartOf(*v, "PART-1-1"), "PART-1");
    ASSERT_TRUE(v->partTransforms.IsMember(cow_String("DIE")));
    gsl_Point origin(0.0, 0.0, 0.0);
    v->partTransforms.ConstGet(cow_String("DIE")).Transform(origin);
    EXPECT_DOUBLE_EQ(origin.y, 2.0);
    EXPECT_TRUE(v->surfaces.IsMemberPartInstanceSurface(cow_String("DIE"), cow_String("DIE")));
    EXPECT_EQ(NodeIds(v->partCoordinates, "DIE"), std::vector<int>{100});
    EXPECT_EQ(NodeIds(v->partCoordinates, "PART-1"), (std::vector<int>{1, 2, 3, 4}));
    EXPECT_TRUE(v->errors.IsEmpty());
    EXPECT_EQ(flat.MessagesOnReading(dir), Strings{});

    // The simple route keeps the surface whole, in PART-1, where it stands.
    TempDir other;
    FlatDeck simple(other, deck);
    auto s = simple.Convert<inp_SimpleFakePartVisitor>();
    EXPECT_EQ(simple.Printed(),
              "*part, name=PART-1\n"
              "*rigidsurface, name=DIE, type=CYLINDER, refnode=100\n"
              "1., 2., 3., 1., 3., 3.\n1., 2., 4.\nSTART, 2., 0.\nLINE, 2., 5.\n"
              "*element, type=S4R\n"
              "*endpart\n"
              "*assembly, name=Assembly-1\n"
              "*instance, name=PART-1-1, part=PART-1\n"
              "*endinstance\n"
              "*endassembly\n");
    EXPECT_FALSE(s->partTransforms.IsMember(cow_String("DIE")));
    EXPECT_TRUE(s->surfaces.IsMemberPartInstanceSurface(cow_String("PART-1"), cow_String("DIE")));
    EXPECT_EQ(NodeIds(s->partCoordinates, "PART-1"), (std::vector<int>{1, 2, 3, 4, 100}));
}

TEST(FakePartVisitor, SurfaceHeadersThatDefineNoFrame) {
    struct Case {
        const char* type;
        std::vector<const char*> lines;
        const char* message;
    } cases[] = {
        {"CYLINDER", {"0., 0., 0., 1., 0., 0.", "1., 1., 0.", "START, 1., 0."},
         "Points A, B, and C listed under a *RIGID SURFACE, TYPE=CYLINDER do not properly define a local coordinate "
         "system.  Either some points are coincident or two axes are not perpendicular.  Please check input data."},
        {"CYLINDER", {"0., 0., 0., 0., 0., 0.", "0., 0., 1.", "START, 1., 0."},
         "Points A, B, and C listed under a *RIGID SURFACE, TYPE=CYLINDER do not properly define a local coordinate "
         "system.  Either some points are coincident or two axes are not perpendicular.  Please check input data."},
        {"REVOLUTION", {"1., 1., 1., 1., 1., 1.", "START, 1., 0."},
         "Points A, B listed under a *RIGID SURFACE, TYPE=REVOLUTION are coincident.  Please check input data. "},
    };
    for (const Case& c : cases) {
        inp_FakePartVisitor v(inp_CoordMap(), inpM_SetMap(), inpM_ElementMap(), inpM_SetMap(), false);
        cow_1DArrayList<inp_Keyword> list;
        list.Append(MakeWithData(inp_kwRigidSurface, {{"name", "R"}, {"type", c.type}}, c.lines));
        v.VisitList(list);
        EXPECT_EQ(ToVector(v.errors), Strings{c.message}) << c.type;
        EXPECT_FALSE(v.partTransforms.IsMember(cow_String("R")));
        // The header lines are gone all the same.
        EXPECT_EQ(v.partLists.ConstGet(cow_String("R"))[1].data.NumberOfLines(), 1);
    }

    // A revolution about the global z axis through (1, 2, 3) is a pure translation.
    inp_FakePartVisitor v(inp_CoordMap(), inpM_SetMap(), inpM_ElementMap(), inpM_SetMap(), false);
    cow_1DArrayList<inp_Keyword> list;
    list.Append(MakeWithData(inp_kwSurface, {{"name", "R"}, {"type", "REVOLUTION"}},
                             {"1., 2., 3., 1., 2., 5.", "START, 1., 0.", "LINE, 1., 1."}));
    v.VisitList(list);
    ASSERT_TRUE(v.partTransforms.IsMember(cow_String("R")));
    gsl_Point p(1.0, 0.0, 0.0);
    v.partTransforms.ConstGet(cow_String("R")).Transform(p);
    EXPECT_NEAR(p.x, 2.0, 1e-12);
    EXPECT_NEAR(p.y, 2.0, 1e-12);
    EXPECT_NEAR(p.z, 3.0, 1e-12);
}

// Where the keywords of a flat deck go, and the ones that are lost.
TEST(FakePartVisitor, StepsSuboptionsAndDroppedKeywords) {
    TempDir dir;
    FlatDeck flat(dir, std::string(kPlate) +
                           "*BOUNDARY\n1, 1, 3\n"
                           "*FRICTION\n0.1\n"  // line 10: no parent
                           "*SURFACE INTERACTION, NAME=SI\n*FRICTION\n0.2\n"
                           "*MATERIAL, NAME=STEEL\n*ELASTIC\n200000., 0.3\n*DAMPING, ALPHA=0.1\n"
                           "*PRESTRESS HOLD\nPLATE, ORI\n"              // outside a step: dropped
                           "*STEP, NAME=LOAD\n*STATIC\n*BOUNDARY\n2, 1, 3\n*PRESTRESS HOLD\nPLATE, ORI\n*END STEP\n");
    auto v = flat.Convert();
    EXPECT_EQ(flat.Printed(),
              "*part, name=PART-1\n"
              "*element, type=S4R\n"
              "*endpart\n"
              "*boundary\n1, 1, 3\n"
              "*surfaceinteraction, name=SI\n*friction\n0.2\n"
              "*material, name=STEEL\n*elastic\n200000., 0.3\n*damping, alpha=0.1\n"
              "*assembly, name=Assembly-1\n"
              "*instance, name=PART-1-1, part=PART-1\n"
              "*endinstance\n"
              "*endassembly\n"
              "*step, name=LOAD\n*static\n*boundary\n2, 1, 3\n*prestresshold\nPLATE, PART-1-1.ORI\n*endstep\n");
    EXPECT_EQ(ToVector(v->errors), Strings{flat.At("FRICTION", 10) + "Misplaced keyword."});
    ASSERT_EQ(v->stepOrder.Count(), 1);
    EXPECT_STREQ(v->stepOrder[0].c_str(), "LOAD");

    // Without rigid parts the simple route comes to the same list.
    FlatDeck simple(dir, inp_test::ReadFile(flat.path));
    auto s = simple.Convert<inp_SimpleFakePartVisitor>();
    EXPECT_EQ(simple.Printed(), flat.Printed());
    EXPECT_EQ(ToVector(s->errors), ToVector(v->errors));
}

TEST(FakePartVisitor, PlacementOfKeywordsByRule) {
    struct Case {
        inp_Keyword keyword;
        const char* bucket;  // model, assembly, part, connection, step, lost
        const char* printed;
    };
    const std::vector<Case> cases = {
        {Make(inp_kwMaterial, {{"name", "M"}}), "model", "*material, name=M\n"},
        {Make(inp_kwTie, {{"name", "T"}}), "assembly", "*tie, name=T\n"},
        {Make(inp_kwSolidSection, {{"elset", "E"}}), "part", "*solidsection, elset=E\n"},
        {Make(inp_kwConflicts), "lost", ""},
        {Make(inp_kwMass, {{"elset", "E"}}), "assembly", "*mass, elset=E\n"},
        {Make(inp_kwOrientation, {{"name", "ORI"}}), "part", "*orientation, name=ORI\n"},
        {Make(inp_kwCoupling, {{"orientation", "ORI"}}), "assembly", "*coupling, orientation=PART-1-1.ORI\n"},
        {Make(inp_kwFastener, {{"orientation", "ORI"}}), "part", "*fastener, orientation=PART-1-1.ORI\n"},
        {Make(inp_kwJointedMaterial, {{"jointdirection", "JD"}}), "model",
         "*jointedmaterial, jointdirection=PART-1-1.JD\n"},
        {Make(inp_kwElFile, {{"rebar", "R"}}), "model", "*elfile, rebar=PART-1-1.R\n"},
        {Make(inp_kwElPrint, {{"rebar", nullptr}}), "model", "*elprint, rebar\n"},
        {MakeWithData(inp_kwInitialConditions, {{"type", "STRESS"}, {"rebar", nullptr}}, {"1, R1, 5.", "2"}),
         "model", "*initialconditions, type=STRESS, rebar\n1, PART-1-1.R1, 5.\n2\n"},
        {MakeWithData(inp_kwInitialConditions, {{"type", "SOLUTION"}, {"rebar", nullptr}}, {"1, R1, 5.", "2, 3."}),
         "model", "*initialconditions, type=SOLUTION, rebar\n1, PART-1-1.R1, 5.\n2, 3.\n"},
        {MakeWithData(inp_kwConnectorSection, {{"elset", "C"}}, {"HINGE", "O1, O2"}), "assembly",
         "*connectorsection, elset=C\nHINGE\nPART-1-1.O1, PART-1-1.O2\n"},
        {Make(inp_kwSurface, {{"name", "N"}, {"type", "NODE"}}), "assembly", "*surface, name=N, type=NODE\n"},
        {Make(inp_kwSurface, {{"name", "E"}, {"type", "ELEMENT"}}), "assembly", "*surface, name=E, type=ELEMENT\n"},
        {Make(inp_kwNode), "lost", ""},
        {Make(inp_kwNset, {{"nset", "N"}, {"elset", "E"}}), "lost", ""},
        {Make(inp_kwElset, {{"elset", "E"}}), "lost", ""},
        {Make(inp_kwSpring, {{"elset", "S"}}), "connection", "*spring, elset=S\n"},
    };
    for (const Case& c : cases) {
        inp_FakePartVisitor v(inp_CoordMap(), inpM_SetMap(), inpM_ElementMap(), inpM_SetMap(), false);
        cow_1DArrayList<inp_Keyword> list;
        list.Append(c.keyword.DeepCopy());
        v.VisitList(list);
        const std::string bucket = c.bucket;
        const cow_1DArrayList<inp_Keyword>& held = bucket == "model"       ? v.modelKeywords
                                                   : bucket == "assembly"  ? v.assemblyKeywords
                                                   : bucket == "part"      ? v.partKeywords
                                                   : bucket == "connection" ? v.connectionKeywords
                                                                            : cow_1DArrayList<inp_Keyword>();
        const int total = v.modelKeywords.Count() + v.assemblyKeywords.Count() + v.partKeywords.Count() +
                          v.connectionKeywords.Count();
        EXPECT_EQ(Printed(held), c.printed) << c.keyword.Name().c_str();
        EXPECT_EQ(total, bucket == "lost" ? 0 : 1) << c.keyword.Name().c_str();
    }

    // An unknown keyword is reported without a place; *PRESTRESS HOLD outside a step
    // is dropped without a word.
    inp_FakePartVisitor v(inp_CoordMap(), inpM_SetMap(), inpM_ElementMap(), inpM_SetMap(), false);
    cow_1DArrayList<inp_Keyword> list;
    list.Append(Make(inp_kwConflicts));
    list.Append(Make(inp_kwParameterDependence));
    list.Append(MakeWithData(inp_kwPrestressHold, {}, {"E, O"}));
    v.VisitList(list);
    EXPECT_EQ(ToVector(v.errors), (Strings{"Unknown keyword: conflicts", "Unknown keyword: parameterdependence"}));

    // With a symmetric model generation a node set made from elements is read again
    // at the assembly level.
    inp_FakePartVisitor symmetric(inp_CoordMap(), inpM_SetMap(), inpM_ElementMap(), inpM_SetMap(), true);
    cow_1DArrayList<inp_Keyword> sets;
    sets.Append(Make(inp_kwNset, {{"nset", "N"}, {"elset", "E"}}));
    sets.Append(Make(inp_kwNset, {{"nset", "M"}}));
    symmetric.VisitList(sets);
    EXPECT_EQ(Printed(symmetric.assemblyKeywords), "*nset, nset=N, elset=E\n");
}

TEST(FakePartVisitor, SuboptionsFollowTheirOpenParent) {
    inp_FakePartVisitor v(inp_CoordMap(), inpM_SetMap(), inpM_ElementMap(), inpM_SetMap(), false);
    cow_1DArrayList<inp_Keyword> list;
    list.Append(Make(inp_kwSurfaceInteraction, {{"name", "A"}}));
    list.Append(Make(inp_kwSurfaceBehavior));
    list.Append(Make(inp_kwFriction));  // under SURFACE INTERACTION, behind a sibling
    list.Append(Make(inp_kwIts, {{"elset", "I"}}));
    list.Append(Make(inp_kwFriction));  // its parent is the *ITS
    list.Append(Make(inp_kwSpring, {{"elset", "S"}}));  // follows the *ITS
    list.Append(Make(inp_kwStep, {{"name", "S1"}}));
    list.Append(Make(inp_kwChangeFriction));
    list.Append(Make(inp_kwFriction));
    list.Append(Make(inp_kwEndStep));
    list.Append(Make(inp_kwSurfaceInteraction, {{"name", "B"}}));
    list.Append(Make(inp_kwMaterial, {{"name", "M"}}));
    list.Append(Make(inp_kwFriction));  // the nearest parent is closed by *MATERIAL
    v.VisitList(list);
    EXPECT_EQ(Printed(v.modelKeywords),
              "*surfaceinteraction, name=A\n*surfacebehavior\n*friction\n*surfaceinteraction, name=B\n"
              "*material, name=M\n");
    EXPECT_EQ(Printed(v.partKeywords), "*its, elset=I\n*friction\n*spring, elset=S\n");
    EXPECT_EQ(Printed(v.stepLists.ConstGet(cow_String("S1"))), "*step, name=S1\n*changefriction\n*friction\n*endstep\n");
    EXPECT_EQ(ToVector(v.errors), Strings{"in keyword *FRICTION Misplaced keyword."});
    EXPECT_TRUE(v.connectionKeywords.IsEmpty());
}

// A spring whose nodes lie in two parts stands at the assembly level, and so do its
// elements, named through the instances.
TEST(FakePartVisitor, SpringBetweenTwoPartsStandsAtTheAssemblyLevel) {
    TempDir dir;
    const std::string deck = std::string(kPlate) +
                             "*NODE\n100, 5., 0., 0.\n"
                             "*ELEMENT, TYPE=SPRINGA, ELSET=S\n10, 100, 1\n"
                             "*SPRING, ELSET=S\n1000.\n"
                             "*ELEMENT, TYPE=SPRINGA, ELSET=T\n11, 2, 3\n"
                             "*SPRING, ELSET=T\n500.\n"
                             "*RIGID SURFACE, NAME=DIE, TYPE=SEGMENTS, REFNODE=100\nSTART, 0., 0.\nLINE, 1., 0.\n";
    FlatDeck flat(dir, deck);
    auto v = flat.Convert();
    EXPECT_EQ(flat.Printed(),
              "*part, name=DIE\n"
              "*rigidsurface, name=DIE, type=SEGMENTS, refnode=100\nSTART, 0., 0.\nLINE, 1., 0.\n"
              "*node\n100, 5, 0, 0\n"
              "*endpart\n"
              "*part, name=PART-1\n"
              "*spring, elset=T\n500.\n"
              "*element, type=S4R\n"
              "*element, type=SPRINGA\n11, 2, 3\n"
              "*endpart\n"
              "*assembly, name=Assembly-1\n"
              "*instance, name=DIE-1, part=DIE\n*endinstance\n"
              "*instance, name=PART-1-1, part=PART-1\n*endinstance\n"
              "*spring, elset=S\n1000.\n"
              "*element, type=SPRINGA\n10, DIE-1.100, PART-1-1.1\n"
              "*element, type=SPRINGA\n"
              "*endassembly\n");
    EXPECT_EQ(Ids(v->partElements.ConstGet()), std::vector<int>{10});
    EXPECT_EQ(Ids(v->partElements.ConstGet(cow_String("PART-1"))), (std::vector<int>{1, 11}));
    EXPECT_EQ(Ids(v->partElements.ConstGet(cow_String("DIE"))), std::vector<int>{});
    EXPECT_EQ(NodeIds(v->partCoordinates, "PART-1"), (std::vector<int>{1, 2, 3, 4}));
    EXPECT_EQ(NodeIds(v->partCoordinates, "DIE"), std::vector<int>{100});
    EXPECT_EQ(flat.MessagesOnReading(dir), Strings{});

    // The simple route keeps everything in PART-1.
    TempDir other;
    FlatDeck simple(other, deck);
    auto s = simple.Convert<inp_SimpleFakePartVisitor>();
    EXPECT_EQ(Ids(s->partElements.ConstGet(cow_String("PART-1"))), (std::vector<int>{1, 10, 11}));
    EXPECT_FALSE(s->partElements.item.HasValue());
    EXPECT_EQ(PartOf(*s, "DIE-1"), "<none>");
}

TEST(FakePartVisitor, ReferenceNodesOfRigidSurfacesAndBodies) {
    TempDir dir;
    FlatDeck flat(dir, std::string(kPlate) +
                           "*NODE\n100, 5., 0., 0.\n101, 6., 0., 0.\n"
                           "*NSET, NSET=TWO\n100, 101\n"
                           "*RIGID SURFACE, NAME=DIE, TYPE=SEGMENTS, REFNODE=TWO\nSTART, 0., 0.\nLINE, 1., 0.\n"
                           "*RIGID BODY, REFNODE=500, ELSET=PLATE\n"
                           "*RIGID BODY, REFNODE=100\n");
    auto v = flat.Convert();
    EXPECT_EQ(ToVector(v->errors),
              Strings{"Reference node set \"TWO\" given for rigid surface \"DIE\" contains more than one node. The "
                      "reference node set must contain exactly one node"});
    EXPECT_EQ(ToVector(v->warnings), Strings{"The following undefined reference node is placed at the origin:\n500"});
    // 100 is DIE's: the body without geometry of its own gives it up.
    EXPECT_EQ(NodeIds(v->partCoordinates, "DIE"), std::vector<int>{100});
    EXPECT_EQ(NodeIds(v->partCoordinates, "PART-1"), (std::vector<int>{1, 2, 3, 4, 101, 500}));
    const std::string printed = flat.Printed();
    EXPECT_NE(printed.find("*part, name=DIE\n*rigidsurface, name=DIE, type=SEGMENTS, refnode=TWO\nSTART, 0., 0.\n"
                           "LINE, 1., 0.\n*node\n100, 5, 0, 0\n*endpart\n"
                           "*part, name=PART-1\n*node\n500, 0, 0, 0\n*element, type=S4R\n*endpart\n"),
              std::string::npos)
        << printed;
    EXPECT_EQ(v->partRefNodes.Count(), 2);
    EXPECT_TRUE(v->standaloneRefNodes.IsMember(100));
}

TEST(FakePartVisitor, RigidElementSetsAndBodiesAheadOfTheirSurface) {
    TempDir dir;
    FlatDeck flat(dir, std::string(kPlate) +
                           "*NODE\n10, 0., 0., 1.\n11, 1., 0., 1.\n12, 1., 1., 1.\n13, 0., 1., 1.\n"
                           "200, 0.5, 0.5, 1.\n100, 5., 0., 0.\n"
                           "*ELEMENT, TYPE=R3D4, ELSET=TOOL\n20, 10, 11, 12, 13\n"
                           "*RIGID BODY, ELSET=TOOL, REFNODE=200\n"
                           "*RIGID BODY, ANALYTICAL SURFACE=DIE, REFNODE=100\n"
                           "*SURFACE, NAME=DIE, TYPE=CYLINDER\n"
                           "1., 2., 3., 1., 3., 3.\n1., 2., 4.\nSTART, 2., 0.\nLINE, 2., 5.\n");
    auto v = flat.Convert();
    EXPECT_TRUE(v->errors.IsEmpty());
    ASSERT_EQ(v->rigidElsetParts.Count(), 1);
    EXPECT_STREQ(v->rigidElsetParts[0].c_str(), "TOOL");
    EXPECT_EQ(Ids(v->partElements.ConstGet(cow_String("TOOL"))), std::vector<int>{20});
    EXPECT_EQ(Ids(v->partElements.ConstGet(cow_String("PART-1"))), std::vector<int>{1});
    EXPECT_EQ(NodeIds(v->partCoordinates, "TOOL"), (std::vector<int>{10, 11, 12, 13, 200}));
    // The body was walked behind its surface, so its node is in the surface's frame.
    const inp_Coord node = v->partCoordinates.instances.ConstGet(cow_String("DIE"))->ConstGet(100);
    EXPECT_DOUBLE_EQ(node.x, -2.0);
    EXPECT_DOUBLE_EQ(node.y, -4.0);
    EXPECT_DOUBLE_EQ(node.z, -3.0);
    EXPECT_EQ(PartOf(*v, "TOOL-1"), "TOOL");
    EXPECT_EQ(PartOf(*v, "DIE-1"), "DIE");
    EXPECT_NE(flat.Printed().find("*part, name=TOOL\n*node\n200, 0.5, 0.5, 1\n*element, type=R3D4\n*endpart\n"),
              std::string::npos)
        << flat.Printed();
}

TEST(RigidBodyOrder, SurfacesGoAheadOfTheirBodiesAndDuplicatesAreReported) {
    thr_ThreadSingleton<wip_WIP>::Instance().Clear();
    cow_1DArrayList<inp_Keyword> list;
    list.Append(Make(inp_kwRigidBody, {{"analyticalsurface", "S"}, {"refnode", "1"}}));
    list.Append(Make(inp_kwRigidBody, {{"analyticalsurface", "S"}, {"refnode", "2"}}));
    list.Append(Make(inp_kwRigidBody, {{"analyticalsurface", "LONE"}, {"refnode", "3"}}));
    list.Append(Make(inp_kwSurface, {{"name", "S"}, {"type", "SEGMENTS"}}));
    list.Append(Make(inp_kwRigidSurface, {{"name", "S"}}));
    list.Append(Make(inp_kwSurface, {{"name", "E"}, {"type", "ELEMENT"}}));
    inp_RigidBodyOrder::PutSurfacesFirst(list);
    EXPECT_EQ(inp_test::SinkRecords(),
              (Strings{"E0: There are more than one *RIGID BODY keywords associated with the analytical surface S.  "
                       "Please check input data.",
                       "E0: There are more than one rigid surface keywords associated with the analytical surface S.  "
                       "Please check input data."}));
    std::string order;
    for (int i = 0; i < list.Count(); ++i)
        order += std::string(list[i].Name().c_str()) + ":" + inp_test::Value(list[i], "refnode") + " ";
    EXPECT_EQ(order, "surface:<absent> rigidbody:2 rigidbody:3 rigidbody:1 rigidsurface:<absent> surface:<absent> ");
    thr_ThreadSingleton<wip_WIP>::Instance().Clear();
}

// A node is one part's: a mesh element takes its nodes into PART-1, and of two rigid
// parts the first keeps a shared reference node.
TEST(FakePartVisitor, ReferenceNodesThatTheMeshOrAnotherPartHolds) {
    TempDir dir;
    FlatDeck flat(dir, std::string(kPlate) +
                           "*NODE\n100, 5., 0., 0.\n"
                           "*RIGID SURFACE, NAME=DIE, TYPE=SEGMENTS, REFNODE=4\nSTART, 0., 0.\nLINE, 1., 0.\n"
                           "*RIGID SURFACE, NAME=B, TYPE=SEGMENTS, REFNODE=100\nSTART, 0., 0.\nLINE, 1., 0.\n"
                           "*RIGID SURFACE, NAME=A, TYPE=SEGMENTS, REFNODE=100\nSTART, 0., 0.\nLINE, 1., 0.\n");
    auto v = flat.Convert();
    EXPECT_EQ(NodeIds(v->partCoordinates, "DIE"), std::vector<int>{});
    EXPECT_EQ(NodeIds(v->partCoordinates, "A"), std::vector<int>{100});
    EXPECT_EQ(NodeIds(v->partCoordinates, "B"), std::vector<int>{});
    EXPECT_EQ(NodeIds(v->partCoordinates, "PART-1"), (std::vector<int>{1, 2, 3, 4}));
    std::string holders;
    cow_ConstMapSortedIt<cow_String, cow_1DArrayList<int>> it(v->partRefNodes);
    for (it.First(); !it.IsDone(); it.Next())
        for (int i = 0; i < it.CurrentValue().Count(); ++i)
            holders += std::string(it.CurrentKey().c_str()) + ":" + std::to_string(it.CurrentValue()[i]) + " ";
    EXPECT_EQ(holders, "A:100 PART-1:4 ");
    EXPECT_NE(flat.Printed().find("*part, name=PART-1\n*node\n4, 0, 1, 0\n*element, type=S4R\n*endpart\n"),
              std::string::npos)
        << flat.Printed();
    EXPECT_EQ(PartOf(*v, "B-1"), "B");  // a part without nodes keeps its instance
}

TEST(FakePartVisitor, ReferenceNodesThatCannotBeUsed) {
    struct Case {
        inp_Keyword keyword;
        const char* message;
    };
    const std::vector<Case> cases = {
        {Make(inp_kwRigidSurface, {{"name", "R"}, {"type", "SEGMENTS"}, {"refnode", "NOSET"}}),
         "Reference node set \"NOSET\" given for rigid surface \"R\" does not exist or is invalid"},
        {Make(inp_kwRigidBody, {{"analyticalsurface", "R"}, {"refnode", "NOSET"}}),
         "Reference node set \"NOSET\" given for rigid body \"R\" does not exist or is invalid"},
        {Make(inp_kwRigidSurface, {{"name", "R"}, {"type", "SEGMENTS"}, {"refnode", "1.5"}}),
         "Reference node given for rigid surface \"R\" has an invalid format"},
        {Make(inp_kwRigidBody, {{"refnode", "1.5"}}), "Reference node given for rigid body \"PART-1\" has an invalid format"},
        {Make(inp_kwRigidSurface, {{"name", "R"}, {"type", "SEGMENTS"}, {"refnode", "-3"}}),
         "Reference node \"-3\" given for rigid surface \"R\" does not exist"},
        {Make(inp_kwRigidBody, {{"refnode", "0"}}), "Reference node \"0\" given for rigid body \"PART-1\" does not exist"},
        {Make(inp_kwRigidSurface, {{"type", "SEGMENTS"}, {"refnode", "7"}}),
         "in keyword *RIGIDSURFACE A rigid surface needs the NAME or the ELSET parameter; the keyword is ignored."},
    };
    for (const Case& c : cases) {
        inp_FakePartVisitor v(inp_CoordMap(), inpM_SetMap(), inpM_ElementMap(), inpM_SetMap(), false);
        cow_1DArrayList<inp_Keyword> list;
        list.Append(c.keyword);
        v.VisitList(list);
        EXPECT_EQ(ToVector(v.errors), Strings{c.message});
        EXPECT_TRUE(v.partRefNodes.IsEmpty()) << c.message;
    }

    // A surface named by its element set alone is PART-1's, and unnamed.
    inp_FakePartVisitor v(inp_CoordMap(), inpM_SetMap(), inpM_ElementMap(), inpM_SetMap(), false);
    cow_1DArrayList<inp_Keyword> list;
    list.Append(Make(inp_kwRigidSurface, {{"elset", "E"}, {"type", "SEGMENTS"}}));
    v.VisitList(list);
    EXPECT_TRUE(v.surfaces.IsMemberPartInstanceSurface(cow_String("PART-1"), cow_String(" <not named>")));
    EXPECT_EQ(v.partLists.ConstGet(cow_String("PART-1")).Count(), 2);
}

// The one mesh part takes the flat node table whole: nodes no element uses come along,
// a node that an element names and the flat model lacks is added to the part alone,
// marked undefined, and the flat model stays as it was.
TEST(FakePartVisitor, TheOneMeshPartTakesEveryNode) {
    TempDir dir;
    FlatDeck flat(dir,
                  "*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n4, 0., 1., 0.\n5, 7., 8., 9.\n"
                  "*ELEMENT, TYPE=S4R, ELSET=PLATE\n1, 1, 2, 3, 9\n2, 1, 2, 3, 4\n");
    auto v = flat.Convert();
    EXPECT_EQ(NodeIds(v->partCoordinates, "PART-1"), (std::vector<int>{1, 2, 3, 4, 5, 9}));
    const inp_CoordMap& part = v->partCoordinates.instances.ConstGet(cow_String("PART-1")).ConstGet();
    EXPECT_FALSE(part.ConstGet(9).isDefined);
    EXPECT_TRUE(part.ConstGet(5).isDefined);
    EXPECT_DOUBLE_EQ(part.ConstGet(5).z, 9.);
    EXPECT_EQ(NodeIds(flat.nodes->coordMap, "FAKE"), (std::vector<int>{1, 2, 3, 4, 5}));
}
