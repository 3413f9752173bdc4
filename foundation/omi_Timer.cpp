#include "omi_Timer.h"

omi_Timer::omi_Timer() : m_cpuStart(0), m_cpuStop(0), m_started(false), m_running(false) {}

void omi_Timer::Start() {
    m_started = true;
    m_running = true;
    m_cpuStart = std::clock();
    m_wallStart = Clock::now();
}

void omi_Timer::Stop() {
    if (!m_running) return;
    m_wallStop = Clock::now();
    m_cpuStop = std::clock();
    m_running = false;
}

double omi_Timer::GetElapsedTime() const {
    if (!m_started) return 0.0;
    Clock::time_point end = m_running ? Clock::now() : m_wallStop;
    return std::chrono::duration<double>(end - m_wallStart).count();
}

double omi_Timer::GetTotalCpuTime() const {
    if (!m_started) return 0.0;
    std::clock_t end = m_running ? std::clock() : m_cpuStop;
    // std::clock gives (clock_t)-1 when the processor time is not available.
    if (end == static_cast<std::clock_t>(-1) || m_cpuStart == static_cast<std::clock_t>(-1)) return 0.0;
    double seconds = static_cast<double>(end - m_cpuStart) / CLOCKS_PER_SEC;
    return seconds < 0.0 ? 0.0 : seconds;
}
