// inp_AssyLevelElemVisitor: elements of the assembly level, whose connectivity joins
// nodes of different instances.
//
// Their nodes are written as scoped ids, `Pump-1.12`, which can be told only once the
// node ids of the whole model are known: the driver builds this pass with the node id
// map of the model and walks the keywords that the assembly element pass could not
// finish. Only springs, dashpots, masses, rotary inertia, capacitance, gaps and
// connectors may stand there.
#ifndef INP_ASSYLEVELELEMVISITOR_H
#define INP_ASSYLEVELELEMVISITOR_H

#include "inpM_IdMap.h"
#include "inp_ElementVisitor.h"

class inp_AssyLevelElemVisitor : public inp_ElementVisitor {
public:
    inp_AssyLevelElemVisitor();
    inp_AssyLevelElemVisitor(const inpM_ElementMap& elements, const inpM_SetMap& elementSets,
                             const inpM_IdMap& nodeIds, bool strictTypes);
    ~inp_AssyLevelElemVisitor() override;

    // Parts, instances and steps are not walked.
    void Visit(inp_Keyword& keyword) override;
    void VisitElement(inp_Keyword& keyword) override;
    // Only with processElementSets.
    void VisitElset(inp_Keyword& keyword) override;
    bool IsValidScope(const cow_String& name) const override;

    virtual void BuildElement(inp_Keyword& keyword);

    // True: a type counts as a spring or dashpot only when it is listed by name.
    bool strictTypes = false;
    inpM_IdMap nodeIds;
    bool processElementSets = false;

private:
    // The model id of one connectivity item; 0, reported, when it has none.
    int Resolve(const cow_String& text, bool connector);
};

#endif
