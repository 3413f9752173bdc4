// Periods out of the names of a flat deck.
//
// In a deck the period separates scopes. A flat deck has none, so a name such as
// `TOP.FACE` there is just a name; once the deck is converted into parts and an
// instance it would read as the set FACE of an instance TOP. Before the conversion
// these passes turn each unquoted period of a name into "_", in the definitions as well
// as in the references, one pass per class of reference. They share one rule (see the
// source); the maps handed to the fixup bases are empty.
#ifndef INP_REMOVEPERIODVISITORS_H
#define INP_REMOVEPERIODVISITORS_H

#include "inp_OrientationFixupVisitor.h"
#include "inp_RebarFixupVisitor.h"
#include "inp_SetFixupVisitor.h"
#include "inp_SurfaceFixupVisitor.h"

// The keywords that define a set, with the parameter that names it, by kind; *NCOPY
// and *ELCOPY name the new set only, the old one is a reference the base knows.
#define INP_REMOVEPERIOD_NODE_DEFINITIONS(X) \
    X(Nset, "nset") X(Node, "nset") X(Nfill, "nset") X(Ngen, "nset") X(Nmap, "nset") X(Ncopy, "newset")
#define INP_REMOVEPERIOD_ELEMENT_DEFINITIONS(X) \
    X(Elset, "elset") X(Element, "elset") X(Elgen, "elset") X(Elcopy, "newset")

class inp_RemovePeriodSetVisitor : public inp_SetFixupVisitor {
public:
    explicit inp_RemovePeriodSetVisitor(const inp_ModelParameters& parameters);

#define INP_REMOVEPERIOD_DECLARE(Ident, parameter) void Visit##Ident(inp_Keyword& keyword) override;
    INP_REMOVEPERIOD_NODE_DEFINITIONS(INP_REMOVEPERIOD_DECLARE)
    INP_REMOVEPERIOD_ELEMENT_DEFINITIONS(INP_REMOVEPERIOD_DECLARE)
#undef INP_REMOVEPERIOD_DECLARE
    void VisitSubmodel(inp_Keyword& keyword) override;

protected:
    cow_String ReplaceReference(inp_Keyword& keyword, const cow_String& reference, const inpM_SetMap& sets,
                                const inpM_IdMap& ids, const cow_String& assemblyName,
                                const cow_String& instanceName, const cow_String& partName,
                                inp_SetType type) override;
};

class inp_RemovePeriodSurfaceVisitor : public inp_SurfaceFixupVisitor {
public:
    inp_RemovePeriodSurfaceVisitor();

protected:
    cow_String ReplaceSurfaceName(const cow_String& name, const cow_String& assemblyName,
                                  const cow_String& instanceName, const cow_String& partName) const override;
};

class inp_RemovePeriodOrientationVisitor : public inp_OrientationFixupVisitor {
protected:
    cow_String ReplaceOrientationName(const cow_String& name) override;
};

class inp_RemovePeriodRebarVisitor : public inp_RebarFixupVisitor {
protected:
    cow_String ReplaceRebarName(const cow_String& name) override;
};

#endif
