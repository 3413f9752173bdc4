// Line construction: the one place where its direction is made unit length.
#include "gsl_StLine.h"

gsl_StLine::gsl_StLine(const gsl_Point& a, const gsl_Point& b) : point_(a), direction_(a, b)
{
    if (!direction_.Normalize())
        direction_ = gsl_Vector(0.0, 0.0, 0.0);
}

gsl_StLine::~gsl_StLine() = default;
