#include "inp_Visitor.h"

#include <cstdio>

#include "nex_Exception.h"
#include "wip_WIP.h"

namespace {

// The string value of a parameter, or empty when the keyword does not have it.
cow_String ParameterText(const inp_Keyword& keyword, const char* name) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(name));
    return item ? item->AsString() : cow_String();
}

}  // namespace

inp_Visitor::~inp_Visitor() = default;

void inp_Visitor::VisitList(cow_1DArrayList<inp_Keyword>& keywords) {
    for (int i = 0; i < keywords.Count(); ++i) Visit(keywords.Get(i));
}

void inp_Visitor::Report() const {
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    if (!warnings.IsEmpty()) sink.WarningList(warnings);
    if (!errors.IsEmpty()) sink.ErrorList(errors, wip_Error);
    if (!seriousErrors.IsEmpty()) sink.ErrorList(seriousErrors, wip_Serious);
}

void inp_Visitor::VisitListAndReport(cow_1DArrayList<inp_Keyword>& keywords) {
    VisitList(keywords);
    Report();
}

void inp_Visitor::Visit(inp_Keyword& keyword) {
    switch (static_cast<int>(keyword.keyword)) {
#define INP_KEYWORD(Ident, name, value) \
    case value:                         \
        Visit##Ident(keyword);          \
        break;
#define INP_KEYWORD_SPECIAL(Ident, name, value)
#include "inp_keywords.def"
#undef INP_KEYWORD
#undef INP_KEYWORD_SPECIAL
        // The rows without an operation of their own.
        case inp_kwUndefined:
        case inp_kwModel:
            break;
        case inp_kwModalPrint:
            VisitPrint(keyword);
            break;
        case inp_kwLatentHeat:
            VisitM1(keyword);
            break;
        default:  // eof and values without a row
            std::fprintf(stderr, "Unknown keyword key %d\n", static_cast<int>(keyword.keyword));
            nex_AssertException("\"Check inp_keywords\" == 0").Throw(__FILE__, __LINE__);
    }
    VisitSuboptions(keyword);
}

void inp_Visitor::VisitSuboptions(inp_Keyword& keyword) {
    for (int i = 0; i < keyword.suboptions.Count(); ++i) keyword.suboptions.Get(i).Accept(*this);
}

// Defaults: one-line forwards to DefaultAction. Nine of them keep the context
// fields up to date around it; the choice is made at compile time by the value.
template <int Value>
void inp_Visitor::Forward(inp_Keyword& keyword) {
    if constexpr (Value == inp_kwAssembly) {
        assemblyName = ParameterText(keyword, "name");
        DefaultAction(keyword);
    } else if constexpr (Value == inp_kwEndAssembly) {
        DefaultAction(keyword);
        assemblyName = cow_String();
    } else if constexpr (Value == inp_kwInstance) {
        SetInstanceName(keyword);
        DefaultAction(keyword);
    } else if constexpr (Value == inp_kwEndInstance) {
        DefaultAction(keyword);
        instanceName = cow_String();
    } else if constexpr (Value == inp_kwPart) {
        // A part without a name is not a part to walk: no DefaultAction either.
        if (!keyword.HasParameter(cow_String("name"))) return;
        SetPartName(keyword);
        DefaultAction(keyword);
    } else if constexpr (Value == inp_kwEndPart) {
        DefaultAction(keyword);
        partName = cow_String();
    } else if constexpr (Value == inp_kwStep) {
        stepName = ParameterText(keyword, "name");
        DefaultAction(keyword);
    } else if constexpr (Value == inp_kwEndStep) {
        DefaultAction(keyword);
        stepName = cow_String();
    } else if constexpr (Value == inp_kwSubstructurePath) {
        bool enter = keyword.HasParameter(cow_String("enterelement"));
        bool leave = keyword.HasParameter(cow_String("leave"));
        if (enter && !leave) ++substructureDepth;
        DefaultAction(keyword);
        if (substructureDepth > 0 && leave && !enter) --substructureDepth;
    } else {
        DefaultAction(keyword);
    }
}

#define INP_KEYWORD(Ident, name, value) \
    void inp_Visitor::Visit##Ident(inp_Keyword& keyword) { Forward<value>(keyword); }
#define INP_KEYWORD_SPECIAL(Ident, name, value)
#include "inp_keywords.def"
#undef INP_KEYWORD
#undef INP_KEYWORD_SPECIAL

void inp_Visitor::VisitUserSubroutines(inp_Keyword& keyword) { DefaultAction(keyword); }

void inp_Visitor::SetInstanceName(const inp_Keyword& keyword) {
    if (keyword.HasParameter(cow_String("name")))
        instanceName = ParameterText(keyword, "name");
    else if (keyword.HasParameter(cow_String("instance")))
        instanceName = ParameterText(keyword, "instance");
}

void inp_Visitor::SetPartName(const inp_Keyword& keyword) {
    if (keyword.HasParameter(cow_String("name"))) partName = ParameterText(keyword, "name");
}

void inp_Visitor::SetStepName(const inp_Keyword& keyword) {
    if (keyword.HasParameter(cow_String("name"))) stepName = ParameterText(keyword, "name");
}

// Double dispatch: the keyword hands itself to the visitor's switch.
void inp_Keyword::Accept(inp_Visitor& visitor) { visitor.Visit(*this); }
