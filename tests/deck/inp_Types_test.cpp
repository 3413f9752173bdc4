// The recognisers must accept exactly what their published patterns accept. A regular
// expression engine is the reference: every short text over alphabets that hold each
// character class the patterns tell apart, and a table of longer texts.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "inp_Types.h"

namespace {

struct Recogniser {
    const char* name;
    const char* pattern;
    bool (*match)(const char*, int);
};

std::vector<Recogniser> AllRecognisers() {
    return {
        {"stringPat", inp_Types::stringPat(), &inp_Types::MatchString},
        {"integerPat", inp_Types::integerPat(), &inp_Types::MatchInteger},
        {"doublePat", inp_Types::doublePat(), &inp_Types::MatchDouble},
        {"doublePatD", inp_Types::doublePatD(), &inp_Types::MatchDoubleD},
        {"parameterNamePat", inp_Types::parameterNamePat(), &inp_Types::MatchParameterName},
        {"setNamePat", inp_Types::setNamePat(), &inp_Types::MatchSetName},
        {"scopedIdPat", inp_Types::scopedIdPat(), &inp_Types::MatchScopedId},
        {"fileNamePat", inp_Types::fileNamePat(), &inp_Types::MatchFileName},
        {"superelementIDPat", inp_Types::superelementIDPat(), &inp_Types::MatchSuperelementID},
        {"userElementIDPat", inp_Types::userElementIDPat(), &inp_Types::MatchUserElementID},
    };
}

// Every text of length 0 to maxLength over the alphabet, each checked against every
// recogniser. Returns the number of texts, so the caller can see the walk happened.
int CompareAll(const std::string& alphabet, int maxLength) {
    std::vector<Recogniser> recognisers = AllRecognisers();
    std::vector<std::regex> expressions;
    for (const Recogniser& r : recognisers) expressions.emplace_back(r.pattern, std::regex::ECMAScript);
    int texts = 0;
    std::vector<int> digits;
    std::string text;
    for (int length = 0; length <= maxLength; ++length) {
        digits.assign(static_cast<size_t>(length), 0);
        for (;;) {
            text.clear();
            for (int d : digits) text += alphabet[static_cast<size_t>(d)];
            ++texts;
            for (size_t k = 0; k < recognisers.size(); ++k) {
                bool expected = std::regex_search(text, expressions[k]);
                bool got = recognisers[k].match(text.c_str(), static_cast<int>(text.size()));
                if (expected != got) {
                    ADD_FAILURE() << recognisers[k].name << " on \"" << text << "\": expected " << expected;
                    return texts;
                }
            }
            size_t pos = 0;
            while (pos < digits.size() && ++digits[pos] == static_cast<int>(alphabet.size())) digits[pos++] = 0;
            if (pos == digits.size()) break;
        }
    }
    return texts;
}

}  // namespace

TEST(TypesPatterns, PublishedTexts) {
    EXPECT_STREQ(inp_Types::integerPat(), "^[ \t]*([-+]?[0-9]+)[ \t]*$");
    EXPECT_STREQ(inp_Types::scopedIdPat(), "^[ \t]*(([a-zA-Z_][^\\.]*|\"[^\"]+\")\\.)*[0-9]+[ \t]*$");
    EXPECT_STREQ(inp_Types::fakeName(), "FAKE");
}

// Names, quotes, numbers, separators and the characters that end a name.
TEST(TypesPatterns, RecognisersAgreeWithExpressionsOnAllShortTexts) {
    EXPECT_EQ(CompareAll("a1.\" ,ed-_", 5), 111111);
}

// The characters that only some patterns single out, in shorter texts.
TEST(TypesPatterns, RecognisersAgreeOnRarerCharacters) {
    EXPECT_EQ(CompareAll("\t\n=+EDZzUuVv/$%<2", 3), 1 + 17 + 17 * 17 + 17 * 17 * 17);
    EXPECT_EQ(CompareAll("Uv9 .\"\n", 5), 1 + 7 + 49 + 343 + 2401 + 16807);
}

TEST(TypesPatterns, RecognisersAgreeOnLongerTexts) {
    const char* texts[] = {
        "Assembly-1.Pump-1.TOP", "\"my set\"", "\"x y\".C", "\"x y\".12", "A.\"x,y\".B", "A.\"x,y\"",
        "A.\"x,y\" ,", "  _a b  ", "A.B=C", "Part-1-1.12", "\"a.b\".\"c\".7", "a.b.c.", "1.5E+03",
        "-.5e-7", "  +12  ", "1 2", "12abc", "/tmp/x.inp", "$HOME/x", "%x", "<x>", "-x", "VVU12", "vu3 ",
        "Z12", "z", "my param", "A-B", "1A", "_A", "ELSET", "A\tB", "\"\"", "\"a\"\"b\"", "\"a\nb\".3",
        "a\nb.3", "x.\"\n\".4", "1.5d3", "1.5D+3", "d3", ".", "+.", "e5", "1e", "\"open", "A.\"\".B",
        "1d5", "1e5", "1.", ".5", "12", "-12", "A,B", "A=B", "_a b", "1A"};
    std::vector<Recogniser> recognisers = AllRecognisers();
    for (const Recogniser& r : recognisers) {
        std::regex expression(r.pattern, std::regex::ECMAScript);
        for (const char* text : texts) {
            std::string s(text);
            EXPECT_EQ(std::regex_search(s, expression), r.match(s.c_str(), static_cast<int>(s.size())))
                << r.name << " on \"" << s << "\"";
        }
    }
}
