#include "inpdeck_Flat.h"

#include <cstdio>
#include <cstring>
#include <map>
#include <set>

#include "aio_ostream.h"
#include "atr_Number.h"
#include "inp.h"
#include "inp_FlatNames.h"
#include "inp_FlattenVisitors.h"
#include "inpdeck_Text.h"

namespace inpdeck {

namespace {

using Keywords = cow_1DArrayList<inp_Keyword>;
using Messages = std::vector<std::string>;

// Ids on a data line of a set, as the deck printer writes them.
const int kIdsPerLine = 16;

// The model in the terms of the flat deck: every id renumbered into one gapless range
// per kind, the assembly level first, then the instances in ascending byte order.
struct FlatModel {
    inp_CoordMap nodes;
    inpM_ElementMap elements;
    inpM_SetMap nodeSets;
    inpM_SetMap elementSets;
    inpM_SurfaceMap surfaces;
    inpM_IdMap nodeIds;
    inpM_IdMap elementIds;
};

void Collect(const inp_Visitor& pass, Messages& messages) {
    for (const cow_List<atr_String>* list : {&pass.seriousErrors, &pass.errors, &pass.warnings})
        for (int i = 0; i < list->Count(); ++i) messages.push_back(list->ConstGet(i).c_str());
}

cow_String Text(const inp_Keyword& keyword, const char* name) {
    const inp_Item* item = keyword.parameters.Lookup(cow_String(name));
    return item ? item->AsString() : cow_String();
}

// The deck's maps, copied, in the ids of the flat deck. Copies share the deck's tables
// until a renumbering writes, so the deck keeps its own.
FlatModel Renumbered(const inp_Deck& deck, Keywords keywords, Messages& messages) {
    FlatModel model;
    model.nodes = deck.assemblyCoordinates;
    model.nodeIds = model.nodes.Renumber(1, false);
    // Elements of the assembly level name nodes of instances by scoped ids, which only
    // the ids of the whole model resolve: Classify leaves them without nodes.
    inp_AssyLevelElemVisitor assembly(deck.assemblyElements, deck.assemblyElementSets, model.nodeIds, false);
    try {
        assembly.VisitList(keywords);
    } catch (const nex_Exception& e) {
        messages.push_back(e.UserReport().c_str());
    }
    Collect(assembly, messages);
    model.elements = assembly.elements;
    model.elementSets = assembly.setMap;
    model.elementIds = model.elements.Renumber(1, false);
    // A member that the model lacks has no id in the flat deck; it leaves the set.
    model.nodeSets = deck.assemblyNodeSets;
    model.nodeSets.Renumber(model.nodeIds, true);
    model.elementSets.Renumber(model.elementIds, true);
    model.surfaces = deck.assemblySurfaces;
    model.surfaces.Renumber(model.elementIds, model.nodeIds, true);
    return model;
}

// The keywords that the mesh written from the maps stands for, and the blocks that
// only scoped it.
bool StandsForMesh(const inp_Keyword& keyword) {
    switch (keyword.keyword) {
        case inp_kwNode:
        case inp_kwNgen:
        case inp_kwNfill:
        case inp_kwNcopy:
        case inp_kwNmap:
        case inp_kwSystem:
        case inp_kwElement:
        case inp_kwElgen:
        case inp_kwElcopy:
        case inp_kwNset:
        case inp_kwElset:
            return true;
        case inp_kwSurface: {
            // Analytical surfaces are not in the maps: their keyword stays.
            const cow_String type = Text(keyword, "type");
            return type.IsEmpty() || type == "ELEMENT" || type == "NODE";
        }
        default:
            return false;
    }
}

// A copy that shares nothing the passes write, without the keywords that the mesh
// written from the maps stands for: a part's large node and element arrays are never
// copied.
inp_Keyword Copy(const inp_Keyword& keyword) {
    inp_Keyword copy = keyword;
    copy.data = inp_DataArray(keyword.data.Clone());
    copy.suboptions = Keywords();
    for (int i = 0; i < keyword.suboptions.Count(); ++i)
        if (!StandsForMesh(keyword.suboptions[i])) copy.suboptions.Append(Copy(keyword.suboptions[i]));
    return copy;
}

// The keywords with each part's keywords inside every *INSTANCE of it, ahead of the
// instance's own: there the passes read them in the scope and axes of the instance. A
// *PART keeps its place, emptied, to mark where the mesh is written.
Keywords Placed(const Keywords& keywords) {
    std::map<std::string, const inp_Keyword*> parts;
    for (int i = 0; i < keywords.Count(); ++i)
        if (keywords[i].keyword == inp_kwPart) parts[Text(keywords[i], "name").c_str()] = &keywords[i];
    Keywords placed;
    for (int i = 0; i < keywords.Count(); ++i) {
        const inp_Keyword& keyword = keywords[i];
        if (StandsForMesh(keyword)) continue;
        if (keyword.keyword == inp_kwPart) {
            inp_Keyword marker = keyword;
            marker.suboptions = Keywords();
            placed.Append(marker);
            continue;
        }
        inp_Keyword copy = Copy(keyword);
        if (keyword.keyword == inp_kwAssembly) {
            for (int k = 0; k < copy.suboptions.Count(); ++k) {
                inp_Keyword& instance = copy.suboptions.Get(k);
                if (instance.keyword != inp_kwInstance) continue;
                const auto part = parts.find(Text(instance, "part").c_str());
                if (part == parts.end()) continue;
                Keywords inside = Copy(*part->second).suboptions;
                for (int p = 0; p < instance.suboptions.Count(); ++p) inside.Append(instance.suboptions[p]);
                instance.suboptions = inside;
            }
        }
        placed.Append(copy);
    }
    return placed;
}

// Instance geometry in the keywords' data carried into global axes: coordinates,
// directions and local systems that a part gives in its own axes. The nodes that have a
// *TRANSFORM of their own keep it; node sets that the transformation makes join the
// model's. A local system of a surface in an instance follows the instance's placement.
Keywords InGlobalAxes(Keywords keywords, FlatModel& model, const inp_Deck& deck, Messages& messages) {
    inp_CollectTransformedNodesVisitor transformed(model.nodeSets);
    transformed.VisitList(keywords);
    inp_TransformationVisitor transformation(deck.instanceTransformations, transformed.transformedNodes,
                                             model.nodeSets, model.nodeIds, true, model.nodes, model.elements,
                                             model.elementSets);
    try {
        transformation.VisitList(keywords);
    } catch (const nex_Exception& e) {
        messages.push_back(e.UserReport().c_str());
    }
    Collect(transformation, messages);
    return transformation.Output();
}

void Rewrite(Keywords& keywords, const FlatModel& model, const inp_FlatNames& names, const inp_Deck& deck,
             Messages& messages) {
    inp_FlattenSetVisitor sets(model.nodeSets, model.elementSets, model.nodeIds, model.elementIds,
                               deck.modelParameters, names);
    inp_FlattenSurfaceVisitor surfaces(model.surfaces, names);
    inp_FlattenOrientationVisitor orientations(names);
    for (inp_Visitor* pass : {static_cast<inp_Visitor*>(&sets), static_cast<inp_Visitor*>(&surfaces),
                              static_cast<inp_Visitor*>(&orientations)}) {
        // A few positions raise a bad reference out of the walk; the keywords after
        // it keep what they had.
        try {
            pass->VisitList(keywords);
        } catch (const nex_Exception& e) {
            messages.push_back(e.UserReport().c_str());
        }
        Collect(*pass, messages);
    }
}


bool IsBlock(const inp_Keyword& keyword) {
    switch (keyword.keyword) {
        case inp_kwPart:
        case inp_kwEndPart:
        case inp_kwAssembly:
        case inp_kwEndAssembly:
        case inp_kwInstance:
        case inp_kwEndInstance:
            return true;
        default:
            return false;
    }
}

class Writer {
public:
    Writer(aio_ostream& out, const FlatModel& model, const inp_FlatNames& names, Messages& messages)
        : out_(out), model_(model), names_(names), messages_(messages) {}

    void Keywords(const ::inpdeck::Keywords& keywords) {
        for (int i = 0; i < keywords.Count(); ++i) {
            const inp_Keyword& keyword = keywords[i];
            if ((keyword.keyword == inp_kwPart || keyword.keyword == inp_kwAssembly) && !meshWritten_) Mesh();
            Keyword(keyword);
        }
        if (!meshWritten_) Mesh();
    }

private:
    void Keyword(const inp_Keyword& keyword) {
        if (StandsForMesh(keyword)) return;
        if (!IsBlock(keyword)) keyword.Print(out_, false);
        for (int i = 0; i < keyword.suboptions.Count(); ++i) Keyword(keyword.suboptions[i]);
    }

    void Mesh() {
        meshWritten_ = true;
        Nodes();
        Elements();
        Sets("nset", inp_FlatNames::kNodeSet, model_.nodeSets);
        Sets("elset", inp_FlatNames::kElementSet, model_.elementSets);
        Surfaces();
    }

    void Put(const char* text) { out_.write(text, std::strlen(text)); }
    void Put(const cow_String& text) { out_.write(text.c_str(), static_cast<size_t>(text.Length())); }
    // `, ` and the number, or the number alone at the start of a line.
    void Number(int value, bool first) {
        char buffer[atr_kNumberChars + 2];
        int used = 0;
        if (!first) {
            buffer[used++] = ',';
            buffer[used++] = ' ';
        }
        used += atr_WriteInt(value, buffer + used);
        out_.write(buffer, static_cast<size_t>(used));
    }
    void Real(double value) {
        char buffer[atr_kNumberChars + 2] = {',', ' '};
        const int used = 2 + atr_WriteDouble(value, buffer + 2);
        out_.write(buffer, static_cast<size_t>(used));
    }
    void EndLine() {
        out_.put('\n');
        out_.flush();
    }

    // Scope names in the order of the ids: the assembly level, then the instances.
    static std::vector<cow_String> Scopes(const cow_List<cow_String>& instances) {
        std::vector<cow_String> scopes(1);
        for (int i = 0; i < instances.Count(); ++i) scopes.push_back(instances[i]);
        return scopes;
    }

    void Nodes() {
        bool opened = false;
        for (const cow_String& scope : Scopes(model_.nodes.InstanceNames())) {
            const inp_CoordMap& level = scope.IsEmpty() ? model_.nodes : model_.nodes.instances.ConstGet(scope).ConstGet();
            const cow_IntTable<inp_Coord> table = level.ConstGet();
            omi_IntTableIterator<inp_Coord> it(table.ConstGet());
            for (it.First(); !it.IsDone(); it.Next()) {
                if (!opened) Put("*node\n");
                opened = true;
                const inp_Coord& c = it.CurrentValue();
                Number(it.CurrentKey(), true);
                Real(c.x);
                Real(c.y);
                Real(c.z);
                EndLine();
            }
        }
    }

    // One *ELEMENT block per type, in ascending order of the type names. The nodes of an
    // instance's elements are the instance's own ids still; those of the assembly level
    // the model's already.
    void Elements() {
        const std::vector<cow_String> scopes = Scopes(model_.elements.Instances());
        std::set<std::string> types;
        for (const cow_String& scope : scopes) {
            omi_IntTableIterator<inp_Element> it(ElementsOf(scope));
            for (it.First(); !it.IsDone(); it.Next()) types.insert(it.CurrentValue().type.c_str());
        }
        int withoutNodes = 0;
        std::vector<int> nodes;
        for (const std::string& type : types) {
            Put("*element, type=");
            Put(type.c_str());
            EndLine();
            for (const cow_String& scope : scopes) {
                const inpM_IdMap* ids = scope.IsEmpty() ? nullptr : &model_.nodeIds.ConstGet(scope);
                omi_IntTableIterator<inp_Element> it(ElementsOf(scope));
                for (it.First(); !it.IsDone(); it.Next()) {
                    const inp_Element& element = it.CurrentValue();
                    if (std::strcmp(element.type.c_str(), type.c_str()) != 0) continue;
                    nodes.assign(element.nodes, element.nodes + element.numNodes);
                    bool defined = true;
                    for (int& node : nodes) {
                        // 0 stands for "no node" in a connector.
                        if (!ids || node == 0) continue;
                        node = ids->ConstGet(node);
                        defined = defined && node != 0;
                    }
                    if (!defined) {
                        ++withoutNodes;
                        continue;
                    }
                    Element(it.CurrentKey(), nodes);
                }
            }
        }
        if (withoutNodes)
            messages_.push_back(std::to_string(withoutNodes) +
                                " elements name nodes that the model does not define and are left out");
    }

    const omi_IntTable<inp_Element>& ElementsOf(const cow_String& scope) const {
        return scope.IsEmpty() ? model_.elements.ConstGet() : model_.elements.ConstGet(scope);
    }

    // A long element goes on in lines that end in a comma, as the deck printer writes it.
    void Element(int id, const std::vector<int>& nodes) {
        Number(id, true);
        for (size_t i = 0; i < nodes.size(); ++i) {
            Number(nodes[i], false);
            if ((i + 1) % kIdsPerLine == 0 && i + 1 < nodes.size()) {
                Put(",\n");
                Number(nodes[++i], true);
            }
        }
        EndLine();
    }

    void Ids(const cow_1DArrayList<int>& ids) {
        for (int i = 0; i < ids.Count(); ++i) {
            Number(ids[i], i % kIdsPerLine == 0);
            if ((i + 1) % kIdsPerLine == 0 || i + 1 == ids.Count()) EndLine();
        }
    }

    void Sets(const char* keyword, inp_FlatNames::Kind kind, const inpM_SetMap& sets) {
        for (const cow_String& scope : Scopes(sets.Instances())) {
            const inpM_BaseSetMap& level = scope.IsEmpty() ? sets : sets.ConstGetNestedSetMap(scope);
            const cow_List<cow_String> names = inpM_Utils::SortedKeys(level);
            for (int i = 0; i < names.Count(); ++i) {
                Put("*");
                Put(keyword);
                Put(", ");
                Put(keyword);
                Put("=");
                Put(FlatName(kind, scope, names[i]));
                EndLine();
                Ids(level.ConstGet(names[i]).ConstGet().ConstGetIds());
            }
        }
    }

    cow_String FlatName(inp_FlatNames::Kind kind, const cow_String& scope, const cow_String& name) const {
        const cow_String* flat = names_.Find(kind, scope, name);
        return flat ? *flat : name;
    }

    void Surfaces() {
        const inpM_SurfaceMap& surfaces = model_.surfaces;
        std::vector<cow_String> scopes(1);
        const cow_List<cow_String> instances = surfaces.Instances();
        for (int i = 0; i < instances.Count(); ++i)
            if (!instances[i].IsEmpty()) scopes.push_back(instances[i]);
        for (const cow_String& scope : scopes) {
            const inpM_PartInstanceSurfaceMap& level = surfaces.ConstGetPartInstanceSurfaceMap(scope);
            const cow_List<cow_String> names = inpM_Utils::SortedKeys(level);
            for (int i = 0; i < names.Count(); ++i) {
                Faces faces;
                NodeAreas nodes;
                Gather(level.ConstGet(names[i]).ConstGet(), faces, nodes);
                Surface(FlatName(inp_FlatNames::kSurface, scope, names[i]), faces, nodes);
            }
            if (!scope.IsEmpty()) continue;
            // Surfaces of the assembly level that reach into instances: the faces of all
            // of them under one name.
            const cow_List<cow_String> reaching = inpM_Utils::SortedKeys(surfaces.assemblyInstanceSurfaces);
            for (int i = 0; i < reaching.Count(); ++i) {
                const inpM_AssemblyInstanceSurface& surface = surfaces.assemblyInstanceSurfaces.ConstGet(reaching[i]);
                Faces faces;
                NodeAreas nodes;
                const cow_List<cow_String> parts = inpM_Utils::SortedKeys(surface.instanceSurfaces);
                for (int k = 0; k < parts.Count(); ++k)
                    Gather(surface.instanceSurfaces.ConstGet(parts[k]).ConstGet(), faces, nodes);
                Gather(surface.assemblyNodes, faces, nodes);
                Surface(FlatName(inp_FlatNames::kSurface, scope, reaching[i]), faces, nodes);
            }
        }
    }

    using Faces = std::map<std::string, std::vector<int>>;
    using NodeAreas = std::map<int, double>;

    static void Gather(const inpM_PartInstanceSurface& surface, Faces& faces, NodeAreas& nodes) {
        if (surface.SurfaceType() == inpM_ElementSurface) {
            const cow_Map<cow_String, cow_1DArrayList<int>> byFace = surface.ConstGetFaceIdElementIdsMap();
            cow_ConstMapSortedIt<cow_String, cow_1DArrayList<int>> it(byFace);
            for (it.First(); !it.IsDone(); it.Next()) {
                std::vector<int>& ids = faces[it.CurrentKey().c_str()];
                for (int i = 0; i < it.CurrentValue().Count(); ++i) ids.push_back(it.CurrentValue()[i]);
            }
        } else if (surface.SurfaceType() == inpM_NodeSurface) {
            inpM_NodeAreaListIT it(surface.ConstGetNodeAreaList());
            for (it.First(); !it.IsDone(); it.Next()) nodes[it.CurrentKey()] = it.CurrentValue();
        }
    }

    // An analytical surface has neither faces nor nodes: its own keyword defines it.
    void Surface(const cow_String& name, const Faces& faces, const NodeAreas& nodes) {
        if (faces.empty() && nodes.empty()) return;
        Put("*surface, name=");
        Put(name);
        Put(faces.empty() ? ", type=NODE" : ", type=ELEMENT");
        EndLine();
        if (!faces.empty()) {
            for (const auto& face : faces)
                for (int id : face.second) {
                    Number(id, true);
                    if (!face.first.empty()) {
                        Put(", ");
                        Put(face.first.c_str());
                    }
                    EndLine();
                }
            return;
        }
        for (const auto& node : nodes) {
            Number(node.first, true);
            Real(node.second);
            EndLine();
        }
    }

    aio_ostream& out_;
    const FlatModel& model_;
    const inp_FlatNames& names_;
    Messages& messages_;
    bool meshWritten_ = false;
};

// A deck without parts as expansion left it: Classify has converted the deck's own
// keywords by now, so they are read again. The sink is given back as it was, since the
// reading says again what the driver has reported already.
void WriteAsRead(aio_ostream& out, const inp_Deck& deck) {
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    std::vector<wip_Record> before;
    for (int i = 0; i < sink.Count(); ++i) before.push_back(sink.Record(i));
    inp_Deck again;
    again.includeDirectory = deck.includeDirectory;
    again.maxIncludeFiles = deck.maxIncludeFiles;
    again.maxLines = deck.maxLines;
    again.Parse(deck.fileName);
    again.ExpandKeywords();
    again.Print(out);
    sink.Clear();
    for (const wip_Record& record : before) {
        if (record.IsError())
            sink.Error(record.text, static_cast<wip_errorLevelEnm>(record.level));
        else
            sink.Warning(record.text);
    }
}

}  // namespace

bool WriteFlatDeck(aio_ostream& out, inp_Deck& deck, Messages& messages) {
    if (!deck.isAssemblyDeck) {
        WriteAsRead(out, deck);
    } else {
        FlatModel model = Renumbered(deck, deck.keywords, messages);
        Keywords keywords = InGlobalAxes(Placed(deck.keywords), model, deck, messages);
        inp_FlatNames names(model.nodeSets, model.elementSets, model.surfaces);
        names.AddDefinitions(keywords);
        Rewrite(keywords, model, names, deck, messages);
        Writer(out, model, names, messages).Keywords(keywords);
    }
    out.flush();
    return !out.fail();
}

int WriteFlat(const char* target, inp_Deck& deck) {
    Messages messages;
    bool written = false;
    if (!std::strcmp(target, "-")) {
        aio_ostdstream out(stdout);
        written = WriteFlatDeck(out, deck, messages);
    } else {
        aio_ofstream out(target);
        if (out.is_open()) {
            written = WriteFlatDeck(out, deck, messages);
            out.close();
            written = written && !out.fail();
        }
    }
    for (const std::string& message : messages)
        std::fprintf(stderr, "inpdeck: warning: %s\n", OneLine(message.c_str()).c_str());
    if (written) return 0;
    if (!std::strcmp(target, "-"))
        std::fprintf(stderr, "inpdeck: cannot write the flat deck to standard output\n");
    else
        std::fprintf(stderr, "inpdeck: cannot write \"%s\"\n", OneLine(target).c_str());
    return 2;
}

}  // namespace inpdeck
