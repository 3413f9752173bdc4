#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "rgx_ReIterator.h"

namespace {

// Value patterns of the deck language, as the engine receives them.
const char* kString = "^[ \t]*([a-zA-Z_][^,=\n]*?)[ \t]*$|^[ \t]*(\"[^\"\n]*\")[ \t]*$";
const char* kInteger = "^[ \t]*([-+]?[0-9]+)[ \t]*$";
const char* kDouble = "^[ \t]*([-+]?[0-9]*\\.[0-9]*)[ \t]*$|^[ \t]*([-+]?[0-9]*\\.?[0-9]*[eE][-+]?[0-9]+)[ \t]*$";
const char* kDoubleD = "^[ \t]*([-+]?[0-9]*\\.[0-9]*)[ \t]*$|^[ \t]*([-+]?[0-9]*\\.?[0-9]*[dD][-+]?[0-9]+)[ \t]*$";
const char* kParameterName = "^[ \t]*([a-zA-Z][-a-zA-Z0-9 \t]*?[a-zA-Z0-9]*)[ \t]*$";
const char* kSetName =
    "^[ \t]*((([a-zA-Z_][^,=\n]*?)|(\"[^\"\n]+\"))(\\.(([a-zA-Z_][^,=\n]*?)|(\"[^\"\n]+\")))*?)[ \t]*$";
const char* kScopedId = "^[ \t]*(([a-zA-Z_][^\\.]*|\"[^\"]+\")\\.)*[0-9]+[ \t]*$";
const char* kFileName = "^[ \t]*([a-zA-Z0-9_$%/\\.][^,=\n]*?)[ \t]*$|^[ \t]*(\"[^\"\n]+\")[ \t]*$";

cow_String Cow(const std::string& s) { return cow_String(s.data(), static_cast<int>(s.size())); }

}  // namespace

TEST(RgxMatch, DeckValuePatterns) {
    struct Case {
        const char* pattern;
        std::vector<const char*> match, noMatch;
    } cases[] = {
        {kInteger, {"12", "+12", " -12\t"}, {"1 2", ""}},
        {kDouble, {".", "+.", "1.", ".5", "1e5", "e5"}, {"1d5"}},
        {kDoubleD, {"1d5", "1."}, {"1e5"}},
        {kSetName, {"A", "_a b", "\"x y\"", "A.B", "\"x y\".C"}, {"1A", "A=B", "A,B", "\"\""}},
        {kScopedId, {"12", "A.12", "\"x y\".12"}, {"A."}},
        {kFileName, {"1.5.3", "/tmp/x"}, {"-x", "<x>"}},
        {kParameterName, {"ELSET", "my param", "A-B"}, {"1A", "_A"}},
        {kString, {"abc", "\"a,b=c\""}, {"a=b"}},
    };
    for (const Case& c : cases) {
        for (const char* text : c.match) EXPECT_GT(rgx_match(cow_String(c.pattern), cow_String(text)).Count(), 0) << text;
        for (const char* text : c.noMatch) EXPECT_EQ(rgx_match(cow_String(c.pattern), cow_String(text)).Count(), 0) << text;
    }
}

TEST(RgxMatch, StringIsTheWholeFirstMatchNotAGroup) {
    rgx_ReIterator padded = rgx_match(cow_String(kInteger), cow_String("  -7 "));
    EXPECT_EQ(padded.String(), "  -7 ");
    EXPECT_EQ(padded.Group(1), "-7");
    EXPECT_EQ(padded.Group(9), "");
    // The lazy quantifier leaves the trailing blanks outside the group.
    rgx_ReIterator lazy = rgx_match(cow_String(kString), cow_String(" name  "));
    EXPECT_EQ(lazy.Group(1), "name");
    rgx_ReIterator many = rgx_match(cow_String("an"), cow_String("banana"));
    EXPECT_EQ(many.Count(), 2);
    EXPECT_EQ(many.String(), "an");
    EXPECT_EQ(rgx_match(cow_String("x"), cow_String("banana")).String(), "");
    EXPECT_EQ(rgx_match(cow_String("b+"), Cow(std::string("a\0bb", 4))).String(), "bb");  // behind a NUL
}

TEST(RgxSplit, KeepsEmptyPiecesAndJoinsBack) {
    const char* cases[][3] = {
        // pattern, text, pieces joined by '|'
        {"/", "a/b/c/d/e/f/g", "a|b|c|d|e|f|g"}, {"/", "a//b/", "a||b|"}, {"/", "/", "|"}, {"/", "", ""},
        {" *, *", "a , b,c", "a|b|c"},           {"x*", "abc", "abc"},   {"x*", "axxb", "a|b"},
    };
    for (auto& c : cases) {
        SCOPED_TRACE(std::string(c[0]) + " on " + c[1]);
        cow_1DArrayList<cow_String> pieces = rgx_split(cow_String(c[0]), cow_String(c[1]));
        EXPECT_EQ(rgx_join(pieces, cow_String("|")), c[2]);
        std::string joined = c[2];
        EXPECT_EQ(pieces.Count(), 1 + std::count(joined.begin(), joined.end(), '|'));
    }
}

TEST(RgxMatch, BadPatternRaises) {
    EXPECT_THROW(rgx_match(cow_String("(unclosed"), cow_String("x")), rgx_PatternError);
    try {
        rgx_split(cow_String("a{2,1}"), cow_String("x"));
        ADD_FAILURE() << "no exception";
    } catch (const nex_TextException& e) {
        EXPECT_EQ(cow_String(e.UserReport()).Find("Invalid regular expression \"a{2,1}\""), 0);
    }
}

TEST(RgxMatch, VeryLongTextsDoNotExhaustTheStack) {
    // Far beyond what the engine's recursion takes on an ordinary thread stack.
    rgx_ReIterator name = rgx_match(cow_String(kSetName), Cow("\"" + std::string(60000, 'q') + "\""));
    EXPECT_EQ(name.String().Length(), 60002);
    EXPECT_EQ(rgx_split(cow_String("/"), Cow(std::string(30000, 'a') + "/b")).Count(), 2);

    std::string beyond(rgx_ReIterator::kMaxLength + 1, 'z');
    EXPECT_EQ(rgx_match(cow_String("z+"), Cow(beyond)).Count(), 0);
    EXPECT_EQ(rgx_split(cow_String("z"), Cow(beyond)).Count(), 1);
}
