#include "inp_AssyLevelElemVisitor.h"

#include <cstdlib>

#include "atr_String.h"
#include "inp_NodeGeometry.h"
#include "inp_Types.h"
#include "inp_Utils.h"
#include "nex_Exception.h"

using inp_node::Has;
using inp_node::Text;

namespace {

bool Holds(const cow_String& text, const char* part) { return text.Find(part) < text.Length(); }

bool IsAssemblyType(const cow_String& type, bool strictTypes) {
    static const char* const kNamed[] = {"MASS",     "ROTARYI",  "SPRINGA", "SPRING1", "SPRING2",
                                         "DASHPOTA", "DASHPOT1", "DASHPOT2", "HEATCAP", "CONN2D2",
                                         "CONN3D2",  "DCOUP2D",  "DCOUP3D"};
    for (const char* name : kNamed)
        if (type == name) return true;
    if (Holds(type, "GAP")) return true;
    return !strictTypes && (Holds(type, "SPRING") || Holds(type, "DASHPOT"));
}

}  // namespace

inp_AssyLevelElemVisitor::inp_AssyLevelElemVisitor() : inp_ElementVisitor(true) {}

inp_AssyLevelElemVisitor::inp_AssyLevelElemVisitor(const inpM_ElementMap& elementMap, const inpM_SetMap& sets,
                                                   const inpM_IdMap& ids, bool strict)
    : inp_ElementVisitor(true), strictTypes(strict), nodeIds(ids) {
    elements = elementMap;
    // The root holds the assembly-level elements this pass adds.
    if (!elements.item.HasValue()) elements.item = new omi_IntTable<inp_Element>();
    setMap = sets;
}

inp_AssyLevelElemVisitor::~inp_AssyLevelElemVisitor() = default;

void inp_AssyLevelElemVisitor::Visit(inp_Keyword& keyword) {
    if (keyword.keyword == inp_kwPart || keyword.keyword == inp_kwInstance || keyword.keyword == inp_kwStep) return;
    inp_ElementVisitor::Visit(keyword);
}

void inp_AssyLevelElemVisitor::VisitElement(inp_Keyword& keyword) {
    if (partName.IsEmpty()) BuildElement(keyword);
}

void inp_AssyLevelElemVisitor::VisitElset(inp_Keyword& keyword) {
    if (!processElementSets) return;
    const bool internal = Has(keyword, "internal");
    const inpM_SetHandle set = Has(keyword, "generate") ? GenerateAssemblySet(keyword, internal, false)
                                                        : ReadAssemblySet(setMap, keyword, internal);
    AddAssemblySet(Text(keyword, "elset"), *set, false);
}

bool inp_AssyLevelElemVisitor::IsValidScope(const cow_String&) const { return true; }

int inp_AssyLevelElemVisitor::Resolve(const cow_String& text, bool connector) {
    const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(text);
    if (segments.Count() == 1) {
        const inp_Item item(text);
        if (item.type != inp_Types::typeInt) {
            errors.Append(atr_Format("Connectivity item %s appears to be a node set. This is not allowed.", text));
            return 0;
        }
        if (nodeIds.HasId(item.intValue)) return nodeIds.ConstGet(item.intValue);
        if (item.intValue == 0 && connector) return 0;
        errors.Append(atr_Format("Connectivity item %s is an undefined assembly level node.", text));
        return 0;
    }
    if (!inp_Types::MatchInteger(segments.Last())) {
        errors.Append(atr_Format(
            "Connectivity item %s is unrecognizable as a scoped ID ( <instanceName>.<integer ID> ).", text));
        return 0;
    }
    const cow_String& instance = segments.ConstGet(segments.Count() - 2);
    if (!nodeIds.HasInstance(instance)) {
        errors.Append(atr_Format("Unknown instance name %s", instance));
        return 0;
    }
    const int id = std::atoi(segments.Last().c_str());
    const inpM_IdMap& local = nodeIds.ConstGet(instance);
    if (local.HasId(id)) return local.ConstGet(id);
    errors.Append(atr_Format("Unknown local ID %1$s in instance %2$s", cow_String(id), instance));
    return 0;
}

void inp_AssyLevelElemVisitor::BuildElement(inp_Keyword& keyword) {
    auto report = [&](const atr_String& text) { errors.Append(inp_Utils::MessageInKeyword(keyword, text)); };
    cow_String type;
    if (Has(keyword, "type"))
        type = Text(keyword, "type").ToUpper();
    else
        report(atr_raw("Element type is required"));
    const inp_ElementInfo* info = elementInfo.Lookup(type);
    if (!info || !IsAssemblyType(type, strictTypes))
        return report(atr_raw("Only connector, spring, dashpot, mass, rotary inertia, and capacitance elements can be "
                              "created at the assembly level."));
    const inp_DataArray& data = keyword.data;
    if (data.NumberOfLines() == 0) return;
    omi_IntTable<inp_Element>& table = elements.Get();
    const bool connector = Holds(type, "CONN");
    cow_1DArrayList<int> ids(data.NumberOfLines()), tooMany, tooFew, nodes;
    int id = 0;
    try {
        for (int line = 0; line < data.NumberOfLines(); ++line) {
            const int items = data.NumberOfItems(line);
            id = items > 0 ? data.AsInt(line, 0) : 0;
            if (id == 0) {
                report(atr_Format("element number is not defined or is zero for element of type %s", type));
                break;
            }
            ids.Append(id);
            int given = items - 1;
            if (!connector && data.LastItemIsBlank(line)) --given;
            nodes.ClearAll();
            const int upto = items - 1 < info->maxNodes ? items - 1 : info->maxNodes;
            for (int j = 1; j <= upto; ++j) {
                const inp_Types::typeEnm itemType = data.Type(line, j);
                if (itemType == inp_Types::typeInt || itemType == inp_Types::typeString) {
                    nodes.Append(Resolve(data.AsString(line, j), connector));
                } else if (itemType == inp_Types::typeNone && connector) {
                    nodes.Append(0);
                } else {
                    atr_translate t(
                        "*Element: an unrecognizable item (neither integer nor text string) is detected in the "
                        "connectivity list for element %1$s of type \"%2$s\". The item in question is: %3$s");
                    atr_SubstituteFormat(t, 1, id);
                    atr_SubstituteFormat(t, 2, type);
                    atr_SubstituteFormat(t, 3, data.AsString(line, j));
                    return report(t.Result());
                }
            }
            if (nodes.IsEmpty())
                return report(atr_Format("*Element: topology information is missing for element %1$s of type \"%2$s\"",
                                         cow_String(id), type));
            if (given > info->maxNodes) tooMany.Append(id);
            if (given < info->minNodes) tooFew.Append(id);
            table.Insert(id, inp_Element(type, nodes, 0, 0, 0));
        }
    } catch (const nex_TextException& e) {
        atr_String text = atr_Format("There are errors in the connectivity list for element %1$s of type \"%2$s\". ",
                                     cow_String(id), type);
        text.append(e.UserReport());
        errors.Append(text);
        return;
    }
    if (!tooMany.IsEmpty())
        warnings.Append(inp_Utils::MessageInKeyword(
            keyword, atr_Format("Too many nodes for element(s) of type \"%s\"", type), tooMany));
    if (!tooFew.IsEmpty()) {
        errors.Append(inp_Utils::MessageInKeyword(
            keyword, atr_Format("Too few nodes for element(s) of type \"%s\"", type), tooFew));
        return;
    }
    if (Has(keyword, "elset") && !ids.IsEmpty())
        AddAssemblySet(Text(keyword, "elset"), *CreateSet(ids, false, false), false);
}
