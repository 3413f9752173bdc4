// inpM_NodeAreaList: node id to the area that a node-based surface gives the node.
//
// `*SURFACE, TYPE=NODE` lines name nodes or node sets with an optional area (1.0
// when the line has none). The list is walked in ascending order of node ids.
#ifndef INPM_NODEAREALIST_H
#define INPM_NODEAREALIST_H

#include "cow_COW.h"
#include "omi_IntTable.h"

class inpM_NodeAreaList {
public:
    using AreaTable = omi_IntTable<double>;

    inpM_NodeAreaList() = default;

    // True when the id was new; the area of a known id is replaced.
    bool Insert(const int& id, const double& area) { return m_areas.Get().Insert(id, area); }
    // False when the id is not in the list.
    bool Remove(int id) {
        if (!HasKey(id)) return false;
        m_areas.Get().Remove(id);
        return true;
    }
    bool HasKey(int id) const { return m_areas->HasKey(id); }
    // The id must be present.
    double ConstGet(int id) const { return m_areas->ConstGet(id); }
    int Count() const { return m_areas->Count(); }
    bool IsEmpty() const { return Count() == 0; }
    const AreaTable& Table() const { return m_areas.ConstGet(); }

private:
    cow_COW<AreaTable, cow_Direct<AreaTable>> m_areas;
};

// Walks a list in ascending order of node ids. The list must outlive the walk
// and stay unchanged.
class inpM_NodeAreaListIT {
public:
    explicit inpM_NodeAreaListIT(const inpM_NodeAreaList& list) : m_it(list.Table()) {}

    void First() { m_it.First(); }
    bool IsDone() const { return m_it.IsDone(); }
    void Next() { m_it.Next(); }
    int CurrentKey() const { return m_it.CurrentKey(); }
    double CurrentValue() const { return m_it.CurrentValue(); }

private:
    omi_IntTableIterator<double> m_it;
};

#endif
