#include <gtest/gtest.h>

#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "omi_Singleton.h"
#include "thr_GlobalLock.h"
#include "thr_GlobalSingleton.h"
#include "thr_ThrSingletonRegistry.h"

namespace {

struct Counter {
    int value = 0;
};

// What the destroy functions did, in order, across threads.
std::mutex g_logMutex;
std::vector<std::string> g_log;
void Log(const std::string& s) {
    std::lock_guard<std::mutex> hold(g_logMutex);
    g_log.push_back(s);
}
std::vector<std::string> TakeLog() {
    std::lock_guard<std::mutex> hold(g_logMutex);
    std::vector<std::string> out;
    out.swap(g_log);
    return out;
}

// Stand-ins for per-thread objects: a thread "has" one while its flag is set, and
// its destroy function does nothing on a thread without one.
thread_local bool t_hasA = false, t_hasB = false, t_hasC = false, t_hasThrowing = false;
int DestroyA() {
    if (t_hasA) Log("A");
    t_hasA = false;
    return 0;
}
int DestroyB() {
    if (t_hasB) Log("B");
    t_hasB = false;
    return 0;
}
int DestroyC() {
    if (t_hasC) Log("C");
    t_hasC = false;
    return 0;
}
int DestroyThrowing() {
    if (t_hasThrowing) {
        t_hasThrowing = false;
        Log("throws");
        throw 1;
    }
    return 0;
}

}  // namespace

TEST(ThrSingleton, ProcessWideObjectsAreSharedByThreads) {
    Counter* fromMain = &omi_Singleton<Counter>::Instance();
    thr_GlobalLock* lockFromMain = &omi_Singleton<thr_GlobalLock>::Instance();
    Counter* global = &thr_GlobalSingleton<Counter>::Instance();
    Counter* fromThread = nullptr;
    thr_GlobalLock* lockFromThread = nullptr;
    Counter* globalFromThread = nullptr;
    std::thread t([&] {
        fromThread = &omi_Singleton<Counter>::Instance();
        lockFromThread = &omi_Singleton<thr_GlobalLock>::Instance();
        globalFromThread = &thr_GlobalSingleton<Counter>::Instance();
    });
    t.join();
    EXPECT_EQ(fromMain, fromThread);
    EXPECT_EQ(lockFromMain, lockFromThread);
    EXPECT_EQ(global, globalFromThread);
}

TEST(ThrGlobalLock, ExcludesOtherThreadsAndNests) {
    thr_GlobalLock& lock = omi_Singleton<thr_GlobalLock>::Instance();
    // Plain, unguarded increments: only the lock keeps them from being lost.
    long total = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] {
            for (int k = 0; k < 20000; ++k) {
                thr_GlobalLock::Guard hold;
                long seen = total;
                total = seen + 1;
            }
        });
    }
    for (std::thread& t : threads) t.join();
    EXPECT_EQ(total, 80000);

    // The holder may take it again, and gives it up with as many Unlocks; another
    // thread gets it then.
    lock.Lock();
    lock.Lock();
    lock.Unlock();
    lock.Unlock();
    bool otherGotIt = false;
    std::thread other([&] {
        thr_GlobalLock::Guard hold;
        otherGotIt = true;
    });
    other.join();
    EXPECT_TRUE(otherGotIt);
}

TEST(ThrThrSingletonRegistry, ThreadEndRunsDestroyFunctionsInLevelOrder) {
    thr_ThrSingletonRegistry& registry = thr_GlobalSingleton<thr_ThrSingletonRegistry>::Instance();
    TakeLog();
    std::thread t([&] {
        t_hasA = t_hasB = t_hasC = t_hasThrowing = true;
        registry.Register(&DestroyA);                                                   // default level 5
        registry.SetDestructLevel(&DestroyB, static_cast<thr_ThreadObjectDestructLevel>(9));  // registers too
        registry.Register(&DestroyC);
        registry.SetDestructLevel(&DestroyThrowing, thr_DestructEarliest);
        registry.Register(&DestroyA);  // again: no second entry
    });
    t.join();
    // Level 0 first (its exception is swallowed), then level 5 in reverse order of
    // registration, then level 9.
    EXPECT_EQ(TakeLog(), (std::vector<std::string>{"throws", "C", "A", "B"}));

    // A thread that never armed itself runs nothing, even though the functions are
    // registered; an armed thread without objects runs them harmlessly.
    std::thread quiet([] { t_hasA = true; });
    quiet.join();
    std::thread armed([&] { registry.ArmCallingThread(); });
    armed.join();
    EXPECT_TRUE(TakeLog().empty());

    EXPECT_EQ(registry.DestructLevel(&DestroyB), 9);
    EXPECT_EQ(registry.DestructLevel(&DestroyA), thr_DestructDefault);
    registry.SetDestructLevel(&DestroyB, static_cast<thr_ThreadObjectDestructLevel>(99));
    EXPECT_EQ(registry.DestructLevel(&DestroyB), thr_DestructLatest);

    // Teardown on demand, as a finaliser does it for the calling thread.
    t_hasB = true;
    registry.DestroyThreadObjects();
    EXPECT_EQ(TakeLog(), std::vector<std::string>{"B"});

    for (auto f : {&DestroyA, &DestroyB, &DestroyC, &DestroyThrowing}) {
        registry.Unregister(f);
        EXPECT_FALSE(registry.IsRegistered(f));
    }
}
