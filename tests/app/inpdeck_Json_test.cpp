// The model as JSON: parsed back by a JSON reader and compared, field by field, with
// the maps of the same deck read here through the phases a driver calls.
#include <gtest/gtest.h>

#include <cmath>

#include <nlohmann/json.hpp>

#include "inp.h"
#include "inpdeck_Testing.h"

using inpdeck_test::DriverRun;
using inpdeck_test::Quoted;
using inpdeck_test::ReadFile;
using inpdeck_test::RunDriver;
using inpdeck_test::TempDir;
using nlohmann::json;

namespace {

// A part with every kind of member, placed twice, the second copy moved and turned.
const char kPlacedTwice[] =
    "*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n4, 0., 1., 0.\n5, 2., 0.5, 0.25\n"
    "*ELEMENT, TYPE=CPS4, ELSET=QUAD\n1, 1, 2, 3, 4\n*ELEMENT, TYPE=T2D2, ELSET=BAR\n2, 2, 5\n3, 3, 5\n"
    "*NSET, NSET=CORNER\n1, 4\n*SURFACE, NAME=EDGE, TYPE=NODE\nCORNER\n"
    "*SURFACE, NAME=FACES, TYPE=ELEMENT\nQUAD, S1\nQUAD, S3\n*END PART\n"
    "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=FIRST, PART=P\n*END INSTANCE\n"
    "*INSTANCE, NAME=SECOND, PART=P\n10., 0., 0.\n10., 0., 0., 10., 1., 1., 30.\n*END INSTANCE\n"
    "*NODE\n100, 5., 5., 5.\n*NSET, NSET=MIXED\n100\nFIRST.1, SECOND.5\n"
    "*ELSET, ELSET=BOTH\nFIRST.1, SECOND.2\n*SURFACE, NAME=BOTHFACES\nFIRST.FACES\nSECOND.FACES\n*END ASSEMBLY\n"
    "*NSET, NSET=STRAY\n1\n";

// The deck as the driver reads it, in this process.
struct ReadDeck {
    inp_Deck deck;
    explicit ReadDeck(const std::string& path) {
        thr_ThreadSingleton<wip_WIP>::Instance().Clear();
        deck.includeDirectory = cow_String(path.substr(0, path.rfind('/')).c_str());
        deck.Parse(cow_String(path.c_str()));
        const wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
        if (sink.ErrorCount(wip_Fatal)) return;
        deck.ExpandKeywords();
        if (sink.ErrorCount(wip_Fatal)) return;
        deck.Classify(true);
        if (sink.ErrorCount(wip_Fatal)) return;
        deck.CheckOutOfPlace();
        if (sink.ErrorCount(wip_Fatal)) return;
        deck.setModelParameters();
    }
};

std::vector<std::string> Names(const cow_List<cow_String>& list) {
    std::vector<std::string> out;
    for (int i = 0; i < list.Count(); ++i) out.push_back(list[i].c_str());
    return out;
}

std::vector<int> Ids(const cow_1DArrayList<int>& ids) {
    std::vector<int> out;
    for (int i = 0; i < ids.Count(); ++i) out.push_back(ids[i]);
    return out;
}

void ExpectSets(const json& sets, const inpM_BaseSetMap& map, const std::string& where) {
    ASSERT_EQ(sets.size(), static_cast<size_t>(map.Count())) << where;
    for (const json& s : sets) {
        const cow_String name(s["name"].get<std::string>().c_str());
        ASSERT_TRUE(map.IsMember(name)) << where << " " << s["name"];
        const inpM_BaseSet& set = map.ConstGet(name).ConstGet();
        EXPECT_EQ(s["ids"].get<std::vector<int>>(), Ids(set.ConstGetTopLevelIds())) << where << " " << name.c_str();
        std::vector<std::string> instances = Names(set.GatherRootLevelInstanceNames());
        EXPECT_EQ(s["instances"].size(), instances.size()) << where << " " << name.c_str();
        for (const std::string& i : instances)
            EXPECT_EQ(s["instances"][i].get<std::vector<int>>(), Ids(set.ConstGetSecondLevelIds(i.c_str())))
                << where << " " << name.c_str() << " " << i;
    }
}

void ExpectSurface(const json& s, const inpM_PartInstanceSurface& surface, const std::string& where) {
    switch (surface.SurfaceType()) {
    case inpM_ElementSurface: {
        ASSERT_EQ(s["kind"], "element") << where;
        const cow_Map<cow_String, cow_1DArrayList<int>> faces = surface.ConstGetFaceIdElementIdsMap();
        ASSERT_EQ(s["faces"].size(), static_cast<size_t>(faces.Count())) << where;
        for (const json& f : s["faces"])
            EXPECT_EQ(f["elements"].get<std::vector<int>>(),
                      Ids(faces.ConstGet(f["face"].get<std::string>().c_str())))
                << where;
        break;
    }
    case inpM_NodeSurface: {
        ASSERT_EQ(s["kind"], "node") << where;
        const inpM_NodeAreaList& nodes = surface.ConstGetNodeAreaList();
        ASSERT_EQ(s["nodes"].size(), static_cast<size_t>(nodes.Count())) << where;
        for (const json& n : s["nodes"]) {
            ASSERT_TRUE(nodes.HasKey(n[0].get<int>())) << where;
            EXPECT_EQ(n[1].get<double>(), nodes.ConstGet(n[0].get<int>())) << where;
        }
        break;
    }
    default:
        EXPECT_EQ(s["kind"], "analytical") << where;
    }
}

// Every field of the document against the maps.
void ExpectModel(const json& j, const inp_Deck& deck) {
    const wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    ASSERT_EQ(j["messages"].size(), static_cast<size_t>(sink.Count()));
    for (int i = 0; i < sink.Count(); ++i) {
        const json& m = j["messages"][i];
        const wip_Record& r = sink.Record(i);
        EXPECT_EQ(m["kind"], r.IsError() ? "error" : "warning");
        EXPECT_EQ(m.contains("level"), r.IsError());
        if (r.IsError()) {
            EXPECT_EQ(m["level"], r.level);
        }
        EXPECT_EQ(m["text"], r.text.c_str());
    }

    const std::vector<std::string> instances = Names(deck.instanceToPart.Instances());
    ASSERT_EQ(j["instances"].size(), instances.size());
    ASSERT_EQ(j["scopes"].size(), instances.size() + 1);
    EXPECT_EQ(j["scopes"][0]["name"], "");
    for (size_t i = 0; i < instances.size(); ++i) {
        const json& in = j["instances"][i];
        const cow_String name(instances[i].c_str());
        EXPECT_EQ(in["name"], instances[i]);
        EXPECT_EQ(in["part"], deck.instanceToPart.ConstGet(name).c_str());
        double m[4][4];
        deck.instanceTransformations.ConstGet(name).AsArray(m);
        for (int r = 0; r < 3; ++r)
            for (int c = 0; c < 4; ++c) EXPECT_EQ(in["matrix"][r][c].get<double>(), m[r][c]) << name.c_str();
        for (int c = 0; c < 3; ++c) EXPECT_EQ(in["translation"][c].get<double>(), m[c][3]);
        EXPECT_EQ(j["scopes"][i + 1]["name"], instances[i]);
    }

    for (const json& scope : j["scopes"]) {
        const std::string where = "scope \"" + scope["name"].get<std::string>() + "\"";
        const cow_String name(scope["name"].get<std::string>().c_str());
        const bool root = name.IsEmpty();
        const inp_CoordMap& nodes = root ? deck.assemblyCoordinates : deck.assemblyCoordinates.instances.ConstGet(name).ConstGet();
        ASSERT_EQ(scope["nodes"].size(), static_cast<size_t>(nodes.coords->Count())) << where;
        for (const json& n : scope["nodes"]) {
            const inp_Coord c = nodes.ConstGet(n[0].get<int>());
            EXPECT_EQ(n[1].get<double>(), c.x) << where;
            EXPECT_EQ(n[2].get<double>(), c.y) << where;
            EXPECT_EQ(n[3].get<double>(), c.z) << where;
        }
        const omi_IntTable<inp_Element>& elements =
            root ? deck.assemblyElements.ConstGet() : deck.assemblyElements.ConstGet(name);
        ASSERT_EQ(scope["elements"].size(), static_cast<size_t>(elements.Count())) << where;
        for (const json& e : scope["elements"]) {
            ASSERT_TRUE(elements.HasKey(e["id"].get<int>())) << where;
            const inp_Element& record = elements.ConstGet(e["id"].get<int>());
            EXPECT_EQ(e["type"], record.type.c_str()) << where;
            EXPECT_EQ(e["nodes"].get<std::vector<int>>(), std::vector<int>(record.nodes, record.nodes + record.numNodes))
                << where;
        }
        ExpectSets(scope["nodeSets"], root ? deck.assemblyNodeSets : deck.assemblyNodeSets.ConstGetNestedSetMap(name),
                   where + " node sets");
        ExpectSets(scope["elementSets"],
                   root ? deck.assemblyElementSets : deck.assemblyElementSets.ConstGetNestedSetMap(name),
                   where + " element sets");
        const inpM_PartInstanceSurfaceMap& surfaces = deck.assemblySurfaces.ConstGetPartInstanceSurfaceMap(name);
        ASSERT_EQ(scope["surfaces"].size(), static_cast<size_t>(surfaces.Count())) << where;
        for (const json& s : scope["surfaces"])
            ExpectSurface(s, surfaces.ConstGet(s["name"].get<std::string>().c_str()).ConstGet(),
                          where + " surface " + s["name"].get<std::string>());
    }

    const auto& assemblySurfaces = deck.assemblySurfaces.assemblyInstanceSurfaces;
    ASSERT_EQ(j["assemblySurfaces"].size(), static_cast<size_t>(assemblySurfaces.Count()));
    for (const json& s : j["assemblySurfaces"]) {
        const inpM_AssemblyInstanceSurface& surface = assemblySurfaces.ConstGet(s["name"].get<std::string>().c_str());
        EXPECT_EQ(s["instances"].size(), static_cast<size_t>(surface.instanceSurfaces.Count()));
        for (const auto& item : s["instances"].items())
            ExpectSurface(item.value(), surface.instanceSurfaces.ConstGet(item.key().c_str()).ConstGet(),
                          "assembly surface " + item.key());
        ExpectSurface(s["assemblyNodes"], surface.assemblyNodes, "assembly nodes");
    }
}

json JsonOf(const TempDir& dir, const std::string& deck, DriverRun& r) {
    r = RunDriver(dir, "--json " + Quoted(dir / "model.json") + " " + Quoted(deck));
    return json::parse(ReadFile(dir / "model.json"));
}

TEST(Json, EveryExampleDeckMatchesItsMaps) {
    TempDir dir;
    std::vector<std::string> decks = {dir.Write("two.inp", kPlacedTwice)};
    for (const char* name : {"beam.inp", "beam_mesh.inp", "bracket_assembly.inp", "contact_blocks.inp",
                             "frame_beams.inp", "shell_plate.inp", "thermal_block.inp"})
        decks.push_back(std::string(INP_EXAMPLES_DIR) + "/" + name);
    for (const std::string& deck : decks) {
        SCOPED_TRACE(deck);
        DriverRun r;
        const json j = JsonOf(dir, deck, r);
        EXPECT_EQ(j["format"], "inpdeck-model");
        EXPECT_EQ(j["version"], 1);
        EXPECT_EQ(j["deck"], deck);
        ReadDeck read(deck);
        ExpectModel(j, read.deck);
    }
}

TEST(Json, PlacementsAndMixedSetsOfTheAssembly) {
    TempDir dir;
    DriverRun r;
    const json j = JsonOf(dir, dir.Write("two.inp", kPlacedTwice), r);
    EXPECT_EQ(j["assembly"], "A");
    EXPECT_EQ(j["parts"], json::parse(R"([{"name":"P","instances":["FIRST","SECOND"],"nodes":5,"elements":3}])"));
    const json& second = j["instances"][1];
    for (int c = 0; c < 3; ++c) EXPECT_NEAR(second["translation"][c].get<double>(), c == 0 ? 10.0 : 0.0, 1e-12);
    EXPECT_NEAR(second["rotation"]["angle"].get<double>(), 30.0, 1e-9);
    for (int c = 0; c < 3; ++c)
        EXPECT_NEAR(second["rotation"]["axis"][c].get<double>(), c == 0 ? 0.0 : std::sqrt(0.5), 1e-12);
    const json& mixed = j["scopes"][0]["nodeSets"][0];
    EXPECT_EQ(mixed, json::parse(R"({"name":"MIXED","ids":[100],"instances":{"FIRST":[1],"SECOND":[5]}})"));
    // Node 5 of the turned copy, in global axes: (2, 0.5, 0.25) turned 30 degrees about
    // the axis (0, 1, 1) through the translation, then moved by it.
    const json& node = j["scopes"][2]["nodes"][4];
    EXPECT_EQ(node[0], 5);
    EXPECT_NEAR(node[1].get<double>(), 10 + 2 * std::cos(M_PI / 6) + 0.25 * std::sin(M_PI / 6) * std::sqrt(0.5) -
                                           0.5 * std::sin(M_PI / 6) * std::sqrt(0.5),
                1e-12);
}

TEST(Json, MessagesKeepTheirPlaceAndAnUnwritableTargetFails) {
    TempDir dir;
    const std::string deck =
        dir.Write("bad.inp", "*HEADING\n*NODE\n1, 0., 0., 0.\n*ELEMENT, TYPE=C3D8\n1, 1\n*NOSUCH\n");
    DriverRun r;
    const json j = JsonOf(dir, deck, r);
    EXPECT_EQ(r.status, 1);
    ASSERT_EQ(j["messages"].size(), 2u);
    // A parse message has its place beside a text that does not name it.
    EXPECT_EQ(j["messages"][0],
              json({{"kind", "error"},
                    {"level", 1},
                    {"text", "Unknown keyword \"nosuch\". The keyword may be misspelled, obsolete, or invalid."},
                    {"file", deck},
                    {"line", 6}}));
    // The text whole, the line break of its list too.
    const json& m = j["messages"][1];
    EXPECT_EQ(m, json({{"kind", "error"},
                       {"level", 1},
                       {"text", "in keyword *ELEMENT, file \"" + deck +
                                    "\", line 4: Too few nodes for element(s) of type \"C3D8\" :\n1"},
                       {"file", deck},
                       {"line", 4}}));

    DriverRun dirTarget = RunDriver(dir, "--json " + Quoted(dir.Path().string()) + " " + Quoted(deck));
    EXPECT_EQ(dirTarget.status, 2);
    EXPECT_NE(dirTarget.err.find("inpdeck: cannot write \"" + dir.Path().string() + "\""), std::string::npos) << dirTarget.err;
    DriverRun toStdout = RunDriver(dir, "--json - " + Quoted(deck));
    EXPECT_EQ(json::parse(toStdout.out), j);
}

}  // namespace
