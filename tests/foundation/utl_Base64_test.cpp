#include <gtest/gtest.h>

#include <string>

#include "rgx_ReIterator.h"
#include "utl_Base64.h"
#include "uti_Rotor.h"

namespace {
std::string Bytes(const cow_String& s) { return std::string(s.c_str(), static_cast<size_t>(s.Length())); }
cow_String Cow(const std::string& s) { return cow_String(s.data(), static_cast<int>(s.size())); }
}  // namespace

TEST(UtlBase64, DecodesStandardAndLenientForms) {
    const char* cases[][2] = {
        // text, bytes; the first rows encode back to the text
        {"", ""}, {"Zg==", "f"}, {"Zm8=", "fo"}, {"Zm9v", "foo"}, {"Zm9vYmE=", "fooba"}, {"+/8=", "\xfb\xff"},
        {"Zm8", "fo"}, {"Zh==", "f"}, {" Zm9v\tYmFy \r\n", "foobar"}, {"Zg= =\r", "f"},
    };
    for (int i = 0; i < 10; ++i) {
        SCOPED_TRACE(cases[i][0]);
        EXPECT_EQ(utl_base64Decode(cow_String(cases[i][0]), true), cases[i][1]);
        if (i < 6) {
            EXPECT_EQ(utl_base64Encode(cow_String(cases[i][1])), cases[i][0]);
        }
    }
    std::string all;
    for (int i = 255; i >= 0; --i) all.push_back(static_cast<char>(i));
    for (size_t len : {1, 2, 3, 4, 256})
        EXPECT_EQ(Bytes(utl_base64Decode(utl_base64Encode(Cow(all.substr(0, len))), false)), all.substr(0, len));
}

TEST(UtlBase64, BadTextRaisesWithItsReason) {
    const char* cases[][2] = {
        {"*HEADING", "invalid base64 character at position 1"},
        {"Zm9vZ", "incomplete base64 text of 5 characters"},
        {"=", "misplaced base64 padding at position 1"},
        {"Zg===", "misplaced base64 padding at position 5"},
        {"Zm8==", "misplaced base64 padding at position 5"},
        {"Zg=", "incomplete base64 padding of 1 characters"},
        {"Zg==Zg", "base64 data behind padding at position 5"},
    };
    for (auto& c : cases) {
        SCOPED_TRACE(c[0]);
        try {
            utl_base64Decode(cow_String(c[0]), true);
            ADD_FAILURE() << "no exception";
        } catch (const nex_TextException& e) {  // the deck reader catches by the base
            EXPECT_EQ(e.UserReport(), c[1]);
        }
    }
    EXPECT_THROW(utl_base64Decode(cow_String("Zm9v Zg=="), false), utl_Base64CodecError);
}

TEST(UtiRotor, RoundTripsLineByLineInOrder) {
    const char* lines[] = {"a/b/c/d/e/f/g", "*NODE, NSET=ALL", "", "1, 0., 0., 0.", "1, 0., 0., 0."};
    uti_Rotor writer(cow_String("secret")), reader(cow_String("secret")), wrongKey(cow_String("Secret"));
    cow_String previous;
    for (const char* line : lines) {
        SCOPED_TRACE(line);
        cow_String cipherLine = utl_base64Encode(writer.Encrypt(cow_String(line)));
        EXPECT_NE(cipherLine, previous);  // the rotors moved on: a repeated line looks different
        previous = cipherLine;
        EXPECT_EQ(reader.Decrypt(utl_base64Decode(cipherLine, true)), line);
        cow_String guessed = wrongKey.Decrypt(utl_base64Decode(cipherLine, true));
        if (*line) {
            EXPECT_NE(guessed, line);
        }
    }
    EXPECT_EQ(rgx_split(cow_String("/"), reader.Decrypt(writer.Encrypt(cow_String(lines[0])))).Count(), 7);
    writer.Reset();
    EXPECT_EQ(writer.Encrypt(cow_String(lines[1])), uti_Rotor(cow_String("secret")).Encrypt(cow_String(lines[1])));

    // Every byte value, over more than one turn of the slow rotor.
    std::string all;
    for (int i = 0; i < 70000; ++i) all.push_back(static_cast<char>(i * 7 + i / 256));
    uti_Rotor enc(cow_String("")), dec(cow_String(""));
    cow_String cipher = enc.Encrypt(Cow(all));
    EXPECT_NE(Bytes(cipher), all);
    EXPECT_EQ(Bytes(dec.Decrypt(cipher)), all);
}
