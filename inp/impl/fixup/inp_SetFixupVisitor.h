// inp_SetFixupVisitor: where node, element, node set and element set references stand
// in each keyword.
//
// This class knows the positions and nothing about names: it hands every reference to
// ReplaceReference and writes the answer back in place. A concrete pass implements
// ReplaceReference and so gives one rewriting of the deck (scoped names, periods, the
// flat-deck conversion, undefined nodes). A pass may override any other operation too.
//
// A bad reference is raised by ReplaceReference as nex_TextException. The data and
// parameter operations catch it, add one warning against the keyword and stop that
// operation only: what was rewritten stays rewritten and the override goes on with its
// next step. The few paths that call ReplaceReference straight from an override
// (bolted clearance, residual modes of *FREQUENCY, *ORIENTATION by nodes, *CONTOUR
// INTEGRAL, *EQUATION, cutting surfaces) don't catch: the exception leaves the walk.
#ifndef INP_SETFIXUPVISITOR_H
#define INP_SETFIXUPVISITOR_H

#include "cow_List.h"
#include "cow_String.h"
#include "inpM_IdMap.h"
#include "inpM_SetMap.h"
#include "inp_ModelParameters.h"
#include "inp_Visitor.h"

// The kind of reference handed to ReplaceReference.
enum inp_SetType : int {
    inp_ElementSet = 0,
    inp_NodeSet = 1,
    inp_AnySet = 2,  // the position doesn't tell
};

// The keywords whose rule is the same for all: X(Ident) for families A to D,
// X(Ident, "parameter") for family E.
// A: parameter "elset", element.
#define INP_SETFIXUP_ELSET_PARAMETER(X)                                                                          \
    X(AdaptiveMesh) X(BeamGeneralSection) X(BeamSection) X(ChangeFriction) X(CohesiveSection) X(ConnectorSection) \
    X(CreepStrainRateControl) X(Dashpot) X(DragChain) X(ElementMatrixOutput) X(ElementOutput) X(ElementResponse)  \
    X(ElFile) X(ElPrint) X(EnergyFile) X(EnergyOutput) X(EnergyPrint) X(Epjoint) X(ExtremeElementValue)          \
    X(FixedMassScaling) X(FluidLink) X(FrameSection) X(Gap) X(GasketSection) X(HeatCap) X(Interface) X(Its)        \
    X(Joint) X(Mass) X(MembraneSection) X(NonStructuralMass) X(PipeSoilInteraction) X(RadiationFile)             \
    X(RadiationOutput) X(RadiationPrint) X(RotaryInertia) X(ShellGeneralSection) X(ShellSection) X(Spring)        \
    X(SteadyStateDetection) X(SurfaceSection) X(UelProperty) X(VariableMassScaling)
// B: parameter "nset", node.
#define INP_SETFIXUP_NSET_PARAMETER(X)                                                                         \
    X(ContactControls) X(ContactFile) X(ContactOutput) X(ContactPrint) X(ContactResponse) X(ExtremeNodeValue)   \
    X(FractureCriterion) X(InteractionOutput) X(InteractionPrint) X(NodeFile) X(NodeOutput) X(NodePrint)        \
    X(NodeResponse) X(RadiationViewfactor) X(Transform)
// C: column 0 of every line, node.
#define INP_SETFIXUP_NODE_COLUMN0(X)                                                                         \
    X(AcousticFlowVelocity) X(Bond) X(Boundary) X(Cecharge) X(Cecurrent) X(Cfilm) X(Cflow) X(Cflux) X(Cradiate) \
    X(FluidFlux) X(FluidInflator) X(MassFlowRate) X(Motion) X(PressureStress) X(RetainedNodalDofs)             \
    X(SurfaceFlaw) X(TransportVelocity)
// D: column 0 of every line, element.
#define INP_SETFIXUP_ELEMENT_COLUMN0(X)                                                                       \
    X(ConnectorLoad) X(ConnectorMotion) X(DAddedMass) X(Decharge) X(Decurrent) X(Dflow) X(Dflux) X(Film) X(Flow) \
    X(Foundation) X(Impedance) X(PrestressHold) X(Radiate) X(Release) X(Sload)
// E: the parameter named, node.
#define INP_SETFIXUP_NODE_PARAMETER(X)                                                     \
    X(Coupling, "refnode") X(FluidCavity, "refnode") X(SpotWeld, "referencenodeset") X(Monitor, "node") \
    X(Tie, "tiednset")

class inp_SetFixupVisitor : public inp_Visitor {
public:
    // The maps are shared copies; `parameters` is the deck's and must outlive the visitor.
    inp_SetFixupVisitor(const inpM_SetMap& nodeSets, const inpM_SetMap& elementSets, const inpM_IdMap& nodeIds,
                        const inpM_IdMap& elementIds, const inp_ModelParameters& parameters);
    ~inp_SetFixupVisitor() override;

    // "element ", "node " or empty: subclasses put it in front of a noun in their messages.
    cow_String SetTypeEnm2String(inp_SetType type) const;

    inpM_SetMap nodeSets;
    inpM_SetMap elementSets;
    inpM_IdMap nodeIds;
    inpM_IdMap elementIds;
    const inp_ModelParameters& modelParameters;

protected:
    // The text that takes the place of `reference`; `reference` itself to keep it.
    // Raises nex_TextException for a reference the pass cannot place.
    virtual cow_String ReplaceReference(inp_Keyword& keyword, const cow_String& reference, const inpM_SetMap& sets,
                                        const inpM_IdMap& ids, const cow_String& assemblyName,
                                        const cow_String& instanceName, const cow_String& partName,
                                        inp_SetType type) = 0;
    virtual void ReplaceNodeOrNsetData(inp_Keyword& keyword, const cow_List<int>& columns, int stride);
    virtual void ReplaceNodeOrNsetAllData(inp_Keyword& keyword);
    virtual void ReplaceElementOrElsetData(inp_Keyword& keyword, const cow_List<int>& columns, int stride);
    virtual void ReplaceElementOrElsetAllData(inp_Keyword& keyword);
    virtual void ReplaceNodeOrNsetParameter(inp_Keyword& keyword, const cow_String& parameter);
    virtual void ReplaceElementOrElsetParameter(inp_Keyword& keyword, const cow_String& parameter);
    // Rewrites the item only when it is an id, scoped or not; a set name stays.
    virtual void ReplaceIdSingleDatum(inp_Keyword& keyword, int line, int column, const inpM_SetMap& sets,
                                      const inpM_IdMap& ids);
    virtual void ReplaceIdOrSetSingleDatum(inp_Keyword& keyword, int line, int column, const inpM_SetMap& sets,
                                           const inpM_IdMap& ids);
    // Blank items of the listed columns are handed over too; columns a line lacks are
    // skipped. Only lines whose index is a multiple of `stride` are looked at.
    virtual void ReplaceIdOrSetData(inp_Keyword& keyword, const cow_List<int>& columns, const inpM_SetMap& sets,
                                    const inpM_IdMap& ids, int stride, inp_SetType type);
    // Every non-blank item.
    virtual void ReplaceIdOrSetAllData(inp_Keyword& keyword, const inpM_SetMap& sets, const inpM_IdMap& ids);
    // No catch: the Node and Element forms above wrap it.
    virtual void ReplaceIdOrSetParameter(inp_Keyword& keyword, const cow_String& parameter, const inpM_SetMap& sets,
                                         const inpM_IdMap& ids);
    // No catch.
    virtual cow_String ReplaceNodeOrNset(const inp_Keyword& keyword, const cow_String& reference);
    virtual cow_String ReplaceElementOrElset(const inp_Keyword& keyword, const cow_String& reference);
    // The data of a surface given by elements; reached only through VisitSurface.
    virtual void VisitSurfaceDefinition(inp_Keyword& keyword);

    void DefaultAction(inp_Keyword& keyword) override;

    // The column-0 pass of one kind, the most common row.
    void ReplaceNodeColumn(inp_Keyword& keyword, int column, int stride = 1);
    void ReplaceElementColumn(inp_Keyword& keyword, int column, int stride = 1);
    // Stride of a temperature record: values per node over eight per line, with
    // `factor` records per node.
    int TemperatureStride(int factor) const;
    // 0 for a keyword that holds no array at all.
    static int NumberOfLines(const inp_Keyword& keyword);

public:
#define INP_SETFIXUP_DECLARE(Ident, ...) void Visit##Ident(inp_Keyword& keyword) override;
    INP_SETFIXUP_ELSET_PARAMETER(INP_SETFIXUP_DECLARE)
    INP_SETFIXUP_NSET_PARAMETER(INP_SETFIXUP_DECLARE)
    INP_SETFIXUP_NODE_COLUMN0(INP_SETFIXUP_DECLARE)
    INP_SETFIXUP_ELEMENT_COLUMN0(INP_SETFIXUP_DECLARE)
    INP_SETFIXUP_NODE_PARAMETER(INP_SETFIXUP_DECLARE)
#undef INP_SETFIXUP_DECLARE

    void VisitCAddedMass(inp_Keyword& keyword) override;
    void VisitFluidProperty(inp_Keyword& keyword) override;
    void VisitSolidSection(inp_Keyword& keyword) override;
    void VisitFastener(inp_Keyword& keyword) override;
    void VisitPreTensionSection(inp_Keyword& keyword) override;
    void VisitDistributingCoupling(inp_Keyword& keyword) override;
    void VisitKinematicCoupling(inp_Keyword& keyword) override;
    void VisitParameterShapeVariation(inp_Keyword& keyword) override;
    void VisitDesignShapeVariation(inp_Keyword& keyword) override;
    void VisitEmbeddedElement(inp_Keyword& keyword) override;
    void VisitFluidExchange(inp_Keyword& keyword) override;
    void VisitIncidentWaveInteraction(inp_Keyword& keyword) override;
    void VisitPressurePenetration(inp_Keyword& keyword) override;
    void VisitMpc(inp_Keyword& keyword) override;
    void VisitSteadyStateCriteria(inp_Keyword& keyword) override;
    void VisitTracerParticle(inp_Keyword& keyword) override;
    void VisitImport(inp_Keyword& keyword) override;
    void VisitImportElset(inp_Keyword& keyword) override;
    void VisitImportNset(inp_Keyword& keyword) override;
    void VisitAdaptiveMeshConstraint(inp_Keyword& keyword) override;
    void VisitClearance(inp_Keyword& keyword) override;
    void VisitContactInterference(inp_Keyword& keyword) override;
    void VisitContactPair(inp_Keyword& keyword) override;
    void VisitCoSimulationRegion(inp_Keyword& keyword) override;
    void VisitDistribution(inp_Keyword& keyword) override;
    void VisitDload(inp_Keyword& keyword) override;
    void VisitDsload(inp_Keyword& keyword) override;
    void VisitField(inp_Keyword& keyword) override;
    void VisitTemperature(inp_Keyword& keyword) override;
    void VisitFrequency(inp_Keyword& keyword) override;
    void VisitImperfection(inp_Keyword& keyword) override;
    void VisitIntegratedOutputSection(inp_Keyword& keyword) override;
    void VisitModelChange(inp_Keyword& keyword) override;
    void VisitNodalThickness(inp_Keyword& keyword) override;
    void VisitNormal(inp_Keyword& keyword) override;
    void VisitOrientation(inp_Keyword& keyword) override;
    void VisitRebar(inp_Keyword& keyword) override;
    void VisitRigidBody(inp_Keyword& keyword) override;
    void VisitRigidSurface(inp_Keyword& keyword) override;
    void VisitSectionFile(inp_Keyword& keyword) override;
    void VisitSectionPrint(inp_Keyword& keyword) override;
    void VisitSpatialDistribution(inp_Keyword& keyword) override;
    void VisitStatic(inp_Keyword& keyword) override;
    void VisitSubmodel(inp_Keyword& keyword) override;
    void VisitInitialConditions(inp_Keyword& keyword) override;
    void VisitCload(inp_Keyword& keyword) override;
    void VisitContourIntegral(inp_Keyword& keyword) override;
    void VisitEquation(inp_Keyword& keyword) override;
    void VisitSlideLine(inp_Keyword& keyword) override;
    void VisitSurface(inp_Keyword& keyword) override;

private:
    // *SLIDE LINE, GENERATE: the data as the ids they stand for, eight to a line.
    void ExpandSlideLine(inp_Keyword& keyword);
    void AddWarning(const inp_Keyword& keyword, const atr_String& text);
    // The walks behind the single datum and data operations, each inside its catch.
    // Without `columns` every non-blank item is taken.
    void ReplaceSingleDatum(inp_Keyword& keyword, int line, int column, const inpM_SetMap& sets,
                            const inpM_IdMap& ids, bool idsOnly);
    void ReplaceItems(inp_Keyword& keyword, const inpM_SetMap& sets, const inpM_IdMap& ids,
                      const cow_List<int>* columns, int stride, inp_SetType type);
};

#endif
