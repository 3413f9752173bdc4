#include "inp_SurfaceVisitor.h"

#include <cstdlib>

#include "atr_String.h"
#include "inpM_SurfaceFacet.h"
#include "inpM_Utils.h"
#include "inp_NodeGeometry.h"
#include "inp_Types.h"
#include "inp_Utils.h"
#include "shp_ShapeDictionary.h"
#include "thr_ThreadSingleton.h"
#include "wip_WIP.h"

using inp_node::Has;
using inp_node::Text;
using inp_node::Triple;

namespace {

// The ids of a line as a surface of the kind being read: nodes with the line's area,
// or elements with the line's face.
inpM_SurfaceHandle Taken(bool nodes, const cow_1DArrayList<int>& ids, double area, const cow_String& faceId) {
    if (nodes) {
        inpM_NodeAreaSurface* surface = new inpM_NodeAreaSurface();
        surface->Add(ids, area);
        return inpM_SurfaceHandle(surface);
    }
    inpM_ElementFaceIdSurface* surface = new inpM_ElementFaceIdSurface();
    surface->Add(faceId, ids);
    return inpM_SurfaceHandle(surface);
}

cow_1DArrayList<int> One(int id) {
    cow_1DArrayList<int> ids;
    ids.Append(id);
    return ids;
}

// A new surface of the kind being read, internal when the keyword says so.
inpM_SurfaceHandle NewSurface(bool nodes, const inp_Keyword& keyword) {
    inpM_SurfaceHandle surface = CreateSurface(nodes ? inpM_NodeSurface : inpM_ElementSurface);
    surface.Get().internal = Has(keyword, "internal");
    return surface;
}

// What the second item of a line says: the area of its nodes, or the face of its
// elements. A CROP line has neither.
struct LineExtra {
    double area = 1.0;
    cow_String faceId;
};

LineExtra ReadExtra(const inp_DataArray& data, int line, bool nodes, bool crop) {
    LineExtra extra;
    if (crop || data.NumberOfItems(line) < 2) return extra;
    if (!nodes)
        extra.faceId = data.AsString(line, 1);
    else if (data.Type(line, 1) == inp_Types::typeDouble)
        extra.area = data.AsDouble(line, 1);
    return extra;
}

void Combine(const cow_String& how, inpM_PartInstanceSurface& result, const inpM_PartInstanceSurface& other) {
    if (how == "UNION")
        result.Add(other);
    else if (how == "INTERSECTION")
        result.Intersection(other);
    else if (how == "DIFFERENCE")
        result.Difference(other);
}

int FirstLine(const inp_Keyword& keyword) { return Text(keyword, "type") == "CUTTINGSURFACE" ? 1 : 0; }

// The lines a surface is read from: all from the first, or the first alone for CROP.
struct LineRange {
    int first;
    int end;
};

LineRange LinesOf(const inp_Keyword& keyword) {
    const int first = FirstLine(keyword), lines = keyword.data.NumberOfLines();
    const int end = Has(keyword, "crop") && first + 1 < lines ? first + 1 : lines;
    return LineRange{first, end};
}

const char kNotNamed[] = " <not named>";

}  // namespace

inp_SurfaceVisitor::inp_SurfaceVisitor(const inpM_SetMap& elementSetMap, const inpM_SetMap& nodeSetMap,
                                       const inpM_ElementMap& elementMap, const inp_CoordMap& coordinates)
    : elementSets(elementSetMap), nodeSets(nodeSetMap), elements(elementMap), coordMap(coordinates) {}

inp_SurfaceVisitor::~inp_SurfaceVisitor() = default;

void inp_SurfaceVisitor::DefaultAction(inp_Keyword&) {}

cow_String inp_SurfaceVisitor::SurfaceType(const inp_Keyword& keyword) {
    const cow_String type = Text(keyword, "type");
    if (type == "NODE" || inp_Utils::IsAnalyticalSurfaceType(type)) return type;
    return cow_String("ELEMENT");
}

const inp_CoordMap& inp_SurfaceVisitor::CoordinatesOf(const cow_String& scope) const {
    static const inp_CoordMap none;
    if (scope.IsEmpty()) return coordMap;
    return coordMap.instances.IsMember(scope) ? coordMap.instances.ConstGet(scope).ConstGet() : none;
}

const omi_IntTable<inp_Element>& inp_SurfaceVisitor::ElementsOf(const cow_String& scope) const {
    static const omi_IntTable<inp_Element> none;
    if (scope.IsEmpty()) return elements.ConstGet();
    return elements.IsMember(scope) ? elements.ConstGet(scope) : none;
}

void inp_SurfaceVisitor::VisitSurface(inp_Keyword& keyword) {
    cow_String type = SurfaceType(keyword);
    if (inp_Utils::IsAnalyticalSurfaceType(type) && partName.IsEmpty() && instanceName.IsEmpty()) {
        errors.Append(atr_raw("When the *SURFACE option is used to define an analytical surface,  it can only appear "
                              "within a part (or part instance) definition, even if the rigid body is defined at the "
                              "assembly level."));
        return;
    }
    if (Has(keyword, "combine") || Has(keyword, "crop")) type = KindOfNamedSurface(keyword, type);
    AddByType(keyword, type);
}

cow_String inp_SurfaceVisitor::KindOfNamedSurface(const inp_Keyword& keyword, const cow_String& type) const {
    const inp_DataArray& data = keyword.data;
    if (data.NumberOfLines() == 0 || data.NumberOfItems(0) == 0) return type;
    const cow_String named = data.AsString(0, 0);
    if (!surfaces.IsMemberPartInstanceSurface(Scope(), named)) return type;
    return cow_String(surfaces.ConstGetPartInstanceSurface(Scope(), named).SurfaceType() == inpM_NodeSurface ? "NODE"
                                                                                                          : "ELEMENT");
}

void inp_SurfaceVisitor::AddByType(inp_Keyword& keyword, const cow_String& type) {
    if (inp_Utils::IsAnalyticalSurfaceType(type)) {
        AddAnalyticalSurface(keyword);
        return;
    }
    isNodeSurface = type == "NODE";
    AddPlainSurface(keyword);
}

void inp_SurfaceVisitor::BuildSurface(inp_Keyword& keyword) {
    const cow_String& scope = Scope();
    const cow_String name = Text(keyword, "name");
    const inpM_SetMap& sets = isNodeSurface ? nodeSets : elementSets;
    const bool crop = Has(keyword, "crop");
    inpM_SurfaceHandle result = NewSurface(isNodeSurface, keyword);
    const inp_DataArray& data = keyword.data;
    cow_List<cow_String> missing;
    const LineRange lines = LinesOf(keyword);
    for (int line = lines.first; line < lines.end; ++line) {
        if (data.NumberOfItems(line) == 0) continue;
        const LineExtra extra = ReadExtra(data, line, isNodeSurface, crop);
        if (data.Type(line, 0) != inp_Types::typeString) {
            const int id = std::atoi(data.AsString(line, 0).c_str());
            result.Get().Add(*Taken(isNodeSurface, One(id), extra.area, extra.faceId));
            continue;
        }
        const cow_String item = data.AsString(line, 0);
        if (crop) {
            if (!surfaces.IsMemberPartInstanceSurface(scope, item)) continue;
            const CropBox box = ReadCropBox(keyword);
            if (!box.valid) continue;
            result.Get().Add(surfaces.ConstGetPartInstanceSurface(scope, item));
            Crop(result.Get(), box, CoordinatesOf(scope), ElementsOf(scope));
        } else if (sets.HasNestedSet(scope, item)) {
            const cow_1DArrayList<int> ids = sets.ConstGetNestedSet(scope, item).ConstGetIds();
            result.Get().Add(*Taken(isNodeSurface, ids, extra.area, extra.faceId));
        } else {
            missing.Append(item);
        }
    }
    surfaces.InsertPartInstanceSurface(scope, name, *result);
    if (!missing.IsEmpty())
        errors.Append(inpM_Utils::FormatCollectedErrors(
            atr_Format("The following sets were not found when generating the surface %s:", name), missing));
}

void inp_SurfaceVisitor::BuildCombinedSurface(inp_Keyword& keyword) {
    const cow_String& scope = Scope();
    const cow_String name = Text(keyword, "name");
    const cow_String how = Text(keyword, "combine");
    inpM_SurfaceHandle result = NewSurface(isNodeSurface, keyword);
    const inp_DataArray& data = keyword.data;
    cow_List<cow_String> missing;
    for (int line = FirstLine(keyword); line < data.NumberOfLines(); ++line)
        for (int item = 0; item < data.NumberOfItems(line); ++item) {
            const cow_String named = data.AsString(line, item);
            if (!surfaces.IsMemberPartInstanceSurface(scope, named)) {
                missing.Append(named);
                continue;
            }
            const inpM_PartInstanceSurface& other = surfaces.ConstGetPartInstanceSurface(scope, named);
            if (item == 0)
                result.Get().Add(other);
            else
                Combine(how, result.Get(), other);
        }
    surfaces.InsertPartInstanceSurface(scope, name, *result);
    if (!missing.IsEmpty())
        errors.Append(inpM_Utils::FormatCollectedErrors(
            atr_Format("The following surfaces were not found when generating the combined surface %s:", name),
            missing));
}

inpM_AssemblyInstanceSurface inp_SurfaceVisitor::BuildAssemblySurface(inp_Keyword& keyword) {
    inpM_AssemblyInstanceSurface result;
    result.internal = Has(keyword, "internal");
    const inpM_SetMap& sets = isNodeSurface ? nodeSets : elementSets;
    const bool crop = Has(keyword, "crop");
    const inp_DataArray& data = keyword.data;
    const LineRange lines = LinesOf(keyword);
    cow_List<cow_String> missing;
    for (int line = lines.first; line < lines.end; ++line) {
        if (data.NumberOfItems(line) == 0) continue;
        const LineExtra extra = ReadExtra(data, line, isNodeSurface, crop);
        const cow_String text = data.AsString(line, 0);
        const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(text);
        if (segments.Count() == 1) {
            if (inp_Utils::IsSetName(text)) {
                if (crop) {
                    if (!surfaces.IsMemberAssemblyInstanceSurface(text)) continue;
                    const CropBox box = ReadCropBox(keyword);
                    if (!box.valid) continue;
                    result.Add(surfaces.ConstGetAssemblyInstanceSurface(text));
                    const cow_List<cow_String> instances = result.Instances();
                    for (int i = 0; i < instances.Count(); ++i) {
                        const cow_String& instance = instances.ConstGet(i);
                        Crop(result.instanceSurfaces.Get(instance).Get(), box, CoordinatesOf(instance),
                             ElementsOf(instance));
                    }
                    Crop(result.assemblyNodes, box, coordMap, elements.ConstGet());
                } else if (sets.IsMember(text)) {
                    const inpM_BaseSet& set = sets.ConstGetSet(text);
                    const cow_Map<cow_String, cow_1DArrayList<int>> byInstance = set.ConstGetInstanceIdsMap();
                    cow_ConstMapIterator<cow_String, cow_1DArrayList<int>> it(byInstance);
                    for (it.First(); !it.IsDone(); it.Next())
                        result.Add(it.CurrentKey(), *Taken(isNodeSurface, it.CurrentValue(), extra.area, extra.faceId));
                    if (isNodeSurface && !set.ConstGetTopLevelIds().IsEmpty()) {
                        inpM_NodeAreaSurface own;
                        own.Add(set.ConstGetTopLevelIds(), extra.area);
                        result.Add(own);
                    }
                }
            } else if (isNodeSurface && text.c_str()[0] >= '0' && text.c_str()[0] <= '9') {
                inpM_NodeAreaSurface own;
                own.Add(One(std::atoi(text.c_str())), extra.area);
                result.Add(own);
            }
            continue;
        }
        const cow_String& scope = segments.ConstGet(0);
        const cow_String& last = segments.Last();
        if (inp_Utils::IsScopedSetName(segments)) {
            if (crop) {
                if (!surfaces.IsMemberPartInstanceSurface(scope, last)) continue;
                const CropBox box = ReadCropBox(keyword);
                if (!box.valid) continue;
                result.Add(scope, surfaces.ConstGetPartInstanceSurface(scope, last));
                Crop(result.instanceSurfaces.Get(scope).Get(), box, CoordinatesOf(scope), ElementsOf(scope));
            } else if (sets.HasNestedSet(scope, last)) {
                result.Add(scope, *Taken(isNodeSurface, sets.ConstGetNestedSet(scope, last).ConstGetIds(), extra.area,
                                         extra.faceId));
            } else {
                missing.Append(text);
            }
        } else if (inp_Types::MatchInteger(last)) {
            result.Add(scope, *Taken(isNodeSurface, One(std::atoi(last.c_str())), extra.area, extra.faceId));
        }
    }
    if (!missing.IsEmpty())
        errors.Append(inpM_Utils::FormatCollectedErrors(
            atr_Format("The following sets were not found when generating the surface %s:", Text(keyword, "name")),
            missing));
    return result;
}

void inp_SurfaceVisitor::CombineAssemblySurface(inp_Keyword& keyword) {
    inpM_AssemblyInstanceSurface result;
    result.internal = Has(keyword, "internal");
    const cow_String how = Text(keyword, "combine");
    const inp_DataArray& data = keyword.data;
    for (int line = FirstLine(keyword); line < data.NumberOfLines(); ++line)
        for (int item = 0; item < data.NumberOfItems(line); ++item) {
            const cow_String text = data.AsString(line, item);
            const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(text);
            const bool add = item == 0 || how == "UNION";
            if (segments.Count() == 1) {
                if (!surfaces.IsMemberAssemblyInstanceSurface(text)) continue;
                const inpM_AssemblyInstanceSurface& other = surfaces.ConstGetAssemblyInstanceSurface(text);
                if (add)
                    result.Add(other);
                else if (how == "INTERSECTION")
                    result.Intersection(other);
                else if (how == "DIFFERENCE")
                    result.Difference(other);
            } else if (inp_Utils::IsScopedSetName(segments)) {
                const cow_String& scope = segments.ConstGet(0);
                if (!surfaces.IsMemberPartInstanceSurface(scope, segments.Last())) continue;
                const inpM_PartInstanceSurface& other = surfaces.ConstGetPartInstanceSurface(scope, segments.Last());
                if (add)
                    result.Add(scope, other);
                else if (how == "INTERSECTION")
                    result.Intersection(scope, other);
                else if (how == "DIFFERENCE")
                    result.Difference(scope, other);
            }
        }
    surfaces.InsertAssemblyInstanceSurface(Text(keyword, "name"), result);
}

inp_SurfaceVisitor::CropBox inp_SurfaceVisitor::ReadCropBox(const inp_Keyword& keyword) {
    CropBox box;
    const inp_DataArray& data = keyword.data;
    if (!Has(keyword, "name") || data.NumberOfLines() < 2) return box;
    const cow_String name = inpM_Utils::RemoveQuotes(Text(keyword, "name"));
    const gsl_Point a = Triple(data, 1, 0), b = Triple(data, 1, 3);
    box.size = gsl_Vector(b.x, b.y, b.z);
    if (data.NumberOfLines() > 2) {
        box.hasOrientation = true;
        const gsl_Point pa = Triple(data, 2, 0), pb = Triple(data, 2, 3);
        gsl_Vector oa(pa.x, pa.y, pa.z);
        const gsl_Vector ob(pb.x, pb.y, pb.z);
        oa.Normalize();
        const gsl_Vector zero(0.0, 0.0, 0.0);
        const char* warning = nullptr;
        if (oa == zero || ob == zero)
            warning = "Neither of the points a and b defined under cropped surface %s are allowed to be defined at the "
                      "origin. The orientation of the surface will be ignored.";
        else if (oa == ob)
            warning = "Points a and b defined under cropped surface %s should not have the same coordinates. The "
                      "orientation of the surface will be ignored.";
        else if (oa.DotProduct(ob) == 1.0)
            warning = "Points a, b and the origin of cropped surface %s should not lie on a straight line. A unique "
                      "coordinate system for the orientation cannot be found. The orientation of the surface will be "
                      "ignored.";
        if (warning) {
            thr_ThreadSingleton<wip_WIP>::Instance().Warning(atr_Format(warning, name));
            box.hasOrientation = false;
        } else {
            box.corner = gsl_Vector(a.x, a.y, a.z);
            box.size = box.size - box.corner;
            box.rotation.AxisRotation(gsl_Point(0.0, 0.0, 0.0), oa.CrossProduct(ob), ob.AngleWith(oa, false));
        }
    }
    box.valid = true;
    return box;
}

bool inp_SurfaceVisitor::InBox(const CropBox& box, const gsl_Point& point) {
    gsl_Vector p(point.x, point.y, point.z);
    if (box.hasOrientation) {
        p = p - box.corner;
        p.RotateAndTransform(box.rotation);
    }
    return p.x >= 0.0 && p.x <= box.size.x && p.y >= 0.0 && p.y <= box.size.y && p.z >= 0.0 && p.z <= box.size.z;
}

void inp_SurfaceVisitor::Crop(inpM_PartInstanceSurface& surface, const CropBox& box, const inp_CoordMap& coordinates,
                              const omi_IntTable<inp_Element>& table) {
    auto inside = [&](int node) {
        return coordinates.HasId(node) && InBox(box, inp_node::PointOf(coordinates.ConstGet(node)));
    };
    if (inpM_ElementFaceIdSurface* faces = dynamic_cast<inpM_ElementFaceIdSurface*>(&surface)) {
        const shp_ShapeDictionary& shapes = thr_ThreadSingleton<shp_ShapeDictionary>::Instance();
        const cow_Map<cow_String, cow_1DArrayList<int>> byFace = faces->ConstGetFaceIdElementIdsMap();
        cow_ConstMapIterator<cow_String, cow_1DArrayList<int>> it(byFace);
        for (it.First(); !it.IsDone(); it.Next()) {
            const inpM_SurfaceFacet facet(it.CurrentKey());
            if (!facet.IsValid()) continue;
            cow_1DArrayList<int> outside;
            const cow_1DArrayList<int>& ids = it.CurrentValue();
            for (int i = 0; i < ids.Count(); ++i) {
                if (!table.HasKey(ids.ConstGet(i))) continue;
                const inp_Element& element = table.ConstGet(ids.ConstGet(i));
                const shp_Shape* shape = shapes.GetShape(element.type);
                if (!shape || facet.FaceNumber() > shape->NumberOfFaces()) continue;
                bool any = false;
                for (int k = 0; k < shape->NodesOnFace(facet.FaceNumber()) && !any; ++k) {
                    const int position = shape->FaceNodePosition(facet.FaceNumber(), k);
                    any = position < element.numNodes && inside(element.nodes[position]);
                }
                if (!any) outside.Append(ids.ConstGet(i));
            }
            if (!outside.IsEmpty()) faces->Difference(it.CurrentKey(), outside);
        }
    } else if (inpM_NodeAreaSurface* nodes = dynamic_cast<inpM_NodeAreaSurface*>(&surface)) {
        inpM_NodeAreaList outside;
        omi_IntTableIterator<double> it(nodes->ConstGetNodeAreaList().Table());
        for (it.First(); !it.IsDone(); it.Next())
            if (coordinates.HasId(it.CurrentKey()) && !inside(it.CurrentKey()))
                outside.Insert(it.CurrentKey(), it.CurrentValue());
        if (!outside.IsEmpty()) nodes->Difference(outside);
    }
}

void inp_SurfaceVisitor::InsertAnalytical(const cow_String& scope, const inp_Keyword& keyword) {
    inpM_SurfaceHandle surface = CreateSurface(inpM_AnalyticalSurface);
    surface.Get().internal = Has(keyword, "internal");
    surfaces.InsertPartInstanceSurface(scope, Text(keyword, "name"), *surface);
}

void inp_SurfaceVisitor::InsertRigidSurface(const cow_String& scope, const inp_Keyword&) {
    surfaces.InsertPartInstanceSurface(scope, cow_String(kNotNamed), *CreateSurface(inpM_AnalyticalSurface));
}

void inp_PartSurfaceVisitor::VisitRigidSurface(inp_Keyword& keyword) {
    if (!partName.IsEmpty() && Has(keyword, "elset")) InsertRigidSurface(partName, keyword);
}

void inp_PartSurfaceVisitor::AddAnalyticalSurface(inp_Keyword& keyword) {
    if (!partName.IsEmpty()) InsertAnalytical(partName, keyword);
}

void inp_PartSurfaceVisitor::AddPlainSurface(inp_Keyword& keyword) {
    if (partName.IsEmpty()) return;
    if (Has(keyword, "combine"))
        BuildCombinedSurface(keyword);
    else
        BuildSurface(keyword);
}

inp_AssemblySurfaceVisitor::inp_AssemblySurfaceVisitor(const inpM_SetMap& elementSetMap,
                                                       const inpM_SetMap& nodeSetMap,
                                                       const inpM_ElementMap& elementMap,
                                                       const inp_CoordMap& coordinates, const inpM_SurfaceMap& parts)
    : inp_SurfaceVisitor(elementSetMap, nodeSetMap, elementMap, coordinates), partSurfaces(parts) {}

void inp_AssemblySurfaceVisitor::VisitInstance(inp_Keyword& keyword) {
    inp_SurfaceVisitor::VisitInstance(keyword);
    if (!Has(keyword, "part")) {
        if (importedInstances.IsMember(instanceName) && importedSurfaces.partInstanceSurfaces.IsMember(instanceName))
            surfaces.InsertPartInstanceSurfaceMap(instanceName,
                                                  importedSurfaces.ConstGetPartInstanceSurfaceMap(instanceName));
        return;
    }
    if (Has(keyword, "name")) instanceName = Text(keyword, "name");
    const cow_String part = Text(keyword, "part");
    if (partSurfaces.partInstanceSurfaces.IsMember(part))
        surfaces.InsertPartInstanceSurfaceMap(instanceName, partSurfaces.ConstGetPartInstanceSurfaceMap(part));
}

void inp_AssemblySurfaceVisitor::VisitRigidSurface(inp_Keyword& keyword) {
    if (partName.IsEmpty() && !instanceName.IsEmpty() && Has(keyword, "elset"))
        InsertRigidSurface(instanceName, keyword);
}

void inp_AssemblySurfaceVisitor::VisitSurface(inp_Keyword& keyword) {
    if (!instanceName.IsEmpty() && Has(keyword, "name") && instanceToPart.IsMember(instanceName)) {
        const cow_String name = Text(keyword, "name");
        const cow_String& part = instanceToPart.ConstGet(instanceName);
        if (partSurfaces.IsMemberPartInstanceSurface(part, name))
            errors.Append(atr_Format("The surface %1$s was defined within part %2$s, then redefined within part "
                                     "instance %3$s. A surface cannot be defined at the part level, then redefined "
                                     "at the part instance level.",
                                     name, part, instanceName));
    }
    const cow_String type = SurfaceType(keyword);
    if (Has(keyword, "combine")) {
        CombineAssemblySurface(keyword);
        return;
    }
    if (Has(keyword, "crop")) {
        isNodeSurface = KindOfNamedSurface(keyword, type) == "NODE";
        AddPlainSurface(keyword);
        return;
    }
    AddByType(keyword, type);
}

void inp_AssemblySurfaceVisitor::AddAnalyticalSurface(inp_Keyword& keyword) {
    if (!partName.IsEmpty()) return;
    if (instanceName.IsEmpty())
        errors.Append(atr_raw("There should not be any Analytical Surfaces at the assembly level."));
    else
        InsertAnalytical(instanceName, keyword);
}

void inp_AssemblySurfaceVisitor::AddPlainSurface(inp_Keyword& keyword) {
    if (!partName.IsEmpty()) return;
    if (instanceName.IsEmpty()) {
        surfaces.InsertAssemblyInstanceSurface(Text(keyword, "name"), BuildAssemblySurface(keyword));
    } else if (Has(keyword, "combine")) {
        BuildCombinedSurface(keyword);
    } else {
        BuildSurface(keyword);
    }
}
