#include "inp_FlatNames.h"

#include <vector>

#include "inpM_Utils.h"
#include "inp_Item.h"
#include "inp_OrientationFixupVisitor.h"
#include "inp_Utils.h"

namespace {

using Definitions = std::map<std::string, std::vector<cow_String>>;

// The keywords whose "name" the orientation fixup treats as a definition.
bool Defines(const inp_Keyword& keyword) {
    switch (keyword.keyword) {
#define INP_FLATNAMES_CASE(Ident) case inp_kw##Ident:
        INP_ORIENTFIXUP_NAME_PARAMETER(INP_FLATNAMES_CASE)
#undef INP_FLATNAMES_CASE
        return true;
        default:
            return false;
    }
}

void GatherDefinitions(const cow_1DArrayList<inp_Keyword>& keywords, const std::string& scope, Definitions& out) {
    for (int i = 0; i < keywords.Count(); ++i) {
        const inp_Keyword& keyword = keywords[i];
        std::string inner = scope;
        if (keyword.keyword == inp_kwInstance) {
            const inp_Item* name = keyword.parameters.Lookup(cow_String("name"));
            inner = name ? name->AsString().c_str() : "";
        } else if (Defines(keyword)) {
            if (const inp_Item* name = keyword.parameters.Lookup(cow_String("name")))
                out[scope].push_back(name->AsString());
        }
        GatherDefinitions(keyword.suboptions, inner, out);
    }
}

}  // namespace

inp_FlatNames::inp_FlatNames(const inpM_SetMap& nodeSets, const inpM_SetMap& elementSets,
                             const inpM_SurfaceMap& surfaces) {
    AddSets(kNodeSet, nodeSets);
    AddSets(kElementSet, elementSets);

    // An assembly surface may reach into several instances, but its name is one of the
    // assembly level all the same.
    const cow_String assembly;
    const cow_List<cow_String> local = inpM_Utils::SortedKeys(surfaces.ConstGetPartInstanceSurfaceMap(assembly));
    for (int i = 0; i < local.Count(); ++i) Add(kSurface, assembly, local[i]);
    const cow_List<cow_String> reaching = inpM_Utils::SortedKeys(surfaces.assemblyInstanceSurfaces);
    for (int i = 0; i < reaching.Count(); ++i) Add(kSurface, assembly, reaching[i]);
    const cow_List<cow_String> scopes = surfaces.Instances();
    for (int i = 0; i < scopes.Count(); ++i) {
        if (scopes[i].IsEmpty()) continue;
        const cow_List<cow_String> names = inpM_Utils::SortedKeys(surfaces.ConstGetPartInstanceSurfaceMap(scopes[i]));
        for (int k = 0; k < names.Count(); ++k) Add(kSurface, scopes[i], names[k]);
    }
}

void inp_FlatNames::AddDefinitions(const cow_1DArrayList<inp_Keyword>& keywords) {
    Definitions definitions;
    GatherDefinitions(keywords, std::string(), definitions);
    // The empty scope sorts first.
    for (const auto& scope : definitions)
        for (const cow_String& name : scope.second) Add(kOrientation, cow_String(scope.first.c_str()), name);
}

void inp_FlatNames::AddSets(Kind kind, const inpM_SetMap& sets) {
    const cow_List<cow_String> names = inpM_Utils::SortedKeys(sets);
    for (int i = 0; i < names.Count(); ++i) Add(kind, cow_String(), names[i]);
    const cow_List<cow_String> scopes = sets.Instances();
    for (int i = 0; i < scopes.Count(); ++i) {
        const cow_List<cow_String> nested = inpM_Utils::SortedKeys(sets.ConstGetNestedSetMap(scopes[i]));
        for (int k = 0; k < nested.Count(); ++k) Add(kind, scopes[i], nested[k]);
    }
}

const cow_String& inp_FlatNames::Add(Kind kind, const cow_String& scope, const cow_String& name) {
    Vocabulary& vocabulary = m_vocabularies[kind];
    const std::pair<std::string, std::string> key(scope.c_str(), name.c_str());
    const auto known = vocabulary.byScope.find(key);
    if (known != vocabulary.byScope.end()) return known->second;

    const cow_String wanted = scope.IsEmpty() ? name : inp_Utils::CreateFlattenedName(scope, name);
    cow_String flat = wanted;
    for (int suffix = 2; vocabulary.taken.count(flat.c_str()); ++suffix)
        flat = inp_Utils::CreateFlattenedName(wanted, cow_String(std::to_string(suffix).c_str()));
    vocabulary.taken.insert(flat.c_str());
    return vocabulary.byScope.emplace(key, flat).first->second;
}

const cow_String* inp_FlatNames::Find(Kind kind, const cow_String& scope, const cow_String& name) const {
    const Vocabulary& vocabulary = m_vocabularies[kind];
    const auto found = vocabulary.byScope.find(std::make_pair(std::string(scope.c_str()), std::string(name.c_str())));
    return found == vocabulary.byScope.end() ? nullptr : &found->second;
}
