#include "omi_BlockedArray.h"
#include "omi_IntTable.h"
#include "omi_UintTable.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

template <class T>
std::vector<std::pair<int, T>> Walk(omi_IntTableIterator<T> it)
{
    std::vector<std::pair<int, T>> out;
    for (it.First(); !it.IsDone(); it.Next())
        out.emplace_back(it.CurrentKey(), it.CurrentValue());
    return out;
}

template <class T>
std::vector<std::pair<int, T>> Walk(const omi_IntTable<T>& table)
{
    return Walk(omi_IntTableIterator<T>(table));
}

int DescendingByValue(const void* a, const void* b)
{
    const auto* x = static_cast<const omi_IntTableIterator<std::string>::Entry*>(a);
    const auto* y = static_cast<const omi_IntTableIterator<std::string>::Entry*>(b);
    return y->value->compare(*x->value);
}

}  // namespace

TEST(IntTable, IteratesInAscendingSignedOrder)
{
    omi_IntTable<std::string> table;
    for (int key : {2, -1, 0, -3})
        table.Insert(key, "v" + std::to_string(key));
    using Row = std::pair<int, std::string>;
    EXPECT_EQ(Walk(table), (std::vector<Row>{{-3, "v-3"}, {-1, "v-1"}, {0, "v0"}, {2, "v2"}}));

    // Extremes of int, and several blocks in each half.
    omi_IntTable<int> wide;
    const std::vector<int> keys = {INT_MIN, -999999999, -2000000, -1048577, -1048576, -1,
                                   0,       1,          1048575,  1048576,  999999999, INT_MAX};
    for (auto it = keys.rbegin(); it != keys.rend(); ++it)
        wide.Insert(*it, *it / 2);
    std::vector<std::pair<int, int>> expected;
    for (int key : keys)
        expected.emplace_back(key, key / 2);
    EXPECT_EQ(Walk(wide), expected);
    EXPECT_TRUE(wide.HasKey(INT_MIN));
    EXPECT_EQ(wide.ConstGet(INT_MIN), INT_MIN / 2);
    EXPECT_EQ(wide.PositiveHalf().Count(), 6);
}

TEST(IntTable, InsertOverwritesAndRemoveClears)
{
    omi_IntTable<int> table;
    EXPECT_TRUE(table.Insert(7, 70));
    EXPECT_TRUE(table.Insert(-7, -70));
    EXPECT_FALSE(table.Insert(7, 71));
    EXPECT_EQ(table.Count(), 2);
    EXPECT_EQ(table.ConstGet(7), 71);
    EXPECT_EQ(table.ConstGet(-7), -70);

    table.Get(-7) = -72;
    EXPECT_EQ(table.ConstGet(-7), -72);

    EXPECT_FALSE(table.HasKey(8));
    EXPECT_FALSE(table.HasKey(-8));
    EXPECT_FALSE(table.Remove(8));
    EXPECT_FALSE(table.Remove(2000000000));  // beyond the slot array
    EXPECT_EQ(table.Count(), 2);
    EXPECT_TRUE(table.Remove(-7));
    EXPECT_FALSE(table.HasKey(-7));
    EXPECT_TRUE(table.HasKey(7));
    EXPECT_EQ(table.Count(), 1);

    // A removed value lets go of what it holds, even while its block lives on.
    const auto shared = std::make_shared<int>(1);
    omi_IntTable<std::shared_ptr<int>> owners;
    owners.Insert(1, shared);
    owners.Insert(2, shared);
    EXPECT_EQ(shared.use_count(), 3);
    owners.Remove(1);
    EXPECT_EQ(shared.use_count(), 2);
}

TEST(IntTable, SparseIdsHoldOnlyTheBlocksAndChunksTheyTouch)
{
    omi_IntTable<double> table;
    table.Insert(1, 1.5);
    table.Insert(999999999, 2.5);
    const omi_UintTable<double>& half = table.PositiveHalf();
    EXPECT_EQ(half.BlockCount(), 2u);
    const unsigned top = 999999999u >> 20;  // 953
    EXPECT_EQ(half.Slots(), (top / 64 + 1) * 64);
    ASSERT_NE(half.Block(0), nullptr);
    ASSERT_NE(half.Block(top), nullptr);
    EXPECT_EQ(half.Block(0)->values.ChunkCount(), 1u);
    EXPECT_EQ(half.Block(top)->values.ChunkCount(), 1u);
    EXPECT_EQ(table.NegativeHalf().BlockCount(), 0u);
    EXPECT_LT(table.MemoryBytes(), 64u * 1024u);
    EXPECT_EQ(table.ConstGet(999999999), 2.5);
}

TEST(IntTable, LastKeyOfABlockTakesTheBlockAlong)
{
    omi_IntTable<int> table;
    table.Insert(5, 50);
    table.Insert(3000000, 30);
    table.Insert(3000001, 31);
    omi_UintTable<int>& half = table.PositiveHalf();
    const unsigned top = 3000000u >> 20;
    EXPECT_EQ(half.BlockCount(), 2u);

    table.Remove(3000000);
    EXPECT_NE(half.Block(top), nullptr);  // 3000001 still lives there
    table.Remove(3000001);
    EXPECT_EQ(half.Block(top), nullptr);
    EXPECT_EQ(half.BlockCount(), 1u);
    EXPECT_EQ(Walk(table), (std::vector<std::pair<int, int>>{{5, 50}}));

    EXPECT_TRUE(table.Insert(3000002, 32));
    EXPECT_NE(half.Block(top), nullptr);
    EXPECT_FALSE(table.HasKey(3000001));
    EXPECT_EQ(Walk(table), (std::vector<std::pair<int, int>>{{5, 50}, {3000002, 32}}));
}

TEST(IntTable, IteratorsOverEmptyAndNegativeOnlyTables)
{
    omi_IntTable<int> empty;
    omi_IntTableIterator<int> plain(empty);
    plain.First();
    EXPECT_TRUE(plain.IsDone());
    omi_IntTableIterator<int> sorted(empty, [](const void*, const void*) { return 0; });
    sorted.First();
    EXPECT_TRUE(sorted.IsDone());

    omi_IntTable<int> negatives;
    negatives.Insert(-2, 2);
    negatives.Insert(-5000000, 5);
    EXPECT_EQ(Walk(negatives), (std::vector<std::pair<int, int>>{{-5000000, 5}, {-2, 2}}));
}

TEST(IntTable, SortedIteratorFollowsTheComparison)
{
    omi_IntTable<std::string> table;
    table.Insert(-4, "b");
    table.Insert(10, "d");
    table.Insert(3, "a");
    table.Insert(2000000, "c");
    using Row = std::pair<int, std::string>;
    EXPECT_EQ(Walk(omi_IntTableIterator<std::string>(table, DescendingByValue)),
              (std::vector<Row>{{10, "d"}, {2000000, "c"}, {-4, "b"}, {3, "a"}}));
}

TEST(IntTable, CopiesAreDeep)
{
    omi_IntTable<std::string> original;
    original.Insert(-1, "minus");
    original.Insert(1, "plus");

    omi_IntTable<std::string> copy(original);
    copy.Get(1) = "changed";
    copy.Remove(-1);
    copy.Insert(2, "new");
    EXPECT_EQ(original.ConstGet(1), "plus");
    EXPECT_TRUE(original.HasKey(-1));
    EXPECT_FALSE(original.HasKey(2));
    EXPECT_EQ(original.Count(), 2);

    omi_IntTable<std::string> assigned;
    assigned.Insert(9, "gone");
    assigned = copy;
    copy.Clear();
    using Row = std::pair<int, std::string>;
    EXPECT_EQ(Walk(assigned), (std::vector<Row>{{1, "changed"}, {2, "new"}}));
    EXPECT_EQ(copy.Count(), 0);
}

TEST(IntTable, AgreesWithOrderedMapUnderRandomEdits)
{
    std::mt19937 rng(2024);
    omi_IntTable<int> table;
    std::map<int, int> model;
    // Dense runs in a few far-apart ranges of both signs, as renumbered
    // decks have them.
    const int bases[] = {-999000000, -3000, 0, 1000000, 50000000, 999000000};
    std::uniform_int_distribution<int> pick(0, 5), offset(0, 6000);
    for (int round = 0; round < 4; ++round) {
        for (int n = 0; n < 20000; ++n) {
            const int key = bases[pick(rng)] + offset(rng);
            if (rng() % 4 != 0) {
                const int value = static_cast<int>(rng());
                EXPECT_EQ(table.Insert(key, value), model.count(key) == 0);
                model[key] = value;
            } else {
                EXPECT_EQ(table.Remove(key), model.erase(key) == 1);
            }
        }
        ASSERT_EQ(table.Count(), static_cast<int>(model.size()));
        const std::vector<std::pair<int, int>> expected(model.begin(), model.end());
        ASSERT_EQ(Walk(table), expected);
        for (int probe = 0; probe < 1000; ++probe) {
            const int key = bases[pick(rng)] + offset(rng);
            ASSERT_EQ(table.HasKey(key), model.count(key) == 1);
            if (model.count(key)) {
                EXPECT_EQ(table.ConstGet(key), model[key]);
            }
        }
    }
}

TEST(UintTable, SlotArrayGrowsInWholeSteps)
{
    omi_UintTable<int> table;
    EXPECT_EQ(table.Slots(), 2u);
    EXPECT_EQ(table.Shift(), 20u);
    table.Insert(1u << 20, 1);  // top 1
    EXPECT_EQ(table.Slots(), 2u);
    table.Insert(2u << 20, 2);  // top 2
    EXPECT_EQ(table.Slots(), 64u);
    table.Insert(64u << 20, 3);  // top 64
    EXPECT_EQ(table.Slots(), 128u);
    table.Insert(0xFFFFFFFFu, 4);  // top 4095
    EXPECT_EQ(table.Slots(), 4096u);
    EXPECT_EQ(table.ConstGet(0xFFFFFFFFu), 4);

    omi_UintTable<int> narrow(16, 10, 24);  // 65536 keys a block
    narrow.Insert(65536, 1);
    narrow.Insert(65535, 2);
    EXPECT_EQ(narrow.BlockCount(), 2u);
}

TEST(BlockedArray, ChunksAppearAtFirstWriteAndTheTableGrowsBySteps)
{
    omi_BlockedArray<int> array(10, 24);
    EXPECT_EQ(array.Find(0), nullptr);
    array.Set(5000, 7);  // chunk 4
    EXPECT_EQ(array.ChunkSlots(), 24u);
    EXPECT_EQ(array.ChunkCount(), 1u);
    EXPECT_FALSE(array.HasChunk(100));
    EXPECT_TRUE(array.HasChunk(4096));
    EXPECT_EQ(array.ConstGet(4096), 0);  // value-initialised
    EXPECT_EQ(array.ConstGet(5000), 7);
    array.Set(24 * 1024, 8);  // chunk 24
    EXPECT_EQ(array.ChunkSlots(), 48u);

    omi_BlockedArray<int> defaultStep(10, 0);
    defaultStep.Set(0, 1);
    EXPECT_EQ(defaultStep.ChunkSlots(), 128u);

    omi_BlockedArray<int> copy(array);
    copy.Set(5000, 9);
    EXPECT_EQ(array.ConstGet(5000), 7);
    EXPECT_EQ(copy.ChunkCount(), 2u);
}
