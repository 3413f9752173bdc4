#include "inp_ScopedNameVisitors.h"

#include <cstring>

namespace {

// The one rule of the four passes. A reference loses its first segment when that
// segment is the assembly's name and the keyword stands at model level, outside any
// substructure path: inside a part, an instance or the assembly block a name is
// already relative to that scope. Only one segment ever goes, and the first period is
// taken as it stands, quoted or not, so `Other.Pump-1.TOP` and `"Assembly-1.X"` stay.
cow_String WithoutAssemblyScope(const inp_Visitor& scope, const cow_String& assembly, const cow_String& reference) {
    if (scope.substructureDepth >= 1) return reference;
    if (!scope.partName.IsEmpty() || !scope.assemblyName.IsEmpty() || !scope.instanceName.IsEmpty())
        return reference;
    const char* text = reference.c_str();
    const char* period = std::strchr(text, '.');
    if (!period) return reference;
    const size_t head = static_cast<size_t>(period - text);
    if (head != static_cast<size_t>(assembly.Length()) || std::strncmp(text, assembly.c_str(), head) != 0)
        return reference;
    return cow_String(period + 1);
}

bool Has(const inp_Keyword& keyword, const char* name) { return keyword.HasParameter(cow_String(name)); }

}  // namespace

inp_ScopedNameSetVisitor::inp_ScopedNameSetVisitor(const inpM_SetMap& nodeSets, const inpM_SetMap& elementSets,
                                                   const inpM_IdMap& nodeIds, const inpM_IdMap& elementIds,
                                                   const cow_String& assemblyName,
                                                   const inp_ModelParameters& parameters)
    : inp_SetFixupVisitor(nodeSets, elementSets, nodeIds, elementIds, parameters), assembly(assemblyName) {}

cow_String inp_ScopedNameSetVisitor::ReplaceReference(inp_Keyword&, const cow_String& reference, const inpM_SetMap&,
                                                      const inpM_IdMap&, const cow_String&, const cow_String&,
                                                      const cow_String&, inp_SetType) {
    return WithoutAssemblyScope(*this, assembly, reference);
}

// With GENERATE a line is first, last and increment: only the first two are ids.
void inp_ScopedNameSetVisitor::VisitElset(inp_Keyword& keyword) {
    if (Has(keyword, "generate"))
        ReplaceElementOrElsetData(keyword, cow_List<int>().Append(0).Append(1), 1);
    else
        ReplaceElementOrElsetAllData(keyword);
}

void inp_ScopedNameSetVisitor::VisitNset(inp_Keyword& keyword) {
    if (Has(keyword, "generate"))
        ReplaceNodeOrNsetData(keyword, cow_List<int>().Append(0).Append(1), 1);
    else
        ReplaceNodeOrNsetAllData(keyword);
}

inp_ScopedNameSurfaceVisitor::inp_ScopedNameSurfaceVisitor(const inpM_SurfaceMap& surfaces,
                                                           const cow_String& assemblyName, bool inherited)
    : inp_SurfaceFixupVisitor(surfaces), assembly(assemblyName), hasInheritedPartMap(inherited) {}

cow_String inp_ScopedNameSurfaceVisitor::ReplaceSurfaceName(const cow_String& name, const cow_String&,
                                                            const cow_String&, const cow_String&) const {
    return WithoutAssemblyScope(*this, assembly, name);
}

// The members of a *SURFACE are left as they are: a combined surface of the model level
// names its parts with the scope the surface pass expects.
void inp_ScopedNameSurfaceVisitor::VisitSurface(inp_Keyword& keyword) {
    if (!hasInheritedPartMap) ReplaceSurfaceParameter(keyword, cow_String("name"));
}

inp_ScopedNameOrientationVisitor::inp_ScopedNameOrientationVisitor(const cow_String& assemblyName)
    : assembly(assemblyName) {}

cow_String inp_ScopedNameOrientationVisitor::ReplaceOrientationName(const cow_String& name) {
    return WithoutAssemblyScope(*this, assembly, name);
}

inp_ScopedNameRebarVisitor::inp_ScopedNameRebarVisitor(const cow_String& assemblyName) : assembly(assemblyName) {}

cow_String inp_ScopedNameRebarVisitor::ReplaceRebarName(const cow_String& name) {
    return WithoutAssemblyScope(*this, assembly, name);
}
