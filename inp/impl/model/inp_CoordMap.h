// inp_CoordMap: the nodes of one scope and, nested, those of its children.
//
// Records are stored in the frame of the part they belong to. The map of an
// instance is a copy of its part's map, sharing the part's table, with the
// instance's placement in `transformation`; reads apply it. So an instance costs
// a few handles and a matrix, whatever the size of its part, and placing it
// never touches a node.
//
// Renumbering does not rewrite the table either: `renumberTable` takes new ids
// (those of the flat model) to the stored ones, and reads go through it.
#ifndef INP_COORDMAP_H
#define INP_COORDMAP_H

#include "cow_COW.h"
#include "cow_IntTable.h"
#include "cow_List.h"
#include "cow_Map.h"
#include "cow_String.h"
#include "gsl_Matrix.h"
#include "inpM_IdMap.h"
#include "inp_Coord.h"
#include "omi_IntTable.h"

class inp_CoordMap {
public:
    using CoordTable = omi_IntTable<inp_Coord>;
    using IdTable = omi_IntTable<int>;
    using Handle = cow_COW<inp_CoordMap, cow_Direct<inp_CoordMap>>;

    // Empty, with the identity.
    inp_CoordMap() = default;
    // Shares coords, renumberTable and instances.
    inp_CoordMap(const inp_CoordMap&) = default;
    inp_CoordMap& operator=(const inp_CoordMap&) = default;

    cow_COW<CoordTable, cow_Direct<CoordTable>> coords;
    gsl_Matrix transformation;
    // New id to stored id; empty until Renumber.
    cow_COW<IdTable, cow_Direct<IdTable>> renumberTable;
    cow_Map<cow_String, Handle> instances;

    // All records of this level as the outside sees them: placed by the matrix,
    // under their new ids. Shares the stored table when neither applies.
    cow_IntTable<inp_Coord> ConstGet() const;
    // The id must be present (see HasId).
    inp_Coord ConstGet(int id) const;
    inp_Coord ConstGet(int id, const inp_Coord& fallback) const;
    // Records of this level and of all nested maps.
    int Count() const;

    // One gapless range of new ids from `start`: this level in ascending order
    // of its ids, then each nested map in ascending order of names. With `keep`
    // the ids of this level stay as they are and do not use up the range.
    inpM_IdMap Renumber(int start, bool keep);

    // The result first applies the present transformation, then m; nested maps
    // likewise, each separated from maps that share it.
    void ConcatenateTransformation(const gsl_Matrix& m);
    // Nested names in ascending byte order.
    cow_List<cow_String> InstanceNames() const;
    void RenameInstance(const cow_String& oldName, const cow_String& newName);

    // The lookup of passes that test or write records: an id without an entry
    // in renumberTable stands for itself.
    int StoredId(int id) const;
    bool HasId(int id) const { return coords->HasKey(StoredId(id)); }
    // Stores a record, as given, in the frame of the part.
    void Insert(int id, const inp_Coord& coord) { coords.Get().Insert(StoredId(id), coord); }

    // The record as a reader of this scope sees it: the matrix applied to the
    // point and to the normal, which comes out of unit length or zero.
    static inp_Coord Transformed(const inp_Coord& stored, const gsl_Matrix& matrix);
};

#endif
