// inp_KeywordExpansionVisitor: the first pass over a parsed deck.
//
// After it every keyword it could read stands in canonical form, so that no later
// pass meets an abbreviation or a lower-case value: parameter names are full names,
// string values are upper case without blanks (names of files and of steps keep their
// case), values with a fixed vocabulary are full words, data read from INPUT= files
// stands on the keyword, and *NODE data is packed.
//
// On the way it decides whether the deck is an assembly deck, names the steps, checks
// part, instance and step names for uniqueness, and holds back what an assembly deck
// may not use until it knows what kind of deck this is.
//
// What a keyword is checked for stands in its row of the rule tables
// (inp_ExpansionRule.h); this class is the engine that runs them, plus the keywords
// that change the state of the walk.
#ifndef INP_KEYWORDEXPANSIONVISITOR_H
#define INP_KEYWORDEXPANSIONVISITOR_H

#include "inpM_InstanceMap.h"
#include "inp_ExpansionRule.h"
#include "inp_Visitor.h"

class inp_KeywordExpansionVisitor : public inp_Visitor {
public:
    inp_KeywordExpansionVisitor();
    ~inp_KeywordExpansionVisitor() override;

    // The base dispatch inside a try: a conversion that fails in a rule (a
    // nex_TextException) is reported against the keyword, which is then blanked.
    // A literal *EOF line is reported and blanked before dispatch.
    void Visit(inp_Keyword& keyword) override;

    void VisitAssembly(inp_Keyword& keyword) override;
    void VisitPart(inp_Keyword& keyword) override;
    void VisitInstance(inp_Keyword& keyword) override;
    void VisitStep(inp_Keyword& keyword) override;
    void VisitRestart(inp_Keyword& keyword) override;
    void VisitParameter(inp_Keyword& keyword) override;
    void VisitDynamic(inp_Keyword& keyword) override;
    void VisitRigidSurface(inp_Keyword& keyword) override;
    void VisitElement(inp_Keyword& keyword) override;
    void VisitNmap(inp_Keyword& keyword) override;
    void VisitNode(inp_Keyword& keyword) override;

    cow_List<atr_String> pendingAssemblyErrors;
    bool isAssemblyDeck = false;
    bool hasElementFile = false;
    bool hasExplicitDynamic = false;
    bool hasRigidSurface = false;
    bool hasBlendedNmap = false;
    bool hasParameters = false;
    int stepCount = 0;
    int defaultRestartStep = 0;
    cow_String includeDirectory;
    cow_List<cow_String> partNames;
    cow_List<cow_String> instanceNames;
    cow_List<cow_String> stepNames;
    inpM_InstanceMap<cow_String> instanceToPart;

    // The operations the rule rows are made of. Public so that a row's own Call
    // steps, which are free functions, can use them.

    // Canonical names and normal-form string values for every parameter; `names` is
    // null-ended, and empty (or null) for a keyword that takes no parameter.
    void ExpandParameterNames(inp_Keyword& keyword, const char* const* names);
    // The parameter must be there. A flag becomes an item without value, silently.
    void ExpandParameterValue(inp_Keyword& keyword, const char* const* words, const cow_String& name);
    void ExpandDataValue(inp_Keyword& keyword, int line, int item, const char* const* words);
    void RequireParameter(inp_Keyword& keyword, const cow_String& name);
    void RequireValue(inp_Keyword& keyword, const cow_String& name);
    void ReadDataFile(const cow_String& fileName, inp_Keyword& keyword);
    void TrimDataLines(inp_Keyword& keyword, int limit);
    void MarkAssemblyDeck();
    void ReportUnsupportedInAssembly(inp_Keyword& keyword, const atr_String& text);
    void BlankKeyword(inp_Keyword& keyword);

    // How many table entries a value fits; `result` takes the exact one or the last
    // of the longest partial ones.
    static int MatchValue(cow_String& result, const char* const* words, const cow_String& value);

    // Runs the keyword's row (see inp_ExpansionRule.h), or the row of another keyword
    // that this one is read exactly as; messages still name this keyword.
    void ApplyRule(inp_Keyword& keyword);
    void ApplyRule(inp_Keyword& keyword, inp_KeywordEnm rowOf);

protected:
    void DefaultAction(inp_Keyword& keyword) override;

private:
    void RunStep(const inp_ExpansionStep& step, inp_Keyword& keyword);
    void AppendError(const inp_Keyword& keyword, const atr_String& text);
};

#endif
