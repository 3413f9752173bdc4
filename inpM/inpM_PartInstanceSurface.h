// Surfaces of one part or instance, as the surface passes build them from *SURFACE.
//
// A surface is one of three kinds: element faces (face id such as "S3" to the
// elements whose face it is), nodes with an area each, or an analytical surface,
// of which only the name and the internal flag matter here. The base class is
// the analytical kind; its operations on ids do nothing, so that a combination
// that meets an analytical surface leaves it as it is. Operations between
// surfaces of different kinds do nothing either.
#ifndef INPM_PARTINSTANCESURFACE_H
#define INPM_PARTINSTANCESURFACE_H

#include "cow_1DArrayList.h"
#include "cow_COW.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inpM_NodeAreaList.h"
#include "inpM_OmiSet.h"

class aio_ostream;
class inpM_IdMap;

enum inpM_SurfaceTypes : int { inpM_ElementSurface = 0, inpM_NodeSurface = 1, inpM_AnalyticalSurface = 2 };

class inpM_PartInstanceSurface {
public:
    explicit inpM_PartInstanceSurface(bool isInternal = false) : internal(isInternal) {}
    virtual ~inpM_PartInstanceSurface();

    virtual inpM_SurfaceTypes SurfaceType() const { return inpM_AnalyticalSurface; }
    virtual inpM_PartInstanceSurface* Copy() const { return new inpM_PartInstanceSurface(*this); }
    virtual void Add(const inpM_PartInstanceSurface&) {}
    virtual void Difference(const inpM_PartInstanceSurface&) {}
    virtual void Intersection(const inpM_PartInstanceSurface&) {}
    virtual void Print(aio_ostream& out) const;
    // The ids of the surface through the map of its own scope. With dropMissing
    // an id without an entry leaves the surface; without it the id stays.
    virtual void Renumber(const inpM_IdMap&, bool) {}
    virtual void Cleanup(const inpM_IdMap&) {}
    // Built in ascending order of face ids; element ids ascending.
    virtual cow_Map<cow_String, cow_1DArrayList<int>> ConstGetFaceIdElementIdsMap() const;
    virtual const inpM_NodeAreaList& ConstGetNodeAreaList() const;

    bool internal;
};

using inpM_SurfaceHandle = cow_COW<inpM_PartInstanceSurface, cow_Virtual<inpM_PartInstanceSurface>>;
using inpM_PartInstanceSurfaceMap = cow_Map<cow_String, inpM_SurfaceHandle>;

class inpM_ElementFaceIdSurface : public inpM_PartInstanceSurface {
public:
    explicit inpM_ElementFaceIdSurface(bool isInternal = false) : inpM_PartInstanceSurface(isInternal) {}

    inpM_SurfaceTypes SurfaceType() const override { return inpM_ElementSurface; }
    inpM_PartInstanceSurface* Copy() const override { return new inpM_ElementFaceIdSurface(*this); }
    void Add(const inpM_PartInstanceSurface& other) override;
    void Difference(const inpM_PartInstanceSurface& other) override;
    void Intersection(const inpM_PartInstanceSurface& other) override;
    void Print(aio_ostream& out) const override;
    void Renumber(const inpM_IdMap& ids, bool dropMissing) override;
    void Cleanup(const inpM_IdMap& ids) override;
    cow_Map<cow_String, cow_1DArrayList<int>> ConstGetFaceIdElementIdsMap() const override;

    void Add(const cow_String& faceId, const cow_1DArrayList<int>& ids);
    void Difference(const cow_String& faceId, const cow_1DArrayList<int>& ids);
    bool IsEmpty() const { return m_faces.IsEmpty(); }

private:
    // No face is kept without elements.
    cow_Map<cow_String, inpM_OmiSet> m_faces;
};

class inpM_NodeAreaSurface : public inpM_PartInstanceSurface {
public:
    explicit inpM_NodeAreaSurface(bool isInternal = false) : inpM_PartInstanceSurface(isInternal) {}

    inpM_SurfaceTypes SurfaceType() const override { return inpM_NodeSurface; }
    inpM_PartInstanceSurface* Copy() const override { return new inpM_NodeAreaSurface(*this); }
    // A node of both surfaces takes the other's area.
    void Add(const inpM_PartInstanceSurface& other) override;
    void Difference(const inpM_PartInstanceSurface& other) override;
    // A node of both surfaces keeps its own area.
    void Intersection(const inpM_PartInstanceSurface& other) override;
    void Print(aio_ostream& out) const override;
    void Renumber(const inpM_IdMap& ids, bool dropMissing) override;
    void Cleanup(const inpM_IdMap& ids) override;
    const inpM_NodeAreaList& ConstGetNodeAreaList() const override { return m_nodes; }

    // A node given again takes the new area.
    void Add(const cow_1DArrayList<int>& ids, double area);
    void Difference(const inpM_NodeAreaList& nodes);
    bool IsEmpty() const { return m_nodes.IsEmpty(); }

private:
    inpM_NodeAreaList m_nodes;
};

// An empty surface of the kind asked for.
inpM_SurfaceHandle CreateSurface(inpM_SurfaceTypes type);

#endif
