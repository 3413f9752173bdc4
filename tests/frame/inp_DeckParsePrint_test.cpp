// inp_Deck::Parse and the normal form of a deck: what reaches the error sink, how
// keyword lines and data lines are written, and that the printed deck reads back to
// the same keywords.
#include <gtest/gtest.h>

#include "../support/inp_TestFiles.h"
#include "wip_WIP.h"

using inp_test::Printed;
using inp_test::TempDir;

namespace {

wip_WIP& Sink() { return thr_ThreadSingleton<wip_WIP>::Instance(); }

inp_Keyword WithParameters(inp_KeywordEnm value, const std::vector<std::pair<const char*, inp_Item>>& parameters) {
    inp_Keyword k(value);
    for (const auto& p : parameters) k.parameters.Insert(cow_String(p.first), p.second);
    return k;
}

inp_Item Text(int length, char c = 'A') { return inp_Item(cow_String(std::string(length, c).c_str())); }

TEST(DeckParse, SmallestSliceReadsAndPrints) {
    TempDir dir;
    inp_Deck deck;
    Sink().Clear();
    const std::string path = dir.Write("slice.inp", "*NODE, NSET=A\n1, 0., 0., 0.\n");
    deck.Parse(cow_String(path.c_str()));
    EXPECT_STREQ(deck.fileName.c_str(), path.c_str());
    EXPECT_EQ(Sink().Count(), 0);
    ASSERT_EQ(deck.keywords.Count(), 1);
    const inp_Keyword& node = deck.keywords[0];
    EXPECT_EQ(node.keyword, inp_kwNode);
    ASSERT_EQ(node.parameters.Count(), 1);
    const inp_Item* nset = node.parameters.Lookup(cow_String("nset"));
    ASSERT_NE(nset, nullptr);
    EXPECT_EQ(nset->type, inp_Types::typeString);
    EXPECT_STREQ(nset->stringValue.c_str(), "A");
    EXPECT_EQ(node.data.NumberOfLines(), 1);

    aio_ostringstream out;
    deck.Print(out);
    EXPECT_STREQ(out.str().c_str(), "*node, nset=A\n1, 0., 0., 0.\n");
}

TEST(DeckParse, FatalErrorsReachTheSinkBeforeTheOthers) {
    TempDir dir;
    inp_Deck deck;
    Sink().Clear();
    deck.Parse(cow_String(dir.Write("deck.inp", "*BOGUS\n*INCLUDE, INPUT=nope.inp\n*HEADING\n*INCLUDE\n").c_str()));
    ASSERT_EQ(Sink().Count(), 3);
    const struct {
        int level;
        const char* text;
    } expected[] = {
        {0, "Include file \"nope.inp\" does not exist."},
        {0, "Missing input parameter"},
        {1, "Unknown keyword \"bogus\". The keyword may be misspelled, obsolete, or invalid."},
    };
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(Sink().Record(i).IsError());
        EXPECT_EQ(Sink().Record(i).level, expected[i].level);
        EXPECT_STREQ(Sink().Record(i).text.c_str(), expected[i].text);
    }
    EXPECT_EQ(deck.keywords.Count(), 1);

    // A second Parse replaces the keywords; a file that cannot be read says nothing.
    Sink().Clear();
    deck.Parse(cow_String((dir / "absent.inp").c_str()));
    EXPECT_EQ(deck.keywords.Count(), 0);
    EXPECT_EQ(Sink().Count(), 0);
}

TEST(DeckPrint, KeywordLinesWrapBefore132Characters) {
    // Single-letter keys of even characters stand in the map in insertion order.
    struct Case {
        inp_Keyword keyword;
        std::string printed;
    } cases[] = {
        {inp_Keyword(inp_kwHeading), "*heading\n"},
        {inp_Keyword(), "*undefined keyword\n"},
        // The fourth parameter takes the width to 132: it starts the next line.
        {WithParameters(inp_kwNset, {{"b", Text(40)}, {"d", Text(40)}, {"f", Text(30)}, {"h", Text(1)},
                                     {"j", Text(10)}}),
         "*nset, b=" + std::string(40, 'A') + ", d=" + std::string(40, 'A') + ", f=" + std::string(30, 'A') +
             ",\nh=A, j=" + std::string(10, 'A') + "\n"},
        // One below: it stays.
        {WithParameters(inp_kwNset, {{"b", Text(40)}, {"d", Text(40)}, {"f", Text(29)}, {"h", Text(1)}}),
         "*nset, b=" + std::string(40, 'A') + ", d=" + std::string(40, 'A') + ", f=" + std::string(29, 'A') +
             ", h=A\n"},
        {WithParameters(inp_kwNset, {{"b", Text(200)}}), "*nset,\nb=" + std::string(200, 'A') + "\n"},
        // Flags are written as their key, but their text counts towards the width.
        {WithParameters(inp_kwNset, {{"b", inp_Item(true)}, {"d", inp_Item(false)}, {"f", inp_Item()}}),
         "*nset, b, d, f\n"},
        {WithParameters(inp_kwNset, {{"b", Text(116)}, {"d", inp_Item(true)}}),
         "*nset, b=" + std::string(116, 'A') + ",\nd\n"},
        {WithParameters(inp_kwNset, {{"b", Text(114)}, {"d", inp_Item(true)}}),
         "*nset, b=" + std::string(114, 'A') + ", d\n"},
        {WithParameters(inp_kwStep, {{"b", inp_Item(2.5)}, {"d", inp_Item(7)}, {"f", inp_Item("\"my set\"")}}),
         "*step, b=2.5, d=7, f=\"my set\"\n"},
    };
    for (const Case& c : cases) EXPECT_EQ(Printed(c.keyword), c.printed);
}

TEST(DeckPrint, DataItemsArePrintedInTheirNormalForm) {
    inp_Keyword k(inp_kwNset);
    for (const char* line : {"1,  2.5e3,   abc", "1, , 3", "", "\"my set\", x y", "a,"}) k.data.Append(line);
    EXPECT_EQ(Printed(k), "*nset\n1, 2.5E3, ABC\n1, , 3\n\n\"MY SET\", XY\nA, \n");
}

TEST(DeckPrint, SuboptionsFollowTheirParentWhenRecursive) {
    inp_Keyword step(inp_kwStep);
    step.suboptions.Append(inp_Keyword(inp_kwStatic));
    inp_Keyword cload(inp_kwCload);
    cload.data.Append("TIP, 3, -250.");
    step.suboptions.Append(cload);
    EXPECT_EQ(Printed(step, true), "*step\n*static\n*cload\nTIP, 3, -250.\n");
    EXPECT_EQ(Printed(step, false), "*step\n");
}

// Keywords equal as far as the text of a deck can tell.
void ExpectSameKeywords(const cow_1DArrayList<inp_Keyword>& a, const cow_1DArrayList<inp_Keyword>& b) {
    ASSERT_EQ(a.Count(), b.Count());
    for (int i = 0; i < a.Count(); ++i) {
        const inp_Keyword& x = a[i];
        const inp_Keyword& y = b[i];
        EXPECT_EQ(x.keyword, y.keyword) << i;
        ASSERT_EQ(x.parameters.Count(), y.parameters.Count()) << i;
        cow_ConstMapIterator<cow_String, inp_Item> it(x.parameters);
        for (it.First(); !it.IsDone(); it.Next()) {
            const inp_Item* other = y.parameters.Lookup(it.CurrentKey());
            ASSERT_NE(other, nullptr) << it.CurrentKey().c_str();
            EXPECT_EQ(other->type, it.CurrentValue().type) << it.CurrentKey().c_str();
            EXPECT_STREQ(other->AsString().c_str(), it.CurrentValue().AsString().c_str());
        }
        ASSERT_EQ(x.data.NumberOfLines(), y.data.NumberOfLines()) << i;
        for (int l = 0; l < x.data.NumberOfLines(); ++l) {
            ASSERT_EQ(x.data.NumberOfItems(l), y.data.NumberOfItems(l));
            for (int j = 0; j < x.data.NumberOfItems(l); ++j)
                EXPECT_STREQ(x.data.AsString(l, j).c_str(), y.data.AsString(l, j).c_str());
        }
    }
}

TEST(DeckPrint, PrintedDeckReadsBackToTheSameKeywords) {
    TempDir dir;
    std::string longLine = "*STEP";
    for (int i = 0; i < 12; ++i) longLine += ", PARAM" + std::to_string(i) + "=VALUE" + std::to_string(i * 7919);
    const std::string decks[] = {
        std::string(INP_EXAMPLES_DIR) + "/beam.inp",
        dir.Write("long.inp", longLine + ", NAME=\"a, b=c\", FLAG\n*HEADING\n  some Text, \"q, r\"\n"),
    };
    for (const std::string& path : decks) {
        inp_Deck first;
        first.includeDirectory = INP_EXAMPLES_DIR;
        Sink().Clear();
        first.Parse(cow_String(path.c_str()));
        EXPECT_EQ(Sink().Count(), 0) << path;
        ASSERT_GT(first.keywords.Count(), 1);

        aio_ostringstream out;
        first.Print(out);
        const std::string printed = out.str().c_str();
        for (size_t start = 0, end; start < printed.size(); start = end + 1) {
            end = printed.find('\n', start);
            // Below the width, and the comma that announces a continuation line.
            EXPECT_LE(end - start, 132u) << printed.substr(start, end - start);
        }

        inp_Deck second;
        second.Parse(cow_String(dir.Write("again.inp", printed).c_str()));
        EXPECT_EQ(Sink().Count(), 0);
        ExpectSameKeywords(first.keywords, second.keywords);
        aio_ostringstream again;
        second.Print(again);
        EXPECT_STREQ(again.str().c_str(), printed.c_str());
    }
}

TEST(DeckPrint, LinesThatLookLikeCommentsOrBlankKeywordsReadBack) {
    TempDir dir;
    inp_Deck first;
    Sink().Clear();
    first.Parse(cow_String(dir.Write("odd.inp", "*HEADING\n* * x, y\n*NSET, NSET=A\n*1\n").c_str()));
    first.keywords.Get(1) = inp_Keyword();  // blanked by a pass, not yet removed
    const std::string printed = Printed(first.keywords);
    // The first item's normal form would start a comment; its own text does not.
    EXPECT_EQ(printed, "*heading\n* * x, Y\n*undefined keyword\n");

    inp_Deck second;
    second.Parse(cow_String(dir.Write("again.inp", printed).c_str()));
    EXPECT_EQ(Sink().Count(), 0);
    ASSERT_EQ(second.keywords.Count(), 2);
    EXPECT_EQ(second.keywords[1].keyword, inp_kwUndefined);
    ExpectSameKeywords(first.keywords, second.keywords);
    EXPECT_EQ(Printed(second.keywords), printed);
}

// What the expansion made of a deck must print in a form that reads and expands back
// to the same keywords: an empty line in a *NODE block packs to label 0, which the
// packing refuses as text, and a line of many short items, which the blank behind each
// comma would take past the 256 characters the reader keeps.
TEST(DeckPrint, ExpandedDecksReadBackToTheSameKeywords) {
    TempDir dir;
    std::string shortItems = "1";
    for (int i = 2; shortItems.size() + 2 <= 256; ++i) shortItems += "," + std::to_string(i % 10);
    struct Case {
        std::string deck;
        std::string printed;
    } cases[] = {
        {"*NODE, NSET=N\n1, 0., 0., 0.\n\n2, 1., 0., 0.\n",
         "*node, nset=N\n1, 0., 0., 0., 0., 0., 0.\n\n2, 1., 0., 0., 0., 0., 0.\n"},
        {"*HEADING\n" + shortItems + "\n1, 2\n", "*heading\n" + shortItems + "\n1, 2\n"},
    };
    for (const Case& c : cases) {
        inp_Deck first;
        Sink().Clear();
        first.Parse(cow_String(dir.Write("deck.inp", c.deck).c_str()));
        first.ExpandKeywords();
        const std::string printed = Printed(first.keywords);
        EXPECT_EQ(printed, c.printed);

        inp_Deck second;
        second.Parse(cow_String(dir.Write("again.inp", printed).c_str()));
        second.ExpandKeywords();
        EXPECT_EQ(Sink().Count(), 0) << c.deck;
        ExpectSameKeywords(first.keywords, second.keywords);
        EXPECT_EQ(Printed(second.keywords), printed);
    }
}

}  // namespace
