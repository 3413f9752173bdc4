#include "shp_ShapeDictionary.h"

#include <cstring>

namespace {

// Corner nodes of each face, 0-based, in the usual numbering of each family.
const shp_Shape kTetrahedron = {4, {3, 3, 3, 3}, {{0, 1, 2}, {0, 3, 1}, {1, 3, 2}, {2, 3, 0}}};
const shp_Shape kWedge = {5, {3, 3, 4, 4, 4}, {{0, 1, 2}, {3, 5, 4}, {0, 3, 4, 1}, {1, 4, 5, 2}, {2, 5, 3, 0}}};
const shp_Shape kHexahedron = {
    6, {4, 4, 4, 4, 4, 4}, {{0, 1, 2, 3}, {4, 7, 6, 5}, {0, 4, 5, 1}, {1, 5, 6, 2}, {2, 6, 7, 3}, {3, 7, 4, 0}}};
const shp_Shape kTriangleEdges = {3, {2, 2, 2}, {{0, 1}, {1, 2}, {2, 0}}};
const shp_Shape kQuadEdges = {4, {2, 2, 2, 2}, {{0, 1}, {1, 2}, {2, 3}, {3, 0}}};
const shp_Shape kTriangleSides = {2, {3, 3}, {{0, 1, 2}, {0, 1, 2}}};
const shp_Shape kQuadSides = {2, {4, 4}, {{0, 1, 2, 3}, {0, 1, 2, 3}}};

bool StartsWith(const char* text, const char* prefix) { return std::strncmp(text, prefix, std::strlen(prefix)) == 0; }

// The number written behind the family letters: C3D8R gives 8, CPE4 gives 4.
int NodesInName(const char* rest) {
    int n = 0;
    while (*rest >= '0' && *rest <= '9') n = n * 10 + (*rest++ - '0');
    return n;
}

}  // namespace

const shp_Shape* shp_ShapeDictionary::GetShape(const cow_String& type) const {
    const char* t = type.c_str();
    static const char* const kSolid[] = {"C3D", "DC3D", "AC3D", "DCC3D"};
    for (const char* prefix : kSolid)
        if (StartsWith(t, prefix)) {
            switch (NodesInName(t + std::strlen(prefix))) {
                case 4: case 10: return &kTetrahedron;
                case 6: case 15: return &kWedge;
                case 8: case 20: case 27: return &kHexahedron;
                default: return nullptr;
            }
        }
    static const char* const kPlanar[] = {"CPE", "CPS", "CAX", "CGAX", "CPEG", "DC2D", "DCAX", "AC2D", "ACAX", "DCC2D",
                                          "DCCAX"};
    for (const char* prefix : kPlanar)
        if (StartsWith(t, prefix)) {
            switch (NodesInName(t + std::strlen(prefix))) {
                case 3: case 6: return &kTriangleEdges;
                case 4: case 8: return &kQuadEdges;
                default: return nullptr;
            }
        }
    static const char* const kSheet[] = {"STRI", "SFM3D", "M3D", "R3D", "DS", "S"};
    for (const char* prefix : kSheet)
        if (StartsWith(t, prefix)) {
            switch (NodesInName(t + std::strlen(prefix))) {
                case 3: case 6: case 65: return &kTriangleSides;
                case 4: case 8: case 9: return &kQuadSides;
                default: return nullptr;
            }
        }
    return nullptr;
}
