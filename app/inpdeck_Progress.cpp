#include "inpdeck_Progress.h"

#include <unistd.h>

#include <cstdio>
#include <cstring>

namespace inpdeck {

namespace {

constexpr auto kQuiet = std::chrono::seconds(1);          // a phase shorter than this shows no line
constexpr auto kEvery = std::chrono::milliseconds(250);   // the line's refresh

double Seconds(std::chrono::steady_clock::duration d) { return std::chrono::duration<double>(d).count(); }

}  // namespace

PhaseProgress::PhaseProgress(bool verbose) : verbose_(verbose), terminal_(verbose && isatty(STDERR_FILENO)) {}

PhaseProgress::~PhaseProgress() {
    if (ticker_.joinable()) End(0);
}

long long PhaseProgress::BytesRead() {
    // Linux counts every byte the process read, the include files' too: the parser
    // needs no hook for the line to show how far it has come.
    std::FILE* io = std::fopen("/proc/self/io", "r");
    if (!io) return -1;
    long long bytes = -1;
    char line[128];
    while (std::fgets(line, sizeof line, io))
        if (!std::strncmp(line, "rchar:", 6)) bytes = std::atoll(line + 6);
    std::fclose(io);
    return bytes;
}

void PhaseProgress::Begin(const char* phase) {
    if (!verbose_) return;
    phase_ = phase;
    start_ = std::chrono::steady_clock::now();
    readAtStart_ = BytesRead();
    if (!terminal_) return;
    running_ = true;
    ticker_ = std::thread([this] { Tick(); });
}

void PhaseProgress::Tick() {
    std::unique_lock<std::mutex> lock(mutex_);
    while (running_) {
        wake_.wait_for(lock, kEvery);
        if (!running_) break;
        const auto elapsed = std::chrono::steady_clock::now() - start_;
        if (elapsed < kQuiet) continue;
        char read[64] = "";
        const long long now = BytesRead();
        if (now >= 0 && readAtStart_ >= 0 && !std::strcmp(phase_, "parse"))
            std::snprintf(read, sizeof read, ", %.1f MB read", (now - readAtStart_) / 1e6);
        std::fprintf(stderr, "\rinpdeck: %s: %.1f s%s   ", phase_, Seconds(elapsed), read);
        std::fflush(stderr);
        shown_ = true;
    }
}

void PhaseProgress::End(double bytes) {
    if (!verbose_) return;
    const double seconds = Seconds(std::chrono::steady_clock::now() - start_);
    if (ticker_.joinable()) {
        {
            std::lock_guard<std::mutex> lock(mutex_);
            running_ = false;
        }
        wake_.notify_one();
        ticker_.join();
        if (shown_) std::fprintf(stderr, "\r%60s\r", "");
        shown_ = false;
    }
    if (bytes > 0 && seconds >= 0.001)
        std::fprintf(stderr, "inpdeck: %s: %.3f s, %.1f MB/s\n", phase_, seconds, bytes / 1e6 / seconds);
    else
        std::fprintf(stderr, "inpdeck: %s: %.3f s\n", phase_, seconds);
}

}  // namespace inpdeck
