// Instance geometry carried into global axes on small assembly decks: one part placed
// translated (T), rotated about an axis off the origin (R), translated and rotated (TR)
// and not at all (I0).
#include <gtest/gtest.h>

#include <cmath>
#include <map>

#include "inp_TransformTesting.h"

using inp_test::Ids;
using inp_test::Line;
using inp_test::Make;
using inp_test::MakeWithData;
using inp_test::RenumberedModel;
using inp_test::Value;

namespace {

const double kTolerance = 1e-12;

struct Triple {
    double x, y, z;
};

// The placements of the deck below, written out: T moves by (10, 0, 0); R turns 90
// degrees about the axis (0, 0, 1) through (1, 2, 0); TR moves by (0, 0, 5) and then
// turns 90 degrees about the x axis through (0, 0, 5).
Triple Place(const std::string& instance, Triple p, bool point) {
    if (instance == "T") return point ? Triple{p.x + 10, p.y, p.z} : p;
    if (instance == "R") return point ? Triple{3 - p.y, 1 + p.x, p.z} : Triple{-p.y, p.x, p.z};
    if (instance == "TR") return point ? Triple{p.x, -p.z, p.y + 5} : Triple{p.x, -p.z, p.y};
    return p;
}

std::string Deck(const std::string& body) {
    std::string deck =
        "*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n4, 0., 1., 0.\n5, 2., 0., 0.\n"
        "6, 2., 1., 0.\n"
        "*ELEMENT, TYPE=T3D2, ELSET=BAR\n1, 1, 2\n*ELEMENT, TYPE=SPRING2, ELSET=SPR\n2, 1, 2\n"
        "*ELEMENT, TYPE=SPRINGA, ELSET=SPRA\n3, 2, 3\n*ELEMENT, TYPE=DASHPOT1, ELSET=DSH\n4, 4\n"
        "*NSET, NSET=TOP\n3, 4\n*NSET, NSET=A\n5\n*SURFACE, NAME=S, TYPE=NODE\nTOP\n*END PART\n"
        "*ASSEMBLY, NAME=ASM\n";
    const char* placements[][2] = {{"T", "10., 0., 0.\n"},
                                   {"R", "0., 0., 0.\n1., 2., 0., 1., 2., 1., 90.\n"},
                                   {"TR", "0., 0., 5.\n0., 0., 5., 1., 0., 5., 90.\n"},
                                   {"I0", ""}};
    for (const auto& p : placements)
        deck += std::string("*INSTANCE, NAME=") + p[0] + ", PART=P\n" + p[1] + body + "*END INSTANCE\n";
    return deck + "*END ASSEMBLY\n";
}

const std::vector<std::string> kPlaced = {"T", "R", "TR"};

// A walk of the transformation over the renumbered model, as a driver sets it up.
struct Transformation {
    explicit Transformation(RenumberedModel& m, bool replaceLocalSystems = false)
        : model(m), transformed(Collected(m)),
          visitor(m.deck.instanceTransformations, transformed, m.nodeSets, m.nodeIds, replaceLocalSystems,
                  m.coordinates, m.deck.assemblyElements, m.deck.assemblyElementSets) {}

    static cow_1DArrayList<int> Collected(RenumberedModel& m) {
        inp_CollectTransformedNodesVisitor collect(m.nodeSets);
        collect.VisitList(m.deck.keywords);
        return collect.transformedNodes;
    }

    // The output in walk order, each keyword with the instance it stands in.
    void Walk(cow_1DArrayList<inp_Keyword>& keywords) {
        visitor.VisitList(keywords);
        placed.clear();
        std::string instance;
        Flatten(visitor.Output(), instance);
    }
    void Flatten(const cow_1DArrayList<inp_Keyword>& list, std::string& instance) {
        for (int i = 0; i < list.Count(); ++i) {
            const inp_Keyword& k = list[i];
            if (k.keyword == inp_kwInstance) instance = Value(k, "name");
            placed.push_back({instance, k});
            Flatten(k.suboptions, instance);
            if (k.keyword == inp_kwEndInstance) instance.clear();
        }
    }
    // The nth keyword of a kind in an instance; null when there is none.
    const inp_Keyword* Find(const std::string& instance, inp_KeywordEnm kind, int nth = 0) const {
        for (const auto& p : placed)
            if (p.first == instance && p.second.keyword == kind && nth-- == 0) return &p.second;
        return nullptr;
    }
    int IndexOf(const inp_Keyword* k) const {
        for (size_t i = 0; i < placed.size(); ++i)
            if (&placed[i].second == k) return static_cast<int>(i);
        return -1;
    }
    std::vector<std::string> Errors() const { return inp_test::ToVector(visitor.errors); }
    std::vector<std::string> Warnings() const { return inp_test::ToVector(visitor.warnings); }

    RenumberedModel& model;
    cow_1DArrayList<int> transformed;
    inp_TransformationVisitor visitor;
    std::vector<std::pair<std::string, inp_Keyword>> placed;
};

void ExpectTriple(const inp_Keyword& k, int line, int column, Triple expected, const std::string& what) {
    ASSERT_LT(line, k.data.NumberOfLines()) << what;
    ASSERT_GE(k.data.NumberOfItems(line), column + 3) << what;
    EXPECT_NEAR(k.data.AsDouble(line, column), expected.x, kTolerance) << what;
    EXPECT_NEAR(k.data.AsDouble(line, column + 1), expected.y, kTolerance) << what;
    EXPECT_NEAR(k.data.AsDouble(line, column + 2), expected.z, kTolerance) << what;
}

struct GeometryCase {
    inp_KeywordEnm kind;
    int nth, line, column;
    bool point;
    Triple given;
};

void ExpectPlaced(const Transformation& run, const std::vector<GeometryCase>& cases,
                  const std::vector<std::string>& instances) {
    for (const std::string& instance : instances) {
        for (const GeometryCase& c : cases) {
            const std::string what = instance + " " + std::to_string(c.kind) + "#" + std::to_string(c.nth) + " (" +
                                     std::to_string(c.line) + ", " + std::to_string(c.column) + ")";
            const inp_Keyword* k = run.Find(instance, c.kind, c.nth);
            ASSERT_NE(k, nullptr) << what;
            ExpectTriple(*k, c.line, c.column, Place(instance, c.given, c.point), what);
        }
    }
}

// A list that a deck of instances would give, built in code for keywords that no deck
// may place in an instance block: the rules hold wherever a keyword stands.
cow_1DArrayList<inp_Keyword> InInstance(const char* name, const std::vector<inp_Keyword>& body) {
    cow_1DArrayList<inp_Keyword> list;
    list.Append(Make(inp_kwInstance, {{"name", name}, {"part", "P"}}));
    for (const inp_Keyword& k : body) list.Append(k);
    list.Append(Make(inp_kwEndInstance));
    return list;
}

}  // namespace

TEST(TransformationVisitor, PointsDirectionsAndSystemsOfEachInstanceGoToGlobalAxes) {
    RenumberedModel model(Deck(
        "*GAP, ELSET=BAR\n0.5, 1., 2., 3.\n*INTERFACE, ELSET=BAR\n1., 4., 5., 6.\n"
        "*GASKET SECTION, ELSET=BAR, MATERIAL=M\n1., 0., 0., 0., 1., 2., 3.\n"
        "*PRE-TENSION SECTION, ELEMENT=1, NODE=1\n1., 2., 3.\n"
        "*ITS, ELSET=BAR\n1., 2., 1., 2., 3., 4., 5., 6.\n"
        "*SOLID SECTION, ELSET=BAR, MATERIAL=M\n1., 1., 2., 3.\n"
        "*BEAM GENERAL SECTION, ELSET=BAR, SECTION=GENERAL\n1., 2., 3.\n1., 2., 3.\n"
        "*FRAME SECTION, ELSET=BAR, SECTION=CIRC\n0.5\n0., 1., 0.\n"
        "*BEAM SECTION, ELSET=BAR, MATERIAL=M, SECTION=RECT\n1., 2.\n0., 0., 1.\n"
        "*BEAM SECTION, ELSET=BAR, MATERIAL=M, SECTION=ELBOW\n1., 2.\n3., 4., 5.\n"
        "*NORMAL\n1, 2, 1., 2., 3.\n1, 1, 0., 0., 1.\n"
        "*ORIENTATION, NAME=OR\n1., 0., 0., 0., 1., 0.\n3., 15.\n"
        "*ORIENTATION, NAME=OC, SYSTEM=CYLINDRICAL\n1., 2., 3., 4., 5., 6.\n"
        "*TRANSFORM, NSET=TOP\n1., 0., 0., 0., 1., 0.\n"
        "*TRANSFORM, NSET=TOP, TYPE=C\n1., 2., 3., 4., 5., 6.\n"
        "*SURFACE, NAME=CUT, TYPE=CUTTINGSURFACE\n1., 2., 3., 0., 0., 1.\n"));
    ASSERT_EQ(model.records, std::vector<std::string>{});
    const std::string before = inp_test::Printed(model.deck.keywords);
    Transformation run(model);
    run.Walk(model.deck.keywords);
    EXPECT_EQ(run.Errors(), std::vector<std::string>{});

    const std::vector<GeometryCase> cases = {
        {inp_kwGap, 0, 0, 1, false, {1, 2, 3}},
        {inp_kwInterface, 0, 0, 1, false, {4, 5, 6}},
        {inp_kwGasketSection, 0, 0, 4, false, {1, 2, 3}},
        {inp_kwPreTensionSection, 0, 0, 0, false, {1, 2, 3}},
        {inp_kwIts, 0, 0, 2, false, {1, 2, 3}},
        {inp_kwIts, 0, 0, 5, false, {4, 5, 6}},
        {inp_kwSolidSection, 0, 0, 1, true, {1, 2, 3}},
        {inp_kwBeamGeneralSection, 0, 1, 0, false, {1, 2, 3}},
        {inp_kwFrameSection, 0, 1, 0, false, {0, 1, 0}},
        {inp_kwBeamSection, 0, 1, 0, false, {0, 0, 1}},
        {inp_kwBeamSection, 1, 1, 0, true, {3, 4, 5}},
        {inp_kwNormal, 0, 0, 2, false, {1, 2, 3}},
        {inp_kwNormal, 0, 1, 2, false, {0, 0, 1}},
        {inp_kwOrientation, 0, 0, 0, false, {1, 0, 0}},
        {inp_kwOrientation, 0, 0, 3, false, {0, 1, 0}},
        {inp_kwOrientation, 1, 0, 0, true, {1, 2, 3}},
        {inp_kwOrientation, 1, 0, 3, true, {4, 5, 6}},
        {inp_kwTransform, 0, 0, 0, false, {1, 0, 0}},
        {inp_kwTransform, 0, 0, 3, false, {0, 1, 0}},
        {inp_kwTransform, 1, 0, 0, true, {1, 2, 3}},
        {inp_kwTransform, 1, 0, 3, true, {4, 5, 6}},
        {inp_kwSurface, 0, 0, 0, true, {1, 2, 3}},
        {inp_kwSurface, 0, 0, 3, false, {0, 0, 1}},
    };
    ExpectPlaced(run, cases, {"T", "R", "TR", "I0"});

    // What is not geometry stays as it was: labels, the second line of a system.
    const inp_Keyword* normal = run.Find("R", inp_kwNormal);
    EXPECT_EQ(Line(*normal, 0).substr(0, 4), "1,2,");
    EXPECT_EQ(Line(*run.Find("TR", inp_kwOrientation), 1), "3.,15.");
    // A rotated axis comes out with exact zeros, not round-off.
    const inp_Keyword* axes = run.Find("R", inp_kwOrientation);
    EXPECT_EQ(axes->data.AsDouble(0, 0), 0.0);
    EXPECT_EQ(axes->data.AsDouble(0, 4), 0.0);
    // Nodes travel in the coordinate map, and the deck itself is left as it was.
    EXPECT_EQ(run.Find("R", inp_kwNode), nullptr);
    EXPECT_EQ(run.Find("", inp_kwNode), nullptr);
    EXPECT_EQ(inp_test::Printed(model.deck.keywords), before);
}

TEST(TransformationVisitor, ModelLevelKeywordsInAnInstance) {
    RenumberedModel model(Deck(""));
    const std::vector<inp_Keyword> body = {
        MakeWithData(inp_kwAqua, {}, {"1., 2., 3.", "1., 2., 3., 9., 4., 5., 6."}),
        MakeWithData(inp_kwWave, {}, {"1., 2., 3., 1., 2., 3."}),
        MakeWithData(inp_kwWave, {{"type", "AIRY"}}, {"1., 2., 3., 1., 0., 0.", "1., 2., 3., 0., 1., 0."}),
        MakeWithData(inp_kwWave, {{"type", "GRIDDED"}}, {"1., 2., 3., 4., 5., 6."}),
        MakeWithData(inp_kwImpedanceProperty, {{"type", "ELLIPTICAL"}}, {"1., 2., 1., 2., 3., 0., 0., 1."}),
        MakeWithData(inp_kwImpedanceProperty, {}, {"1., 2., 1., 2., 3., 0., 0., 1."}),
        MakeWithData(inp_kwWind, {}, {"1., 2., 3., 4., 1., 0."}),
        MakeWithData(inp_kwWind, {}, {"1., 2., 3., 4., 0., 1., 0.25"}),
    };
    for (const std::string& instance : kPlaced) {
        Transformation run(model);
        cow_1DArrayList<inp_Keyword> list = InInstance(instance.c_str(), body);
        run.Walk(list);
        ExpectPlaced(run,
                     {{inp_kwAqua, 0, 1, 0, false, {1, 2, 3}},
                      {inp_kwAqua, 0, 1, 4, true, {4, 5, 6}},
                      {inp_kwWave, 0, 0, 3, false, {1, 2, 3}},
                      {inp_kwWave, 1, 0, 3, false, {1, 0, 0}},
                      {inp_kwWave, 1, 1, 3, false, {0, 1, 0}},
                      {inp_kwWave, 2, 0, 0, true, {1, 2, 3}},
                      {inp_kwWave, 2, 0, 3, false, {4, 5, 6}},
                      {inp_kwImpedanceProperty, 0, 0, 2, true, {1, 2, 3}},
                      {inp_kwImpedanceProperty, 0, 0, 5, false, {0, 0, 1}}},
                     {instance});
        // Line 0 of *AQUA is no geometry; the exponent of *WIND is no component.
        EXPECT_EQ(Line(*run.Find(instance, inp_kwAqua), 0), "1.,2.,3.") << instance;
        const inp_Keyword* wind = run.Find(instance, inp_kwWind);
        ASSERT_EQ(wind->data.NumberOfItems(0), 7) << instance;
        EXPECT_EQ(std::string(wind->data.AsString(0, 6).c_str()), "0.14285714285714285");
        const Triple direction = Place(instance, {1, 0, 0}, false);
        EXPECT_NEAR(wind->data.AsDouble(0, 4), direction.x, kTolerance) << instance;
        EXPECT_NEAR(wind->data.AsDouble(0, 5), direction.y, kTolerance) << instance;
        const inp_Keyword* given = run.Find(instance, inp_kwWind, 1);
        const Triple turned = Place(instance, {0, 1, 0}, false);
        EXPECT_NEAR(given->data.AsDouble(0, 4), turned.x, kTolerance) << instance;
        EXPECT_NEAR(given->data.AsDouble(0, 5), turned.y, kTolerance) << instance;
        EXPECT_EQ(given->data.AsDouble(0, 6), 0.25);
        EXPECT_EQ(Line(*run.Find(instance, inp_kwImpedanceProperty, 1), 0), "1.,2.,1.,2.,3.,0.,0.,1.");
        EXPECT_EQ(run.Warnings(),
                  std::vector<std::string>{inp_test::In(
                      "AQUA", "*AQUA data lines are detected in an instance with non-zero "
                      "translation/rotation. Data items pertaining to elevation have not been transformed by the "
                      "Parts/Assembly Processor. Please check their validity before submitting the job for "
                      "analysis.")});
    }
}

TEST(TransformationVisitor, OutsideAnInstanceAndUnderTheIdentityNothingMoves) {
    RenumberedModel model(Deck("*EQUATION\n2\n1, 1, 1., 2, 1, -1.\n"));
    cow_1DArrayList<inp_Keyword> list;
    // The assembly's own matrix is the identity; at model level there is no scope.
    list.Append(MakeWithData(inp_kwGap, {{"elset", "BAR"}}, {"0.5, 1., 2., 3."}));
    list.Append(MakeWithData(inp_kwWave, {}, {"1., 2., 3., 1., 2., 3."}));
    list.Append(model.deck.keywords);
    Transformation run(model);
    run.Walk(list);
    EXPECT_EQ(Line(*run.Find("", inp_kwGap), 0), "0.5,1.,2.,3.");
    EXPECT_EQ(Line(*run.Find("", inp_kwWave), 0), "1.,2.,3.,1.,2.,3.");
    // An instance that stays put still gets a *TRANSFORM for the nodes of its equation.
    const inp_Keyword* transform = run.Find("I0", inp_kwTransform);
    ASSERT_NE(transform, nullptr);
    EXPECT_EQ(Value(*transform, "nset"), "NONTRANSFORMED-1");
    EXPECT_EQ(Line(*transform, 0), "1.,0.,0.,0.,1.,0.");
    EXPECT_EQ(Ids(model.nodeSets.ConstGetNestedSet(cow_String("I0"), cow_String("NONTRANSFORMED-1")).ConstGetIds()),
              (std::vector<int>{1, 2}));
}

TEST(TransformationVisitor, ConnectorsAndCouplingsWithoutASystemGetThePartAxes) {
    RenumberedModel model(Deck(
        "*COUPLING, CONSTRAINT NAME=C1, REF NODE=1, SURFACE=S\n*KINEMATIC\n"
        "*COUPLING, CONSTRAINT NAME=C2, REF NODE=2, SURFACE=S, ORIENTATION=OLD\n*KINEMATIC\n"
        "*KINEMATIC COUPLING, REF NODE=1\n3, 1\n"
        "*JOINT, ELSET=BAR\n"
        "*SPRING, ELSET=SPR\n1, 2\n10.\n"
        "*SPRING, ELSET=SPRA\n10.\n"
        "*SPRING, ELSET=SPR, ORIENTATION=OLD\n1, 2\n10.\n"
        "*DASHPOT, ELSET=DSH\n1\n0.5\n*ORIENTATION, NAME=OLD\n1., 0., 0., 0., 1., 0.\n"));
    Transformation run(model);
    run.Walk(model.deck.keywords);
    const struct {
        inp_KeywordEnm kind;
        int nth;
        const char* orientation;  // null: none made
    } cases[] = {
        {inp_kwCoupling, 0, "Coupling_1"}, {inp_kwCoupling, 1, nullptr},
        {inp_kwKinematicCoupling, 0, "Kinematic-Coupling_1"}, {inp_kwJoint, 0, "jointc_BAR"},
        {inp_kwSpring, 0, "spring_SPR"}, {inp_kwSpring, 1, nullptr},
        {inp_kwSpring, 2, nullptr}, {inp_kwDashpot, 0, "dashpot_DSH"},
    };
    for (const std::string& instance : std::vector<std::string>{"T", "R", "TR", "I0"}) {
        int made = 0;
        for (const auto& c : cases) {
            const std::string what = instance + " " + std::to_string(c.kind) + "#" + std::to_string(c.nth);
            const inp_Keyword* k = run.Find(instance, c.kind, c.nth);
            ASSERT_NE(k, nullptr) << what;
            const inp_Keyword& before = run.placed[run.IndexOf(k) - 1].second;
            if (!c.orientation || instance == "I0") {
                EXPECT_NE(before.keyword, inp_kwOrientation) << what;
                continue;
            }
            EXPECT_EQ(Value(*k, "orientation"), c.orientation) << what;
            ASSERT_EQ(before.keyword, inp_kwOrientation) << what;
            EXPECT_EQ(Value(before, "name"), c.orientation) << what;
            ExpectTriple(before, 0, 0, Place(instance, {1, 0, 0}, false), what);
            ExpectTriple(before, 0, 3, Place(instance, {0, 1, 0}, false), what);
            ++made;
        }
        EXPECT_EQ(made, instance == "I0" ? 0 : 5) << instance;
    }
    // The *ORIENTATION a spring had is its own.
    EXPECT_EQ(Value(*run.Find("R", inp_kwSpring, 2), "orientation"), "OLD");

    // A fastener names its system after the reference node set.
    cow_1DArrayList<inp_Keyword> list =
        InInstance("R", {MakeWithData(inp_kwFastener, {{"referencenodeset", "TOP"}, {"elset", "BAR"}}, {"1."})});
    Transformation fastener(model);
    fastener.Walk(list);
    EXPECT_EQ(Value(*fastener.Find("R", inp_kwFastener), "orientation"), "Fastener_TOP");
    EXPECT_EQ(Value(*fastener.Find("R", inp_kwOrientation), "name"), "Fastener_TOP");
}

TEST(TransformationVisitor, EquationNodesGetOneTransformEach) {
    // Node 5 has a *TRANSFORM of its own; R's nodes 1 to 6 are 7 to 12 in the flat model.
    RenumberedModel model(Deck(
        "*TRANSFORM, NSET=A\n1., 0., 0., 0., 1., 0.\n"
        "*EQUATION\n2\n1, 1, 1., 2, 1, -1.\n"
        "*EQUATION\n3\n2, 2, 1., TOP, 2, -1.\n3, 2, 1.\n"
        "*EQUATION\n2\n1, 3, 1., 5, 3, -1.\n"
        "*EQUATION\n2\nNOPE, 1, 1., 1.5, 1, -1.\n"
        "*EQUATION\n2\n6, 1, 1., 1, 1, -1.,\n"));
    Transformation run(model);
    run.Walk(model.deck.keywords);
    const cow_String r("R");
    const struct {
        int equation;
        const char* set;  // made in front of the equation, or null
        std::vector<int> nodes;
    } cases[] = {{0, "NONTRANSFORMED-1", {7, 8}}, {1, "NONTRANSFORMED-2", {9, 10}}, {2, nullptr, {}},
                 {3, nullptr, {}},  {4, "NONTRANSFORMED-5", {12}}};
    for (const auto& c : cases) {
        const inp_Keyword* equation = run.Find("R", inp_kwEquation, c.equation);
        ASSERT_NE(equation, nullptr) << c.equation;
        const inp_Keyword& before = run.placed[run.IndexOf(equation) - 1].second;
        if (!c.set) {
            EXPECT_NE(before.keyword, inp_kwTransform) << c.equation;
            continue;
        }
        ASSERT_EQ(before.keyword, inp_kwTransform) << c.equation;
        EXPECT_EQ(Value(before, "nset"), c.set);
        ExpectTriple(before, 0, 0, Place("R", {1, 0, 0}, false), c.set);
        ExpectTriple(before, 0, 3, Place("R", {0, 1, 0}, false), c.set);
        EXPECT_EQ(Ids(model.nodeSets.ConstGetNestedSet(r, cow_String(c.set)).ConstGetIds()), c.nodes);
    }
    // The third and fourth add no node and make no set, yet use up their numbers.
    EXPECT_FALSE(model.nodeSets.HasNestedSet(r, cow_String("NONTRANSFORMED-3")));
    EXPECT_FALSE(model.nodeSets.HasNestedSet(r, cow_String("NONTRANSFORMED-4")));
    // Counting starts again in every instance.
    EXPECT_TRUE(model.nodeSets.HasNestedSet(cow_String("TR"), cow_String("NONTRANSFORMED-1")));
    // Each instance reports its own bad lines.
    const std::vector<std::string> errors = run.Errors();
    ASSERT_EQ(errors.size(), 8u);
    EXPECT_EQ(errors[2], "The node set NOPE given on *EQUATION data line does not exist in the current instance R");
    EXPECT_EQ(errors[3], "Equation data must consist of node numbers or node set names.");
}

TEST(TransformationVisitor, OrientationByNodesBecomesOneByCoordinates) {
    RenumberedModel model(Deck(""));
    const std::vector<inp_Keyword> body = {
        MakeWithData(inp_kwOrientation, {{"name", "ON"}, {"definition", "NODES"}}, {"3, 4", "3, 45."}),
        MakeWithData(inp_kwOrientation, {{"name", "OB"}, {"definition", "NODES"}}, {"TOP, 4"}),
        MakeWithData(inp_kwOrientation, {{"name", "OU"}, {"definition", "NODES"}}, {"3, 99"}),
        MakeWithData(inp_kwOrientation, {{"name", "OO"}, {"definition", "OFFSET TO NODES"}}, {"3, 4"}),
    };
    for (const std::string& instance : kPlaced) {
        Transformation run(model);
        cow_1DArrayList<inp_Keyword> list = InInstance(instance.c_str(), body);
        run.Walk(list);
        const inp_Keyword* byNodes = run.Find(instance, inp_kwOrientation);
        ASSERT_NE(byNodes, nullptr);
        EXPECT_EQ(Value(*byNodes, "name"), "ON");
        EXPECT_EQ(Value(*byNodes, "definition"), "COORDINATES");
        // The part's nodes 3 (1, 1, 0) and 4 (0, 1, 0), turned as the axes of the system.
        ExpectTriple(*byNodes, 0, 0, Place(instance, {1, 1, 0}, false), instance);
        ExpectTriple(*byNodes, 0, 3, Place(instance, {0, 1, 0}, false), instance);
        EXPECT_EQ(Line(*byNodes, 1), "3,45.");
        // The two bad ones are not emitted; any other definition passes unchanged.
        const inp_Keyword* other = run.Find(instance, inp_kwOrientation, 1);
        ASSERT_NE(other, nullptr);
        EXPECT_EQ(Value(*other, "name"), "OO");
        EXPECT_EQ(Line(*other, 0), "3,4");
        EXPECT_EQ(run.Errors(),
                  (std::vector<std::string>{"The first data line under *ORIENTATION, DEFINITION=NODES is "
                                            "unrecognizable as a pair of node numbers for points A and B. ",
                                            "Unknown local node number 3 or 99 is encountered during the processing "
                                            "of *ORIENTATION, DEFINITION=NODES. "}));
    }
}

TEST(TransformationVisitor, BeamDirectionsAndInertia) {
    RenumberedModel model(Deck(""));
    const std::vector<inp_Keyword> body = {
        MakeWithData(inp_kwBeamGeneralSection, {{"elset", "BAR"}}, {"1., 2., 3."}),
        MakeWithData(inp_kwBeamGeneralSection, {{"elset", "BAR"}, {"section", "ARBITRARY"}},
                     {"4, 0., 0.", "1., 0.", "1., 1.", "0., 1.", "1., 0., 0."}),
        MakeWithData(inp_kwBeamGeneralSection, {{"elset", "BAR"}, {"section", "ARBITRARY"}},
                     {"1, 0., 0.", "1., 0.", "0., 1., 0."}),
        MakeWithData(inp_kwBeamGeneralSection, {{"elset", "BAR"}, {"section", "MESHED"}}, {"0., 0., 1."}),
        MakeWithData(inp_kwBeamSection, {{"elset", "BAR"}}, {"1., 2.", "0., 0., 1."}),
        MakeWithData(inp_kwBeamSection, {{"elset", "BAR"}, {"section", "ELBOW"}}, {"1., 2."}),
        MakeWithData(inp_kwRotaryInertia, {{"elset", "BAR"}}, {"1., 2., 3., 0.1, 0.2, 0.3"}),
        MakeWithData(inp_kwRotaryInertia, {{"elset", "BAR"}, {"orientation", "OLD"}}, {"1., 2., 3., 0.1, 0.2, 0.3"}),
    };
    // R I R^T of the two rotations, written out: I11, I22, I33, I12, I13, I23.
    const std::map<std::string, std::vector<double>> inertia = {{"T", {1, 2, 3, 0.1, 0.2, 0.3}},
                                                                {"R", {2, 1, 3, -0.1, -0.3, 0.2}},
                                                                {"TR", {1, 3, 2, -0.2, 0.1, -0.3}}};
    for (const std::string& instance : kPlaced) {
        Transformation run(model);
        cow_1DArrayList<inp_Keyword> list = InInstance(instance.c_str(), body);
        run.Walk(list);
        // Without a direction line the default (0, 0, -1) is appended, written by %lg.
        const inp_Keyword* general = run.Find(instance, inp_kwBeamGeneralSection);
        ASSERT_EQ(general->data.NumberOfLines(), 2);
        ExpectTriple(*general, 1, 0, Place(instance, {0, 0, -1}, false), instance);
        ExpectPlaced(run,
                     {{inp_kwBeamGeneralSection, 1, 4, 0, false, {1, 0, 0}},
                      {inp_kwBeamGeneralSection, 2, 2, 0, false, {0, 1, 0}},
                      {inp_kwBeamGeneralSection, 3, 0, 0, false, {0, 0, 1}}},
                     {instance});
        // Without SECTION a beam section is not emitted; an elbow of one line has no
        // point to move.
        const inp_Keyword* elbow = run.Find(instance, inp_kwBeamSection);
        ASSERT_NE(elbow, nullptr);
        EXPECT_EQ(Value(*elbow, "section"), "ELBOW");
        EXPECT_EQ(Line(*elbow, 0), "1.,2.");
        EXPECT_EQ(run.Find(instance, inp_kwBeamSection, 1), nullptr);
        EXPECT_EQ(run.Errors(), std::vector<std::string>{"The SECTION parameter is required for *BEAM SECTION. "});
        const inp_Keyword* turned = run.Find(instance, inp_kwRotaryInertia);
        ASSERT_EQ(turned->data.NumberOfLines(), 1);
        ASSERT_EQ(turned->data.NumberOfItems(0), 6);
        for (int i = 0; i < 6; ++i)
            EXPECT_NEAR(turned->data.AsDouble(0, i), inertia.at(instance)[i], kTolerance) << instance << i;
        EXPECT_EQ(Line(*run.Find(instance, inp_kwRotaryInertia, 1), 0), "1.,2.,3.,0.1,0.2,0.3");
    }
    Transformation run(model);
    cow_1DArrayList<inp_Keyword> list = InInstance("T", body);
    run.Walk(list);
    const inp_DataArray& appended = run.Find("T", inp_kwBeamGeneralSection)->data;
    EXPECT_EQ(std::string(appended.AsStringVerbatim(1, 0).c_str()) + "|" + appended.AsStringVerbatim(1, 1).c_str() +
                  "|" + appended.AsStringVerbatim(1, 2).c_str(),
              "0|0|-1");
}

TEST(TransformationVisitor, PerturbationsOfNodesInRectangularComponents) {
    RenumberedModel model(Deck(""));
    const double pi = 3.141592653589793;
    // The part's node 3 is (1, 1, 0), node 4 (0, 1, 0), node 2 (1, 0, 0).
    const double r3 = std::sqrt(2.0) + 0.5;
    const Triple cylindrical3 = {r3 * std::cos(3 * pi / 4) - 1, r3 * std::sin(3 * pi / 4) - 1, 0};
    const Triple cylindrical4 = {1.5 * std::cos(pi) - 0, 1.5 * std::sin(pi) - 1, 0};
    const Triple spherical2 = {2 * std::cos(pi / 2) - 1, 2 * std::sin(pi / 2), 0};
    const Triple radial = {std::cos(pi / 6), std::sin(pi / 6), 0};
    const std::vector<inp_Keyword> body = {
        MakeWithData(inp_kwImperfection, {{"system", "C"}}, {"3, 0.5, 90., 0."}),
        MakeWithData(inp_kwImperfection, {{"system", "S"}}, {"2, 1., 90., 0."}),
        MakeWithData(inp_kwImperfection, {{"input", "x.txt"}}, {"2, 1., 90., 0."}),
        MakeWithData(inp_kwParameterShapeVariation, {{"parameter", "P1"}, {"system", "C"}},
                     {"TOP, 0.5, 90., 0., 1., 30., 0."}),
        MakeWithData(inp_kwDesignShapeVariation, {{"parameter", "P1"}}, {"TOP, 1., 2., 3., 4., 5., 6."}),
    };
    for (const std::string& instance : kPlaced) {
        Transformation run(model);
        cow_1DArrayList<inp_Keyword> list = InInstance(instance.c_str(), body);
        run.Walk(list);
        EXPECT_EQ(run.Errors(), std::vector<std::string>{});
        const inp_Keyword* cylinder = run.Find(instance, inp_kwImperfection);
        EXPECT_EQ(Value(*cylinder, "system"), "<absent>");
        EXPECT_EQ(std::string(cylinder->data.AsString(0, 0).c_str()), "3");
        ExpectTriple(*cylinder, 0, 1, Place(instance, cylindrical3, false), instance + " C");
        ExpectTriple(*run.Find(instance, inp_kwImperfection, 1), 0, 1, Place(instance, spherical2, false),
                     instance + " S");
        EXPECT_EQ(Line(*run.Find(instance, inp_kwImperfection, 2), 0), "2,1.,90.,0.");

        // A set under "C": a line per member, labelled by its number.
        const inp_Keyword* shape = run.Find(instance, inp_kwParameterShapeVariation);
        ASSERT_EQ(shape->data.NumberOfLines(), 2);
        EXPECT_EQ(std::string(shape->data.AsString(0, 0).c_str()) + shape->data.AsString(1, 0).c_str(), "34");
        ExpectTriple(*shape, 0, 1, Place(instance, cylindrical3, false), instance + " PSV 3");
        ExpectTriple(*shape, 1, 1, Place(instance, cylindrical4, false), instance + " PSV 4");
        ExpectTriple(*shape, 1, 4, Place(instance, radial, false), instance + " PSV 4 direction");
        // Under "R" one line stands for the whole set.
        const inp_Keyword* design = run.Find(instance, inp_kwDesignShapeVariation);
        ASSERT_EQ(design->data.NumberOfLines(), 1);
        EXPECT_EQ(std::string(design->data.AsString(0, 0).c_str()), "TOP");
        ExpectTriple(*design, 0, 1, Place(instance, {1, 2, 3}, false), instance + " DSV");
        ExpectTriple(*design, 0, 4, Place(instance, {4, 5, 6}, false), instance + " DSV");
    }

    const struct {
        inp_KeywordEnm kind;
        const char* line;
        const char* error;
    } bad[] = {
        {inp_kwImperfection, "X, 1.",
         "A column one data item under *IMPERFECTION is unrecognizable as a node number. The item in question is: X"},
        {inp_kwImperfection, "99, 1.",
         "Unknown local node number 99 is encountered during the processing of *IMPERFECTION. "},
        {inp_kwParameterShapeVariation, "NOPE, 1.",
         "Unknown node set NOPE is detected in column one under *PARAMETER SHAPE VARIATION. "},
        {inp_kwParameterShapeVariation, "1.5, 1.",
         "A column one data item under *PARAMETER SHAPE VARIATION is unrecognizable as a node number or node set "
         "label. The item in question is: 1.5"},
        {inp_kwParameterShapeVariation, "99, 1.",
         "Unknown local node number 99 is encountered during the processing of *PARAMETER SHAPE VARIATION. Note "
         "that the node number may not be specified explicitly, but expanded from a node set label."},
    };
    for (const auto& b : bad) {
        Transformation run(model);
        cow_1DArrayList<inp_Keyword> list = InInstance("R", {MakeWithData(b.kind, {}, {"3, 0.1", b.line})});
        run.Walk(list);
        EXPECT_EQ(run.Find("R", b.kind), nullptr) << b.line;
        EXPECT_EQ(run.Errors(), std::vector<std::string>{b.error});
    }
}

TEST(TransformationVisitor, AnalyticalSurfaces) {
    RenumberedModel model(Deck(""));
    const char* const kPointsIgnored =
        "For a *SURFACE, TYPE={CYLINDER,REVOLUTION} defined at part instance level, non-blank lines were detected "
        "before the word START, implying that global coordinates of points A, B, C defining a local system have "
        "been specified.  These 3 points are ignored and replaced by ones computed based on the part instance's "
        "positioning data.";
    const std::vector<const char*> withPoints = {"1., 2., 3., 4., 5., 6.", "7., 8., 9.", "START, 0., 0.",
                                                 "LINE, , 1., 0."};
    const std::vector<inp_Keyword> body = {
        MakeWithData(inp_kwSurface, {{"name", "SEG"}, {"type", "SEGMENTS"}},
                     {"1., 2., 3.", "START, 1., 0.", "LINE, 2., 0.", "CIRCL, 2., 2., 1., 1."}),
        MakeWithData(inp_kwSurface, {{"name", "CYL"}, {"type", "CYLINDER"}}, {"START, 0., 0.", "LINE, 1., 0."}),
        MakeWithData(inp_kwRigidSurface, {{"type", "REVOLUTION"}}, {"START, 0., 0.", "LINE, 1., 0."}),
        MakeWithData(inp_kwSurface, {{"name", "KEPT"}, {"type", "CYLINDER"}}, withPoints),
        MakeWithData(inp_kwSurface, {{"name", "EL"}}, {"BAR, SPOS"}),
    };
    for (const bool replace : {false, true}) {
        for (const std::string& instance : kPlaced) {
            const std::string what = instance + (replace ? " replacing" : " keeping");
            Transformation run(model, replace);
            cow_1DArrayList<inp_Keyword> list = InInstance(instance.c_str(), body);
            run.Walk(list);
            const inp_Keyword* segments = run.Find(instance, inp_kwSurface);
            ASSERT_EQ(segments->data.NumberOfLines(), 3) << what;
            const std::vector<std::pair<int, Triple>> planar = {{0, {1, 0, 0}}, {1, {2, 0, 0}}, {2, {2, 2, 0}}};
            for (const auto& p : planar) {
                const Triple expected = Place(instance, p.second, true);
                EXPECT_NEAR(segments->data.AsDouble(p.first, 1), expected.x, kTolerance) << what;
                EXPECT_NEAR(segments->data.AsDouble(p.first, 2), expected.y, kTolerance) << what;
            }
            EXPECT_EQ(std::string(segments->data.AsString(0, 0).c_str()) + segments->data.AsString(2, 0).c_str(),
                      "STARTCIRCL");
            EXPECT_NEAR(segments->data.AsDouble(2, 3), Place(instance, {1, 1, 0}, true).x, kTolerance) << what;
            EXPECT_NEAR(segments->data.AsDouble(2, 4), Place(instance, {1, 1, 0}, true).y, kTolerance) << what;

            // The surface's system is the instance's: A the origin, B on x (y for a
            // revolution), C on -z, all where the instance put them.
            const inp_Keyword* cylinder = run.Find(instance, inp_kwSurface, 1);
            ExpectTriple(*cylinder, 0, 0, Place(instance, {0, 0, 0}, true), what);
            ExpectTriple(*cylinder, 0, 3, Place(instance, {1, 0, 0}, true), what);
            ExpectTriple(*cylinder, 1, 0, Place(instance, {0, 0, -1}, true), what);
            EXPECT_EQ(Line(*cylinder, 2) + "|" + Line(*cylinder, 3), "START,0.,0.|LINE,1.,0.");
            const inp_Keyword* revolution = run.Find(instance, inp_kwRigidSurface);
            ExpectTriple(*revolution, 0, 3, Place(instance, {0, 1, 0}, true), what);
            EXPECT_EQ(Line(*revolution, 1), "START,0.,0.");

            // Points of the deck's own stay unless the driver asks for the instance's.
            const inp_Keyword* kept = run.Find(instance, inp_kwSurface, 2);
            if (replace) {
                ExpectTriple(*kept, 1, 0, Place(instance, {0, 0, -1}, true), what);
                EXPECT_EQ(Line(*kept, 3), "LINE,1.,0.");
            } else {
                EXPECT_EQ(Line(*kept, 0) + "|" + Line(*kept, 3), "1.,2.,3.,4.,5.,6.|LINE,1.,0.");
            }
            EXPECT_EQ(Line(*run.Find(instance, inp_kwSurface, 3), 0), "BAR,SPOS");
            std::vector<std::string> warnings = {inp_test::In(
                "SURFACE", "For a *SURFACE, TYPE=SEGMENTS, non-blank lines were detected before the word START. "
                           "These are ignored. ")};
            if (replace) warnings.push_back(inp_test::In("SURFACE", kPointsIgnored));
            EXPECT_EQ(run.Warnings(), warnings) << what;
        }
    }

    Transformation run(model);
    cow_1DArrayList<inp_Keyword> list = InInstance(
        "R", {MakeWithData(inp_kwSurface, {{"name", "BAD"}, {"type", "SEGMENTS"}}, {"START, 0., 0.", "ARC, 1., 1."})});
    run.Walk(list);
    EXPECT_EQ(run.Find("R", inp_kwSurface), nullptr);
    EXPECT_EQ(run.Errors(), std::vector<std::string>{"Error in the data lines of *SURFACE, TYPE=SEGMENTS.  The shape "
                                                     "(first column) must be either LINE, CIRCL, or PARAB.  The "
                                                     "unknown shape in question is: ARC"});
}
