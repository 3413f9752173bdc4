// Rigid transformations: composition, axis rotations and their inverse.
#include "gsl_Matrix.h"

#include <algorithm>
#include <cmath>

gsl_Matrix::gsl_Matrix()
{
    FillIdentity();
}

void gsl_Matrix::FillIdentity()
{
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            r_[i][j] = i == j ? 1.0 : 0.0;
        t_[i] = 0.0;
    }
}

bool gsl_Matrix::IsIdentity() const
{
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            if (r_[i][j] != (i == j ? 1.0 : 0.0))
                return false;
        if (t_[i] != 0.0)
            return false;
    }
    return true;
}

void gsl_Matrix::SetTranslation(const gsl_Vector& v)
{
    t_[0] = v.x;
    t_[1] = v.y;
    t_[2] = v.z;
}

void gsl_Matrix::GetTranslation(gsl_Vector& v) const
{
    v = gsl_Vector(t_[0], t_[1], t_[2]);
}

void gsl_Matrix::SetRotationVectors(const gsl_Vector& e1, const gsl_Vector& e2, const gsl_Vector& e3)
{
    const gsl_Vector* columns[3] = {&e1, &e2, &e3};
    for (int j = 0; j < 3; ++j) {
        r_[0][j] = columns[j]->x;
        r_[1][j] = columns[j]->y;
        r_[2][j] = columns[j]->z;
    }
}

void gsl_Matrix::AxisRotation(const gsl_Point& point, const gsl_Vector& axis, double angle)
{
    FillIdentity();
    gsl_Vector k = axis;
    if (!k.Normalize())
        return;
    // Rodrigues: R = cos I + sin [k]x + (1 - cos) k k^T.
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double v = 1.0 - c;
    const double kk[3] = {k.x, k.y, k.z};
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            r_[i][j] = v * kk[i] * kk[j] + (i == j ? c : 0.0);
    r_[0][1] -= s * k.z;
    r_[0][2] += s * k.y;
    r_[1][0] += s * k.z;
    r_[1][2] -= s * k.x;
    r_[2][0] -= s * k.y;
    r_[2][1] += s * k.x;
    // The point stays where it is: t = p - R p.
    const double p[3] = {point.x, point.y, point.z};
    for (int i = 0; i < 3; ++i)
        t_[i] = p[i] - (r_[i][0] * p[0] + r_[i][1] * p[1] + r_[i][2] * p[2]);
}

void gsl_Matrix::GetAxisRotation(gsl_Point& point, gsl_Vector& axis, double& angle) const
{
    point = gsl_Point(0.0, 0.0, 0.0);
    // The skew part of R is sin * [k]x, its trace 1 + 2 cos.
    gsl_Vector w(r_[2][1] - r_[1][2], r_[0][2] - r_[2][0], r_[1][0] - r_[0][1]);
    const double c = std::clamp((r_[0][0] + r_[1][1] + r_[2][2] - 1.0) / 2.0, -1.0, 1.0);
    angle = std::atan2(w.length / 2.0, c);
    if (w.length == 0.0 && c > 0.0) {
        axis = gsl_Vector();
        angle = 0.0;
        return;
    }
    if (c > -0.5 && w.length > 0.0) {
        axis = w * (1.0 / w.length);
        point = PointOnAxis(axis, angle);
        return;
    }
    // Near a half turn the skew part vanishes; the symmetric part
    // (1 - cos) k k^T still holds the axis. Its row with the largest
    // diagonal is the best conditioned multiple of k.
    double sym[3][3];
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            sym[i][j] = (r_[i][j] + r_[j][i]) / 2.0 - (i == j ? c : 0.0);
    int best = 0;
    for (int i = 1; i < 3; ++i)
        if (sym[i][i] > sym[best][best])
            best = i;
    axis = gsl_Vector(sym[best][0], sym[best][1], sym[best][2]);
    if (!axis.Normalize()) {
        axis = gsl_Vector();  // R is no rotation at all
        return;
    }
    // The symmetric part fixes k only up to sign; the skew part decides it.
    if (axis.DotProduct(w) < 0.0)
        axis.Negate();
    point = PointOnAxis(axis, angle);
}

gsl_Point gsl_Matrix::PointOnAxis(const gsl_Vector& axis, double angle) const
{
    // The part u of t across the axis is what the rotation moves the origin by:
    // (I - R) p = u. For p across the axis too, R p = cos p + sin (k x p), which
    // solves to p = (u + cot(angle / 2) k x u) / 2.
    const gsl_Vector t(t_[0], t_[1], t_[2]);
    const gsl_Vector u = t - axis * t.DotProduct(axis);
    const gsl_Vector across = axis.CrossProduct(u) * (1.0 / std::tan(angle / 2.0));
    return gsl_Point((u.x + across.x) / 2.0, (u.y + across.y) / 2.0, (u.z + across.z) / 2.0);
}

void gsl_Matrix::Concatenate(const gsl_Matrix& m)
{
    // this := m * this.
    double r[3][3];
    double t[3];
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            r[i][j] = m.r_[i][0] * r_[0][j] + m.r_[i][1] * r_[1][j] + m.r_[i][2] * r_[2][j];
        t[i] = m.r_[i][0] * t_[0] + m.r_[i][1] * t_[1] + m.r_[i][2] * t_[2] + m.t_[i];
    }
    std::copy(&r[0][0], &r[0][0] + 9, &r_[0][0]);
    std::copy(t, t + 3, t_);
}

void gsl_Matrix::Transform(gsl_Point& p) const
{
    const double x = p.x;
    const double y = p.y;
    const double z = p.z;
    p.x = r_[0][0] * x + r_[0][1] * y + r_[0][2] * z + t_[0];
    p.y = r_[1][0] * x + r_[1][1] * y + r_[1][2] * z + t_[1];
    p.z = r_[2][0] * x + r_[2][1] * y + r_[2][2] * z + t_[2];
}

void gsl_Matrix::Transform(gsl_Vector& v) const
{
    const double x = v.x;
    const double y = v.y;
    const double z = v.z;
    v.x = r_[0][0] * x + r_[0][1] * y + r_[0][2] * z;
    v.y = r_[1][0] * x + r_[1][1] * y + r_[1][2] * z;
    v.z = r_[2][0] * x + r_[2][1] * y + r_[2][2] * z;
    v.UpdateLength();
}

gsl_Matrix gsl_Matrix::InverseRigidTransform() const
{
    gsl_Matrix inverse;
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            inverse.r_[i][j] = r_[j][i];
    for (int i = 0; i < 3; ++i)
        inverse.t_[i] = -(inverse.r_[i][0] * t_[0] + inverse.r_[i][1] * t_[1] + inverse.r_[i][2] * t_[2]);
    return inverse;
}

void gsl_Matrix::AsArray(double a[4][4]) const
{
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j)
            a[i][j] = r_[i][j];
        a[i][3] = t_[i];
        a[3][i] = 0.0;
    }
    a[3][3] = 1.0;
}

bool gsl_Matrix::operator==(const gsl_Matrix& other) const
{
    return std::equal(&r_[0][0], &r_[0][0] + 9, &other.r_[0][0]) && std::equal(t_, t_ + 3, other.t_);
}
