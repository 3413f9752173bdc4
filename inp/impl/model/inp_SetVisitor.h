// inp_SetVisitor: what the node and element passes share about *NSET and *ELSET.
//
// A set lives in a part or an instance (a nested set, under the scope's name) or at the
// assembly level, where its members may belong to instances: `Pump-1.12` beside plain
// ids and names of other sets. This class owns the set map a pass fills and reads the
// data lines of a set keyword in every form: ids, set names, scoped ids, generation
// sequences, sorted or in deck order.
//
// Sets can hold millions of ids, so plain ids of a keyword are gathered in one list and
// given to the set once; a set is copied only when its name recurs and the keywords
// accumulate. A bad item never stops a read: it is reported and the set is built from
// what is valid.
#ifndef INP_SETVISITOR_H
#define INP_SETVISITOR_H

#include "cow_List.h"
#include "cow_String.h"
#include "inpM_InstanceMap.h"
#include "inpM_SetMap.h"
#include "inp_Visitor.h"

class inp_SetVisitor : public inp_Visitor {
public:
    inp_SetVisitor() = default;
    // A shared copy of the map; `name` becomes the instance walked.
    inp_SetVisitor(const inpM_SetMap& sets, const cow_String& name);
    ~inp_SetVisitor() override;

    // "*NODE" or "*ELEMENT": the keyword whose sets this pass reads.
    virtual cow_String KeywordName() const = 0;
    // May a scoped id point into the scope of this name?
    virtual bool IsValidScope(const cow_String& name) const;

    inpM_SetMap setMap;
    // Sets of the instances that an earlier job made, nested by instance name.
    inpM_SetMap importedSets;
    cow_List<cow_String> instanceNames;
    cow_List<cow_String> importedInstances;

protected:
    void DefaultAction(inp_Keyword& keyword) override;

    // "*NSET" for a node pass, "*ELSET" for an element pass.
    cow_String SetKeywordName() const;
    // The instance walked, else the part.
    const cow_String& CurrentScope() const { return instanceName.IsEmpty() ? partName : instanceName; }
    // The part when one is open, else the instance: the scope of a set keyword.
    const cow_String& KeywordScope() const { return partName.IsEmpty() ? instanceName : partName; }
    // A scoped id of a scope points into that scope; one of the assembly level into
    // any of the assembly's instances.
    bool IsScopeOrInstance(const cow_String& name) const {
        return KeywordScope().IsEmpty() ? instanceNames.IsMember(name) : name == KeywordScope();
    }

    // With `replace` false an existing set of the name takes the new one in; true puts
    // the new one in its place. An invalid name is refused with a message.
    void AddSet(const cow_String& name, const inpM_BaseSet& set, bool replace);
    void AddSet(const cow_String& name, const inpM_BaseSet& set, bool replace, inpM_SetMap& sets);
    void AddAssemblySet(const cow_String& name, const inpM_BaseSet& set, bool replace);
    void AddAssemblySet(const cow_String& name, const inpM_BaseSet& set, bool replace, inpM_SetMap& sets);

    // Lines of start, end and increment. The named forms start from a copy of an
    // existing set of that name, so that the caller can replace it.
    inpM_SetHandle GenerateSet(const inp_Keyword& keyword, bool internal, bool unsorted);
    inpM_SetHandle GenerateSet(const cow_String& name, const inp_Keyword& keyword, bool internal, bool unsorted);
    inpM_SetHandle GenerateAssemblySet(const inp_Keyword& keyword, bool internal, bool unsorted);
    inpM_SetHandle GenerateAssemblySet(const cow_String& name, const inp_Keyword& keyword, bool internal,
                                       bool unsorted);

    // Ids and set names of the scope. With `searchAll` a name may stand at the
    // assembly level or in any scope of the map.
    inpM_SetHandle ReadSet(const inp_Keyword& keyword, bool internal, bool searchAll);
    // The same in the order of the deck, except that ids standing in front of a set
    // name land behind that set's ids.
    inpM_SetHandle ReadUnsortedSet(const inp_Keyword& keyword, bool internal, bool searchAll);
    inpM_SetHandle ReadSet(const cow_String& name, const inp_Keyword& keyword, bool internal, bool unsorted,
                           bool searchAll);

    // Ids, scoped ids, set names and scoped set names of the assembly level, looked up
    // in `sets`.
    inpM_SetHandle ReadAssemblySet(const inpM_SetMap& sets, const inp_Keyword& keyword, bool internal);
    inpM_SetHandle ReadUnsortedAssemblySet(const inpM_SetMap& sets, const inp_Keyword& keyword, bool internal);
    inpM_SetHandle ReadAssemblySet(const cow_String& name, const inpM_SetMap& sets, const inp_Keyword& keyword,
                                   bool internal, bool unsorted);

    // At the assembly level, INSTANCE=I turns every item into `I.item` (items 0 and 1
    // only with GENERATE) in a new data array of the keyword.
    void ApplyInstanceParameter(inp_Keyword& keyword);

    // The set a defining keyword names in `parameter`, when it names one and ids were
    // made: in the keyword's scope, or at the assembly level, merged with a set of the
    // same name.
    void AddKeywordSet(const inp_Keyword& keyword, const char* parameter, const cow_1DArrayList<int>& ids,
                       bool internal, bool unsorted);

    // Inside an instance, a set that the instance's part defined may not be given
    // again; `message` takes the set, the part and the instance.
    void CheckPartSetRedefined(const inp_Keyword& keyword, const char* parameter, const inpM_SetMap& partSets,
                               const inpM_InstanceMap<cow_String>& instanceToPart, const char* message);

private:
    void RequireScope() const;
    void RequireAssemblyLevel() const;
    inpM_SetHandle ReadScopeItems(const inp_Keyword& keyword, bool internal, bool searchAll, bool unsorted);
    inpM_SetHandle ReadAssemblyItems(const inpM_SetMap& sets, const inp_Keyword& keyword, bool internal,
                                     bool unsorted);
};

#endif
