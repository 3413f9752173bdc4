// Elements as the element pass makes them: node counts by type, continuation lines,
// stacked families, copies and generation, and the messages.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp_ElementVisitor.h"

using inp_test::In;
using inp_test::Make;
using inp_test::MakeWithData;
using inp_test::Params;
using inp_test::ToVector;

namespace {

using Ids = std::vector<int>;
using Strings = std::vector<std::string>;

// An element pass walking part P.
struct Part {
    Part() : v(true) {
        v.partName = cow_String("P");
        v.elements.Insert(cow_String("P"), omi_IntTable<inp_Element>());
    }
    void Element(const Params& params, const std::vector<const char*>& lines) {
        inp_Keyword k = MakeWithData(inp_kwElement, params, lines);
        v.VisitElement(k);
        last = k;
    }
    bool Has(int id) const { return v.elements.ConstGet(cow_String("P")).HasKey(id); }
    Ids Nodes(int id) const {
        const inp_Element& e = v.elements.ConstGet(cow_String("P")).ConstGet(id);
        return Ids(e.nodes, e.nodes + e.numNodes);
    }
    Ids SetIds(const char* name) const {
        const cow_1DArrayList<int> ids = v.setMap.ConstGetNestedSet(cow_String("P"), cow_String(name)).ConstGetIds();
        Ids out;
        for (int i = 0; i < ids.Count(); ++i) out.push_back(ids.ConstGet(i));
        return out;
    }
    inp_ElementVisitor v;
    inp_Keyword last;
};

Ids Range(int first, int last, int shift = 0) {
    Ids out;
    for (int i = first; i <= last; ++i) out.push_back(i + shift);
    return out;
}

}  // namespace

TEST(ElementDefinition, TypeTablesAreComplete) {
    EXPECT_EQ(inp_ElementTypes::ElementTypeCount(), 655);
    EXPECT_EQ(inp_ElementTypes::ElementInfo().Count(), 655);
    EXPECT_EQ(inp_ElementTypes::ObsoleteTypes().Count(), 14);
    EXPECT_EQ(inp_ElementTypes::ReflectOrder().Count(), 210);
    const inp_ElementInfo& caxa = inp_ElementTypes::ElementInfo().ConstGet(cow_String("CAXA84"));
    EXPECT_EQ(caxa.minNodes, 8);
    EXPECT_EQ(caxa.maxNodes, 40);
    EXPECT_EQ(inp_ElementTypes::ReflectOrder().ConstGet(cow_String("CIN3D18R")).Count(), 18);
}

TEST(ElementDefinition, LinesAndContinuations) {
    Part p;
    // 21 nodes and a trailing comma: the 22nd node is left open.
    p.Element({{"type", "C3D27"}},
              {"1, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21,"});
    Ids expected = Range(1, 21);
    expected.push_back(0);
    EXPECT_EQ(p.Nodes(1), expected);

    p.Element({{"type", "C3D20"}, {"elset", "E"}},
              {"2, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16,", "17, 18, 19, 20",
               "3, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20"});
    EXPECT_EQ(p.Nodes(2), Range(1, 20));
    EXPECT_EQ(p.SetIds("E"), (Ids{2, 3}));
    p.Element({{"type", "C3D8"}}, {"4, 1, 2, 3, 4, 5, 6, 7, 8,", "5, 1, 2, 3, 4, 5, 6, 7, 8"});
    EXPECT_EQ(p.Nodes(4), Range(1, 8));
    EXPECT_EQ(p.Nodes(5), Range(1, 8));
    p.Element({{"type", "CONN3D2"}}, {"6, 5,"});
    EXPECT_EQ(p.Nodes(6), (Ids{5}));
    EXPECT_TRUE(p.v.errors.IsEmpty()) << ToVector(p.v.errors)[0];

    p.Element({{"type", "C3D4"}, {"elset", "F"}}, {"7, 1, 2, 3, 4", "1234567890, 1, 2, 3, 4", "8, 1, 2, 3, 4"});
    EXPECT_EQ(p.SetIds("F"), (Ids{7}));
    EXPECT_FALSE(p.Has(8));
    p.Element({{"type", "C3D4"}, {"elset", "G"}}, {"9, 1, 2, 3", "10, 1, 2, 3, 4, 5"});
    EXPECT_TRUE(p.Has(9));
    EXPECT_FALSE(p.v.setMap.HasNestedSet(cow_String("P"), cow_String("G")));
    p.Element({{"type", "C3D4"}}, {"11"});
    EXPECT_EQ(ToVector(p.v.errors),
              (Strings{In("ELEMENT", "Element number exceeds 9 digits for element of type C3D4."),
                       In("ELEMENT", "Too few nodes for element(s) of type \"C3D4\" :\n9"),
                       In("ELEMENT", "Element connectivity is missing for element 11 of type \"C3D4\"")}));
    EXPECT_EQ(ToVector(p.v.warnings), (Strings{In("ELEMENT", "Too many nodes for element(s) of type \"C3D4\" :\n10")}));
}

TEST(ElementDefinition, TypesAndUserElements) {
    Part p;
    inp_Keyword first = Make(inp_kwUserElement, {{"type", "U1"}, {"nodes", "3"}});
    p.v.VisitUserElement(first);
    inp_Keyword again = Make(inp_kwUserElement, {{"type", "U1"}, {"nodes", "5"}});
    p.v.VisitUserElement(again);
    inp_Keyword inFile = Make(inp_kwUserElement, {{"type", "U2"}, {"file", "lib"}});
    p.v.VisitUserElement(inFile);
    inp_Keyword zero = Make(inp_kwUserElement, {{"type", "U3"}, {"nodes", "0"}});
    p.v.VisitUserElement(zero);
    inp_Keyword noNodes = Make(inp_kwUserElement, {{"type", "U4"}});
    p.v.VisitUserElement(noNodes);
    p.Element({{"type", "U1"}}, {"1, 1, 2, 3, 4, 5"});
    p.Element({{"type", "U2"}}, {"2, 1, 2, 3, 4, 5, 6, 7, 8, 9"});
    p.Element({{"type", "U9"}}, {"3, 1"});
    p.Element({{"type", "CGPE5"}}, {"4, 1"});
    p.Element({{"type", "XYZ8"}}, {"5, 1"});
    EXPECT_EQ(p.Nodes(2).size(), 9u);
    EXPECT_TRUE(p.Has(3));
    EXPECT_FALSE(p.Has(4) || p.Has(5));
    EXPECT_EQ(ToVector(p.v.errors),
              (Strings{In("USERELEMENT", "The number of nodes on a user element must be greater than zero."),
                       In("USERELEMENT", "The NODES parameter is required."),
                       In("ELEMENT", "This user element type has not been defined properly.Check *USER ELEMENT "
                                     "definitions."),
                       In("ELEMENT", "Element type \"CGPE5\" has become obsolete.  Please check the User's manual for "
                                     "the current release."),
                       In("ELEMENT", "Element type \"XYZ8\" is not supported.")}));
    EXPECT_EQ(ToVector(p.v.warnings), (Strings{In("ELEMENT", "Too many nodes for element(s) of type \"U1\" :\n1")}));
}

TEST(ElementDefinition, StackedFamiliesAreCompleted) {
    Part p;
    p.Element({{"type", "CAXA81"}}, {"1, 1, 2, 3, 4, 5, 6, 7, 8"});
    // The keyword's data now hold the completed element: 16 nodes over two lines.
    ASSERT_EQ(p.last.data.NumberOfLines(), 2);
    EXPECT_TRUE(p.last.data.LastItemIsBlank(0));
    EXPECT_EQ(p.last.data.AsInt(1, 0), 100008);
    Ids caxa = Range(1, 8);
    for (int i = 1; i <= 8; ++i) caxa.push_back(100000 + i);
    EXPECT_EQ(p.Nodes(1), caxa);
    p.Element({{"type", "CAXA81"}, {"offset", "50"}}, {"2, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16"});
    EXPECT_EQ(p.Nodes(2), Range(1, 16));
    EXPECT_EQ(inp_test::Value(p.last, "offset"), "50");  // nothing was completed
    p.Element({{"type", "CAXA81"}}, {"3, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12"});
    EXPECT_FALSE(p.Has(3));

    p.Element({{"type", "GK3D18"}, {"offset", "100"}}, {"4, 1, 2, 3, 4, 5, 6, 7, 8, 9", "5, 1, 2, 3, 4, 5, 6, 7, 8"});
    EXPECT_EQ(p.Nodes(4).size(), 18u);
    EXPECT_EQ(p.Nodes(4)[17], 109);
    EXPECT_EQ(p.Nodes(5), (Ids{1, 2, 3, 4, 5, 6, 7, 8, 101, 102, 103, 104, 105, 106, 107, 108}));
    const inp_Element& gasket = p.v.elements.ConstGet(cow_String("P")).ConstGet(5);
    EXPECT_EQ(gasket.bottomNodes, 8);
    EXPECT_EQ(gasket.offset, 100);

    p.Element({{"type", "COH3D8P"}, {"offset", "10"}}, {"6, 1, 2, 3, 4", "7, 1, 2, 3, 4, 21, 22, 23, 24"});
    EXPECT_EQ(p.Nodes(6), (Ids{1, 2, 3, 4, 11, 12, 13, 14, 21, 22, 23, 24}));
    EXPECT_EQ(p.Nodes(7), (Ids{1, 2, 3, 4, 21, 22, 23, 24, 11, 12, 13, 14}));
    EXPECT_EQ(inp_test::Value(p.last, "offset"), "10");  // kept for the node pass
    EXPECT_EQ(ToVector(p.v.errors),
              (Strings{In("ELEMENT", "Node numbers must be positive in element 3:\n1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, "
                                     "12, 0, 0, 0, 0")}));
}

TEST(ElementDefinition, ConnectivityInsideAnInstanceIsChecked) {
    inp_ElementVisitor v(true);
    v.instanceName = cow_String("I");
    v.elements.Insert(cow_String("I"), omi_IntTable<inp_Element>());
    inp_Keyword k = MakeWithData(inp_kwElement, {{"type", "C3D8"}}, {"1, 1, x, 0, -2, 1234567890, , 3, 4"});
    v.VisitElement(k);
    const inp_Element& e = v.elements.ConstGet(cow_String("I")).ConstGet(1);
    EXPECT_EQ(Ids(e.nodes, e.nodes + e.numNodes), (Ids{1, 3, 4}));
    EXPECT_EQ(ToVector(v.errors),
              (Strings{In("ELEMENT", "Non integer in element connectivity for element 1"),
                       In("ELEMENT", "Integer in element connectivity for element 1 is zero or negative."),
                       In("ELEMENT", "Integer in element connectivity for element 1 is zero or negative."),
                       In("ELEMENT", "Integer exceeds 9 digits in element connectivity for element 1.")}));
}

TEST(ElementDefinition, CopiesAndGeneration) {
    Part p;
    p.Element({{"type", "CPE4"}, {"elset", "Q"}}, {"1, 1, 2, 3, 4"});
    inp_Keyword reflect = Make(inp_kwElcopy, {{"elementshift", "10"}, {"oldset", "Q"}, {"shiftnodes", "100"},
                                              {"reflect", nullptr}, {"newset", "R"}});
    p.v.VisitElcopy(reflect);
    EXPECT_EQ(p.Nodes(11), (Ids{101, 104, 103, 102}));
    EXPECT_EQ(p.SetIds("R"), (Ids{11}));

    p.Element({{"type", "B31"}}, {"20, 1, 2, 9", "30, 1, 2"});
    inp_Keyword beam = MakeWithData(inp_kwElgen, {{"elset", "B"}}, {"20, 3, 1, 1", "30, 2, 5, 1"});
    p.v.VisitElgen(beam);
    EXPECT_EQ(p.Nodes(22), (Ids{3, 4, 9}));  // the orientation node stays
    EXPECT_EQ(p.Nodes(31), (Ids{6, 7}));
    EXPECT_EQ(p.SetIds("B"), (Ids{20, 21, 22, 30, 31}));

    // Rows and layers; the highest id may be 999999999 and no more.
    p.Element({{"type", "C3D8"}}, {"999999000, 1, 2, 3, 4, 5, 6, 7, 8"});
    inp_Keyword block = MakeWithData(inp_kwElgen, {}, {"999999000, 2, 1, 1, 2, 10, 10, 2, 100, 988"});
    p.v.VisitElgen(block);
    EXPECT_TRUE(p.Has(999999999));
    EXPECT_EQ(p.Nodes(999999999), Range(1, 8, 111));
    inp_Keyword tooHigh = MakeWithData(inp_kwElgen, {}, {"999999000, 2, 1, 1, 2, 10, 10, 2, 100, 989"});
    p.v.VisitElgen(tooHigh);
    inp_Keyword noMaster = MakeWithData(inp_kwElgen, {}, {"77, 2"});
    p.v.VisitElgen(noMaster);
    inp_Keyword notCopied = Make(inp_kwElcopy, {{"elementshift", "10"}, {"oldset", "B"}, {"shiftnodes", "1"},
                                                {"reflect", nullptr}});
    p.v.VisitElcopy(notCopied);
    inp_Keyword missing = Make(inp_kwElcopy, {{"elementshift", "10"}, {"oldset", "NONE"}, {"shiftnodes", "1"}});
    p.v.VisitElcopy(missing);
    EXPECT_EQ(ToVector(p.v.errors),
              (Strings{In("ELGEN", "Maximum element number allowed is 999999999."),
                       In("ELGEN", "Master element 77 is not defined."),
                       In("ELCOPY", "The element type \"B31\" is either not a continuum element or not yet implemented "
                                    "for the REFLECT option in ELCOPY."),
                       In("ELCOPY", "Element set NONE does not exist.")}));
}

TEST(ElementDefinition, FastenerSets) {
    inp_ElementVisitor v(true);
    v.setMap.InsertNestedSet(cow_String("I"), cow_String("OTHER"), *CreateSet(false, false));
    inp_Keyword plain = Make(inp_kwFastener, {{"elset", "F"}});
    v.VisitFastener(plain);
    inp_Keyword scoped = Make(inp_kwFastener, {{"elset", "I.G"}});
    v.VisitFastener(scoped);
    inp_Keyword unknown = Make(inp_kwFastener, {{"elset", "J.G"}});
    v.VisitFastener(unknown);
    EXPECT_TRUE(v.setMap.ConstGetSet(cow_String("F")).IsUnsorted());
    EXPECT_TRUE(v.setMap.ConstGetNestedSet(cow_String("I"), cow_String("G")).IsEmpty());
    EXPECT_EQ(ToVector(v.errors), (Strings{In("FASTENER", "Unknown instance J.")}));
}
