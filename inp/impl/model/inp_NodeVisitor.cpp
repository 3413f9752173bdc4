#include "inp_NodeVisitor.h"

#include "atr_String.h"
#include "gsl_Point.h"
#include "gsl_Vector.h"
#include "inp_NodeGeometry.h"
#include "inp_Utils.h"

namespace {

using inp_node::Has;
using inp_node::Text;
using inp_node::Triple;

// Every node of each element of `ids` that the table holds, in the order of the
// elements; the ids the table lacks go to `unknown`.
cow_1DArrayList<int> Connectivity(const omi_IntTable<inp_Element>& table, const cow_1DArrayList<int>& ids,
                                  cow_1DArrayList<int>* unknown) {
    cow_1DArrayList<int> nodes;
    for (int i = 0; i < ids.Count(); ++i) {
        const int id = ids.ConstGet(i);
        if (!table.HasKey(id)) {
            if (unknown) unknown->Append(id);
            continue;
        }
        const inp_Element& element = table.ConstGet(id);
        for (int n = 0; n < element.numNodes; ++n) nodes.Append(element.nodes[n]);
    }
    return nodes;
}

// The table of a scope; an empty one for a scope the map does not know, which has no
// elements to offer (asking the map would report the scope as unknown).
const omi_IntTable<inp_Element>& TableOf(const inpM_ElementMap& elements, const cow_String& scope) {
    static const omi_IntTable<inp_Element> none;
    return elements.IsMember(scope) ? elements.ConstGet(scope) : none;
}

}  // namespace

inp_NodeVisitor::inp_NodeVisitor(bool compute) : computeCoordinates(compute) {}

inp_NodeVisitor::inp_NodeVisitor(const inpM_ElementMap& elementMap, const inpM_SetMap& sets, bool compute)
    : elements(elementMap), elementSets(sets), computeCoordinates(compute) {}

inp_NodeVisitor::inp_NodeVisitor(const inpM_ElementMap& elementMap, const inpM_SetMap& sets,
                                 const inpM_SetMap& givenSets, bool compute)
    : elements(elementMap), elementSets(sets), searchAllInstances(!givenSets.IsEmpty()), computeCoordinates(compute) {
    setMap = givenSets;
}

inp_NodeVisitor::~inp_NodeVisitor() = default;

cow_String inp_NodeVisitor::KeywordName() const { return cow_String("*NODE"); }

bool inp_NodeVisitor::IsValidScope(const cow_String& name) const { return name == KeywordScope(); }

void inp_NodeVisitor::VisitNset(inp_Keyword& keyword) {
    if (Has(keyword, "generate") && Has(keyword, "elset")) {
        errors.Append(
            inp_Utils::MessageInKeyword(keyword, atr_raw("The ELSET and GENERATE parameters are mutually exclusive. ")));
        return;
    }
    if (!Has(keyword, "nset")) {
        errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw("NSET parameter is required.")));
        return;
    }
    ApplyInstanceParameter(keyword);
    const bool internal = Has(keyword, "internal");
    const bool unsorted = Has(keyword, "unsorted");
    const cow_String name = Text(keyword, "nset");
    if (unsorted && Has(keyword, "elset")) {
        errors.Append(inp_Utils::MessageInKeyword(
            keyword, atr_raw("The UNSORTED parameter cannot be used with the ELSET parameter. ")));
        return;
    }
    if (Has(keyword, "elset")) {
        NodesOfElementSet(keyword, name, internal);
        return;
    }
    const bool generate = Has(keyword, "generate");
    if (KeywordScope().IsEmpty()) {
        const inpM_SetHandle set = generate ? GenerateAssemblySet(name, keyword, internal, unsorted)
                                            : ReadAssemblySet(name, setMap, keyword, internal, unsorted);
        AddAssemblySet(name, *set, true);
    } else {
        const inpM_SetHandle set = generate ? GenerateSet(name, keyword, internal, unsorted)
                                            : ReadSet(name, keyword, internal, unsorted, searchAllInstances);
        AddSet(name, *set, true);
    }
}

void inp_NodeVisitor::NodesOfElementSet(const inp_Keyword& keyword, const cow_String& name, bool internal) {
    const cow_String elset = Text(keyword, "elset");
    const cow_String& scope = KeywordScope();
    auto notFound = [&]() {
        errors.Append(inp_Utils::MessageInKeyword(keyword, atr_Format("Element set %s does not exist.", elset)));
    };
    inpM_SetHandle set = CreateSet(internal, false);
    if (!scope.IsEmpty()) {
        if (!elementSets.HasNestedSet(scope, elset)) return notFound();
        const omi_IntTable<inp_Element>& table = TableOf(elements, scope);
        set.Get().Add(Connectivity(table, elementSets.ConstGetNestedSet(scope, elset).ConstGetIds(), nullptr));
        AddSet(name, *set, false);
        return;
    }
    const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(elset);
    if (segments.Count() > 1) {
        const cow_String& instance = segments.ConstGet(0);
        if (!elementSets.HasNestedSet(instance, segments.Last())) return notFound();
        const cow_1DArrayList<int> ids = elementSets.ConstGetNestedSet(instance, segments.Last()).ConstGetIds();
        set.Get().Add(instance, Connectivity(TableOf(elements, instance), ids, nullptr));
        AddAssemblySet(name, *set, false);
        return;
    }
    if (!elementSets.IsMember(elset)) return notFound();
    const inpM_BaseSet& elementSet = elementSets.ConstGetSet(elset);
    cow_1DArrayList<int> unknown;
    cow_1DArrayList<int> nodes = Connectivity(elements.ConstGet(), elementSet.ConstGetTopLevelIds(), &unknown);
    if (!unknown.IsEmpty()) {
        errors.Append(inp_Utils::MessageInKeyword(
            keyword, atr_Format("The following elements from elset %s are not found at assembly level", elset),
            unknown));
        return;
    }
    set.Get().Add(nodes);
    const cow_Map<cow_String, cow_1DArrayList<int>> byInstance = elementSet.ConstGetInstanceIdsMap();
    cow_ConstMapIterator<cow_String, cow_1DArrayList<int>> it(byInstance);
    for (it.First(); !it.IsDone(); it.Next()) {
        const cow_String& instance = it.CurrentKey();
        nodes = Connectivity(TableOf(elements, instance), it.CurrentValue(), &unknown);
        if (!unknown.IsEmpty()) {
            errors.Append(inp_Utils::MessageInKeyword(
                keyword,
                atr_Format("The following elements from elset %s are not found at part instance %s", elset, instance),
                unknown));
            return;
        }
        set.Get().Add(instance, nodes);
    }
    AddAssemblySet(name, *set, false);
}

inp_PartNodeVisitor::inp_PartNodeVisitor(const inpM_ElementMap& elementMap, const inpM_SetMap& sets)
    : inp_NodeVisitor(elementMap, sets, true) {}

void inp_PartNodeVisitor::Visit(inp_Keyword& keyword) {
    if (keyword.keyword != inp_kwAssembly) inp_NodeVisitor::Visit(keyword);
}

void inp_PartNodeVisitor::VisitPart(inp_Keyword& keyword) {
    inp_NodeVisitor::VisitPart(keyword);
    if (partName.IsEmpty()) return;
    coordMap.instances.Insert(partName, inp_CoordMap::Handle(new inp_CoordMap()));
    systemTransform.FillIdentity();
}

// Keywords outside a part are not this pass's business.
#define INP_PART_LEVEL_ONLY(Operation) \
    void inp_PartNodeVisitor::Operation(inp_Keyword& keyword) { \
        if (!partName.IsEmpty()) inp_NodeVisitor::Operation(keyword); \
    }
INP_PART_LEVEL_ONLY(VisitNcopy)
INP_PART_LEVEL_ONLY(VisitNfill)
INP_PART_LEVEL_ONLY(VisitNgen)
INP_PART_LEVEL_ONLY(VisitNmap)
INP_PART_LEVEL_ONLY(VisitNode)
INP_PART_LEVEL_ONLY(VisitNset)
INP_PART_LEVEL_ONLY(VisitSystem)
#undef INP_PART_LEVEL_ONLY

inp_AssemblyNodeVisitor::inp_AssemblyNodeVisitor(const inpM_ElementMap& elementMap, const inpM_SetMap& sets,
                                                 const inp_CoordMap& parts, const inpM_SetMap& partNodeSets,
                                                 bool symmetricModelGeneration, bool compute)
    : inp_NodeVisitor(elementMap, sets, compute),
      partCoordMap(parts),
      partSets(partNodeSets),
      hasSymmetricModelGeneration(symmetricModelGeneration) {}

void inp_AssemblyNodeVisitor::Visit(inp_Keyword& keyword) {
    if (keyword.keyword != inp_kwPart) inp_NodeVisitor::Visit(keyword);
}

void inp_AssemblyNodeVisitor::VisitInstance(inp_Keyword& keyword) {
    SetInstanceName(keyword);
    const bool imported = importedInstances.IsMember(instanceName);
    cow_String part;
    if (imported) {
        if (instanceToPart.IsMember(instanceName)) part = instanceToPart.ConstGet(instanceName);
        if (importedSets.instances.IsMember(instanceName))
            setMap.InsertNestedSetMap(instanceName, importedSets.ConstGetNestedSetMap(instanceName));
    } else if (Has(keyword, "part")) {
        part = Text(keyword, "part");
        coordMap.instances.Insert(instanceName, inp_CoordMap::Handle(new inp_CoordMap()));
        if (partSets.instances.IsMember(part))
            setMap.InsertNestedSetMap(instanceName, partSets.ConstGetNestedSetMap(part));
    }
    const inp_DataArray& data = keyword.data;
    if (data.NumberOfLines() > 0) {
        const gsl_Point origin(0.0, 0.0, 0.0);
        const gsl_Point shift = imported ? origin : Triple(data, 0, 0);
        instanceTransform.SetTranslation(gsl_Vector(origin, shift));
        if (!imported && data.NumberOfLines() > 1) {
            const gsl_Point a = Triple(data, 1, 0), b = Triple(data, 1, 3);
            const double angle = data.HasValue(1, 6) ? data.AsDouble(1, 6) : 0.0;
            gsl_Vector axis(a, b);
            if (!axis.Normalize())
                errors.Append(
                    atr_raw("The points defining the axis of rotation are coincident or almost coincident."));
            gsl_Matrix rotation;
            rotation.AxisRotation(b, axis, angle * 3.141592653589793 / 180.0);
            instanceTransform.Concatenate(rotation);
        }
    }
    if (!imported && !part.IsEmpty() && partCoordMap.instances.IsMember(part)) {
        inp_CoordMap placed = partCoordMap.instances.ConstGet(part).ConstGet();
        if (!instanceTransform.IsIdentity()) placed.ConcatenateTransformation(instanceTransform);
        coordMap.instances.Insert(instanceName, inp_CoordMap::Handle(new inp_CoordMap(placed)));
    }
    transforms.Insert(instanceName, instanceTransform);
}

void inp_AssemblyNodeVisitor::VisitEndInstance(inp_Keyword& keyword) {
    inp_NodeVisitor::VisitEndInstance(keyword);
    instanceTransform.FillIdentity();
    systemTransform.FillIdentity();
}

void inp_AssemblyNodeVisitor::VisitStep(inp_Keyword& keyword) { inp_NodeVisitor::VisitStep(keyword); }

void inp_AssemblyNodeVisitor::VisitEndStep(inp_Keyword&) { stepName = cow_String(); }

void inp_AssemblyNodeVisitor::VisitNset(inp_Keyword& keyword) {
    if (hasSymmetricModelGeneration && Has(keyword, "elset")) {
        // The generated model makes this set itself; only its name is kept.
        inp_Keyword plain(inp_kwNset);
        plain.fileName = keyword.fileName;
        plain.lineNumber = keyword.lineNumber;
        if (const inp_Item* name = keyword.parameters.Lookup(cow_String("nset")))
            plain.parameters.Insert(cow_String("nset"), *name);
        inp_NodeVisitor::VisitNset(plain);
        return;
    }
    CheckPartSetRedefined(keyword, "nset", partSets, instanceToPart,
                          "The node set %1$s was defined within part %2$s, then redefined within part instance %3$s. "
                          "A node set cannot be defined at the part level, then modified at the part instance level.");
    inp_NodeVisitor::VisitNset(keyword);
}

bool inp_AssemblyNodeVisitor::IsValidScope(const cow_String& name) const { return IsScopeOrInstance(name); }
