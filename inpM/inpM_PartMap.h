// inpM_PartMap: the model of a finished job as the next job takes it over.
//
// A restart or import job does not read the earlier deck again. The driver keeps
// this record from the earlier job and hands it to inp_Deck::InheritPartMap: how
// the model was written, the id maps into the flat model, the sets and surfaces,
// the assembly's name and which part each instance places. Everything in it is a
// value; storing it between jobs is the driver's matter.
#ifndef INPM_PARTMAP_H
#define INPM_PARTMAP_H

#include "cow_String.h"
#include "inpM_IdMap.h"
#include "inpM_InstanceMap.h"
#include "inpM_SetMap.h"
#include "inpM_SurfaceMap.h"

class inpM_PartMap {
public:
    inpM_PartMap();
    inpM_PartMap(bool isAssemblyModel, bool hasFakeParts, bool reservedFlag, const inpM_InstanceIdMaps& nodeIdMaps,
                 const inpM_InstanceIdMaps& elementIdMaps, const inpM_SetMap& nodeSets,
                 const inpM_SetMap& elementSets, const inpM_SurfaceMap& surfaces, const cow_String& assemblyName,
                 const inpM_InstanceMap<cow_String>& instanceToPart);

    // The earlier model was written as an assembly of part instances.
    bool IsAssemblyModel() const { return m_isAssemblyModel; }
    // Its part came from the conversion of a flat deck.
    bool HasFakeParts() const { return m_hasFakeParts; }
    // Carried from job to job; nothing in the library reads it.
    bool ReservedFlag() const { return m_reservedFlag; }
    const inpM_InstanceIdMaps& NodeIdMaps() const { return m_nodeIdMaps; }
    const inpM_InstanceIdMaps& ElementIdMaps() const { return m_elementIdMaps; }
    const inpM_SetMap& NodeSets() const { return m_nodeSets; }
    const inpM_SetMap& ElementSets() const { return m_elementSets; }
    const inpM_SurfaceMap& Surfaces() const { return m_surfaces; }
    const cow_String& AssemblyName() const { return m_assemblyName; }
    const inpM_InstanceMap<cow_String>& InstanceToPart() const { return m_instanceToPart; }

    // A job with *SYMMETRIC MODEL GENERATION builds a new model from the old one
    // and makes its own bookkeeping sets again: the old ones would only collide.
    void RemoveRedundantInternalSets();

private:
    bool m_isAssemblyModel;
    bool m_hasFakeParts;
    bool m_reservedFlag;
    inpM_InstanceIdMaps m_nodeIdMaps;
    inpM_InstanceIdMaps m_elementIdMaps;
    inpM_SetMap m_nodeSets;
    inpM_SetMap m_elementSets;
    inpM_SurfaceMap m_surfaces;
    cow_String m_assemblyName;
    inpM_InstanceMap<cow_String> m_instanceToPart;
};

#endif
