#include "inpM_AssemblyInstanceSurface.h"

#include "aio_ostream.h"
#include "inpM_IdMap.h"
#include "inpM_Utils.h"

void inpM_AssemblyInstanceSurface::Add(const inpM_AssemblyInstanceSurface& other) {
    if (&other == this) return;
    cow_List<cow_String> names = other.Instances();
    for (int i = 0; i < names.Count(); ++i) Add(names[i], other.instanceSurfaces.ConstGet(names[i]).ConstGet());
    assemblyNodes.Add(other.assemblyNodes);
}

void inpM_AssemblyInstanceSurface::Add(const cow_String& instance, const inpM_PartInstanceSurface& surface) {
    if (!instanceSurfaces.IsMember(instance))
        instanceSurfaces.Insert(instance, inpM_SurfaceHandle(surface.Copy()));
    else
        instanceSurfaces.Get(instance).Get().Add(surface);
}

void inpM_AssemblyInstanceSurface::Add(const inpM_NodeAreaSurface& nodes) {
    assemblyNodes.Add(static_cast<const inpM_PartInstanceSurface&>(nodes));
}

void inpM_AssemblyInstanceSurface::Difference(const inpM_AssemblyInstanceSurface& other) {
    if (&other == this) {
        instanceSurfaces.Clear();
        assemblyNodes = inpM_NodeAreaSurface(assemblyNodes.internal);
        return;
    }
    cow_List<cow_String> names = other.Instances();
    for (int i = 0; i < names.Count(); ++i) Difference(names[i], other.instanceSurfaces.ConstGet(names[i]).ConstGet());
    assemblyNodes.Difference(static_cast<const inpM_PartInstanceSurface&>(other.assemblyNodes));
}

void inpM_AssemblyInstanceSurface::Difference(const cow_String& instance, const inpM_PartInstanceSurface& surface) {
    if (instanceSurfaces.IsMember(instance)) instanceSurfaces.Get(instance).Get().Difference(surface);
}

void inpM_AssemblyInstanceSurface::Intersection(const inpM_AssemblyInstanceSurface& other) {
    if (&other == this) return;
    cow_List<cow_String> names = Instances();
    for (int i = 0; i < names.Count(); ++i) {
        const inpM_SurfaceHandle* theirs = other.instanceSurfaces.Lookup(names[i]);
        if (theirs)
            instanceSurfaces.Get(names[i]).Get().Intersection(theirs->ConstGet());
        else
            instanceSurfaces.Remove(names[i]);
    }
    assemblyNodes.Intersection(static_cast<const inpM_PartInstanceSurface&>(other.assemblyNodes));
}

void inpM_AssemblyInstanceSurface::Intersection(const cow_String& instance, const inpM_PartInstanceSurface& surface) {
    cow_List<cow_String> names = Instances();
    for (int i = 0; i < names.Count(); ++i)
        if (names[i] != instance) instanceSurfaces.Remove(names[i]);
    if (instanceSurfaces.IsMember(instance)) instanceSurfaces.Get(instance).Get().Intersection(surface);
    assemblyNodes = inpM_NodeAreaSurface(assemblyNodes.internal);
}

bool inpM_AssemblyInstanceSurface::IsCrossInstanceNodeBasedSurface() const {
    int withNodes = 0;
    cow_ConstMapIterator<cow_String, inpM_SurfaceHandle> it(instanceSurfaces);
    for (it.First(); !it.IsDone(); it.Next()) {
        const inpM_PartInstanceSurface& surface = it.CurrentValue().ConstGet();
        if (surface.SurfaceType() == inpM_ElementSurface && !surface.ConstGetFaceIdElementIdsMap().IsEmpty())
            return false;
        if (surface.SurfaceType() == inpM_NodeSurface && !surface.ConstGetNodeAreaList().IsEmpty()) ++withNodes;
    }
    return withNodes >= 2;
}

void inpM_AssemblyInstanceSurface::Renumber(const inpM_IdMap& elementIds, const inpM_IdMap& nodeIds,
                                            bool dropMissing) {
    cow_List<cow_String> names = Instances();
    for (int i = 0; i < names.Count(); ++i) {
        inpM_PartInstanceSurface& surface = instanceSurfaces.Get(names[i]).Get();
        const inpM_IdMap& ids = surface.SurfaceType() == inpM_NodeSurface ? nodeIds : elementIds;
        surface.Renumber(ids.ConstGet(names[i]), dropMissing);
    }
    assemblyNodes.Renumber(nodeIds, dropMissing);
}

void inpM_AssemblyInstanceSurface::ChangeInstanceName(const cow_String& oldName, const cow_String& newName) {
    if (oldName == newName) return;
    const inpM_SurfaceHandle* found = instanceSurfaces.Lookup(oldName);
    if (!found) return;
    inpM_SurfaceHandle moved(*found);
    instanceSurfaces.Remove(oldName);
    Add(newName, moved.ConstGet());
}

cow_List<cow_String> inpM_AssemblyInstanceSurface::Instances() const {
    return inpM_Utils::SortedKeys(instanceSurfaces);
}

void inpM_AssemblyInstanceSurface::Print(aio_ostream& out) const {
    out << "assembly surface" << (internal ? " (internal)" : "") << "\n";
    cow_List<cow_String> names = Instances();
    for (int i = 0; i < names.Count(); ++i) {
        out << " instance " << names[i] << ": ";
        instanceSurfaces.ConstGet(names[i])->Print(out);
    }
    if (!assemblyNodes.IsEmpty()) {
        out << " assembly level: ";
        assemblyNodes.Print(out);
    }
}
