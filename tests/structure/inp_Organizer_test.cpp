// The organizer as a deck meets it: which keyword ends up under which, what is reported
// when a keyword fits nowhere, and what the deck makes of the result.
#include <gtest/gtest.h>

#include <sstream>

#include "../support/inp_TestFiles.h"
#include "inp.h"
#include "inp_Organizer.h"

using inp_test::TempDir;

namespace {

wip_WIP& Sink() { return thr_ThreadSingleton<wip_WIP>::Instance(); }

const char kMisplaced[] = "The keyword is misplaced. It can be suboption for the following keyword(s)/level(s): ";
const char kSerious[] = "E0: Serious errors were detected in the input file or parts/assembly structure.";

// Canonical names separated by blanks, one keyword a line of deck.inp; "-" is a blank
// keyword, as a pass leaves one behind.
cow_1DArrayList<inp_Keyword> Flat(const std::string& names) {
    cow_1DArrayList<inp_Keyword> list;
    std::istringstream in(names);
    int line = 0;
    for (std::string name; in >> name;) {
        inp_Keyword k = name == "-" ? inp_Keyword() : inp_Keyword(cow_String(name.c_str()));
        EXPECT_TRUE(name == "-" || k.keyword != inp_kwUndefined) << name;
        k.fileName = "deck.inp";
        k.lineNumber = ++line;
        list.Append(k);
    }
    return list;
}

// "a(b c) d": b and c stand under a. A keyword whose parent is not its owner's value
// (0 at the top) shows it as "b^parent".
std::string Tree(const cow_1DArrayList<inp_Keyword>& list, inp_KeywordEnm owner = inp_kwUndefined) {
    std::string out;
    for (int i = 0; i < list.Count(); ++i) {
        const inp_Keyword& k = list.ConstGet(i);
        if (i) out += ' ';
        out += k.Name().c_str();
        if (k.parent != owner) out += "^" + std::to_string(k.parent);
        if (!k.suboptions.IsEmpty()) out += "(" + Tree(k.suboptions, k.keyword) + ")";
    }
    return out;
}

std::vector<std::string> Records() { return inp_test::SinkRecords(); }

std::string Misplaced(const std::string& name, int line, const std::string& parents) {
    return "E1: in keyword *" + name + ", file \"deck.inp\", line " + std::to_string(line) + ": " + kMisplaced +
           parents;
}

struct Case {
    const char* deck;
    const char* tree;
    std::vector<std::string> records;
};

void Check(const Case& c) {
    Sink().Clear();
    inp_Organizer organizer(Flat(c.deck));
    cow_1DArrayList<inp_Keyword> organized = organizer.Organize();
    EXPECT_EQ(Tree(organized), c.tree) << c.deck;
    EXPECT_EQ(Records(), c.records) << c.deck;
}

// The sink keeps only what the organizer said.
void ReadAndReorganize(inp_Deck& deck, const std::string& path) {
    deck.Parse(path.c_str());
    deck.ExpandKeywords();
    Sink().Clear();
    deck.ReorganizeKeywords(false);
}

}  // namespace

TEST(Organizer, PlacesEachKeywordUnderTheInnermostOpenKeywordThatListsIt) {
    const Case cases[] = {
        {"", "", {}},
        {"material elastic", "material(elastic)", {}},
        // An outer keyword lists it: the inner ones close on the way.
        {"material elastic density material", "material(elastic density) material", {}},
        {"step static boundary endstep", "step(static boundary) endstep", {}},
        // The model level and a part both take *NSET: inside the part, the part wins.
        {"part nset endpart nset", "part(nset) endpart nset", {}},
        {"assembly instance node endinstance nset endassembly",
         "assembly(instance(node) endinstance nset) endassembly", {}},
        // Unclosed blocks close at the end without a word; the structural checks tell.
        {"part node", "part(node)", {}},
        // A removed keyword is no keyword: it neither closes nor is reported.
        {"part - node endpart", "part(node) endpart", {}},
    };
    for (const Case& c : cases) Check(c);
}

TEST(Organizer, AKeywordThatFitsNowhereIsReportedAtOnceAndDropped) {
    const Case cases[] = {
        // Only *END PART leaves a part; the part stays open for what follows.
        {"part material node endpart",
         "part(node) endpart",
         {Misplaced("MATERIAL", 2, "model"), kSerious}},
        {"part part node endpart", "part(node) endpart", {Misplaced("PART", 2, "model"), kSerious}},
        {"assembly instance material endinstance endassembly",
         "assembly(instance endinstance) endassembly",
         {Misplaced("MATERIAL", 3, "model"), kSerious}},
        // No open keyword lists it.
        {"heading node", "heading", {Misplaced("NODE", 2, "assembly, instance, part"), kSerious}},
        {"instance", "", {Misplaced("INSTANCE", 1, "assembly"), kSerious}},
        // *CONFLICTS is in no list at all. On its way to the top it closes the open
        // keywords that are no blocks, so what would have gone under them is lost too.
        {"heading conflicts", "heading", {Misplaced("CONFLICTS", 2, ""), kSerious}},
        {"part node conflicts element endpart", "part(node element) endpart",
         {Misplaced("CONFLICTS", 3, ""), kSerious}},
        {"material elastic conflicts density",
         "material(elastic)",
         {Misplaced("CONFLICTS", 3, ""), Misplaced("DENSITY", 4, "material"), kSerious}},
    };
    for (const Case& c : cases) Check(c);

    // The whole text once, as a user reads it.
    Sink().Clear();
    inp_Organizer(Flat("endpart")).Organize();
    ASSERT_EQ(Sink().Count(), 1);
    EXPECT_EQ(std::string(Sink().Record(0).text.c_str()),
              "in keyword *ENDPART, file \"deck.inp\", line 1: The keyword is misplaced. It can be suboption for the "
              "following keyword(s)/level(s): model");
}

TEST(Organizer, ClosingKeywordWithoutItsBlockIsMisplacedButNotSerious) {
    const Case cases[] = {
        {"endpart", "", {Misplaced("ENDPART", 1, "model")}},
        {"part node endpart endpart", "part(node) endpart", {Misplaced("ENDPART", 4, "model")}},
        {"material endpart", "material", {Misplaced("ENDPART", 2, "model")}},
        {"assembly endinstance endassembly", "assembly endassembly", {Misplaced("ENDINSTANCE", 2, "assembly")}},
    };
    for (const Case& c : cases) Check(c);
}

TEST(Organizer, AfterTheFirstStepTheTopLevelTakesOnlySteps) {
    const Case cases[] = {
        {"step static endstep step frequency endstep", "step(static) endstep step(frequency) endstep", {}},
        {"step static endstep material", "step(static) endstep", {Misplaced("MATERIAL", 4, "model"), kSerious}},
        // Without *END STEP the step closes just the same.
        {"step static boundary material", "step(static boundary)", {Misplaced("MATERIAL", 4, "model"), kSerious}},
        // *BOUNDARY is model data too, when it comes after a step at the top level.
        {"boundary step static endstep boundary", "boundary step(static) endstep",
         {Misplaced("BOUNDARY", 5, "substructureloadcase, model, loadcase, step"), kSerious}},
    };
    for (const Case& c : cases) Check(c);
}

TEST(Organizer, OutputRequestsAreGatheredAcrossOtherKeywords) {
    const Case cases[] = {
        {"step output nodeoutput restart elementoutput endstep",
         "step(output(nodeoutput elementoutput) restart) endstep", {}},
        {"step output controls elementoutput", "step(output(elementoutput) controls)", {}},
        // Each *FILE OUTPUT takes only its own kinds; *NODE PRINT stays under the step.
        {"step fileoutput nodeprint nodefile", "step(fileoutput(nodefile) nodeprint)", {}},
        // The next request of the same kind takes what follows it.
        {"step output nodeoutput output elementoutput", "step(output(nodeoutput) output(elementoutput))", {}},
        // Gathering ends with the step.
        {"step output endstep step elementoutput",
         "step(output) endstep step",
         {Misplaced("ELEMENTOUTPUT", 5, "output"), kSerious}},
        // A misplaced request drops what it gathered with it.
        {"output nodeoutput heading", "heading", {Misplaced("OUTPUT", 1, "step, postoutput"), kSerious}},
    };
    for (const Case& c : cases) Check(c);
}

TEST(Organizer, TheDeckOrganizesAnAssemblyDeckAndAFlatOneAfterItsConversion) {
    TempDir dir;
    const std::string assembly = dir.Write("assembly.inp",
                                           "*HEADING\n*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n*END PART\n"
                                           "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n"
                                           "*END ASSEMBLY\n*STEP\n*STATIC\n*OUTPUT\n*CONTROLS\n*NODE OUTPUT\nU\n"
                                           "*END STEP\n*NODE\n2, 0., 0., 0.\n");
    inp_Deck deck;
    ReadAndReorganize(deck, assembly);
    ASSERT_TRUE(deck.isAssemblyDeck);
    EXPECT_EQ(Tree(deck.keywords),
              "heading part(node) endpart assembly(instance endinstance) endassembly "
              "step(static output(nodeoutput) controls) endstep");
    std::vector<std::string> records = Records();
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0], "E1: in keyword *NODE, file \"" + assembly + "\", line 17: " + kMisplaced +
                              "assembly, instance, part");
    EXPECT_EQ(records[1], kSerious);
    // Keywords move with their data.
    EXPECT_EQ(deck.keywords.ConstGet(1).suboptions.ConstGet(0).data.NumberOfLines(), 1);

    const std::string flat = dir.Write("flat.inp", "*NODE\n1, 0., 0., 0.\n*MATERIAL\n*ELASTIC\n1., 0.3\n");
    inp_Deck flatDeck;
    ReadAndReorganize(flatDeck, flat);
    ASSERT_FALSE(flatDeck.isAssemblyDeck);
    // The node went into the part's map; the keywords stand in the assembly form.
    EXPECT_EQ(Tree(flatDeck.keywords), "part endpart material(elastic) assembly(instance endinstance) endassembly");
    EXPECT_EQ(Sink().Count(), 0);
}
