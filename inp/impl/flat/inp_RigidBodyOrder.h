// inp_RigidBodyOrder: analytical surfaces ahead of the rigid bodies that use them.
//
// A *RIGID BODY, ANALYTICAL SURFACE=S may stand before the surface S in a deck. The
// flat-deck conversion places S in a part of its own and reads the placement of that
// part from the surface's header lines; the body needs that placement for its
// reference node, so the surface must be walked first.
#ifndef INP_RIGIDBODYORDER_H
#define INP_RIGIDBODYORDER_H

#include "cow_1DArrayList.h"
#include "inp_Keyword.h"

class inp_RigidBodyOrder {
public:
    // Swaps each rigid body that stands in front of its analytical surface with that
    // surface. A name with a second body or a second surface is reported to the sink
    // at level 0, and the first of each is the one that counts.
    static void PutSurfacesFirst(cow_1DArrayList<inp_Keyword>& keywords);
};

#endif
