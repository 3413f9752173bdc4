#include "inp_FakePartSurfaceVisitor.h"

#include "inp_Item.h"

namespace {

bool IsAnalyticalType(const cow_String& type) {
    for (const char* analytical : {"SEGMENTS", "CYLINDER", "REVOLUTION", "USER", "BEZIER", "BSPLINE"})
        if (type == analytical) return true;
    return false;
}

}  // namespace

inp_FakePartSurfaceVisitor::inp_FakePartSurfaceVisitor(const inpM_SurfaceMap& surfaces)
    : inp_SurfaceFixupVisitor(surfaces) {}

cow_String inp_FakePartSurfaceVisitor::InOwnInstance(const cow_String& name) { return name + "-1." + name; }

// The definition keeps its own name: it stands in the surface's own part.
void inp_FakePartSurfaceVisitor::VisitRigidSurface(inp_Keyword& keyword) {
    ++rigidSurfaceCount;
    const inp_Item* name = keyword.parameters.Lookup(cow_String("name"));
    if (name)
        analyticalSurfaceNames.Append(name->AsString());
    else
        analyticalSurfaceNames.Append(cow_String("RigidSurface-") + cow_String(rigidSurfaceCount));
}

void inp_FakePartSurfaceVisitor::VisitSurface(inp_Keyword& keyword) {
    const inp_Item* type = keyword.parameters.Lookup(cow_String("type"));
    const inp_Item* name = keyword.parameters.Lookup(cow_String("name"));
    if (type && name && IsAnalyticalType(type->AsString())) analyticalSurfaceNames.Append(name->AsString());
    inp_SurfaceFixupVisitor::VisitSurface(keyword);
}

// A rigid body names its analytical surface whether or not it was defined, and the
// body itself always ends up at assembly level.
void inp_FakePartSurfaceVisitor::VisitRigidBody(inp_Keyword& keyword) {
    const inp_Item* surface = keyword.parameters.Lookup(cow_String("analyticalsurface"));
    if (!surface) return;
    keyword.parameters.Insert(cow_String("analyticalsurface"), inp_Item(InOwnInstance(surface->AsString())));
}

cow_String inp_FakePartSurfaceVisitor::ReplaceSurfaceName(const cow_String& name, const cow_String&,
                                                          const cow_String& instanceName,
                                                          const cow_String& partName) const {
    if (!partName.IsEmpty() || !instanceName.IsEmpty()) return name;
    return analyticalSurfaceNames.IsMember(name) ? InOwnInstance(name) : name;
}
