#include "inp_RigidBodyOrder.h"

#include "cow_Map.h"
#include "inp_Utils.h"
#include "thr_ThreadSingleton.h"
#include "wip_WIP.h"

namespace {

// The positions of the body and of the surface of one name; -1 for none yet.
struct Pair {
    int body = -1;
    int surface = -1;
};

// The name under which a keyword takes part, empty for none.
cow_String SurfaceName(const inp_Keyword& keyword, bool& isBody) {
    isBody = keyword.keyword == inp_kwRigidBody;
    const char* parameter = isBody ? "analyticalsurface" : "name";
    if (!isBody && keyword.keyword != inp_kwRigidSurface) {
        if (keyword.keyword != inp_kwSurface) return cow_String();
        const inp_Item* type = keyword.parameters.Lookup(cow_String("type"));
        if (!type || !inp_Utils::IsAnalyticalSurfaceType(type->AsString())) return cow_String();
    }
    const inp_Item* name = keyword.parameters.Lookup(cow_String(parameter));
    if (!name || name->type == inp_Types::typeBool || name->type == inp_Types::typeNone) return cow_String();
    return name->AsString();
}

}  // namespace

void inp_RigidBodyOrder::PutSurfacesFirst(cow_1DArrayList<inp_Keyword>& keywords) {
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    cow_Map<cow_String, Pair> pairs;
    for (int i = 0; i < keywords.Count(); ++i) {
        bool isBody = false;
        const cow_String name = SurfaceName(keywords.ConstGet(i), isBody);
        if (name.IsEmpty()) continue;
        Pair pair;
        if (const Pair* known = pairs.Lookup(name)) pair = *known;
        int& slot = isBody ? pair.body : pair.surface;
        if (slot >= 0) {
            sink.Error(atr_Format(isBody ? "There are more than one *RIGID BODY keywords associated with the analytical "
                                           "surface %s.  Please check input data."
                                         : "There are more than one rigid surface keywords associated with the "
                                           "analytical surface %s.  Please check input data.",
                                  name),
                       wip_Fatal);
            continue;
        }
        slot = i;
        pairs.Insert(name, pair);
    }
    // Each keyword belongs to one pair at most, so a swap moves no other pair's keywords.
    cow_ConstMapSortedIt<cow_String, Pair> it(pairs);
    for (it.First(); !it.IsDone(); it.Next()) {
        const Pair& pair = it.CurrentValue();
        if (pair.body < 0 || pair.surface < 0 || pair.body > pair.surface) continue;
        const inp_Keyword body = keywords.ConstGet(pair.body);
        keywords.Get(pair.body) = keywords.ConstGet(pair.surface);
        keywords.Get(pair.surface) = body;
    }
}
