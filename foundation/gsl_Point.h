// gsl_Point: a point in space, as node coordinates and generator anchors are.
//
// Points and vectors are kept apart because a rigid transformation moves
// them differently: a point takes the translation, a vector does not.
#ifndef GSL_POINT_H
#define GSL_POINT_H

class gsl_Plane;
class gsl_StLine;

class gsl_Point {
public:
    gsl_Point() : x(0.0), y(0.0), z(0.0) {}
    gsl_Point(double x0, double y0, double z0) : x(x0), y(y0), z(z0) {}
    // wa a + wb b: with weights summing to 1, a point on the line through a
    // and b, as node generation interpolates.
    gsl_Point(const gsl_Point& a, double wa, const gsl_Point& b, double wb)
        : x(wa * a.x + wb * b.x), y(wa * a.y + wb * b.y), z(wa * a.z + wb * b.z)
    {
    }

    // The foot of the perpendicular on the plane.
    gsl_Point ProjectOn(const gsl_Plane& plane) const;
    // The foot on the line; `t` is its signed distance from the line's point
    // along the line's unit direction.
    gsl_Point ProjectOn(const gsl_StLine& line, double& t) const;

    double x;
    double y;
    double z;
};

#endif
