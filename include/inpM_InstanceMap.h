// inpM_InstanceMap<T>: a payload for the assembly level and one for each part or
// instance, as a tree of scopes.
//
// The model keeps three such trees: element tables (T = omi_IntTable<inp_Element>),
// instance transformations (T = gsl_Matrix) and instance name to part name
// (T = cow_String). Payloads are shared between copies and copied on the first
// write, so two instances of one part hold one element table until one of them
// is changed. The passes build one level below the root; the operations recurse
// all the same.
//
// A level may hold no payload: the root of a new map has none, and a pass that
// wants to write a scope's payload inserts it first. Reading such a level gives
// an empty payload; writing it is an internal error.
#ifndef INPM_INSTANCEMAP_H
#define INPM_INSTANCEMAP_H

#include "atr_String.h"
#include "cow_COW.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inpM_IdMap.h"
#include "inp_Element.h"
#include "nex_Exception.h"
#include "omi_IntTable.h"
#include "wip_WIP.h"

template <class T>
class inpM_InstanceMap {
public:
    using Payload = cow_COW<T, cow_Direct<T>>;
    using Levels = cow_Map<cow_String, inpM_InstanceMap<T>>;

    inpM_InstanceMap() : item(static_cast<T*>(nullptr)), instances(nullptr) {}
    explicit inpM_InstanceMap(const T& root) : item(new T(root)), instances(nullptr) {}
    inpM_InstanceMap(const inpM_InstanceMap& other)
        : item(other.item), instances(other.instances ? new Levels(*other.instances) : nullptr) {}
    inpM_InstanceMap& operator=(const inpM_InstanceMap& other) {
        if (this != &other) {
            Levels* copy = other.instances ? new Levels(*other.instances) : nullptr;
            delete instances;
            instances = copy;
            item = other.item;
        }
        return *this;
    }
    virtual ~inpM_InstanceMap() { delete instances; }

    // An empty payload when the root holds none.
    const T& ConstGet() const { return item.HasValue() ? item.ConstGet() : EmptyPayload(); }
    const T& ConstGet(const cow_String& name) const { return ConstGetMap(name).ConstGet(); }

    T& Get() {
        if (!item.HasValue()) nex_AssertException("item.HasValue()").Throw("inpM_InstanceMap", __LINE__);
        return item.Get();
    }
    T& Get(const cow_String& instanceName) {
        inpM_InstanceMap& level = GetMap(instanceName);
        if (!level.item.HasValue())
            nex_AssertException("GetMap(instanceName).item.HasValue()").Throw("inpM_InstanceMap", __LINE__);
        return level.item.Get();
    }

    // An unknown name is reported to the sink; the level given back then is an
    // empty stand-in, and what is written to it is lost.
    inpM_InstanceMap& GetMap(const cow_String& name) {
        if (instances && instances->IsMember(name)) return instances->Get(name);
        ReportUnknown(name);
        thread_local inpM_InstanceMap standIn;
        standIn = inpM_InstanceMap();
        return standIn;
    }
    const inpM_InstanceMap& ConstGetMap(const cow_String& name) const {
        if (instances) {
            if (const inpM_InstanceMap* level = instances->Lookup(name)) return *level;
        }
        ReportUnknown(name);
        static const inpM_InstanceMap empty;
        return empty;
    }

    // Sets the payload of a nested level, which is made when absent.
    void Insert(const cow_String& name, const T& value) {
        if (!instances) instances = new Levels();
        if (!instances->IsMember(name)) {
            instances->Insert(name, inpM_InstanceMap(value));
            return;
        }
        instances->Get(name).item = new T(value);
    }

    bool IsMember(const cow_String& name) const { return instances && instances->IsMember(name); }

    // Nested names in ascending byte order.
    cow_List<cow_String> Instances() const {
        cow_List<cow_String> names;
        if (!instances) return names;
        cow_ConstMapSortedIt<cow_String, inpM_InstanceMap> it(*instances);
        for (it.First(); !it.IsDone(); it.Next()) names.Append(it.CurrentKey());
        return names;
    }

    // Element tables only (T = omi_IntTable<inp_Element>); see inpM_InstanceMap.cpp.
    //
    // Lays the levels out into one gapless range from `start`: this level's
    // elements in ascending order of their ids, then each nested level in
    // ascending order of names. With `keep` every id maps to itself.
    inpM_IdMap Renumber(int start, bool keep);
    // The map Renumber(start, false) gives, with the tables left as they are: for
    // a caller that needs the new ids only.
    inpM_IdMap RenumberedIds(int start) const;
    // Rewrites the connectivity of every level through the node id map of the
    // same scope. Raises inp_ElementUndefinedNodesError, and changes nothing at
    // this level, when elements name nodes that the map lacks.
    void Update(const inpM_IdMap& idMap);

    Payload item;
    Levels* instances;

private:
    static const T& EmptyPayload() {
        static const T empty{};
        return empty;
    }
    static void ReportUnknown(const cow_String& name) {
        atr_translate t("Unknown instance %s");
        atr_SubstituteFormat(t, 1, name);
        thr_ThreadSingleton<wip_WIP>::Instance().Error(t.Result(), wip_Fatal);
    }
};

using inpM_ElementMap = inpM_InstanceMap<omi_IntTable<inp_Element>>;

template <>
inpM_IdMap inpM_InstanceMap<omi_IntTable<inp_Element>>::Renumber(int start, bool keep);
template <>
inpM_IdMap inpM_InstanceMap<omi_IntTable<inp_Element>>::RenumberedIds(int start) const;
template <>
void inpM_InstanceMap<omi_IntTable<inp_Element>>::Update(const inpM_IdMap& idMap);

#endif
