// A stopwatch for the timing lines of the debug output: wall-clock and CPU seconds
// between one Start and the Stop after it.
//
// The CPU time is that of the whole process (std::clock), so on a driver that runs
// other threads at the same time it can exceed the elapsed time. Read after Stop; a
// read while the timer runs gives the time up to the read, and a timer never started
// reads 0. Start again begins a new measurement.
#ifndef OMI_TIMER_H
#define OMI_TIMER_H

#include <chrono>
#include <ctime>

class omi_Timer {
public:
    omi_Timer();

    void Start();
    void Stop();
    double GetElapsedTime() const;
    double GetTotalCpuTime() const;

private:
    typedef std::chrono::steady_clock Clock;
    Clock::time_point m_wallStart;
    Clock::time_point m_wallStop;
    std::clock_t m_cpuStart;
    std::clock_t m_cpuStop;
    bool m_started;
    bool m_running;
};

#endif
