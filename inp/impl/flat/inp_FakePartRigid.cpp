// Rigid surfaces and rigid bodies of the flat-deck conversion: the parts they get, the
// placement of those parts, and their reference nodes.
#include <algorithm>
#include <cmath>

#include "gsl_Point.h"
#include "gsl_Util.h"
#include "gsl_Vector.h"
#include "inpM_Utils.h"
#include "inp_FakePartVisitor.h"
#include "inp_Types.h"
#include "inp_Utils.h"

namespace {

bool Has(const inp_Keyword& keyword, const char* name) { return keyword.HasParameter(cow_String(name)); }

cow_String Text(const inp_Keyword& keyword, const char* name) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(name));
    return item ? item->AsString() : cow_String();
}

// An item of a header line as a number; what is missing or no number reads as 0.
double Number(const inp_DataArray& data, int line, int item) {
    if (item >= data.NumberOfItems(line)) return 0.0;
    const inp_Types::typeEnm type = data.Type(line, item);
    return type == inp_Types::typeInt || type == inp_Types::typeDouble ? data.AsDouble(line, item) : 0.0;
}

gsl_Point PointAt(const inp_DataArray& data, int line, int first) {
    return gsl_Point(Number(data, line, first), Number(data, line, first + 1), Number(data, line, first + 2));
}

double Tolerance() { return omi_Singleton<gsl_Util>::Instance().tolerance; }

// x along B-A, z along C-A; false when they are no pair of perpendicular axes.
bool CylinderFrame(const gsl_Point& a, const gsl_Point& b, const gsl_Point& c, gsl_Matrix& matrix) {
    gsl_Vector x(a, b), z(a, c);
    if (!x.Normalize() || !z.Normalize() || std::fabs(x.DotProduct(z)) > Tolerance()) return false;
    gsl_Vector y = z.CrossProduct(x);
    if (!y.Normalize()) return false;
    matrix.SetRotationVectors(x, y, z);
    matrix.SetTranslation(gsl_Vector(a.x, a.y, a.z));
    return true;
}

// z along the axis of revolution B-A; x from the coordinate axis most nearly
// perpendicular to it, so that the frame is well conditioned.
bool RevolutionFrame(const gsl_Point& a, const gsl_Point& b, gsl_Matrix& matrix) {
    gsl_Vector z(a, b);
    if (!z.Normalize()) return false;
    const gsl_Vector axes[] = {gsl_Vector(1.0, 0.0, 0.0), gsl_Vector(0.0, 1.0, 0.0), gsl_Vector(0.0, 0.0, 1.0)};
    const gsl_Vector* best = &axes[0];
    for (const gsl_Vector& axis : axes)
        if (std::fabs(axis.DotProduct(z)) < std::fabs(best->DotProduct(z))) best = &axis;
    gsl_Vector x = *best - z * best->DotProduct(z);
    x.Normalize();
    const gsl_Vector y = z.CrossProduct(x);
    matrix.SetRotationVectors(x, y, z);
    matrix.SetTranslation(gsl_Vector(a.x, a.y, a.z));
    return true;
}

}  // namespace

bool inp_FakePartVisitor::ResolveRigidName(const inp_Keyword& keyword, cow_String& name, bool& unnamed) {
    name = Text(keyword, "name");
    unnamed = !Has(keyword, "name") && Has(keyword, "elset");
    // Without a name there is nothing to call its part and instance by.
    if (!name.IsEmpty() || unnamed) return true;
    errors.Append(inp_Utils::MessageInKeyword(
        keyword, atr_raw("A rigid surface needs the NAME or the ELSET parameter; the keyword is ignored.")));
    return false;
}

void inp_FakePartVisitor::EnsureRigidPart(const cow_String& part) {
    PartList(part);
    PartNodes(part);
    PartElementTable(part);
}

void inp_FakePartVisitor::EnsurePart(const cow_String& part) {
    if (partLists.IsMember(part)) return;
    PartNodes(part);
    if (part != kPart1) return;
    PartList(part);
    PartElementTable(part);
}

void inp_FakePartVisitor::AddSurface(const cow_String& part, const cow_String& name, bool unnamed) {
    surfaces.InsertPartInstanceSurface(part, unnamed ? cow_String(" <not named>") : name,
                                       *CreateSurface(inpM_AnalyticalSurface));
}

void inp_FakePartVisitor::VisitRigidSurface(inp_Keyword& keyword) {
    cow_String name;
    bool unnamed = false;
    if (!ResolveRigidName(keyword, name, unnamed)) return;
    const cow_String part = unnamed ? cow_String(kPart1) : name;
    EnsureRigidPart(part);
    const gsl_Matrix matrix = SurfaceTransform(keyword);
    if (Has(keyword, "refnode"))
        AssignRefNodeParameter(keyword, matrix.InverseRigidTransform(), part, false, false);
    PartList(part).Append(keyword);
    if (!matrix.IsIdentity()) partTransforms.Insert(part, matrix);
    AddSurface(part, name, unnamed);
}

gsl_Matrix inp_FakePartVisitor::SurfaceTransform(inp_Keyword& keyword) {
    gsl_Matrix matrix;
    const cow_String type = Text(keyword, "type");
    const int lines = keyword.data.HasValue() ? keyword.data.NumberOfLines() : 0;
    if ((type != "CYLINDER" && type != "REVOLUTION") || lines == 0) return matrix;
    const inp_DataArray& data = keyword.data;
    int start = -1;
    int header[2] = {-1, -1};
    int headerLines = 0;
    for (int line = 0; line < lines && start < 0; ++line) {
        if (data.NumberOfItems(line) == 0 || data.IsBlank(line, 0)) continue;
        if (data.AsString(line, 0) == "START") {
            start = line;
        } else {
            if (headerLines < 2) header[headerLines] = line;
            ++headerLines;
        }
    }
    // Without a START line the profile cannot be told from the header: the data stay
    // as they are, and the surface stays where the deck put it.
    if (start < 0 || headerLines == 0) return matrix;

    const gsl_Point a = PointAt(data, header[0], 0), b = PointAt(data, header[0], 3);
    const gsl_Point c = headerLines >= 2 ? PointAt(data, header[1], 0) : gsl_Point();
    if (type == "CYLINDER") {
        if (!CylinderFrame(a, b, c, matrix)) {
            matrix.FillIdentity();
            errors.Append(atr_raw(
                "Points A, B, and C listed under a *RIGID SURFACE, TYPE=CYLINDER do not properly define a local "
                "coordinate system.  Either some points are coincident or two axes are not perpendicular.  Please "
                "check input data."));
        }
    } else if (!RevolutionFrame(a, b, matrix)) {
        matrix.FillIdentity();
        errors.Append(atr_raw(
            "Points A, B listed under a *RIGID SURFACE, TYPE=REVOLUTION are coincident.  Please check input data. "));
    }

    // The header lines live on in the instance's placement; the profile is given in
    // the surface's own frame.
    inp_DataArray profile(new inp_RawDataArrayImpl());
    for (int line = start; line < lines; ++line) {
        cow_String text;
        for (int item = 0; item < data.NumberOfItems(line); ++item) {
            if (item > 0) text.append(',');
            text.append(data.AsStringVerbatim(line, item));
        }
        profile.Append(text.c_str());
    }
    keyword.data = profile;
    return matrix;
}

void inp_FakePartVisitor::VisitRigidBody(inp_Keyword& keyword) {
    cow_String part = Has(keyword, "analyticalsurface") ? Text(keyword, "analyticalsurface") : cow_String(kPart1);
    bool rigidElset = false;
    if (Has(keyword, "elset")) {
        const cow_String name = Text(keyword, "elset");
        const inpM_SetHandle* set = FlatElementSets().Lookup(name);
        const omi_IntTable<inp_Element>& table = FlatElementTable();
        if (set) {
            const cow_1DArrayList<int> ids = (*set)->ConstGetIds();
            for (int i = 0; i < ids.Count() && !rigidElset; ++i)
                rigidElset = table.HasKey(ids[i]) && IsRigidType(table.ConstGet(ids[i]).type);
        }
        if (rigidElset) {
            part = name;
            EnsureRigidPart(part);
            rigidElsetParts.AppendUnlessMember(name);
        }
    }
    if (!rigidElset) EnsurePart(part);
    if (Has(keyword, "refnode")) {
        const bool standalone = !Has(keyword, "analyticalsurface") && !Has(keyword, "elset") &&
                                !Has(keyword, "pinnset") && !Has(keyword, "tienset");
        const gsl_Matrix matrix =
            partTransforms.IsMember(part) ? partTransforms.ConstGet(part).InverseRigidTransform() : gsl_Matrix();
        AssignRefNodeParameter(keyword, matrix, part, standalone, true);
    }
    assemblyKeywords.Append(keyword);
}

void inp_FakePartVisitor::AssignRefNodeParameter(const inp_Keyword& keyword, const gsl_Matrix& matrix,
                                                 const cow_String& part, bool standalone, bool body) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String("refnode"));
    if (!item) return;
    if (item->type == inp_Types::typeString) {
        const cow_String name = item->AsString();
        const inpM_SetHandle* set = FlatNodeSets().Lookup(name);
        const cow_1DArrayList<int> ids = set ? (*set)->ConstGetIds() : cow_1DArrayList<int>();
        if (ids.IsEmpty()) {
            errors.Append(atr_Format(
                body ? "Reference node set \"%1$s\" given for rigid body \"%2$s\" does not exist or is invalid"
                     : "Reference node set \"%1$s\" given for rigid surface \"%2$s\" does not exist or is invalid",
                name, part));
            return;
        }
        // The one text serves rigid bodies as well.
        if (ids.Count() > 1)
            errors.Append(atr_Format("Reference node set \"%1$s\" given for rigid surface \"%2$s\" contains more "
                                     "than one node. The reference node set must contain exactly one node",
                                     name, part));
        AssignRefNode(matrix, part, ids[0], standalone);
    } else if (item->type == inp_Types::typeInt) {
        // Ids are positive; any other number names no node.
        if (item->intValue < 1) {
            errors.Append(atr_Format(body ? "Reference node \"%1$s\" given for rigid body \"%2$s\" does not exist"
                                          : "Reference node \"%1$s\" given for rigid surface \"%2$s\" does not exist",
                                     cow_String(item->intValue), part));
            return;
        }
        AssignRefNode(matrix, part, item->intValue, standalone);
    } else {
        errors.Append(atr_Format(body ? "Reference node given for rigid body \"%s\" has an invalid format"
                                      : "Reference node given for rigid surface \"%s\" has an invalid format",
                                 part));
    }
}

void inp_FakePartVisitor::AssignRefNode(const gsl_Matrix& matrix, const cow_String& part, int id, bool standalone) {
    inp_Coord position;
    const inp_CoordMap* flat = FlatNodes();
    if (flat && flat->HasId(id)) {
        position = inp_CoordMap::Transformed(flat->ConstGet(id), matrix);
    } else {
        cow_1DArrayList<int> ids;
        ids.Append(id);
        warnings.Append(inpM_Utils::FormatCollectedErrors(
            atr_raw("The following undefined reference node is placed at the origin:"), ids));
    }
    PartNodes(part).Insert(id, position);
    if (!partRefNodes.IsMember(part)) partRefNodes.Insert(part, cow_1DArrayList<int>());
    partRefNodes.Get(part).AppendUnlessMember(id);
    if (standalone) standaloneRefNodes.AppendUnlessMember(id);
    const auto at = std::lower_bound(m_refNodes.begin(), m_refNodes.end(), id);
    if (at == m_refNodes.end() || *at != id) m_refNodes.insert(at, id);
}
