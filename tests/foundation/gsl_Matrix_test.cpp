#include "gsl_Matrix.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

const double pi = 3.14159265358979323846;
const double eps = 1e-12;

void ExpectPoint(const gsl_Point& p, double x, double y, double z, const char* what = "")
{
    EXPECT_NEAR(p.x, x, eps) << what;
    EXPECT_NEAR(p.y, y, eps) << what;
    EXPECT_NEAR(p.z, z, eps) << what;
}

gsl_Point Moved(const gsl_Matrix& m, gsl_Point p)
{
    m.Transform(p);
    return p;
}

// Two rigid motions agree when they move three independent points alike.
void ExpectSameMotion(const gsl_Matrix& a, const gsl_Matrix& b, const char* what = "")
{
    for (const gsl_Point& p : {gsl_Point(0, 0, 0), gsl_Point(1, 0, 0), gsl_Point(0, 1, 0), gsl_Point(0, 0, 1)}) {
        const gsl_Point q = Moved(b, p);
        ExpectPoint(Moved(a, p), q.x, q.y, q.z, what);
    }
}

gsl_Matrix Rotation(const gsl_Point& p, const gsl_Vector& axis, double angle)
{
    gsl_Matrix m;
    m.AxisRotation(p, axis, angle);
    return m;
}

gsl_Matrix Translation(double x, double y, double z)
{
    gsl_Matrix m;
    m.SetTranslation(gsl_Vector(x, y, z));
    return m;
}

}  // namespace

TEST(Matrix, AxisRotationFollowsTheRightHandRule)
{
    const struct {
        const char* name;
        gsl_Point through;
        gsl_Vector axis;
        double angle;
        gsl_Point in;
        gsl_Point out;
    } cases[] = {
        {"z quarter", {0, 0, 0}, {0, 0, 1}, pi / 2, {1, 0, 0}, {0, 1, 0}},
        {"x quarter", {0, 0, 0}, {1, 0, 0}, pi / 2, {0, 1, 0}, {0, 0, 1}},
        {"y quarter", {0, 0, 0}, {0, 1, 0}, pi / 2, {0, 0, 1}, {1, 0, 0}},
        {"negative angle", {0, 0, 0}, {0, 0, 1}, -pi / 2, {1, 0, 0}, {0, -1, 0}},
        {"reversed axis", {0, 0, 0}, {0, 0, -1}, pi / 2, {1, 0, 0}, {0, -1, 0}},
        {"long axis", {0, 0, 0}, {0, 0, 5}, pi / 2, {1, 0, 0}, {0, 1, 0}},
        {"off-origin half turn", {1, 1, 0}, {0, 0, 1}, pi, {2, 1, 7}, {0, 1, 7}},
        {"point on the axis stays", {1, 2, 3}, {1, 1, 1}, 0.7, {2, 3, 4}, {2, 3, 4}},
        {"diagonal third turn", {0, 0, 0}, {1, 1, 1}, 2 * pi / 3, {1, 0, 0}, {0, 1, 0}},
    };
    for (const auto& c : cases) {
        const gsl_Matrix m = Rotation(c.through, c.axis, c.angle);
        ExpectPoint(Moved(m, c.in), c.out.x, c.out.y, c.out.z, c.name);
    }

    // No usable axis: no motion.
    EXPECT_TRUE(Rotation(gsl_Point(1, 2, 3), gsl_Vector(0, 0, 0), 1.0).IsIdentity());
}

TEST(Matrix, ConcatenateAppliesThisMatrixFirst)
{
    const gsl_Matrix rotate = Rotation(gsl_Point(0, 0, 0), gsl_Vector(0, 0, 1), pi / 2);

    // Translate first, then rotate about the axis where it stands.
    gsl_Matrix m = Translation(1, 0, 0);
    m.Concatenate(rotate);
    ExpectPoint(Moved(m, gsl_Point(0, 0, 0)), 0, 1, 0);
    ExpectPoint(Moved(m, gsl_Point(0, 1, 2)), -1, 1, 2);

    // The other order.
    gsl_Matrix n = rotate;
    n.Concatenate(Translation(1, 0, 0));
    ExpectPoint(Moved(n, gsl_Point(0, 0, 0)), 1, 0, 0);
    ExpectPoint(Moved(n, gsl_Point(0, 1, 2)), 0, 0, 2);

    // Two rotations do not commute: a quarter turn about z, then about x.
    const gsl_Matrix aboutX = Rotation(gsl_Point(0, 0, 0), gsl_Vector(1, 0, 0), pi / 2);
    gsl_Matrix zx = rotate;
    zx.Concatenate(aboutX);
    ExpectPoint(Moved(zx, gsl_Point(1, 0, 0)), 0, 0, 1);
    gsl_Matrix xz = aboutX;
    xz.Concatenate(rotate);
    ExpectPoint(Moved(xz, gsl_Point(1, 0, 0)), 0, 1, 0);
}

TEST(Matrix, PointsTakeTheTranslationAndVectorsDoNot)
{
    gsl_Matrix m = Rotation(gsl_Point(0, 0, 0), gsl_Vector(0, 0, 1), pi / 2);
    m.Concatenate(Translation(10, 20, 30));

    gsl_Vector v(2, 0, 0);
    m.Transform(v);
    EXPECT_NEAR(v.x, 0, eps);
    EXPECT_NEAR(v.y, 2, eps);
    EXPECT_NEAR(v.z, 0, eps);
    EXPECT_NEAR(v.length, 2, eps);

    gsl_Vector asPoint(2, 0, 0);
    asPoint.RotateAndTransform(m);
    EXPECT_NEAR(asPoint.x, 10, eps);
    EXPECT_NEAR(asPoint.y, 22, eps);
    EXPECT_NEAR(asPoint.z, 30, eps);
    EXPECT_NEAR(asPoint.length, std::sqrt(100.0 + 484.0 + 900.0), eps);

    gsl_Vector t;
    m.GetTranslation(t);
    EXPECT_EQ(t, gsl_Vector(10, 20, 30));
}

TEST(Matrix, IdentityAndInverse)
{
    gsl_Matrix m;
    EXPECT_TRUE(m.IsIdentity());
    EXPECT_TRUE(m.InverseRigidTransform().IsIdentity());
    m.SetTranslation(gsl_Vector(0, 0, 1e-300));
    EXPECT_FALSE(m.IsIdentity());
    m.FillIdentity();
    EXPECT_TRUE(m.IsIdentity());

    gsl_Matrix motion = Rotation(gsl_Point(1, -2, 3), gsl_Vector(1, 2, 2), 0.9);
    motion.Concatenate(Translation(4, 5, -6));
    const gsl_Matrix inverse = motion.InverseRigidTransform();
    gsl_Matrix roundTrip = motion;
    roundTrip.Concatenate(inverse);
    ExpectSameMotion(roundTrip, gsl_Matrix(), "motion then inverse");
    gsl_Matrix otherWay = inverse;
    otherWay.Concatenate(motion);
    ExpectSameMotion(otherWay, gsl_Matrix(), "inverse then motion");
}

TEST(Matrix, RotationVectorsAreColumnsAndAsArrayGivesRows)
{
    // A local frame: x along (0,1,0), y along (-1,0,0), z along (0,0,1).
    gsl_Matrix m;
    m.SetRotationVectors(gsl_Vector(0, 1, 0), gsl_Vector(-1, 0, 0), gsl_Vector(0, 0, 1));
    m.SetTranslation(gsl_Vector(7, 8, 9));
    ExpectPoint(Moved(m, gsl_Point(1, 0, 0)), 7, 9, 9);  // local x goes to global y
    ExpectPoint(Moved(m, gsl_Point(0, 2, 0)), 5, 8, 9);

    double a[4][4];
    m.AsArray(a);
    const double expected[4][4] = {{0, -1, 0, 7}, {1, 0, 0, 8}, {0, 0, 1, 9}, {0, 0, 0, 1}};
    for (int i = 0; i < 4; ++i)
        for (int j = 0; j < 4; ++j)
            EXPECT_EQ(a[i][j], expected[i][j]) << i << "," << j;
}

TEST(Matrix, GetAxisRotationReadsAnAxisThatRebuildsTheMatrix)
{
    const struct {
        gsl_Point through;
        gsl_Vector axis;
        double angle;
        double shift;  // along the axis, after the rotation
    } cases[] = {
        {{0, 0, 0}, {0, 0, 1}, 0.0, 0.0},      {{0, 0, 0}, {0, 0, 1}, 1e-9, 1.5},
        {{1, 2, 3}, {0, 0, 1}, 0.7, 0.0},      {{1, 2, 3}, {1, 0, 0}, pi / 3, -2.0},
        {{-4, 0, 2}, {1, 2, 2}, 2.0, 0.5},     {{0, 5, 0}, {0, 1, -1}, 2.5, 0.0},
        {{3, 3, 3}, {2, -1, 1}, pi - 1e-7, 1}, {{0, 0, 0}, {0, 1, 0}, pi, 0.0},
        {{1, 0, 0}, {-1, -1, 1}, pi, 3.0},     {{2, -1, 0}, {0, 0, 1}, -pi / 2, 0.0},
    };
    for (const auto& c : cases) {
        gsl_Vector unit = c.axis;
        unit.Normalize();
        gsl_Matrix m = Rotation(c.through, c.axis, c.angle);
        const gsl_Vector shift = unit * c.shift;
        m.Concatenate(Translation(shift.x, shift.y, shift.z));

        gsl_Point point;
        gsl_Vector axis;
        double angle = -1;
        m.GetAxisRotation(point, axis, angle);

        const double expectedAngle = std::fabs(c.angle);
        if (c.angle < 0)
            unit.Negate();
        EXPECT_NEAR(angle, expectedAngle, 1e-9) << c.angle;
        EXPECT_NEAR(axis.length, 1.0, eps);
        if (expectedAngle > 1e-6) {
            // A half turn has no preferred sense.
            const double sense = expectedAngle == pi && axis.DotProduct(unit) < 0 ? -1.0 : 1.0;
            EXPECT_NEAR(axis.x, sense * unit.x, 1e-9) << c.angle;
            EXPECT_NEAR(axis.y, sense * unit.y, 1e-9) << c.angle;
            EXPECT_NEAR(axis.z, sense * unit.z, 1e-9) << c.angle;
            // On the axis: nothing of it lies across the axis.
            const gsl_Vector off(c.through, point);
            const gsl_Vector across = off - unit * off.DotProduct(unit);
            EXPECT_NEAR(across.x, 0.0, 1e-9) << c.angle;
            EXPECT_NEAR(across.y, 0.0, 1e-9) << c.angle;
            EXPECT_NEAR(across.z, 0.0, 1e-9) << c.angle;
        }

        gsl_Vector t;
        m.GetTranslation(t);
        gsl_Matrix rebuilt = Rotation(point, axis, angle);
        const gsl_Vector along = axis * t.DotProduct(axis);
        rebuilt.Concatenate(Translation(along.x, along.y, along.z));
        ExpectSameMotion(rebuilt, m, "rebuilt from point, axis and angle");
    }

    // The pure rotation about an axis off the origin reads back exactly that line.
    gsl_Point on;
    gsl_Vector z;
    double turn = 0;
    Rotation(gsl_Point(1, 2, 3), gsl_Vector(0, 0, 1), 0.7).GetAxisRotation(on, z, turn);
    EXPECT_NEAR(on.x, 1.0, eps);
    EXPECT_NEAR(on.y, 2.0, eps);
    ExpectSameMotion(Rotation(on, z, turn), Rotation(gsl_Point(1, 2, 3), gsl_Vector(0, 0, 1), 0.7), "off the origin");

    gsl_Point point(9, 9, 9);
    gsl_Vector axis(1, 0, 0);
    double angle = 5;
    gsl_Matrix().GetAxisRotation(point, axis, angle);
    ExpectPoint(point, 0, 0, 0);
    EXPECT_EQ(axis, gsl_Vector(0, 0, 1));
    EXPECT_EQ(angle, 0.0);
}
