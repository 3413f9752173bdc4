// inp_RestartSurfaceVisitor: the element and node based surfaces that a restart deck
// defines on the model of an earlier analysis.
//
// The names follow the rules of the restart sets: complete names for a model of
// parts, plain names for a flat one, and no name that the earlier analysis has.
// Analytical surfaces change the model and are refused. A surface of an instance is
// built under its own name, and the keyword's data lines are scoped to the instance,
// so that the keyword, which keeps its complete name, reads right at the assembly
// level. Only the keywords of the list handed over are looked at. The driver reads
// `surfaces`, which holds the earlier surfaces and the new ones.
#ifndef INP_RESTARTSURFACEVISITOR_H
#define INP_RESTARTSURFACEVISITOR_H

#include "cow_String.h"
#include "inpM_InstanceMap.h"
#include "inpM_SetMap.h"
#include "inpM_SurfaceMap.h"
#include "inp_CoordMap.h"
#include "inp_SurfaceVisitor.h"

class inp_RestartSurfaceVisitor : public inp_SurfaceVisitor {
public:
    inp_RestartSurfaceVisitor(const inpM_SurfaceMap& surfaces, const cow_String& assemblyName, bool isAssemblyModel,
                              const inpM_SetMap& nodeSets, const inpM_SetMap& elementSets,
                              const inpM_InstanceMap<omi_IntTable<inp_Element>>& elements,
                              const inp_CoordMap& coordinates);
    ~inp_RestartSurfaceVisitor() override;

    void Visit(inp_Keyword& keyword) override;
    void VisitSurface(inp_Keyword& keyword) override;
    void AddAnalyticalSurface(inp_Keyword& keyword) override;
    void AddPlainSurface(inp_Keyword& keyword) override;

    bool isAssemblyModel;
    cow_String originalAssemblyName;
    // The last segment of the complete name of the surface being built.
    cow_String currentSurfaceName;

private:
    void ReportDuplicate(const cow_String& name);
};

#endif
