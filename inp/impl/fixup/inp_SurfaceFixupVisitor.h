// inp_SurfaceFixupVisitor: where surface names stand in each keyword.
//
// This class knows the positions and nothing about names: it hands every surface name
// to ReplaceSurfaceName and writes the answer back in place. A concrete pass implements
// ReplaceSurfaceName and so gives one rewriting of the deck (scoped names, periods, the
// flat-deck conversion); it may override any other operation too.
//
// Unlike the set fixup nothing is caught here: an exception from ReplaceSurfaceName
// leaves the walk and reaches whoever started it.
#ifndef INP_SURFACEFIXUPVISITOR_H
#define INP_SURFACEFIXUPVISITOR_H

#include "cow_List.h"
#include "cow_String.h"
#include "inpM_SurfaceMap.h"
#include "inp_Visitor.h"

// The keywords whose rule is the same for all: X(Ident) for the first five,
// X(Ident, "type when absent", "type") for the last.
// Parameters "master" and "slave", in that order.
#define INP_SURFACEFIXUP_MASTER_SLAVE(X)                                                                       \
    X(Clearance) X(ContactControls) X(ContactFile) X(ContactPrint) X(ContactResponse) X(Debond)                 \
    X(PressurePenetration)
// Parameter "surface".
#define INP_SURFACEFIXUP_SURFACE_PARAMETER(X)                                                                  \
    X(Coupling) X(FluidCavity) X(FluidExchange) X(IntegratedOutput) X(IntegratedOutputSection)                 \
    X(NonStructuralMass) X(PreTensionSection) X(RadiationFile) X(RadiationOutput) X(RadiationPrint)            \
    X(SectionFile) X(SectionPrint)
// Columns 0 and 1 of every line: a pair of surfaces.
#define INP_SURFACEFIXUP_PAIR_COLUMNS(X)                                                                       \
    X(ContactClearanceAssignment) X(ContactControlsAssignment) X(ContactExclusions) X(ContactFormulation)      \
    X(ContactInclusions) X(ContactPair) X(ContactPropertyAssignment) X(ShellToSolidCoupling) X(Tie)
// Column 0 of every line.
#define INP_SURFACEFIXUP_COLUMN0(X)                                                                            \
    X(CoSimulationRegion) X(Dsecharge) X(Dsecurrent) X(Dsflow) X(Dsflux) X(Dsload) X(IncidentWave)            \
    X(IncidentWaveInteraction) X(Sfilm) X(Sflow) X(Simpedance) X(Sradiate) X(SurfacePropertyAssignment)
// Every item of every line.
#define INP_SURFACEFIXUP_ALL_DATA(X) X(CavityDefinition) X(RadiationViewfactor)
// Columns 0 and 1 when "type" has the value given.
#define INP_SURFACEFIXUP_TYPED_PAIR(X)                                                                         \
    X(ContactInterference, "CONTACTPAIR", "CONTACTPAIR") X(InitialConditions, "", "CONTACT")                   \
    X(ModelChange, "", "CONTACTPAIR")

class inp_SurfaceFixupVisitor : public inp_Visitor {
public:
    // The map is a shared copy; this class doesn't read it, its passes may.
    explicit inp_SurfaceFixupVisitor(const inpM_SurfaceMap& surfaces);
    ~inp_SurfaceFixupVisitor() override;

    inpM_SurfaceMap surfaces;

protected:
    // The text that takes the place of `name`; `name` itself to keep it. The scope
    // names are the walk's current ones.
    virtual cow_String ReplaceSurfaceName(const cow_String& name, const cow_String& assemblyName,
                                          const cow_String& instanceName, const cow_String& partName) const = 0;
    // From `firstLine` on, every `stride`-th line: the non-blank items of the listed
    // columns; columns a line lacks are skipped.
    virtual void ReplaceSurfaceData(inp_Keyword& keyword, const cow_List<int>& columns, int stride,
                                    int firstLine) const;
    // Every item, blank ones too.
    virtual void ReplaceSurfaceAllData(inp_Keyword& keyword) const;
    // Nothing when the keyword lacks the parameter.
    virtual void ReplaceSurfaceParameter(inp_Keyword& keyword, const cow_String& parameter) const;

    void DefaultAction(inp_Keyword& keyword) override;

    // The column pass of a single column, the most common row.
    void ReplaceSurfaceColumn(inp_Keyword& keyword, int column, int firstLine = 0) const;
    // A name through ReplaceSurfaceName with the walk's scope.
    cow_String ReplaceName(const cow_String& name) const;

public:
#define INP_SURFACEFIXUP_DECLARE(Ident, ...) void Visit##Ident(inp_Keyword& keyword) override;
    INP_SURFACEFIXUP_MASTER_SLAVE(INP_SURFACEFIXUP_DECLARE)
    INP_SURFACEFIXUP_SURFACE_PARAMETER(INP_SURFACEFIXUP_DECLARE)
    INP_SURFACEFIXUP_PAIR_COLUMNS(INP_SURFACEFIXUP_DECLARE)
    INP_SURFACEFIXUP_COLUMN0(INP_SURFACEFIXUP_DECLARE)
    INP_SURFACEFIXUP_ALL_DATA(INP_SURFACEFIXUP_DECLARE)
    INP_SURFACEFIXUP_TYPED_PAIR(INP_SURFACEFIXUP_DECLARE)
#undef INP_SURFACEFIXUP_DECLARE

    void VisitContactOutput(inp_Keyword& keyword) override;
    void VisitNormal(inp_Keyword& keyword) override;
    void VisitRigidBody(inp_Keyword& keyword) override;
    void VisitRigidSurface(inp_Keyword& keyword) override;
    void VisitSubmodel(inp_Keyword& keyword) override;
    void VisitFastener(inp_Keyword& keyword) override;
    void VisitSpotWeld(inp_Keyword& keyword) override;
    void VisitSurface(inp_Keyword& keyword) override;

private:
    // A weld's first line may hold its properties instead of surfaces: then the
    // surfaces start on line 1.
    void ReplaceWeldSurfaces(inp_Keyword& keyword, bool exponentD) const;
};

#endif
