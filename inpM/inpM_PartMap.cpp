#include "inpM_PartMap.h"

inpM_PartMap::inpM_PartMap() : m_isAssemblyModel(false), m_hasFakeParts(false), m_reservedFlag(false) {}

inpM_PartMap::inpM_PartMap(bool isAssemblyModel, bool hasFakeParts, bool reservedFlag,
                           const inpM_InstanceIdMaps& nodeIdMaps, const inpM_InstanceIdMaps& elementIdMaps,
                           const inpM_SetMap& nodeSets, const inpM_SetMap& elementSets,
                           const inpM_SurfaceMap& surfaces, const cow_String& assemblyName,
                           const inpM_InstanceMap<cow_String>& instanceToPart)
    : m_isAssemblyModel(isAssemblyModel),
      m_hasFakeParts(hasFakeParts),
      m_reservedFlag(reservedFlag),
      m_nodeIdMaps(nodeIdMaps),
      m_elementIdMaps(elementIdMaps),
      m_nodeSets(nodeSets),
      m_elementSets(elementSets),
      m_surfaces(surfaces),
      m_assemblyName(assemblyName),
      m_instanceToPart(instanceToPart) {}

void inpM_PartMap::RemoveRedundantInternalSets() {
    m_nodeSets.RemoveInternalSets();
    m_elementSets.RemoveInternalSets();
}
