#include "omi_BlkBitVect.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <set>
#include <vector>

namespace {

std::vector<unsigned> WalkUp(const omi_BlkBitVect& v)
{
    std::vector<unsigned> out;
    const omi_BlkBitVectTrav trav(&v);
    unsigned i = 0;
    for (bool more = trav.First(i); more; more = trav.Next(i))
        out.push_back(i);
    return out;
}

std::vector<unsigned> WalkDown(const omi_BlkBitVect& v)
{
    std::vector<unsigned> out;
    const omi_BlkBitVectTrav trav(&v);
    unsigned i = 0;
    for (bool more = trav.Last(i); more; more = trav.Prev(i))
        out.push_back(i);
    return out;
}

}  // namespace

TEST(BlkBitVect, WalksAcrossWordBlockAndSummaryBoundaries)
{
    // 64 bits a word, 1024 a block, 64 blocks (65536 bits) a summary word.
    const std::vector<unsigned> bits = {0,     1,     63,    64,    65,     1023,    1024,
                                        2047,  65535, 65536, 65600, 131071, 1048575, 3000000};
    omi_BlkBitVect v;
    for (auto it = bits.rbegin(); it != bits.rend(); ++it)
        EXPECT_TRUE(v.SetBit(*it));
    EXPECT_EQ(v.Count(), bits.size());
    EXPECT_EQ(WalkUp(v), bits);
    EXPECT_EQ(WalkDown(v), std::vector<unsigned>(bits.rbegin(), bits.rend()));

    // Stepping from positions that are not set.
    const struct {
        unsigned from;
        bool hasNext;
        unsigned next;
        bool hasPrev;
        unsigned prev;
    } steps[] = {
        {2, true, 63, true, 1},          {66, true, 1023, true, 65},       {1500, true, 2047, true, 1024},
        {4000, true, 65535, true, 2047}, {70000, true, 131071, true, 65600}, {2000000, true, 3000000, true, 1048575},
        {3000001, false, 0, true, 3000000}, {~0u, false, 0, true, 3000000},
    };
    const omi_BlkBitVectTrav trav(&v);
    for (const auto& s : steps) {
        unsigned i = s.from;
        EXPECT_EQ(trav.Next(i), s.hasNext) << s.from;
        if (s.hasNext) {
            EXPECT_EQ(i, s.next) << s.from;
        }
        i = s.from;
        EXPECT_EQ(trav.Prev(i), s.hasPrev) << s.from;
        if (s.hasPrev) {
            EXPECT_EQ(i, s.prev) << s.from;
        }
    }
    unsigned zero = 0;
    EXPECT_FALSE(trav.Prev(zero));
}

TEST(BlkBitVect, SetAndUnsetReportChangesAndFreeEmptyBlocks)
{
    omi_BlkBitVect v;
    v.SetBit(10);
    const std::size_t oneBlock = v.MemoryBytes();

    EXPECT_TRUE(v.SetBit(5000));
    EXPECT_FALSE(v.SetBit(5000));
    EXPECT_EQ(v.Count(), 2u);
    EXPECT_GT(v.MemoryBytes(), oneBlock);

    EXPECT_FALSE(v.UnsetBit(5001));
    EXPECT_FALSE(v.UnsetBit(999999));  // beyond the directory
    EXPECT_TRUE(v.UnsetBit(5000));
    EXPECT_FALSE(v.UnsetBit(5000));
    EXPECT_EQ(v.Count(), 1u);
    EXPECT_EQ(v.MemoryBytes(), oneBlock);  // the block of 5000 is gone

    // The walker must not stop at the freed block.
    unsigned i = 0;
    const omi_BlkBitVectTrav trav(&v);
    ASSERT_TRUE(trav.Last(i));
    EXPECT_EQ(i, 10u);
    EXPECT_FALSE(trav.Next(i));

    v.Clear();
    EXPECT_TRUE(v.IsEmpty());
    EXPECT_FALSE(v.TestBit(10));
    i = 77;
    EXPECT_FALSE(trav.First(i));
    EXPECT_FALSE(trav.Last(i));
    EXPECT_FALSE(trav.Next(i));
    EXPECT_FALSE(trav.Prev(i));
    EXPECT_EQ(i, 77u);  // untouched on false
}

TEST(BlkBitVect, CopiesAreIndependent)
{
    omi_BlkBitVect a;
    a.SetBit(3);
    a.SetBit(70000);
    omi_BlkBitVect b(a);
    b.UnsetBit(3);
    b.SetBit(4);
    EXPECT_EQ(WalkUp(a), (std::vector<unsigned>{3, 70000}));
    EXPECT_EQ(WalkUp(b), (std::vector<unsigned>{4, 70000}));

    b = a;
    a.Clear();
    EXPECT_EQ(WalkUp(b), (std::vector<unsigned>{3, 70000}));
}

TEST(BlkBitVect, AgreesWithOrderedSetUnderRandomEdits)
{
    std::mt19937 rng(12345);
    omi_BlkBitVect v;
    std::set<unsigned> model;
    // Clustered indices so that blocks fill, empty and come back.
    std::uniform_int_distribution<unsigned> cluster(0, 40), offset(0, 3000);
    for (int round = 0; round < 4; ++round) {
        for (int n = 0; n < 5000; ++n) {
            const unsigned index = cluster(rng) * 50000 + offset(rng);
            const bool set = (rng() % 3) != 0 || round == 0;
            if (set) {
                EXPECT_EQ(v.SetBit(index), model.insert(index).second);
            }
            else {
                EXPECT_EQ(v.UnsetBit(index), model.erase(index) == 1);
            }
        }
        ASSERT_EQ(v.Count(), model.size());
        ASSERT_EQ(WalkUp(v), std::vector<unsigned>(model.begin(), model.end()));
        ASSERT_EQ(WalkDown(v), std::vector<unsigned>(model.rbegin(), model.rend()));

        const omi_BlkBitVectTrav trav(&v);
        for (int probe = 0; probe < 2000; ++probe) {
            const unsigned from = cluster(rng) * 50000 + offset(rng);
            EXPECT_EQ(v.TestBit(from), model.count(from) == 1);
            unsigned i = from;
            const auto above = model.upper_bound(from);
            ASSERT_EQ(trav.Next(i), above != model.end());
            if (above != model.end()) {
                EXPECT_EQ(i, *above);
            }
            i = from;
            const auto atOrAbove = model.lower_bound(from);
            ASSERT_EQ(trav.Prev(i), atOrAbove != model.begin());
            if (atOrAbove != model.begin()) {
                EXPECT_EQ(i, *std::prev(atOrAbove));
            }
        }
    }
}
