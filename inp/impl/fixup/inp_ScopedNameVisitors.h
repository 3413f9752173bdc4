// Scoped references at model level: `Assembly-1.Pump-1.TOP` written outside every part,
// assembly and instance block means `Pump-1.TOP` to the passes that read the model,
// which know no assembly scope of their own. One pass per class of reference takes the
// assembly name off such references; they all apply the same rule (see the source).
//
// The maps handed to the fixup bases are empty: the rule reads the name alone.
#ifndef INP_SCOPEDNAMEVISITORS_H
#define INP_SCOPEDNAMEVISITORS_H

#include "inp_OrientationFixupVisitor.h"
#include "inp_RebarFixupVisitor.h"
#include "inp_SetFixupVisitor.h"
#include "inp_SurfaceFixupVisitor.h"

class inp_ScopedNameSetVisitor : public inp_SetFixupVisitor {
public:
    inp_ScopedNameSetVisitor(const inpM_SetMap& nodeSets, const inpM_SetMap& elementSets, const inpM_IdMap& nodeIds,
                             const inpM_IdMap& elementIds, const cow_String& assemblyName,
                             const inp_ModelParameters& parameters);

    // A set definition at model level may list scoped members too.
    void VisitElset(inp_Keyword& keyword) override;
    void VisitNset(inp_Keyword& keyword) override;

    cow_String assembly;

protected:
    cow_String ReplaceReference(inp_Keyword& keyword, const cow_String& reference, const inpM_SetMap& sets,
                                const inpM_IdMap& ids, const cow_String& assemblyName,
                                const cow_String& instanceName, const cow_String& partName,
                                inp_SetType type) override;
};

class inp_ScopedNameSurfaceVisitor : public inp_SurfaceFixupVisitor {
public:
    inp_ScopedNameSurfaceVisitor(const inpM_SurfaceMap& surfaces, const cow_String& assemblyName,
                                 bool hasInheritedPartMap);

    // Only the name of a *SURFACE; a continuation job leaves the keyword alone.
    void VisitSurface(inp_Keyword& keyword) override;

    cow_String assembly;
    bool hasInheritedPartMap;

protected:
    cow_String ReplaceSurfaceName(const cow_String& name, const cow_String& assemblyName,
                                  const cow_String& instanceName, const cow_String& partName) const override;
};

class inp_ScopedNameOrientationVisitor : public inp_OrientationFixupVisitor {
public:
    explicit inp_ScopedNameOrientationVisitor(const cow_String& assemblyName);

    cow_String assembly;

protected:
    cow_String ReplaceOrientationName(const cow_String& name) override;
};

class inp_ScopedNameRebarVisitor : public inp_RebarFixupVisitor {
public:
    explicit inp_ScopedNameRebarVisitor(const cow_String& assemblyName);

    cow_String assembly;

protected:
    cow_String ReplaceRebarName(const cow_String& name) override;
};

#endif
