#include <gtest/gtest.h>

#include "../support/inp_TestFiles.h"

#include <string>
#include <vector>

#include "inp_FakePartSetVisitor.h"

namespace {

using inp_test::Make;
using inp_test::MakeWithData;
using inp_test::ToVector;
using Strings = std::vector<std::string>;

// The part-level maps of a converted deck, nested by part name (or by instance name
// for `final`).
struct PartModel {
    inpM_SetMap nodeSets, elementSets;
    inpM_IdMap nodeIds, elementIds;
    inp_ModelParameters parameters;

    explicit PartModel(bool final = false) {
        const cow_String part1(final ? "PART-1-1" : "PART-1"), die(final ? "DIE-1" : "DIE");
        const cow_1DArrayList<int> none;
        nodeSets.InsertNestedSet(part1, cow_String("TOP"), CreateSet(none, false, false).ConstGet());
        nodeSets.InsertNestedSet(part1, cow_String("A B"), CreateSet(none, false, false).ConstGet());
        nodeSets.InsertNestedSet(part1, cow_String("\"Q.R\""), CreateSet(none, false, false).ConstGet());
        nodeSets.InsertNestedSet(die, cow_String("DIESET"), CreateSet(none, false, false).ConstGet());
        elementSets.InsertNestedSet(part1, cow_String("BODY"), CreateSet(none, false, false).ConstGet());
        inpM_IdMap nodes1, nodesDie, elements1;
        for (int id = 1; id <= 40; ++id) nodes1.Insert(id, id);
        nodesDie.Insert(100, 41);
        elements1.Insert(7, 1);
        nodeIds.InsertInstance(part1, nodes1);
        nodeIds.InsertInstance(die, nodesDie);
        elementIds.InsertInstance(part1, elements1);
    }
};

std::string Items(const inp_Keyword& k) {
    std::string text;
    for (int line = 0; line < k.data.NumberOfLines(); ++line)
        text += (line ? "|" : "") + std::string(k.data.AsString(line, 0).c_str());
    return text;
}

}  // namespace

// At assembly and model level a reference takes the scope of the part that holds it;
// inside a part or an instance it stays the part's own.
TEST(FakePartSet, ReferencesTakeTheScopeOfTheirPart) {
    const char* lines[] = {"TOP, 1", "\"A B\", 1", "\"Q.R\", 1", "5, 1", "100, 1", "777, 1", "NOSUCH, 1",
                           "PART-1-1.TOP, 1", "7, 1"};
    const std::string expected =
        "PART-1-1.TOP|PART-1-1.\"A B\"|PART-1-1.\"Q.R\"|PART-1-1.5|DIE-1.100|777|NOSUCH|PART-1-1.TOP|PART-1-1.7";
    const Strings missing = {"Node/element 777 cannot be found.  Please check that it is defined."};
    struct Case {
        bool final, symmetric;
        Strings errors;
    };
    for (const Case& c : {Case{false, false, missing}, Case{true, false, missing}, Case{false, true, {}}}) {
        PartModel model(c.final);
        model.parameters.hasSymmetricModelGeneration = c.symmetric;
        inp_FakePartSetVisitor v(model.nodeIds, model.elementIds, model.elementSets, model.nodeSets, c.final,
                                 model.parameters);
        cow_1DArrayList<inp_Keyword> list;
        list.Append(Make(inp_kwPart, {{"name", "PART-1"}}));
        list.Append(MakeWithData(inp_kwNodalThickness, {}, {"5, 1.0", "TOP, 1.0"}));
        list.Append(Make(inp_kwEndPart));
        list.Append(Make(inp_kwAssembly, {{"name", "Assembly-1"}}));
        list.Append(Make(inp_kwInstance, {{"name", "PART-1-1"}, {"part", "PART-1"}}));
        list.Append(MakeWithData(inp_kwNodalThickness, {}, {"5, 1.0"}));
        list.Append(Make(inp_kwEndInstance));
        list.Append(Make(inp_kwEndAssembly));
        list.Append(Make(inp_kwStep, {{"name", "S1"}}));
        inp_Keyword boundary = Make(inp_kwBoundary);
        for (const char* line : lines) boundary.data.Append(line);
        list.Append(boundary);
        list.Append(Make(inp_kwElPrint, {{"elset", "BODY"}}));
        list.Append(Make(inp_kwEndStep));
        v.VisitList(list);

        const std::string label = std::string(c.final ? "final" : "parts") + (c.symmetric ? " symmetric" : "");
        EXPECT_EQ(Items(list[1]), "5|TOP") << label;
        EXPECT_EQ(Items(list[5]), "5") << label;
        EXPECT_EQ(Items(list[9]), expected) << label;
        EXPECT_EQ(inp_test::Value(list[10], "elset"), "PART-1-1.BODY") << label;
        EXPECT_EQ(ToVector(v.errors), c.errors) << label;
        EXPECT_TRUE(v.warnings.IsEmpty()) << label;
    }
}
