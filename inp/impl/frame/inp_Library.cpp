#include "inp_Library.h"

#include "fnd_Lifetime.h"
#include "inp_KeywordTable.h"

namespace {
int g_references = 0;  // initialised from one thread: not guarded
}

int inp_initializeCount() { return g_references; }

void inp_initialize(int& count) {
    if (g_references++ != 0) return;
    ++count;
    fnd_InitializeAll(count);  // mem, typ, thr, pnt, omni, atr, cow, nex, wip, utl, uti, inpM, shp, gsl
}

void inp_finalize(int& count) {
    if (g_references <= 0) return;
    if (--g_references != 0) return;
    --count;
    thr_ThreadSingleton<inp_KeywordTable>::Destroy();
    fnd_FinalizeAll(count);  // the reverse order
}
