// inp_FakePartSetVisitor: the references of a converted flat deck, at assembly and
// model level, in their scoped form.
//
// Once the sets and the mesh of a flat deck have been given to parts, a *BOUNDARY of
// a step that says TOP or 5 has to say PART-1-1.TOP or PART-1-1.5: outside a part
// only scoped names reach the model. References inside parts and instances are the
// part's own and stay as they are.
#ifndef INP_FAKEPARTSETVISITOR_H
#define INP_FAKEPARTSETVISITOR_H

#include "inp_SetFixupVisitor.h"

class inp_FakePartSetVisitor : public inp_SetFixupVisitor {
public:
    // The id maps are those of the renumbered part-level model and the set maps those
    // of the parts, all nested by part name. `parameters` must outlive the visitor.
    inp_FakePartSetVisitor(const inpM_IdMap& nodeIds, const inpM_IdMap& elementIds, const inpM_SetMap& elementSets,
                           const inpM_SetMap& nodeSets, bool instanceNamesAreFinal,
                           const inp_ModelParameters& parameters);
    ~inp_FakePartSetVisitor() override;

    // The scopes of the maps are instance names already; without it they are part
    // names, whose single instance is the part name with "-1" behind it.
    bool instanceNamesAreFinal;

protected:
    cow_String ReplaceReference(inp_Keyword& keyword, const cow_String& reference, const inpM_SetMap& sets,
                                const inpM_IdMap& ids, const cow_String& assemblyName,
                                const cow_String& instanceName, const cow_String& partName,
                                inp_SetType type) override;

private:
    cow_String Scoped(const cow_String& name, const cow_String& reference) const;
};

#endif
