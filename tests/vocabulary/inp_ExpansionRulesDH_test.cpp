#include <gtest/gtest.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp_KeywordExpansionVisitor.h"

namespace {

// A null value makes a flag, as a parameter written without `=` is.
using inp_test::Params;

using inp_test::Make;

std::vector<std::string> Texts(const cow_List<atr_String>& list) { return inp_test::ToVector(list); }

using inp_test::In;

using inp_test::Value;

const char* const kShortFiber =
    "Type=SHORTFIBER (used for CMOLD) is currently not supported in a model defined in terms of an assembly of part "
    "instances.";

}  // namespace

TEST(ExpansionRulesDH, AbbreviationsFollowTheOrderOfTheTable) {
    struct Case {
        inp_KeywordEnm keyword;
        const char* given;
        const char* canonical;
    };
    const Case cases[] = {
        {inp_kwDiagnostics, "det", "detectcrossedsurfaces"},
        {inp_kwDirectCyclic, "co", "continue"},
        {inp_kwDistributing, "c", "constraintfactor"},
        {inp_kwDload, "o", "op"},
        {inp_kwDsload, "su", "submodel"},
        {inp_kwElementMatrixOutput, "f", "filename"},
        {inp_kwFluidInflatorProperty, "tank", "tankvolume"},
        {inp_kwFrequency, "n", "normalization"},
        {inp_kwHyperelastic, "m", "mooney-rivlin"},
        {inp_kwHyperelastic, "n", "n"},
        {inp_kwHyperelastic, "ne", "neohooke"},
        {inp_kwDynamicTemperatureDisplacement, "e", "elementbyelement"},
        {inp_kwDisplayBody, "inst", "instance"},
    };
    for (const Case& c : cases) {
        inp_KeywordExpansionVisitor v;
        inp_Keyword k = Make(c.keyword, {{c.given, nullptr}});
        v.Visit(k);
        EXPECT_TRUE(v.errors.IsEmpty()) << c.given << ": " << (v.errors.IsEmpty() ? "" : v.errors[0].c_str());
        EXPECT_TRUE(k.HasParameter(cow_String(c.canonical))) << k.Name().c_str() << " " << c.given;
    }
}

TEST(ExpansionRulesDH, ValueVocabulariesCompleteAbbreviationsAndReportTheRest) {
    struct Case {
        inp_KeywordEnm keyword;
        const char* name;
        const char* given;     // null for a flag
        const char* expected;  // the value afterwards
        std::string error;     // empty when none
    };
    const std::string illegal = ".  The value may be misspelled, obsolete, or invalid.";
    const Case cases[] = {
        {inp_kwDamageInitiation, "criterion", "john", "JOHNSONCOOK", ""},
        {inp_kwDamageInitiation, "criterion", "fl", "FL", "Ambiguous value \"FL\" for parameter \"criterion\"."},
        {inp_kwDamageInitiation, "definition", "fl", "FLD", ""},
        {inp_kwDiagnostics, "detectcrossedsurfaces", "o", "O",
         "Ambiguous value \"O\" for parameter \"detectcrossedsurfaces\"."},
        {inp_kwDiagnostics, "adaptivemesh", "s", "S", "Ambiguous value \"S\" for parameter \"adaptivemesh\"."},
        {inp_kwDiagnostics, "adaptivemesh", "st", "STEPSUMMARY", ""},
        {inp_kwFrequency, "residualmodes", "o", "O", "Ambiguous value \"O\" for parameter \"residualmodes\"."},
        {inp_kwFrequency, "residualmodes", "n", "NO", ""},
        {inp_kwDecharge, "loadcase", "2", "2", ""},
        {inp_kwDsecharge, "loadcase", "3", "3", ("Illegal value \"3\" for parameter \"loadcase\"" + illegal)},
        {inp_kwDesignResponse, "op", "r", "REPLACE", ""},
        {inp_kwDesignResponse, "op", "mod", "MOD", ("Illegal value \"MOD\" for parameter \"op\"" + illegal)},
        {inp_kwFilter, "type", "chebys", "CHEBYS", "Ambiguous value \"CHEBYS\" for parameter \"type\"."},
        {inp_kwFilter, "type", "chebys2x", "CHEBYS2", ""},
        {inp_kwGasketThicknessBehavior, "type", "elastic-p", "ELASTIC-PLASTIC", ""},
        {inp_kwDload, "regiontype", "lag", "LAGRANGIAN", ""},
        {inp_kwDsload, "sectornumber", "3", "3", ("Illegal value \"3\" for parameter \"sectornumber\"" + illegal)},
        {inp_kwEos, "type", "i", "IDEALGAS", ""},
        {inp_kwDynamic, "directusercontrol", "nos", "NOSTOP", ""},
        // A flag: the marked form keeps it, the unmarked one leaves an item without value.
        {inp_kwDynamic, "directusercontrol", nullptr, "TRUE", ""},
        {inp_kwElPrint, "summary", nullptr, "None", ""},
        {inp_kwHyperelastic, "type", "c", "COMPRESSIBLE", ""},
        {inp_kwDruckerPragerCreep, "law", "s", "S", "Ambiguous value \"S\" for parameter \"law\"."},
        {inp_kwFluidExchangeProperty, "type", "volumer", "VOLUMERATELEAKAGE", ""},
    };
    for (const Case& c : cases) {
        inp_KeywordExpansionVisitor v;
        inp_Keyword k = Make(c.keyword, {{c.name, c.given}});
        const std::string upper = k.Name().ToUpper().c_str();
        v.Visit(k);
        EXPECT_EQ(Value(k, c.name), c.expected) << upper << " " << c.given;
        const std::vector<std::string> expected =
            c.error.empty() ? std::vector<std::string>{} : std::vector<std::string>{In(upper.c_str(), c.error)};
        EXPECT_EQ(Texts(v.errors), expected) << upper << " " << c.given;
    }
}

TEST(ExpansionRulesDH, RequiredParametersBlankTheKeywordBehindTheirMessage) {
    struct Case {
        inp_KeywordEnm keyword;
        Params params;
        std::vector<const char*> errors;
        bool blanked;
    };
    const char* interaction = "The INTERACTIONNAME parameter is required.";
    const char* property = "The PROPERTY parameter is required.";
    const Case cases[] = {
        {inp_kwElset, {{"generate", nullptr}}, {"The ELSET parameter is required."}, true},
        {inp_kwHeatCap, {{"dependencies", "1"}}, {"The ELSET parameter is required."}, true},
        // A blanked keyword is checked no further: the bad coupling goes unmentioned.
        {inp_kwFastener, {{"coupling", "x"}}, {interaction}, true},
        {inp_kwFastener,
         {{"adjustorientation", "x"}},
         {"Illegal value \"X\" for parameter \"adjustorientation\".  The value may be misspelled, obsolete, or "
          "invalid.",
          interaction},
         true},
        {inp_kwFastener, {{"interactionname", "12"}, {"property", "p"}}, {interaction}, true},
        {inp_kwFastener,
         {{"interactionname", "i"}, {"coupling", "x"}},
         {"Illegal value \"X\" for parameter \"coupling\".  The value may be misspelled, obsolete, or invalid.",
          property},
         true},
        {inp_kwFastener, {{"interactionname", "i"}, {"property", "p"}, {"type", "r"}}, {}, false},
        {inp_kwFastenerProperty,
         {{"section", "x"}},
         {"Illegal value \"X\" for parameter \"section\".  The value may be misspelled, obsolete, or invalid.",
          "The NAME parameter is required."},
         true},
    };
    for (const Case& c : cases) {
        inp_KeywordExpansionVisitor v;
        inp_Keyword k = Make(c.keyword, c.params);
        const std::string upper = k.Name().ToUpper().c_str();
        v.Visit(k);
        std::vector<std::string> expected;
        for (const char* e : c.errors) expected.push_back(In(upper.c_str(), e));
        EXPECT_EQ(Texts(v.errors), expected) << upper;
        EXPECT_EQ(k.keyword == inp_kwUndefined, c.blanked) << upper;
    }
}

TEST(ExpansionRulesDH, DisplayBodyWithoutItsInstanceIsSeriousButStays) {
    const std::string serious = In("DISPLAYBODY", "Instance parameter value is invalid or unset");
    struct Case {
        Params params;
        bool reported;
    };
    const Case cases[] = {
        {{}, true}, {{{"instance", nullptr}}, true}, {{{"instance", "7"}}, true}, {{{"inst", "body-1"}}, false}};
    for (const Case& c : cases) {
        inp_KeywordExpansionVisitor v;
        inp_Keyword k = Make(inp_kwDisplayBody, c.params);
        v.Visit(k);
        EXPECT_TRUE(v.errors.IsEmpty());
        EXPECT_EQ(Texts(v.seriousErrors), c.reported ? std::vector<std::string>{serious} : std::vector<std::string>{});
        EXPECT_EQ(k.keyword, inp_kwDisplayBody);
    }
}

TEST(ExpansionRulesDH, ShortFiberWaitsUntilTheDeckTurnsOutToBeAnAssembly) {
    for (bool withPart : {false, true}) {
        cow_1DArrayList<inp_Keyword> list;
        list.Append(Make(inp_kwElastic, {{"type", "short"}}));
        list.Append(Make(inp_kwExpansion, {{"type", "iso"}}));
        list.Append(Make(inp_kwDielectric, {{"type", "shortfiber"}}));  // no assembly check here
        if (withPart) list.Append(Make(inp_kwPart, {{"name", "p"}}));
        list.Append(Make(inp_kwExpansion, {{"type", "SHORTFIBER"}}));
        inp_KeywordExpansionVisitor v;
        v.VisitList(list);
        const std::vector<std::string> reports = {In("ELASTIC", kShortFiber), In("EXPANSION", kShortFiber)};
        EXPECT_EQ(Texts(withPart ? v.errors : v.pendingAssemblyErrors), reports);
        EXPECT_TRUE((withPart ? v.pendingAssemblyErrors : v.errors).IsEmpty());
    }
}

TEST(ExpansionRulesDH, DataFilesMoveOntoTheKeyword) {
    inp_test::TempDir dir;
    dir.Write("Values.dat", "1, 0.5\n** a comment\n2, 0.25\n\n\n");
    const inp_KeywordEnm keywords[] = {inp_kwDistribution, inp_kwEquation, inp_kwField, inp_kwElement,
                                       inp_kwDesignShapeVariation};
    for (inp_KeywordEnm keyword : keywords) {
        inp_KeywordExpansionVisitor v;
        v.includeDirectory = cow_String(dir.Path().string().c_str());
        inp_Keyword k = Make(keyword, {{"inp", "Values.dat"}});
        v.Visit(k);
        EXPECT_TRUE(v.errors.IsEmpty()) << k.Name().c_str() << ": " << (v.errors.IsEmpty() ? "" : v.errors[0].c_str());
        EXPECT_FALSE(k.HasParameter(cow_String("input"))) << k.Name().c_str();
        ASSERT_EQ(k.data.NumberOfLines(), 2) << k.Name().c_str();
        EXPECT_STREQ(k.data.AsStringVerbatim(1, 1).c_str(), "0.25");
    }
}

TEST(ExpansionRulesDH, DesignShapeVariationReadsAsParameterShapeVariation) {
    cow_1DArrayList<inp_Keyword> list;
    list.Append(Make(inp_kwDesignShapeVariation, {{"parameter", "Radius A"}, {"sys", "r"}, {"file", "Shape"}}));
    list.Append(Make(inp_kwPart, {{"name", "p"}}));
    inp_KeywordExpansionVisitor v;
    v.VisitList(list);
    EXPECT_EQ(Value(list[0], "parameter"), "RadiusA");  // its case is the user's
    EXPECT_EQ(Value(list[0], "system"), "R");
    EXPECT_EQ(Value(list[0], "file"), "Shape");
    EXPECT_EQ(Texts(v.errors),
              std::vector<std::string>{In("DESIGNSHAPEVARIATION",
                                          "Option is currently not supported in a model defined in terms of an "
                                          "assembly of part instances: *PARAMETER SHAPE VARIATION, FILE=")});
}

TEST(ExpansionRulesDH, DfluxCompletesARegionTypeItDoesNotKnow) {
    inp_KeywordExpansionVisitor v;
    inp_Keyword full = Make(inp_kwDflux, {{"regiontype", "lag"}, {"op", "n"}});
    v.Visit(full);
    EXPECT_EQ(Texts(v.errors),
              std::vector<std::string>{In("DFLUX",
                                          "Unknown parameter: regiontype. The parameter may be misspelled, "
                                          "obsolete, or invalid.")});
    EXPECT_EQ(Value(full, "regiontype"), "LAGRANGIAN");
    EXPECT_EQ(Value(full, "op"), "NEW");
}

TEST(ExpansionRulesDH, ElsetCutsLinesOfMoreThanSixteenItems) {
    inp_KeywordExpansionVisitor v;
    inp_Keyword k = Make(inp_kwElset, {{"elset", "all"}});
    k.data.Append("1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17");
    v.Visit(k);
    EXPECT_EQ(k.data.NumberOfItems(0), 16);
    EXPECT_EQ(v.warnings.Count(), 1);
}
