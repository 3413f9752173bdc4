#include <gtest/gtest.h>

#include <string>

#include "rgx_ReIterator.h"
#include "utl_Base64.h"
#include "uti_Rotor.h"

namespace {
std::string Bytes(const cow_String& s) { return std::string(s.c_str(), static_cast<size_t>(s.Length())); }
cow_String Cow(const std::string& s) { return cow_String(s.data(), static_cast<int>(s.size())); }
}  // namespace

TEST(UtlBase64, KnownVectorsBothWays) {
    const char* vectors[][2] = {{"", ""},          {"f", "Zg=="},         {"fo", "Zm8="},
                                {"foo", "Zm9v"},   {"foob", "Zm9vYg=="},  {"fooba", "Zm9vYmE="},
                                {"foobar", "Zm9vYmFy"}, {"\xfb\xff", "+/8="}};
    for (auto& v : vectors) {
        SCOPED_TRACE(v[1]);
        EXPECT_EQ(utl_base64Encode(cow_String(v[0])), v[1]);
        EXPECT_EQ(utl_base64Decode(cow_String(v[1]), true), v[0]);
    }
}

TEST(UtlBase64, RoundTripsEveryByteAndLength) {
    std::string all;
    for (int i = 0; i < 256; ++i) all.push_back(static_cast<char>(i));
    for (size_t len = 0; len <= all.size(); len += (len < 8 ? 1 : 37)) {
        std::string bytes = all.substr(256 - len);  // NUL bytes included from len 256
        SCOPED_TRACE(len);
        EXPECT_EQ(Bytes(utl_base64Decode(utl_base64Encode(Cow(bytes)), false)), bytes);
    }
    EXPECT_EQ(Bytes(utl_base64Decode(utl_base64Encode(Cow(all)), false)), all);
}

TEST(UtlBase64, LenientWherePossible) {
    EXPECT_EQ(utl_base64Decode(cow_String("Zm8"), true), "fo");  // padding left off
    EXPECT_EQ(utl_base64Decode(cow_String("Zg"), false), "f");
    EXPECT_EQ(utl_base64Decode(cow_String("Zh=="), true), "f");  // unused bits set
    EXPECT_EQ(utl_base64Decode(cow_String(" Zm9v\tYmFy \r\n"), true), "foobar");
    EXPECT_EQ(utl_base64Decode(cow_String("Zg= =\r"), true), "f");
}

TEST(UtlBase64, BadTextRaisesWithItsReason) {
    struct Case {
        const char* text;
        bool skipWhiteSpace;
        const char* message;
    } cases[] = {
        {"*HEADING", true, "invalid base64 character at position 1"},
        {"Zm9v Zg==", false, "invalid base64 character at position 5"},
        {"Zm9vZ", true, "incomplete base64 text of 5 characters"},
        {"Z", true, "incomplete base64 text of 1 characters"},
        {"=", true, "misplaced base64 padding at position 1"},
        {"Zm9v=", true, "misplaced base64 padding at position 5"},
        {"Zg===", true, "misplaced base64 padding at position 5"},
        {"Zm8==", true, "misplaced base64 padding at position 5"},
        {"Zg=", true, "incomplete base64 padding of 1 characters"},
        {"Zg==Zg", true, "base64 data behind padding at position 5"},
        {"Zg\x01=", true, "invalid base64 character at position 3"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        try {
            utl_base64Decode(cow_String(c.text), c.skipWhiteSpace);
            ADD_FAILURE() << "no exception";
        } catch (const utl_Base64CodecError& e) {
            EXPECT_EQ(e.UserReport(), c.message);
        }
    }
    // Raised through the common base too, as the deck reader catches it.
    EXPECT_THROW(utl_base64Decode(cow_String("!"), true), nex_TextException);
}

TEST(UtiRotor, RoundTripsLineByLineInOrder) {
    const char* lines[] = {"a/b/c/d/e/f/g", "*NODE, NSET=ALL", "1, 0., 0., 0.", "", "2, 1., 0., 0."};
    uti_Rotor writer(cow_String("secret"));
    uti_Rotor reader(cow_String("secret"));
    for (const char* line : lines) {
        SCOPED_TRACE(line);
        cow_String cipherLine = utl_base64Encode(writer.Encrypt(cow_String(line)));
        EXPECT_EQ(reader.Decrypt(utl_base64Decode(cipherLine, true)), line);
    }

    // The header of an enciphered file comes back with its seven fields.
    uti_Rotor w(cow_String("k")), r(cow_String("k"));
    cow_String header = r.Decrypt(utl_base64Decode(utl_base64Encode(w.Encrypt(cow_String(lines[0]))), true));
    EXPECT_EQ(rgx_split(cow_String("/"), header).Count(), 7);
}

TEST(UtiRotor, StateRunsOnAndDependsOnTheKey) {
    cow_String plain("*HEADING *HEADING *HEADING");
    uti_Rotor a(cow_String("one"));
    cow_String first = a.Encrypt(plain);
    cow_String second = a.Encrypt(plain);
    EXPECT_NE(first, second);  // the rotors moved on
    a.Reset();
    EXPECT_EQ(a.Encrypt(plain), first);

    uti_Rotor b(cow_String("two"));
    EXPECT_NE(b.Encrypt(plain), first);

    uti_Rotor wrongKey(cow_String("two"));
    EXPECT_NE(wrongKey.Decrypt(first), plain);

    // Every byte value, over more than one turn of the slow rotor.
    std::string all;
    for (int i = 0; i < 70000; ++i) all.push_back(static_cast<char>(i * 7 + i / 256));
    uti_Rotor enc(cow_String("")), dec(cow_String(""));
    cow_String cipher = enc.Encrypt(Cow(all));
    EXPECT_EQ(cipher.Length(), static_cast<int>(all.size()));
    EXPECT_NE(Bytes(cipher), all);
    EXPECT_EQ(Bytes(dec.Decrypt(cipher)), all);
}
