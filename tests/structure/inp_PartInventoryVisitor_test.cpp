// The rules of parts, rigid bodies and rigid surfaces that read the element maps, on
// organized keyword trees built in code with maps filled by hand.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp_PartInventoryVisitor.h"

using inp_test::Make;
using inp_test::ToVector;

namespace {

using Table = omi_IntTable<inp_Element>;

// Ids from 1 up, one element of each type.
Table Elements(const std::vector<const char*>& types, int first = 1) {
    Table table;
    for (const char* type : types) table.Insert(first++, inp_Element(cow_String(type), cow_1DArrayList<int>(), 0, 0, 0));
    return table;
}

inpM_SetHandle Set(const std::vector<int>& ids) {
    cow_1DArrayList<int> list;
    for (int id : ids) list.Append(id);
    return CreateSet(list, false, false);
}

inp_Keyword With(inp_Keyword opener, const std::vector<inp_Keyword>& suboptions) {
    for (const inp_Keyword& k : suboptions) opener.suboptions.Append(k);
    return opener;
}

// part P(body) endpart, then assembly A(instance I of P(instanceBody) endinstance, assemblyBody) endassembly.
cow_1DArrayList<inp_Keyword> Deck(const std::vector<inp_Keyword>& body,
                                  const std::vector<inp_Keyword>& instanceBody = {},
                                  const std::vector<inp_Keyword>& assemblyBody = {}) {
    cow_1DArrayList<inp_Keyword> list;
    list.Append(With(Make(inp_kwPart, {{"name", "P"}}), body));
    list.Append(Make(inp_kwEndPart));
    std::vector<inp_Keyword> inAssembly = {With(Make(inp_kwInstance, {{"name", "I"}, {"part", "P"}}), instanceBody),
                                           Make(inp_kwEndInstance)};
    inAssembly.insert(inAssembly.end(), assemblyBody.begin(), assemblyBody.end());
    list.Append(With(Make(inp_kwAssembly, {{"name", "A"}}), inAssembly));
    list.Append(Make(inp_kwEndAssembly));
    return list;
}

struct Model {
    inpM_ElementMap partElements;
    inpM_ElementMap assemblyElements;
    inpM_SetMap partSets;
    inpM_SetMap assemblySets;
};

struct Findings {
    std::vector<std::string> errors;
    std::vector<std::string> warnings;
};

Findings Walk(const Model& model, cow_1DArrayList<inp_Keyword> deck) {
    inp_PartInventoryVisitor visitor(model.partElements, model.assemblyElements, model.partSets, model.assemblySets);
    visitor.VisitList(deck);
    visitor.CheckInventory();
    return {ToVector(visitor.errors), ToVector(visitor.warnings)};
}

const std::string kCombined =
    "Rigid elements, deformable elements, connectors and analytical surfaces cannot be combined within a part. "
    "This rule is violated by part P";
const std::string kOneSurface = "Only one analytical surface is allowed per part. This rule is violated by part P";
const std::string kPartialRigidBody =
    "If a part contains a rigid body definition, all elements in the part must belong to the element set given on "
    "the *RIGID BODY option. A part-level rigid body that refers to only some of the elements within the part is "
    "not allowed. This rule is violated by part P";
const std::string kRules =
    "*RIGID SURFACE can be used in a parts & assembly input file only if all the following requirements are met: (a) "
    "Both the TYPE and ELSET parameters are used; (b) The ELSET contains IRS or drag chain elements; and (c) The "
    "*RIGID SURFACE option is inside the same part/instance as the elements in the ELSET.";

inp_Keyword Cylinder(const char* name) { return Make(inp_kwSurface, {{"type", "CYLINDER"}, {"name", name}}); }

}  // namespace

TEST(PartInventory, KindsOfAPartDoNotMix) {
    struct Case {
        std::vector<const char*> types;
        int surfaces;
        std::vector<std::string> errors;
    };
    const Case cases[] = {
        {{"C3D8", "R3D4"}, 0, {kCombined}},
        {{"MASS", "C3D8"}, 0, {}},
        {{"SPRING1", "SPRING2", "SPRINGA", "ROTARYI", "HEATCAP", "R2D2"}, 0, {}},
        {{"CONN3D2", "RB3D2"}, 0, {kCombined}},  // a connector is deformable
        {{"RAX2"}, 1, {kCombined}},
        {{}, 2, {kOneSurface}},
        {{"C3D8"}, 2, {kCombined, kOneSurface}},
    };
    for (const Case& c : cases) {
        Model model;
        model.partElements.Insert("P", Elements(c.types));
        std::vector<inp_Keyword> body;
        const char* names[] = {"S1", "S2"};
        for (int i = 0; i < c.surfaces; ++i) body.push_back(Cylinder(names[i]));
        EXPECT_EQ(Walk(model, Deck(body)).errors, c.errors) << c.types.size() << " types, " << c.surfaces;
    }
}

TEST(PartInventory, PartLevelRigidBodyTakesAllButMassLikeElements) {
    struct Case {
        const char* elset;
        std::vector<int> ids;
        bool partial;
    };
    const Case cases[] = {
        {"BODY", {1, 2}, false},        // leaves out only the MASS and ROTARYI elements
        {"BODY", {1, 3, 4}, true},      // leaves out a C3D8
        {"BODY", {}, true},
        {"OTHER", {1}, false},  // a set the part does not hold is not this rule's business
    };
    for (const Case& c : cases) {
        Model model;
        model.partElements.Insert("P", Elements({"C3D8", "C3D8", "MASS", "ROTARYI"}));
        model.partSets.InsertNestedSet("P", "BODY", *Set(c.ids));
        Findings f = Walk(model, Deck({Make(inp_kwRigidBody, {{"refnode", "1"}, {"elset", c.elset}})}));
        EXPECT_EQ(f.errors, c.partial ? std::vector<std::string>{kPartialRigidBody} : std::vector<std::string>{})
            << c.ids.size();
    }
}

TEST(PartInventory, RigidSurfaceNeedsRigidElementsOfItsOwnScope) {
    Model model;
    model.partElements.Insert("P", Elements({"IRS21A", "C3D8", "DRAG2D"}));
    model.partSets.InsertNestedSet("P", "RIGID", *Set({1, 3}));
    model.partSets.InsertNestedSet("P", "MIXED", *Set({1, 2}));
    model.partSets.InsertNestedSet("P", "EMPTY", *Set({}));
    model.partSets.InsertNestedSet("P", "GHOST", *Set({1, 9}));
    model.partSets.InsertNestedSet("P", "BADFIRST", *Set({9, 2, 1}));
    model.assemblyElements.Insert("I", Elements({"IRS31"}, 5));
    model.assemblySets.InsertNestedSet("I", "RIGID", *Set({5}));
    model.assemblySets.InsertNestedSet("I", "WRONG", *Set({6}));

    auto Rigid = [](const char* elset, const char* type = "SEGMENTS") {
        inp_test::Params params;
        if (elset) params.push_back({"elset", elset});
        if (type) params.push_back({"type", type});
        return Make(inp_kwRigidSurface, params);
    };
    const std::string notInPart = "The elset NOPE, which is referenced by a *RIGID SURFACE, is not defined in part: P";
    struct Case {
        std::vector<inp_Keyword> part, instance, assembly;
        std::vector<std::string> errors;
    };
    const Case cases[] = {
        {{Rigid("RIGID")}, {Rigid("RIGID")}, {}, {}},
        {{Rigid("MIXED")}, {}, {}, {kRules}},
        {{Rigid("RIGID", nullptr), Rigid(nullptr)}, {}, {}, {kRules, kRules}},
        {{}, {}, {Rigid("RIGID")}, {kRules}},
        {{Rigid("NOPE")}, {}, {}, {notInPart}},
        {{}, {Rigid("NOPE")}, {}, {"The elset NOPE, which is referenced by a *RIGID SURFACE, is not defined in instance: I"}},
        {{Rigid("EMPTY")},
         {},
         {},
         {"The elset EMPTY, which is referenced by a *RIGID SURFACE, is empty. This is detected during the processing "
          "of part P"}},
        // In the order of the set, and the first bad element ends the check: 9 is not reached.
        {{Rigid("BADFIRST")}, {}, {}, {kRules}},
        {{Rigid("GHOST")},
         {Rigid("WRONG")},
         {},
         {"Unknown element ID 9 is detected in the elset referenced by the *RIGID SURFACE option. This takes place "
          "during the processing of part P",
          "Unknown element ID 6 is detected in the elset referenced by the *RIGID SURFACE option. This takes place "
          "during the processing of part I"}},
    };
    for (const Case& c : cases) EXPECT_EQ(Walk(model, Deck(c.part, c.instance, c.assembly)).errors, c.errors);
}

TEST(PartInventory, BlocksThatStayOpenAreListedByTheLastNameTaken) {
    Model model;
    inp_PartInventoryVisitor visitor(model.partElements, model.assemblyElements, model.partSets, model.assemblySets);
    cow_1DArrayList<inp_Keyword> list;
    list.Append(With(Make(inp_kwPart, {{"name", "P"}}), {Make(inp_kwNode), Make(inp_kwNset), Make(inp_kwElgen)}));
    list.Append(Make(inp_kwEndPart));
    list.Append(Make(inp_kwPart, {{"name", "Q"}}));
    list.Append(Make(inp_kwNode));
    list.Append(Make(inp_kwPart));  // no name: Q stands for it
    list.Append(Make(inp_kwMaterial));
    list.Append(Make(inp_kwPart, {{"name", "R"}}));  // the last keyword has no follower to tell
    cow_Btree<cow_String, int> counts = visitor.CheckClosing(list, inp_kwPart, inp_kwEndPart, "PART", "END PART");
    EXPECT_EQ(ToVector(visitor.errors),
              std::vector<std::string>{"The following *PART keywords are missing their closing END PART keywords\nQ, Q"});
    ASSERT_EQ(counts.Count(), 3);
    EXPECT_EQ(counts.ConstGet("P"), 2);
    EXPECT_EQ(counts.ConstGet("Q"), 0);
}
