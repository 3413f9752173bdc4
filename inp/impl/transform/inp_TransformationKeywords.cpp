// The keywords of the transformation pass whose data hold geometry of the part.
#include <cmath>

#include "atr_String.h"
#include "inpM_BaseSet.h"
#include "inp_TransformationText.h"
#include "inp_TransformationVisitor.h"
#include "inp_Types.h"
#include "inp_Utils.h"

using namespace inp_transform;

namespace {

// The two axis points of a local system that is the part's own axes.
const char* const kIdentityFrame = "1,0,0, 0,1,0";

inp_Keyword MadeKeyword(inp_KeywordEnm value, const inp_Keyword& before, const char* parameter,
                        const cow_String& name) {
    inp_Keyword made(value);
    made.parent = before.parent;
    made.parameters.Insert(cow_String(parameter), inp_Item(name));
    made.data.Append(kIdentityFrame);
    return made;
}

}  // namespace

// Directions in one place.

void inp_TransformationVisitor::VisitGap(inp_Keyword& keyword) {
    if (Guard(keyword)) TransformVectorAt(keyword, 0, 1);
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitInterface(inp_Keyword& keyword) { VisitGap(keyword); }

void inp_TransformationVisitor::VisitGasketSection(inp_Keyword& keyword) {
    if (Guard(keyword)) TransformVectorAt(keyword, 0, 4);
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitPreTensionSection(inp_Keyword& keyword) {
    if (Guard(keyword)) TransformVectorAt(keyword, 0, 0);
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitIts(inp_Keyword& keyword) {
    if (Guard(keyword)) {
        TransformVectorAt(keyword, 0, 2);
        TransformVectorAt(keyword, 0, 5);
    }
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitSolidSection(inp_Keyword& keyword) {
    if (!Has(keyword, "composite") && Guard(keyword)) TransformPointAt(keyword, 0, 1);
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitImpedanceProperty(inp_Keyword& keyword) {
    const cow_String type = ParameterText(keyword, "type", "TABULAR");
    if ((type == "ELLIPTICAL" || type == "PROLATESPHEROID") && Guard(keyword)) {
        TransformPointAt(keyword, 0, 2);
        TransformVectorAt(keyword, 0, 5);
    }
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitWave(inp_Keyword& keyword) {
    const cow_String type = ParameterText(keyword, "type", "STOKES");
    if (Guard(keyword)) {
        if (type == "STOKES") {
            TransformVectorAt(keyword, 0, 3);
        } else if (type == "AIRY") {
            for (int line = 0; line < Lines(keyword); ++line) TransformVectorAt(keyword, line, 3);
        } else if (type == "GRIDDED") {
            TransformPointAt(keyword, 0, 0);
            TransformVectorAt(keyword, 0, 3);
        }
    }
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitAqua(inp_Keyword& keyword) {
    if (Guard(keyword)) {
        for (int line = 1; line < Lines(keyword); ++line) {
            TransformVectorAt(keyword, line, 0);
            TransformPointAt(keyword, line, 4);
        }
        warnings.Append(inp_Utils::MessageInKeyword(
            keyword,
            atr_raw("*AQUA data lines are detected in an instance with non-zero translation/rotation. Data items "
                    "pertaining to elevation have not been transformed by the Parts/Assembly Processor. Please "
                    "check their validity before submitting the job for analysis.")));
    }
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitWind(inp_Keyword& keyword) {
    if (Guard(keyword)) {
        // Item 6, the exponent of the velocity profile, would be read as the third
        // component of the direction in items 4 and 5.
        double exponent = 0.14285714285714285;
        if (keyword.data.NumberOfItems(0) > 6) {
            exponent = keyword.data.AsDouble(0, 6);
            keyword.data.Set(0, 6, cow_String("0"));
        }
        TransformVectorAt(keyword, 0, 4);
        if (keyword.data.NumberOfItems(0) > 6) keyword.data.Set(0, 6, exponent);
    }
    EmitKeyword(keyword);
}

// Sections of beams.

void inp_TransformationVisitor::VisitBeamGeneralSection(inp_Keyword& keyword) {
    if (!Guard(keyword)) {
        EmitKeyword(keyword);
        return;
    }
    inp_DataArray& data = keyword.data;
    const cow_String section = ParameterText(keyword, "section", "GENERAL");
    int line = 1;
    if (section == "ARBITRARY") {
        const int segments = data.HasValue(0, 0) && data.Type(0, 0) == inp_Types::typeInt ? data.AsInt(0, 0) : 0;
        line = segments > 2 ? segments : 2;
    } else if (section == "MESHED") {
        line = 0;
    }
    // The first beam direction; without one the section takes the default (0, 0, -1).
    gsl_Vector direction(0.0, 0.0, -1.0);
    if (HasItem(keyword, line, 0)) direction = VectorAt(data, line, 0);
    currentTransformation.Transform(direction);
    if (line < data.NumberOfLines())
        WriteTriple(data, line, 0, direction.x, direction.y, direction.z);
    else
        data.Append(ShortTriple(direction.x, direction.y, direction.z).c_str());
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitFrameSection(inp_Keyword& keyword) { VisitBeamGeneralSection(keyword); }

void inp_TransformationVisitor::VisitBeamSection(inp_Keyword& keyword) {
    if (!Has(keyword, "section")) {
        errors.Append(atr_raw("The SECTION parameter is required for *BEAM SECTION. "));
        return;
    }
    if (Text(keyword, "section") != "ELBOW") {
        VisitBeamGeneralSection(keyword);
        return;
    }
    // An elbow's line 1 is a point; a section of one line has none to move.
    if (Guard(keyword) && Lines(keyword) > 1) {
        gsl_Point p = PointAt(keyword.data, 1, 0);
        currentTransformation.Transform(p);
        WriteTriple(keyword.data, 1, 0, p.x, p.y, p.z);
    }
    EmitKeyword(keyword);
}

// Tensors and normals.

void inp_TransformationVisitor::VisitRotaryInertia(inp_Keyword& keyword) {
    if (Has(keyword, "orientation") || !Guard(keyword)) {
        EmitKeyword(keyword);
        return;
    }
    const inp_DataArray& data = keyword.data;
    const double i11 = Number(data, 0, 0), i22 = Number(data, 0, 1), i33 = Number(data, 0, 2);
    const double i12 = Number(data, 0, 3), i13 = Number(data, 0, 4), i23 = Number(data, 0, 5);
    const double tensor[3][3] = {{i11, i12, i13}, {i12, i22, i23}, {i13, i23, i33}};
    double m[4][4];
    currentTransformation.AsArray(m);
    double ri[3][3] = {}, turned[3][3] = {};
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            for (int k = 0; k < 3; ++k) ri[i][j] += m[i][k] * tensor[k][j];
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j)
            for (int k = 0; k < 3; ++k) turned[i][j] += ri[i][k] * m[j][k];
    LineText line;
    for (const double value : {turned[0][0], turned[1][1], turned[2][2], turned[0][1], turned[0][2], turned[1][2]})
        line.Add(value);
    keyword.data = NewData();
    keyword.data.Append(line.c_str());
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitNormal(inp_Keyword& keyword) {
    if (!Guard(keyword)) {
        EmitKeyword(keyword);
        return;
    }
    const inp_DataArray& data = keyword.data;
    inp_DataArray rebuilt = NewData();
    for (int i = 0; i < data.NumberOfLines(); ++i) {
        // Element and node stay where they stand, a missing one left blank.
        LineText line;
        for (int item = 0; item < 2; ++item)
            line.Add(item < data.NumberOfItems(i) ? data.AsString(i, item) : cow_String());
        gsl_Vector normal = VectorAt(data, i, 2);
        currentTransformation.Transform(normal);
        line.Add(normal);
        rebuilt.Append(line.c_str());
    }
    keyword.data = rebuilt;
    EmitKeyword(keyword);
}

// Local systems.

void inp_TransformationVisitor::VisitTransform(inp_Keyword& keyword) {
    if (Guard(keyword)) {
        EmitKeyword(TransformAxes(keyword, ParameterText(keyword, "type", "R") == "R"));
        return;
    }
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitOrientation(inp_Keyword& keyword) {
    if (!Guard(keyword)) {
        EmitKeyword(keyword);
        return;
    }
    const cow_String definition = ParameterText(keyword, "definition", "COORDINATES");
    if (definition == "COORDINATES") {
        const cow_String system = ParameterText(keyword, "system", "RECTANGULAR");
        EmitKeyword(TransformAxes(keyword, system == "RECTANGULAR" || system == "ZRECTANGULAR"));
        return;
    }
    if (definition != "NODES") {
        EmitKeyword(keyword);
        return;
    }
    const inp_DataArray& data = keyword.data;
    const cow_String a = data.AsString(0, 0, cow_String()), b = data.AsString(0, 1, cow_String());
    const inp_Item first(a), second(b);
    if (first.type != inp_Types::typeInt || second.type != inp_Types::typeInt) {
        errors.Append(atr_raw("The first data line under *ORIENTATION, DEFINITION=NODES is unrecognizable as a pair "
                              "of node numbers for points A and B. "));
        return;
    }
    gsl_Point points[2];
    if (!NodeCoordinate(first.AsInt(), points[0]) || !NodeCoordinate(second.AsInt(), points[1])) {
        errors.Append(atr_Format("Unknown local node number %1$s or %2$s is encountered during the processing of "
                                 "*ORIENTATION, DEFINITION=NODES. ",
                                 a, b));
        return;
    }
    // Back into the part's axes, where TransformAxes expects the two points.
    const gsl_Matrix back = currentTransformation.InverseRigidTransform();
    LineText line;
    for (gsl_Point& p : points) {
        back.Transform(p);
        line.Add(p);
    }
    inp_Keyword byCoordinates = keyword;
    byCoordinates.parameters.Insert(cow_String("definition"), inp_Item("COORDINATES"));
    byCoordinates.data = NewData();
    byCoordinates.data.Append(line.c_str());
    if (data.NumberOfLines() > 1) byCoordinates.data.Append(CopiedLine(data, 1, false).c_str());
    EmitKeyword(TransformAxes(byCoordinates, true));
}

void inp_TransformationVisitor::EmitWithLocalSystem(inp_Keyword& keyword, const char* parameter,
                                                     const char* prefix) {
    if (Scope().IsEmpty() || currentTransformation.IsIdentity() || Has(keyword, "orientation") ||
        !Has(keyword, parameter)) {
        EmitKeyword(keyword);
        return;
    }
    const cow_String name = cow_String(prefix) + Text(keyword, parameter);
    EmitKeyword(TransformAxes(MadeKeyword(inp_kwOrientation, keyword, "name", name), true));
    keyword.parameters.Insert(cow_String("orientation"), inp_Item(name));
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::EmitConnector(inp_Keyword& keyword, const char* first, const char* second,
                                              const char* prefix) {
    // Only the one- and two-node forms read their direction in the axes of a system.
    const cow_String set = ParameterText(keyword, "elset");
    bool connector = false;
    if (!set.IsEmpty() && elementSets.HasNestedSet(Scope(), set) && elements.IsMember(Scope())) {
        const cow_1DArrayList<int> ids = elementSets.ConstGetNestedSet(Scope(), set).ConstGetIds();
        const omi_IntTable<inp_Element>& table = elements.ConstGet(Scope());
        if (!ids.IsEmpty() && table.HasKey(ids[0])) {
            const cow_String& type = table.ConstGet(ids[0]).type;
            connector = type == first || type == second;
        }
    }
    if (connector)
        EmitWithLocalSystem(keyword, "elset", prefix);
    else
        EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitCoupling(inp_Keyword& keyword) {
    EmitWithLocalSystem(keyword, "refnode", "Coupling_");
}

void inp_TransformationVisitor::VisitKinematicCoupling(inp_Keyword& keyword) {
    EmitWithLocalSystem(keyword, "refnode", "Kinematic-Coupling_");
}

void inp_TransformationVisitor::VisitFastener(inp_Keyword& keyword) {
    EmitWithLocalSystem(keyword, "referencenodeset", "Fastener_");
}

void inp_TransformationVisitor::VisitJoint(inp_Keyword& keyword) { EmitWithLocalSystem(keyword, "elset", "jointc_"); }

void inp_TransformationVisitor::VisitSpring(inp_Keyword& keyword) {
    EmitConnector(keyword, "SPRING1", "SPRING2", "spring_");
}

void inp_TransformationVisitor::VisitDashpot(inp_Keyword& keyword) {
    EmitConnector(keyword, "DASHPOT1", "DASHPOT2", "dashpot_");
}

// Nodes whose degrees of freedom an equation names.

void inp_TransformationVisitor::VisitEquation(inp_Keyword& keyword) {
    const cow_String scope = Scope();
    if (!processedNodes.IsMember(scope)) processedNodes.Insert(scope, cow_1DArrayList<int>());
    if (scope.IsEmpty()) {
        EmitKeyword(keyword);
        return;
    }
    // Even under the identity: the equation's nodes must keep the axes of the part when
    // the flat deck gives them a *TRANSFORM of their own elsewhere.
    const cow_String name = cow_String("NONTRANSFORMED-") + cow_String(++setCounter);
    const inp_DataArray& data = keyword.data;
    const inpM_IdMap& ids = nodeIds.ConstGet(scope);
    cow_1DArrayList<int> named;
    for (int line = 0; line < Lines(keyword); ++line) {
        if (data.NumberOfItems(line) < 3) continue;
        for (int column = 0; column < 12 && column < data.NumberOfItems(line); column += 3) {
            // A trailing comma leaves a blank item, which names nothing.
            if (data.IsBlank(line, column)) continue;
            const inp_Types::typeEnm type = data.Type(line, column);
            if (type == inp_Types::typeString) {
                const cow_String set = data.AsString(line, column);
                if (nodeSets.HasNestedSet(scope, set))
                    named.Append(nodeSets.ConstGetNestedSet(scope, set).ConstGetIds());
                else
                    errors.Append(atr_Format("The node set %1$s given on *EQUATION data line does not exist in the "
                                             "current instance %2$s",
                                             set, scope));
            } else if (type == inp_Types::typeInt) {
                const int id = data.AsInt(line, column);
                if (ids.HasId(id)) named.Append(ids.ConstGet(id));
            } else {
                errors.Append(atr_raw("Equation data must consist of node numbers or node set names."));
            }
        }
    }
    cow_1DArrayList<int>& processed = processedNodes.Get(scope);
    cow_1DArrayList<int> fresh;
    for (int i = 0; i < named.Count(); ++i) {
        const int node = named[i];
        if (transformedNodes.IsMember(node) || processed.IsMember(node)) continue;
        processed.Append(node);
        fresh.Append(node);
    }
    if (!fresh.IsEmpty()) {
        nodeSets.InsertNestedSet(scope, name, CreateSet(fresh, false, false).ConstGet());
        EmitKeyword(TransformAxes(MadeKeyword(inp_kwTransform, keyword, "nset", name), true));
    }
    EmitKeyword(keyword);
}

// Perturbations of node positions.

void inp_TransformationVisitor::VisitImperfection(inp_Keyword& keyword) {
    if (Has(keyword, "file") || Has(keyword, "input") || !Guard(keyword)) {
        EmitKeyword(keyword);
        return;
    }
    // The output is rectangular whatever the deck's system was.
    const cow_String system = ParameterText(keyword, "system", "R");
    keyword.parameters.Remove(cow_String("system"));
    const inp_DataArray& data = keyword.data;
    inp_DataArray rebuilt = NewData();
    for (int i = 0; i < data.NumberOfLines(); ++i) {
        const cow_String label = data.AsString(i, 0, cow_String());
        double a = Number(data, i, 1), b = Number(data, i, 2), c = Number(data, i, 3);
        if (!data.HasValue(i, 0) || data.Type(i, 0) != inp_Types::typeInt) {
            errors.Append(atr_Format("A column one data item under *IMPERFECTION is unrecognizable as a node "
                                     "number. The item in question is: %s",
                                     label));
            return;
        }
        gsl_Point node;
        if (!NodeCoordinate(data.AsInt(i, 0), node)) {
            errors.Append(atr_Format(
                "Unknown local node number %s is encountered during the processing of *IMPERFECTION. ", label));
            return;
        }
        if (system == "C")
            Cylindrical(node, a, b);
        else if (system == "S")
            Spherical(node, a, b, c);
        gsl_Vector change(a, b, c);
        currentTransformation.Transform(change);
        LineText line;
        line.Add(label);
        line.Add(change);
        rebuilt.Append(line.c_str());
    }
    keyword.data = rebuilt;
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitParameterShapeVariation(inp_Keyword& keyword) {
    if (!Guard(keyword)) {
        EmitKeyword(keyword);
        return;
    }
    const cow_String system = ParameterText(keyword, "system", "R");
    keyword.parameters.Remove(cow_String("system"));
    const inp_DataArray& data = keyword.data;
    inp_DataArray rebuilt = NewData();
    for (int i = 0; i < data.NumberOfLines(); ++i) {
        const cow_String label = data.AsString(i, 0, cow_String());
        cow_1DArrayList<int> nodes;
        const inp_Types::typeEnm type = data.HasValue(i, 0) ? data.Type(i, 0) : inp_Types::typeNone;
        if (type == inp_Types::typeInt) {
            nodes.Append(data.AsInt(i, 0));
        } else if (type == inp_Types::typeString) {
            if (!LocalIdsOfSet(label, nodes)) {
                errors.Append(atr_Format(
                    "Unknown node set %s is detected in column one under *PARAMETER SHAPE VARIATION. ", label));
                return;
            }
        } else {
            errors.Append(atr_Format("A column one data item under *PARAMETER SHAPE VARIATION is unrecognizable as "
                                     "a node number or node set label. The item in question is: %s",
                                     label));
            return;
        }
        for (int n = 0; n < nodes.Count(); ++n) {
            gsl_Point node;
            if (!NodeCoordinate(nodes[n], node)) {
                errors.Append(atr_Format("Unknown local node number %s is encountered during the processing of "
                                         "*PARAMETER SHAPE VARIATION. Note that the node number may not be "
                                         "specified explicitly, but expanded from a node set label.",
                                         cow_String(nodes[n])));
                return;
            }
            double a[6];
            for (int k = 0; k < 6; ++k) a[k] = Number(data, i, k + 1);
            if (system == "C") {
                Cylindrical(node, a[0], a[1]);
                const double beta = a[4] * kPi / 180.0;
                const double length = a[3];
                a[3] = length * std::cos(beta);
                a[4] = length * std::sin(beta);
            } else if (system == "S") {
                Spherical(node, a[0], a[1], a[2]);
                const double beta = a[4] * kPi / 180.0, gamma = a[5] * kPi / 180.0;
                const double length = a[3];
                a[3] = length * std::cos(gamma) * std::cos(beta);
                a[4] = length * std::cos(gamma) * std::sin(beta);
                a[5] = length * std::sin(gamma);
            }
            gsl_Vector first(a[0], a[1], a[2]), second(a[3], a[4], a[5]);
            currentTransformation.Transform(first);
            currentTransformation.Transform(second);
            LineText line;
            line.Add(system == "R" ? label : cow_String(nodes[n]));
            line.Add(first);
            line.Add(second);
            rebuilt.Append(line.c_str());
            // A rectangular line holds for the whole set with one value.
            if (system == "R") break;
        }
    }
    keyword.data = rebuilt;
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitDesignShapeVariation(inp_Keyword& keyword) {
    VisitParameterShapeVariation(keyword);
}

// Analytical surfaces.

void inp_TransformationVisitor::VisitSurface(inp_Keyword& keyword) {
    if (!Has(keyword, "type")) {
        EmitKeyword(keyword);
        return;
    }
    const cow_String type = Text(keyword, "type");
    const inp_DataArray& data = keyword.data;
    const int lines = Lines(keyword);
    int count = 0;
    if (type == "SEGMENTS") {
        const int start = FindStartLine(keyword, count);
        if (count > 0)
            warnings.Append(inp_Utils::MessageInKeyword(
                keyword, atr_raw("For a *SURFACE, TYPE=SEGMENTS, non-blank lines were detected before the word "
                                 "START. These are ignored. ")));
        // A planar profile: z is dropped before the point is moved.
        auto planar = [&](int line, int column) {
            gsl_Point p = PointAt(data, line, column);
            p.z = 0.0;
            currentTransformation.Transform(p);
            return p;
        };
        inp_DataArray rebuilt = NewData();
        if (start < lines) {
            const gsl_Point p = planar(start, 1);
            LineText line;
            line.Add(cow_String("START"));
            line.Add(p.x);
            line.Add(p.y);
            rebuilt.Append(line.c_str());
        }
        for (int i = start + 1; i < lines; ++i) {
            const cow_String shape = data.AsString(i, 0, cow_String());
            LineText line;
            line.Add(shape);
            if (shape == "LINE") {
                const gsl_Point p = planar(i, 1);
                line.Add(p.x);
                line.Add(p.y);
            } else if (shape == "CIRCL" || shape == "PARAB") {
                const gsl_Point p = planar(i, 1), q = planar(i, 3);
                for (const double value : {p.x, p.y, q.x, q.y}) line.Add(value);
            } else {
                errors.Append(atr_Format("Error in the data lines of *SURFACE, TYPE=SEGMENTS.  The shape (first "
                                         "column) must be either LINE, CIRCL, or PARAB.  The unknown shape in "
                                         "question is: %s",
                                         shape));
                return;
            }
            rebuilt.Append(line.c_str());
        }
        keyword.data = rebuilt;
    } else if (type == "CYLINDER" || type == "REVOLUTION") {
        const int start = FindStartLine(keyword, count);
        const bool replace = replaceLocalSystems ? !Scope().IsEmpty() : count == 0;
        inp_DataArray rebuilt = NewData();
        int from = 0;
        if (replace) {
            if (count > 0)
                warnings.Append(inp_Utils::MessageInKeyword(
                    keyword,
                    atr_raw("For a *SURFACE, TYPE={CYLINDER,REVOLUTION} defined at part instance level, non-blank "
                            "lines were detected before the word START, implying that global coordinates of "
                            "points A, B, C defining a local system have been specified.  These 3 points are "
                            "ignored and replaced by ones computed based on the part instance's positioning "
                            "data.")));
            // The system of the surface is the part's: its origin and axes where the instance put them.
            double m[4][4];
            currentTransformation.AsArray(m);
            const double a[3] = {m[0][3], m[1][3], m[2][3]};
            const int axis = type == "CYLINDER" ? 0 : 1;
            LineText first;
            for (int k = 0; k < 3; ++k) first.Add(a[k]);
            for (int k = 0; k < 3; ++k) first.Add(a[k] + m[k][axis]);
            rebuilt.Append(first.c_str());
            if (type == "CYLINDER") {
                LineText second;
                for (int k = 0; k < 3; ++k) second.Add(a[k] - m[k][2]);
                rebuilt.Append(second.c_str());
            }
            from = start;
        }
        for (int i = from; i < lines; ++i) rebuilt.Append(CopiedLine(data, i, true).c_str());
        keyword.data = rebuilt;
    } else if (type == "CUTTINGSURFACE") {
        if (lines > 0) {
            keyword.data = inp_DataArray(data.Clone());
            TransformPointAt(keyword, 0, 0);
            TransformVectorAt(keyword, 0, 3);
        }
    }
    EmitKeyword(keyword);
}

void inp_TransformationVisitor::VisitRigidSurface(inp_Keyword& keyword) { VisitSurface(keyword); }
