// A process-wide object of T shared by all threads, made on first use (the first use
// is thread-safe) and destroyed at process exit. T guards its own state if threads
// change it.
#ifndef THR_GLOBALSINGLETON_H
#define THR_GLOBALSINGLETON_H

template <class T>
class thr_GlobalSingleton {
public:
    static T& Instance() {
        static T instance;
        return instance;
    }
};

#endif
