#include "inp_NodeGenerationVisitor.h"

#include <cstring>
#include <vector>

#include "atr_String.h"
#include "inp_NodeGeometry.h"
#include "inp_Types.h"
#include "inp_Utils.h"

using inp_node::GeneratedSpan;
using inp_node::Has;
using inp_node::Integer;
using inp_node::Span;
using inp_node::Text;

namespace {

const char kIncomplete[] =
    "Internal error: number of nodes in asymmetric element of type \"%1$s\", number = %2$s is less than expected";

cow_1DArrayList<int> AsList(const int* nodes, int count) {
    cow_1DArrayList<int> list;
    for (int i = 0; i < count; ++i) list.Append(nodes[i]);
    return list;
}

}  // namespace

inp_NodeGenerationVisitor::inp_NodeGenerationVisitor(const inp_CoordMap& nodes, const inpM_ElementMap& elementMap,
                                                     const inpM_SetMap& sets, bool compute, bool searchAll,
                                                     bool parts, const cow_String& scope)
    : coordMap(nodes),
      elementInfo(inp_ElementTypes::ElementInfo()),
      elements(elementMap),
      elementSets(sets),
      searchAllInstances(searchAll),
      computeCoordinates(compute),
      partMode(parts),
      defaultScope(scope) {}

inp_NodeGenerationVisitor::~inp_NodeGenerationVisitor() = default;

void inp_NodeGenerationVisitor::DefaultAction(inp_Keyword&) {}

void inp_NodeGenerationVisitor::Visit(inp_Keyword& keyword) {
    if (keyword.keyword == (partMode ? inp_kwAssembly : inp_kwPart)) return;
    inp_Visitor::Visit(keyword);
}

bool inp_NodeGenerationVisitor::IsCurrentScope(const cow_String& name) const { return name == Scope(); }

cow_String inp_NodeGenerationVisitor::Scope() const {
    const cow_String& scope = partName.IsEmpty() ? instanceName : partName;
    return scope.IsEmpty() ? defaultScope : scope;
}

bool inp_NodeGenerationVisitor::StackOf(const cow_String& type, bool hasOffset, Stack& stack) const {
    if (type.Length() < 4) return false;
    const inp_ElementInfo* info = elementInfo.Lookup(type);
    const int minNodes = info ? info->minNodes : 0, maxNodes = info ? info->maxNodes : 0;
    if (type.Substr(1, 3) == "AXA") {
        if (minNodes < 1) return false;
        stack.asymmetric = true;
        stack.bottom = minNodes;
        stack.layers = maxNodes / minNodes;
        return true;
    }
    const bool gasket = type.StartsWith("GK"), cohesive = type.StartsWith("COH");
    if (!(gasket || cohesive) || !hasOffset) return false;
    stack.layers = cohesive && type.Length() == 7 && type.c_str()[6] == 'P' ? 3 : 2;
    stack.bottom = minNodes / stack.layers;
    if (inp_ElementTypes::IsGk3d18(type)) stack.bottom = 9;
    return stack.bottom > 0;
}

bool inp_NodeGenerationVisitor::Complete(const int* nodes, const Stack& stack) {
    const cow_String scope = Scope();
    inp_CoordMap* map = &coordMap;
    if (!scope.IsEmpty()) {
        if (!coordMap.instances.IsMember(scope)) return false;
        map = &coordMap.instances.Get(scope).Get();
    }
    for (int k = 0; k < stack.bottom; ++k) {
        const int bottomNode = nodes[k];
        if (bottomNode == 0) continue;
        if (!map->HasId(bottomNode)) return false;
        const inp_Coord record = map->ConstGet(bottomNode);
        for (int j = 1; j < stack.layers; ++j) {
            const int layerNode = nodes[k + j * stack.bottom];
            if (stack.asymmetric)
                map->Insert(layerNode, record);
            else if (!map->HasId(layerNode))
                map->Insert(layerNode, inp_Coord());
        }
    }
    return true;
}

void inp_NodeGenerationVisitor::VisitElement(inp_Keyword& keyword) {
    auto report = [&](const atr_String& text) { errors.Append(inp_Utils::MessageInKeyword(keyword, text)); };
    if (!Has(keyword, "type")) return report(atr_raw("Element type is required."));
    const cow_String type = Text(keyword, "type").ToUpper();
    if (!elementInfo.IsMember(type) && !inp_Types::MatchSuperelementID(type) && !inp_Types::MatchUserElementID(type))
        return report(atr_Format("Element type %s is not supported.", type));
    Stack stack;
    if (!StackOf(type, Has(keyword, "offset"), stack)) return;
    const cow_String scope = Scope();
    const omi_IntTable<inp_Element>* table = nullptr;
    if (scope.IsEmpty())
        table = &elements.ConstGet();
    else if (elements.IsMember(scope))
        table = &elements.ConstGet(scope);
    if (!table) return;

    const inp_DataArray& data = keyword.data;
    std::vector<int> nodes;
    for (int line = 0; line < data.NumberOfLines(); ++line) {
        const int items = data.NumberOfItems(line);
        if (items == 0) continue;
        const int id = data.AsInt(line, 0);
        // An element the element pass did not store ends a keyword that already failed there.
        if (!table->HasKey(id)) return;
        const inp_Element& element = table->ConstGet(id);
        nodes.clear();
        bool continued = data.LastItemIsBlank(line);
        int last = continued ? items - 1 : items;
        for (int j = 1; j < last && static_cast<int>(nodes.size()) < element.numNodes; ++j)
            nodes.push_back(data.AsInt(line, j));
        while (continued && static_cast<int>(nodes.size()) < element.numNodes && line + 1 < data.NumberOfLines()) {
            ++line;
            const int n = data.NumberOfItems(line);
            continued = n > 0 && data.LastItemIsBlank(line);
            last = continued ? n - 1 : n;
            for (int j = 0; j < last && static_cast<int>(nodes.size()) < element.numNodes; ++j)
                nodes.push_back(data.AsInt(line, j));
        }
        Stack one = stack;
        if (inp_ElementTypes::IsGk3d18(type)) one.bottom = 9;
        if (type.StartsWith("GK")) {
            if (element.bottomNodes == 0) continue;  // given in full
            if (inp_ElementTypes::IsGk3d18(type) && nodes.size() == 16) one.bottom = 8;
        }
        if (static_cast<int>(nodes.size()) != one.Total()) {
            errors.Append(inp_Utils::MessageInKeyword(keyword, atr_Format(kIncomplete, element.type, cow_String(id)),
                                                      AsList(nodes.data(), static_cast<int>(nodes.size()))));
            return;
        }
        if (!Complete(nodes.data(), one)) return;
    }
}

// The element under `id` made by a copy or a generation: complete when it is stacked.
bool inp_NodeGenerationVisitor::CompleteGenerated(const inp_Keyword& keyword, int id, bool finalPeriod) {
    const cow_String scope = Scope();
    if (!scope.IsEmpty() && !elements.IsMember(scope)) return false;
    const omi_IntTable<inp_Element>& table = scope.IsEmpty() ? elements.ConstGet() : elements.ConstGet(scope);
    if (!table.HasKey(id)) return true;
    const inp_Element& element = table.ConstGet(id);
    Stack stack;
    const bool layered = element.type.StartsWith("GK") || element.type.StartsWith("COH");
    if (!StackOf(element.type, element.bottomNodes != 0, stack)) return true;
    if (layered && inp_ElementTypes::IsGk3d18(element.type)) stack.bottom = element.bottomNodes;
    if (element.numNodes != stack.Total()) {
        atr_String text = atr_Format(kIncomplete, element.type, cow_String(id));
        if (finalPeriod) text.append(".");
        errors.Append(inp_Utils::MessageInKeyword(keyword, text, AsList(element.nodes, element.numNodes)));
        return false;
    }
    return Complete(element.nodes, stack);
}

void inp_NodeGenerationVisitor::VisitElcopy(inp_Keyword& keyword) {
    if (!computeCoordinates) return;
    auto report = [&](const atr_String& text) { errors.Append(inp_Utils::MessageInKeyword(keyword, text)); };
    if (!Has(keyword, "elementshift") || !Has(keyword, "oldset") || !Has(keyword, "shiftnodes"))
        return report(atr_raw("ELEMENTSHIFT, OLDSET, and SHIFTNODES are required."));
    const cow_String name = Text(keyword, "oldset");
    const cow_String scope = Scope();
    const inpM_BaseSet* set = elementSets.FindSet(scope, name, searchAllInstances);
    if (!set) return report(atr_Format("Element set %s does not exist.", name));
    if (!scope.IsEmpty() && !elements.IsMember(scope)) return;
    const omi_IntTable<inp_Element>& table = scope.IsEmpty() ? elements.ConstGet() : elements.ConstGet(scope);
    const long long shift = keyword.GetParameterAsInt(cow_String("elementshift"), 0);
    const cow_1DArrayList<int> ids = set->ConstGetIds();
    for (int i = 0; i < ids.Count(); ++i) {
        if (!table.HasKey(ids.ConstGet(i))) continue;
        const inp_Element& original = table.ConstGet(ids.ConstGet(i));
        const bool layered = original.type.StartsWith("GK") || original.type.StartsWith("COH");
        if (layered && original.bottomNodes == 0) continue;
        const long long copy = ids.ConstGet(i) + shift;
        if (copy < -2147483647LL || copy > 2147483647LL) continue;
        if (!CompleteGenerated(keyword, static_cast<int>(copy), true)) return;
    }
}

void inp_NodeGenerationVisitor::VisitElgen(inp_Keyword& keyword) {
    if (!computeCoordinates) return;
    const inp_DataArray& data = keyword.data;
    const cow_String scope = Scope();
    if (!scope.IsEmpty() && !elements.IsMember(scope)) return;
    const omi_IntTable<inp_Element>& table = scope.IsEmpty() ? elements.ConstGet() : elements.ConstGet(scope);
    for (int line = 0; line < data.NumberOfLines(); ++line) {
        if (data.NumberOfItems(line) == 0) {
            errors.Append(
                inp_Utils::MessageInKeyword(keyword, atr_raw("There is no data specified in at least one data line.")));
            continue;
        }
        const int master = Integer(data, line, 0, 0), number = Integer(data, line, 1, 0);
        const int increment = Integer(data, line, 3, 1);
        int rows = Integer(data, line, 4, 1), layers = Integer(data, line, 7, 1);
        const int rowIncrement = Integer(data, line, 6, 0), layerIncrement = Integer(data, line, 9, 0);
        if (number < 1) {
            warnings.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("Number of elements to be generated is zero.")));
            continue;
        }
        if (!table.HasKey(master)) {
            errors.Append(
                inp_Utils::MessageInKeyword(keyword, atr_Format("Master element %s is not defined.", cow_String(master))));
            return;
        }
        const inp_Element& source = table.ConstGet(master);
        Stack stack;
        if (!StackOf(source.type, source.bottomNodes != 0, stack)) continue;
        if (rows < 1) rows = 1;
        if (layers < 1) layers = 1;
        // The element pass refused a generation this large, or one that leaves the id range.
        if (static_cast<double>(number) * rows * layers > static_cast<double>(inp_Utils::MaxGeneratedIds())) return;
        const Span span = GeneratedSpan(master, number, increment, rows, rowIncrement, layers, layerIncrement);
        atr_String ignored;
        if (!inp_Utils::IdsInRange(span.lowest, span.highest, cow_String("*ELGEN"), ignored)) return;
        for (int k = 0; k < layers; ++k)
            for (int j = 0; j < rows; ++j)
                for (int i = 0; i < number; ++i) {
                    if (i == 0 && j == 0 && k == 0) continue;
                    const long long id = static_cast<long long>(master) + static_cast<long long>(i) * increment +
                                         static_cast<long long>(j) * rowIncrement +
                                         static_cast<long long>(k) * layerIncrement;
                    if (!CompleteGenerated(keyword, static_cast<int>(id), false)) return;
                }
    }
}
