// The node keywords of inp_NodeVisitor: *NODE, *SYSTEM and the generators *NCOPY,
// *NFILL, *NGEN and *NMAP. Every generator works on the nodes defined before it, in
// deck order.
//
// A scope's table holds coordinates in the frame of its part while reads of an
// instance's node give assembly coordinates, so generated points are carried back
// through the inverse of the instance's placement before they are stored.
#include <algorithm>
#include <cmath>
#include <functional>
#include <initializer_list>

#include "atr_String.h"
#include "gsl_Matrix.h"
#include "gsl_Plane.h"
#include "gsl_StLine.h"
#include "inp_NodeGeometry.h"
#include "inp_NodeVisitor.h"
#include "inp_Utils.h"

using namespace inp_node;

namespace {

// A message with values of any kind, filled in order.
atr_String Message(const char* format, std::initializer_list<cow_String> values) {
    atr_translate t(format);
    int index = 0;
    for (const cow_String& value : values) atr_SubstituteFormat(t, ++index, value);
    return t.Result();
}

// The items of a line one after the other, as the data line messages show them.
cow_String Joined(const inp_DataArray& data, int line) {
    cow_String text;
    for (int i = 0; i < data.NumberOfItems(line); ++i) text.append(data.AsString(line, i));
    return text;
}

const char kXAxis[] = "The x-axis of the local coordinate system is not defined.";
const char kYAxis[] = "The y-axis of the local coordinate system is not defined.";
const char kXZParallel[] = "The x-axis and the z-axis of the local coordinate system are parallel or almost parallel.";
const char kXYParallel[] = "The x-axis and the y-axis of the local coordinate system are parallel or almost parallel.";

// The three axes through e1 and, when given, e2 (else the global z axis), as *SYSTEM
// and *NMAP build them; each failure is reported and the build goes on.
void Axes(gsl_Vector e1, const gsl_Vector* e2given, gsl_Vector& e1out, gsl_Vector& e2, gsl_Vector& e3,
          const std::function<void(const char*)>& report) {
    if (!e1.Normalize()) report(kXAxis);
    if (e2given) {
        e2 = *e2given;
        if (!e2.Normalize()) report(kYAxis);
        e3 = e1.CrossProduct(e2);
        if (!e3.Normalize()) report(kXYParallel);
        e2 = e3.CrossProduct(e1);
    } else {
        e3 = gsl_Vector(0.0, 0.0, 1.0);
        e2 = e3.CrossProduct(e1);
        if (!e2.Normalize()) report(kXZParallel);
        e1 = e2.CrossProduct(e3);
    }
    e1out = e1;
}

}  // namespace

inp_CoordMap* inp_NodeVisitor::ScopeMap() {
    const cow_String& scope = KeywordScope();
    if (scope.IsEmpty()) return &coordMap;
    if (!coordMap.instances.IsMember(scope)) return nullptr;
    return &coordMap.instances.Get(scope).Get();
}

const inpM_BaseSet* inp_NodeVisitor::FindNodeSet(const inp_Keyword& keyword, const cow_String& name) {
    if (const inpM_BaseSet* set = setMap.FindSet(KeywordScope(), name, searchAllInstances)) return set;
    errors.Append(inp_Utils::MessageInKeyword(keyword, atr_Format("Node set %s does not exist.", name)));
    return nullptr;
}

void inp_NodeVisitor::StoreGenerated(inp_CoordMap& map, int id, inp_Coord record) const {
    if (!instanceTransform.IsIdentity()) {
        gsl_Point p = PointOf(record);
        instanceTransform.InverseRigidTransform().Transform(p);
        SetPoint(record, p);
    }
    map.Insert(id, record);
}

void inp_NodeVisitor::VisitNode(inp_Keyword& keyword) {
    const cow_String system = Has(keyword, "system") ? Text(keyword, "system") : cow_String("R");
    const inp_DataArray& data = keyword.data;
    inp_CoordMap* map = ScopeMap();
    const bool placed = !systemTransform.IsIdentity();
    cow_1DArrayList<int> ids(data.NumberOfLines());
    int released = 0;
    for (int line = 0; line < data.NumberOfLines(); ++line) {
        if (data.NumberOfItems(line) == 0) continue;
        const int id = data.AsInt(line, 0);
        if (id < 1) continue;
        ids.Append(id);
        inp_Coord record;
        if (computeCoordinates) {
            record.x = Number(data, line, 1);
            record.y = Number(data, line, 2);
            record.z = Number(data, line, 3);
            record.nx = Number(data, line, 4);
            record.ny = Number(data, line, 5);
            record.nz = Number(data, line, 6);
            FromSystem(system, record.x, record.y, record.z);
            FromSystem(system, record.nx, record.ny, record.nz);
            gsl_Vector normal = NormalOf(record);
            if (normal.Normalize()) {
                if (placed) systemTransform.Transform(normal);
                SetNormal(record, normal);
            }
            if (placed) {
                gsl_Point p = PointOf(record);
                systemTransform.Transform(p);
                SetPoint(record, p);
                Snap(record);
            }
        }
        if (map)
            map->Insert(id, record);
        else
            errors.Append(inp_Utils::MessageInKeyword(
                keyword, atr_Format("Unknown instance or part name %s is encountered while processing the *NODE keyword.",
                                    KeywordScope())));
        if (releaseReadLines && line + 1 - released >= inp_DataArrayImpl::kReleaseBatch) {
            keyword.data.ReleaseLines(line + 1);
            released = line + 1;
        }
    }
    if (releaseReadLines) keyword.data.ReleaseLines(data.NumberOfLines());
    AddKeywordSet(keyword, "nset", ids, false, false);
}

void inp_NodeVisitor::VisitSystem(inp_Keyword& keyword) {
    const inp_DataArray& data = keyword.data;
    systemTransform.FillIdentity();
    if (data.NumberOfLines() == 0) return;
    const gsl_Point origin = Triple(data, 0, 0), p = Triple(data, 0, 3);
    if (data.NumberOfLines() == 1 && !AsVector(p).Normalize()) {
        systemTransform.SetTranslation(AsVector(origin));
        return;
    }
    auto report = [&](const char* text) { errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw(text))); };
    gsl_Vector e1, e2, e3;
    if (data.NumberOfLines() >= 2) {
        const gsl_Vector toQ(origin, Triple(data, 1, 0));
        Axes(gsl_Vector(origin, p), &toQ, e1, e2, e3, report);
    } else {
        Axes(gsl_Vector(origin, p), nullptr, e1, e2, e3, report);
    }
    systemTransform.SetTranslation(AsVector(origin));
    systemTransform.SetRotationVectors(e1, e2, e3);
}

void inp_NodeVisitor::VisitNcopy(inp_Keyword& keyword) {
    if (!Has(keyword, "changenumber") || !Has(keyword, "oldset")) {
        errors.Append(
            inp_Utils::MessageInKeyword(keyword, atr_raw("Both CHANGE NUMBER and OLD SET are required parameters.")));
        return;
    }
    const inpM_BaseSet* old = FindNodeSet(keyword, Text(keyword, "oldset"));
    if (!old) return;
    enum { kPole, kReflect, kShift, kNone } mode = kNone;
    if (Has(keyword, "pole")) mode = kPole;
    if (Has(keyword, "reflect")) mode = kReflect;
    if (Has(keyword, "shift")) mode = kShift;
    if (mode == kNone) {
        errors.Append(inp_Utils::MessageInKeyword(
            keyword, atr_raw("POLE, REFLECT, and SHIFT are required, mutually exclusive parameters.")));
        return;
    }
    const long long change = keyword.GetParameterAsInt(cow_String("changenumber"), 0);
    const int multiple = mode == kShift ? keyword.GetParameterAsInt(cow_String("multiple"), 1) : 1;
    const cow_1DArrayList<int> oldIds = old->ConstGetIds();
    const bool unsorted = old->IsUnsorted(), internal = old->IsInternal();
    if (static_cast<long long>(multiple) * oldIds.Count() > inp_Utils::MaxGeneratedIds()) {
        errors.Append(inp_Utils::MessageInKeyword(keyword, inp_Utils::TooManyGenerated(cow_String("*NCOPY"))));
        return;
    }
    if (multiple > 0 && !oldIds.IsEmpty()) {
        long long lowest = oldIds.ConstGet(0), highest = lowest;
        for (int i = 1; i < oldIds.Count(); ++i) {
            lowest = std::min<long long>(lowest, oldIds.ConstGet(i));
            highest = std::max<long long>(highest, oldIds.ConstGet(i));
        }
        const long long first = change, last = change * multiple;
        atr_String message;
        if (!inp_Utils::IdsInRange(lowest + std::min(first, last), highest + std::max(first, last),
                                   cow_String("*NCOPY"), message)) {
            errors.Append(inp_Utils::MessageInKeyword(keyword, message));
            return;
        }
    }
    inp_CoordMap* map = ScopeMap();
    cow_1DArrayList<int> ids(multiple > 0 ? multiple * oldIds.Count() : 0);
    auto newId = [&](int k, int oldId) { return static_cast<int>(change * k + oldId); };

    if (!computeCoordinates || !map) {
        for (int k = 1; k <= multiple; ++k)
            for (int i = 0; i < oldIds.Count(); ++i) {
                const int id = newId(k, oldIds.ConstGet(i));
                ids.Append(id);
                if (map) map->Insert(id, inp_Coord());
            }
        AddKeywordSet(keyword, "newset", ids, internal, unsorted);
        return;
    }

    const inp_DataArray& data = keyword.data;
    auto report = [&](const char* text) { errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw(text))); };
    gsl_Matrix running, step;
    gsl_Point pole;
    cow_String reflect;
    gsl_StLine mirrorLine;
    gsl_Plane mirrorPlane;
    gsl_Point mirrorPoint;
    if (mode == kShift && data.NumberOfLines() > 0) {
        running.SetTranslation(AsVector(Triple(data, 0, 0)));
        if (data.NumberOfLines() >= 2) {
            const gsl_Point a = Triple(data, 1, 0), b = Triple(data, 1, 3);
            const double angle = data.NumberOfItems(1) >= 7 ? Number(data, 1, 6) : 0.0;
            gsl_Vector axis(a, b);
            if (!axis.Normalize() && angle != 0.0)
                return report("The points defining the axis of rotation for SHIFT are almost coincident.");
            step.AxisRotation(b, axis, angle * kDegree);
        }
    } else if (mode == kPole && data.NumberOfLines() > 0 && data.NumberOfItems(0) > 0) {
        const int node = data.Type(0, 0) == inp_Types::typeInt ? data.AsInt(0, 0) : 0;
        pole = node != 0 && map->HasId(node) ? PointOf(map->ConstGet(node)) : Triple(data, 0, 1);
    } else if (mode == kReflect) {
        reflect = Text(keyword, "reflect");
        const gsl_Point a = Triple(data, 0, 0), b = Triple(data, 0, 3);
        if (reflect == "LINE") {
            if (!gsl_Vector(a, b).Normalize()) return report("Points A & B given for REFLECT=LINE are coincident.");
            mirrorLine = gsl_StLine(a, b);
        } else if (reflect == "MIRROR") {
            gsl_Vector normal(a, b, Triple(data, 1, 0));
            if (!normal.Normalize())
                return report(
                    "Points A, B, & C given for REFLECT=MIRROR do not form a plane (co-linear or coincident).");
            mirrorPlane = gsl_Plane(a, normal);
        } else {
            mirrorPoint = a;
        }
    }

    const gsl_Matrix inverse = instanceTransform.InverseRigidTransform();
    for (int k = 1; k <= multiple; ++k) {
        if (mode == kShift) running.Concatenate(step);
        for (int i = 0; i < oldIds.Count(); ++i) {
            const int oldId = oldIds.ConstGet(i);
            if (!map->HasId(oldId)) continue;
            const int id = newId(k, oldId);
            const inp_Coord source = map->ConstGet(oldId);
            gsl_Point p = PointOf(source);
            gsl_Vector n = NormalOf(source);
            const bool hasNormal = n.Normalize();
            inverse.Transform(p);
            if (hasNormal) inverse.Transform(n);
            if (mode == kShift) {
                running.Transform(p);
                if (hasNormal) running.Transform(n);
            } else if (mode == kPole) {
                p = gsl_Point(p, 2.0, pole, -1.0);
            } else if (reflect == "LINE") {
                double t;
                p = gsl_Point(p.ProjectOn(mirrorLine, t), 2.0, p, -1.0);
                gsl_Vector d = mirrorLine.Direction();
                d.Normalize();
                if (hasNormal) n = d * (2.0 * n.DotProduct(d)) - n;
            } else if (reflect == "MIRROR") {
                p = gsl_Point(p.ProjectOn(mirrorPlane), 2.0, p, -1.0);
                gsl_Vector d = mirrorPlane.Direction();
                d.Normalize();
                if (hasNormal) n = n - d * (2.0 * n.DotProduct(d));
            } else {
                p = gsl_Point(mirrorPoint, 2.0, p, -1.0);
                if (hasNormal) n.Negate();
            }
            inp_Coord record;
            SetPoint(record, p);
            if (hasNormal) SetNormal(record, n);
            ids.Append(id);
            map->Insert(id, record);
        }
    }
    AddKeywordSet(keyword, "newset", ids, internal, unsorted);
}

void inp_NodeVisitor::VisitNfill(inp_Keyword& keyword) {
    const double given = keyword.GetParameterAsDouble(cow_String("bias"), 0.0);
    int singular = 0;
    if (Has(keyword, "singular")) {
        if (given > 0.0) {
            errors.Append(
                inp_Utils::MessageInKeyword(keyword, atr_raw("Parameters SINGULAR and BIAS are mutually exclusive.")));
            return;
        }
        singular = keyword.GetParameterAsInt(cow_String("singular"), 0);
        if (singular != 1 && singular != 2) {
            errors.Append(inp_Utils::MessageInKeyword(
                keyword, atr_Format("Parameter SINGULAR=%s is invalid.", Text(keyword, "singular"))));
            return;
        }
    }
    bool twoStep = false;
    if (Has(keyword, "twostep")) {
        if (given == 0.0)
            warnings.Append(inp_Utils::MessageInKeyword(
                keyword, atr_raw("The TWO STEP parameter is ignored as the BIAS parameter not specified.")));
        else
            twoStep = true;
    }
    const double bias = given == 0.0 ? 1.0 : given;
    cow_1DArrayList<int> ids;
    for (int line = 0; line < keyword.data.NumberOfLines(); ++line)
        if (!NfillLine(keyword, line, bias, singular, twoStep, ids)) return;
    AddKeywordSet(keyword, "nset", ids, false, false);
}

bool inp_NodeVisitor::NfillLine(const inp_Keyword& keyword, int line, double bias, int singular, bool twoStep,
                                cow_1DArrayList<int>& ids) {
    const inp_DataArray& data = keyword.data;
    auto report = [&](const atr_String& text) {
        errors.Append(inp_Utils::MessageInKeyword(keyword, text));
        return false;
    };
    if (data.NumberOfItems(line) < 3) return report(atr_String("Invalid data line: ") + Joined(data, line));
    const cow_String firstName = data.AsString(line, 0), secondName = data.AsString(line, 1);
    const inpM_BaseSet* firstSet = FindNodeSet(keyword, firstName);
    if (!firstSet) return false;
    const inpM_BaseSet* secondSet = FindNodeSet(keyword, secondName);
    if (!secondSet) return false;
    const cow_1DArrayList<int> first = firstSet->ConstGetIds(), second = secondSet->ConstGetIds();
    const int count = first.Count() < second.Count() ? first.Count() : second.Count();
    if (first.Count() != second.Count())
        warnings.Append(inp_Utils::MessageInKeyword(
            keyword, Message("Node sets %1$s and %2$s have different number of nodes - %3$d and %4$d. Only %5$d nodes "
                             "will be used.",
                             {firstName, secondName, cow_String(first.Count()), cow_String(second.Count()),
                              cow_String(count)})));
    const int n = data.AsInt(line, 2);
    if (n < 1) return report(atr_raw("The number of intervals must be given."));
    if (static_cast<long long>(count) * n > inp_Utils::MaxGeneratedIds())
        return report(inp_Utils::TooManyGenerated(cow_String("*NFILL")));
    if (singular && n % 2 != 0)
        return report(atr_raw("The number of intervals must be even when the SINGULAR parameter is specified."));
    double step = 1.0, total = 0.0;
    for (int j = 0; j < n; ++j) {
        total += step;
        if (!(twoStep && j % 2 == 0)) step /= bias;
    }
    int inc = Integer(data, line, 3, 1);
    if (inc == 0) inc = 1;
    // Each pair makes n - 1 ids, a + inc to a + (n - 1) inc.
    for (int pair = 0; pair < count && n > 1; ++pair) {
        const long long a = first.ConstGet(pair), last = a + static_cast<long long>(n - 1) * inc;
        atr_String message;
        if (!inp_Utils::IdsInRange(std::min(a + inc, last), std::max(a + inc, last), cow_String("*NFILL"), message))
            return report(message);
    }
    ids.Append(first);
    ids.Append(second);

    inp_CoordMap* map = ScopeMap();
    for (int pair = 0; pair < count; ++pair) {
        const int a = first.ConstGet(pair), b = second.ConstGet(pair);
        if (computeCoordinates && map && (!map->HasId(a) || !map->HasId(b))) {
            report(atr_Format("Node set %s entered under an *NFILL definition contains non-existent nodes. ",
                              map->HasId(a) ? secondName : firstName));
            continue;
        }
        if (static_cast<long long>(a) + static_cast<long long>(n) * inc != b)
            warnings.Append(inp_Utils::MessageInKeyword(
                keyword, Message("The number of intervals %1$d and the node increment %2$d are inconsistent with the "
                                 "node numbers of two sets: %3$s - %4$d, %5$s - %6$d .",
                                 {cow_String(n), cow_String(inc), firstName, cow_String(a), secondName,
                                  cow_String(b)})));
        if (!map) continue;
        int id = a;
        if (!computeCoordinates) {
            for (int i = 1; i < n; ++i) {
                id += inc;
                ids.Append(id);
                map->Insert(id, inp_Coord());
            }
            continue;
        }
        const inp_Coord ca = map->ConstGet(a), cb = map->ConstGet(b);
        const gsl_Point pa = PointOf(ca), pb = PointOf(cb);
        const gsl_Vector na = NormalOf(ca), nb = NormalOf(cb);
        const bool hasNormals = na.length > 0.0 || nb.length > 0.0;
        auto store = [&](const gsl_Point& p, const gsl_Vector& normal) {
            inp_Coord record;
            SetPoint(record, p);
            if (hasNormals) SetComputedNormal(record, normal);
            id += inc;
            ids.Append(id);
            StoreGenerated(*map, id, record);
        };
        if (!singular) {
            double part = 1.0, sum = 0.0;
            for (int i = 1; i < n; ++i) {
                sum += part;
                const double t = sum / total;
                store(gsl_Point(pa, 1.0 - t, pb, t), na * (1.0 - t) + nb * t);
                if (!(twoStep && i % 2 == 1)) part /= bias;
            }
            continue;
        }
        const int m = n / 2;
        gsl_Point previous = pa;
        gsl_Vector previousNormal = na;
        for (int i = 1; i <= m; ++i) {
            double t = static_cast<double>(i) / m;
            if (singular == 2) t = 1.0 - t;
            const double s = t * t;
            const gsl_Point current = singular == 1 ? gsl_Point(pa, 1.0 - s, pb, s) : gsl_Point(pb, 1.0 - s, pa, s);
            const gsl_Vector currentNormal = singular == 1 ? na * (1.0 - s) + nb * s : nb * (1.0 - s) + na * s;
            double w = 0.5;
            if (i == 1 && singular == 1) w = 0.25;
            if (i == m && singular == 2) w = 0.75;
            store(gsl_Point(previous, 1.0 - w, current, w), previousNormal * (1.0 - w) + currentNormal * w);
            if (i != m) store(current, currentNormal);
            previous = current;
            previousNormal = currentNormal;
        }
    }
    return true;
}

namespace {

struct Circle {
    double radius = 0.0;
    double angle = 0.0;
    gsl_Vector e1, e2, normal, toB;
};

// The arc from A to B about the centre M; `given` is the unit normal of its plane when
// the deck gave one. False, reported, when there is no such arc.
bool SetUpCircle(const gsl_Point& a, const gsl_Point& b, const gsl_Point& m, const gsl_Vector* given, Circle& c,
                 const std::function<void(const char*, bool)>& report) {
    gsl_Vector v1(m, a), v2(m, b);
    const double r1 = v1.length, r2 = v2.length;
    if (r1 < 1e-16 || r2 < 1e-16) {
        report("End point of the arc has the same coordinates as the center of the circle.", false);
        return false;
    }
    c.radius = (r1 + r2) / 2.0;
    if (std::fabs(r1 - r2) / c.radius > 0.1)
        report("The radii for LINE=C are not equal. The end points must be moved by more than 5 percent to lie on a "
               "circle.",
               true);
    v1 = v1 * (1.0 / r1);
    v2 = v2 * (1.0 / r2);
    const double cosine = v1.DotProduct(v2);
    c.angle = cosine <= -1.0 ? kPi : cosine >= 1.0 ? 0.0 : std::acos(cosine);
    c.normal = v1.CrossProduct(v2);
    if (!given) {
        if (c.angle < 1e-6 || c.angle > kPi - 1e-6) {
            report("The three nodes defining a circle lie on a line. A normal direction must be given.", false);
            return false;
        }
    } else {
        if (c.angle < 1e-6)
            c.angle = 2.0 * kPi;
        else if (given->DotProduct(c.normal) < 0.0)
            c.angle = 2.0 * kPi - c.angle;
        c.normal = *given;
    }
    c.normal.Normalize();
    c.e1 = v1;
    c.e2 = c.normal.CrossProduct(v1);
    c.toB = v2;
    return true;
}

}  // namespace

void inp_NodeVisitor::VisitNgen(inp_Keyword& keyword) {
    const cow_String shape = Text(keyword, "line");
    const cow_String system = Has(keyword, "system") ? Text(keyword, "system") : cow_String("RC");
    cow_1DArrayList<int> ids;
    for (int line = 0; line < keyword.data.NumberOfLines(); ++line)
        if (!NgenLine(keyword, line, shape, system, ids)) return;
    AddKeywordSet(keyword, "nset", ids, false, false);
}

bool inp_NodeVisitor::NgenLine(const inp_Keyword& keyword, int line, const cow_String& shape,
                               const cow_String& system, cow_1DArrayList<int>& ids) {
    const inp_DataArray& data = keyword.data;
    auto report = [&](const atr_String& text) { errors.Append(inp_Utils::MessageInKeyword(keyword, text)); };
    if (data.NumberOfItems(line) < 2) {
        report(atr_String("Invalid data line: \n") + Joined(data, line));
        return false;
    }
    inp_CoordMap* map = ScopeMap();
    const int firstId = data.AsInt(line, 0), lastId = data.AsInt(line, 1);
    auto endNode = [&](int id) {
        if (!computeCoordinates || !map) return inp_Coord();
        if (!map->HasId(id)) {
            report(atr_Format("Node %s does not exist.", cow_String(id)));
            map->Insert(id, inp_Coord());
        }
        return map->ConstGet(id);
    };
    const inp_Coord ca = endNode(firstId), cb = endNode(lastId);
    gsl_Vector na = NormalOf(ca), nb = NormalOf(cb);
    const bool hasNormals = na.Normalize() && nb.Normalize();
    int inc = Integer(data, line, 2, 1);
    if (inc == 0) inc = 1;
    const long long diff = static_cast<long long>(lastId) - firstId;
    if (diff == 0 || diff % inc != 0)
        report(Message("Nodes cannot be generated between %1$d and %2$d with a step of %3$d.",
                       {cow_String(firstId), cow_String(lastId), cow_String(inc)}));

    const gsl_Point pa = PointOf(ca), pb = PointOf(cb);
    gsl_Point middle;
    Circle circle;
    const bool compute = computeCoordinates && map;
    if (compute && !shape.IsEmpty()) {
        const int third = Integer(data, line, 3, 0);
        if (third != 0) {
            if (!map->HasId(third)) {
                report(atr_Format("Node %s does not exist.", cow_String(third)));
                return false;
            }
            middle = PointOf(map->ConstGet(third));
        } else if (data.NumberOfItems(line) >= 5) {
            double x = Number(data, line, 4), y = Number(data, line, 5), z = Number(data, line, 6);
            FromSystem(system, x, y, z);
            middle = gsl_Point(x, y, z);
            if (!systemTransform.IsIdentity()) systemTransform.Transform(middle);
            if (!instanceTransform.IsIdentity()) instanceTransform.Transform(middle);
        }
        gsl_Vector given(Number(data, line, 7), Number(data, line, 8), Number(data, line, 9));
        const bool hasGiven = given.Normalize();
        if (hasGiven && !systemTransform.IsIdentity()) systemTransform.Transform(given);
        if (shape == "C") {
            auto circleReport = [&](const char* text, bool warning) {
                (warning ? warnings : errors).Append(inp_Utils::MessageInKeyword(keyword, atr_raw(text)));
            };
            if (!SetUpCircle(pa, pb, middle, hasGiven ? &given : nullptr, circle, circleReport)) return false;
        }
    }

    const long long count = (diff < 0 ? -diff : diff) / (inc < 0 ? -static_cast<long long>(inc) : inc) + 1;
    if (count > inp_Utils::MaxGeneratedIds()) {
        report(inp_Utils::TooManyGenerated(cow_String("*NGEN")));
        return false;
    }
    // An increment against the direction from first to last steps away from both.
    if (count > 2) {
        const long long second = static_cast<long long>(firstId) + inc, last = firstId + (count - 2) * inc;
        atr_String message;
        if (!inp_Utils::IdsInRange(std::min(second, last), std::max(second, last), cow_String("*NGEN"), message)) {
            report(message);
            return false;
        }
    }
    ids.Append(firstId);
    for (long long i = 1; i <= count - 2; ++i) {
        const int id = static_cast<int>(firstId + i * inc);
        ids.Append(id);
        if (!map) continue;
        inp_Coord record;
        if (compute) {
            const double xi = 2.0 * static_cast<double>(i) / static_cast<double>(count - 1) - 1.0;
            gsl_Point p;
            if (shape == "P") {
                p = gsl_Point(gsl_Point(pa, 0.5 * xi * (xi - 1.0), middle, -(xi - 1.0) * (xi + 1.0)), 1.0, pb,
                              0.5 * xi * (xi + 1.0));
            } else if (shape == "C") {
                const double phi = 0.5 * (xi + 1.0) * circle.angle;
                p = AsPoint(AsVector(middle) + (circle.e1 * std::cos(phi) + circle.e2 * std::sin(phi)) * circle.radius);
                if (hasNormals) {
                    const double a1 = na.DotProduct(circle.e1), a2 = na.DotProduct(circle.normal);
                    const double a3 = nb.DotProduct(circle.toB), a4 = nb.DotProduct(circle.normal);
                    const double c2 = (1.5707963267948966 * (a3 - a1) + circle.angle * a1) / circle.angle;
                    SetComputedNormal(record, circle.e1 * (std::cos(phi) * a1) + circle.e2 * (std::sin(phi) * c2) +
                                                  circle.normal * (0.5 * ((1.0 - xi) * a2 + (1.0 + xi) * a4)));
                }
            } else {
                p = gsl_Point(pa, 0.5 * (1.0 - xi), pb, 0.5 * (1.0 + xi));
            }
            if (!(shape == "C") && hasNormals) SetComputedNormal(record, na * (0.5 * (1.0 - xi)) + nb * (0.5 * (1.0 + xi)));
            SetPoint(record, p);
            Snap(record);
        }
        StoreGenerated(*map, id, record);
    }
    ids.Append(lastId);
    return true;
}

void inp_NodeVisitor::VisitNmap(inp_Keyword& keyword) {
    auto report = [&](const char* text) { errors.Append(inp_Utils::MessageInKeyword(keyword, atr_raw(text))); };
    if (!instanceTransform.IsIdentity())
        return report("The part instance has undergone translation and/or rotation. This implies *NMAP is used in a v6 "
                      "input file.  This is not allowed. ");
    if (!Has(keyword, "nset") || !Has(keyword, "type")) return report("Both NSET and TYPE are required parameters.");
    const cow_String type = Text(keyword, "type");
    if (type == "BLENDED") return;
    const cow_String name = Text(keyword, "nset");
    const cow_String& scope = KeywordScope();
    if (!setMap.HasNestedSet(scope, name)) {
        errors.Append(inp_Utils::MessageInKeyword(keyword, atr_Format("Node set %s does not exist.", name)));
        return;
    }
    const inp_DataArray& data = keyword.data;
    double scale[3] = {1.0, 1.0, 1.0};
    if (data.NumberOfLines() >= 3)
        for (int i = 0; i < 3; ++i)
            if (Number(data, 2, i) != 0.0) scale[i] = Number(data, 2, i);
    const bool originOnly = data.NumberOfLines() > 0 && data.NumberOfItems(0) < 4;
    const bool secondLine = data.NumberOfLines() > 1 && data.NumberOfItems(1) > 0 && !data.IsBlank(1, 0);
    const gsl_Point a = Triple(data, 0, 0), b = Triple(data, 0, 3), c = Triple(data, 1, 0), d = Triple(data, 1, 3);
    gsl_Matrix m;
    m.SetTranslation(AsVector(a));
    double torus = 1.0;
    gsl_Vector columns[3];
    const bool diamond = type == "DIAMOND";
    if ((type == "RECTANGULAR" || type == "TOROIDAL") && !originOnly) {
        gsl_Vector e1(a, b), e2, e3;
        if (type == "TOROIDAL") torus = e1.length;
        const gsl_Vector toC(a, c);
        Axes(e1, secondLine ? &toC : nullptr, e1, e2, e3, report);
        m.SetRotationVectors(e1, e2, e3);
    } else if (type == "CYLINDRICAL" || type == "SPHERICAL") {
        gsl_Vector z(a, b), x(a, c);
        if (!z.Normalize()) report("Point B is too close to point A so the local z-axis is ill-defined. ");
        if (!x.Normalize()) report("Point C is too close to point A so the local x-axis is ill-defined. ");
        gsl_Vector y = z.CrossProduct(x);
        if (!y.Normalize()) report("The local x and z axes are parallel. ");
        x = y.CrossProduct(z);
        m.SetRotationVectors(x, y, z);
    } else if (diamond) {
        columns[0] = gsl_Vector(a, b);
        columns[1] = gsl_Vector(a, c);
        columns[2] = gsl_Vector(a, d);
        if (!columns[0].Normalize()) report("Point B is too close to point A. ");
        if (!columns[1].Normalize()) report("Point C is too close to point A. ");
        if (!columns[2].Normalize()) report("Point D is too close to point A. ");
    }

    inp_CoordMap* map = ScopeMap();
    if (!map) return;
    const cow_1DArrayList<int> members = setMap.ConstGetNestedSet(scope, name).ConstGetIds();
    for (int i = 0; i < members.Count(); ++i) {
        const int id = members.ConstGet(i);
        if (!map->HasId(id)) continue;
        const inp_Coord old = map->ConstGet(id);
        double x = old.x * scale[0], y = old.y * scale[1], z = old.z * scale[2];
        double nx = old.nx, ny = old.ny, nz = old.nz;
        gsl_Vector probe = NormalOf(old);
        const bool hasNormal = probe.Normalize();
        if (type == "CYLINDRICAL") {
            if (hasNormal) {
                double px = x, py = y, qx = x + nx, qy = y + ny;
                FromCylindrical(px, py);
                FromCylindrical(qx, qy);
                nx = qx - px;
                ny = qy - py;
            }
            FromCylindrical(x, y);
        } else if (type == "SPHERICAL") {
            if (hasNormal) {
                double px = x, py = y, pz = z, qx = x + nx, qy = y + ny, qz = z + nz;
                FromSpherical(px, py, pz);
                FromSpherical(qx, qy, qz);
                nx = qx - px;
                ny = qy - py;
                nz = qz - pz;
            }
            FromSpherical(x, y, z);
        } else if (type == "TOROIDAL") {
            const double r = x, angleA = y * kDegree, angleB = z * kDegree, rho = torus - r * std::cos(angleA);
            x = rho * std::cos(angleB);
            y = rho * std::sin(angleB);
            z = r * std::sin(angleA);
        } else if (diamond) {
            const gsl_Vector mapped = columns[0] * x + columns[1] * y + columns[2] * z;
            x = mapped.x;
            y = mapped.y;
            z = mapped.z;
        }
        gsl_Point p(x, y, z);
        m.Transform(p);
        inp_Coord record;
        SetPoint(record, p);
        if (hasNormal) {
            gsl_Vector n(nx, ny, nz);
            m.Transform(n);
            SetNormal(record, n);
        }
        map->Insert(id, record);
    }
}
