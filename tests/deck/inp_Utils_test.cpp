#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "inp_Keyword.h"
#include "inp_Utils.h"

namespace {

cow_1DArrayList<int> Ids(std::initializer_list<int> values) {
    cow_1DArrayList<int> out;
    for (int v : values) out.Append(v);
    return out;
}

std::vector<int> AsVector(const cow_1DArrayList<int>& ids) {
    std::vector<int> out;
    for (int i = 0; i < ids.Count(); ++i) out.push_back(ids[i]);
    return out;
}

}  // namespace

TEST(Utils, MessageInKeywordNamesThePlace) {
    inp_Keyword k(inp_kwMapSolution, cow_String("D:\\jobs\\a.inp"));
    k.lineNumber = 12;
    EXPECT_EQ(inp_Utils::MessageInKeyword(k, atr_String("bad.")),
              "in keyword *MAPSOLUTION, file \"a.inp\", line 12: bad.");

    k.fileName = "/jobs/a.inp";
    EXPECT_EQ(inp_Utils::MessageInKeyword(k, atr_String("bad.")),
              "in keyword *MAPSOLUTION, file \"/jobs/a.inp\", line 12: bad.");

    inp_Keyword made(inp_kwNode);
    EXPECT_EQ(inp_Utils::MessageInKeyword(made, atr_String("bad.")), "in keyword *NODE bad.");
    made.lineNumber = 3;
    EXPECT_EQ(inp_Utils::MessageInKeyword(made, atr_String("x")), "in keyword *NODE, line 3: x");
    made.lineNumber = 0;
    made.fileName = "n.inp";
    EXPECT_EQ(inp_Utils::MessageInKeyword(made, atr_String("x")), "in keyword *NODE, file \"n.inp\" x");

    EXPECT_EQ(inp_Utils::MessageInKeyword(inp_Keyword(), atr_String("x")), "in keyword *UNDEFINED KEYWORD x");
}

TEST(Utils, MessageInKeywordWithLists) {
    inp_Keyword k(inp_kwElset, cow_String("b.inp"));
    k.lineNumber = 4;
    EXPECT_EQ(inp_Utils::MessageInKeyword(k, atr_String("Invalid data"), Ids({3, 1, 2})),
              "in keyword *ELSET, file \"b.inp\", line 4: Invalid data:\n3, 1, 2");
    EXPECT_EQ(inp_Utils::MessageInKeyword(k, atr_String("Invalid data"), cow_1DArrayList<int>()),
              "in keyword *ELSET, file \"b.inp\", line 4: Invalid data:\n");
    cow_List<cow_String> names;
    names.Append("A").Append("\"b c\"");
    EXPECT_EQ(inp_Utils::MessageInKeyword(k, atr_String("Missing"), names),
              "in keyword *ELSET, file \"b.inp\", line 4: Missing:\nA, \"b c\"");
}

TEST(Utils, ExpandGeneration) {
    struct Case {
        std::initializer_list<int> ids;
        std::vector<int> expected;
        const char* error;
    };
    const char* fewer =
        "There are fewer than 2 items on a data line for which a generation sequence (start id, end id, optional "
        "increment number) is expected.  The keyword in question is related to *NSET.  Please check input data.";
    const Case cases[] = {
        {{1, 10, 3}, {1, 4, 7, 10}, nullptr},
        {{1, 10, 4}, {}, "Increment of 4 cannot be used to step from 1 to 10 on *NSET keyword."},
        {{10, 1, -3}, {10, 7, 4, 1}, nullptr},
        {{10, 1, 3}, {}, "Increment of 3 cannot be used to step from 10 to 1 on *NSET keyword."},
        {{10, 1}, {}, "Increment of 1 cannot be used to step from 10 to 1 on *NSET keyword."},
        {{5, 5}, {5}, nullptr},
        {{5, 5, -2}, {5}, nullptr},
        {{1, 3, 0}, {1, 2, 3}, nullptr},
        {{1, 3}, {1, 2, 3}, nullptr},
        {{-3, 3, 3}, {-3, 0, 3}, nullptr},
        {{7}, {}, fewer},
        {{}, {}, fewer},
        // A sequence no model could hold is refused before it is built.
        {{1, 999999999}, {}, "The generation on the *NSET keyword gives more than 100000000 ids."},
        {{-2147483647, 2147483647, 2}, {}, "The generation on the *NSET keyword gives more than 100000000 ids."},
    };
    for (const Case& c : cases) {
        inp_Utils::Generation g = inp_Utils::ExpandGeneration(Ids(c.ids), "*NSET");
        EXPECT_EQ(AsVector(g.ids), c.expected);
        if (c.error) {
            ASSERT_EQ(g.errors.Count(), 1);
            EXPECT_EQ(g.errors[0], c.error);
        } else {
            EXPECT_EQ(g.errors.Count(), 0);
        }
    }
}

TEST(Utils, ExpandDataGenerationJoinsAllLines) {
    inp_DataArray data(new inp_RawDataArrayImpl());
    data.Append("1, 5, 2");
    data.Append(" 20 , , 22,");  // blank items are left out
    data.Append("9");
    data.Append("30, 26, 2");
    inp_Utils::Generation g = inp_Utils::ExpandDataGeneration(data, "*ELSET");
    EXPECT_EQ(AsVector(g.ids), (std::vector<int>{1, 3, 5, 20, 21, 22}));
    ASSERT_EQ(g.errors.Count(), 2);
    EXPECT_TRUE(g.errors[0].StartsWith("There are fewer than 2 items"));
    EXPECT_EQ(g.errors[1], "Increment of 2 cannot be used to step from 30 to 26 on *ELSET keyword.");
}

TEST(Utils, NameClassifiers) {
    for (const char* t : {"SEGMENTS", "CYLINDER", "REVOLUTION", "USER", "BEZIER", "BSPLINE"})
        EXPECT_TRUE(inp_Utils::IsAnalyticalSurfaceType(t)) << t;
    for (const char* t : {"ELEMENT", "NODE", "cylinder", "USER ", "", "CUTTINGSURFACE"})
        EXPECT_FALSE(inp_Utils::IsAnalyticalSurfaceType(t)) << t;

    for (const char* t : {"A.B", "Part-1-1.TOP", "\"a.b\".c", ".", "\"x\".", "a\"b\"."})
        EXPECT_TRUE(inp_Utils::HasScopeSeparator(t)) << t;
    for (const char* t : {"AB", "\"a.b\"", "", "\"open.", "\"a\"\"b.c\""})
        EXPECT_FALSE(inp_Utils::HasScopeSeparator(t)) << t;
}

TEST(Utils, SplitScopedSetKeepsQuotedPeriods) {
    struct Case {
        const char* name;
        std::vector<std::string> segments;
    };
    const Case cases[] = {
        {"TOP", {"TOP"}},
        {"PUMP-1.12", {"PUMP-1", "12"}},
        {"ASM.PUMP-1.TOP", {"ASM", "PUMP-1", "TOP"}},
        {"\"A.B\".C", {"\"A.B\"", "C"}},
        {"A.\"x.y\"", {"A", "\"x.y\""}},
        {"A..B.", {"A", "", "B", ""}},
        {"", {""}},
    };
    for (const Case& c : cases) {
        cow_List<cow_String> segments = inp_Utils::SplitScopedSet(cow_String(c.name));
        std::vector<std::string> got;
        for (int i = 0; i < segments.Count(); ++i) got.push_back(segments[i].c_str());
        EXPECT_EQ(got, c.segments) << c.name;
    }
}

TEST(Utils, CreateFlattenedNameJoinsSegmentsAndKeepsOnePairOfQuotes) {
    struct Case {
        const char* a;
        const char* b;
        const char* c;  // null: the two-segment form
        const char* flat;
    };
    const Case cases[] = {
        {"PART-1-1", "TOP", nullptr, "PART-1-1_TOP"},
        {"\"My part\"", "TOP", nullptr, "\"My part_TOP\""},
        {"PART-1-1", "\"Top set\"", nullptr, "\"PART-1-1_Top set\""},
        {"\"My part\"", "\"Top set\"", nullptr, "\"My part_Top set\""},
        {"ASM", "PUMP-1", "TOP", "ASM_PUMP-1_TOP"},
        {"ASM", "\"Pump 1\"", "TOP", "\"ASM_Pump 1_TOP\""},
        {"\"\"", "X", nullptr, "\"_X\""},
        {"\"", "X", nullptr, "\"_X"},  // one quote alone is no quoted name
    };
    for (const Case& c : cases) {
        cow_String got = c.c ? inp_Utils::CreateFlattenedName(c.a, c.b, c.c) : inp_Utils::CreateFlattenedName(c.a, c.b);
        EXPECT_STREQ(got.c_str(), c.flat) << c.a << " " << c.b;
    }
}
