// The frame of the transformation pass: the walk, the blocks that set the matrix, and
// the geometry shared by the keyword operations (inp_TransformationKeywords.cpp).
#include "inp_TransformationVisitor.h"

#include <algorithm>
#include <cmath>
#include <type_traits>

#include "inp_TransformationText.h"

using namespace inp_transform;

inp_TransformationVisitor::inp_TransformationVisitor(
    const inpM_InstanceMap<gsl_Matrix>& transformations, const cow_1DArrayList<int>& transformed,
    inpM_SetMap& sets, const inpM_IdMap& ids, bool replaceSystems, const inp_CoordMap& coords,
    const inpM_InstanceMap<omi_IntTable<inp_Element>>& elementTables, const inpM_SetMap& elsets)
    : instanceTransformations(transformations),
      transformedNodes(transformed),
      nodeSets(sets),
      nodeIds(ids),
      coordinates(coords),
      elements(elementTables),
      elementSets(elsets),
      replaceLocalSystems(replaceSystems) {}

inp_TransformationVisitor::~inp_TransformationVisitor() = default;

void inp_TransformationVisitor::Visit(inp_Keyword& keyword) {
    inp_Keyword copy = keyword;
    switch (static_cast<int>(keyword.keyword)) {
#define INP_TRANSFORM_CASE(Ident)   \
    case inp_kw##Ident:             \
        Visit##Ident(copy);         \
        return;
        INP_TRANSFORM_OPERATIONS(INP_TRANSFORM_CASE)
#undef INP_TRANSFORM_CASE
        default:
            EmitKeyword(copy);
    }
}

void inp_TransformationVisitor::DefaultAction(inp_Keyword&) {}

void inp_TransformationVisitor::EmitKeyword(inp_Keyword keyword) {
    cow_1DArrayList<inp_Keyword> outer;
    std::swap(outer, output);
    for (int i = 0; i < keyword.suboptions.Count(); ++i) {
        inp_Keyword suboption = keyword.suboptions.ConstGet(i);
        Visit(suboption);
    }
    keyword.suboptions = output;
    std::swap(outer, output);
    output.Append(keyword);
}

// Blocks.

void inp_TransformationVisitor::VisitAssembly(inp_Keyword& keyword) {
    currentTransformation = instanceTransformations.ConstGet();
    assemblyName = ParameterText(keyword, "name");
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitInstance(inp_Keyword& keyword) {
    SetInstanceName(keyword);
    // An instance the node pass never placed (no part, or an earlier job's) stays put.
    currentTransformation = instanceTransformations.IsMember(instanceName)
                                ? instanceTransformations.ConstGet(instanceName)
                                : gsl_Matrix();
    setCounter = 0;
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitPart(inp_Keyword& keyword) {
    SetPartName(keyword);
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitEndInstance(inp_Keyword& keyword) {
    EmitKeyword(keyword);
    instanceName = cow_String();
    setCounter = 0;
    currentTransformation = instanceTransformations.ConstGet();
}

void inp_TransformationVisitor::VisitEndAssembly(inp_Keyword& keyword) {
    EmitKeyword(keyword);
    assemblyName = cow_String();
    currentTransformation.FillIdentity();
}

void inp_TransformationVisitor::VisitEndPart(inp_Keyword& keyword) {
    EmitKeyword(keyword);
    partName = cow_String();
}

// Nodes travel in the coordinate map.
void inp_TransformationVisitor::VisitNode(inp_Keyword&) {}

// Geometry.

const cow_String& inp_TransformationVisitor::Scope() const { return partName.IsEmpty() ? instanceName : partName; }

bool inp_TransformationVisitor::Guard(inp_Keyword& keyword) const {
    if (Scope().IsEmpty() || currentTransformation.IsIdentity() || Lines(keyword) == 0) return false;
    // Copies of a keyword share its array: the input must not see the rewriting.
    keyword.data = inp_DataArray(keyword.data.Clone());
    return true;
}

void inp_TransformationVisitor::TransformPointAt(inp_Keyword& keyword, int line, int column) {
    if (!HasItem(keyword, line, column)) return;
    gsl_Point p = PointAt(keyword.data, line, column);
    currentTransformation.Transform(p);
    WriteTriple(keyword.data, line, column, p.x, p.y, p.z);
}

void inp_TransformationVisitor::TransformVectorAt(inp_Keyword& keyword, int line, int column) {
    if (!HasItem(keyword, line, column)) return;
    gsl_Vector v = VectorAt(keyword.data, line, column);
    currentTransformation.Transform(v);
    WriteTriple(keyword.data, line, column, v.x, v.y, v.z);
}

inp_Keyword inp_TransformationVisitor::TransformAxes(const inp_Keyword& keyword, bool rectangular) const {
    inp_Keyword result = keyword;
    result.data = NewData();
    const int lines = Lines(keyword);
    LineText first;
    auto turn = [&](auto a, auto b) {
        currentTransformation.Transform(a);
        currentTransformation.Transform(b);
        if constexpr (std::is_same_v<decltype(a), gsl_Vector>) {
            CleanVector(a);
            CleanVector(b);
        } else {
            CleanPoint(a);
            CleanPoint(b);
        }
        first.Add(a);
        first.Add(b);
    };
    // Without data the axis points are at the origin.
    if (rectangular)
        turn(VectorAt(keyword.data, 0, 0), VectorAt(keyword.data, 0, 3));
    else
        turn(PointAt(keyword.data, 0, 0), PointAt(keyword.data, 0, 3));
    result.data.Append(first.c_str());
    for (int line = 1; line < lines; ++line) result.data.Append(CopiedLine(keyword.data, line, false).c_str());
    return result;
}

// The rule of the node passes: what lies below the precision of the largest
// component is round-off of a rotation.
void inp_TransformationVisitor::CleanVector(gsl_Vector& v) {
    inp_Coord c;
    c.x = v.x, c.y = v.y, c.z = v.z;
    inp_node::Snap(c);
    v = gsl_Vector(c.x, c.y, c.z);
}

void inp_TransformationVisitor::CleanPoint(gsl_Point& p) {
    inp_Coord c;
    c.x = p.x, c.y = p.y, c.z = p.z;
    inp_node::Snap(c);
    p = gsl_Point(c.x, c.y, c.z);
}

int inp_TransformationVisitor::FindStartLine(const inp_Keyword& keyword, int& count) {
    count = 0;
    const int lines = Lines(keyword);
    for (int line = 0; line < lines; ++line) {
        if (!keyword.data.HasValue(line, 0)) continue;
        if (keyword.data.AsString(line, 0) == "START") return line;
        ++count;
    }
    return lines;
}

// Nodes of the scope.

bool inp_TransformationVisitor::NodeCoordinate(int localId, gsl_Point& global) const {
    const inpM_IdMap& ids = nodeIds.ConstGet(Scope());
    if (!ids.HasId(localId)) return false;
    const int id = ids.ConstGet(localId);
    const inp_CoordMap* map = &coordinates;
    if (const inp_CoordMap::Handle* nested = coordinates.instances.Lookup(Scope())) map = &nested->ConstGet();
    if (!map->HasId(id)) return false;
    const inp_Coord coord = map->ConstGet(id);
    global = gsl_Point(coord.x, coord.y, coord.z);
    return true;
}

void inp_TransformationVisitor::Cylindrical(const gsl_Point& global, double& dr, double& dtheta) const {
    gsl_Point p = global;
    currentTransformation.InverseRigidTransform().Transform(p);
    const double r = std::sqrt(p.x * p.x + p.y * p.y) + dr;
    const double theta = std::atan(p.y / p.x) + dtheta * kPi / 180.0;
    dr = r * std::cos(theta) - p.x;
    dtheta = r * std::sin(theta) - p.y;
}

void inp_TransformationVisitor::Spherical(const gsl_Point& global, double& dr, double& dtheta, double& dphi) const {
    gsl_Point p = global;
    currentTransformation.InverseRigidTransform().Transform(p);
    const double r = std::sqrt(p.x * p.x + p.y * p.y + p.z * p.z) + dr;
    const double theta = std::atan(p.y / p.x) + dtheta * kPi / 180.0;
    const double phi = std::atan(p.z / std::sqrt(p.x * p.x + p.y * p.y)) + dphi * kPi / 180.0;
    dr = r * std::cos(phi) * std::cos(theta) - p.x;
    dtheta = r * std::cos(phi) * std::sin(theta) - p.y;
    dphi = r * std::sin(phi) - p.z;
}

bool inp_TransformationVisitor::LocalIdsOfSet(const cow_String& name, cow_1DArrayList<int>& ids) const {
    if (!nodeSets.HasNestedSet(Scope(), name)) return false;
    // Members hold the system's numbers; the deck speaks in the scope's own.
    inpM_IdMap back;
    omi_IntTableIterator<int> it(nodeIds.ConstGet(Scope()).ids.ConstGet());
    for (it.First(); !it.IsDone(); it.Next()) back.Insert(it.CurrentValue(), it.CurrentKey());
    ids = back.Renumber(nodeSets.ConstGetNestedSet(Scope(), name).ConstGetIds(), true);
    return true;
}
