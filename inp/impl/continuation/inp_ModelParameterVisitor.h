// inp_ModelParameterVisitor: one read-only walk that gathers the deck-wide numbers and
// flags of inp_ModelParameters.
//
// The numbers only ever rise and the flags are only ever set, so a second walk can add
// to what a first one found but never take it back. The pass reports nothing: a value
// that is no number reads as 0, and 0 raises nothing.
#ifndef INP_MODELPARAMETERVISITOR_H
#define INP_MODELPARAMETERVISITOR_H

#include "inp_ModelParameters.h"
#include "inp_Visitor.h"

class inp_ModelParameterVisitor : public inp_Visitor {
public:
    explicit inp_ModelParameterVisitor(inp_ModelParameters& parameters);

    void VisitAssembly(inp_Keyword& keyword) override;
    void VisitPart(inp_Keyword& keyword) override;
    void VisitInstance(inp_Keyword& keyword) override;
    void VisitImport(inp_Keyword& keyword) override;
    void VisitStep(inp_Keyword& keyword) override;
    void VisitStatic(inp_Keyword& keyword) override;
    void VisitSymmetricModelGeneration(inp_Keyword& keyword) override;
    void VisitElement(inp_Keyword& keyword) override;
    void VisitDepvar(inp_Keyword& keyword) override;
    void VisitShellGeneralSection(inp_Keyword& keyword) override;
    void VisitUserElement(inp_Keyword& keyword) override;
    void VisitBeamSection(inp_Keyword& keyword) override;
    void VisitShellSection(inp_Keyword& keyword) override;

protected:
    void DefaultAction(inp_Keyword& keyword) override;

private:
    inp_ModelParameters* m_parameters;
    // Until the next *STEP; an *END STEP does not end it.
    bool inPerturbationStep = false;
};

#endif
