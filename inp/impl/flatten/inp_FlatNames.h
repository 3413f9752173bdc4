// inp_FlatNames: the one name that each set and surface of an assembled model takes in a
// flat deck, where all of them share a single scope.
//
// Names of the assembly level stay as they are. A name of an instance becomes the
// instance's name and its own joined by an underscore (`Pump-1` and `TOP` give
// `Pump-1_TOP`); where that name is taken already, by the assembly level or by an
// instance that came first, the first free of `_2`, `_3` and so on is appended. The
// instances come in ascending byte order of their names and the names of each likewise,
// so that one model gives the same names on every run. Node sets, element sets and
// surfaces are vocabularies of their own in a deck, and so they are here: a node set and
// an element set may share a flat name. The fourth vocabulary holds the names that the
// orientation fixup rewrites (orientations, cavities, fluid behaviors and their kind),
// which keywords define rather than the maps.
#ifndef INP_FLATNAMES_H
#define INP_FLATNAMES_H

#include <map>
#include <set>
#include <string>
#include <utility>

#include "cow_1DArrayList.h"
#include "cow_String.h"
#include "inp_Keyword.h"
#include "inpM_SetMap.h"
#include "inpM_SurfaceMap.h"

class inp_FlatNames {
public:
    enum Kind { kNodeSet, kElementSet, kSurface, kOrientation };

    inp_FlatNames() = default;
    // Every set and surface of the maps, the assembly level first.
    inp_FlatNames(const inpM_SetMap& nodeSets, const inpM_SetMap& elementSets, const inpM_SurfaceMap& surfaces);

    // The orientations and their kind that the keywords define, in the scope of the
    // *INSTANCE block they stand in: those outside every instance first, then instance by
    // instance.
    void AddDefinitions(const cow_1DArrayList<inp_Keyword>& keywords);
    // The flat name of `name` in `scope` (empty for the assembly level); the one given
    // before when the name is known already. The order of the calls decides who keeps
    // a name that two would take.
    const cow_String& Add(Kind kind, const cow_String& scope, const cow_String& name);
    // Null when the name was never added.
    const cow_String* Find(Kind kind, const cow_String& scope, const cow_String& name) const;

private:
    struct Vocabulary {
        std::map<std::pair<std::string, std::string>, cow_String> byScope;
        std::set<std::string> taken;
    };
    void AddSets(Kind kind, const inpM_SetMap& sets);

    Vocabulary m_vocabularies[4];
};

#endif
