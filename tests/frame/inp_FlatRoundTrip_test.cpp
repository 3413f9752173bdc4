// Every deck we ship, and every deck the benchmark generator writes, read the way a
// user reads it, printed, and read back: the printed deck is an assembly deck whose
// model is the same (node ids and coordinates, elements, set and surface members).
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "../support/inp_ModelDump.h"
#include "../support/inp_TestFiles.h"
#include "inp.h"
#include "mem_BlockHeap.h"

using inp_test::ModelDump;
using inp_test::SinkRecords;
using inp_test::TempDir;
using Strings = std::vector<std::string>;

namespace {

struct Road {
    std::string model;
    Strings records;
    bool assembly = false;
};

// Parse to Classify, then the checks; with `printTo` the deck is printed there.
Road Read(const std::string& path, bool fullConversion, const std::string& printTo = "") {
    thr_ThreadSingleton<wip_WIP>::Instance().Clear();
    inp_Deck deck;
    deck.includeDirectory = std::filesystem::path(path).parent_path().string().c_str();
    deck.Parse(path.c_str());
    deck.ExpandKeywords();
    Road road;
    road.assembly = deck.isAssemblyDeck;
    deck.Classify(fullConversion);
    deck.CheckOutOfPlace();
    deck.setModelParameters();
    road.model = ModelDump(deck);
    road.records = SinkRecords();
    if (!printTo.empty()) {
        aio_ofstream out(printTo.c_str());
        deck.Print(out);
        out.close();
    }
    return road;
}

void ExpectRoundTrip(const std::string& path, bool fullConversion, bool clean) {
    SCOPED_TRACE(path + (fullConversion ? " (full)" : " (simple)"));
    TempDir dir;
    const std::string printed = dir / "printed.inp";
    // A deck that dies gives back every block it took, lines, records and tables.
    const std::size_t blocksBefore = mem_BlockHeapState().blocksInUse;
    const Road first = Read(path, fullConversion, printed);
    EXPECT_EQ(mem_BlockHeapState().blocksInUse, blocksBefore);
    if (clean) {
        EXPECT_EQ(first.records, Strings{});
    }
    EXPECT_NE(first.model.find("element "), std::string::npos) << "the deck has no model";

    const Road again = Read(printed, fullConversion);
    EXPECT_TRUE(again.assembly);
    EXPECT_EQ(again.records, Strings{});
    EXPECT_EQ(again.model, first.model);
}

Strings ExampleDecks() {
    Strings decks;
    for (const auto& entry : std::filesystem::directory_iterator(INP_EXAMPLES_DIR))
        if (entry.path().extension() == ".inp") decks.push_back(entry.path().string());
    std::sort(decks.begin(), decks.end());
    return decks;
}

}  // namespace

TEST(FlatRoundTrip, EveryExampleDeckReadsCleanAndReadsBackToTheSameModel) {
    const Strings decks = ExampleDecks();
    ASSERT_GE(decks.size(), 3u);
    for (const std::string& deck : decks) {
        // beam_mesh.inp is the mesh that beam.inp includes: a deck of its own too.
        ExpectRoundTrip(deck, true, true);
        ExpectRoundTrip(deck, false, true);
    }
}

TEST(FlatRoundTrip, EveryGeneratedDeckReadsBackToTheSameModel) {
    if (std::system("python3 --version > /dev/null 2>&1") != 0) GTEST_SKIP() << "python3 is needed";
    TempDir dir;
    for (const char* variant : {"flat", "assembly", "include"}) {
        const std::string deck = inp_test::GeneratedDeck(3, variant, dir);
        ASSERT_FALSE(deck.empty()) << variant;
        ExpectRoundTrip(deck, true, true);
    }
}
