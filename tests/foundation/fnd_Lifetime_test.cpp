#include <gtest/gtest.h>

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
