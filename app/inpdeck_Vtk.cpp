#include "inpdeck_Vtk.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <vector>

#include "inpdeck_Model.h"
#include "inpdeck_OutBuffer.h"

namespace inpdeck {

namespace {

enum Shape { kNoShape, kSolid, kSurface, kLine };

// Element families by the start of the type name, which a digit must follow: the digit
// keeps "S" (shells: S4R) apart from SPRING1, and "SC" (SC8R) apart from S8R.
struct Family {
    const char* prefix;
    Shape shape;
};
const Family kFamilies[] = {
    {"C3D", kSolid},    {"DC3D", kSolid},   {"AC3D", kSolid},   {"COH3D", kSolid},  {"SC", kSolid},
    {"S", kSurface},    {"STRI", kSurface}, {"DS", kSurface},   {"M3D", kSurface},  {"SFM3D", kSurface},
    {"R3D", kSurface},  {"CPS", kSurface},  {"CPE", kSurface},  {"CPEG", kSurface}, {"CAX", kSurface},
    {"CGAX", kSurface}, {"DC2D", kSurface}, {"DCAX", kSurface}, {"AC2D", kSurface}, {"ACAX", kSurface},
    {"COH2D", kSurface}, {"COHAX", kSurface}, {"B", kLine},     {"T2D", kLine},     {"T3D", kLine},
    {"PIPE", kLine},    {"FRAME", kLine},   {"R2D", kLine},     {"RAX", kLine},     {"SAX", kLine},
    {"MAX", kLine},     {"DC1D", kLine},    {"DCC1D", kLine},   {"RB2D", kLine},    {"RB3D", kLine},
};

Shape ShapeOf(const char* type) {
    for (const Family& f : kFamilies) {
        const size_t n = std::strlen(f.prefix);
        if (!std::strncmp(type, f.prefix, n) && std::isdigit(static_cast<unsigned char>(type[n]))) return f.shape;
    }
    return kNoShape;
}

// VTK's cell type numbers.
enum : int {
    kVtkLine = 3, kVtkTriangle = 5, kVtkQuad = 9, kVtkTetra = 10, kVtkHexahedron = 12, kVtkWedge = 13,
    kVtkPyramid = 14, kVtkQuadraticEdge = 21, kVtkQuadraticTriangle = 22, kVtkQuadraticQuad = 23,
    kVtkQuadraticTetra = 24, kVtkQuadraticHexahedron = 25, kVtkQuadraticWedge = 26, kVtkBiquadraticQuad = 28,
    kVtkTriquadraticHexahedron = 29,
};

// Positions in an element's node list of VTK's points in order, where they differ: a
// three-node beam or truss lists its middle node second, VTK last.
void AppendConnectivity(int vtkType, const int* nodes, int count, std::vector<int>& out) {
    if (vtkType == kVtkQuadraticEdge) {
        out.insert(out.end(), {nodes[0], nodes[2], nodes[1]});
        return;
    }
    out.insert(out.end(), nodes, nodes + count);
}

// Index of an id among the sorted ids of one scope: a direct table where the ids are
// dense, as the ids of a mesh are, else a binary search.
class IdIndex {
public:
    void Build(std::vector<int> sorted) {
        ids_ = std::move(sorted);
        direct_.clear();
        if (ids_.empty()) return;
        const long long span = static_cast<long long>(ids_.back()) - ids_.front() + 1;
        if (span <= 4 * static_cast<long long>(ids_.size()) + 1024) {
            direct_.assign(static_cast<size_t>(span), -1);
            for (size_t i = 0; i < ids_.size(); ++i) direct_[static_cast<size_t>(ids_[i] - ids_.front())] = static_cast<int>(i);
        }
    }
    // -1 when the id is not there.
    int Find(int id) const {
        if (ids_.empty() || id < ids_.front() || id > ids_.back()) return -1;
        if (!direct_.empty()) return direct_[static_cast<size_t>(static_cast<long long>(id) - ids_.front())];
        const auto it = std::lower_bound(ids_.begin(), ids_.end(), id);
        return it != ids_.end() && *it == id ? static_cast<int>(it - ids_.begin()) : -1;
    }
    size_t Size() const { return ids_.size(); }
    const std::vector<int>& Ids() const { return ids_; }

private:
    std::vector<int> ids_;
    std::vector<int> direct_;
};

// The scopes laid out as one grid: each scope's points and cells form one block.
struct Layout {
    std::vector<Scope> scopes;
    std::vector<IdIndex> points, cells;
    std::vector<size_t> firstPoint, firstCell;
    size_t pointCount = 0, cellCount = 0;
    std::vector<std::string> typeNames;  // ascending
    // Per cell in grid order.
    std::vector<unsigned char> cellTypes;
    std::vector<int> typeIndex;
    std::vector<int> connectivity;
    std::vector<long long> offsets;
};

void Escaped(OutBuffer& out, const char* text) {
    for (const char* p = text; *p; ++p) {
        switch (*p) {
        case '&': out.Put("&amp;"); break;
        case '<': out.Put("&lt;"); break;
        case '>': out.Put("&gt;"); break;
        case '"': out.Put("&quot;"); break;
        default:
            if (static_cast<unsigned char>(*p) >= 0x20) out.Put(*p);
        }
    }
}

void OpenArray(OutBuffer& out, const char* type, const std::string& name, int components = 1) {
    out.Put("<DataArray type=\"");
    out.Put(type);
    out.Put("\" Name=\"");
    Escaped(out, name.c_str());
    if (components > 1) {
        out.Put("\" NumberOfComponents=\"");
        out.Int(components);
    }
    out.Put("\" format=\"ascii\">\n");
}

template <class T>
void IntArray(OutBuffer& out, const char* type, const std::string& name, const std::vector<T>& values) {
    OpenArray(out, type, name);
    for (size_t i = 0; i < values.size(); ++i) {
        out.Int(static_cast<long long>(values[i]));
        out.Put((i + 1) % 16 == 0 ? '\n' : ' ');
    }
    out.Put("\n</DataArray>\n");
}

// Strings as VTK writes them: the bytes as numbers, each string ended by a 0.
void StringArray(OutBuffer& out, const char* name, const std::vector<std::string>& values) {
    out.Put("<Array type=\"String\" Name=\"");
    out.Put(name);
    out.Put("\" NumberOfTuples=\"");
    out.Int(static_cast<long long>(values.size()));
    out.Put("\" format=\"ascii\">\n");
    for (const std::string& v : values) {
        for (unsigned char c : v) {
            out.Int(c);
            out.Put(' ');
        }
        out.Put("0\n");
    }
    out.Put("</Array>\n");
}

Layout Lay(const inp_Deck& deck, VtkLeftOut& leftOut) {
    Layout g;
    g.scopes = ModelScopes(deck);
    const size_t n = g.scopes.size();
    g.points.resize(n);
    g.cells.resize(n);
    std::map<std::string, int> typeNumbers;
    for (const Scope& s : g.scopes)
        for (const auto& type : ElementsByType(s.elements)) typeNumbers[type.first] = 0;
    for (auto& type : typeNumbers) {
        type.second = static_cast<int>(g.typeNames.size());
        g.typeNames.push_back(type.first);
    }
    g.offsets.push_back(0);
    for (size_t k = 0; k < n; ++k) {
        const Scope& s = g.scopes[k];
        std::vector<int> ids;
        if (s.nodes) ForEachNode(*s.nodes, [&ids](int id, double, double, double) { ids.push_back(id); });
        g.points[k].Build(std::move(ids));
        g.firstPoint.push_back(g.pointCount);
        g.pointCount += g.points[k].Size();

        std::vector<int> cells;
        if (s.elements) {
            cow_String lastType;
            int typeNumber = 0;
            ForEachElement(*s.elements, [&](int id, const inp_Element& e) {
                const int vtkType = VtkCellType(e.type.c_str(), e.numNodes);
                if (!vtkType) {
                    ++leftOut.noShape[e.type.c_str()];
                    return;
                }
                for (int i = 0; i < e.numNodes; ++i)
                    if (g.points[k].Find(e.nodes[i]) < 0) {
                        ++leftOut.undefinedNodes;
                        return;
                    }
                if (!(e.type == lastType)) {
                    lastType = e.type;
                    typeNumber = typeNumbers[e.type.c_str()];
                }
                const size_t start = g.connectivity.size();
                AppendConnectivity(vtkType, e.nodes, e.numNodes, g.connectivity);
                for (size_t i = start; i < g.connectivity.size(); ++i)
                    g.connectivity[i] = static_cast<int>(g.firstPoint[k]) + g.points[k].Find(g.connectivity[i]);
                g.offsets.push_back(static_cast<long long>(g.connectivity.size()));
                g.cellTypes.push_back(static_cast<unsigned char>(vtkType));
                g.typeIndex.push_back(typeNumber);
                cells.push_back(id);
            });
        }
        g.cells[k].Build(std::move(cells));
        g.firstCell.push_back(g.cellCount);
        g.cellCount += g.cells[k].Size();
    }
    g.offsets.erase(g.offsets.begin());
    return g;
}

// One 0/1 array per set: the sets of each scope under "instance.name", those of the
// assembly level under their own name, with the members they take from instances.
template <class Select>
void SetArrays(OutBuffer& out, const Layout& g, const std::vector<IdIndex>& index, const std::vector<size_t>& first,
               size_t count, Select sets) {
    std::map<cow_String, size_t> scopeOf;
    for (size_t k = 0; k < g.scopes.size(); ++k) scopeOf[g.scopes[k].name] = k;
    std::vector<unsigned char> flags;
    for (size_t k = 0; k < g.scopes.size(); ++k) {
        const inpM_BaseSetMap* map = sets(g.scopes[k]);
        if (!map) continue;
        ForEachSet(*map, [&](const cow_String& name, const inpM_BaseSet& set) {
            flags.assign(count, 0);
            ForEachSetScope(set, [&](const cow_String& instance, const cow_1DArrayList<int>& ids) {
                const auto scope = instance.IsEmpty() ? scopeOf.find(g.scopes[k].name) : scopeOf.find(instance);
                if (scope == scopeOf.end()) return;
                for (int i = 0; i < ids.Count(); ++i) {
                    const int at = index[scope->second].Find(ids.ConstGet(i));
                    if (at >= 0) flags[first[scope->second] + static_cast<size_t>(at)] = 1;
                }
            });
            const std::string scoped = g.scopes[k].name.IsEmpty() ? std::string(name.c_str())
                                                                  : std::string(g.scopes[k].name.c_str()) + "." + name.c_str();
            IntArray(out, "UInt8", scoped, flags);
        });
    }
}

}  // namespace

int VtkCellType(const char* elementType, int nodes) {
    switch (ShapeOf(elementType)) {
    case kSolid:
        switch (nodes) {
        case 4: return kVtkTetra;
        case 5: return kVtkPyramid;
        case 6: return kVtkWedge;
        case 8: return kVtkHexahedron;
        case 10: return kVtkQuadraticTetra;
        case 15: return kVtkQuadraticWedge;
        case 20: return kVtkQuadraticHexahedron;
        case 27: return kVtkTriquadraticHexahedron;
        }
        return 0;
    case kSurface:
        switch (nodes) {
        case 3: return kVtkTriangle;
        case 4: return kVtkQuad;
        case 6: return kVtkQuadraticTriangle;
        case 8: return kVtkQuadraticQuad;
        case 9: return kVtkBiquadraticQuad;
        }
        return 0;
    case kLine:
        return nodes == 2 ? kVtkLine : nodes == 3 ? kVtkQuadraticEdge : 0;
    case kNoShape:
        break;
    }
    return 0;
}

bool WriteModelVtu(std::FILE* file, const inp_Deck& deck, VtkLeftOut& leftOut) {
    const Layout g = Lay(deck, leftOut);
    OutBuffer out(file);
    out.Put("<?xml version=\"1.0\"?>\n"
            "<VTKFile type=\"UnstructuredGrid\" version=\"1.0\" byte_order=\"LittleEndian\" header_type=\"UInt64\">\n"
            "<UnstructuredGrid>\n<FieldData>\n");
    std::vector<std::string> scopeNames;
    for (const Scope& s : g.scopes) scopeNames.push_back(s.name.IsEmpty() ? AssemblyName(deck).c_str() : s.name.c_str());
    StringArray(out, "instance names", scopeNames);
    StringArray(out, "element types", g.typeNames);
    out.Put("</FieldData>\n<Piece NumberOfPoints=\"");
    out.Int(static_cast<long long>(g.pointCount));
    out.Put("\" NumberOfCells=\"");
    out.Int(static_cast<long long>(g.cellCount));
    out.Put("\">\n<PointData Scalars=\"node id\">\n");

    std::vector<int> values;
    for (const IdIndex& p : g.points) values.insert(values.end(), p.Ids().begin(), p.Ids().end());
    IntArray(out, "Int32", "node id", values);
    SetArrays(out, g, g.points, g.firstPoint, g.pointCount, [](const Scope& s) { return s.nodeSets; });
    out.Put("</PointData>\n<CellData Scalars=\"element id\">\n");
    values.clear();
    for (const IdIndex& c : g.cells) values.insert(values.end(), c.Ids().begin(), c.Ids().end());
    IntArray(out, "Int32", "element id", values);
    values.clear();
    for (size_t k = 0; k < g.cells.size(); ++k) values.insert(values.end(), g.cells[k].Size(), static_cast<int>(k));
    IntArray(out, "Int32", "instance", values);
    IntArray(out, "Int32", "element type", g.typeIndex);
    SetArrays(out, g, g.cells, g.firstCell, g.cellCount, [](const Scope& s) { return s.elementSets; });
    out.Put("</CellData>\n<Points>\n");

    OpenArray(out, "Float64", "Points", 3);
    for (const Scope& s : g.scopes)
        if (s.nodes)
            ForEachNode(*s.nodes, [&out](int, double x, double y, double z) {
                out.Double(x);
                out.Put(' ');
                out.Double(y);
                out.Put(' ');
                out.Double(z);
                out.Put('\n');
            });
    out.Put("</DataArray>\n</Points>\n<Cells>\n");
    IntArray(out, "Int64", "connectivity", g.connectivity);
    IntArray(out, "Int64", "offsets", g.offsets);
    IntArray(out, "UInt8", "types", g.cellTypes);
    out.Put("</Cells>\n</Piece>\n</UnstructuredGrid>\n</VTKFile>\n");
    return out.Flush();
}

}  // namespace inpdeck
