// Library entry: inp_initialize and inp_finalize.
//
// A reference counter private to the library counts the calls; only the rise from 0
// runs the foundation initialisers (and raises `count` by 1), only the fall to 0 runs
// the finalisers in the reverse order and tears down the calling thread's keyword
// table. The library is initialised from one thread: the counter is not guarded.
#ifndef INP_LIBRARY_H
#define INP_LIBRARY_H

void inp_initialize(int& count);
void inp_finalize(int& count);

// How many times the library is initialised now (for drivers and tests).
int inp_initializeCount();

#endif
