// Small pieces the node passes share: reading points from data lines, the coordinate
// systems of the deck language, and node records as points and vectors.
#ifndef INP_NODEGEOMETRY_H
#define INP_NODEGEOMETRY_H

#include <cmath>

#include "gsl_Point.h"
#include "gsl_Vector.h"
#include "inp_Coord.h"
#include "inp_Keyword.h"

namespace inp_node {

constexpr double kPi = 3.141592653589793;
constexpr double kDegree = 3.141592653589793 / 180.0;

inline bool Has(const inp_Keyword& keyword, const char* parameter) {
    return keyword.HasParameter(cow_String(parameter));
}

inline cow_String Text(const inp_Keyword& keyword, const char* parameter) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(parameter));
    return item ? item->AsString() : cow_String();
}

// Item k of a line, `fallback` where the line ends early.
inline double Number(const inp_DataArray& data, int line, int k, double fallback = 0.0) {
    return line < data.NumberOfLines() && data.HasValue(line, k) ? data.AsDouble(line, k) : fallback;
}

inline int Integer(const inp_DataArray& data, int line, int k, int fallback = 0) {
    return line < data.NumberOfLines() && data.HasValue(line, k) ? data.AsInt(line, k) : fallback;
}

// The lowest and highest of base + i step + j rowStep + k layerStep over a grid of
// number by rows by layers, in 64 bits: what an *ELGEN line makes of an id or a node.
struct Span {
    long long lowest, highest;
};
inline Span GeneratedSpan(long long base, int number, int step, int rows, int rowStep, int layers, int layerStep) {
    Span span{base, base};
    const long long ends[] = {static_cast<long long>(number - 1) * step, static_cast<long long>(rows - 1) * rowStep,
                              static_cast<long long>(layers - 1) * layerStep};
    for (const long long end : ends) {
        if (end < 0) span.lowest += end;
        else span.highest += end;
    }
    return span;
}

// Items k, k+1 and k+2 of a line, 0.0 where the line ends early.
inline gsl_Point Triple(const inp_DataArray& data, int line, int k) {
    return gsl_Point(Number(data, line, k), Number(data, line, k + 1), Number(data, line, k + 2));
}

// (r, t) with t in degrees.
inline void FromCylindrical(double& x, double& y) {
    const double r = x, t = y * kDegree;
    x = r * std::cos(t);
    y = r * std::sin(t);
}

// (r, a, b) with both angles in degrees.
inline void FromSpherical(double& x, double& y, double& z) {
    const double r = x, a = y * kDegree, b = z * kDegree;
    x = r * std::cos(b) * std::cos(a);
    y = r * std::cos(b) * std::sin(a);
    z = r * std::sin(b);
}

// "C" cylindrical, "S" spherical, anything else rectangular.
inline void FromSystem(const cow_String& system, double& x, double& y, double& z) {
    if (system == "C")
        FromCylindrical(x, y);
    else if (system == "S")
        FromSpherical(x, y, z);
}

inline gsl_Point PointOf(const inp_Coord& c) { return gsl_Point(c.x, c.y, c.z); }
inline gsl_Vector NormalOf(const inp_Coord& c) { return gsl_Vector(c.nx, c.ny, c.nz); }
inline gsl_Vector AsVector(const gsl_Point& p) { return gsl_Vector(p.x, p.y, p.z); }
inline gsl_Point AsPoint(const gsl_Vector& v) { return gsl_Point(v.x, v.y, v.z); }

inline void SetPoint(inp_Coord& c, const gsl_Point& p) {
    c.x = p.x;
    c.y = p.y;
    c.z = p.z;
}

inline void SetNormal(inp_Coord& c, const gsl_Vector& n) {
    c.nx = n.x;
    c.ny = n.y;
    c.nz = n.z;
}

// A computed normal is stored of unit length; one too short for that leaves the
// record's normal as it was.
inline void SetComputedNormal(inp_Coord& c, gsl_Vector n) {
    if (n.Normalize()) SetNormal(c, n);
}

// Round-off of a transformation leaves coordinates like 1e-17 where the user meant
// 0: anything below the precision of the largest coordinate becomes 0.
inline void Snap(inp_Coord& c) {
    const double eps = 2.220446049250313e-16 * std::fmax(std::fabs(c.x), std::fmax(std::fabs(c.y), std::fabs(c.z)));
    if (std::fabs(c.x) < eps) c.x = 0.0;
    if (std::fabs(c.y) < eps) c.y = 0.0;
    if (std::fabs(c.z) < eps) c.z = 0.0;
}

}  // namespace inp_node

#endif
