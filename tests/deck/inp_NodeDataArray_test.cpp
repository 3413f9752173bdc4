#include <gtest/gtest.h>

#include <string>

#include "inp_NodeDataArray.h"
#include "../support/inp_DataArrayTesting.h"

using inp_test::ArrayOf;
using inp_test::AssertionOf;
using inp_test::TextOf;

namespace {

inp_DataArray Packed(std::initializer_list<const char*> lines) {
    return inp_DataArray(new inp_NodeDataArrayImpl(ArrayOf(lines)));
}

// The message that packing the lines raises, or "" if it packs.
std::string PackingError(std::initializer_list<const char*> lines) {
    inp_DataArray raw = ArrayOf(lines);
    return TextOf([&] { delete new inp_NodeDataArrayImpl(raw); });
}

// The line as a deck prints it: the items' AsString behind ", ".
std::string Printed(const inp_DataArray& data, int line) {
    std::string out;
    for (int j = 0; j < data.NumberOfItems(line); ++j) {
        if (j > 0) out += ", ";
        out += data.AsString(line, j).c_str();
    }
    return out;
}

void ExpectNode(const inp_DataArray& data, int line, int label, const double (&values)[6]) {
    ASSERT_EQ(data.NumberOfItems(line), 7);
    EXPECT_EQ(data.AsInt(line, 0), label) << "line " << line;
    for (int j = 1; j < 7; ++j) EXPECT_EQ(data.AsDouble(line, j), values[j - 1]) << "line " << line << " item " << j;
}

}  // namespace

TEST(NodeDataArray, PacksSevenItemsPerLine) {
    inp_DataArray raw = ArrayOf({"1, 2.0, 3.0", "2, 1, 2, 3, 0.5, 0.25, 1, 99, junk", "3, 1.5D2, 0, 2d-1",
                                 "", "4, , 7. ,", "5,-1e3 ,\t2\r"});
    inp_DataArray data(new inp_NodeDataArrayImpl(raw));
    ASSERT_EQ(data.NumberOfLines(), 6);
    ExpectNode(data, 0, 1, {2, 3, 0, 0, 0, 0});
    // Items behind the seventh are dropped without a look.
    ExpectNode(data, 1, 2, {1, 2, 3, 0.5, 0.25, 1});
    ExpectNode(data, 2, 3, {150, 0, 0.2, 0, 0, 0});
    // An empty line is a node of label 0.
    ExpectNode(data, 3, 0, {0, 0, 0, 0, 0, 0});
    // Empty coordinates are 0 and no error; white space around a number is no error.
    ExpectNode(data, 4, 4, {0, 7, 0, 0, 0, 0});
    ExpectNode(data, 5, 5, {-1000, 2, 0, 0, 0, 0});

    // The exponent mark was changed in the raw lines.
    EXPECT_EQ(raw.AsStringVerbatim(2, 1), "1.5e2");
    EXPECT_EQ(raw.AsStringVerbatim(2, 3), "2e-1");

    EXPECT_EQ(data.Type(0, 0), inp_Types::typeInt);
    EXPECT_EQ(data.Type(0, 6), inp_Types::typeDouble);
    EXPECT_FALSE(data.IsBlank(3, 5));
    EXPECT_TRUE(data.HasValue(0, 6));
    EXPECT_FALSE(data.HasValue(0, 7));
    EXPECT_FALSE(data.HasValue(6, 0));
    EXPECT_FALSE(data.HasValue(-1, 0));
    EXPECT_FALSE(data.LastItemIsBlank(0));
}

TEST(NodeDataArray, BadLabelsRaiseAtOnce) {
    struct Case {
        const char* label;
        const char* message;  // "" when the label is taken
    };
    const Case cases[] = {
        {"12.5", "Node label is not an integer: 12.5"},
        {"abc", "Node label is not an integer: abc"},
        {" 1 2", "Node label is not an integer: 1 2"},
        {"0", "Node label is not a positive integer: 0"},
        {"-5", "Node label is not a positive integer: -5"},
        {"1234567890", "Node label exceeds 9 digits: 1234567890"},
        {"+123456789", "Node label exceeds 9 digits: +123456789"},
        {"0000000001", "Node label exceeds 9 digits: 0000000001"},
        {"123456789", ""},
        {"+12345678", ""},
        {" 7 ", ""},
    };
    for (const Case& c : cases) {
        std::string line = std::string(c.label) + ", 1.0, 2.0";
        EXPECT_EQ(PackingError({"1, 0, 0", line.c_str()}), c.message) << "label \"" << c.label << "\"";
    }
    // A blank label with coordinates behind it is no node of label 0.
    EXPECT_EQ(PackingError({", 1, 2"}), "Node label is not an integer: ");
    // A bad label does not wait for the coordinates gathered before it.
    EXPECT_EQ(PackingError({"1, abc", "x"}), "Node label is not an integer: x");
}

TEST(NodeDataArray, BadCoordinatesAreNamedTogether) {
    EXPECT_EQ(PackingError({"1, abc, 0", "2, 1.x, 0", "3, 1, 2, 3"}),
              "Invalid nodal coordinate values were specified for the following nodes: 1 2");
    // In ascending order, each node once, whatever the lines' order.
    EXPECT_EQ(PackingError({"30, a, b, c", "4, 1, 2, \"3\"", "17, 1 2", "5, 1, 2, 3, 4, 5, 6, bad"}),
              "Invalid nodal coordinate values were specified for the following nodes: 4 17 30");

    inp_DataArray raw(new inp_RawDataArrayImpl());
    std::string expected = "Invalid nodal coordinate values were specified for the following nodes:";
    for (int label = 1; label <= 150; ++label) {
        raw.Append((std::to_string(label) + ", 0, ?").c_str());
        if (label <= 102) expected += " " + std::to_string(label);
    }
    EXPECT_EQ(TextOf([&] { delete new inp_NodeDataArrayImpl(raw); }), expected);
}

TEST(NodeDataArray, OperationsThePackedFormCannotDo) {
    inp_DataArray data = Packed({"1, 2.0, 3.0"});
    EXPECT_EQ(TextOf([&] { data.AsDouble(0, 0); }), "Node number cannot be converted to a double");
    EXPECT_EQ(TextOf([&] { data.AsInt(0, 2); }), "Keyword data cannot be converted to an integer");
    EXPECT_EQ(TextOf([&] { data.Set(0, 1, cow_String("1")); }), "Nodal id, coordinates or normals cannot set as a string");
    EXPECT_EQ(TextOf([&] { data.Set(0, 0, 1.0); }), "Node number cannot be a double");
    EXPECT_EQ(TextOf([&] { data.Set(0, 3, 1); }), "Nodal coordinates or normals cannot be an integer");
    EXPECT_EQ(TextOf([&] { data.Append("2, 0, 0"); }),
              "There has been an attempt to append a generic data line to a *NODE keyword.  This can happen when the "
              "nodal coordinate listing is separated from the *NODE keyword.  Please make sure your include files "
              "contain complete keywords (keyword + parameters + data lines).  Note that you can still use multiple "
              "files to list the nodes, provided you have *NODE at the top of each file.");
    EXPECT_EQ(data.NumberOfLines(), 1);

    data.Set(0, 0, 42);
    data.Set(0, 6, -0.5);
    ExpectNode(data, 0, 42, {2, 3, 0, 0, 0, -0.5});

    EXPECT_EQ(AssertionOf([&] { data.AsInt(1, 0); }), "i >= 0 && i < nrows");
    EXPECT_EQ(AssertionOf([&] { data.NumberOfItems(1); }), "i >= 0 && i < nrows");
    EXPECT_EQ(AssertionOf([&] { data.AsDouble(0, 7); }), "j >= 0 && j < 7");
    EXPECT_EQ(AssertionOf([&] { data.Type(0, -1); }), "j >= 0 && j < 7");
    EXPECT_EQ(AssertionOf([&] { data.AsString(0, 7); }), "j >= 0 && j < 7");
    EXPECT_EQ(AssertionOf([&] { data.Set(0, 7, 1.0); }), "j >= 0 && j < 7");
}

TEST(NodeDataArray, PrintedLinesReadBackToTheSameValues) {
    inp_DataArray data = Packed({"7, 2.0, 0.1, -2.5e10, 1e-300, 0.3333333333333333, 123456.789"});
    EXPECT_EQ(Printed(data, 0), "7, 2., 0.1, -25000000000., 1e-300, 0.3333333333333333, 123456.789");
    inp_DataArray again = Packed({Printed(data, 0).c_str()});
    for (int j = 1; j < 7; ++j) EXPECT_EQ(again.AsDouble(0, j), data.AsDouble(0, j)) << "item " << j;
    EXPECT_EQ(again.AsInt(0, 0), 7);
    EXPECT_EQ(Printed(Packed({"3, 1"}), 0), "3, 1., 0., 0., 0., 0., 0.");
    EXPECT_EQ(data.AsStringVerbatim(0, 2), data.AsString(0, 2));
}

TEST(NodeDataArray, AddNodeKeepsOneSlotFree) {
    inp_NodeDataArrayImpl* nodes = new inp_NodeDataArrayImpl(3);
    inp_DataArray data(nodes);
    EXPECT_EQ(data.NumberOfLines(), 0);
    EXPECT_EQ(nodes->AddNode(10, 1.0, 2.0, 3.0), 1);
    EXPECT_EQ(nodes->AddNode(11, 4.0, 5.0, 6.0), 2);
    EXPECT_EQ(AssertionOf([&] { nodes->AddNode(12, 0, 0, 0); }), "nrows+1 < allocatedSize");
    ASSERT_EQ(data.NumberOfLines(), 2);
    ExpectNode(data, 0, 10, {1, 2, 3, 0, 0, 0});
    ExpectNode(data, 1, 11, {4, 5, 6, 0, 0, 0});

    inp_NodeDataArrayImpl empty(0);
    EXPECT_EQ(AssertionOf([&] { empty.AddNode(1, 0, 0, 0); }), "nrows+1 < allocatedSize");
}

TEST(NodeDataArray, CloneIsIndependentAndFull) {
    inp_DataArray data = Packed({"1, 2, 3, 4, 5, 6, 7", "2"});
    inp_DataArray copy(data.Clone());
    copy.Set(0, 1, 9.0);
    ExpectNode(data, 0, 1, {2, 3, 4, 5, 6, 7});
    ExpectNode(copy, 0, 1, {9, 3, 4, 5, 6, 7});
    ExpectNode(copy, 1, 2, {0, 0, 0, 0, 0, 0});
    // A clone is sized to its lines: no room to add.
    inp_NodeDataArrayImpl* clone = dynamic_cast<inp_NodeDataArrayImpl*>(&copy.SharedGet());
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(AssertionOf([&] { clone->AddNode(3, 0, 0, 0); }), "nrows+1 < allocatedSize");
}

TEST(NodeDataArray, PacksAnyKindOfArray) {
    // Packing again reads the packed array through its items.
    inp_DataArray data = Packed({"1, 2.5, 3", "4, , , , 1"});
    inp_DataArray again(new inp_NodeDataArrayImpl(data));
    ExpectNode(again, 0, 1, {2.5, 3, 0, 0, 0, 0});
    ExpectNode(again, 1, 4, {0, 0, 0, 1, 0, 0});

    inp_DataArray none;
    inp_DataArray empty(new inp_NodeDataArrayImpl(none));
    EXPECT_EQ(empty.NumberOfLines(), 0);
}
