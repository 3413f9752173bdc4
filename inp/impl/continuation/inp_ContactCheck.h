// inp_ContactCheck: contact field output that the explicit procedure cannot deliver.
//
// The explicit procedure writes no contact field output for a contact pair one of whose
// surfaces is a node-based surface spanning several instances. No single keyword shows
// the combination: the surfaces come from the model, the pairs and the output requests
// from the steps, each with the history that OP= gives it from step to step. The check
// replays the steps in order with two running lists of contact pair sets (the values of
// CPSET), those that hold such a surface and those that field output is requested for,
// and reports each explicit step at whose end the two overlap.
//
// A plain class, not a visitor, that changes nothing in the deck. The driver builds it
// from the assembly's surface map and the organized keyword list, once the model is
// complete, and calls PerformCheck once: the lists are not reset on entry.
#ifndef INP_CONTACTCHECK_H
#define INP_CONTACTCHECK_H

#include "cow_1DArrayList.h"
#include "cow_String.h"
#include "inpM_SurfaceMap.h"
#include "inp_DataArray.h"
#include "inp_Keyword.h"

class inp_ContactCheck {
public:
    inp_ContactCheck(const inpM_SurfaceMap& surfaces, const cow_1DArrayList<inp_Keyword>& keywords);

    // Sends one error at level 0 to the error sink for each offending step; raises
    // nothing. `assumeFieldOutput`: a deck without any *OUTPUT gets contact field output
    // by default.
    void PerformCheck(bool assumeFieldOutput);

private:
    bool HasExplicitStep() const;
    static bool IsExplicitProcedure(const inp_Keyword& keyword);
    void CollectCrossInstanceSurfaces();
    static bool HasOutputKeyword(const cow_1DArrayList<inp_Keyword>& keywords);
    void CheckStep(const cow_1DArrayList<inp_Keyword>& suboptions);
    void UpdatePairSets(const cow_1DArrayList<inp_Keyword>& suboptions);
    void UpdateFieldOutput(const cow_1DArrayList<inp_Keyword>& suboptions);
    static cow_String PairSetOf(const inp_Keyword& keyword);
    static cow_String OperationOf(const inp_Keyword& keyword);
    static cow_1DArrayList<cow_String> UnscopedSurfaceNames(const inp_DataArray& data);

    inpM_SurfaceMap m_surfaces;
    cow_1DArrayList<inp_Keyword> m_keywords;
    // Assembly-level node-based surfaces that span several instances.
    cow_1DArrayList<cow_String> crossInstanceSurfaces;
    // Contact pair sets that hold such a surface, as of the step being replayed.
    cow_1DArrayList<cow_String> suspectPairSets;
    // Contact pair sets that field output stands requested for, as of that step.
    cow_1DArrayList<cow_String> contactFieldOutput;
};

#endif
