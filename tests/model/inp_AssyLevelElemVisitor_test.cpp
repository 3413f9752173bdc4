// Elements of the assembly level: connectivity by scoped ids, resolved through the node
// id map of the model.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp_AssyLevelElemVisitor.h"

using inp_test::In;
using inp_test::MakeWithData;
using inp_test::ToVector;

namespace {

using Ids = std::vector<int>;

inpM_IdMap ModelIds() {
    inpM_IdMap ids;
    ids.Insert(7, 1007);
    inpM_IdMap first, second;
    first.Insert(5, 105);
    second.Insert(5, 205);
    ids.InsertInstance(cow_String("PUMP-1"), first);
    ids.InsertInstance(cow_String("PUMP-2"), second);
    return ids;
}

Ids Vec(const cow_1DArrayList<int>& list) {
    Ids out;
    for (int i = 0; i < list.Count(); ++i) out.push_back(list.ConstGet(i));
    return out;
}

Ids Nodes(const inp_AssyLevelElemVisitor& v, int id) {
    const inp_Element& e = v.elements.ConstGet().ConstGet(id);
    return Ids(e.nodes, e.nodes + e.numNodes);
}

}  // namespace

TEST(AssyLevelElemVisitor, ScopedIdsResolveThroughTheModelIds) {
    inp_AssyLevelElemVisitor v(inpM_ElementMap(), inpM_SetMap(), ModelIds(), false);
    inp_Keyword connector = MakeWithData(inp_kwElement, {{"type", "CONN3D2"}, {"elset", "C"}}, {"1, Pump-1.5,"});
    v.Visit(connector);
    EXPECT_EQ(Nodes(v, 1), (Ids{105, 0}));
    inp_Keyword spring = MakeWithData(inp_kwElement, {{"type", "SPRING2"}}, {"2, Pump-1.5, Pump-2.5,"});
    v.Visit(spring);
    EXPECT_EQ(Nodes(v, 2), (Ids{105, 205}));
    inp_Keyword mass = MakeWithData(inp_kwElement, {{"type", "MASS"}}, {"3, 7", "4, X.4", "5, PUMP-1.6", "6, 8",
                                                                        "7, NSET1", "8, A.B"});
    v.Visit(mass);
    EXPECT_EQ(Nodes(v, 3), (Ids{1007}));
    EXPECT_EQ(Nodes(v, 4), (Ids{0}));
    EXPECT_EQ(Vec(v.setMap.ConstGetSet(cow_String("C")).ConstGetIds()), (Ids{1}));
    EXPECT_EQ(ToVector(v.errors),
              (std::vector<std::string>{"Unknown instance name X", "Unknown local ID 6 in instance PUMP-1",
                                        "Connectivity item 8 is an undefined assembly level node.",
                                        "Connectivity item NSET1 appears to be a node set. This is not allowed.",
                                        "Connectivity item A.B is unrecognizable as a scoped ID ( <instanceName>."
                                        "<integer ID> )."}));
}

TEST(AssyLevelElemVisitor, OnlyTheTypesOfTheAssemblyLevel) {
    inp_AssyLevelElemVisitor strict(inpM_ElementMap(), inpM_SetMap(), ModelIds(), true);
    inp_Keyword solid = MakeWithData(inp_kwElement, {{"type", "C3D8"}}, {"1, 7"});
    strict.Visit(solid);
    inp_Keyword gap = MakeWithData(inp_kwElement, {{"type", "GAPUNI"}}, {"2, 7, 7, 7"});
    strict.Visit(gap);
    inp_Keyword zero = MakeWithData(inp_kwElement, {{"type", "DASHPOTA"}}, {"0, 7, 7"});
    strict.Visit(zero);
    EXPECT_TRUE(strict.elements.ConstGet().HasKey(2));
    EXPECT_EQ(ToVector(strict.errors),
              (std::vector<std::string>{
                  In("ELEMENT", "Only connector, spring, dashpot, mass, rotary inertia, and capacitance elements can "
                                "be created at the assembly level."),
                  In("ELEMENT", "element number is not defined or is zero for element of type DASHPOTA")}));
    EXPECT_EQ(ToVector(strict.warnings),
              (std::vector<std::string>{In("ELEMENT", "Too many nodes for element(s) of type \"GAPUNI\":\n2")}));

    // Element sets wait for the driver to ask for them.
    inp_Keyword elset = MakeWithData(inp_kwElset, {{"elset", "E"}}, {"2"});
    strict.Visit(elset);
    EXPECT_FALSE(strict.setMap.IsMember(cow_String("E")));
    strict.processElementSets = true;
    strict.Visit(elset);
    EXPECT_TRUE(strict.setMap.IsMember(cow_String("E")));
}
