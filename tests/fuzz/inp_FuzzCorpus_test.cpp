// The inputs that the fuzzer found worth keeping, read again on every test run the
// way the fuzz target reads them (fuzz/inp_FuzzDeck.h). Under the sanitizer build this
// is the fuzzer's check; under the normal one it still catches a crash, a hang (the
// test's timeout) and a sink in disorder.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "../../fuzz/inp_FuzzDeck.h"
#include "../support/inp_TestFiles.h"

namespace {

std::vector<std::string> g_problems;
std::string g_current;

// Parse hands its fatal messages to the sink before the others, and every record
// carries a text and a known level.
void CheckSink(const inp_phases::Phase& phase, const wip_WIP& sink) {
    bool seenNonFatal = false;
    for (int i = 0; i < sink.Count(); ++i) {
        const wip_Record& r = sink.Record(i);
        if (r.text.IsEmpty()) g_problems.push_back(g_current + ": empty message after " + phase.name);
        if (r.IsError() && (r.level < 0 || r.level > 2))
            g_problems.push_back(g_current + ": level " + std::to_string(r.level) + " after " + phase.name);
        if (std::string(phase.name) != "Parse" || !r.IsError()) continue;
        if (r.level == 0 && seenNonFatal) g_problems.push_back(g_current + ": fatal message behind a non-fatal one");
        if (r.level != 0) seenNonFatal = true;
    }
}

}  // namespace

TEST(FuzzCorpus, EveryKeptInputReadsToTheEndWithAnOrderlySink) {
    std::vector<std::filesystem::path> inputs;
    for (const auto& entry : std::filesystem::directory_iterator(INP_FUZZ_CORPUS_DIR))
        if (entry.is_regular_file() && entry.path().filename().string()[0] != '.') inputs.push_back(entry.path());
    std::sort(inputs.begin(), inputs.end());
    ASSERT_FALSE(inputs.empty()) << "no inputs in " << INP_FUZZ_CORPUS_DIR;

    inp_test::TempDir dir;
    inp_test::InDirectory here(dir.Path());
    g_problems.clear();
    for (const auto& input : inputs) {
        const std::string bytes = inp_test::ReadFile(input.string());
        g_current = input.filename().string();
        inp_fuzz::RunDeck(dir.Path().string(), reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size(),
                          CheckSink);
    }
    EXPECT_EQ(g_problems, std::vector<std::string>{});
}

TEST(FuzzCorpus, EveryKeptInputPrintsADeckThatReadsBack) {
    inp_test::TempDir dir;
    inp_test::InDirectory here(dir.Path());
    std::vector<std::string> problems;
    for (const auto& entry : std::filesystem::directory_iterator(INP_FUZZ_CORPUS_DIR)) {
        if (!entry.is_regular_file() || entry.path().filename().string()[0] == '.') continue;
        const std::string bytes = inp_test::ReadFile(entry.path().string());
        const std::string problem = inp_fuzz::RoundTrip(
            dir.Path().string(), reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        if (!problem.empty()) problems.push_back(entry.path().filename().string() + ": " + problem);
    }
    std::sort(problems.begin(), problems.end());
    EXPECT_EQ(problems, std::vector<std::string>{});
}

TEST(FuzzCorpus, InputsAreCutIntoADeckAndIncludeFiles) {
    inp_test::TempDir dir;
    inp_test::InDirectory here(dir.Path());
    const std::string d = dir.Path().string();
    const std::string input = std::string("*NODE\n*INCLUDE, INPUT=inc1.inp\n") + inp_fuzz::kFileSeparator +
                              "1, 2.\n" + inp_fuzz::kFileSeparator + "a" + inp_fuzz::kFileSeparator + "b" +
                              inp_fuzz::kFileSeparator + "c";
    inp_fuzz::WriteDeck(d, reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    EXPECT_EQ(inp_test::ReadFile(dir / "deck.inp"), "*NODE\n*INCLUDE, INPUT=inc1.inp\n");
    EXPECT_EQ(inp_test::ReadFile(dir / "inc1.inp"), "1, 2.\n");
    EXPECT_EQ(inp_test::ReadFile(dir / "inc2.inp"), "a");
    // Past the last include file the separators stay in it.
    EXPECT_EQ(inp_test::ReadFile(dir / "inc3.inp"), std::string("b") + inp_fuzz::kFileSeparator + "c");

    // A shorter input leaves no include file of the one before.
    const std::string shorter = "*HEADING\n";
    const int records = inp_fuzz::RunDeck(d, reinterpret_cast<const std::uint8_t*>(shorter.data()), shorter.size());
    EXPECT_EQ(records, 0);
    EXPECT_TRUE(std::filesystem::exists(dir / "deck.inp"));
    EXPECT_FALSE(std::filesystem::exists(dir / "inc1.inp"));
    EXPECT_FALSE(std::filesystem::exists(dir / "inc3.inp"));

    // The include file is read: its line lands on the *NODE of the deck.
    const int withInclude = inp_fuzz::RunDeck(d, reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    EXPECT_EQ(withInclude, 0);
}

TEST(FuzzCorpus, AGroupSeparatorInFrontEnciphersTheIncludeFiles) {
    inp_test::TempDir dir;
    inp_test::InDirectory here(dir.Path());
    const std::string d = dir.Path().string();
    const std::string input = std::string(1, inp_fuzz::kEncipherIncludes) + "*NODE\n*INCLUDE, INPUT=inc1.inp, PASSWORD=" +
                              inp_fuzz::kPassword + "\n" + inp_fuzz::kFileSeparator + "1, 2.\n*NSET, NSET=A\n1\n";
    EXPECT_EQ(inp_fuzz::RunDeck(d, reinterpret_cast<const std::uint8_t*>(input.data()), input.size()), 0);
    EXPECT_EQ(inp_test::ReadFile(dir / "deck.inp"), "*NODE\n*INCLUDE, INPUT=inc1.inp, PASSWORD=secret\n");
    const std::string include = inp_test::ReadFile(dir / "inc1.inp");
    EXPECT_EQ(include.rfind("** encrypted input\n", 0), 0u);
    EXPECT_EQ(include.find("NSET"), std::string::npos);
}
