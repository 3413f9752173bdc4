// shp_ShapeDictionary: the faces of an element type, as positions in its connectivity.
//
// Surfaces name element faces by number (S1, S2, ... and SNEG, SPOS for shells); a pass
// that needs the nodes of a face asks the dictionary for the type's shape. Faces are
// given by their corner nodes, which is what a test of where a face lies needs.
// Families: solids (tetrahedra, wedges, hexahedra), planar and axisymmetric elements
// (faces are their edges), and shells and membranes (the two sides). A type the
// dictionary does not know has no shape.
#ifndef SHP_SHAPEDICTIONARY_H
#define SHP_SHAPEDICTIONARY_H

#include "cow_String.h"

struct shp_Shape {
    static const int kMaxFaces = 6;
    static const int kMaxFaceNodes = 4;
    int faceCount;
    int faceNodeCount[kMaxFaces];
    // 0-based positions in the connectivity, per face.
    int faceNodes[kMaxFaces][kMaxFaceNodes];

    int NumberOfFaces() const { return faceCount; }
    // `face` counts from 1, as face ids do.
    int NodesOnFace(int face) const { return faceNodeCount[face - 1]; }
    int FaceNodePosition(int face, int k) const { return faceNodes[face - 1][k]; }
};

class shp_ShapeDictionary {
public:
    // Null for a type without a shape.
    const shp_Shape* GetShape(const cow_String& type) const;
};

#endif
