// The contact output check over the steps of a whole deck: which steps report contact
// field output for a node-based surface spanning several instances, as the OP=
// histories of contact pairs and output requests carry their lists from step to step.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp.h"

using inp_test::SinkRecords;
using inp_test::TempDir;

namespace {

// Two instances of one part. SPAN takes nodes of both; ONE and INSIDE take nodes of
// one instance, ONE at the assembly level, INSIDE in the part.
const char kModel[] =
    "*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n*NSET, NSET=TOP\n1, 2\n"
    "*SURFACE, TYPE=NODE, NAME=INSIDE\nTOP\n*END PART\n"
    "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I1, PART=P\n*END INSTANCE\n"
    "*INSTANCE, NAME=I2, PART=P\n0., 0., 5.\n*END INSTANCE\n"
    "*NSET, NSET=BOTH\nI1.1, I2.1\n*SURFACE, TYPE=NODE, NAME=SPAN\nBOTH\n"
    "*NSET, NSET=FIRST\nI1.1, I1.2\n*SURFACE, TYPE=NODE, NAME=ONE\nFIRST\n"
    "*END ASSEMBLY\n";

const char kExplicit[] = "*STEP\n*DYNAMIC, EXPLICIT\n, 1.\n";
const char kEnd[] = "*END STEP\n";

const char kMessage[] =
    "E0: Contact field output is requested for a node-based surface (*SURFACE, TYPE=NODE) spanning multiple "
    "instances in an MERLIX/Explicit analysis. This is currently not supported. Please remove the contact field "
    "output for the contact pair in question, or split the node-based surface into separate surfaces each spanning "
    "just one instance. ";

// The model, then the steps, down the driver's road; then the check. Gives how many
// times it reported, and fails the test on any other message.
int Reports(const std::string& steps, bool assumeFieldOutput) {
    TempDir dir;
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();
    sink.Clear();
    inp_Deck deck;
    deck.Parse(dir.Write("deck.inp", kModel + steps).c_str());
    deck.ExpandKeywords();
    deck.Classify(true);
    deck.CheckOutOfPlace();
    deck.setModelParameters();
    EXPECT_EQ(SinkRecords(), std::vector<std::string>{}) << steps;
    sink.Clear();
    inp_ContactCheck(deck.assemblySurfaces, deck.keywords).PerformCheck(assumeFieldOutput);
    const std::vector<std::string> records = SinkRecords();
    for (const std::string& record : records) EXPECT_EQ(record, kMessage);
    sink.Clear();
    return static_cast<int>(records.size());
}

std::string Explicit(const std::string& body) { return kExplicit + body + kEnd; }

TEST(ContactCheck, OneStepDecidesByItsOwnPairsAndRequests) {
    const struct {
        const char* what;
        std::string steps;
        int reports;
    } cases[] = {
        {"pair and request of one set", Explicit("*CONTACT PAIR, CPSET=A\nSPAN, ONE\n"
                                                 "*OUTPUT, FIELD\n*CONTACT OUTPUT, CPSET=A\nCSTRESS\n"), 1},
        {"the surface second in the pair", Explicit("*CONTACT PAIR, CPSET=A\nONE, SPAN\n"
                                                    "*OUTPUT, FIELD\n*CONTACT OUTPUT, CPSET=A\nCSTRESS\n"), 1},
        {"surfaces of one instance only", Explicit("*CONTACT PAIR\nONE, INSIDE\n"
                                                   "*OUTPUT, FIELD, VARIABLE=ALL\n*CONTACT OUTPUT\nCSTRESS\n"), 0},
        {"a scoped name is not compared", Explicit("*CONTACT PAIR\nI1.SPAN, ONE\n"
                                                   "*OUTPUT, FIELD\n*CONTACT OUTPUT\nCSTRESS\n"), 0},
        {"request for another set", Explicit("*CONTACT PAIR, CPSET=A\nSPAN, ONE\n"
                                             "*OUTPUT, FIELD\n*CONTACT OUTPUT, CPSET=B\nCSTRESS\n"), 0},
        {"pair of all sets, request for one", Explicit("*CONTACT PAIR\nSPAN, ONE\n"
                                                       "*OUTPUT, FIELD\n*CONTACT OUTPUT, CPSET=A\nCSTRESS\n"), 0},
        {"pair of all sets, request for all", Explicit("*CONTACT PAIR\nSPAN, ONE\n"
                                                       "*OUTPUT, FIELD\n*CONTACT OUTPUT\nCSTRESS\n"), 1},
        {"pair of a set, request for all", Explicit("*CONTACT PAIR, CPSET=A\nSPAN, ONE\n"
                                                    "*OUTPUT, FIELD\n*CONTACT OUTPUT\nCSTRESS\n"), 1},
        {"preselected variables", Explicit("*CONTACT PAIR, CPSET=B\nSPAN, ONE\n*OUTPUT, FIELD, VARIABLE=PRESELECT\n"), 1},
        {"history output does not count", Explicit("*CONTACT PAIR\nSPAN, ONE\n"
                                                    "*OUTPUT, HISTORY, VARIABLE=ALL\n*CONTACT OUTPUT\nCSTRESS\n"), 0},
        {"no output at all", Explicit("*CONTACT PAIR\nSPAN, ONE\n*OUTPUT, FIELD, VARIABLE=ALL, NUMBER INTERVAL=0\n"
                                      "*OUTPUT, FIELD\n*CONTACT OUTPUT\nCSTRESS\n"), 0},
        {"coupled explicit procedure", "*STEP\n*DYNAMIC TEMPERATURE-DISPLACEMENT\n, 1.\n*CONTACT PAIR\nSPAN, ONE\n"
                                       "*OUTPUT, FIELD, VARIABLE=PRESELECT\n*END STEP\n", 1},
        {"implicit dynamics", "*STEP\n*DYNAMIC\n0.1, 1.\n*CONTACT PAIR\nSPAN, ONE\n"
                              "*OUTPUT, FIELD, VARIABLE=PRESELECT\n*END STEP\n", 0},
        {"static", "*STEP\n*STATIC\n*CONTACT PAIR\nSPAN, ONE\n*OUTPUT, FIELD, VARIABLE=PRESELECT\n*END STEP\n", 0},
        // The procedure must open the step to be replayed.
        {"explicit procedure not first", "*STEP\n*CONTACT PAIR\nSPAN, ONE\n*DYNAMIC, EXPLICIT\n, 1.\n"
                                         "*OUTPUT, FIELD, VARIABLE=PRESELECT\n*END STEP\n", 0},
    };
    for (const auto& c : cases) EXPECT_EQ(Reports(c.steps, true), c.reports) << c.what;
}

TEST(ContactCheck, ADeckWithoutOutputGetsItOnlyWhenAssumed) {
    const std::string steps = Explicit("*CONTACT PAIR, CPSET=A\nSPAN, ONE\n") + Explicit("");
    EXPECT_EQ(Reports(steps, true), 2);
    EXPECT_EQ(Reports(steps, false), 0);
    // Any *OUTPUT in the deck, history output too, takes the default away.
    EXPECT_EQ(Reports(Explicit("*CONTACT PAIR, CPSET=A\nSPAN, ONE\n*OUTPUT, HISTORY\n*ENERGY OUTPUT\nALLKE\n"), true),
              0);
}

TEST(ContactCheck, HistoriesCarryFromStepToStep) {
    const std::string pairA = "*CONTACT PAIR, CPSET=A\nSPAN, ONE\n";
    const std::string pairB = "*CONTACT PAIR, CPSET=B\nSPAN, ONE\n";
    const std::string deleteA = "*CONTACT PAIR, CPSET=A, OP=DELETE\nSPAN, ONE\n";
    const auto request = [](const char* op, const char* cpset) {
        return std::string("*OUTPUT, FIELD") + op + "\n*CONTACT OUTPUT" + cpset + "\nCSTRESS\n";
    };
    const struct {
        const char* what;
        std::string steps;
        int reports;
    } cases[] = {
        // A step without *OUTPUT keeps the requests, and the pair stays until deleted.
        {"kept, then deleted", Explicit(pairA + request("", ", CPSET=A")) + Explicit("") + Explicit(deleteA), 2},
        // Deleting A takes the reserved text with it; B stays and is still asked for.
        {"one of two deleted", Explicit(pairA + pairB + request("", ", CPSET=B")) + Explicit(deleteA), 2},
        {"requests for all after a delete",
         Explicit(pairA + pairB + request("", ", CPSET=B")) + Explicit(deleteA + request("", "")), 1},
        // OP=ADD joins the earlier requests; a new request ends them.
        {"added, then renewed",
         Explicit(pairA + request("", ", CPSET=X")) + Explicit(request(", OP=ADD", ", CPSET=A")) +
             Explicit(request(", OP=NEW", ", CPSET=X")),
         1},
        {"added to", Explicit(pairA + request("", ", CPSET=A")) + Explicit(request(", OP=ADD", ", CPSET=X")), 2},
        {"replaced is not renewed",
         Explicit(pairA + request("", ", CPSET=A")) + Explicit(request(", OP=REPLACE", ", CPSET=X")), 2},
        {"number interval zero", Explicit(pairA + request("", ", CPSET=A")) +
                                     Explicit("*OUTPUT, FIELD, OP=ADD, NUMBER INTERVAL=0\n") + Explicit(""), 1},
        // A step that is not explicit is passed over, its pairs and requests with it.
        {"a static step between",
         Explicit(pairA) + "*STEP\n*STATIC\n" + request("", ", CPSET=A") + kEnd + Explicit(""), 0},
        {"pairs of an implicit step do not count",
         "*STEP\n*STATIC\n" + pairA + kEnd + Explicit(request("", ", CPSET=A")), 0},
    };
    for (const auto& c : cases) EXPECT_EQ(Reports(c.steps, false), c.reports) << c.what;
}

}  // namespace
