// Plane construction: the one place where its normal is made unit length.
#include "gsl_Plane.h"

gsl_Plane::gsl_Plane(const gsl_Point& point, const gsl_Vector& normal) : point_(point), normal_(normal)
{
    if (!normal_.Normalize())
        normal_ = gsl_Vector(0.0, 0.0, 0.0);
}

gsl_Plane::~gsl_Plane() = default;
