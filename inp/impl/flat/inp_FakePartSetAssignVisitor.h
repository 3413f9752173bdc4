// inp_FakePartSetAssignVisitor: which part each set of a flat deck belongs to.
//
// After the conversion of a flat deck the sets of the flat model still stand under
// the pseudo-instance "FAKE", while the keyword list has the shape of parts and an
// assembly. This pass walks the keywords inside the parts: a set that a part uses is
// assigned to that part, a set that no part uses becomes an assembly-level set whose
// members are scoped by the instance that holds them. FinishAssignment then writes
// one *NSET or *ELSET keyword per set into its part or into the assembly and fills
// the part-level set maps.
//
// References pass through unchanged: the walk only takes notes. A reference inside a
// part that the part does not hold is reported, as a warning when a section names it,
// since a section over an empty set is harmless, and as an error otherwise.
//
// inp_SimpleFakeAssignVisitor serves the conversion in which everything stays in
// PART-1: there is nothing to find out, so it walks nothing and gives every set to
// that part.
#ifndef INP_FAKEPARTSETASSIGNVISITOR_H
#define INP_FAKEPARTSETASSIGNVISITOR_H

#include <cstdint>

#include "cow_1DArrayList.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "inpM_IdMap.h"
#include "inpM_InstanceMap.h"
#include "inpM_SetMap.h"
#include "inp_CoordMap.h"
#include "inp_SetFixupVisitor.h"

// The section keywords, under which an undefined set is only a warning.
#define INP_FAKEASSIGN_SECTIONS(X)                                                                         \
    X(BeamGeneralSection) X(BeamSection) X(CohesiveSection) X(ConnectorSection) X(FrameSection)            \
    X(GasketSection) X(MembraneSection) X(ShellGeneralSection) X(ShellSection) X(SolidSection)

class inp_FakePartSetAssignVisitor : public inp_SetFixupVisitor {
public:
    // The flat sets are those of the flat model under "FAKE"; coordinates and elements
    // are the part-level maps of the conversion, by part name. `parameters` must
    // outlive the visitor.
    inp_FakePartSetAssignVisitor(const inpM_SetMap& flatNodeSets, const inpM_SetMap& flatElementSets,
                                 const inp_CoordMap& partCoordinates,
                                 const inpM_InstanceMap<omi_IntTable<inp_Element>>& partElements,
                                 const inp_ModelParameters& parameters);
    ~inp_FakePartSetAssignVisitor() override;

    // Moves the noted sets into their parts and writes the set keywords into the list
    // that was walked. The result maps are complete when it returns.
    virtual void FinishAssignment(cow_1DArrayList<inp_Keyword>& keywords);

    inpM_InstanceMap<omi_IntTable<inp_Element>> partElements;
    inp_CoordMap partCoordinates;
    // Part name to the names of the sets assigned to it, in the order they were met.
    cow_Map<cow_String, cow_List<cow_String>> nodeSetsOfParts;
    cow_Map<cow_String, cow_List<cow_String>> elementSetsOfParts;
    // The result: the assigned sets, nested by part.
    inpM_SetMap partNodeSets;
    inpM_SetMap partElementSets;
    // The kind of reference under way (inp_SetType): the base hands every reference over
    // as inp_AnySet from most positions, so the operation that started the lookup says it.
    std::int32_t pass = inp_AnySet;
    // The id maps of an inherited part map: members that no part of this deck holds are
    // scoped by the instance of the earlier job that holds them. The caller sets them.
    inpM_IdMap inheritedElementIds;
    inpM_IdMap inheritedNodeIds;
    bool undefinedSetIsWarning = false;

protected:
    cow_String ReplaceReference(inp_Keyword& keyword, const cow_String& reference, const inpM_SetMap& sets,
                                const inpM_IdMap& ids, const cow_String& assemblyName,
                                const cow_String& instanceName, const cow_String& partName,
                                inp_SetType type) override;
    void ReplaceNodeOrNsetData(inp_Keyword& keyword, const cow_List<int>& columns, int stride) override;
    void ReplaceNodeOrNsetAllData(inp_Keyword& keyword) override;
    void ReplaceElementOrElsetData(inp_Keyword& keyword, const cow_List<int>& columns, int stride) override;
    void ReplaceElementOrElsetAllData(inp_Keyword& keyword) override;
    void ReplaceNodeOrNsetParameter(inp_Keyword& keyword, const cow_String& parameter) override;
    void ReplaceElementOrElsetParameter(inp_Keyword& keyword, const cow_String& parameter) override;
    cow_String ReplaceNodeOrNset(const inp_Keyword& keyword, const cow_String& reference) override;
    cow_String ReplaceElementOrElset(const inp_Keyword& keyword, const cow_String& reference) override;

    // Adds to the result map the flat set of the name, unless the part has it already.
    void CopySetToPart(inp_SetType kind, const cow_String& part, const cow_String& name);
    // One set keyword per name that the flat model defines, right behind the part's *PART.
    void InsertPartSets(inp_SetType kind, cow_1DArrayList<inp_Keyword>& keywords, const cow_String& part,
                        const cow_List<cow_String>& names);
    // The sets that no part took, ahead of the first *END ASSEMBLY, with scoped members.
    void InsertAssemblySets(inp_SetType kind, cow_1DArrayList<inp_Keyword>& keywords);
    // `level` is "part" or "assembly"; `unsorted` counts for node sets only.
    inp_Keyword MakeSetKeyword(inp_SetType kind, const char* level, const cow_String& name,
                               const cow_1DArrayList<int>& members, bool unsorted) const;
    // The instance that holds the id, or empty when none does.
    cow_String InstanceOfId(inp_SetType kind, int id) const;
    // *NSET, ELSET keywords of a model generated by symmetry stay in the list: those of a
    // set that a part took go into that part.
    void MoveNsetsWithElset(cow_1DArrayList<inp_Keyword>& keywords);
    // The parts that hold members of the flat set; none for a set the flat model lacks.
    cow_List<cow_String> PartsOfSet(int kind, const cow_String& name) const;
    // The parts that hold any of the ids, each once, in ascending order of names.
    cow_List<cow_String> PartsOfIds(int kind, const cow_1DArrayList<int>& ids) const;

    const inpM_SetMap& FlatSets(int kind) const;
    cow_Map<cow_String, cow_List<cow_String>>& SetsOfParts(int kind);

public:
#define INP_FAKEASSIGN_DECLARE(Ident) void Visit##Ident(inp_Keyword& keyword) override;
    INP_FAKEASSIGN_SECTIONS(INP_FAKEASSIGN_DECLARE)
#undef INP_FAKEASSIGN_DECLARE
    void VisitRigidSurface(inp_Keyword& keyword) override;

private:
    void Note(int kind, const cow_String& part, const cow_String& name);
    // The parts that may hold ids of the kind, in ascending order of names.
    cow_List<cow_String> HolderNames(int kind) const;
    bool Holds(int kind, const cow_String& part, int id) const;
    // Which instance holds the id, with the names looked up once for a whole set: p for
    // the instance of parts[p], parts.Count() + i for inheritedInstances[i], -1 for none.
    int HolderIndex(int kind, int id, const cow_List<cow_String>& parts,
                    const cow_List<cow_String>& inheritedInstances) const;
    void ReportMisplaced(const cow_String& reference, const cow_String& part, bool isId,
                         const cow_List<cow_String>& holders);
};

class inp_SimpleFakeAssignVisitor : public inp_FakePartSetAssignVisitor {
public:
    using inp_FakePartSetAssignVisitor::inp_FakePartSetAssignVisitor;
    ~inp_SimpleFakeAssignVisitor() override;

    void VisitList(cow_1DArrayList<inp_Keyword>& keywords) override;
    void FinishAssignment(cow_1DArrayList<inp_Keyword>& keywords) override;
};

#endif
