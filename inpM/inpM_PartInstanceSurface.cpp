#include "inpM_PartInstanceSurface.h"

#include "aio_ostream.h"
#include "inpM_IdMap.h"
#include "inpM_Utils.h"

namespace {

const inpM_NodeAreaList& EmptyNodeAreaList() {
    static const inpM_NodeAreaList empty;
    return empty;
}

void PrintHead(aio_ostream& out, const char* kind, bool internal) {
    out << kind << (internal ? " (internal)" : "") << "\n";
}

}  // namespace

inpM_PartInstanceSurface::~inpM_PartInstanceSurface() = default;

void inpM_PartInstanceSurface::Print(aio_ostream& out) const { PrintHead(out, "analytical surface", internal); }

cow_Map<cow_String, cow_1DArrayList<int>> inpM_PartInstanceSurface::ConstGetFaceIdElementIdsMap() const {
    return cow_Map<cow_String, cow_1DArrayList<int>>();
}

const inpM_NodeAreaList& inpM_PartInstanceSurface::ConstGetNodeAreaList() const { return EmptyNodeAreaList(); }

// ---- inpM_ElementFaceIdSurface

void inpM_ElementFaceIdSurface::Add(const cow_String& faceId, const cow_1DArrayList<int>& ids) {
    if (ids.IsEmpty()) return;
    if (!m_faces.IsMember(faceId)) m_faces.Insert(faceId, inpM_OmiSet());
    m_faces.Get(faceId).Insert(ids);
}

void inpM_ElementFaceIdSurface::Difference(const cow_String& faceId, const cow_1DArrayList<int>& ids) {
    if (!m_faces.IsMember(faceId)) return;
    inpM_OmiSet& elements = m_faces.Get(faceId);
    for (int i = 0; i < ids.Count(); ++i) elements.Remove(ids[i]);
    if (elements.IsEmpty()) m_faces.Remove(faceId);
}

void inpM_ElementFaceIdSurface::Add(const inpM_PartInstanceSurface& other) {
    if (other.SurfaceType() != inpM_ElementSurface || &other == this) return;
    const inpM_ElementFaceIdSurface& theirs = static_cast<const inpM_ElementFaceIdSurface&>(other);
    cow_List<cow_String> faces = inpM_Utils::SortedKeys(theirs.m_faces);
    for (int i = 0; i < faces.Count(); ++i) {
        const inpM_OmiSet& elements = theirs.m_faces.ConstGet(faces[i]);
        if (!m_faces.IsMember(faces[i]))
            m_faces.Insert(faces[i], elements);
        else
            m_faces.Get(faces[i]).Insert(elements);
    }
}

void inpM_ElementFaceIdSurface::Difference(const inpM_PartInstanceSurface& other) {
    if (other.SurfaceType() != inpM_ElementSurface) return;
    if (&other == this) {
        m_faces.Clear();
        return;
    }
    const inpM_ElementFaceIdSurface& theirs = static_cast<const inpM_ElementFaceIdSurface&>(other);
    cow_List<cow_String> faces = inpM_Utils::SortedKeys(theirs.m_faces);
    for (int i = 0; i < faces.Count(); ++i)
        Difference(faces[i], theirs.m_faces.ConstGet(faces[i]).ConstGetArrayCounterpart());
}

void inpM_ElementFaceIdSurface::Intersection(const inpM_PartInstanceSurface& other) {
    if (other.SurfaceType() != inpM_ElementSurface || &other == this) return;
    const inpM_ElementFaceIdSurface& theirs = static_cast<const inpM_ElementFaceIdSurface&>(other);
    cow_List<cow_String> faces = inpM_Utils::SortedKeys(m_faces);
    for (int i = 0; i < faces.Count(); ++i) {
        const inpM_OmiSet* both = theirs.m_faces.Lookup(faces[i]);
        inpM_OmiSet kept;
        if (both)
            for (int id : m_faces.ConstGet(faces[i]).Items())
                if (both->IsMember(id)) kept.Insert(id);
        if (kept.IsEmpty())
            m_faces.Remove(faces[i]);
        else
            m_faces.Insert(faces[i], kept);
    }
}

void inpM_ElementFaceIdSurface::Print(aio_ostream& out) const {
    PrintHead(out, "element face surface", internal);
    cow_List<cow_String> faces = inpM_Utils::SortedKeys(m_faces);
    for (int i = 0; i < faces.Count(); ++i) {
        out << "  " << faces[i] << ":";
        for (int id : m_faces.ConstGet(faces[i]).Items()) out << " " << id;
        out << "\n";
    }
}

void inpM_ElementFaceIdSurface::Renumber(const inpM_IdMap& ids, bool dropMissing) {
    cow_List<cow_String> faces = inpM_Utils::SortedKeys(m_faces);
    for (int i = 0; i < faces.Count(); ++i) {
        inpM_OmiSet mapped;
        for (int id : m_faces.ConstGet(faces[i]).Items()) {
            if (ids.HasId(id))
                mapped.Insert(ids.ConstGet(id));
            else if (!dropMissing)
                mapped.Insert(id);
        }
        if (mapped.IsEmpty())
            m_faces.Remove(faces[i]);
        else
            m_faces.Insert(faces[i], mapped);
    }
}

void inpM_ElementFaceIdSurface::Cleanup(const inpM_IdMap& ids) {
    cow_List<cow_String> faces = inpM_Utils::SortedKeys(m_faces);
    for (int i = 0; i < faces.Count(); ++i) {
        inpM_OmiSet kept;
        for (int id : m_faces.ConstGet(faces[i]).Items())
            if (ids.HasId(id)) kept.Insert(id);
        if (kept.IsEmpty())
            m_faces.Remove(faces[i]);
        else
            m_faces.Insert(faces[i], kept);
    }
}

cow_Map<cow_String, cow_1DArrayList<int>> inpM_ElementFaceIdSurface::ConstGetFaceIdElementIdsMap() const {
    cow_Map<cow_String, cow_1DArrayList<int>> out;
    cow_List<cow_String> faces = inpM_Utils::SortedKeys(m_faces);
    for (int i = 0; i < faces.Count(); ++i) out.Insert(faces[i], m_faces.ConstGet(faces[i]).ConstGetArrayCounterpart());
    return out;
}

// ---- inpM_NodeAreaSurface

void inpM_NodeAreaSurface::Add(const cow_1DArrayList<int>& ids, double area) {
    for (int i = 0; i < ids.Count(); ++i) m_nodes.Insert(ids[i], area);
}

void inpM_NodeAreaSurface::Difference(const inpM_NodeAreaList& nodes) {
    if (&nodes == &m_nodes) {
        m_nodes = inpM_NodeAreaList();
        return;
    }
    inpM_NodeAreaListIT it(nodes);
    for (it.First(); !it.IsDone(); it.Next()) m_nodes.Remove(it.CurrentKey());
}

void inpM_NodeAreaSurface::Add(const inpM_PartInstanceSurface& other) {
    if (other.SurfaceType() != inpM_NodeSurface || &other == this) return;
    inpM_NodeAreaListIT it(other.ConstGetNodeAreaList());
    for (it.First(); !it.IsDone(); it.Next()) m_nodes.Insert(it.CurrentKey(), it.CurrentValue());
}

void inpM_NodeAreaSurface::Difference(const inpM_PartInstanceSurface& other) {
    if (other.SurfaceType() != inpM_NodeSurface) return;
    Difference(other.ConstGetNodeAreaList());
}

void inpM_NodeAreaSurface::Intersection(const inpM_PartInstanceSurface& other) {
    if (other.SurfaceType() != inpM_NodeSurface || &other == this) return;
    const inpM_NodeAreaList& theirs = other.ConstGetNodeAreaList();
    inpM_NodeAreaList kept;
    inpM_NodeAreaListIT it(m_nodes);
    for (it.First(); !it.IsDone(); it.Next())
        if (theirs.HasKey(it.CurrentKey())) kept.Insert(it.CurrentKey(), it.CurrentValue());
    m_nodes = kept;
}

void inpM_NodeAreaSurface::Print(aio_ostream& out) const {
    PrintHead(out, "node surface", internal);
    inpM_NodeAreaListIT it(m_nodes);
    for (it.First(); !it.IsDone(); it.Next()) out << "  " << it.CurrentKey() << " " << cow_String(it.CurrentValue()) << "\n";
}

void inpM_NodeAreaSurface::Renumber(const inpM_IdMap& ids, bool dropMissing) {
    inpM_NodeAreaList mapped;
    inpM_NodeAreaListIT it(m_nodes);
    for (it.First(); !it.IsDone(); it.Next()) {
        int id = it.CurrentKey();
        if (ids.HasId(id))
            mapped.Insert(ids.ConstGet(id), it.CurrentValue());
        else if (!dropMissing)
            mapped.Insert(id, it.CurrentValue());
    }
    m_nodes = mapped;
}

void inpM_NodeAreaSurface::Cleanup(const inpM_IdMap& ids) {
    inpM_NodeAreaList kept;
    inpM_NodeAreaListIT it(m_nodes);
    for (it.First(); !it.IsDone(); it.Next())
        if (ids.HasId(it.CurrentKey())) kept.Insert(it.CurrentKey(), it.CurrentValue());
    m_nodes = kept;
}

// ---- making surfaces

inpM_SurfaceHandle CreateSurface(inpM_SurfaceTypes type) {
    switch (type) {
        case inpM_ElementSurface:
            return inpM_SurfaceHandle(new inpM_ElementFaceIdSurface());
        case inpM_NodeSurface:
            return inpM_SurfaceHandle(new inpM_NodeAreaSurface());
        case inpM_AnalyticalSurface:
            break;
    }
    return inpM_SurfaceHandle(new inpM_PartInstanceSurface());
}
