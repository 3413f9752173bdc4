// inp_RestartSetVisitor: the node and element sets that a restart deck defines on the
// model of an earlier analysis.
//
// A restart may add sets but never change what the earlier analysis had, so every
// name is checked against the earlier sets first. A model of parts takes complete
// names (`Assembly-1.set` or `Assembly-1.Pump-1.set`); a flat model, whose ids all lie
// in the instances of its converted part, takes plain names, and its ids and set names
// are found in whichever instance holds them. One visitor reads one kind ("nset" or
// "elset"), and only the keywords of the list it is given: a restart deck is never
// organized, so there are no suboptions to look into. The driver runs it and reads
// `newSets` and `setMap`.
#ifndef INP_RESTARTSETVISITOR_H
#define INP_RESTARTSETVISITOR_H

#include "cow_String.h"
#include "inpM_IdMap.h"
#include "inpM_SetMap.h"
#include "inp_SetVisitor.h"

class inp_RestartSetVisitor : public inp_SetVisitor {
public:
    inp_RestartSetVisitor();
    // `sets` are the earlier sets of the kind; `setMap` starts as a copy of them, so
    // that a later set of the deck can name an earlier one.
    inp_RestartSetVisitor(const inpM_SetMap& sets, const cow_String& assemblyName, bool isAssemblyModel,
                          const inpM_IdMap& ids, const cow_String& kind);
    ~inp_RestartSetVisitor() override;

    void Visit(inp_Keyword& keyword) override;
    // "*NSET" or "*ELSET" by kind, "*" for any other kind.
    cow_String KeywordName() const override;

    bool isAssemblyModel = false;
    // The ids of this kind in the earlier analysis.
    inpM_IdMap idMap;
    // What this pass defined, also merged into setMap.
    inpM_SetMap newSets;
    inpM_SetMap earlierSets;
    cow_String originalAssemblyName;
    cow_String kind;

private:
    void AddToAssemblyModel(inp_Keyword& keyword, const cow_String& name, const cow_List<cow_String>& segments);
    void AddToFlatModel(inp_Keyword& keyword, const cow_String& name, const cow_List<cow_String>& segments);
    void ReportDuplicate(const cow_String& name);
    // The flat model's forms: items looked up in the instances, and GENERATE lines.
    inpM_SetHandle ReadFlatSet(const inp_Keyword& keyword, bool internal);
    inpM_SetHandle GenerateFlatSet(const inp_Keyword& keyword, bool internal);
    // The first instance, in ascending order of names, whose ids hold `id`; empty when none does.
    bool FindIdInstance(int id, cow_String& instance) const;
};

#endif
