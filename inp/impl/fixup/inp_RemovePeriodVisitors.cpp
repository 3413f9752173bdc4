#include "inp_RemovePeriodVisitors.h"

#include "inp_Utils.h"

namespace {

// The one rule of the four passes. A reference that begins with a digit is an id or a
// scoped id and keeps its periods. Otherwise each period outside double quotes becomes
// "_"; quotes stay, and so does a period inside them. Names are at most 255 characters
// long, the limit of a line, and a rewritten one is cut there.
cow_String WithoutPeriods(const cow_String& reference) {
    const char* text = reference.c_str();
    if (*text >= '0' && *text <= '9') return reference;
    if (!inp_Utils::HasScopeSeparator(reference)) return reference;
    char buffer[256];
    int n = 0;
    bool quoted = false;
    for (const char* c = text; *c && n < 255; ++c) {
        if (*c == '"') quoted = !quoted;
        buffer[n++] = (*c == '.' && !quoted) ? '_' : *c;
    }
    buffer[n] = '\0';
    return cow_String(buffer);
}

}  // namespace

inp_RemovePeriodSetVisitor::inp_RemovePeriodSetVisitor(const inp_ModelParameters& parameters)
    : inp_SetFixupVisitor(inpM_SetMap(), inpM_SetMap(), inpM_IdMap(), inpM_IdMap(), parameters) {}

cow_String inp_RemovePeriodSetVisitor::ReplaceReference(inp_Keyword&, const cow_String& reference,
                                                        const inpM_SetMap&, const inpM_IdMap&, const cow_String&,
                                                        const cow_String&, const cow_String&, inp_SetType) {
    return WithoutPeriods(reference);
}

#define INP_REMOVEPERIOD_NODE(Ident, parameter)                        \
    void inp_RemovePeriodSetVisitor::Visit##Ident(inp_Keyword& keyword) { \
        ReplaceNodeOrNsetParameter(keyword, cow_String(parameter));      \
    }
#define INP_REMOVEPERIOD_ELEMENT(Ident, parameter)                     \
    void inp_RemovePeriodSetVisitor::Visit##Ident(inp_Keyword& keyword) { \
        ReplaceElementOrElsetParameter(keyword, cow_String(parameter));  \
    }
INP_REMOVEPERIOD_NODE_DEFINITIONS(INP_REMOVEPERIOD_NODE)
INP_REMOVEPERIOD_ELEMENT_DEFINITIONS(INP_REMOVEPERIOD_ELEMENT)
#undef INP_REMOVEPERIOD_NODE
#undef INP_REMOVEPERIOD_ELEMENT

void inp_RemovePeriodSetVisitor::VisitSubmodel(inp_Keyword& keyword) {
    ReplaceElementOrElsetParameter(keyword, cow_String("globalelset"));
    inp_SetFixupVisitor::VisitSubmodel(keyword);
}

inp_RemovePeriodSurfaceVisitor::inp_RemovePeriodSurfaceVisitor() : inp_SurfaceFixupVisitor(inpM_SurfaceMap()) {}

cow_String inp_RemovePeriodSurfaceVisitor::ReplaceSurfaceName(const cow_String& name, const cow_String&,
                                                              const cow_String&, const cow_String&) const {
    return WithoutPeriods(name);
}

cow_String inp_RemovePeriodOrientationVisitor::ReplaceOrientationName(const cow_String& name) {
    return WithoutPeriods(name);
}

cow_String inp_RemovePeriodRebarVisitor::ReplaceRebarName(const cow_String& name) { return WithoutPeriods(name); }
