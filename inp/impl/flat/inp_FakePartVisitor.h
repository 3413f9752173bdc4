// inp_FakePartVisitor: the keyword list of a flat deck rewritten as one assembly of
// part instances.
//
// A flat deck has no *PART, *ASSEMBLY or *INSTANCE, but every pass behind the
// conversion expects them. The walk sorts each keyword into the level it belongs to
// (model, assembly, part, or the step it stands in) and drops the keywords whose
// content the node and element passes have taken into the maps already. The mesh goes
// into one part "PART-1" with one instance "PART-1-1" in the assembly "Assembly-1".
// Rigid surfaces, and rigid bodies made of rigid elements, get parts of their own, so
// that an instance transformation can place them; their reference nodes go with them.
//
// Until GetConvertedKeywords hands elements to parts, the flat model's nodes, elements
// and sets stand under the pseudo-instance "FAKE". What is left there afterwards is
// what no part took.
//
// inp_SimpleFakePartVisitor keeps everything in PART-1: no rigid parts, no reference
// nodes, no transformations.
//
// Use: VisitList(keywords), GetConvertedKeywords(result) to replace the list, Report;
// then take instanceToPart, partCoordinates, partElements and surfaces.
#ifndef INP_FAKEPARTVISITOR_H
#define INP_FAKEPARTVISITOR_H

#include <vector>

#include "cow_1DArrayList.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "gsl_Matrix.h"
#include "inpM_InstanceMap.h"
#include "inpM_SetMap.h"
#include "inpM_SurfaceMap.h"
#include "inp_CoordMap.h"
#include "inp_Visitor.h"

// Keywords that may stand under several parents: X(Ident, candidate parents...).
#define INP_FAKEPART_CONTACT_PARENTS inp_kwGap, inp_kwInterface, inp_kwSurfaceInteraction
#define INP_FAKEPART_SUBOPTION(X)                                                                                   \
    X(Blockage, inp_kwSurfaceInteraction)                                                                           \
    X(BucklingReductionFactors, inp_kwBrittleCracking, inp_kwFrameSection)                                          \
    X(ConnectorContactForce, inp_kwConnectorFriction)                                                               \
    X(ContactDamping, INP_FAKEPART_CONTACT_PARENTS)                                                                 \
    X(Damping, inp_kwBeamGeneralSection, inp_kwMaterial, inp_kwShellGeneralSection, inp_kwSubstructureProperty)     \
    X(DesignVariation, inp_kwBeamSection, inp_kwDensity, inp_kwElastic, inp_kwHyperelastic, inp_kwHyperfoam,        \
      inp_kwMembraneSection, inp_kwOrientation, inp_kwPlastic, inp_kwRigidBody, inp_kwShellSection,                 \
      inp_kwSolidSection, inp_kwFriction, inp_kwGasketSection, inp_kwCload)                                         \
    X(Friction, inp_kwChangeFriction, inp_kwConnectorFriction, inp_kwGap, inp_kwInterface, inp_kwIts,               \
      inp_kwSurfaceInteraction)                                                                                     \
    X(GapConductance, INP_FAKEPART_CONTACT_PARENTS)                                                                 \
    X(GapHeatGeneration, INP_FAKEPART_CONTACT_PARENTS)                                                              \
    X(GapRadiation, INP_FAKEPART_CONTACT_PARENTS)                                                                   \
    X(SectionPoints, inp_kwBeamSectionGenerate, inp_kwBeamGeneralSection)                                           \
    X(SurfaceBehavior, INP_FAKEPART_CONTACT_PARENTS)
// An orientation (or joint direction) named in a parameter, and the level the keyword
// goes to: X(Ident, "parameter", bucket).
#define INP_FAKEPART_ORIENTATION_PARAMETER(X)                                                                    \
    X(Coupling, "orientation", assemblyKeywords) X(KinematicCoupling, "orientation", assemblyKeywords)            \
    X(IntegratedOutputSection, "orientation", assemblyKeywords) X(RotaryInertia, "orientation", assemblyKeywords) \
    X(Fastener, "orientation", partKeywords) X(JointedMaterial, "jointdirection", modelKeywords)
// One level whatever the step: X(Ident, bucket).
#define INP_FAKEPART_FIXED_LEVEL(X) X(Mass, assemblyKeywords) X(HeatCap, assemblyKeywords) X(Orientation, partKeywords)
// Output requests whose REBAR parameter names a rebar of the mesh.
#define INP_FAKEPART_REBAR_PARAMETER(X) X(ElFile) X(ElPrint)
// What the node and element passes have read into the maps already.
#define INP_FAKEPART_NODE_DEFINITION(X) X(Nfill) X(Node) X(Ngen) X(Nmap) X(Ncopy)
#define INP_FAKEPART_ELEMENT_DEFINITION(X) X(Element) X(Elgen) X(Elcopy)

class inp_FakePartVisitor : public inp_Visitor {
public:
    // The names of the conversion. Another part's instance is its name and the suffix.
    static constexpr const char* kPart1 = "PART-1";
    static constexpr const char* kScopePrefix = "PART-1-1.";
    static constexpr const char* kAssemblyName = "Assembly-1";
    static constexpr const char* kInstanceSuffix = "-1";
    // The lists are made with this room, which most decks never outgrow.
    static constexpr int kInitialCapacity = 4096;

    // Copies of the flat model under "FAKE"; shared until written.
    inp_FakePartVisitor(const inp_CoordMap& flatCoordinates, const inpM_SetMap& nodeSets,
                        const inpM_InstanceMap<omi_IntTable<inp_Element>>& flatElements,
                        const inpM_SetMap& elementSets, bool hasSymmetricModelGeneration);
    ~inp_FakePartVisitor() override;

    // Analytical surfaces are moved ahead of their rigid bodies first, so that a body
    // finds the transformation of the surface's part.
    void VisitList(cow_1DArrayList<inp_Keyword>& keywords) override;
    // The list is flat: whatever a keyword holds travels with it.
    void VisitSuboptions(inp_Keyword& keyword) override;

    // Hands the elements to parts and builds the new list into `result`.
    virtual void GetConvertedKeywords(cow_1DArrayList<inp_Keyword>& result);
    virtual void PlaceInStepOrAssembly(inp_Keyword& keyword);
    virtual void MoveElements(const cow_String& part, const cow_1DArrayList<int>& ids);
    virtual void AssignElements(const cow_1DArrayList<int>& plain, const cow_1DArrayList<int>& other);
    virtual void AddAssemblyElements();

#define INP_FAKEPART_DECLARE(Ident, ...) void Visit##Ident(inp_Keyword& keyword) override;
    INP_FAKEPART_SUBOPTION(INP_FAKEPART_DECLARE)
    INP_FAKEPART_ORIENTATION_PARAMETER(INP_FAKEPART_DECLARE)
    INP_FAKEPART_FIXED_LEVEL(INP_FAKEPART_DECLARE)
    INP_FAKEPART_REBAR_PARAMETER(INP_FAKEPART_DECLARE)
    INP_FAKEPART_NODE_DEFINITION(INP_FAKEPART_DECLARE)
    INP_FAKEPART_ELEMENT_DEFINITION(INP_FAKEPART_DECLARE)
#undef INP_FAKEPART_DECLARE
    void VisitNset(inp_Keyword& keyword) override;
    void VisitElset(inp_Keyword& keyword) override;
    void VisitStep(inp_Keyword& keyword) override;
    void VisitEndStep(inp_Keyword& keyword) override;
    void VisitRigidBody(inp_Keyword& keyword) override;
    void VisitRigidSurface(inp_Keyword& keyword) override;
    void VisitSurface(inp_Keyword& keyword) override;
    void VisitInitialConditions(inp_Keyword& keyword) override;
    void VisitBoundary(inp_Keyword& keyword) override;
    void VisitSpring(inp_Keyword& keyword) override;
    void VisitDashpot(inp_Keyword& keyword) override;
    void VisitIts(inp_Keyword& keyword) override;
    void VisitJoint(inp_Keyword& keyword) override;
    void VisitConnectorSection(inp_Keyword& keyword) override;
    void VisitPrestressHold(inp_Keyword& keyword) override;

    cow_1DArrayList<int> modelLevel;
    cow_1DArrayList<int> assemblyLevel;
    cow_1DArrayList<int> partLevel;
    // Values of the keywords walked so far, the current one not yet.
    cow_1DArrayList<int> visited;
    cow_1DArrayList<inp_Keyword> modelKeywords;
    cow_1DArrayList<inp_Keyword> assemblyKeywords;
    cow_1DArrayList<inp_Keyword> partKeywords;
    // *SPRING and *DASHPOT that go where their elements go.
    cow_1DArrayList<inp_Keyword> connectionKeywords;
    // Each list starts with its *PART.
    cow_Map<cow_String, cow_1DArrayList<inp_Keyword>> partLists;
    // Each list starts with its *STEP.
    cow_Map<cow_String, cow_1DArrayList<inp_Keyword>> stepLists;
    cow_List<cow_String> stepOrder;
    // Parts made from the element set of a *RIGID BODY.
    cow_List<cow_String> rigidElsetParts;
    inp_CoordMap flatCoordinates;
    inp_CoordMap partCoordinates;
    inpM_InstanceMap<omi_IntTable<inp_Element>> flatElements;
    // By part name; the root holds the elements that connect parts.
    inpM_InstanceMap<omi_IntTable<inp_Element>> partElements;
    inpM_SetMap elementSets;
    inpM_SetMap nodeSets;
    cow_Map<cow_String, cow_1DArrayList<int>> partRefNodes;
    // Reference nodes of rigid bodies that have no geometry of their own.
    cow_1DArrayList<int> standaloneRefNodes;
    inpM_SurfaceMap surfaces;
    inpM_InstanceMap<cow_String> instanceToPart;
    bool hasSymmetricModelGeneration;
    // Part name to the placement of its instance.
    inpM_InstanceMap<gsl_Matrix> partTransforms;
    // Set by the first *ITS or *JOINT: from then on a *SPRING or *DASHPOT may be theirs.
    bool connectionsFollowParent = false;

protected:
    void DefaultAction(inp_Keyword& keyword) override;

    // Into the current step, else the first of model, assembly and part level that
    // knows the keyword; an unknown one is reported and lost.
    void SortByLevel(inp_Keyword& keyword);
    // Into the bucket where the nearest parent among `candidates` went.
    void PlaceSuboption(const cow_1DArrayList<int>& candidates, inp_Keyword& keyword);
    // The value of the last keyword of `list` in `candidates` if everything behind it
    // stands under it; 0 otherwise.
    int LastOpenParent(const cow_1DArrayList<inp_Keyword>& list, const cow_1DArrayList<int>& candidates) const;
    // Whether the keyword at j is a suboption of the one at i, directly or through the
    // keywords between them.
    bool IsUnder(const cow_1DArrayList<inp_Keyword>& list, int i, int j) const;
    // The current step's list, or `outside` when no step is open.
    void AppendToStepOr(cow_1DArrayList<inp_Keyword>& outside, const inp_Keyword& keyword);

    // The surface name of a rigid surface; `unnamed` for one given by ELSET alone. One
    // with neither NAME nor ELSET is reported, and the answer is false.
    bool ResolveRigidName(const inp_Keyword& keyword, cow_String& name, bool& unnamed);
    // The part of a rigid surface or rigid element set: its list, coordinates and elements.
    void EnsureRigidPart(const cow_String& part);
    // The part a rigid body refers to; only PART-1 gets a list and elements here.
    void EnsurePart(const cow_String& part);
    // The placement of a CYLINDER or REVOLUTION surface from its header lines, which
    // leave the keyword; the identity for any other surface.
    gsl_Matrix SurfaceTransform(inp_Keyword& keyword);
    // REFNODE of a rigid surface, or with `body` of a rigid body: a node set or a node.
    void AssignRefNodeParameter(const inp_Keyword& keyword, const gsl_Matrix& matrix, const cow_String& part,
                                bool standalone, bool body);
    void AssignRefNode(const gsl_Matrix& matrix, const cow_String& part, int id, bool standalone);
    // The analytical surface of the part in `surfaces`.
    void AddSurface(const cow_String& part, const cow_String& name, bool unnamed);

    // Element types that tie nodes of different parts, and those of rigid elements.
    static bool IsConnectorType(const cow_String& type);
    static bool IsRigidType(const cow_String& type);
    // The parts whose reference nodes hold the node, in ascending order.
    cow_List<cow_String> HoldersOf(int node) const;
    // The parts of an element's nodes, each once; a node nobody holds counts as PART-1.
    cow_List<cow_String> PartsOfElement(const inp_Element& element) const;
    void MoveNodeToPart(int node, const cow_String& part);
    // The elements, nodes and sets of the flat model; empty (or null) when there are none.
    const omi_IntTable<inp_Element>& FlatElementTable() const;
    // MoveElements of every flat element to a part without elements: the table itself.
    bool HandOverWholeTable(const cow_String& part, const cow_1DArrayList<int>& ids);
    // Whether PART-1 is the one part that ends up with nodes: then it takes the flat
    // node table whole, as it would take every node one by one.
    bool MeshTakesAllNodes() const;
    // Set by AssignElements for the moves it makes: no part but PART-1 gets elements.
    bool m_meshOnly = false;
    static void CopyNodesOf(const inp_Element& element, inp_CoordMap& nodes, const inp_CoordMap* flatNodes);
    omi_IntTable<inp_Element>& WritableFlatElements();
    const inp_CoordMap* FlatNodes() const;
    const inpM_BaseSetMap& FlatElementSets() const;
    const inpM_BaseSetMap& FlatNodeSets() const;
    // A part's coordinates, made when absent.
    inp_CoordMap& PartNodes(const cow_String& part);
    // A part's list, made with its *PART when absent.
    cow_1DArrayList<inp_Keyword>& PartList(const cow_String& part);
    // A part's elements, made when absent.
    omi_IntTable<inp_Element>& PartElementTable(const cow_String& part);

    void BuildKeywordList(cow_1DArrayList<inp_Keyword>& result);
    void AddInstanceTransform(inp_Keyword& instance, const gsl_Matrix& matrix) const;
    void AddElementKeywords(cow_1DArrayList<inp_Keyword>& result) const;
    // One *ELEMENT per element of the assembly level, each node named through the
    // instance of the part that holds it, or with `singlePart` through PART-1-1.
    void AddAssemblyElementKeywords(bool singlePart);

private:
    // Which of the level lists hold a keyword value: one bit per list.
    std::vector<unsigned char> m_levels;
    // Every node that some part took as reference node: most nodes are not, and the
    // question "who holds this node" is then answered without a walk over the parts.
    std::vector<int> m_refNodes;
    bool IsRefNode(int node) const;
    // The parameter's name with the scope of PART-1-1 in front; with `stringOnly` only
    // a string item counts as a name.
    static void PrefixParameter(inp_Keyword& keyword, const char* parameter, bool stringOnly);
};

class inp_SimpleFakePartVisitor : public inp_FakePartVisitor {
public:
    using inp_FakePartVisitor::inp_FakePartVisitor;

    void VisitRigidBody(inp_Keyword& keyword) override;
    void VisitRigidSurface(inp_Keyword& keyword) override;
    void GetConvertedKeywords(cow_1DArrayList<inp_Keyword>& result) override;
    void MoveElements(const cow_String& part, const cow_1DArrayList<int>& ids) override;
    void AssignElements(const cow_1DArrayList<int>& plain, const cow_1DArrayList<int>& other) override;
    void AddAssemblyElements() override;
};

#endif
