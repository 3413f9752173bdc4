#include "inp_Library.h"

#include "fnd_Lifetime.h"
#include "inp_KeywordTable.h"

namespace {
int g_references = 0;
}

int inp_initializeCount() { return g_references; }

void inp_initialize(int& count) {
    if (g_references++ != 0) return;
    ++count;
    mem_initialize(count);
    typ_initialize(count);
    thr_initialize(count);
    pnt_initialize(count);
    omni_initialize(count);
    atr_initialize(count);
    cow_initialize(count);
    nex_initialize(count);
    wip_initialize(count);
    utl_initialize(count);
    uti_initialize(count);
    inpM_initialize(count);
    shp_initialize(count);
    gsl_initialize(count);
}

void inp_finalize(int& count) {
    if (g_references <= 0) return;
    if (--g_references != 0) return;
    --count;
    thr_ThreadSingleton<inp_KeywordTable>::Destroy();
    gsl_finalize(count);
    shp_finalize(count);
    inpM_finalize(count);
    uti_finalize(count);
    utl_finalize(count);
    wip_finalize(count);
    nex_finalize(count);
    cow_finalize(count);
    atr_finalize(count);
    omni_finalize(count);
    pnt_finalize(count);
    thr_finalize(count);
    typ_finalize(count);
    mem_finalize(count);
}
