#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "inp_ExpansionRule.h"
#include "inp_KeywordExpansionVisitor.h"
#include "../support/inp_TestFiles.h"

namespace {

using Param = inp_test::Params::value_type;
using inp_test::Make;

std::vector<std::string> Texts(const cow_List<atr_String>& list) { return inp_test::ToVector(list); }

// Runs one keyword through a fresh pass, as the deck dispatches it; gives the errors.
std::vector<std::string> Expand(inp_Keyword& k) {
    inp_KeywordExpansionVisitor v;
    v.Visit(k);
    return Texts(v.errors);
}

using inp_test::In;

using inp_test::Value;

std::string UpperName(inp_KeywordEnm value) {
    cow_String name = inp_Keyword(value).Name();
    name.ToUpper();
    return name.c_str();
}

}  // namespace

TEST(ExpansionRulesAC, ValueVocabularies) {
    const std::string illegal = ".  The value may be misspelled, obsolete, or invalid.";
    struct Case {
        inp_KeywordEnm keyword;
        const char* name;
        const char* given;
        const char* expected;  // the value after the pass
        std::string error;     // the one error, or empty
    };
    const std::vector<Case> cases = {
        {inp_kwAdaptiveMeshConstraint, "constrainttype", "spa", "SPATIAL", ""},
        {inp_kwAdaptiveMeshControls, "smoothingobjective", "init", "INITIALGRADATION", ""},
        {inp_kwBeamSection, "section", "i", "I-BEAM", ""},
        {inp_kwBeamSection, "section", "beam", "BEAM", "Illegal value \"BEAM\" for parameter \"section\"" + illegal},
        {inp_kwBeamGeneralSection, "section", "n", "NONLINEARGENERAL", ""},
        {inp_kwBiaxialTestData, "direction", "2", "2", ""},
        {inp_kwBoundary, "op", "n", "NEW", ""},
        {inp_kwBoundary, "op", "x", "X", "Illegal value \"X\" for parameter \"op\"" + illegal},
        {inp_kwBucklingReductionFactors, "axis2", "type3", "TYPE3", ""},
        {inp_kwCload, "sectornumber", "3", "3", "Illegal value \"3\" for parameter \"sectornumber\"" + illegal},
        {inp_kwCohesiveSection, "stackdirection", "or", "ORIENTATION", ""},
        {inp_kwComplexFrequency, "frictiondamping", "n", "N", "Ambiguous value \"N\" for parameter \"frictiondamping\"."},
        {inp_kwComplexFrequency, "frictiondamping", "ne", "NEGATIVEONLY", ""},
        {inp_kwConnectorSection, "elimination", "y", "YES", ""},
        {inp_kwConstraintControls, "terminateanalysis", "n", "NO", ""},
        {inp_kwContactControlsAssignment, "contactthicknessreduction", "no", "NOPERIMSELF", ""},
        {inp_kwContactPair, "op", "d", "DELETE", ""},
        {inp_kwContactPair, "op", "new", "NEW", "Illegal value \"NEW\" for parameter \"op\"" + illegal},
        {inp_kwContourIntegral, "type", "c", "C", ""},
        {inp_kwContourIntegral, "type", "t", "T-STRESS", ""},
        {inp_kwControls, "field", "p", "POREFLUIDPRESSURE", ""},
        {inp_kwCoSimulation, "program", "user", "USER", ""},
        {inp_kwCoSimulation, "externalinterface", "us", "US", "Ambiguous value \"US\" for parameter \"externalinterface\"."},
        {inp_kwCoupledTemperatureDisplacement, "creep", "none", "NONE", ""},
        {inp_kwCradiate, "regiontype", "sl", "SLIDING", ""},
        {inp_kwCecurrent, "op", "m", "MOD", ""},
        // Where a number may stand for the words, it stays a number, silently.
        {inp_kwConnectorFailure, "release", "a", "ALL", ""},
        {inp_kwConnectorFailure, "release", "3", "3", ""},
        {inp_kwConnectorLock, "lock", "x", "X", "Illegal value \"X\" for parameter \"lock\"" + illegal},
        {inp_kwConnectorLock, "lock", "6", "6", ""},
        {inp_kwConnectorContactForce, "tangentialcomponent", "slip", "SLIPDIRECTION", ""},
        {inp_kwConnectorContactForce, "independentcomponent", "1", "1", ""},
        {inp_kwConnectorFriction, "independentcomponents", "c", "CONSTITUTIVEMOTION", ""},
        {inp_kwConnectorFriction, "independentcomponents", "2", "2", ""},
        {inp_kwConnectorDamping, "independentcomponents", "2", "2",
         "Illegal value \"2\" for parameter \"independentcomponents\"" + illegal},
    };
    for (const Case& c : cases) {
        const std::string upper = UpperName(c.keyword);
        SCOPED_TRACE(upper + " " + c.name + "=" + c.given);
        inp_Keyword k = Make(c.keyword, {{c.name, c.given}});
        const std::vector<std::string> errors = Expand(k);
        EXPECT_EQ(Value(k, c.name), c.expected);
        if (c.error.empty())
            EXPECT_TRUE(errors.empty()) << errors.front();
        else
            EXPECT_EQ(errors, std::vector<std::string>{In(upper.c_str(), c.error)});
    }
}

// The values of *CONNECTOR PLASTICITY are looked at before the names are completed:
// only a value under a full name is completed, and an abbreviated name keeps its value.
TEST(ExpansionRulesAC, ConnectorPlasticityValuesRunAheadOfTheNames) {
    inp_Keyword full = Make(inp_kwConnectorPlasticity, {{"betaenforcement", "sim"}, {"flow", "non"}});
    EXPECT_TRUE(Expand(full).empty());
    EXPECT_EQ(Value(full, "betaenforcement"), "SIMULTANEOUS");
    EXPECT_EQ(Value(full, "flow"), "NONASSOCIATIVE");

    inp_Keyword shortened = Make(inp_kwConnectorPlasticity, {{"betae", "sim"}, {"betas", "zzz"}});
    EXPECT_TRUE(Expand(shortened).empty());
    EXPECT_EQ(Value(shortened, "betaenforcement"), "SIM");
    EXPECT_EQ(Value(shortened, "betastages"), "ZZZ");

    inp_Keyword wrong = Make(inp_kwConnectorPlasticity, {{"betastages", "zzz"}});
    EXPECT_EQ(Expand(wrong),
              std::vector<std::string>{In("CONNECTORPLASTICITY",
                                          "Illegal value \"zzz\" for parameter \"betastages\".  The value may be "
                                          "misspelled, obsolete, or invalid.")});
}

// Two forms of a required parameter: RequireParameter keeps the keyword, the written-out
// check removes it, and a row stops at the removal.
TEST(ExpansionRulesAC, RequiredParameters) {
    inp_Keyword coupling = Make(inp_kwCoupling, {{"orientation", "ori"}});
    EXPECT_EQ(Expand(coupling), (std::vector<std::string>{
                                    In("COUPLING", "Parameter CONSTRAINTNAME is a required parameter."),
                                    In("COUPLING", "Parameter REFNODE is a required parameter."),
                                    In("COUPLING", "Parameter SURFACE is a required parameter."),
                                }));
    EXPECT_EQ(coupling.keyword, inp_kwCoupling);
    inp_Keyword complete = Make(inp_kwCoupling, {{"c", "c1"}, {"r", "7"}, {"s", "top"}});
    EXPECT_TRUE(Expand(complete).empty());
    EXPECT_EQ(Value(complete, "surface"), "TOP");

    struct Case {
        inp_KeywordEnm keyword;
        std::vector<Param> params;
        const char* error;  // null: the keyword stays without a message
    };
    const char* type = "The TYPE parameter is required.";
    const char* name = "The NAME parameter is required.";
    const std::vector<Case> cases = {
        {inp_kwCapacity, {}, type},
        {inp_kwCapacity, {{"type", "tab"}}, nullptr},
        // A bare TYPE is there, though without a value.
        {inp_kwCapacity, {{"type", nullptr}}, nullptr},
        {inp_kwContactFormulation, {{"t", "air"}}, nullptr},
        {inp_kwContactFormulation, {}, type},
        {inp_kwContactClearance, {{"adjust", "y"}}, name},
        {inp_kwContactClearance, {{"name", "c1"}, {"adjust", "y"}}, nullptr},
        // Here the item must be a string item as well.
        {inp_kwConnectorDamageEvolution, {{"type", "mot"}}, nullptr},
        {inp_kwConnectorDamageEvolution, {{"type", nullptr}}, type},
        {inp_kwConnectorDamageEvolution, {{"softening", "exp"}}, type},
        {inp_kwConnectorDerivedComponent, {{"name", "d1"}, {"operator", "n"}}, nullptr},
        {inp_kwConnectorDerivedComponent, {{"name", "7"}}, name},
        // The values behind the check are not looked at once the keyword is gone.
        {inp_kwConnectorDerivedComponent, {{"operator", "zzz"}, {"sign", "zzz"}}, name},
    };
    for (const Case& c : cases) {
        const std::string upper = UpperName(c.keyword);
        SCOPED_TRACE(upper + " " + std::to_string(c.params.size()));
        inp_Keyword k = Make(c.keyword, c.params);
        const std::vector<std::string> errors = Expand(k);
        if (c.error) {
            EXPECT_EQ(errors, std::vector<std::string>{In(upper.c_str(), c.error)});
            EXPECT_EQ(k.keyword, inp_kwUndefined);
        } else {
            EXPECT_TRUE(errors.empty()) << errors.front();
            EXPECT_EQ(k.keyword, c.keyword);
        }
    }
}

TEST(ExpansionRulesAC, ContactInclusionsRefusesAllForAllExterior) {
    for (const char* given : {"all", "a"}) {
        inp_Keyword k = Make(inp_kwContactInclusions, {{given, nullptr}});
        EXPECT_EQ(Expand(k), std::vector<std::string>{In("CONTACTINCLUSIONS",
                                                          "The parameter ALL EXTERIOR cannot be abbreviated to ALL.")})
            << given;
        EXPECT_EQ(k.keyword, inp_kwUndefined);
    }
    inp_Keyword exterior = Make(inp_kwContactInclusions, {{"allext", nullptr}});
    EXPECT_TRUE(Expand(exterior).empty());
    EXPECT_TRUE(exterior.HasParameter(cow_String("allexterior")));
    inp_Keyword elementBased = Make(inp_kwContactInclusions, {{"alle", nullptr}});
    EXPECT_TRUE(Expand(elementBased).empty());
    EXPECT_TRUE(elementBased.HasParameter(cow_String("allelementbased")));
}

TEST(ExpansionRulesAC, ConflictsIsReportedWhateverItHolds) {
    const std::string text =
        "Keyword *Conflicts is generated by MERLIX/Studio to highlight changes made via the Keywords Editor that "
        "conflict with changes made subsequently via the native GUI.";
    inp_Keyword bare = Make(inp_kwConflicts);
    EXPECT_EQ(Expand(bare), std::vector<std::string>{In("CONFLICTS", text)});
    inp_Keyword full = Make(inp_kwConflicts, {{"zzz", "low"}});
    full.data.Append("anything");
    EXPECT_EQ(Expand(full), std::vector<std::string>{In("CONFLICTS", text)});
    EXPECT_EQ(full.keyword, inp_kwConflicts);
    EXPECT_EQ(Value(full, "zzz"), "low");
}

// The connection types of the first data line, ahead of the parameters.
TEST(ExpansionRulesAC, ConnectorSectionConnectionTypes) {
    const std::string under = " for data item under keyword \"connectorsection\".";
    struct Case {
        const char* line;
        const char* first;
        const char* second;  // null: the line has one item
        std::vector<std::string> errors;
    };
    const std::vector<Case> cases = {
        {"hinge", "HINGE", nullptr, {}},
        {"cart, card", "CARTESIAN", "CARDAN", {}},
        {"constant velocity", "CONSTANTVELOCITY", nullptr, {}},
        {"rotation", "ROTATION", nullptr, {}},
        {"flexion", "FLEXION-TORSION", nullptr, {}},
        {" , rev", "", "REVOLUTE", {}},
        {"beam,", "BEAM", "", {}},
        {"r", "R", nullptr, {"Ambiguous value \"R\"" + under}},
        {"projection, slip", "PROJECTION", "SLIPRING", {"Ambiguous value \"PROJECTION\"" + under}},
        {"join, bogus", "JOIN", "BOGUS", {"Illegal value \"BOGUS\"" + under}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        inp_Keyword k = Make(inp_kwConnectorSection);
        k.data.Append(c.line);
        k.data.Append("beam");
        std::vector<std::string> expected;
        for (const std::string& e : c.errors) expected.push_back(In("CONNECTORSECTION", e));
        EXPECT_EQ(Expand(k), expected);
        EXPECT_EQ(std::string(k.data.AsString(0, 0).c_str()), c.first);
        if (c.second) {
            EXPECT_EQ(std::string(k.data.AsString(0, 1).c_str()), c.second);
        }
        // Only the first line names connection types.
        EXPECT_EQ(std::string(k.data.AsStringVerbatim(1, 0).c_str()), "beam");
    }

    // Data messages come ahead of the parameter messages; a keyword without data is quiet.
    inp_Keyword k = Make(inp_kwConnectorSection, {{"zzz", nullptr}});
    k.data.Append("x");
    const std::vector<std::string> errors = Expand(k);
    ASSERT_EQ(errors.size(), 2u);
    EXPECT_EQ(errors[0], In("CONNECTORSECTION", "Illegal value \"X\"" + under));
    EXPECT_NE(errors[1].find("Unknown parameter: zzz."), std::string::npos);
    inp_Keyword empty = Make(inp_kwConnectorSection, {{"elset", "e1"}});
    EXPECT_TRUE(Expand(empty).empty());
}

// The four rows with a data file read it and lose the parameter; the file's name keeps
// its case.
TEST(ExpansionRulesAC, DataFiles) {
    inp_test::TempDir dir;
    const std::string path = dir.Write("Table.Dat", "0., 1.\n** note\n1., 2.\n\n");
    for (inp_KeywordEnm keyword : {inp_kwAmplitude, inp_kwAqua, inp_kwClearance, inp_kwCorrelation}) {
        const std::string upper = UpperName(keyword);
        SCOPED_TRACE(upper);
        inp_Keyword k = Make(keyword, {{"input", path.c_str()}});
        EXPECT_TRUE(Expand(k).empty());
        EXPECT_FALSE(k.HasParameter(cow_String("input")));
        ASSERT_EQ(k.data.NumberOfLines(), 2);
        EXPECT_EQ(std::string(k.data.AsString(1, 1).c_str()), "2.");

        inp_Keyword missing = Make(keyword, {{"in", "NoSuch.dat"}});
        EXPECT_EQ(Expand(missing),
                  std::vector<std::string>{In(upper.c_str(), "Input file \"NoSuch.dat\" does not exist.")});
        EXPECT_FALSE(missing.HasParameter(cow_String("input")));
    }
}
