#include <gtest/gtest.h>

#include "../support/inp_TestFiles.h"

#include <string>
#include <vector>

#include "inp_FakePartSetAssignVisitor.h"

namespace {

using inp_test::Make;
using inp_test::MakeWithData;
using inp_test::Printed;
using inp_test::ToVector;
using Strings = std::vector<std::string>;
using Ids = std::vector<int>;

const cow_String kFake("FAKE");

cow_1DArrayList<int> IdList(const Ids& ids) {
    cow_1DArrayList<int> list;
    for (int id : ids) list.Append(id);
    return list;
}

Ids Range(int from, int to) {
    Ids ids;
    for (int id = from; id <= to; ++id) ids.push_back(id);
    return ids;
}

// The flat model as the conversion leaves it: sets under "FAKE", mesh by part.
struct FlatModel {
    inpM_SetMap nodeSets, elementSets;
    inp_CoordMap coordinates;
    inpM_ElementMap elements;
    inp_ModelParameters parameters;

    FlatModel() {
        Nodes("PART-1", Range(1, 40));
        Nodes("DIE", {100, 101});
        Elements("PART-1", {1, 2, 3, -4});
        Elements("DIE", {10});
        NodeSet("TOP", Range(1, 20));
        ElementSet("BODY", {1, 2, 3, -4});
    }
    void Nodes(const char* part, const Ids& ids) {
        inp_CoordMap* map = new inp_CoordMap();
        for (int id : ids) map->Insert(id, inp_Coord());
        coordinates.instances.Insert(cow_String(part), inp_CoordMap::Handle(map));
    }
    void Elements(const char* part, const Ids& ids) {
        omi_IntTable<inp_Element> table;
        for (int id : ids) table.Insert(id, inp_Element());
        elements.Insert(cow_String(part), table);
    }
    void NodeSet(const char* name, const Ids& ids, bool unsorted = false) {
        nodeSets.InsertNestedSet(kFake, cow_String(name), CreateSet(IdList(ids), false, unsorted).ConstGet());
    }
    void ElementSet(const char* name, const Ids& ids) {
        elementSets.InsertNestedSet(kFake, cow_String(name), CreateSet(IdList(ids), false, false).ConstGet());
    }
    inp_FakePartSetAssignVisitor Full() const {
        return inp_FakePartSetAssignVisitor(nodeSets, elementSets, coordinates, elements, parameters);
    }
};

// A converted deck: the keywords of PART-1 and of DIE inside their parts, the given
// step keywords after the assembly.
cow_1DArrayList<inp_Keyword> Converted(const std::vector<inp_Keyword>& part1, const std::vector<inp_Keyword>& die,
                                       const std::vector<inp_Keyword>& step = {}) {
    cow_1DArrayList<inp_Keyword> list;
    list.Append(Make(inp_kwPart, {{"name", "PART-1"}}));
    for (const inp_Keyword& k : part1) list.Append(k);
    list.Append(Make(inp_kwEndPart));
    list.Append(Make(inp_kwPart, {{"name", "DIE"}}));
    for (const inp_Keyword& k : die) list.Append(k);
    list.Append(Make(inp_kwEndPart));
    list.Append(Make(inp_kwAssembly, {{"name", "Assembly-1"}}));
    list.Append(Make(inp_kwInstance, {{"name", "PART-1-1"}}));
    list.Append(Make(inp_kwEndInstance));
    list.Append(Make(inp_kwEndAssembly));
    if (!step.empty()) {
        list.Append(Make(inp_kwStep, {{"name", "S1"}}));
        for (const inp_Keyword& k : step) list.Append(k);
        list.Append(Make(inp_kwEndStep));
    }
    return list;
}

Strings Noted(const cow_Map<cow_String, cow_List<cow_String>>& map, const char* part) {
    Strings out;
    if (const cow_List<cow_String>* names = map.Lookup(cow_String(part)))
        for (int i = 0; i < names->Count(); ++i) out.push_back(names->ConstGet(i).c_str());
    return out;
}

Ids Members(const inpM_SetMap& sets, const char* part, const char* name) {
    Ids out;
    if (!sets.HasNestedSet(cow_String(part), cow_String(name))) return out;
    cow_1DArrayList<int> ids = sets.ConstGetNestedSet(cow_String(part), cow_String(name)).ConstGetIds();
    for (int i = 0; i < ids.Count(); ++i) out.push_back(ids[i]);
    return out;
}

// One line per keyword: its name and the parameters that name things.
Strings Heads(const cow_1DArrayList<inp_Keyword>& list) {
    Strings heads;
    for (int i = 0; i < list.Count(); ++i) {
        std::string head = list[i].Name().c_str();
        for (const char* p : {"name", "nset", "elset"})
            if (list[i].HasParameter(cow_String(p))) head += std::string(" ") + p + "=" + inp_test::Value(list[i], p);
        heads.push_back(head);
    }
    return heads;
}

std::string NotedText(const cow_Map<cow_String, cow_List<cow_String>>& map) {
    std::string text;
    for (const char* part : {"PART-1", "DIE"})
        for (const std::string& name : Noted(map, part)) text += std::string(part) + ":" + name;
    return text;
}

}  // namespace

// A set that a part uses moves into that part, its keyword right behind the *PART; a
// set that no part uses is written at assembly level with members scoped by the
// instance that holds them, sixteen to a line.
TEST(FakePartSetAssign, PartSetsAndAssemblySets) {
    FlatModel model;
    model.NodeSet("LOOSE", {5, 999, 500, 101});
    model.NodeSet("EMPTY", {});
    inp_FakePartSetAssignVisitor v = model.Full();
    inpM_IdMap old;
    old.Insert(500, 7);
    v.inheritedNodeIds.InsertInstance(cow_String("OLD-1"), old);

    cow_1DArrayList<inp_Keyword> list =
        Converted({Make(inp_kwSolidSection, {{"elset", "BODY"}})}, {},
                  {MakeWithData(inp_kwBoundary, {}, {"TOP, 1", "LOOSE, 2"})});
    v.VisitList(list);
    EXPECT_EQ(v.pass, inp_AnySet);
    EXPECT_EQ(Noted(v.elementSetsOfParts, "PART-1"), Strings{"BODY"});
    EXPECT_TRUE(v.nodeSetsOfParts.IsEmpty());
    v.FinishAssignment(list);

    EXPECT_EQ(Printed(list),
              "*part, name=PART-1\n"
              "*elset, elset=BODY\n-4, 1, 2, 3\n"
              "*solidsection, elset=BODY\n"
              "*endpart\n*part, name=DIE\n*endpart\n*assembly, name=Assembly-1\n*instance, name=PART-1-1\n"
              "*endinstance\n"
              "*nset, nset=LOOSE\nPART-1-1.5, DIE-1.101, OLD-1.500, 999\n"
              "*nset, nset=TOP\n"
              "PART-1-1.1, PART-1-1.2, PART-1-1.3, PART-1-1.4, PART-1-1.5, PART-1-1.6, PART-1-1.7, PART-1-1.8, "
              "PART-1-1.9, PART-1-1.10, PART-1-1.11, PART-1-1.12, PART-1-1.13, PART-1-1.14, PART-1-1.15, "
              "PART-1-1.16\n"
              "PART-1-1.17, PART-1-1.18, PART-1-1.19, PART-1-1.20\n"
              "*endassembly\n*step, name=S1\n*boundary\nTOP, 1\nLOOSE, 2\n*endstep\n");
    EXPECT_EQ(Members(v.partElementSets, "PART-1", "BODY"), (Ids{-4, 1, 2, 3}));
    EXPECT_TRUE(v.partNodeSets.IsEmpty());
    EXPECT_TRUE(v.errors.IsEmpty() && v.warnings.IsEmpty());
}

// An unsorted set keeps its order and says so; a member too long to share a line
// with another gets a line of its own.
TEST(FakePartSetAssign, UnsortedSetsAndLongMembers) {
    FlatModel model;
    model.NodeSet("ORDER", {7, 3, 7}, true);
    model.NodeSet("FAR", {600, 601, 5});
    inp_FakePartSetAssignVisitor v = model.Full();
    const std::string longName(200, 'L');
    inpM_IdMap old;
    old.Insert(600, 1);
    old.Insert(601, 2);
    v.inheritedNodeIds.InsertInstance(cow_String(longName.c_str()), old);

    cow_1DArrayList<inp_Keyword> list =
        Converted({MakeWithData(inp_kwNodalThickness, {}, {"ORDER, 1.0"})}, {},
                  {MakeWithData(inp_kwBoundary, {}, {"FAR, 1"})});
    v.VisitList(list);
    v.FinishAssignment(list);
    const inp_Keyword& order = list[1];
    EXPECT_EQ(inp_test::Value(order, "nset"), "ORDER");
    EXPECT_TRUE(order.HasParameter(cow_String("unsorted")));
    ASSERT_EQ(order.data.NumberOfLines(), 1);
    EXPECT_EQ(std::string(order.data.AsString(0, 0).c_str()) + order.data.AsString(0, 1).c_str() +
                  order.data.AsString(0, 2).c_str(),
              "737");
    EXPECT_EQ(Members(v.partNodeSets, "PART-1", "ORDER"), (Ids{7, 3, 7}));

    int far = -1;
    for (int i = 0; i < list.Count(); ++i)
        if (list[i].keyword == inp_kwNset && inp_test::Value(list[i], "nset") == "FAR") far = i;
    ASSERT_GE(far, 0);
    const inp_DataArray& data = list[far].data;
    ASSERT_EQ(data.NumberOfLines(), 2);
    EXPECT_EQ(std::string(data.AsString(0, 0).c_str()), "PART-1-1.5");
    EXPECT_EQ(std::string(data.AsString(0, 1).c_str()), longName + ".600");
    EXPECT_EQ(data.NumberOfItems(0), 2);
    EXPECT_EQ(std::string(data.AsString(1, 0).c_str()), longName + ".601");
}

// What a reference inside a part leads to: a note, nothing, or one message, which is a
// warning only for an undefined set under a section.
TEST(FakePartSetAssign, ReferencesInsidePartsAndTheirMessages) {
    FlatModel model;
    model.NodeSet("DIESET", {100});
    model.NodeSet("SPLIT", {5, 100});
    const std::string assign = "\" and should be assigned to this part.";
    struct Case {
        bool inDie;
        inp_Keyword keyword;
        std::string error, warning, notedNode, notedElement;
    };
    const std::vector<Case> cases = {
        {false, MakeWithData(inp_kwNodalThickness, {}, {"100, 1.0"}),
         "The node: \"100\" is referenced in part: \"PART-1" + assign +
             " It is assigned to the following parts: \"DIE\".",
         "", "", ""},
        {false, MakeWithData(inp_kwRelease, {}, {"10, S1, M1"}),
         "The element: \"10\" is referenced in part: \"PART-1" + assign +
             "It is assigned to the following parts: \"DIE\".",
         "", "", ""},
        {false, MakeWithData(inp_kwNodalThickness, {}, {"SPLIT, 1.0"}),
         "The nset: \"SPLIT\" is referenced in part: \"PART-1" + assign +
             " It is assigned to the following parts: \"DIE\", \"PART-1\".",
         "", "", ""},
        {false, MakeWithData(inp_kwRelease, {}, {"NOSUCH, S1, M1"}),
         "The elset: \"NOSUCH\" is referenced in part: \"PART-1" + assign + " The set appears to be undefined.", "",
         "", ""},
        {true, MakeWithData(inp_kwNodalThickness, {}, {"777, 1.0"}),
         "The node: \"777\" is referenced in part: \"DIE" + assign + " The set appears to be undefined.", "", "", ""},
        {false, Make(inp_kwShellSection, {{"elset", "NOSUCH"}}), "",
         "The elset: \"NOSUCH\" is referenced in part: \"PART-1" + assign + " The set appears to be undefined.", "",
         ""},
        {false, Make(inp_kwSolidSection, {{"refnode", "NOSET"}}), "",
         "The nset: \"NOSET\" is referenced in part: \"PART-1" + assign + " The set appears to be undefined.", "",
         ""},
        // Held by the part itself, or a name that one part holds: no message.
        {false, MakeWithData(inp_kwNodalThickness, {}, {"5, 1.0"}), "", "", "", ""},
        {false, MakeWithData(inp_kwRelease, {}, {"-4, S1, M1"}), "", "", "", ""},
        {false, MakeWithData(inp_kwNodalThickness, {}, {"DIESET, 1.0"}), "", "", "PART-1:DIESET", ""},
        {true, MakeWithData(inp_kwRelease, {}, {"BODY, S1, M1"}), "", "", "", "DIE:BODY"},
        {false, MakeWithData(inp_kwPressurePenetration, {}, {"TOP, , 3"}), "", "", "PART-1:TOP", ""},
    };
    for (const Case& c : cases) {
        inp_FakePartSetAssignVisitor v = model.Full();
        cow_1DArrayList<inp_Keyword> list =
            c.inDie ? Converted({}, {c.keyword}) : Converted({c.keyword}, {});
        v.VisitList(list);
        const std::string label = Printed(c.keyword);
        EXPECT_EQ(ToVector(v.errors), c.error.empty() ? Strings{} : Strings{c.error}) << label;
        EXPECT_EQ(ToVector(v.warnings), c.warning.empty() ? Strings{} : Strings{c.warning}) << label;
        EXPECT_EQ(NotedText(v.nodeSetsOfParts), c.notedNode) << label;
        EXPECT_EQ(NotedText(v.elementSetsOfParts), c.notedElement) << label;
        EXPECT_EQ(v.undefinedSetIsWarning, false) << label;
    }

    // Outside the parts nothing is looked at.
    inp_FakePartSetAssignVisitor v = model.Full();
    cow_1DArrayList<inp_Keyword> list = Converted({}, {}, {MakeWithData(inp_kwBoundary, {}, {"777, 1", "NOSUCH, 1"})});
    v.VisitList(list);
    EXPECT_TRUE(v.errors.IsEmpty() && v.nodeSetsOfParts.IsEmpty());
}

// With a model generated by symmetry ids prove nothing and every name used in a part
// is the part's; its *NSET, ELSET keywords follow the set into the part.
TEST(FakePartSetAssign, SymmetricModelGeneration) {
    FlatModel model;
    model.parameters.hasSymmetricModelGeneration = true;
    model.NodeSet("SPLIT", {5, 100});
    inp_FakePartSetAssignVisitor v = model.Full();
    cow_1DArrayList<inp_Keyword> list =
        Converted({MakeWithData(inp_kwNodalThickness, {}, {"777, 1.0", "SPLIT, 1.0", "NOSET, 1.0"})}, {});
    const int end = list.Count() - 1;
    list.Insert(end, Make(inp_kwNset, {{"nset", "SPLIT"}, {"elset", "BODY"}}));
    list.Insert(end + 1, Make(inp_kwNset, {{"nset", "NOSET"}, {"elset", "BODY"}}));
    list.Insert(end + 2, Make(inp_kwNset, {{"nset", "OTHER"}, {"elset", "BODY"}}));
    v.VisitList(list);
    EXPECT_TRUE(v.errors.IsEmpty());
    EXPECT_EQ(Noted(v.nodeSetsOfParts, "PART-1"), (Strings{"SPLIT", "NOSET"}));
    v.FinishAssignment(list);

    EXPECT_EQ(Heads(list), (Strings{"part name=PART-1", "nset nset=NOSET elset=BODY", "nset nset=SPLIT elset=BODY",
                              "nset nset=SPLIT", "nodalthickness", "endpart", "part name=DIE", "endpart",
                              "assembly name=Assembly-1", "instance name=PART-1-1", "endinstance",
                              "nset nset=OTHER elset=BODY", "nset nset=TOP", "elset elset=BODY",
                                    "endassembly"}));
    EXPECT_EQ(Members(v.partNodeSets, "PART-1", "SPLIT"), (Ids{5, 100}));
    EXPECT_FALSE(v.partNodeSets.HasNestedSet(cow_String("PART-1"), cow_String("NOSET")));
}

// The reference node of a rigid surface belongs to the surface's part; one that
// another part holds is not reported, and its set goes to that part.
TEST(FakePartSetAssign, RigidSurfaceReferenceNodes) {
    FlatModel model;
    model.NodeSet("DIESET", {100});
    model.NodeSet("SPLIT", {5, 100});
    struct Case {
        const char* refnode;
        std::string notedNode, notedElement, error;
    };
    const std::vector<Case> cases = {
        {"100", "", "DIE:BODY", ""},
        {"DIESET", "DIE:DIESET", "DIE:BODY", ""},
        {"5", "", "DIE:BODY", ""},
        {"TOP", "PART-1:TOP", "DIE:BODY", ""},
        {"SPLIT", "", "DIE:BODY", ""},
        {"NOREF", "", "",
         inp_test::In("RIGIDSURFACE", "The reference node or node set, \"NOREF\", specified by the parameter REF "
                                      "NODE is not assigned to any part.")},
        {nullptr, "", "DIE:BODY", ""},
    };
    for (const Case& c : cases) {
        inp_FakePartSetAssignVisitor v = model.Full();
        inp_test::Params params = {{"type", "CYLINDER"}, {"elset", "BODY"}};
        if (c.refnode) params.push_back({"refnode", c.refnode});
        cow_1DArrayList<inp_Keyword> list = Converted({}, {Make(inp_kwRigidSurface, params)});
        v.VisitList(list);
        const std::string label = c.refnode ? c.refnode : "<none>";
        EXPECT_EQ(NotedText(v.nodeSetsOfParts), c.notedNode) << label;
        EXPECT_EQ(NotedText(v.elementSetsOfParts), c.notedElement) << label;
        EXPECT_EQ(ToVector(v.errors), c.error.empty() ? Strings{} : Strings{c.error}) << label;
    }
}

// The simple route walks nothing and gives every set to PART-1.
TEST(FakePartSetAssign, SimpleRouteGivesEverySetToPart1) {
    FlatModel model;
    model.parameters.hasSymmetricModelGeneration = true;
    model.NodeSet("SHORT", {3, 1, 2});
    inp_SimpleFakeAssignVisitor v(model.nodeSets, model.elementSets, model.coordinates, model.elements,
                                  model.parameters);
    cow_1DArrayList<inp_Keyword> list = Converted({Make(inp_kwShellSection, {{"elset", "NOSUCH"}})}, {});
    list.Insert(list.Count() - 1, Make(inp_kwNset, {{"nset", "SHORT"}, {"elset", "BODY"}}));
    v.VisitList(list);
    EXPECT_TRUE(v.warnings.IsEmpty() && v.nodeSetsOfParts.IsEmpty());
    v.FinishAssignment(list);

    EXPECT_EQ(Heads(list), (Strings{"part name=PART-1", "nset nset=SHORT elset=BODY", "elset elset=BODY",
                                    "nset nset=SHORT", "nset nset=TOP", "shellsection elset=NOSUCH", "endpart",
                                    "part name=DIE", "endpart", "assembly name=Assembly-1",
                                    "instance name=PART-1-1", "endinstance", "endassembly"}));
    EXPECT_EQ(Printed(list.Slice(3, 5)), "*nset, nset=SHORT\n1, 2, 3\n*nset, nset=TOP\n"
                                         "1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16\n17, 18, 19, 20\n");
    EXPECT_EQ(Members(v.partNodeSets, "PART-1", "TOP"), Range(1, 20));
    EXPECT_EQ(Members(v.partElementSets, "PART-1", "BODY"), (Ids{-4, 1, 2, 3}));
    EXPECT_FALSE(v.partNodeSets.instances.IsMember(kFake));
    EXPECT_EQ(Members(v.nodeSets, "FAKE", "SHORT"), (Ids{1, 2, 3}));  // the flat map is a copy
}
