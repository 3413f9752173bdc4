// inp_SurfaceVisitor: *SURFACE and *RIGID SURFACE as surfaces of the model.
//
// The pass runs behind the set, node and element passes and reads what they made: a
// surface lists element faces of element sets, or nodes of node sets with an area each,
// or is analytical, of which only the name counts here. A surface may combine others
// (COMBINE) or keep of another the part inside a box (CROP).
//
// inp_PartSurfaceVisitor builds the surfaces of parts, inp_AssemblySurfaceVisitor those
// of instances and the assembly. Both see the whole keyword list and tell by the scope
// names which keywords are theirs.
#ifndef INP_SURFACEVISITOR_H
#define INP_SURFACEVISITOR_H

#include "gsl_Matrix.h"
#include "gsl_Point.h"
#include "gsl_Vector.h"
#include "inpM_InstanceMap.h"
#include "inpM_SetMap.h"
#include "inpM_SurfaceMap.h"
#include "inp_CoordMap.h"
#include "inp_Visitor.h"

class inp_SurfaceVisitor : public inp_Visitor {
public:
    inp_SurfaceVisitor(const inpM_SetMap& elementSets, const inpM_SetMap& nodeSets, const inpM_ElementMap& elements,
                       const inp_CoordMap& coordMap);
    ~inp_SurfaceVisitor() override;

    void VisitSurface(inp_Keyword& keyword) override;

    virtual void AddAnalyticalSurface(inp_Keyword& keyword) = 0;
    virtual void AddPlainSurface(inp_Keyword& keyword) = 0;
    // A simple surface of the keyword's scope.
    virtual void BuildSurface(inp_Keyword& keyword);
    // A COMBINE surface of the keyword's scope.
    virtual void BuildCombinedSurface(inp_Keyword& keyword);
    virtual inpM_AssemblyInstanceSurface BuildAssemblySurface(inp_Keyword& keyword);

    inpM_SetMap elementSets;
    inpM_SetMap nodeSets;
    inpM_ElementMap elements;
    inp_CoordMap coordMap;
    inpM_SurfaceMap surfaces;
    bool isNodeSurface = false;
    inpM_InstanceMap<cow_String> instanceToPart;
    inpM_SurfaceMap importedSurfaces;
    cow_List<cow_String> importedInstances;

    // The box of a CROP surface: from the origin to `size`, or, with an orientation,
    // from `corner` in the frame that `rotation` gives.
    struct CropBox {
        bool valid = false;
        bool hasOrientation = false;
        gsl_Vector size = gsl_Vector(0.0, 0.0, 0.0);
        gsl_Vector corner = gsl_Vector(0.0, 0.0, 0.0);
        gsl_Matrix rotation;
    };
    static CropBox ReadCropBox(const inp_Keyword& keyword);
    static bool InBox(const CropBox& box, const gsl_Point& point);

protected:
    void DefaultAction(inp_Keyword& keyword) override;

    // "ELEMENT", "NODE" or an analytical type.
    static cow_String SurfaceType(const inp_Keyword& keyword);
    // The kind of the surface that a COMBINE or CROP keyword names first, when the
    // scope has it; `type` otherwise.
    cow_String KindOfNamedSurface(const inp_Keyword& keyword, const cow_String& type) const;
    // AddAnalyticalSurface or AddPlainSurface, as the type says.
    void AddByType(inp_Keyword& keyword, const cow_String& type);
    // The part when one is open, else the instance.
    const cow_String& Scope() const { return partName.IsEmpty() ? instanceName : partName; }
    // The nodes and the elements of a scope, the root ones for an empty scope.
    const inp_CoordMap& CoordinatesOf(const cow_String& scope) const;
    const omi_IntTable<inp_Element>& ElementsOf(const cow_String& scope) const;
    // Drops from the surface the faces none of whose nodes lies in the box, and the
    // nodes outside it.
    static void Crop(inpM_PartInstanceSurface& surface, const CropBox& box, const inp_CoordMap& coordinates,
                     const omi_IntTable<inp_Element>& elements);
    // An analytical surface in the scope, and the stand-in that *RIGID SURFACE leaves.
    void InsertAnalytical(const cow_String& scope, const inp_Keyword& keyword);
    void InsertRigidSurface(const cow_String& scope, const inp_Keyword& keyword);
    // The read of a COMBINE surface of the assembly level.
    void CombineAssemblySurface(inp_Keyword& keyword);
};

class inp_PartSurfaceVisitor : public inp_SurfaceVisitor {
public:
    using inp_SurfaceVisitor::inp_SurfaceVisitor;

    void VisitRigidSurface(inp_Keyword& keyword) override;
    void AddAnalyticalSurface(inp_Keyword& keyword) override;
    void AddPlainSurface(inp_Keyword& keyword) override;
};

class inp_AssemblySurfaceVisitor : public inp_SurfaceVisitor {
public:
    inp_AssemblySurfaceVisitor(const inpM_SetMap& elementSets, const inpM_SetMap& nodeSets,
                               const inpM_ElementMap& elements, const inp_CoordMap& coordMap,
                               const inpM_SurfaceMap& partSurfaces);

    void VisitInstance(inp_Keyword& keyword) override;
    void VisitRigidSurface(inp_Keyword& keyword) override;
    void VisitSurface(inp_Keyword& keyword) override;
    void AddAnalyticalSurface(inp_Keyword& keyword) override;
    void AddPlainSurface(inp_Keyword& keyword) override;

    inpM_SurfaceMap partSurfaces;
};

#endif
