#include "thr_GlobalLock.h"

template <>
thr_GlobalLock& omi_Singleton<thr_GlobalLock>::Instance() {
    static thr_GlobalLock instance;
    return instance;
}

thr_GlobalLock::Guard::Guard() { omi_Singleton<thr_GlobalLock>::Instance().Lock(); }
thr_GlobalLock::Guard::~Guard() { omi_Singleton<thr_GlobalLock>::Instance().Unlock(); }
