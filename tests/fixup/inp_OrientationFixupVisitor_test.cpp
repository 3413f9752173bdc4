#include <gtest/gtest.h>

#include "../support/inp_DataArrayTesting.h"
#include "../support/inp_TestFiles.h"

#include <map>
#include <set>
#include <string>
#include <vector>

#include "inp_OrientationFixupVisitor.h"
#include "inp_RebarFixupVisitor.h"
#include "nex_Exception.h"

namespace {

using inp_test::ArrayOf;
using inp_test::Line;
using inp_test::Make;
using inp_test::Params;
using inp_test::ToVector;
using inp_test::Value;
using Strings = std::vector<std::string>;

// Records every name handed over and answers "NEW_" + name, or the answer given for it;
// raises for the name in `failOn`, and lets an internal check fail for `assertOn`.
class RecordingOrientation : public inp_OrientationFixupVisitor {
public:
    Strings names;
    std::string failOn = "<none>";
    std::string assertOn = "<none>";
    std::map<std::string, std::string> answers;

    void Walk(inp_Keyword& keyword) { inp_test::Walk(*this, keyword); }

protected:
    cow_String ReplaceOrientationName(const cow_String& name) override {
        names.push_back(name.c_str());
        if (name == failOn.c_str()) nex_TextException(atr_raw("no such orientation")).Throw(__FILE__, __LINE__);
        NEX_ASSERT(name != assertOn.c_str());
        auto answer = answers.find(name.c_str());
        return answer != answers.end() ? cow_String(answer->second.c_str()) : cow_String("NEW_") + name;
    }
};

class RecordingRebar : public inp_RebarFixupVisitor {
public:
    Strings names;

protected:
    cow_String ReplaceRebarName(const cow_String& name) override {
        names.push_back(name.c_str());
        return cow_String("NEW_") + name;
    }
};

Strings Lines(const inp_Keyword& k) {
    Strings lines;
    for (int i = 0; i < k.data.NumberOfLines(); ++i) lines.push_back(Line(k, i));
    return lines;
}

inp_Keyword WithData(inp_KeywordEnm value, const Params& params, std::initializer_list<const char*> lines) {
    inp_Keyword k = Make(value, params);
    k.data = ArrayOf(lines);
    return k;
}

// One keyword before the walk, the names it must hand over in order, the parameters
// that must come back rewritten and the data lines as they must read afterwards.
struct Case {
    inp_Keyword keyword;
    Strings handed;
    std::set<std::string> rewrittenParameters;
    Strings lines;
};

// Decoys: a set, a material and data that no rule of the families reads.
const Params kDecoys = {{"elset", "E1"}, {"material", "STEEL"}};
const std::initializer_list<const char*> kDecoyData = {"A, B, C, D", "E, F, G, H"};

std::vector<Case> FamilyCases() {
    std::vector<Case> cases;
    auto add = [&](inp_KeywordEnm value, const char* parameter) {
        Params params = kDecoys;
        params.push_back({parameter, "ORI1"});
        cases.push_back({WithData(value, params, kDecoyData), {"ORI1"}, {parameter}, {"A,B,C,D", "E,F,G,H"}});
    };
#define ORIENTATION(Ident) add(inp_kw##Ident, "orientation");
#define NAME(Ident) add(inp_kw##Ident, "name");
#define CAVITY(Ident) add(inp_kw##Ident, "cavity");
    INP_ORIENTFIXUP_ORIENTATION_PARAMETER(ORIENTATION)
    INP_ORIENTFIXUP_NAME_PARAMETER(NAME)
    INP_ORIENTFIXUP_CAVITY_PARAMETER(CAVITY)
#undef ORIENTATION
#undef NAME
#undef CAVITY
    add(inp_kwJointedMaterial, "jointdirection");
    return cases;
}

std::vector<Case> OtherCases() {
    const Params fluidCavity = {{"name", "CAV"}, {"behavior", "BEH"}, {"refnode", "R"}};
    Params mixture = fluidCavity;
    mixture.push_back({"mixture", nullptr});
    const std::initializer_list<const char*> layers = {"0.1, 3, STEEL, 45.", "0.1, 3, STEEL, ORI-1",
                                                       "0.2, 3, STEEL, , 5", "0.3, 3, STEEL"};
    return {
        {Make(inp_kwFluidInflator, {{"name", "INF"}, {"property", "PROP"}, {"type", "TANK"}}),
         {"INF", "PROP"},
         {"name", "property"},
         {}},
        {WithData(inp_kwFluidCavity, mixture, {"1.0, 2.0", "GAS1, 0.5", "GAS2, 0.5"}),
         {"CAV", "BEH", "GAS1", "GAS2"},
         {"name", "behavior"},
         {"1.0,2.0", "NEW_GAS1,0.5", "NEW_GAS2,0.5"}},
        {WithData(inp_kwFluidCavity, fluidCavity, {"1.0, 2.0", "GAS1, 0.5"}),
         {"CAV", "BEH"},
         {"name", "behavior"},
         {"1.0,2.0", "GAS1,0.5"}},
        {WithData(inp_kwFluidCavity, {{"name", "CAV"}, {"mixture", nullptr}}, {"1.0", "GAS1"}),
         {"CAV", "GAS1"},
         {"name"},
         {"1.0", "NEW_GAS1"}},
        {WithData(inp_kwConnectorSection, kDecoys, {"A, B"}), {}, {}, {"A,B"}},
        {WithData(inp_kwConnectorSection, kDecoys, {"A, B", "ORI1"}), {"ORI1"}, {}, {"A,B", "NEW_ORI1"}},
        {WithData(inp_kwConnectorSection, kDecoys, {"A", "ORI1, ORI2, C", "D, E"}),
         {"ORI1", "ORI2"},
         {},
         {"A", "NEW_ORI1,NEW_ORI2,C", "D,E"}},
        {WithData(inp_kwContactPair, {{"interaction", "FRIC"}}, {"S1, S2", "S3, S4, O1", "S5, S6, O2, O3, X"}),
         {"O1", "O2", "O3"},
         {},
         {"S1,S2", "S3,S4,NEW_O1", "S5,S6,NEW_O2,NEW_O3,X"}},
        {WithData(inp_kwFluidInflatorMixture, {{"numberspecies", "3"}}, {"A, B", "C, D"}),
         {"A", "B", "C"},
         {},
         {"NEW_A,NEW_B", "NEW_C,D"}},
        {WithData(inp_kwFluidInflatorMixture, {{"numberspecies", "5"}}, {"A, B, C, D, E", "0.5"}),
         {"A", "B", "C", "D", "E"},
         {},
         {"NEW_A,NEW_B,NEW_C,NEW_D,NEW_E", "0.5"}},
        {WithData(inp_kwFluidInflatorMixture, {{"numberspecies", "4"}}, {"A", "B"}),
         {"A", "B"},
         {},
         {"NEW_A", "NEW_B"}},
        {WithData(inp_kwFluidInflatorMixture, {{"numberspecies", "0"}}, {"A"}), {}, {}, {"A"}},
        {WithData(inp_kwFluidInflatorMixture, {}, {"A"}), {}, {}, {"A"}},
        {WithData(inp_kwShellSection, {{"orientation", "ORI0"}, {"composite", nullptr}, {"elset", "E1"}}, layers),
         {"ORI0", "ORI-1"},
         {"orientation"},
         {"0.1,3,STEEL,45.", "0.1,3,STEEL,NEW_ORI-1", "0.2,3,STEEL,,5", "0.3,3,STEEL"}},
        {WithData(inp_kwSolidSection, {{"composite", nullptr}}, layers),
         {"ORI-1"},
         {},
         {"0.1,3,STEEL,45.", "0.1,3,STEEL,NEW_ORI-1", "0.2,3,STEEL,,5", "0.3,3,STEEL"}},
        {WithData(inp_kwSolidSection, {{"orientation", "ORI0"}}, {"1.0, 2, 3, ORI1"}),
         {"ORI0"},
         {"orientation"},
         {"1.0,2,3,ORI1"}},
        // No override: the material's name and orientation-like data stay.
        {WithData(inp_kwMaterial, {{"name", "ORI1"}}, {"ORI2, ORI3, ORI4, ORI5"}), {}, {}, {"ORI2,ORI3,ORI4,ORI5"}},
    };
}

std::vector<Case> AllCases() {
    std::vector<Case> cases = FamilyCases();
    for (Case& c : OtherCases()) cases.push_back(c);
    return cases;
}

}  // namespace

// Each name is handed over once, in the override's order, and its answer stands where
// the name stood; every other parameter and item reads as before.
TEST(OrientationFixup, EveryPlaceIsHandedOverAndWrittenBack) {
    const std::vector<Case> families = FamilyCases();
    EXPECT_EQ(families.size(), 18u + 4u + 5u + 1u);
    for (const Case& c : AllCases()) {
        const std::string name = c.keyword.Name().c_str();
        inp_Keyword k = c.keyword.DeepCopy();
        RecordingOrientation v;
        v.Walk(k);
        EXPECT_EQ(v.names, c.handed) << name;
        cow_ConstMapIterator<cow_String, inp_Item> it(c.keyword.parameters);
        for (it.First(); !it.IsDone(); it.Next()) {
            const std::string parameter = it.CurrentKey().c_str();
            const std::string before = it.CurrentValue().AsString().c_str();
            const std::string expected = c.rewrittenParameters.count(parameter) ? "NEW_" + before : before;
            EXPECT_EQ(Value(k, parameter.c_str()), expected) << name << " " << parameter;
        }
        EXPECT_EQ(k.parameters.Count(), c.keyword.parameters.Count()) << name;
        EXPECT_EQ(Lines(k), c.lines) << name;
        EXPECT_TRUE(v.errors.IsEmpty()) << name;
    }
}

TEST(OrientationFixup, AFailureCostsOneMessageAndKeepsTheNameAsRead) {
    RecordingOrientation v;
    v.failOn = "ORI1";
    cow_1DArrayList<inp_Keyword> list;
    list.Append(
        WithData(inp_kwShellSection, {{"composite", nullptr}}, {"0.1, 3, steel, o ri1", "0.1, 3, STEEL, ORI2"}));
    list.Append(Make(inp_kwFluidInflator, {{"name", "ORI1"}, {"property", "PROP"}}));
    list.Append(WithData(inp_kwFluidInflatorMixture, {{"numberspecies", "2"}}, {"ORI1, GAS"}));
    v.VisitList(list);

    EXPECT_EQ(v.names, (Strings{"ORI1", "ORI2", "ORI1", "PROP", "ORI1", "GAS"}));
    EXPECT_EQ(ToVector(v.errors), (Strings{"There are errors in the *SHELLSECTION data lines: no such orientation",
                                           "There are errors in the *FLUIDINFLATOR parameters: no such orientation",
                                           "There are errors in the *FLUIDINFLATORMIXTURE data lines: no such "
                                           "orientation"}));
    EXPECT_TRUE(v.warnings.IsEmpty());
    EXPECT_TRUE(v.seriousErrors.IsEmpty());

    // The item is written back as it was read: upper case, without blanks.
    EXPECT_EQ(std::string(list[0].data.AsStringVerbatim(0, 3).c_str()), "ORI1");
    EXPECT_EQ(Line(list[0], 1), "0.1,3,STEEL,NEW_ORI2");
    // The parameter keeps its item and the next one is still rewritten.
    EXPECT_EQ(Value(list[1], "name") + "/" + Value(list[1], "property"), "ORI1/NEW_PROP");
    EXPECT_EQ(list[1].parameters.Lookup(cow_String("name"))->type, inp_Types::typeString);
    EXPECT_EQ(Line(list[2], 0), "ORI1,NEW_GAS");
}

// Only a bad name is the pass's to report; a failed internal check leaves the walk.
TEST(OrientationFixup, OtherExceptionsPassThrough) {
    RecordingOrientation v;
    v.assertOn = "ORI1";
    cow_1DArrayList<inp_Keyword> list;
    list.Append(Make(inp_kwOrientation, {{"name", "ORI1"}}));
    EXPECT_NE(inp_test::AssertionOf([&] { v.VisitList(list); }), "");
    EXPECT_TRUE(v.errors.IsEmpty());
}

// A name that became digits is an integer parameter from now on.
TEST(OrientationFixup, AnAnswerIsTypedAfresh) {
    RecordingOrientation v;
    v.answers["ORI1"] = "12";
    inp_Keyword k = Make(inp_kwOrientation, {{"name", "ORI1"}});
    v.Walk(k);
    const inp_Item* item = k.parameters.Lookup(cow_String("name"));
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->type, inp_Types::typeInt);
    EXPECT_EQ(item->intValue, 12);
}

// The rebar base knows no keyword yet: over every keyword with an orientation rule it
// hands nothing over and changes nothing.
TEST(RebarFixup, ChangesNothing) {
    for (const Case& c : AllCases()) {
        inp_Keyword k = c.keyword.DeepCopy();
        const std::string before = inp_test::Printed(k);
        RecordingRebar v;
        inp_test::Walk(v, k);
        EXPECT_TRUE(v.names.empty()) << before;
        EXPECT_EQ(inp_test::Printed(k), before);
        EXPECT_TRUE(v.errors.IsEmpty() && v.warnings.IsEmpty()) << before;
    }
}
