// Surfaces as the surface passes build them from a deck: node areas, element faces,
// combinations, crops, the assembly level and the messages.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp.h"

using inp_test::TempDir;

namespace {

using Faces = std::map<std::string, std::vector<int>>;

Faces FacesOf(const inpM_PartInstanceSurface& surface) {
    Faces out;
    const cow_Map<cow_String, cow_1DArrayList<int>> byFace = surface.ConstGetFaceIdElementIdsMap();
    cow_ConstMapIterator<cow_String, cow_1DArrayList<int>> it(byFace);
    for (it.First(); !it.IsDone(); it.Next())
        for (int i = 0; i < it.CurrentValue().Count(); ++i) out[it.CurrentKey().c_str()].push_back(it.CurrentValue()[i]);
    return out;
}

const char kDeck[] =
    "*PART, NAME=P\n"
    "*NODE, NSET=NS1\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n4, 0., 1., 0.\n5, 2., 0., 0.\n6, 2., 1., 0.\n"
    "*ELEMENT, TYPE=CPS4, ELSET=EA\n1, 1, 2, 3, 4\n*ELEMENT, TYPE=CPS4, ELSET=EB\n2, 2, 5, 6, 3\n"
    "*SURFACE, TYPE=NODE, NAME=N25\nNS1, 2.5\n*SURFACE, TYPE=NODE, NAME=N2\nNS1, 2\n"
    "*SURFACE, TYPE=ELEMENT, NAME=F1\n2, S2\n"
    "*SURFACE, NAME=A\nEA, S1\nEB, S1\n*SURFACE, NAME=B\nEB, S1\n*SURFACE, NAME=C\nEB, S3\n"
    "*SURFACE, COMBINE=DIFFERENCE, NAME=D\nA, B\nC\n"
    "*SURFACE, TYPE=CUTTINGSURFACE, NAME=CUT\nEA, S1\nEB, S2\n"
    "*SURFACE, CROP, NAME=SMALL\nA\n0., 0., 0., 0.5, 0.5, 1.\n"
    "*SURFACE, CROP, NAME=EDGE\nA\n0., 0., 0., 1., 0.5, 1.\n"
    "*SURFACE, CROP, NAME=TURNED\nA\n0., 0., 0., 0.5, 0.5, 1.\n0., 0., 0., 1., 0., 0.\n"
    "*SURFACE, NAME=LOST\nEA, S1\nNOSET, S2\n"
    "*END PART\n"
    "*ASSEMBLY, NAME=X\n*INSTANCE, NAME=I, PART=P\n*SURFACE, NAME=A\nEA, S3\n*END INSTANCE\n"
    "*NODE\n7, 5., 5., 5.\n*NSET, NSET=MIX\nI.1, 7\n*SURFACE, TYPE=NODE, NAME=MIXED\nMIX\n"
    "*END ASSEMBLY\n";

}  // namespace

TEST(SurfaceVisitor, SurfacesOfPartsInstancesAndTheAssembly) {
    TempDir dir;
    inp_Deck deck;
    deck.Parse(dir.Write("deck.inp", kDeck).c_str());
    deck.ExpandKeywords();
    thr_ThreadSingleton<wip_WIP>::Instance().Clear();
    deck.Classify(true);
    const inpM_SurfaceMap& parts = deck.partSurfaces;
    const cow_String p("P");
    auto part = [&](const char* name) -> const inpM_PartInstanceSurface& {
        return parts.ConstGetPartInstanceSurface(p, cow_String(name));
    };

    EXPECT_EQ(part("N25").ConstGetNodeAreaList().Count(), 6);
    EXPECT_EQ(part("N25").ConstGetNodeAreaList().ConstGet(4), 2.5);
    EXPECT_EQ(part("N2").ConstGetNodeAreaList().ConstGet(4), 1.0);  // an integer is no area
    EXPECT_EQ(FacesOf(part("F1")), (Faces{{"S2", {2}}}));
    EXPECT_EQ(FacesOf(part("D")), (Faces{{"S1", {1}}, {"S3", {2}}}));
    EXPECT_EQ(FacesOf(part("CUT")), (Faces{{"S2", {2}}}));
    // The face of element 2 lies outside the small box, and touches the larger one.
    EXPECT_EQ(FacesOf(part("SMALL")), (Faces{{"S1", {1}}}));
    EXPECT_EQ(FacesOf(part("EDGE")), (Faces{{"S1", {1, 2}}}));
    EXPECT_EQ(FacesOf(part("TURNED")), (Faces{{"S1", {1}}}));
    EXPECT_EQ(FacesOf(part("LOST")), (Faces{{"S1", {1}}}));

    // The instance starts with the part's surfaces; its own A replaces the part's.
    EXPECT_EQ(FacesOf(deck.assemblySurfaces.ConstGetPartInstanceSurface(cow_String("I"), cow_String("D"))),
              FacesOf(part("D")));
    EXPECT_EQ(FacesOf(deck.assemblySurfaces.ConstGetPartInstanceSurface(cow_String("I"), cow_String("A"))),
              (Faces{{"S3", {1}}}));
    const inpM_AssemblyInstanceSurface& mixed = deck.assemblySurfaces.ConstGetAssemblyInstanceSurface(cow_String("MIXED"));
    EXPECT_TRUE(mixed.assemblyNodes.ConstGetNodeAreaList().HasKey(7));
    EXPECT_TRUE(mixed.instanceSurfaces.ConstGet(cow_String("I"))->ConstGetNodeAreaList().HasKey(1));

    EXPECT_EQ(inp_test::SinkRecords(),
              (std::vector<std::string>{
                  "W: Neither of the points a and b defined under cropped surface TURNED are allowed to be defined at "
                  "the origin. The orientation of the surface will be ignored.",
                  "E1: The following sets were not found when generating the surface LOST:\nNOSET",
                  "E1: The surface A was defined within part P, then redefined within part instance I. A surface "
                  "cannot be defined at the part level, then redefined at the part instance level."}));
}

TEST(SurfaceVisitor, AnalyticalSurfacesBelongToPartsAndInstances) {
    inp_PartSurfaceVisitor parts{inpM_SetMap(), inpM_SetMap(), inpM_ElementMap(), inp_CoordMap()};
    inp_AssemblySurfaceVisitor assembly{inpM_SetMap(), inpM_SetMap(), inpM_ElementMap(), inp_CoordMap(),
                                        inpM_SurfaceMap()};
    inp_Keyword cylinder = inp_test::Make(inp_kwSurface, {{"type", "CYLINDER"}, {"name", "CYL"}});
    parts.VisitSurface(cylinder);
    assembly.VisitSurface(cylinder);
    assembly.instanceName = cow_String("I");
    assembly.VisitSurface(cylinder);
    inp_Keyword rigid = inp_test::Make(inp_kwRigidSurface, {{"elset", "E"}, {"type", "AXI"}});
    assembly.VisitRigidSurface(rigid);
    EXPECT_EQ(inp_test::ToVector(parts.errors),
              (std::vector<std::string>{"When the *SURFACE option is used to define an analytical surface,  it can "
                                        "only appear within a part (or part instance) definition, even if the rigid "
                                        "body is defined at the assembly level."}));
    EXPECT_EQ(inp_test::ToVector(assembly.errors),
              (std::vector<std::string>{"There should not be any Analytical Surfaces at the assembly level."}));
    EXPECT_EQ(assembly.surfaces.ConstGetPartInstanceSurface(cow_String("I"), cow_String("CYL")).SurfaceType(),
              inpM_AnalyticalSurface);
    EXPECT_TRUE(assembly.surfaces.IsMemberPartInstanceSurface(cow_String("I"), cow_String(" <not named>")));
}

TEST(SurfaceVisitor, ShapesOfTheMainFamilies) {
    const shp_ShapeDictionary& shapes = thr_ThreadSingleton<shp_ShapeDictionary>::Instance();
    struct Case {
        const char* type;
        int faces;
        int nodesOnLastFace;
    };
    const Case cases[] = {{"C3D8R", 6, 4}, {"C3D20", 6, 4}, {"C3D10M", 4, 3}, {"C3D6", 5, 4}, {"CPS4", 4, 2},
                          {"CAX6M", 3, 2}, {"S4R", 2, 4},   {"STRI65", 2, 3}, {"M3D9R", 2, 4}};
    for (const Case& c : cases) {
        const shp_Shape* shape = shapes.GetShape(cow_String(c.type));
        ASSERT_NE(shape, nullptr) << c.type;
        EXPECT_EQ(shape->NumberOfFaces(), c.faces) << c.type;
        EXPECT_EQ(shape->NodesOnFace(c.faces), c.nodesOnLastFace) << c.type;
    }
    EXPECT_EQ(shapes.GetShape(cow_String("SPRING1")), nullptr);
    EXPECT_EQ(shapes.GetShape(cow_String("B31")), nullptr);
}
