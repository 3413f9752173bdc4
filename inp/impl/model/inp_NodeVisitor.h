// inp_NodeVisitor: the pass that reads the nodes of a deck and its node sets.
//
// The pass fills `coordMap` and the node sets of its set map in one walk in deck order.
// inp_PartNodeVisitor reads the part level of an assembly deck, inp_AssemblyNodeVisitor
// the assembly and its instances. The scope of a keyword is the part when one is open,
// else the instance; a node set of a scope names ids and sets of that scope only, while
// one of the assembly level may name those of every instance.
//
// *NSET, ELSET= makes a node set out of the connectivity of an element set, which is
// why the pass holds the element map and the element sets of its level.
#ifndef INP_NODEVISITOR_H
#define INP_NODEVISITOR_H

#include "gsl_Matrix.h"
#include "inpM_InstanceMap.h"
#include "inp_CoordMap.h"
#include "inp_SetVisitor.h"

class inp_NodeVisitor : public inp_SetVisitor {
public:
    explicit inp_NodeVisitor(bool computeCoordinates);
    inp_NodeVisitor(const inpM_ElementMap& elements, const inpM_SetMap& elementSets, bool computeCoordinates);
    // The given sets become the set map, and set names may then stand in any scope.
    inp_NodeVisitor(const inpM_ElementMap& elements, const inpM_SetMap& elementSets, const inpM_SetMap& givenSets,
                    bool computeCoordinates);
    ~inp_NodeVisitor() override;

    cow_String KeywordName() const override;
    bool IsValidScope(const cow_String& name) const override;

    void VisitNcopy(inp_Keyword& keyword) override;
    void VisitNfill(inp_Keyword& keyword) override;
    void VisitNgen(inp_Keyword& keyword) override;
    void VisitNmap(inp_Keyword& keyword) override;
    void VisitNode(inp_Keyword& keyword) override;
    void VisitNset(inp_Keyword& keyword) override;
    void VisitSystem(inp_Keyword& keyword) override;

    inp_CoordMap coordMap;
    gsl_Matrix instanceTransform;
    gsl_Matrix systemTransform;
    inpM_InstanceMap<gsl_Matrix> transforms;
    inpM_InstanceMap<cow_String> instanceToPart;
    inpM_ElementMap elements;
    inpM_SetMap elementSets;
    bool searchAllInstances = false;
    bool computeCoordinates;
    // Gives back the lines of a *NODE keyword as the map takes them in, for a pass
    // whose keyword list the maps will stand for (the flat-deck conversion).
    bool releaseReadLines = false;


private:
    // *NSET, ELSET=: every node of every element of the set, 0 included.
    void NodesOfElementSet(const inp_Keyword& keyword, const cow_String& name, bool internal);
    // The nodes of the keyword's scope, the root map at the assembly level; null for a
    // scope that has no map.
    inp_CoordMap* ScopeMap();
    // A node set named by a generation keyword, in the scope or, when all instances are
    // searched, wherever it stands; null, reported, when there is none.
    const inpM_BaseSet* FindNodeSet(const inp_Keyword& keyword, const cow_String& name);
    // A generated node, carried back into the frame of the part first.
    void StoreGenerated(inp_CoordMap& map, int id, inp_Coord record) const;
    bool NfillLine(const inp_Keyword& keyword, int line, double bias, int singular, bool twoStep,
                   cow_1DArrayList<int>& ids);
    bool NgenLine(const inp_Keyword& keyword, int line, const cow_String& shape, const cow_String& system,
                  cow_1DArrayList<int>& ids);
};

// The part level of an assembly deck: the assembly's subtree is not walked.
class inp_PartNodeVisitor : public inp_NodeVisitor {
public:
    inp_PartNodeVisitor(const inpM_ElementMap& elements, const inpM_SetMap& elementSets);

    void Visit(inp_Keyword& keyword) override;
    void VisitPart(inp_Keyword& keyword) override;
    void VisitNcopy(inp_Keyword& keyword) override;
    void VisitNfill(inp_Keyword& keyword) override;
    void VisitNgen(inp_Keyword& keyword) override;
    void VisitNmap(inp_Keyword& keyword) override;
    void VisitNode(inp_Keyword& keyword) override;
    void VisitNset(inp_Keyword& keyword) override;
    void VisitSystem(inp_Keyword& keyword) override;
};

// The assembly and its instances: parts are not walked.
class inp_AssemblyNodeVisitor : public inp_NodeVisitor {
public:
    inp_AssemblyNodeVisitor(const inpM_ElementMap& elements, const inpM_SetMap& elementSets,
                            const inp_CoordMap& partCoordMap, const inpM_SetMap& partSets,
                            bool hasSymmetricModelGeneration, bool computeCoordinates);

    void Visit(inp_Keyword& keyword) override;
    void VisitInstance(inp_Keyword& keyword) override;
    void VisitEndInstance(inp_Keyword& keyword) override;
    void VisitStep(inp_Keyword& keyword) override;
    void VisitEndStep(inp_Keyword& keyword) override;
    void VisitNset(inp_Keyword& keyword) override;
    bool IsValidScope(const cow_String& name) const override;

    inp_CoordMap partCoordMap;
    inpM_SetMap partSets;
    bool hasSymmetricModelGeneration;
};

#endif
