#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "utl_CommandLine.h"

TEST(UtlCommandLine, ParsesKeysAndHandsBackTheRest) {
    utl_CommandLine line;
    const char* argv[] = {"inpdeck", "job.inp", "indir=/old/jobs", "oldjobcla=base", "expr=a=b",
                          "=x", "flag", "empty=", "indir=/newer", nullptr};
    cow_1DArrayList<cow_String> rest = line.Parse(9, argv);
    ASSERT_EQ(rest.Count(), 3);
    EXPECT_EQ(rest.ConstGet(0), "job.inp");
    EXPECT_EQ(rest.ConstGet(1), "=x");
    EXPECT_EQ(rest.ConstGet(2), "flag");

    struct Case {
        const char* key;
        bool member;
        const char* value;
    } cases[] = {
        {"indir", true, "/newer"}, {"oldjobcla", true, "base"}, {"expr", true, "a=b"}, {"empty", true, ""},
        {"flag", false, ""},       {"INDIR", false, ""},        {"", false, ""},       {"inpdeck", false, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.key);
        EXPECT_EQ(line.IsMember(cow_String(c.key)), c.member);
        EXPECT_EQ(line.ConstGetValue(cow_String(c.key)), c.value);
    }

    line.Set(cow_String("flag"), cow_String("on"));
    EXPECT_EQ(line.ConstGetValue(cow_String("flag")), "on");
    line.Remove(cow_String("indir"));
    EXPECT_FALSE(line.IsMember(cow_String("indir")));
    line.Clear();
    EXPECT_FALSE(line.IsMember(cow_String("oldjobcla")));
    EXPECT_EQ(line.Parse(0, nullptr).Count(), 0);
}

TEST(UtlCommandLine, OneTableForAllThreads) {
    utl_CommandLine& line = thr_GlobalSingleton<utl_CommandLine>::Instance();
    line.Set(cow_String("oldjobcla"), cow_String("from-main"));
    std::string seen;
    utl_CommandLine* other = nullptr;
    std::thread t([&] {
        other = &thr_GlobalSingleton<utl_CommandLine>::Instance();
        seen = other->ConstGetValue(cow_String("oldjobcla")).c_str();
    });
    t.join();
    EXPECT_EQ(other, &line);
    EXPECT_EQ(seen, "from-main");
    line.Remove(cow_String("oldjobcla"));
}
