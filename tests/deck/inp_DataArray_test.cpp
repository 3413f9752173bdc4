#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "aio_ostream.h"
#include "inp_DataArray.h"
#include "inp_ElementDataArray.h"
#include "inp_Exceptions.h"
#include "inp_NodeDataArray.h"
#include "nex_Exception.h"
#include "../support/inp_DataArrayTesting.h"

using inp_test::ArrayOf;
using inp_test::AssertionOf;

namespace {

// Sees the storage fields, to check the growth of the line arrays.
class RawArray : public inp_RawDataArrayImpl {
public:
    int Capacity() const { return allocatedSize; }
};

}  // namespace

TEST(RawDataArray, ItemsAreCutAtCommasOutsideQuotes) {
    inp_DataArray data = ArrayOf({"1, 2.5,\"a,b\",", "", "1,2,", "\"a,b\",c"});
    ASSERT_EQ(data.NumberOfLines(), 4);
    EXPECT_EQ(data.NumberOfItems(0), 4);
    EXPECT_EQ(data.AsStringVerbatim(0, 1), "2.5");
    EXPECT_EQ(data.AsStringVerbatim(0, 2), "\"a,b\"");
    EXPECT_TRUE(data.IsBlank(0, 3));

    EXPECT_EQ(data.NumberOfItems(1), 1);
    EXPECT_TRUE(data.IsBlank(1, 0));
    EXPECT_FALSE(data.HasValue(1, 0));
    EXPECT_EQ(data.Type(1, 0), inp_Types::typeNone);

    EXPECT_EQ(data.NumberOfItems(2), 3);
    EXPECT_TRUE(data.LastItemIsBlank(2));
    EXPECT_TRUE(data.LastItemIsBlank(0));
    EXPECT_FALSE(data.LastItemIsBlank(3));

    EXPECT_EQ(data.NumberOfItems(3), 2);
    EXPECT_EQ(data.AsString(3, 0), "\"A,B\"");
}

// Lines are cut eight characters at a time; a quote anywhere, in the first word or long
// after commas were cut, makes the whole line follow the quoting rule.
TEST(RawDataArray, CuttingAgreesWithTheQuotingRuleAtEveryPosition) {
    auto reference = [](const std::string& line) {
        std::vector<std::string> items(1);
        bool quoted = false;
        for (char c : line) {
            if (c == '"') quoted = !quoted;
            if (c == ',' && !quoted)
                items.emplace_back();
            else
                items.back() += c;
        }
        return items;
    };
    std::vector<std::string> lines;
    const std::string base = "12,-3.5, abc,,7,8,\"x\",9,10,-1,,,22";
    for (size_t cut = 0; cut <= base.size(); ++cut) lines.push_back(base.substr(0, cut));
    for (size_t at = 0; at <= 20; ++at) {
        std::string line = "1,2,3,4,5,6,7,8,9,10,11,12";
        line.insert(at, "\"");
        lines.push_back(line);
        lines.push_back(line + ",\"a,b\",c");
    }
    for (const std::string& line : lines) {
        inp_RawDataArrayImpl raw;
        raw.Append(line.c_str(), static_cast<int>(line.size()));
        const std::vector<std::string> items = reference(line);
        ASSERT_EQ(raw.NumberOfItems(0), static_cast<int>(items.size())) << line;
        for (size_t j = 0; j < items.size(); ++j) {
            std::string item = items[j];
            item.erase(0, item.find_first_not_of(' '));
            item.erase(item.find_last_not_of(' ') + 1);
            EXPECT_EQ(raw.AsStringVerbatim(0, static_cast<int>(j)).c_str(), item) << line;
        }
    }
}

TEST(RawDataArray, AnOpenQuoteRunsToTheEndOfTheLine) {
    const struct {
        const char* line;
        std::vector<std::string> items;
    } cases[] = {
        {"a\"b,c", {"a\"b,c"}},
        {"\"a\",b,\"c,d", {"\"a\"", "b", "\"c,d"}},
        {",,", {"", "", ""}},
        {"\"\",\"", {"\"\"", "\""}},
    };
    for (const auto& c : cases) {
        inp_DataArray data = ArrayOf({c.line});
        ASSERT_EQ(data.NumberOfItems(0), static_cast<int>(c.items.size())) << c.line;
        for (size_t j = 0; j < c.items.size(); ++j)
            EXPECT_EQ(data.AsStringVerbatim(0, static_cast<int>(j)), c.items[j].c_str()) << c.line;
    }
}

TEST(RawDataArray, RemoveLinesFromDropsTheTail) {
    inp_RawDataArrayImpl raw;
    for (const char* line : {"1, 2", "3", "4, 5, 6"}) raw.Append(line);
    raw.RemoveLinesFrom(5);
    EXPECT_EQ(raw.NumberOfLines(), 3);
    raw.RemoveLinesFrom(1);
    ASSERT_EQ(raw.NumberOfLines(), 1);
    EXPECT_EQ(raw.AsString(0, 1), "2");
    raw.Append("7");
    EXPECT_EQ(raw.NumberOfLines(), 2);
    EXPECT_EQ(raw.AsString(1, 0), "7");
    raw.RemoveLinesFrom(0);
    EXPECT_EQ(raw.NumberOfLines(), 0);
}

TEST(RawDataArray, PrintLineWritesTheAsStringFormOfEachItem) {
    // The raw array writes lines without making a string per item; what it writes must
    // be what the item-by-item form gives, on short lines and on lines past its buffer.
    const std::string longItem(700, 'x');
    std::string manyItems;
    for (int k = 0; k < 300; ++k) manyItems += " a b ,";
    const std::vector<std::string> lines = {
        "1, 2.5e3, -3",
        "",
        " , ,",
        "  my_Set ,\t\"my set\" , a b\r,\"open b ",
        "n1, \"q,uo ted\", tail",
        longItem + ", " + longItem,
        "a, " + longItem + "b",
        manyItems,
    };
    inp_RawDataArrayImpl raw;
    for (const std::string& line : lines) raw.Append(line.c_str());
    raw.Set(0, 5, cow_String("six\nline"));
    for (int i = 0; i < raw.NumberOfLines(); ++i) {
        aio_ostringstream fast, itemwise;
        raw.PrintLine(i, fast);
        raw.inp_DataArrayImpl::PrintLine(i, itemwise);
        fast.flush();
        itemwise.flush();
        EXPECT_STREQ(fast.str().c_str(), itemwise.str().c_str()) << "line " << i;
    }
    aio_ostringstream first;
    raw.PrintLine(0, first);
    first.flush();
    // An item's AsString ends at a line break, which it keeps.
    EXPECT_STREQ(first.str().c_str(), "1, 2.5E3, -3, , , SIX\n");
}

TEST(RawDataArray, VerbatimAndNormalisedForms) {
    inp_DataArray data = ArrayOf({"  my_Set ,\t\"my set\" , a b\r,\"open b "});
    EXPECT_EQ(data.AsStringVerbatim(0, 0), "my_Set");
    EXPECT_EQ(data.AsString(0, 0), "MY_SET");
    EXPECT_EQ(data.AsString(0, 1), "\"MY SET\"");
    EXPECT_EQ(data.AsStringVerbatim(0, 2), "a b\r");  // only blanks and tabs are trimmed
    EXPECT_EQ(data.AsString(0, 2), "AB");
    // An unbalanced quote keeps what follows it, but the trim comes first.
    EXPECT_EQ(data.AsString(0, 3), "\"OPEN B");
}

TEST(RawDataArray, TypeScan) {
    struct Case {
        const char* text;
        inp_Types::typeEnm type;
    };
    const Case cases[] = {
        {"1.5", inp_Types::typeDouble},   {"12", inp_Types::typeInt},      {"abc", inp_Types::typeString},
        {"e5", inp_Types::typeString},    {"D5", inp_Types::typeString},   {"1.2.3", inp_Types::typeString},
        {"1+2+3", inp_Types::typeString}, {"  ", inp_Types::typeNone},     {"\t\r", inp_Types::typeNone},
        {"1-5", inp_Types::typeDouble},   {"1e", inp_Types::typeDouble},   {"1e+", inp_Types::typeDouble},
        {"--1", inp_Types::typeDouble},   {".", inp_Types::typeDouble},    {"+", inp_Types::typeInt},
        {"-", inp_Types::typeInt},        {"1 2", inp_Types::typeString},  {"12 ", inp_Types::typeInt},
        {" -12", inp_Types::typeInt},     {"1.5d3", inp_Types::typeDouble}, {"1e5e", inp_Types::typeString},
        {"+1.5E-3", inp_Types::typeDouble}, {"1..", inp_Types::typeString},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(inp_RawDataArrayImpl::Type(c.text), c.type) << "\"" << c.text << "\"";
        EXPECT_EQ(ArrayOf({c.text}).Type(0, 0), c.type) << "\"" << c.text << "\"";
    }
}

TEST(RawDataArray, NumbersAreReadInPlace) {
    inp_DataArray data = ArrayOf({"1.5D3, 2d-1, 7, name, 1.5E3"});
    EXPECT_DOUBLE_EQ(data.AsDouble(0, 0), 1500.0);
    EXPECT_EQ(data.AsStringVerbatim(0, 0), "1.5e3");  // the read rewrote the stored line
    EXPECT_DOUBLE_EQ(data.AsDouble(0, 1), 0.2);
    EXPECT_EQ(data.AsStringVerbatim(0, 1), "2e-1");
    EXPECT_DOUBLE_EQ(data.AsDouble(0, 4), 1500.0);
    EXPECT_EQ(data.AsStringVerbatim(0, 4), "1.5E3");
    EXPECT_EQ(data.AsInt(0, 3), 0);  // no type check: a name reads as 0
}

TEST(RawDataArray, SetRebuildsTheLine) {
    inp_DataArray data = ArrayOf({"a b, c", "1, 2, 3"});
    data.Set(0, 4, cow_String("X"));
    ASSERT_EQ(data.NumberOfItems(0), 5);
    EXPECT_EQ(data.AsStringVerbatim(0, 0), "AB");
    EXPECT_EQ(data.AsStringVerbatim(0, 1), "C");
    EXPECT_TRUE(data.IsBlank(0, 2));
    EXPECT_TRUE(data.IsBlank(0, 3));
    EXPECT_EQ(data.AsStringVerbatim(0, 4), "X");

    data.Set(1, 1, cow_String("p,\"q,r\""));  // a comma outside quotes makes an item more
    ASSERT_EQ(data.NumberOfItems(1), 4);
    EXPECT_EQ(data.AsStringVerbatim(1, 1), "p");
    EXPECT_EQ(data.AsStringVerbatim(1, 2), "\"q,r\"");
    EXPECT_EQ(data.AsStringVerbatim(1, 3), "3");

    data.Set(1, 0, 42);
    EXPECT_EQ(data.AsInt(1, 0), 42);
    EXPECT_EQ(data.Type(1, 0), inp_Types::typeInt);
    data.Set(1, 3, 2.5);
    EXPECT_DOUBLE_EQ(data.AsDouble(1, 3), 2.5);
    EXPECT_EQ(data.NumberOfItems(1), 4);
}

TEST(RawDataArray, LineArraysGrowByDoubling) {
    RawArray* raw = new RawArray();
    inp_DataArray data(raw);
    EXPECT_EQ(raw->Capacity(), 10);
    for (int i = 0; i < 10; ++i) data.Append(std::to_string(i).c_str());
    EXPECT_EQ(raw->Capacity(), 10);
    data.Append("10");
    EXPECT_EQ(raw->Capacity(), 20);
    for (int i = 11; i < 21; ++i) data.Append(std::to_string(i).c_str());
    EXPECT_EQ(raw->Capacity(), 40);
    for (int i = 0; i < 21; ++i) EXPECT_EQ(data.AsInt(i, 0), i);
}

TEST(RawDataArray, CloneIsIndependent) {
    inp_DataArray data = ArrayOf({"1,\"a,b\",,x", "", "2D1"});
    inp_DataArray copy(data.Clone());
    ASSERT_EQ(copy.NumberOfLines(), 3);
    EXPECT_EQ(copy.NumberOfItems(0), 4);
    EXPECT_EQ(copy.AsString(0, 1), "\"A,B\"");
    EXPECT_EQ(copy.AsStringVerbatim(0, 3), "x");
    EXPECT_EQ(copy.NumberOfItems(1), 1);

    copy.AsDouble(2, 0);
    copy.Set(0, 0, cow_String("9"));
    EXPECT_EQ(data.AsStringVerbatim(2, 0), "2D1");
    EXPECT_EQ(data.AsStringVerbatim(0, 0), "1");

    // A clone of an empty array has no room yet and still grows.
    inp_DataArray empty(new inp_RawDataArrayImpl());
    inp_DataArray emptyCopy(empty.Clone());
    for (int i = 0; i < 12; ++i) emptyCopy.Append("z");
    EXPECT_EQ(emptyCopy.NumberOfLines(), 12);
    EXPECT_EQ(empty.NumberOfLines(), 0);
}

TEST(RawDataArray, IndexChecksRaiseAssertions) {
    inp_DataArray data = ArrayOf({"1,2"});
    EXPECT_EQ(AssertionOf([&] { data.AsInt(1, 0); }), "i >= 0 && i < nrows");
    EXPECT_EQ(AssertionOf([&] { data.NumberOfItems(-1); }), "i >= 0 && i < nrows");
    EXPECT_EQ(AssertionOf([&] { data.IsBlank(0, 2); }), "j >= 0 && j < ncols[i]");
    EXPECT_EQ(AssertionOf([&] { data.AsDouble(0, -1); }), "j >= 0 && j < ncols[i]");
    EXPECT_EQ(AssertionOf([&] { data.Set(0, -1, cow_String("x")); }), "j >= 0");
    EXPECT_EQ(AssertionOf([&] { data.Set(3, 0, 1); }), "i >= 0 && i < nrows");
    EXPECT_EQ(AssertionOf([&] { data.LastItemIsBlank(1); }), "i >= 0 && i < nrows");

    // HasValue is the one read that never raises.
    EXPECT_FALSE(data.HasValue(1, 0));
    EXPECT_FALSE(data.HasValue(0, 2));
    EXPECT_TRUE(data.HasValue(0, 1));

    // The place of the raise is recorded.
    try {
        data.AsInt(0, 7);
        FAIL();
    } catch (const nex_AssertException& e) {
        EXPECT_NE(std::string(e.SourceFile()).find("inp_DataArray"), std::string::npos);
        EXPECT_GT(e.SourceLine(), 0);
    }
}

TEST(DataArrayHandle, FallbackForMissingItems) {
    inp_DataArray data = ArrayOf({"a, ,c", "x"});
    EXPECT_EQ(data.AsString(5, 0, cow_String("a b")), "AB");
    EXPECT_EQ(data.AsString(1, 1, cow_String("\"q r\" s")), "\"Q R\"S");
    EXPECT_EQ(data.AsString(-1, 0, cow_String("d")), "D");
    EXPECT_EQ(data.AsString(0, 1, cow_String("fallback")), "");  // a blank item is still the item
    EXPECT_EQ(data.AsString(0, 2, cow_String("fallback")), "C");
}

TEST(StripBlanks, RemovesBlanksOutsideQuotes) {
    struct Case {
        const char* in;
        const char* out;
    };
    const Case cases[] = {
        {"A B", "AB"},
        {"\"A B\"", "\"A B\""},
        {" a\t\"x  y\" b\r", "a\"x  y\"b"},
        {"a b\nc d", "ab\n"},
        {"\"a\nb\"", "\"a\n"},
        {"", ""},
        {"   ", ""},
        {"\"open  ", "\"open  "},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(StripBlanks(c.in), c.out) << c.in;
        EXPECT_EQ(StripBlanks(cow_String(c.in)), c.out) << c.in;
    }
}

TEST(RawDataArray, TextLengthIsTheLengthOfTheComparedForm) {
    inp_RawDataArrayImpl raw;
    raw.Append(" 12 ,0000000001,  a b , \"x y\" ,\t,\"open");
    for (int j = 0; j < raw.NumberOfItems(0); ++j)
        EXPECT_EQ(raw.TextLength(0, j), raw.AsString(0, j).Length()) << j;
    EXPECT_EQ(raw.TextLength(0, 1), 10);
}

// ReadInt answers in one pass what the four questions of a connectivity column answer
// one by one; every kind of item must get the same answer both ways.
TEST(RawDataArray, ReadIntAgreesWithTheFourQuestions) {
    inp_DataArray data = ArrayOf({"12, 007 ,  ,, +5, -3, 1 2, 123456789, 1234567890, 1e5, a, \"1\", 12\r",
                                  "999999999999999999999, 0, \t4\t, 5."});
    for (int line = 0; line < data.NumberOfLines(); ++line) {
        for (int item = 0; item <= data.NumberOfItems(line); ++item) {  // one past the end too
            SCOPED_TRACE("line " + std::to_string(line) + " item " + std::to_string(item));
            inp_DataArrayImpl::IntItem expected = inp_DataArrayImpl::kInt;
            int expectedValue = -1;
            if (!data.HasValue(line, item))
                expected = inp_DataArrayImpl::kNoValue;
            else if (data.Type(line, item) != inp_Types::typeInt)
                expected = inp_DataArrayImpl::kNotInt;
            else if (data.TextLength(line, item) > 9)
                expected = inp_DataArrayImpl::kTooLong;
            else
                expectedValue = data.AsInt(line, item);
            int value = -1;
            EXPECT_EQ(data.ReadInt(line, item, value), expected);
            if (expected == inp_DataArrayImpl::kInt) {
                EXPECT_EQ(value, expectedValue);
            }
        }
    }
    // A whole line at once, from any item on and past its end, gives what item by item gives.
    for (int line = 0; line < data.NumberOfLines(); ++line) {
        for (int first = 0; first <= data.NumberOfItems(line); ++first) {
            const int count = data.NumberOfItems(line) + 2 - first;
            std::vector<int> values(static_cast<size_t>(count), -1);
            std::vector<inp_DataArrayImpl::IntItem> kinds(static_cast<size_t>(count));
            data.ReadInts(line, first, count, values.data(), kinds.data());
            for (int k = 0; k < count; ++k) {
                SCOPED_TRACE("line " + std::to_string(line) + " from " + std::to_string(first) + " item " +
                             std::to_string(first + k));
                int value = 0;
                EXPECT_EQ(kinds[static_cast<size_t>(k)], data.ReadInt(line, first + k, value));
                EXPECT_EQ(values[static_cast<size_t>(k)], kinds[static_cast<size_t>(k)] == inp_DataArrayImpl::kInt ? value : 0);
            }
        }
    }
    int value = 0;
    EXPECT_EQ(data.ReadInt(0, 1, value), inp_DataArrayImpl::kInt);
    EXPECT_EQ(value, 7);
    EXPECT_EQ(data.ReadInt(0, 8, value), inp_DataArrayImpl::kTooLong);
    EXPECT_EQ(data.ReadInt(0, 6, value), inp_DataArrayImpl::kNotInt);  // `1 2` is a name
}

// Items are found from the last one found: reading back and forth, across lines and
// arrays, and after a line was rebuilt or dropped, must still give each its own text.
TEST(RawDataArray, ItemsReadInAnyOrderAfterChanges) {
    inp_DataArray a = ArrayOf({"a1, a2, a3, a4", "b1, b2"});
    inp_DataArray b = ArrayOf({"x1, x2, x3, x4"});
    EXPECT_EQ(a.AsStringVerbatim(0, 3), "a4");
    EXPECT_EQ(b.AsStringVerbatim(0, 2), "x3");
    EXPECT_EQ(a.AsStringVerbatim(0, 2), "a3");
    EXPECT_EQ(a.AsStringVerbatim(0, 0), "a1");
    EXPECT_EQ(a.AsStringVerbatim(1, 1), "b2");
    EXPECT_EQ(a.AsStringVerbatim(0, 1), "a2");

    EXPECT_EQ(a.AsStringVerbatim(0, 2), "a3");
    a.Set(0, 0, cow_String("a much longer first item"));  // every item of the line moves
    EXPECT_EQ(a.AsStringVerbatim(0, 2), "A3");
    EXPECT_EQ(a.AsStringVerbatim(0, 3), "A4");

    EXPECT_EQ(a.AsStringVerbatim(1, 1), "b2");
    static_cast<inp_RawDataArrayImpl&>(a.SharedGet()).RemoveLinesFrom(1);
    a.Append("c1, c2");
    EXPECT_EQ(a.AsStringVerbatim(1, 1), "c2");
    EXPECT_EQ(a.AsStringVerbatim(1, 0), "c1");

    inp_DataArray copy(a.Clone());
    EXPECT_EQ(copy.AsStringVerbatim(1, 1), "c2");
    EXPECT_EQ(a.AsStringVerbatim(1, 1), "c2");
}

// Every kind of array with storage per line: lines given back read as lines without
// items, print as nothing and copy as such; the lines behind them stay as they were.
TEST(DataArrays, ReleasedLinesHaveNoItems) {
    const inp_DataArray raw = ArrayOf({"1, 2, 3", "4, 5, 6", "7, 8, 9"});
    for (int kind = 0; kind < 3; ++kind) {
        inp_DataArray data = kind == 0   ? ArrayOf({"1, 2, 3", "4, 5, 6", "7, 8, 9"})
                             : kind == 1 ? inp_DataArray(new inp_NodeDataArrayImpl(raw))
                                         : inp_DataArray(new inp_ElementDataArrayImpl(raw));
        {
            // Lines that another holder shares are not given back.
            const inp_DataArray holder = data;
            data.ReleaseLines(3);
            EXPECT_EQ(holder.NumberOfItems(0), kind == 1 ? 7 : 3);
        }
        aio_ostringstream whole;
        data.PrintLine(2, whole);
        whole.flush();
        const std::string lastLine = whole.str().c_str();

        data.ReleaseLines(2);
        data.ReleaseLines(1);  // lines once given back stay so
        const inp_DataArray copy(data.Clone());
        for (const inp_DataArray* array : {static_cast<const inp_DataArray*>(&data), &copy}) {
            ASSERT_EQ(array->NumberOfLines(), 3);
            for (int line : {0, 1}) {
                EXPECT_EQ(array->NumberOfItems(line), 0);
                EXPECT_FALSE(array->HasValue(line, 0));
                EXPECT_FALSE(array->LastItemIsBlank(line));
                EXPECT_NE(AssertionOf([&] { array->AsInt(line, 0); }), "");
                aio_ostringstream out;
                array->PrintLine(line, out);
                out.flush();
                EXPECT_EQ(std::string(out.str().c_str()), "");
            }
            EXPECT_EQ(array->AsInt(2, 0), 7);
            aio_ostringstream out;
            array->PrintLine(2, out);
            out.flush();
            EXPECT_EQ(std::string(out.str().c_str()), lastLine);
        }
    }
}
