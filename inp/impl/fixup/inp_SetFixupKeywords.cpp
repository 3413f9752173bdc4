// Where each keyword holds its references: one override per keyword, the families of
// like keywords expanded from the lists in the header.
#include <cstdlib>
#include <initializer_list>

#include "inp_SetFixupVisitor.h"
#include "inp_Utils.h"
#include "nex_Exception.h"

namespace {

bool Has(const inp_Keyword& keyword, const char* name) { return keyword.HasParameter(cow_String(name)); }

// A parameter's value in the upper-case form it is compared in, or the fallback.
cow_String Value(const inp_Keyword& keyword, const char* name, const char* fallback = "") {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(name));
    return item ? item->AsString() : cow_String(fallback);
}

// Written as a bare flag, "refnode" names nothing that could be rewritten.
bool HasRefnodeValue(const inp_Keyword& keyword) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String("refnode"));
    return item && item->type != inp_Types::typeBool && item->type != inp_Types::typeNone;
}

cow_List<int> Columns(std::initializer_list<int> columns) {
    cow_List<int> list;
    for (int column : columns) list.Append(column);
    return list;
}

// From line `first` on, column 0 of each line that has an item, through `replace`.
template <class Replace>
void ReplaceColumn0From(inp_Keyword& keyword, int lines, int first, Replace replace) {
    inp_DataArray& data = keyword.data;
    for (int line = first; line < lines; ++line)
        if (data.NumberOfItems(line) > 0) data.Set(line, 0, replace(data.AsString(line, 0)));
}

// The decimal value of an id text; what isn't a number counts as 0, out of range as
// the nearest int, so that the generation reports it instead of overflowing.
int IdValue(const cow_String& text) {
    long long value = std::strtoll(text.c_str(), nullptr, 10);
    if (value > 0x7fffffff) return 0x7fffffff;
    if (value < -0x7fffffff - 1) return -0x7fffffff - 1;
    return static_cast<int>(value);
}

}  // namespace

// The families: the same one-step rule for every member.
#define INP_SETFIXUP_DEFINE(Ident, call) \
    void inp_SetFixupVisitor::Visit##Ident(inp_Keyword& keyword) { call; }
#define INP_SETFIXUP_A(Ident) INP_SETFIXUP_DEFINE(Ident, ReplaceElementOrElsetParameter(keyword, cow_String("elset")))
#define INP_SETFIXUP_B(Ident) INP_SETFIXUP_DEFINE(Ident, ReplaceNodeOrNsetParameter(keyword, cow_String("nset")))
#define INP_SETFIXUP_C(Ident) INP_SETFIXUP_DEFINE(Ident, ReplaceNodeColumn(keyword, 0))
#define INP_SETFIXUP_D(Ident) INP_SETFIXUP_DEFINE(Ident, ReplaceElementColumn(keyword, 0))
#define INP_SETFIXUP_E(Ident, parameter) \
    INP_SETFIXUP_DEFINE(Ident, ReplaceNodeOrNsetParameter(keyword, cow_String(parameter)))
INP_SETFIXUP_ELSET_PARAMETER(INP_SETFIXUP_A)
INP_SETFIXUP_NSET_PARAMETER(INP_SETFIXUP_B)
INP_SETFIXUP_NODE_COLUMN0(INP_SETFIXUP_C)
INP_SETFIXUP_ELEMENT_COLUMN0(INP_SETFIXUP_D)
INP_SETFIXUP_NODE_PARAMETER(INP_SETFIXUP_E)
#undef INP_SETFIXUP_A
#undef INP_SETFIXUP_B
#undef INP_SETFIXUP_C
#undef INP_SETFIXUP_D
#undef INP_SETFIXUP_E
#undef INP_SETFIXUP_DEFINE

void inp_SetFixupVisitor::VisitCAddedMass(inp_Keyword& keyword) { ReplaceNodeColumn(keyword, 0, 2); }

void inp_SetFixupVisitor::VisitFluidProperty(inp_Keyword& keyword) {
    ReplaceElementOrElsetParameter(keyword, cow_String("elset"));
    ReplaceNodeOrNsetParameter(keyword, cow_String("refnode"));
}

void inp_SetFixupVisitor::VisitSolidSection(inp_Keyword& keyword) { inp_SetFixupVisitor::VisitFluidProperty(keyword); }

void inp_SetFixupVisitor::VisitFastener(inp_Keyword& keyword) {
    ReplaceNodeOrNsetParameter(keyword, cow_String("referencenodeset"));
    ReplaceElementOrElsetParameter(keyword, cow_String("elset"));
}

void inp_SetFixupVisitor::VisitPreTensionSection(inp_Keyword& keyword) {
    ReplaceNodeOrNsetParameter(keyword, cow_String("node"));
    ReplaceElementOrElsetParameter(keyword, cow_String("element"));
}

void inp_SetFixupVisitor::VisitDistributingCoupling(inp_Keyword& keyword) {
    ReplaceElementOrElsetParameter(keyword, cow_String("elset"));
    ReplaceNodeColumn(keyword, 0);
}

void inp_SetFixupVisitor::VisitKinematicCoupling(inp_Keyword& keyword) {
    ReplaceNodeOrNsetParameter(keyword, cow_String("refnode"));
    ReplaceNodeColumn(keyword, 0);
}

void inp_SetFixupVisitor::VisitParameterShapeVariation(inp_Keyword& keyword) {
    ReplaceNodeOrNsetParameter(keyword, cow_String("nset"));
    ReplaceNodeColumn(keyword, 0);
}

void inp_SetFixupVisitor::VisitDesignShapeVariation(inp_Keyword& keyword) { VisitParameterShapeVariation(keyword); }

void inp_SetFixupVisitor::VisitEmbeddedElement(inp_Keyword& keyword) {
    ReplaceElementOrElsetParameter(keyword, cow_String("hostelset"));
    ReplaceElementOrElsetAllData(keyword);
}

// Two passes, so that a failure in column 0 still lets column 1 be rewritten.
void inp_SetFixupVisitor::VisitFluidExchange(inp_Keyword& keyword) {
    ReplaceNodeColumn(keyword, 0);
    ReplaceNodeColumn(keyword, 1);
}

void inp_SetFixupVisitor::VisitIncidentWaveInteraction(inp_Keyword& keyword) {
    ReplaceNodeColumn(keyword, 1);
    ReplaceNodeColumn(keyword, 2);
}

void inp_SetFixupVisitor::VisitPressurePenetration(inp_Keyword& keyword) {
    ReplaceNodeOrNsetData(keyword, Columns({0, 1}), 1);
}

void inp_SetFixupVisitor::VisitMpc(inp_Keyword& keyword) {
    ReplaceNodeOrNsetData(keyword, Columns({1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14}), 1);
}

void inp_SetFixupVisitor::VisitSteadyStateCriteria(inp_Keyword& keyword) { ReplaceNodeColumn(keyword, 5); }

void inp_SetFixupVisitor::VisitTracerParticle(inp_Keyword& keyword) { ReplaceNodeOrNsetAllData(keyword); }

void inp_SetFixupVisitor::VisitImport(inp_Keyword&) {}

// Sets of an imported instance are named in the earlier job's terms: they stay.
void inp_SetFixupVisitor::VisitImportElset(inp_Keyword& keyword) {
    if (!modelParameters.hasImportedInstance) ReplaceElementOrElsetAllData(keyword);
}

void inp_SetFixupVisitor::VisitImportNset(inp_Keyword& keyword) {
    if (!modelParameters.hasImportedInstance) ReplaceNodeOrNsetAllData(keyword);
}

void inp_SetFixupVisitor::VisitAdaptiveMeshConstraint(inp_Keyword& keyword) {
    if (Value(keyword, "constrainttype", "SPATIAL") == "SPATIAL")
        ReplaceNodeColumn(keyword, 0);
    else
        ReplaceNodeOrNsetAllData(keyword);
}

void inp_SetFixupVisitor::VisitClearance(inp_Keyword& keyword) {
    if (Has(keyword, "bolt"))
        ReplaceColumn0From(keyword, NumberOfLines(keyword), 1,
                           [&](const cow_String& item) { return ReplaceNodeOrNset(keyword, item); });
    else
        ReplaceNodeColumn(keyword, 0);
}

void inp_SetFixupVisitor::VisitContactInterference(inp_Keyword& keyword) {
    if (Value(keyword, "type", "CONTACTPAIR") == "ELEMENT") ReplaceElementColumn(keyword, 0);
}

// A numeric adjust is a distance, not a node set.
void inp_SetFixupVisitor::VisitContactPair(inp_Keyword& keyword) {
    const inp_Item* adjust = keyword.parameters.Lookup(cow_String("adjust"));
    if (adjust && adjust->type == inp_Types::typeString) ReplaceNodeOrNsetParameter(keyword, cow_String("adjust"));
}

void inp_SetFixupVisitor::VisitCoSimulationRegion(inp_Keyword& keyword) {
    if (Value(keyword, "type", "SURFACE") == "VOLUME") ReplaceElementColumn(keyword, 0);
}

void inp_SetFixupVisitor::VisitDistribution(inp_Keyword& keyword) {
    const cow_String location = Value(keyword, "location");
    if (location == "ELEMENT")
        ReplaceElementColumn(keyword, 0, Value(keyword, "type") == "SHELL3DSTIFFNESS" ? 3 : 1);
    else if (location == "NODE")
        ReplaceNodeColumn(keyword, 0);
}

void inp_SetFixupVisitor::VisitDload(inp_Keyword& keyword) {
    ReplaceNodeOrNsetParameter(keyword, cow_String("refnode"));
    ReplaceElementColumn(keyword, 0);
}

void inp_SetFixupVisitor::VisitDsload(inp_Keyword& keyword) {
    ReplaceNodeOrNsetParameter(keyword, cow_String("refnode"));
}

// Each of the "number" fields holds a record as long as a temperature record.
void inp_SetFixupVisitor::VisitField(inp_Keyword& keyword) {
    const int records = Has(keyword, "number") ? keyword.GetParameterAsInt(cow_String("number"), 1) : 1;
    ReplaceNodeColumn(keyword, 0, TemperatureStride(records));
}

void inp_SetFixupVisitor::VisitTemperature(inp_Keyword& keyword) {
    ReplaceNodeColumn(keyword, 0, TemperatureStride(1));
}

void inp_SetFixupVisitor::VisitFrequency(inp_Keyword& keyword) {
    ReplaceNodeOrNsetParameter(keyword, cow_String("nset"));
    if (Has(keyword, "residualmodes") && Value(keyword, "eigensolver") == "AMS")
        ReplaceColumn0From(keyword, NumberOfLines(keyword), 1,
                           [&](const cow_String& item) { return ReplaceNodeOrNset(keyword, item); });
}

// With "file" the data lines are mode numbers and amplitudes, not nodes.
void inp_SetFixupVisitor::VisitImperfection(inp_Keyword& keyword) {
    ReplaceNodeOrNsetParameter(keyword, cow_String("nset"));
    if (!Has(keyword, "file")) ReplaceNodeColumn(keyword, 0);
}

void inp_SetFixupVisitor::VisitIntegratedOutputSection(inp_Keyword& keyword) {
    if (HasRefnodeValue(keyword)) ReplaceNodeOrNsetParameter(keyword, cow_String("refnode"));
}

void inp_SetFixupVisitor::VisitModelChange(inp_Keyword& keyword) {
    if (Value(keyword, "type", "ELEMENT") == "ELEMENT") ReplaceElementOrElsetAllData(keyword);
}

void inp_SetFixupVisitor::VisitNodalThickness(inp_Keyword& keyword) {
    if (Has(keyword, "generate"))
        ReplaceNodeOrNsetData(keyword, Columns({0, 1}), 1);
    else
        ReplaceNodeColumn(keyword, 0);
}

void inp_SetFixupVisitor::VisitNormal(inp_Keyword& keyword) {
    if (Value(keyword, "type", "ELEMENT") == "ELEMENT") ReplaceElementColumn(keyword, 0);
    ReplaceNodeColumn(keyword, 1);
}

void inp_SetFixupVisitor::VisitOrientation(inp_Keyword& keyword) {
    if (Value(keyword, "definition", "COORDINATES") != "NODES" || NumberOfLines(keyword) == 0) return;
    inp_DataArray& data = keyword.data;
    for (int column = 0; column < data.NumberOfItems(0); ++column)
        data.Set(0, column,
                 ReplaceReference(keyword, data.AsString(0, column), nodeSets, nodeIds, assemblyName, instanceName,
                                  partName, inp_AnySet));
}

// Skew rebar in continuum elements takes two lines per element.
void inp_SetFixupVisitor::VisitRebar(inp_Keyword& keyword) {
    const bool twoLines = Value(keyword, "geometry", "ISOPARAMETRIC") == "SKEW" && !Has(keyword, "single") &&
                          Value(keyword, "element") == "CONTINUUM";
    ReplaceElementColumn(keyword, 0, twoLines ? 2 : 1);
}

void inp_SetFixupVisitor::VisitRigidBody(inp_Keyword& keyword) {
    if (HasRefnodeValue(keyword)) ReplaceNodeOrNsetParameter(keyword, cow_String("refnode"));
    ReplaceNodeOrNsetParameter(keyword, cow_String("pinnset"));
    ReplaceNodeOrNsetParameter(keyword, cow_String("tienset"));
    ReplaceElementOrElsetParameter(keyword, cow_String("elset"));
}

void inp_SetFixupVisitor::VisitRigidSurface(inp_Keyword& keyword) {
    if (HasRefnodeValue(keyword)) ReplaceNodeOrNsetParameter(keyword, cow_String("refnode"));
    ReplaceElementOrElsetParameter(keyword, cow_String("elset"));
}

// Local axes are given by up to three nodes; the other items are coordinates.
void inp_SetFixupVisitor::VisitSectionFile(inp_Keyword& keyword) {
    if (Value(keyword, "axes") != "LOCAL") return;
    ReplaceIdSingleDatum(keyword, 0, 0, nodeSets, nodeIds);
    ReplaceIdSingleDatum(keyword, 1, 0, nodeSets, nodeIds);
    ReplaceIdSingleDatum(keyword, 1, 4, nodeSets, nodeIds);
}

void inp_SetFixupVisitor::VisitSectionPrint(inp_Keyword& keyword) { inp_SetFixupVisitor::VisitSectionFile(keyword); }

void inp_SetFixupVisitor::VisitSpatialDistribution(inp_Keyword& keyword) {
    if (Value(keyword, "position") == "NODES")
        ReplaceNodeColumn(keyword, 0);
    else
        ReplaceElementColumn(keyword, 0);
}

void inp_SetFixupVisitor::VisitStatic(inp_Keyword& keyword) {
    if (Has(keyword, "riks")) ReplaceNodeColumn(keyword, 5);
    if (Has(keyword, "fullyplastic")) ReplaceElementOrElsetParameter(keyword, cow_String("fullyplastic"));
}

void inp_SetFixupVisitor::VisitSubmodel(inp_Keyword& keyword) {
    if (!Has(keyword, "acoustictostructure") && !Has(keyword, "stressbased")) ReplaceNodeOrNsetAllData(keyword);
}

namespace {

enum class InitialRule { NodeColumn0, NodeColumn2, Temperature, ElementColumn0, NodeStride2, Solution, ElementStride2 };

struct InitialType {
    const char* type;
    InitialRule rule;
};

const InitialType kInitialTypes[] = {
    {"CONCENTRATION", InitialRule::NodeColumn0},     {"FLUIDPRESSURE", InitialRule::NodeColumn0},
    {"MASSFLOWRATE", InitialRule::NodeColumn0},      {"POREPRESSURE", InitialRule::NodeColumn0},
    {"PRESSURESTRESS", InitialRule::NodeColumn0},    {"RATIO", InitialRule::NodeColumn0},
    {"RELATIVEDENSITY", InitialRule::NodeColumn0},   {"SATURATION", InitialRule::NodeColumn0},
    {"VELOCITY", InitialRule::NodeColumn0},          {"ACOUSTICSTATICPRESSURE", InitialRule::NodeColumn0},
    {"CONTACT", InitialRule::NodeColumn2},           {"FIELD", InitialRule::Temperature},
    {"TEMPERATURE", InitialRule::Temperature},       {"HARDENING", InitialRule::ElementColumn0},
    {"SPUDEMBEDMENT", InitialRule::ElementColumn0},  {"SPUDPRELOAD", InitialRule::ElementColumn0},
    {"STRESS", InitialRule::ElementColumn0},         {"POROSITY", InitialRule::ElementColumn0},
    {"SPECIFICENERGY", InitialRule::ElementColumn0}, {"INITIALGAP", InitialRule::ElementColumn0},
    {"ROTATINGVELOCITY", InitialRule::NodeStride2},  {"SOLUTION", InitialRule::Solution},
    {"REFCOORDINATE", InitialRule::ElementStride2},
};

}  // namespace

void inp_SetFixupVisitor::VisitInitialConditions(inp_Keyword& keyword) {
    const cow_String type = Value(keyword, "type");
    for (const InitialType& row : kInitialTypes) {
        if (type != row.type) continue;
        switch (row.rule) {
            case InitialRule::NodeColumn0:
                return ReplaceNodeColumn(keyword, 0);
            case InitialRule::NodeColumn2:
                return ReplaceNodeColumn(keyword, 2);
            case InitialRule::Temperature:
                return ReplaceNodeColumn(keyword, 0, TemperatureStride(1));
            case InitialRule::ElementColumn0:
                return ReplaceElementColumn(keyword, 0);
            case InitialRule::NodeStride2:
                return ReplaceNodeColumn(keyword, 0, 2);
            case InitialRule::Solution: {
                // Eight solution variables to a line, and one more for rebar.
                const long long variables =
                    static_cast<long long>(modelParameters.maxSolutionVariables) + (Has(keyword, "rebar") ? 1 : 0);
                const long long stride = variables / 8 + 1;
                return ReplaceElementColumn(keyword, 0,
                                            stride < 1 ? 1 : (stride > 0x7fffffff ? 0x7fffffff : int(stride)));
            }
            case InitialRule::ElementStride2:
                return ReplaceElementColumn(keyword, 0, 2);
        }
    }
}

// A TFD, TWD or TSI load takes its values from the next line, which holds no node.
void inp_SetFixupVisitor::VisitCload(inp_Keyword& keyword) {
    inp_DataArray& data = keyword.data;
    try {
        const int lines = NumberOfLines(keyword);
        for (int line = 0; line < lines; ++line) {
            const int items = data.NumberOfItems(line);
            if (items > 0) data.Set(line, 0, ReplaceNodeOrNset(keyword, data.AsString(line, 0)));
            if (items >= 2) {
                const cow_String kind = data.AsString(line, 1);
                if (kind == "TFD" || kind == "TWD" || kind == "TSI") ++line;
            }
        }
    } catch (const nex_TextException& e) {
        AddWarning(keyword, e.UserReport());
    }
}

// With "normal" line 0 holds the normal; with "cracktipnodes" the numbers on a line
// are not nodes.
void inp_SetFixupVisitor::VisitContourIntegral(inp_Keyword& keyword) {
    const bool tipNodes = Has(keyword, "cracktipnodes");
    const bool normal = Has(keyword, "normal");
    if (!tipNodes && !normal) return ReplaceNodeColumn(keyword, 0);
    inp_DataArray& data = keyword.data;
    const int lines = NumberOfLines(keyword);
    for (int line = normal ? 1 : 0; line < lines; ++line) {
        int items = data.NumberOfItems(line);
        if (tipNodes && !normal && items > 2) items = 2;
        for (int column = 0; column < items; ++column) {
            if (data.IsBlank(line, column)) continue;
            if (tipNodes && data.Type(line, column) != inp_Types::typeString) continue;
            data.Set(line, column, ReplaceNodeOrNset(keyword, data.AsString(line, column)));
        }
    }
}

// Lines after the first are terms of three items: node, degree of freedom, factor.
void inp_SetFixupVisitor::VisitEquation(inp_Keyword& keyword) {
    inp_DataArray& data = keyword.data;
    const int lines = NumberOfLines(keyword);
    for (int line = 1; line < lines; ++line) {
        const int items = data.NumberOfItems(line);
        if (items < 3) continue;
        for (int column = 0; column <= 9 && column < items; column += 3) {
            const cow_String item = data.AsString(line, column);
            const cow_String answer =
                ReplaceReference(keyword, item, nodeSets, nodeIds, assemblyName, instanceName, partName, inp_AnySet);
            if (answer != item) data.Set(line, column, answer);
        }
    }
}

void inp_SetFixupVisitor::VisitSlideLine(inp_Keyword& keyword) {
    if (Has(keyword, "generate")) ExpandSlideLine(keyword);
    ReplaceElementOrElsetParameter(keyword, cow_String("elset"));
    ReplaceNodeOrNsetAllData(keyword);
}

void inp_SetFixupVisitor::ExpandSlideLine(inp_Keyword& keyword) {
    const cow_String name = cow_String("*") + keyword.Name().ToUpper();
    const inp_DataArray& data = keyword.data;
    const int lines = NumberOfLines(keyword);
    cow_List<cow_String> texts;
    for (int line = 0; line < lines; ++line) {
        const int items = data.NumberOfItems(line);
        const cow_String first = data.AsString(line, 0, cow_String());
        const cow_String last = data.AsString(line, 1, cow_String());
        const cow_List<cow_String> start = inp_Utils::SplitScopedSet(first);
        const cow_List<cow_String> end = inp_Utils::SplitScopedSet(last);
        const bool startScoped = start.Count() > 1;
        if (startScoped && end.Count() > 1 && start.ConstGet(0) != end.ConstGet(0)) {
            atr_translate t("The start and end id instance names must match when generating assembly %1$s ids: "
                            "%2$s, %3$s");
            atr_SubstituteFormat(t, 1, name);
            atr_SubstituteFormat(t, 2, first);
            atr_SubstituteFormat(t, 3, last);
            errors.Append(t.Result());
            continue;
        }
        // A short line gives fewer than two ids, which the generation reports.
        cow_1DArrayList<int> ids;
        if (items > 0) ids.Append(IdValue(start.Last()));
        if (items > 1) ids.Append(IdValue(end.Last()));
        if (items > 2 && !data.IsBlank(line, 2)) ids.Append(IdValue(data.AsString(line, 2)));
        const inp_Utils::Generation generated = inp_Utils::ExpandGeneration(ids, name);
        errors.Append(generated.errors);
        for (int i = 0; i < generated.ids.Count(); ++i) {
            cow_String text = startScoped ? start.ConstGet(0) + "." : cow_String();
            texts.Append(text.append(cow_String(generated.ids[i])));
        }
    }
    inp_DataArray expanded(new inp_RawDataArrayImpl());
    for (int i = 0; i < texts.Count(); i += 8) {
        cow_String line;
        for (int j = i; j < i + 8 && j < texts.Count(); ++j) {
            if (j > i) line.append(",");
            line.append(texts.ConstGet(j));
        }
        expanded.Append(line.c_str());
    }
    keyword.data = expanded;
    keyword.parameters.Remove(cow_String("generate"));
}

void inp_SetFixupVisitor::VisitSurface(inp_Keyword& keyword) {
    if (HasRefnodeValue(keyword)) ReplaceNodeOrNsetParameter(keyword, cow_String("refnode"));
    if (Has(keyword, "type")) {
        const cow_String type = Value(keyword, "type");
        if (type == "CUTTINGSURFACE")
            ReplaceColumn0From(keyword, NumberOfLines(keyword), 1,
                               [&](const cow_String& item) { return ReplaceElementOrElset(keyword, item); });
        else if (type == "NODE" && !Has(keyword, "crop"))
            ReplaceNodeColumn(keyword, 0);
        if (type != "ELEMENT") return;
    }
    if (!Has(keyword, "combine") && !Has(keyword, "crop")) VisitSurfaceDefinition(keyword);
}
