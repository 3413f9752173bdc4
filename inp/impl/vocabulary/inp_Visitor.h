// inp_Visitor: the double-dispatch walk over keywords that every pass is built on.
//
// A pass derives, overrides the VisitXxx operations of the keywords it cares about,
// and says in DefaultAction what happens to all the others. Visit dispatches on the
// keyword's value with one integer switch (expanded from inp_keywords.def) and then
// walks the suboptions: the walk is pre-order and a parent's operation cannot stop
// the descent (override Visit or VisitSuboptions for that).
//
// Messages are never sent to the sink in mid-walk: a pass appends to errors (level 1),
// warnings or seriousErrors (level 2), and Report hands them over at the end.
//
// Two choices for decks that would otherwise break a later pass:
//  - *ASSEMBLY without NAME: expansion reports it as a serious error and keeps the
//    keyword; a later pass that still walks it sees an empty assembly name.
//  - A literal *EOF line: expansion reports it and blanks the keyword, so a later
//    pass never dispatches it. The base dispatch keeps its internal check for eof
//    and for values without a row, which only a pass on an unexpanded list can hit.
#ifndef INP_VISITOR_H
#define INP_VISITOR_H

#include "atr_String.h"
#include "cow_1DArrayList.h"
#include "cow_List.h"
#include "cow_String.h"
#include "inp_Keyword.h"

class inp_Visitor {
public:
    inp_Visitor() = default;
    virtual ~inp_Visitor();

    // Walks the list; the count is read again at each step, so keywords appended
    // during the walk are walked too.
    virtual void VisitList(cow_1DArrayList<inp_Keyword>& keywords);
    // Warnings, then errors at level 1, then serious errors at level 2. Lists stay.
    virtual void Report() const;
    virtual void VisitListAndReport(cow_1DArrayList<inp_Keyword>& keywords);
    virtual void Visit(inp_Keyword& keyword);
    virtual void VisitSuboptions(inp_Keyword& keyword);

protected:
    virtual void DefaultAction(inp_Keyword& keyword) = 0;

public:
#define INP_KEYWORD(Ident, name, value) virtual void Visit##Ident(inp_Keyword& keyword);
#define INP_KEYWORD_SPECIAL(Ident, name, value)
#include "inp_keywords.def"
#undef INP_KEYWORD
#undef INP_KEYWORD_SPECIAL
    // An operation without a keyword: no row of the table leads to it.
    virtual void VisitUserSubroutines(inp_Keyword& keyword);

    // instanceName from parameter name, else instance, else unchanged.
    void SetInstanceName(const inp_Keyword& keyword);

    cow_String partName;
    cow_String assemblyName;
    cow_String instanceName;
    cow_String stepName;
    int substructureDepth = 0;
    cow_List<atr_String> errors;
    cow_List<atr_String> warnings;
    cow_List<atr_String> seriousErrors;

protected:
    // partName / stepName from parameter name if present, else unchanged.
    void SetPartName(const inp_Keyword& keyword);
    void SetStepName(const inp_Keyword& keyword);

private:
    template <int Value>
    void Forward(inp_Keyword& keyword);
};

#endif
