// Vector arithmetic that needs the square root or the matrix.
#include "gsl_Vector.h"

#include "gsl_Matrix.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double pi = 3.14159265358979323846;
}

gsl_Vector::gsl_Vector(double x0, double y0, double z0) : x(x0), y(y0), z(z0), length(0.0)
{
    UpdateLength();
}

gsl_Vector::gsl_Vector(const gsl_Point& p, const gsl_Point& q) : gsl_Vector(q.x - p.x, q.y - p.y, q.z - p.z) {}

gsl_Vector::gsl_Vector(const gsl_Point& a, const gsl_Point& b, const gsl_Point& c) : gsl_Vector(0.0, 0.0, 0.0)
{
    gsl_Vector ab(a, b);
    gsl_Vector ac(a, c);
    if (!ab.Normalize() || !ac.Normalize())
        return;
    gsl_Vector normal = ab.CrossProduct(ac);
    if (normal.Normalize())
        *this = normal;
}

void gsl_Vector::UpdateLength()
{
    length = std::sqrt(x * x + y * y + z * z);
}

bool gsl_Vector::Normalize()
{
    UpdateLength();
    if (length < minNormalizableLength)
        return false;
    x /= length;
    y /= length;
    z /= length;
    UpdateLength();
    return true;
}

double gsl_Vector::AngleWith(const gsl_Vector& other, bool betweenLines) const
{
    // atan2 of the sine and cosine parts keeps its accuracy near 0 and pi,
    // where acos of the cosine alone loses half the digits.
    const double angle = std::atan2(CrossProduct(other).length, DotProduct(other));
    return betweenLines ? std::min(angle, pi - angle) : angle;
}

gsl_Vector& gsl_Vector::RotateAndTransform(const gsl_Matrix& matrix)
{
    gsl_Point p(x, y, z);
    matrix.Transform(p);
    x = p.x;
    y = p.y;
    z = p.z;
    UpdateLength();
    return *this;
}
