// A process-wide object of T, made on first use and destroyed at process exit.
#ifndef OMI_SINGLETON_H
#define OMI_SINGLETON_H

template <class T>
class omi_Singleton {
public:
    static T& Instance() {
        static T instance;
        return instance;
    }
};

#endif
