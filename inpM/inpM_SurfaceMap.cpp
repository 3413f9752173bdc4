#include "inpM_SurfaceMap.h"

#include "aio_ostream.h"
#include "inpM_IdMap.h"
#include "inpM_Utils.h"

namespace {

const inpM_PartInstanceSurfaceMap& EmptySurfaceMap() {
    static const inpM_PartInstanceSurfaceMap empty;
    return empty;
}

void MergeScope(inpM_PartInstanceSurfaceMap& into, const inpM_PartInstanceSurfaceMap& from) {
    cow_List<cow_String> names = inpM_Utils::SortedKeys(from);
    for (int i = 0; i < names.Count(); ++i) {
        const inpM_SurfaceHandle& theirs = from.ConstGet(names[i]);
        if (!into.IsMember(names[i]))
            into.Insert(names[i], theirs);
        else
            into.Get(names[i]).Get().Add(theirs.ConstGet());
    }
}

}  // namespace

bool inpM_SurfaceMap::IsMemberPartInstanceSurface(const cow_String& scope, const cow_String& name) const {
    const inpM_PartInstanceSurfaceMap* surfaces = partInstanceSurfaces.Lookup(scope);
    return surfaces && surfaces->IsMember(name);
}

const inpM_PartInstanceSurface& inpM_SurfaceMap::ConstGetPartInstanceSurface(const cow_String& scope,
                                                                             const cow_String& name) const {
    return partInstanceSurfaces.ConstGet(scope).ConstGet(name).ConstGet();
}

void inpM_SurfaceMap::InsertPartInstanceSurface(const cow_String& scope, const cow_String& name,
                                                const inpM_PartInstanceSurface& surface) {
    if (!partInstanceSurfaces.IsMember(scope)) partInstanceSurfaces.Insert(scope, inpM_PartInstanceSurfaceMap());
    partInstanceSurfaces.Get(scope).Insert(name, inpM_SurfaceHandle(surface.Copy()));
}

void inpM_SurfaceMap::InsertPartInstanceSurfaceMap(const cow_String& scope,
                                                   const inpM_PartInstanceSurfaceMap& surfaces) {
    const inpM_PartInstanceSurfaceMap* existing = partInstanceSurfaces.Lookup(scope);
    if (!existing || existing->IsEmpty()) {
        partInstanceSurfaces.Insert(scope, surfaces);
        return;
    }
    inpM_PartInstanceSurfaceMap& level = partInstanceSurfaces.Get(scope);
    cow_List<cow_String> names = inpM_Utils::SortedKeys(surfaces);
    for (int i = 0; i < names.Count(); ++i) level.Insert(names[i], surfaces.ConstGet(names[i]));
}

const inpM_PartInstanceSurfaceMap& inpM_SurfaceMap::ConstGetPartInstanceSurfaceMap(const cow_String& scope) const {
    const inpM_PartInstanceSurfaceMap* surfaces = partInstanceSurfaces.Lookup(scope);
    return surfaces ? *surfaces : EmptySurfaceMap();
}

bool inpM_SurfaceMap::IsMemberAssemblyInstanceSurface(const cow_String& name) const {
    return assemblyInstanceSurfaces.IsMember(name);
}

const inpM_AssemblyInstanceSurface& inpM_SurfaceMap::ConstGetAssemblyInstanceSurface(const cow_String& name) const {
    return assemblyInstanceSurfaces.ConstGet(name);
}

void inpM_SurfaceMap::InsertAssemblyInstanceSurface(const cow_String& name,
                                                    const inpM_AssemblyInstanceSurface& surface) {
    assemblyInstanceSurfaces.Insert(name, surface);
}

void inpM_SurfaceMap::Merge(const inpM_SurfaceMap& other) {
    if (&other == this) return;
    cow_List<cow_String> scopes = other.Instances();
    for (int i = 0; i < scopes.Count(); ++i) {
        const inpM_PartInstanceSurfaceMap& theirs = other.partInstanceSurfaces.ConstGet(scopes[i]);
        if (!partInstanceSurfaces.IsMember(scopes[i]))
            partInstanceSurfaces.Insert(scopes[i], theirs);
        else
            MergeScope(partInstanceSurfaces.Get(scopes[i]), theirs);
    }
    cow_List<cow_String> names = inpM_Utils::SortedKeys(other.assemblyInstanceSurfaces);
    for (int i = 0; i < names.Count(); ++i) {
        const inpM_AssemblyInstanceSurface& theirs = other.assemblyInstanceSurfaces.ConstGet(names[i]);
        if (!assemblyInstanceSurfaces.IsMember(names[i]))
            assemblyInstanceSurfaces.Insert(names[i], theirs);
        else
            assemblyInstanceSurfaces.Get(names[i]).Add(theirs);
    }
}

void inpM_SurfaceMap::Renumber(const inpM_IdMap& elementIds, const inpM_IdMap& nodeIds, bool dropMissing) {
    cow_List<cow_String> scopes = Instances();
    for (int s = 0; s < scopes.Count(); ++s) {
        const inpM_IdMap& scopeElements = elementIds.ConstGet(scopes[s]);
        const inpM_IdMap& scopeNodes = nodeIds.ConstGet(scopes[s]);
        inpM_PartInstanceSurfaceMap& level = partInstanceSurfaces.Get(scopes[s]);
        cow_List<cow_String> names = inpM_Utils::SortedKeys(level);
        for (int i = 0; i < names.Count(); ++i) {
            inpM_PartInstanceSurface& surface = level.Get(names[i]).Get();
            surface.Renumber(surface.SurfaceType() == inpM_NodeSurface ? scopeNodes : scopeElements, dropMissing);
        }
    }
    cow_List<cow_String> names = inpM_Utils::SortedKeys(assemblyInstanceSurfaces);
    for (int i = 0; i < names.Count(); ++i)
        assemblyInstanceSurfaces.Get(names[i]).Renumber(elementIds, nodeIds, dropMissing);
}

void inpM_SurfaceMap::ChangeInstanceName(const cow_String& oldName, const cow_String& newName) {
    if (oldName == newName) return;
    if (const inpM_PartInstanceSurfaceMap* found = partInstanceSurfaces.Lookup(oldName)) {
        inpM_PartInstanceSurfaceMap moved(*found);
        partInstanceSurfaces.Remove(oldName);
        if (!partInstanceSurfaces.IsMember(newName))
            partInstanceSurfaces.Insert(newName, moved);
        else
            MergeScope(partInstanceSurfaces.Get(newName), moved);
    }
    cow_List<cow_String> names = inpM_Utils::SortedKeys(assemblyInstanceSurfaces);
    for (int i = 0; i < names.Count(); ++i)
        if (assemblyInstanceSurfaces.ConstGet(names[i]).instanceSurfaces.IsMember(oldName))
            assemblyInstanceSurfaces.Get(names[i]).ChangeInstanceName(oldName, newName);
}

cow_List<cow_String> inpM_SurfaceMap::Instances() const { return inpM_Utils::SortedKeys(partInstanceSurfaces); }

void inpM_SurfaceMap::Print(aio_ostream& out) const {
    cow_List<cow_String> scopes = Instances();
    for (int s = 0; s < scopes.Count(); ++s) {
        const inpM_PartInstanceSurfaceMap& level = partInstanceSurfaces.ConstGet(scopes[s]);
        cow_List<cow_String> names = inpM_Utils::SortedKeys(level);
        for (int i = 0; i < names.Count(); ++i) {
            out << "surface " << scopes[s] << "." << names[i] << ": ";
            level.ConstGet(names[i])->Print(out);
        }
    }
    cow_List<cow_String> names = inpM_Utils::SortedKeys(assemblyInstanceSurfaces);
    for (int i = 0; i < names.Count(); ++i) {
        out << "surface " << names[i] << ": ";
        assemblyInstanceSurfaces.ConstGet(names[i]).Print(out);
    }
}
