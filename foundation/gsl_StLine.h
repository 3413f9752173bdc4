// gsl_StLine: a straight line through a point with a unit direction, the
// mirror line of reflected node copies.
#ifndef GSL_STLINE_H
#define GSL_STLINE_H

#include "gsl_Point.h"
#include "gsl_Vector.h"

class gsl_StLine {
public:
    // The z axis.
    gsl_StLine() = default;
    // The line from a towards b. When the points are too close to give a
    // direction, the direction is the zero vector and the line degenerates
    // to the point a.
    gsl_StLine(const gsl_Point& a, const gsl_Point& b);
    virtual ~gsl_StLine();

    const gsl_Point& Point() const { return point_; }
    const gsl_Vector& Direction() const { return direction_; }

private:
    gsl_Point point_;
    gsl_Vector direction_;
};

#endif
