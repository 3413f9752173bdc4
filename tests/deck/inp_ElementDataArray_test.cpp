#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "aio_ostream.h"
#include "inp_ElementDataArray.h"
#include "../support/inp_DataArrayTesting.h"

using inp_test::ArrayOf;
using inp_test::AssertionOf;
using inp_test::TextOf;

namespace {

cow_1DArrayList<int> Nodes(int count, int first) {
    cow_1DArrayList<int> nodes;
    for (int k = 0; k < count; ++k) nodes.Append(first + k);
    return nodes;
}

std::vector<int> Line(const inp_DataArray& data, int line) {
    std::vector<int> values;
    for (int j = 0; j < data.NumberOfItems(line); ++j) values.push_back(data.AsInt(line, j));
    return values;
}

std::string Printed(const inp_DataArray& data, int line) {
    aio_ostringstream out;
    data.PrintLine(line, out);
    out.flush();
    return out.str().c_str();
}

std::vector<int> Range(int from, int to) {
    std::vector<int> values;
    for (int v = from; v <= to; ++v) values.push_back(v);
    return values;
}

std::vector<int> Join(std::vector<int> a, const std::vector<int>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

}  // namespace

TEST(ElementDataArray, FromRawLines) {
    inp_DataArray raw = ArrayOf({"1, 2, 3,", " , 5", "abc, 7.9, -4"});
    inp_DataArray data(new inp_ElementDataArrayImpl(raw));
    ASSERT_EQ(data.NumberOfLines(), 3);
    EXPECT_EQ(Line(data, 0), (std::vector<int>{1, 2, 3, 0}));
    EXPECT_EQ(Line(data, 1), (std::vector<int>{0, 5}));
    EXPECT_EQ(Line(data, 2), (std::vector<int>{0, 7, -4}));
    EXPECT_TRUE(data.LastItemIsBlank(0));
    EXPECT_FALSE(data.LastItemIsBlank(1));

    EXPECT_TRUE(data.IsBlank(1, 0));
    EXPECT_EQ(data.Type(1, 0), inp_Types::typeNone);
    EXPECT_EQ(data.Type(1, 1), inp_Types::typeInt);
    EXPECT_FALSE(data.HasValue(1, 0));
    EXPECT_TRUE(data.HasValue(1, 1));
    EXPECT_FALSE(data.HasValue(1, 2));
    EXPECT_FALSE(data.HasValue(3, 0));
    // A blank position prints as 0.
    EXPECT_EQ(data.AsString(1, 0), "0");
    EXPECT_EQ(data.AsStringVerbatim(2, 2), "-4");

    // Any kind of array can be read again.
    inp_DataArray again(new inp_ElementDataArrayImpl(data));
    EXPECT_EQ(Line(again, 2), (std::vector<int>{0, 7, -4}));
}

TEST(ElementDataArray, LongElementsSpreadOverLines) {
    struct Case {
        int nodes;
        std::vector<std::vector<int>> lines;
    };
    // Element 9 with nodes 101, 102, ...
    const Case cases[] = {
        {0, {{9}}},
        {3, {{9, 101, 102, 103}}},
        {15, {Join({9}, Range(101, 115))}},
        {16, {Join(Join({9}, Range(101, 115)), {0}), {116}}},
        {31, {Join(Join({9}, Range(101, 115)), {0}), Range(116, 131)}},
        {32, {Join(Join({9}, Range(101, 115)), {0}), Join(Range(116, 131), {0}), {132}}},
    };
    for (const Case& c : cases) {
        omi_IntTable<inp_Element> table;
        table.Insert(9, inp_Element(cow_String("C3D8"), Nodes(c.nodes, 101), 0, 0, 0));
        cow_1DArrayList<int> ids;
        ids.Append(9);
        inp_DataArray data(new inp_ElementDataArrayImpl(ids, table));
        ASSERT_EQ(data.NumberOfLines(), static_cast<int>(c.lines.size())) << c.nodes << " nodes";
        EXPECT_EQ(inp_ElementDataArrayImpl::LinesFor(c.nodes), data.NumberOfLines()) << c.nodes << " nodes";
        for (int i = 0; i < data.NumberOfLines(); ++i) {
            EXPECT_EQ(Line(data, i), c.lines[static_cast<size_t>(i)]) << c.nodes << " nodes, line " << i;
            EXPECT_EQ(data.LastItemIsBlank(i), i + 1 < data.NumberOfLines()) << c.nodes << " nodes, line " << i;
        }
    }
}

TEST(ElementDataArray, FromTableInListOrder) {
    omi_IntTable<inp_Element> table;
    table.Insert(1, inp_Element(cow_String("T3D2"), Nodes(2, 10), 0, 0, 0));
    table.Insert(-3, inp_Element(cow_String("T3D2"), Nodes(2, 30), 0, 0, 0));
    table.Insert(2, inp_Element(cow_String("S4"), Nodes(17, 200), 0, 0, 0));
    cow_1DArrayList<int> ids;
    for (int id : {2, 5, -3, 1, 3}) ids.Append(id);  // 5 and 3 are not in the table
    inp_DataArray data(new inp_ElementDataArrayImpl(ids, table));
    ASSERT_EQ(data.NumberOfLines(), 4);
    EXPECT_EQ(Line(data, 0), Join(Join({2}, Range(200, 214)), {0}));
    EXPECT_EQ(Line(data, 1), (std::vector<int>{215, 216}));
    EXPECT_EQ(Line(data, 2), (std::vector<int>{-3, 30, 31}));
    EXPECT_EQ(Line(data, 3), (std::vector<int>{1, 10, 11}));

    cow_1DArrayList<int> none;
    EXPECT_EQ(inp_DataArray(new inp_ElementDataArrayImpl(none, table)).NumberOfLines(), 0);
}

TEST(ElementDataArray, FromMapInItsIterationOrder) {
    cow_Map<int, cow_1DArrayList<int>> map;
    for (int id : {8, 3, 12, 1, 6}) map.Insert(id, Nodes(id == 12 ? 20 : 2, id * 10));
    inp_DataArray data(new inp_ElementDataArrayImpl(map));

    // Every element starts a line, in the order the map's iterator gives.
    std::vector<int> expected;
    cow_ConstMapIterator<int, cow_1DArrayList<int>> it(map);
    for (it.First(); !it.IsDone(); it.Next()) expected.push_back(it.CurrentKey());
    ASSERT_NE(expected, (std::vector<int>{1, 3, 6, 8, 12}));  // the case tells the orders apart
    std::vector<int> starts;
    for (int i = 0; i < data.NumberOfLines(); ++i)
        if (i == 0 || !data.LastItemIsBlank(i - 1)) starts.push_back(data.AsInt(i, 0));
    EXPECT_EQ(starts, expected);
    ASSERT_EQ(data.NumberOfLines(), 6);

    for (int i = 0; i < data.NumberOfLines(); ++i) {
        if (data.AsInt(i, 0) != 12) continue;
        EXPECT_EQ(Line(data, i), Join(Join({12}, Range(120, 134)), {0}));
        EXPECT_EQ(Line(data, i + 1), Range(135, 139));
    }
}

TEST(ElementDataArray, OnlyIntegersCanBeStored) {
    inp_DataArray data(new inp_ElementDataArrayImpl(ArrayOf({"1, 2, 3"})));
    data.Set(0, 1, 7);
    EXPECT_EQ(data.AsInt(0, 1), 7);
    data.Set(0, 2, 0);
    EXPECT_TRUE(data.LastItemIsBlank(0));
    EXPECT_EQ(TextOf([&] { data.Set(0, 1, cow_String("7")); }), "Illegal operation on element data");
    EXPECT_EQ(TextOf([&] { data.Set(0, 1, 7.0); }), "Illegal operation on element data");
    EXPECT_EQ(TextOf([&] { data.AsDouble(0, 0); }), "Element keyword data cannot be converted to a double");
    EXPECT_EQ(TextOf([&] { data.Append("4, 5"); }),
              "There has been an attempt to append a generic data line to a *ELEMENT keyword.  This can happen when "
              "the element connectivity listing is separated from the *ELEMENT keyword.  Please make sure your "
              "include files contain complete keywords (keyword + parameters + data lines).  Note that you can still "
              "use multiple files to list the elements, provided you have *ELEMENT at the top of each file.");
    EXPECT_EQ(Line(data, 0), (std::vector<int>{1, 7, 0}));

    EXPECT_EQ(AssertionOf([&] { data.AsInt(0, 3); }), "j >= 0 && j < ncols[i]");
    EXPECT_EQ(AssertionOf([&] { data.Set(0, -1, 1); }), "j >= 0 && j < ncols[i]");
    EXPECT_EQ(AssertionOf([&] { data.Type(0, 3); }), "j >= 0 && j < ncols[i]");
    EXPECT_EQ(AssertionOf([&] { data.IsBlank(1, 0); }), "i >= 0 && i < nrows");
    EXPECT_EQ(AssertionOf([&] { data.LastItemIsBlank(1); }), "i >= 0 && i < nrows");
    EXPECT_EQ(AssertionOf([&] { data.NumberOfItems(-1); }), "i >= 0 && i < nrows");
}

TEST(ElementDataArray, CloneIsIndependent) {
    inp_DataArray data(new inp_ElementDataArrayImpl(ArrayOf({"1, 2,", "3"})));
    inp_DataArray copy(data.Clone());
    copy.Set(1, 0, 4);
    EXPECT_EQ(Line(copy, 0), (std::vector<int>{1, 2, 0}));
    EXPECT_EQ(Line(copy, 1), (std::vector<int>{4}));
    EXPECT_EQ(Line(data, 1), (std::vector<int>{3}));
}

TEST(ElementDataArray, OnlyLinesThatReadTheSamePackedArePacked) {
    const std::string seventeen = "1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16,";
    struct Case {
        std::vector<std::string> lines;
        bool packs;
    } cases[] = {
        {{"1, 2, 3", " 4 ,5\t, -6"}, true},
        {{"123456789, 1"}, true},
        {{"-12345678, 1"}, true},
        {{seventeen, "17, 18"}, true},      // the comma of an element that goes on
        {{"1234567890, 1"}, false},         // more than nine characters: a message quotes it
        {{"-123456789, 1"}, false},
        {{"1, 0"}, false},                  // a node 0 is not a blank position
        {{"1, 000"}, false},
        {{"1, , 3"}, false},                // a blank between items
        {{"1, 2, 3,"}, false},              // a short line's comma would print as a 0
        {{""}, false},
        {{"1, 2.5"}, false},
        {{"1, N1"}, false},
        {{"1, <n>"}, false},
        {{"1, +2"}, false},
    };
    for (const Case& c : cases) {
        inp_DataArray raw(new inp_RawDataArrayImpl());
        for (const std::string& line : c.lines) raw.Append(line.c_str());
        EXPECT_EQ(inp_ElementDataArrayImpl::PacksExactly(raw), c.packs) << c.lines[0];
        if (!c.packs) continue;
        // What packs reads and prints as the text did.
        inp_DataArray packed(new inp_ElementDataArrayImpl(raw));
        for (int i = 0; i < raw.NumberOfLines(); ++i) {
            ASSERT_EQ(packed.NumberOfItems(i), raw.NumberOfItems(i));
            EXPECT_EQ(packed.LastItemIsBlank(i), raw.LastItemIsBlank(i));
            for (int j = 0; j < raw.NumberOfItems(i); ++j) {
                int a = 0, b = 0;
                EXPECT_EQ(packed.ReadInt(i, j, a), raw.ReadInt(i, j, b)) << i << " " << j;
                EXPECT_EQ(a, b);
                EXPECT_EQ(packed.Type(i, j), raw.Type(i, j));
            }
            EXPECT_EQ(Printed(packed, i), Printed(raw, i));
        }
    }
    // A packed array is not raw text.
    inp_DataArray packed(new inp_ElementDataArrayImpl(ArrayOf({"1, 2"})));
    EXPECT_FALSE(inp_ElementDataArrayImpl::PacksExactly(packed));

    // Values a table puts in are measured as their text would be.
    cow_Map<int, cow_1DArrayList<int>> table;
    cow_1DArrayList<int> nodes;
    for (int node : {1234567890, 999999999, -99999999, -100000000, -7, 10}) nodes.Append(node);
    table.Insert(1, nodes);
    inp_DataArray wide(new inp_ElementDataArrayImpl(table));
    const int lengths[] = {1, 10, 9, 9, 10, 2, 2};
    const inp_DataArrayImpl::IntItem reads[] = {inp_DataArrayImpl::kInt,     inp_DataArrayImpl::kTooLong,
                                                inp_DataArrayImpl::kInt,     inp_DataArrayImpl::kInt,
                                                inp_DataArrayImpl::kTooLong, inp_DataArrayImpl::kInt,
                                                inp_DataArrayImpl::kInt};
    for (int j = 0; j < 7; ++j) {
        int value = 0;
        EXPECT_EQ(wide.TextLength(0, j), lengths[j]) << j;
        EXPECT_EQ(wide.ReadInt(0, j, value), reads[j]) << j;
    }
}

TEST(ElementDataArray, PackingGivesTheRawLinesBackUnlessShared) {
    inp_DataArray raw(new inp_RawDataArrayImpl());
    const int lines = 3 * inp_DataArrayImpl::kReleaseBatch + 5;
    for (int i = 1; i <= lines; ++i) raw.Append((std::to_string(i) + ", " + std::to_string(i + 1)).c_str());
    inp_DataArray shared = raw;
    inp_DataArray first(new inp_ElementDataArrayImpl(raw, true));
    EXPECT_EQ(raw.NumberOfItems(lines - 1), 2);  // another holder keeps it whole

    shared = inp_DataArray();
    inp_DataArray packed(new inp_ElementDataArrayImpl(raw, true));
    ASSERT_EQ(packed.NumberOfLines(), lines);
    EXPECT_EQ(Line(packed, lines - 1), (std::vector<int>{lines, lines + 1}));
    EXPECT_EQ(Line(first, 0), (std::vector<int>{1, 2}));
    ASSERT_EQ(raw.NumberOfLines(), lines);
    for (int i : {0, inp_DataArrayImpl::kReleaseBatch, lines - 1}) {
        EXPECT_EQ(raw.NumberOfItems(i), 0) << i;
        EXPECT_FALSE(raw.LastItemIsBlank(i));
        EXPECT_FALSE(raw.HasValue(i, 0));
    }
}
