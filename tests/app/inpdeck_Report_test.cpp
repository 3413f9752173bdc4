// The model report: the table the driver writes on standard output after the messages.
#include <gtest/gtest.h>

#include "inpdeck_Testing.h"

using inpdeck_test::DriverRun;
using inpdeck_test::Quoted;
using inpdeck_test::RunDriver;
using inpdeck_test::TempDir;

namespace {

// One part placed twice, the second copy moved and turned a quarter about z, and an
// element set of the assembly that reaches into both.
const char kPlacedTwice[] =
    "*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n4, 0., 1., 0.\n5, 2., 0., 0.\n"
    "*ELEMENT, TYPE=CPS4, ELSET=QUAD\n1, 1, 2, 3, 4\n*ELEMENT, TYPE=T2D2, ELSET=BAR\n2, 2, 5\n3, 3, 5\n"
    "*NSET, NSET=CORNER\n1\n*SURFACE, NAME=EDGE, TYPE=NODE\nCORNER\n*END PART\n"
    "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=FIRST, PART=P\n*END INSTANCE\n"
    "*INSTANCE, NAME=SECOND, PART=P\n10., 0., 0.\n10., 0., 0., 10., 0., 1., 90.\n*END INSTANCE\n"
    "*ELSET, ELSET=BOTH\nFIRST.1, SECOND.1\n*END ASSEMBLY\n";

TEST(Report, TableOfPartsAssemblyAndInstancesWithPlacements) {
    TempDir dir;
    const std::string deck = dir.Write("two.inp", kPlacedTwice);
    DriverRun r = RunDriver(dir, Quoted(deck));
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out,
              "model:\n"
              "  scope     name    nodes  elements  node sets  element sets  surfaces  elements by type\n"
              "  assembly  A           0         0          0             1         0\n"
              "  part      P           5         3          1             2         1  CPS4 1, T2D2 2\n"
              "  instance  FIRST       5         3          1             2         1  CPS4 1, T2D2 2\n"
              "  instance  SECOND      5         3          1             2         1  CPS4 1, T2D2 2\n"
              "\n"
              "  instance  part  translation  rotation\n"
              "  FIRST     P     0 0 0        none\n"
              "  SECOND    P     10 0 0       90 degrees about 0 0 1 through 10 0 0\n");
}

TEST(Report, QuietAndOtherUsesOfStandardOutputLeaveItOut) {
    TempDir dir;
    const std::string deck = dir.Write("two.inp", kPlacedTwice);
    struct Case {
        const char* options;
        bool report;
    } cases[] = {
        {"", true},
        {"--quiet", false},
        {"--tree", false},
        {"-p -", false},
        {"--stop-after parse", true},  // nothing organized: a one-line report
    };
    for (const Case& c : cases) {
        DriverRun r = RunDriver(dir, std::string(c.options) + " " + Quoted(deck));
        EXPECT_EQ(r.status, 0) << c.options << r.err;
        EXPECT_EQ(r.out.find("model:") != std::string::npos, c.report) << c.options << "\n" << r.out;
        // The messages and the summary line stay whatever happens to the report.
        EXPECT_NE(r.err.find("inpdeck: " + deck + ": "), std::string::npos) << c.options;
    }
    EXPECT_EQ(RunDriver(dir, "--stop-after parse " + Quoted(deck)).out, "model: none\n");
}

}  // namespace
