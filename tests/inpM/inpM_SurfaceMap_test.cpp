#include <gtest/gtest.h>

#include "inpM_IdMap.h"
#include "inpM_SurfaceFacet.h"
#include "inpM_SurfaceMap.h"
#include "inpM_TestLists.h"

namespace {

cow_String S(const char* s) { return cow_String(s); }

inpM_ElementFaceIdSurface Faces(std::initializer_list<std::pair<const char*, std::vector<int>>> faces) {
    inpM_ElementFaceIdSurface surface;
    for (const auto& f : faces) {
        cow_1DArrayList<int> ids;
        for (int id : f.second) ids.Append(id);
        surface.Add(S(f.first), ids);
    }
    return surface;
}

// Face id to element ids, as text: "S1:1,2 S2:3".
std::string FaceText(const inpM_PartInstanceSurface& surface) {
    std::string out;
    cow_Map<cow_String, cow_1DArrayList<int>> faces = surface.ConstGetFaceIdElementIdsMap();
    cow_ConstMapSortedIt<cow_String, cow_1DArrayList<int>> it(faces);
    for (it.First(); !it.IsDone(); it.Next()) {
        out += (out.empty() ? "" : " ") + std::string(it.CurrentKey().c_str()) + ":";
        const cow_1DArrayList<int>& ids = it.CurrentValue();
        for (int i = 0; i < ids.Count(); ++i) out += (i ? "," : "") + std::to_string(ids[i]);
    }
    return out;
}

std::vector<std::pair<int, double>> Areas(const inpM_PartInstanceSurface& surface) {
    std::vector<std::pair<int, double>> v;
    inpM_NodeAreaListIT it(surface.ConstGetNodeAreaList());
    for (it.First(); !it.IsDone(); it.Next()) v.emplace_back(it.CurrentKey(), it.CurrentValue());
    return v;
}

inpM_NodeAreaSurface Nodes(std::initializer_list<int> ids, double area) {
    inpM_NodeAreaSurface surface;
    surface.Add(List(ids), area);
    return surface;
}

inpM_IdMap IdsOf(std::initializer_list<std::pair<int, int>> pairs) {
    inpM_IdMap map;
    for (const auto& p : pairs) map.Insert(p.first, p.second);
    return map;
}

}  // namespace

TEST(Surfaces, CombinationsWorkWithinOneKind) {
    inpM_ElementFaceIdSurface a = Faces({{"S1", {3, 1, 2}}, {"S2", {4}}});
    inpM_ElementFaceIdSurface b = Faces({{"S1", {2, 9}}, {"S2", {4}}, {"S3", {5}}});
    inpM_ElementFaceIdSurface c = Faces({{"S3", {6}}});
    EXPECT_EQ(FaceText(a), "S1:1,2,3 S2:4");

    // (A minus B) united with C, as *SURFACE, COMBINE=DIFFERENCE reads "A, B" and "C".
    inpM_ElementFaceIdSurface result;
    result.Add(a);
    result.Difference(b);
    result.Add(c);
    EXPECT_EQ(FaceText(result), "S1:1,3 S3:6");  // a face without elements is gone

    inpM_ElementFaceIdSurface both(a);
    both.Intersection(b);
    EXPECT_EQ(FaceText(both), "S1:2 S2:4");
    both.Difference(S("S1"), List({2, 77}));
    EXPECT_EQ(FaceText(both), "S2:4");

    // Across kinds nothing happens; an analytical surface ignores everything.
    inpM_NodeAreaSurface nodes = Nodes({1, 2}, 2.5);
    inpM_ElementFaceIdSurface unchanged(a);
    unchanged.Add(nodes);
    unchanged.Difference(nodes);
    unchanged.Intersection(nodes);
    EXPECT_EQ(FaceText(unchanged), FaceText(a));
    inpM_PartInstanceSurface analytical(true);
    analytical.Add(a);
    EXPECT_EQ(analytical.SurfaceType(), inpM_AnalyticalSurface);
    EXPECT_TRUE(analytical.ConstGetFaceIdElementIdsMap().IsEmpty());
    EXPECT_TRUE(analytical.ConstGetNodeAreaList().IsEmpty());

    // Nodes: a node given again takes the later area; intersection keeps its own.
    nodes.Add(List({2, 3}), 4.0);
    EXPECT_EQ(Areas(nodes), (std::vector<std::pair<int, double>>{{1, 2.5}, {2, 4.0}, {3, 4.0}}));
    inpM_NodeAreaSurface kept(nodes);
    kept.Intersection(Nodes({3, 1, 8}, 9.0));
    EXPECT_EQ(Areas(kept), (std::vector<std::pair<int, double>>{{1, 2.5}, {3, 4.0}}));
    kept.Difference(Nodes({1}, 1.0).ConstGetNodeAreaList());
    EXPECT_EQ(Areas(kept), (std::vector<std::pair<int, double>>{{3, 4.0}}));
    EXPECT_EQ(Areas(nodes).size(), 3u);  // the copy separated on write

    for (inpM_SurfaceTypes type : {inpM_ElementSurface, inpM_NodeSurface, inpM_AnalyticalSurface})
        EXPECT_EQ(CreateSurface(type)->SurfaceType(), type);
}

TEST(Surfaces, RenumberAndCleanupMapIdsOfTheirOwnScope) {
    inpM_IdMap ids = IdsOf({{3, 30}, {1, 10}, {4, 40}});
    inpM_ElementFaceIdSurface faces = Faces({{"S1", {3, 1, 2}}, {"S2", {2}}});
    inpM_ElementFaceIdSurface cleaned(faces);
    faces.Renumber(ids, true);
    EXPECT_EQ(FaceText(faces), "S1:10,30");
    cleaned.Cleanup(ids);
    EXPECT_EQ(FaceText(cleaned), "S1:1,3");

    inpM_NodeAreaSurface nodes = Nodes({4, 5}, 2.0);
    nodes.Renumber(ids, false);
    EXPECT_EQ(Areas(nodes), (std::vector<std::pair<int, double>>{{5, 2.0}, {40, 2.0}}));
}

TEST(Surfaces, AssemblySurfacesWorkInstanceByInstance) {
    inpM_AssemblyInstanceSurface crossing;
    crossing.Add(S("Pump-1"), Nodes({1}, 1.0));
    EXPECT_FALSE(crossing.IsCrossInstanceNodeBasedSurface());
    crossing.Add(Nodes({100}, 1.0));  // a node of the assembly level is no instance
    EXPECT_FALSE(crossing.IsCrossInstanceNodeBasedSurface());
    crossing.Add(S("Valve-1"), Nodes({1, 2}, 1.0));
    EXPECT_TRUE(crossing.IsCrossInstanceNodeBasedSurface());

    inpM_AssemblyInstanceSurface faces;
    faces.Add(S("Pump-1"), Faces({{"S1", {1}}}));
    faces.Add(S("Valve-1"), Faces({{"S1", {1}}}));
    EXPECT_FALSE(faces.IsCrossInstanceNodeBasedSurface());

    inpM_AssemblyInstanceSurface combined(crossing);
    combined.Add(S("Pump-1"), Nodes({2}, 3.0));
    EXPECT_EQ(Areas(combined.instanceSurfaces.ConstGet(S("Pump-1")).ConstGet()),
              (std::vector<std::pair<int, double>>{{1, 1.0}, {2, 3.0}}));
    EXPECT_EQ(Areas(crossing.instanceSurfaces.ConstGet(S("Pump-1")).ConstGet()).size(), 1u);

    combined.Difference(S("Valve-1"), Nodes({1}, 1.0));
    EXPECT_EQ(Areas(combined.instanceSurfaces.ConstGet(S("Valve-1")).ConstGet()),
              (std::vector<std::pair<int, double>>{{2, 1.0}}));
    // Intersection with a surface of one instance keeps that instance only.
    inpM_AssemblyInstanceSurface narrowed(combined);
    narrowed.Intersection(S("Pump-1"), Nodes({2, 7}, 5.0));
    EXPECT_EQ(Names(narrowed.Instances()), (std::vector<std::string>{"Pump-1"}));
    EXPECT_EQ(Areas(narrowed.instanceSurfaces.ConstGet(S("Pump-1")).ConstGet()),
              (std::vector<std::pair<int, double>>{{2, 3.0}}));
    EXPECT_TRUE(narrowed.assemblyNodes.IsEmpty());
    // Intersection of whole assembly surfaces drops instances the other lacks.
    inpM_AssemblyInstanceSurface onlyPump;
    onlyPump.Add(S("Pump-1"), Nodes({1, 2}, 1.0));
    combined.Intersection(onlyPump);
    EXPECT_EQ(Names(combined.Instances()), (std::vector<std::string>{"Pump-1"}));
    EXPECT_TRUE(combined.assemblyNodes.IsEmpty());

    // Renumbering takes each instance's map of its kind, the assembly's nodes the root.
    inpM_AssemblyInstanceSurface mixed;
    mixed.Add(S("Pump-1"), Faces({{"S2", {7}}}));
    mixed.Add(S("Valve-1"), Nodes({7}, 1.0));
    mixed.Add(Nodes({7}, 1.0));
    inpM_IdMap elementIds, nodeIds = IdsOf({{7, 1}});
    elementIds.InsertInstance(S("Pump-1"), IdsOf({{7, 2}}));
    nodeIds.InsertInstance(S("Valve-1"), IdsOf({{7, 3}}));
    mixed.Renumber(elementIds, nodeIds, true);
    EXPECT_EQ(FaceText(mixed.instanceSurfaces.ConstGet(S("Pump-1")).ConstGet()), "S2:2");
    EXPECT_EQ(Areas(mixed.instanceSurfaces.ConstGet(S("Valve-1")).ConstGet()),
              (std::vector<std::pair<int, double>>{{3, 1.0}}));
    EXPECT_EQ(Areas(mixed.assemblyNodes), (std::vector<std::pair<int, double>>{{1, 1.0}}));
}

TEST(SurfaceMap, ScopesNamesMergeAndRename) {
    inpM_SurfaceMap surfaces;
    EXPECT_FALSE(surfaces.IsMemberPartInstanceSurface(S("Part-1"), S("TOP")));
    EXPECT_EQ(surfaces.partInstanceSurfaces.Count(), 0);
    inpM_ElementFaceIdSurface top = Faces({{"S1", {1}}});
    surfaces.InsertPartInstanceSurface(S("Part-1"), S("TOP"), top);
    top.Add(S("S2"), List({2}));  // the map holds a copy
    EXPECT_EQ(FaceText(surfaces.ConstGetPartInstanceSurface(S("Part-1"), S("TOP"))), "S1:1");

    // The surfaces of a part go into the scope of its instance.
    surfaces.InsertPartInstanceSurfaceMap(S("Part-1-1"), surfaces.ConstGetPartInstanceSurfaceMap(S("Part-1")));
    EXPECT_TRUE(surfaces.IsMemberPartInstanceSurface(S("Part-1-1"), S("TOP")));
    EXPECT_EQ(Names(surfaces.Instances()), (std::vector<std::string>{"Part-1", "Part-1-1"}));

    inpM_AssemblyInstanceSurface contact;
    contact.Add(S("Part-1-1"), Faces({{"S3", {4}}}));
    surfaces.InsertAssemblyInstanceSurface(S("CONTACT"), contact);
    EXPECT_TRUE(surfaces.IsMemberAssemblyInstanceSurface(S("CONTACT")));

    inpM_SurfaceMap added;
    added.InsertPartInstanceSurface(S("Part-1-1"), S("TOP"), Faces({{"S2", {9}}}));
    added.InsertPartInstanceSurface(S("Part-2-1"), S("SIDE"), Nodes({1}, 1.0));
    inpM_AssemblyInstanceSurface more;
    more.Add(S("Part-2-1"), Nodes({5}, 1.0));
    added.InsertAssemblyInstanceSurface(S("CONTACT"), more);
    inpM_SurfaceMap before(surfaces);
    surfaces.Merge(added);
    EXPECT_EQ(FaceText(surfaces.ConstGetPartInstanceSurface(S("Part-1-1"), S("TOP"))), "S1:1 S2:9");
    EXPECT_EQ(FaceText(surfaces.ConstGetPartInstanceSurface(S("Part-1"), S("TOP"))), "S1:1");
    EXPECT_TRUE(surfaces.IsMemberPartInstanceSurface(S("Part-2-1"), S("SIDE")));
    EXPECT_EQ(Names(surfaces.ConstGetAssemblyInstanceSurface(S("CONTACT")).Instances()),
              (std::vector<std::string>{"Part-1-1", "Part-2-1"}));
    EXPECT_FALSE(before.IsMemberPartInstanceSurface(S("Part-2-1"), S("SIDE")));

    surfaces.ChangeInstanceName(S("Part-2-1"), S("P2"));
    EXPECT_TRUE(surfaces.IsMemberPartInstanceSurface(S("P2"), S("SIDE")));
    EXPECT_EQ(Names(surfaces.ConstGetAssemblyInstanceSurface(S("CONTACT")).Instances()),
              (std::vector<std::string>{"P2", "Part-1-1"}));

    inpM_IdMap elementIds, nodeIds;
    elementIds.InsertInstance(S("Part-1-1"), IdsOf({{1, 11}, {9, 19}, {4, 14}}));
    nodeIds.InsertInstance(S("P2"), IdsOf({{1, 21}, {5, 25}}));
    surfaces.Renumber(elementIds, nodeIds, true);
    EXPECT_EQ(FaceText(surfaces.ConstGetPartInstanceSurface(S("Part-1-1"), S("TOP"))), "S1:11 S2:19");
    EXPECT_EQ(Areas(surfaces.ConstGetPartInstanceSurface(S("P2"), S("SIDE"))),
              (std::vector<std::pair<int, double>>{{21, 1.0}}));
    const inpM_AssemblyInstanceSurface& renumbered = surfaces.ConstGetAssemblyInstanceSurface(S("CONTACT"));
    EXPECT_EQ(FaceText(renumbered.instanceSurfaces.ConstGet(S("Part-1-1")).ConstGet()), "S3:14");
    EXPECT_EQ(Areas(renumbered.instanceSurfaces.ConstGet(S("P2")).ConstGet()),
              (std::vector<std::pair<int, double>>{{25, 1.0}}));
}

TEST(SurfaceFacet, FaceIdsAndTheirNumbers) {
    const std::pair<const char*, int> cases[] = {
        {"S1", 1}, {"S6", 6}, {"s3", 3}, {"S12", 12}, {"SNEG", 1}, {"SPOS", 2}, {" S2 ", 2},
        {"S0", 0}, {"S", 0},  {"E1", 0}, {"S1A", 0},  {"", 0},     {"S-1", 0},  {"S12345", 0},
    };
    for (const auto& c : cases) {
        inpM_SurfaceFacet facet(S(c.first));
        EXPECT_EQ(facet.FaceNumber(), c.second) << c.first;
        EXPECT_EQ(facet.IsValid(), c.second > 0) << c.first;
    }
}
