#include <gtest/gtest.h>

#include <string>

#include "inp_Exceptions.h"
#include "inp_Item.h"

namespace {

// The message of the inp_KeywordException that f raises, or "" if none.
template <class F>
std::string KeywordMessageOf(F f) {
    try {
        f();
    } catch (const inp_KeywordException& e) {
        EXPECT_EQ(e.lineNumber, 0);
        EXPECT_TRUE(e.fileName.IsEmpty());
        return e.UserReport().c_str();
    }
    return "";
}

}  // namespace

TEST(Item, TypingByThePatternChain) {
    struct Case {
        const char* text;
        inp_Types::typeEnm type;
        const char* stored;  // stringValue of a string item
        double number;       // intValue or doubleValue of a number
    };
    const Case cases[] = {
        {"  12  ", inp_Types::typeInt, "", 12},
        {"+12", inp_Types::typeInt, "", 12},
        {"-7", inp_Types::typeInt, "", -7},
        {"E5", inp_Types::typeString, "E5", 0},
        {"D2", inp_Types::typeString, "D2", 0},
        {"12.", inp_Types::typeDouble, "", 12.0},
        {".5", inp_Types::typeDouble, "", 0.5},
        {"1e3", inp_Types::typeDouble, "", 1000.0},
        {"1.E+3", inp_Types::typeDouble, "", 1000.0},
        {"1d3", inp_Types::typeDouble, "", 1000.0},
        {" -2.5D-1\t", inp_Types::typeDouble, "", -0.25},
        {".", inp_Types::typeDouble, "", 0.0},
        {"1.5.3", inp_Types::typeString, "1.5.3", 0},
        {"12abc", inp_Types::typeString, "12abc", 0},
        {"/tmp/x.inp", inp_Types::typeString, "/tmp/x.inp", 0},
        {" \"my set\" ", inp_Types::typeString, "\"my set\"", 0},
        {"Part-1.12", inp_Types::typeString, "Part-1.12", 0},
        {"\tMy_Set ", inp_Types::typeString, "My_Set", 0},
        {"\"\"", inp_Types::typeNone, "", 0},
        {"A=B", inp_Types::typeNone, "", 0},
        {"-", inp_Types::typeNone, "", 0},
        {"+", inp_Types::typeNone, "", 0},
        {"", inp_Types::typeNone, "", 0},
        {" \t", inp_Types::typeNone, "", 0},
    };
    for (const Case& c : cases) {
        inp_Item item{cow_String(c.text)};
        EXPECT_EQ(item.type, c.type) << "\"" << c.text << "\"";
        EXPECT_EQ(item.stringValue, c.stored) << "\"" << c.text << "\"";
        if (c.type == inp_Types::typeInt) {
            EXPECT_EQ(item.intValue, static_cast<int>(c.number)) << c.text;
        }
        if (c.type == inp_Types::typeDouble) {
            EXPECT_DOUBLE_EQ(item.doubleValue, c.number) << c.text;
        }
    }
    // Too large for 32 bits and still an integer.
    EXPECT_EQ(inp_Item(cow_String("99999999999")).type, inp_Types::typeInt);
    // A literal is typed like a string, not taken as a flag.
    EXPECT_EQ(inp_Item("abc").type, inp_Types::typeString);
}

TEST(Item, TextForms) {
    EXPECT_EQ(inp_Item(12).AsString(), "12");
    EXPECT_EQ(inp_Item(true).AsString(), "TRUE");
    EXPECT_EQ(inp_Item(false).AsString(), "FALSE");
    EXPECT_EQ(inp_Item(cow_String(" ")).AsString(), "None");

    inp_Item broken;
    broken.type = static_cast<inp_Types::typeEnm>(9);
    try {
        broken.AsString();
        FAIL();
    } catch (const nex_AssertException& e) {
        EXPECT_EQ(e.Condition(), "\"Unimplemented input file item type\" == 0");
    }
}

TEST(Item, NumericConversions) {
    EXPECT_EQ(inp_Item(7).AsInt(), 7);
    EXPECT_DOUBLE_EQ(inp_Item(3).AsDouble(), 3.0);
    EXPECT_DOUBLE_EQ(inp_Item(2.5).AsDouble(), 2.5);

    EXPECT_EQ(KeywordMessageOf([] { inp_Item(true).AsInt(); }), "Value cannot be converted to an integer: TRUE");
    EXPECT_EQ(KeywordMessageOf([] { inp_Item().AsInt(); }), "Value cannot be converted to an integer: None");
    EXPECT_EQ(KeywordMessageOf([] { inp_Item(cow_String("abc")).AsDouble(); }),
              "Value cannot be converted to a double: abc");
    EXPECT_EQ(KeywordMessageOf([] { inp_Item(false).AsDouble(); }), "Value cannot be converted to a double: FALSE");
}
