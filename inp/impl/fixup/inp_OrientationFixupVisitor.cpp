// The operations that read and write orientation names, and the rows of the keywords
// that hold them; the families of one parameter are expanded from the lists in the header.
#include "inp_OrientationFixupVisitor.h"

#include "inp_Item.h"
#include "inp_Types.h"
#include "nex_Exception.h"

namespace {

// 0 for a keyword that holds no array at all.
int NumberOfLines(const inp_Keyword& keyword) { return keyword.data.HasValue() ? keyword.data.NumberOfLines() : 0; }

cow_String UpperName(const inp_Keyword& keyword) { return keyword.Name().ToUpper(); }

}  // namespace

inp_OrientationFixupVisitor::inp_OrientationFixupVisitor() = default;

inp_OrientationFixupVisitor::~inp_OrientationFixupVisitor() = default;

void inp_OrientationFixupVisitor::DefaultAction(inp_Keyword&) {}

void inp_OrientationFixupVisitor::ReplaceParameter(inp_Keyword& keyword, const cow_String& parameter) {
    const inp_Item* item = keyword.parameters.Lookup(parameter);
    if (!item) return;
    const cow_String name = item->AsString();
    try {
        // Typed afresh: a name that became digits is an integer item from now on.
        keyword.parameters.Insert(parameter, inp_Item(ReplaceOrientationName(name)));
    } catch (const nex_TextException& e) {
        errors.Append(
            atr_Format("There are errors in the *%1$s parameters: %2$s", UpperName(keyword), e.UserReport()));
    }
}

cow_String inp_OrientationFixupVisitor::ReplaceData(inp_Keyword& keyword, const cow_String& name) {
    cow_String result = name;
    try {
        result = ReplaceOrientationName(name);
    } catch (const nex_TextException& e) {
        errors.Append(atr_Format("There are errors in the *%s data lines: ", UpperName(keyword)) + e.UserReport());
    }
    return result;
}

void inp_OrientationFixupVisitor::ReplaceDatum(inp_Keyword& keyword, int line, int column) {
    if (line < 0 || line >= NumberOfLines(keyword) || column < 0 || column >= keyword.data.NumberOfItems(line))
        return;
    keyword.data.Set(line, column, ReplaceData(keyword, keyword.data.AsString(line, column)));
}

// The families: the same one-parameter rule for every member.
#define INP_ORIENTFIXUP_DEFINE(Ident, parameter)                       \
    void inp_OrientationFixupVisitor::Visit##Ident(inp_Keyword& keyword) { \
        ReplaceParameter(keyword, cow_String(parameter));                  \
    }
#define INP_ORIENTFIXUP_ORIENTATION(Ident) INP_ORIENTFIXUP_DEFINE(Ident, "orientation")
#define INP_ORIENTFIXUP_NAME(Ident) INP_ORIENTFIXUP_DEFINE(Ident, "name")
#define INP_ORIENTFIXUP_CAVITY(Ident) INP_ORIENTFIXUP_DEFINE(Ident, "cavity")
INP_ORIENTFIXUP_ORIENTATION_PARAMETER(INP_ORIENTFIXUP_ORIENTATION)
INP_ORIENTFIXUP_NAME_PARAMETER(INP_ORIENTFIXUP_NAME)
INP_ORIENTFIXUP_CAVITY_PARAMETER(INP_ORIENTFIXUP_CAVITY)
#undef INP_ORIENTFIXUP_ORIENTATION
#undef INP_ORIENTFIXUP_NAME
#undef INP_ORIENTFIXUP_CAVITY
#undef INP_ORIENTFIXUP_DEFINE

void inp_OrientationFixupVisitor::VisitJointedMaterial(inp_Keyword& keyword) {
    ReplaceParameter(keyword, cow_String("jointdirection"));
}

void inp_OrientationFixupVisitor::VisitFluidInflator(inp_Keyword& keyword) {
    ReplaceParameter(keyword, cow_String("name"));
    ReplaceParameter(keyword, cow_String("property"));
}

// With a mixture, line 0 holds the cavity's own values and each line after it names one
// fluid behavior of the mixture.
void inp_OrientationFixupVisitor::VisitFluidCavity(inp_Keyword& keyword) {
    ReplaceParameter(keyword, cow_String("name"));
    ReplaceParameter(keyword, cow_String("behavior"));
    if (!keyword.HasParameter(cow_String("mixture"))) return;
    const int lines = NumberOfLines(keyword);
    for (int line = 1; line < lines; ++line) ReplaceDatum(keyword, line, 0);
}

// Line 0 holds the section's numbers; the orientations of the two connector ends stand
// on line 1, and a section of one line has none.
void inp_OrientationFixupVisitor::VisitConnectorSection(inp_Keyword& keyword) {
    ReplaceDatum(keyword, 1, 0);
    ReplaceDatum(keyword, 1, 1);
}

// Behind the two surfaces of a pair may stand the orientations of its two sides.
void inp_OrientationFixupVisitor::VisitContactPair(inp_Keyword& keyword) {
    const int lines = NumberOfLines(keyword);
    for (int line = 0; line < lines; ++line) {
        ReplaceDatum(keyword, line, 2);
        ReplaceDatum(keyword, line, 3);
    }
}

// The species names run on over as many lines as the deck gives them; what follows the
// last species is no name. A missing or non-integer count rewrites nothing.
void inp_OrientationFixupVisitor::VisitFluidInflatorMixture(inp_Keyword& keyword) {
    int remaining = keyword.GetParameterAsInt(cow_String("numberspecies"), 0);
    const int lines = NumberOfLines(keyword);
    for (int line = 0; line < lines && remaining > 0; ++line)
        for (int column = 0; column < keyword.data.NumberOfItems(line) && remaining > 0; ++column, --remaining)
            ReplaceDatum(keyword, line, column);
}

void inp_OrientationFixupVisitor::VisitShellSection(inp_Keyword& keyword) { ReplaceSectionOrientations(keyword); }

void inp_OrientationFixupVisitor::VisitSolidSection(inp_Keyword& keyword) { ReplaceSectionOrientations(keyword); }

// Column 3 of a layer line is its orientation, or a blank or an angle where the layer
// has none: only a name is handed over.
void inp_OrientationFixupVisitor::ReplaceSectionOrientations(inp_Keyword& keyword) {
    ReplaceParameter(keyword, cow_String("orientation"));
    if (!keyword.HasParameter(cow_String("composite"))) return;
    const int lines = NumberOfLines(keyword);
    for (int line = 0; line < lines; ++line)
        if (keyword.data.NumberOfItems(line) > 3 && keyword.data.Type(line, 3) == inp_Types::typeString)
            ReplaceDatum(keyword, line, 3);
}
