// inpM_AssemblyInstanceSurface: a surface defined at the assembly level.
//
// Such a surface may take faces or nodes from several instances (`Pump-1.TOP`,
// `Valve-1.S`) and nodes of the assembly level itself, so it is a collection of
// per-instance surfaces plus one node surface of the assembly's own nodes. The
// operations work instance by instance, with the kind rules of
// inpM_PartInstanceSurface.
#ifndef INPM_ASSEMBLYINSTANCESURFACE_H
#define INPM_ASSEMBLYINSTANCESURFACE_H

#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inpM_PartInstanceSurface.h"

class aio_ostream;
class inpM_IdMap;

class inpM_AssemblyInstanceSurface {
public:
    inpM_AssemblyInstanceSurface() : internal(false) {}

    void Add(const inpM_AssemblyInstanceSurface& other);
    void Add(const cow_String& instance, const inpM_PartInstanceSurface& surface);
    // Nodes of the assembly level, outside any instance.
    void Add(const inpM_NodeAreaSurface& nodes);
    void Difference(const inpM_AssemblyInstanceSurface& other);
    void Difference(const cow_String& instance, const inpM_PartInstanceSurface& surface);
    void Intersection(const inpM_AssemblyInstanceSurface& other);
    // The other operand lies in one instance: only what the instance shares with
    // it stays, and every other instance and the assembly's own nodes are dropped.
    void Intersection(const cow_String& instance, const inpM_PartInstanceSurface& surface);

    // A node surface whose nodes lie in two or more instances. Nodes of the
    // assembly level do not count as an instance.
    bool IsCrossInstanceNodeBasedSurface() const;

    // Each instance's surface through the nested map of its instance in the id
    // map of its kind; the assembly's own nodes through the root of nodeIds.
    void Renumber(const inpM_IdMap& elementIds, const inpM_IdMap& nodeIds, bool dropMissing);
    void ChangeInstanceName(const cow_String& oldName, const cow_String& newName);
    // Instance names in ascending byte order.
    cow_List<cow_String> Instances() const;
    void Print(aio_ostream& out) const;

    bool internal;
    cow_Map<cow_String, inpM_SurfaceHandle> instanceSurfaces;
    inpM_NodeAreaSurface assemblyNodes;
};

#endif
