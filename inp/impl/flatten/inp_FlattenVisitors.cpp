#include "inp_FlattenVisitors.h"

#include <cstdlib>

#include "atr_Number.h"
#include "atr_String.h"
#include "inp_Types.h"
#include "inp_Utils.h"
#include "nex_Exception.h"

namespace {

// A reference split into the scope it names something in and that something.
struct Scoped {
    cow_String scope;
    cow_String name;
};

// Inside an instance a reference is taken whole, as the model passes take it. Outside,
// only the last two segments count, so that an assembly name in front changes nothing.
Scoped InScope(const cow_String& reference, const cow_String& instanceName) {
    if (!instanceName.IsEmpty()) return {instanceName, reference};
    const cow_List<cow_String> segments = inp_Utils::SplitScopedSet(reference);
    if (segments.Count() < 2) return {cow_String(), reference};
    return {segments[segments.Count() - 2], segments.Last()};
}

}  // namespace

inp_FlattenSetVisitor::inp_FlattenSetVisitor(const inpM_SetMap& nodeSets, const inpM_SetMap& elementSets,
                                             const inpM_IdMap& nodeIds, const inpM_IdMap& elementIds,
                                             const inp_ModelParameters& parameters, const inp_FlatNames& names)
    : inp_SetFixupVisitor(nodeSets, elementSets, nodeIds, elementIds, parameters), m_names(names) {}

cow_String inp_FlattenSetVisitor::ReplaceReference(inp_Keyword&, const cow_String& reference,
                                                   const inpM_SetMap& sets, const inpM_IdMap& ids,
                                                   const cow_String&, const cow_String& instanceName,
                                                   const cow_String&, inp_SetType type) {
    const Scoped at = InScope(reference, instanceName);
    if (at.name.IsEmpty()) return reference;
    if (inp_Types::MatchInteger(at.name)) {
        const inpM_IdMap& level = at.scope.IsEmpty() ? ids : ids.ConstGet(at.scope);
        const int id = level.ConstGet(std::atoi(at.name.c_str()));
        if (id == 0) {
            atr_translate t("Unknown %1$sid %2$s: the flat model has no such id, and the reference is written as it "
                            "stands. ");
            atr_SubstituteFormat(t, 1, SetTypeEnm2String(type));
            atr_SubstituteFormat(t, 2, reference);
            nex_TextException(t.Result()).Throw("inp_FlattenVisitors", __LINE__);
        }
        char text[atr_kNumberChars];
        atr_WriteInt(id, text);
        return cow_String(text);
    }
    const inp_FlatNames::Kind kind = &sets == &elementSets ? inp_FlatNames::kElementSet : inp_FlatNames::kNodeSet;
    const cow_String* flat = m_names.Find(kind, at.scope, at.name);
    return flat ? *flat : reference;
}

inp_FlattenSurfaceVisitor::inp_FlattenSurfaceVisitor(const inpM_SurfaceMap& surfaces, const inp_FlatNames& names)
    : inp_SurfaceFixupVisitor(surfaces), m_names(names) {}

cow_String inp_FlattenSurfaceVisitor::ReplaceSurfaceName(const cow_String& name, const cow_String&,
                                                         const cow_String& instanceName, const cow_String&) const {
    const Scoped at = InScope(name, instanceName);
    const cow_String* flat = m_names.Find(inp_FlatNames::kSurface, at.scope, at.name);
    return flat ? *flat : name;
}

inp_FlattenOrientationVisitor::inp_FlattenOrientationVisitor(const inp_FlatNames& names) : m_names(names) {}

cow_String inp_FlattenOrientationVisitor::ReplaceOrientationName(const cow_String& name) {
    const Scoped at = InScope(name, instanceName);
    const cow_String* flat = m_names.Find(inp_FlatNames::kOrientation, at.scope, at.name);
    return flat ? *flat : name;
}
