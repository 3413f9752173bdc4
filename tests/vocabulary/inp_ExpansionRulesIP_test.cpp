#include <gtest/gtest.h>

#include "../support/inp_TestFiles.h"

#include <algorithm>
#include <string>
#include <vector>

#include "../foundation/fnd_TestFiles.h"
#include "inp_ExpansionRule.h"
#include "inp_KeywordExpansionVisitor.h"

namespace {

// A parameter given without a value is written with a null text.
using inp_test::Params;

using inp_test::Make;

std::vector<std::string> Texts(const cow_List<atr_String>& list) { return inp_test::ToVector(list); }

using inp_test::In;

std::string Parameter(const inp_Keyword& k, const char* name) { return inp_test::Value(k, name); }

std::string Illegal(const char* value, const char* name) {
    return std::string("Illegal value \"") + value + "\" for parameter \"" + name +
           "\".  The value may be misspelled, obsolete, or invalid.";
}

std::string Ambiguous(const char* value, const char* name) {
    return std::string("Ambiguous value \"") + value + "\" for parameter \"" + name + "\".";
}

const char* const kNotInAssembly =
    "The following option is currently not supported in a model defined in terms of an assembly of part instances: ";

}  // namespace

TEST(ExpansionRulesIP, AbbreviationsFollowTableOrder) {
    struct Case {
        inp_KeywordEnm keyword;
        const char* given;
        const char* canonical;
    };
    const Case cases[] = {
        {inp_kwOutput, "f", "field"},           {inp_kwOutput, "fil", "filter"},
        {inp_kwOutput, "t", "timeinterval"},    {inp_kwInitialConditions, "in", "inc"},
        {inp_kwInitialConditions, "e", "eoffset"}, {inp_kwInitialConditions, "u", "user"},
        {inp_kwMaterial, "s", "strainrateregularization"}, {inp_kwPrint, "m", "mspei"},
        {inp_kwModalPrint, "m", "mspei"},       {inp_kwPreprint, "p", "parvalues"},
        {inp_kwImpedance, "p", "property"},     {inp_kwLatentHeat, "l", "linear"},
        {inp_kwMullinsEffect, "m", "m"},        {inp_kwPsdDefinition, "d", "dbreference"},
    };
    for (const Case& c : cases) {
        inp_KeywordExpansionVisitor v;
        inp_Keyword k = Make(c.keyword, {{c.given, nullptr}});
        v.Visit(k);
        EXPECT_EQ(k.parameters.Count(), 1) << c.given;
        EXPECT_TRUE(k.HasParameter(cow_String(c.canonical))) << c.given << " -> " << c.canonical;
    }
}

TEST(ExpansionRulesIP, ValueVocabularies) {
    struct Case {
        inp_KeywordEnm keyword;
        const char* name;
        const char* given;
        const char* stands;   // the value after the pass
        std::string message;  // empty: none
    };
    const Case cases[] = {
        {inp_kwImpedance, "nonreflecting", "pl", "PLANAR", ""},
        {inp_kwImpedance, "nonreflecting", "p", "P", Ambiguous("P", "nonreflecting")},
        {inp_kwImpedance, "nonreflecting", "sec", "SEC", Ambiguous("SEC", "nonreflecting")},
        {inp_kwImpedance, "nonreflecting", "secondc", "SECONDCIRCULAR", ""},
        {inp_kwImpedance, "nonreflecting", "sph", "SPHERICAL", ""},
        {inp_kwInitialConditions, "type", "st", "ST", Ambiguous("ST", "type")},
        {inp_kwInitialConditions, "type", "str", "STRESS", ""},
        {inp_kwInitialConditions, "type", "ste", "STEP", ""},
        {inp_kwInitialConditions, "type", "Spud Pre", "SPUDPRELOAD", ""},
        {inp_kwInitialConditions, "unbalancedstress", "r", "RAMP", ""},
        {inp_kwOutput, "op", "r", "REPLACE", ""},
        {inp_kwOutput, "op", "x", "X", Illegal("X", "op")},
        {inp_kwPreprint, "contact", "d", "DEBUG", ""},
        {inp_kwPreprint, "coupling", "yes", "YES", Illegal("YES", "coupling")},
        {inp_kwNgen, "system", "r", "RC", ""},
        {inp_kwNgen, "line", "s", "S", Illegal("S", "line")},
        {inp_kwPipeSoilStiffness, "direction", "2", "2", ""},
        {inp_kwPipeSoilStiffness, "direction", "h", "HORIZONTAL", ""},
        {inp_kwPeriodic, "type", "2", "2D", ""},
        {inp_kwJointElasticity, "ndim", "4", "4", Illegal("4", "ndim")},
        {inp_kwModelChange, "add", "s", "STRAINFREE", ""},
        {inp_kwModelChange, "add", nullptr, "TRUE", ""},  // a bare ADD stays a flag
        {inp_kwModelChange, "type", nullptr, "None", ""},
        {inp_kwModalPrint, "solve", "y", "YES", ""},
        {inp_kwPrint, "adaptivemesh", "n", "NO", ""},
        {inp_kwMaterial, "strainrateregularization", "log", "LOGARITHMIC", ""},
        {inp_kwPressurePenetration, "loadcase", "3", "3", Illegal("3", "loadcase")},
    };
    for (const Case& c : cases) {
        inp_KeywordExpansionVisitor v;
        inp_Keyword k = Make(c.keyword, {{c.name, c.given}});
        if (c.keyword == inp_kwMaterial) k.parameters.Insert(cow_String("name"), inp_Item(cow_String("steel")));
        const std::string upper = cow_String(k.Name()).ToUpper().c_str();
        v.Visit(k);
        SCOPED_TRACE(upper + " " + c.name + "=" + (c.given ? c.given : "<flag>"));
        EXPECT_EQ(Parameter(k, c.name), c.stands);
        EXPECT_EQ(Texts(v.errors), c.message.empty() ? std::vector<std::string>{}
                                                     : std::vector<std::string>{In(upper.c_str(), c.message)});
    }
}

// Some checks keep the keyword with a message, others take it out of the deck.
TEST(ExpansionRulesIP, RequiredParameters) {
    struct Case {
        inp_KeywordEnm keyword;
        Params params;
        std::vector<std::string> errors;
        bool kept;
    };
    const Case cases[] = {
        {inp_kwInclude, {{"password", "x"}}, {In("INCLUDE", "The \"input\" parameter is required.")}, false},
        {inp_kwInclude, {{"inp", "Sub.inp"}}, {}, true},
        {inp_kwNset, {{"elset", "a"}}, {In("NSET", "The NSET parameter is required.")}, false},
        {inp_kwIntegratedOutputSection,
         {{"pos", "c"}},
         {In("INTEGRATEDOUTPUTSECTION", "Parameter NAME is a required parameter."),
          In("INTEGRATEDOUTPUTSECTION", "Parameter SURFACE is a required parameter.")},
         true},
        {inp_kwIntegratedOutputSection, {{"n", "s"}, {"s", "top"}}, {}, true},
    };
    for (const Case& c : cases) {
        inp_KeywordExpansionVisitor v;
        inp_Keyword k = Make(c.keyword, c.params);
        SCOPED_TRACE(k.Name().c_str());
        v.Visit(k);
        EXPECT_EQ(Texts(v.errors), c.errors);
        EXPECT_EQ(k.keyword, c.kept ? c.keyword : inp_kwUndefined);
    }
    {
        inp_KeywordExpansionVisitor v;
        inp_Keyword k = Make(inp_kwImport, {{"hour", nullptr}, {"st", "y"}});
        v.Visit(k);
        EXPECT_EQ(Texts(v.warnings),
                  std::vector<std::string>{In("IMPORT", "THE HOURGLASS PARAMETER HAS BEEN USED WITH *IMPORT. RESULTS "
                                                        "SHOULD BE INTERPRETED WITH CAUTION.")});
        EXPECT_EQ(Texts(v.errors), std::vector<std::string>{In("IMPORT", "Parameter UPDATE is a required parameter.")});
        EXPECT_EQ(Parameter(k, "state"), "YES");
        EXPECT_EQ(k.keyword, inp_kwImport);
    }
    {
        inp_KeywordExpansionVisitor v;
        inp_Keyword k = Make(inp_kwImport, {{"update", "n"}});
        v.Visit(k);
        EXPECT_TRUE(v.errors.IsEmpty());
        EXPECT_TRUE(v.warnings.IsEmpty());
    }
}

// SPECIFIC is wanted only for the permeability proper, which is also what a missing
// TYPE means.
TEST(ExpansionRulesIP, PermeabilityWantsSpecificForPermeabilityProper) {
    struct Case {
        const char* type;  // null: no TYPE
        bool specific;
        bool message;
    };
    const Case cases[] = {
        {nullptr, false, true}, {"iso", false, true},  {"ortho", false, true}, {"an", false, true},
        {"sat", false, false},  {"vel", false, false}, {"iso", true, false},   {"x", false, false},
    };
    for (const Case& c : cases) {
        inp_KeywordExpansionVisitor v;
        inp_Keyword k(inp_kwPermeability);
        if (c.type) k.parameters.Insert(cow_String("type"), inp_Item(cow_String(c.type)));
        if (c.specific) k.parameters.Insert(cow_String("speci"), inp_Item(cow_String("9.81")));
        v.Visit(k);
        SCOPED_TRACE(c.type ? c.type : "<none>");
        const std::string required = In("PERMEABILITY", "Parameter SPECIFIC is a required parameter.");
        std::vector<std::string> errors = Texts(v.errors);
        const bool found = std::find(errors.begin(), errors.end(), required) != errors.end();
        EXPECT_EQ(found, c.message);
    }
}

TEST(ExpansionRulesIP, MaterialAndMatrixNames) {
    const std::string material = "The material name must be an alphanumeric string starting with an alphabet. ";
    const std::string matrix = "The matrix name must be an alphanumeric string starting with an alphabet. ";
    struct Case {
        const char* name;  // null: a bare NAME
        bool good;
    };
    const Case cases[] = {
        {"steel", true},   {"A", true},          {"\"steel 1\"", true}, {"s-1", true},
        {"1steel", false}, {"\"1steel\"", false}, {"12", false},        {"_x", false},
        {nullptr, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name ? c.name : "<flag>");
        {
            inp_KeywordExpansionVisitor v;
            inp_Keyword k = Make(inp_kwMaterial, {{"name", c.name}});
            v.Visit(k);
            EXPECT_EQ(Texts(v.errors), c.good ? std::vector<std::string>{}
                                              : std::vector<std::string>{In("MATERIAL", material)});
            EXPECT_EQ(k.keyword, inp_kwMaterial);
        }
        {
            inp_KeywordExpansionVisitor v;
            inp_Keyword k = Make(inp_kwMatrixInput, {{"name", c.name}, {"input", "K.mtx"}});
            v.Visit(k);
            EXPECT_EQ(Texts(v.errors),
                      c.good ? std::vector<std::string>{} : std::vector<std::string>{In("MATRIXINPUT", matrix)});
            EXPECT_EQ(Parameter(k, "input"), "K.mtx");  // the solver reads this file, not the pass
        }
    }
    // A missing name is said once, and the keyword stays.
    inp_KeywordExpansionVisitor v;
    inp_Keyword k = Make(inp_kwMaterial, {{"rtol", "0.1"}});
    v.Visit(k);
    EXPECT_EQ(Texts(v.errors), std::vector<std::string>{In("MATERIAL", "The NAME parameter is required.")});
    EXPECT_EQ(k.keyword, inp_kwMaterial);
}

// What an assembly deck may not use is held back until the deck shows its kind.
TEST(ExpansionRulesIP, AssemblyUnsupportedWaitsForTheFirstPart) {
    const auto deck = [] {
        cow_1DArrayList<inp_Keyword> list;
        list.Append(Make(inp_kwMatrixInput, {{"name", "K"}}));
        list.Append(Make(inp_kwInitialConditions, {{"type", "str"}, {"file", "old"}}));
        list.Append(Make(inp_kwInitialConditions, {{"type", "temp"}, {"file", "old"}}));
        list.Append(Make(inp_kwInitialConditions, {{"type", "str"}}));
        list.Append(Make(inp_kwParameterShapeVariation, {{"file", "shape"}}));
        list.Append(Make(inp_kwParameterShapeVariation, {{"system", "c"}}));
        list.Append(Make(inp_kwMatrixAssemble, {{"stiff", "K"}}));
        return list;
    };
    const std::vector<std::string> expected = {
        In("MATRIXINPUT", std::string(kNotInAssembly) + "*MATRIX INPUT"),
        In("INITIALCONDITIONS",
           "Option is currently not supported in a model defined in terms of an assembly of part instances: *INITIAL "
           "CONDITIONS, TYPE=STRESS, FILE="),
        In("PARAMETERSHAPEVARIATION",
           "Option is currently not supported in a model defined in terms of an assembly of part instances: *PARAMETER "
           "SHAPE VARIATION, FILE="),
        In("MATRIXASSEMBLE", std::string(kNotInAssembly) + "*MATRIX ASSEMBLE"),
    };
    {
        // A flat deck never hears of it.
        inp_KeywordExpansionVisitor v;
        cow_1DArrayList<inp_Keyword> list = deck();
        v.VisitList(list);
        EXPECT_TRUE(v.errors.IsEmpty());
        EXPECT_EQ(Texts(v.pendingAssemblyErrors), expected);
    }
    {
        inp_KeywordExpansionVisitor v;
        cow_1DArrayList<inp_Keyword> list = deck();
        list.Append(Make(inp_kwPart, {{"name", "P"}}));
        v.VisitList(list);
        EXPECT_EQ(Texts(v.errors), expected);
        EXPECT_TRUE(v.pendingAssemblyErrors.IsEmpty());
    }
    {
        // Once the deck is known to be an assembly, each is said where it stands.
        inp_KeywordExpansionVisitor v;
        cow_1DArrayList<inp_Keyword> list;
        list.Append(Make(inp_kwAssembly, {{"name", "A"}}));
        list.Append(Make(inp_kwMatrixAssemble));
        v.VisitList(list);
        EXPECT_EQ(Texts(v.errors), std::vector<std::string>{expected.back()});
    }
}

TEST(ExpansionRulesIP, DataFilesAreReadWhereTheRowSaysSo) {
    fnd_TempDir dir;
    dir.Write("Imp.txt", "1., 2.\n** a comment\n3., 4.\n\n");
    inp_KeywordExpansionVisitor v;
    v.includeDirectory = cow_String(dir.Path().c_str());
    inp_Keyword k = Make(inp_kwImpedanceProperty, {{"inp", "Imp.txt"}, {"t", "tab"}, {"d", "adm"}});
    v.Visit(k);
    EXPECT_TRUE(v.errors.IsEmpty()) << Texts(v.errors).front();
    EXPECT_FALSE(k.HasParameter(cow_String("input")));
    EXPECT_EQ(Parameter(k, "type"), "TABULAR");
    EXPECT_EQ(Parameter(k, "data"), "ADMITTANCE");
    ASSERT_EQ(k.data.NumberOfLines(), 2);
    EXPECT_EQ(std::string(k.data.AsString(1, 1).c_str()), "4.");

    // The file's name is read as written, so a wrong case is a missing file.
    inp_Keyword missing = Make(inp_kwPsdDefinition, {{"input", "imp.TXT"}});
    v.Visit(missing);
    EXPECT_EQ(Texts(v.errors), std::vector<std::string>{In("PSD-DEFINITION", "Input file \"imp.TXT\" does not exist.")});
    EXPECT_FALSE(missing.HasParameter(cow_String("input")));
}
