#include "gsl_Plane.h"
#include "gsl_Point.h"
#include "gsl_StLine.h"
#include "gsl_Util.h"
#include "gsl_Vector.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

const double pi = 3.14159265358979323846;
const double eps = 1e-12;

void ExpectVector(const gsl_Vector& v, double x, double y, double z, const char* what = "")
{
    EXPECT_NEAR(v.x, x, eps) << what;
    EXPECT_NEAR(v.y, y, eps) << what;
    EXPECT_NEAR(v.z, z, eps) << what;
    EXPECT_NEAR(v.length, std::sqrt(x * x + y * y + z * z), eps) << what;
}

}  // namespace

TEST(Vector, ConstructorsAndArithmeticKeepTheLength)
{
    ExpectVector(gsl_Vector(), 0, 0, 1, "default");
    ExpectVector(gsl_Vector(3, 4, 12), 3, 4, 12, "components");
    ExpectVector(gsl_Vector(gsl_Point(1, 1, 1), gsl_Point(4, 5, 1)), 3, 4, 0, "q - p");

    const gsl_Vector a(1, 2, 2);
    const gsl_Vector b(0, -3, 4);
    ExpectVector(a + b, 1, -1, 6, "sum");
    ExpectVector(a - b, 1, 5, -2, "difference");
    ExpectVector(a * -2.0, -2, -4, -4, "scaled");
    EXPECT_EQ(a.DotProduct(b), 2.0);

    gsl_Vector n = a;
    n.Negate();
    ExpectVector(n, -1, -2, -2, "negated");

    // Right-handed: x cross y is z, and the order matters.
    ExpectVector(gsl_Vector(1, 0, 0).CrossProduct(gsl_Vector(0, 1, 0)), 0, 0, 1, "x cross y");
    ExpectVector(gsl_Vector(0, 1, 0).CrossProduct(gsl_Vector(1, 0, 0)), 0, 0, -1, "y cross x");

    EXPECT_TRUE(gsl_Vector(1, 2, 3) == gsl_Vector(1, 2, 3));
    EXPECT_TRUE(gsl_Vector(1, 2, 3) != gsl_Vector(1, 2, 3.0000001));
}

TEST(Vector, NormalizeRefusesVectorsTooShortToHaveADirection)
{
    const double limit = gsl_Vector::minNormalizableLength;
    const struct {
        gsl_Vector v;
        bool ok;
        gsl_Vector unit;
    } cases[] = {
        {{0, 0, 0}, false, {0, 0, 0}},
        {{limit / 10, 0, 0}, false, {limit / 10, 0, 0}},
        {{0, limit * 2, 0}, true, {0, 1, 0}},
        {{3, 0, -4}, true, {0.6, 0, -0.8}},
        {{1e8, 1e8, 0}, true, {std::sqrt(0.5), std::sqrt(0.5), 0}},
    };
    for (const auto& c : cases) {
        gsl_Vector v = c.v;
        EXPECT_EQ(v.Normalize(), c.ok) << c.v.x << " " << c.v.y << " " << c.v.z;
        EXPECT_NEAR(v.x, c.unit.x, eps);
        EXPECT_NEAR(v.y, c.unit.y, eps);
        EXPECT_NEAR(v.z, c.unit.z, eps);
        EXPECT_NEAR(v.length, c.ok ? 1.0 : c.v.length, eps);
    }
}

TEST(Vector, ThreePointNormal)
{
    const gsl_Point o(0, 0, 0);
    ExpectVector(gsl_Vector(o, gsl_Point(1, 0, 0), gsl_Point(0, 1, 0)), 0, 0, 1, "counter-clockwise");
    ExpectVector(gsl_Vector(o, gsl_Point(0, 1, 0), gsl_Point(1, 0, 0)), 0, 0, -1, "clockwise");
    ExpectVector(gsl_Vector(gsl_Point(1, 1, 1), gsl_Point(1, 3, 1), gsl_Point(1, 1, 5)), 1, 0, 0, "plane x=1");
    // The size of the triangle does not decide whether there is a plane.
    ExpectVector(gsl_Vector(o, gsl_Point(1e-6, 0, 0), gsl_Point(0, 0, 1e-6)), 0, -1, 0, "small triangle");
    ExpectVector(gsl_Vector(o, gsl_Point(1, 1, 1), gsl_Point(2, 2, 2)), 0, 0, 0, "collinear");
    ExpectVector(gsl_Vector(o, o, gsl_Point(1, 0, 0)), 0, 0, 0, "coincident");
}

TEST(Vector, AngleBetweenDirectionsAndBetweenLines)
{
    const struct {
        gsl_Vector a;
        gsl_Vector b;
        double directions;
        double lines;
    } cases[] = {
        {{1, 0, 0}, {0, 2, 0}, pi / 2, pi / 2},
        {{1, 0, 0}, {3, 0, 0}, 0, 0},
        {{1, 0, 0}, {-1, 0, 0}, pi, 0},
        {{1, 0, 0}, {1, 1, 0}, pi / 4, pi / 4},
        {{1, 0, 0}, {-1, 1, 0}, 3 * pi / 4, pi / 4},
        {{1, 0, 0}, {1, 1e-9, 0}, 1e-9, 1e-9},
        {{0, 0, 0}, {1, 0, 0}, 0, 0},
    };
    for (const auto& c : cases) {
        EXPECT_NEAR(c.a.AngleWith(c.b, false), c.directions, eps) << c.b.x << " " << c.b.y;
        EXPECT_NEAR(c.b.AngleWith(c.a, false), c.directions, eps) << c.b.x << " " << c.b.y;
        EXPECT_NEAR(c.a.AngleWith(c.b, true), c.lines, eps) << c.b.x << " " << c.b.y;
    }
}

TEST(Point, WeightedSumAndProjections)
{
    const gsl_Point mid(gsl_Point(0, 0, 0), 0.25, gsl_Point(4, 8, -4), 0.75);
    EXPECT_DOUBLE_EQ(mid.x, 3);
    EXPECT_DOUBLE_EQ(mid.y, 6);
    EXPECT_DOUBLE_EQ(mid.z, -3);

    // The plane x + y = 2 given with a normal that is not unit length.
    const gsl_Plane plane(gsl_Point(1, 1, 0), gsl_Vector(3, 3, 0));
    EXPECT_NEAR(plane.Direction().length, 1.0, eps);
    const gsl_Point foot = gsl_Point(3, 3, 5).ProjectOn(plane);
    EXPECT_NEAR(foot.x, 1, eps);
    EXPECT_NEAR(foot.y, 1, eps);
    EXPECT_NEAR(foot.z, 5, eps);

    // The line from (1,0,0) towards (1,0,10): t is the distance along it.
    const gsl_StLine line(gsl_Point(1, 0, 0), gsl_Point(1, 0, 10));
    ExpectVector(line.Direction(), 0, 0, 1, "line direction");
    double t = 0;
    const gsl_Point onLine = gsl_Point(4, 4, -2).ProjectOn(line, t);
    EXPECT_NEAR(t, -2, eps);
    EXPECT_NEAR(onLine.x, 1, eps);
    EXPECT_NEAR(onLine.y, 0, eps);
    EXPECT_NEAR(onLine.z, -2, eps);

    // Defaults: the plane z = 0 and the z axis.
    const gsl_Point down = gsl_Point(2, 3, 4).ProjectOn(gsl_Plane());
    EXPECT_EQ(down.z, 0.0);
    EXPECT_EQ(down.x, 2.0);
    gsl_Point(2, 3, 4).ProjectOn(gsl_StLine(), t);
    EXPECT_EQ(t, 4.0);

    // A line from coincident points degenerates to its point.
    const gsl_StLine degenerate(gsl_Point(1, 2, 3), gsl_Point(1, 2, 3));
    EXPECT_EQ(degenerate.Direction().length, 0.0);
    const gsl_Point same = gsl_Point(7, 7, 7).ProjectOn(degenerate, t);
    EXPECT_EQ(t, 0.0);
    EXPECT_EQ(same.x, 1.0);
}

TEST(Util, OneSharedToleranceObject)
{
    const gsl_Util& util = omi_Singleton<gsl_Util>::Instance();
    EXPECT_EQ(&util, &omi_Singleton<gsl_Util>::Instance());
    EXPECT_TRUE(util.IsNegligible(-util.tolerance / 2));
    EXPECT_FALSE(util.IsNegligible(util.tolerance * 2));
}
