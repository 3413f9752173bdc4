// gsl_Matrix: a rigid transformation, rotation R and translation t, acting
// on column vectors: a point goes to R p + t, a vector to R v.
//
// Instances, *SYSTEM frames and node generators place geometry with it.
// Only rigid motions are built here, which lets the inverse come from R
// transposed instead of a general inversion.
#ifndef GSL_MATRIX_H
#define GSL_MATRIX_H

#include "gsl_Point.h"
#include "gsl_Vector.h"

class gsl_Matrix {
public:
    // The identity.
    gsl_Matrix();

    void FillIdentity();
    // Exact: a matrix that was never changed, or was built from data that
    // amount to no motion, compares equal; a round-off residue does not.
    bool IsIdentity() const;

    // t := v; R stays.
    void SetTranslation(const gsl_Vector& v);
    void GetTranslation(gsl_Vector& v) const;

    // R := [e1 e2 e3] as columns, so local coordinates go to global ones.
    // The vectors are taken as given; the caller makes them orthonormal.
    void SetRotationVectors(const gsl_Vector& e1, const gsl_Vector& e2, const gsl_Vector& e3);

    // Makes this matrix the rotation by `angle` about the line through
    // `point` along `axis`, by the right-hand rule. The axis need not be
    // unit length; one too short to normalise gives the identity.
    void AxisRotation(const gsl_Point& point, const gsl_Vector& axis, double angle);

    // Reads the matrix back as a rotation by `angle` (in [0, pi]) about the unit
    // `axis` through `point`, the point of that line nearest the origin, so that
    // AxisRotation(point, axis, angle) rebuilds the matrix. A rigid motion may also
    // shift along its axis; that part, (t . axis) axis, is left to the caller and is
    // 0 for a pure rotation. With no rotation the axis is (0, 0, 1), the angle 0 and
    // the point the origin: the whole motion is then the translation.
    void GetAxisRotation(gsl_Point& point, gsl_Vector& axis, double& angle) const;

    // In place: the result first applies this matrix, then m.
    void Concatenate(const gsl_Matrix& m);

    void Transform(gsl_Point& p) const;
    void Transform(gsl_Vector& v) const;

    gsl_Matrix InverseRigidTransform() const;

    // Rows of the 4 by 4 form: R in rows and columns 0 to 2, t in column 3,
    // and 0 0 0 1 in row 3.
    void AsArray(double a[4][4]) const;

    bool operator==(const gsl_Matrix& other) const;
    bool operator!=(const gsl_Matrix& other) const { return !(*this == other); }

private:
    // The foot nearest the origin of the axis of this rotation, angle above 0.
    gsl_Point PointOnAxis(const gsl_Vector& axis, double angle) const;

    double r_[3][3];
    double t_[3];
};

#endif
