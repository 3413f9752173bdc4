// gsl_Plane: a plane through a point with a unit normal, the mirror of
// reflected node copies.
#ifndef GSL_PLANE_H
#define GSL_PLANE_H

#include "gsl_Point.h"
#include "gsl_Vector.h"

class gsl_Plane {
public:
    // The plane z = 0.
    gsl_Plane() = default;
    // The normal is normalised here; one too short for that becomes the
    // zero vector, and the plane then leaves projected points where they are.
    gsl_Plane(const gsl_Point& point, const gsl_Vector& normal);
    virtual ~gsl_Plane();

    const gsl_Point& Point() const { return point_; }
    const gsl_Vector& Direction() const { return normal_; }

private:
    gsl_Point point_;
    gsl_Vector normal_;
};

#endif
