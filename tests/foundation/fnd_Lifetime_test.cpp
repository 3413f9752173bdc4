#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "fnd_Lifetime.h"
#include "mem_Malloc.h"

namespace {
std::string Log() {
    cow_1DArrayList<cow_String> log = fnd_LifetimeLog();
    std::string out;
    for (int i = 0; i < log.Count(); ++i) out += std::string(log.ConstGet(i).c_str()) + " ";
    return out;
}
}  // namespace

TEST(FndLifetime, InitialisersAndFinalisersRunInTheFrameOrder) {
    std::string up, down;
    for (const char* lib : {"mem", "typ", "thr", "pnt", "omni", "atr", "cow", "nex", "wip", "utl", "uti", "inpM", "shp", "gsl"}) {
        up += std::string(lib) + "_initialize ";
        down = std::string(lib) + "_finalize " + down;
    }
    fnd_ClearLifetimeLog();
    int count = 1;
    fnd_InitializeAll(count);
    EXPECT_EQ(count, 1);  // the chain leaves the caller's count alone
    EXPECT_EQ(Log(), up);
    fnd_ClearLifetimeLog();
    fnd_FinalizeAll(count);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(Log(), down);
    fnd_ClearLifetimeLog();
}

TEST(MemMalloc, NullOnlyMeansFailure) {
    char* p = static_cast<char*>(mem_Realloc(nullptr, 4));
    ASSERT_NE(p, nullptr);
    std::memcpy(p, "abcd", 4);
    p = static_cast<char*>(mem_Realloc(p, 1 << 20));
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(std::string(p, 4), "abcd");
    void* shrunk = mem_Realloc(p, 0);  // not freed behind the caller's back
    EXPECT_NE(shrunk, nullptr);
    mem_Free(shrunk);
    void* none = mem_Malloc(0);
    EXPECT_NE(none, nullptr);
    mem_Free(none);
    mem_Free(nullptr);
}

namespace {
long ResidentKb() {
    std::FILE* f = std::fopen("/proc/self/status", "r");
    char line[256];
    long kb = -1;
    while (f && std::fgets(line, sizeof line, f))
        if (!std::strncmp(line, "VmRSS:", 6)) kb = std::atol(line + 6);
    if (f) std::fclose(f);
    return kb;
}
}  // namespace

// A large block goes back to the system when freed, the second time as the first: the
// runtime's malloc would take the second from its heap and keep its pages.
TEST(MemMalloc, LargeBlocksGoBackToTheSystemEveryTime) {
    const std::size_t mb = 1 << 20;
    for (std::size_t size : {48 * mb, 32 * mb, 24 * mb}) {
        const long before = ResidentKb();
        char* p = static_cast<char*>(mem_Malloc(size));
        ASSERT_NE(p, nullptr);
        std::memset(p, 1, size);
        const long held = ResidentKb();
        mem_Free(p);
        const long after = ResidentKb();
        if (before < 0) GTEST_SKIP() << "no /proc/self/status";
        EXPECT_GT(held - before, static_cast<long>(size / 1024) * 9 / 10);
        // A sanitizer's shadow of the block, an eighth of it, may stay.
        EXPECT_LT(after - before, static_cast<long>(size / 1024) / 5) << size;
    }
}

TEST(MemMalloc, ContentsSurviveEveryKindOfResize) {
    unsigned char* p = static_cast<unsigned char*>(mem_Calloc(100, 1));
    ASSERT_NE(p, nullptr);
    for (int i = 0; i < 100; ++i) EXPECT_EQ(p[i], 0);
    for (int i = 0; i < 100; ++i) p[i] = static_cast<unsigned char>(i);
    // Small to mapped, mapped to larger mapped, mapped back to small.
    for (std::size_t size : {std::size_t(1) << 20, std::size_t(8) << 20, std::size_t(64)}) {
        p = static_cast<unsigned char*>(mem_Realloc(p, size));
        ASSERT_NE(p, nullptr);
        for (int i = 0; i < 64; ++i) ASSERT_EQ(p[i], i) << size;
        if (size > 100) p[size - 1] = 7;
    }
    mem_Free(p);
    unsigned char* large = static_cast<unsigned char*>(mem_Calloc(1 << 20, 4));
    ASSERT_NE(large, nullptr);
    EXPECT_EQ(large[0] + large[(4 << 20) - 1], 0);
    mem_Free(large);
    EXPECT_EQ(mem_Calloc(SIZE_MAX / 2, 4), nullptr);
    EXPECT_EQ(mem_Malloc(SIZE_MAX - 4), nullptr);
}
