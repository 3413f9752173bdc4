// gsl_Vector: a direction or displacement in space, with its length at hand.
//
// Callers read `length` directly, so every operation here that changes the
// components sets it again. Code that writes x, y or z itself calls
// UpdateLength afterwards.
#ifndef GSL_VECTOR_H
#define GSL_VECTOR_H

#include "gsl_Point.h"

class gsl_Matrix;

class gsl_Vector {
public:
    // Shorter vectors have no usable direction: Normalize refuses them.
    // Coordinates of up to about 1e5 carry rounding of about 1e-11, so the
    // difference of two points that a user gave as equal falls below this,
    // while any real mesh dimension, in any sane unit, lies far above it.
    static constexpr double minNormalizableLength = 1.0e-10;

    // The unit vector along z.
    gsl_Vector() : x(0.0), y(0.0), z(1.0), length(1.0) {}
    gsl_Vector(double x0, double y0, double z0);
    // q - p.
    gsl_Vector(const gsl_Point& p, const gsl_Point& q);
    // The unit normal of the plane through a, b and c, oriented by the
    // right-hand rule over a, b, c; the zero vector when two of the points
    // coincide or all three lie on a line (judged on the unit edge vectors,
    // so the verdict does not depend on the size of the triangle).
    gsl_Vector(const gsl_Point& a, const gsl_Point& b, const gsl_Point& c);

    // Equal components; the stored length is not compared.
    bool operator==(const gsl_Vector& other) const { return x == other.x && y == other.y && z == other.z; }
    bool operator!=(const gsl_Vector& other) const { return !(*this == other); }

    gsl_Vector operator*(double factor) const { return gsl_Vector(x * factor, y * factor, z * factor); }
    gsl_Vector operator+(const gsl_Vector& other) const { return gsl_Vector(x + other.x, y + other.y, z + other.z); }
    gsl_Vector operator-(const gsl_Vector& other) const { return gsl_Vector(x - other.x, y - other.y, z - other.z); }

    // False, and the vector unchanged, when it is shorter than
    // minNormalizableLength.
    bool Normalize();
    void Negate()
    {
        x = -x;
        y = -y;
        z = -z;
    }

    double DotProduct(const gsl_Vector& other) const { return x * other.x + y * other.y + z * other.z; }
    // this x other.
    gsl_Vector CrossProduct(const gsl_Vector& other) const
    {
        return gsl_Vector(y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x);
    }

    // The angle between the directions, in [0, pi]; with `betweenLines`,
    // the angle between the lines they span, in [0, pi/2]. A zero vector
    // makes an angle of 0 with anything.
    double AngleWith(const gsl_Vector& other, bool betweenLines) const;

    // In place: the vector taken as a point, through the whole matrix
    // (rotation and translation).
    gsl_Vector& RotateAndTransform(const gsl_Matrix& matrix);

    void UpdateLength();

    double x;
    double y;
    double z;
    double length;
};

#endif
