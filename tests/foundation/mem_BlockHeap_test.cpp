#include <gtest/gtest.h>

#include <cstdint>
#include <algorithm>
#include <cstring>
#include <random>
#include <set>
#include <thread>
#include <utility>
#include <vector>

#include "mem_BlockHeap.h"

namespace {

// Fills a block with bytes that only it has, so that two blocks that overlap, or a
// block handed out twice, show as a changed pattern.
void Stamp(void* block, std::size_t size, unsigned seed) {
    unsigned char* p = static_cast<unsigned char*>(block);
    for (std::size_t i = 0; i < size; ++i) p[i] = static_cast<unsigned char>(seed * 31u + i * 7u);
}

bool HasStamp(const void* block, std::size_t size, unsigned seed) {
    const unsigned char* p = static_cast<const unsigned char*>(block);
    for (std::size_t i = 0; i < size; ++i)
        if (p[i] != static_cast<unsigned char>(seed * 31u + i * 7u)) return false;
    return true;
}

struct Block {
    void* p;
    std::size_t size;
    unsigned seed;
};

TEST(BlockHeap, BlocksOfEverySizeKeepTheirBytesThroughMixedFrees) {
    ASSERT_TRUE(mem_BlockHeapState().reserved) << "the machine refused the address range";
    const mem_BlockHeapStats before = mem_BlockHeapState();
    std::mt19937 random(7);
    std::vector<Block> live;
    unsigned seed = 0;
    for (int round = 0; round < 8000; ++round) {
        if (!live.empty() && random() % 3 == 0) {
            const std::size_t at = random() % live.size();
            ASSERT_TRUE(HasStamp(live[at].p, live[at].size, live[at].seed)) << "size " << live[at].size;
            mem_BlockFree(live[at].p);
            live[at] = live.back();
            live.pop_back();
            continue;
        }
        // Mostly line-sized, some across every wider step and past the largest
        // block, which comes from malloc.
        const std::size_t size = random() % 4 ? random() % 300 : random() % (kLargestBlock + 2048);
        void* p = mem_BlockMalloc(size);
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(p) % 8, 0u) << "size " << size;
        Stamp(p, size, ++seed);
        live.push_back({p, size, seed});
    }
    std::set<void*> distinct;
    for (const Block& b : live) {
        EXPECT_TRUE(HasStamp(b.p, b.size, b.seed)) << "size " << b.size;
        distinct.insert(b.p);
    }
    EXPECT_EQ(distinct.size(), live.size());
    for (const Block& b : live) mem_BlockFree(b.p);

    const mem_BlockHeapStats after = mem_BlockHeapState();
    EXPECT_EQ(after.blocksInUse, before.blocksInUse);
    // Each size that served may keep its one chunk to allocate from (there are 116
    // sizes); no more.
    EXPECT_LE(after.chunksInUse, before.chunksInUse + 116);
}

TEST(BlockHeap, CallocZeroesARecycledBlock) {
    void* first = mem_BlockMalloc(48);
    std::memset(first, 0xab, 48);
    mem_BlockFree(first);
    unsigned char* again = static_cast<unsigned char*>(mem_BlockCalloc(48));
    for (int i = 0; i < 48; ++i) ASSERT_EQ(again[i], 0) << i;
    mem_BlockFree(again);
    mem_BlockFree(nullptr);
}

// A deck of a million lines takes many chunks of one size; freeing the deck must give
// them back, or a driver that reads decks one after another grows without end.
TEST(BlockHeap, ChunksGoBackWhenTheirBlocksAreFreedInAnyOrder) {
    const mem_BlockHeapStats before = mem_BlockHeapState();
    for (int pass = 0; pass < 3; ++pass) {
        std::vector<void*> blocks(200000);  // 56-byte blocks: six chunks' worth
        for (void*& p : blocks) p = mem_BlockMalloc(53);
        EXPECT_GE(mem_BlockHeapState().chunksInUse, before.chunksInUse + 5);
        std::shuffle(blocks.begin(), blocks.end(), std::mt19937(static_cast<unsigned>(pass)));
        for (void* p : blocks) mem_BlockFree(p);
        const mem_BlockHeapStats after = mem_BlockHeapState();
        EXPECT_EQ(after.blocksInUse, before.blocksInUse);
        EXPECT_LE(after.chunksInUse, before.chunksInUse + 1) << "pass " << pass;
        // A few keep their pages for the next chunks; the others went back.
        EXPECT_GT(after.chunksKept, 0u);
        EXPECT_LE(after.chunksKept, 8u);
    }
}

TEST(BlockHeap, ThreadsAllocateAndFreeEachOthersBlocks) {
    const mem_BlockHeapStats before = mem_BlockHeapState();
    const int kPerThread = 50000;
    std::vector<void*> made[2];
    auto make = [&](int t) {
        for (int i = 0; i < kPerThread; ++i) {
            const std::size_t size = static_cast<std::size_t>(8 + (i % 24) * 8);
            void* p = mem_BlockMalloc(size);
            Stamp(p, size, static_cast<unsigned>(t * kPerThread + i));
            made[t].push_back(p);
        }
    };
    std::thread a(make, 0), b(make, 1);
    a.join();
    b.join();
    // Each thread checks and frees the other's blocks, while the other does the same.
    auto check = [&](int t) {
        const int other = 1 - t;
        for (int i = 0; i < kPerThread; ++i) {
            const std::size_t size = static_cast<std::size_t>(8 + (i % 24) * 8);
            EXPECT_TRUE(HasStamp(made[other][static_cast<std::size_t>(i)], size,
                                 static_cast<unsigned>(other * kPerThread + i)));
            mem_BlockFree(made[other][static_cast<std::size_t>(i)]);
        }
    };
    std::thread c(check, 0), d(check, 1);
    c.join();
    d.join();
    EXPECT_EQ(mem_BlockHeapState().blocksInUse, before.blocksInUse);
}

#if defined(__SANITIZE_ADDRESS__)
// Under the sanitizer a block is exactly as wide as asked for, and dead once freed.
TEST(BlockHeapDeathTest, TheSanitizerSeesPastTheEndAndAfterTheFree) {
    EXPECT_DEATH(
        {
            char* volatile p = static_cast<char*>(mem_BlockMalloc(13));
            p[13] = 'x';
        },
        "use-after-poison");
    EXPECT_DEATH(
        {
            char* volatile p = static_cast<char*>(mem_BlockMalloc(40));
            mem_BlockFree(p);
            p[0] = 'x';
        },
        "use-after-poison");
}
#endif

}  // namespace

TEST(BlockHeap, ManyBlocksFreedAtOnceAsOneByOne) {
    const mem_BlockHeapStats before = mem_BlockHeapState();
    std::vector<void*> blocks;
    for (int i = 0; i < 50000; ++i) blocks.push_back(mem_BlockMalloc(static_cast<std::size_t>(8 + i % 300)));
    blocks.push_back(nullptr);
    blocks.push_back(mem_BlockMalloc(kLargestBlock + 1));  // from mem_Malloc
    Stamp(blocks.back(), kLargestBlock + 1, 3);
    EXPECT_EQ(mem_BlockHeapState().blocksInUse, before.blocksInUse + 50000);
    mem_BlockFreeMany(blocks.data(), blocks.size());
    EXPECT_EQ(mem_BlockHeapState().blocksInUse, before.blocksInUse);
    EXPECT_LE(mem_BlockHeapState().chunksInUse, before.chunksInUse + 40);
    mem_BlockFreeMany(nullptr, 0);
}
