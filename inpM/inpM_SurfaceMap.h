// inpM_SurfaceMap: the surfaces of a model, by scope and by name.
//
// Surfaces of parts and instances stand under their scope's name; surfaces of the
// assembly level, which may reach into several instances, stand apart by name.
// Copies share both maps.
#ifndef INPM_SURFACEMAP_H
#define INPM_SURFACEMAP_H

#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inpM_AssemblyInstanceSurface.h"
#include "inpM_PartInstanceSurface.h"

class aio_ostream;
class inpM_IdMap;

class inpM_SurfaceMap {
public:
    inpM_SurfaceMap() = default;

    cow_Map<cow_String, inpM_PartInstanceSurfaceMap> partInstanceSurfaces;
    cow_Map<cow_String, inpM_AssemblyInstanceSurface> assemblyInstanceSurfaces;

    bool IsMemberPartInstanceSurface(const cow_String& scope, const cow_String& name) const;
    // IsMemberPartInstanceSurface(scope, name) must hold.
    const inpM_PartInstanceSurface& ConstGetPartInstanceSurface(const cow_String& scope, const cow_String& name) const;
    // A copy goes in; the scope is made when absent.
    void InsertPartInstanceSurface(const cow_String& scope, const cow_String& name,
                                   const inpM_PartInstanceSurface& surface);
    // Shares the surfaces of the map; those of the scope with the same names are replaced.
    void InsertPartInstanceSurfaceMap(const cow_String& scope, const inpM_PartInstanceSurfaceMap& surfaces);
    // The surfaces of one scope; an empty map for an unknown scope.
    const inpM_PartInstanceSurfaceMap& ConstGetPartInstanceSurfaceMap(const cow_String& scope) const;

    bool IsMemberAssemblyInstanceSurface(const cow_String& name) const;
    // The name must be a member.
    const inpM_AssemblyInstanceSurface& ConstGetAssemblyInstanceSurface(const cow_String& name) const;
    void InsertAssemblyInstanceSurface(const cow_String& name, const inpM_AssemblyInstanceSurface& surface);

    // A name that both maps hold ends up with the union of both surfaces (two
    // surfaces of different kinds: the first stays).
    void Merge(const inpM_SurfaceMap& other);
    // Element surfaces of a scope through the nested map of that scope in
    // elementIds, node surfaces through nodeIds; assembly surfaces instance by instance.
    void Renumber(const inpM_IdMap& elementIds, const inpM_IdMap& nodeIds, bool dropMissing);
    // Renames the scope, and the instance inside every assembly surface.
    void ChangeInstanceName(const cow_String& oldName, const cow_String& newName);
    // Scope names in ascending byte order.
    cow_List<cow_String> Instances() const;

    void Print(aio_ostream& out) const;
};

#endif
