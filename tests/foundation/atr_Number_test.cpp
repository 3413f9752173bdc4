#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <string>

#include "atr_Number.h"

namespace {

// The reference: the least of 15, 16, 17 digits that reads back, with a point added
// when the text is all digits.
std::string PrintfForm(double value) {
    char buf[48];
    int n = 0;
    for (int digits = 15; digits <= 17; ++digits) {
        n = std::snprintf(buf, sizeof buf - 1, "%.*g", digits, value);
        if (std::strtod(buf, nullptr) == value) break;
    }
    std::string s(buf, static_cast<size_t>(n));
    if (s.find_first_not_of("-0123456789") == std::string::npos) s += '.';
    return s;
}

std::string Written(double value) {
    char buf[atr_kNumberChars];
    int n = atr_WriteDouble(value, buf);
    EXPECT_EQ(static_cast<size_t>(n), std::strlen(buf));
    return buf;
}

double Read(const std::string& text, size_t* consumed = nullptr) {
    char* end = nullptr;
    double v = atr_ReadDouble(text.c_str(), &end);
    if (consumed) *consumed = static_cast<size_t>(end - text.c_str());
    return v;
}

TEST(atr_Number, WritesTheFormOfTheLeastDigitsThatReadBack) {
    for (double v : {0.0, -0.0, 1.0, -1.0, 1000.0, 0.1, 0.2 + 0.1, 1e-5, 1e-4, 0.00012345, 123456789012345.0,
                     1234567890123456.0, 12345678901234567.0, 1e15, 1e16, 1e17, 1e21, 1e22, 1e100, -2.5e-300,
                     std::numeric_limits<double>::max(), std::numeric_limits<double>::min(), 3.14159,
                     100.0 / 3.0, 2.0 / 3.0, 12.345678, 1.0 / 1024})
        EXPECT_EQ(Written(v), PrintfForm(v)) << v;
    EXPECT_EQ(Written(1000.0), "1000.");
    EXPECT_EQ(Written(0.1), "0.1");
    EXPECT_EQ(Written(1e20), "1e+20");
    EXPECT_EQ(Written(-1.5e-7), "-1.5e-07");
    EXPECT_EQ(Written(std::numeric_limits<double>::infinity()), "inf");
    // Below the normal range the shortest text is shorter than printf's 15 digits.
    EXPECT_EQ(Written(5e-324), "5e-324");
}

TEST(atr_Number, WrittenDoublesMatchPrintfOnRandomBitsAndMeshValues) {
    std::mt19937_64 rng(20261123);
    for (int i = 0; i < 200000; ++i) {
        uint64_t bits = rng();
        double v;
        std::memcpy(&v, &bits, sizeof v);
        if (!std::isfinite(v) || (v != 0 && std::fabs(v) < std::numeric_limits<double>::min())) continue;
        ASSERT_EQ(Written(v), PrintfForm(v)) << bits;
    }
    std::uniform_real_distribution<double> coord(-1000.0, 1000.0);
    for (int i = 0; i < 200000; ++i) {
        char text[32];
        std::snprintf(text, sizeof text, "%.8g", coord(rng));
        double v = std::strtod(text, nullptr);
        ASSERT_EQ(Written(v), PrintfForm(v)) << text;
    }
}

TEST(atr_Number, ReadsLikeStrtod) {
    std::mt19937_64 rng(7);
    std::uniform_int_distribution<int> exponent(-30, 30);
    for (int i = 0; i < 200000; ++i) {
        char text[48];
        std::snprintf(text, sizeof text, "%.*ge%d", 1 + static_cast<int>(rng() % 17),
                      std::uniform_real_distribution<double>(-10, 10)(rng), exponent(rng));
        ASSERT_EQ(Read(text), std::strtod(text, nullptr)) << text;
    }
    for (const char* text : {"0", "-0.", "+.5", "5.", "007.25", "1.5e3", "1.5E+3", "12345678901234567890",
                             "0.1000000000000000055511151231257827", "1.23456789012345678e2", "1e400", "1e-400", "4.9e-324", "0x1p4",
                             "inf", "-nan", "  42", "1e", "1e+", ".e5"}) {
        std::string copy = text;
        char* end = nullptr;
        double expected = std::strtod(copy.c_str(), &end);
        size_t expectedUsed = static_cast<size_t>(end - copy.c_str());
        size_t used = 0;
        double got = Read(text, &used);
        if (std::isnan(expected)) {
            EXPECT_TRUE(std::isnan(got)) << text;
        } else {
            EXPECT_EQ(got, expected) << text;
            EXPECT_EQ(std::signbit(got), std::signbit(expected)) << text;
        }
        EXPECT_EQ(used, expectedUsed) << text;
    }
    size_t used = 0;
    EXPECT_EQ(Read("1.5D3", &used), 1.5);
    EXPECT_EQ(used, 3u);
    EXPECT_EQ(Read("2.5 x", &used), 2.5);
    EXPECT_EQ(used, 3u);
    EXPECT_EQ(Read("abc", &used), 0.0);
    EXPECT_EQ(used, 0u);
}

TEST(atr_Number, WritesInts) {
    char buf[atr_kNumberChars];
    EXPECT_EQ(atr_WriteInt(0, buf), 1);
    EXPECT_STREQ(buf, "0");
    atr_WriteInt(std::numeric_limits<int>::min(), buf);
    EXPECT_STREQ(buf, "-2147483648");
}

}  // namespace
