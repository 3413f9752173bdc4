// Projections of a point on the mirror plane and line of node copying.
#include "gsl_Point.h"

#include "gsl_Plane.h"
#include "gsl_StLine.h"

gsl_Point gsl_Point::ProjectOn(const gsl_Plane& plane) const
{
    const gsl_Point& a = plane.Point();
    const gsl_Vector& n = plane.Direction();
    const double d = (x - a.x) * n.x + (y - a.y) * n.y + (z - a.z) * n.z;
    return gsl_Point(x - d * n.x, y - d * n.y, z - d * n.z);
}

gsl_Point gsl_Point::ProjectOn(const gsl_StLine& line, double& t) const
{
    const gsl_Point& a = line.Point();
    const gsl_Vector& d = line.Direction();
    t = (x - a.x) * d.x + (y - a.y) * d.y + (z - a.z) * d.z;
    return gsl_Point(a.x + t * d.x, a.y + t * d.y, a.z + t * d.z);
}
