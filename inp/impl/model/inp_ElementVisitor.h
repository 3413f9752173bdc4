// inp_ElementVisitor: the pass that reads the elements of a deck and its element sets.
//
// inp_PartElementVisitor reads the part level of an assembly deck, and
// inp_AssemblyElementVisitor the assembly and its instances. An instance shares its
// part's element table and starts with the part's element sets.
//
// An *ELSET of the assembly level may name elements or sets of the assembly level that
// a later pass makes. Such a keyword is kept in `deferredKeywords`, without a message,
// for that pass to finish; the set holds what could be resolved meanwhile.
#ifndef INP_ELEMENTVISITOR_H
#define INP_ELEMENTVISITOR_H

#include "cow_1DArrayList.h"
#include "cow_Map.h"
#include "inpM_InstanceMap.h"
#include "inp_ElementTypes.h"
#include "inp_SetVisitor.h"

class inp_ElementVisitor : public inp_SetVisitor {
public:
    explicit inp_ElementVisitor(bool storeConnectivity);
    // The given sets become the set map, and set names may then stand in any scope.
    inp_ElementVisitor(const inpM_SetMap& givenSets, bool storeConnectivity);
    ~inp_ElementVisitor() override;

    cow_String KeywordName() const override;
    bool IsValidScope(const cow_String& name) const override;

    void VisitElcopy(inp_Keyword& keyword) override;
    void VisitElement(inp_Keyword& keyword) override;
    void VisitElgen(inp_Keyword& keyword) override;
    void VisitElset(inp_Keyword& keyword) override;
    void VisitFastener(inp_Keyword& keyword) override;
    void VisitUserElement(inp_Keyword& keyword) override;

    cow_1DArrayList<inp_Keyword> deferredKeywords;
    inpM_ElementMap elements;
    inpM_InstanceMap<cow_String> instanceToPart;
    bool searchAllInstances = false;
    bool storeConnectivity;
    // Gives back the lines of an *ELEMENT keyword as the table takes them in, for a
    // pass whose keyword list the tables will stand for (the flat-deck conversion);
    // stacked elements keep their lines, which a later pass reads.
    bool releaseReadLines = false;
    // Node count of each user element type; -1 when its definition is in a file.
    cow_Map<cow_String, int> userElements;
    cow_Map<cow_String, inp_ElementInfo> elementInfo;
    cow_Map<cow_String, inp_ElementInfo> obsoleteTypes;
    cow_Map<cow_String, cow_1DArrayList<int>> reflectOrder;

private:
    // The table of the keyword's scope, the root table at the assembly level; made
    // empty for a scope the walk has not opened, so that a broken deck still reads.
    omi_IntTable<inp_Element>& ScopeTable();
};

// The part level of an assembly deck: the assembly and the steps are not walked.
class inp_PartElementVisitor : public inp_ElementVisitor {
public:
    inp_PartElementVisitor();

    void Visit(inp_Keyword& keyword) override;
    void VisitPart(inp_Keyword& keyword) override;
    void VisitElcopy(inp_Keyword& keyword) override;
    void VisitElement(inp_Keyword& keyword) override;
    void VisitElgen(inp_Keyword& keyword) override;
    void VisitElset(inp_Keyword& keyword) override;
};

// The assembly and its instances: parts are not walked.
class inp_AssemblyElementVisitor : public inp_ElementVisitor {
public:
    inp_AssemblyElementVisitor(const inpM_ElementMap& partElements, const inpM_SetMap& partSets,
                               bool storeConnectivity);

    void Visit(inp_Keyword& keyword) override;
    void VisitInstance(inp_Keyword& keyword) override;
    // At the assembly level only point masses, springs, dashpots and two-node connectors.
    void VisitElement(inp_Keyword& keyword) override;
    void VisitElset(inp_Keyword& keyword) override;
    bool IsValidScope(const cow_String& name) const override;

    inpM_ElementMap partElements;
    inpM_SetMap partSets;
};

#endif
