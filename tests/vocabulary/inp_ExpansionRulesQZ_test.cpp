#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "inp_ExpansionRule.h"
#include "inp_KeywordExpansionVisitor.h"
#include "../support/inp_TestFiles.h"

namespace {

// A parameter as the parser leaves it: a string item, or a flag when `value` is null.
using Param = inp_test::Params::value_type;
using inp_test::Make;

std::vector<std::string> Texts(const cow_List<atr_String>& list) { return inp_test::ToVector(list); }

using inp_test::In;

using inp_test::Value;

const char* const kNotInAssembly =
    "The following option is currently not supported in a model defined in terms of an assembly of part instances: ";

}  // namespace

TEST(ExpansionRulesQZ, AbbreviationsFollowTableOrder) {
    struct Case {
        inp_KeywordEnm keyword;
        const char* given;
        const char* canonical;
    };
    const Case cases[] = {
        {inp_kwStep, "n", "name"},                          // name before nlgeom
        {inp_kwSurface, "n", "name"},                       // name before nooffset, nothick
        {inp_kwSectionControls, "x", "xscalefactor"},       // before xstressrate
        {inp_kwSpotWeld, "r", "radiusofinfluence"},         // before referencenodeset
        {inp_kwRigidBody, "r", "refnode"},
        {inp_kwRigidBody, "a", "analyticalsurface"},        // before angle1, angle2
        {inp_kwTemperature, "e", "einc"},                   // before estep, exteriortolerance
        {inp_kwTie, "p", "positiontolerance"},
        {inp_kwSurfaceBehavior, "pressure-o", "pressure-overclosure"},
        {inp_kwUndexChargeProperty, "hu", "huntergeers"},
        {inp_kwViscoelastic, "t", "time"},                  // before type
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.given);
        inp_KeywordExpansionVisitor v;
        // The spot weld is blanked without these two, whatever else it has.
        inp_Keyword k = Make(c.keyword, {{c.given, "V"}, {"property", "P"}, {"referencenodeset", "R"}});
        v.Visit(k);
        EXPECT_EQ(Value(k, c.canonical), "V") << inp_Keyword(c.keyword).Name().c_str();
    }
}

TEST(ExpansionRulesQZ, ValueVocabularies) {
    struct Case {
        inp_KeywordEnm keyword;
        const char* parameter;
        const char* given;
        const char* expected;  // the value after the pass
        const char* message;   // the one error, or null
    };
    const Case cases[] = {
        {inp_kwRadiate, "op", "n", "NEW", nullptr},
        {inp_kwRadiate, "regiontype", "slid", "SLIDING", nullptr},
        {inp_kwSectionControls, "hourglass", "rel", "RELAXSTIFFNESS", nullptr},
        {inp_kwSectionControls, "elementdeletion", "i", "INSTANTANEOUS", nullptr},
        {inp_kwSteadyStateDynamics, "interval", "e", "EIGENFREQUENCY", nullptr},
        {inp_kwSimpedance, "nonreflecting", "secondc", "SECONDCIRCULAR", nullptr},
        {inp_kwSolutionTechnique, "type", "quasi-n", "QUASI-NEWTON", nullptr},
        {inp_kwShellSection, "stackdirection", "o", "ORIENTATION", nullptr},
        {inp_kwViscoelastic, "frequency", "creep", "CREEPTESTDATA", nullptr},
        {inp_kwResponseSpectrum, "sum", "s", "SRSS", nullptr},
        {inp_kwSurface, "type", "e", "ELEMENT", nullptr},
        {inp_kwStep, "convertsdi", "n", "NO", nullptr},
        // A value longer than its word still fits: it agrees over the word's length.
        {inp_kwSteadyStateTransport, "direct", "NO", "NOSTOP", nullptr},
        {inp_kwSurface, "type", "b", "B", "Ambiguous value \"B\" for parameter \"type\"."},
        {inp_kwSimpedance, "nonreflecting", "second", "SECOND",
         "Ambiguous value \"SECOND\" for parameter \"nonreflecting\"."},
        {inp_kwRadiate, "op", "x", "X",
         "Illegal value \"X\" for parameter \"op\".  The value may be misspelled, obsolete, or invalid."},
        {inp_kwTransform, "type", "q", "Q",
         "Illegal value \"Q\" for parameter \"type\".  The value may be misspelled, obsolete, or invalid."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.parameter) + "=" + c.given);
        inp_KeywordExpansionVisitor v;
        // Rows that demand a parameter get it, so that only the value speaks.
        inp_Keyword k = Make(c.keyword, {{c.parameter, c.given}, {"name", "N"}, {"nset", "N"}});
        const std::string upper = inp_Keyword(c.keyword).Name().ToUpper().c_str();
        v.Visit(k);
        EXPECT_EQ(Value(k, c.parameter), c.expected);
        std::vector<std::string> expected;
        if (c.message) expected.push_back(In(upper.c_str(), c.message));
        std::vector<std::string> got;
        for (const std::string& e : Texts(v.errors))
            if (e.find("Unknown parameter") == std::string::npos) got.push_back(e);
        EXPECT_EQ(got, expected);
    }
}

// A bare flag stays a flag where the row is marked so, and loses its value elsewhere.
TEST(ExpansionRulesQZ, BareFlagsUnderMarkedAndUnmarkedValues) {
    inp_KeywordExpansionVisitor v;
    inp_Keyword stat = Make(inp_kwStatic, {{"direct", nullptr}});
    inp_Keyword transport = Make(inp_kwSteadyStateTransport, {{"direct", nullptr}});
    inp_Keyword step = Make(inp_kwStep, {{"nlgeom", nullptr}, {"amplitude", nullptr}});
    v.Visit(stat);
    v.Visit(transport);
    v.Visit(step);
    EXPECT_TRUE(v.errors.IsEmpty());
    EXPECT_EQ(stat.parameters.Lookup(cow_String("direct"))->type, inp_Types::typeBool);
    EXPECT_EQ(transport.parameters.Lookup(cow_String("direct"))->type, inp_Types::typeNone);
    EXPECT_EQ(step.parameters.Lookup(cow_String("nlgeom"))->type, inp_Types::typeBool);
    EXPECT_EQ(step.parameters.Lookup(cow_String("amplitude"))->type, inp_Types::typeNone);
}

// "Without X" removes the keyword; with "as a string item" a flag does not count.
TEST(ExpansionRulesQZ, RequiredParametersThatBlankTheKeyword) {
    struct Case {
        inp_KeywordEnm keyword;
        std::vector<Param> params;
        const char* upper;
        const char* message;  // null: the keyword stays, without a message
    };
    const Case cases[] = {
        {inp_kwSpotWeld, {{"referencenodeset", "R"}}, "SPOTWELD", "The PROPERTY parameter is required."},
        {inp_kwSpotWeld, {{"property", nullptr}, {"referencenodeset", "R"}}, "SPOTWELD",
         "The PROPERTY parameter is required."},
        {inp_kwSpotWeld, {{"property", "P"}}, "SPOTWELD", "The REFERENCENODESET parameter is required."},
        {inp_kwSpotWeld, {{"property", "P"}, {"referencenodeset", nullptr}}, "SPOTWELD", nullptr},
        {inp_kwSpotWeldInteraction, {{"interactionname", nullptr}}, "SPOTWELDINTERACTION",
         "The INTERACTIONNAME parameter is required."},
        {inp_kwSpotWeldProperty, {{"mass", "1.0"}}, "SPOTWELDPROPERTY", "The NAME parameter is required."},
        {inp_kwSpatialDistribution, {{"type", "S"}}, "SPATIALDISTRIBUTION", "The NAME parameter is required."},
        {inp_kwSurface, {{"name", nullptr}}, "SURFACE", "The NAME parameter is required."},
        {inp_kwSurface, {{"name", "S"}}, "SURFACE", nullptr},
        {inp_kwSurfacePropertyAssignment, {}, "SURFACEPROPERTYASSIGNMENT", "The PROPERTY parameter is required."},
        {inp_kwSurfacePropertyAssignment, {{"property", nullptr}}, "SURFACEPROPERTYASSIGNMENT", nullptr},
        {inp_kwTransform, {{"type", "R"}}, "TRANSFORM", "The NSET parameter is required."},
        {inp_kwTransform, {{"nset", nullptr}}, "TRANSFORM", nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.upper) + (c.message ? c.message : " kept"));
        inp_KeywordExpansionVisitor v;
        inp_Keyword k = Make(c.keyword, c.params);
        v.Visit(k);
        if (c.message) {
            EXPECT_EQ(Texts(v.errors), std::vector<std::string>{In(c.upper, c.message)});
            EXPECT_EQ(k.keyword, inp_kwUndefined);
        } else {
            EXPECT_TRUE(v.errors.IsEmpty());
            EXPECT_EQ(k.keyword, c.keyword);
        }
    }
}

// Under RequireParameter and RequireValue the keyword stays in the deck.
TEST(ExpansionRulesQZ, RigidBodyRequirementsKeepTheKeyword) {
    inp_KeywordExpansionVisitor v;
    inp_Keyword bare = Make(inp_kwRigidBody, {{"analyticalsurface", nullptr}});
    v.Visit(bare);
    EXPECT_EQ(Texts(v.errors), (std::vector<std::string>{
                                   In("RIGIDBODY", "Parameter REFNODE is a required parameter."),
                                   In("RIGIDBODY", "Parameter ANALYTICALSURFACE requires a value."),
                               }));
    EXPECT_EQ(bare.keyword, inp_kwRigidBody);

    inp_KeywordExpansionVisitor w;
    inp_Keyword flag = Make(inp_kwRigidBody, {{"ref", nullptr}, {"elset", "body"}});
    w.Visit(flag);
    EXPECT_EQ(Texts(w.errors), std::vector<std::string>{In("RIGIDBODY", "Parameter REFNODE requires a value.")});

    inp_KeywordExpansionVisitor good;
    inp_Keyword fine = Make(inp_kwRigidBody, {{"refnode", "7"}, {"analyticalsurface", "s"}, {"position", "c"}});
    good.Visit(fine);
    EXPECT_TRUE(good.errors.IsEmpty());
    EXPECT_EQ(Value(fine, "position"), "CENTEROFMASS");
}

// A flat deck never hears of what an assembly may not hold; once a *PART comes, every
// report held back comes out in deck order, and later ones go straight to the errors.
TEST(ExpansionRulesQZ, AssemblyUnsupportedReports) {
    cow_1DArrayList<inp_Keyword> flat;
    flat.Append(Make(inp_kwSubstructureCopy, {{"newlibrary", "a"}}));
    flat.Append(Make(inp_kwSubstructureDelete));
    flat.Append(Make(inp_kwSubstructureDirectory));
    flat.Append(Make(inp_kwSubstructureGenerate, {{"massmatrix", "y"}}));
    flat.Append(Make(inp_kwSubstructurePath));
    flat.Append(Make(inp_kwSubstructureProperty));
    flat.Append(Make(inp_kwUserElement, {{"type", "U1"}}));
    flat.Append(Make(inp_kwUserElement, {{"file", "lib"}}));
    flat.Append(Make(inp_kwSubstructureLoadCase, {{"name", "L"}}));

    inp_KeywordExpansionVisitor v;
    v.VisitList(flat);
    EXPECT_TRUE(v.errors.IsEmpty());
    EXPECT_EQ(v.pendingAssemblyErrors.Count(), 7);
    EXPECT_EQ(Value(flat[3], "massmatrix"), "YES");

    cow_1DArrayList<inp_Keyword> deck = flat;
    deck.Append(Make(inp_kwPart, {{"name", "P"}}));
    deck.Append(Make(inp_kwSymmetricModelGeneration, {{"reflect", "l"}}));
    deck.Append(Make(inp_kwSymmetricResultsTransfer, {{"unbalancedstress", "s"}}));
    inp_KeywordExpansionVisitor w;
    w.VisitList(deck);
    const std::string n = kNotInAssembly;
    EXPECT_EQ(Texts(w.errors),
              (std::vector<std::string>{
                  In("SUBSTRUCTURECOPY",
                     "Option is currently not supported in a model defined in terms of an assembly of part instances: "
                     "*SUBSTRUCTURE COPY"),
                  In("SUBSTRUCTUREDELETE", n + "*SUBSTRUCTURE DELETE"),
                  In("SUBSTRUCTUREDIRECTORY", n + "*SUBSTRUCTURE DIRECTORY"),
                  In("SUBSTRUCTUREGENERATE", n + "*SUBSTRUCTURE GENERATE"),
                  In("SUBSTRUCTUREPATH", n + "*SUBSTRUCTURE PATH"),
                  In("SUBSTRUCTUREPROPERTY", n + "*SUBSTRUCTURE PROPERTY"),
                  In("USERELEMENT", n + "*USER ELEMENT, FILE="),
                  In("SYMMETRICMODELGENERATION", n + "*SYMMETRIC MODEL GENERATION"),
                  In("SYMMETRICRESULTSTRANSFER", n + "*SYMMETRIC RESULTS TRANSFER"),
              }));
    EXPECT_TRUE(w.pendingAssemblyErrors.IsEmpty());
    EXPECT_EQ(Value(deck[10], "reflect"), "LINE");
    EXPECT_EQ(Value(deck[11], "unbalancedstress"), "STEP");
}

// INPUT is read and removed where it names a data file, and left alone on *RELEASE and
// *TIME POINTS; *SPATIAL DISTRIBUTION without a name is gone before its file is read.
TEST(ExpansionRulesQZ, DataFilesAndInputsThatStay) {
    inp_test::TempDir dir;
    const std::string file = dir.Write("Spectrum.dat", "1.0, 2.0\n3.0, 4.0\n\n");

    inp_KeywordExpansionVisitor v;
    inp_Keyword spectrum = Make(inp_kwSpectrum, {{"input", file.c_str()}, {"name", "s"}});
    inp_Keyword release = Make(inp_kwRelease, {{"input", file.c_str()}});
    inp_Keyword points = Make(inp_kwTimePoints, {{"input", file.c_str()}, {"name", "t"}});
    inp_Keyword unnamed = Make(inp_kwSpatialDistribution, {{"input", "NoSuchFile.dat"}});
    inp_Keyword missing = Make(inp_kwWave, {{"input", "NoSuchFile.dat"}});
    for (inp_Keyword* k : {&spectrum, &release, &points, &unnamed, &missing}) v.Visit(*k);

    EXPECT_EQ(spectrum.data.NumberOfLines(), 2);
    EXPECT_EQ(std::string(spectrum.data.AsString(1, 1).c_str()), "4.0");
    EXPECT_FALSE(spectrum.HasParameter(cow_String("input")));
    EXPECT_EQ(Value(spectrum, "name"), "S");

    EXPECT_EQ(release.data.NumberOfLines(), 0);
    EXPECT_EQ(Value(release, "input"), file);  // its case is kept
    EXPECT_EQ(points.data.NumberOfLines(), 0);
    EXPECT_EQ(Value(points, "input"), file);

    EXPECT_EQ(unnamed.keyword, inp_kwUndefined);
    EXPECT_EQ(Texts(v.errors), (std::vector<std::string>{
                                   In("SPATIALDISTRIBUTION", "The NAME parameter is required."),
                                   In("WAVE", "Input file \"NoSuchFile.dat\" does not exist."),
                               }));
}
