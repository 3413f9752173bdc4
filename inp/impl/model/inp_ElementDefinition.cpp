// The element keywords of inp_ElementVisitor: *USER ELEMENT, *ELEMENT, *ELCOPY,
// *ELGEN and *FASTENER.
//
// *ELEMENT is the largest keyword of a deck: one reusable buffer takes the
// connectivity of each element, and only a keyword whose stacked elements were
// completed pays for a rebuilt data array.
#include <algorithm>
#include <climits>
#include <cstring>
#include <vector>

#include "atr_String.h"
#include "inp_ElementDataArray.h"
#include "inp_ElementVisitor.h"
#include "inp_NodeGeometry.h"
#include "inp_Utils.h"
#include "nex_Exception.h"

using inp_node::GeneratedSpan;
using inp_node::Has;
using inp_node::Integer;
using inp_node::Span;
using inp_node::Text;

namespace {

// How *ELEMENT reads a type's lines; the first test that fits stands.
enum class Family { kPlain, kAsymmetric, kVariable, kConnector, kGasket, kCohesive };

Family FamilyOf(const cow_String& type) {
    if (type.Length() >= 4 && type.Substr(1, 3) == "AXA") return Family::kAsymmetric;
    if (type.StartsWith("C3D27") || type.StartsWith("C3D15V")) return Family::kVariable;
    if (type.StartsWith("CONN")) return Family::kConnector;
    if (type.StartsWith("GK")) return Family::kGasket;
    if (type.StartsWith("COH")) return Family::kCohesive;
    return Family::kPlain;
}

// Cohesive elements with pore pressure have a middle layer.
bool HasThreeLayers(const cow_String& type) { return type.Length() == 7 && type.c_str()[6] == 'P'; }

// Items of a line without a blank last one.
int ItemsBeforeBlank(const inp_DataArray& data, int line) {
    const int n = data.NumberOfItems(line);
    return n > 0 && data.LastItemIsBlank(line) ? n - 1 : n;
}

bool EndsBlank(const inp_DataArray& data, int line) {
    return data.NumberOfItems(line) > 0 && data.LastItemIsBlank(line);
}

}  // namespace

omi_IntTable<inp_Element>& inp_ElementVisitor::ScopeTable() {
    const cow_String& scope = KeywordScope();
    if (scope.IsEmpty()) return elements.Get();
    if (!elements.IsMember(scope)) elements.Insert(scope, omi_IntTable<inp_Element>());
    return elements.Get(scope);
}

void inp_ElementVisitor::VisitUserElement(inp_Keyword& keyword) {
    auto report = [&](const char* text) { errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw(text))); };
    const cow_String type = Text(keyword, "type");
    if (Has(keyword, "file")) {
        if (!userElements.IsMember(type)) userElements.Insert(type, -1);
        return;
    }
    if (!Has(keyword, "nodes")) return report("The NODES parameter is required.");
    if (!Has(keyword, "type")) return report("The TYPE parameter is required.");
    const int nodes = keyword.GetParameterAsInt(cow_String("nodes"), 0);
    if (nodes == 0) report("The number of nodes on a user element must be greater than zero.");
    if (!userElements.IsMember(type)) userElements.Insert(type, nodes);
}

void inp_ElementVisitor::VisitElement(inp_Keyword& keyword) {
    auto report = [&](const atr_String& text) { errors.Append(inp_Utils::MessageInKeyword(keyword, text)); };
    const inp_DataArray& data = keyword.data;

    // The node counts of the type.
    int minNodes = 0, maxNodes = INT_MAX;
    cow_String type;
    if (Has(keyword, "type"))
        type = Text(keyword, "type").ToUpper();
    else
        report(atr_raw("Element type is required."));
    if (const inp_ElementInfo* info = elementInfo.Lookup(type)) {
        minNodes = info->minNodes;
        maxNodes = info->maxNodes;
    } else if (inp_Types::MatchSuperelementID(type)) {
    } else if (inp_Types::MatchUserElementID(type)) {
        if (const int* count = userElements.Lookup(type)) {
            if (*count != -1) minNodes = maxNodes = *count;
        } else {
            report(atr_raw("This user element type has not been defined properly.Check *USER ELEMENT definitions."));
        }
    } else if (obsoleteTypes.IsMember(type)) {
        return report(atr_Format(
            "Element type \"%s\" has become obsolete.  Please check the User's manual for the current release.", type));
    } else {
        return report(atr_Format("Element type \"%s\" is not supported.", type));
    }

    // The lines, without trailing empty ones.
    if (data.NumberOfLines() == 0) return;
    int numLines = data.NumberOfLines();
    while (numLines > 0 && (data.NumberOfItems(numLines - 1) == 0 ||
                            (data.NumberOfItems(numLines - 1) == 1 && data.IsBlank(numLines - 1, 0))))
        --numLines;

    // The stack of the family.
    int offset = 100000;
    if (const inp_Item* given = keyword.parameters.Lookup(cow_String("offset"))) {
        try {
            offset = given->AsInt();
        } catch (const nex_TextException& e) {
            return report(atr_String(e.UserReport()));
        }
        if (offset < 1) return report(atr_raw("Offset parameter must be positive."));
    }
    const Family family = FamilyOf(type);
    const bool layered = family == Family::kGasket || family == Family::kCohesive;
    const bool hasOffset = Has(keyword, "offset");
    const bool three = family == Family::kCohesive && HasThreeLayers(type);
    bool stacked = false;
    int bottom = 0, layers = 0, total = 0;
    if (family == Family::kAsymmetric && minNodes > 0) {
        stacked = true;
        bottom = minNodes;
        layers = maxNodes / minNodes;
        total = bottom * layers;
    } else if (layered && hasOffset) {
        stacked = true;
        layers = three ? 3 : 2;
        minNodes /= layers;
        bottom = minNodes;
        total = layers * bottom;
    }
    if (family == Family::kGasket && Has(keyword, "solidelementnumbering")) {
        if (inp_ElementTypes::IsGk3d18(type)) maxNodes = 27;
        if (type == "GK3D12M" || type == "GK3D12MN") maxNodes = 18;
    }
    const bool zeroAllowed = family != Family::kPlain;

    omi_IntTable<inp_Element>& table = ScopeTable();
    cow_1DArrayList<int> ids(numLines);
    cow_1DArrayList<int> tooMany, tooFew;
    std::vector<int> nodes;
    bool expanded = false;
    const bool releasing = releaseReadLines && !stacked;
    int released = 0;
    // The items of a line, read in one walk over it.
    std::vector<int> values;
    std::vector<inp_DataArrayImpl::IntItem> kinds;
    for (int line = 0; line < numLines; ++line) {
        const int items = data.NumberOfItems(line);
        if (static_cast<int>(values.size()) < items) {
            values.resize(static_cast<size_t>(items));
            kinds.resize(static_cast<size_t>(items));
        }
        if (items > 0) data.ReadInts(line, 0, items, values.data(), kinds.data());
        // The element number.
        if (items == 0 || kinds[0] == inp_DataArrayImpl::kNoValue || kinds[0] == inp_DataArrayImpl::kNotInt) {
            report(atr_Format("Element number is not an integer for element of type %s.", type));
            break;
        }
        if (kinds[0] == inp_DataArrayImpl::kTooLong) {
            report(atr_Format("Element number exceeds 9 digits for element of type %s.", type));
            break;
        }
        const int id = values[0];
        if (id < 1) {
            report(atr_Format("Element number is not a positive integer for element of type %s.", type));
            break;
        }
        ids.Append(id);
        int bottomNodes = 0, layerOffset = 0, solidNumbering = 0;
        int given = items - 1;
        // A blank item reads as no value, whatever the kind of array.
        bool continued = kinds[static_cast<size_t>(items - 1)] == inp_DataArrayImpl::kNoValue;
        if (stacked && inp_ElementTypes::IsGk3d18(type)) {
            minNodes = bottom = 9;
            total = 18;
        }
        if (layered && stacked) {
            const int limit = three ? 2 * bottom : minNodes;
            if (given > limit) {
                given = limit;
                continued = false;
            }
        }
        if (continued) {
            --given;
            if (given >= maxNodes || line + 1 >= numLines)
                continued = false;
            else if (given + ItemsBeforeBlank(data, line + 1) > maxNodes && given >= minNodes)
                continued = false;
        }
        int count = given;
        nodes.clear();
        const int upto = given < maxNodes ? given : maxNodes;
        for (int j = 1; j <= upto; ++j) {
            if (instanceName.IsEmpty()) {
                nodes.push_back(data.AsInt(line, j));
                continue;
            }
            const int node = values[static_cast<size_t>(j)];
            const inp_DataArrayImpl::IntItem read = kinds[static_cast<size_t>(j)];
            if (read == inp_DataArrayImpl::kNoValue) continue;
            const char* problem = nullptr;
            if (read == inp_DataArrayImpl::kNotInt) {
                problem = "Non integer in element connectivity for element %1$s";
            } else if (read == inp_DataArrayImpl::kTooLong) {
                problem = "Integer exceeds 9 digits in element connectivity for element %1$s.";
            } else {
                if (node < 0 || (node == 0 && !zeroAllowed))
                    problem = "Integer in element connectivity for element %1$s is zero or negative.";
                else
                    nodes.push_back(node);
            }
            if (problem) report(atr_Format(problem, cow_String(id)));
        }
        // Continuation lines.
        while (continued && line + 1 < numLines) {
            ++line;
            int n = data.NumberOfItems(line);
            continued = EndsBlank(data, line);
            if (continued) {
                --n;
                if (count + n >= maxNodes || line + 1 >= numLines)
                    continued = false;
                else if (count + n + ItemsBeforeBlank(data, line + 1) > maxNodes && count + n >= minNodes &&
                         family != Family::kConnector)
                    continued = false;
            }
            for (int j = 0; j < n; ++j) nodes.push_back(data.AsInt(line, j));
            count += n;
        }
        if (nodes.empty()) {
            report(atr_Format("Element connectivity is missing for element %1$s of type \"%2$s\"", cow_String(id),
                              type));
            return;
        }
        if (!stacked) {
            // A trailing comma on a short line of a variable element stands for one node 0.
            if (family == Family::kVariable && count < maxNodes && EndsBlank(data, line)) {
                nodes.push_back(0);
                ++count;
            } else if (family == Family::kGasket && Has(keyword, "solidelementnumbering")) {
                const int value = keyword.GetParameterAsInt(cow_String("solidelementnumbering"), 1);
                solidNumbering = value >= 1 ? value : 1;
            }
        } else {
            if (inp_ElementTypes::IsGk3d18(type) && count == 8) {
                minNodes = bottom = 8;
                total = 16;
            }
            const bool twoOfThree = three && count == 2 * bottom;
            const bool bottomOnly = count == minNodes || twoOfThree;
            if (layered && bottomOnly) {
                bottomNodes = count;
                layerOffset = offset;
            }
            if (bottomOnly) {
                if (static_cast<int>(nodes.size()) < total) nodes.resize(static_cast<size_t>(total), 0);
                const int added = twoOfThree ? 1 : layers - 1;
                for (int k = 0; k < bottom; ++k)
                    for (int j = 1; j <= added; ++j) {
                        const size_t at = static_cast<size_t>(k + j * count);
                        if (at >= nodes.size()) continue;
                        // The offset is the deck's, and may take a layer's node past the id range.
                        const long long node = nodes[static_cast<size_t>(k)] + static_cast<long long>(j) * offset;
                        atr_String message;
                        if (!inp_Utils::IdsInRange(node, node, cow_String("*ELEMENT"), message)) return report(message);
                        nodes[at] = static_cast<int>(node);
                    }
                count = static_cast<int>(nodes.size());
                expanded = true;
            } else if (count < maxNodes) {
                cow_1DArrayList<int> padded;
                for (int node : nodes) padded.Append(node);
                while (padded.Count() < maxNodes) padded.Append(0);
                errors.Append(inp_Utils::MessageInKeyword(
                    keyword, atr_Format("Node numbers must be positive in element %s", cow_String(id)), padded));
                return;
            }
        }
        if (count > maxNodes) tooMany.Append(id);
        if (count < minNodes) tooFew.Append(id);
        table.Insert(id, inp_Element(type, nodes.data(), static_cast<int>(nodes.size()), bottomNodes, layerOffset,
                                     solidNumbering));
        if (releasing && line + 1 - released >= inp_DataArrayImpl::kReleaseBatch) {
            keyword.data.ReleaseLines(line + 1);
            released = line + 1;
        }
    }
    if (releasing) keyword.data.ReleaseLines(numLines);

    if (!tooMany.IsEmpty())
        warnings.Append(inp_Utils::MessageInKeyword(
            keyword, atr_Format("Too many nodes for element(s) of type \"%s\" ", type), tooMany));
    if (!tooFew.IsEmpty()) {
        errors.Append(inp_Utils::MessageInKeyword(
            keyword, atr_Format("Too few nodes for element(s) of type \"%s\" ", type), tooFew));
        return;
    }
    AddKeywordSet(keyword, "elset", ids, false, false);
    if (expanded) {
        keyword.data = inp_DataArray(new inp_ElementDataArrayImpl(ids, table));
        if (!layered) keyword.parameters.Remove(cow_String("offset"));
    }
}

void inp_ElementVisitor::VisitElcopy(inp_Keyword& keyword) {
    auto report = [&](const atr_String& text) { errors.Append(inp_Utils::MessageInKeyword(keyword, text)); };
    if (!Has(keyword, "elementshift") || !Has(keyword, "oldset") || !Has(keyword, "shiftnodes"))
        return report(atr_raw("ELEMENTSHIFT, OLDSET, and SHIFTNODES are required parameters."));
    const cow_String name = Text(keyword, "oldset");
    const inpM_BaseSet* old = setMap.FindSet(KeywordScope(), name, searchAllInstances);
    if (!old) return report(atr_Format("Element set %s does not exist.", name));
    const long long shift = keyword.GetParameterAsInt(cow_String("elementshift"), 0);
    const long long nodeShift = keyword.GetParameterAsInt(cow_String("shiftnodes"), 0);
    const bool reflect = Has(keyword, "reflect");
    const cow_1DArrayList<int> oldIds = old->ConstGetIds();
    omi_IntTable<inp_Element>& table = ScopeTable();
    if (!oldIds.IsEmpty()) {
        long long lowest = INT_MAX, highest = INT_MIN, lowestNode = INT_MAX, highestNode = INT_MIN;
        for (int i = 0; i < oldIds.Count(); ++i) {
            const int oldId = oldIds.ConstGet(i);
            lowest = std::min<long long>(lowest, oldId);
            highest = std::max<long long>(highest, oldId);
            if (!storeConnectivity || !table.HasKey(oldId)) continue;
            const inp_Element& source = table.ConstGet(oldId);
            for (int k = 0; k < source.numNodes; ++k) {
                if (source.nodes[k] == 0) continue;
                lowestNode = std::min<long long>(lowestNode, source.nodes[k]);
                highestNode = std::max<long long>(highestNode, source.nodes[k]);
            }
        }
        atr_String message;
        if (!inp_Utils::IdsInRange(lowest + shift, highest + shift, cow_String("*ELCOPY"), message) ||
            (lowestNode <= highestNode &&
             !inp_Utils::IdsInRange(lowestNode + nodeShift, highestNode + nodeShift, cow_String("*ELCOPY"), message)))
            return report(message);
    }
    cow_1DArrayList<int> ids(oldIds.Count());
    std::vector<int> nodes;
    for (int i = 0; i < oldIds.Count(); ++i) {
        const int oldId = oldIds.ConstGet(i);
        const int id = static_cast<int>(oldId + shift);
        if (!storeConnectivity) {
            ids.Append(id);
            table.Insert(id, inp_Element());
            continue;
        }
        if (!table.HasKey(oldId)) continue;
        const inp_Element source = table.ConstGet(oldId);
        nodes.assign(source.nodes, source.nodes + source.numNodes);
        for (int& node : nodes)
            if (node != 0) node = static_cast<int>(node + nodeShift);
        if (reflect) {
            const cow_1DArrayList<int>* order = reflectOrder.Lookup(source.type);
            if (!order)
                return report(atr_Format("The element type \"%s\" is either not a continuum element or not yet "
                                         "implemented for the REFLECT option in ELCOPY.",
                                         source.type));
            const std::vector<int> shifted = nodes;
            for (int k = 0; k < order->Count() && k < static_cast<int>(nodes.size()); ++k) {
                const int from = order->ConstGet(k) - 1;
                if (from >= 0 && from < static_cast<int>(shifted.size()))
                    nodes[static_cast<size_t>(k)] = shifted[static_cast<size_t>(from)];
            }
        }
        ids.Append(id);
        table.Insert(id, inp_Element(source.type, nodes.data(), static_cast<int>(nodes.size()), source.bottomNodes,
                                     source.offset, source.solidElementNumbering));
    }
    AddKeywordSet(keyword, "newset", ids, false, false);
}

void inp_ElementVisitor::VisitElgen(inp_Keyword& keyword) {
    auto report = [&](const atr_String& text) { errors.Append(inp_Utils::MessageInKeyword(keyword, text)); };
    const inp_DataArray& data = keyword.data;
    omi_IntTable<inp_Element>& table = ScopeTable();
    const bool allNodes = Has(keyword, "allnodes");
    cow_1DArrayList<int> ids;
    std::vector<int> nodes;
    for (int line = 0; line < data.NumberOfLines(); ++line) {
        if (data.NumberOfItems(line) == 0) return;
        const int master = Integer(data, line, 0, 0), number = Integer(data, line, 1, 0);
        const int step = Integer(data, line, 2, 1), increment = Integer(data, line, 3, 1);
        int rows = Integer(data, line, 4, 1);
        const int rowStep = Integer(data, line, 5, 0), rowIncrement = Integer(data, line, 6, 0);
        int layers = Integer(data, line, 7, 1);
        const int layerStep = Integer(data, line, 8, 0), layerIncrement = Integer(data, line, 9, 0);
        if (number < 1) return;
        if (rows < 1) rows = 1;
        if (layers < 1) layers = 1;
        const double highest = static_cast<double>(master) + (number - 1.0) * increment +
                               (rows - 1.0) * rowIncrement + (layers - 1.0) * layerIncrement;
        if (highest > 999999999.0) return report(atr_raw("Maximum element number allowed is 999999999."));
        if (static_cast<double>(number) * rows * layers > static_cast<double>(inp_Utils::MaxGeneratedIds()))
            return report(inp_Utils::TooManyGenerated(cow_String("*ELGEN")));
        const Span made = GeneratedSpan(master, number, increment, rows, rowIncrement, layers, layerIncrement);
        atr_String message;
        if (!inp_Utils::IdsInRange(made.lowest, made.highest, cow_String("*ELGEN"), message)) return report(message);
        if (!table.HasKey(master)) {
            if (!storeConnectivity) return;
            atr_translate t("Master element %d is not defined.");
            atr_SubstituteFormat(t, 1, master);
            return report(t.Result());
        }
        const inp_Element source = table.ConstGet(master);
        int shifted = source.numNodes;
        if (!allNodes && (source.type.StartsWith("B") || source.type.StartsWith("PIPE"))) {
            const inp_ElementInfo* info = elementInfo.Lookup(source.type);
            // The orientation node of a beam stays where it is.
            if (info && source.numNodes > info->minNodes) shifted = source.numNodes - 1;
        }
        const Span moves = GeneratedSpan(0, number, step, rows, rowStep, layers, layerStep);
        for (int n = 0; n < shifted; ++n) {
            const long long node = source.nodes[n];
            if (node != 0 && !inp_Utils::IdsInRange(node + moves.lowest, node + moves.highest, cow_String("*ELGEN"),
                                                    message))
                return report(message);
        }
        for (int k = 0; k < layers; ++k)
            for (int j = 0; j < rows; ++j)
                for (int i = 0; i < number; ++i) {
                    const int id = static_cast<int>(static_cast<long long>(master) +
                                                    static_cast<long long>(i) * increment +
                                                    static_cast<long long>(j) * rowIncrement +
                                                    static_cast<long long>(k) * layerIncrement);
                    ids.Append(id);
                    if (i == 0 && j == 0 && k == 0) continue;
                    const long long move = static_cast<long long>(i) * step + static_cast<long long>(j) * rowStep +
                                           static_cast<long long>(k) * layerStep;
                    nodes.assign(source.nodes, source.nodes + source.numNodes);
                    for (int n = 0; n < shifted; ++n)
                        if (nodes[static_cast<size_t>(n)] != 0)
                            nodes[static_cast<size_t>(n)] = static_cast<int>(nodes[static_cast<size_t>(n)] + move);
                    table.Insert(id, inp_Element(source.type, nodes.data(), source.numNodes, source.bottomNodes,
                                                 source.offset, source.solidElementNumbering));
                }
    }
    AddKeywordSet(keyword, "elset", ids, false, false);
}

void inp_ElementVisitor::VisitFastener(inp_Keyword& keyword) {
    if (!Has(keyword, "elset")) return;
    const cow_String name = Text(keyword, "elset");
    const inpM_UnsortedSet empty;
    if (!KeywordScope().IsEmpty()) return AddSet(name, empty, false);
    const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(name);
    if (segments.Count() == 1) return AddAssemblySet(name, empty, false);
    const cow_String& instance = segments.ConstGet(0);
    if (!setMap.instances.IsMember(instance)) {
        errors.Append(inp_Utils::MessageInKeyword(keyword, atr_Format("Unknown instance %s.", instance)));
        return;
    }
    if (!setMap.HasNestedSet(instance, segments.Last()))
        setMap.InsertNestedSet(instance, segments.Last(), *CreateSet(false, true));
}
