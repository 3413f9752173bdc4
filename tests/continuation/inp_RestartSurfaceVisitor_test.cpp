// Surfaces a restart deck defines: their names checked against the earlier analysis,
// and a surface of an instance built in the instance and scoped in the keyword.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../inpM/inpM_TestLists.h"
#include "../support/inp_TestFiles.h"
#include "inp_RestartSurfaceVisitor.h"

namespace {

using inp_test::Line;
using inp_test::MakeWithData;
using inp_test::ToVector;
using Strings = std::vector<std::string>;

cow_String S(const char* s) { return cow_String(s); }

struct Model {
    inpM_SetMap elementSets;
    inpM_SurfaceMap surfaces;
    Model() {
        elementSets.InsertNestedSet(S("PUMP-1"), S("TOP"), CreateSet(List({1, 2}), false, false).ConstGet());
        inpM_ElementFaceIdSurface old;
        old.Add(S("S2"), List({1}));
        surfaces.InsertPartInstanceSurface(S("PUMP-1"), S("OLD"), old);
        inpM_AssemblyInstanceSurface assembly;
        assembly.Add(S("PUMP-1"), old);
        surfaces.InsertAssemblyInstanceSurface(S("OLDA"), assembly);
    }
    inp_RestartSurfaceVisitor Visitor(bool assemblyModel) const {
        return inp_RestartSurfaceVisitor(surfaces, S("ASSEMBLY-1"), assemblyModel, inpM_SetMap(), elementSets,
                                         inpM_ElementMap(), inp_CoordMap());
    }
};

Strings Walk(inp_RestartSurfaceVisitor& v, cow_1DArrayList<inp_Keyword>& list) {
    v.VisitList(list);
    return ToVector(v.errors);
}

}  // namespace

TEST(RestartSurface, AssemblyModelBuildsInstanceAndAssemblySurfaces) {
    const Model model;
    inp_RestartSurfaceVisitor v = model.Visitor(true);
    cow_1DArrayList<inp_Keyword> list;
    list.Append(MakeWithData(inp_kwSurface, {{"name", "ASSEMBLY-1.PUMP-1.S"}}, {"TOP, S1"}));
    list.Append(MakeWithData(inp_kwSurface, {{"name", "ASSEMBLY-1.SA"}}, {"PUMP-1.TOP, S3"}));
    list.Append(MakeWithData(inp_kwSurface, {{"name", "S"}}, {"TOP, S1"}));
    list.Append(MakeWithData(inp_kwSurface, {{"name", "ASSEMBLY-1.A.B.C"}}, {"TOP, S1"}));
    list.Append(MakeWithData(inp_kwSurface, {{"name", "ASSEMBLY-1.PUMP-1.OLD"}}, {"TOP, S1"}));
    list.Append(MakeWithData(inp_kwSurface, {{"name", "ASSEMBLY-1.OLDA"}}, {"PUMP-1.TOP, S1"}));
    list.Append(MakeWithData(inp_kwSurface, {{"name", "ASSEMBLY-1.C"}, {"type", "CYLINDER"}}, {}));
    list.Append(MakeWithData(inp_kwRigidSurface, {{"type", "SEGMENTS"}}, {}));
    const std::string duplicate = " already exists in the original analysis. It cannot be modified upon restart.";
    EXPECT_EQ(Walk(v, list),
              (Strings{"S is not the assembly name in the original analysis.",
                       "The complete name of a surface defined upon restart should contain: an assembly name, an "
                       "optional instance name, and a surface name. The unrecognizable name in question is "
                       "ASSEMBLY-1.A.B.C",
                       "Error in *SURFACE: the surface ASSEMBLY-1.PUMP-1.OLD" + duplicate,
                       "Error in *SURFACE: the surface ASSEMBLY-1.OLDA" + duplicate,
                       "Analytical surfaces may not be defined upon restart. ",
                       "Analytical surfaces may not be defined upon restart. "}));

    // The instance surface under its own name, the keyword scoped to the instance.
    ASSERT_TRUE(v.surfaces.IsMemberPartInstanceSurface(S("PUMP-1"), S("S")));
    const auto faces = v.surfaces.ConstGetPartInstanceSurface(S("PUMP-1"), S("S")).ConstGetFaceIdElementIdsMap();
    EXPECT_EQ(Ints(faces.ConstGet(S("S1"))), (std::vector<int>{1, 2}));
    EXPECT_EQ(Line(list.ConstGet(0), 0), "PUMP-1.TOP,S1");
    EXPECT_EQ(inp_test::Value(list.ConstGet(0), "name"), "ASSEMBLY-1.PUMP-1.S");
    ASSERT_TRUE(v.surfaces.IsMemberAssemblyInstanceSurface(S("SA")));
    EXPECT_EQ(Names(v.surfaces.ConstGetAssemblyInstanceSurface(S("SA")).Instances()), Strings{"PUMP-1"});
    EXPECT_EQ(Line(list.ConstGet(1), 0), "PUMP-1.TOP,S3");
    // Refused keywords change nothing, the earlier surfaces least of all.
    EXPECT_EQ(Line(list.ConstGet(4), 0), "TOP,S1");
    const auto old = v.surfaces.ConstGetPartInstanceSurface(S("PUMP-1"), S("OLD")).ConstGetFaceIdElementIdsMap();
    EXPECT_EQ(old.Count(), 1);
    EXPECT_EQ(Ints(old.ConstGet(S("S2"))), std::vector<int>{1});
    EXPECT_FALSE(v.surfaces.IsMemberAssemblyInstanceSurface(S("C")));
    EXPECT_TRUE(v.instanceName.IsEmpty());
}

TEST(RestartSurface, FlatModelTakesPlainNamesOnly) {
    const Model model;
    inp_RestartSurfaceVisitor v = model.Visitor(false);
    cow_1DArrayList<inp_Keyword> list;
    list.Append(MakeWithData(inp_kwSurface, {{"name", "NEW"}}, {"PUMP-1.TOP, S1"}));
    list.Append(MakeWithData(inp_kwSurface, {{"name", "PUMP-1.S"}}, {"TOP, S1"}));
    list.Append(MakeWithData(inp_kwSurface, {{"name", "OLDA"}}, {"PUMP-1.TOP, S1"}));
    EXPECT_EQ(Walk(v, list),
              (Strings{"The input file for the original analysis does not contain parts and assemblies.  Upon "
                       "restart, only assembly level element and node-based surfaces may be defined.  The name "
                       "given by the NAME parameter should not contain any periods which imply an assembly of part "
                       "instances.  The unrecognizable name is: PUMP-1.S",
                       "Error in *SURFACE: the surface OLDA already exists in the original analysis. It cannot be "
                       "modified upon restart."}));
    EXPECT_TRUE(v.surfaces.IsMemberAssemblyInstanceSurface(S("NEW")));
    EXPECT_FALSE(v.surfaces.IsMemberPartInstanceSurface(S("PUMP-1"), S("S")));
}
