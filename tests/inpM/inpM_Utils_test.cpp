#include <gtest/gtest.h>

#include "inpM_TestLists.h"
#include "inpM_Utils.h"
#include "inp_ElementUndefinedNodesError.h"

TEST(ModelUtils, CollectedErrorsPutTheListBelowTheHead) {
    cow_List<cow_String> names;
    names.Append(cow_String("A")).Append(cow_String("\"B.C\""));
    EXPECT_EQ(inpM_Utils::FormatCollectedErrors(atr_String("The following sets were not found:"), names),
              atr_String("The following sets were not found:\nA, \"B.C\""));
    EXPECT_EQ(inpM_Utils::FormatCollectedErrors(atr_String("Nothing to list."), cow_List<cow_String>()),
              atr_String("Nothing to list.\n"));

    cow_1DArrayList<int> ids;
    for (int id = 1; id <= 17; ++id) ids.Append(id);
    EXPECT_EQ(inpM_Utils::FormatCollectedErrors(atr_String("Ids:"), ids),
              atr_String("Ids:\n1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16,\n17"));

    EXPECT_EQ(inp_ElementUndefinedNodesError(List({4, 9})).UserReport(),
              atr_String("The following elements reference one or more nodes that do not exist\n4, 9"));
    inp_ElementUndefinedNodesError inInstance(List({12}), cow_String("Pump-1"));
    EXPECT_EQ(inInstance.UserReport(),
              atr_String("The following elements in instance Pump-1 reference one or more nodes that do not exist\n12"));
    EXPECT_EQ(inInstance.instanceName, cow_String("Pump-1"));
}

TEST(ModelUtils, RemoveQuotesTakesOnlyEnclosingQuotes) {
    const char* cases[][2] = {
        {"\"My Set\"", "My Set"}, {"\"\"", ""},          {"\"", "\""},         {"Plain", "Plain"},
        {"\"open", "\"open"},     {"a\"b\"", "a\"b\""}, {"\"a\".\"b\"", "a\".\"b"}, {"", ""},
    };
    for (const auto& c : cases) EXPECT_EQ(inpM_Utils::RemoveQuotes(cow_String(c[0])), cow_String(c[1])) << c[0];
}
