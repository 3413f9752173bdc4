#include <gtest/gtest.h>

#include "../support/inp_DataArrayTesting.h"
#include "../support/inp_TestFiles.h"

#include <map>
#include <string>
#include <vector>

#include "inp_SetFixupVisitor.h"
#include "nex_Exception.h"

namespace {

using inp_test::ArrayOf;
using inp_test::In;
using inp_test::Make;
using inp_test::ToVector;
using inp_test::Value;
using Strings = std::vector<std::string>;

// Records each reference as "kind:type:text" (kind: which maps came along) and answers
// "X" + text, or a fixed answer, or raises for the one reference in `failOn`.
class RecordingFixup : public inp_SetFixupVisitor {
public:
    explicit RecordingFixup(const inp_ModelParameters& parameters)
        : inp_SetFixupVisitor(inpM_SetMap(), inpM_SetMap(), inpM_IdMap(), inpM_IdMap(), parameters) {}

    Strings calls;
    Strings names;
    std::string failOn = "<none>";
    std::map<std::string, std::string> answers;

    void Walk(inp_Keyword& keyword) {
        cow_1DArrayList<inp_Keyword> list;
        list.Append(keyword);
        VisitList(list);
        keyword = list[0];  // parameters are copied on write
    }

protected:
    cow_String ReplaceReference(inp_Keyword&, const cow_String& reference, const inpM_SetMap& sets,
                                const inpM_IdMap& ids, const cow_String& assembly, const cow_String& instance,
                                const cow_String& part, inp_SetType type) override {
        const char* kind = &sets == &nodeSets && &ids == &nodeIds           ? "node"
                           : &sets == &elementSets && &ids == &elementIds ? "element"
                                                                          : "mixed";
        calls.push_back(std::string(kind) + ":" + std::to_string(type) + ":" + reference.c_str());
        names.push_back(std::string(assembly.c_str()) + "|" + instance.c_str() + "|" + part.c_str());
        if (reference == failOn.c_str()) nex_TextException(atr_raw("no such reference")).Throw(__FILE__, __LINE__);
        auto answer = answers.find(reference.c_str());
        return answer != answers.end() ? cow_String(answer->second.c_str()) : cow_String("X") + reference;
    }
};

std::string Line(const inp_Keyword& k, int line) {
    std::string text;
    for (int j = 0; j < k.data.NumberOfItems(line); ++j) text += (j ? "," : "") + std::string(k.data.AsString(line, j).c_str());
    return text;
}

inp_Keyword WithData(inp_KeywordEnm value, std::initializer_list<const char*> lines,
                     const inp_test::Params& params = {}) {
    inp_Keyword k = Make(value, params);
    k.data = ArrayOf(lines);
    return k;
}

const std::string kWarning = In("BOUNDARY", "no such reference");

}  // namespace

// Every member of a family reaches its own rule through the dispatch.
TEST(SetFixup, FamiliesRewriteTheirParameterOrColumn) {
    inp_ModelParameters parameters;
    int members = 0;
    auto parameterRule = [&](inp_KeywordEnm value, const char* name, const char* kind, const char* ident) {
        RecordingFixup v(parameters);
        inp_Keyword k = WithData(value, {"A, B"}, {{name, "TOP"}});
        v.Walk(k);
        EXPECT_EQ(v.calls, Strings{std::string(kind) + ":2:TOP"}) << ident;
        EXPECT_EQ(Value(k, name), "XTOP") << ident;
        EXPECT_EQ(Line(k, 0), "A,B") << ident;
        ++members;
    };
    auto columnRule = [&](inp_KeywordEnm value, const char* kindType, const char* ident) {
        RecordingFixup v(parameters);
        inp_Keyword k = WithData(value, {"A, B", "C"}, {{"elset", "E"}, {"nset", "N"}});
        v.Walk(k);
        EXPECT_EQ(v.calls, (Strings{std::string(kindType) + "A", std::string(kindType) + "C"})) << ident;
        EXPECT_EQ(Line(k, 0), "XA,B") << ident;
        ++members;
    };
#define A(Ident) parameterRule(inp_kw##Ident, "elset", "element", #Ident);
#define B(Ident) parameterRule(inp_kw##Ident, "nset", "node", #Ident);
#define C(Ident) columnRule(inp_kw##Ident, "node:1:", #Ident);
#define D(Ident) columnRule(inp_kw##Ident, "element:0:", #Ident);
#define E(Ident, name) parameterRule(inp_kw##Ident, name, "node", #Ident);
    INP_SETFIXUP_ELSET_PARAMETER(A)
    INP_SETFIXUP_NSET_PARAMETER(B)
    INP_SETFIXUP_NODE_COLUMN0(C)
    INP_SETFIXUP_ELEMENT_COLUMN0(D)
    INP_SETFIXUP_NODE_PARAMETER(E)
#undef A
#undef B
#undef C
#undef D
#undef E
    EXPECT_EQ(members, 43 + 15 + 17 + 15 + 5);
}

TEST(SetFixup, KeywordWithoutDataOrParameterIsLeftAlone) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    inp_Keyword section = Make(inp_kwBeamSection, {{"material", "STEEL"}});
    inp_Keyword boundary = Make(inp_kwBoundary);
    inp_Keyword node = WithData(inp_kwNode, {"1, 0., 0."});
    v.Walk(section);
    v.Walk(boundary);
    v.Walk(node);
    EXPECT_TRUE(v.calls.empty());
    EXPECT_TRUE(v.warnings.IsEmpty());
    EXPECT_FALSE(section.HasParameter(cow_String("elset")));
}

// Which lines of a stride pass are handed over: one reference per line, named by line.
Strings LinesHanded(inp_Keyword k, const inp_ModelParameters& parameters) {
    k.data = ArrayOf({"L0", "L1", "L2", "L3", "L4"});
    RecordingFixup v(parameters);
    v.Walk(k);
    return v.calls;
}

TEST(SetFixup, StridesOfTemperatureFieldAndInitialConditions) {
    inp_ModelParameters eight;
    eight.maxTemperaturePoints = 8;
    inp_ModelParameters three;
    three.maxTemperaturePoints = 3;
    inp_ModelParameters shell;  // section points count, temperature points don't
    shell.hasThicknessTemperatures = true;
    shell.maxSectionPoints = 16;
    shell.maxTemperaturePoints = 100;
    inp_ModelParameters solution;
    solution.maxSolutionVariables = 7;

    const Strings all{"node:1:L0", "node:1:L1", "node:1:L2", "node:1:L3", "node:1:L4"};
    const Strings everySecond{"node:1:L0", "node:1:L2", "node:1:L4"};
    const Strings everyThird{"node:1:L0", "node:1:L3"};
    EXPECT_EQ(LinesHanded(Make(inp_kwTemperature), inp_ModelParameters()), all);
    EXPECT_EQ(LinesHanded(Make(inp_kwTemperature), eight), everySecond);
    EXPECT_EQ(LinesHanded(Make(inp_kwTemperature, {{"number", "3"}}), three), all);  // no factor here
    EXPECT_EQ(LinesHanded(Make(inp_kwTemperature), shell), everyThird);
    EXPECT_EQ(LinesHanded(Make(inp_kwField, {{"number", "3"}}), three), everySecond);
    EXPECT_EQ(LinesHanded(Make(inp_kwField), three), all);
    EXPECT_EQ(LinesHanded(Make(inp_kwField), eight), everySecond);
    EXPECT_EQ(LinesHanded(Make(inp_kwInitialConditions, {{"type", "TEMPERATURE"}}), eight), everySecond);
    EXPECT_EQ(LinesHanded(Make(inp_kwInitialConditions, {{"type", "FIELD"}, {"number", "3"}}), three), all);
    EXPECT_EQ(LinesHanded(Make(inp_kwInitialConditions, {{"type", "ROTATINGVELOCITY"}}), eight), everySecond);
    EXPECT_EQ(LinesHanded(Make(inp_kwCAddedMass), eight), everySecond);

    EXPECT_EQ(LinesHanded(Make(inp_kwInitialConditions, {{"type", "SOLUTION"}}), solution),
              (Strings{"element:0:L0", "element:0:L1", "element:0:L2", "element:0:L3", "element:0:L4"}));
    EXPECT_EQ(LinesHanded(Make(inp_kwInitialConditions, {{"type", "SOLUTION"}, {"rebar", nullptr}}), solution),
              (Strings{"element:0:L0", "element:0:L2", "element:0:L4"}));
    EXPECT_EQ(LinesHanded(Make(inp_kwInitialConditions, {{"type", "REFCOORDINATE"}}), solution),
              (Strings{"element:0:L0", "element:0:L2", "element:0:L4"}));
    EXPECT_EQ(LinesHanded(Make(inp_kwDistribution, {{"location", "ELEMENT"}, {"type", "SHELL3DSTIFFNESS"}}), solution),
              (Strings{"element:0:L0", "element:0:L3"}));
    EXPECT_EQ(LinesHanded(Make(inp_kwRebar, {{"geometry", "SKEW"}, {"element", "CONTINUUM"}}), solution),
              (Strings{"element:0:L0", "element:0:L2", "element:0:L4"}));
    EXPECT_EQ(LinesHanded(Make(inp_kwRebar, {{"geometry", "SKEW"}, {"element", "CONTINUUM"}, {"single", nullptr}}),
                          solution)
                  .size(),
              5u);
    EXPECT_TRUE(LinesHanded(Make(inp_kwInitialConditions, {{"type", "PLASTICSTRAIN"}}), solution).empty());
    EXPECT_TRUE(LinesHanded(Make(inp_kwInitialConditions), solution).empty());
}

TEST(SetFixup, ListedColumnsTakeBlanksAndSkipWhatALineLacks) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    inp_Keyword penetration = WithData(inp_kwPressurePenetration, {"A, , 3", "B"});
    inp_Keyword mpc = WithData(inp_kwMpc, {"BEAM, 1, 2", "TIE, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17"});
    v.Walk(penetration);
    v.Walk(mpc);
    EXPECT_EQ(v.calls, (Strings{"node:1:A", "node:1:", "node:1:B", "node:1:1", "node:1:2", "node:1:3", "node:1:4",
                                "node:1:5", "node:1:6", "node:1:7", "node:1:8", "node:1:9", "node:1:10", "node:1:11",
                                "node:1:12", "node:1:13", "node:1:14", "node:1:15", "node:1:16"}));
    EXPECT_EQ(Line(penetration, 0), "XA,X,3");
    EXPECT_TRUE(v.warnings.IsEmpty());

    // All data passes skip blanks and tell no kind.
    RecordingFixup all(parameters);
    inp_Keyword tracer = WithData(inp_kwTracerParticle, {"A, , B"});
    all.Walk(tracer);
    EXPECT_EQ(all.calls, (Strings{"node:2:A", "node:2:B"}));
}

TEST(SetFixup, CurrentNamesAreHandedInTheirOrder) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    v.assemblyName = cow_String("ASM");
    v.instanceName = cow_String("PUMP-1");
    v.partName = cow_String("PUMP");
    inp_Keyword k = WithData(inp_kwBoundary, {"A"});
    v.Walk(k);
    EXPECT_EQ(v.names, Strings{"ASM|PUMP-1|PUMP"});
}

TEST(SetFixup, AFailureCostsOneWarningAndEndsOnlyItsOperation) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    v.failOn = "B";
    cow_1DArrayList<inp_Keyword> list;
    list.Append(WithData(inp_kwBoundary, {"A, 1", "B, 1", "C, 1", "B, 2"}));
    list.Append(WithData(inp_kwCflux, {"D"}));
    v.VisitList(list);
    EXPECT_EQ(v.calls, (Strings{"node:1:A", "node:1:B", "node:1:D"}));
    EXPECT_EQ(Line(list[0], 0), "XA,1");
    EXPECT_EQ(Line(list[0], 1), "B,1");
    EXPECT_EQ(Line(list[0], 2), "C,1");
    EXPECT_EQ(Line(list[1], 0), "XD");
    EXPECT_EQ(ToVector(v.warnings), Strings{kWarning});

    // The next step of an override still runs: a second column pass, a later parameter.
    RecordingFixup w(parameters);
    w.failOn = "B";
    inp_Keyword exchange = WithData(inp_kwFluidExchange, {"B, C"});
    inp_Keyword body = Make(inp_kwRigidBody, {{"refnode", "B"}, {"pinnset", "P"}, {"elset", "B"}});
    w.Walk(exchange);
    w.Walk(body);
    EXPECT_EQ(Line(exchange, 0), "B,XC");
    EXPECT_EQ(Value(body, "refnode"), "B");
    EXPECT_EQ(Value(body, "pinnset"), "XP");
    EXPECT_EQ(ToVector(w.warnings), (Strings{In("FLUIDEXCHANGE", "no such reference"),
                                             In("RIGIDBODY", "no such reference"),
                                             In("RIGIDBODY", "no such reference")}));
}

TEST(SetFixup, DirectPathsLetTheFailureLeaveTheWalk) {
    inp_ModelParameters parameters;
    const std::vector<inp_Keyword> direct = {
        WithData(inp_kwEquation, {"2", "B, 1, 1.0"}),
        WithData(inp_kwOrientation, {"B, 2, 3"}, {{"definition", "NODES"}}),
        WithData(inp_kwClearance, {"1.0", "B"}, {{"bolt", nullptr}}),
        WithData(inp_kwSurface, {"x", "B"}, {{"type", "CUTTINGSURFACE"}}),
        WithData(inp_kwContourIntegral, {"B, C"}, {{"cracktipnodes", nullptr}}),
        WithData(inp_kwFrequency, {"5", "B"}, {{"residualmodes", nullptr}, {"eigensolver", "AMS"}}),
    };
    for (const inp_Keyword& k : direct) {
        RecordingFixup v(parameters);
        v.failOn = "B";
        cow_1DArrayList<inp_Keyword> list;
        list.Append(k);
        EXPECT_EQ(inp_test::TextOf([&] { v.VisitList(list); }), "no such reference") << k.Name().c_str();
        EXPECT_TRUE(v.warnings.IsEmpty()) << k.Name().c_str();
    }
    // The catching counterparts of two of them.
    RecordingFixup v(parameters);
    v.failOn = "B";
    inp_Keyword clearance = WithData(inp_kwClearance, {"B"});
    inp_Keyword contour = WithData(inp_kwContourIntegral, {"B"});
    v.Walk(clearance);
    v.Walk(contour);
    EXPECT_EQ(v.warnings.Count(), 2);
}

TEST(SetFixup, CloadPassesOverTheLineAfterATimeFunction) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    inp_Keyword k = WithData(inp_kwCload, {"A, TFD, 1.0", "1, 2, 3", "B, 1, 2.0", "C, TSI", "D", "E"});
    v.Walk(k);
    EXPECT_EQ(v.calls, (Strings{"node:2:A", "node:2:B", "node:2:C", "node:2:E"}));
    EXPECT_EQ(Line(k, 1), "1,2,3");

    v.failOn = "B";
    v.calls.clear();
    inp_Keyword failing = WithData(inp_kwCload, {"A, 1, 1.0", "B, 1", "C, 1"});
    v.Walk(failing);
    EXPECT_EQ(v.calls, (Strings{"node:2:A", "node:2:B"}));
    EXPECT_EQ(ToVector(v.warnings), Strings{In("CLOAD", "no such reference")});
}

TEST(SetFixup, EquationTermsStandEveryThirdColumn) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    v.answers["SAME"] = "SAME";
    inp_Keyword k = WithData(inp_kwEquation, {"A, B, C", "N1, 1, 1.0, N2, 2, -1.0, SAME, 3, 1.0, N4, 1, 2.0",
                                              "X1, 1", "Y1, 1, 1.0, Y2, 2, 1.0, Y3"});
    v.Walk(k);
    EXPECT_EQ(v.calls, (Strings{"node:2:N1", "node:2:N2", "node:2:SAME", "node:2:N4", "node:2:Y1", "node:2:Y2",
                                "node:2:Y3"}));
    EXPECT_EQ(Line(k, 0), "A,B,C");
    EXPECT_EQ(Line(k, 2), "X1,1");
    EXPECT_EQ(Line(k, 3), "XY1,1,1.0,XY2,2,1.0,XY3");
}

TEST(SetFixup, SlideLineGenerationWritesEightIdsToALine) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    inp_Keyword k = WithData(inp_kwSlideLine, {"1, 15", "PUMP-1.20, PUMP-1.30, 2"},
                             {{"generate", nullptr}, {"elset", "SLIDE"}});
    v.Walk(k);
    EXPECT_FALSE(k.HasParameter(cow_String("generate")));
    ASSERT_EQ(k.data.NumberOfLines(), 3);
    EXPECT_EQ(k.data.NumberOfItems(0), 8);
    EXPECT_EQ(k.data.NumberOfItems(1), 8);
    EXPECT_EQ(k.data.NumberOfItems(2), 5);
    EXPECT_EQ(Line(k, 1), "X9,X10,X11,X12,X13,X14,X15,XPUMP-1.20");
    EXPECT_EQ(Line(k, 2), "XPUMP-1.22,XPUMP-1.24,XPUMP-1.26,XPUMP-1.28,XPUMP-1.30");
    EXPECT_EQ(v.calls.front(), "element:2:SLIDE");
    EXPECT_EQ(v.calls.size(), 22u);
    EXPECT_TRUE(v.errors.IsEmpty());

    RecordingFixup twenty(parameters);
    inp_Keyword plain = WithData(inp_kwSlideLine, {"1, 20"}, {{"generate", nullptr}});
    twenty.Walk(plain);
    ASSERT_EQ(plain.data.NumberOfLines(), 3);
    EXPECT_EQ(plain.data.NumberOfItems(0), 8);
    EXPECT_EQ(plain.data.NumberOfItems(1), 8);
    EXPECT_EQ(plain.data.NumberOfItems(2), 4);
    EXPECT_EQ(Line(plain, 2), "X17,X18,X19,X20");
}

TEST(SetFixup, SlideLineGenerationErrors) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    inp_Keyword k = WithData(inp_kwSlideLine, {"A.1, B.3", "1, 10, 4", "5", "7, 8, 0", "", "B.1, 2"},
                             {{"generate", nullptr}});
    v.Walk(k);
    EXPECT_EQ(ToVector(v.errors),
              (Strings{"The start and end id instance names must match when generating assembly *SLIDELINE ids: "
                       "A.1, B.3",
                       "Increment of 4 cannot be used to step from 1 to 10 on *SLIDELINE keyword.",
                       "There are fewer than 2 items on a data line for which a generation sequence (start id, end "
                       "id, optional increment number) is expected.  The keyword in question is related to "
                       "*SLIDELINE.  Please check input data.",
                       "There are fewer than 2 items on a data line for which a generation sequence (start id, end "
                       "id, optional increment number) is expected.  The keyword in question is related to "
                       "*SLIDELINE.  Please check input data."}));
    ASSERT_EQ(k.data.NumberOfLines(), 1);
    EXPECT_EQ(Line(k, 0), "X7,X8,XB.1,XB.2");
    EXPECT_TRUE(v.warnings.IsEmpty());

    // Without "generate" the data are references as they stand.
    RecordingFixup w(parameters);
    inp_Keyword given = WithData(inp_kwSlideLine, {"1, 5"});
    w.Walk(given);
    EXPECT_EQ(Line(given, 0), "X1,X5");
}

TEST(SetFixup, SurfaceCases) {
    inp_ModelParameters parameters;
    struct Case {
        inp_test::Params params;
        Strings calls;
    };
    const std::vector<Case> cases = {
        {{}, {"element:0:A", "element:0:B"}},
        {{{"type", "ELEMENT"}}, {"element:0:A", "element:0:B"}},
        {{{"type", "ELEMENT"}, {"combine", "UNION"}}, {}},
        {{{"crop", nullptr}}, {}},
        {{{"type", "NODE"}}, {"node:1:A", "node:1:B"}},
        {{{"type", "NODE"}, {"crop", nullptr}}, {}},
        {{{"type", "CUTTINGSURFACE"}}, {"element:2:B"}},
        {{{"type", "SEGMENTS"}}, {}},
        {{{"refnode", "R"}, {"type", "SEGMENTS"}}, {"node:2:R"}},
        {{{"refnode", nullptr}}, {"element:0:A", "element:0:B"}},
    };
    for (const Case& c : cases) {
        RecordingFixup v(parameters);
        inp_Keyword k = WithData(inp_kwSurface, {"A, S1", "B, S2"}, c.params);
        v.Walk(k);
        EXPECT_EQ(v.calls, c.calls) << inp_test::Printed(k, false);
    }
}

TEST(SetFixup, SectionFileRewritesOnlyIdsOfTheLocalAxes) {
    inp_ModelParameters parameters;
    RecordingFixup single(parameters);
    inp_Keyword one = WithData(inp_kwSectionFile, {"12"}, {{"axes", "LOCAL"}});
    single.Walk(one);
    EXPECT_EQ(single.calls, Strings{"node:2:12"});

    RecordingFixup v(parameters);
    inp_Keyword k = WithData(inp_kwSectionPrint, {"PUMP-1.12", "TOP, 1, 2, 3, PUMP-1.TOP"}, {{"axes", "LOCAL"}});
    inp_Keyword ids = WithData(inp_kwSectionFile, {"TOP", "7, 1, 2, 3, 8"}, {{"axes", "LOCAL"}});
    inp_Keyword global = WithData(inp_kwSectionFile, {"7"}, {{"axes", "GLOBAL"}});
    v.Walk(k);
    v.Walk(ids);
    v.Walk(global);
    EXPECT_EQ(v.calls, (Strings{"node:2:PUMP-1.12", "node:2:7", "node:2:8"}));
    EXPECT_EQ(Line(k, 0), "XPUMP-1.12");
    EXPECT_EQ(Line(k, 1), "TOP,1,2,3,PUMP-1.TOP");
}

TEST(SetFixup, RefnodeWithoutValueIsNoReference) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    inp_Keyword body = Make(inp_kwRigidBody, {{"refnode", nullptr}, {"tienset", "T"}, {"elset", "E"}});
    inp_Keyword output = Make(inp_kwIntegratedOutputSection, {{"refnode", nullptr}});
    v.Walk(body);
    v.Walk(output);
    EXPECT_EQ(v.calls, (Strings{"node:2:T", "element:2:E"}));
    EXPECT_EQ(Value(body, "refnode"), "TRUE");
}

TEST(SetFixup, ParameterAnswerIsTypedAfresh) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    v.answers["TOP"] = "12";
    inp_Keyword k = Make(inp_kwPreTensionSection, {{"node", "TOP"}, {"element", "BOLT"}});
    v.Walk(k);
    EXPECT_EQ(v.calls, (Strings{"node:2:TOP", "element:2:BOLT"}));
    EXPECT_EQ(k.parameters.Lookup(cow_String("node"))->type, inp_Types::typeInt);
    EXPECT_EQ(Value(k, "element"), "XBOLT");
}

TEST(SetFixup, ConditionalRows) {
    inp_ModelParameters parameters;
    inp_ModelParameters imported;
    imported.hasImportedInstance = true;
    struct Case {
        inp_Keyword keyword;
        const inp_ModelParameters* parameters;
        Strings calls;
    };
    const std::vector<Case> cases = {
        {WithData(inp_kwImportNset, {"A, B"}), &parameters, {"node:2:A", "node:2:B"}},
        {WithData(inp_kwImportElset, {"A, B"}), &imported, {}},
        {WithData(inp_kwImport, {"A"}), &parameters, {}},
        {WithData(inp_kwAdaptiveMeshConstraint, {"A, B"}), &parameters, {"node:1:A"}},
        {WithData(inp_kwAdaptiveMeshConstraint, {"A, B"}, {{"constrainttype", "VELOCITY"}}), &parameters,
         {"node:2:A", "node:2:B"}},
        {WithData(inp_kwContactInterference, {"A"}), &parameters, {}},
        {WithData(inp_kwContactInterference, {"A"}, {{"type", "ELEMENT"}}), &parameters, {"element:0:A"}},
        {Make(inp_kwContactPair, {{"adjust", "0.5"}}), &parameters, {}},
        {Make(inp_kwContactPair, {{"adjust", "ADJ"}}), &parameters, {"node:2:ADJ"}},
        {WithData(inp_kwNormal, {"A, B"}), &parameters, {"element:0:A", "node:1:B"}},
        {WithData(inp_kwNormal, {"A, B"}, {{"type", "NODE"}}), &parameters, {"node:1:B"}},
        {WithData(inp_kwContourIntegral, {"A, 1, B, 2"}, {{"cracktipnodes", nullptr}}), &parameters, {"node:2:A"}},
        {WithData(inp_kwContourIntegral, {"A, 1, B", "C, , 2, D"}, {{"cracktipnodes", nullptr}, {"normal", nullptr}}),
         &parameters, {"node:2:C", "node:2:D"}},
        {WithData(inp_kwContourIntegral, {"0., 1., 0.", "C, , 2"}, {{"normal", nullptr}}), &parameters,
         {"node:2:C", "node:2:2"}},
        {WithData(inp_kwStatic, {"1, 2, 3, 4, 5, N, 7"}, {{"riks", nullptr}, {"fullyplastic", "REGION"}}),
         &parameters, {"node:1:N", "element:2:REGION"}},
        {WithData(inp_kwSubmodel, {"A"}, {{"stressbased", nullptr}}), &parameters, {}},
        {WithData(inp_kwImperfection, {"1, 0.5"}, {{"file", "job"}}), &parameters, {}},
        {WithData(inp_kwDesignShapeVariation, {"A"}, {{"nset", "N"}}), &parameters, {"node:2:N", "node:1:A"}},
        {WithData(inp_kwEmbeddedElement, {"A, B"}, {{"hostelset", "H"}}), &parameters,
         {"element:2:H", "element:2:A", "element:2:B"}},
        {WithData(inp_kwModelChange, {"A"}, {{"type", "CONTACTPAIR"}}), &parameters, {}},
        {WithData(inp_kwNodalThickness, {"A, B, 1.0"}, {{"generate", nullptr}}), &parameters, {"node:1:A", "node:1:B"}},
        {WithData(inp_kwSpatialDistribution, {"A"}, {{"position", "NODES"}}), &parameters, {"node:1:A"}},
        {WithData(inp_kwCoSimulationRegion, {"A"}, {{"type", "VOLUME"}}), &parameters, {"element:0:A"}},
        {WithData(inp_kwDload, {"A, P, 1."}, {{"refnode", "R"}}), &parameters, {"node:2:R", "element:0:A"}},
    };
    for (const Case& c : cases) {
        RecordingFixup v(*c.parameters);
        inp_Keyword k = c.keyword;
        v.Walk(k);
        EXPECT_EQ(v.calls, c.calls) << inp_test::Printed(k, false);
    }
}

TEST(SetFixup, SetTypeNames) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    EXPECT_EQ(std::string(v.SetTypeEnm2String(inp_ElementSet).c_str()), "element ");
    EXPECT_EQ(std::string(v.SetTypeEnm2String(inp_NodeSet).c_str()), "node ");
    EXPECT_EQ(std::string(v.SetTypeEnm2String(inp_AnySet).c_str()), "");
}
