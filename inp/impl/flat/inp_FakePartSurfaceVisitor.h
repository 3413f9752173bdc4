// inp_FakePartSurfaceVisitor: puts the references to analytical surfaces of a converted
// flat deck into the scope of the parts that the conversion made for them.
//
// Each analytical surface got a part of its own, named after the surface, with one
// instance named after the part with "-1" behind it. A reference at assembly level must
// therefore name the surface inside that instance; references inside a part or an
// instance already stand where the surface is.
#ifndef INP_FAKEPARTSURFACEVISITOR_H
#define INP_FAKEPARTSURFACEVISITOR_H

#include "cow_List.h"
#include "cow_String.h"
#include "inp_SurfaceFixupVisitor.h"

class inp_FakePartSurfaceVisitor : public inp_SurfaceFixupVisitor {
public:
    // `surfaces`: the surfaces of the deck's parts.
    explicit inp_FakePartSurfaceVisitor(const inpM_SurfaceMap& surfaces);

    // In the order of the deck, as their definitions are walked.
    cow_List<cow_String> analyticalSurfaceNames;

    void VisitRigidSurface(inp_Keyword& keyword) override;
    void VisitSurface(inp_Keyword& keyword) override;
    void VisitRigidBody(inp_Keyword& keyword) override;

protected:
    cow_String ReplaceSurfaceName(const cow_String& name, const cow_String& assemblyName,
                                  const cow_String& instanceName, const cow_String& partName) const override;

private:
    // The scoped name of a surface inside the instance of its own part.
    static cow_String InOwnInstance(const cow_String& name);

    // Rigid surfaces seen so far. Held per visitor, so that an unnamed surface's name
    // is unique within its deck and doesn't depend on decks read before.
    int rigidSurfaceCount = 0;
};

#endif
