// inp_OrientationFixupVisitor: where the names that are neither sets nor surfaces stand
// in each keyword: orientations above all, and with them cavities, fluid behaviors,
// fluid inflators and their properties, and joint directions.
//
// Like the set fixup, this class knows positions and nothing about names: it hands each
// name to ReplaceOrientationName and writes the answer back in place, so that a scoping
// pass and a period-removal pass are each one small override over the same list.
//
// A name the pass cannot place is raised by ReplaceOrientationName as nex_TextException.
// ReplaceParameter and ReplaceData catch it, add one message to `errors` and keep the
// name as it was read; the override goes on with its next name.
#ifndef INP_ORIENTATIONFIXUPVISITOR_H
#define INP_ORIENTATIONFIXUPVISITOR_H

#include "cow_String.h"
#include "inp_Visitor.h"

// The keywords whose one rule is a single parameter: X(Ident) for each member.
// Parameter "orientation".
#define INP_ORIENTFIXUP_ORIENTATION_PARAMETER(X)                                                       \
    X(CohesiveSection) X(Coupling) X(Dashpot) X(Dsload) X(Epjoint) X(Fastener) X(GasketSection)        \
    X(InertiaRelief) X(IntegratedOutputSection) X(Joint) X(KinematicCoupling) X(MembraneSection)       \
    X(PipeSoilInteraction) X(Rebar) X(RebarLayer) X(RotaryInertia) X(ShellGeneralSection) X(Spring)
// Parameter "name": the keywords that define what the others refer to.
#define INP_ORIENTFIXUP_NAME_PARAMETER(X) X(CavityDefinition) X(FluidBehavior) X(FluidInflatorProperty) X(Orientation)
// Parameter "cavity".
#define INP_ORIENTFIXUP_CAVITY_PARAMETER(X) \
    X(RadiationFile) X(RadiationOutput) X(RadiationPrint) X(RadiationViewfactor) X(ViewfactorOutput)

class inp_OrientationFixupVisitor : public inp_Visitor {
public:
    inp_OrientationFixupVisitor();
    ~inp_OrientationFixupVisitor() override;

protected:
    // The parameter's value through ReplaceOrientationName, typed afresh; a missing
    // parameter is left alone.
    virtual void ReplaceParameter(inp_Keyword& keyword, const cow_String& parameter);
    // The answer of ReplaceOrientationName, or `name` itself when that raised.
    virtual cow_String ReplaceData(inp_Keyword& keyword, const cow_String& name);
    // The text that takes the place of `name`; `name` itself to keep it. Raises
    // nex_TextException for a name the pass cannot place.
    virtual cow_String ReplaceOrientationName(const cow_String& name) = 0;

    void DefaultAction(inp_Keyword& keyword) override;

public:
#define INP_ORIENTFIXUP_DECLARE(Ident) void Visit##Ident(inp_Keyword& keyword) override;
    INP_ORIENTFIXUP_ORIENTATION_PARAMETER(INP_ORIENTFIXUP_DECLARE)
    INP_ORIENTFIXUP_NAME_PARAMETER(INP_ORIENTFIXUP_DECLARE)
    INP_ORIENTFIXUP_CAVITY_PARAMETER(INP_ORIENTFIXUP_DECLARE)
#undef INP_ORIENTFIXUP_DECLARE

    void VisitJointedMaterial(inp_Keyword& keyword) override;
    void VisitFluidInflator(inp_Keyword& keyword) override;
    void VisitFluidCavity(inp_Keyword& keyword) override;
    void VisitConnectorSection(inp_Keyword& keyword) override;
    void VisitContactPair(inp_Keyword& keyword) override;
    void VisitFluidInflatorMixture(inp_Keyword& keyword) override;
    void VisitShellSection(inp_Keyword& keyword) override;
    void VisitSolidSection(inp_Keyword& keyword) override;

private:
    // One data item through ReplaceData, written back; an item the line lacks is skipped.
    void ReplaceDatum(inp_Keyword& keyword, int line, int column);
    // The orientation parameter, then the orientation that a composite section gives
    // each layer in column 3.
    void ReplaceSectionOrientations(inp_Keyword& keyword);
};

#endif
