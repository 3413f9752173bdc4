#include <gtest/gtest.h>

#include "../support/inp_DataArrayTesting.h"
#include "../support/inp_TestFiles.h"

#include <map>
#include <string>
#include <vector>

#include "inp_SurfaceFixupVisitor.h"
#include "nex_Exception.h"

namespace {

using inp_test::ArrayOf;
using inp_test::Make;
using inp_test::Value;
using Strings = std::vector<std::string>;

// Records each name handed over and answers "X" + name, or raises for `failOn`.
class RecordingFixup : public inp_SurfaceFixupVisitor {
public:
    RecordingFixup() : inp_SurfaceFixupVisitor(inpM_SurfaceMap()) {}

    mutable Strings calls;
    mutable Strings scopes;
    std::string failOn = "<none>";

    void Walk(inp_Keyword& keyword) { inp_test::Walk(*this, keyword); }

protected:
    cow_String ReplaceSurfaceName(const cow_String& name, const cow_String& assembly, const cow_String& instance,
                                  const cow_String& part) const override {
        calls.push_back(name.c_str());
        scopes.push_back(std::string(assembly.c_str()) + "|" + instance.c_str() + "|" + part.c_str());
        if (name == failOn.c_str()) nex_TextException(atr_raw("no such surface")).Throw(__FILE__, __LINE__);
        return cow_String("X") + name;
    }
};

// A keyword and the places where its surface names stand, in the order they are handed
// over: a parameter by its name, a data item as "line.column". A place listed twice is
// handed over twice.
struct Case {
    const char* label;
    inp_KeywordEnm value;
    inp_test::Params params;
    std::vector<const char*> lines;
    Strings places;
};

std::string Place(int line, int column) { return std::to_string(line) + "." + std::to_string(column); }

// Each place is handed over as often as listed and holds the answer afterwards; every
// other parameter and item is as it was.
void Check(const Case& c) {
    inp_Keyword k = inp_test::MakeWithData(c.value, c.params, c.lines);

    std::map<std::string, std::string> before;
    for (const auto& p : c.params) before[p.first] = Value(k, p.first);
    for (int line = 0; line < k.data.NumberOfLines(); ++line)
        for (int column = 0; column < k.data.NumberOfItems(line); ++column)
            before[Place(line, column)] = k.data.AsString(line, column).c_str();

    std::map<std::string, std::string> after = before;
    Strings expectedCalls;
    for (const std::string& place : c.places) {
        ASSERT_TRUE(after.count(place)) << c.label << ": no place " << place;
        expectedCalls.push_back(after[place]);
        after[place] = "X" + after[place];
    }

    RecordingFixup v;
    v.Walk(k);
    EXPECT_EQ(v.calls, expectedCalls) << c.label;
    for (const auto& p : c.params) EXPECT_EQ(Value(k, p.first), after[p.first]) << c.label << " " << p.first;
    ASSERT_EQ(k.data.NumberOfLines(), static_cast<int>(c.lines.size())) << c.label;
    for (int line = 0; line < k.data.NumberOfLines(); ++line) {
        int items = 0;
        for (; after.count(Place(line, items)); ++items)
            EXPECT_EQ(k.data.AsString(line, items).c_str(), after[Place(line, items)])
                << c.label << " at " << Place(line, items);
        EXPECT_EQ(k.data.NumberOfItems(line), items) << c.label;
    }
}

}  // namespace

// Every member of a family reaches its own rule through the dispatch.
TEST(SurfaceFixup, FamiliesRewriteTheirParametersOrColumns) {
    const inp_test::Params params = {{"surface", "U"}, {"slave", "S"}, {"master", "M"}, {"name", "N"}};
    const std::vector<const char*> lines = {"A, B, C", "D, , F"};
    int members = 0;
    auto check = [&](const char* label, inp_KeywordEnm value, const Strings& places) {
        Check({label, value, params, lines, places});
        ++members;
    };
#define MS(Ident) check(#Ident, inp_kw##Ident, {"master", "slave"});
#define SP(Ident) check(#Ident, inp_kw##Ident, {"surface"});
#define PC(Ident) check(#Ident, inp_kw##Ident, {"0.0", "0.1", "1.0"});
#define C0(Ident) check(#Ident, inp_kw##Ident, {"0.0", "1.0"});
#define AD(Ident) check(#Ident, inp_kw##Ident, {"0.0", "0.1", "0.2", "1.0", "1.1", "1.2"});
    INP_SURFACEFIXUP_MASTER_SLAVE(MS)
    INP_SURFACEFIXUP_SURFACE_PARAMETER(SP)
    INP_SURFACEFIXUP_PAIR_COLUMNS(PC)
    INP_SURFACEFIXUP_COLUMN0(C0)
    INP_SURFACEFIXUP_ALL_DATA(AD)
#undef MS
#undef SP
#undef PC
#undef C0
#undef AD
    EXPECT_EQ(members, 7 + 12 + 9 + 13 + 2);
}

TEST(SurfaceFixup, KeywordsWithConditionsAndOrders) {
    const std::vector<const char*> pair = {"A, B", "C, D, E"};
    const std::vector<const char*> welds = {"A, B, , D, E, F, G, H, I", "J"};
    auto weld = [&](const char* first) {
        std::vector<const char*> all{first};
        all.insert(all.end(), welds.begin(), welds.end());
        return all;
    };
    const Strings weldFrom1 = {"1.0", "1.1", "1.3", "1.4", "1.5", "1.6", "1.7", "2.0"};
    Strings weldFrom0 = {"0.0"};
    weldFrom0.insert(weldFrom0.end(), weldFrom1.begin(), weldFrom1.end());
    const std::vector<Case> cases = {
        {"contact output", inp_kwContactOutput, {{"surface", "U"}, {"slave", "S"}, {"master", "M"}}, {},
         {"master", "slave", "surface"}},
        {"interference, no type", inp_kwContactInterference, {}, pair, {"0.0", "0.1", "1.0", "1.1"}},
        {"interference, pair", inp_kwContactInterference, {{"type", "CONTACTPAIR"}}, pair,
         {"0.0", "0.1", "1.0", "1.1"}},
        {"interference, element", inp_kwContactInterference, {{"type", "ELEMENT"}}, pair, {}},
        {"initial contact", inp_kwInitialConditions, {{"type", "CONTACT"}}, pair, {"0.0", "0.1", "1.0", "1.1"}},
        {"initial stress", inp_kwInitialConditions, {{"type", "STRESS"}}, pair, {}},
        {"initial, no type", inp_kwInitialConditions, {}, pair, {}},
        {"model change, pair", inp_kwModelChange, {{"type", "CONTACTPAIR"}}, pair, {"0.0", "0.1", "1.0", "1.1"}},
        {"model change, no type", inp_kwModelChange, {}, pair, {}},
        {"normal, contact surface", inp_kwNormal, {{"type", "CONTACTSURFACE"}}, pair, {"0.0", "1.0"}},
        {"normal, no type", inp_kwNormal, {}, pair, {}},
        {"rigid body", inp_kwRigidBody, {{"refnode", "R"}, {"analyticalsurface", "DIE"}, {"elset", "E"}}, {},
         {"analyticalsurface"}},
        {"rigid surface", inp_kwRigidSurface, {{"name", "DIE"}, {"refnode", "R"}, {"type", "SEGMENTS"}},
         {"START, 0., 0."}, {"name"}},
        {"submodel, neither", inp_kwSubmodel, {{"exteriortolerance", "0.1"}}, pair, {}},
        {"submodel, acoustic", inp_kwSubmodel, {{"acoustictostructure", nullptr}}, pair, {"0.0", "1.0"}},
        {"submodel, stress", inp_kwSubmodel, {{"stressbased", nullptr}}, pair, {"0.0", "1.0"}},
        {"submodel, both", inp_kwSubmodel, {{"stressbased", nullptr}, {"acoustictostructure", nullptr}}, pair,
         {"0.0", "1.0", "0.0", "1.0"}},
        {"fastener, 1.5", inp_kwFastener, {{"elset", "E"}}, weld("1.5, 2."), weldFrom1},
        {"fastener, 1.5D0", inp_kwFastener, {}, weld("1.5D0"), weldFrom1},
        {"fastener, name first", inp_kwFastener, {}, weld("Z"), weldFrom0},
        {"fastener, no data", inp_kwFastener, {{"elset", "E"}}, {}, {}},
        {"spot weld, 1.5", inp_kwSpotWeld, {}, weld("1.5"), weldFrom1},
        {"spot weld, 1.5D0", inp_kwSpotWeld, {}, weld("1.5D0"), weldFrom0},
        {"surface", inp_kwSurface, {{"name", "S"}, {"type", "ELEMENT"}}, pair, {"name"}},
        {"surface, combine", inp_kwSurface, {{"combine", "UNION"}, {"name", "S"}}, {"A, B", "C, , E"},
         {"name", "0.0", "0.1", "1.0", "1.1", "1.2"}},
        {"surface, crop", inp_kwSurface, {{"crop", nullptr}, {"name", "S"}}, {"A, B", "0., 0., 0., 1., 1., 1."},
         {"name", "0.0"}},
        {"surface, crop, no data", inp_kwSurface, {{"crop", nullptr}, {"name", "S"}}, {}, {"name"}},
        {"surface, analytical", inp_kwSurface, {{"type", "SEGMENTS"}, {"name", "S"}}, {"START, 0., 0."}, {"name"}},
        {"no surfaces here", inp_kwBoundary, {{"op", "NEW"}}, {"A, 1"}, {}},
    };
    for (const Case& c : cases) Check(c);
}

TEST(SurfaceFixup, ScopeNamesAreTheWalksAndFailuresLeaveIt) {
    RecordingFixup v;
    v.assemblyName = cow_String("ASM");
    v.instanceName = cow_String("PUMP-1");
    v.partName = cow_String("PUMP");
    inp_Keyword tie = Make(inp_kwTie);
    tie.data = ArrayOf({"A, B"});
    v.Walk(tie);
    EXPECT_EQ(v.scopes, (Strings{"ASM|PUMP-1|PUMP", "ASM|PUMP-1|PUMP"}));

    // Nothing is caught: the failure ends the walk, the names ahead of it stay rewritten.
    RecordingFixup w;
    w.failOn = "B";
    cow_1DArrayList<inp_Keyword> list;
    list.Append(inp_test::MakeWithData(inp_kwTie, {}, {"A, B, C"}));
    list.Append(inp_test::MakeWithData(inp_kwDsload, {}, {"D, P, 1."}));
    EXPECT_EQ(inp_test::TextOf([&] { w.VisitList(list); }), "no such surface");
    EXPECT_EQ(w.calls, (Strings{"A", "B"}));
    EXPECT_EQ(std::string(list[0].data.AsString(0, 0).c_str()) + "," + list[0].data.AsString(0, 1).c_str(), "XA,B");
    EXPECT_TRUE(w.warnings.IsEmpty());
}
