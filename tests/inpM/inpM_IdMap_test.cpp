#include <gtest/gtest.h>

#include "inpM_IdMap.h"
#include "inpM_TestLists.h"
#include "nex_Exception.h"

namespace {

inpM_IdMap MapOf(std::initializer_list<std::pair<int, int>> pairs) {
    inpM_IdMap map;
    for (const auto& p : pairs) map.Insert(p.first, p.second);
    return map;
}

// Root 10 -> 1, 20 -> 2; "Pump-1" 5 -> 3, 6 -> 4; "Axle-1" 999999999 -> 5.
inpM_IdMap Model() {
    inpM_IdMap model = MapOf({{20, 2}, {10, 1}});
    model.InsertInstance(cow_String("Pump-1"), MapOf({{5, 3}, {6, 4}}));
    model.InsertInstance(cow_String("Axle-1"), MapOf({{999999999, 5}}));
    return model;
}

}  // namespace

TEST(IdMap, LookupsOfAbsentIdsAndScopesFindNothing) {
    inpM_IdMap model = Model();
    EXPECT_EQ(model.ConstGet(10), 1);
    EXPECT_EQ(model.ConstGet(5), 0);  // 5 belongs to an instance, not to the root
    EXPECT_EQ(model.ConstGet(cow_String("Pump-1")).ConstGet(5), 3);
    EXPECT_EQ(model.ConstGet(cow_String("Axle-1")).ConstGet(999999999), 5);
    EXPECT_EQ(model.ConstGet(cow_String("pump-1")).NumberIds(), 0);
    EXPECT_EQ(Names(model.Instances()), (std::vector<std::string>{"Axle-1", "Pump-1"}));
    EXPECT_EQ(model.NumberIds(), 5);
    EXPECT_EQ(model.SmallestId(), 1);
    EXPECT_EQ(model.LargestId(), 5);
    EXPECT_EQ(inpM_IdMap().LargestId(), 0);
}

TEST(IdMap, RenumberRewritesOrRaises) {
    inpM_IdMap map = MapOf({{10, 1}, {20, 2}});
    int connectivity[] = {20, 0, 10};
    map.Renumber(connectivity, 3);
    EXPECT_EQ(std::vector<int>(connectivity, connectivity + 3), (std::vector<int>{2, 0, 1}));

    int bad[] = {10, 30, 20};
    try {
        map.Renumber(bad, 3);
        FAIL() << "no exception";
    } catch (const nex_TextException& e) {
        EXPECT_EQ(e.Message(), atr_String("Id 30 has no entry in the id map."));
    }

    EXPECT_EQ(Ints(map.Renumber(List({20, 30, 10}), true)), (std::vector<int>{2, 1}));
    EXPECT_THROW(map.Renumber(List({20, 30}), false), nex_TextException);
}

TEST(IdMap, DuplicateOffsetIdsFollowEveryLevel) {
    inpM_IdMap model = MapOf({{1, 1}, {2, 2}});
    model.InsertInstance(cow_String("I"), MapOf({{7, 3}}));
    inpM_IdMap before(model);
    model.InsertDuplicateOffsetIds(100, 2);
    EXPECT_EQ(Pairs(model), (IdPairs{{1, 1}, {2, 2}, {101, 101}, {102, 102}, {201, 201}, {202, 202}}));
    EXPECT_EQ(Pairs(model.ConstGet(cow_String("I"))), (IdPairs{{7, 3}, {107, 103}, {207, 203}}));
    EXPECT_EQ(before.NumberIds(), 3);  // a copy taken before keeps its ids
}

TEST(IdMap, StoredFormRoundTrips) {
    inpM_InstanceIdMaps stored(Model());
    EXPECT_EQ(Ints(stored.oldIds), (std::vector<int>{10, 20}));
    EXPECT_EQ(Ints(stored.newIds), (std::vector<int>{1, 2}));
    inpM_IdMap back(stored);
    EXPECT_EQ(Pairs(back), (IdPairs{{10, 1}, {20, 2}}));
    EXPECT_EQ(Pairs(back.ConstGet(cow_String("Pump-1"))), (IdPairs{{5, 3}, {6, 4}}));
    EXPECT_EQ(Pairs(back.ConstGet(cow_String("Axle-1"))), (IdPairs{{999999999, 5}}));
    EXPECT_EQ(Names(back.Instances()), (std::vector<std::string>{"Axle-1", "Pump-1"}));
}
