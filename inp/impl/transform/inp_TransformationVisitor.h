// inp_TransformationVisitor: carries the geometry that keywords of an instance block
// hold in the axes of their part (points, directions, whole local systems) into global
// axes, for a driver that writes a deck of instances as one flat deck.
//
// The pass walks the keyword tree and builds a new one: every keyword is copied to the
// output, its data transformed where the keyword calls for it, with its suboptions
// transformed the same way beneath it. *NODE keywords are left out, since the nodes
// travel in the coordinate map. In front of a keyword the pass may place an
// *ORIENTATION (a local system for a connector or coupling that had none, which in the
// part was the part's axes) or a *TRANSFORM (nodes of an *EQUATION, whose degrees of
// freedom were written in the part's axes). The sets such a *TRANSFORM names go into
// the caller's node set map.
//
// The matrices are those the assembly node pass built from the *INSTANCE lines
// (inp_Deck::instanceTransformations). Ids and set members are the system's numbers:
// the id map of a scope takes a deck id to them, and the coordinate map reads under
// them. The input keywords are not changed: data are rewritten on copies.
//
// The scope of a keyword is the part it stands in, else its instance; a keyword outside
// both, or one under the identity, keeps its geometry.
#ifndef INP_TRANSFORMATIONVISITOR_H
#define INP_TRANSFORMATIONVISITOR_H

#include "cow_1DArrayList.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "gsl_Matrix.h"
#include "gsl_Point.h"
#include "gsl_Vector.h"
#include "inpM_IdMap.h"
#include "inpM_InstanceMap.h"
#include "inpM_SetMap.h"
#include "inp_CoordMap.h"
#include "inp_Element.h"
#include "inp_Visitor.h"
#include "omi_IntTable.h"

// The keywords with an operation of their own; every other keyword is copied as it is.
#define INP_TRANSFORM_OPERATIONS(X)                                                                             \
    X(Aqua) X(Assembly) X(BeamGeneralSection) X(BeamSection) X(Coupling) X(Dashpot) X(DesignShapeVariation)     \
    X(EndAssembly) X(EndInstance) X(EndPart) X(Equation) X(Fastener) X(FrameSection) X(Gap) X(GasketSection)   \
    X(ImpedanceProperty) X(Imperfection) X(Instance) X(Interface) X(Its) X(Joint) X(KinematicCoupling) X(Node) \
    X(Normal) X(Orientation) X(ParameterShapeVariation) X(Part) X(PreTensionSection) X(RigidSurface)            \
    X(RotaryInertia) X(SolidSection) X(Spring) X(Surface) X(Transform) X(Wave) X(Wind)

class inp_TransformationVisitor : public inp_Visitor {
public:
    // All references must outlive the visitor; the matrices are copied.
    inp_TransformationVisitor(const inpM_InstanceMap<gsl_Matrix>& instanceTransformations,
                              const cow_1DArrayList<int>& transformedNodes, inpM_SetMap& nodeSets,
                              const inpM_IdMap& nodeIds, bool replaceLocalSystems, const inp_CoordMap& coordinates,
                              const inpM_InstanceMap<omi_IntTable<inp_Element>>& elements,
                              const inpM_SetMap& elementSets);
    ~inp_TransformationVisitor() override;

    // Works on a copy of the keyword and appends the result to the output; unlike the
    // base it does not walk the suboptions afterwards, the copy has taken them along.
    void Visit(inp_Keyword& keyword) override;

#define INP_TRANSFORM_DECLARE(Ident) void Visit##Ident(inp_Keyword& keyword) override;
    INP_TRANSFORM_OPERATIONS(INP_TRANSFORM_DECLARE)
#undef INP_TRANSFORM_DECLARE

    // The transformed deck after VisitList: the top level of the new tree.
    const cow_1DArrayList<inp_Keyword>& Output() const { return output; }

protected:
    void DefaultAction(inp_Keyword& keyword) override;

    // Appends a copy of the keyword whose suboptions are the transformed ones.
    void EmitKeyword(inp_Keyword keyword);
    // Items column to column + 2 of a line as a point (moved and turned) or as a
    // vector (turned), written back; the line grows to three items from column. A line
    // or first item that is not there, or a blank first item, leaves the data alone.
    void TransformPointAt(inp_Keyword& keyword, int line, int column);
    void TransformVectorAt(inp_Keyword& keyword, int line, int column);
    // A keyword of local axes with its two axis points in global axes: as directions
    // when `rectangular`, else as positions. Later lines are copied.
    inp_Keyword TransformAxes(const inp_Keyword& keyword, bool rectangular) const;
    // Round-off of a rotation left in a component that is exactly 0 becomes 0 again.
    static void CleanVector(gsl_Vector& v);
    static void CleanPoint(gsl_Point& p);
    // The index of the line that begins with START, or the number of lines; `count`
    // is the number of lines ahead of it that begin with something.
    static int FindStartLine(const inp_Keyword& keyword, int& count);

private:
    // The part if one is open, else the instance; empty outside both.
    const cow_String& Scope() const;
    // Outside a scope, under the identity, or without data a keyword keeps its
    // geometry. When it is to be transformed, its data are made its own first.
    bool Guard(inp_Keyword& keyword) const;
    // A local system for a keyword that names none: placed in front as "prefix" and
    // the parameter's text, which the keyword then names under ORIENTATION.
    void EmitWithLocalSystem(inp_Keyword& keyword, const char* parameter, const char* prefix);
    // As above, only for an element set whose first element is one of two types.
    void EmitConnector(inp_Keyword& keyword, const char* first, const char* second, const char* prefix);
    // The coordinate of a deck node of the scope in global axes; false when the id map
    // or the coordinate map of the scope does not know it.
    bool NodeCoordinate(int localId, gsl_Point& global) const;
    // A radial and angular change (degrees) at a node, as a change in rectangular
    // components of the part's axes.
    void Cylindrical(const gsl_Point& global, double& dr, double& dtheta) const;
    void Spherical(const gsl_Point& global, double& dr, double& dtheta, double& dphi) const;
    // The deck ids of a node set of the scope, whose members hold the system's numbers.
    bool LocalIdsOfSet(const cow_String& name, cow_1DArrayList<int>& ids) const;

    gsl_Matrix currentTransformation;
    cow_1DArrayList<inp_Keyword> output;
    inpM_InstanceMap<gsl_Matrix> instanceTransformations;
    const cow_1DArrayList<int>& transformedNodes;
    inpM_SetMap& nodeSets;
    const inpM_IdMap& nodeIds;
    const inp_CoordMap& coordinates;
    const inpM_InstanceMap<omi_IntTable<inp_Element>>& elements;
    const inpM_SetMap& elementSets;
    // Sets made in the current instance, for their names.
    int setCounter = 0;
    bool replaceLocalSystems;
    // Nodes an *EQUATION has put under a *TRANSFORM, by scope.
    cow_Map<cow_String, cow_1DArrayList<int>> processedNodes;
};

#endif
