// The one process-wide lock, reached as omi_Singleton<thr_GlobalLock>::Instance().
//
// It guards state that counts all threads, such as the thread-local slot of the
// keyword table and the count of live tables beside it. Hold it briefly: nothing
// that reads a deck should ever wait on it. The mutex is recursive, so that code
// holding the lock may call into a service that takes it again.
#ifndef THR_GLOBALLOCK_H
#define THR_GLOBALLOCK_H

#include <mutex>

#include "omi_Singleton.h"

class thr_GlobalLock {
public:
    thr_GlobalLock() = default;
    thr_GlobalLock(const thr_GlobalLock&) = delete;
    thr_GlobalLock& operator=(const thr_GlobalLock&) = delete;

    void Lock() { m_mutex.lock(); }
    void Unlock() { m_mutex.unlock(); }

    // Holds the global lock for the life of a scope.
    class Guard {
    public:
        Guard();
        ~Guard();
        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;
    };

private:
    std::recursive_mutex m_mutex;
};

// Defined once, in the library, so that every module of the process gets the same
// lock whatever its symbol visibility.
template <>
thr_GlobalLock& omi_Singleton<thr_GlobalLock>::Instance();

#endif
