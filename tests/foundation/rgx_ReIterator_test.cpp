#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "rgx_ReIterator.h"

namespace {

// The value patterns of the deck language, as the engine receives them.
const char* kStringPat = "^[ \t]*([a-zA-Z_][^,=\n]*?)[ \t]*$|^[ \t]*(\"[^\"\n]*\")[ \t]*$";
const char* kIntegerPat = "^[ \t]*([-+]?[0-9]+)[ \t]*$";
const char* kDoublePat = "^[ \t]*([-+]?[0-9]*\\.[0-9]*)[ \t]*$|^[ \t]*([-+]?[0-9]*\\.?[0-9]*[eE][-+]?[0-9]+)[ \t]*$";
const char* kDoublePatD = "^[ \t]*([-+]?[0-9]*\\.[0-9]*)[ \t]*$|^[ \t]*([-+]?[0-9]*\\.?[0-9]*[dD][-+]?[0-9]+)[ \t]*$";
const char* kParameterNamePat = "^[ \t]*([a-zA-Z][-a-zA-Z0-9 \t]*?[a-zA-Z0-9]*)[ \t]*$";
const char* kSetNamePat =
    "^[ \t]*((([a-zA-Z_][^,=\n]*?)|(\"[^\"\n]+\"))(\\.(([a-zA-Z_][^,=\n]*?)|(\"[^\"\n]+\")))*?)[ \t]*$";
const char* kScopedIdPat = "^[ \t]*(([a-zA-Z_][^\\.]*|\"[^\"]+\")\\.)*[0-9]+[ \t]*$";
const char* kFileNamePat = "^[ \t]*([a-zA-Z0-9_$%/\\.][^,=\n]*?)[ \t]*$|^[ \t]*(\"[^\"\n]+\")[ \t]*$";

std::vector<std::string> Pieces(const cow_1DArrayList<cow_String>& list) {
    std::vector<std::string> out;
    for (int i = 0; i < list.Count(); ++i)
        out.emplace_back(list.ConstGet(i).c_str(), static_cast<size_t>(list.ConstGet(i).Length()));
    return out;
}

}  // namespace

TEST(RgxMatch, DeckValuePatterns) {
    struct Case {
        const char* pattern;
        const char* text;
        bool matches;
    } cases[] = {
        {kIntegerPat, "12", true},       {kIntegerPat, "+12", true},      {kIntegerPat, " -12\t", true},
        {kIntegerPat, "1 2", false},     {kIntegerPat, "", false},        {kDoublePat, ".", true},
        {kDoublePat, "+.", true},        {kDoublePat, "1.", true},        {kDoublePat, ".5", true},
        {kDoublePat, "1e5", true},       {kDoublePat, "e5", true},        {kDoublePat, "1d5", false},
        {kDoublePatD, "1d5", true},      {kDoublePatD, "1.", true},       {kSetNamePat, "A", true},
        {kSetNamePat, "_a b", true},     {kSetNamePat, "\"x y\"", true},  {kSetNamePat, "A.B", true},
        {kSetNamePat, "\"x y\".C", true}, {kSetNamePat, "1A", false},     {kSetNamePat, "A=B", false},
        {kSetNamePat, "A,B", false},     {kSetNamePat, "\"\"", false},    {kScopedIdPat, "12", true},
        {kScopedIdPat, "A.12", true},    {kScopedIdPat, "\"x y\".12", true}, {kScopedIdPat, "A.", false},
        {kFileNamePat, "1.5.3", true},   {kFileNamePat, "/tmp/x", true},  {kFileNamePat, "-x", false},
        {kFileNamePat, "<x>", false},    {kParameterNamePat, "ELSET", true}, {kParameterNamePat, "my param", true},
        {kParameterNamePat, "A-B", true}, {kParameterNamePat, "1A", false}, {kParameterNamePat, "_A", false},
        {kStringPat, "abc", true},       {kStringPat, "\"a,b=c\"", true}, {kStringPat, "a=b", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.pattern) + " on \"" + c.text + "\"");
        EXPECT_EQ(rgx_match(cow_String(c.pattern), cow_String(c.text)).Count() > 0, c.matches);
    }
}

TEST(RgxMatch, StringIsTheWholeFirstMatchAndGroupsAreApart) {
    rgx_ReIterator padded = rgx_match(cow_String(kIntegerPat), cow_String("  -7 "));
    EXPECT_EQ(padded.Count(), 1);
    EXPECT_EQ(padded.String(), "  -7 ");
    EXPECT_EQ(padded.Group(1), "-7");
    EXPECT_EQ(padded.Group(9), "");
    EXPECT_EQ(padded.Group(-1), "");

    // The lazy quantifier leaves the trailing blanks to the group behind it.
    rgx_ReIterator lazy = rgx_match(cow_String(kStringPat), cow_String(" name  "));
    EXPECT_EQ(lazy.Group(1), "name");
    EXPECT_EQ(lazy.Group(2), "");  // the other branch took no part

    rgx_ReIterator many = rgx_match(cow_String("an"), cow_String("banana"));
    EXPECT_EQ(many.Count(), 2);
    EXPECT_EQ(many.String(), "an");

    rgx_ReIterator none = rgx_match(cow_String("x"), cow_String("banana"));
    EXPECT_EQ(none.Count(), 0);
    EXPECT_EQ(none.String(), "");
    EXPECT_EQ(none.GroupCount(), 0);

    // All of a text with NUL bytes is searched.
    rgx_ReIterator behindNul = rgx_match(cow_String("b+"), cow_String("a\0bb", 4));
    EXPECT_EQ(behindNul.Count(), 1);
    EXPECT_EQ(behindNul.String(), "bb");
}

TEST(RgxSplit, KeepsEmptyPiecesLikeAPlainSplit) {
    struct Case {
        const char* pattern;
        const char* text;
        std::vector<std::string> pieces;
    } cases[] = {
        {"/", "a/b/c/d/e/f/g", {"a", "b", "c", "d", "e", "f", "g"}},
        {"/", "a//b/", {"a", "", "b", ""}},
        {"/", "/", {"", ""}},
        {"/", "", {""}},
        {"/", "abc", {"abc"}},
        {" *, *", "a , b,c", {"a", "b", "c"}},
        {"x*", "abc", {"abc"}},  // matches of no characters do not split
        {"x*", "axxb", {"a", "b"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.pattern) + " on \"" + c.text + "\"");
        EXPECT_EQ(Pieces(rgx_split(cow_String(c.pattern), cow_String(c.text))), c.pieces);
    }
}

TEST(RgxJoin, PutsTheSeparatorBetweenPieces) {
    cow_1DArrayList<cow_String> pieces;
    EXPECT_EQ(rgx_join(pieces, cow_String(", ")), "");
    pieces.Append(cow_String("a"));
    EXPECT_EQ(rgx_join(pieces, cow_String(", ")), "a");
    pieces.Append(cow_String(""));
    pieces.Append(cow_String("c"));
    EXPECT_EQ(rgx_join(pieces, cow_String(", ")), "a, , c");
    EXPECT_EQ(rgx_join(rgx_split(cow_String("/"), cow_String("x//y/")), cow_String("/")), "x//y/");
}

TEST(RgxMatch, BadPatternRaises) {
    EXPECT_THROW(rgx_match(cow_String("(unclosed"), cow_String("x")), rgx_PatternError);
    EXPECT_THROW(rgx_split(cow_String("[z-a]"), cow_String("x")), rgx_PatternError);
    try {
        rgx_match(cow_String("a{2,1}"), cow_String("x"));
        FAIL() << "no exception";
    } catch (const nex_TextException& e) {
        EXPECT_EQ(cow_String(e.UserReport()).Find("Invalid regular expression \"a{2,1}\""), 0);
    }
    // A good pattern still works after a bad one.
    EXPECT_EQ(rgx_match(cow_String("a"), cow_String("a")).Count(), 1);
}

TEST(RgxMatch, VeryLongTextsDoNotExhaustTheStack) {
    // A quoted name far beyond what the engine's recursion could take on a normal
    // thread stack.
    std::string quoted = "\"" + std::string(60000, 'q') + "\"";
    rgx_ReIterator longName = rgx_match(cow_String(kSetNamePat), cow_String(quoted.c_str()));
    EXPECT_EQ(longName.Count(), 1);
    EXPECT_EQ(longName.String().Length(), 60002);

    std::string fields = std::string(30000, 'a') + "/" + std::string(30000, 'b');
    EXPECT_EQ(rgx_split(cow_String("/"), cow_String(fields.c_str())).Count(), 2);

    std::string beyond(rgx_ReIterator::kMaxLength + 1, 'z');
    EXPECT_EQ(rgx_match(cow_String("z+"), cow_String(beyond.c_str())).Count(), 0);
    cow_1DArrayList<cow_String> whole = rgx_split(cow_String("z"), cow_String(beyond.c_str()));
    ASSERT_EQ(whole.Count(), 1);
    EXPECT_EQ(whole.ConstGet(0).Length(), rgx_ReIterator::kMaxLength + 1);
}
