#include "fnd_Lifetime.h"

#include <mutex>
#include <vector>

#include "omi_Singleton.h"
#include "pnt_PrettyPrint.h"
#include "thr_GlobalLock.h"
#include "thr_ThrSingletonRegistry.h"
#include "utl_CommandLine.h"

namespace {

// The library frame initialises from one thread, but a test may read the log from
// another; the names are literals, so the log holds no strings of its own.
std::mutex g_logMutex;
std::vector<const char*> g_log;

void Log(const char* name) {
    std::lock_guard<std::mutex> hold(g_logMutex);
    g_log.push_back(name);
}

}  // namespace

void mem_initialize(int& count) { (void)count; Log("mem_initialize"); }
void typ_initialize(int& count) { (void)count; Log("typ_initialize"); }

void thr_initialize(int& count) {
    (void)count;
    // Make the process-wide objects now, while one thread runs, rather than at
    // first use on whichever thread comes first.
    omi_Singleton<thr_GlobalLock>::Instance();
    thr_GlobalSingleton<thr_ThrSingletonRegistry>::Instance();
    Log("thr_initialize");
}

void pnt_initialize(int& count) { (void)count; Log("pnt_initialize"); }
void omni_initialize(int& count) { (void)count; Log("omni_initialize"); }
void atr_initialize(int& count) { (void)count; Log("atr_initialize"); }
void cow_initialize(int& count) { (void)count; Log("cow_initialize"); }
void nex_initialize(int& count) { (void)count; Log("nex_initialize"); }
void wip_initialize(int& count) { (void)count; Log("wip_initialize"); }

void utl_initialize(int& count) {
    (void)count;
    thr_GlobalSingleton<utl_CommandLine>::Instance();
    Log("utl_initialize");
}

void uti_initialize(int& count) { (void)count; Log("uti_initialize"); }
void inpM_initialize(int& count) { (void)count; Log("inpM_initialize"); }
void shp_initialize(int& count) { (void)count; Log("shp_initialize"); }
void gsl_initialize(int& count) { (void)count; Log("gsl_initialize"); }

void gsl_finalize(int& count) { (void)count; Log("gsl_finalize"); }
void shp_finalize(int& count) { (void)count; Log("shp_finalize"); }
void inpM_finalize(int& count) { (void)count; Log("inpM_finalize"); }
void uti_finalize(int& count) { (void)count; Log("uti_finalize"); }
void utl_finalize(int& count) { (void)count; Log("utl_finalize"); }

// The error sink stays: the driver reads it after the library has finished.
void wip_finalize(int& count) { (void)count; Log("wip_finalize"); }

void nex_finalize(int& count) { (void)count; Log("nex_finalize"); }
void cow_finalize(int& count) { (void)count; Log("cow_finalize"); }
void atr_finalize(int& count) { (void)count; Log("atr_finalize"); }
void omni_finalize(int& count) { (void)count; Log("omni_finalize"); }

void pnt_finalize(int& count) {
    (void)count;
    // A debug line left open by the last phase belongs to the output, not to the
    // thread-end teardown.
    pnt_debugPrint().Flush();
    Log("pnt_finalize");
}

void thr_finalize(int& count) { (void)count; Log("thr_finalize"); }
void typ_finalize(int& count) { (void)count; Log("typ_finalize"); }
void mem_finalize(int& count) { (void)count; Log("mem_finalize"); }

void fnd_InitializeAll(int& count) {
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

void fnd_FinalizeAll(int& count) {
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

cow_1DArrayList<cow_String> fnd_LifetimeLog() {
    std::lock_guard<std::mutex> hold(g_logMutex);
    cow_1DArrayList<cow_String> out;
    for (const char* name : g_log) out.Append(cow_String(name));
    return out;
}

void fnd_ClearLifetimeLog() {
    std::lock_guard<std::mutex> hold(g_logMutex);
    g_log.clear();
}
