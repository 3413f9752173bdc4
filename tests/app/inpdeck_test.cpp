#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {

struct Result {
    int status;
    std::string out;
};

// Runs the driver with the given arguments; standard error goes with standard output.
Result RunDriver(const std::string& args) {
    std::string command = std::string(INPDECK_EXE) + " " + args + " 2>&1";
    FILE* pipe = popen(command.c_str(), "r");
    Result r{-1, ""};
    if (!pipe) return r;
    char buf[4096];
    size_t n;
    while ((n = fread(buf, 1, sizeof buf, pipe)) > 0) r.out.append(buf, n);
    int raw = pclose(pipe);
    r.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    return r;
}

}  // namespace

TEST(Driver, KeywordLookupResolvesAsADeckLineWould) {
    Result r = RunDriver("keyword '*Beam General Section'");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out,
              "BEAMGENERALSECTION\n"
              "  canonical name   beamgeneralsection\n"
              "  value            49\n"
              "  may stand under  instance, part\n"
              "  suboptions       axial, beamaddedinertia, beamfluidinertia, centroid, damping, m1, m2, "
              "sectionpoints, shearcenter, thermalexpansion, torque, transverseshearstiffness\n");

    Result bad = RunDriver("keyword '*contact p'");
    EXPECT_EQ(bad.status, 1);
    EXPECT_EQ(bad.out, "error: Ambiguous keyword definition \"contactp\".\n");
    Result unknown = RunDriver("keyword NODEFOO");
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.out, "error: Unknown keyword \"nodefoo\". The keyword may be misspelled, obsolete, or invalid.\n");
}

TEST(Driver, VersionHelpAndUsage) {
    EXPECT_EQ(RunDriver("--version").out, std::string("inpdeck ") + INP_TEST_VERSION + "\n");
    Result help = RunDriver("--help");
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("usage: inpdeck"), std::string::npos);
    EXPECT_EQ(RunDriver("").status, 2);
    EXPECT_EQ(RunDriver("keyword").status, 2);
}
