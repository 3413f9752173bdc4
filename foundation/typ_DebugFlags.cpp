#include "typ_DebugFlags.h"

#include <atomic>

namespace {
// Relaxed atomics: a driver sets a level before it starts a phase, and a late reader
// seeing the old level for one line of output does no harm.
std::atomic<int> g_levels[typ_DebugFlags::kFlagCount];
}  // namespace

int typ_DebugFlags::GetDebugFlags(unsigned flag) {
    if (flag >= kFlagCount) return 0;
    return g_levels[flag].load(std::memory_order_relaxed);
}

void typ_DebugFlags::SetDebugFlags(unsigned flag, int level) {
    if (flag >= kFlagCount) return;
    g_levels[flag].store(level, std::memory_order_relaxed);
}

void typ_DebugFlags::ResetDebugFlags() {
    for (std::atomic<int>& level : g_levels) level.store(0, std::memory_order_relaxed);
}
