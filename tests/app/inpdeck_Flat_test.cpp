// --flat: an assembly deck written flat by the driver and read back here gives the same
// model in global terms: coordinates per global id, connectivity, and the members of
// every set and surface under its flat name.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "../../bench/inp_DeckPhases.h"
#include "inp.h"
#include "inpdeck_Flat.h"
#include "inpdeck_Testing.h"

using inpdeck_test::DriverRun;
using inpdeck_test::Quoted;
using inpdeck_test::ReadFile;
using inpdeck_test::RunDriver;
using inpdeck_test::TempDir;

namespace {

// A plate placed twice, each copy turned about an axis off the origin; springs join the
// copies, a tie glues their surfaces, loads and supports stand on their sets; the part's
// orientation stands once in each copy.
const char kTwoPlates[] =
    "*HEADING\nTwo plates\n"
    "*PART, NAME=PLATE\n*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 2., 0., 0.\n4, 0., 1., 0.\n5, 1., 1., 0.\n"
    "6, 2., 1., 0.\n100, 1., 0.5, 1.\n"
    "*ELEMENT, TYPE=S4R, ELSET=SKIN\n1, 1, 2, 5, 4\n2, 2, 3, 6, 5\n"
    "*NSET, NSET=EDGE\n1, 4\n*NSET, NSET=TIP\n3, 6\n*ELSET, ELSET=FIRST\n1\n"
    "*SURFACE, NAME=TOP, TYPE=ELEMENT\nSKIN, SPOS\n"
    "*ORIENTATION, NAME=ORI\n1., 0., 0., 0., 1., 0.\n*SHELL SECTION, ELSET=SKIN, MATERIAL=STEEL, ORIENTATION=ORI\n0.1\n*RIGID BODY, REF NODE=100, ELSET=SKIN\n*END PART\n"
    "*ASSEMBLY, NAME=ASM\n"
    "*INSTANCE, NAME=A, PART=PLATE\n0., 0., 0.\n0., 0., 0., 0., 0., 1., 30.\n*END INSTANCE\n"
    "*INSTANCE, NAME=B, PART=PLATE\n5., 1., 0.\n1., 2., 3., 1., 2., 4., 45.\n*END INSTANCE\n"
    "*NSET, NSET=TIP\nA.TIP\n"
    "*ELEMENT, TYPE=SPRINGA, ELSET=SPRINGS\n1, A.3, B.1\n2, A.6, B.4\n"
    "*SURFACE, NAME=BOTH, TYPE=ELEMENT\nA.FIRST, SNEG\nB.FIRST, SNEG\n"
    "*SPRING, ELSET=SPRINGS\n\n100.\n*TIE, NAME=GLUE\nA.TOP, B.TOP\n*END ASSEMBLY\n"
    "*MATERIAL, NAME=STEEL\n*ELASTIC\n210000., 0.3\n"
    "*STEP\n*STATIC\n*BOUNDARY\nA.EDGE, ENCASTRE\nASM.B.1, 1, 3\n"
    "*CLOAD\nB.TIP, 2, 10.\nTIP, 1, 5.\n*DSLOAD\nBOTH, P, 1.\n*END STEP\n";

using Point = std::array<double, 3>;

// What a model is in global terms. Elements hold their type and nodes; an element of the
// assembly level whose nodes Classify could not resolve holds its type alone.
struct GlobalModel {
    std::map<int, Point> nodes;
    std::map<int, std::vector<std::string>> elements;
    std::map<std::string, std::set<int>> nodeSets, elementSets;
    std::map<std::string, std::set<std::string>> surfaces;
};

struct ReadDeck {
    inp_Deck deck;
    std::vector<std::string> records;
    explicit ReadDeck(const std::string& path) {
        wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
        sink.Clear();
        deck.includeDirectory = cow_String(path.substr(0, path.rfind('/')).c_str());
        deck.Parse(cow_String(path.c_str()));
        deck.ExpandKeywords();
        deck.Classify(true);
        deck.CheckOutOfPlace();
        for (int i = 0; i < sink.Count(); ++i) records.push_back(sink.Record(i).text.c_str());
    }
};

std::vector<cow_String> Scopes(const cow_List<cow_String>& instances) {
    std::vector<cow_String> scopes(1);
    for (int i = 0; i < instances.Count(); ++i) scopes.push_back(instances[i]);
    return scopes;
}

// Names as the flat deck gives them where nothing collides.
using Naming = std::string (*)(const cow_String& scope, const cow_String& name);
std::string Joined(const cow_String& scope, const cow_String& name) {
    return scope.IsEmpty() ? name.c_str() : std::string(scope.c_str()) + "_" + name.c_str();
}
std::string Unscoped(const cow_String&, const cow_String& name) { return name.c_str(); }

void AddSets(const inpM_SetMap& sets, Naming naming, std::map<std::string, std::set<int>>& out) {
    for (const cow_String& scope : Scopes(sets.Instances())) {
        const inpM_BaseSetMap& level = scope.IsEmpty() ? sets : sets.ConstGetNestedSetMap(scope);
        cow_ConstMapSortedIt<cow_String, inpM_SetHandle> it(level);
        for (it.First(); !it.IsDone(); it.Next()) {
            const cow_1DArrayList<int> ids = it.CurrentValue().ConstGet().ConstGetIds();
            std::set<int>& members = out[naming(scope, it.CurrentKey())];
            for (int i = 0; i < ids.Count(); ++i) members.insert(ids[i]);
        }
    }
}

void AddSurface(const inpM_PartInstanceSurface& surface, std::set<std::string>& out) {
    if (surface.SurfaceType() == inpM_ElementSurface) {
        cow_Map<cow_String, cow_1DArrayList<int>> faces = surface.ConstGetFaceIdElementIdsMap();
        cow_ConstMapSortedIt<cow_String, cow_1DArrayList<int>> it(faces);
        for (it.First(); !it.IsDone(); it.Next())
            for (int i = 0; i < it.CurrentValue().Count(); ++i)
                out.insert(std::to_string(it.CurrentValue()[i]) + " " + it.CurrentKey().c_str());
    } else if (surface.SurfaceType() == inpM_NodeSurface) {
        inpM_NodeAreaListIT it(surface.ConstGetNodeAreaList());
        for (it.First(); !it.IsDone(); it.Next())
            out.insert(std::to_string(it.CurrentKey()) + " area " + std::to_string(it.CurrentValue()));
    }
}

void AddSurfaces(const inpM_SurfaceMap& surfaces, Naming naming, std::map<std::string, std::set<std::string>>& out) {
    for (const cow_String& scope : Scopes(surfaces.Instances())) {
        if (!scope.IsEmpty() && !surfaces.partInstanceSurfaces.IsMember(scope)) continue;
        cow_ConstMapSortedIt<cow_String, inpM_SurfaceHandle> it(surfaces.ConstGetPartInstanceSurfaceMap(scope));
        for (it.First(); !it.IsDone(); it.Next()) AddSurface(it.CurrentValue().ConstGet(), out[naming(scope, it.CurrentKey())]);
    }
    cow_ConstMapSortedIt<cow_String, inpM_AssemblyInstanceSurface> it(surfaces.assemblyInstanceSurfaces);
    for (it.First(); !it.IsDone(); it.Next()) {
        std::set<std::string>& members = out[it.CurrentKey().c_str()];
        cow_ConstMapSortedIt<cow_String, inpM_SurfaceHandle> part(it.CurrentValue().instanceSurfaces);
        for (part.First(); !part.IsDone(); part.Next()) AddSurface(part.CurrentValue().ConstGet(), members);
        AddSurface(it.CurrentValue().assemblyNodes, members);
    }
}

// The model of a read deck in the ids and names of the flat deck. An assembly deck has
// its scopes laid out into one range of ids, the assembly level first, then the
// instances in byte order, and its names joined to their scope's. A deck that was read
// from a flat one keeps its ids and names.
GlobalModel Global(const inp_Deck& deck, bool readFromFlat) {
    GlobalModel g;
    const Naming naming = readFromFlat ? Unscoped : Joined;
    inp_CoordMap nodes = deck.assemblyCoordinates;
    const inpM_IdMap nodeIds = nodes.Renumber(1, readFromFlat);
    for (const cow_String& scope : Scopes(nodes.InstanceNames())) {
        const inp_CoordMap& level = scope.IsEmpty() ? nodes : nodes.instances.ConstGet(scope).ConstGet();
        const cow_IntTable<inp_Coord> table = level.ConstGet();
        omi_IntTableIterator<inp_Coord> it(table.ConstGet());
        for (it.First(); !it.IsDone(); it.Next())
            g.nodes[it.CurrentKey()] = {it.CurrentValue().x, it.CurrentValue().y, it.CurrentValue().z};
    }
    inpM_ElementMap elements = deck.assemblyElements;
    const inpM_IdMap elementIds = elements.Renumber(1, readFromFlat);
    for (const cow_String& scope : Scopes(elements.Instances())) {
        const inpM_IdMap& ids = scope.IsEmpty() ? nodeIds : nodeIds.ConstGet(scope);
        omi_IntTableIterator<inp_Element> it(scope.IsEmpty() ? elements.ConstGet() : elements.ConstGet(scope));
        for (it.First(); !it.IsDone(); it.Next()) {
            const inp_Element& e = it.CurrentValue();
            std::vector<std::string>& record = g.elements[it.CurrentKey()];
            record.push_back(e.type.c_str());
            std::vector<std::string> connected;
            for (int i = 0; i < e.numNodes; ++i)
                if (e.nodes[i] != 0) connected.push_back(std::to_string(ids.ConstGet(e.nodes[i])));
            if (static_cast<int>(connected.size()) == e.numNodes)
                record.insert(record.end(), connected.begin(), connected.end());
        }
    }
    inpM_SetMap nodeSets = deck.assemblyNodeSets, elementSets = deck.assemblyElementSets;
    nodeSets.Renumber(nodeIds, true);
    elementSets.Renumber(elementIds, true);
    AddSets(nodeSets, naming, g.nodeSets);
    AddSets(elementSets, naming, g.elementSets);
    inpM_SurfaceMap surfaces = deck.assemblySurfaces;
    surfaces.Renumber(elementIds, nodeIds, true);
    AddSurfaces(surfaces, naming, g.surfaces);
    return g;
}

// The flat deck that the driver writes of `deck`, read back; its text in `written`.
GlobalModel WrittenFlat(const TempDir& dir, const std::string& deck, std::string& written) {
    const std::string flat = dir / "flat.inp";
    const DriverRun run = RunDriver(dir, "--quiet --flat " + Quoted(flat) + " " + Quoted(deck));
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err.find("inpdeck: warning:"), std::string::npos) << run.err;
    written = ReadFile(flat);
    const ReadDeck back(flat);
    EXPECT_FALSE(back.deck.isAssemblyDeck);
    EXPECT_EQ(back.records, std::vector<std::string>{});
    return Global(back.deck, true);
}

void ExpectSameModel(const GlobalModel& expected, const GlobalModel& flat) {
    ASSERT_EQ(flat.nodes.size(), expected.nodes.size());
    for (const auto& node : expected.nodes) {
        const auto found = flat.nodes.find(node.first);
        ASSERT_NE(found, flat.nodes.end()) << "node " << node.first;
        for (int i = 0; i < 3; ++i) EXPECT_NEAR(found->second[i], node.second[i], 1e-12) << "node " << node.first;
    }
    ASSERT_EQ(flat.elements.size(), expected.elements.size());
    for (const auto& element : expected.elements) {
        const auto found = flat.elements.find(element.first);
        ASSERT_NE(found, flat.elements.end()) << "element " << element.first;
        // An assembly-level element that the model read left unresolved: its type only.
        const std::vector<std::string>& got = found->second;
        if (element.second.size() == 1)
            EXPECT_EQ(got.front(), element.second.front()) << "element " << element.first;
        else
            EXPECT_EQ(got, element.second) << "element " << element.first;
    }
    EXPECT_EQ(flat.nodeSets, expected.nodeSets);
    EXPECT_EQ(flat.elementSets, expected.elementSets);
    EXPECT_EQ(flat.surfaces, expected.surfaces);
}

// The flat deck is written into `dir` as flat.inp.
void ExpectRoundTrip(const TempDir& dir, const std::string& deck, std::string& written) {
    SCOPED_TRACE(deck);
    const ReadDeck original(deck);
    ASSERT_TRUE(original.deck.isAssemblyDeck);
    ASSERT_EQ(original.records, std::vector<std::string>{});
    const GlobalModel expected = Global(original.deck, false);
    ASSERT_FALSE(expected.elements.empty());
    ExpectSameModel(expected, WrittenFlat(dir, deck, written));
}

bool Holds(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

}  // namespace

TEST(FlatDeck, AssemblyDecksReadBackAsTheSameModelInGlobalTerms) {
    std::vector<std::string> decks = {std::string(INP_EXAMPLES_DIR) + "/bracket_assembly.inp"};
    TempDir generated;
    if (std::system("python3 --version > /dev/null 2>&1") == 0) {
        decks.push_back(inp_test::GeneratedDeck(3, "assembly", generated));
        ASSERT_FALSE(decks.back().empty());
    }
    for (const std::string& deck : decks) {
        TempDir dir;
        std::string written;
        ExpectRoundTrip(dir, deck, written);
        for (const char* block : {"*part", "*endpart", "*instance", "*endinstance", "*assembly", "*endassembly"})
            EXPECT_FALSE(Holds(written, std::string("\n") + block + "\n") || Holds(written, std::string("\n") + block + ","))
                << block;
    }
}

TEST(FlatDeck, TwoTurnedCopiesKeepTheirSetsLoadsAndConnections) {
    TempDir dir;
    const std::string deck = dir.Write("plates.inp", kTwoPlates);
    std::string written;
    ExpectRoundTrip(dir, deck, written);

    // Ids: A's nodes 1, 2, 3, 4, 5, 6, 100 are 1 to 7, B's are 8 to 14. B is moved by
    // (5, 1, 0), then turned by 45 degrees about the vertical through (1, 2).
    const ReadDeck back(dir / "flat.inp");
    const GlobalModel flat = Global(back.deck, true);
    const double h = std::sqrt(0.5);
    const Point b1 = {1 + 4 * h + 1 * h, 2 + 4 * h - 1 * h, 0}, b100 = {1 + 5 * h + 0.5 * h, 2 + 5 * h - 0.5 * h, 1};
    for (int i = 0; i < 3; ++i) {
        EXPECT_NEAR(flat.nodes.at(8)[i], b1[i], 1e-12);
        EXPECT_NEAR(flat.nodes.at(14)[i], b100[i], 1e-12);
    }
    EXPECT_EQ(flat.elements.at(1), (std::vector<std::string>{"SPRINGA", "3", "8"}));
    EXPECT_EQ(flat.elements.at(2), (std::vector<std::string>{"SPRINGA", "6", "11"}));
    EXPECT_EQ(flat.nodeSets.at("TIP"), (std::set<int>{3, 6}));
    EXPECT_EQ(flat.nodeSets.at("B_TIP"), (std::set<int>{10, 13}));

    // Each copy's orientation turned with it: A by 30 degrees, B by 45.
    for (const char* text : {"*orientation, name=A_ORI\n0.8660254037844387, 0.49999999999999994, 0., "
                             "-0.49999999999999994, 0.8660254037844387, 0.\n",
                             "*orientation, name=B_ORI\n0.7071067811865476, 0.7071067811865475, 0., "
                             "-0.7071067811865475, 0.7071067811865476, 0.\n",
                             "*shellsection, elset=A_SKIN, material=STEEL, orientation=A_ORI\n0.1\n"
                             "*rigidbody, refnode=7, elset=A_SKIN\n*orientation, name=B_ORI\n",
                             "*shellsection, elset=B_SKIN, material=STEEL, orientation=B_ORI\n0.1\n"
                             "*rigidbody, refnode=14, elset=B_SKIN\n",
                             "*spring, elset=SPRINGS\n", "*tie, name=GLUE\nA_TOP, B_TOP\n",
                             "*boundary\nA_EDGE, ENCASTRE\n8, 1, 3\n", "*cload\nB_TIP, 2, 10.\nTIP, 1, 5.\n",
                             "*dsload\nBOTH, P, 1.\n"})
        EXPECT_TRUE(Holds(written, text)) << text << "\nin\n" << written;
}

TEST(FlatDeck, ADeckWithoutPartsComesOutInNormalForm) {
    for (const char* name : {"beam.inp", "shell_plate.inp", "thermal_block.inp"}) {
        SCOPED_TRACE(name);
        TempDir dir;
        const std::string deck = std::string(INP_EXAMPLES_DIR) + "/" + name;
        const DriverRun flat = RunDriver(dir, "--quiet --flat - " + Quoted(deck));
        const DriverRun printed = RunDriver(dir, "--quiet --stop-after expand -p - " + Quoted(deck));
        EXPECT_EQ(flat.status, 0);
        EXPECT_EQ(flat.out, printed.out);
        EXPECT_FALSE(Holds(flat.out, "*part"));
    }
}

TEST(FlatDeck, UsageAndFileErrorsExitWithStatusTwo) {
    TempDir dir;
    const std::string deck = std::string(INP_EXAMPLES_DIR) + "/bracket_assembly.inp";
    const std::string unwritable = dir / "no-such-directory/flat.inp";
    struct Case {
        std::string args;
        std::string message;
    };
    const Case cases[] = {
        {Quoted(deck) + " --flat", "inpdeck: missing value after --flat\n"},
        {"--flat " + Quoted(unwritable) + " " + Quoted(deck), "inpdeck: cannot write \"" + unwritable + "\"\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.args);
        const DriverRun run = RunDriver(dir, "--quiet " + c.args);
        EXPECT_EQ(run.status, 2);
        EXPECT_TRUE(Holds(run.err, c.message)) << run.err;
    }
}

// The driver has reported the sink before it writes; a caller in process, such as the
// fuzz harness, finds the sink as the phases left it, not with the second reading's
// messages added.
TEST(FlatDeck, ReadingAFlatDeckAgainLeavesTheSinkAsItWas) {
    TempDir dir;
    const std::string deck = dir.Write("periods.inp", "*NODE\n1, 0., 0., 0.\n*NSET, NSET=A.B\n1\n");
    ReadDeck read(deck);
    ASSERT_FALSE(read.deck.isAssemblyDeck);
    ASSERT_EQ(read.records.size(), 1u);
    inp_phases::NullStream out;
    std::vector<std::string> messages;
    EXPECT_TRUE(inpdeck::WriteFlatDeck(out, read.deck, messages));
    EXPECT_GT(out.Bytes(), 0u);
    const wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    ASSERT_EQ(sink.Count(), 1);
    EXPECT_EQ(sink.Record(0).text.c_str(), read.records[0]);
    EXPECT_EQ(messages, std::vector<std::string>{});
}
