// Enciphered include files: what the writer makes reads back to the keywords of the
// plain file, and every way such a file can fail ends in its own message.
#include <gtest/gtest.h>

#include "../support/inp_TestFiles.h"
#include "inp_CipherReader.h"
#include "nex_Exception.h"
#include "utl_Base64.h"
#include "uti_Rotor.h"

using inp_test::InDirectory;
using inp_test::ParseFile;
using inp_test::Printed;
using inp_test::TempDir;

namespace {

std::string Encipher(const std::string& plain, const char* password) {
    const cow_String text = inp_CipherWriter::EncipherText(cow_String(plain.data(), static_cast<int>(plain.size())),
                                                           cow_String(password));
    return std::string(text.c_str(), static_cast<size_t>(text.Length()));
}

std::string CannotDecrypt(const std::string& file, const std::string& why) {
    return "The encrypted input file, \"" + file + "\", cannot be decrypted due to the following; " + why +
           ". Most likely the file is corrupt or the password is incorrect.";
}

std::string BadHeader(const std::string& file) {
    return "Bad header. The encrypted input file, \"" + file + "\", is either corrupt or the password is incorrect.";
}

std::string NeedsPassword(const std::string& file) {
    return "The encrypted input file, \"" + file + "\", requires a password.";
}

// The including deck of every test: a keyword in front, one include, a keyword behind,
// so that a lost include file shows as the two keywords alone.
const char kFront[] = "*NODE\n1, 0.\n";
const char kBehind[] = "*ELSET, ELSET=BEHIND\n9\n";

inp_test::ParseResult ReadThrough(const TempDir& dir, const std::string& includeLine) {
    InDirectory here(dir.Path());
    return ParseFile(dir.Write("main.inp", kFront + includeLine + "\n" + kBehind));
}

TEST(CipherReader, AnEncipheredIncludeReadsAsThePlainOne) {
    // Lines of the plain file as the reader takes them: leading lines that continue the
    // keyword in front, comments, blank lines, CR LF ends, blanks at both ends, a byte
    // order mark, a NUL (and a last line of a NUL alone, without a newline), a line cut
    // at 256 characters, and the longest line the format carries.
    const std::string longest = "*NSET, NSET=" + std::string(180, 'L');
    const std::string cut = "*NSET, NSET=CUT" + std::string(241, ' ') + "behind the limit";
    const std::string texts[] = {
        "2, 1.\n3, 2.\n*NSET, NSET=A\n1, 2\n** a comment\n\n*ELSET, ELSET=E\n  4, 5  \n",
        "*NSET, NSET=A\r\n1, 2\r\n*HEADING\r\nfirst line\r\n",
        "\xEF\xBB\xBF*NSET, NSET=A\n1, 2\n",
        std::string("*NSET, NSET=A\n1, 2\0 ignored\n", 29),
        longest + "\n1\n" + cut + "\n2\n",
        "*NSET, NSET=NOEND\n7",
        "",
    };
    for (const std::string& text : texts) {
        TempDir dir;
        dir.Write("plain.inc", text);
        dir.Write("ciphered.inc", Encipher(text, "Secret-1"));
        auto plain = ReadThrough(dir, "*INCLUDE, INPUT=plain.inc");
        auto ciphered = ReadThrough(dir, "*INCLUDE, INPUT=ciphered.inc, PASSWORD=Secret-1");
        EXPECT_EQ(Printed(ciphered.keywords), Printed(plain.keywords)) << text;
        EXPECT_EQ(ciphered.errors, plain.errors) << text;
        EXPECT_TRUE(ciphered.fatal.empty()) << text;
        EXPECT_GT(plain.keywords.Count(), 1) << text;
    }
}

TEST(CipherReader, TheFileIsMarkedAndItsCommentsStayPlain) {
    TempDir dir;
    const std::string file = Encipher("*NSET, NSET=A\n1\n", "pw");
    EXPECT_EQ(file.rfind("** encrypted input\n", 0), 0u);
    EXPECT_EQ(file.find("NSET"), std::string::npos);
    // Comments added to the file by hand, before the header too, are passed over and
    // are not taken for the header.
    const size_t header = file.find('\n') + 1;
    dir.Write("commented.inc", "** shipped by us\n" + file.substr(0, header) + "   ** still plain\n" +
                                   file.substr(header) + "** trailing note\n");
    auto r = ReadThrough(dir, "*INCLUDE, INPUT=commented.inc, P=pw");
    EXPECT_TRUE(r.fatal.empty());
    EXPECT_EQ(Printed(r.keywords), "*node\n1, 0.\n*nset, nset=A\n1\n*elset, elset=BEHIND\n9\n");
}

TEST(CipherReader, FailuresLoseTheFileButNotTheIncludingDeck) {
    TempDir dir;
    const std::string body = "*NSET, NSET=A\n1, 2\n*NSET, NSET=B\n3, 4\n";
    const std::string file = Encipher(body, "right");
    const std::string path = dir.Write("ciphered.inc", file);
    const std::string header = file.substr(0, file.find('\n', file.find('\n') + 1) + 1);
    const std::string lost = "*node\n1, 0.\n*elset, elset=BEHIND\n9\n";
    const struct {
        const char* what;
        std::string bytes;
        const char* includeLine;
        std::vector<std::string> fatal;
    } cases[] = {
        {"wrong password", file, "*INCLUDE, INPUT=ciphered.inc, PASSWORD=wrong", {BadHeader(path)}},
        {"password in another case", file, "*INCLUDE, INPUT=ciphered.inc, PASSWORD=RIGHT", {BadHeader(path)}},
        {"no password", file, "*INCLUDE, INPUT=ciphered.inc", {NeedsPassword(path)}},
        // Cut inside the header: what is left deciphers to a text of fewer fields.
        {"cut in the header", file.substr(0, header.size() - 41), "*INCLUDE, INPUT=ciphered.inc, PASSWORD=right",
         {BadHeader(path)}},
        {"plain file with a password", body, "*INCLUDE, INPUT=ciphered.inc, PASSWORD=right",
         {CannotDecrypt(path, "invalid base64 character at position 1")}},
        {"damaged before the first keyword", header + "AB@D\n" + file.substr(header.size()),
         "*INCLUDE, INPUT=ciphered.inc, PASSWORD=right", {CannotDecrypt(path, "invalid base64 character at position 3")}},
    };
    for (const auto& c : cases) {
        dir.Write("ciphered.inc", c.bytes);
        auto r = ReadThrough(dir, c.includeLine);
        EXPECT_EQ(r.fatal, c.fatal) << c.what;
        EXPECT_TRUE(r.errors.empty()) << c.what;
        EXPECT_EQ(Printed(r.keywords), lost) << c.what;
    }
}

TEST(CipherReader, AFileCutShortInALineLosesThatKeywordOnly) {
    TempDir dir;
    const std::string file = Encipher("*NSET, NSET=A\n1, 2\n*NSET, NSET=B\n3, 4\n", "pw");
    // The data line of B, "3, 4", is eight characters of base64; five of them stay.
    const size_t lastLine = file.rfind('\n', file.size() - 2) + 1;
    ASSERT_EQ(file.size() - lastLine, 9u);
    const std::string path = dir.Write("cut.inc", file.substr(0, lastLine + 5));
    auto r = ReadThrough(dir, "*INCLUDE, INPUT=cut.inc, PASSWORD=pw");
    EXPECT_TRUE(r.fatal.empty());
    EXPECT_EQ(r.errors, std::vector<std::string>{CannotDecrypt(path, "incomplete base64 text of 5 characters")});
    EXPECT_EQ(Printed(r.keywords), "*node\n1, 0.\n*nset, nset=A\n1, 2\n*elset, elset=BEHIND\n9\n");
}

TEST(CipherReader, NestedIncludesTakeThePasswordOfTheirOwnLine) {
    TempDir dir;
    dir.Write("plain.inc", "*NSET, NSET=PLAIN\n1\n");
    dir.Write("own.inc", Encipher("*NSET, NSET=OWN\n2\n", "inner"));
    const std::string noPassword = dir.Write("nopass.inc", Encipher("*NSET, NSET=NOPASS\n3\n", "outer"));
    const std::string parentsPassword = dir.Write("parents.inc", Encipher("*NSET, NSET=PARENTS\n4\n", "inner"));
    dir.Write("outer.inc", Encipher("*NSET, NSET=OUTER\n0\n"
                                    "*INCLUDE, INPUT=plain.inc\n"
                                    "*INCLUDE, INPUT=own.inc, PASSWORD=inner\n"
                                    "*INCLUDE, INPUT=nopass.inc\n"
                                    "*INCLUDE, INPUT=parents.inc, PASSWORD=outer\n"
                                    "*NSET, NSET=LAST\n5\n",
                                    "outer"));
    auto r = ReadThrough(dir, "*INCLUDE, INPUT=outer.inc, PASSWORD=outer");
    EXPECT_EQ(r.fatal, (std::vector<std::string>{NeedsPassword(noPassword), BadHeader(parentsPassword)}));
    EXPECT_EQ(Printed(r.keywords),
              "*node\n1, 0.\n*nset, nset=OUTER\n0\n*nset, nset=PLAIN\n1\n*nset, nset=OWN\n2\n*nset, nset=LAST\n5\n"
              "*elset, elset=BEHIND\n9\n");
}

TEST(CipherReader, WithoutTheHeaderCheckBadLinesReadAsEmpty) {
    // Cipher lines made by hand: a header of three fields, a line that is no base64, a
    // keyword line and a data line.
    TempDir dir;
    uti_Rotor rotor(cow_String("pw"));
    std::string file = "** encrypted input\n";
    const char* const lines[] = {"** one/two/three", nullptr, "*NSET, NSET=A", "1, 2"};
    for (const char* plain : lines)
        file += plain ? std::string(utl_base64Encode(rotor.Encrypt(cow_String(plain))).c_str()) + "\n" : "#\n";
    const std::string path = dir.Write("hand.inc", file);
    for (bool checkHeader : {false, true}) {
        inp_Parser parser(cow_String(path.c_str()), cow_String(), cow_1DArrayList<cow_String>(), cow_String("pw"),
                          checkHeader);
        cow_1DArrayList<inp_Keyword> keywords = parser.Parse(true);
        if (checkHeader) {
            EXPECT_EQ(inp_test::ToVector(parser.FatalErrors()), std::vector<std::string>{BadHeader(path)});
            EXPECT_EQ(keywords.Count(), 0);
        } else {
            EXPECT_TRUE(parser.FatalErrors().IsEmpty());
            EXPECT_TRUE(parser.Errors().IsEmpty());
            EXPECT_EQ(Printed(keywords), "*nset, nset=A\n1, 2\n");
        }
    }
}

TEST(CipherWriter, RefusesWhatTheReaderCouldNotReadBack) {
    const std::string refused = "\" does not stand in an *INCLUDE line as it is; take letters, digits and the "
                                "characters of a file name, and no comma.";
    const struct {
        const char* password;
        std::string plain;
        std::string message;
    } cases[] = {
        {"", "*HEADING\n", "The password is empty."},
        {"a,b", "*HEADING\n", "The password \"a,b" + refused},
        {"1.50", "*HEADING\n", "The password \"1.50" + refused},
        {" pw", "*HEADING\n", "The password \" pw" + refused},
        // Blanks around a line do not count, the 256th character does.
        {"pw", "*HEADING\nshort\n\t" + std::string(193, 'x') + "  \n",
         "Line 3 holds 193 characters; a line of an enciphered file holds at most 192."},
        {"pw", std::string(300, 'x') + "\n", "Line 1 holds 256 characters; a line of an enciphered file holds at most 192."},
    };
    for (const auto& c : cases) {
        try {
            Encipher(c.plain, c.password);
            ADD_FAILURE() << "no exception for \"" << c.password << "\"";
        } catch (const nex_TextException& e) {
            EXPECT_EQ(std::string(e.UserReport().c_str()), c.message);
        }
    }
    // Passwords that a deck line carries as they are.
    for (const char* password : {"pw", "Secret-1", "123", "a_b.c"}) EXPECT_NO_THROW(Encipher("*HEADING\n", password));
}

}  // namespace
