// The model report: the table the driver writes on standard output after the messages.
#include <gtest/gtest.h>

#include <cstdio>

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

namespace {

TEST(Diagnostics, GnuFormatForMessagesThatNameAFileAndLine) {
    TempDir dir;
    dir.Write("mesh.inc", "*NODE\n1, 0., 0., 0.\n*ELEMENT, TYPE=C3D8\n1, 1\n*FOO\n");
    const std::string deck =
        dir.Write("main.inp", "*HEADING\n*INCLUDE, INPUT=mesh.inc\n*BOGUS\n*SOLID SECTION, ELSET=NONE, MATERIAL=M\n");
    DriverRun plain = RunDriver(dir, "--quiet " + Quoted(deck));
    DriverRun gnu = RunDriver(dir, "--quiet --diagnostics=gnu " + Quoted(deck));
    EXPECT_EQ(gnu.status, plain.status);
    const std::vector<std::string> before = inpdeck_test::Lines(plain.err), after = inpdeck_test::Lines(gnu.err);
    ASSERT_EQ(after.size(), before.size()) << gnu.err;
    // The text whole behind the place, whether the text names it or the reader knew it
    // apart (a keyword that cannot be read, in the deck or in an include file).
    struct Case {
        std::string plain, gnu;
    } cases[] = {
        {"error[1]: Unknown keyword \"foo\". The keyword may be misspelled, obsolete, or invalid.",
         dir / "mesh.inc" + ":5: error: Unknown keyword \"foo\". The keyword may be misspelled, obsolete, or invalid."},
        {"error[1]: Unknown keyword \"bogus\". The keyword may be misspelled, obsolete, or invalid.",
         deck + ":3: error: Unknown keyword \"bogus\". The keyword may be misspelled, obsolete, or invalid."},
        {"error[1]: in keyword *ELEMENT, file \"" + dir / "mesh.inc" +
             "\", line 3: Too few nodes for element(s) of type \"C3D8\" : 1",
         dir / "mesh.inc" + ":3: error: in keyword *ELEMENT, file \"" + dir / "mesh.inc" +
             "\", line 3: Too few nodes for element(s) of type \"C3D8\" : 1"},
    };
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_EQ(before[i], cases[i].plain);
        EXPECT_EQ(after[i], cases[i].gnu);
    }
    EXPECT_EQ(after.back(), before.back().substr(0, before.back().rfind(';')) + after.back().substr(after.back().rfind(';')));
    EXPECT_EQ(RunDriver(dir, "--diagnostics=clang " + Quoted(deck)).status, 2);
}

}  // namespace

namespace {

TEST(Progress, VerboseTellsEachPhaseAndNothingTicksIntoAPipe) {
    TempDir dir;
    const std::string deck = dir.Write("two.inp", kPlacedTwice);
    DriverRun r = RunDriver(dir, "-v --quiet --json " + Quoted(dir / "m.json") + " " + Quoted(deck));
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.err.find('\r'), std::string::npos) << r.err;
    const std::vector<std::string> lines = inpdeck_test::Lines(r.err);
    const char* phases[] = {"parse", "expand", "organize", "check", "parameters", nullptr, "json"};
    ASSERT_EQ(lines.size(), 7u) << r.err;
    for (size_t i = 0; i < lines.size(); ++i) {
        if (!phases[i]) continue;  // the summary line
        const std::string head = std::string("inpdeck: ") + phases[i] + ": ";
        EXPECT_EQ(lines[i].rfind(head, 0), 0u) << lines[i];
        double seconds = -1;
        EXPECT_EQ(std::sscanf(lines[i].c_str() + head.size(), "%lf s", &seconds), 1) << lines[i];
        EXPECT_GE(seconds, 0.0) << lines[i];
    }
    EXPECT_EQ(RunDriver(dir, "--quiet " + Quoted(deck)).err.find("inpdeck: parse:"), std::string::npos);
}

}  // namespace
