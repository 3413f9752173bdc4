#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fnd_Lifetime.h"
#include "mem_Malloc.h"

namespace {
std::vector<std::string> Log() {
    cow_1DArrayList<cow_String> log = fnd_LifetimeLog();
    std::vector<std::string> out;
    for (int i = 0; i < log.Count(); ++i) out.emplace_back(log.ConstGet(i).c_str());
    return out;
}
}  // namespace

TEST(FndLifetime, InitialisersAndFinalisersRunInTheFrameOrder) {
    const char* libraries[] = {"mem", "typ", "thr", "pnt", "omni", "atr", "cow",
                               "nex", "wip", "utl", "uti", "inpM", "shp", "gsl"};
    std::vector<std::string> up, down;
    for (const char* lib : libraries) up.push_back(std::string(lib) + "_initialize");
    for (int i = 13; i >= 0; --i) down.push_back(std::string(libraries[i]) + "_finalize");

    fnd_ClearLifetimeLog();
    int count = 1;
    fnd_InitializeAll(count);
    EXPECT_EQ(count, 15);
    EXPECT_EQ(Log(), up);

    fnd_ClearLifetimeLog();
    fnd_FinalizeAll(count);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(Log(), down);

    fnd_ClearLifetimeLog();
    utl_initialize(count);
    pnt_finalize(count);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(Log(), (std::vector<std::string>{"utl_initialize", "pnt_finalize"}));
    fnd_ClearLifetimeLog();
    EXPECT_TRUE(Log().empty());
}

TEST(MemMalloc, ContractOfTheRuntime) {
    void* none = mem_Malloc(0);
    EXPECT_NE(none, nullptr);  // null only ever means failure
    mem_Free(none);
    mem_Free(nullptr);

    char* p = static_cast<char*>(mem_Realloc(nullptr, 4));
    ASSERT_NE(p, nullptr);
    for (int i = 0; i < 4; ++i) p[i] = static_cast<char>('a' + i);
    p = static_cast<char*>(mem_Realloc(p, 1 << 20));
    ASSERT_NE(p, nullptr);
    EXPECT_EQ(std::string(p, 4), "abcd");
    p[(1 << 20) - 1] = 'z';
    void* shrunk = mem_Realloc(p, 0);
    EXPECT_NE(shrunk, nullptr);  // never freed behind the caller's back
    mem_Free(shrunk);
}
