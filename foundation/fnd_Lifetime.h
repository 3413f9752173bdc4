// Start and end of the foundation libraries.
//
// Each library has an x_initialize/x_finalize pair that does what little its library
// needs; the count it is given is the caller's and stays as it is (inp_initialize raises
// it once for the whole chain). The library frame calls
// the initialisers in the order of fnd_InitializeAll, and the finalisers in reverse,
// once per process (it keeps the reference count of its callers itself). Every call
// is written to a log, so a test can check that order.
#ifndef FND_LIFETIME_H
#define FND_LIFETIME_H

#include "cow_1DArrayList.h"
#include "cow_String.h"

void mem_initialize(int& count);
void typ_initialize(int& count);
void thr_initialize(int& count);
void pnt_initialize(int& count);
void omni_initialize(int& count);
void atr_initialize(int& count);
void cow_initialize(int& count);
void nex_initialize(int& count);
void wip_initialize(int& count);
void utl_initialize(int& count);
void uti_initialize(int& count);
void inpM_initialize(int& count);
void shp_initialize(int& count);
void gsl_initialize(int& count);

void gsl_finalize(int& count);
void shp_finalize(int& count);
void inpM_finalize(int& count);
void uti_finalize(int& count);
void utl_finalize(int& count);
void wip_finalize(int& count);
void nex_finalize(int& count);
void cow_finalize(int& count);
void atr_finalize(int& count);
void omni_finalize(int& count);
void pnt_finalize(int& count);
void thr_finalize(int& count);
void typ_finalize(int& count);
void mem_finalize(int& count);

// All initialisers, from mem to gsl.
void fnd_InitializeAll(int& count);
// All finalisers, from gsl back to mem.
void fnd_FinalizeAll(int& count);

// The names of the calls since the last clear, oldest first ("mem_initialize", ...).
cow_1DArrayList<cow_String> fnd_LifetimeLog();
void fnd_ClearLifetimeLog();

#endif
