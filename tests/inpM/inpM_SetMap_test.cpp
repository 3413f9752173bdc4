#include <gtest/gtest.h>

#include "inpM_IdMap.h"
#include "inpM_SetMap.h"
#include "inpM_TestLists.h"

namespace {

cow_String S(const char* s) { return cow_String(s); }

inpM_IdMap IdsOf(std::initializer_list<std::pair<int, int>> pairs) {
    inpM_IdMap map;
    for (const auto& p : pairs) map.Insert(p.first, p.second);
    return map;
}

// An assembly set with plain ids and members of two instances.
inpM_SetHandle AssemblySet(bool unsorted) {
    inpM_SetHandle set = CreateSet(List({9, 3, 3, 1}), false, unsorted);
    set.Get().Add(S("Pump-1"), List({12, 11}));
    set.Get().Add(S("Axle-1"), 999999999);
    return set;
}

}  // namespace

TEST(Sets, SortedAndUnsortedSetsKeepTheirOrder) {
    inpM_SetHandle sorted = AssemblySet(false);
    inpM_SetHandle unsorted = AssemblySet(true);
    EXPECT_EQ(sorted->SetKind(), 4);
    EXPECT_EQ(unsorted->SetKind(), 0);
    EXPECT_FALSE(sorted->IsUnsorted());
    EXPECT_TRUE(unsorted->IsUnsorted());

    EXPECT_EQ(Ints(sorted->ConstGetTopLevelIds()), (std::vector<int>{1, 3, 9}));
    EXPECT_EQ(Ints(unsorted->ConstGetTopLevelIds()), (std::vector<int>{9, 3, 3, 1}));
    EXPECT_EQ(Ints(sorted->ConstGetIds()), (std::vector<int>{1, 3, 9, 11, 12, 999999999}));
    EXPECT_EQ(Ints(unsorted->ConstGetIds()), (std::vector<int>{9, 3, 3, 1, 999999999, 12, 11}));
    for (const inpM_SetHandle* set : {&sorted, &unsorted}) {
        EXPECT_EQ(Names((*set)->GatherRootLevelInstanceNames()), (std::vector<std::string>{"Axle-1", "Pump-1"}));
        EXPECT_TRUE((*set)->ConstGetSecondLevelIds(S("Valve-1")).IsEmpty());
        cow_Map<cow_String, cow_1DArrayList<int>> byInstance = (*set)->ConstGetInstanceIdsMap();
        EXPECT_EQ(byInstance.Count(), 2);
        EXPECT_EQ(Ints(byInstance.ConstGet(S("Axle-1"))), (std::vector<int>{999999999}));
    }
    EXPECT_EQ(Ints(sorted->ConstGetSecondLevelIds(S("Pump-1"))), (std::vector<int>{11, 12}));
    EXPECT_EQ(Ints(unsorted->ConstGetSecondLevelIds(S("Pump-1"))), (std::vector<int>{12, 11}));

    // The sorted equivalent of an unsorted set keeps its flag and scopes.
    inpM_SortedSet equivalent = CreateSet(List({5, 2}), true, true)->GetSortedSetEquivalent();
    EXPECT_TRUE(equivalent.IsInternal());
    EXPECT_EQ(Ints(equivalent.ConstGetIds()), (std::vector<int>{2, 5}));
    EXPECT_EQ(Ints(unsorted->GetSortedSetEquivalent().ConstGetIds()), Ints(sorted->ConstGetIds()));

    EXPECT_TRUE(sorted.Get().Remove(3));
    EXPECT_FALSE(sorted.Get().Remove(3));
    EXPECT_FALSE(sorted.Get().Remove(11));  // an instance's id is not a top-level id
    EXPECT_TRUE(unsorted.Get().Remove(3));
    EXPECT_EQ(Ints(unsorted->ConstGetTopLevelIds()), (std::vector<int>{9, 1}));
}

TEST(Sets, AddingSetsUnderInstancesAndScopeByScope) {
    inpM_SetHandle part = CreateSet(List({4, 2}), false, false);
    inpM_SetHandle assembly = CreateSet(false, false);
    EXPECT_TRUE(assembly->IsEmpty());
    assembly.Get().Add(S("I1"), part.ConstGet());
    assembly.Get().Add(S("I2"), part.ConstGet());
    assembly.Get().Add(7);
    EXPECT_EQ(Ints(assembly->ConstGetSecondLevelIds(S("I2"))), (std::vector<int>{2, 4}));

    // A set with instances added under an instance keeps those one level down.
    inpM_SetHandle outer = CreateSet(false, false);
    outer.Get().Add(S("Top"), assembly.ConstGet());
    EXPECT_EQ(Ints(outer->ConstGetSecondLevelIds(S("Top"))), (std::vector<int>{7}));
    EXPECT_EQ(Ints(outer->ConstGetIds()), (std::vector<int>{2, 4, 7}));

    // Union with an unsorted set, scope by scope; self-union changes nothing.
    inpM_SetHandle other = CreateSet(List({8, 1}), false, true);
    other.Get().Add(S("I1"), 9);
    assembly.Get().Add(other.ConstGet());
    assembly.Get().Add(assembly.ConstGet());
    EXPECT_EQ(Ints(assembly->ConstGetTopLevelIds()), (std::vector<int>{1, 7, 8}));
    EXPECT_EQ(Ints(assembly->ConstGetSecondLevelIds(S("I1"))), (std::vector<int>{2, 4, 9}));
    EXPECT_EQ(Ints(part->ConstGetIds()), (std::vector<int>{2, 4}));  // operands untouched
}

TEST(Sets, RenumberCleanupAndRenameWorkPerScope) {
    inpM_IdMap ids = IdsOf({{1, 101}, {9, 109}, {3, 103}});
    ids.InsertInstance(S("Pump-1"), IdsOf({{11, 3}, {12, 2}}));
    for (bool unsorted : {false, true}) {
        inpM_SetHandle set = AssemblySet(unsorted);
        inpM_SetHandle kept(set);
        set.Get().Renumber(ids, true);
        EXPECT_TRUE(set->renumbered);
        EXPECT_FALSE(kept->renumbered);
        EXPECT_EQ(Ints(set->ConstGetSecondLevelIds(S("Pump-1"))), (std::vector<int>{2, 3}));
        EXPECT_TRUE(set->ConstGetSecondLevelIds(S("Axle-1")).IsEmpty());  // no map for Axle-1: dropped
        EXPECT_EQ(Ints(set->ConstGetTopLevelIds()),
                  unsorted ? (std::vector<int>{109, 103, 103, 101}) : (std::vector<int>{101, 103, 109}));

        // Without dropping, ids without an entry stay as they are.
        inpM_SetHandle partial = AssemblySet(unsorted);
        partial.Get().Renumber(IdsOf({{1, 50}}), false);
        EXPECT_EQ(Ints(partial->ConstGetTopLevelIds()),
                  unsorted ? (std::vector<int>{9, 3, 3, 50}) : (std::vector<int>{3, 9, 50}));
        EXPECT_EQ(Ints(partial->ConstGetSecondLevelIds(S("Axle-1"))), (std::vector<int>{999999999}));

        inpM_SetHandle cleaned = AssemblySet(unsorted);
        cleaned.Get().Cleanup(ids);
        EXPECT_EQ(Ints(cleaned->ConstGetIds()),
                  unsorted ? (std::vector<int>{9, 3, 3, 1, 12, 11}) : (std::vector<int>{1, 3, 9, 11, 12}));

        inpM_SetHandle renamed = AssemblySet(unsorted);
        renamed.Get().Add(S("P"), 11);
        renamed.Get().ChangeInstanceName(S("Pump-1"), S("P"));
        EXPECT_EQ(Names(renamed->GatherRootLevelInstanceNames()), (std::vector<std::string>{"Axle-1", "P"}));
        EXPECT_EQ(Ints(renamed->ConstGetSecondLevelIds(S("P"))),
                  unsorted ? (std::vector<int>{11, 12, 11}) : (std::vector<int>{11, 12}));
    }
}

TEST(SetMap, InsertCopiesAndNestedLookupsCreateNothing) {
    inpM_SetMap sets;
    EXPECT_TRUE(sets.IsEmpty());
    inpM_SetHandle original = CreateSet(List({1, 2}), false, false);
    sets.InsertSet(S("A"), original.ConstGet());
    original.Get().Add(3);
    EXPECT_EQ(Ints(sets.ConstGetSet(S("A")).ConstGetIds()), (std::vector<int>{1, 2}));

    EXPECT_FALSE(sets.HasNestedSet(S("Part-1"), S("A")));
    EXPECT_EQ(sets.instances.Count(), 0);
    sets.InsertNestedSet(S("Part-1"), S("B"), original.ConstGet());
    EXPECT_TRUE(sets.HasNestedSet(S("Part-1"), S("B")));
    EXPECT_FALSE(sets.HasNestedSet(S("Part-1"), S("A")));
    EXPECT_FALSE(sets.IsEmpty());
    EXPECT_EQ(Ints(sets.ConstGetNestedSet(S("Part-1"), S("B")).ConstGetIds()), (std::vector<int>{1, 2, 3}));
    EXPECT_EQ(sets.ConstGetNestedSetMap(S("None")).Count(), 0);

    // A copy of the map is independent after a write.
    inpM_SetMap copy(sets);
    copy.InsertNestedSet(S("Part-1"), S("C"), original.ConstGet());
    EXPECT_FALSE(sets.HasNestedSet(S("Part-1"), S("C")));

    // All sets of a part go into an instance's scope.
    sets.InsertNestedSetMap(S("Part-1-1"), sets.ConstGetNestedSetMap(S("Part-1")));
    sets.InsertNestedSetMap(S("Part-1-1"), copy.ConstGetNestedSetMap(S("Part-1")));
    EXPECT_EQ(Names(sets.Instances()), (std::vector<std::string>{"Part-1", "Part-1-1"}));
    EXPECT_TRUE(sets.HasNestedSet(S("Part-1-1"), S("C")));

    cow_String holder("stale");
    EXPECT_TRUE(sets.SearchAssemblyAndInstancesForSet(S("A"), holder));
    EXPECT_EQ(holder, cow_String());
    EXPECT_TRUE(sets.SearchAssemblyAndInstancesForSet(S("B"), holder));
    EXPECT_EQ(holder, cow_String("Part-1"));  // the first scope in byte order
    EXPECT_FALSE(sets.SearchAssemblyAndInstancesForSet(S("Z"), holder));
    EXPECT_EQ(holder, cow_String());
}

TEST(SetMap, MergeRenumberAndRenameReachBothLevels) {
    inpM_SetMap nodes;
    nodes.InsertSet(S("ALL"), CreateSet(List({10}), false, false).ConstGet());
    nodes.InsertNestedSet(S("Pump-1"), S("TOP"), CreateSet(List({5}), false, false).ConstGet());
    inpM_SetMap added;
    inpM_SetHandle all = CreateSet(List({20}), false, false);
    all.Get().Add(S("Pump-1"), 6);
    added.InsertSet(S("ALL"), all.ConstGet());
    added.InsertSet(S("NEW"), CreateSet(List({10}), true, false).ConstGet());
    added.InsertNestedSet(S("Pump-1"), S("TOP"), CreateSet(List({6}), false, false).ConstGet());
    added.InsertNestedSet(S("Valve-1"), S("V"), CreateSet(List({1}), false, false).ConstGet());
    nodes.Merge(added);
    EXPECT_EQ(Ints(nodes.ConstGetSet(S("ALL")).ConstGetIds()), (std::vector<int>{6, 10, 20}));
    EXPECT_EQ(Ints(nodes.ConstGetNestedSet(S("Pump-1"), S("TOP")).ConstGetIds()), (std::vector<int>{5, 6}));
    EXPECT_TRUE(nodes.HasNestedSet(S("Valve-1"), S("V")));

    inpM_SetMap before(nodes);
    inpM_IdMap ids = IdsOf({{10, 1}, {20, 2}});
    ids.InsertInstance(S("Pump-1"), IdsOf({{5, 3}, {6, 4}}));
    ids.InsertInstance(S("Valve-1"), IdsOf({{1, 5}}));
    nodes.Renumber(ids, true);
    EXPECT_EQ(Ints(nodes.ConstGetSet(S("ALL")).ConstGetTopLevelIds()), (std::vector<int>{1, 2}));
    EXPECT_EQ(Ints(nodes.ConstGetSet(S("ALL")).ConstGetSecondLevelIds(S("Pump-1"))), (std::vector<int>{4}));
    EXPECT_EQ(Ints(nodes.ConstGetNestedSet(S("Pump-1"), S("TOP")).ConstGetIds()), (std::vector<int>{3, 4}));
    EXPECT_EQ(Ints(nodes.ConstGetNestedSet(S("Valve-1"), S("V")).ConstGetIds()), (std::vector<int>{5}));
    EXPECT_EQ(Ints(before.ConstGetNestedSet(S("Pump-1"), S("TOP")).ConstGetIds()), (std::vector<int>{5, 6}));

    before.ChangeInstanceName(S("Pump-1"), S("Valve-1"));
    EXPECT_EQ(Names(before.Instances()), (std::vector<std::string>{"Valve-1"}));
    EXPECT_TRUE(before.HasNestedSet(S("Valve-1"), S("TOP")));
    EXPECT_TRUE(before.HasNestedSet(S("Valve-1"), S("V")));
    EXPECT_EQ(Ints(before.ConstGetSet(S("ALL")).ConstGetSecondLevelIds(S("Valve-1"))), (std::vector<int>{6}));

    before.InsertDuplicateOffsetIds(1000, 1);
    EXPECT_EQ(Ints(before.ConstGetSet(S("ALL")).ConstGetTopLevelIds()), (std::vector<int>{10, 20, 1010, 1020}));
    EXPECT_EQ(Ints(before.ConstGetSet(S("ALL")).ConstGetSecondLevelIds(S("Valve-1"))), (std::vector<int>{6, 1006}));
    EXPECT_EQ(Ints(before.ConstGetNestedSet(S("Valve-1"), S("V")).ConstGetIds()), (std::vector<int>{1, 1001}));

    before.DeleteAllSetsExceptThoseListed(cow_List<cow_String>().Append(S("ALL")).Append(S("V")));
    EXPECT_FALSE(before.IsMember(S("NEW")));
    EXPECT_FALSE(before.HasNestedSet(S("Valve-1"), S("TOP")));
    EXPECT_TRUE(before.HasNestedSet(S("Valve-1"), S("V")));

    nodes.RemoveInternalSets();
    EXPECT_FALSE(nodes.IsMember(S("NEW")));
    EXPECT_TRUE(nodes.IsMember(S("ALL")));
}

TEST(OmiSet, SortsOnceAndSharesUntilWritten) {
    inpM_OmiSet set;
    set.Insert(List({5, 3, 5, 999999999, -2}));
    set.Insert(4);
    EXPECT_EQ(set.Size(), 5);
    EXPECT_EQ(Ints(set.ConstGetArrayCounterpart()), (std::vector<int>{-2, 3, 4, 5, 999999999}));
    EXPECT_TRUE(set.IsMember(999999999));
    EXPECT_FALSE(set.IsMember(6));

    inpM_OmiSet copy(set);
    copy.Insert(6);
    EXPECT_TRUE(set.Remove(3));
    EXPECT_FALSE(set.Remove(3));
    EXPECT_EQ(Ints(copy.ConstGetArrayCounterpart()), (std::vector<int>{-2, 3, 4, 5, 6, 999999999}));

    std::vector<int> walked;
    inpM_OmiSetIT it(set);
    for (it.First(); !it.IsDone(); it.Next()) walked.push_back(it.CurrentItem());
    EXPECT_EQ(walked, (std::vector<int>{-2, 4, 5, 999999999}));
    set.Insert(set);
    EXPECT_EQ(set.Size(), 4);
}
