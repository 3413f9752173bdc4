// inp_bench: how fast the library reads and prints a deck, next to the cheapest
// reader of the same bytes.
//
//   inp_bench [--sizes 20,50,100] [--variants flat,assembly,include] [--out FILE]
//   inp_bench --one MINREPS DECK [FILE...]
//   inp_bench --tables
//
// The first form generates the decks with bench/gendeck into the build directory,
// measures each in a process of its own (the second form), prints a markdown table and
// writes it to docs/performance.md. A process per deck keeps the memory peaks apart.
//
// The floor is a loop that any C programmer would write first: fgets into 257 bytes,
// cut at commas, strtod on every field. It reads the deck and every file named after
// it (the include files of the include variant), so it sees the bytes the parser sees.
// Each time is the best of several runs after a warm-up, so the file comes from the
// page cache in every measurement, while the heap is given back between runs, so that
// each run pays for its memory as the one run of a driver does.
#include <malloc.h>
#include <sys/resource.h>
#include <sys/utsname.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "inp_DeckPhases.h"
#include "inp_Coord.h"
#include "inp_Library.h"
#include "omi_IntTable.h"
#include "wip_WIP.h"

namespace {

using Clock = std::chrono::steady_clock;

double Since(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

// ---- one deck, in this process ------------------------------------------------------

// A field of /proc/self/status in kB, or -1.
long StatusKb(const char* field) {
    std::FILE* f = std::fopen("/proc/self/status", "r");
    if (!f) return -1;
    char line[256];
    long value = -1;
    const size_t n = std::strlen(field);
    while (std::fgets(line, sizeof line, f)) {
        if (!std::strncmp(line, field, n) && line[n] == ':') {
            value = std::strtol(line + n + 1, nullptr, 10);
            break;
        }
    }
    std::fclose(f);
    return value;
}

struct FloorResult {
    long long bytes = 0;
    long long lines = 0;
    double checksum = 0;  // keeps the conversions from being optimised away
};

FloorResult Floor(const std::vector<std::string>& files) {
    FloorResult r;
    char line[257];
    for (const std::string& name : files) {
        std::FILE* f = std::fopen(name.c_str(), "r");
        if (!f) continue;
        while (std::fgets(line, sizeof line, f)) {
            ++r.lines;
            char* field = line;
            for (;;) {
                char* comma = std::strchr(field, ',');
                if (comma) *comma = '\0';
                r.checksum += std::strtod(field, nullptr);
                if (!comma) break;
                field = comma + 1;
            }
        }
        r.bytes += std::ftell(f);
        std::fclose(f);
    }
    return r;
}

int MeasureOne(int minReps, const std::vector<std::string>& files) {
    const long startRss = StatusKb("VmRSS");
    int count = 0;
    inp_initialize(count);
    wip_WIP& sink = thr_ThreadSingleton<wip_WIP>::Instance();

    FloorResult floor = Floor(files);  // warm-up: the files into the page cache

    // As the driver does: include files are named relative to the deck.
    const size_t slash = files[0].rfind('/');
    const cow_String includeDirectory(slash == std::string::npos ? "." : files[0].substr(0, slash).c_str());

    // The floor and the road take turns, so that a burst of load on a shared machine
    // hits both alike and the best of each comes from the same stretch of time.
    const int phases = inp_phases::kDeckPhaseCount;
    std::vector<double> best(static_cast<size_t>(phases), 1e300);
    double floorTime = 1e300, bestRoad = 1e300, total = 0;
    int messages = 0;
    for (int rep = 0; rep < minReps || (total < 1.0 && rep < 50); ++rep) {
        const Clock::time_point f = Clock::now();
        floor = Floor(files);
        floorTime = std::min(floorTime, Since(f));

        sink.Clear();
        const Clock::time_point road = Clock::now();
        {
            inp_Deck deck;
            deck.includeDirectory = includeDirectory;
            for (int i = 0; i < phases; ++i) {
                const Clock::time_point t = Clock::now();
                inp_phases::kDeckPhases[i].run(deck, files[0].c_str());
                best[static_cast<size_t>(i)] = std::min(best[static_cast<size_t>(i)], Since(t));
            }
        }  // freeing the deck is part of the road a driver walks
        const double t = Since(road);
        // Give the freed heap back, so that the next run faults its memory in as the
        // first did and as a driver's one run does; a warm heap would flatter the
        // later runs by how the frees happened to leave the top of the heap.
        malloc_trim(0);
        bestRoad = std::min(bestRoad, t);
        total += t;
        messages = sink.Count();
    }
    for (int i = 0; i < messages && i < 5; ++i)
        std::fprintf(stderr, "inp_bench: %s: %s\n", files[0].c_str(), sink.Record(i).text.c_str());

    std::printf("bytes=%lld lines=%lld floor=%.6f road=%.6f rss0=%ld hwm=%ld messages=%d", floor.bytes, floor.lines,
                floorTime, bestRoad, startRss, StatusKb("VmHWM"), messages);
    for (int i = 0; i < phases; ++i)
        std::printf(" %s=%.6f", inp_phases::kDeckPhases[i].name, best[static_cast<size_t>(i)]);
    std::printf("\n");
    inp_finalize(count);
    return 0;
}

// ---- the whole run ------------------------------------------------------------------

std::vector<std::string> Split(const std::string& text, char sep) {
    std::vector<std::string> out;
    std::stringstream s(text);
    std::string piece;
    while (std::getline(s, piece, sep))
        if (!piece.empty()) out.push_back(piece);
    return out;
}

// Runs a command and gives its standard output; empty on failure.
std::string Capture(const std::string& command, int& status) {
    std::string out;
    std::FILE* p = popen(command.c_str(), "r");
    if (!p) {
        status = -1;
        return out;
    }
    char buf[4096];
    size_t n;
    while ((n = std::fread(buf, 1, sizeof buf, p)) > 0) out.append(buf, n);
    status = pclose(p);
    return out;
}

std::string Quote(const std::string& s) { return "'" + s + "'"; }

// This program's own path, for the process per deck; popen would make /proc/self the
// shell.
std::string SelfPath() {
    char buf[4096];
    const ssize_t n = readlink("/proc/self/exe", buf, sizeof buf - 1);
    if (n <= 0) return "inp_bench";
    return std::string(buf, static_cast<size_t>(n));
}

struct Row {
    std::string deck;
    std::map<std::string, double> values;
};

std::map<std::string, double> ParseResultLine(const std::string& line) {
    std::map<std::string, double> values;
    for (const std::string& pair : Split(line, ' ')) {
        const size_t eq = pair.find('=');
        if (eq != std::string::npos) values[pair.substr(0, eq)] = std::atof(pair.c_str() + eq + 1);
    }
    return values;
}

std::string Format(const char* format, double value) {
    char buf[64];
    std::snprintf(buf, sizeof buf, format, value);
    return buf;
}

std::string CpuName() {
    std::FILE* f = std::fopen("/proc/cpuinfo", "r");
    if (!f) return "unknown";
    char line[512];
    std::string name = "unknown";
    while (std::fgets(line, sizeof line, f)) {
        if (!std::strncmp(line, "model name", 10)) {
            const char* colon = std::strchr(line, ':');
            if (colon) name = colon + 2;
            if (!name.empty() && name.back() == '\n') name.pop_back();
            break;
        }
    }
    std::fclose(f);
    return name;
}

std::string Table(const std::vector<Row>& rows) {
    std::ostringstream t;
    t << "| deck | MB | lines | phase | seconds | MB/s | lines/s | x floor |\n"
      << "|---|---:|---:|---|---:|---:|---:|---:|\n";
    for (const Row& r : rows) {
        const double mb = r.values.at("bytes") / 1e6, lines = r.values.at("lines");
        const double floor = r.values.at("floor");
        auto line = [&](const std::string& phase, double s) {
            // Below a millisecond a rate says more about the clock than about the phase.
            const bool rated = s >= 1e-3;
            t << "| " << r.deck << " | " << Format("%.1f", mb) << " | " << Format("%.0f", lines) << " | " << phase
              << " | " << Format("%.3f", s) << " | " << (rated ? Format("%.0f", mb / s) : "-") << " | "
              << (rated ? Format("%.2e", lines / s) : "-") << " | " << Format("%.2f", s / floor) << " |\n";
        };
        line("floor (fgets + strtod)", floor);
        for (int i = 0; i < inp_phases::kDeckPhaseCount; ++i)
            line(inp_phases::kDeckPhases[i].name, r.values.at(inp_phases::kDeckPhases[i].name));
        line("whole road", r.values.at("road"));
    }
    t << "\n| deck | file MB | peak RSS MB | RSS at start MB | peak - start MB | (peak - start) / file |\n"
      << "|---|---:|---:|---:|---:|---:|\n";
    for (const Row& r : rows) {
        const double file = r.values.at("bytes") / 1e6;
        const double hwm = r.values.at("hwm") * 1024 / 1e6, start = r.values.at("rss0") * 1024 / 1e6;
        t << "| " << r.deck << " | " << Format("%.1f", file) << " | " << Format("%.1f", hwm) << " | "
          << Format("%.1f", start) << " | " << Format("%.1f", hwm - start) << " | "
          << Format("%.2f", (hwm - start) / file) << " |\n";
    }
    return t.str();
}

// The largest deck of a variant, or null.
const Row* Largest(const std::vector<Row>& rows, const std::string& variant) {
    const Row* found = nullptr;
    int largest = -1;
    for (const Row& r : rows) {
        if (r.deck.compare(0, variant.size() + 1, variant + "-") != 0) continue;
        const int n = std::atoi(r.deck.c_str() + variant.size() + 1);
        if (n > largest) {
            largest = n;
            found = &r;
        }
    }
    return found;
}

double PeakOverFile(const Row& r) { return (r.values.at("hwm") - r.values.at("rss0")) * 1024 / r.values.at("bytes"); }

// "2.10x the floor (target 3x: met)"
std::string Verdict(double value, double target, const char* of) {
    return Format("%.2f", value) + "x " + of + " (target " + Format("%g", target) + "x: " +
           (value <= target ? "met" : "missed") + ")";
}

// The targets on the largest decks: on the flat one reading within 0.8x the floor, the
// whole road within 3x and the peak within 2x the file; on the assembly one the road
// within 3x and the peak within 2.5x.
std::string Targets(const std::vector<Row>& rows) {
    std::ostringstream t;
    if (const Row* flat = Largest(rows, "flat")) {
        double reading = 0;
        std::string names;
        for (int i = 0; i < inp_phases::kDeckPhaseCount; ++i) {
            if (!inp_phases::kDeckPhases[i].reads) continue;
            reading += flat->values.at(inp_phases::kDeckPhases[i].name);
            names += names.empty() ? "" : " + ";
            names += inp_phases::kDeckPhases[i].name;
        }
        const double floor = flat->values.at("floor");
        t << "Targets on " << flat->deck << ": " << names << " at " << Verdict(reading / floor, 0.8, "the floor")
          << "; the whole road at " << Verdict(flat->values.at("road") / floor, 3.0, "the floor")
          << "; peak memory at " << Verdict(PeakOverFile(*flat), 2.0, "the file") << ".\n";
    }
    if (const Row* assembly = Largest(rows, "assembly")) {
        t << "\nTargets on " << assembly->deck << ": the whole road at "
          << Verdict(assembly->values.at("road") / assembly->values.at("floor"), 3.0, "the floor")
          << "; peak memory at " << Verdict(PeakOverFile(*assembly), 2.5, "the file") << ".\n";
    }
    return t.str();
}

// How the whole road grows with the deck: time and memory per MB of the largest flat
// deck against the next smaller one. The aim for a deck ten times the size: time per MB
// within 15 % and memory per MB no higher.
std::string Growth(const std::vector<Row>& rows) {
    std::vector<const Row*> flat;
    for (const Row& r : rows)
        if (r.deck.compare(0, 5, "flat-") == 0) flat.push_back(&r);
    std::sort(flat.begin(), flat.end(), [](const Row* a, const Row* b) {
        return std::atoi(a->deck.c_str() + 5) < std::atoi(b->deck.c_str() + 5);
    });
    if (flat.size() < 2) return "";
    const Row& small = *flat[flat.size() - 2];
    const Row& large = *flat.back();
    auto perMb = [](const Row& r) { return r.values.at("road") / (r.values.at("bytes") / 1e6); };
    const double time = perMb(large) / perMb(small), memory = PeakOverFile(large) / PeakOverFile(small);
    std::ostringstream t;
    t << "\n## Growth\n\n"
      << "The whole road on " << large.deck << " against " << small.deck << ": "
      << Format("%.2f", perMb(large) * 1e3) << " ms per MB against " << Format("%.2f", perMb(small) * 1e3)
      << " (" << Format("%+.0f", (time - 1) * 100) << " %, aim within 15 %: " << (time <= 1.15 ? "met" : "missed")
      << "); peak memory " << Format("%.2f", PeakOverFile(large)) << "x the file against "
      << Format("%.2f", PeakOverFile(small)) << "x (aim no higher: " << (memory <= 1.0 ? "met" : "missed")
      << ").\n";
    return t.str();
}

// The id tables under the node and element maps: memory per id of a dense run and of a
// few ids near the top of the id range, and the time of a lookup of a present id.
template <class T>
std::string TableRow(const char* label, int first, int count, int step) {
    omi_IntTable<T> table;
    for (int i = 0; i < count; ++i) table.Insert(first + i * step, T());
    const double bytes = static_cast<double>(table.MemoryBytes());
    const int lookups = 20000000;
    volatile int found = 0;
    unsigned state = 12345;
    const Clock::time_point start = Clock::now();
    for (int i = 0; i < lookups; ++i) {
        state = state * 1664525u + 1013904223u;
        const int id = first + static_cast<int>(state % static_cast<unsigned>(count)) * step;
        found = found + table.HasKey(id);
    }
    const double ns = Since(start) * 1e9 / lookups;
    std::ostringstream row;
    row << "| " << label << " | " << count << " | " << Format("%.2f", bytes / (1024.0 * 1024.0)) << " | "
        << Format("%.1f", bytes / count) << " | " << Format("%.0f", sizeof(T) * 1.0) << " | " << Format("%.1f", ns)
        << " |\n";
    return row.str();
}

std::string Containers() {
    std::string t =
        "## Id tables\n\n"
        "`omi_IntTable` of the given records, filled in ascending order; memory is the tables' own count\n"
        "(block slots, value chunks, bit vectors), without allocator overhead; a lookup asks `HasKey` for\n"
        "a random present id.\n\n"
        "| table | ids | MB | bytes per id | record bytes | ns per lookup |\n"
        "|---|---:|---:|---:|---:|---:|\n";
    t += TableRow<int>("int, ids 1..1000000", 1, 1000000, 1);
    t += TableRow<inp_Coord>("inp_Coord, ids 1..1000000", 1, 1000000, 1);
    t += TableRow<int>("int, every 10th id", 1, 1000000, 10);
    t += TableRow<int>("int, 100 ids from 999999900", 999999900, 100, 1);
    return t;
}

// ---- the driver ----------------------------------------------------------------------

// One run of the driver: wall seconds and peak RSS in kB, or a negative time when it
// failed. Run as a child of its own, so that its peak is its own.
std::pair<double, long> RunDriver(const std::vector<std::string>& args) {
    std::vector<char*> argv;
    for (const std::string& a : args) argv.push_back(const_cast<char*>(a.c_str()));
    argv.push_back(nullptr);
    const Clock::time_point start = Clock::now();
    const pid_t pid = fork();
    if (pid == 0) {
        execv(argv[0], argv.data());
        _exit(127);
    }
    int status = 0;
    struct rusage usage;
    if (pid < 0 || wait4(pid, &status, 0, &usage) != pid || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return {-1.0, 0};
    return {Since(start), usage.ru_maxrss};
}

// One run of the driver as a user types it, best of `reps`; `base` is the run whose
// time the output's cost is taken on top of (null: this run is a road itself).
struct DriverRun {
    std::string deck;
    std::string name;
    std::vector<std::string> args;
    const DriverRun* base = nullptr;
    double floor = 0;
    double bytes = 0;  // of the deck
    double seconds = 1e300;
    long peak = 0;
};

std::string DriverPath() { return std::string(INP_BENCH_DIR) + "/../inpdeck"; }

// The driver as a process per run, best of three (one on decks past 200 MB), the output
// into files beside the decks: on the largest flat deck the road alone and with the
// deck printed by `-p`; on the largest assembly deck the road alone, with the model
// written by `--json` and by `--vtk`, and with the deck written flat by `--flat`.
std::string DriverRuns(const std::string& flatDeck, const Row* flat, const std::string& assemblyDeck,
                       const Row* assembly) {
    const std::string driver = DriverPath(), out = std::string(INP_BENCH_DIR) + "/out";
    std::vector<DriverRun> runs;
    runs.reserve(8);
    auto add = [&](const std::string& deck, const Row* row, const char* name, std::vector<std::string> options,
                   bool road) {
        DriverRun r;
        r.deck = row->deck;
        r.name = name;
        r.args.push_back(driver);
        r.args.insert(r.args.end(), options.begin(), options.end());
        r.args.push_back(deck);
        r.floor = row->values.at("floor");
        r.bytes = row->values.at("bytes");
        r.base = road ? nullptr : &runs.back();
        while (r.base && r.base->base) r.base = r.base->base;
        runs.push_back(r);
    };
    if (flat) {
        add(flatDeck, flat, "inpdeck --quiet DECK", {"--quiet"}, true);
        add(flatDeck, flat, "inpdeck --quiet -p FILE DECK", {"--quiet", "-p", out + ".inp"}, false);
    }
    if (assembly) {
        add(assemblyDeck, assembly, "inpdeck --quiet DECK", {"--quiet"}, true);
        add(assemblyDeck, assembly, "+ --json FILE", {"--quiet", "--json", out + ".json"}, false);
        add(assemblyDeck, assembly, "+ --vtk FILE", {"--quiet", "--vtk", out + ".vtu"}, false);
        add(assemblyDeck, assembly, "+ --flat FILE", {"--quiet", "--flat", out + ".inp"}, false);
    }
    for (DriverRun& r : runs) {
        const int reps = r.bytes > 200e6 ? 1 : 3;
        for (int rep = 0; rep < reps; ++rep) {
            const std::pair<double, long> t = RunDriver(r.args);
            if (t.first < 0) return "The driver failed on " + r.deck + " (" + r.name + "): no driver timings.\n";
            r.seconds = std::min(r.seconds, t.first);
            r.peak = std::max(r.peak, t.second);
        }
        std::fprintf(stderr, "inp_bench: %s %s measured\n", r.deck.c_str(), r.name.c_str());
    }
    for (const char* suffix : {".inp", ".json", ".vtu"}) std::remove((out + suffix).c_str());

    std::ostringstream t;
    t << "## The driver\n\n"
      << "`inpdeck` as a user runs it, a process per run, the output into a file: the road alone,\n"
      << "then with an output. `x floor` is the whole run over the floor of the same deck; `output` is\n"
      << "the time on top of the road and its own `x floor`.\n\n"
      << "| deck | run | seconds | x floor | output seconds | output x floor | peak RSS MB |\n"
      << "|---|---|---:|---:|---:|---:|---:|\n";
    for (const DriverRun& r : runs) {
        const double extra = r.base ? r.seconds - r.base->seconds : 0;
        t << "| " << r.deck << " | `" << r.name << "` | " << Format("%.3f", r.seconds) << " | "
          << Format("%.2f", r.seconds / r.floor) << " | " << (r.base ? Format("%.3f", extra) : "-") << " | "
          << (r.base ? Format("%.2f", extra / r.floor) : "-") << " | " << Format("%.1f", r.peak / 1024.0) << " |\n";
    }
    t << "\n";
    for (const DriverRun& r : runs) {
        if (r.name.find("-p FILE") != std::string::npos)
            t << "`inpdeck -p FILE` on " << r.deck << ": " << Verdict(r.seconds / r.floor, 3.5, "the floor") << ".\n";
        if (r.name.find("--json") != std::string::npos)
            t << "`--json` on " << r.deck << ": " << Verdict((r.seconds - r.base->seconds) / r.floor, 3.0, "the floor")
              << " on top of the road.\n";
        if (r.name.find("--flat") != std::string::npos)
            t << "`--flat` on " << r.deck << ": " << Verdict(r.seconds / r.floor, 5.0, "the floor") << ".\n";
    }
    return t.str() + "\n";
}

// meshio's read() of the flat decks, where Debian's python3-meshio is there: what many
// users would reach for instead. Its time and the peak of the Python process over the
// interpreter's peak with meshio imported; one run each, decks past 200 MB left out.
std::string MeshioRows(const std::vector<std::pair<std::string, const Row*>>& decks) {
    const char* python = "/usr/bin/python3";
    int status = 0;
    Capture(std::string(python) + " -c 'import meshio' 2>/dev/null", status);
    if (status != 0) return "";
    std::ostringstream t;
    t << "## meshio\n\n"
      << "`meshio.read()` of the flat decks (python3-meshio, one run each, decks past 200 MB left out),\n"
      << "against the library's whole road on the same deck.\n\n"
      << "| deck | meshio seconds | x floor | library road x floor | meshio peak - start MB |\n"
      << "|---|---:|---:|---:|---:|\n";
    const std::string script =
        "import resource,sys,time\nimport meshio\n"
        "start=resource.getrusage(resource.RUSAGE_SELF).ru_maxrss\n"
        "t=time.time()\nmesh=meshio.read(sys.argv[1])\nt=time.time()-t\n"
        "print(t,resource.getrusage(resource.RUSAGE_SELF).ru_maxrss-start)\n";
    int rows = 0;
    for (const auto& deck : decks) {
        const Row& r = *deck.second;
        if (r.values.at("bytes") > 200e6) continue;
        const std::string line = Capture(std::string(python) + " -c " + Quote(script) + " " + deck.first, status);
        double seconds = 0, kb = 0;
        if (status != 0 || std::sscanf(line.c_str(), "%lf %lf", &seconds, &kb) != 2) continue;
        const double floor = r.values.at("floor");
        t << "| " << r.deck << " | " << Format("%.3f", seconds) << " | " << Format("%.2f", seconds / floor) << " | "
          << Format("%.2f", r.values.at("road") / floor) << " | " << Format("%.1f", kb / 1024.0) << " |\n";
        std::fprintf(stderr, "inp_bench: meshio on %s measured\n", r.deck.c_str());
        ++rows;
    }
    return rows ? t.str() + "\n" : "";
}

int RunAll(const std::vector<int>& sizes, const std::vector<std::string>& variants, const std::string& outFile) {
    const std::string source = INP_SOURCE_DIR, work = INP_BENCH_DIR;
    std::vector<Row> rows;
    // One deck in a process of its own; `environment` goes in front of the command.
    auto measure = [&](const std::string& label, const std::string& files, int minReps,
                       const std::string& environment) {
        int status = 0;
        const std::string line =
            Capture(environment + Quote(SelfPath()) + " --one " + std::to_string(minReps) + " " + files, status);
        Row row;
        row.deck = label;
        row.values = ParseResultLine(line);
        if (status != 0 || !row.values.count("road")) {
            std::fprintf(stderr, "inp_bench: measuring %s failed\n", label.c_str());
            return false;
        }
        std::fprintf(stderr, "inp_bench: %s measured\n", label.c_str());
        rows.push_back(row);
        return true;
    };
    std::string largestFlat, largestFlatDeck, largestAssembly;
    std::vector<std::pair<std::string, size_t>> flatDeckPaths;
    int largestN = 0, largestAssemblyN = 0;
    for (int n : sizes) {
        for (const std::string& variant : variants) {
            int status = 0;
            std::string deck = Capture("python3 " + Quote(source + "/bench/gendeck") + " " + std::to_string(n) + " " +
                                           Quote(variant) + " " + Quote(work),
                                       status);
            while (!deck.empty() && (deck.back() == '\n' || deck.back() == '\r')) deck.pop_back();
            if (status != 0 || deck.empty()) {
                std::fprintf(stderr, "inp_bench: gendeck %d %s failed\n", n, variant.c_str());
                return 1;
            }
            std::string files = Quote(deck);
            if (variant == "include") {
                const std::string base = deck.substr(0, deck.size() - 4);
                files += " " + Quote(base + "-nodes.inp") + " " + Quote(base + "-elements.inp");
            }
            if (variant == "assembly" && n > largestAssemblyN) {
                largestAssemblyN = n;
                largestAssembly = deck;
            }
            if (variant == "flat" && n > largestN) {
                largestN = n;
                largestFlat = files;
                largestFlatDeck = deck;
            }
            if (!measure(variant + "-" + std::to_string(n), files, n >= 100 ? 3 : 5, "")) return 1;
            if (variant == "flat") flatDeckPaths.emplace_back(deck, rows.size() - 1);
        }
    }
    // Most of a cold parse is the kernel faulting in the heap page by page; with the
    // heap on huge pages that cost nearly goes. The library cannot choose this for the
    // process it runs in, a driver's environment can.
    const std::string hugePages = "GLIBC_TUNABLES=glibc.malloc.hugetlb=1 ";
    if (largestN > 0 && largestN <= 100 && !measure("huge pages: flat-" + std::to_string(largestN), largestFlat, 3, hugePages)) return 1;

    const Row* flatRow = Largest(rows, "flat");
    const Row* assemblyRow = Largest(rows, "assembly");
    std::string driver;
    if (flatRow || assemblyRow) driver = DriverRuns(largestFlatDeck, flatRow, largestAssembly, assemblyRow);
    std::vector<std::pair<std::string, const Row*>> flatDecks;
    for (const auto& d : flatDeckPaths) flatDecks.emplace_back(d.first, &rows[d.second]);
    const std::string meshio = MeshioRows(flatDecks);

    struct utsname host;
    uname(&host);
    char date[32];
    const std::time_t now = std::time(nullptr);
    std::strftime(date, sizeof date, "%Y-%m-%d", std::gmtime(&now));

    std::ostringstream doc;
    doc << "# Performance\n\n"
        << "Written by `make bench` (bench/inp_bench.cpp); do not edit by hand.\n\n"
        << "Decks from `bench/gendeck`: a block of N x N x N C3D8 elements with node sets, element sets,\n"
        << "a material, a section and a static step. `flat` holds everything in one file, `assembly` holds\n"
        << "the block as one part placed twice, `include` has the node and element lines in two include\n"
        << "files.\n\n"
        << "Each time is the best of at least three runs, with the files in the page cache and the heap\n"
        << "given back to the system between runs (malloc_trim), so that every run faults its memory in as\n"
        << "a driver's single run does. The floor reads the same files with a 257-byte `fgets` loop that\n"
        << "cuts lines at commas and converts every field with `strtod`; `x floor` is the phase's time over\n"
        << "the floor's. Print writes to a stream that counts and drops the bytes. The whole road\n"
        << "constructs the deck, runs every phase and frees it. Memory is VmHWM of a fresh process per\n"
        << "deck; RSS at start is the process before the library is initialised. The row `huge pages` runs\n"
        << "the largest flat deck once more with `GLIBC_TUNABLES=glibc.malloc.hugetlb=1`, which puts the\n"
        << "heap on transparent huge pages: most of a cold parse is the kernel faulting the heap in.\n\n"
        << "Machine: " << CpuName() << ", " << host.sysname << " " << host.release << "; " << date << ".\n\n"
        << Table(rows) << "\n"
        << Targets(rows) << Growth(rows) << "\n"
        << driver << meshio
        << Containers();
    std::fputs(doc.str().c_str(), stdout);
    if (!outFile.empty()) {
        std::FILE* f = std::fopen(outFile.c_str(), "w");
        if (!f || std::fputs(doc.str().c_str(), f) < 0) {
            std::fprintf(stderr, "inp_bench: cannot write %s\n", outFile.c_str());
            if (f) std::fclose(f);
            return 1;
        }
        std::fclose(f);
    }
    return 0;
}

int Usage() {
    std::fputs("usage: inp_bench [--sizes 20,50,100] [--variants flat,assembly,include] [--out FILE]\n"
               "       inp_bench --one MINREPS DECK [FILE...]\n"
               "       inp_bench --tables\n",
               stderr);
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc >= 4 && !std::strcmp(argv[1], "--one")) {
        const int reps = std::max(1, std::atoi(argv[2]));
        return MeasureOne(reps, std::vector<std::string>(argv + 3, argv + argc));
    }
    if (argc == 2 && !std::strcmp(argv[1], "--tables")) {
        std::fputs(Containers().c_str(), stdout);
        return 0;
    }
    std::vector<int> sizes = {20, 50, 100};
    std::vector<std::string> variants = {"flat", "assembly", "include"};
    std::string out = std::string(INP_SOURCE_DIR) + "/docs/performance.md";
    for (int i = 1; i < argc; ++i) {
        if (i + 1 >= argc) return Usage();
        const std::string arg = argv[i], value = argv[++i];
        if (arg == "--sizes") {
            sizes.clear();
            for (const std::string& s : Split(value, ',')) sizes.push_back(std::atoi(s.c_str()));
        } else if (arg == "--variants") {
            variants = Split(value, ',');
        } else if (arg == "--out") {
            out = value;
        } else {
            return Usage();
        }
    }
    return RunAll(sizes, variants, out);
}
