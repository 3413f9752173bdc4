#include <gtest/gtest.h>

#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "thr_GlobalLock.h"
#include "thr_ThrSingletonRegistry.h"

namespace {

std::mutex g_logMutex;
std::string g_log;  // what the destroy functions did, across threads

// Stand-ins for per-thread objects: thread k has object 'A' + k while t_has[k] is
// set, and the destroy function does nothing on a thread without one.
thread_local bool t_has[4];
template <int K>
int Destroy() {
    if (!t_has[K]) return 0;
    t_has[K] = false;
    {
        std::lock_guard<std::mutex> hold(g_logMutex);
        g_log += static_cast<char>('A' + K);
    }
    if (K == 3) throw 1;
    return 0;
}

std::string TakeLog() {
    std::lock_guard<std::mutex> hold(g_logMutex);
    std::string out;
    out.swap(g_log);
    return out;
}

}  // namespace

TEST(ThrGlobalLock, ExcludesOtherThreadsAndNests) {
    long total = 0;  // plain increments: only the lock keeps them from being lost
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int k = 0; k < 20000; ++k) {
                thr_GlobalLock::Guard hold;
                long seen = total;
                total = seen + 1;
            }
        });
    for (std::thread& t : threads) t.join();
    EXPECT_EQ(total, 80000);

    thr_GlobalLock& lock = omi_Singleton<thr_GlobalLock>::Instance();
    lock.Lock();
    lock.Lock();  // the holder may take it again
    lock.Unlock();
    lock.Unlock();
    std::thread([] { thr_GlobalLock::Guard hold; }).join();  // and it is free again
}

TEST(ThrThrSingletonRegistry, ThreadEndRunsDestroyFunctionsInLevelOrder) {
    thr_ThrSingletonRegistry& registry = thr_GlobalSingleton<thr_ThrSingletonRegistry>::Instance();
    TakeLog();
    std::thread([&] {
        t_has[0] = t_has[1] = t_has[2] = t_has[3] = true;
        registry.Register(&Destroy<0>);  // default level 5
        registry.SetDestructLevel(&Destroy<1>, thr_ThreadObjectDestructLevel(9));  // registers too
        registry.Register(&Destroy<2>);
        registry.SetDestructLevel(&Destroy<3>, thr_DestructEarliest);
        registry.Register(&Destroy<0>);  // again: still one entry
    }).join();
    // Level 0 first (its exception swallowed), level 5 in reverse order of
    // registration, then level 9.
    EXPECT_EQ(TakeLog(), "DCAB");

    // A thread that never armed itself runs nothing.
    std::thread([] { t_has[0] = true; }).join();
    EXPECT_EQ(TakeLog(), "");

    registry.SetDestructLevel(&Destroy<1>, thr_ThreadObjectDestructLevel(99));
    EXPECT_EQ(registry.DestructLevel(&Destroy<1>), thr_DestructLatest);
    t_has[1] = true;
    registry.DestroyThreadObjects();  // on demand, as a finaliser may
    EXPECT_EQ(TakeLog(), "B");

    for (auto f : {&Destroy<0>, &Destroy<1>, &Destroy<2>, &Destroy<3>}) registry.Unregister(f);
    EXPECT_FALSE(registry.IsRegistered(&Destroy<0>));
}
