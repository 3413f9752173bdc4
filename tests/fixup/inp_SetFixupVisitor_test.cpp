#include <gtest/gtest.h>

#include "../support/inp_DataArrayTesting.h"
#include "../support/inp_TestFiles.h"

#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "inp_SetFixupVisitor.h"
#include "nex_Exception.h"

namespace {

using inp_test::ArrayOf;
using inp_test::In;
using inp_test::Line;
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

    void Walk(inp_Keyword& keyword) { inp_test::Walk(*this, keyword); }

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

inp_Keyword WithData(inp_KeywordEnm value, std::initializer_list<const char*> lines,
                     const inp_test::Params& params = {}) {
    inp_Keyword k = Make(value, params);
    k.data = ArrayOf(lines);
    return k;
}

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
    auto columnRule = [&](inp_KeywordEnm value, const std::string& kindType, const char* ident) {
        RecordingFixup v(parameters);
        inp_Keyword k = WithData(value, {"A, B", "C"}, {{"elset", "E"}, {"nset", "N"}});
        v.Walk(k);
        EXPECT_EQ(v.calls, (Strings{kindType + "A", kindType + "C"})) << ident;
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

    // Without the parameter or the data there is nothing to hand over.
    RecordingFixup v(parameters);
    inp_Keyword section = Make(inp_kwBeamSection, {{"material", "STEEL"}});
    inp_Keyword boundary = Make(inp_kwBoundary);
    v.Walk(section);
    v.Walk(boundary);
    EXPECT_TRUE(v.calls.empty());
    EXPECT_TRUE(v.warnings.IsEmpty());
}

// Which lines a stride pass hands over, one reference per line named by its line.
Strings LinesHanded(inp_Keyword k, int temperaturePoints, int solutionVariables = 1) {
    inp_ModelParameters parameters;
    parameters.maxTemperaturePoints = temperaturePoints;
    parameters.maxSolutionVariables = solutionVariables;
    k.data = ArrayOf({"L0", "L1", "L2", "L3", "L4"});
    RecordingFixup v(parameters);
    v.Walk(k);
    for (std::string& call : v.calls) call = call.substr(call.size() - 1);  // the line only
    return v.calls;
}

TEST(SetFixup, StridesOfTemperatureFieldAndInitialConditions) {
    const Strings all{"0", "1", "2", "3", "4"}, second{"0", "2", "4"};
    EXPECT_EQ(LinesHanded(Make(inp_kwTemperature), 7), all);
    EXPECT_EQ(LinesHanded(Make(inp_kwTemperature), 8), second);
    EXPECT_EQ(LinesHanded(Make(inp_kwTemperature, {{"number", "3"}}), 3), all);
    EXPECT_EQ(LinesHanded(Make(inp_kwField, {{"number", "3"}}), 3), second);
    EXPECT_EQ(LinesHanded(Make(inp_kwField), 3), all);
    EXPECT_EQ(LinesHanded(Make(inp_kwField), 8), second);
    EXPECT_EQ(LinesHanded(Make(inp_kwInitialConditions, {{"type", "TEMPERATURE"}}), 8), second);
    EXPECT_EQ(LinesHanded(Make(inp_kwInitialConditions, {{"type", "FIELD"}, {"number", "3"}}), 3), all);
    EXPECT_EQ(LinesHanded(Make(inp_kwInitialConditions, {{"type", "SOLUTION"}}), 1, 7), all);
    EXPECT_EQ(LinesHanded(Make(inp_kwInitialConditions, {{"type", "SOLUTION"}, {"rebar", nullptr}}), 1, 7), second);
    EXPECT_TRUE(LinesHanded(Make(inp_kwInitialConditions, {{"type", "PLASTICSTRAIN"}}), 1).empty());

    // With thickness temperatures the section points count, not the temperature points.
    inp_ModelParameters shell;
    shell.hasThicknessTemperatures = true;
    shell.maxSectionPoints = 16;
    RecordingFixup v(shell);
    inp_Keyword k = WithData(inp_kwTemperature, {"L0", "L1", "L2", "L3"});
    v.Walk(k);
    EXPECT_EQ(v.calls, (Strings{"node:1:L0", "node:1:L3"}));
}

TEST(SetFixup, ListedColumnsTakeBlanksAndSkipWhatALineLacks) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    v.assemblyName = cow_String("ASM");
    v.instanceName = cow_String("PUMP-1");
    v.partName = cow_String("PUMP");
    inp_Keyword penetration = WithData(inp_kwPressurePenetration, {"A, , 3", "B"});
    inp_Keyword mpc = WithData(inp_kwMpc, {"BEAM, 1, 2", "TIE, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17"});
    inp_Keyword tracer = WithData(inp_kwTracerParticle, {"C, , D"});  // all data: blanks skipped, no kind
    v.Walk(penetration);
    v.Walk(mpc);
    v.Walk(tracer);
    Strings expected{"node:1:A", "node:1:", "node:1:B"};
    for (int id = 1; id <= 16; ++id) expected.push_back("node:1:" + std::to_string(id));
    expected.insert(expected.end(), {"node:2:C", "node:2:D"});
    EXPECT_EQ(v.calls, expected);
    EXPECT_EQ(Line(penetration, 0), "XA,X,3");
    EXPECT_EQ(v.names.front(), "ASM|PUMP-1|PUMP");
    EXPECT_TRUE(v.warnings.IsEmpty());
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
    EXPECT_EQ(Line(list[0], 0) + "/" + Line(list[0], 1) + "/" + Line(list[0], 2), "XA,1/B,1/C,1");
    EXPECT_EQ(Line(list[1], 0), "XD");
    EXPECT_EQ(ToVector(v.warnings), Strings{In("BOUNDARY", "no such reference")});

    // The next step of an override still runs: a second column pass, a later parameter.
    RecordingFixup w(parameters);
    w.failOn = "B";
    inp_Keyword exchange = WithData(inp_kwFluidExchange, {"B, C"});
    inp_Keyword body = Make(inp_kwRigidBody, {{"refnode", "B"}, {"pinnset", "P"}, {"elset", "B"}});
    w.Walk(exchange);
    w.Walk(body);
    EXPECT_EQ(Line(exchange, 0), "B,XC");
    EXPECT_EQ(Value(body, "refnode") + "/" + Value(body, "pinnset"), "B/XP");
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
}

TEST(SetFixup, CloadAndEquationColumns) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    inp_Keyword cload = WithData(inp_kwCload, {"A, TFD, 1.0", "1, 2, 3", "B, 1, 2.0", "C, TSI", "D", "E"});
    v.Walk(cload);
    EXPECT_EQ(v.calls, (Strings{"node:2:A", "node:2:B", "node:2:C", "node:2:E"}));
    EXPECT_EQ(Line(cload, 1), "1,2,3");

    RecordingFixup w(parameters);
    inp_Keyword equation = WithData(inp_kwEquation, {"A, B, C", "N1, 1, 1.0, N2, 2, -1.0, N3, 3, 1.0, N4, 1, 2.0",
                                                     "X1, 1", "Y1, 1, 1.0, Y2, 2, 1.0, Y3"});
    w.Walk(equation);
    EXPECT_EQ(w.calls, (Strings{"node:2:N1", "node:2:N2", "node:2:N3", "node:2:N4", "node:2:Y1", "node:2:Y2",
                                "node:2:Y3"}));
    EXPECT_EQ(Line(equation, 0) + "/" + Line(equation, 2), "A,B,C/X1,1");
    EXPECT_EQ(Line(equation, 3), "XY1,1,1.0,XY2,2,1.0,XY3");
}

TEST(SetFixup, SlideLineGeneration) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    inp_Keyword k = WithData(inp_kwSlideLine, {"1, 14", "PUMP-1.20, PUMP-1.30, 2"},
                             {{"generate", nullptr}, {"elset", "SLIDE"}});
    v.Walk(k);
    EXPECT_FALSE(k.HasParameter(cow_String("generate")));
    ASSERT_EQ(k.data.NumberOfLines(), 3);
    EXPECT_EQ(Line(k, 1), "X9,X10,X11,X12,X13,X14,XPUMP-1.20,XPUMP-1.22");
    EXPECT_EQ(Line(k, 2), "XPUMP-1.24,XPUMP-1.26,XPUMP-1.28,XPUMP-1.30");
    EXPECT_EQ(v.calls.front(), "element:2:SLIDE");
    EXPECT_EQ(v.calls.size(), 21u);
    EXPECT_TRUE(v.errors.IsEmpty());

    RecordingFixup w(parameters);
    inp_Keyword bad = WithData(inp_kwSlideLine, {"A.1, B.3", "1, 10, 4", "5", "7, 8, 0", "B.1, 2"},
                               {{"generate", nullptr}});
    w.Walk(bad);
    EXPECT_EQ(ToVector(w.errors),
              (Strings{"The start and end id instance names must match when generating assembly *SLIDELINE ids: "
                       "A.1, B.3",
                       "Increment of 4 cannot be used to step from 1 to 10 on *SLIDELINE keyword.",
                       "There are fewer than 2 items on a data line for which a generation sequence (start id, end "
                       "id, optional increment number) is expected.  The keyword in question is related to "
                       "*SLIDELINE.  Please check input data."}));
    ASSERT_EQ(bad.data.NumberOfLines(), 1);
    EXPECT_EQ(Line(bad, 0), "X7,X8,XB.1,XB.2");
}

TEST(SetFixup, SurfaceCases) {
    inp_ModelParameters parameters;
    const std::vector<std::pair<inp_test::Params, Strings>> cases = {
        {{}, {"element:0:A", "element:0:B"}},
        {{{"type", "ELEMENT"}}, {"element:0:A", "element:0:B"}},
        {{{"type", "ELEMENT"}, {"combine", "UNION"}}, {}},
        {{{"crop", nullptr}}, {}},
        {{{"type", "NODE"}}, {"node:1:A", "node:1:B"}},
        {{{"type", "NODE"}, {"crop", nullptr}}, {}},
        {{{"type", "CUTTINGSURFACE"}}, {"element:2:B"}},
        {{{"refnode", "R"}, {"type", "SEGMENTS"}}, {"node:2:R"}},
        {{{"refnode", nullptr}}, {"element:0:A", "element:0:B"}},
    };
    for (const auto& c : cases) {
        RecordingFixup v(parameters);
        inp_Keyword k = WithData(inp_kwSurface, {"A, S1", "B, S2"}, c.first);
        v.Walk(k);
        EXPECT_EQ(v.calls, c.second) << inp_test::Printed(k, false);
    }
}

TEST(SetFixup, ParameterAndSingleDatumRows) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    v.answers["TOP"] = "12";
    inp_Keyword one = WithData(inp_kwSectionFile, {"12"}, {{"axes", "LOCAL"}});
    inp_Keyword scoped = WithData(inp_kwSectionPrint, {"PUMP-1.12", "TOP, 1, 2, 3, PUMP-1.TOP"}, {{"axes", "LOCAL"}});
    inp_Keyword names = WithData(inp_kwSectionFile, {"TOP", "7, 1, 2, 3, 8"}, {{"axes", "LOCAL"}});
    inp_Keyword body = Make(inp_kwRigidBody, {{"refnode", nullptr}, {"tienset", "TOP"}});
    v.Walk(one);
    v.Walk(scoped);
    v.Walk(names);
    v.Walk(body);
    EXPECT_EQ(v.calls, (Strings{"node:2:12", "node:2:PUMP-1.12", "node:2:7", "node:2:8", "node:2:TOP"}));
    EXPECT_EQ(Line(scoped, 0) + "/" + Line(scoped, 1), "XPUMP-1.12/TOP,1,2,3,PUMP-1.TOP");
    EXPECT_EQ(Value(body, "refnode"), "TRUE");
    EXPECT_EQ(body.parameters.Lookup(cow_String("tienset"))->type, inp_Types::typeInt);  // typed afresh
}

TEST(SetFixup, ConditionalRows) {
    inp_ModelParameters parameters;
    inp_ModelParameters imported;
    imported.hasImportedInstance = true;
    const std::vector<std::tuple<inp_Keyword, const inp_ModelParameters*, Strings>> cases = {
        {WithData(inp_kwImportElset, {"A, B"}), &parameters, {"element:2:A", "element:2:B"}},
        {WithData(inp_kwImportElset, {"A, B"}), &imported, {}},
        {Make(inp_kwContactPair, {{"adjust", "0.5"}}), &parameters, {}},
        {Make(inp_kwContactPair, {{"adjust", "ADJ"}}), &parameters, {"node:2:ADJ"}},
        {WithData(inp_kwContourIntegral, {"A, 1, B", "C"}, {{"cracktipnodes", nullptr}}), &parameters,
         {"node:2:A", "node:2:C"}},
        {WithData(inp_kwContourIntegral, {"A", "C, , 2, D"}, {{"cracktipnodes", nullptr}, {"normal", nullptr}}),
         &parameters, {"node:2:C", "node:2:D"}},
        {WithData(inp_kwContourIntegral, {"0., 1., 0.", "C, , 2"}, {{"normal", nullptr}}), &parameters,
         {"node:2:C", "node:2:2"}},
        {WithData(inp_kwDesignShapeVariation, {"A"}, {{"nset", "N"}}), &parameters, {"node:2:N", "node:1:A"}},
    };
    for (const auto& [keyword, modelParameters, calls] : cases) {
        RecordingFixup v(*modelParameters);
        inp_Keyword k = keyword;
        v.Walk(k);
        EXPECT_EQ(v.calls, calls) << inp_test::Printed(k, false);
    }
}

TEST(SetFixup, SetTypeNames) {
    inp_ModelParameters parameters;
    RecordingFixup v(parameters);
    EXPECT_EQ(std::string(v.SetTypeEnm2String(inp_ElementSet).c_str()), "element ");
    EXPECT_EQ(std::string(v.SetTypeEnm2String(inp_NodeSet).c_str()), "node ");
    EXPECT_EQ(std::string(v.SetTypeEnm2String(inp_AnySet).c_str()), "");
}
