// inp_NodeGenerationVisitor: makes the nodes of the further layers of stacked elements.
//
// Some element families let the deck give the bottom layer of nodes only, with an
// offset of node ids between layers; the element pass completes their connectivity.
// This pass, run behind the node and element passes on the same keywords, makes those
// layer nodes exist: asymmetric elements copy the bottom node's coordinates into every
// layer, gasket and cohesive elements get a default record for a layer node that no
// *NODE defined.
#ifndef INP_NODEGENERATIONVISITOR_H
#define INP_NODEGENERATIONVISITOR_H

#include "inpM_InstanceMap.h"
#include "inpM_SetMap.h"
#include "inp_CoordMap.h"
#include "inp_ElementTypes.h"
#include "inp_Visitor.h"

class inp_NodeGenerationVisitor : public inp_Visitor {
public:
    // `partMode` walks the parts and skips the assembly, otherwise the reverse;
    // `defaultScope` stands for a keyword outside every part and instance.
    inp_NodeGenerationVisitor(const inp_CoordMap& coordMap, const inpM_ElementMap& elements,
                              const inpM_SetMap& elementSets, bool computeCoordinates, bool searchAllInstances,
                              bool partMode, const cow_String& defaultScope);
    ~inp_NodeGenerationVisitor() override;

    void Visit(inp_Keyword& keyword) override;
    void VisitElcopy(inp_Keyword& keyword) override;
    void VisitElement(inp_Keyword& keyword) override;
    void VisitElgen(inp_Keyword& keyword) override;
    virtual bool IsCurrentScope(const cow_String& name) const;

    inp_CoordMap coordMap;
    cow_Map<cow_String, inp_ElementInfo> elementInfo;
    inpM_ElementMap elements;
    inpM_SetMap elementSets;
    bool searchAllInstances;
    bool computeCoordinates;
    bool partMode;
    cow_String defaultScope;

protected:
    void DefaultAction(inp_Keyword& keyword) override;

    // The layers of one element type.
    struct Stack {
        bool asymmetric = false;
        int bottom = 0;
        int layers = 0;
        int Total() const { return bottom * layers; }
    };

private:
    cow_String Scope() const;
    // False for a type whose elements are not stacked here.
    bool StackOf(const cow_String& type, bool hasOffset, Stack& stack) const;
    // Makes the layer nodes of one element; false when its bottom node is missing.
    bool Complete(const int* nodes, const Stack& stack);
    // The ids of a generation line or a copy that stand in the table, each checked
    // for a complete connectivity and completed.
    bool CompleteGenerated(const inp_Keyword& keyword, int id, bool finalPeriod);
};

#endif
