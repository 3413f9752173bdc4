// inpM_SurfaceFacet: the face that a face id of an element surface names.
//
// Face ids in *SURFACE data are "S1", "S2", ... for the faces of solid and
// continuum elements, and "SNEG" and "SPOS" for the two sides of a shell, which
// are its faces 1 and 2. The shape of the element type tells which nodes a face
// number has; anything else (edge ids, "E1", a misspelt id) names no face, and a
// crop then leaves the face as it is.
#ifndef INPM_SURFACEFACET_H
#define INPM_SURFACEFACET_H

#include "cow_String.h"

class inpM_SurfaceFacet {
public:
    explicit inpM_SurfaceFacet(const cow_String& faceId);

    bool IsValid() const { return m_faceNumber > 0; }
    // From 1; 0 for an id that names no face.
    int FaceNumber() const { return m_faceNumber; }

private:
    int m_faceNumber;
};

#endif
