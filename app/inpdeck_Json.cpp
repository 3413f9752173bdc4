#include "inpdeck_Json.h"

#include "inpdeck_Diagnostics.h"
#include "inpdeck_JsonWriter.h"
#include "inpdeck_Model.h"

namespace inpdeck {

namespace {

void Triple(JsonWriter& w, const char* key, const double v[3]) {
    w.Key(key);
    w.BeginArray();
    for (int i = 0; i < 3; ++i) w.Double(v[i]);
    w.EndArray();
}

void Ids(JsonWriter& w, const cow_1DArrayList<int>& ids) {
    w.BeginArray();
    for (int i = 0; i < ids.Count(); ++i) w.Int(ids.ConstGet(i));
    w.EndArray();
}

void Messages(JsonWriter& w) {
    const wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    w.Key("messages");
    w.BeginArray();
    for (int i = 0; i < sink.Count(); ++i) {
        const wip_Record& r = sink.Record(i);
        w.BeginObject();
        w.Key("kind");
        w.String(r.IsError() ? "error" : "warning");
        if (r.IsError()) {
            w.Key("level");
            w.Int(r.level);
        }
        w.Key("text");
        w.String(r.text.c_str());
        const MessageLocation at = LocationOf(r);
        if (at.line > 0) {
            w.Key("file");
            w.String(at.file.c_str());
            w.Key("line");
            w.Int(at.line);
        }
        w.EndObject();
    }
    w.EndArray();
}

void Parts(JsonWriter& w, const inp_Deck& deck) {
    w.Key("parts");
    w.BeginArray();
    for (const Part& p : ModelParts(deck)) {
        w.BeginObject();
        w.Key("name");
        w.String(p.name.c_str());
        w.Key("instances");
        w.BeginArray();
        for (const cow_String& name : p.instances) w.String(name.c_str());
        w.EndArray();
        w.Key("nodes");
        w.Int(CountNodes(p.nodes));
        w.Key("elements");
        w.Int(CountElements(p.elements));
        w.EndObject();
    }
    w.EndArray();
}

void Instances(JsonWriter& w, const std::vector<Scope>& scopes) {
    w.Key("instances");
    w.BeginArray();
    for (size_t i = 1; i < scopes.size(); ++i) {
        const Scope& s = scopes[i];
        const Placement p = ReadPlacement(s.placement);
        w.BeginObject();
        w.Key("name");
        w.String(s.name.c_str());
        w.Key("part");
        w.String(s.part.c_str());
        Triple(w, "translation", p.translation);
        w.Key("rotation");
        w.BeginObject();
        Triple(w, "point", p.point);
        Triple(w, "axis", p.axis);
        w.Key("angle");
        w.Double(p.angle);
        w.EndObject();
        double m[4][4];
        s.placement.AsArray(m);
        w.Key("matrix");
        w.BeginArray();
        for (int r = 0; r < 3; ++r) {
            w.BeginArray();
            for (int c = 0; c < 4; ++c) w.Double(m[r][c]);
            w.EndArray();
        }
        w.EndArray();
        w.EndObject();
    }
    w.EndArray();
}

void Nodes(JsonWriter& w, const inp_CoordMap* nodes) {
    w.Key("nodes");
    w.BeginArray();
    if (nodes)
        ForEachNode(*nodes, [&w](int id, double x, double y, double z) {
            w.BeginArray();
            w.Int(id);
            w.Double(x);
            w.Double(y);
            w.Double(z);
            w.EndArray();
        });
    w.EndArray();
}

void Elements(JsonWriter& w, const omi_IntTable<inp_Element>* elements) {
    w.Key("elements");
    w.BeginArray();
    if (elements)
        ForEachElement(*elements, [&w](int id, const inp_Element& e) {
            w.BeginObject();
            w.Key("id");
            w.Int(id);
            w.Key("type");
            w.String(e.type.c_str());
            w.Key("nodes");
            w.BeginArray();
            for (int i = 0; i < e.numNodes; ++i) w.Int(e.nodes[i]);
            w.EndArray();
            w.EndObject();
        });
    w.EndArray();
}

void Sets(JsonWriter& w, const char* key, const inpM_BaseSetMap* sets) {
    w.Key(key);
    w.BeginArray();
    if (sets)
        ForEachSet(*sets, [&w](const cow_String& name, const inpM_BaseSet& set) {
            w.BeginObject();
            w.Key("name");
            w.String(name.c_str());
            bool top = true;
            ForEachSetScope(set, [&](const cow_String& instance, const cow_1DArrayList<int>& ids) {
                if (top) {
                    w.Key("ids");
                    Ids(w, ids);
                    w.Key("instances");
                    w.BeginObject();
                    top = false;
                    return;
                }
                w.Key(instance.c_str());
                Ids(w, ids);
            });
            w.EndObject();
            w.EndObject();
        });
    w.EndArray();
}

// The kind and the members of one surface of one scope.
void SurfaceBody(JsonWriter& w, const inpM_PartInstanceSurface& surface) {
    w.Key("kind");
    switch (surface.SurfaceType()) {
    case inpM_ElementSurface: {
        w.String("element");
        w.Key("faces");
        w.BeginArray();
        const cow_Map<cow_String, cow_1DArrayList<int>> faces = surface.ConstGetFaceIdElementIdsMap();
        cow_ConstMapSortedIt<cow_String, cow_1DArrayList<int>> it(faces);
        for (it.First(); !it.IsDone(); it.Next()) {
            w.BeginObject();
            w.Key("face");
            w.String(it.CurrentKey().c_str());
            w.Key("elements");
            Ids(w, it.CurrentValue());
            w.EndObject();
        }
        w.EndArray();
        break;
    }
    case inpM_NodeSurface: {
        w.String("node");
        w.Key("nodes");
        w.BeginArray();
        inpM_NodeAreaListIT it(surface.ConstGetNodeAreaList());
        for (it.First(); !it.IsDone(); it.Next()) {
            w.BeginArray();
            w.Int(it.CurrentKey());
            w.Double(it.CurrentValue());
            w.EndArray();
        }
        w.EndArray();
        break;
    }
    default:
        w.String("analytical");
        break;
    }
}

void Surfaces(JsonWriter& w, const inpM_PartInstanceSurfaceMap* surfaces) {
    w.Key("surfaces");
    w.BeginArray();
    if (surfaces)
        ForEachSurface(*surfaces, [&w](const cow_String& name, const inpM_PartInstanceSurface& surface) {
            w.BeginObject();
            w.Key("name");
            w.String(name.c_str());
            SurfaceBody(w, surface);
            w.EndObject();
        });
    w.EndArray();
}

// Surfaces of the assembly that gather faces or nodes of several instances.
void AssemblySurfaces(JsonWriter& w, const inpM_SurfaceMap& map) {
    w.Key("assemblySurfaces");
    w.BeginArray();
    cow_ConstMapSortedIt<cow_String, inpM_AssemblyInstanceSurface> it(map.assemblyInstanceSurfaces);
    for (it.First(); !it.IsDone(); it.Next()) {
        const inpM_AssemblyInstanceSurface& s = it.CurrentValue();
        w.BeginObject();
        w.Key("name");
        w.String(it.CurrentKey().c_str());
        w.Key("instances");
        w.BeginObject();
        const cow_List<cow_String> names = s.Instances();
        for (int i = 0; i < names.Count(); ++i) {
            w.Key(names[i].c_str());
            w.BeginObject();
            SurfaceBody(w, s.instanceSurfaces.ConstGet(names[i]).ConstGet());
            w.EndObject();
        }
        w.EndObject();
        w.Key("assemblyNodes");
        w.BeginObject();
        SurfaceBody(w, s.assemblyNodes);
        w.EndObject();
        w.EndObject();
    }
    w.EndArray();
}

}  // namespace

bool WriteModelJson(std::FILE* out, const char* deckName, const inp_Deck& deck) {
    JsonWriter w(out);
    const std::vector<Scope> scopes = ModelScopes(deck);
    w.BeginObject();
    w.Key("format");
    w.String("inpdeck-model");
    w.Key("version");
    w.Int(kJsonSchemaVersion);
    w.Key("deck");
    w.String(deckName);
    Messages(w);
    w.Key("assembly");
    w.String(AssemblyName(deck).c_str());
    Parts(w, deck);
    Instances(w, scopes);
    w.Key("scopes");
    w.BeginArray();
    for (const Scope& s : scopes) {
        w.BeginObject();
        w.Key("name");
        w.String(s.name.c_str());
        Nodes(w, s.nodes);
        Elements(w, s.elements);
        Sets(w, "nodeSets", s.nodeSets);
        Sets(w, "elementSets", s.elementSets);
        Surfaces(w, s.surfaces);
        w.EndObject();
    }
    w.EndArray();
    AssemblySurfaces(w, deck.assemblySurfaces);
    w.EndObject();
    return w.Flush();
}

}  // namespace inpdeck
