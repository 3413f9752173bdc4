// Flat names and the passes that write references for a flat deck: which name each set
// and surface takes when all scopes become one, and what a reference becomes in each of
// the places a deck can write it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp_FlatNames.h"
#include "inp_FlattenVisitors.h"

using inp_test::In;
using inp_test::Line;
using inp_test::MakeWithData;
using inp_test::ToVector;
using inp_test::Walk;

namespace {

const cow_String kAssembly;

cow_String S(const char* text) { return cow_String(text); }

void AddSet(inpM_SetMap& sets, const char* scope, const char* name) {
    const inpM_SetHandle set = CreateSet(cow_1DArrayList<int>(), false, false);
    if (*scope)
        sets.InsertNestedSet(S(scope), S(name), *set);
    else
        sets.InsertSet(S(name), *set);
}

struct Model {
    inpM_SetMap nodeSets, elementSets;
    inpM_SurfaceMap surfaces;
    inpM_IdMap nodeIds, elementIds;
};

// Two instances A and B and the assembly level, whose names invite every collision.
Model Collisions() {
    Model m;
    for (const char* name : {"A_EDGE", "TIP", "A_TIP", "A_TIP_2"}) AddSet(m.nodeSets, "", name);
    for (const char* name : {"EDGE", "TIP", "B_C", "\"MY SET\""}) AddSet(m.nodeSets, "A", name);
    AddSet(m.nodeSets, "A_B", "C");
    AddSet(m.nodeSets, "B", "EDGE");
    AddSet(m.elementSets, "A", "EDGE");
    m.surfaces.InsertPartInstanceSurface(kAssembly, S("A_TOP"), inpM_ElementFaceIdSurface());
    m.surfaces.InsertAssemblyInstanceSurface(S("BOTH"), inpM_AssemblyInstanceSurface());
    m.surfaces.InsertPartInstanceSurface(S("A"), S("TOP"), inpM_ElementFaceIdSurface());
    m.surfaces.InsertPartInstanceSurface(S("B"), S("BOTH"), inpM_ElementFaceIdSurface());
    return m;
}

}  // namespace

TEST(FlatNames, InstanceNamesJoinTheirScopeAndGiveWayToNamesTakenBefore) {
    const Model m = Collisions();
    const inp_FlatNames names(m.nodeSets, m.elementSets, m.surfaces);
    struct Case {
        inp_FlatNames::Kind kind;
        const char* scope;
        const char* name;
        const char* flat;
    };
    const Case cases[] = {
        {inp_FlatNames::kNodeSet, "", "A_EDGE", "A_EDGE"},
        {inp_FlatNames::kNodeSet, "", "TIP", "TIP"},
        {inp_FlatNames::kNodeSet, "A", "EDGE", "A_EDGE_2"},
        // The first free suffix, past the ones the assembly level took.
        {inp_FlatNames::kNodeSet, "A", "TIP", "A_TIP_3"},
        // A and A_B both make A_B_C: the instance first in byte order keeps it.
        {inp_FlatNames::kNodeSet, "A", "B_C", "A_B_C"},
        {inp_FlatNames::kNodeSet, "A_B", "C", "A_B_C_2"},
        {inp_FlatNames::kNodeSet, "A", "\"MY SET\"", "\"A_MY SET\""},
        {inp_FlatNames::kNodeSet, "B", "EDGE", "B_EDGE"},
        // Element sets and surfaces are vocabularies of their own.
        {inp_FlatNames::kElementSet, "A", "EDGE", "A_EDGE"},
        {inp_FlatNames::kSurface, "", "A_TOP", "A_TOP"},
        {inp_FlatNames::kSurface, "", "BOTH", "BOTH"},
        {inp_FlatNames::kSurface, "A", "TOP", "A_TOP_2"},
        {inp_FlatNames::kSurface, "B", "BOTH", "B_BOTH"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.scope) + "." + c.name);
        const cow_String* flat = names.Find(c.kind, S(c.scope), S(c.name));
        ASSERT_NE(flat, nullptr);
        EXPECT_STREQ(flat->c_str(), c.flat);
    }
    EXPECT_EQ(names.Find(inp_FlatNames::kNodeSet, S("B"), S("TIP")), nullptr);
    EXPECT_EQ(names.Find(inp_FlatNames::kElementSet, kAssembly, S("A_EDGE")), nullptr);
}

TEST(FlattenSetVisitor, ReferencesBecomeModelIdsAndFlatNamesInTheirScope) {
    Model m = Collisions();
    m.nodeIds.Insert(7, 1);
    inpM_IdMap a, b;
    a.Insert(1, 2);
    a.Insert(3, 4);
    b.Insert(1, 10);
    m.nodeIds.InsertInstance(S("A"), a);
    m.nodeIds.InsertInstance(S("B"), b);
    const inp_FlatNames names(m.nodeSets, m.elementSets, m.surfaces);
    const inp_ModelParameters parameters;
    struct Case {
        const char* instance;  // the *INSTANCE block the keyword stands in
        const char* reference;
        const char* written;
    };
    const Case cases[] = {
        {"", "7", "1"},
        {"", "A.3", "4"},
        {"", "ASM.B.1", "10"},
        {"", "A.EDGE", "A_EDGE_2"},
        {"", "TIP", "TIP"},
        {"", "NOSUCH", "NOSUCH"},
        {"A", "3", "4"},
        {"A", "EDGE", "A_EDGE_2"},
        {"B", "EDGE", "B_EDGE"},
        // Inside an instance a scoped name is not split.
        {"A", "B.EDGE", "B.EDGE"},
        // An id the model lacks stays, and the pass says so.
        {"", "A.99", "A.99"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.instance) + ": " + c.reference);
        inp_FlattenSetVisitor pass(m.nodeSets, m.elementSets, m.nodeIds, m.elementIds, parameters, names);
        pass.instanceName = S(c.instance);
        const std::string line = std::string(c.reference) + ", 1, 3";
        inp_Keyword boundary = MakeWithData(inp_kwBoundary, {}, {line.c_str()});
        Walk(pass, boundary);
        EXPECT_EQ(Line(boundary, 0), std::string(c.written) + ",1,3");
        const bool unknown = std::string(c.reference) == "A.99";
        EXPECT_EQ(ToVector(pass.warnings),
                  unknown ? std::vector<std::string>{In("BOUNDARY",
                                                        "Unknown node id A.99: the flat model has no such id, and "
                                                        "the reference is written as it stands. ")}
                          : std::vector<std::string>{});
    }
}

TEST(FlattenSurfaceVisitor, SurfaceNamesBecomeFlatNamesInTheirScope) {
    const Model m = Collisions();
    const inp_FlatNames names(m.nodeSets, m.elementSets, m.surfaces);
    inp_FlattenSurfaceVisitor atAssembly(m.surfaces, names);
    inp_Keyword tie = MakeWithData(inp_kwTie, {{"name", "GLUE"}}, {"A.TOP, B.BOTH", "BOTH, OTHER"});
    Walk(atAssembly, tie);
    EXPECT_EQ(Line(tie, 0), "A_TOP_2,B_BOTH");
    EXPECT_EQ(Line(tie, 1), "BOTH,OTHER");

    inp_FlattenSurfaceVisitor inInstance(m.surfaces, names);
    inInstance.instanceName = S("A");
    inp_Keyword load = MakeWithData(inp_kwDsload, {}, {"TOP, P, 1."});
    Walk(inInstance, load);
    EXPECT_EQ(Line(load, 0), "A_TOP_2,P,1.");
}

TEST(FlattenOrientationVisitor, NamesDefinedInAnInstanceTakeItsNameAndReferencesFollow) {
    using inp_test::Make;
    using inp_test::Value;
    cow_1DArrayList<inp_Keyword> keywords;
    keywords.Append(Make(inp_kwOrientation, {{"name", "A_ORI"}}));
    inp_Keyword assembly = Make(inp_kwAssembly, {{"name", "ASM"}});
    for (const char* instanceName : {"B", "A"}) {
        inp_Keyword instance = Make(inp_kwInstance, {{"name", instanceName}, {"part", "P"}});
        instance.suboptions.Append(Make(inp_kwOrientation, {{"name", "ORI"}}));
        instance.suboptions.Append(Make(inp_kwSolidSection, {{"elset", "ALL"}, {"orientation", "ORI"}}));
        // Defined nowhere: a name the pass has no word on.
        instance.suboptions.Append(Make(inp_kwSpring, {{"elset", "S"}, {"orientation", "ELSEWHERE"}}));
        assembly.suboptions.Append(instance);
        assembly.suboptions.Append(Make(inp_kwEndInstance));
    }
    assembly.suboptions.Append(Make(inp_kwRotaryInertia, {{"elset", "R"}, {"orientation", "B.ORI"}}));
    keywords.Append(assembly);

    inp_FlatNames names;
    names.AddDefinitions(keywords);
    inp_FlattenOrientationVisitor pass(names);
    pass.VisitList(keywords);

    EXPECT_EQ(Value(keywords[0], "name"), "A_ORI");
    const inp_Keyword& written = keywords[1];
    struct Case {
        int instance;  // index among the assembly's suboptions
        const char* flat;
    };
    for (const Case& c : {Case{0, "B_ORI"}, Case{2, "A_ORI_2"}}) {
        const inp_Keyword& instance = written.suboptions[c.instance];
        SCOPED_TRACE(Value(instance, "name"));
        EXPECT_EQ(Value(instance.suboptions[0], "name"), c.flat);
        EXPECT_EQ(Value(instance.suboptions[1], "orientation"), c.flat);
        EXPECT_EQ(Value(instance.suboptions[2], "orientation"), "ELSEWHERE");
    }
    EXPECT_EQ(Value(written.suboptions[4], "orientation"), "B_ORI");
    EXPECT_TRUE(pass.errors.IsEmpty());
}
