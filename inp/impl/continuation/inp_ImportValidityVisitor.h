// inp_ImportValidityVisitor: the rules of an import told by parameters on *INSTANCE,
// with an *IMPORT inside the instance block.
//
// The pass reads the deck in its order, before any organizing: an *IMPORT ahead of
// every *PART, *ASSEMBLY and *INSTANCE is the older, deck-level style, one behind them
// belongs to the instance now open. An imported instance brings its mesh from the
// earlier job, so inside its block only the keywords that add to an existing mesh
// stay; any other is warned about and blanked. The record of the request is
// `importData`, for the driver to read.
#ifndef INP_IMPORTVALIDITYVISITOR_H
#define INP_IMPORTVALIDITYVISITOR_H

#include "cow_String.h"
#include "inp_ImportKwdData.h"
#include "inp_Visitor.h"

// The keywords that may stand inside an imported instance: the pass leaves them alone.
#define INP_IMPORT_KEPT_KEYWORDS(X)                                                                               \
    X(Coupling) X(Elset) X(EndAssembly) X(EndPart) X(Gap) X(Include) X(IntegratedOutputSection) X(Mass) X(Mpc)   \
    X(NonStructuralMass) X(Nset) X(Release) X(RigidBody) X(RigidSurface) X(RotaryInertia) X(Surface)            \
    X(SurfaceFlaw) X(SurfaceSection) X(SymmetricModelGeneration) X(Tie)

class inp_ImportValidityVisitor : public inp_Visitor {
public:
    inp_ImportValidityVisitor() = default;
    ~inp_ImportValidityVisitor() override;

    // The walk, the checks that need the whole deck, then Report.
    void VisitListAndReport(cow_1DArrayList<inp_Keyword>& keywords) override;

    void VisitAssembly(inp_Keyword& keyword) override;
    void VisitPart(inp_Keyword& keyword) override;
    void VisitInstance(inp_Keyword& keyword) override;
    void VisitEndInstance(inp_Keyword& keyword) override;
    void VisitImport(inp_Keyword& keyword) override;
    void VisitMapSolution(inp_Keyword& keyword) override;
#define INP_IMPORT_KEPT_DECLARATION(Ident) void Visit##Ident(inp_Keyword& keyword) override;
    INP_IMPORT_KEPT_KEYWORDS(INP_IMPORT_KEPT_DECLARATION)
#undef INP_IMPORT_KEPT_DECLARATION

    const inp_ImportKwdData& ImportData() const { return importData; }

    bool importRequested = false;
    bool hasImportOutsideModel = false;
    bool hasImportedInstance = false;
    bool hasMapSolution = false;
    bool inModelDefinition = false;
    bool hasImportInInstance = false;
    cow_String importedInstance;
    inp_ImportKwdData importData;

protected:
    void DefaultAction(inp_Keyword& keyword) override;
};

#endif
