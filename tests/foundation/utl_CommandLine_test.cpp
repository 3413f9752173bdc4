#include <gtest/gtest.h>

#include "utl_CommandLine.h"

TEST(UtlCommandLine, ParsesKeysAndHandsBackTheRest) {
    utl_CommandLine line;
    const char* argv[] = {"inpdeck", "job.inp", "indir=/old", "oldjobcla=base", "expr=a=b",
                          "=x",      "flag",    "empty=",     "indir=/newer"};
    cow_1DArrayList<cow_String> rest = line.Parse(9, argv);
    ASSERT_EQ(rest.Count(), 3);
    EXPECT_EQ(rest.ConstGet(0), "job.inp");
    EXPECT_EQ(rest.ConstGet(1), "=x");
    EXPECT_EQ(rest.ConstGet(2), "flag");
    const char* cases[][3] = {
        // key, member, value
        {"indir", "1", "/newer"}, {"oldjobcla", "1", "base"}, {"expr", "1", "a=b"}, {"empty", "1", ""},
        {"flag", "", ""},         {"INDIR", "", ""},          {"", "", ""},
    };
    for (auto& c : cases) {
        SCOPED_TRACE(c[0]);
        EXPECT_EQ(line.IsMember(cow_String(c[0])), *c[1] != '\0');
        EXPECT_EQ(line.ConstGetValue(cow_String(c[0])), c[2]);
    }
    line.Set(cow_String("flag"), cow_String("on"));
    line.Remove(cow_String("indir"));
    EXPECT_EQ(line.ConstGetValue(cow_String("flag")), "on");
    EXPECT_FALSE(line.IsMember(cow_String("indir")));
}
