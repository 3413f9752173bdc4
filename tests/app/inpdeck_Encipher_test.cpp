// `inpdeck encipher` as a user meets it: every example deck, enciphered and read back
// through a password, prints as the plain deck; and the contact output check that runs
// once the model is complete.
#include <gtest/gtest.h>

#include <filesystem>

#include "inpdeck_Testing.h"

using inp_test::ReadFile;
using inp_test::TempDir;

using inpdeck_test::DriverRun;
using inpdeck_test::Lines;
using inpdeck_test::Quoted;
using inpdeck_test::RunDriver;

namespace {

TEST(DriverEncipher, EveryExampleDeckReadsBackThroughItsPassword) {
    TempDir dir;
    const std::string examples = INP_EXAMPLES_DIR;
    int decks = 0;
    for (const auto& entry : std::filesystem::directory_iterator(examples)) {
        if (entry.path().extension() != ".inp") continue;
        ++decks;
        const std::string name = entry.path().filename().string();
        DriverRun made = RunDriver(dir, "encipher --password Pass-1 " + Quoted(entry.path().string()) + " " +
                                            Quoted(dir / (name + ".enc")));
        ASSERT_EQ(made.status, 0) << name << ": " << made.err;
        EXPECT_EQ(made.err, "") << name;
        EXPECT_EQ(ReadFile(dir / (name + ".enc")).find("*NODE"), std::string::npos) << name;

        const std::string main = dir.Write(name + ".main", "*INCLUDE, INPUT=" + (dir / (name + ".enc")) + ", PASSWORD=Pass-1\n");
        // Include files of the example (beam.inp's mesh) are found beside it.
        const std::string options = "--quiet -I " + Quoted(examples) + " -p ";
        DriverRun plain = RunDriver(dir, options + Quoted(dir / (name + ".plain.out")) + " " +
                                             Quoted(entry.path().string()));
        DriverRun ciphered = RunDriver(dir, options + Quoted(dir / (name + ".enc.out")) + " " + Quoted(main));
        EXPECT_EQ(ciphered.status, plain.status) << name << ": " << ciphered.err;
        EXPECT_EQ(Lines(ciphered.err).size(), Lines(plain.err).size()) << name << ": " << ciphered.err;
        const std::string printed = ReadFile(dir / (name + ".plain.out"));
        EXPECT_FALSE(printed.empty()) << name;
        EXPECT_TRUE(ReadFile(dir / (name + ".enc.out")) == printed) << name;
    }
    EXPECT_GE(decks, 7);
}

TEST(DriverEncipher, RefusalsNameTheirCauseAndWriteNothing) {
    TempDir dir;
    const std::string plain = dir.Write("plain.inp", "*HEADING\n");
    const std::string wide = dir.Write("wide.inp", "*HEADING\n" + std::string(200, 'x') + "\n");
    const std::string out = dir / "out.enc";
    const struct {
        std::string args;
        int status;
        std::string err;
    } cases[] = {
        {Quoted(plain) + " " + Quoted(out), 2, "inpdeck: encipher: a password is needed (--password TEXT)\n"},
        {"--password pw " + Quoted(plain), 2, "inpdeck: encipher: an input and an output file are needed\n"},
        {"--password", 2, "inpdeck: encipher: missing value after --password\n"},
        {"--password 'a,b' " + Quoted(plain) + " " + Quoted(out), 2,
         "inpdeck: encipher: The password \"a,b\" does not stand in an *INCLUDE line as it is; take letters, digits "
         "and the characters of a file name, and no comma.\n"},
        {"--password pw " + Quoted(dir / "none.inp") + " " + Quoted(out), 2,
         "inpdeck: encipher: cannot read \"" + (dir / "none.inp") + "\"\n"},
        {"--password pw " + Quoted(wide) + " " + Quoted(out), 1,
         "inpdeck: encipher: \"" + wide +
             "\": Line 2 holds 200 characters; a line of an enciphered file holds at most 192.\n"},
        {"--password pw " + Quoted(plain) + " " + Quoted(dir / "no/such/dir/out.enc"), 2,
         "inpdeck: encipher: cannot write \"" + (dir / "no/such/dir/out.enc") + "\"\n"},
    };
    for (const auto& c : cases) {
        DriverRun r = RunDriver(dir, "encipher " + c.args);
        EXPECT_EQ(r.status, c.status) << c.args;
        EXPECT_EQ(r.err, c.err) << c.args;
        EXPECT_FALSE(std::filesystem::exists(out)) << c.args;
    }
}

TEST(DriverContactCheck, RunsOnceTheModelIsComplete) {
    TempDir dir;
    const std::string deck = dir.Write(
        "contact.inp",
        "*PART, NAME=P\n*NODE\n1, 0., 0., 0.\n2, 1., 0., 0.\n*END PART\n"
        "*ASSEMBLY, NAME=A\n*INSTANCE, NAME=I1, PART=P\n*END INSTANCE\n*INSTANCE, NAME=I2, PART=P\n*END INSTANCE\n"
        "*NSET, NSET=BOTH\nI1.1, I2.1\n*SURFACE, TYPE=NODE, NAME=SPAN\nBOTH\n*END ASSEMBLY\n"
        "*STEP\n*DYNAMIC, EXPLICIT\n, 1.\n*CONTACT PAIR\nSPAN, SPAN\n*END STEP\n");
    const std::string message =
        "error[0]: Contact field output is requested for a node-based surface (*SURFACE, TYPE=NODE) spanning "
        "multiple instances in an MERLIX/Explicit analysis. This is currently not supported. Please remove the "
        "contact field output for the contact pair in question, or split the node-based surface into separate "
        "surfaces each spanning just one instance. ";
    DriverRun r = RunDriver(dir, "--quiet " + Quoted(deck));
    EXPECT_EQ(r.status, 1);
    std::vector<std::string> lines = Lines(r.err);
    ASSERT_EQ(lines.size(), 2u) << r.err;
    EXPECT_EQ(lines[0], message);
    // A driver stopped before the model is complete does not run it.
    EXPECT_EQ(RunDriver(dir, "--quiet --stop-after check " + Quoted(deck)).status, 0);
}

}  // namespace
