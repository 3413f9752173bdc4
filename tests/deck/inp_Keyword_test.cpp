#include <gtest/gtest.h>

#include "inp_Keyword.h"

namespace {

inp_Keyword NodeWithData() {
    inp_Keyword k(inp_kwNode, cow_String("job.inp"));
    k.lineNumber = 12;
    k.parent = inp_kwPart;
    k.parameters.Insert("nset", inp_Item(cow_String("ALL")));
    k.data.Append("1, 0., 0.");
    return k;
}

}  // namespace

TEST(Keyword, Construction) {
    inp_Keyword blank;
    EXPECT_EQ(blank.keyword, inp_kwUndefined);
    ASSERT_TRUE(blank.data.HasValue());
    EXPECT_EQ(blank.data.NumberOfLines(), 0);
    EXPECT_EQ(blank.Name(), "undefined keyword");

    EXPECT_EQ(inp_Keyword(cow_String("node")).keyword, inp_kwNode);
    EXPECT_EQ(inp_Keyword(cow_String("elco")).keyword, inp_kwElcopy);     // an abbreviation
    EXPECT_EQ(inp_Keyword(cow_String("elem")).keyword, inp_kwUndefined);  // ambiguous
    EXPECT_EQ(inp_Keyword(cow_String("nosuchkeyword")).keyword, inp_kwUndefined);
    EXPECT_EQ(inp_Keyword(inp_kwElset).Name(), "elset");

    // Each keyword has an array of its own.
    inp_Keyword other;
    other.data.Append("x");
    EXPECT_EQ(blank.data.NumberOfLines(), 0);
}

TEST(Keyword, CopiesShareDataButNotParametersOrSuboptions) {
    inp_Keyword source = NodeWithData();
    source.suboptions.Append(inp_Keyword(inp_kwNset));

    inp_Keyword copy = source;
    copy.data.Set(0, 0, 5);
    copy.data.Append("2, 1., 1.");
    copy.parameters.Insert("nset", inp_Item(cow_String("OTHER")));
    copy.parameters.Insert("system", inp_Item(cow_String("R")));
    copy.suboptions.Append(inp_Keyword(inp_kwElset));

    EXPECT_EQ(source.data.AsInt(0, 0), 5);
    EXPECT_EQ(source.data.NumberOfLines(), 2);
    EXPECT_EQ(source.GetParameterAsString("nset", ""), "ALL");
    EXPECT_FALSE(source.HasParameter("system"));
    EXPECT_EQ(source.suboptions.Count(), 1);
    EXPECT_EQ(copy.suboptions.Count(), 2);
}

TEST(Keyword, DeepCopyOwnsEverything) {
    inp_Keyword source = NodeWithData();
    inp_Keyword sub(inp_kwNset);
    sub.data.Append("1, 2");
    source.suboptions.Append(sub);

    inp_Keyword deep = source.DeepCopy();
    EXPECT_EQ(deep.keyword, inp_kwNode);
    EXPECT_EQ(deep.parent, inp_kwPart);
    EXPECT_EQ(deep.fileName, "job.inp");
    EXPECT_EQ(deep.lineNumber, 12);
    EXPECT_EQ(deep.GetParameterAsString("nset", ""), "ALL");
    ASSERT_EQ(deep.suboptions.Count(), 1);
    EXPECT_EQ(deep.suboptions[0].data.AsString(0, 1), "2");

    deep.data.Set(0, 0, 9);
    deep.suboptions.Get(0).data.Set(0, 0, 8);
    deep.parameters.Insert("nset", inp_Item(cow_String("X")));
    EXPECT_EQ(source.data.AsInt(0, 0), 1);
    EXPECT_EQ(source.suboptions[0].data.AsInt(0, 0), 1);
    EXPECT_EQ(sub.data.AsInt(0, 0), 1);
    EXPECT_EQ(source.GetParameterAsString("nset", ""), "ALL");
}

TEST(Keyword, Suboptions) {
    inp_Keyword k(inp_kwPart);
    EXPECT_FALSE(k.hasSuboption(inp_kwNode));
    EXPECT_EQ(k.FindSuboption(inp_kwNode), nullptr);

    inp_Keyword first(inp_kwNode), second(inp_kwNode), element(inp_kwElement);
    first.lineNumber = 1;
    second.lineNumber = 2;
    k.suboptions.Append(first);
    k.suboptions.Append(element);
    k.suboptions.Append(second);
    EXPECT_TRUE(k.hasSuboption(inp_kwNode));
    ASSERT_NE(k.FindSuboption(inp_kwNode), nullptr);
    EXPECT_EQ(k.FindSuboption(inp_kwNode)->lineNumber, 2);
    EXPECT_EQ(k.FindSuboption(inp_kwElement)->keyword, inp_kwElement);

    // Only direct suboptions count.
    inp_Keyword outer(inp_kwAssembly);
    outer.suboptions.Append(k);
    EXPECT_FALSE(outer.hasSuboption(inp_kwNode));
}

TEST(Keyword, TypedParameterAccess) {
    inp_Keyword k(inp_kwElement);
    k.parameters.Insert("n", inp_Item(cow_String("12")));
    k.parameters.Insert("x", inp_Item(cow_String("2.5")));
    k.parameters.Insert("name", inp_Item(cow_String("BAR")));
    k.parameters.Insert("flag", inp_Item(true));

    EXPECT_EQ(k.GetParameterAsInt("n", -1), 12);
    EXPECT_EQ(k.GetParameterAsInt("x", -1), -1);
    EXPECT_EQ(k.GetParameterAsInt("flag", -1), -1);
    EXPECT_EQ(k.GetParameterAsInt("N", -1), -1);  // keys are exact

    EXPECT_DOUBLE_EQ(k.GetParameterAsDouble("x", -1.0), 2.5);
    EXPECT_DOUBLE_EQ(k.GetParameterAsDouble("n", -1.0), 12.0);
    EXPECT_DOUBLE_EQ(k.GetParameterAsDouble("name", -1.0), -1.0);

    EXPECT_EQ(k.GetParameterAsString("name", "none"), "BAR");
    EXPECT_EQ(k.GetParameterAsString("n", "none"), "none");  // present, but no string
    EXPECT_TRUE(k.HasParameter("flag"));
    EXPECT_FALSE(k.HasParameter("Flag"));
}
