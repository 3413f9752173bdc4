#include <gtest/gtest.h>

#include "gsl_Matrix.h"
#include "inpM_InstanceMap.h"
#include "inpM_TestLists.h"
#include "inp_ElementUndefinedNodesError.h"
#include "wip_WIP.h"

namespace {

using ElementTable = omi_IntTable<inp_Element>;
using ElementMap = inpM_InstanceMap<ElementTable>;

wip_WIP& Sink() { return thr_ThreadSingleton<wip_WIP>::Instance(); }

inp_Element Element(std::initializer_list<int> nodes) { return inp_Element(cow_String("C3D8"), List(nodes), 0, 0, 0); }

std::vector<int> Connectivity(const inp_Element& e) { return std::vector<int>(e.nodes, e.nodes + e.numNodes); }

// Element id to its first node: enough to follow a record through renumbering.
std::vector<std::pair<int, int>> FirstNodes(const ElementTable& table) {
    std::vector<std::pair<int, int>> v;
    omi_IntTableIterator<inp_Element> it(table);
    for (it.First(); !it.IsDone(); it.Next()) v.emplace_back(it.CurrentKey(), it.CurrentValue().nodes[0]);
    return v;
}

ElementTable TableOf(std::initializer_list<int> ids) {
    ElementTable table;
    for (int id : ids) table.Insert(id, Element({id}));
    return table;
}

}  // namespace

TEST(InstanceMap, LevelsAreMadeOnlyByInsertAndListedInByteOrder) {
    inpM_InstanceMap<cow_String> toPart;
    EXPECT_FALSE(toPart.IsMember(cow_String("Pump-1")));
    EXPECT_EQ(toPart.instances, nullptr);  // asking made nothing
    EXPECT_TRUE(toPart.Instances().IsEmpty());
    EXPECT_FALSE(toPart.item.HasValue());
    EXPECT_EQ(toPart.ConstGet(), cow_String());  // no payload reads as empty

    for (const char* name : {"pump-1", "Valve-1", "Pump-1", "PUMP-10"}) toPart.Insert(cow_String(name), cow_String("P"));
    EXPECT_EQ(Names(toPart.Instances()), (std::vector<std::string>{"PUMP-10", "Pump-1", "Valve-1", "pump-1"}));
    toPart.Insert(cow_String("Pump-1"), cow_String("PUMP"));  // the payload of an existing level is replaced
    EXPECT_EQ(toPart.ConstGet(cow_String("Pump-1")), cow_String("PUMP"));
    EXPECT_EQ(toPart.instances->Count(), 4);
    EXPECT_FALSE(toPart.IsMember(cow_String("pump-10")));
}

TEST(InstanceMap, CopiesShareThePayloadUntilWritten) {
    inpM_InstanceMap<gsl_Matrix> transforms((gsl_Matrix()));
    gsl_Matrix shifted;
    shifted.SetTranslation(gsl_Vector(1.0, 2.0, 3.0));
    transforms.Insert(cow_String("I"), shifted);

    inpM_InstanceMap<gsl_Matrix> copy(transforms);
    EXPECT_EQ(copy.item, transforms.item);
    EXPECT_EQ(&copy.ConstGet(cow_String("I")), &transforms.ConstGet(cow_String("I")));
    copy.Get(cow_String("I")).FillIdentity();
    EXPECT_TRUE(copy.ConstGet(cow_String("I")).IsIdentity());
    EXPECT_FALSE(transforms.ConstGet(cow_String("I")).IsIdentity());

    inpM_InstanceMap<gsl_Matrix> assigned;
    assigned = transforms;
    assigned.Insert(cow_String("J"), shifted);  // a level of the copy only
    EXPECT_FALSE(transforms.IsMember(cow_String("J")));
    inpM_InstanceMap<gsl_Matrix>& alias = assigned;
    assigned = alias;  // self-assignment keeps the levels
    EXPECT_EQ(Names(assigned.Instances()), (std::vector<std::string>{"I", "J"}));
}

TEST(InstanceMap, WritingALevelWithoutPayloadIsAnInternalError) {
    Sink().Clear();
    ElementMap elements;
    try {
        elements.Get();
        FAIL() << "no assertion";
    } catch (const nex_AssertException& e) {
        EXPECT_EQ(e.Condition(), cow_String("item.HasValue()"));
        EXPECT_STREQ(e.SourceFile(), "inpM_InstanceMap");
    }
    EXPECT_EQ(Sink().Count(), 0);

    // An unknown name is reported first, then the write is refused.
    try {
        elements.Get(cow_String("Pump-1"));
        FAIL() << "no assertion";
    } catch (const nex_AssertException& e) {
        EXPECT_EQ(e.Condition(), cow_String("GetMap(instanceName).item.HasValue()"));
    }
    ASSERT_EQ(Sink().Count(), 1);
    EXPECT_EQ(Sink().Record(0).text, atr_String("Unknown instance Pump-1"));
    EXPECT_EQ(Sink().Record(0).level, 0);

    // Reads of an unknown name report the same way and find nothing.
    elements.Insert(cow_String("A"), TableOf({1}));
    EXPECT_EQ(elements.ConstGet(cow_String("B")).Count(), 0);
    ASSERT_EQ(Sink().Count(), 2);
    EXPECT_EQ(Sink().Record(1).text, atr_String("Unknown instance B"));
    EXPECT_EQ(elements.ConstGet(cow_String("A")).Count(), 1);
    EXPECT_EQ(Sink().Count(), 2);
    Sink().Clear();
}

TEST(InstanceMap, ElementRenumberingFollowsScopeAndIdOrder) {
    ElementMap elements(TableOf({7, 3}));
    elements.Insert(cow_String("b"), TableOf({999999999, 1}));
    elements.Insert(cow_String("a"), TableOf({2}));
    ElementMap before(elements);

    // The ids alone come out the same and leave every table shared as it was.
    const inpM_IdMap only = before.RenumberedIds(1);
    inpM_IdMap ids = elements.Renumber(1, false);
    EXPECT_EQ(Pairs(only), Pairs(ids));
    for (const char* scope : {"a", "b"})
        EXPECT_EQ(Pairs(only.ConstGet(cow_String(scope))), Pairs(ids.ConstGet(cow_String(scope)))) << scope;
    EXPECT_EQ(FirstNodes(before.ConstGet()), (IdPairs{{3, 3}, {7, 7}}));
    EXPECT_EQ(Pairs(ids), (IdPairs{{3, 1}, {7, 2}}));
    EXPECT_EQ(Pairs(ids.ConstGet(cow_String("a"))), (IdPairs{{2, 3}}));
    EXPECT_EQ(Pairs(ids.ConstGet(cow_String("b"))), (IdPairs{{1, 4}, {999999999, 5}}));
    // The records moved with their ids: the first node tells the old id.
    EXPECT_EQ(FirstNodes(elements.ConstGet()), (IdPairs{{1, 3}, {2, 7}}));
    EXPECT_EQ(FirstNodes(elements.ConstGet(cow_String("b"))), (IdPairs{{4, 1}, {5, 999999999}}));
    // A copy taken before keeps the deck's ids.
    EXPECT_EQ(FirstNodes(before.ConstGet(cow_String("b"))), (IdPairs{{1, 1}, {999999999, 999999999}}));

    // A negative start fills the negative half first.
    ElementMap negative(TableOf({5, 6, 7}));
    EXPECT_EQ(Pairs(negative.Renumber(-1, false)), (IdPairs{{5, -1}, {6, 0}, {7, 1}}));
    EXPECT_EQ(FirstNodes(negative.ConstGet()), (IdPairs{{-1, 5}, {0, 6}, {1, 7}}));

    // With keep nothing moves and the tables stay shared.
    ElementMap kept(before);
    inpM_IdMap same = kept.Renumber(100, true);
    EXPECT_EQ(Pairs(same.ConstGet(cow_String("b"))), (IdPairs{{1, 1}, {999999999, 999999999}}));
    EXPECT_EQ(kept.item, before.item);
}

TEST(InstanceMap, TwoInstancesShareOneTableAndSeparateOnRenumbering) {
    ElementTable part = TableOf({10, 11});
    ElementMap assembly((ElementTable()));
    assembly.Insert(cow_String("I1"), part);
    assembly.Insert(cow_String("I2"), part);
    ElementMap::Payload shared = assembly.GetMap(cow_String("I1")).item;
    assembly.GetMap(cow_String("I2")).item = shared;  // as the pass of *INSTANCE shares a part's table
    EXPECT_EQ(&assembly.ConstGet(cow_String("I1")), &assembly.ConstGet(cow_String("I2")));

    inpM_IdMap ids = assembly.Renumber(1, false);
    EXPECT_EQ(Pairs(ids.ConstGet(cow_String("I1"))), (IdPairs{{10, 1}, {11, 2}}));
    EXPECT_EQ(Pairs(ids.ConstGet(cow_String("I2"))), (IdPairs{{10, 3}, {11, 4}}));
    EXPECT_EQ(FirstNodes(assembly.ConstGet(cow_String("I2"))), (IdPairs{{3, 10}, {4, 11}}));
}

TEST(InstanceMap, UpdateRewritesConnectivityScopeByScope) {
    ElementMap elements((ElementTable()));
    elements.Get().Insert(1, Element({10, 0, 20}));  // 0 is an open position, not a node
    elements.Insert(cow_String("I"), ElementTable());
    elements.Get(cow_String("I")).Insert(-4, Element({5, 6}));

    inpM_IdMap nodes;
    nodes.Insert(10, 1);
    nodes.Insert(20, 2);
    inpM_IdMap instanceNodes;
    instanceNodes.Insert(5, 3);
    instanceNodes.Insert(6, 4);
    nodes.InsertInstance(cow_String("I"), instanceNodes);

    ElementMap before(elements);
    elements.Update(nodes);
    EXPECT_EQ(Connectivity(elements.ConstGet().ConstGet(1)), (std::vector<int>{1, 0, 2}));
    EXPECT_EQ(Connectivity(elements.ConstGet(cow_String("I")).ConstGet(-4)), (std::vector<int>{3, 4}));
    EXPECT_EQ(Connectivity(before.ConstGet().ConstGet(1)), (std::vector<int>{10, 0, 20}));
}

TEST(InstanceMap, UpdateStopsAtTheHundredthElementWithUndefinedNodes) {
    ElementMap elements((ElementTable()));
    for (int id = 1; id <= 300; ++id) elements.Get().Insert(id, Element({id % 2 ? 7 : 8}));
    inpM_IdMap nodes;
    nodes.Insert(7, 1);  // odd elements are fine, even ones name node 8

    ElementMap before(elements);
    try {
        elements.Update(nodes);
        FAIL() << "no error";
    } catch (const inp_ElementUndefinedNodesError& e) {
        std::vector<int> expected;
        for (int id = 2; id <= 200; id += 2) expected.push_back(id);
        EXPECT_EQ(Ints(e.ids), expected);
        EXPECT_STREQ(e.SourceFile(), "inp_Element");
        cow_String text(e.UserReport());
        EXPECT_TRUE(text.StartsWith("The following elements reference one or more nodes that do not exist\n2, 4, 6,"));
        EXPECT_TRUE(text.EndsWith(", 198, 200"));
    }
    EXPECT_EQ(elements.item, before.item);  // the table stays as it was
}

TEST(Element, CopiesOwnTheirConnectivity) {
    inp_Element a(cow_String("C3D8R"), List({1, 2, 3}), 2, 1000, 1);
    EXPECT_EQ(a.type, cow_String("C3D8R"));
    EXPECT_EQ(a.numNodes, 3);
    EXPECT_EQ(a.bottomNodes, 2);
    EXPECT_EQ(a.offset, 1000);
    EXPECT_EQ(a.solidElementNumbering, 1);

    inp_Element b(a);
    EXPECT_NE(b.nodes, a.nodes);
    b.nodes[0] = 99;
    EXPECT_EQ(a.nodes[0], 1);

    // Assignment keeps the array when the count matches and reallocates otherwise.
    inp_Element c(cow_String("B31"), List({7, 8, 9}), 0, 0, 0);
    int* kept = c.nodes;
    c = b;
    EXPECT_EQ(c.nodes, kept);
    EXPECT_EQ(Connectivity(c), (std::vector<int>{99, 2, 3}));
    EXPECT_EQ(c.type, cow_String("C3D8R"));
    c = inp_Element(cow_String("B31"), List({4, 5}), 0, 0, 0);
    EXPECT_EQ(Connectivity(c), (std::vector<int>{4, 5}));
    inp_Element& same = c;
    c = same;
    EXPECT_EQ(Connectivity(c), (std::vector<int>{4, 5}));

    inp_Element empty;
    EXPECT_EQ(empty.nodes, nullptr);
    EXPECT_EQ(empty.numNodes, 0);
    empty = a;
    EXPECT_EQ(Connectivity(empty), (std::vector<int>{1, 2, 3}));
}
