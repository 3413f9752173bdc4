// The driver as a user meets it: messages on standard error, the summary line, the
// printed deck, and the exit status.
#include <gtest/gtest.h>

#include <cstdlib>

#include "inpdeck_Testing.h"

using inp_test::ReadFile;
using inp_test::TempDir;

using inpdeck_test::DriverRun;
using inpdeck_test::Lines;
using inpdeck_test::Quoted;
using inpdeck_test::RunDriver;

namespace {

TEST(Driver, ExampleDeckReadsWithoutErrors) {
    TempDir dir;
    const std::string deck = std::string(INP_EXAMPLES_DIR) + "/beam.inp";
    DriverRun r = RunDriver(dir, Quoted(deck) + " --stop-after parse -p " + Quoted(dir / "beam.out"));
    EXPECT_EQ(r.status, 0) << r.err;
    std::vector<std::string> lines = Lines(r.err);
    ASSERT_EQ(lines.size(), 1u) << r.err;
    EXPECT_EQ(lines[0].rfind("inpdeck: " + deck + ": 18 keywords, 66 data lines; model: 0 parts, 0 instances, 0 nodes, "
                             "0 elements, 0 node sets, 0 element sets, 0 surfaces; errors: 0 fatal, 0 non-fatal, "
                             "0 serious; 0 warnings; ", 0), 0u)
        << lines[0];

    // The normal form reads back without a message and prints the same again.
    const std::string printed = ReadFile(dir / "beam.out");
    EXPECT_EQ(printed.rfind("*heading\nCANTILEVERBEAM, C3D8BRICKS, STATICTIPLOAD\n*node, nset=ALLNODES\n", 0), 0u);
    DriverRun again = RunDriver(dir, "--stop-after parse -p - " + Quoted(dir / "beam.out"));
    EXPECT_EQ(again.status, 0) << again.err;
    EXPECT_EQ(again.out, printed);
}

TEST(Driver, MessagesGoToStandardErrorOneLineEach) {
    TempDir dir;
    const std::string deck = dir.Write("bad.inp", "*HEADING\n*BOGUS\n*INCLUDE, INPUT=nope.inp\n*NSET, \"A\"=1\n");
    DriverRun r = RunDriver(dir, Quoted(deck));
    EXPECT_EQ(r.status, 1);
    std::vector<std::string> lines = Lines(r.err);
    ASSERT_EQ(lines.size(), 4u) << r.err;
    EXPECT_EQ(lines[0], "error[0]: Include file \"nope.inp\" does not exist.");
    EXPECT_EQ(lines[1], "error[1]: Unknown keyword \"bogus\". The keyword may be misspelled, obsolete, or invalid.");
    EXPECT_EQ(lines[2],
              "error[1]: Problem when parsing keyword: NSET     Invalid parameter: \"A\"=1. The parameter may be "
              "misspelled, obsolete, or invalid.");
    EXPECT_EQ(lines[3].rfind("inpdeck: " + deck + ": 1 keywords, 0 data lines; model: 0 parts, 0 instances, 0 nodes, "
                             "0 elements, 0 node sets, 0 element sets, 0 surfaces; errors: 1 fatal, 2 non-fatal, "
                             "0 serious; 0 warnings; ", 0), 0u)
        << lines[3];
}

TEST(Driver, IncludeDirectoryDefaultsToTheDeckDirectory) {
    TempDir dir;
    dir.Write("lib/mesh.inc", "*NODE\n1, 0., 0., 0.\n");
    const std::string deck = dir.Write("decks/main.inp", "*INCLUDE, INPUT=mesh.inc\n");
    dir.Write("decks/mesh.inc", "*HEADING\n");
    DriverRun here = RunDriver(dir, "--stop-after expand -p - " + Quoted(deck));
    EXPECT_EQ(here.status, 0) << here.err;
    EXPECT_EQ(here.out, "*heading\n");
    DriverRun lib = RunDriver(dir, "--stop-after expand -I " + Quoted(dir / "lib") + " -p - " + Quoted(deck));
    EXPECT_EQ(lib.status, 0) << lib.err;
    EXPECT_EQ(lib.out, "*node\n1, 0., 0., 0., 0., 0., 0.\n");
}

TEST(Driver, TreeShowsTheDeckAsTheLastPhaseLeftIt) {
    TempDir dir;
    const std::string deck = dir.Write("a.inp",
                                       "*HEADING\n*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n*END PART\n*ASSEMBLY, NAME=A\n"
                                       "*INSTANCE, NAME=I, PART=P\n*END INSTANCE\n*END ASSEMBLY\n*STEP\n*STATIC\n"
                                       "*END STEP\n*MATERIAL, NAME=M\n");
    const std::string at = ", file \"" + deck + "\", line ";
    DriverRun r = RunDriver(dir, "--tree " + Quoted(deck));
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "*HEADING" + at + "1\n*PART" + at + "2\n  *NODE" + at + "3\n*ENDPART" + at + "5\n*ASSEMBLY" +
                         at + "6\n  *INSTANCE" + at + "7\n  *ENDINSTANCE" + at + "8\n*ENDASSEMBLY" + at + "9\n*STEP" +
                         at + "10\n  *STATIC" + at + "11\n*ENDSTEP" + at + "12\n");
    std::vector<std::string> lines = Lines(r.err);
    ASSERT_EQ(lines.size(), 3u) << r.err;
    EXPECT_EQ(lines[0], "error[1]: in keyword *MATERIAL" + at +
                            "13: The keyword is misplaced. It can be suboption for the following keyword(s)/level(s): "
                            "model");
    EXPECT_EQ(lines[1], "error[0]: Serious errors were detected in the input file or parts/assembly structure.");

    DriverRun expanded = RunDriver(dir, "--stop-after expand --tree " + Quoted(deck));
    EXPECT_EQ(expanded.status, 0) << expanded.err;
    // Flat before the organizer: every keyword, the misplaced one too, at the top.
    lines = Lines(expanded.out);
    ASSERT_EQ(lines.size(), 12u) << expanded.out;
    EXPECT_EQ(lines[2], "*NODE" + at + "3");
    EXPECT_EQ(lines[11], "*MATERIAL" + at + "13");
}

TEST(Driver, StructuralChecksRunBehindTheOrganizer) {
    TempDir dir;
    const std::string deck = dir.Write("twice.inp",
                                       "*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n*END PART\n*ASSEMBLY, NAME=A\n"
                                       "*INSTANCE, NAME=I, PART=P\n*NODE\n2, 1., 0., 0.\n*END INSTANCE\n"
                                       "*END ASSEMBLY\n");
    EXPECT_EQ(RunDriver(dir, "--stop-after organize " + Quoted(deck)).status, 0);
    DriverRun r = RunDriver(dir, "--stop-after check " + Quoted(deck));
    EXPECT_EQ(r.status, 1);
    std::vector<std::string> lines = Lines(r.err);
    ASSERT_EQ(lines.size(), 2u) << r.err;  // the message and the summary
    EXPECT_EQ(lines[0], "error[1]: Node and element data may only be defined in the instance or the part, not "
                        "both.  The following instance/part pairs attempt to do so:  Instance: I Part:P");
}

TEST(Driver, UsageAndFileErrorsExitWithTwo) {
    TempDir dir;
    const std::string deck = dir.Write("ok.inp", "*HEADING\n");
    struct Case {
        std::string args;
        std::string firstLine;
    } cases[] = {
        {"", "usage: inpdeck [options] DECK"},
        {Quoted(dir / "absent.inp"), "inpdeck: cannot read deck \"" + (dir / "absent.inp") + "\": no such file"},
        {Quoted(dir.Path().string()),
         "inpdeck: cannot read deck \"" + dir.Path().string() + "\": it is a directory"},
        {"/dev/zero", "inpdeck: cannot read deck \"/dev/zero\": not a regular file"},
        {"--bogus " + Quoted(deck), "inpdeck: unknown option: --bogus"},
        {"--stop-after expnd " + Quoted(deck), "inpdeck: unknown phase: expnd"},
        {Quoted(deck) + " " + Quoted(deck), "inpdeck: more than one deck: " + deck},
        {Quoted(deck) + " -p", "inpdeck: missing value after -p"},
        {"--max-messages -1 " + Quoted(deck), "inpdeck: invalid message count: -1"},
        {"--max-messages 12x " + Quoted(deck), "inpdeck: invalid message count: 12x"},
        {Quoted(deck) + " --max-messages", "inpdeck: missing value after --max-messages"},
        {"-p " + Quoted(dir / "no/such/dir/out.inp") + " " + Quoted(deck),
         "inpdeck: cannot write \"" + (dir / "no/such/dir/out.inp") + "\""},
    };
    for (const Case& c : cases) {
        DriverRun r = RunDriver(dir, c.args);
        EXPECT_EQ(r.status, 2) << c.args;
        std::vector<std::string> lines = Lines(r.err);
        ASSERT_FALSE(lines.empty()) << c.args;
        // The unwritable output comes after the summary of the deck that was read.
        EXPECT_EQ(c.args.rfind("-p ", 0) == 0 ? lines.back() : lines[0], c.firstLine) << c.args;
    }
}

TEST(Driver, KeywordLookupResolvesAsADeckLineWould) {
    TempDir dir;
    DriverRun r = RunDriver(dir, "keyword '*Beam General Section'");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out,
              "BEAMGENERALSECTION\n"
              "  canonical name   beamgeneralsection\n"
              "  value            49\n"
              "  may stand under  instance, part\n"
              "  suboptions       axial, beamaddedinertia, beamfluidinertia, centroid, damping, m1, m2, "
              "sectionpoints, shearcenter, thermalexpansion, torque, transverseshearstiffness\n");

    DriverRun bad = RunDriver(dir, "keyword '*contact p'");
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.err, "error: Ambiguous keyword definition \"contactp\".\n");
    DriverRun unknown = RunDriver(dir, "keyword NODEFOO");
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.err, "error: Unknown keyword \"nodefoo\". The keyword may be misspelled, obsolete, or invalid.\n");
}

// 30 unknown keywords give 26 messages and a closing line; with a warning behind
// them from a later phase the hidden ones are counted by level.
TEST(Driver, MessagesBeyondTheLimitAreCountedByLevel) {
    TempDir dir;
    std::string text;
    for (int i = 0; i < 30; ++i) text += "*BOGUS" + std::to_string(i) + "\n";
    const std::string deck = dir.Write("many.inp", text + "*HEADING\n");
    struct Case {
        const char* option;
        size_t messages;
        const char* hidden;  // the line behind the messages, or null
    } cases[] = {
        {"--max-messages 5", 5,
         "inpdeck: 22 more messages not shown: 0 fatal, 22 non-fatal, 0 serious errors, 0 warnings "
         "(--max-messages 0 shows all)"},
        {"--max-messages 27", 27, nullptr},
        {"--max-messages 0", 27, nullptr},
        {"", 27, nullptr},
    };
    for (const Case& c : cases) {
        DriverRun r = RunDriver(dir, std::string(c.option) + " " + Quoted(deck));
        EXPECT_EQ(r.status, 1) << c.option;
        std::vector<std::string> lines = Lines(r.err);
        ASSERT_EQ(lines.size(), c.messages + (c.hidden ? 2 : 1)) << c.option;
        EXPECT_EQ(lines[c.messages - 1].rfind("error[1]: ", 0), 0u) << c.option;
        if (c.hidden) {
            EXPECT_EQ(lines[c.messages], c.hidden);
        }
        // The one keyword of the deck, in a flat deck's assembly form.
        EXPECT_EQ(lines.back().rfind("inpdeck: " + deck + ": 7 keywords", 0), 0u) << lines.back();
    }

    // Two thousand readings of that file: the default shows a thousand messages.
    dir.Write("many.inc", text);
    std::string includes = "*HEADING\n";
    for (int i = 0; i < 2000; ++i) includes += "*INCLUDE, INPUT=many.inc\n";
    DriverRun r = RunDriver(dir, "--stop-after parse " + Quoted(dir.Write("includes.inp", includes)));
    std::vector<std::string> lines = Lines(r.err);
    ASSERT_EQ(lines.size(), 1002u);
    EXPECT_EQ(lines[1000],
              "inpdeck: 53000 more messages not shown: 0 fatal, 53000 non-fatal, 0 serious errors, 0 warnings "
              "(--max-messages 0 shows all)");
}

// A deck's bytes reach the terminal in messages (keyword names, data items, file names)
// and in the tree; none of them may be a control byte or a broken UTF-8 sequence.
TEST(Driver, DeckBytesCannotDriveTheTerminal) {
    TempDir dir;
    const std::string included = "in\x1b[1mc.inp";
    dir.Write(included, "*NSET, NSET=A\n1\n");
    const std::string deck = dir.Write(
        "deck.inp", "*HEADING\n*BOGUS\x1b]0;title\x07\n*INCLUDE, INPUT=" + included +
                        "\n*INCLUDE, INPUT=gone\x1b[2J\xff\xc2\x9b\xc3\xa9.inp\n*NSET, NSET=\"A\x1b[31m\"\n1\n");
    DriverRun r = RunDriver(dir, "--tree --stop-after parse " + Quoted(deck));
    for (const std::string* text : {&r.err, &r.out}) {
        for (const char c : *text) {
            const unsigned char u = static_cast<unsigned char>(c);
            EXPECT_TRUE(u >= 0x20 || c == '\n') << "control byte " << int(u);
            EXPECT_NE(u, 0xff);
        }
        EXPECT_EQ(text->find("\xc2\x9b"), std::string::npos);
    }
    EXPECT_NE(r.err.find("error[0]: Include file \"gone?[2J???\xc3\xa9.inp\" does not exist."), std::string::npos)
        << r.err;
    EXPECT_NE(r.err.find("error[1]: Unknown keyword \"bogus?]0;title?\""), std::string::npos) << r.err;
    EXPECT_NE(r.out.find("in?[1mc.inp"), std::string::npos) << r.out;
}

TEST(Driver, VersionHelpAndUsage) {
    TempDir dir;
    EXPECT_EQ(RunDriver(dir, "--version").out, std::string("inpdeck ") + INP_TEST_VERSION + "\n");
    DriverRun help = RunDriver(dir, "--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("usage: inpdeck"), std::string::npos);
    EXPECT_EQ(RunDriver(dir, "keyword").status, 2);
}

}  // namespace

// A flat deck gets its model: the summary counts it, and the printed deck is in the
// assembly form, by either route.
TEST(Driver, AFlatDeckIsConvertedAndItsModelCounted) {
    TempDir dir;
    const std::string deck = std::string(INP_EXAMPLES_DIR) + "/shell_plate.inp";
    for (const char* route : {"", "--simple "}) {
        DriverRun r = RunDriver(dir, std::string(route) + "-p - " + Quoted(deck));
        EXPECT_EQ(r.status, 0) << r.err;
        std::vector<std::string> lines = Lines(r.err);
        ASSERT_EQ(lines.size(), 1u) << r.err;
        EXPECT_NE(lines[0].find("; model: 1 parts, 1 instances, 25 nodes, 16 elements, 9 node sets, 3 element sets, "
                                "0 surfaces; errors: 0 fatal"),
                  std::string::npos)
            << lines[0];
        EXPECT_EQ(r.out.rfind("*part, name=PART-1\n*node\n1, 0., 0., 0.\n", 0), 0u) << route;
        EXPECT_NE(r.out.find("*assembly, name=Assembly-1\n*instance, name=PART-1-1, part=PART-1\n"), std::string::npos);
    }
}
