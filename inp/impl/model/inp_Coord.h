// inp_Coord: the record of one node in an inp_CoordMap.
//
// Coordinates are those of the frame of the scope that stores the record: a
// part's nodes stay in the part's frame, and reads through an instance's map
// place them. The normal is optional; all three components 0.0 mean none.
#ifndef INP_COORD_H
#define INP_COORD_H

struct inp_Coord {
    // False only for a node that elements use and no *NODE defines: the flat-deck
    // conversion places it at the origin so that the model stays complete.
    bool isDefined = true;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double nx = 0.0;
    double ny = 0.0;
    double nz = 0.0;
};

#endif
