// Where the elements of the flat model go, and the keyword list of parts, instances
// and the assembly that comes out of the conversion.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <utility>
#include <vector>

#include "gsl_Point.h"
#include "gsl_Util.h"
#include "gsl_Vector.h"
#include "inpM_Utils.h"
#include "inp_FakePartVisitor.h"
#include "inp_Types.h"
#include "inp_Utils.h"

namespace {

bool Contains(const cow_String& text, const char* part) { return text.Find(part) < text.Length(); }

bool ContainsAny(const cow_String& text, std::initializer_list<const char*> parts) {
    for (const char* part : parts)
        if (Contains(text, part)) return true;
    return false;
}

// A keyword as expansion leaves it: canonical parameter names, values typed from their text.
inp_Keyword NewKeyword(inp_KeywordEnm value, std::initializer_list<std::pair<const char*, cow_String>> parameters) {
    inp_Keyword keyword(value);
    for (const auto& parameter : parameters)
        keyword.parameters.Insert(cow_String(parameter.first), inp_Item(parameter.second));
    return keyword;
}

cow_String ParameterText(const inp_Keyword& keyword, const char* name) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(name));
    return item ? item->AsString() : cow_String();
}

cow_1DArrayList<int> IdsOf(const omi_IntTable<inp_Element>& table) {
    cow_1DArrayList<int> ids(table.Count());
    omi_IntTableIterator<inp_Element> it(table);
    for (it.First(); !it.IsDone(); it.Next()) ids.Append(it.CurrentKey());
    return ids;
}

// The types of a table in the order of their first element.
cow_List<cow_String> TypesOf(const omi_IntTable<inp_Element>& table) {
    cow_List<cow_String> types;
    omi_IntTableIterator<inp_Element> it(table);
    for (it.First(); !it.IsDone(); it.Next()) types.AppendUnlessMember(it.CurrentValue().type);
    return types;
}

void RemoveNode(cow_1DArrayList<int>& list, int node) { list.RemoveMember(node); }

}  // namespace

bool inp_FakePartVisitor::IsConnectorType(const cow_String& type) { return ContainsAny(type, {"SPRING", "DASHPOT"}); }

bool inp_FakePartVisitor::IsRigidType(const cow_String& type) { return ContainsAny(type, {"R3D", "R2D", "RAX", "RB"}); }

// ---- the maps of the flat model and of the parts ----------------------------------

const omi_IntTable<inp_Element>& inp_FakePartVisitor::FlatElementTable() const {
    static const omi_IntTable<inp_Element> none;
    const cow_String fake(inp_Types::fakeName());
    return flatElements.IsMember(fake) ? flatElements.ConstGet(fake) : none;
}

omi_IntTable<inp_Element>& inp_FakePartVisitor::WritableFlatElements() {
    const cow_String fake(inp_Types::fakeName());
    if (!flatElements.IsMember(fake) || !flatElements.GetMap(fake).item.HasValue())
        flatElements.Insert(fake, omi_IntTable<inp_Element>());
    return flatElements.Get(fake);
}

const inp_CoordMap* inp_FakePartVisitor::FlatNodes() const {
    const inp_CoordMap::Handle* nodes = flatCoordinates.instances.Lookup(cow_String(inp_Types::fakeName()));
    return nodes ? &nodes->ConstGet() : nullptr;
}

const inpM_BaseSetMap& inp_FakePartVisitor::FlatElementSets() const {
    return elementSets.ConstGetNestedSetMap(cow_String(inp_Types::fakeName()));
}

const inpM_BaseSetMap& inp_FakePartVisitor::FlatNodeSets() const {
    return nodeSets.ConstGetNestedSetMap(cow_String(inp_Types::fakeName()));
}

inp_CoordMap& inp_FakePartVisitor::PartNodes(const cow_String& part) {
    if (!partCoordinates.instances.IsMember(part)) partCoordinates.instances.Insert(part, new inp_CoordMap());
    return partCoordinates.instances.Get(part).Get();
}

cow_1DArrayList<inp_Keyword>& inp_FakePartVisitor::PartList(const cow_String& part) {
    if (!partLists.IsMember(part)) {
        cow_1DArrayList<inp_Keyword> list;
        list.Append(NewKeyword(inp_kwPart, {{"name", part}}));
        partLists.Insert(part, list);
    }
    return partLists.Get(part);
}

omi_IntTable<inp_Element>& inp_FakePartVisitor::PartElementTable(const cow_String& part) {
    if (!partElements.IsMember(part)) partElements.Insert(part, omi_IntTable<inp_Element>());
    return partElements.Get(part);
}

bool inp_FakePartVisitor::IsRefNode(int node) const {
    return std::binary_search(m_refNodes.begin(), m_refNodes.end(), node);
}

cow_List<cow_String> inp_FakePartVisitor::HoldersOf(int node) const {
    cow_List<cow_String> holders;
    if (!IsRefNode(node)) return holders;
    const cow_List<cow_String> parts = inpM_Utils::SortedKeys(partRefNodes);
    for (int i = 0; i < parts.Count(); ++i)
        if (partRefNodes.ConstGet(parts[i]).IsMember(node)) holders.Append(parts[i]);
    return holders;
}

cow_List<cow_String> inp_FakePartVisitor::PartsOfElement(const inp_Element& element) const {
    cow_List<cow_String> parts;
    for (int n = 0; n < element.numNodes; ++n) {
        if (element.nodes[n] == 0) continue;  // an open position, no node
        const cow_List<cow_String> holders = HoldersOf(element.nodes[n]);
        if (holders.IsEmpty()) parts.AppendUnlessMember(cow_String(kPart1));
        for (int h = 0; h < holders.Count(); ++h) parts.AppendUnlessMember(holders[h]);
    }
    return parts;
}

void inp_FakePartVisitor::MoveNodeToPart(int node, const cow_String& part) {
    const cow_List<cow_String> holders = HoldersOf(node);
    if (holders.IsEmpty() || (holders.Count() == 1 && holders[0] == part)) return;
    for (int h = 0; h < holders.Count(); ++h) {
        const cow_String& holder = holders[h];
        if (holder == part) continue;
        cow_1DArrayList<int>& nodes = partRefNodes.Get(holder);
        RemoveNode(nodes, node);
        if (nodes.IsEmpty()) partRefNodes.Remove(holder);
        if (partCoordinates.instances.IsMember(holder)) PartNodes(holder).coords.Get().Remove(node);
    }
    if (!partRefNodes.IsMember(part)) partRefNodes.Insert(part, cow_1DArrayList<int>());
    partRefNodes.Get(part).AppendUnlessMember(node);
    inp_CoordMap& nodes = PartNodes(part);
    if (nodes.HasId(node)) return;
    const inp_CoordMap* flat = FlatNodes();
    nodes.Insert(node, flat && flat->HasId(node) ? flat->ConstGet(node) : inp_Coord());
}

// ---- elements to parts -------------------------------------------------------------

void inp_FakePartVisitor::GetConvertedKeywords(cow_1DArrayList<inp_Keyword>& result) {
    const cow_String part1(kPart1);
    // A reference node of a body without geometry that another part holds too belongs
    // to that part.
    if (partRefNodes.IsMember(part1)) {
        cow_1DArrayList<int> kept = partRefNodes.ConstGet(part1);
        for (int i = kept.Count() - 1; i >= 0; --i) {
            const int node = kept[i];
            if (!standaloneRefNodes.IsMember(node) || HoldersOf(node).Count() < 2) continue;
            kept.Remove(i);
            PartNodes(part1).coords.Get().Remove(node);
        }
        if (kept.IsEmpty())
            partRefNodes.Remove(part1);
        else
            partRefNodes.Insert(part1, kept);
    }
    PartList(part1);
    PartNodes(part1);
    PartElementTable(part1);
    // A node is one part's: the first part in order keeps it.
    std::vector<int> taken;
    const cow_List<cow_String> parts = inpM_Utils::SortedKeys(partRefNodes);
    for (int p = 0; p < parts.Count(); ++p) {
        cow_1DArrayList<int> kept = partRefNodes.ConstGet(parts[p]);
        for (int i = 0; i < kept.Count();) {
            const int node = kept[i];
            const auto at = std::lower_bound(taken.begin(), taken.end(), node);
            if (at == taken.end() || *at != node) {
                taken.insert(at, node);
                ++i;
                continue;
            }
            kept.Remove(i);
            PartNodes(parts[p]).coords.Get().Remove(node);
        }
        if (kept.IsEmpty())
            partRefNodes.Remove(parts[p]);
        else
            partRefNodes.Insert(parts[p], kept);
    }

    // Elements of the mesh are PART-1's; elements that another part's nodes alone
    // carry, connectors and rigid elements are decided one by one.
    cow_1DArrayList<int> plain, other;
    // Elements of one keyword share their type's text: its kind is worked out once.
    const char* lastType = nullptr;
    bool lastTypeIsOther = false;
    omi_IntTableIterator<inp_Element> it(FlatElementTable());
    for (it.First(); !it.IsDone(); it.Next()) {
        const inp_Element& element = it.CurrentValue();
        if (element.type.c_str() != lastType) {
            lastType = element.type.c_str();
            lastTypeIsOther = IsConnectorType(element.type) || IsRigidType(element.type);
        }
        bool held = false;
        for (int n = 0; n < element.numNodes && !held; ++n)
            held = IsRefNode(element.nodes[n]) && !HoldersOf(element.nodes[n]).IsEmpty();
        // Without a held node the element's one part is PART-1, and the parts need not
        // be worked out: the mesh of a large deck passes here.
        if (held) {
            const cow_List<cow_String> elementParts = PartsOfElement(element);
            if (elementParts.Count() == 1 && elementParts[0] != part1) {
                other.Append(it.CurrentKey());
                continue;
            }
        }
        if (lastTypeIsOther) {
            other.Append(it.CurrentKey());
            continue;
        }
        plain.Append(it.CurrentKey());
        if (held)
            for (int n = 0; n < element.numNodes; ++n) MoveNodeToPart(element.nodes[n], part1);
    }
    AssignElements(plain, other);

    // Nodes that no element uses stay with the mesh.
    if (const inp_CoordMap* flat = FlatNodes()) {
        const cow_List<cow_String> holders = partCoordinates.InstanceNames();
        inp_CoordMap& mesh = PartNodes(part1);
        omi_IntTableIterator<inp_Coord> nodes(flat->coords.ConstGet());
        for (nodes.First(); !nodes.IsDone(); nodes.Next()) {
            bool held = false;
            for (int h = 0; h < holders.Count() && !held; ++h)
                held = partCoordinates.instances.ConstGet(holders[h])->HasId(nodes.CurrentKey());
            if (!held) mesh.Insert(nodes.CurrentKey(), nodes.CurrentValue());
        }
    }
    BuildKeywordList(result);
}

void inp_FakePartVisitor::AssignElements(const cow_1DArrayList<int>& plain, const cow_1DArrayList<int>& other) {
    const cow_String part1(kPart1);
    cow_Map<cow_String, cow_1DArrayList<int>> assignment;
    assignment.Insert(part1, plain);
    const inpM_BaseSetMap& sets = FlatElementSets();
    std::vector<int> rigidIds;
    for (int i = 0; i < rigidElsetParts.Count(); ++i) {
        const cow_String& name = rigidElsetParts[i];
        const inpM_SetHandle* set = sets.Lookup(name);
        if (!set || assignment.IsMember(name)) continue;
        const cow_1DArrayList<int> ids = (*set)->ConstGetIds();
        assignment.Insert(name, ids);
        for (int j = 0; j < ids.Count(); ++j) rigidIds.push_back(ids[j]);
    }
    std::sort(rigidIds.begin(), rigidIds.end());

    const omi_IntTable<inp_Element>& table = FlatElementTable();
    cow_1DArrayList<int> connecting;
    for (int i = 0; i < other.Count(); ++i) {
        const int id = other[i];
        if (!table.HasKey(id)) continue;
        const inp_Element& element = table.ConstGet(id);
        const cow_List<cow_String> parts = PartsOfElement(element);
        const bool single = parts.Count() == 1;
        if (!single && IsConnectorType(element.type)) {
            connecting.Append(id);
            continue;
        }
        if (IsRigidType(element.type) && std::binary_search(rigidIds.begin(), rigidIds.end(), id)) continue;
        const cow_String part = single ? parts[0] : part1;
        if (!assignment.IsMember(part)) assignment.Insert(part, cow_1DArrayList<int>());
        assignment.Get(part).Append(id);
    }

    // A spring or dashpot keyword goes with its elements when they all stand in one part.
    for (int i = 0; i < connectionKeywords.Count(); ++i) {
        const inp_Keyword& keyword = connectionKeywords[i];
        const inpM_SetHandle* set = keyword.HasParameter(cow_String("elset"))
                                        ? sets.Lookup(ParameterText(keyword, "elset"))
                                        : nullptr;
        cow_List<cow_String> parts;
        const cow_1DArrayList<int> ids = set ? (*set)->ConstGetIds() : cow_1DArrayList<int>();
        for (int j = 0; j < ids.Count(); ++j) {
            if (!table.HasKey(ids[j])) continue;
            const cow_List<cow_String> elementParts = PartsOfElement(table.ConstGet(ids[j]));
            for (int p = 0; p < elementParts.Count(); ++p) parts.AppendUnlessMember(elementParts[p]);
        }
        if (parts.Count() == 1)
            PartList(parts[0]).Append(keyword);
        else
            assemblyKeywords.Append(keyword);
    }

    if (!connecting.IsEmpty()) {
        if (!partElements.item.HasValue()) partElements.item = new omi_IntTable<inp_Element>();
        omi_IntTable<inp_Element>& assembly = partElements.Get();
        omi_IntTable<inp_Element>& flat = WritableFlatElements();
        for (int i = 0; i < connecting.Count(); ++i) {
            assembly.Insert(connecting[i], flat.ConstGet(connecting[i]));
            flat.Remove(connecting[i]);
        }
    }
    const cow_List<cow_String> parts = inpM_Utils::SortedKeys(assignment);
    m_meshOnly = parts.Count() == 1 && connecting.IsEmpty();
    for (int p = 0; p < parts.Count(); ++p) MoveElements(parts[p], assignment.ConstGet(parts[p]));
    m_meshOnly = false;
}

bool inp_FakePartVisitor::MeshTakesAllNodes() const {
    const cow_String part1(kPart1);
    const inp_CoordMap* flat = FlatNodes();
    if (!m_meshOnly || !flat) return false;
    cow_ConstMapIterator<cow_String, cow_1DArrayList<int>> refs(partRefNodes);
    for (refs.First(); !refs.IsDone(); refs.Next())
        if (!(refs.CurrentKey() == part1) && !refs.CurrentValue().IsEmpty()) return false;
    const cow_List<cow_String> holders = partCoordinates.InstanceNames();
    for (int h = 0; h < holders.Count(); ++h) {
        const inp_CoordMap& nodes = partCoordinates.instances.ConstGet(holders[h]).ConstGet();
        if (!(holders[h] == part1)) {
            if (nodes.Count() > 0) return false;
            continue;
        }
        // PART-1's reference nodes came from the flat model; one that did not would be lost.
        omi_IntTableIterator<inp_Coord> it(nodes.coords.ConstGet());
        for (it.First(); !it.IsDone(); it.Next())
            if (!flat->HasId(it.CurrentKey())) return false;
    }
    return true;
}

// The usual flat deck is one mesh that goes whole to one part. Its table is then handed
// over as it stands instead of copied record by record, which for a large mesh would be
// most of the conversion's time and twice its memory.
bool inp_FakePartVisitor::HandOverWholeTable(const cow_String& part, const cow_1DArrayList<int>& ids) {
    const cow_String fake(inp_Types::fakeName());
    if (!flatElements.IsMember(fake) || !flatElements.GetMap(fake).item.HasValue()) return false;
    if (partElements.IsMember(part) && partElements.ConstGet(part).Count() > 0) return false;
    const omi_IntTable<inp_Element>& flat = flatElements.ConstGet(fake);
    if (ids.Count() != flat.Count()) return false;
    for (int i = 0; i < ids.Count(); ++i)
        if (!flat.HasKey(ids[i])) return false;
    if (!partElements.IsMember(part)) partElements.Insert(part, omi_IntTable<inp_Element>());
    partElements.GetMap(part).item = flatElements.GetMap(fake).item;
    flatElements.GetMap(fake).item = new omi_IntTable<inp_Element>();

    const inp_CoordMap* flatNodes = FlatNodes();
    if (part == cow_String(kPart1) && MeshTakesAllNodes()) PartNodes(part).coords = flatNodes->coords;
    inp_CoordMap& nodes = PartNodes(part);
    omi_IntTableIterator<inp_Element> it(partElements.ConstGet(part));
    for (it.First(); !it.IsDone(); it.Next()) CopyNodesOf(it.CurrentValue(), nodes, flatNodes);
    return true;
}

// Each node of the element that the part lacks comes from the flat model, or stands at
// the origin, marked undefined, when the flat model lacks it too.
void inp_FakePartVisitor::CopyNodesOf(const inp_Element& element, inp_CoordMap& nodes,
                                      const inp_CoordMap* flatNodes) {
    inp_Coord undefined;
    undefined.isDefined = false;
    for (int n = 0; n < element.numNodes; ++n) {
        const int node = element.nodes[n];
        if (node == 0 || nodes.HasId(node)) continue;
        nodes.Insert(node, flatNodes && flatNodes->HasId(node) ? flatNodes->ConstGet(node) : undefined);
    }
}

void inp_FakePartVisitor::MoveElements(const cow_String& part, const cow_1DArrayList<int>& ids) {
    if (HandOverWholeTable(part, ids)) return;
    omi_IntTable<inp_Element>& flat = WritableFlatElements();
    omi_IntTable<inp_Element>& target = PartElementTable(part);
    inp_CoordMap& nodes = PartNodes(part);
    const inp_CoordMap* flatNodes = FlatNodes();
    for (int i = 0; i < ids.Count(); ++i) {
        if (!flat.HasKey(ids[i])) continue;
        const inp_Element& element = flat.ConstGet(ids[i]);
        target.Insert(ids[i], element);
        CopyNodesOf(element, nodes, flatNodes);
    }
    for (int i = 0; i < ids.Count(); ++i) flat.Remove(ids[i]);
}

// ---- the new keyword list ------------------------------------------------------------

void inp_FakePartVisitor::BuildKeywordList(cow_1DArrayList<inp_Keyword>& result) {
    const cow_String part1(kPart1);
    const cow_List<cow_String> refParts = inpM_Utils::SortedKeys(partRefNodes);
    for (int p = 0; p < refParts.Count(); ++p) {
        const cow_String& part = refParts[p];
        const cow_1DArrayList<int> refNodes = partRefNodes.ConstGet(part);
        for (int i = 0; i < refNodes.Count(); ++i) {
            const int id = refNodes[i];
            const inp_CoordMap* nodes =
                partCoordinates.instances.IsMember(part) ? &partCoordinates.instances.ConstGet(part).ConstGet() : nullptr;
            if (!nodes || !nodes->HasId(id)) {
                errors.Append(atr_Format(
                    "The coordinates of the reference node \"%1$s\" which is assigned to part: \"%2$s\" cannot be found.",
                    cow_String(id), part));
                continue;
            }
            const inp_Coord c = nodes->ConstGet(id);
            char line[128];
            std::snprintf(line, sizeof line, "%i, %lg, %lg, %lg", id, c.x, c.y, c.z);
            inp_Keyword node(inp_kwNode);
            node.data.Append(line);
            PartList(part).Append(node);
        }
    }
    PartList(part1).Append(partKeywords);

    const cow_List<cow_String> parts = inpM_Utils::SortedKeys(partLists);
    for (int p = 0; p < parts.Count(); ++p) {
        result.Append(partLists.ConstGet(parts[p]));
        result.Append(inp_Keyword(inp_kwEndPart));
    }
    result.Append(modelKeywords);
    AddAssemblyElements();
    result.Append(NewKeyword(inp_kwAssembly, {{"name", cow_String(kAssemblyName)}}));
    for (int p = 0; p < parts.Count(); ++p) {
        const cow_String instance = parts[p] + kInstanceSuffix;
        inp_Keyword keyword = NewKeyword(inp_kwInstance, {{"name", instance}, {"part", parts[p]}});
        if (partTransforms.IsMember(parts[p])) AddInstanceTransform(keyword, partTransforms.ConstGet(parts[p]));
        result.Append(keyword);
        result.Append(inp_Keyword(inp_kwEndInstance));
        instanceToPart.Insert(instance, parts[p]);
    }
    result.Append(assemblyKeywords);
    result.Append(inp_Keyword(inp_kwEndAssembly));
    for (int s = 0; s < stepOrder.Count(); ++s) result.Append(stepLists.ConstGet(stepOrder[s]));
    AddElementKeywords(result);
}

void inp_FakePartVisitor::AddInstanceTransform(inp_Keyword& instance, const gsl_Matrix& matrix) const {
    auto number = [](double value) { return cow_String(atr_StringBase(value)); };
    gsl_Vector translation;
    matrix.GetTranslation(translation);
    instance.data.Append(
        (number(translation.x) + ", " + number(translation.y) + ", " + number(translation.z)).c_str());
    gsl_Point point;
    gsl_Vector axis;
    double angle = 0.0;
    matrix.GetAxisRotation(point, axis, angle);
    const double degrees = angle * 180.0 / std::acos(-1.0);
    if (std::fabs(degrees) <= omi_Singleton<gsl_Util>::Instance().tolerance) return;
    // The second line turns about an axis through the translated origin: after the
    // whole translation t, that turn gives R p + t again.
    point = gsl_Point(translation.x, translation.y, translation.z);
    const cow_String line = number(point.x) + ", " + number(point.y) + ", " + number(point.z) + ", " +
                            number(point.x + axis.x) + ", " + number(point.y + axis.y) + ", " +
                            number(point.z + axis.z) + ", " + number(degrees);
    instance.data.Append(line.c_str());
}

void inp_FakePartVisitor::AddElementKeywords(cow_1DArrayList<inp_Keyword>& result) const {
    // The assembly level first: its *ELEMENT keywords go ahead of the first *END ASSEMBLY.
    if (partElements.item.HasValue()) {
        const cow_List<cow_String> types = TypesOf(partElements.ConstGet());
        int at = 0;
        while (at < result.Count() && result[at].keyword != inp_kwEndAssembly) ++at;
        for (int t = 0; t < types.Count(); ++t)
            result.Insert(at++, NewKeyword(inp_kwElement, {{"type", types[t]}}));
    }
    const cow_List<cow_String> parts = partElements.Instances();
    for (int p = 0; p < parts.Count(); ++p) {
        const omi_IntTable<inp_Element>& table = partElements.ConstGet(parts[p]);
        const cow_List<cow_String> types = TypesOf(table);
        if (types.IsEmpty()) continue;
        // That part's *END PART.
        int at = 0;
        cow_String open;
        for (; at < result.Count(); ++at) {
            const inp_Keyword& keyword = result[at];
            if (keyword.keyword == inp_kwPart) open = ParameterText(keyword, "name");
            if (keyword.keyword == inp_kwEndPart && open == parts[p]) break;
        }
        if (at == result.Count()) continue;
        for (int t = 0; t < types.Count(); ++t) {
            inp_Keyword element = NewKeyword(inp_kwElement, {{"type", types[t]}});
            // Connectors and point elements stand for themselves: their lines are kept.
            if (ContainsAny(types[t], {"SPRING", "DASHPOT", "MASS", "ROTARYI", "HEATCAP"})) {
                omi_IntTableIterator<inp_Element> it(table);
                for (it.First(); !it.IsDone(); it.Next()) {
                    if (it.CurrentValue().type != types[t]) continue;
                    cow_String line(it.CurrentKey());
                    for (int n = 0; n < it.CurrentValue().numNodes; ++n)
                        line.append(", ").append(cow_String(it.CurrentValue().nodes[n]));
                    element.data.Append(line.c_str());
                }
            }
            result.Insert(at++, element);
        }
    }
}

void inp_FakePartVisitor::AddAssemblyElements() { AddAssemblyElementKeywords(false); }

void inp_FakePartVisitor::AddAssemblyElementKeywords(bool singlePart) {
    if (!partElements.item.HasValue()) return;
    omi_IntTableIterator<inp_Element> it(partElements.ConstGet());
    for (it.First(); !it.IsDone(); it.Next()) {
        const inp_Element& element = it.CurrentValue();
        inp_Keyword keyword = NewKeyword(inp_kwElement, {{"type", element.type}});
        cow_String line(it.CurrentKey());
        for (int n = 0; n < element.numNodes; ++n) {
            const int node = element.nodes[n];
            const cow_List<cow_String> holders = singlePart ? cow_List<cow_String>() : HoldersOf(node);
            const cow_String scope = holders.IsEmpty() ? cow_String(kScopePrefix) : holders[0] + kInstanceSuffix + ".";
            line.append(", ").append(scope).append(cow_String(node));
        }
        keyword.data.Append(line.c_str());
        assemblyKeywords.Append(keyword);
    }
}

// ---- everything in PART-1 ------------------------------------------------------------

void inp_SimpleFakePartVisitor::VisitRigidSurface(inp_Keyword& keyword) {
    cow_String name;
    bool unnamed = false;
    if (!ResolveRigidName(keyword, name, unnamed)) return;
    EnsurePart(cow_String(kPart1));
    PartList(cow_String(kPart1)).Append(keyword);
    AddSurface(cow_String(kPart1), name, unnamed);
}

void inp_SimpleFakePartVisitor::VisitRigidBody(inp_Keyword& keyword) {
    EnsurePart(cow_String(kPart1));
    assemblyKeywords.Append(keyword);
}

void inp_SimpleFakePartVisitor::GetConvertedKeywords(cow_1DArrayList<inp_Keyword>& result) {
    EnsureRigidPart(cow_String(kPart1));
    AssignElements(IdsOf(FlatElementTable()), cow_1DArrayList<int>());
    BuildKeywordList(result);
}

void inp_SimpleFakePartVisitor::AssignElements(const cow_1DArrayList<int>& plain, const cow_1DArrayList<int>& other) {
    cow_1DArrayList<int> ids(plain);
    ids.Append(other);
    for (int i = 0; i < connectionKeywords.Count(); ++i) {
        if (connectionKeywords[i].HasParameter(cow_String("elset")))
            PartList(cow_String(kPart1)).Append(connectionKeywords[i]);
        else
            assemblyKeywords.Append(connectionKeywords[i]);
    }
    MoveElements(cow_String(kPart1), ids);
}

void inp_SimpleFakePartVisitor::MoveElements(const cow_String& part, const cow_1DArrayList<int>& ids) {
    if (const inp_CoordMap* flat = FlatNodes()) PartNodes(part) = *flat;
    inp_FakePartVisitor::MoveElements(part, ids);
}

void inp_SimpleFakePartVisitor::AddAssemblyElements() { AddAssemblyElementKeywords(true); }
