// Teardown of per-thread objects at thread end, in a fixed order.
//
// A per-thread singleton registers one destroy function for the whole process; the
// function destroys the calling thread's object, if that thread has one, and must be
// harmless on a thread that has none. When a thread that registered (or armed itself)
// ends, the destroy functions run in ascending destruct level: an object that others
// still use in their own teardown takes a higher level than they do. Functions of one
// level run in reverse order of registration, as destructors do.
//
// The keyword table registers at level 9. Register after the thread-local storage of
// your object exists: thread-local objects are destroyed in reverse order of
// construction, and the teardown must run while that storage is still there.
#ifndef THR_THRSINGLETONREGISTRY_H
#define THR_THRSINGLETONREGISTRY_H

#include <mutex>
#include <vector>

#include "thr_GlobalSingleton.h"

// Any value from thr_DestructEarliest to thr_DestructLatest may be given by cast;
// values outside are clamped.
enum thr_ThreadObjectDestructLevel : int {
    thr_DestructEarliest = 0,
    thr_DestructDefault = 5,
    thr_DestructLatest = 15
};

class thr_ThrSingletonRegistry {
public:
    typedef int (*DestroyFunction)();

    thr_ThrSingletonRegistry() = default;
    thr_ThrSingletonRegistry(const thr_ThrSingletonRegistry&) = delete;
    thr_ThrSingletonRegistry& operator=(const thr_ThrSingletonRegistry&) = delete;

    // Adds the function at the default level unless it is there already, and arms the
    // calling thread.
    void Register(DestroyFunction destroy);
    // Sets the function's level, registering it first if need be.
    void SetDestructLevel(DestroyFunction destroy, thr_ThreadObjectDestructLevel level);
    void Unregister(DestroyFunction destroy);
    bool IsRegistered(DestroyFunction destroy) const;
    // The level of a registered function; thr_DestructDefault for any other.
    thr_ThreadObjectDestructLevel DestructLevel(DestroyFunction destroy) const;

    // Makes the calling thread run DestroyThreadObjects when it ends.
    void ArmCallingThread();
    // Runs every registered function now, for the calling thread, in level order. The
    // thread-end guard calls this; a finaliser may call it early, which is why each
    // function must cope with being called when its object is already gone. Whatever
    // a function raises is swallowed: teardown goes on with the next one.
    void DestroyThreadObjects();

private:
    struct Entry {
        DestroyFunction destroy;
        int level;
        unsigned serial;  // registration order, for ties within a level
    };
    Entry* FindLocked(DestroyFunction destroy);
    const Entry* FindLocked(DestroyFunction destroy) const;
    Entry& AddLocked(DestroyFunction destroy);

    mutable std::mutex m_mutex;
    std::vector<Entry> m_entries;
    unsigned m_nextSerial = 0;
};

template <>
thr_ThrSingletonRegistry& thr_GlobalSingleton<thr_ThrSingletonRegistry>::Instance();

#endif
