// Sets a restart deck defines on the model of an earlier analysis: where they land,
// what they hold, and that an earlier set is never touched.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../inpM/inpM_TestLists.h"
#include "../support/inp_TestFiles.h"
#include "inp_RestartSetVisitor.h"

namespace {

using inp_test::In;
using inp_test::MakeWithData;
using inp_test::ToVector;
using Strings = std::vector<std::string>;

cow_String S(const char* s) { return cow_String(s); }

// An earlier model: one instance PART-1-1 with ids 1 to 20, the set OLD inside it and
// TOP at the assembly level.
struct Earlier {
    inpM_IdMap ids;
    inpM_SetMap sets;
    Earlier() {
        inpM_IdMap instance;
        for (int id = 1; id <= 20; ++id) instance.Insert(id, id);
        ids.InsertInstance(S("PART-1-1"), instance);
        sets.InsertNestedSet(S("PART-1-1"), S("OLD"), CreateSet(List({1, 2}), false, false).ConstGet());
        inpM_SortedSet top;
        top.Add(S("PART-1-1"), List({3}));
        sets.InsertSet(S("TOP"), top);
    }
};

struct Walked {
    cow_1DArrayList<inp_Keyword> keywords;
    Strings errors;
};

Walked Walk(inp_RestartSetVisitor& visitor, std::vector<inp_Keyword> keywords) {
    Walked run;
    for (const inp_Keyword& k : keywords) run.keywords.Append(k);
    visitor.VisitList(run.keywords);
    run.errors = ToVector(visitor.errors);
    return run;
}

std::vector<int> InstanceIds(const inpM_BaseSet& set, const char* instance) {
    return Ints(set.ConstGetSecondLevelIds(S(instance)));
}

}  // namespace

TEST(RestartSet, FlatModelFindsIdsAndSetsInTheInstances) {
    Earlier earlier;
    inp_RestartSetVisitor v(earlier.sets, S("ASSEMBLY-1"), false, earlier.ids, S("nset"));
    EXPECT_EQ(v.KeywordName(), S("*NSET"));
    const Walked run =
        Walk(v, {MakeWithData(inp_kwNset, {{"nset", "NEW"}}, {"12, 9999, OLD", "TOP, GONE"}),
                 MakeWithData(inp_kwNset, {{"nset", "GEN"}, {"generate", nullptr}}, {"4, 8, 2", "19, 23"}),
                 MakeWithData(inp_kwNset, {{"nset", "SHORT"}, {"generate", nullptr}}, {"5"}),
                 MakeWithData(inp_kwNset, {{"nset", "WORDS"}, {"generate", nullptr}}, {"A, B"}),
                 MakeWithData(inp_kwNset, {{"nset", "SCOPED"}}, {"7, PART-1-1.1, 8", "9"}),
                 MakeWithData(inp_kwNset, {{"nset", "OLD"}}, {"1"}), MakeWithData(inp_kwNset, {{"nset", "TOP"}}, {"1"}),
                 MakeWithData(inp_kwNset, {{"nset", "A.B"}}, {"1"}),
                 MakeWithData(inp_kwElset, {{"elset", "E"}}, {"1"})});
    EXPECT_EQ(run.errors,
              (Strings{In("NSET", "The following sets/IDs do not exist:\n9999, GONE"),
                       In("NSET", "Not enough data provided to generate set"),
                       In("NSET", "The data under must be integers."),
                       In("NSET", "A period is detected in a data item used to define new node/element sets in a "
                                  "restart input file. This is not allowed, since the original analysis was not "
                                  "defined in terms of an assembly of part instance. The data item in question is: "
                                  "PART-1-1.1"),
                       "Error in *NSET/*ELSET: the set TOP already exists in the original analysis. It cannot be "
                       "modified upon restart.",
                       In("NSET", "The input file for the original analysis does not contain parts and assemblies.  "
                                  "Upon restart, only assembly level sets may be defined.  The set name given by the "
                                  "NSET/ELSET parameter should not contain any periods which imply an assembly of "
                                  "part instances.  The unrecognizable name is: A.B")}));
    // Ids go under the instance that holds them; a named set comes whole, from the
    // assembly level or from inside the instance; unknown ids of a GENERATE drop out.
    EXPECT_EQ(InstanceIds(v.newSets.ConstGetSet(S("NEW")), "PART-1-1"), (std::vector<int>{1, 2, 3, 12}));
    EXPECT_EQ(InstanceIds(v.newSets.ConstGetSet(S("GEN")), "PART-1-1"), (std::vector<int>{4, 6, 8, 19, 20}));
    EXPECT_TRUE(v.newSets.ConstGetSet(S("SHORT")).IsEmpty());
    EXPECT_EQ(InstanceIds(v.newSets.ConstGetSet(S("SCOPED")), "PART-1-1"), (std::vector<int>{7, 9}));
    // OLD stands inside the instance, not at the assembly level: a new set of the name is no duplicate.
    EXPECT_TRUE(v.newSets.IsMember(S("OLD")));
    EXPECT_FALSE(v.newSets.IsMember(S("TOP")));
    EXPECT_EQ(InstanceIds(v.setMap.ConstGetSet(S("TOP")), "PART-1-1"), std::vector<int>{3});
    EXPECT_FALSE(v.setMap.IsMember(S("E")));  // the element set is the other visitor's

    // A node set made from an element set takes the smallest id of the model.
    inp_RestartSetVisitor fromElements(earlier.sets, S("ASSEMBLY-1"), false, earlier.ids, S("nset"));
    const Walked appended = Walk(fromElements, {MakeWithData(inp_kwNset, {{"nset", "N"}, {"elset", "E"}}, {})});
    EXPECT_TRUE(appended.errors.empty());
    EXPECT_EQ(inp_test::Line(appended.keywords.ConstGet(0), 0), "1");
    EXPECT_EQ(InstanceIds(fromElements.newSets.ConstGetSet(S("N")), "PART-1-1"), std::vector<int>{1});
}

TEST(RestartSet, AssemblyModelTakesCompleteNames) {
    inpM_IdMap ids;
    inpM_SetMap earlier;
    earlier.InsertNestedSet(S("PUMP-1"), S("CORNER"), CreateSet(List({1}), false, false).ConstGet());
    earlier.InsertSet(S("OLD"), CreateSet(List({4}), false, false).ConstGet());
    inp_RestartSetVisitor v(earlier, S("ASSEMBLY-1"), true, ids, S("elset"));
    EXPECT_EQ(v.KeywordName(), S("*ELSET"));
    const Walked run = Walk(
        v, {MakeWithData(inp_kwElset, {{"elset", "ASSEMBLY-1.PUMP-1.NEW"}}, {"1, 3, CORNER"}),
            MakeWithData(inp_kwElset, {{"elset", "ASSEMBLY-1.NEWA"}}, {"PUMP-1.2, PUMP-1.4, OLD"}),
            MakeWithData(inp_kwElset, {{"elset", "ASSEMBLY-1.NEWI"}, {"instance", "PUMP-1"}}, {"5"}),
            MakeWithData(inp_kwElset, {{"elset", "ASSEMBLY-1.PUMP-1.GEN"}, {"generate", nullptr}}, {"1, 5, 2"}),
            MakeWithData(inp_kwElset, {{"elset", "NEW"}}, {"1"}),
            MakeWithData(inp_kwElset, {{"elset", "ASSEMBLY-1.A.B.C"}}, {"1"}),
            MakeWithData(inp_kwElset, {{"elset", "ASSEMBLY-1"}}, {"1"}),
            MakeWithData(inp_kwElset, {{"elset", "ASSEMBLY-1.PUMP-1.X"}, {"instance", "PUMP-1"}}, {"1"}),
            MakeWithData(inp_kwElset, {{"elset", "ASSEMBLY-1.X"}, {"generate", nullptr}}, {"1, 4"}),
            MakeWithData(inp_kwElset, {{"elset", "ASSEMBLY-1.PUMP-1.CORNER"}}, {"2"}),
            MakeWithData(inp_kwElset, {{"elset", "ASSEMBLY-1.OLD"}}, {"2"}),
            MakeWithData(inp_kwElset, {{"elset", "ASSEMBLY-1.AFTER"}}, {"PUMP-1.NEW"})});
    const std::string complete =
        "The complete name of an NSET/ELSET defined upon restart should contain: an assembly name, an optional "
        "instance name, and a set name. The unrecognizable name in question is ";
    const std::string duplicate = " already exists in the original analysis. It cannot be modified upon restart.";
    EXPECT_EQ(run.errors,
              (Strings{In("ELSET", "NEW is not the assembly name in the original analysis."),
                       In("ELSET", complete + "ASSEMBLY-1.A.B.C"), In("ELSET", complete + "ASSEMBLY-1"),
                       In("ELSET", "When defining a part instance level NSET/ELSET upon restart, the INSTANCE "
                                   "parameter should not appear."),
                       In("ELSET", "The GENERATE option on *NSET/*ELSET is not supported when defining an assembly "
                                   "level set in a restart input file, for models defined in terms of an assembly "
                                   "of part instances."),
                       "Error in *NSET/*ELSET: the set ASSEMBLY-1.PUMP-1.CORNER" + duplicate,
                       "Error in *NSET/*ELSET: the set ASSEMBLY-1.OLD" + duplicate}));
    EXPECT_EQ(Ints(v.newSets.ConstGetNestedSet(S("PUMP-1"), S("NEW")).ConstGetIds()), (std::vector<int>{1, 3}));
    EXPECT_EQ(Ints(v.newSets.ConstGetNestedSet(S("PUMP-1"), S("GEN")).ConstGetIds()), (std::vector<int>{1, 3, 5}));
    EXPECT_EQ(InstanceIds(v.newSets.ConstGetSet(S("NEWA")), "PUMP-1"), (std::vector<int>{2, 4}));
    EXPECT_EQ(Ints(v.newSets.ConstGetSet(S("NEWA")).ConstGetTopLevelIds()), std::vector<int>{4});
    EXPECT_EQ(InstanceIds(v.newSets.ConstGetSet(S("NEWI")), "PUMP-1"), std::vector<int>{5});
    // A set of this deck serves the next keyword, and the earlier sets stay as they were.
    EXPECT_EQ(InstanceIds(v.newSets.ConstGetSet(S("AFTER")), "PUMP-1"), (std::vector<int>{1, 3}));
    EXPECT_EQ(Ints(v.setMap.ConstGetNestedSet(S("PUMP-1"), S("CORNER")).ConstGetIds()), std::vector<int>{1});
    EXPECT_EQ(Ints(v.setMap.ConstGetSet(S("OLD")).ConstGetIds()), std::vector<int>{4});
    EXPECT_TRUE(v.instanceName.IsEmpty());

    // A node set named by an element set has no meaning in a model of parts.
    inp_RestartSetVisitor nodes(earlier, S("ASSEMBLY-1"), true, ids, S("nset"));
    const Walked refused = Walk(nodes, {MakeWithData(inp_kwNset, {{"nset", "ASSEMBLY-1.N"}, {"elset", "E"}}, {})});
    EXPECT_EQ(refused.errors,
              Strings{In("NSET", "The formation of a node set using an element set (*NSET, ELSET=) is currently not "
                                 "supported in the restart analysis of a job defined in terms of an assembly of "
                                 "part instances.")});
    EXPECT_TRUE(nodes.newSets.IsEmpty());
    EXPECT_EQ(inp_RestartSetVisitor().KeywordName(), S("*"));
}
