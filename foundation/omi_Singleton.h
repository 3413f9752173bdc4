// omi_Singleton: one process-wide object of a class, made on first use.
//
// The object lives in a function-local static, so its construction is
// thread-safe and it is destroyed at process exit in reverse order of
// creation. Per-thread objects (the keyword table, the error sink) need a
// different holder; this one is for objects that every thread shares, such
// as the geometric tolerance or the global lock.
#ifndef OMI_SINGLETON_H
#define OMI_SINGLETON_H

template <class T>
class omi_Singleton {
public:
    static T& Instance()
    {
        static T instance;
        return instance;
    }

    omi_Singleton() = delete;
};

#endif
