// The analytical surfaces of a converted flat deck: which names are gathered, and which
// references move into the instance of the surface's own part.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_DataArrayTesting.h"
#include "../support/inp_TestFiles.h"
#include "inp_FakePartSurfaceVisitor.h"

using inp_test::TempDir;
using inp_test::Line;

namespace {

using Strings = std::vector<std::string>;

Strings Names(const inp_FakePartSurfaceVisitor& v) {
    Strings out;
    for (int i = 0; i < v.analyticalSurfaceNames.Count(); ++i)
        out.push_back(v.analyticalSurfaceNames.ConstGet(i).c_str());
    return out;
}

// The n-th keyword of the value in the list.
const inp_Keyword& Nth(const cow_1DArrayList<inp_Keyword>& list, inp_KeywordEnm value, int n = 0) {
    for (int i = 0; i < list.Count(); ++i)
        if (list.ConstGet(i).keyword == value && n-- == 0) return list.ConstGet(i);
    static const inp_Keyword none;
    return none;
}

// A flat deck as the conversion leaves it: the mesh in PART-1, each named analytical
// surface in a part of its own.
const char kDeck[] =
    "*PART, NAME=PART-1\n"
    "*RIGID SURFACE, TYPE=SEGMENTS, ELSET=R1\nSTART, 0., 0.\nLINE, 1., 0.\n"
    "*RIGID SURFACE, TYPE=SEGMENTS, ELSET=R2\nSTART, 0., 1.\nLINE, 1., 1.\n"
    "*SURFACE, NAME=BODY\n1, S1\n"
    "*SURFACE, TYPE=ELEMENT, NAME=SIDE\n1, S2\n"
    "*TIE, NAME=T1\nBODY, DIE\n"
    "*END PART\n"
    "*PART, NAME=DIE\n"
    "*RIGID SURFACE, TYPE=SEGMENTS, NAME=DIE, REF NODE=1\nSTART, 0., 0.\nLINE, 1., 0.\n"
    "*END PART\n"
    "*PART, NAME=PLATE\n"
    "*SURFACE, TYPE=CYLINDER, NAME=PLATE\nSTART, 1., 0.\nCIRCL, -1., 0., 0., 0.\n"
    "*END PART\n"
    "*ASSEMBLY, NAME=Assembly-1\n"
    "*INSTANCE, NAME=PART-1-1, PART=PART-1\n"
    "*SURFACE, NAME=INNER, COMBINE=UNION\nBODY, DIE\n"
    "*END INSTANCE\n"
    "*INSTANCE, NAME=DIE-1, PART=DIE\n*END INSTANCE\n"
    "*INSTANCE, NAME=PLATE-1, PART=PLATE\n*END INSTANCE\n"
    "*RIGID BODY, ANALYTICAL SURFACE=DIE, REF NODE=DIE-1.1\n"
    "*SURFACE, NAME=ALL, COMBINE=UNION\nPART-1-1.BODY, DIE, PLATE\n"
    "*END ASSEMBLY\n"
    "*STEP\n*STATIC\n"
    "*CONTACT PAIR, INTERACTION=FRIC\nPART-1-1.BODY, PLATE\n"
    "*END STEP\n";

}  // namespace

TEST(FakePartSurface, AssemblyReferencesMoveIntoTheSurfacesOwnInstance) {
    TempDir dir;
    inp_Deck deck;
    deck.Parse(dir.Write("deck.inp", kDeck).c_str());
    deck.ExpandKeywords();
    cow_1DArrayList<inp_Keyword>& list = deck.keywords;

    inp_FakePartSurfaceVisitor v{inpM_SurfaceMap()};
    v.VisitList(list);
    EXPECT_EQ(Names(v), (Strings{"RigidSurface-1", "RigidSurface-2", "DIE", "PLATE"}));

    // Definitions and references inside a part or an instance stay.
    EXPECT_EQ(inp_test::Value(Nth(list, inp_kwRigidSurface, 2), "name"), "DIE");
    EXPECT_EQ(inp_test::Value(Nth(list, inp_kwSurface, 2), "name"), "PLATE");
    EXPECT_EQ(Line(Nth(list, inp_kwTie), 0), "BODY,DIE");
    EXPECT_EQ(Line(Nth(list, inp_kwSurface, 3), 0), "BODY,DIE");

    // At assembly and model level a gathered name is scoped, any other name stays.
    EXPECT_EQ(inp_test::Value(Nth(list, inp_kwRigidBody), "analyticalsurface"), "DIE-1.DIE");
    EXPECT_EQ(inp_test::Value(Nth(list, inp_kwRigidBody), "refnode"), "DIE-1.1");
    const inp_Keyword& all = Nth(list, inp_kwSurface, 4);
    EXPECT_EQ(inp_test::Value(all, "name"), "ALL");
    EXPECT_EQ(Line(all, 0), "PART-1-1.BODY,DIE-1.DIE,PLATE-1.PLATE");
    EXPECT_EQ(Line(Nth(list, inp_kwContactPair), 0), "PART-1-1.BODY,PLATE-1.PLATE");

    // A new pass over the same deck counts its unnamed surfaces from the start again.
    inp_FakePartSurfaceVisitor again{inpM_SurfaceMap()};
    again.VisitList(list);
    EXPECT_EQ(Names(again), Names(v));
}

TEST(FakePartSurface, EveryRigidSurfaceCountsAndOnlyAnalyticalSurfacesAreGathered) {
    cow_1DArrayList<inp_Keyword> list;
    list.Append(inp_test::Make(inp_kwRigidSurface, {{"name", "A"}, {"type", "SEGMENTS"}}));
    list.Append(inp_test::Make(inp_kwRigidSurface, {{"type", "CYLINDER"}}));
    for (const char* type : {"SEGMENTS", "CYLINDER", "REVOLUTION", "USER", "BEZIER", "BSPLINE", "ELEMENT", "NODE",
                             "CUTTINGSURFACE"})
        list.Append(inp_test::Make(inp_kwSurface, {{"type", type}, {"name", (std::string("S") + type).c_str()}}));
    list.Append(inp_test::Make(inp_kwSurface, {{"type", "SEGMENTS"}}));  // nameless: nothing to refer to
    list.Append(inp_test::Make(inp_kwRigidBody, {{"refnode", "7"}}));
    inp_FakePartSurfaceVisitor v{inpM_SurfaceMap()};
    v.VisitList(list);
    EXPECT_EQ(Names(v), (Strings{"A", "RigidSurface-2", "SSEGMENTS", "SCYLINDER", "SREVOLUTION", "SUSER", "SBEZIER",
                                 "SBSPLINE"}));
    EXPECT_EQ(inp_test::Value(list[0], "name"), "A");
    EXPECT_EQ(inp_test::Value(list.Last(), "analyticalsurface"), "<absent>");
}
