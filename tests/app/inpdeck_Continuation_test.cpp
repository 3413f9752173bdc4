// Continuation jobs through the driver: a first job leaves its part map with
// --save-partmap, and restart and import decks run on it with --oldpartmap, as a user
// runs them.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "../inpM/inpM_TestLists.h"
#include "inp.h"
#include "inpdeck_Testing.h"

using inpdeck_test::DriverRun;
using inpdeck_test::Lines;
using inpdeck_test::Quoted;
using inpdeck_test::ReadFile;
using inpdeck_test::RunDriver;
using inpdeck_test::TempDir;

namespace {

using Strings = std::vector<std::string>;

// One part placed twice, with sets and surfaces of the part, the instances and the assembly.
const char kAssemblyModel[] =
    "*HEADING\n*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n4, 0., 1., 0.\n"
    "*ELEMENT, TYPE=CPS4, ELSET=QUAD\n1, 1, 2, 3, 4\n*NSET, NSET=CORNER\n1\n*SURFACE, NAME=EDGE, TYPE=NODE\nCORNER\n"
    "*END PART\n*ASSEMBLY, NAME=Assembly-1\n*INSTANCE, NAME=Pump-1, PART=P\n*END INSTANCE\n"
    "*INSTANCE, NAME=Valve-1, PART=P\n*END INSTANCE\n*NSET, NSET=OLD, INSTANCE=Pump-1\n1, 2\n"
    "*ELSET, ELSET=OLDE, INSTANCE=Valve-1\n1\n*SURFACE, NAME=TOPS, TYPE=ELEMENT\nOLDE, S1\n*END ASSEMBLY\n";

// The same mesh written flat.
const char kFlatModel[] =
    "*HEADING\n*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n3, 1., 1., 0.\n4, 0., 1., 0.\n"
    "*ELEMENT, TYPE=CPS4, ELSET=ALL\n1, 1, 2, 3, 4\n*NSET, NSET=OLD\n1, 2\n*SURFACE, NAME=OLDS, TYPE=NODE\nOLD\n";

const char kStep[] = "*STEP\n*STATIC\n*END STEP\n";

struct Job {
    DriverRun run;
    std::string deck;
    // Standard error without the summary line.
    Strings messages;
    // `, file "DECK", line N:` as a message names a line of the deck.
    std::string At(int line) const { return ", file \"" + deck + "\", line " + std::to_string(line) + ":"; }
};

Job RunJob(const TempDir& dir, const std::string& name, const std::string& text, const std::string& options) {
    Job job;
    job.deck = dir.Write(name, text);
    job.run = RunDriver(dir, "--quiet " + options + " " + Quoted(job.deck));
    for (const std::string& line : Lines(job.run.err))
        if (!line.empty() && line.rfind("inpdeck: ", 0) != 0) job.messages.push_back(line);
    return job;
}

// The first job of a model, which leaves its part map in `partMap`.
void FirstJob(const TempDir& dir, const char* model, const std::string& partMap) {
    const Job job = RunJob(dir, "first.inp", model, "--save-partmap " + Quoted(partMap));
    ASSERT_EQ(job.run.status, 0) << job.run.err;
    ASSERT_TRUE(job.messages.empty()) << job.run.err;
}

inpM_PartMap ReadPartMap(const std::string& path) {
    inpM_PartMap map;
    inpM_PartMapFile file;
    EXPECT_EQ(file.Read(cow_String(path.c_str()), map), inpM_PartMapFile::kNone) << file.message.c_str();
    return map;
}

std::vector<int> Ids(const inpM_BaseSet& set, const char* instance) {
    return Ints(set.ConstGetSecondLevelIds(cow_String(instance)));
}

cow_String S(const char* s) { return cow_String(s); }

const char kDuplicateSet[] = " already exists in the original analysis. It cannot be modified upon restart.";

}  // namespace

// A restart that adds nothing hands the next job the part map it was given: sets,
// surfaces, id maps, the assembly's name and the instances, byte for byte.
TEST(Continuation, PartMapPassesFromJobToJobUnchanged) {
    for (const char* model : {kAssemblyModel, kFlatModel}) {
        TempDir dir;
        FirstJob(dir, model, dir / "first.pm");
        const Job restart = RunJob(dir, "restart.inp", std::string("*HEADING\n") + kStep,
                                   "--oldpartmap " + Quoted(dir / "first.pm") + " --save-partmap " +
                                       Quoted(dir / "second.pm"));
        EXPECT_EQ(restart.run.status, 0) << restart.run.err;
        EXPECT_TRUE(restart.messages.empty()) << restart.run.err;
        const std::string first = ReadFile(dir / "first.pm");
        EXPECT_GT(first.size(), 28u);
        EXPECT_EQ(ReadFile(dir / "second.pm"), first);
    }
    // What the first job of the model of parts had.
    TempDir dir;
    FirstJob(dir, kAssemblyModel, dir / "first.pm");
    const inpM_PartMap map = ReadPartMap(dir / "first.pm");
    EXPECT_TRUE(map.IsAssemblyModel());
    EXPECT_FALSE(map.HasFakeParts());
    EXPECT_EQ(map.AssemblyName(), S("ASSEMBLY-1"));
    EXPECT_EQ(map.InstanceToPart().ConstGet(S("VALVE-1")), S("P"));
    EXPECT_EQ(Ids(map.NodeSets().ConstGetSet(S("OLD")), "PUMP-1"), (std::vector<int>{1, 2}));
    EXPECT_TRUE(map.NodeSets().HasNestedSet(S("VALVE-1"), S("CORNER")));
    EXPECT_TRUE(map.Surfaces().IsMemberAssemblyInstanceSurface(S("TOPS")));
    EXPECT_TRUE(map.Surfaces().IsMemberPartInstanceSurface(S("PUMP-1"), S("EDGE")));
    // The instances laid out in one range, in order of their names.
    const inpM_IdMap nodeIds(map.NodeIdMaps());
    EXPECT_EQ(nodeIds.ConstGet(S("PUMP-1")).ConstGet(4), 4);
    EXPECT_EQ(nodeIds.ConstGet(S("VALVE-1")).ConstGet(1), 5);
    EXPECT_EQ(inpM_IdMap(map.ElementIdMaps()).ConstGet(S("VALVE-1")).ConstGet(1), 2);

    const Job broken = RunJob(dir, "restart.inp", kStep, "--oldpartmap " + Quoted(dir / "first.inp"));
    EXPECT_EQ(broken.run.status, 2);
    EXPECT_EQ(Lines(broken.run.err)[0],
              "inpdeck: \"" + (dir / "first.inp") + "\" is not a part map file: its header differs at byte 0");
}

// A pure restart of a model of parts: complete names, instance and assembly level,
// every refusal, and the new sets handed on to the next job.
TEST(Continuation, PureRestartOfAModelOfParts) {
    TempDir dir;
    FirstJob(dir, kAssemblyModel, dir / "first.pm");
    const std::string deck =
        "*HEADING\n"                                                     // 1
        "*NSET, NSET=Assembly-1.Pump-1.NEW\n1, 3\n"                      // 2
        "*NSET, NSET=Assembly-1.NEWA\nPump-1.2, Valve-1.4\n"             // 4
        "*NSET, NSET=NEW\n1\n"                                           // 6
        "*NSET, NSET=Assembly-1.A.B.C\n1\n"                              // 8
        "*NSET, NSET=Assembly-1.Pump-1.X, INSTANCE=Pump-1\n1\n"          // 10
        "*NSET, NSET=Assembly-1.X, GENERATE\n1, 4\n"                     // 12
        "*NSET, NSET=Assembly-1.X, ELSET=Assembly-1.OLDE\n"              // 14
        "*NSET, NSET=Assembly-1.OLD\n1\n"                                // 15
        "*NSET, NSET=Assembly-1.Valve-1.CORNER\n2\n"                     // 17
        "*ELSET, ELSET=Assembly-1.NEWE, INSTANCE=Valve-1\n1\n"           // 19
        "*ELSET, ELSET=Assembly-1.OLDE\nPump-1.1\n"                      // 21
        "*SURFACE, NAME=Assembly-1.Pump-1.S, TYPE=NODE\nNEW\n"           // 23
        "*SURFACE, NAME=Assembly-1.SA\nValve-1.QUAD, S1\n"               // 25
        "*SURFACE, NAME=S\nTOP, S1\n"                                    // 27
        "*SURFACE, NAME=Assembly-1.A.B.C\nTOP, S1\n"                     // 29
        "*SURFACE, NAME=Assembly-1.TOPS\nValve-1.QUAD, S1\n"             // 31
        "*SURFACE, NAME=Assembly-1.Pump-1.EDGE, TYPE=NODE\nNEW\n"        // 33
        "*SURFACE, NAME=Assembly-1.C, TYPE=CYLINDER\n0., 0., 0., 1., 0., 0.\n0., 1., 0.\nSTART, 1., 0.\n"
        "LINE, 2., 0.\n" +
        std::string(kStep);
    const Job job = RunJob(dir, "restart.inp", deck,
                           "--oldpartmap " + Quoted(dir / "first.pm") + " --save-partmap " + Quoted(dir / "next.pm") +
                               " -p " + Quoted(dir / "printed.inp"));
    const std::string complete =
        "The complete name of an NSET/ELSET defined upon restart should contain: an assembly name, an optional "
        "instance name, and a set name. The unrecognizable name in question is ";
    EXPECT_EQ(job.messages,
              (Strings{"error[1]: in keyword *NSET" + job.At(6) + " NEW is not the assembly name in the original "
                                                                  "analysis.",
                       "error[1]: in keyword *NSET" + job.At(8) + " " + complete + "ASSEMBLY-1.A.B.C",
                       "error[1]: in keyword *NSET" + job.At(10) +
                           " When defining a part instance level NSET/ELSET upon restart, the INSTANCE parameter "
                           "should not appear.",
                       "error[1]: in keyword *NSET" + job.At(12) +
                           " The GENERATE option on *NSET/*ELSET is not supported when defining an assembly level "
                           "set in a restart input file, for models defined in terms of an assembly of part "
                           "instances.",
                       "error[1]: in keyword *NSET" + job.At(14) +
                           " The formation of a node set using an element set (*NSET, ELSET=) is currently not "
                           "supported in the restart analysis of a job defined in terms of an assembly of part "
                           "instances.",
                       "error[1]: Error in *NSET/*ELSET: the set ASSEMBLY-1.OLD" + std::string(kDuplicateSet),
                       "error[1]: Error in *NSET/*ELSET: the set ASSEMBLY-1.VALVE-1.CORNER" +
                           std::string(kDuplicateSet),
                       "error[1]: Error in *NSET/*ELSET: the set ASSEMBLY-1.OLDE" + std::string(kDuplicateSet),
                       "error[1]: S is not the assembly name in the original analysis.",
                       "error[1]: The complete name of a surface defined upon restart should contain: an assembly "
                       "name, an optional instance name, and a surface name. The unrecognizable name in question is "
                       "ASSEMBLY-1.A.B.C",
                       "error[1]: Error in *SURFACE: the surface ASSEMBLY-1.TOPS" + std::string(kDuplicateSet),
                       "error[1]: Error in *SURFACE: the surface ASSEMBLY-1.PUMP-1.EDGE" + std::string(kDuplicateSet),
                       "error[1]: Analytical surfaces may not be defined upon restart. "}));
    EXPECT_EQ(job.run.status, 1);

    // The keyword of an instance surface reads right at the assembly level.
    EXPECT_NE(ReadFile(dir / "printed.inp").find("*surface, name=ASSEMBLY-1.PUMP-1.S, type=NODE\nPUMP-1.NEW\n"),
              std::string::npos);
    const inpM_PartMap next = ReadPartMap(dir / "next.pm");
    EXPECT_EQ(Ids(next.NodeSets().ConstGetSet(S("OLD")), "PUMP-1"), (std::vector<int>{1, 2}));
    EXPECT_EQ(Ints(next.NodeSets().ConstGetNestedSet(S("PUMP-1"), S("NEW")).ConstGetIds()), (std::vector<int>{1, 3}));
    EXPECT_EQ(Ids(next.NodeSets().ConstGetSet(S("NEWA")), "PUMP-1"), std::vector<int>{2});
    EXPECT_EQ(Ids(next.NodeSets().ConstGetSet(S("NEWA")), "VALVE-1"), std::vector<int>{4});
    EXPECT_EQ(Ids(next.ElementSets().ConstGetSet(S("NEWE")), "VALVE-1"), std::vector<int>{1});
    EXPECT_EQ(Ids(next.ElementSets().ConstGetSet(S("OLDE")), "VALVE-1"), std::vector<int>{1});
    EXPECT_EQ(Ids(next.ElementSets().ConstGetSet(S("OLDE")), "PUMP-1"), std::vector<int>{});
    ASSERT_TRUE(next.Surfaces().IsMemberPartInstanceSurface(S("PUMP-1"), S("S")));
    EXPECT_EQ(next.Surfaces().ConstGetPartInstanceSurface(S("PUMP-1"), S("S")).ConstGetNodeAreaList().Count(), 2);
    EXPECT_TRUE(next.Surfaces().IsMemberAssemblyInstanceSurface(S("SA")));
    EXPECT_FALSE(next.Surfaces().IsMemberAssemblyInstanceSurface(S("C")));

    // The next restart knows the sets of this one.
    const Job again = RunJob(dir, "again.inp", "*HEADING\n*NSET, NSET=Assembly-1.Pump-1.NEW\n4\n",
                             "--oldpartmap " + Quoted(dir / "next.pm"));
    EXPECT_EQ(again.messages, Strings{"error[1]: Error in *NSET/*ELSET: the set ASSEMBLY-1.PUMP-1.NEW" +
                                      std::string(kDuplicateSet)});
}

// A pure restart of a converted flat model: plain names, ids and sets found in the
// instance of the converted part.
TEST(Continuation, PureRestartOfAFlatModel) {
    TempDir dir;
    FirstJob(dir, kFlatModel, dir / "first.pm");
    const std::string deck =
        "*HEADING\n"                                // 1
        "*NSET, NSET=NEW\n1, 9999, OLD\n"           // 2
        "*NSET, NSET=GEN, GENERATE\n2, 8, 2\n"      // 4
        "*NSET, NSET=SHORT, GENERATE\n5\n"          // 6
        "*NSET, NSET=WORDS, GENERATE\nA, B\n"       // 8
        "*NSET, NSET=A.B\n1\n"                      // 10
        "*NSET, NSET=SCOPED\nPART-1-1.1, 2\n3\n"    // 12
        "*NSET, NSET=OLD\n1\n"                      // 15
        "*NSET, NSET=FROMALL, ELSET=ALL\n"          // 17
        "*ELSET, ELSET=ALL\n1\n"                    // 18
        "*SURFACE, NAME=A.B, TYPE=NODE\nOLD\n"      // 20
        "*SURFACE, NAME=NEWS, TYPE=NODE\nNEW\n" +   // 22
        std::string(kStep);
    const Job job = RunJob(dir, "restart.inp", deck,
                           "--oldpartmap " + Quoted(dir / "first.pm") + " --save-partmap " + Quoted(dir / "next.pm"));
    EXPECT_EQ(job.messages,
              (Strings{"error[1]: in keyword *NSET" + job.At(2) + " The following sets/IDs do not exist: 9999",
                       "error[1]: in keyword *NSET" + job.At(6) + " Not enough data provided to generate set",
                       "error[1]: in keyword *NSET" + job.At(8) + " The data under must be integers.",
                       "error[1]: in keyword *NSET" + job.At(10) +
                           " The input file for the original analysis does not contain parts and assemblies.  Upon "
                           "restart, only assembly level sets may be defined.  The set name given by the NSET/ELSET "
                           "parameter should not contain any periods which imply an assembly of part instances.  The "
                           "unrecognizable name is: A.B",
                       "error[1]: in keyword *NSET" + job.At(12) +
                           " A period is detected in a data item used to define new node/element sets in a restart "
                           "input file. This is not allowed, since the original analysis was not defined in terms of "
                           "an assembly of part instance. The data item in question is: PART-1-1.1",
                       "error[1]: Error in *NSET/*ELSET: the set OLD" + std::string(kDuplicateSet),
                       "error[1]: Error in *NSET/*ELSET: the set ALL" + std::string(kDuplicateSet),
                       "error[1]: The input file for the original analysis does not contain parts and assemblies.  "
                       "Upon restart, only assembly level element and node-based surfaces may be defined.  The name "
                       "given by the NAME parameter should not contain any periods which imply an assembly of part "
                       "instances.  The unrecognizable name is: A.B"}));
    const inpM_PartMap next = ReadPartMap(dir / "next.pm");
    EXPECT_EQ(Ids(next.NodeSets().ConstGetSet(S("NEW")), "PART-1-1"), (std::vector<int>{1, 2}));
    EXPECT_EQ(Ids(next.NodeSets().ConstGetSet(S("GEN")), "PART-1-1"), (std::vector<int>{2, 4}));
    EXPECT_EQ(Ids(next.NodeSets().ConstGetSet(S("SCOPED")), "PART-1-1"), std::vector<int>{3});
    EXPECT_EQ(Ids(next.NodeSets().ConstGetSet(S("FROMALL")), "PART-1-1"), std::vector<int>{1});
    EXPECT_EQ(Ids(next.NodeSets().ConstGetSet(S("OLD")), "PART-1-1"), (std::vector<int>{1, 2}));
    EXPECT_TRUE(next.Surfaces().IsMemberAssemblyInstanceSurface(S("NEWS")));
}

// New nodes and elements: refused on a model of parts, converted on a flat one.
TEST(Continuation, ImpureRestart) {
    const std::string mesh = "*HEADING\n*NODE\n11, 0., 0., 0.\n12, 1., 0., 0.\n*ELEMENT, TYPE=T2D2\n5, 11, 12\n";
    TempDir dir;
    FirstJob(dir, kAssemblyModel, dir / "parts.pm");
    const Job parts = RunJob(dir, "parts.inp", mesh, "--oldpartmap " + Quoted(dir / "parts.pm"));
    EXPECT_EQ(parts.run.status, 1);
    EXPECT_EQ(parts.messages,
              Strings{"error[0]: Features such as new nodes/elements, IMPORT, SYMMETRIC MODEL GENERATION, MAP "
                      "SOLUTION are detected in a continuation analysis where the original model is defined in terms "
                      "of an assembly of part instances. This is not allowed. "});

    FirstJob(dir, kFlatModel, dir / "flat.pm");
    const Job flat = RunJob(dir, "flat.inp", mesh, "--oldpartmap " + Quoted(dir / "flat.pm"));
    EXPECT_EQ(flat.run.status, 0) << flat.run.err;
    EXPECT_TRUE(flat.messages.empty()) << flat.run.err;
    EXPECT_NE(flat.run.err.find("2 nodes, 1 elements"), std::string::npos) << flat.run.err;
}

// The deck-level *IMPORT with *IMPORT NSET and *IMPORT ELSET, and its rules.
TEST(Continuation, DeckLevelImport) {
    TempDir dir;
    FirstJob(dir, kFlatModel, dir / "first.pm");
    const Job job = RunJob(dir, "import.inp", "*HEADING\n*IMPORT, UPDATE=NO, STEP=1\nALL\n*IMPORT NSET\n",
                           "--oldpartmap " + Quoted(dir / "first.pm"));
    EXPECT_EQ(job.run.status, 0) << job.run.err;
    EXPECT_EQ(job.messages,
              Strings{"warning: in keyword *IMPORTNSET" + job.At(4) +
                      " This keyword is removed because no NSET name is provided in the following line."});

    const Job both = RunJob(dir, "both.inp", "*HEADING\n*IMPORT, UPDATE=NO\n*MAP SOLUTION\n",
                            "--oldpartmap " + Quoted(dir / "first.pm"));
    EXPECT_EQ(both.messages,
              Strings{"error[0]: *IMPORT and *MAP SOLUTION (rezoning) cannot be used in the same analysis. "});

    FirstJob(dir, kAssemblyModel, dir / "parts.pm");
    const Job parts = RunJob(dir, "parts.inp", "*HEADING\n*IMPORT, UPDATE=NO\n",
                             "--oldpartmap " + Quoted(dir / "parts.pm"));
    EXPECT_EQ(parts.messages,
              (Strings{"error[0]: Features such as new nodes/elements, IMPORT, SYMMETRIC MODEL GENERATION, MAP "
                       "SOLUTION are detected in a continuation analysis where the original model is defined in "
                       "terms of an assembly of part instances. This is not allowed. ",
                       "error[0]: The restart (.res) and results (.fil) files are not organized as an assembly of "
                       "part instances. Therefore, some options that read data from these files currently cannot be "
                       "used in models defined in terms of an assembly of part instances. IMPORT is one of them."}));

    const Job alone = RunJob(dir, "alone.inp", "*HEADING\n*IMPORT, UPDATE=NO\n", "--simple");
    EXPECT_EQ(alone.messages,
              Strings{"error[0]: An import analysis requires the part map from a previous job. Please use the "
                      "-oldpartmap command line option to specify it."});
}

// An instance imported by parameters on *INSTANCE and an *IMPORT inside it.
TEST(Continuation, ImportedInstances) {
    TempDir dir;
    FirstJob(dir, kFlatModel, dir / "first.pm");
    const std::string deck =
        "*HEADING\n*PART, NAME=Q\n*END PART\n"             // 1
        "*ASSEMBLY, NAME=W\n"                              // 4
        "*INSTANCE, INSTANCE=A, LIBRARY=X\n"               // 5
        "*IMPORT, UPDATE=NO, STEP=2\n"                     // 6
        "*CLOAD\n1, 1, 1.\n"                               // 7
        "*END INSTANCE\n"                                  // 9
        "*INSTANCE, INSTANCE=B, LIBRARY=Y\n"               // 10
        "*IMPORT, UPDATE=NO, STEP=3\n"                     // 11
        "*END INSTANCE\n"                                  // 12
        "*INSTANCE, INSTANCE=C\n"                          // 13
        "*END INSTANCE\n"                                  // 14
        "*INSTANCE, NAME=D, PART=Q, LIBRARY=X\n"           // 15
        "*END INSTANCE\n"                                  // 16
        "*INSTANCE, INSTANCE=E, PART=Q\n"                  // 17
        "*IMPORT, UPDATE=NO, STEP=-1\n"                    // 18
        "*END INSTANCE\n*END ASSEMBLY\n";                  // 19
    const Job job = RunJob(dir, "import.inp", deck, "--oldpartmap " + Quoted(dir / "first.pm"));
    const Strings validity = {
        "warning: in keyword *CLOAD" + job.At(7) + " Keyword cannot be used inside the imported component \"A\"",
        "warning: in keyword *INSTANCE" + job.At(10) +
            " The \"LIBRARY\" parameter has been already defined. The current value \"Y\" will be ignored.",
        "warning: in keyword *IMPORT" + job.At(11) +
            " The \"STEP\" parameter has been already defined. The current value \"3\" will be ignored.",
        "warning: in keyword *IMPORT" + job.At(18) +
            " The \"STEP\" parameter has been already defined. The current value \"default\" will be ignored.",
        "error[1]: in keyword *ENDINSTANCE" + job.At(14) +
            " Instance \"C\" is to be imported but *IMPORT option is misssing.",
        "error[1]: in keyword *INSTANCE" + job.At(15) + " When importing an instance, INSTANCE parameter is required.",
        "error[1]: in keyword *INSTANCE" + job.At(17) + " *INSTANCE cannot import a PART component.",
        "error[1]: in keyword *IMPORT" + job.At(18) +
            " The value of \"STEP\" parameter is not valid. It will be ignored."};
    // The pass reads the deck as written, ahead of everything else the job reports.
    ASSERT_GE(job.messages.size(), validity.size()) << job.run.err;
    EXPECT_EQ(Strings(job.messages.begin(), job.messages.begin() + validity.size()), validity);
    EXPECT_EQ(job.run.status, 1);

    // The older *IMPORT in front of the model beside an imported instance, with and
    // without *MAP SOLUTION; the library from the command line.
    const std::string mixed = "*HEADING\n*IMPORT, UPDATE=NO\n*ASSEMBLY, NAME=W\n*INSTANCE, INSTANCE=A\n"
                              "*IMPORT, UPDATE=NO\n*END INSTANCE\n*END ASSEMBLY\n";
    const Job withLibrary = RunJob(dir, "mixed.inp", mixed,
                                   "--oldpartmap " + Quoted(dir / "first.pm") + " --oldjob job1 --indir " +
                                       Quoted(dir.Path().string()));
    const std::string six = "error[1]: *IMPORT cannot be used in the new import procedure keyword interface.";
    EXPECT_NE(std::find(withLibrary.messages.begin(), withLibrary.messages.end(), six), withLibrary.messages.end())
        << withLibrary.run.err;
    for (const std::string& line : withLibrary.messages)
        EXPECT_EQ(line.find("LIBRARY parameter"), std::string::npos) << line;
    const Job rezoned = RunJob(dir, "rezoned.inp", mixed + "*MAP SOLUTION\n", "--oldpartmap " + Quoted(dir / "first.pm"));
    ASSERT_GE(rezoned.messages.size(), 4u) << rezoned.run.err;
    EXPECT_EQ(Strings(rezoned.messages.begin(), rezoned.messages.begin() + 4),
              (Strings{"error[1]: in keyword *INSTANCE" + rezoned.At(4) +
                           " LIBRARY parameter or oldjob command line parameter must be defined when importing "
                           "components.",
                       "error[1]: LIBRARY parameter or oldjob command line parameter must be defined when importing "
                       "components.",
                       six, "error[1]: *MAP SOLUTION (rezoning) cannot be used in the import procedure."}));
}
