// Where each keyword names its surfaces: one override per keyword, the families of like
// keywords expanded from the lists in the header.
#include <initializer_list>

#include "inp_SurfaceFixupVisitor.h"

namespace {

bool Has(const inp_Keyword& keyword, const char* name) { return keyword.HasParameter(cow_String(name)); }

// A parameter's value in the upper-case form it is compared in, or the fallback.
cow_String Value(const inp_Keyword& keyword, const char* name, const char* fallback) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(name));
    return item ? item->AsString() : cow_String(fallback);
}

cow_List<int> Columns(std::initializer_list<int> columns) {
    cow_List<int> list;
    for (int column : columns) list.Append(column);
    return list;
}

}  // namespace

#define INP_SURFACEFIXUP_DEFINE(Ident, call) \
    void inp_SurfaceFixupVisitor::Visit##Ident(inp_Keyword& keyword) { call; }
#define INP_SURFACEFIXUP_MS(Ident)                                   \
    INP_SURFACEFIXUP_DEFINE(Ident, {                                 \
        ReplaceSurfaceParameter(keyword, cow_String("master"));      \
        ReplaceSurfaceParameter(keyword, cow_String("slave"));       \
    })
#define INP_SURFACEFIXUP_SP(Ident) INP_SURFACEFIXUP_DEFINE(Ident, ReplaceSurfaceParameter(keyword, cow_String("surface")))
#define INP_SURFACEFIXUP_PC(Ident) INP_SURFACEFIXUP_DEFINE(Ident, ReplaceSurfaceData(keyword, Columns({0, 1}), 1, 0))
#define INP_SURFACEFIXUP_C0(Ident) INP_SURFACEFIXUP_DEFINE(Ident, ReplaceSurfaceColumn(keyword, 0))
#define INP_SURFACEFIXUP_AD(Ident) INP_SURFACEFIXUP_DEFINE(Ident, ReplaceSurfaceAllData(keyword))
#define INP_SURFACEFIXUP_TP(Ident, fallback, type)                                                \
    INP_SURFACEFIXUP_DEFINE(Ident, if (Value(keyword, "type", fallback) == type)                  \
                                       ReplaceSurfaceData(keyword, Columns({0, 1}), 1, 0))
INP_SURFACEFIXUP_MASTER_SLAVE(INP_SURFACEFIXUP_MS)
INP_SURFACEFIXUP_SURFACE_PARAMETER(INP_SURFACEFIXUP_SP)
INP_SURFACEFIXUP_PAIR_COLUMNS(INP_SURFACEFIXUP_PC)
INP_SURFACEFIXUP_COLUMN0(INP_SURFACEFIXUP_C0)
INP_SURFACEFIXUP_ALL_DATA(INP_SURFACEFIXUP_AD)
INP_SURFACEFIXUP_TYPED_PAIR(INP_SURFACEFIXUP_TP)
#undef INP_SURFACEFIXUP_MS
#undef INP_SURFACEFIXUP_SP
#undef INP_SURFACEFIXUP_PC
#undef INP_SURFACEFIXUP_C0
#undef INP_SURFACEFIXUP_AD
#undef INP_SURFACEFIXUP_TP
#undef INP_SURFACEFIXUP_DEFINE

void inp_SurfaceFixupVisitor::VisitContactOutput(inp_Keyword& keyword) {
    ReplaceSurfaceParameter(keyword, cow_String("master"));
    ReplaceSurfaceParameter(keyword, cow_String("slave"));
    ReplaceSurfaceParameter(keyword, cow_String("surface"));
}

void inp_SurfaceFixupVisitor::VisitNormal(inp_Keyword& keyword) {
    if (Value(keyword, "type", "") == "CONTACTSURFACE") ReplaceSurfaceColumn(keyword, 0);
}

void inp_SurfaceFixupVisitor::VisitRigidBody(inp_Keyword& keyword) {
    ReplaceSurfaceParameter(keyword, cow_String("analyticalsurface"));
}

void inp_SurfaceFixupVisitor::VisitRigidSurface(inp_Keyword& keyword) {
    ReplaceSurfaceParameter(keyword, cow_String("name"));
}

// Each of the two kinds of submodel names its driven surfaces in column 0; with both
// given, the names pass twice.
void inp_SurfaceFixupVisitor::VisitSubmodel(inp_Keyword& keyword) {
    if (Has(keyword, "acoustictostructure")) ReplaceSurfaceColumn(keyword, 0);
    if (Has(keyword, "stressbased")) ReplaceSurfaceColumn(keyword, 0);
}

// A fastener's property line may be written with a D exponent, a spot weld's may not.
void inp_SurfaceFixupVisitor::VisitFastener(inp_Keyword& keyword) { ReplaceWeldSurfaces(keyword, true); }

void inp_SurfaceFixupVisitor::VisitSpotWeld(inp_Keyword& keyword) { ReplaceWeldSurfaces(keyword, false); }

// A combined surface is made of other surfaces; a cropped one is cut from the surface on
// its first line. Any other surface is made of elements or nodes, named nowhere here.
void inp_SurfaceFixupVisitor::VisitSurface(inp_Keyword& keyword) {
    ReplaceSurfaceParameter(keyword, cow_String("name"));
    if (Has(keyword, "combine")) {
        ReplaceSurfaceAllData(keyword);
    } else if (Has(keyword, "crop")) {
        inp_DataArray& data = keyword.data;
        if (data.HasValue() && data.NumberOfLines() > 0 && data.NumberOfItems(0) > 0)
            data.Set(0, 0, ReplaceName(data.AsString(0, 0)));
    }
}
