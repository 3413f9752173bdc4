// Generators (and the layers of a stacked element) whose ids, increments or shifts would
// leave the id range: each is refused with one message and makes nothing, whatever the
// int arithmetic would have wrapped to.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../support/inp_TestFiles.h"
#include "inp.h"

using inp_test::TempDir;

namespace {

// Part P holds nodes 1 and 2 (sets A and B) and element 1 on them (set E1); the
// generator under test follows them.
std::string DeckWith(const std::string& generator) {
    return "*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n*NSET, NSET=A\n1\n*NSET, NSET=B\n2\n"
           "*ELEMENT, TYPE=T3D2, ELSET=E1\n1, 1, 2\n" +
           generator +
           "*END PART\n*ASSEMBLY, NAME=ASM\n*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n*END ASSEMBLY\n";
}

std::string OutOfRange(const char* keyword, const char* id) {
    return std::string("The generation on the ") + keyword + " keyword gives the id " + id +
           ", outside the range of ids from 1 to 999999999.";
}

std::vector<std::string> Errors() {
    std::vector<std::string> errors;
    for (const std::string& r : inp_test::SinkRecords())
        if (r[0] == 'E') errors.push_back(r);
    return errors;
}

}  // namespace

TEST(GeneratedIdRange, GeneratorsRefuseIdsOutsideTheRange) {
    struct Case {
        const char* generator;
        std::string message;  // empty: the generation runs
        int nodes, elements;
    };
    const Case cases[] = {
        {"*NFILL\nA, B, 2, 2147483647\n", OutOfRange("*NFILL", "2147483648"), 2, 1},
        {"*NFILL\nA, B, 3, -5\n", OutOfRange("*NFILL", "-9"), 2, 1},
        {"*NFILL\nA, B, 2, 999999998\n", "", 3, 1},
        {"*NCOPY, CHANGE NUMBER=2147483647, OLD SET=B, SHIFT\n0., 0., 1.\n", OutOfRange("*NCOPY", "2147483649"), 2,
         1},
        {"*NCOPY, CHANGE NUMBER=-1, OLD SET=A, SHIFT, MULTIPLE=3\n0., 0., 1.\n", OutOfRange("*NCOPY", "-2"), 2, 1},
        {"*NODE\n7, 0., 1., 0.\n*NGEN\n1, 7, -3\n", OutOfRange("*NGEN", "-2"), 3, 1},
        {"*ELCOPY, ELEMENT SHIFT=10, OLD SET=E1, SHIFT NODES=2147483647\n", OutOfRange("*ELCOPY", "2147483649"), 2,
         1},
        {"*ELCOPY, ELEMENT SHIFT=999999999, OLD SET=E1, SHIFT NODES=2\n", OutOfRange("*ELCOPY", "1000000000"), 2, 1},
        {"*ELCOPY, ELEMENT SHIFT=999999998, OLD SET=E1, SHIFT NODES=0\n", "", 2, 2},
        {"*ELGEN\n1, 2, 2147483647, 1\n", OutOfRange("*ELGEN", "2147483648"), 2, 1},
        {"*ELGEN\n1, 3, 1, 1, 2, -5, 10\n", OutOfRange("*ELGEN", "-4"), 2, 1},
        {"*ELGEN\n1, 3, 1, -3\n", OutOfRange("*ELGEN", "-5"), 2, 1},
        // The top layer of a stacked element lies OFFSET above its bottom.
        {"*ELEMENT, TYPE=COH3D8, OFFSET=2147483647\n2, 1, 2, 1, 2\n", OutOfRange("*ELEMENT", "2147483648"), 2, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.generator);
        TempDir dir;
        inp_Deck deck;
        deck.Parse(dir.Write("deck.inp", DeckWith(c.generator)).c_str());
        deck.ExpandKeywords();
        thr_ThreadSingleton<wip_WIP>::Instance().Clear();
        deck.Classify(true);

        const std::vector<std::string> errors = Errors();
        if (c.message.empty()) {
            EXPECT_EQ(errors, std::vector<std::string>{});
        } else {
            ASSERT_EQ(errors.size(), 1u);
            EXPECT_NE(errors[0].find(c.message), std::string::npos) << errors[0];
        }
        EXPECT_EQ(deck.partCoordinates.instances.ConstGet(cow_String("P")).ConstGet().Count(), c.nodes);
        EXPECT_EQ(deck.partElements.ConstGet(cow_String("P")).Count(), c.elements);
    }
}
