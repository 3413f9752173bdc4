// inp_UndefinedNodeVisitor: makes a flat deck's model whole before it becomes a part.
//
// A flat deck may name nodes that no *NODE defines; once the deck is a model of parts,
// every node it names must live in a part. This pass walks every
// node reference that the set fixup knows of and places each undefined node at the
// origin of the flat model ("FAKE"), with one warning per node. Element references are
// not this pass's business and are passed over.
//
// *SLIDE LINE, GENERATE needs nothing of its own: the base expands the sequences in
// place and hands each generated id over, so a bad sequence is reported once, here,
// and the passes after this one find the ids written out.
//
// Node sets may name undefined nodes too: AddSetNodes places their members, silently,
// once the walk is over.
#ifndef INP_UNDEFINEDNODEVISITOR_H
#define INP_UNDEFINEDNODEVISITOR_H

#include "inpM_InstanceMap.h"
#include "inp_CoordMap.h"
#include "inp_SetFixupVisitor.h"

class inp_UndefinedNodeVisitor : public inp_SetFixupVisitor {
public:
    // `flatCoordinates` is shared until the first node is placed; `parameters` is the
    // deck's and must outlive the visitor.
    inp_UndefinedNodeVisitor(const inp_CoordMap& flatCoordinates, const inp_ModelParameters& parameters);
    ~inp_UndefinedNodeVisitor() override;

    void AddSetNodes(const inpM_SetMap& nodeSets);
    // The nodes of the flat elements that no *NODE defined, each placed at the origin
    // with one warning: without it the element would name a node of no part.
    void AddElementNodes(const inpM_ElementMap& elements);

    // The flat coordinates under "FAKE", with the nodes placed here.
    inp_CoordMap coordinates;

protected:
    // Hands back every reference unchanged: the pass only looks.
    cow_String ReplaceReference(inp_Keyword& keyword, const cow_String& reference, const inpM_SetMap& sets,
                                const inpM_IdMap& ids, const cow_String& assemblyName,
                                const cow_String& instanceName, const cow_String& partName,
                                inp_SetType type) override;
    void ReplaceElementOrElsetData(inp_Keyword& keyword, const cow_List<int>& columns, int stride) override;
    void ReplaceElementOrElsetAllData(inp_Keyword& keyword) override;
    void ReplaceElementOrElsetParameter(inp_Keyword& keyword, const cow_String& parameter) override;
    cow_String ReplaceElementOrElset(const inp_Keyword& keyword, const cow_String& reference) override;

private:
    // The nodes of the flat model; null when the deck gave it none.
    inp_CoordMap* FlatNodes();
};

#endif
