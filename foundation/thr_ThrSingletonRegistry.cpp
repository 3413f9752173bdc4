#include "thr_ThrSingletonRegistry.h"

#include <algorithm>

template <>
thr_ThrSingletonRegistry& thr_GlobalSingleton<thr_ThrSingletonRegistry>::Instance() {
    static thr_ThrSingletonRegistry instance;
    return instance;
}

namespace {

int Clamp(int level) {
    if (level < thr_DestructEarliest) return thr_DestructEarliest;
    if (level > thr_DestructLatest) return thr_DestructLatest;
    return level;
}

// Destroyed with the thread's other thread-local objects. The registry outlives it
// also on the main thread: thread-local objects of the thread that ends the process
// go before objects of static duration.
struct ThreadEndGuard {
    bool armed = false;
    ~ThreadEndGuard() {
        if (armed) thr_GlobalSingleton<thr_ThrSingletonRegistry>::Instance().DestroyThreadObjects();
    }
};

thread_local ThreadEndGuard t_guard;

}  // namespace

thr_ThrSingletonRegistry::Entry* thr_ThrSingletonRegistry::FindLocked(DestroyFunction destroy) {
    for (Entry& e : m_entries)
        if (e.destroy == destroy) return &e;
    return nullptr;
}

const thr_ThrSingletonRegistry::Entry* thr_ThrSingletonRegistry::FindLocked(DestroyFunction destroy) const {
    for (const Entry& e : m_entries)
        if (e.destroy == destroy) return &e;
    return nullptr;
}

thr_ThrSingletonRegistry::Entry& thr_ThrSingletonRegistry::AddLocked(DestroyFunction destroy) {
    if (Entry* e = FindLocked(destroy)) return *e;
    m_entries.push_back(Entry{destroy, thr_DestructDefault, m_nextSerial++});
    return m_entries.back();
}

void thr_ThrSingletonRegistry::Register(DestroyFunction destroy) {
    if (!destroy) return;
    {
        std::lock_guard<std::mutex> hold(m_mutex);
        AddLocked(destroy);
    }
    ArmCallingThread();
}

void thr_ThrSingletonRegistry::SetDestructLevel(DestroyFunction destroy, thr_ThreadObjectDestructLevel level) {
    if (!destroy) return;
    {
        std::lock_guard<std::mutex> hold(m_mutex);
        AddLocked(destroy).level = Clamp(level);
    }
    ArmCallingThread();
}

void thr_ThrSingletonRegistry::Unregister(DestroyFunction destroy) {
    std::lock_guard<std::mutex> hold(m_mutex);
    m_entries.erase(std::remove_if(m_entries.begin(), m_entries.end(),
                                   [destroy](const Entry& e) { return e.destroy == destroy; }),
                    m_entries.end());
}

bool thr_ThrSingletonRegistry::IsRegistered(DestroyFunction destroy) const {
    std::lock_guard<std::mutex> hold(m_mutex);
    return FindLocked(destroy) != nullptr;
}

thr_ThreadObjectDestructLevel thr_ThrSingletonRegistry::DestructLevel(DestroyFunction destroy) const {
    std::lock_guard<std::mutex> hold(m_mutex);
    const Entry* e = FindLocked(destroy);
    return static_cast<thr_ThreadObjectDestructLevel>(e ? e->level : thr_DestructDefault);
}

void thr_ThrSingletonRegistry::ArmCallingThread() { t_guard.armed = true; }

void thr_ThrSingletonRegistry::DestroyThreadObjects() {
    // Work on a copy and call without the lock: a destroy function may register or
    // unregister, and other threads may end at the same time.
    std::vector<Entry> order;
    {
        std::lock_guard<std::mutex> hold(m_mutex);
        order = m_entries;
    }
    std::sort(order.begin(), order.end(), [](const Entry& a, const Entry& b) {
        if (a.level != b.level) return a.level < b.level;
        return a.serial > b.serial;
    });
    for (const Entry& e : order) {
        try {
            e.destroy();
        } catch (...) {
            // Teardown of one object must not keep the others alive.
        }
    }
}
