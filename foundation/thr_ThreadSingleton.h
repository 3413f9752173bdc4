// One object of T per thread, made on first use and destroyed at thread end.
#ifndef THR_THREADSINGLETON_H
#define THR_THREADSINGLETON_H

#include <memory>

template <class T>
class thr_ThreadSingleton {
public:
    static T& Instance() {
        std::unique_ptr<T>& slot = Slot();
        if (!slot) slot.reset(new T());
        return *slot;
    }
    // Destroys the calling thread's object; the next Instance() makes a new one.
    static void Destroy() { Slot().reset(); }
    static bool Exists() { return static_cast<bool>(Slot()); }

private:
    static std::unique_ptr<T>& Slot() {
        thread_local std::unique_ptr<T> slot;
        return slot;
    }
};

#endif
