// -v: each phase told as it ends, with its time and rate; and on a terminal, a phase
// that runs longer than a second shows a line that ticks on standard error (with the
// bytes read so far while the deck is parsed), so that a large deck is seen to move.
// Nothing of the ticking line reaches a pipe or a file.
#ifndef INPDECK_PROGRESS_H
#define INPDECK_PROGRESS_H

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace inpdeck {

class PhaseProgress {
public:
    explicit PhaseProgress(bool verbose);
    ~PhaseProgress();
    PhaseProgress(const PhaseProgress&) = delete;
    PhaseProgress& operator=(const PhaseProgress&) = delete;

    void Begin(const char* phase);
    // `bytes` is what the phase worked through, for its rate; 0 gives none.
    void End(double bytes);
    // The bytes the process has read so far, or -1 where the system does not tell.
    static long long BytesRead();

private:
    void Tick();

    bool verbose_, terminal_;
    const char* phase_ = nullptr;
    std::chrono::steady_clock::time_point start_;
    long long readAtStart_ = 0;
    std::mutex mutex_;
    std::condition_variable wake_;
    bool running_ = false;
    bool shown_ = false;  // a ticking line stands on the terminal
    std::thread ticker_;
};

}  // namespace inpdeck

#endif
